#pragma once

#include "app/Transport.h"

#include <string>

namespace pirol {

/// The transport of the command-line tool, which needs no Qt: libcurl, or Windows' own HTTP. Start returns when the
/// answer has ended; the listener may stop it meanwhile, but not ask anew.
class ListTransport : public Transport {
  public:
    /// The authority is a certificate in DER; those of the system vouch for servers when it is empty. On Windows it
    /// must stand among those of the system.
    explicit ListTransport(std::string authority) : authority_(std::move(authority)) {}

    void Start(const WebRequest& request, TransportListener& listener) override;
    void Stop() override { isRunning_ = false; }

    bool IsRunning() const { return isRunning_; }

  private:
    std::string authority_;
    bool isRunning_ = false;
};

} // namespace pirol
