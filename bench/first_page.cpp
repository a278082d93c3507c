// Start-up as a user with a big install meets it: the real program, from its
// first form to the wizard's first page, and nothing more.
//
//   first_page --make ROOT BOTS MODELS MAPS   writes an install under ROOT
//   first_page ROOT                           starts Torvik on it, quits at the first page
//
// The run prints "first-page-ms N peak-kib M bots B maps P": the time from the start of
// main to the first page shown, the peak resident memory then, and what was
// loaded. The
// install holds the demo game, MODELS player models of four skins each,
// a bots.cfg of BOTS rows over them and a PAK that brings the maps to MAPS;
// "0 0 14" leaves the demo game as it comes.
// bench/first_page.sh runs it beside bench/bare_window.
#include "bots/BotStore.h"
#include "bots/BotsFile.h"
#include "demo/DemoInstall.h"
#include "harness/Scenario.h"
#include "maps/MapCatalogue.h"
#include "platform/Files.h"
#include "wizard/Globals.h"
#include "wizard/Program.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <sys/resource.h>

#include <cstdio>
#include <random>

namespace {

// The maps the demo game brings of its own.
constexpr int kDemoMaps = 14;

QByteArray pakOfMaps(int count)
{
    QList<QByteArray> names;
    names.reserve(count);
    for (int i = 1; i <= count; ++i)
        names << "maps/big" + QByteArray::number(i) + ".bsp";
    return harness::pakArchive(names);
}

QByteArray botsFile(int rows, int models)
{
    std::vector<torvik::BotRecord> bots;
    std::mt19937 random(618);
    for (int i = 0; i < rows; ++i) {
        torvik::BotRecord b;
        b.Name = QStringLiteral("Bot%1").arg(i, 5, 10, QLatin1Char('0'));
        b.ModelSkin = QStringLiteral("model%1/skin%2").arg(int(random() % models), 3, 10, QLatin1Char('0'))
                          .arg(int(random() % 4));
        b.Accuracy = qint16(1 + random() % 5);
        b.Aggressiveness = qint16(1 + random() % 5);
        b.CombatSkills = qint16(1 + random() % 5);
        b.FavoriteWeapon = qint16(random() % 10);
        b.QuadFreak = qint16(random() % 2);
        b.Camper = qint16(random() % 2);
        b.Ping = qint16(50 * (1 + random() % 8));
        bots.push_back(b);
    }
    std::shuffle(bots.begin(), bots.end(), random);
    const QString teams = QStringLiteral("\"Reds\"\t\"R\"\t\"model001/skin0\"\t[\"Bot00001\" \"Bot00002\" ]\r\n");
    return torvik::botsFileForBots(bots, teams).value_or(QByteArray());
}

bool makeInstall(const QString& root, int bots, int models, int maps)
{
    const QString game = root + QStringLiteral("/game");
    const QString program = root + QStringLiteral("/program");
    QString error;
    if (!demo::createDemoInstall(game, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    const QString players = demo::baseFolder(game) + QStringLiteral("/players");
    for (int m = 0; m < models; ++m) {
        const QString folder = players + QStringLiteral("/model%1").arg(m, 3, 10, QLatin1Char('0'));
        QDir().mkpath(folder);
        platform::writeFile(folder + QStringLiteral("/tris.md2"), "IDP2");
        platform::writeFile(folder + QStringLiteral("/weapon.pcx"), "x");
        for (int s = 0; s < 4; ++s) {
            platform::writeFile(folder + QStringLiteral("/skin%1.pcx").arg(s), "x");
            platform::writeFile(folder + QStringLiteral("/skin%1_i.pcx").arg(s), "x");
        }
    }
    // No bots and no more maps than its own: the demo game as it comes.
    if (bots > 0) {
        const QByteArray cfg = botsFile(bots, models);
        if (cfg.isEmpty() || !platform::writeFile(demo::modFolder(game) + QStringLiteral("/bots.cfg"), cfg))
            return false;
    }
    if (maps > kDemoMaps
        && !platform::writeFile(demo::baseFolder(game) + QStringLiteral("/pak2.pak"), pakOfMaps(maps - kDemoMaps)))
        return false;
    QDir().mkpath(program);
    const QString bin = QCoreApplication::applicationDirPath();
    return platform::writeFile(program + QStringLiteral("/quake2.loc"),
                                  "\"" + demo::gameExecutable(game).toUtf8() + "\"\r\n")
           && platform::writeFile(program + QStringLiteral("/gorvan.loc"),
                                  "\"" + (demo::modFolder(game) + QStringLiteral("/GAMEX86.DLL")).toUtf8() + "\"\r\n")
           && QFile::copy(bin + QStringLiteral("/TKGraphics.dll"), program + QStringLiteral("/TKGraphics.dll"));
}

long peakKib()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer clock;
    clock.start();
    QApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() == 5 && args[0] == QLatin1String("--make"))
        return makeInstall(args[1], args[2].toInt(), args[3].toInt(), args[4].toInt()) ? 0 : 1;
    if (args.size() != 1) {
        std::fprintf(stderr, "usage: %s --make ROOT BOTS MODELS MAPS | %s ROOT\n", argv[0], argv[0]);
        return 2;
    }
    const QString root = args[0];
    // The player's own home folder stays out of it.
    qputenv("HOME", QFile::encodeName(root + QStringLiteral("/home")));
    QApplication::setApplicationName(QStringLiteral("Torvik"));
    torvik::ProgramFolder = root + QStringLiteral("/program");
    torvik::SingleInstanceLockPath = root + QStringLiteral("/torvik.lock");
    torvik::startProgram();

    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->objectName() == QLatin1String("Main") && w->isVisible()) {
                watch.stop();
                w->repaint();
                // What was loaded, so that a run that met an error box shows it.
                std::printf("first-page-ms %lld peak-kib %ld bots %d maps %d\n",
                            static_cast<long long>(clock.elapsed()), peakKib(), int(torvik::BotCount),
                            int(torvik::MapCatalogueCount));
                std::fflush(stdout);
                torvik::ExitProgram();
                return;
            }
        }
        if (clock.elapsed() > 30000) {
            std::fprintf(stderr, "no first page after 30 s\n");
            std::_Exit(1);
        }
    });
    watch.start(1);
    return QApplication::exec();
}
