#include "qt/window/pages.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

void OpenChosen(const QListWidget& list, const ListBox& websites) {
  if (list.currentRow() >= 0 && websites.DoubleClick)
    websites.DoubleClick(static_cast<std::size_t>(list.currentRow()));
}

QGroupBox* MakeWebsites(FilesTab& controls) {
  auto* frame = MakeFrame("", "Websites");
  auto* list = new QListWidget;
  list->setObjectName("lstWebsites");
  list->setAccessibleName("Websites");
  list->setToolTip("A double click opens the website in the browser");
  auto* open = MakeButton("cmdOpenWebsite", "&Open website", "Open the chosen website in the browser");
  QObject::connect(open, &QPushButton::clicked, list,
                   [list, &websites = controls.lstWebsites] { OpenChosen(*list, websites); });
  auto* column = new QVBoxLayout(frame);
  column->addWidget(list, 1);
  column->addWidget(open, 0, Qt::AlignLeft);
  return frame;
}

QGroupBox* MakeFiles() {
  auto* frame = MakeFrame("", "Files");
  auto* column = new QVBoxLayout(frame);
  column->addWidget(MakeButton("cmdViewEventLog", "View &event log", "What the program did and what failed"));
  column->addWidget(MakeButton("cmdViewRawSpots", "View ra&w spots", "Spots as they were received"));
  column->addWidget(MakeButton("cmdViewSpotsRSS", "View spots &RSS", "The RSS feed as it was last read"));
  column->addWidget(MakeButton("cmdViewTrustedSpotters", "View &trusted spotters",
                               "Spotters who may command alerts, one callsign a line"));
  column->addStretch();
  return frame;
}

}  // namespace

QWidget* MakeFilesPage(FilesTab& controls) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->addWidget(MakeWebsites(controls), 1);
  row->addWidget(MakeFiles());
  return page;
}

}  // namespace brelwin
