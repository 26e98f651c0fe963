// What is wrong with the text of a box, shown to the eye, under the pointer and to a screen reader.
#pragma once

#include <QString>

class QAction;
class QLineEdit;

namespace brelwin {

// Does not own the box, which outlives it.
class BoxWarning {
 public:
  explicit BoxWarning(QLineEdit& box);

  // Puts a mark into the box whose tip is the warning, which also pops up while the user types; an empty
  // warning takes all of it away.
  void Show(const QString& warning);

 private:
  void MakeMark();

  QLineEdit* box_;
  QAction* mark_ = nullptr;  // the box owns it
  QString ownTip_;
};

}  // namespace brelwin
