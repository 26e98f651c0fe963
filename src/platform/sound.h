// Wave-file playback.
#pragma once

#include <string_view>

namespace brelwin {

class SoundPlayer {
 public:
  SoundPlayer() = default;
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;
  virtual ~SoundPlayer() = default;

  // Plays the wave file: with `wait` until it has ended, else beside everything else. A new sound cuts off
  // one that is still playing. Returns 1 when the sound was started, 0 when this system cannot play it.
  virtual int PlaySound(std::string_view path, bool wait) = 0;
};

}  // namespace brelwin
