#include "qt/window/status_row.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "qt/window/elided_label.h"
#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

QLabel* Named(const char* name, QLabel* label) {
  label->setObjectName(name);
  return label;
}

QLabel* MakeWarning(const char* name) {
  auto* label = Named(name, new ElidedLabel);
  auto font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

QLabel* MakeDownloadPicture() {
  auto* picture = Named("picDownload", new QLabel);
  const int size = picture->style()->pixelMetric(QStyle::PM_SmallIconSize);
  picture->setPixmap(picture->style()->standardIcon(QStyle::SP_ArrowDown).pixmap(size));
  picture->setToolTip("A page is being read");
  return picture;
}

QLayout* MakeStateRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(10);
  row->addWidget(MakeDownloadPicture());
  row->addWidget(Named("lblCheckingForSpots", new QLabel));
  for (const char* name : {"lblNoConnectionToTwitter", "lblNoSotawatchConnection", "lblNoConnectionToRBN"})
    row->addWidget(MakeWarning(name));
  row->addWidget(Named("lblStatus", new ElidedLabel));
  row->addStretch();
  row->addWidget(Named("lblUTCTime", new QLabel));
  row->addSpacing(12);
  row->addWidget(
      MakeButton("cmdSaveSettings", "&Save settings",
                 "Write the settings of all tabs to the settings file; this also happens at the end"));
  return row;
}

}  // namespace

QWidget* MakeStatusRow() {
  auto* area = new QWidget;
  auto* column = new QVBoxLayout(area);
  column->setSpacing(2);
  column->addLayout(MakeStateRow());
  column->addWidget(Named("lblSources", new ElidedLabel));
  return area;
}

}  // namespace brelwin
