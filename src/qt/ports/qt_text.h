// The program's UTF-8 text and Qt's own.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace brelwin {

inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace brelwin
