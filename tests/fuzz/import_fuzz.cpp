// Any bytes as Java source: importing ends in a design or in a run-time error, and a design that was imported can be
// generated, imported again and written.

#include "base/Windows1252.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "fuzz/Fuzz.h"

using namespace pirol;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ProjectModel model;
    if (!fuzz::Succeeds([&] { AnalyseCode(FromWindows1252(fuzz::TextOf(data, size)), model); }))
        return 0;

    std::string source;
    if (fuzz::Succeeds([&] { source = GenerateCode(model, {.menu = false, .database = true}); })) {
        ProjectModel again;
        fuzz::Succeeds([&] { AnalyseCode(source, again); });
    }

    // A text with a line end spoils its line of the project file, but never the file's hash.
    const std::string written = GeneratePRLCode(model);
    ProjectModel read;
    fuzz::Succeeds([&] { fuzz::Require(ReadPRLBytes(written, read) == ReadResult::Loaded, "the hash matches"); });
    return 0;
}
