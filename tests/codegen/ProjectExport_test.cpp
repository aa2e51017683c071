#ifndef _WIN32 // where a path may have 4,095 bytes

#include "base/RuntimeError.h"
#include "Cases.h"
#include "codegen/ProjectExport.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

TEST(ProjectExport, AHalfProjectDoesNotStay) {
    const test::ScratchFolder scratch;
    fs::path parent = scratch / "deep";
    while (parent.native().size() < 3800)
        parent /= std::string(100, 'x');
    fs::create_directories(parent);
    // Only the names of the first files fit behind it.
    const fs::path folder = parent / std::string(4081 - parent.native().size(), 'y');
    EXPECT_EQ(test::ErrorOf([&] { ExportBlueJProject(folder, "class"); }),
              "Fehler 52: Dateiname oder -nummer falsch (Main.Project.Export)");
    EXPECT_TRUE(fs::is_empty(parent));
}

} // namespace
} // namespace pirol

#endif
