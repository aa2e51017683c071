#pragma once

#include "app/Transport.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <QSslConfiguration>

#include <memory>
#include <string>

class QNetworkReply;

namespace pirol {

/// The transport of the designer: Qt's network with the system's TLS and proxies. One object has one TLS configuration:
/// Qt takes up open connections again whatever a later request's configuration says.
class NetworkTransport : public Transport {
  public:
    /// The authority is a certificate in DER; those of the system vouch for servers when it is empty.
    explicit NetworkTransport(const std::string& authority);
    ~NetworkTransport() override;

    void Start(const WebRequest& request, TransportListener& listener) override;
    void Stop() override;

  private:
    void Read(QNetworkReply* reply, TransportListener& listener);
    void Finish(QNetworkReply* reply, TransportListener& listener);
    bool Tell(QNetworkReply* reply, TransportListener& listener);

    QNetworkAccessManager manager_;
    QSslConfiguration configuration_;
    QPointer<QNetworkReply> reply_; ///< null when nothing is asked
    bool hasAnswered_ = false;
};

} // namespace pirol
