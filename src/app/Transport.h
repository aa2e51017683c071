#pragma once

#include "app/UpdateFault.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// What is asked of a web server.
struct WebRequest {
    std::string url;
    std::uint64_t from = 0;  ///< the first byte wanted; all of the file when 0
    std::string ifUnchanged; ///< only as long as the file bears this mark, else all of it; empty when any will do
};

/// How a web server's answer begins. What it does not say is empty.
struct WebAnswer {
    int status = 0;
    std::optional<std::uint64_t> length; ///< of the body, in bytes
    std::string type;
    std::string encoding;
    std::string range;   ///< Content-Range
    std::string tag;     ///< ETag
    std::string changed; ///< Last-Modified

    /// Whether the bytes are not those of the file itself.
    bool IsPacked() const { return !encoding.empty() && encoding != "identity"; }
};

/// Is told of an answer: its beginning, its bytes in order, and its end, after which nothing comes. It may stop the
/// transport, and start it anew, while it is told.
class TransportListener {
  public:
    virtual ~TransportListener() = default;
    virtual void Answered(const WebAnswer& answer) = 0;
    virtual void Received(std::string_view bytes) = 0;
    /// The answer is complete, or a fault ended it.
    virtual void Ended(std::optional<UpdateFault> fault) = 0;
};

/// Asks web servers by HTTP/1.1, one at a time. It follows no redirection, asks for the bytes as they are and not
/// packed, uses the proxy that the system names and nothing else, and ends with UpdateFault::TimedOut when nothing
/// comes for half a minute.
class Transport {
  public:
    static constexpr int patience = 30; ///< seconds

    virtual ~Transport() = default;
    virtual void Start(const WebRequest& request, TransportListener& listener) = 0;
    /// The listener is told nothing more. Nothing happens when nothing was asked.
    virtual void Stop() = 0;
};

} // namespace pirol
