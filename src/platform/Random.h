#pragma once
// The random source of the "Pick Random" buttons. The desktop one is seeded
// from the clock; tests put in one that hands out chosen values.
namespace platform {

class RandomSource {
public:
    virtual ~RandomSource() = default;
    // A value in [0, 1).
    virtual double fraction() = 0;
};

RandomSource& randomSource();
// Replaces the source (tests); nullptr restores the desktop one. Not owned.
void setRandomSource(RandomSource* source);

// The next value of the current source, in [0, 1).
double randomFraction();

} // namespace platform
