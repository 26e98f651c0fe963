#include "core/program_path.h"

#include "base/text.h"
#include "core/data_files.h"

namespace brelwin {

std::string FullFileName(const Host& host, std::string_view fileName) {
  const auto name = Trim(fileName);
  const bool hasFolder = name.find_first_of("\\/") != std::string_view::npos;
  return name.empty() || hasFolder ? std::string(name) : InProgramFolder(host, name);
}

std::string FullLogName(const Host& host, std::string_view fileName) {
  const auto name = Trim(fileName);
  const bool isFull = name.starts_with('/') || name.starts_with('\\');
  return name.empty() || isFull ? std::string(name) : InProgramFolder(host, name);
}

}  // namespace brelwin
