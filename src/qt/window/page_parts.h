// The parts that the pages are put together from: named boxes and buttons with captions that name their unit.
#pragma once

#include <QLabel>
#include <QString>

class QCheckBox;
class QFormLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class QWidget;

namespace brelwin {

// A one-line label for texts of any length: it gives way to its neighbours, shows what fits and the whole
// text as a tooltip.
class ElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString WhatFits() const;
};

// One box for text with what is written beside it. A box with a unit is a short one for a number.
struct TextRow {
  const char* Name;
  const char* Caption;
  const char* Tip;
  const char* Unit = "";
};

inline constexpr const char* FilterListTip =
    "Items separated by commas. A * at the end of an item means everything that begins with it. "
    "Empty: no restriction.";

QLineEdit* MakeTextBox(const TextRow& row);
QCheckBox* MakeCheckBox(const char* name, const char* caption, const char* tip = "");
QPushButton* MakeButton(const char* name, const char* caption, const char* tip = "");
QRadioButton* MakeOption(const char* name, const char* caption);

// A frame with a caption; an empty name for one that the program does not know.
QGroupBox* MakeFrame(const char* name, const char* caption);

// A caption that puts the focus on the box when its mnemonic is typed.
QLabel* MakeCaption(const char* caption, QWidget* box);

// What the program has to say, taken as it stands, over as many lines as it needs.
QLabel* MakeWords(const char* name);

// Adds caption, box and unit as one row.
QLineEdit* AddTextRow(QFormLayout& form, const TextRow& row);

// The same with further widgets, such as buttons, at the right of the box.
QLineEdit* AddTextRow(QFormLayout& form, const TextRow& row, std::initializer_list<QWidget*> beside);

// A page of one or two columns which scrolls when the window is too small for it. The columns are filled
// from the top.
QWidget* MakePage(std::initializer_list<QVBoxLayout*> columns);

// A column of parts, one below the other.
QVBoxLayout* MakeColumn(std::initializer_list<QWidget*> parts);

// A line of words that does something. It keeps its room, so that nothing moves when it comes; Enter presses
// it as the blank does.
QPushButton* MakeLine(const char* name, const char* tip);

}  // namespace brelwin
