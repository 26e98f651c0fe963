// How many spots each band had in the last hours, as a picture that is unfolded by a button. Folded away it
// neither reads nor paints.
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <optional>

#include "board/band_activity.h"

namespace brelwin {

// A lane for each band: skimmers as filled bars, Sotawatch as framed ones above them.
class BandsPicture final : public QFrame {
  Q_OBJECT

 public:
  BandsPicture();

  void Show(BandTable table);

  // What is under a point, in words; empty where there is no band.
  QString WordsAt(QPointF point) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Cell {
    std::size_t Band = 0;
    std::size_t Part = 0;
  };

  int Lanes() const;
  int LowestLane() const;
  int Margins() const;
  int LaneHeight() const;
  int NameWidth() const;
  QRectF LanesArea() const;
  QRectF LaneOf(std::size_t band) const;
  std::optional<Cell> CellAt(QPointF point) const;
  QString WordsOf(const Cell& cell) const;
  void PaintLane(QPainter& painter, std::size_t band) const;
  void PaintBars(QPainter& painter, const QRectF& lane, const BandCounts& counts) const;
  void PaintTimes(QPainter& painter) const;
  void PaintChosen(QPainter& painter) const;
  void Choose(int band, int part);

  BandTable table_;
  std::uint32_t most_ = 1;      // of a part of a band
  std::optional<Cell> chosen_;  // by the arrow keys
};

class BandsBox final : public QWidget {
  Q_OBJECT

 public:
  // Both outlive the box.
  BandsBox(ActivationStore& store, std::function<DateTime()> utcNow);

  void Unfold(bool isUnfolded);

 private:
  void Read();
  void Show();

  ActivationStore& store_;
  std::function<DateTime()> utcNow_;
  BandActivity activity_;
  QToolButton* fold_;
  QComboBox* hours_;
  BandsPicture* picture_;
  QWidget* inside_;
  QTimer next_;
};

}  // namespace brelwin
