// Binds controls to the widgets of the same names, in one loop: what the user enters reaches the control
// before its handler runs, what the program sets is shown.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "base/observable.h"
#include "controls/control.h"
#include "controls/spot_list_box.h"

class QWidget;

namespace brelwin {

// The widget's name on the screen of one option button of a group, such as "optLogFormat12".
QString OptionName(const OptionGroup& group, int option);

// Lives as long as both sides of the bindings.
class ControlBindings {
 public:
  // `bringToView` makes a widget visible (its tab is turned to) before it takes the focus.
  ControlBindings(QWidget& root, std::function<void(QWidget&)> bringToView);

  // Binds controls whose widgets are there, each once.
  void Add(const ControlList& controls);

  // Names of controls for which there was no widget of the right kind.
  const QStringList& WithoutWidget() const { return withoutWidget_; }

 private:
  void Bind(Label& control);
  void Bind(TextBox& control);
  void Bind(CheckBox& control);
  void Bind(OptionGroup& control);
  void Bind(Button& control);
  void Bind(Frame& control);
  void Bind(ListBox& control);
  void Bind(SpotListBox& control);

  template <class Widget>
  Widget* Find(const QString& name);
  void MirrorState(Control& control, QWidget& widget);

  // Shows the value once at once and after every change.
  template <class Value>
  void Show(Observable<Value>& value, std::function<void()> show);

  QWidget& root_;
  std::function<void(QWidget&)> bringToView_;
  QStringList withoutWidget_;
  std::vector<Watch> watches_;
};

}  // namespace brelwin
