#include "qt/window/bind_controls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

#include "base/text.h"
#include "qt/ports/qt_text.h"
#include "qt/window/spot_list_view.h"
#include "qt/window/text_box.h"

namespace brelwin {
namespace {

// A caption may end in a line end, which a label would show as an empty line.
QString LabelText(const Label& control) {
  return ToQString(Replace(control.Caption.Get(), LineEnd, "\n")).trimmed();
}

void ShowItems(const ListBox& control, QListWidget& list) {
  list.clear();
  for (const auto& item : control.Items.Get()) list.addItem(ToQString(item));
}

}  // namespace

QString OptionName(const OptionGroup& group, int option) {
  return ToQString(group.Name) + QString::number(option);
}

ControlBindings::ControlBindings(QWidget& root, std::function<void(QWidget&)> bringToView)
    : root_(root), bringToView_(std::move(bringToView)) {}

void ControlBindings::Add(const ControlList& controls) {
  for (const auto& any : controls) std::visit([this](auto* control) { Bind(*control); }, any);
}

void ControlBindings::Bind(Label& control) {
  auto* label = Find<QLabel>(ToQString(control.Name));
  if (label == nullptr) return;
  const bool isPicture = !label->pixmap(Qt::ReturnByValue).isNull();
  const auto show = [&control, label, isPicture] {
    if (!isPicture) label->setText(LabelText(control));
    label->setVisible(control.Visible && (isPicture || !label->text().isEmpty()));
  };
  label->setTextFormat(Qt::PlainText);
  Show(control.Caption, show);
  Show(control.Visible, show);
  Show(control.Enabled, [&control, label] { label->setEnabled(control.Enabled); });
}

void ControlBindings::Bind(TextBox& control) {
  auto* edit = Find<QLineEdit>(ToQString(control.Name));
  if (edit == nullptr) return;
  MirrorState(control, *edit);
  Show(control.Text, [&control, edit] {
    const auto text = ToQString(control.Text.Get());
    if (edit->text() != text) edit->setText(text);
  });
  Show(control.Warning,
       [&control, warning = BoxWarning(*edit)]() mutable { warning.Show(ToQString(control.Warning.Get())); });
  QObject::connect(edit, &QLineEdit::textEdited, edit,
                   [&control](const QString& text) { control.Text = text.toStdString(); });
  WhenLeft(*edit, [&control] {
    if (control.LostFocus) control.LostFocus();
  });
  watches_.push_back(control.SetFocus.WhenRaised([this, edit] {
    bringToView_(*edit);
    edit->setFocus();
  }));
}

void ControlBindings::Bind(CheckBox& control) {
  auto* box = Find<QCheckBox>(ToQString(control.Name));
  if (box == nullptr) return;
  MirrorState(control, *box);
  Show(control.Value, [&control, box] { box->setChecked(control.Value); });
  QObject::connect(box, &QCheckBox::clicked, box, [&control](bool checked) {
    control.Value = checked;
    if (control.Click) control.Click();
  });
}

void ControlBindings::Bind(OptionGroup& control) {
  for (int option = 0; option < control.Count; ++option) {
    auto* button = Find<QRadioButton>(OptionName(control, option));
    if (button == nullptr) continue;
    MirrorState(control, *button);
    Show(control.Value, [&control, button, option] {
      if (control.Value == option) button->setChecked(true);
    });
    QObject::connect(button, &QRadioButton::clicked, button, [&control, option] { control.Value = option; });
  }
}

void ControlBindings::Bind(Button& control) {
  auto* button = Find<QPushButton>(ToQString(control.Name));
  if (button == nullptr) return;
  MirrorState(control, *button);
  QObject::connect(button, &QPushButton::clicked, button, [&control] {
    if (control.Click) control.Click();
  });
}

void ControlBindings::Bind(Frame& control) {
  if (auto* box = Find<QGroupBox>(ToQString(control.Name))) MirrorState(control, *box);
}

void ControlBindings::Bind(ListBox& control) {
  auto* list = Find<QListWidget>(ToQString(control.Name));
  if (list == nullptr) return;
  MirrorState(control, *list);
  Show(control.Items, [&control, list] { ShowItems(control, *list); });
  QObject::connect(list, &QListWidget::doubleClicked, list, [&control](const QModelIndex& index) {
    if (control.DoubleClick) control.DoubleClick(static_cast<std::size_t>(index.row()));
  });
}

void ControlBindings::Bind(SpotListBox& control) {
  auto* view = Find<SpotListView>(ToQString(control.Name));
  if (view == nullptr) return;
  MirrorState(control, *view);
  watches_.push_back(view->Follow(control));
}

template <class Widget>
Widget* ControlBindings::Find(const QString& name) {
  auto* widget = root_.findChild<Widget*>(name);
  if (widget == nullptr) withoutWidget_ << name;
  return widget;
}

void ControlBindings::MirrorState(Control& control, QWidget& widget) {
  Show(control.Visible, [&control, &widget] { widget.setVisible(control.Visible); });
  Show(control.Enabled, [&control, &widget] { widget.setEnabled(control.Enabled); });
}

template <class Value>
void ControlBindings::Show(Observable<Value>& value, std::function<void()> show) {
  show();
  watches_.push_back(value.WhenChanged(std::move(show)));
}

}  // namespace brelwin
