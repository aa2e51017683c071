// Any text as the file of the user's settings: a value that is set can be read and nothing else changes.

#include "app/RegistryText.h"
#include "fuzz/Fuzz.h"

#include <fuzzer/FuzzedDataProvider.h>

using namespace pirol;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const std::string key = "Software\\Pirol";
    const std::string name = input.ConsumeRandomLengthString(16);
    const std::string other = input.ConsumeRandomLengthString(16);
    const RegistryValue value = input.ConsumeBool() ? RegistryValue(input.ConsumeIntegral<std::int32_t>())
                                                    : RegistryValue(input.ConsumeRandomLengthString(64));
    const std::string text = input.ConsumeRemainingBytesAsString();

    const std::string changed = WithRegistryValue(text, key, name, value);
    fuzz::Require(FindRegistryValue(changed, key, name) == value, "a value that was set is found");
    fuzz::Require(name == other || FindRegistryValue(changed, key, other) == FindRegistryValue(text, key, other),
                  "other values stay");
    fuzz::Require(WithRegistryValue(changed, key, name, value) == changed, "setting it again changes nothing");
    return 0;
}
