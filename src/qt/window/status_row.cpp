#include "qt/window/status_row.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>
#include <QVBoxLayout>

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

// Painted by the style: an icon of that name would be looked for in every icon theme of the machine.
QPixmap ArrowDown(const QWidget& widget) {
  const int size = widget.style()->pixelMetric(QStyle::PM_SmallIconSize);
  const auto ratio = widget.devicePixelRatioF();
  QPixmap picture(QSize(size, size) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QStyleOption option;
  option.initFrom(&widget);
  option.rect = {0, 0, size, size};
  option.palette.setColor(QPalette::ButtonText, option.palette.color(QPalette::Highlight));  // on any ground
  widget.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter);
  return picture;
}

QLabel* MakeDownloadPicture() {
  auto* picture = Named("picDownload", new QLabel);
  picture->setPixmap(ArrowDown(*picture));
  picture->setToolTip("A page is being read");
  return picture;
}

QLayout* MakeStateRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(10);
  row->addWidget(MakeDownloadPicture());
  row->addWidget(Named("lblCheckingForSpots", new QLabel));
  for (const char* name : {"lblNoConnectionToTwitter", "lblNoSotawatchConnection", "lblNoConnectionToRBN",
                           "lblNoConnectionToRBN2"})
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
  for (const char* name : {"lblSpotsHidden", "lblSources", "lblSettingsNotice"})
    column->addWidget(MakeWords(name));
  return area;
}

}  // namespace brelwin
