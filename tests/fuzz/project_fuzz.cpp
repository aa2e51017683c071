// Any bytes as a project file whose hash is right: reading ends in a design or in a run-time error, and what was read
// can be generated, written and read again.

#include "codegen/JavaGenerator.h"
#include "fuzz/Fuzz.h"

using namespace pirol;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ProjectModel model;
    const std::string bytes = fuzz::Signed(fuzz::TextOf(data, size));
    if (!fuzz::Succeeds([&] { fuzz::Require(ReadPRLBytes(bytes, model) == ReadResult::Loaded, "the hash matches"); }))
        return 0;

    for (const CodeOptions options : {CodeOptions{false, false}, CodeOptions{true, true}}) {
        std::string source;
        fuzz::Succeeds([&] { source = GenerateCode(model, options); });
        fuzz::Require(source.empty() || source.ends_with('}'), "a source is complete");
    }

    // Each reading crosses the text areas, so that two of them lose nothing that a file can hold.
    const std::string written = GeneratePRLCode(model);
    const std::string crossed = GeneratePRLCode(fuzz::Read(written));
    fuzz::Require(crossed.size() == written.size(), "crossing the text areas changes no length");
    fuzz::Require(fuzz::Read(crossed) == model, "reading twice gives the same design");
    return 0;
}
