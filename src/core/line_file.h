// A small file of lines that the program keeps for itself in its folder: read once, replaced as a whole.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"

namespace brelwin {

class LineFile {
 public:
  // The name is that of a file in the program's folder.
  LineFile(Host& host, std::string_view name);

  // The trimmed lines that are not empty; none without a file. One that is there and cannot be read has none
  // either, which is logged; Write leaves it alone from then on.
  std::vector<std::string> Read();

  // Replaces the file by these lines; without any there is no file. True when that was done, else the log
  // says why.
  bool Write(const std::vector<std::string>& lines);

 private:
  Host& host_;
  std::string path_;
  bool isUnreadable_ = false;
};

}  // namespace brelwin
