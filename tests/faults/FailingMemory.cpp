#include "faults/FailingMemory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

long allocations = 0;
long failing = 0; ///< the number of the allocation that fails; 0 for none
bool lasting = false;

} // namespace

void pirol::test::DisturbMemory(long number, bool goesOn) {
    allocations = 0;
    failing = number;
    lasting = goesOn;
}

long pirol::test::LeaveMemoryAlone() {
    failing = 0;
    return allocations;
}

void* operator new(std::size_t size) {
    ++allocations;
    const bool fails = failing != 0 && (allocations == failing || (lasting && allocations > failing));
    void* const memory = fails ? nullptr : std::malloc(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
