#include "maps/MapCycles.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFile>
#include <QFileInfo>

namespace torvik {
namespace {

const QString kCycleExtension = QStringLiteral(".mc");
const QString kCurrentCycleFile = QStringLiteral("maps.txt");

QString SavedFolder() { return platform::programContext.inProgramFolder(QStringLiteral("Saved")); }

// The path as spelled on disk when something answers to it, else as given.
QString onDisk(const QString& path)
{
    const QString real = platform::resolvePath(path);
    return real.isEmpty() ? path : real;
}

// A title that would put the file into another folder, or can't be a name.
bool leavesFolder(const QString& title)
{
    return title.contains(QLatin1Char('/')) || title.contains(QChar(0));
}

} // namespace

// Map names are file names: the game opens them with the bytes it reads, so
// they go in and out with the bytes the file system holds.
QStringList parseMapCycle(const QByteArray& bytes)
{
    QStringList maps;
    qsizetype start = 0;
    const qsizetype size = bytes.size();
    while (start < size) {
        qsizetype end = start;
        while (end < size && bytes[end] != '\r' && bytes[end] != '\n')
            ++end;
        if (end > start)
            maps << platform::fileNameFromBytes(bytes.mid(start, end - start));
        if (end + 1 < size && bytes[end] == '\r' && bytes[end + 1] == '\n')
            ++end;
        start = end + 1;
    }
    return maps;
}

QByteArray mapCycleText(const QStringList& maps)
{
    QByteArray out;
    for (const QString& map : maps)
        out += platform::fileNameBytes(map) + "\r\n";
    // The whole text goes out in one print, which ends it with a line end of
    // its own; the reader skips the empty line that makes.
    return out + "\r\n";
}

std::optional<QStringList> readMapCycle(const QString& path)
{
    const QString real = platform::resolvePath(path);
    QByteArray bytes;
    if (real.isEmpty() || !QFileInfo(real).isFile() || !platform::readFile(real, bytes))
        return std::nullopt;
    return parseMapCycle(bytes);
}

bool writeMapCycle(const QString& path, const QStringList& maps)
{
    return platform::writeFile(path, mapCycleText(maps));
}

QString currentCyclePath() { return onDisk(platform::joinPath(platform::programContext.modFolder(), kCurrentCycleFile)); }

QString savedCyclePath(const QString& title)
{
    return onDisk(platform::joinPath(SavedFolder(), title + kCycleExtension));
}

QString cycleSavePath(const QString& title)
{
    if (title == kCurrentCycleTitle)
        return currentCyclePath();
    if (leavesFolder(title))
        return QString();
    const QString& program = platform::programContext.programFolder;
    if (program.endsWith(QLatin1Char('/')))
        return onDisk(program + QStringLiteral("Saved") + title + kCycleExtension);
    return savedCyclePath(title);
}

std::optional<QStringList> readCurrentMapCycle() { return readMapCycle(currentCyclePath()); }

std::optional<QStringList> readSavedMapCycle(const QString& title)
{
    if (leavesFolder(title))
        return std::nullopt;
    return readMapCycle(savedCyclePath(title));
}

QStringList savedCycleTitles()
{
    QStringList titles;
    for (const QString& file : platform::listFiles(SavedFolder(), {QStringLiteral("*.mc")}))
        titles << file.left(file.size() - kCycleExtension.size());
    return titles;
}

QStringList LoadMapCycles() { return QStringList{kCurrentMapCycle} + savedCycleTitles(); }

CycleTitleCheck checkCycleTitle(const QString& title)
{
    if (title.isEmpty())
        return CycleTitleCheck::Empty;
    if (title.size() > MaxCycleTitleLength)
        return CycleTitleCheck::TooLong;
    // Only what a file name here can't hold: "1v1: DM?" is a fine title.
    if (leavesFolder(title))
        return CycleTitleCheck::BadCharacter;
    return CycleTitleCheck::Ok;
}

QString askCycleTitle()
{
    for (;;) {
        const QString title = platform::inputBox(kCycleTitlePrompt, kCycleTitleBoxTitle);
        switch (checkCycleTitle(title)) {
        case CycleTitleCheck::Empty:
            return QString();
        case CycleTitleCheck::TooLong:
            platform::msgBox(kTitleTooLongText);
            break;
        case CycleTitleCheck::BadCharacter:
            platform::msgBox(kTitleBadCharacterText);
            break;
        case CycleTitleCheck::Ok:
            return title;
        }
    }
}

bool SaveMapCycle(const QString& title, const QStringList& maps)
{
    if (maps.isEmpty()) {
        platform::msgBox(kNothingToSaveText);
        return false;
    }
    const QString path = cycleSavePath(title);
    if (path.isEmpty()) {
        platform::msgBox(kTitleBadCharacterText);
        return false;
    }
    if (!writeMapCycle(path, maps)) {
        platform::msgBox(kCycleNotSavedText);
        return false;
    }
    return true;
}

bool deleteSavedCycle(const QString& title)
{
    if (leavesFolder(title))
        return false;
    const QString path = platform::resolvePath(platform::joinPath(SavedFolder(), title + kCycleExtension));
    return !path.isEmpty() && QFileInfo(path).isFile() && QFile::remove(path);
}

bool replaceCurrentCycle(const QString& title, QString* why)
{
    auto fail = [why](const QString& reason) {
        if (why)
            *why = reason;
        return false;
    };
    if (leavesFolder(title))
        return fail(QStringLiteral("\"%1\" is no saved map cycle's title").arg(title));
    const QString source = platform::resolvePath(platform::joinPath(SavedFolder(), title + kCycleExtension));
    QByteArray bytes;
    if (source.isEmpty() || !QFileInfo(source).isFile() || !platform::readFile(source, bytes))
        return fail(QStringLiteral("The saved map cycle %1 can't be read")
                        .arg(platform::joinPath(SavedFolder(), title + kCycleExtension)));
    // Written over the old maps.txt in one step: a write that fails leaves
    // the cycle the mod had.
    const QString target = currentCyclePath();
    if (!platform::writeFile(target, bytes))
        return fail(QStringLiteral("%1 can't be written").arg(target));
    return true;
}

bool FixMapCycle(const QString& combo2Text, const QString& combo2FirstRow)
{
    if (combo2Text == combo2FirstRow)
        return true;
    if (replaceCurrentCycle(combo2Text))
        return true;
    platform::msgBox(kFixMapCycleFailedText);
    platform::exitProgram();
    return false;
}

} // namespace torvik
