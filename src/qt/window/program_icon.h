// The program's icon, in every size that a desktop shows it in.
#pragma once

#include <QIcon>

namespace brelwin {

inline QIcon ProgramIcon() {
  QIcon icon;
  for (const char* file : {":/brelwin-48.png", ":/brelwin-256.png"}) icon.addFile(file);
  return icon;
}

}  // namespace brelwin
