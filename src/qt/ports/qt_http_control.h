// Posting forms with the toolkit's HTTP client. Every request, and every redirect, has a client of its own:
// no connection that may have died meanwhile is used again.
#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <memory>

#include "platform/http_control.h"
#include "platform/proxy_settings.h"

namespace brelwin {

class QtHttpControl final : public HttpControl {
 public:
  explicit QtHttpControl(ProxySettings proxies);
  ~QtHttpControl() override;

  void Execute(const HttpRequest& request) override;
  std::string GetChunk(std::size_t atMost) override;
  std::int32_t ResponseCode() const override { return code_; }
  std::string ResponseInfo() const override { return info_; }
  void Cancel() override;

 private:
  struct Hop {  // the request as it goes to one address
    QUrl Url;
    QByteArray Verb;
    QByteArray Body;
    QByteArray Headers;
  };

  void Start();
  bool MayLeave();
  void TakeBytes();
  void Finish();
  void Follow(int status);
  void Complete(int status);
  void Fail(int number, std::string words);
  void End(std::int16_t state);
  void DropClient();
  void Tell(std::int16_t state) const;

  const ProxySettings proxies_;
  Hop hop_;
  std::function<bool()> mayLeave_;
  int redirects_ = 0;
  std::unique_ptr<QNetworkAccessManager> client_;
  QNetworkReply* reply_ = nullptr;  // the client's
  QByteArray answer_;
  qsizetype read_ = 0;
  std::int32_t code_ = 0;
  std::string info_;
  QTimer start_;
  QTimer limit_;
};

}  // namespace brelwin
