// A box for text does two things that Qt's does not: it shows what is wrong with its text, and it tells when
// the user has left it.
#pragma once

#include <QString>
#include <functional>

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

// Calls the function each time. A box is not left when its context menu opens or when a message or another
// program's window comes in front.
void WhenLeft(QLineEdit& edit, std::function<void()> function);

}  // namespace brelwin
