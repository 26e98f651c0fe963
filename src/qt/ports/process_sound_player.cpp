#include "qt/ports/process_sound_player.h"

#include <QEventLoop>
#include <QStandardPaths>
#include <utility>

#include "platform/file_paths.h"
#include "qt/ports/qt_text.h"

namespace brelwin {

ProcessSoundPlayer::ProcessSoundPlayer(QStringList players) : players_(std::move(players)) {
  process_.setStandardInputFile(QProcess::nullDevice());
  process_.setStandardOutputFile(QProcess::nullDevice());
  process_.setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(&process_, &QProcess::finished, &process_, [this](int exitCode) { WhenEnded(exitCode); });
}

ProcessSoundPlayer::~ProcessSoundPlayer() {
  Stop();
}

int ProcessSoundPlayer::PlaySound(std::string_view path, bool wait) {
  Stop();
  file_ = ToQString(ResolvePath(path));
  left_ = players_;
  if (!StartNextPlayer()) return 0;
  if (wait) WaitUntilEnded();
  return 1;
}

bool ProcessSoundPlayer::StartNextPlayer() {
  while (!left_.isEmpty()) {
    const auto program = QStandardPaths::findExecutable(left_.takeFirst());
    if (program.isEmpty()) continue;
    process_.start(program, {file_});
    if (process_.waitForStarted()) return true;
  }
  return false;
}

void ProcessSoundPlayer::Stop() {
  left_.clear();
  if (process_.state() == QProcess::NotRunning) return;
  process_.kill();
  process_.waitForFinished();
}

// A player without its sound server gives up at once; the next one may know another way.
void ProcessSoundPlayer::WhenEnded(int exitCode) {
  if (exitCode != 0) StartNextPlayer();
}

void ProcessSoundPlayer::WaitUntilEnded() {
  while (process_.state() != QProcess::NotRunning) {
    QEventLoop loop;
    QObject::connect(&process_, &QProcess::stateChanged, &loop, &QEventLoop::quit);
    loop.exec();
  }
}

}  // namespace brelwin
