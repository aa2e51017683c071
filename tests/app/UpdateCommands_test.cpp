#include "app/JavaFiles.h"
#include "app/UnheldValues.h"
#include "app/UpdateCommands.h"
#include "base/Conversions.h"
#include "base/Text.h"
#include "Cases.h"
#include "FakeDialogs.h"

#include <gtest/gtest.h>

#include <tuple>

namespace pirol {
namespace {

namespace fs = std::filesystem;

/// A design with a switch, a group of two buttons and a text area.
ProjectModel Design() {
    ProjectModel model;
    model.PlaceComponent(ComponentKind::CheckBox, {10, 20, 80, 30});
    model.PlaceComponent(ComponentKind::RowField, {10, 60, 80, 30});
    const ComponentRef group = model.PlaceComponent(ComponentKind::OptionGroup, {10, 100, 80, 80});
    auto& buttons = static_cast<dOptionsgruppe&>(model.EditElement(group)).OptionButtons;
    buttons.resize(2);
    buttons[0].Name = "hatA";
    buttons[1].Name = "hatB";
    return model;
}

std::string Shown(const std::vector<NameChange>& renames) {
    std::string shown;
    for (const NameChange& rename : renames)
        Append(shown, rename.before, ">", rename.now, " ");
    return shown;
}

TEST(JavaFiles, KnowADesignByItsComponentsAndTheNamesOfEachFile) {
    JavaFiles files;
    ProjectModel model = Design();
    EXPECT_EQ(files.LastOf(model), "");
    files.Remember("a.java", model);
    model.EditElement({ComponentKind::CheckBox, 1}).ObjectName = "hatLicht";
    files.Remember("b.java", model);
    EXPECT_EQ(files.LastOf(model), "b.java");
    EXPECT_EQ(files.LastOf(Design()), "") << "another design with the same names";

    auto& buttons = static_cast<dOptionsgruppe&>(model.EditElement({ComponentKind::OptionGroup, 1})).OptionButtons;
    buttons[1].Name = "hatC";
    EXPECT_EQ(Shown(files.RenamesIn("a.java", model)), "hatSchalter1>hatLicht hatB>hatC ");
    EXPECT_EQ(Shown(files.RenamesIn("b.java", model)), "hatB>hatC ");
    EXPECT_EQ(Shown(files.RenamesIn("c.java", model)), "");
    std::swap(buttons[0].Name, buttons[1].Name); // moved in the list, nothing more
    buttons[0].Name = "hatB";
    EXPECT_EQ(Shown(files.RenamesIn("b.java", model)), "");
}

/// The names of a group's buttons when its file was written, those that it has now, and what was renamed.
TEST(JavaFiles, AButtonIsRenamedWhereNothingElseExplainsItsName) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"a,b", "a,c", "b>c "}, {"a,b", "b,a", ""}, {"a,b", "a,a", ""}, {"a,b", "b,c", ""},         {"a", "a,b", ""},
        {"a,b", "c", "a>c "},   {"a,b", "c,a", ""}, {"a,b", "a", ""},   {"a,b", "c,d", "a>c b>d "}, {"a,b", "a,b", ""},
    };
    for (const auto& [before, now, renamed] : cases) {
        ProjectModel model = Design();
        const auto name = [&model](std::string_view names) {
            Control& group = model.EditElement({ComponentKind::OptionGroup, 1});
            auto& buttons = static_cast<dOptionsgruppe&>(group).OptionButtons;
            buttons.clear();
            for (const std::string_view one : Split(names, ','))
                buttons.emplace_back().Name = one;
        };
        JavaFiles files;
        name(before);
        files.Remember("a.java", model);
        name(now);
        EXPECT_EQ(Shown(files.RenamesIn("a.java", model)), renamed) << before << " " << now;
    }
}

TEST(JavaFiles, RememberTwenty) {
    JavaFiles files;
    std::vector<ProjectModel> models;
    for (int i = 0; i < 21; ++i) {
        models.push_back(Design());
        files.Remember(std::to_string(i % 20), models.back()); // the first path holds the last design then
    }
    EXPECT_EQ(files.LastOf(models[0]), "");
    EXPECT_EQ(files.LastOf(models[1]), "1");
    EXPECT_EQ(files.LastOf(models[20]), "0");
    files.Remember("20", models[20]);
    EXPECT_EQ(files.LastOf(models[1]), "") << "the oldest is forgotten";
    EXPECT_EQ(files.LastOf(models[2]), "2");
    EXPECT_EQ(files.LastOf(models[20]), "20");
}

TEST(UnheldValues, AreUnknownUntilTheUserSetsThem) {
    const ComponentRef light{ComponentKind::CheckBox, 1};
    Document document;
    const UnheldValues values(document);
    const auto isUnknown = [&](std::string_view name, std::string_view property = keys::checked.key) {
        return values.Now()(name, property);
    };
    const auto set = [&](bool on) {
        document.Edit("", [&](ProjectModel& model) { static_cast<dSchalter&>(model.EditElement(light)).Checked = on; });
    };
    document.Edit("", [](ProjectModel& model) { model.PlaceComponent(ComponentKind::CheckBox, {1, 2, 30, 40}); });
    EXPECT_FALSE(isUnknown("hatSchalter1")) << "placed by the user";
    document.Replace("", [](ProjectModel& model) {
        model = Design();
        return Document::Origin{};
    });
    EXPECT_TRUE(isUnknown("hatSchalter1"));
    EXPECT_TRUE(isUnknown("hatZeilenbereich1", textAreaKind));
    EXPECT_TRUE(isUnknown("hatOptionsgruppe1", keys::click.key));
    EXPECT_FALSE(isUnknown("hatSchalter1", keys::name.key));
    EXPECT_TRUE(UnheldValues(document).Now()("hatSchalter1", keys::checked.key)) << "it was there before one looked";
    document.Edit("", [&](ProjectModel& model) { model.EditElement(light).Left = 99; });
    EXPECT_TRUE(isUnknown("hatSchalter1")) << "moved only";
    set(true);
    set(false);
    EXPECT_FALSE(isUnknown("hatSchalter1")) << "set, to the value that it had";
    document.Undo();
    document.Undo();
    EXPECT_TRUE(isUnknown("hatSchalter1"));
    document.Redo();
    EXPECT_FALSE(isUnknown("hatSchalter1"));
    document.Undo();
    document.Edit("", [&](ProjectModel& model) { model.EditElement(light).Left = 7; });
    EXPECT_TRUE(isUnknown("hatSchalter1")) << "what was undone does not come back";
    while (document.CanUndo())
        document.Undo();
    document.Redo();
    EXPECT_FALSE(isUnknown("hatSchalter1")) << "the design before, in which it was placed";
}

class UpdateCommandsTest : public testing::Test {
  protected:
    UpdateCommandsTest() { ReplaceFileBytes(path_, "\xEF\xBB\xBF" + GenerateCode(Design(), {})); }

    FileUpdate Prepared(int left) {
        ProjectModel model = Design();
        model.EditElement({ComponentKind::CheckBox, 1}).Left = static_cast<std::int16_t>(left);
        return PrepareUpdate(path_, model, {});
    }

    test::ScratchFolder folder_;
    fs::path path_ = folder_ / "SuMAnwendung.java";
};

TEST_F(UpdateCommandsTest, TenVersionsStayAndNothingIsWrittenWithoutNeed) {
    EXPECT_FALSE(Prepared(10).Changes());
    EXPECT_TRUE(WriteUpdate(Prepared(10)));
    EXPECT_EQ(FilesIn(folder_ / "").size(), 1U);
    fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write);
    std::vector<std::string> versions;
    for (int left = 11; left < 25; ++left) {
        versions.push_back(ReadFileBytes(path_));
        EXPECT_TRUE(WriteUpdate(Prepared(left)));
    }
    EXPECT_TRUE(ReadFileBytes(path_).starts_with("\xEF\xBB\xBFimport ")) << "the mark stays";
#ifndef _WIN32 // which knows no such permissions
    EXPECT_EQ(fs::status(PathOf(TextOf(path_) + ".bak")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
#endif
    EXPECT_EQ(FilesIn(folder_ / "").size(), 11U);
    for (std::size_t age = 0; age < 10; ++age)
        EXPECT_EQ(ReadFileBytes(PathOf(TextOf(path_) + ".bak" + (age == 0 ? "" : std::to_string(age)))),
                  versions[versions.size() - 1 - age]);
}

TEST_F(UpdateCommandsTest, TheEncodingStays) {
    for (const std::string umlaut : {"\xFC", "ü"}) {
        ReplaceFileBytes(path_, "// f" + umlaut + "r\r\n" + GenerateCode(Design(), {}));
        EXPECT_TRUE(WriteUpdate(Prepared(77)));
        const std::string bytes = ReadFileBytes(path_);
        EXPECT_TRUE(bytes.starts_with("// f" + umlaut + "r\r\n")) << bytes.substr(0, 9);
        EXPECT_NE(bytes.find("(77,"), std::string::npos);
    }
}

TEST_F(UpdateCommandsTest, NothingIsWrittenWhenAVersionCannotBeKept) {
    const std::string before = ReadFileBytes(path_);
    fs::create_directories(PathOf(TextOf(path_) + ".bak9/x"));
    CreateFileBytes(PathOf(TextOf(path_) + ".bak8"), "old");
    EXPECT_NE(test::ErrorOf([&] { EXPECT_TRUE(WriteUpdate(Prepared(50))); }), "");
    EXPECT_EQ(ReadFileBytes(path_), before);
    EXPECT_EQ(FilesIn(folder_ / "").size(), 3U) << "no copy is left half-way";
    test::FakeDialogs dialogs;
    EXPECT_EQ(ChooseJavaFile({}, dialogs), "") << "cancelled";
}

TEST_F(UpdateCommandsTest, AFileThatChangedOrWentIsLeftAlone) {
    const FileUpdate update = Prepared(50);
    ReplaceFileBytes(path_, "von BlueJ");
    EXPECT_FALSE(WriteUpdate(update));
    EXPECT_EQ(ReadFileBytes(path_), "von BlueJ");
    fs::remove(path_);
    EXPECT_EQ(test::ErrorOf([&] { EXPECT_TRUE(WriteUpdate(update)); }),
              "Fehler 53: Datei nicht gefunden (Main.File.Java.Update)");
    EXPECT_TRUE(FilesIn(folder_ / "").empty());
}

TEST_F(UpdateCommandsTest, AProjectTellsItsFile) {
    const std::string window = "class A extends EBAnwendung { }";
    // The files of a project, and the one that is meant.
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{}, ""},
        {{"A.java"}, "A.java"},
        {{"A.java", "Andere.txt"}, "A.java"},
        {{"A.java", "B.java"}, ""},
        {{"A.java", "SuMAnwendung.java"}, "SuMAnwendung.java"},
    };
    for (const auto& [files, meant] : cases) {
        const test::ScratchFolder project;
        CreateFileBytes(project / "package.bluej", "");
        CreateFileBytes(project / "Quiz.java", "class Quiz { }");
        for (const char* const file : files)
            CreateFileBytes(project / file, window);
        const fs::path expected = *meant == '\0' ? fs::path() : project / meant;
        EXPECT_EQ(JavaFileOf(project / "package.bluej"), expected) << meant;
        EXPECT_EQ(JavaFileOf(project / "."), expected.empty() ? expected : project / "." / meant) << meant;
        EXPECT_TRUE(IsBlueJProject(project / ""));
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(project / "bluej.pkg"), TextOf(project / "Quiz.java")};
        EXPECT_EQ(ChooseJavaFile({}, dialogs), TextOf(*meant == '\0' ? project / "Quiz.java" : expected));
        EXPECT_EQ(dialogs.TakeSeen().find("information In diesem BlueJ-Projekt") != std::string::npos, *meant == '\0');
    }
}

} // namespace
} // namespace pirol
