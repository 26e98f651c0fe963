// The body of a request that must never be sent twice.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <functional>
#include <optional>

namespace brelwin {

// Can be read once, from front to back. Qt's HTTP client sends a request again when its connection closes
// before an answer, though the server may have acted on it; it cannot with a body like this.
class UnrepeatableBody final : public QIODevice {
 public:
  // `mayLeave` is asked once, when the first byte is wanted; after a no there are none, and the reader waits.
  UnrepeatableBody(QByteArray bytes, std::function<bool()> mayLeave, QObject* parent);

  bool isSequential() const override { return true; }
  bool reset() override { return false; }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 atMost) override;
  qint64 writeData(const char* data, qint64 length) override;

 private:
  const QByteArray bytes_;
  const std::function<bool()> mayLeave_;
  std::optional<bool> leaves_;
  qsizetype position_ = 0;
};

}  // namespace brelwin
