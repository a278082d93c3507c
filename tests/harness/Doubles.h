#pragma once
// Stand-ins for the desktop services, shared by the scenario runner and the
// unit tests: boxes answered from a queue, process starts and the end of the
// program recorded instead of happening.
#include "media/Sound.h"
#include "platform/Dialogs.h"
#include "platform/Process.h"
#include "platform/Random.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace harness {

// A QApplication for tests that build widgets; offscreen unless the
// environment already chose a platform. Safe to call more than once.
void ensureApplication();

enum class BoxKind { Message, Input };

// One box the program showed, with what it was answered.
struct BoxRecord {
    BoxKind kind = BoxKind::Message;
    QString title;
    QString text; // the message, or the prompt of an input box
    platform::Buttons buttons = platform::Buttons::Ok;
    platform::Icon icon = platform::Icon::None;
    QString defaultText;    // input boxes only
    platform::Answer answer = platform::Answer::Ok;
    QString typed;          // input boxes only
};

// An answer waiting for the next box. Title and text, when given, must match.
struct QueuedReply {
    BoxKind kind = BoxKind::Message;
    std::optional<QString> title;
    std::optional<QString> text;
    platform::Answer answer = platform::Answer::Ok;
    QString typed;
    int tag = 0; // free for the owner, e.g. the scenario line that queued it
};

QString answerName(platform::Answer answer);
std::optional<platform::Answer> answerFromName(const QString& name);
QString buttonsName(platform::Buttons buttons);
// Whether a box with these buttons can give this answer.
bool answerOffered(platform::Answer answer, platform::Buttons buttons);
// What the runner answers for a box nobody expected: the choice that changes
// the least (No, Cancel, Ok).
platform::Answer safeAnswer(platform::Buttons buttons);

// Boxes answered from a queue. Every box is recorded; a box that finds the
// queue empty, or an answer that doesn't fit it, is a problem: it's recorded
// in problems, reported to onProblem, and answered safely.
class RecordingDialogs : public platform::DialogService {
public:
    // Installs itself as the program's dialog service until destroyed.
    RecordingDialogs();
    ~RecordingDialogs() override;
    RecordingDialogs(const RecordingDialogs&) = delete;
    RecordingDialogs& operator=(const RecordingDialogs&) = delete;

    void queueAnswer(platform::Answer answer, std::optional<QString> title = {},
                     std::optional<QString> text = {}, int tag = 0);
    void queueInput(const QString& typed, std::optional<QString> title = {},
                    std::optional<QString> prompt = {}, int tag = 0);

    std::deque<QueuedReply>& queued() { return queue_; }

    std::vector<BoxRecord> boxes;
    int beeps = 0;
    QStringList problems;
    std::function<void(const QString& problem)> onProblem;

    platform::Answer message(const QString& text, const QString& title, platform::Buttons buttons,
                             platform::Icon icon) override;
    QString input(const QString& prompt, const QString& title, const QString& defaultText) override;
    void beep() override { ++beeps; }

private:
    void problem(const QString& what);

    std::deque<QueuedReply> queue_;
};

// Process starts recorded, not made. Each start succeeds unless failNext says
// how many of the next ones fail; a failed start is not recorded.
class RecordingLauncher : public platform::ProcessLauncher {
public:
    RecordingLauncher();
    ~RecordingLauncher() override;
    RecordingLauncher(const RecordingLauncher&) = delete;
    RecordingLauncher& operator=(const RecordingLauncher&) = delete;

    bool start(const platform::ProcessStart& what) override;

    std::vector<platform::ProcessStart> starts;
    int failNext = 0;
};

// Sounds recorded, not played.
class RecordingSounds : public media::SoundPlayer {
public:
    RecordingSounds();
    ~RecordingSounds() override;
    RecordingSounds(const RecordingSounds&) = delete;
    RecordingSounds& operator=(const RecordingSounds&) = delete;

    bool play(const QString& wavPath) override;

    QStringList played;
};

// Random values handed out in the order queued; once the queue is empty, the
// values of a generator with a fixed seed, so runs repeat exactly.
class ScriptedRandom : public platform::RandomSource {
public:
    // Installs itself as the program's random source until destroyed.
    ScriptedRandom();
    ~ScriptedRandom() override;
    ScriptedRandom(const ScriptedRandom&) = delete;
    ScriptedRandom& operator=(const ScriptedRandom&) = delete;

    double fraction() override;

    std::deque<double> queued;
    int draws = 0; // values handed out so far

private:
    quint64 state_ = 0x9e3779b97f4a7c15ull;
};

// Watches the end of the program instead of letting it end the process.
class ExitRecorder {
public:
    ExitRecorder();
    ~ExitRecorder();
    ExitRecorder(const ExitRecorder&) = delete;
    ExitRecorder& operator=(const ExitRecorder&) = delete;

    int count() const;    // how often the program asked to end
    int lastCode() const; // the code it gave last
};

} // namespace harness
