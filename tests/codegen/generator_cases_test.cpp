#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/Hints.h"
#include "codegen/JavaGenerator.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

std::string GeneratedFrom(const fs::path& project, std::string_view options) {
    ProjectModel model;
    EXPECT_EQ(ReadPRLFile(project, model), ReadResult::Loaded) << project;
    const auto has = [options](std::string_view option) { return options.find(option) != std::string_view::npos; };
    return ToWindows1252(GenerateCode(model, {has("--menu"), has("--sql")}));
}

/// tests/data/generate/*: design.prl gives expected.java with the options of options.txt.
TEST(JavaGenerator, Cases) {
    for (const fs::path& folder : test::CaseFolders("generate"))
        EXPECT_EQ(GeneratedFrom(folder / "design.prl", ReadFileBytes(folder / "options.txt")),
                  ReadFileBytes(folder / "expected.java"))
            << folder;
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

TEST(JavaGenerator, WritesWhatTheProjectFileDoesNotHold) {
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
    const std::string source = GenerateCode(model, {});
    for (const char* statement :
         {"        hatPasswortfeld1.setzeInhalt(\"geheim\");\r\n", "        hatSchalter1.schalteAn();\r\n",
          "        hatFortschrittsbalken1.setzeWert(42);\r\n",
          "        hatRadioKnopf = new Radioknopf(1, 2, 150, 20, \"\");\r\n"
          "        hatOptionsgruppe1.fuegeEin(hatRadioKnopf);\r\n"})
        EXPECT_NE(source.find(statement), std::string::npos) << statement << source;
    EXPECT_EQ(source.find("Geklickt"), std::string::npos);
}

TEST(JavaGenerator, SkipsDeletedComponents) {
    ProjectModel model;
    for (int placed = 0; placed < 2; ++placed)
        model.PlaceComponent(ComponentKind::Button, {0, 0, 50, 50});
    model.DeleteComponent({ComponentKind::Button, 1});
    const std::string source = GenerateCode(model, {});
    EXPECT_EQ(source.find("hatKnopf1"), std::string::npos);
    EXPECT_NE(source.find("hatKnopf2"), std::string::npos);
}

TEST(JavaGenerator, ARadioButtonOutsideSixteenBitsIsAnError) {
    ProjectModel model;
    Control& group = model.EditElement(model.PlaceComponent(ComponentKind::OptionGroup, {32000, 0, 100, 100}));
    static_cast<dOptionsgruppe&>(group).OptionButtons.emplace_back().Left = 1000;
    std::string written;
    EXPECT_EQ(test::ErrorOf([&] { WriteCode(model, {}, [&](std::string_view piece) { written += piece; }); }),
              "Fehler 6: Überlauf (Main.File.Java.GenerateCode)");
    EXPECT_EQ(written, "") << "nobody may be left with half a source";
    model.DeleteComponent({ComponentKind::OptionGroup, 1});
    EXPECT_EQ(test::ErrorOf([&] { GenerateCode(model, {}); }), "");
}

TEST(JavaGenerator, PiecesMakeUpTheSource) {
    ProjectModel model;
    for (int placed = 0; placed < 2000; ++placed)
        model.PlaceComponent(KindRows()[static_cast<std::size_t>(placed) % kindCount].kind, {0, 0, 50, 50});
    std::string joined;
    std::string encoded;
    std::size_t pieces = 0;
    WriteCode(model, {true, true}, [&](std::string_view piece) {
        joined += piece;
        encoded += ToWindows1252(std::string(piece));
        ++pieces;
    });
    EXPECT_GT(pieces, 2U);
    EXPECT_EQ(joined, GenerateCode(model, {true, true}));
    EXPECT_EQ(encoded, ToWindows1252(joined));
}

} // namespace
} // namespace pirol
