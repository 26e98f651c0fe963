#include "core/internet_transfer.h"

#include <utility>

#include "base/encoding.h"
#include "core/trap.h"

namespace brelwin {

std::string InternetTransfer::OpenURL(std::string_view theURL) {
  answer_ = FetchPage(host_, {.Url = std::string(theURL)}, during_);
  const auto body = std::exchange(answer_.Body, {});
  lastBodyLength_ = body.size();
  const auto silently = [this](const RuntimeError& error) { answer_.ErrorText = error.Description; };
  return TrapErrors([&] { return TextFromBytes(body); }, std::string(), silently);
}

}  // namespace brelwin
