// The list of spots with its header. The program sets the list anew on every refresh; the reader's place in
// it, scrolled and selected, stays as it is, and so does what he has narrowed it to.
#pragma once

#include <QLabel>
#include <QListView>
#include <optional>
#include <string>

#include "controls/spot_list_box.h"
#include "qt/window/spot_list_model.h"
#include "ui/list_reading.h"

namespace brelwin {

class SpotListView final : public QListView {
  Q_OBJECT

 public:
  explicit SpotListView(QWidget* parent = nullptr);

  // Shows what the control holds from here on, in its size, and tells it of double clicks and choices.
  Watch Follow(SpotListBox& control);

  // The captions over the columns: they scroll sideways with the lines and stay in view above them.
  QLabel& Header() { return *header_; }

  // The spot of the line that the reader has chosen; null for none and for a line that is no spot.
  std::shared_ptr<const Spot> ChosenSpot() const;

  // Of the control; nothing before it is followed.
  void AddToList(CallsignListName name, const Spot& spot) const;

  // Shows only what is within it, from here on; everything again without one.
  void NarrowTo(std::optional<Narrowing> narrowing);
  bool IsNarrowed() const { return narrowing_.has_value(); }

  // The lines that are shown, from 0, for a search; choosing one brings it into view.
  std::size_t LineCount() const { return static_cast<std::size_t>(model_.rowCount()); }
  std::string LineAt(std::size_t line) const;
  std::optional<std::size_t> ChosenLine() const;
  void Choose(std::size_t line);

 Q_SIGNALS:
  // After each refresh, with what of the list is shown in words; empty when it is everything.
  void Refreshed(const QString& narrowed);

  // The reader asks what can be done with the chosen line, there on the screen.
  void MenuWanted(const QPoint& place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void AddActions();
  QAction* AddShortcut(const char* caption, const QList<QKeySequence>& keys, std::function<void()> run);
  void TellChoice(const SpotListBox& control) const;
  void Show(const ListContents& contents);
  void ShowSpots(const SpotRows& spots);
  void CopySelection() const;
  void AskForMenu();
  void Zoom(int steps);
  void SetZoom(int percent);
  void ApplyZoom();
  void PlaceHeader();

  SpotListModel model_;
  SpotListBox* control_ = nullptr;
  Watch zoomWatch_;
  std::optional<Narrowing> narrowing_;
  QString narrowed_;
  QWidget* headerArea_;
  QLabel* header_;
  int turned_ = 0;  // of the wheel since the last step, in eighths of a degree
  bool refreshing_ = false;
};

}  // namespace brelwin
