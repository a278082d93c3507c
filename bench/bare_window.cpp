// The baseline for bench/first_page: a bare Qt window with one label, built
// and timed the same way. It prints "first-page-ms N peak-kib M" once the
// window is shown, then quits.
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include <sys/resource.h>

#include <cstdio>

int main(int argc, char** argv)
{
    QElapsedTimer clock;
    clock.start();
    QApplication app(argc, argv);
    QLabel label(QStringLiteral("Torvik"));
    label.show();
    QTimer::singleShot(0, &app, [&] {
        label.repaint();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        std::printf("first-page-ms %lld peak-kib %ld\n", static_cast<long long>(clock.elapsed()), usage.ru_maxrss);
        std::fflush(stdout);
        QApplication::quit();
    });
    return QApplication::exec();
}
