#include "ui/parts/NetworkModule.h"

#ifdef PIROL_NETWORK_FOLDER
#include "base/RuntimeError.h"

#include <QCoreApplication>
#include <QLibrary>
#else
#include "ui/parts/NetworkTransport.h"
#endif

namespace pirol {

#ifdef PIROL_NETWORK_FOLDER

/// The module lies beside a program that was built, and in a folder of its own where it is installed.
std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority) {
    using Maker = Transport* (*)(const std::string*);
    for (const char* const folder : {"/", "/" PIROL_NETWORK_FOLDER "/"}) {
        QLibrary module(QCoreApplication::applicationDirPath() + folder + "pirol-network.so");
        if (const auto make = reinterpret_cast<Maker>(module.resolve("PirolNetworkTransport")))
            return std::unique_ptr<Transport>(make(&authority));
    }
    throw RuntimeError(RuntimeError::FileNotFound);
}

#else

std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority) {
    return std::make_unique<NetworkTransport>(authority);
}

#endif

} // namespace pirol
