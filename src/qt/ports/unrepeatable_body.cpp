#include "qt/ports/unrepeatable_body.h"

#include <algorithm>
#include <utility>

namespace brelwin {

UnrepeatableBody::UnrepeatableBody(QByteArray bytes, std::function<bool()> mayLeave, QObject* parent)
    : QIODevice(parent), bytes_(std::move(bytes)), mayLeave_(std::move(mayLeave)) {
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 UnrepeatableBody::bytesAvailable() const {
  return bytes_.size() - position_ + QIODevice::bytesAvailable();
}

qint64 UnrepeatableBody::readData(char* data, qint64 atMost) {
  if (!leaves_) leaves_ = mayLeave_();
  if (!*leaves_) return 0;
  const auto count = std::min<qint64>(atMost, bytes_.size() - position_);
  if (count == 0) return position_ == bytes_.size() ? -1 : 0;
  std::copy_n(bytes_.constData() + position_, count, data);
  position_ += count;
  return count;
}

qint64 UnrepeatableBody::writeData(const char*, qint64) {
  return -1;
}

}  // namespace brelwin
