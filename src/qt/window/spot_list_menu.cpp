#include "qt/window/spot_list_menu.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <functional>

#include "qt/ports/qt_text.h"

namespace brelwin {
namespace {

constexpr int WidestText = 300;  // pixels, of text from outside

// The items of one spot, below the list's own first action, which copies lines, and above the others.
class SpotItems {
 public:
  SpotItems(QMenu& menu, SpotListView& list, std::shared_ptr<const Spot> spot)
      : menu_(menu), before_(menu.actions().at(1)), list_(list), spot_(std::move(spot)) {}

  void AddAll() {
    AddCopying();
    menu_.insertSeparator(before_);
    AddNarrowing();
    menu_.insertSeparator(before_);
    AddLists();
    menu_.insertSeparator(before_);
  }

 private:
  // With the text in the caption; nothing without one.
  void Add(const char* caption, const QString& text, std::function<void()> run) {
    if (text.isEmpty()) return;
    auto shown = menu_.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, WidestText);
    auto* item = new QAction(QString(caption).arg(shown.replace('&', "&&")), &menu_);
    QObject::connect(item, &QAction::triggered, &list_, std::move(run));
    menu_.insertAction(before_, item);
  }

  void AddCopying() {
    AddCopy("Copy calls&ign %1", spot_->Station);
    AddCopy("Copy f&requency %1", spot_->FormattedFrequencyString);
  }

  void AddCopy(const char* caption, const std::string& text) {
    const auto copied = ToQString(text).trimmed();
    Add(caption, copied, [copied] { QApplication::clipboard()->setText(copied); });
  }

  void AddNarrowing() {
    for (const auto by : {NarrowBy::Station, NarrowBy::Summit, NarrowBy::Band}) {
      const auto narrowing = NarrowingTo(by, *spot_);
      if (narrowing)
        Add("Show only %1", ToQString(NarrowingWords(*narrowing)),
            [&list = list_, narrowing] { list.NarrowTo(narrowing); });
    }
  }

  // A skimmer is nobody whose word counts as an activator's.
  void AddLists() {
    AddList("Add %1 to the &known activators", CallsignListName::Known, spot_->stationBaseCallsign);
    AddList("E&xclude %1 from the gateway", CallsignListName::Excluded, spot_->Station);
    if (!spot_->IsRBNSpot)
      AddList("&Trust the spotter %1", CallsignListName::Trusted, spot_->SpotterBaseCallsign);
  }

  void AddList(const char* caption, CallsignListName name, const std::string& callsign) {
    Add(caption, ToQString(callsign), [&list = list_, name, spot = spot_] { list.AddToList(name, *spot); });
  }

  QMenu& menu_;
  QAction* before_;
  SpotListView& list_;
  std::shared_ptr<const Spot> spot_;
};

}  // namespace

void OpenSpotListMenu(SpotListView& list, const QPoint& place) {
  auto* menu = new QMenu(&list);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(list.actions());
  if (auto spot = list.ChosenSpot()) SpotItems(*menu, list, std::move(spot)).AddAll();
  if (list.IsNarrowed())
    QObject::connect(menu->addAction("Show all a&gain"), &QAction::triggered, &list,
                     [&list] { list.NarrowTo({}); });
  menu->popup(place);
}

}  // namespace brelwin
