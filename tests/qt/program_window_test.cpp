#include "qt/window/program_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <set>

#include "qt/window/window_dialogs.h"

namespace brelwin {
namespace {

class ProgramWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    screen_.Window.Show.Raise();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return window_.findChild<QWidget*>("cmdViewUserGuide") != nullptr; }));
  }

  template <class Widget>
  Widget& Get(const char* name) {
    auto* widget = window_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return *widget;
  }

  void TurnTo(int tab) { screen_.Window.CurrentTab = tab; }

  int quits_ = 0;
  Screen screen_;
  ProgramWindow window_{screen_, [this] { ++quits_; }};
};

std::set<QString> NamesOfControls(Screen& screen) {
  std::set<QString> names;
  for (auto* group : screen.Groups())
    for (const auto& any : *group)
      std::visit(
          [&names](auto* control) {
            if constexpr (std::is_same_v<decltype(control), OptionGroup*>) {
              for (int option = 0; option < control->Count; ++option)
                names.insert(OptionName(*control, option));
            } else {
              names.insert(
                  QString::fromUtf8(control->Name.data(), static_cast<qsizetype>(control->Name.size())));
            }
          },
          any);
  return names;
}

TEST_F(ProgramWindowTest, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  EXPECT_EQ(window_.Bindings().WithoutWidget(), QStringList());
  const auto names = NamesOfControls(screen_);
  const QRegularExpression ours("^(txt|chk|cmd|lbl|fra|opt|lst|pic)[A-Z]");
  std::set<QString> seen;
  for (const auto* widget : window_.findChildren<QWidget*>(ours)) {
    EXPECT_TRUE(names.contains(widget->objectName())) << widget->objectName().toStdString();
    EXPECT_TRUE(seen.insert(widget->objectName()).second) << widget->objectName().toStdString();
  }
}

QString MnemonicOf(const QWidget& widget) {
  QString text;
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) text = button->text();
  if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && label->buddy() != nullptr)
    text = label->text();
  return QKeySequence::mnemonic(text).toString();
}

// Two of the same on what is in view at once would only move the focus to and fro.
TEST_F(ProgramWindowTest, MnemonicsAreUniqueOnEveryTab) {
  auto& tabs = Get<QTabWidget>("SSTab1");
  for (int tab = 0; tab < tabs.count(); ++tab) {
    std::set<QString> taken;
    for (const auto* widget : window_.findChildren<QWidget*>()) {
      if (tabs.isAncestorOf(widget) && !tabs.widget(tab)->isAncestorOf(widget)) continue;
      const auto mnemonic = MnemonicOf(*widget);
      if (mnemonic.isEmpty()) continue;
      EXPECT_TRUE(taken.insert(mnemonic).second)
          << tabs.tabText(tab).toStdString() << " " << mnemonic.toStdString();
    }
  }
}

TEST_F(ProgramWindowTest, WhateverTakesTheFocusHasANameAndBoxesATip) {
  for (auto* widget : window_.findChildren<QWidget*>()) {
    const bool isTabs = widget->focusProxy() != nullptr || qobject_cast<QTabBar*>(widget) != nullptr;
    if (!(widget->focusPolicy() & Qt::TabFocus) || isTabs) continue;
    const auto* told = QAccessible::queryAccessibleInterface(widget);
    EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
        << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    EXPECT_TRUE(qobject_cast<QLineEdit*>(widget) == nullptr || !widget->toolTip().isEmpty())
        << widget->objectName().toStdString();
  }
}

TEST_F(ProgramWindowTest, WhatIsTypedReachesTheControlBeforeItsHandler) {
  std::vector<std::string> seen;
  auto& control = screen_.Spots.txtSecondsBetweenChecks;
  control.Text = "30";
  control.LostFocus = [&] {
    seen.push_back(control.Text.Get());
    control.Text = "9";
  };
  auto& box = Get<QLineEdit>("txtSecondsBetweenChecks");
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "45");
  QTest::keyClick(&box, Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(seen, std::vector<std::string>{"45"});
  EXPECT_EQ(box.text(), "9");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(seen.size(), 2u);
}

TEST_F(ProgramWindowTest, AWarningIsSeenAndReadInItsBox) {
  auto& box = Get<QLineEdit>("txtFilterStation");
  const auto tip = box.toolTip();
  screen_.Filters.txtFilterStation.Warning = "too long";
  ASSERT_EQ(box.actions().size(), 1);
  EXPECT_TRUE(box.actions().first()->isVisible() && !box.actions().first()->icon().isNull());
  EXPECT_EQ(box.accessibleDescription(), "too long");
  EXPECT_EQ(box.toolTip(), "too long\n" + tip);
  screen_.Filters.txtFilterStation.Warning = "";
  EXPECT_FALSE(box.actions().first()->isVisible());
  EXPECT_EQ(box.accessibleDescription() + box.toolTip(), tip);
}

// A message that the handler shows takes the focus too; that must not call the handler again.
TEST_F(ProgramWindowTest, AMessageInFrontIsNoLeavingOfTheBox) {
  int calls = 0;
  screen_.Spots.txtMaximumSpotsInList.LostFocus = [&] {
    ++calls;
    WindowDialogs().ShowMessage("Too small", "Settings", MessageIcon::Exclamation);
  };
  auto& box = Get<QLineEdit>("txtMaximumSpotsInList");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Return);
  QTest::qWait(50);
  EXPECT_EQ(calls, 1);
  for (auto* message : QApplication::topLevelWidgets())
    if (qobject_cast<QMessageBox*>(message) != nullptr) message->close();
}

TEST_F(ProgramWindowTest, ACheckBoxCallsItsHandlerForTheUserOnly) {
  int clicks = 0;
  auto& control = screen_.Logs.chkEnableLogging1;
  control.Click = [&] {
    ++clicks;
    EXPECT_TRUE(control.Value);
    control.Value = false;  // refused
  };
  auto& box = Get<QCheckBox>("chkEnableLogging1");
  control.Value = true;
  EXPECT_TRUE(box.isChecked());
  EXPECT_EQ(clicks, 0);
  control.Value = false;
  box.click();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(box.isChecked());
}

TEST_F(ProgramWindowTest, TextFromOutsideIsShownAsItIsAndThePasswordIsNot) {
  screen_.Spots.lblStatus.Caption = "<b>404</b> Not Found";
  EXPECT_EQ(Get<QLabel>("lblStatus").textFormat(), Qt::PlainText);
  screen_.Spots.lblSpotListHeader.Caption = "UTC    Station\r\n======\r\n";
  EXPECT_EQ(Get<QLabel>("lblSpotListHeader").text(), "UTC    Station\n======");
  EXPECT_EQ(Get<QLineEdit>("txtSotawatchPassword").echoMode(), QLineEdit::Password);
}

// The pages behind the first are made when the window was painted, or sooner when somebody needs one.
TEST(NewProgramWindow, ATabThatIsTurnedToIsComplete) {
  Screen screen;
  ProgramWindow window(screen, [] {});
  EXPECT_EQ(window.findChild<QWidget*>("txtRBNCallsign"), nullptr);
  screen.RBN.txtRBNCallsign.Text = "Q0ZZ";
  screen.Window.CurrentTab = 3;
  const auto* box = window.findChild<QLineEdit*>("txtRBNCallsign");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->text(), "Q0ZZ");
}

TEST_F(ProgramWindowTest, ClosingAsksTheProgramToQuitFirst) {
  EXPECT_FALSE(window_.close());
  EXPECT_EQ(quits_, 1);
  EXPECT_TRUE(window_.isVisible());
}

TEST_F(ProgramWindowTest, AMinimisedWindowComesBackWithTheSpotsInFront) {
  TurnTo(4);
  window_.showMinimized();
  QCoreApplication::processEvents();
  EXPECT_EQ(screen_.Window.State, WindowState::Minimised);
  TurnTo(0);
  screen_.Window.State = WindowState::Normal;
  screen_.Window.SetFocus.Raise();
  QCoreApplication::processEvents();
  EXPECT_FALSE(window_.isMinimized());
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 0);
}

TEST_F(ProgramWindowTest, TheSameMessageIsOpenOnlyOnce) {
  WindowDialogs dialogs;
  for (int time = 0; time < 3; ++time) dialogs.ShowMessage("Offline", "Settings", MessageIcon::Information);
  dialogs.ShowMessage("Something else", "Settings", MessageIcon::Exclamation);
  const auto boxes = window_.findChildren<QMessageBox*>();
  EXPECT_EQ(boxes.size(), 2);
  for (auto* box : boxes) box->close();
}

}  // namespace
}  // namespace brelwin
