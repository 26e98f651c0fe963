#include "qt/window/text_viewer.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>

#include "base/encoding.h"
#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

constexpr std::size_t MostBytes = std::size_t{4} * 1024 * 1024;
constexpr QSize ViewerSize{900, 600};

std::string_view EndOf(std::string_view bytes) {
  if (bytes.size() <= MostBytes) return bytes;
  bytes.remove_prefix(bytes.size() - MostBytes);
  bytes.remove_prefix(bytes.find('\n') + 1);
  return bytes;
}

}  // namespace

bool ShowTextFile(const Files& files, std::string_view path) {
  const auto bytes = files.Read(path);
  if (!bytes) return false;
  auto* viewer = new QPlainTextEdit;
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  viewer->setWindowTitle(QFileInfo(ToQString(path)).fileName());
  viewer->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  viewer->setLineWrapMode(QPlainTextEdit::NoWrap);
  viewer->setReadOnly(true);
  viewer->setPlainText(ToQString(TextFromBytes(EndOf(*bytes))));
  viewer->resize(ViewerSize);
  viewer->show();
  return true;
}

}  // namespace brelwin
