// Does one of the operations once: run-operation NAME FOLDER. Ends with 0, or with 1 and the error on standard error.
// What a normal end would clear away stays, as if the program were killed behind the operation.

#include "app/ErrorReport.h"
#include "faults/Operations.h"

#include <new>

int main(int, char* arguments[]) {
    using namespace pirol;
    static test::Operations* run = nullptr;
    try {
        const auto error = ErrorOf([arguments] {
            run = new test::Operations;
            run->folder = arguments[2];
            for (const auto& [name, operation] : test::allOperations)
                if (std::string_view(name) == arguments[1])
                    (run->*operation)();
        });
        if (!error)
            return 0;
        std::fprintf(stderr, "%s\n", error->what());
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "%s\n", RuntimeError::outOfMemoryText.data());
    }
    return 1;
}
