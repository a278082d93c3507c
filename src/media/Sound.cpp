#include "media/Sound.h"

#include "platform/Process.h"

#include <QFileInfo>
#include <QStandardPaths>

#ifdef TORVIK_HAVE_QT_MULTIMEDIA
#include <QCoreApplication>
#include <QPointer>
#include <QSoundEffect>
#include <QUrl>
#endif

namespace media {
namespace {

#ifdef TORVIK_HAVE_QT_MULTIMEDIA
class EffectPlayer final : public SoundPlayer {
public:
    bool play(const QString& wavPath) override
    {
        if (!QFileInfo(wavPath).isFile())
            return false;
        // Made on the first sound, so that a run that plays none never
        // opens the audio system; it goes with the application, before the
        // audio system it holds on to.
        if (!effect_)
            effect_ = new QSoundEffect(QCoreApplication::instance());
        effect_->stop();
        effect_->setSource(QUrl::fromLocalFile(wavPath));
        effect_->play();
        return true;
    }

private:
    QPointer<QSoundEffect> effect_;
};
#else
// Without Qt Multimedia the desktop's own players do it: PulseAudio's first,
// then ALSA's.
class ProcessPlayer final : public SoundPlayer {
public:
    bool play(const QString& wavPath) override
    {
        if (!QFileInfo(wavPath).isFile())
            return false;
        const std::pair<const char*, QStringList> players[] = {{"paplay", {wavPath}},
                                                              {"aplay", {QStringLiteral("-q"), wavPath}}};
        for (const auto& [name, arguments] : players) {
            const QString program = QStandardPaths::findExecutable(QString::fromLatin1(name));
            if (!program.isEmpty())
                return platform::launcher().start({program, arguments, QString()});
        }
        return false;
    }
};
#endif

SoundPlayer* current = nullptr;

SoundPlayer& desktopPlayer()
{
#ifdef TORVIK_HAVE_QT_MULTIMEDIA
    static EffectPlayer player;
#else
    static ProcessPlayer player;
#endif
    return player;
}

} // namespace

SoundPlayer& sounds() { return current ? *current : desktopPlayer(); }
void setSoundPlayer(SoundPlayer* replacement) { current = replacement; }

bool playSound(const QString& wavPath) { return sounds().play(wavPath); }

} // namespace media
