#include "qt/window/pages.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"
#include "qt/window/program_icon.h"

namespace brelwin {
namespace {

constexpr int PictureSize = 96;

QLabel* MakeTitle() {
  auto* title = new QLabel;
  title->setObjectName("lblProgramTitle");
  auto font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setBold(true);
  title->setFont(font);
  return title;
}

QLabel* MakePicture() {
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(PictureSize));
  return picture;
}

}  // namespace

QWidget* MakeAboutPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->addStretch();
  column->addWidget(MakePicture(), 0, Qt::AlignHCenter);
  column->addWidget(MakeTitle(), 0, Qt::AlignHCenter);
  column->addWidget(new QLabel("Who is on the air, from which summit and on which frequency."), 0,
                    Qt::AlignHCenter);
  column->addWidget(MakeButton("cmdViewUserGuide", "View user &guide"), 0, Qt::AlignHCenter);
  column->addStretch();
  return page;
}

}  // namespace brelwin
