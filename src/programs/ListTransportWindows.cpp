#include "base/Conversions.h"
#include "programs/ListTransport.h"

#include <windows.h>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <winhttp.h>

namespace pirol {
namespace {

struct ErrorRow {
    DWORD error;
    UpdateFault fault;
};

constexpr ErrorRow errors[] = {
    {ERROR_WINHTTP_NAME_NOT_RESOLVED, UpdateFault::NameNotFound},
    {ERROR_WINHTTP_CANNOT_CONNECT, UpdateFault::NoConnection},
    {ERROR_WINHTTP_TIMEOUT, UpdateFault::TimedOut},
    {ERROR_WINHTTP_SECURE_FAILURE, UpdateFault::UntrustedServer},
    {ERROR_WINHTTP_SECURE_CHANNEL_ERROR, UpdateFault::UntrustedServer},
    {ERROR_WINHTTP_INVALID_SERVER_RESPONSE, UpdateFault::BadAnswer},
};

UpdateFault FaultOf(DWORD error) {
    const auto* const row = std::find_if(std::begin(errors), std::end(errors),
                                         [&](const ErrorRow& candidate) { return candidate.error == error; });
    return row == std::end(errors) ? UpdateFault::ConnectionLost : row->fault;
}

struct HandleCloser {
    void operator()(void* handle) const { WinHttpCloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

/// Addresses and headers are plain ASCII.
std::wstring Wide(const std::string& text) {
    return {text.begin(), text.end()};
}

std::string Header(HINTERNET request, DWORD which) {
    wchar_t value[256] = {};
    DWORD size = sizeof value;
    if (!WinHttpQueryHeaders(request, which, WINHTTP_HEADER_NAME_BY_INDEX, value, &size, WINHTTP_NO_HEADER_INDEX))
        return {};
    std::string text;
    for (const wchar_t sign : std::wstring(value))
        text += sign < 0x7F ? static_cast<char>(sign) : '?';
    return LowerCase(text);
}

WebAnswer AnswerOf(HINTERNET request) {
    WebAnswer answer;
    DWORD status = 0;
    DWORD size = sizeof status;
    WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, WINHTTP_HEADER_NAME_BY_INDEX,
                        &status, &size, WINHTTP_NO_HEADER_INDEX);
    answer.status = static_cast<int>(status);
    answer.type = Header(request, WINHTTP_QUERY_CONTENT_TYPE);
    answer.encoding = Header(request, WINHTTP_QUERY_CONTENT_ENCODING);
    return answer;
}

/// The address in its parts.
struct Parts {
    explicit Parts(const std::string& url) : text(Wide(url)) {
        components.dwStructSize = sizeof components;
        components.dwHostNameLength = components.dwUrlPathLength = components.dwExtraInfoLength =
            static_cast<DWORD>(-1);
        WinHttpCrackUrl(text.c_str(), 0, 0, &components);
    }
    std::wstring Host() const { return {components.lpszHostName, components.dwHostNameLength}; }
    bool IsSecure() const { return components.nScheme == INTERNET_SCHEME_HTTPS; }

    std::wstring text;
    URL_COMPONENTS components = {};
};

/// Sends the request and tells of the answer; the error in which that ended, or 0.
DWORD Ask(HINTERNET request, const ListTransport& transport, TransportListener& listener) {
    DWORD never = WINHTTP_OPTION_REDIRECT_POLICY_NEVER;
    WinHttpSetOption(request, WINHTTP_OPTION_REDIRECT_POLICY, &never, sizeof never);
    if (!WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, 0) ||
        !WinHttpReceiveResponse(request, nullptr))
        return GetLastError();
    listener.Answered(AnswerOf(request));
    for (DWORD count = 1; transport.IsRunning() && count != 0;) {
        char bytes[4096];
        if (!WinHttpReadData(request, bytes, sizeof bytes, &count))
            return GetLastError();
        if (count != 0)
            listener.Received({bytes, count});
    }
    return 0;
}

DWORD Perform(const std::string& url, const ListTransport& transport, TransportListener& listener) {
    constexpr int patience = Transport::patience * 1000;
    const Parts parts(url);
    const Handle session(
        WinHttpOpen(L"Pirol", WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session || !WinHttpSetTimeouts(session.get(), patience, patience, patience, patience))
        return GetLastError();
    const Handle connection(WinHttpConnect(session.get(), parts.Host().c_str(), parts.components.nPort, 0));
    if (!connection)
        return GetLastError();
    const Handle request(WinHttpOpenRequest(connection.get(), L"GET", parts.components.lpszUrlPath, nullptr,
                                            WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                            parts.IsSecure() ? WINHTTP_FLAG_SECURE : 0));
    return request ? Ask(request.get(), transport, listener) : GetLastError();
}

} // namespace

void ListTransport::Start(const WebRequest& request, TransportListener& listener) {
    isRunning_ = true;
    const DWORD error = Perform(request.url, *this, listener);
    if (!isRunning_)
        return;
    isRunning_ = false;
    listener.Ended(error == 0 ? std::nullopt : std::optional(FaultOf(error)));
}

} // namespace pirol
