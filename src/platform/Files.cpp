#include "platform/Files.h"

#include "platform/ProgramContext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>

namespace platform {

QString joinPath(const QString& folder, const QString& name)
{
    if (folder.isEmpty())
        return name;
    if (folder.endsWith(QLatin1Char('/')))
        return folder + name;
    return folder + QLatin1Char('/') + name;
}

QString folderOf(const QString& path)
{
    const qsizetype at = path.lastIndexOf(QLatin1Char('/'));
    if (at < 0)
        return QString();
    if (at == 0)
        return QStringLiteral("/");
    return path.left(at);
}

QString fileNameOf(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString resolvePath(const QString& path)
{
    if (path.isEmpty())
        return QString();
    if (QFileInfo::exists(path))
        return path;
    const bool absolute = path.startsWith(QLatin1Char('/'));
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString current = absolute ? QStringLiteral("/") : QStringLiteral(".");
    for (const QString& part : parts) {
        const QString exact = joinPath(current, part);
        if (part == QLatin1String(".") || part == QLatin1String("..") || QFileInfo::exists(exact)) {
            current = exact;
            continue;
        }
        const QDir dir(current);
        const QStringList names = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        const auto it = std::find_if(names.begin(), names.end(), [&](const QString& n) {
            return n.compare(part, Qt::CaseInsensitive) == 0;
        });
        if (it == names.end())
            return QString();
        current = joinPath(current, *it);
    }
    if (!absolute && current.startsWith(QLatin1String("./")))
        current = current.mid(2);
    return current;
}

bool fileExists(const QString& path)
{
    const QString real = resolvePath(path);
    return !real.isEmpty() && QFileInfo(real).isFile();
}

bool folderExists(const QString& path)
{
    const QString real = resolvePath(path);
    return !real.isEmpty() && QFileInfo(real).isDir();
}

namespace {

QStringList sortedNames(QStringList names)
{
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int c = a.compare(b, Qt::CaseInsensitive);
        return c != 0 ? c < 0 : a < b;
    });
    return names;
}

} // namespace

QStringList listFiles(const QString& folder, const QStringList& patterns)
{
    const QString real = resolvePath(folder);
    if (real.isEmpty())
        return {};
    QList<QRegularExpression> res;
    for (const QString& p : patterns)
        res.append(QRegularExpression(QRegularExpression::wildcardToRegularExpression(p),
                                      QRegularExpression::CaseInsensitiveOption));
    QStringList out;
    const QFileInfoList infos = QDir(real).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& info : infos) {
        const QString name = info.fileName();
        if (std::any_of(res.begin(), res.end(), [&](const QRegularExpression& re) { return re.match(name).hasMatch(); }))
            out.append(name);
    }
    return sortedNames(out);
}

QStringList listFolders(const QString& folder)
{
    const QString real = resolvePath(folder);
    if (real.isEmpty())
        return {};
    return sortedNames(QDir(real).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot));
}

QStringList listExecutables(const QString& folder)
{
    const QString real = resolvePath(folder);
    if (real.isEmpty())
        return {};
    QStringList out;
    const QFileInfoList infos = QDir(real).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& info : infos) {
        if (info.isExecutable() || info.fileName().endsWith(QLatin1String(".exe"), Qt::CaseInsensitive))
            out.append(info.fileName());
    }
    return sortedNames(out);
}

QString findModLibrary(const QString& folder)
{
    static const char* const names[] = {"gamex86.dll", "game.so", "gamex86_64.so", "gamei386.so"};
    for (const char* n : names) {
        const QString real = resolvePath(joinPath(folder, QLatin1String(n)));
        if (!real.isEmpty() && QFileInfo(real).isFile())
            return fileNameOf(real);
    }
    return QString();
}

QString fileNameFromBytes(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString name = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : name;
}

QByteArray fileNameBytes(const QString& name) { return QFile::encodeName(name); }

bool readFile(const QString& path, QByteArray& out)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return false;
    out = f.readAll();
    return f.error() == QFileDevice::NoError;
}

bool isReadOnlyFile(const QString& path)
{
    const QFileInfo info(path);
    // The owner's write bit decides, so that a file the user locked stays
    // locked even for root, who could write it anyway.
    return info.exists() && !(info.permissions() & QFileDevice::WriteOwner);
}

namespace {
QStringList restoredFiles;

bool isRestoredFile(const QString& path)
{
    if (restoredFiles.isEmpty() || !programEnded())
        return false;
    const QString real = resolvePath(path);
    const QString canonical = QFileInfo(real.isEmpty() ? path : real).absoluteFilePath();
    return restoredFiles.contains(canonical, Qt::CaseInsensitive);
}
} // namespace

void keepRestoredFile(const QString& path)
{
    const QString real = resolvePath(path);
    restoredFiles.append(QFileInfo(real.isEmpty() ? path : real).absoluteFilePath());
}

bool writeFile(const QString& path, const QByteArray& data)
{
    if (isRestoredFile(path))
        return true;
    if (isReadOnlyFile(path) || QFileInfo(path).isDir())
        return false;
    // The new text goes to a temporary file beside the old one and takes its
    // place only once all of it is on disk: a full disk or a size limit
    // leaves the old file as it was, never half of it.
    QSaveFile f(path);
    // Unbuffered, so that a write the disk takes only in part (a full disk,
    // a size limit) is seen here, before the old file is given up.
    if (!f.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (f.write(data) != data.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

bool copyFile(const QString& from, const QString& to)
{
    QByteArray bytes;
    return readFile(from, bytes) && writeFile(to, bytes);
}

} // namespace platform
