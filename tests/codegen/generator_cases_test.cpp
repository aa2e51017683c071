#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/Hints.h"
#include "codegen/JavaGenerator.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#include <numeric>

namespace pirol {
namespace {

namespace fs = std::filesystem;

/// tests/data/generate/*: design.prl gives expected.java with the options of options.txt.
TEST(JavaGenerator, Cases) {
    for (const fs::path& folder : test::CaseFolders("generate")) {
        ProjectModel model;
        ASSERT_EQ(ReadPRLFile(folder / "design.prl", model), ReadResult::Loaded) << folder;
        EXPECT_EQ(ToWindows1252(GenerateCode(model, test::OptionsIn(folder))), ReadFileBytes(folder / "expected.java"))
            << folder;
    }
}

/// Each example stands beside its Java, generated with all it has.
TEST(JavaGenerator, Examples) {
    std::size_t examples = 0;
    for (const auto& entry : fs::directory_iterator(PIROL_EXAMPLES)) {
        fs::path project = entry.path();
        if (project.extension() != ".prl")
            continue;
        ProjectModel model;
        ASSERT_EQ(ReadPRLFile(project, model), ReadResult::Loaded) << project;
        const CodeOptions code{!model.Menus().IsEmpty(), model.Sql().UsesDatabase()};
        EXPECT_EQ(ToWindows1252(GenerateCode(model, code)), ReadFileBytes(project.replace_extension(".java")))
            << project;
        for (const Hint& hint : FindHints(model, {}, code))
            EXPECT_EQ(hint.rule->key, "missing-file") << project << hint.text;
        ++examples;
    }
    EXPECT_GE(examples, 5U);
}

TEST(JavaGenerator, WritesWhatTheProjectFileDoesNotHoldAndNothingThatIsDeleted) {
    ProjectModel model;
    const auto place = [&model](ComponentKind kind) -> Control& {
        return model.EditElement(model.PlaceComponent(kind, {1, 2, 30, 40}));
    };
    static_cast<dPassword&>(place(ComponentKind::Password)).Caption = "geheim";
    static_cast<dSchalter&>(place(ComponentKind::CheckBox)).Checked = true;
    static_cast<dFortschritt&>(place(ComponentKind::ProgressBar)).Value = 42;
    auto& group = static_cast<dOptionsgruppe&>(place(ComponentKind::OptionGroup));
    group.OptionButtons.emplace_back();
    group.EventClick = false;
    place(ComponentKind::Button);
    model.DeleteComponent({ComponentKind::Button, 1});
    const std::string source = GenerateCode(model, {});
    for (const char* statement :
         {"        hatPasswortfeld1.setzeInhalt(\"geheim\");\r\n", "        hatSchalter1.schalteAn();\r\n",
          "        hatFortschrittsbalken1.setzeWert(42);\r\n",
          "        hatRadioKnopf = new Radioknopf(1, 2, 150, 20, \"\");\r\n"
          "        hatOptionsgruppe1.fuegeEin(hatRadioKnopf);\r\n"})
        EXPECT_NE(source.find(statement), std::string::npos) << statement << source;
    for (const char* missing : {"Geklickt", "hatKnopf1"})
        EXPECT_EQ(source.find(missing), std::string::npos) << source;
}

TEST(JavaGenerator, ARadioButtonOutsideSixteenBitsIsAnError) {
    ProjectModel large; // than what is written at once
    for (int placed = 0; placed < 3000; ++placed)
        large.PlaceComponent(ComponentKind::Button, {0, 0, 50, 50});
    for (const std::size_t bad : {1U, 2U}) {
        ProjectModel model = large;
        for (int placed = 0; placed < 2; ++placed)
            model.PlaceComponent(ComponentKind::OptionGroup, {32000, 0, 100, 100});
        Control& group = model.EditElement({ComponentKind::OptionGroup, bad});
        static_cast<dOptionsgruppe&>(group).OptionButtons.emplace_back().Left = 1000;
        std::string written;
        EXPECT_EQ(test::ErrorOf([&] { WriteCode(model, {}, [&](std::string_view piece) { written += piece; }); }),
                  "Fehler 6: Überlauf (Main.File.Java.GenerateCode)");
        EXPECT_EQ(written, "") << "nobody may be left with half a source";
        model.DeleteComponent({ComponentKind::OptionGroup, bad});
        EXPECT_EQ(test::ErrorOf([&] { GenerateCode(model, {}); }), "");
    }
}

TEST(JavaGenerator, PiecesMakeUpTheSource) {
    ProjectModel model;
    for (std::size_t placed = 0; placed < 2000; ++placed)
        model.PlaceComponent(KindRows()[placed % kindCount].kind, {0, 0, 50, 50});
    std::vector<std::string> pieces;
    WriteCode(model, {true, true},
              [&](std::string_view piece) { pieces.emplace_back(ToWindows1252(std::string(piece))); });
    EXPECT_GT(pieces.size(), 2U);
    EXPECT_EQ(std::accumulate(pieces.begin(), pieces.end(), std::string()),
              ToWindows1252(GenerateCode(model, {true, true})));
}

} // namespace
} // namespace pirol
