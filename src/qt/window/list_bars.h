// The two bars under the list of spots: what it is narrowed to, and the search.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "qt/window/spot_list_view.h"

namespace brelwin {

// Says what alone is shown, with a button that shows all again; there only while the list is narrowed.
QWidget* MakeNarrowingBar(SpotListView& list);

// Finds text in the lines of the list. Opened by the keys of the page that it is on, closed by Escape.
class SearchBar final : public QWidget {
  Q_OBJECT

 public:
  // Adds its keys to the page, and to the list's actions what opens it.
  SearchBar(QWidget& page, SpotListView& list);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* AddKeys(QWidget& page, const char* caption, const QList<QKeySequence>& keys,
                   std::function<void()> run);
  void Open();
  void Close();
  void Search(SearchStep step);
  void Count();
  void Tell(const std::vector<std::size_t>& found);
  std::vector<std::size_t> Found() const;

  SpotListView& list_;
  QLineEdit* text_;
  QLabel* count_;
};

}  // namespace brelwin
