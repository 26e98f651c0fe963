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

  // What skimmers have heard of an activation, which may be nothing.
  void Show(std::vector<SignalPoint> points);

  // No activation is selected.
  void ShowNothing();

  QSize sizeHint() const override { return {360, 150}; }
  QSize minimumSizeHint() const override { return {200, 100}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Put(std::vector<SignalPoint> points, const QString& words);

  std::vector<SignalPoint> points_;
  QString wordsWithoutPoints_;
};

}  // namespace brelwin
