#include "Scenario.h"

#include "Doubles.h"
#include "ScriptText.h"
#include "UserActions.h"

#include "demo/DemoInstall.h"
#include "backup/Backup.h"
#include "maps/MapCatalogue.h"
#include "maps/MapCycles.h"
#include "maps/MapInfo.h"
#include "platform/SingleInstance.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/MainForm.h"
#include "bots/BotStore.h"
#include "bots/BotEditorForm.h"
#include "bots/Examination.h"
#include "bots/TeamEditForm.h"
#include "wizard/Program.h"

#include <QApplication>
#include <QColor>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLockFile>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <linux/capability.h>
#include <map>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace harness {
namespace {

// Posted rounds after an action returns, so that work the program deferred
// to the event loop has run before the next line looks.
constexpr int kSettleRounds = 3;
// Attempts to close modal forms left open when the scenario ends.
constexpr int kCloseRounds = 50;

enum class Kind { Option, Preparation, Action, Box, Check, Part };

struct CommandInfo {
    const char* name;
    Kind kind;
    int minArgs;
    int maxArgs; // -1: any number
};

const CommandInfo kCommands[] = {
    {"demo", Kind::Option, 1, 1},
    {"no-location-files", Kind::Option, 0, 0},
    {"other-instance", Kind::Preparation, 0, 0},
    {"fail-next-launch", Kind::Preparation, 0, 0},
    {"random", Kind::Preparation, 1, -1},
    {"pak", Kind::Preparation, 1, -1},
    {"bsp", Kind::Preparation, 2, 3},
    {"truncate", Kind::Preparation, 2, 2},
    {"write", Kind::Preparation, 2, 2},
    {"copy", Kind::Preparation, 2, 2},
    {"remove", Kind::Preparation, 1, 1},
    {"mkdir", Kind::Preparation, 1, 1},
    {"read-only", Kind::Preparation, 1, 1},
    {"unreadable", Kind::Preparation, 1, 1},
    {"start", Kind::Action, 0, 0},
    {"click", Kind::Action, 1, 2},
    {"choose", Kind::Action, 2, 2},
    {"right-click", Kind::Action, 1, 2},
    {"double-click", Kind::Action, 1, 2},
    {"set", Kind::Action, 2, 2},
    {"type", Kind::Action, 2, 2},
    {"key", Kind::Action, 2, 2},
    {"select", Kind::Action, 2, -1},
    {"deselect", Kind::Action, 2, -1},
    {"close", Kind::Action, 1, 1},
    {"snapshot", Kind::Action, 2, 2},
    {"advance", Kind::Action, 1, 1},
    {"answer", Kind::Box, 3, 3},
    {"input", Kind::Box, 3, 3},
    {"check", Kind::Check, 2, -1},
    {"fresh", Kind::Part, 0, 0},
};

const CommandInfo* findCommand(const QString& name)
{
    for (const CommandInfo& c : kCommands) {
        if (name == QLatin1String(c.name))
            return &c;
    }
    return nullptr;
}

std::map<QString, std::function<QString()>>& globalTable()
{
    static std::map<QString, std::function<QString()>> table = [] {
        std::map<QString, std::function<QString()>> t;
        auto text = [&t](const char* name, const QString* v) {
            t[QLatin1String(name)] = [v] { return *v; };
        };
        auto number = [&t](const char* name, const int* v) {
            t[QLatin1String(name)] = [v] { return QString::number(*v); };
        };
        text("ProgramFolder", &torvik::ProgramFolder);
        number("DataFileMode", &torvik::DataFileMode);
        number("SaveRefused", &torvik::SaveRefused);
        text("DataFileName", &torvik::DataFileName);
        text("CompanionFileName", &torvik::CompanionFileName);
        number("RebuildCTFBots", &torvik::RebuildCTFBots);
        text("GameTypeCode", &torvik::GameTypeCode);
        number("MapFamilyAtLoad", &torvik::MapFamilyAtLoad);
        number("LocationsMissing", &torvik::LocationsMissing);
        text("Quake2Location", &torvik::Quake2Location);
        text("GorvanLocation", &torvik::GorvanLocation);
        number("Quake2Set", &torvik::Quake2Set);
        number("GorvanSet", &torvik::GorvanSet);
        number("StoredExeValid", &torvik::StoredExeValid);
        number("ReloadAfterPrefs", &torvik::ReloadAfterPrefs);
        number("PrefsOpen", &torvik::PrefsOpen);
        number("PageNumber", &torvik::PageNumber);
        number("AboutOpen", &torvik::AboutOpen);
        text("LastBotCount", &torvik::LastBotCount);
        // Values that belong to a page, read off the main form's pages;
        // before the form is there they have their start values.
        auto pageValue = [&t](const char* name, int start, std::function<int(torvik::MainForm&)> read) {
            t[QLatin1String(name)] = [start, read] {
                torvik::MainForm* form = torvik::MainFormInstance();
                return QString::number(form ? read(*form) : start);
            };
        };
        pageValue("KeepMapLabel", 0, [](torvik::MainForm& f) { return f.ui.StartMap->KeepMapLabel; });
        pageValue("DirPrimed", 0, [](torvik::MainForm& f) { return f.ui.Preferences->DirPrimed; });
        pageValue("ExePicked", 0, [](torvik::MainForm& f) { return f.ui.Preferences->ExePicked; });
        number("BotFileErrorFlag", &torvik::BotFileErrorFlag);
        number("ShowBotProgress", &torvik::ShowBotProgress);
        auto number16 = [&t](const char* name, const qint16* v) {
            t[QLatin1String(name)] = [v] { return QString::number(*v); };
        };
        number16("BotCount", &torvik::BotCount);
        number16("TeamCount", &torvik::TeamCount);
        number("TeamsSectionLines", &torvik::TeamsSectionLines);
        text("TeamsText", &torvik::TeamsText);
        text("ExamineName", &torvik::ExamineName);
        text("ExamineModel", &torvik::ExamineModel);
        text("ExamineSkin", &torvik::ExamineSkin);
        text("ExamineAccuracy", &torvik::ExamineAccuracy);
        text("ExamineAggressiveness", &torvik::ExamineAggressiveness);
        text("ExamineCombatSkills", &torvik::ExamineCombatSkills);
        text("ExamineFavoriteWeapon", &torvik::ExamineFavoriteWeapon);
        text("ExamineQuadFreak", &torvik::ExamineQuadFreak);
        text("ExamineCamper", &torvik::ExamineCamper);
        text("ExaminePing", &torvik::ExaminePing);
        text("TeamEditIndex", &torvik::TeamEditIndex);
        text("EditIndex", &torvik::EditIndex);
        text("InfoMapName", &torvik::InfoMapName);
        text("CycleTitle", &torvik::CycleTitle);
        number("NoInternalPakMaps", &torvik::NoInternalPakMaps);
        number("NoGorvanPakMaps", &torvik::NoGorvanPakMaps);
        number("MapCatalogueCount", &torvik::MapCatalogueCount);
        number("BackupRescueMode", &backup::BackupRescueMode);
        text("RestoreWhat", &backup::RestoreWhat);
        return t;
    }();
    return table;
}

QString listText(const QStringList& items)
{
    if (items.isEmpty())
        return QStringLiteral("(nothing)");
    QStringList quoted;
    for (const QString& s : items)
        quoted.append(quoteText(s));
    return quoted.join(QStringLiteral(", "));
}

// The rows, tabs or menu items of a control that are enabled, in order.
QString readEnabledItems(QObject* control, QStringList* found)
{
    QStringList rows;
    if (QString e = ui::readRows(control, &rows); !e.isEmpty())
        return e;
    found->clear();
    for (const QString& row : rows) {
        bool on = false;
        if (QString e = ui::readItemEnabled(control, row, &on); !e.isEmpty())
            return e;
        if (on)
            found->append(row);
    }
    return QString();
}

QString yesNo(bool b) { return b ? QStringLiteral("yes") : QStringLiteral("no"); }

// Switches the root user's right to ignore file permissions on and off for
// this thread, so that "read-only" and "unreadable" bite for root too.
bool setPermissionOverride(bool on)
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2] = {};
    if (syscall(SYS_capget, &header, data) != 0)
        return false;
    for (int cap : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        const unsigned bit = 1u << (cap % 32);
        auto& d = data[cap / 32];
        if (on)
            d.effective |= (d.permitted & bit);
        else
            d.effective &= ~bit;
    }
    return syscall(SYS_capset, &header, data) == 0;
}

bool canOpen(const QString& path, int flags)
{
    const QByteArray p = QFile::encodeName(path);
    const int fd = ::open(p.constData(), flags);
    if (fd < 0)
        return false;
    ::close(fd);
    return true;
}

// "maps/m{1..3}.bsp" is maps/m1.bsp, maps/m2.bsp, maps/m3.bsp; a name
// without a range stands for itself.
QList<QByteArray> expandRange(const QByteArray& name, bool* ok)
{
    *ok = true;
    const qsizetype open = name.indexOf('{');
    const qsizetype dots = name.indexOf("..", open);
    const qsizetype close = name.indexOf('}', dots);
    if (open < 0 || dots < 0 || close < 0)
        return {name};
    bool okFirst = false;
    bool okLast = false;
    const int first = name.mid(open + 1, dots - open - 1).toInt(&okFirst);
    const int last = name.mid(dots + 2, close - dots - 2).toInt(&okLast);
    if (!okFirst || !okLast || first > last || last - first > 100000) {
        *ok = false;
        return {};
    }
    QList<QByteArray> names;
    for (int i = first; i <= last; ++i)
        names << name.left(open) + QByteArray::number(i) + name.mid(close + 1);
    return names;
}

void putLe32(QByteArray& out, quint32 v)
{
    out.append(char(v & 0xff)).append(char((v >> 8) & 0xff)).append(char((v >> 16) & 0xff)).append(char(v >> 24));
}


bool copyTree(const QString& from, const QString& to)
{
    const QFileInfo info(from);
    if (info.isFile()) {
        QDir().mkpath(QFileInfo(to).absolutePath());
        QFile::remove(to);
        return QFile::copy(from, to);
    }
    if (!info.isDir())
        return false;
    if (!QDir().mkpath(to))
        return false;
    const QStringList names = QDir(from).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& n : names) {
        if (!copyTree(from + QLatin1Char('/') + n, to + QLatin1Char('/') + n))
            return false;
    }
    return true;
}

class Interpreter {
public:
    Interpreter(const QByteArray& text, const QString& name, const ScenarioOptions& options)
        : text_(text), name_(name), opt_(options)
    {
    }

    ScenarioResult run();

private:
    struct Line {
        int number = 0;
        QString raw;
        QList<Token> words;
        bool restartHere = false; // first line of what leads to a start again
        QString word(int i) const { return i < words.size() ? words[i].text() : QString(); }
    };
    struct Frame {
        int line = 0;
        int id = 0;
        QPointer<QWidget> modalAtStart;
    };
    struct ReplyInfo {
        int line = 0;
        int owner = 0; // id of the action frame that must use it, 0 while none started
        QString what;
    };
    enum class Phase { Running, Finishing, Done };

    void print(const QString& line);
    void fail(int line, const QString& message);
    bool prepareFolders();
    bool parse();
    void markRestarts();
    QString validate(const Line& line) const;
    QString validateCheck(const Line& line) const;

    void post();
    void pump();
    void execute(const Line& line);
    void finishStep();
    void checkSettled();
    void closeForeignBoxes();
    int currentLine() const;
    bool ended() const;
    void cleanup();

    QString doPreparation(const Line& line);
    QString doAction(const Line& line);
    void doBox(const Line& line);
    void doCheck(const Line& line);
    void checkTarget(const Line& line);
    QString resolve(const QString& target, QObject** out, bool* formMissing = nullptr, bool* controlMissing = nullptr) const;
    QString changePermissions(const QString& path, bool readable, bool writable);
    QString lockPath() const { return root_ + QStringLiteral("/torvik.lock"); }
    QString what() const
    {
        const QString base = opt_.part ? QStringLiteral("part %1").arg(opt_.part) : QStringLiteral("scenario");
        return opt_.resumeLine ? QStringLiteral("%1 from line %2").arg(base).arg(opt_.resumeLine) : base;
    }

    QByteArray text_;
    QString name_;
    ScenarioOptions opt_;
    ScenarioResult result_;

    std::unique_ptr<QTemporaryDir> tmp_;
    QString root_, program_, game_, mod_;
    QMap<QString, QByteArray> vars_;
    std::vector<Line> lines_;
    bool mixedCase_ = false;
    bool syntaxOk_ = true;

    std::unique_ptr<RecordingDialogs> dialogs_;
    std::unique_ptr<RecordingLauncher> launcher_;
    std::unique_ptr<RecordingSounds> sounds_;
    std::unique_ptr<ExitRecorder> exit_;
    std::unique_ptr<ScriptedRandom> random_;
    int lastRandomLine_ = 0;
    std::unique_ptr<QLockFile> lock_;
    bool noLocationFiles_ = false;
    bool started_ = false;
    bool stopped_ = false;
    int restartLine_ = 0;
    int beepsSeen_ = 0;
    size_t launchesSeen_ = 0;
    qsizetype soundsSeen_ = 0;

    std::vector<std::shared_ptr<Frame>> running_;
    std::vector<std::shared_ptr<Frame>> settling_;
    int settleRounds_ = 0;
    int nextFrameId_ = 1;
    std::map<int, ReplyInfo> replies_;
    int nextReplyTag_ = 1;

    size_t pc_ = 0;
    int lastLine_ = 0;
    Phase phase_ = Phase::Running;
    bool posted_ = false;
    int closeRounds_ = 0;
    bool timedOut_ = false;
    QObject anchor_;
    QElapsedTimer clock_;

    std::vector<std::pair<QString, QFileDevice::Permissions>> changedPermissions_;
    bool overrideDropped_ = false;
};

void Interpreter::print(const QString& line)
{
    result_.output.append(line);
    if (opt_.print)
        opt_.print(line);
}

void Interpreter::fail(int line, const QString& message)
{
    result_.failures.push_back({line, message});
    print(line > 0 ? QStringLiteral("%1:%2: %3").arg(name_).arg(line).arg(message)
                   : QStringLiteral("%1: %2").arg(name_, message));
}

bool Interpreter::prepareFolders()
{
    if (!opt_.resumeFolder.isEmpty()) {
        root_ = opt_.resumeFolder;
    } else {
        tmp_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/torvik scenario XXXXXX"));
        if (!tmp_->isValid()) {
            fail(0, QStringLiteral("can't make a temporary folder: %1").arg(tmp_->errorString()));
            return false;
        }
        if (qEnvironmentVariableIsSet("TORVIK_SCENARIO_KEEP")) {
            tmp_->setAutoRemove(false);
            print(QStringLiteral("%1: the folder %2 is kept").arg(name_, tmp_->path()));
        }
        root_ = tmp_->path();
    }
    program_ = root_ + QStringLiteral("/program");
    game_ = root_ + QStringLiteral("/game");
    mod_ = demo::modFolder(game_);
    vars_.insert(QStringLiteral("PROGRAM"), program_.toUtf8());
    vars_.insert(QStringLiteral("GAME"), game_.toUtf8());
    vars_.insert(QStringLiteral("MOD"), mod_.toUtf8());
    vars_.insert(QStringLiteral("TEMP"), root_.toUtf8());
    vars_.insert(QStringLiteral("SOURCE"), QByteArray(TORVIK_SOURCE_DIR));
    vars_.insert(QStringLiteral("FIXTURES"), QByteArray(TORVIK_FIXTURES_DIR));
    // The program looks into the player's home folder (the engines' own game
    // folders); a scenario's home is a folder of its own, never the real one.
    const QString home = root_ + QStringLiteral("/home");
    vars_.insert(QStringLiteral("HOME"), home.toUtf8());
    qputenv("HOME", QFile::encodeName(home));
    qunsetenv("XDG_DATA_HOME");
    if (!QDir().mkpath(program_) || !QDir().mkpath(home)) {
        fail(0, QStringLiteral("can't make %1").arg(program_));
        return false;
    }
    if (!opt_.programTemplate.isEmpty() && opt_.resumeFolder.isEmpty()) {
        for (const char* part : {"TKGraphics.dll", "repair", "mapname.dll"}) {
            const QString from = opt_.programTemplate + QLatin1Char('/') + QLatin1String(part);
            if (!copyTree(from, program_ + QLatin1Char('/') + QLatin1String(part))) {
                fail(0, QStringLiteral("can't copy %1 into the program folder").arg(from));
                return false;
            }
        }
    }
    return true;
}

bool Interpreter::parse()
{
    const QList<QByteArray> raw = text_.split('\n');
    int part = 1;
    int firstFresh = 0;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        Line line;
        line.number = int(i) + 1;
        line.raw = QString::fromUtf8(raw[i]).trimmed();
        QString error;
        if (!tokenizeLine(raw[i], vars_, &line.words, &error)) {
            fail(line.number, QStringLiteral("syntax: %1").arg(error));
            syntaxOk_ = false;
            continue;
        }
        if (line.words.isEmpty())
            continue;
        error = validate(line);
        if (!error.isEmpty()) {
            fail(line.number, QStringLiteral("syntax: %1").arg(error));
            syntaxOk_ = false;
            continue;
        }
        // Every line is checked, but only the lines of the part asked for run.
        if (line.word(0) == QLatin1String("fresh")) {
            ++part;
            firstFresh = firstFresh ? firstFresh : line.number;
            continue;
        }
        if (opt_.part != 0 && part != opt_.part)
            continue;
        if (line.word(0) == QLatin1String("demo"))
            mixedCase_ = true;
        if (line.word(0) == QLatin1String("choose")) {
            // Two clicks, the second one inside the menu the first one opens.
            Line menu = line;
            menu.words = {Token{"click", false}, line.words[1]};
            lines_.push_back(menu);
            menu.words = {Token{"click", false}, Token{"popup", false}, line.words[2]};
            lines_.push_back(menu);
            continue;
        }
        if (line.number < opt_.resumeLine)
            continue;
        lines_.push_back(line);
    }
    markRestarts();
    if (firstFresh && opt_.part == 0 && syntaxOk_) {
        fail(firstFresh, QStringLiteral("syntax: fresh needs torvik_scenario, which plays each part in a process of its own"));
        syntaxOk_ = false;
    }
    return syntaxOk_;
}

// A start after the first starts the program anew, in a new process: the
// preparations and answers just before it belong to that new run.
void Interpreter::markRestarts()
{
    bool seen = false;
    for (size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i].word(0) != QLatin1String("start"))
            continue;
        if (seen) {
            size_t first = i;
            while (first > 0) {
                const Kind k = findCommand(lines_[first - 1].word(0))->kind;
                if (k != Kind::Preparation && k != Kind::Box && k != Kind::Option)
                    break;
                --first;
            }
            lines_[first].restartHere = true;
        }
        seen = true;
    }
}

QString Interpreter::validate(const Line& line) const
{
    const QString cmd = line.word(0);
    const CommandInfo* info = findCommand(cmd);
    if (!info)
        return QStringLiteral("unknown command \"%1\"").arg(cmd);
    const int args = int(line.words.size()) - 1;
    if (args < info->minArgs || (info->maxArgs >= 0 && args > info->maxArgs)) {
        if (info->minArgs == info->maxArgs)
            return QStringLiteral("%1 takes %2 argument(s), not %3").arg(cmd).arg(info->minArgs).arg(args);
        return QStringLiteral("%1 takes at least %2 argument(s), not %3").arg(cmd).arg(info->minArgs).arg(args);
    }
    if (cmd == QLatin1String("demo") && line.word(1) != QLatin1String("mixed-case"))
        return QStringLiteral("demo takes \"mixed-case\"");
    if (cmd == QLatin1String("answer") && !answerFromName(line.word(1)))
        return QStringLiteral("answer takes Yes, No, Ok, Cancel or Retry, not \"%1\"").arg(line.word(1));
    if (cmd == QLatin1String("pak")) {
        for (qsizetype i = 2; i < line.words.size(); ++i) {
            bool ok = false;
            expandRange(line.words[i].bytes, &ok);
            if (!ok)
                return QStringLiteral("pak takes names with a range {FIRST..LAST}, not \"%1\"").arg(line.word(int(i)));
        }
    }
    if (cmd == QLatin1String("bsp") && line.words.size() > 3) {
        bool ok = false;
        if (line.word(3).toInt(&ok) < 1 || !ok)
            return QStringLiteral("bsp repeats its title 1 or more times, not \"%1\"").arg(line.word(3));
    }
    if (cmd == QLatin1String("truncate")) {
        bool ok = false;
        if (line.word(2).toLongLong(&ok) < 0 || !ok)
            return QStringLiteral("truncate takes a number of bytes, not \"%1\"").arg(line.word(2));
    }
    if (cmd == QLatin1String("random")) {
        for (qsizetype i = 1; i < line.words.size(); ++i) {
            bool ok = false;
            const double v = line.word(int(i)).toDouble(&ok);
            if (!ok || v < 0.0 || v >= 1.0)
                return QStringLiteral("random takes values from 0 up to but not including 1, not \"%1\"").arg(line.word(int(i)));
        }
    }
    if (cmd == QLatin1String("advance")) {
        bool ok = false;
        const int ms = line.word(1).toInt(&ok);
        if (!ok || ms < 0)
            return QStringLiteral("advance takes milliseconds, not \"%1\"").arg(line.word(1));
    }
    if (cmd == QLatin1String("check"))
        return validateCheck(line);
    return QString();
}

QString Interpreter::validateCheck(const Line& line) const
{
    const QString subject = line.word(1);
    const int rest = int(line.words.size()) - 2;
    auto need = [&](int n, const char* form) -> QString {
        if (rest != n)
            return QStringLiteral("use: check %1").arg(QLatin1String(form));
        return QString();
    };
    auto needBool = [&](int at) -> QString {
        if (!ui::parseBool(line.word(at)))
            return QStringLiteral("\"%1\" isn't yes or no").arg(line.word(at));
        return QString();
    };
    auto needNumber = [&](int at) -> QString {
        bool ok = false;
        line.word(at).toInt(&ok);
        return ok ? QString() : QStringLiteral("\"%1\" isn't a number").arg(line.word(at));
    };
    if (subject == QLatin1String("beeps") || subject == QLatin1String("launches")) {
        if (QString e = need(1, subject == QLatin1String("beeps") ? "beeps N" : "launches N"); !e.isEmpty())
            return e;
        return needNumber(2);
    }
    if (subject == QLatin1String("sounds")) {
        if (QString e = need(1, "sounds N"); !e.isEmpty())
            return e;
        return needNumber(2);
    }
    if (subject == QLatin1String("sound"))
        return need(1, "sound PATH");
    if (subject == QLatin1String("ended")) {
        if (QString e = need(1, "ended yes|no"); !e.isEmpty())
            return e;
        return needBool(2);
    }
    if (subject == QLatin1String("global")) {
        if (QString e = need(2, "global NAME VALUE"); !e.isEmpty())
            return e;
        if (!globalTable().count(line.word(2)))
            return QStringLiteral("unknown global \"%1\"").arg(line.word(2));
        return QString();
    }
    if (subject == QLatin1String("input-default"))
        return need(1, "input-default TEXT");
    if (subject == QLatin1String("box-icon")) {
        static const QStringList icons{QStringLiteral("question"), QStringLiteral("critical"),
                                       QStringLiteral("exclamation"), QStringLiteral("information"),
                                       QStringLiteral("none")};
        if (rest != 1 || !icons.contains(line.word(2)))
            return QStringLiteral("use: check box-icon question|critical|exclamation|information|none");
        return QString();
    }
    if (subject == QLatin1String("file"))
        return need(2, "file PATH CONTENT");
    if (subject == QLatin1String("file-contains"))
        return need(2, "file-contains PATH CONTENT");
    if (subject == QLatin1String("same"))
        return need(2, "same PATH OTHER");
    if (subject == QLatin1String("exists")) {
        if (QString e = need(2, "exists PATH yes|no"); !e.isEmpty())
            return e;
        return needBool(3);
    }
    if (subject == QLatin1String("folder"))
        return rest >= 1 ? QString() : QStringLiteral("use: check folder PATH NAME...");
    if (subject == QLatin1String("launch")) {
        const QString what = line.word(2);
        if (what == QLatin1String("program") || what == QLatin1String("folder"))
            return rest == 2 ? QString() : QStringLiteral("use: check launch %1 TEXT").arg(what);
        if (what == QLatin1String("arguments"))
            return QString();
        return QStringLiteral("use: check launch program|arguments|folder ...");
    }
    // A control, a form or the open pop-up menu.
    const QString property = line.word(2);
    if (rest < 1)
        return QStringLiteral("use: check %1 PROPERTY ...").arg(subject);
    if (property == QLatin1String("caption") || property == QLatin1String("text") ||
        property == QLatin1String("value") || property == QLatin1String("tooltip") ||
        property == QLatin1String("picture"))
        return rest == 2 ? QString() : QStringLiteral("use: check %1 %2 TEXT").arg(subject, property);
    if (property == QLatin1String("enabled") || property == QLatin1String("visible") ||
        property == QLatin1String("exists") || property == QLatin1String("on-top") ||
        property == QLatin1String("focused") || property == QLatin1String("read-only")) {
        if (rest != 2)
            return QStringLiteral("use: check %1 %2 yes|no").arg(subject, property);
        return needBool(3);
    }
    if (property == QLatin1String("rows") || property == QLatin1String("selected") ||
        property == QLatin1String("marked") || property == QLatin1String("headers") ||
        property == QLatin1String("enabled-items"))
        return QString();
    if (property == QLatin1String("image-file"))
        return rest == 2 ? QString() : QStringLiteral("use: check %1 image-file PATH").arg(subject);
    if (property == QLatin1String("blank")) {
        if (rest != 2)
            return QStringLiteral("use: check %1 blank yes|no").arg(subject);
        return needBool(3);
    }
    if (property == QLatin1String("uniform-rows")) {
        if (rest != 2)
            return QStringLiteral("use: check %1 uniform-rows yes|no").arg(subject);
        return needBool(3);
    }
    if (property == QLatin1String("pixel")) {
        bool okX = false;
        bool okY = false;
        const double fx = line.word(3).toDouble(&okX);
        const double fy = line.word(4).toDouble(&okY);
        if (rest != 4 || !QColor::isValidColorName(line.word(5)) || !line.word(5).startsWith(QLatin1Char('#')))
            return QStringLiteral("use: check %1 pixel FX FY #RRGGBB").arg(subject);
        if (!okX || !okY || fx < 0 || fx > 1 || fy < 0 || fy > 1)
            return QStringLiteral("pixel takes fractions from 0 to 1 of the box");
        return QString();
    }
    if (property == QLatin1String("item-enabled") || property == QLatin1String("expanded")) {
        if (rest != 3)
            return QStringLiteral("use: check %1 %2 ITEM yes|no").arg(subject, property);
        return needBool(4);
    }
    if (property == QLatin1String("image"))
        return rest == 3 ? QString() : QStringLiteral("use: check %1 image ITEM N").arg(subject);
    if (property == QLatin1String("cells"))
        return rest >= 2 ? QString() : QStringLiteral("use: check %1 cells ITEM TEXT...").arg(subject);
    return QStringLiteral("unknown property \"%1\"").arg(property);
}

void Interpreter::post()
{
    if (posted_)
        return;
    posted_ = true;
    QMetaObject::invokeMethod(&anchor_, [this] { pump(); }, Qt::QueuedConnection);
}

int Interpreter::currentLine() const { return running_.empty() ? lastLine_ : running_.back()->line; }

bool Interpreter::ended() const
{
    return (exit_ && exit_->count() > 0) || (!opt_.start && torvik::programEnded());
}

void Interpreter::closeForeignBoxes()
{
    // A box that bypasses the dialog service would wait for a real user.
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal)
        return;
    QString what;
    if (auto* box = qobject_cast<QMessageBox*>(modal))
        what = QStringLiteral("message box %1 %2").arg(quoteText(box->windowTitle()), quoteText(box->text()));
    else if (auto* input = qobject_cast<QInputDialog*>(modal))
        what = QStringLiteral("input box %1 %2").arg(quoteText(input->windowTitle()), quoteText(input->labelText()));
    else if (auto* files = qobject_cast<QFileDialog*>(modal))
        what = QStringLiteral("file dialog %1 at %2").arg(quoteText(files->windowTitle()),
                                                          quoteText(files->directory().path()));
    else
        return;
    fail(currentLine(), QStringLiteral("a desktop %1 came up, not through the dialog service; closed it").arg(what));
    static_cast<QDialog*>(modal)->reject();
}

void Interpreter::pump()
{
    posted_ = false;
    if (phase_ == Phase::Done)
        return;
    closeForeignBoxes();
    if (!running_.empty()) {
        // An action that hasn't returned: if it opened a modal form or a
        // menu, its nested loop waits for the next lines; otherwise the
        // program is inside its own event processing and must finish first.
        QWidget* top = ui::openModalOrPopup();
        if (!top || top == running_.back()->modalAtStart) {
            if (!(phase_ == Phase::Finishing && top)) {
                post();
                return;
            }
        }
    }
    if (settleRounds_ > 0) {
        --settleRounds_;
        post();
        return;
    }
    checkSettled();
    if (phase_ == Phase::Running) {
        if (stopped_ || timedOut_ || pc_ >= lines_.size()) {
            phase_ = Phase::Finishing;
        } else {
            const Line& line = lines_[pc_++];
            execute(line);
            if (phase_ != Phase::Done)
                post();
            return;
        }
    }
    finishStep();
}

void Interpreter::checkSettled()
{
    for (const auto& frame : settling_) {
        auto& queue = dialogs_->queued();
        for (auto it = queue.begin(); it != queue.end();) {
            const ReplyInfo& info = replies_[it->tag];
            if (info.owner == frame->id) {
                fail(frame->line, QStringLiteral("the %1 queued at line %2 wasn't used by this line").arg(info.what).arg(info.line));
                it = queue.erase(it);
            } else {
                ++it;
            }
        }
    }
    settling_.clear();
}

void Interpreter::finishStep()
{
    if (!running_.empty()) {
        if (++closeRounds_ > kCloseRounds) {
            fail(currentLine(), QStringLiteral("a nested event loop of the program doesn't end; the run breaks it"));
            // Ends every event loop of the thread, the only way left to unwind.
            QCoreApplication::exit(1);
            post();
            return;
        }
        if (QWidget* top = ui::openModalOrPopup()) {
            const QString shown = top->objectName().isEmpty() ? QString::fromLatin1(top->metaObject()->className())
                                                               : top->objectName();
            print(QStringLiteral("%1: closing %2, still open at the end").arg(name_, shown));
            QPointer<QWidget> guard(top);
            if (auto* dialog = qobject_cast<QDialog*>(top))
                dialog->reject();
            else
                top->close();
            if (guard && guard->isVisible())
                guard->hide();
        }
        post();
        return;
    }
    auto& queue = dialogs_->queued();
    for (const QueuedReply& r : queue) {
        const ReplyInfo& info = replies_[r.tag];
        fail(info.line, QStringLiteral("the %1 was never used").arg(info.what));
    }
    queue.clear();
    if (!random_->queued.empty())
        fail(lastRandomLine_, QStringLiteral("%1 random value(s) queued here were never drawn").arg(random_->queued.size()));
    phase_ = Phase::Done;
}

void Interpreter::execute(const Line& line)
{
    lastLine_ = line.number;
    if (line.restartHere && started_ && ended()) {
        if (opt_.verbose)
            print(QStringLiteral("%1:%2: the program ended; a new process plays on from here").arg(name_).arg(line.number));
        restartLine_ = line.number;
        stopped_ = true;
        return;
    }
    if (opt_.verbose)
        print(QStringLiteral("%1:%2: %3").arg(name_).arg(line.number).arg(line.raw));
    const CommandInfo* info = findCommand(line.word(0));
    switch (info->kind) {
    case Kind::Option:
        if (line.word(0) == QLatin1String("no-location-files")) {
            if (started_)
                fail(line.number, QStringLiteral("no-location-files must come before start"));
            noLocationFiles_ = true;
        }
        return;
    case Kind::Preparation:
        if (QString e = doPreparation(line); !e.isEmpty())
            fail(line.number, e);
        return;
    case Kind::Box:
        doBox(line);
        return;
    case Kind::Check:
        doCheck(line);
        return;
    case Kind::Part:
        return;
    case Kind::Action:
        break;
    }

    if (ended()) {
        fail(line.number, QStringLiteral("the program has ended; the scenario stops here"));
        stopped_ = true;
        return;
    }
    if (!started_ && line.word(0) != QLatin1String("start")) {
        fail(line.number, QStringLiteral("the program isn't started yet; the scenario stops here"));
        stopped_ = true;
        return;
    }
    auto frame = std::make_shared<Frame>();
    frame->line = line.number;
    frame->id = nextFrameId_++;
    frame->modalAtStart = ui::openModalOrPopup();
    for (auto& [tag, reply] : replies_) {
        if (reply.owner == 0)
            reply.owner = frame->id;
    }
    running_.push_back(frame);
    // The next line is due before the action runs: if the action opens a
    // modal form or a menu, its nested event loop carries the scenario on.
    post();
    const QString error = doAction(line);
    std::erase(running_, frame);
    settling_.push_back(frame);
    settleRounds_ = kSettleRounds;
    if (!error.isEmpty()) {
        fail(line.number, error + QStringLiteral("; the scenario stops here"));
        stopped_ = true;
    }
}

QString Interpreter::changePermissions(const QString& path, bool readable, bool writable)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("%1 doesn't exist").arg(quoteText(path));
    if (geteuid() == 0 && !overrideDropped_) {
        if (!setPermissionOverride(false))
            return QStringLiteral("can't give up root's permission override here");
        overrideDropped_ = true;
    }
    const QFileDevice::Permissions before = QFile::permissions(path);
    changedPermissions_.emplace_back(path, before);
    QFileDevice::Permissions now = before;
    if (!writable)
        now &= ~(QFileDevice::WriteOwner | QFileDevice::WriteUser | QFileDevice::WriteGroup | QFileDevice::WriteOther);
    if (!readable)
        now = {};
    if (!QFile::setPermissions(path, now))
        return QStringLiteral("can't change the permissions of %1").arg(quoteText(path));
    // Make sure the change bites, as a user without special rights sees it.
    bool holds = true;
    if (!readable) {
        holds = !canOpen(path, O_RDONLY);
    } else if (!writable && info.isDir()) {
        const QString probe = path + QStringLiteral("/.torvik-probe");
        QFile f(probe);
        holds = !f.open(QIODevice::WriteOnly);
        if (!holds) {
            f.close();
            QFile::remove(probe);
        }
    } else if (!writable) {
        holds = !canOpen(path, O_WRONLY);
    }
    if (!holds)
        return QStringLiteral("%1 can still be %2 here").arg(quoteText(path), readable ? QStringLiteral("written")
                                                                                    : QStringLiteral("read"));
    return QString();
}

QString Interpreter::doPreparation(const Line& line)
{
    const QString cmd = line.word(0);
    const QString path = line.word(1);
    if (cmd == QLatin1String("other-instance")) {
        lock_ = std::make_unique<QLockFile>(lockPath());
        lock_->setStaleLockTime(0);
        if (!lock_->tryLock(0))
            return QStringLiteral("can't take the single-instance lock %1").arg(quoteText(lockPath()));
        return QString();
    }
    if (cmd == QLatin1String("fail-next-launch")) {
        ++launcher_->failNext;
        return QString();
    }
    if (cmd == QLatin1String("pak")) {
        QList<QByteArray> names;
        for (qsizetype i = 2; i < line.words.size(); ++i) {
            bool ok = false;
            names << expandRange(line.words[i].bytes, &ok);
        }
        const QByteArray bytes = pakArchive(names);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
            return QStringLiteral("can't write %1").arg(quoteText(path));
        return QString();
    }
    if (cmd == QLatin1String("bsp")) {
        const QByteArray title = line.words[2].bytes.repeated(line.words.size() > 3 ? line.word(3).toInt() : 1);
        const QByteArray bytes = demo::bspMap(title);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
            return QStringLiteral("can't write %1").arg(quoteText(path));
        return QString();
    }
    if (cmd == QLatin1String("truncate")) {
        if (!QFile::resize(path, line.word(2).toLongLong()))
            return QStringLiteral("can't cut %1").arg(quoteText(path));
        return QString();
    }
    if (cmd == QLatin1String("random")) {
        for (qsizetype i = 1; i < line.words.size(); ++i)
            random_->queued.push_back(line.word(int(i)).toDouble());
        lastRandomLine_ = line.number;
        return QString();
    }
    if (cmd == QLatin1String("write")) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(line.words[2].bytes) != line.words[2].bytes.size())
            return QStringLiteral("can't write %1").arg(quoteText(path));
        return QString();
    }
    if (cmd == QLatin1String("copy")) {
        if (!copyTree(path, line.word(2)))
            return QStringLiteral("can't copy %1 to %2").arg(quoteText(path), quoteText(line.word(2)));
        return QString();
    }
    if (cmd == QLatin1String("remove")) {
        const QFileInfo info(path);
        if (info.isDir() && !info.isSymLink()) {
            if (!QDir(path).removeRecursively())
                return QStringLiteral("can't remove the folder %1").arg(quoteText(path));
        } else if (info.exists() || info.isSymLink()) {
            if (!QFile::remove(path))
                return QStringLiteral("can't remove %1").arg(quoteText(path));
        } else {
            return QStringLiteral("nothing to remove at %1").arg(quoteText(path));
        }
        return QString();
    }
    if (cmd == QLatin1String("mkdir")) {
        if (!QDir().mkpath(path))
            return QStringLiteral("can't make the folder %1").arg(quoteText(path));
        return QString();
    }
    if (cmd == QLatin1String("read-only"))
        return changePermissions(path, true, false);
    if (cmd == QLatin1String("unreadable"))
        return changePermissions(path, false, false);
    return QStringLiteral("unknown preparation");
}

void Interpreter::doBox(const Line& line)
{
    const int tag = nextReplyTag_++;
    ReplyInfo info;
    info.line = line.number;
    if (line.word(0) == QLatin1String("answer")) {
        const platform::Answer a = *answerFromName(line.word(1));
        info.what = QStringLiteral("answer %1 for %2 %3").arg(answerName(a), quoteText(line.word(2)), quoteText(line.word(3)));
        dialogs_->queueAnswer(a, line.word(2), line.word(3), tag);
    } else {
        info.what = QStringLiteral("input %1 for %2 %3").arg(quoteText(line.word(3)), quoteText(line.word(1)), quoteText(line.word(2)));
        dialogs_->queueInput(line.word(3), line.word(1), line.word(2), tag);
    }
    replies_[tag] = info;
}

QString Interpreter::resolve(const QString& target, QObject** out, bool* formMissing, bool* controlMissing) const
{
    *out = nullptr;
    if (target == QLatin1String("popup")) {
        *out = ui::openPopup();
        if (!*out) {
            if (formMissing)
                *formMissing = true;
            return QStringLiteral("no pop-up menu is open");
        }
        return QString();
    }
    const qsizetype dot = target.indexOf(QLatin1Char('.'));
    const QString formName = dot < 0 ? target : target.left(dot);
    QWidget* form = ui::findForm(formName);
    if (!form) {
        if (formMissing)
            *formMissing = true;
        return QStringLiteral("no form %1 is loaded").arg(formName);
    }
    if (dot < 0) {
        *out = form;
        return QString();
    }
    const QString controlName = target.mid(dot + 1);
    QObject* control = ui::findControl(form, controlName);
    if (!control) {
        if (controlMissing)
            *controlMissing = true;
        return QStringLiteral("form %1 has no control %2").arg(formName, controlName);
    }
    *out = control;
    return QString();
}

QString Interpreter::doAction(const Line& line)
{
    const QString cmd = line.word(0);
    if (cmd == QLatin1String("start")) {
        if (started_)
            return QStringLiteral("start comes once, and again only after the program ended");
        // A start again finds the location files of the run before it.
        if (!noLocationFiles_ && opt_.resumeFolder.isEmpty()) {
            const QByteArray q2 = "\"" + demo::gameExecutable(game_).toUtf8() + "\"\r\n";
            const QByteArray gv = "\"" + (mod_ + QStringLiteral("/GAMEX86.DLL")).toUtf8() + "\"\r\n";
            for (const auto& [file, data] : {std::pair{QStringLiteral("/quake2.loc"), q2},
                                             std::pair{QStringLiteral("/gorvan.loc"), gv}}) {
                QFile f(program_ + file);
                if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(data) != data.size())
                    return QStringLiteral("can't write the location file %1").arg(quoteText(program_ + file));
            }
        }
        torvik::ProgramFolder = program_;
        torvik::SingleInstanceLockPath = lockPath();
        started_ = true;
        if (opt_.start)
            opt_.start();
        else
            torvik::startProgram();
        return QString();
    }
    if (cmd == QLatin1String("advance")) {
        platform::Timer::advance(line.word(1).toInt());
        return QString();
    }
    QObject* target = nullptr;
    if (QString e = resolve(line.word(1), &target); !e.isEmpty())
        return e;
    if (cmd == QLatin1String("click") || cmd == QLatin1String("right-click") || cmd == QLatin1String("double-click"))
        return ui::click(target, line.word(2), cmd == QLatin1String("right-click"), cmd == QLatin1String("double-click"));
    if (cmd == QLatin1String("set"))
        return ui::setValue(target, line.word(2));
    if (cmd == QLatin1String("type"))
        return ui::typeText(target, line.word(2));
    if (cmd == QLatin1String("key"))
        return ui::pressKey(target, line.word(2));
    if (cmd == QLatin1String("select") || cmd == QLatin1String("deselect")) {
        QStringList items;
        for (qsizetype i = 2; i < line.words.size(); ++i)
            items.append(line.words[i].text());
        return ui::selectItems(target, items, cmd == QLatin1String("select"));
    }
    if (cmd == QLatin1String("close")) {
        auto* form = qobject_cast<QWidget*>(target);
        if (!form || !form->isWindow() || line.word(1) == QLatin1String("popup"))
            return QStringLiteral("close takes a form");
        form->close();
        return QString();
    }
    if (cmd == QLatin1String("snapshot")) {
        auto* widget = qobject_cast<QWidget*>(target);
        if (!widget)
            return QStringLiteral("snapshot takes a form or a control");
        if (!widget->grab().save(line.word(2), "PNG"))
            return QStringLiteral("can't save the picture as %1").arg(quoteText(line.word(2)));
        return QString();
    }
    return QStringLiteral("unknown action");
}

void Interpreter::doCheck(const Line& line)
{
    const int n = line.number;
    const QString subject = line.word(1);
    auto compare = [&](const QString& what, const QString& expected, const QString& found) {
        if (expected != found)
            fail(n, QStringLiteral("expected %1 %2 / found %3").arg(what, expected, found));
    };
    if (subject == QLatin1String("beeps")) {
        const int found = dialogs_->beeps - beepsSeen_;
        beepsSeen_ = dialogs_->beeps;
        compare(QStringLiteral("beeps"), line.word(2), QString::number(found));
        return;
    }
    if (subject == QLatin1String("launches")) {
        const size_t found = launcher_->starts.size() - launchesSeen_;
        launchesSeen_ = launcher_->starts.size();
        compare(QStringLiteral("launches"), line.word(2), QString::number(found));
        return;
    }
    if (subject == QLatin1String("sounds")) {
        const qsizetype found = sounds_->played.size() - soundsSeen_;
        soundsSeen_ = sounds_->played.size();
        compare(QStringLiteral("sounds"), line.word(2), QString::number(found));
        return;
    }
    if (subject == QLatin1String("sound")) {
        compare(QStringLiteral("sound"), quoteText(line.word(2)),
                sounds_->played.isEmpty() ? QStringLiteral("no sound played") : quoteText(sounds_->played.last()));
        return;
    }
    if (subject == QLatin1String("ended")) {
        compare(QStringLiteral("ended"), yesNo(*ui::parseBool(line.word(2))), yesNo(ended()));
        return;
    }
    if (subject == QLatin1String("global")) {
        compare(QStringLiteral("global %1").arg(line.word(2)), quoteText(line.word(3)),
                quoteText(globalTable()[line.word(2)]()));
        return;
    }
    if (subject == QLatin1String("box-icon")) {
        const BoxRecord* last = nullptr;
        for (const BoxRecord& box : dialogs_->boxes)
            last = box.kind == BoxKind::Message ? &box : last;
        auto iconName = [](platform::Icon icon) {
            switch (icon) {
            case platform::Icon::Question:
                return QStringLiteral("question");
            case platform::Icon::Critical:
                return QStringLiteral("critical");
            case platform::Icon::Exclamation:
                return QStringLiteral("exclamation");
            case platform::Icon::Information:
                return QStringLiteral("information");
            case platform::Icon::None:
                break;
            }
            return QStringLiteral("none");
        };
        if (!last)
            fail(n, QStringLiteral("expected box-icon %1 / found no message box shown").arg(line.word(2)));
        else
            compare(QStringLiteral("box-icon"), line.word(2), iconName(last->icon));
        return;
    }
    if (subject == QLatin1String("input-default")) {
        const BoxRecord* last = nullptr;
        for (const BoxRecord& box : dialogs_->boxes)
            last = box.kind == BoxKind::Input ? &box : last;
        if (!last)
            fail(n, QStringLiteral("expected input-default %1 / found no input box shown").arg(quoteText(line.word(2))));
        else
            compare(QStringLiteral("input-default"), quoteText(line.word(2)), quoteText(last->defaultText));
        return;
    }
    if (subject == QLatin1String("file")) {
        const QString path = line.word(2);
        QFile f(path);
        if (!QFileInfo(path).isFile() || !f.open(QIODevice::ReadOnly)) {
            fail(n, QStringLiteral("expected file %1 %2 / found no readable file").arg(quoteText(path), quoteBytes(line.words[3].bytes)));
            return;
        }
        const QString diff = describeByteDifference(line.words[3].bytes, f.readAll());
        if (!diff.isEmpty())
            fail(n, QStringLiteral("expected file %1 %2").arg(quoteText(path), diff));
        return;
    }
    if (subject == QLatin1String("file-contains")) {
        const QString path = line.word(2);
        QFile f(path);
        if (!QFileInfo(path).isFile() || !f.open(QIODevice::ReadOnly))
            fail(n, QStringLiteral("expected file %1 to hold %2 / found no readable file").arg(quoteText(path), quoteBytes(line.words[3].bytes)));
        else if (!f.readAll().contains(line.words[3].bytes))
            fail(n, QStringLiteral("expected file %1 to hold %2 / found it doesn't").arg(quoteText(path), quoteBytes(line.words[3].bytes)));
        return;
    }
    if (subject == QLatin1String("same")) {
        QByteArray contents[2];
        for (int i = 0; i < 2; ++i) {
            const QString path = line.word(2 + i);
            QFile f(path);
            if (!QFileInfo(path).isFile() || !f.open(QIODevice::ReadOnly)) {
                fail(n, QStringLiteral("expected %1 to be a readable file / found none").arg(quoteText(path)));
                return;
            }
            contents[i] = f.readAll();
        }
        if (contents[0] != contents[1])
            fail(n, QStringLiteral("expected %1 to hold the bytes of %2 / found %3 bytes against %4")
                        .arg(quoteText(line.word(2)), quoteText(line.word(3)))
                        .arg(contents[0].size())
                        .arg(contents[1].size()));
        return;
    }
    if (subject == QLatin1String("exists")) {
        const QString path = line.word(2);
        compare(QStringLiteral("exists %1").arg(quoteText(path)), yesNo(*ui::parseBool(line.word(3))),
                yesNo(QFileInfo::exists(path) || QFileInfo(path).isSymLink()));
        return;
    }
    if (subject == QLatin1String("folder")) {
        const QString path = line.word(2);
        QStringList expected;
        for (qsizetype i = 3; i < line.words.size(); ++i)
            expected.append(line.words[i].text());
        if (!QFileInfo(path).isDir()) {
            fail(n, QStringLiteral("expected folder %1 holding %2 / found no folder").arg(quoteText(path), listText(expected)));
            return;
        }
        QStringList found = QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        std::sort(found.begin(), found.end(), [](const QString& a, const QString& b) {
            const int c = a.compare(b, Qt::CaseInsensitive);
            return c != 0 ? c < 0 : a < b;
        });
        compare(QStringLiteral("folder %1 holding").arg(quoteText(path)), listText(expected), listText(found));
        return;
    }
    if (subject == QLatin1String("launch")) {
        const QString what = line.word(2);
        QStringList expected;
        for (qsizetype i = 3; i < line.words.size(); ++i)
            expected.append(line.words[i].text());
        if (launcher_->starts.empty()) {
            fail(n, QStringLiteral("expected launch %1 %2 / found no process started").arg(what, listText(expected)));
            return;
        }
        const platform::ProcessStart& last = launcher_->starts.back();
        QStringList found;
        if (what == QLatin1String("program"))
            found = QStringList{last.program};
        else if (what == QLatin1String("folder"))
            found = QStringList{last.workingFolder};
        else
            found = last.arguments;
        compare(QStringLiteral("launch %1").arg(what), listText(expected), listText(found));
        return;
    }
    checkTarget(line);
}

void Interpreter::checkTarget(const Line& line)
{
    const int n = line.number;
    const QString target = line.word(1);
    const QString property = line.word(2);
    const QString what = QStringLiteral("%1 %2").arg(target, property);
    auto compare = [&](const QString& expected, const QString& found) {
        if (expected != found)
            fail(n, QStringLiteral("expected %1 %2 / found %3").arg(what, expected, found));
    };
    bool formMissing = false;
    bool controlMissing = false;
    QObject* object = nullptr;
    const QString error = resolve(target, &object, &formMissing, &controlMissing);
    if (property == QLatin1String("exists")) {
        if (!error.isEmpty() && !formMissing && !controlMissing) {
            fail(n, error);
            return;
        }
        compare(yesNo(*ui::parseBool(line.word(3))), yesNo(object != nullptr));
        return;
    }
    if (property == QLatin1String("visible") && formMissing) {
        // A form that isn't loaded, or a menu that isn't open, isn't seen.
        compare(yesNo(*ui::parseBool(line.word(3))), yesNo(false));
        return;
    }
    if (!error.isEmpty()) {
        fail(n, QStringLiteral("expected %1 ... / found %2").arg(what, error));
        return;
    }
    QString problem;
    if (property == QLatin1String("visible")) {
        compare(yesNo(*ui::parseBool(line.word(3))), yesNo(ui::isVisibleToUser(object)));
    } else if (property == QLatin1String("read-only")) {
        bool on = false;
        problem = ui::readReadOnly(object, &on);
        if (problem.isEmpty())
            compare(yesNo(*ui::parseBool(line.word(3))), yesNo(on));
    } else if (property == QLatin1String("enabled") || property == QLatin1String("on-top") ||
               property == QLatin1String("focused")) {
        bool on = false;
        if (property == QLatin1String("enabled"))
            problem = ui::readEnabled(object, &on);
        else if (property == QLatin1String("on-top"))
            problem = ui::readOnTop(object, &on);
        else
            problem = ui::readFocused(object, &on);
        if (problem.isEmpty())
            compare(yesNo(*ui::parseBool(line.word(3))), yesNo(on));
    } else if (property == QLatin1String("caption") || property == QLatin1String("text") ||
               property == QLatin1String("value") || property == QLatin1String("tooltip") ||
               property == QLatin1String("picture")) {
        QString found;
        if (property == QLatin1String("picture"))
            problem = ui::readPicture(object, &found);
        else if (property == QLatin1String("caption"))
            problem = ui::readCaption(object, &found);
        else if (property == QLatin1String("text"))
            problem = ui::readText(object, &found);
        else if (property == QLatin1String("value"))
            problem = ui::readValue(object, &found);
        else
            problem = ui::readToolTip(object, &found);
        if (problem.isEmpty())
            compare(quoteText(line.word(3)), quoteText(found));
    } else if (property == QLatin1String("rows") || property == QLatin1String("selected") ||
               property == QLatin1String("marked") || property == QLatin1String("headers") ||
               property == QLatin1String("enabled-items")) {
        QStringList expected;
        for (qsizetype i = 3; i < line.words.size(); ++i)
            expected.append(line.words[i].text());
        QStringList found;
        if (property == QLatin1String("rows"))
            problem = ui::readRows(object, &found);
        else if (property == QLatin1String("selected"))
            problem = ui::readSelectedRows(object, &found);
        else if (property == QLatin1String("marked"))
            problem = ui::readMarkedRows(object, &found);
        else if (property == QLatin1String("enabled-items"))
            problem = readEnabledItems(object, &found);
        else
            problem = ui::readHeaders(object, &found);
        if (problem.isEmpty())
            compare(listText(expected), listText(found));
    } else if (property == QLatin1String("image-file")) {
        QString found;
        problem = ui::readPictureFile(object, &found);
        if (problem.isEmpty())
            compare(quoteText(line.word(3)), quoteText(found));
    } else if (property == QLatin1String("blank")) {
        bool blank = false;
        problem = ui::readBlank(object, &blank);
        if (problem.isEmpty())
            compare(yesNo(*ui::parseBool(line.word(3))), yesNo(blank));
    } else if (property == QLatin1String("uniform-rows")) {
        bool uniform = false;
        problem = ui::readUniformRows(object, &uniform);
        if (problem.isEmpty())
            compare(yesNo(*ui::parseBool(line.word(3))), yesNo(uniform));
    } else if (property == QLatin1String("pixel")) {
        QString found;
        problem = ui::readPixel(object, line.word(3).toDouble(), line.word(4).toDouble(), &found);
        if (problem.isEmpty() && found.compare(line.word(5), Qt::CaseInsensitive) != 0)
            fail(n, QStringLiteral("expected %1 pixel %2 %3 %4 / found %5")
                        .arg(target, line.word(3), line.word(4), line.word(5).toUpper(), found));
    } else if (property == QLatin1String("item-enabled")) {
        bool on = false;
        problem = ui::readItemEnabled(object, line.word(3), &on);
        if (problem.isEmpty()) {
            const QString itemWhat = QStringLiteral("%1 item-enabled %2").arg(target, quoteText(line.word(3)));
            if (*ui::parseBool(line.word(4)) != on)
                fail(n, QStringLiteral("expected %1 %2 / found %3").arg(itemWhat, yesNo(!on), yesNo(on)));
        }
    } else if (property == QLatin1String("expanded")) {
        bool on = false;
        problem = ui::readExpanded(object, line.word(3), &on);
        if (problem.isEmpty() && *ui::parseBool(line.word(4)) != on)
            fail(n, QStringLiteral("expected %1 expanded %2 %3 / found %4")
                        .arg(target, quoteText(line.word(3)), yesNo(!on), yesNo(on)));
    } else if (property == QLatin1String("image")) {
        QString found;
        problem = ui::readImage(object, line.word(3), &found);
        if (problem.isEmpty() && found != line.word(4))
            fail(n, QStringLiteral("expected %1 image %2 %3 / found %4")
                        .arg(target, quoteText(line.word(3)), line.word(4), found));
    } else if (property == QLatin1String("cells")) {
        QStringList expected;
        for (qsizetype i = 4; i < line.words.size(); ++i)
            expected.append(line.words[i].text());
        QStringList found;
        problem = ui::readCells(object, line.word(3), &found);
        if (problem.isEmpty() && expected != found)
            fail(n, QStringLiteral("expected %1 cells of %2 %3 / found %4")
                        .arg(target, quoteText(line.word(3)), listText(expected), listText(found)));
    }
    if (!problem.isEmpty())
        fail(n, QStringLiteral("expected %1 ... / found %2").arg(what, problem));
}

void Interpreter::cleanup()
{
    if (dialogs_)
        dialogs_->onProblem = nullptr;
    if (overrideDropped_)
        setPermissionOverride(true);
    for (auto it = changedPermissions_.rbegin(); it != changedPermissions_.rend(); ++it)
        QFile::setPermissions(it->first, it->second | QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                             QFileDevice::ExeOwner);
    lock_.reset();
    // The program's lock lies in the temporary folder, which goes now.
    platform::releaseSingleInstance();
}

ScenarioResult Interpreter::run()
{
    ensureApplication();
    QList<QPointer<QWidget>> before;
    for (QWidget* w : QApplication::topLevelWidgets())
        before.append(w);

    if (!prepareFolders() || !parse()) {
        result_.mistakes = !syntaxOk_;
        print(QStringLiteral("%1: %2 failed").arg(name_, what()));
        return result_;
    }
    QString error;
    demo::DemoOptions demoOptions;
    demoOptions.mixedCase = mixedCase_;
    if (opt_.resumeFolder.isEmpty() && !demo::createDemoInstall(game_, &error, demoOptions)) {
        fail(0, QStringLiteral("can't make the demo install: %1").arg(error));
        print(QStringLiteral("%1: %2 failed").arg(name_, what()));
        return result_;
    }

    dialogs_ = std::make_unique<RecordingDialogs>();
    launcher_ = std::make_unique<RecordingLauncher>();
    sounds_ = std::make_unique<RecordingSounds>();
    exit_ = std::make_unique<ExitRecorder>();
    random_ = std::make_unique<ScriptedRandom>();
    dialogs_->onProblem = [this](const QString& problem) { fail(currentLine(), problem); };
    const bool manualBefore = platform::Timer::manualClock();
    platform::Timer::useManualClock(true);

    clock_.start();
    QTimer watchdog;
    watchdog.setInterval(100);
    QObject::connect(&watchdog, &QTimer::timeout, &anchor_, [this] {
        const qint64 elapsed = clock_.elapsed();
        if (!timedOut_ && elapsed > opt_.timeoutMs) {
            timedOut_ = true;
            fail(currentLine(), QStringLiteral("the run took longer than %1 ms; it stops here").arg(opt_.timeoutMs));
            post();
        } else if (elapsed > qint64(opt_.timeoutMs) + 20000) {
            print(QStringLiteral("%1: scenario failed: the program doesn't give control back").arg(name_));
            std::fflush(stdout);
            std::_Exit(1);
        }
    });
    watchdog.start();

    post();
    while (phase_ != Phase::Done)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    watchdog.stop();

    // The forms of this run go; those that were there before stay.
    QList<QPointer<QWidget>> created;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        bool old = false;
        for (const QPointer<QWidget>& b : before)
            old = old || b == w;
        if (!old)
            created.append(w);
    }
    for (const QPointer<QWidget>& w : created) {
        if (w)
            delete w.data();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    cleanup();
    platform::Timer::useManualClock(manualBefore);
    exit_.reset();
    random_.reset();
    launcher_.reset();
    sounds_.reset();
    dialogs_.reset();

    if (restartLine_) {
        if (tmp_)
            tmp_->setAutoRemove(false);
        result_.restartLine = restartLine_;
        result_.folder = root_;
    }
    result_.passed = result_.failures.empty();
    print(QStringLiteral("%1: %2 %3").arg(name_, what(), result_.passed ? QStringLiteral("passed") : QStringLiteral("failed")));
    return result_;
}

} // namespace

// A PAK archive as the game's tools write it: header, each member's data
// ("IBSP"), then the directory. A name of 56 bytes or more fills its field
// without the ending NUL.
QByteArray pakArchive(const QList<QByteArray>& names)
{
    const QByteArray data("IBSP");
    QByteArray body;
    QByteArray dir;
    for (const QByteArray& name : names) {
        QByteArray entry = name.left(56);
        entry += QByteArray(56 - entry.size(), '\0');
        putLe32(entry, quint32(12 + body.size()));
        putLe32(entry, quint32(data.size()));
        dir += entry;
        body += data;
    }
    QByteArray out("PACK");
    putLe32(out, quint32(12 + body.size()));
    putLe32(out, quint32(dir.size()));
    return out + body + dir;
}

ScenarioResult runScenario(const QByteArray& text, const QString& name, const ScenarioOptions& options)
{
    Interpreter interpreter(text, name, options);
    return interpreter.run();
}

ScenarioResult runScenarioFile(const QString& path, const ScenarioOptions& options)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        ScenarioResult r;
        r.failures.push_back({0, QStringLiteral("can't read the scenario file")});
        const QString line = QStringLiteral("%1: can't read the scenario file").arg(path);
        r.output.append(line);
        if (options.print)
            options.print(line);
        return r;
    }
    return runScenario(f.readAll(), path, options);
}

int scenarioParts(const QByteArray& text)
{
    int parts = 1;
    for (const QByteArray& raw : text.split('\n')) {
        QList<Token> words;
        QString error;
        if (tokenizeLine(raw, {}, &words, &error) && words.size() == 1 && words[0].bytes == "fresh")
            ++parts;
    }
    return parts;
}

void registerScenarioGlobal(const QString& name, std::function<QString()> read)
{
    globalTable()[name] = std::move(read);
}

} // namespace harness
