#include "ui/parts/LateModules.h"

#ifdef PIROL_MODULE_FOLDER
#include "base/RuntimeError.h"

#include <QCoreApplication>
#include <QLibrary>
#else
#include "ui/parts/NetworkTransport.h"
#include "ui/parts/SystemPrinters.h"
#endif

namespace pirol {

#ifdef PIROL_MODULE_FOLDER

namespace {

/// The modules lie beside a program that was built, and in a folder of their own where it is installed.
template <class Function>
Function FunctionOf(const QString& module, const char* name) {
    for (const char* const folder : {"/", "/" PIROL_MODULE_FOLDER "/"}) {
        QLibrary library(QCoreApplication::applicationDirPath() + folder + module);
        if (const auto function = reinterpret_cast<Function>(library.resolve(name)))
            return function;
    }
    throw RuntimeError(RuntimeError::FileNotFound);
}

} // namespace

std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority) {
    using Maker = Transport* (*)(const std::string*);
    return std::unique_ptr<Transport>(FunctionOf<Maker>("pirol-network.so", "PirolNetworkTransport")(&authority));
}

std::unique_ptr<Printers> NewSystemPrinters() {
    using Maker = Printers* (*)();
    return std::unique_ptr<Printers>(FunctionOf<Maker>("pirol-printing.so", "PirolSystemPrinters")());
}

#else

std::unique_ptr<Transport> NewNetworkTransport(const std::string& authority) {
    return std::make_unique<NetworkTransport>(authority);
}

std::unique_ptr<Printers> NewSystemPrinters() {
    return std::make_unique<SystemPrinters>();
}

#endif

} // namespace pirol
