// Plays wave files through the system's own players.
#pragma once

#include <QProcess>
#include <QStringList>

#include "platform/sound.h"

namespace brelwin {

class ProcessSoundPlayer final : public SoundPlayer {
 public:
  // The players to try, by name, found in PATH or by their full path. One that fails hands over to the next.
  explicit ProcessSoundPlayer(QStringList players = {"pw-play", "paplay", "aplay"});
  ~ProcessSoundPlayer() override;

  int PlaySound(std::string_view path, bool wait) override;

 private:
  bool StartNextPlayer();
  void Stop();
  void WhenEnded(int exitCode);
  void WaitUntilEnded();

  const QStringList players_;
  QStringList left_;  // the players not tried yet for the sound that is playing
  QString file_;
  QProcess process_;
};

}  // namespace brelwin
