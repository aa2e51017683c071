#pragma once

#include "app/Transport.h"

#include <memory>
#include <string>

namespace pirol {

/// Makes the transport of the designer. Where programs share Qt's libraries the network is a module of its own that is
/// loaded here and not at the start, which it would slow down. The authority is a certificate in DER, or empty for
/// those of the system. Raises RuntimeError::FileNotFound when the module is missing.
std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority);

} // namespace pirol
