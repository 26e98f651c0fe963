// Runs the tests inside Qt's application object, without a display.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "qt/ports/program_run.h"

int main(int argumentCount, char** arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int forQt = 1;
  std::unique_ptr<QApplication> application;
  brelwin::MakeApplication([&] { application = std::make_unique<QApplication>(forQt, arguments); });
  return RUN_ALL_TESTS();
}
