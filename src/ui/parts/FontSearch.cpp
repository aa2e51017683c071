#include "ui/parts/FontSearch.h"

#ifdef __linux__
#include <dlfcn.h>
#endif

namespace pirol {

std::future<void> BeginFontSearch() {
#ifdef __linux__
    return std::async(std::launch::async, [] {
        // The library that Qt's windows use; it stays loaded, so Qt finds the rules read.
        void* const library = dlopen("libfontconfig.so.1", RTLD_LAZY);
        if (library == nullptr)
            return;
        if (auto* const init = reinterpret_cast<int (*)()>(dlsym(library, "FcInit")); init != nullptr)
            init();
    });
#else
    return std::async(std::launch::deferred, [] {});
#endif
}

} // namespace pirol
