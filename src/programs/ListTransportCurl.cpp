#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Signature.h"
#include "base/Text.h"
#include "programs/ListTransport.h"

#include <algorithm>
#include <curl/curl.h>
#include <dlfcn.h>
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

/// libcurl brings thirty more libraries, so it is loaded when a server shall be asked, and not at every start.
class Library {
  public:
    Library() : library_(dlopen("libcurl.so.4", RTLD_NOW)) {
        if (library_ == nullptr)
            throw RuntimeError(RuntimeError::FileNotFound);
        Find(init, "curl_easy_init");
        Find(cleanup, "curl_easy_cleanup");
        Find(setopt, "curl_easy_setopt");
        Find(perform, "curl_easy_perform");
        Find(getinfo, "curl_easy_getinfo");
        Find(header, "curl_easy_header");
    }

    decltype(&curl_easy_init) init = nullptr;
    decltype(&curl_easy_cleanup) cleanup = nullptr;
    decltype(&curl_easy_setopt) setopt = nullptr;
    decltype(&curl_easy_perform) perform = nullptr;
    decltype(&curl_easy_getinfo) getinfo = nullptr;
    decltype(&curl_easy_header) header = nullptr;

  private:
    template <class Function>
    void Find(Function& function, const char* name) {
        function = reinterpret_cast<Function>(dlsym(library_, name));
        if (function == nullptr)
            throw RuntimeError(RuntimeError::FileNotFound);
    }

    void* library_; ///< stays until the end of the program
};

struct Call {
    const Library& library;
    CURL* curl;
    const ListTransport& transport;
    TransportListener& listener;
    bool hasAnswered = false;
};

std::string Header(const Call& call, const char* name) {
    curl_header* header = nullptr;
    return call.library.header(call.curl, name, 0, CURLH_HEADER, -1, &header) == CURLHE_OK ? header->value : "";
}

void Tell(Call& call) {
    if (call.hasAnswered)
        return;
    call.hasAnswered = true;
    WebAnswer answer;
    long status = 0;
    curl_off_t length = -1;
    call.library.getinfo(call.curl, CURLINFO_RESPONSE_CODE, &status);
    call.library.getinfo(call.curl, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    answer.status = static_cast<int>(status);
    if (length >= 0)
        answer.length = static_cast<std::uint64_t>(length);
    answer.type = LowerCase(Header(call, "Content-Type"));
    answer.encoding = LowerCase(Header(call, "Content-Encoding"));
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

} // namespace

void ListTransport::Start(const WebRequest& request, TransportListener& listener) {
    const Library library;
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(library.init(), library.cleanup);
    Call call{library, curl.get(), *this, listener};
    const auto set = [&](CURLoption option, auto value) { library.setopt(curl.get(), option, value); };
    std::string pem = authority_.empty() ? std::string() : PemOf(authority_);
    curl_blob authority{pem.data(), pem.size(), CURL_BLOB_NOCOPY};
    set(CURLOPT_URL, request.url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_USERAGENT, "Pirol");
    set(CURLOPT_CONNECTTIMEOUT, static_cast<long>(patience));
    set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(patience));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_WRITEFUNCTION, &Take);
    set(CURLOPT_WRITEDATA, &call);
    if (!pem.empty()) {
        set(CURLOPT_CAINFO_BLOB, &authority);
        set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
    isRunning_ = true;
    const CURLcode error = library.perform(curl.get());
    if (error == CURLE_OK)
        Tell(call); // an empty body, too, has a beginning
    if (!isRunning_)
        return;
    isRunning_ = false;
    listener.Ended(error == CURLE_OK ? std::nullopt : std::optional(FaultOf(error)));
}

} // namespace pirol
