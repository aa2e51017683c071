#include "app/KeepingThread.h"
#include "Cases.h"
#include "project/KeptDesigns.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

OpenDesign Design(const std::string& author) {
    OpenDesign design;
    design.model.SetAuthor(author);
    return design;
}

/// Whatever comes in the way, nothing is lost at the end of the program, and what is kept is there once.
TEST(KeepingThread, WaitsForAPlaceAndTriesOnceMoreAtTheEnd) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    fs::create_directories(folder);
    CreateFileBytes(KeptFolder(folder), "a file where the folder should be");
    {
        KeepingThread keeping(folder, [](const std::string&) {});
        keeping.KeepFormer({Design("a"), "Neuer Entwurf", 5});
        keeping.KeepFormer({Design("b"), "Projekt öffnen", 6});
        EXPECT_FALSE(keeping.Wait().empty());
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}) / 2, 2) << "each with its lock";
        keeping.KeepShown(Design("c"));
        EXPECT_FALSE(keeping.Wait().empty()) << "the other two still wait";
        fs::remove(KeptFolder(folder));
    }
    std::string kept;
    for (const KeptDesign& design : KeptDesigns(KeptFolder(folder)))
        kept += ReadDesign(design).model.Author() + design.reason + " ";
    EXPECT_EQ(kept, "bProjekt öffnen aNeuer Entwurf ");
    EXPECT_TRUE(fs::is_empty(folder)) << "no recovery file is left";
}

} // namespace
} // namespace pirol
