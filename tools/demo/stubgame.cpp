// Stand-in for the Quake II executable of the demo install. It starts no game:
// it records how it was started and ends with exit code 0, so that tests can
// check what Torvik hands to the game.
//
// On every run it replaces "stubgame.log" in the folder of its own executable
// and prints the same text to standard output. One item per line, lines ended
// by "\n", in this order:
//
//   stubgame 1                 format mark
//   argc=N                     number of arguments, program name included
//   arg[0]=...                 each argument exactly as received, one a line
//   arg[1]=...
//   cwd=/abs/path              the working folder
//   asdf.cfg: /abs/path        <cwd>/baseq2/asdf.cfg, each part of the path
//                              matched without regard to case, as found on disk
//   asdf.cfg: none             ... or this when there is no such file
//   cfg-line-ends=CRLF         CRLF, LF, mixed, or none (no line break at all);
//                              only when the file was found
//   cfg[1]=...                 each line of asdf.cfg without its line end,
//   cfg[2]=...                 numbered from 1; a last line without line end
//                              counts too; only when the file was found
//   end                        the log is complete
//
// A backslash, a line feed or a carriage return inside a value is written as
// "\\", "\n" or "\r", so that every value stays on its line. The log is
// written to a temporary file and renamed into place: a reader never sees a
// half-written log.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>
#include <QStringList>

#include <cstdio>

namespace {

QString escaped(const QString& value)
{
    QString out;
    out.reserve(value.size());
    for (const QChar c : value) {
        if (c == QLatin1Char('\\'))
            out += QStringLiteral("\\\\");
        else if (c == QLatin1Char('\n'))
            out += QStringLiteral("\\n");
        else if (c == QLatin1Char('\r'))
            out += QStringLiteral("\\r");
        else
            out += c;
    }
    return out;
}

// Torvik treats file names as Windows does, so the folder may be "BaseQ2".
QString findIgnoringCase(const QString& folder, const QStringList& parts)
{
    QString path = folder;
    for (const QString& part : parts) {
        const QString exact = path + QLatin1Char('/') + part;
        if (QFileInfo::exists(exact)) {
            path = exact;
            continue;
        }
        QString match;
        const QStringList entries =
            QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& entry : entries) {
            if (entry.compare(part, Qt::CaseInsensitive) == 0) {
                match = entry;
                break;
            }
        }
        if (match.isEmpty())
            return {};
        path += QLatin1Char('/') + match;
    }
    return QFileInfo(path).isFile() ? path : QString();
}

QString ownFolder(const char* argv0)
{
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    if (!self.isEmpty())
        return QFileInfo(self).absolutePath();
    return QFileInfo(QString::fromLocal8Bit(argv0)).absolutePath();
}

void describeConfig(QStringList& log, const QString& cwd)
{
    const QString path = findIgnoringCase(cwd, {QStringLiteral("baseq2"), QStringLiteral("asdf.cfg")});
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        log << QStringLiteral("asdf.cfg: none");
        return;
    }
    log << QStringLiteral("asdf.cfg: ") + escaped(path);
    const QByteArray text = file.readAll();

    QList<QByteArray> lines = text.split('\n');
    const bool lastEnded = text.endsWith('\n');
    if (lastEnded)
        lines.removeLast(); // the empty piece behind the final line end
    int crlf = 0;
    int lf = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool hasEnd = i + 1 < lines.size() || lastEnded;
        if (!hasEnd)
            break;
        if (lines[i].endsWith('\r')) {
            ++crlf;
            lines[i].chop(1);
        } else {
            ++lf;
        }
    }
    if (crlf == 0 && lf == 0)
        log << QStringLiteral("cfg-line-ends=none");
    else if (lf == 0)
        log << QStringLiteral("cfg-line-ends=CRLF");
    else if (crlf == 0)
        log << QStringLiteral("cfg-line-ends=LF");
    else
        log << QStringLiteral("cfg-line-ends=mixed");
    for (qsizetype i = 0; i < lines.size(); ++i)
        log << QStringLiteral("cfg[%1]=").arg(i + 1) + escaped(QString::fromLocal8Bit(lines[i]));
}

} // namespace

int main(int argc, char** argv)
{
    QStringList log;
    log << QStringLiteral("stubgame 1") << QStringLiteral("argc=%1").arg(argc);
    for (int i = 0; i < argc; ++i)
        log << QStringLiteral("arg[%1]=").arg(i) + escaped(QString::fromLocal8Bit(argv[i]));
    const QString cwd = QDir::currentPath();
    log << QStringLiteral("cwd=") + escaped(cwd);
    describeConfig(log, cwd);
    log << QStringLiteral("end");

    const QByteArray text = (log.join(QLatin1Char('\n')) + QLatin1Char('\n')).toLocal8Bit();
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    std::fflush(stdout);

    QSaveFile out(ownFolder(argc > 0 ? argv[0] : "") + QStringLiteral("/stubgame.log"));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit())
        std::fprintf(stderr, "stubgame: can't write %s\n", qPrintable(out.fileName()));
    return 0;
}
