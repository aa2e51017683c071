#include "ui/parts/NetworkTransport.h"

#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace pirol {
namespace {

/// What waits to be read of an answer; the server waits when it is full.
constexpr qint64 readAhead = 65536;

struct ErrorRow {
    QNetworkReply::NetworkError error;
    UpdateFault fault;
};

constexpr ErrorRow errors[] = {
    {QNetworkReply::ConnectionRefusedError, UpdateFault::NoConnection},
    {QNetworkReply::HostNotFoundError, UpdateFault::NameNotFound},
    {QNetworkReply::TimeoutError, UpdateFault::TimedOut},
    {QNetworkReply::OperationCanceledError, UpdateFault::TimedOut}, // only the transfer timeout cancels
    {QNetworkReply::SslHandshakeFailedError, UpdateFault::UntrustedServer},
    {QNetworkReply::ProxyConnectionRefusedError, UpdateFault::NoConnection},
    {QNetworkReply::ProxyNotFoundError, UpdateFault::NameNotFound},
    {QNetworkReply::ProxyTimeoutError, UpdateFault::TimedOut},
    {QNetworkReply::ProxyAuthenticationRequiredError, UpdateFault::ProxyWantsPassword},
    {QNetworkReply::UnknownNetworkError, UpdateFault::NoConnection},
    {QNetworkReply::ProtocolFailure, UpdateFault::BadAnswer},
};

UpdateFault FaultOf(QNetworkReply::NetworkError error) {
    const auto* const row = std::find_if(std::begin(errors), std::end(errors),
                                         [&](const ErrorRow& candidate) { return candidate.error == error; });
    return row == std::end(errors) ? UpdateFault::ConnectionLost : row->fault;
}

QNetworkRequest RequestOf(const WebRequest& wanted, const QSslConfiguration& configuration) {
    QNetworkRequest request(QUrl(QString::fromStdString(wanted.url)));
    request.setSslConfiguration(configuration);
    request.setTransferTimeout(Transport::patience * 1000);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setRawHeader("User-Agent", "Pirol");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Cache-Control", "no-cache");
    if (wanted.from != 0)
        request.setRawHeader("Range", "bytes=" + QByteArray::number(static_cast<qulonglong>(wanted.from)) + "-");
    if (!wanted.ifUnchanged.empty())
        request.setRawHeader("If-Range", QByteArray::fromStdString(wanted.ifUnchanged));
    return request;
}

WebAnswer AnswerOf(const QNetworkReply& reply) {
    WebAnswer answer;
    answer.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    bool isNumber = false;
    const qulonglong length = reply.rawHeader("Content-Length").toULongLong(&isNumber);
    if (isNumber)
        answer.length = length;
    answer.type = reply.rawHeader("Content-Type").trimmed().toLower().toStdString();
    answer.encoding = reply.rawHeader("Content-Encoding").trimmed().toLower().toStdString();
    answer.range = reply.rawHeader("Content-Range").trimmed().toStdString();
    answer.tag = reply.rawHeader("ETag").trimmed().toStdString();
    answer.changed = reply.rawHeader("Last-Modified").trimmed().toStdString();
    return answer;
}

} // namespace

NetworkTransport::NetworkTransport(const std::string& authority)
    : configuration_(QSslConfiguration::defaultConfiguration()) {
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    if (!authority.empty())
        configuration_.setCaCertificates({QSslCertificate(QByteArray::fromStdString(authority), QSsl::Der)});
}

NetworkTransport::~NetworkTransport() {
    Stop();
}

void NetworkTransport::Start(const WebRequest& request, TransportListener& listener) {
    Stop();
    hasAnswered_ = false;
    QNetworkReply* const reply = manager_.get(RequestOf(request, configuration_));
    reply_ = reply;
    reply->setReadBufferSize(readAhead);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [this, reply, &listener] { Read(reply, listener); });
    QObject::connect(reply, &QNetworkReply::finished, reply, [this, reply, &listener] { Finish(reply, listener); });
}

void NetworkTransport::Stop() {
    QNetworkReply* const reply = reply_;
    if (reply == nullptr)
        return;
    reply_ = nullptr;
    reply->disconnect();
    reply->abort();
    reply->deleteLater();
}

/// Tells of the answer's beginning. False when the listener has stopped or asked anew.
bool NetworkTransport::Tell(QNetworkReply* reply, TransportListener& listener) {
    if (!hasAnswered_) {
        hasAnswered_ = true;
        listener.Answered(AnswerOf(*reply));
    }
    return reply_ == reply;
}

void NetworkTransport::Read(QNetworkReply* reply, TransportListener& listener) {
    if (!Tell(reply, listener))
        return;
    const QByteArray bytes = reply->isOpen() ? reply->readAll() : QByteArray(); // closed when it took too long
    if (!bytes.isEmpty())
        listener.Received({bytes.data(), static_cast<std::size_t>(bytes.size())});
}

void NetworkTransport::Finish(QNetworkReply* reply, TransportListener& listener) {
    const bool hasStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    if (hasStatus)
        Read(reply, listener);
    if (reply_ != reply)
        return;
    const QNetworkReply::NetworkError error = reply->error();
    reply_ = nullptr;
    reply->deleteLater();
    listener.Ended(error == QNetworkReply::NoError ? std::nullopt : std::optional(FaultOf(error)));
}

} // namespace pirol

#ifdef PIROL_MODULE
/// What the designer looks for in the module.
extern "C" Q_DECL_EXPORT pirol::Transport* PirolNetworkTransport(const std::string* authority) {
    return new pirol::NetworkTransport(*authority);
}
#endif
