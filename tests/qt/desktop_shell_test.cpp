#include "qt/ports/desktop_host.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace brelwin {
namespace {

// A desktop whose opener notes what it is given.
class DesktopShellTest : public ::testing::Test {
 protected:
  void SetUp() override { qputenv("PATH", folder_.path().toUtf8()); }
  void TearDown() override { qputenv("PATH", path_); }

  void InstallOpener() {
    QFile opener(folder_.filePath("xdg-open"));
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write("#!/bin/sh\nprintf '%s:%s' $# \"$1\" >" + Note().toUtf8() + ".part && /bin/mv " +
                 Note().toUtf8() + ".part " + Note().toUtf8() + "\n");
    opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }

  QString Note() const { return folder_.filePath("note"); }

  QByteArray TakeNote() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(Note()); }, 20000));
    QFile file(Note());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const auto note = file.readAll().trimmed();
    file.remove();
    return note;
  }

  QTemporaryDir folder_;
  const QByteArray path_ = qgetenv("PATH");
};

TEST_F(DesktopShellTest, HandsAddressesAsTheyAreAndPathsAsTheSystemWritesThem) {
  InstallOpener();
  DesktopShell shell;
  EXPECT_TRUE(shell.Open("http://127.0.0.1/summits.php?summit=W6%2FCT-001&x=\\"));
  EXPECT_EQ(TakeNote(), "1:http://127.0.0.1/summits.php?summit=W6%2FCT-001&x=\\");
  EXPECT_TRUE(shell.ViewText(folder_.path().toStdString() + "\\XDG-OPEN"));
  EXPECT_EQ(TakeNote(), "1:" + folder_.filePath("xdg-open").toUtf8());
}

}  // namespace
}  // namespace brelwin
