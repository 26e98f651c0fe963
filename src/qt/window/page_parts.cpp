#include "qt/window/page_parts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QToolTip>
#include <QVBoxLayout>

namespace brelwin {

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool isCut = WhatFits() != text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? text().toHtmlEscaped() : QString(),
                     this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        WhatFits(), foregroundRole());
}

QString ElidedLabel::WhatFits() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

namespace {

constexpr int NumberCharacters = 7;

bool HasUnit(const TextRow& row) {
  return *row.Unit != '\0';
}

int NumberWidth(const QLineEdit& edit) {
  return edit.fontMetrics().horizontalAdvance(QString(NumberCharacters, '0')) +
         2 * edit.fontMetrics().height() / 3;
}

// Scrolls inside the tab without a frame or a ground of its own.
QWidget* Scrolling(QWidget* page) {
  auto* area = new QScrollArea;
  area->setWidget(page);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  return area;
}

}  // namespace

QLineEdit* MakeTextBox(const TextRow& row) {
  auto* edit = new QLineEdit;
  edit->setObjectName(row.Name);
  edit->setToolTip(row.Tip);
  if (HasUnit(row)) edit->setFixedWidth(NumberWidth(*edit));
  return edit;
}

QCheckBox* MakeCheckBox(const char* name, const char* caption, const char* tip) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(name);
  box->setToolTip(tip);
  return box;
}

QPushButton* MakeButton(const char* name, const char* caption, const char* tip) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setToolTip(tip);
  return button;
}

QRadioButton* MakeOption(const char* name, const char* caption) {
  auto* option = new QRadioButton(caption);
  option->setObjectName(name);
  return option;
}

QGroupBox* MakeFrame(const char* name, const char* caption) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  return frame;
}

QLabel* MakeCaption(const char* caption, QWidget* box) {
  auto* label = new QLabel(caption);
  label->setBuddy(box);
  return label;
}

QLabel* MakeWords(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QLineEdit* AddTextRow(QFormLayout& form, const TextRow& row) {
  return AddTextRow(form, row, {});
}

QLineEdit* AddTextRow(QFormLayout& form, const TextRow& row, std::initializer_list<QWidget*> beside) {
  auto* edit = MakeTextBox(row);
  auto* line = new QHBoxLayout;
  line->addWidget(edit);
  if (HasUnit(row)) {
    line->addWidget(new QLabel(row.Unit));
    line->addStretch();
  }
  for (auto* widget : beside) line->addWidget(widget);
  form.addRow(MakeCaption(row.Caption, edit), line);
  return edit;
}

QVBoxLayout* MakeColumn(std::initializer_list<QWidget*> parts) {
  auto* column = new QVBoxLayout;
  for (auto* part : parts) column->addWidget(part);
  column->addStretch();
  return column;
}

QWidget* MakePage(std::initializer_list<QVBoxLayout*> columns) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  for (auto* column : columns) row->addLayout(column, 1);
  return Scrolling(page);
}

QPushButton* MakeLine(const char* name, const char* tip) {
  auto* line = MakeButton(name, "", tip);
  line->setFlat(true);
  line->setAutoDefault(true);
  line->setAccessibleDescription(tip);
  auto room = line->sizePolicy();
  room.setRetainSizeWhenHidden(true);
  line->setSizePolicy(room);
  line->hide();
  return line;
}

}  // namespace brelwin
