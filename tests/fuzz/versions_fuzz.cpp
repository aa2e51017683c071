// Any text as a version list: whole, which no key has signed, and as the part that is signed.

#include "app/UpdateFault.h"
#include "app/VersionList.h"
#include "base/Text.h"
#include "fuzz/Fuzz.h"

using namespace pirol;

namespace {

template <class Operation>
bool Reads(Operation&& operation) {
    try {
        std::forward<Operation>(operation)();
        return true;
    } catch (const UpdateError& error) {
        fuzz::Require(*error.what() != '\0', "refusals say what happened");
        return false;
    }
}

std::string TextOf(const VersionList& list) {
    std::string text = Concatenate("#Pirol.Versions 1\nserial: ", list.serial, "\nexpires: ", list.expires,
                                   "\nversion: ", list.version, "\n");
    for (const std::string& note : list.notes)
        Append(text, "note: ", note, "\n");
    for (const OfferedFile& file : list.files)
        Append(text, "file: ", file.system, " ", file.name, " ", file.size, " ", file.hash, "\n");
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    const std::string keys[] = {std::string(32, '\x11'), std::string(32, '\0')};
    fuzz::Require(!Reads([&] { ReadVersionList(text, {keys, 1}); }), "what nobody signed does not count");
    Reads([&] { ReadVersionList(text, keys); }); // a key of small order signs much, but ends nothing
    VersionList list;
    if (!Reads([&] { list = ReadSignedPart(text); }))
        return 0;
    fuzz::Require(TextOf(list) == text, "a list has one form only");
    for (const OfferedFile& file : list.files)
        fuzz::Require(file.name.find_first_of("/\\:?#% ") == std::string::npos && file.name[0] != '.' && file.size > 0,
                      "files have plain names and a size");
    Reads([&] { OfferOf(list, {"1.0.0", "debian", 3, 1'790'000'000}); });
    return 0;
}
