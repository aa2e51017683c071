#include "base/Conversions.h"
#include "base/HashFunction.h"
#include "Cases.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

std::string Signed(const std::string& text) {
    return text + HashFunction(text);
}

/// What the user is told, or an empty text when the project was loaded.
std::string OutcomeOf(std::string_view bytes, ProjectModel& model) {
    try {
        return ReadPRLBytes(bytes, model) == ReadResult::Loaded ? "" : std::string(damagedProjectMessage);
    } catch (const RuntimeError& error) {
        return error.what();
    }
}

ProjectModel Read(const std::string& bytes) {
    ProjectModel model;
    EXPECT_EQ(OutcomeOf(bytes, model), "");
    return model;
}

TEST(ProjectFile, AnEmptyDesignIsWrittenByteForByte) {
    EXPECT_EQ(GeneratePRLCode(ProjectModel()),
              Signed("#Begin.Pirol.Window\r\n640\r\n480\r\n\r\n#Begin.Pirol.Components\r\n#Begin.Pirol.Menu\r\n"
                     "#Begin.Pirol.SQL\r\n\r\n\r\n\r\n\r\n\r\n0;0;0\r\n#Begin.Pirol.Hash\r\n"));
}

/// tests/data/errors/*: project.prl ends in the message of expected.txt.
TEST(ProjectFile, DamagedFilesEndInTheirMessage) {
    for (const fs::path& folder : test::CaseFolders("errors")) {
        ProjectModel model;
        EXPECT_EQ(OutcomeOf(ReadFileBytes(folder / "project.prl"), model), ReadFileBytes(folder / "expected.txt"))
            << folder;
    }
}

TEST(ProjectFile, ReadingTwiceGivesTheSameBytes) {
    // Each pass crosses the text areas, so every second one is the file itself.
    for (const fs::path& folder : test::CaseFolders("generate")) {
        const std::string bytes = ReadFileBytes(folder / "design.prl");
        EXPECT_EQ(GeneratePRLCode(Read(GeneratePRLCode(Read(bytes)))), bytes) << folder;
    }
}

/// Another value than a component begins with.
std::string Another(const PropertyRow& row, const Control& control) {
    if (row.key->editor == EditorKind::Flag)
        return std::string(FlagText(!ConvertToBoolean(row.get(control))));
    if (row.key == &keys::optionbuttons)
        return JoinRadioButtons({{"hatRot", "Rot", 1, 2, 3, 4, true}, {}});
    return row.key->editor == EditorKind::Number || row.key->editor == EditorKind::Choice ? "7" : "x";
}

/// With every other property as it was. Reading twice brings crossed text areas back.
TEST(ProjectFile, EveryStoredPropertyComesBackByItself) {
    for (const KindRow& kind : KindRows()) {
        ProjectModel model;
        const ComponentRef component = model.PlaceComponent(kind.kind, {10, 20, 100, 50});
        const ProjectModel before = Read(GeneratePRLCode(Read(GeneratePRLCode(model))));
        int field = 0;
        for (const PropertyRow* row : before.Element(component).Table().StoredRows()) {
            EXPECT_EQ(row->fileField, ++field) << kind.key << " " << row->key->key;
            model = before;
            row->set(model.EditElement(component), Another(*row, before.Element(component)));
            EXPECT_NE(model, before) << kind.key << row->key->key;
            EXPECT_TRUE(Read(GeneratePRLCode(Read(GeneratePRLCode(model)))) == model)
                << kind.key << " " << row->key->key;
        }
    }
}

TEST(ProjectFile, HiddenComponentsAndSomeValuesAreNotKept) {
    ProjectModel model;
    for (int placed = 0; placed < 2; ++placed)
        model.PlaceComponent(ComponentKind::CheckBox, {0, 0, 50, 50});
    static_cast<dSchalter&>(model.EditElement({ComponentKind::CheckBox, 2})).Checked = true;
    model.DeleteComponent({ComponentKind::CheckBox, 1});
    const ProjectModel read = Read(GeneratePRLCode(model));
    ASSERT_EQ(read.ElementCount(ComponentKind::CheckBox), 2U);
    const auto& kept = static_cast<const dSchalter&>(read.Element({ComponentKind::CheckBox, 1}));
    EXPECT_EQ(kept.ObjectName, "hatSchalter2");
    EXPECT_FALSE(kept.Checked);
}

TEST(ProjectFile, WhatMayBeMissingOrForeignIsAccepted) {
    ProjectModel model;
    model.EditSql().User = "kept from before";
    model.EditSql().Flags = {1, 2, 3};
    using std::string_literals::operator""s;
    const std::string noMarkersAndFractions = "\r\n1,5\r\n 2.5 \r\nA\r\n\r\n";
    const std::string linesOfNoKind = "0\0x\r\n16\r\n\r\n01\r\n1x\0a\r\n-1\r\n4294967297\r\n"s;
    const std::string bytes = Signed(noMarkersAndFractions + linesOfNoKind +
                                     "#Begin.Pirol.Menu\r\n#Begin.Pirol.SQL\r\nserver\r\n#Begin.Pirol.Hash\r\n");
    EXPECT_EQ(OutcomeOf(bytes, model), "");
    EXPECT_EQ(model.WindowWidth(), 2);
    EXPECT_EQ(model.WindowHeight(), 2);
    EXPECT_TRUE(model.CreationOrder().empty());
    EXPECT_EQ(model.Sql().Server, "server");
    EXPECT_EQ(model.Sql().User, "kept from before");
    EXPECT_EQ(model.Sql().Flags[2], 3);
}

TEST(ProjectFile, AfterAnErrorWhatWasReadBeforeStays) {
    using std::string_literals::operator""s;
    const std::string bytes = Signed("#Begin.Pirol.Window\r\n320\r\n240\r\nich\r\n#Begin.Pirol.Components\r\n"
                                     "13\0001\0002\0003\0004\0hatBild1\0x.bmp\0surplus\r\n"s
                                     "13\0001\0zwei\0003\0004\0hatBild2\0y.bmp\r\n"s
                                     "#Begin.Pirol.Menu\r\n");
    ProjectModel model;
    model.PlaceComponent(ComponentKind::Label, {0, 0, 50, 50});
    EXPECT_NE(OutcomeOf(bytes, model), "");
    EXPECT_EQ(model.ElementCount(ComponentKind::Label), 1U) << "a design is emptied before another one is read";
    EXPECT_EQ(model.WindowWidth(), 320);
    EXPECT_EQ(model.Author(), "ich");
    EXPECT_EQ(model.Element({ComponentKind::Picture, 1}).ObjectName, "hatBild1");
    EXPECT_EQ(model.Element({ComponentKind::Picture, 2}).Left, 1);
}

TEST(ProjectFile, AFileMadeToEatMemoryIsRefused) {
    using std::string_literals::operator""s;
    const std::string list = "9\0001\0001\0001\0001\0hatAuswahl1\0"s + std::string(5'000'000, '\1') + "\0\0\0\r\n"s;
    ProjectModel model;
    EXPECT_EQ(OutcomeOf(Signed("#Begin.Pirol.Window\r\n1\r\n1\r\n\r\n#Begin.Pirol.Components\r\n" + list +
                               "#Begin.Pirol.Menu\r\n#Begin.Pirol.SQL\r\n#Begin.Pirol.Hash\r\n"),
                        model),
              "Fehler 7: Nicht genügend Speicher (Main.File.PRL.ReadPRLFile)");
}

TEST(ProjectFile, LoadingTellsHowFarItIs) {
    struct Log final : LoadingProgress {
        std::string text;
        void SetMaximum(int maximum) override { text += "max " + std::to_string(maximum); }
        void SetValue(int value) override { text += " " + std::to_string(value); }
        void SetCaption(std::string_view caption) override { text += "|" + std::string(caption); }
    };
    ProjectModel model;
    model.PlaceComponent(ComponentKind::Label, {0, 0, 50, 50});
    model.EditMenus().Append("Datei", "hatMenueDatei");
    const test::ScratchFolder scratch;
    const fs::path file = scratch / "p.prl";
    const std::string bytes = GeneratePRLCode(model);
    ReplaceFileBytes(file, bytes);
    Log log;
    EXPECT_EQ(ReadPRLFile(file, model, &log), ReadResult::Loaded);
    EXPECT_EQ(log.text,
              "max 15|Lade Komponenten . . . 6|Lade Menüeinträge . . . 8|Lade SQL-Daten . . . 10 11 12 13 14 15");
    EXPECT_EQ(GeneratePRLCode(model), bytes);
}

} // namespace
} // namespace pirol
