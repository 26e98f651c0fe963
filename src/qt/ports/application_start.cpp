#include "qt/ports/application_start.h"

#include <fcntl.h>
#include <unistd.h>

#include <QString>
#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace brelwin {
namespace {

// A user without a locale is none of Qt's business; a display that cannot be reached is.
void PrintFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

// Whoever starts the program may have closed its standard streams. Their numbers must not fall to the next
// file that is opened: lines for the terminal would go into it.
void OpenStandardStreams() {
  int descriptor = 0;
  do {
    descriptor = ::open("/dev/null", O_RDWR);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  ::close(descriptor);
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
  OpenStandardStreams();
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
