#include "base/Conversions.h"
#include "base/Signature.h"
#include "base/Text.h"
#include "programs/ListTransport.h"

#include <algorithm>
#include <curl/curl.h>
#include <iterator>
#include <memory>

namespace pirol {
namespace {

struct ErrorRow {
    CURLcode error;
    UpdateFault fault;
};

constexpr ErrorRow errors[] = {
    {CURLE_COULDNT_RESOLVE_HOST, UpdateFault::NameNotFound},
    {CURLE_COULDNT_RESOLVE_PROXY, UpdateFault::NameNotFound},
    {CURLE_COULDNT_CONNECT, UpdateFault::NoConnection},
    {CURLE_OPERATION_TIMEDOUT, UpdateFault::TimedOut},
    {CURLE_PEER_FAILED_VERIFICATION, UpdateFault::UntrustedServer},
    {CURLE_SSL_CONNECT_ERROR, UpdateFault::UntrustedServer},
    {CURLE_UNSUPPORTED_PROTOCOL, UpdateFault::BadAnswer},
};

UpdateFault FaultOf(CURLcode error) {
    const auto* const row = std::find_if(std::begin(errors), std::end(errors),
                                         [&](const ErrorRow& candidate) { return candidate.error == error; });
    return row == std::end(errors) ? UpdateFault::ConnectionLost : row->fault;
}

struct Call {
    CURL* curl;
    const ListTransport& transport;
    TransportListener& listener;
    bool hasAnswered = false;
};

std::string Header(CURL* curl, const char* name) {
    curl_header* header = nullptr;
    return curl_easy_header(curl, name, 0, CURLH_HEADER, -1, &header) == CURLHE_OK ? header->value : "";
}

void Tell(Call& call) {
    if (call.hasAnswered)
        return;
    call.hasAnswered = true;
    WebAnswer answer;
    long status = 0;
    curl_off_t length = -1;
    curl_easy_getinfo(call.curl, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(call.curl, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    answer.status = static_cast<int>(status);
    if (length >= 0)
        answer.length = static_cast<std::uint64_t>(length);
    answer.type = LowerCase(Header(call.curl, "Content-Type"));
    answer.encoding = LowerCase(Header(call.curl, "Content-Encoding"));
    call.listener.Answered(answer);
}

/// Anything but all bytes ends the transfer.
std::size_t Take(const char* bytes, std::size_t /*one*/, std::size_t count, void* data) {
    auto& call = *static_cast<Call*>(data);
    Tell(call);
    if (call.transport.IsRunning())
        call.listener.Received({bytes, count});
    return call.transport.IsRunning() ? count : 0;
}

std::string PemOf(std::string_view certificate) {
    constexpr std::size_t lineLength = 64;
    const std::string text = ToBase64(certificate);
    std::string pem = "-----BEGIN CERTIFICATE-----\n";
    for (std::size_t at = 0; at < text.size(); at += lineLength)
        Append(pem, std::string_view(text).substr(at, lineLength), "\n");
    return pem + "-----END CERTIFICATE-----\n";
}

template <class Value>
void Set(CURL* curl, CURLoption option, Value value) {
    curl_easy_setopt(curl, option, value);
}

} // namespace

void ListTransport::Start(const WebRequest& request, TransportListener& listener) {
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle(curl_easy_init(), curl_easy_cleanup);
    CURL* const curl = handle.get();
    Call call{curl, *this, listener};
    std::string pem = authority_.empty() ? std::string() : PemOf(authority_);
    curl_blob authority{pem.data(), pem.size(), CURL_BLOB_NOCOPY};
    Set(curl, CURLOPT_URL, request.url.c_str());
    Set(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    Set(curl, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    Set(curl, CURLOPT_USERAGENT, "Pirol");
    Set(curl, CURLOPT_CONNECTTIMEOUT, static_cast<long>(patience));
    Set(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    Set(curl, CURLOPT_LOW_SPEED_TIME, static_cast<long>(patience));
    Set(curl, CURLOPT_NOSIGNAL, 1L);
    Set(curl, CURLOPT_WRITEFUNCTION, &Take);
    Set(curl, CURLOPT_WRITEDATA, &call);
    if (!pem.empty()) {
        Set(curl, CURLOPT_CAINFO_BLOB, &authority);
        Set(curl, CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
    isRunning_ = true;
    const CURLcode error = curl_easy_perform(curl);
    if (error == CURLE_OK)
        Tell(call); // an empty body, too, has a beginning
    if (!isRunning_)
        return;
    isRunning_ = false;
    listener.Ended(error == CURLE_OK ? std::nullopt : std::optional(FaultOf(error)));
}

} // namespace pirol
