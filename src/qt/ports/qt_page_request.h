// One page under way over the toolkit's HTTP client.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>
#include <memory>

#include "platform/internet_session.h"
#include "platform/proxy_settings.h"

namespace brelwin {

class QtPageRequest final : public PageRequest {
 public:
  QtPageRequest(const PageQuery& query, const ProxySettings& proxies);
  ~QtPageRequest() override;

  State CurrentState() const override { return state_; }
  std::uint64_t Activity() const override;
  int StatusCode() const override;
  const std::string& Body() const override { return body_; }
  std::string ErrorText() const override { return errorText_; }

 private:
  void Start(const QUrl& url);
  void TakeSlice();
  void End();
  void Follow(const QUrl& url);
  void Finish(std::string errorText);
  std::string TransportError() const;

  const std::string userAgent_;
  const std::uint64_t maximumBytes_;
  const ProxySettings proxies_;
  State state_ = State::Connecting;
  std::uint64_t signs_ = 0;  // of life, from the client
  std::uint16_t remotePort_ = 0;
  std::string body_;
  std::string errorText_;
  QNetworkAccessManager manager_;
  std::unique_ptr<QNetworkReply> reply_;
  int redirects_ = 0;
  QTimer nextSlice_;
};

}  // namespace brelwin
