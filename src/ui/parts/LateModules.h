#pragma once

#include "app/Transport.h"
#include "ui/parts/Printers.h"

#include <memory>
#include <string>

namespace pirol {

// Where programs share Qt's libraries, its network and its printing are modules of their own that are loaded here and
// not at the start, which they would slow down. Both functions raise RuntimeError::FileNotFound when the module is
// missing.

/// Makes the transport of the designer. The authority is a certificate in DER, or empty for those of the system.
std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority);

/// Makes what prints on the system's printers.
std::unique_ptr<Printers> NewSystemPrinters();

} // namespace pirol
