#include "platform/file_descriptor.h"

#include <cstring>

namespace brelwin {

std::string SystemErrorText(int errorNumber) {
  const char* text = strerrordesc_np(errorNumber);
  if (text == nullptr) return "Error " + std::to_string(errorNumber);
  return text;
}

}  // namespace brelwin
