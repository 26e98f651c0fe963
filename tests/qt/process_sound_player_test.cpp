#include "qt/ports/process_sound_player.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "qt/ports/qt_event_queue.h"

namespace brelwin {
namespace {

class ProcessSoundPlayerTest : public ::testing::Test {
 protected:
  // A player that is a shell script; it notes the file it is given.
  QString MakePlayer(const QString& name, const QByteArray& script) {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\necho \"" + name.toUtf8() + " $1\" >>" + Notes().toUtf8() + "\n" + script + "\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
  }

  QString Notes() const { return folder_.filePath("notes"); }

  QByteArray Noted() const {
    QFile file(Notes());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
};

TEST_F(ProcessSoundPlayerTest, ThePlayerThatWorksIsFound) {
  ProcessSoundPlayer player({"no-such-player", MakePlayer("fails", "exit 1"), MakePlayer("plays", "exit 0"),
                             MakePlayer("spare", "exit 0")});
  EXPECT_EQ(player.PlaySound("/a b.wav", true), 1);
  EXPECT_EQ(Noted(), "fails /a b.wav\nplays /a b.wav\n");
}

// The program writes the file as one of its folder, and the user may have named it in other letters.
TEST_F(ProcessSoundPlayerTest, ThePlayerIsGivenTheFileThatIsMeant) {
  QFile sound(folder_.filePath("g4abc.wav"));
  ASSERT_TRUE(sound.open(QIODevice::WriteOnly));
  ProcessSoundPlayer player({MakePlayer("plays", "test -f \"$1\"")});
  EXPECT_EQ(player.PlaySound(folder_.path().toStdString() + "\\G4ABC.WAV", true), 1);
  EXPECT_EQ(Noted(), "plays " + sound.fileName().toUtf8() + "\n");
}

TEST_F(ProcessSoundPlayerTest, ANewSoundCutsOffTheOldOne) {
  ProcessSoundPlayer player({MakePlayer("long", "[ $1 = /long.wav ] && exec sleep 600")});
  EXPECT_EQ(player.PlaySound("/long.wav", false), 1);
  EXPECT_EQ(player.PlaySound("/short.wav", true), 1);  // returns: nothing waits for the long one
}

}  // namespace
}  // namespace brelwin
