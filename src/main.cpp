#include "wizard/Globals.h"
#include "wizard/Program.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Torvik"));
    torvik::ProgramFolder = QCoreApplication::applicationDirPath();
    torvik::startProgram();
    return QApplication::exec();
}
