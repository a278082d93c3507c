#include "Doubles.h"

#include "ScriptText.h"

#include <QApplication>

namespace harness {

void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "torvik-test";
    static char* argv[] = {name, nullptr};
    // Lives for the rest of the process: widgets of later tests need it.
    new QApplication(argc, argv);
}

QString answerName(platform::Answer answer)
{
    switch (answer) {
    case platform::Answer::Ok: return QStringLiteral("Ok");
    case platform::Answer::Cancel: return QStringLiteral("Cancel");
    case platform::Answer::Yes: return QStringLiteral("Yes");
    case platform::Answer::No: return QStringLiteral("No");
    case platform::Answer::Retry: return QStringLiteral("Retry");
    }
    return QString();
}

std::optional<platform::Answer> answerFromName(const QString& name)
{
    for (platform::Answer a : {platform::Answer::Ok, platform::Answer::Cancel, platform::Answer::Yes,
                               platform::Answer::No, platform::Answer::Retry}) {
        if (name.compare(answerName(a), Qt::CaseInsensitive) == 0)
            return a;
    }
    return std::nullopt;
}

QString buttonsName(platform::Buttons buttons)
{
    switch (buttons) {
    case platform::Buttons::Ok: return QStringLiteral("Ok");
    case platform::Buttons::OkCancel: return QStringLiteral("Ok/Cancel");
    case platform::Buttons::YesNo: return QStringLiteral("Yes/No");
    case platform::Buttons::YesNoCancel: return QStringLiteral("Yes/No/Cancel");
    case platform::Buttons::RetryCancel: return QStringLiteral("Retry/Cancel");
    }
    return QString();
}

bool answerOffered(platform::Answer answer, platform::Buttons buttons)
{
    using platform::Answer;
    switch (buttons) {
    case platform::Buttons::Ok: return answer == Answer::Ok;
    case platform::Buttons::OkCancel: return answer == Answer::Ok || answer == Answer::Cancel;
    case platform::Buttons::YesNo: return answer == Answer::Yes || answer == Answer::No;
    case platform::Buttons::YesNoCancel: return answer != Answer::Ok && answer != Answer::Retry;
    case platform::Buttons::RetryCancel: return answer == Answer::Retry || answer == Answer::Cancel;
    }
    return false;
}

platform::Answer safeAnswer(platform::Buttons buttons)
{
    switch (buttons) {
    case platform::Buttons::Ok: return platform::Answer::Ok;
    case platform::Buttons::YesNo: return platform::Answer::No;
    case platform::Buttons::OkCancel:
    case platform::Buttons::YesNoCancel:
    case platform::Buttons::RetryCancel: return platform::Answer::Cancel;
    }
    return platform::Answer::Ok;
}

ScriptedRandom::ScriptedRandom() { platform::setRandomSource(this); }

ScriptedRandom::~ScriptedRandom() { platform::setRandomSource(nullptr); }

double ScriptedRandom::fraction()
{
    ++draws;
    if (!queued.empty()) {
        const double v = queued.front();
        queued.pop_front();
        return v;
    }
    // splitmix64: plenty for picking maps, and the same on every machine.
    quint64 z = (state_ += 0x9e3779b97f4a7c15ull);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
    z ^= z >> 31;
    return double(z >> 11) / double(1ull << 53);
}

RecordingDialogs::RecordingDialogs() { platform::setDialogs(this); }

RecordingDialogs::~RecordingDialogs()
{
    if (&platform::dialogs() == this)
        platform::setDialogs(nullptr);
}

void RecordingDialogs::queueAnswer(platform::Answer answer, std::optional<QString> title,
                                   std::optional<QString> text, int tag)
{
    QueuedReply r;
    r.kind = BoxKind::Message;
    r.title = std::move(title);
    r.text = std::move(text);
    r.answer = answer;
    r.tag = tag;
    queue_.push_back(std::move(r));
}

void RecordingDialogs::queueInput(const QString& typed, std::optional<QString> title,
                                  std::optional<QString> prompt, int tag)
{
    QueuedReply r;
    r.kind = BoxKind::Input;
    r.title = std::move(title);
    r.text = std::move(prompt);
    r.typed = typed;
    r.tag = tag;
    queue_.push_back(std::move(r));
}

void RecordingDialogs::problem(const QString& what)
{
    problems.append(what);
    if (onProblem)
        onProblem(what);
}

namespace {

QString describe(BoxKind kind, const QString& title, const QString& text)
{
    return QStringLiteral("%1 %2 %3")
        .arg(kind == BoxKind::Message ? QStringLiteral("message box") : QStringLiteral("input box"),
             quoteText(title), quoteText(text));
}

// Compares a box with the reply queued for it; empty when they agree.
QString mismatch(const QueuedReply& r, BoxKind kind, const QString& title, const QString& text)
{
    const bool same = r.kind == kind && (!r.title || *r.title == title) && (!r.text || *r.text == text);
    if (same)
        return QString();
    return QStringLiteral("expected %1 / found %2")
        .arg(describe(r.kind, r.title.value_or(QStringLiteral("*")), r.text.value_or(QStringLiteral("*"))),
             describe(kind, title, text));
}

} // namespace

platform::Answer RecordingDialogs::message(const QString& text, const QString& title,
                                           platform::Buttons buttons, platform::Icon icon)
{
    BoxRecord rec;
    rec.kind = BoxKind::Message;
    rec.title = title;
    rec.text = text;
    rec.buttons = buttons;
    rec.icon = icon;
    rec.answer = safeAnswer(buttons);
    if (queue_.empty()) {
        problem(QStringLiteral("%1 came with no answer queued (answered %2)")
                    .arg(describe(BoxKind::Message, title, text), answerName(rec.answer)));
    } else {
        const QueuedReply r = queue_.front();
        queue_.pop_front();
        const QString diff = mismatch(r, BoxKind::Message, title, text);
        if (!diff.isEmpty())
            problem(diff);
        if (r.kind == BoxKind::Message) {
            if (answerOffered(r.answer, buttons))
                rec.answer = r.answer;
            else
                problem(QStringLiteral("answer %1 isn't offered by %2 (buttons %3; answered %4)")
                            .arg(answerName(r.answer), describe(BoxKind::Message, title, text),
                                 buttonsName(buttons), answerName(rec.answer)));
        }
    }
    boxes.push_back(rec);
    return rec.answer;
}

QString RecordingDialogs::input(const QString& prompt, const QString& title, const QString& defaultText)
{
    BoxRecord rec;
    rec.kind = BoxKind::Input;
    rec.title = title;
    rec.text = prompt;
    rec.defaultText = defaultText;
    rec.answer = platform::Answer::Cancel;
    if (queue_.empty()) {
        problem(QStringLiteral("%1 came with no answer queued (cancelled)")
                    .arg(describe(BoxKind::Input, title, prompt)));
    } else {
        const QueuedReply r = queue_.front();
        queue_.pop_front();
        const QString diff = mismatch(r, BoxKind::Input, title, prompt);
        if (!diff.isEmpty())
            problem(diff);
        if (r.kind == BoxKind::Input) {
            rec.typed = r.typed;
            rec.answer = platform::Answer::Ok;
        }
    }
    boxes.push_back(rec);
    return rec.typed;
}

RecordingLauncher::RecordingLauncher() { platform::setLauncher(this); }

RecordingLauncher::~RecordingLauncher()
{
    if (&platform::launcher() == this)
        platform::setLauncher(nullptr);
}

bool RecordingLauncher::start(const platform::ProcessStart& what)
{
    // A start that failed started nothing, so only successes are kept.
    if (failNext > 0) {
        --failNext;
        return false;
    }
    starts.push_back(what);
    return true;
}

RecordingSounds::RecordingSounds() { media::setSoundPlayer(this); }

RecordingSounds::~RecordingSounds()
{
    if (&media::sounds() == this)
        media::setSoundPlayer(nullptr);
}

bool RecordingSounds::play(const QString& wavPath)
{
    played.append(wavPath);
    return true;
}

namespace {
int exitCount = 0;
int exitCode = 0;
void recordExit(int code)
{
    ++exitCount;
    exitCode = code;
}
} // namespace

ExitRecorder::ExitRecorder()
{
    exitCount = 0;
    exitCode = 0;
    platform::setExitHandler(recordExit);
}

ExitRecorder::~ExitRecorder() { platform::setExitHandler(nullptr); }

int ExitRecorder::count() const { return exitCount; }
int ExitRecorder::lastCode() const { return exitCode; }

} // namespace harness
