#include "qt/window/pages.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/window/list_bars.h"
#include "qt/window/page_parts.h"
#include "qt/window/spot_list_menu.h"
#include "qt/window/spot_list_view.h"

namespace brelwin {
namespace {

// Between things that do not belong together, in pixels.
constexpr int Gap = 18;

constexpr TextRow SecondsBetweenChecks{"txtSecondsBetweenChecks", "Check &every",
                                       "Pause between two checks for new spots, 3 to 60 seconds", "seconds"};
constexpr TextRow MaximumSpotsInList{"txtMaximumSpotsInList", "&Keep at most",
                                     "Length of the list in spots; 0: no limit", "spots"};

SpotListView* MakeList() {
  auto* list = new SpotListView;
  list->setObjectName("txtSPOTList");
  list->setAccessibleName("Spots");
  list->Header().setObjectName("lblSpotListHeader");
  QObject::connect(list, &SpotListView::MenuWanted, list,
                   [list](const QPoint& place) { OpenSpotListMenu(*list, place); });
  return list;
}

QLabel* MakeDetails() {
  auto* details = new ElidedLabel;
  details->setObjectName("lblSpotDetails");
  details->setToolTip("More about the selected spot");
  return details;
}

void AddNumber(QHBoxLayout& row, const TextRow& number) {
  auto* edit = MakeTextBox(number);
  row.addWidget(MakeCaption(number.Caption, edit));
  row.addWidget(edit);
  row.addWidget(new QLabel(number.Unit));
  row.addSpacing(Gap);
}

QLayout* MakeChoices() {
  auto* row = new QHBoxLayout;
  row->addWidget(MakeButton("cmdGetSPOTS", "&Get spots now", "Check for new spots at once"));
  row->addWidget(MakeButton("cmdReloadSpotList", "&Reload list", "Read the whole list anew"));
  row->addSpacing(Gap);
  AddNumber(*row, SecondsBetweenChecks);
  AddNumber(*row, MaximumSpotsInList);
  row->addWidget(MakeCheckBox("chkSOTAWatchSpotsViaRSS", "Spots via RSS &feed",
                              "Checked: the RSS feed of Sotawatch. Not checked: the Twitter feed."));
  row->addWidget(
      MakeCheckBox("chkSotawatchJSONService", "&JSON service",
                   "Checked: spots and alerts come from the JSON service of Sotawatch, whatever the "
                   "box beside this one says. Not checked: from the feed and the alerts page."));
  row->addStretch();
  row->addWidget(MakeButton("cmdTest", "&Test", "Treat the newest spot as if it had just come in"));
  return row;
}

}  // namespace

QWidget* MakeSpotsPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  auto* list = MakeList();
  page->setFocusProxy(list);
  column->addWidget(list, 1);
  column->addWidget(MakeNarrowingBar(*list));
  column->addWidget(new SearchBar(*page, *list));
  column->addWidget(MakeDetails());
  column->addLayout(MakeChoices());
  return page;
}

}  // namespace brelwin
