// One page under way over the toolkit's HTTP client.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTimer>
#include <memory>

#include "platform/internet_session.h"

namespace brelwin {

class QtPageRequest final : public PageRequest {
 public:
  QtPageRequest(const PageQuery& query, const QNetworkProxy& proxy);
  ~QtPageRequest() override;

  State CurrentState() const override { return state_; }
  int StatusCode() const override;
  const std::string& Body() const override { return body_; }
  std::string ErrorText() const override { return errorText_; }

 private:
  void Start(const PageQuery& query);
  void TakeSlice();
  void Finish(std::string errorText);
  std::string TransportError() const;

  const std::uint64_t maximumBytes_;
  State state_ = State::Connecting;
  std::string body_;
  std::string errorText_;
  QNetworkAccessManager manager_;
  std::unique_ptr<QNetworkReply> reply_;
  QTimer nextSlice_;
};

}  // namespace brelwin
