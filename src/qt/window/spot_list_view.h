// The list of spots with its header. The program sets the list anew on every refresh; the reader's place in
// it, scrolled and selected, stays as it is.
#pragma once

#include <QLabel>
#include <QListView>

#include "controls/spot_list_box.h"
#include "qt/window/spot_list_model.h"

namespace brelwin {

class SpotListView final : public QListView {
  Q_OBJECT

 public:
  explicit SpotListView(QWidget* parent = nullptr);

  // Shows what the control holds from here on, and tells it of double clicks.
  Watch Follow(SpotListBox& control);

  // The captions over the columns: they scroll sideways with the lines and stay in view above them.
  QLabel& Header() { return *header_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddActions();
  void TellChoice(const SpotListBox& control) const;
  void Show(const ListContents& contents);
  void CopySelection() const;
  void PlaceHeader();

  SpotListModel model_;
  QWidget* headerArea_;
  QLabel* header_;
  bool refreshing_ = false;
};

}  // namespace brelwin
