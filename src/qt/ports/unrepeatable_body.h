// The body of a request that must never be sent twice.
#pragma once

#include <QByteArray>
#include <QIODevice>

namespace brelwin {

// Can be read once, from front to back. The toolkit's HTTP client sends a request again when its connection
// closes before an answer, though the server may have acted on it; it cannot with a body like this.
class UnrepeatableBody final : public QIODevice {
 public:
  UnrepeatableBody(QByteArray bytes, QObject* parent);

  bool isSequential() const override { return true; }
  bool reset() override { return false; }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 atMost) override;
  qint64 writeData(const char* data, qint64 length) override;

 private:
  const QByteArray bytes_;
  qsizetype position_ = 0;
};

}  // namespace brelwin
