// A server on loopback that nobody vouches for.
#pragma once

#include <QHostAddress>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <string>

#include "self_signed_certificate.h"

namespace brelwin::test {

class SelfSignedServer {
 public:
  SelfSignedServer() {
    QSslConfiguration configuration;
    configuration.setLocalCertificate(QSslCertificate(SelfSignedCertificate));
    configuration.setPrivateKey(QSslKey(KeyOfTheCertificate, QSsl::Ec));
    server_.setSslConfiguration(configuration);
    server_.listen(QHostAddress::LocalHost);
  }

  std::string Url() const { return "https://127.0.0.1:" + std::to_string(server_.serverPort()) + "/"; }

 private:
  QSslServer server_;
};

}  // namespace brelwin::test
