#include "qt/ports/application_start.h"

#include <QString>
#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace brelwin {
namespace {

// A user without a locale is none of the toolkit's business; a display that cannot be reached is.
void PrintFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

}  // namespace

std::string CommandLine(int argumentCount, char** arguments) {
  std::string line;
  for (int index = 1; index < argumentCount; ++index) {
    if (index > 1) line += ' ';
    line += arguments[index];
  }
  return line;
}

void MakeApplication(const std::function<void()>& make) {
  const auto original = qInstallMessageHandler(PrintFatal);
  make();
  qInstallMessageHandler(original);
  const char* typing = std::setlocale(LC_CTYPE, nullptr);
  const std::string kept = typing == nullptr ? "C" : typing;
  std::setlocale(LC_ALL, "C");
  std::setlocale(LC_CTYPE, kept.c_str());
}

void LeaveProcess(int status) {
  std::fflush(nullptr);
  std::_Exit(status);
}

}  // namespace brelwin
