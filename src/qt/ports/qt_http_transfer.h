// Pages and forms with Qt's HTTP client. Every request, and every redirect, has a client of its own:
// nothing is kept from one to the next, neither connections that may have died meanwhile nor memory.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/http.h"
#include "platform/proxy_settings.h"

namespace brelwin {

class QtHttpTransfer final : public HttpTransfer {
 public:
  QtHttpTransfer(const HttpRequest& request, ProxySettings proxies);
  ~QtHttpTransfer() override;

  bool IsFinished() const override { return isFinished_; }
  std::uint64_t Activity() const override { return signs_; }
  HttpAnswer TakeAnswer() override { return std::exchange(answer_, {}); }

 private:
  void Ask();
  QIODevice* BodyToSend();  // the client's; null without a body
  bool MayLeave();
  void Listen();
  void CountReceived();
  void NoteHead();
  void TakeSlice();
  void EndOfReply();
  void Follow(int status);
  void Finish(int errorNumber, std::string errorText);
  void DropClient();

  HttpRequest request_;  // as it goes to the address at hand
  QUrl url_;
  const ProxySettings proxies_;
  int redirects_ = 0;
  HttpAnswer answer_;
  bool isHeldBack_ = false;
  bool isFinished_ = false;

  std::uint64_t signs_ = 0;  // of life
  std::uint64_t received_ = 0;
  std::uint16_t remotePort_ = 0;

  QTimer next_;  // asks the address, or takes what has come
  QTimer look_;
  std::unique_ptr<QNetworkAccessManager> client_;
  std::unique_ptr<QNetworkReply> reply_;
};

class QtHttpClient final : public HttpClient {
 public:
  explicit QtHttpClient(ProxySettings proxies) : proxies_(std::move(proxies)) {}

  std::unique_ptr<HttpTransfer> Start(const HttpRequest& request) override;

 private:
  const ProxySettings proxies_;
};

}  // namespace brelwin
