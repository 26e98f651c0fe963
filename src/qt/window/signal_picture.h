// A small picture of how well an activation was heard: signal over noise by time, each band with a mark of
// its own; and the same in words.
#pragma once

#include <QFrame>
#include <string>
#include <vector>

#include "board/activation_row.h"

namespace brelwin {

// "20m: 3 minutes, best 25 dB at 10:15, last 12 dB at 10:40; 40m: ...". Bands in the order of their
// frequency.
std::string SignalWords(const std::vector<SignalPoint>& points);

class SignalPicture final : public QFrame {
  Q_OBJECT

 public:
  SignalPicture();

  void Show(std::vector<SignalPoint> points);

  QSize sizeHint() const override { return {360, 150}; }
  QSize minimumSizeHint() const override { return {200, 100}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<SignalPoint> points_;
};

}  // namespace brelwin
