#include "demo/DemoInstall.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    QString error;
    if (!demo::createDemoInstall(QString::fromLocal8Bit(argv[1]), &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    return 0;
}
