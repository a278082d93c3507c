#pragma once
// The sound service: plays a model's ".wav" files. Nothing waits for a sound
// and nothing asks the user about one: a machine without a sound device just
// stays quiet.
#include <QString>

namespace media {

class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    // Starts playing and returns at once; a new sound replaces the one
    // playing. False when the sound couldn't be started.
    virtual bool play(const QString& wavPath) = 0;
};

SoundPlayer& sounds();
void setSoundPlayer(SoundPlayer* replacement); // tests; nullptr restores; not owned

bool playSound(const QString& wavPath);

} // namespace media
