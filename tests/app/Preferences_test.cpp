#include "app/Preferences.h"
#include "app/Registry.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace pirol {
namespace {

namespace fs = std::filesystem;

#ifndef _WIN32

constexpr const char* configVariable = "XDG_CONFIG_HOME";

/// A user with a configuration folder of his own, empty at first.
class Store : public testing::Test {
  protected:
    void SetUp() override { setenv(configVariable, (folder_ / "").c_str(), 1); }
    void TearDown() override { unsetenv(configVariable); }

    fs::path File() const { return folder_ / "Pirol" / "registry.conf"; }

    void PutFile(std::string_view text) const {
        fs::create_directories(File().parent_path());
        ReplaceFileBytes(File(), text);
    }

    const test::ScratchFolder folder_;
};

using PreferencesStore = Store;

TEST_F(Store, KeepsTypedValues) {
    const std::string_view name = "a\"\\\nb"; // escaped like the text
    EXPECT_EQ(registry::ReadText("K", name), "");
    EXPECT_EQ(registry::ReadText("K", name, "default"), "default");
    EXPECT_EQ(registry::ReadNumber("K", "N", 7), 7);

    registry::WriteText("K", name, "text\r\n\"ü\"\\");
    registry::WriteNumber("K", "N", -2);
    registry::WriteText("K", "Z", std::string_view("before\0behind", 13));
    EXPECT_EQ(registry::ReadText("K", name, "default"), "text\r\n\"ü\"\\");
    EXPECT_EQ(registry::ReadNumber("K", "N", 7), -2);
    EXPECT_EQ(registry::ReadText("K", "Z"), "before");

    EXPECT_EQ(registry::ReadNumber("K", name, 7), 7) << "text is no number";
    EXPECT_EQ(registry::ReadText("K", "N", "default"), "default") << "a number is no text";
    EXPECT_EQ(registry::ReadText("L", "T", "default"), "default");
    registry::WriteNumber("K", name, 3);
    EXPECT_EQ(registry::ReadNumber("K", name), 3) << "the new type replaces the old one";
}

TEST_F(Store, FailsSilently) {
    fs::create_directories(File());
    registry::WriteText("K", "T", "text");
    EXPECT_EQ(registry::ReadText("K", "T", "default"), "default") << "a folder in the file's place";
    EXPECT_TRUE(fs::is_directory(File()));

    fs::remove_all(folder_ / "Pirol");
    ReplaceFileBytes(folder_ / "Pirol", "a file in the folder's place");
    registry::WriteNumber("K", "N", 1);
    EXPECT_EQ(registry::ReadNumber("K", "N", 7), 7);

    setenv(configVariable, "relative", 1);
    const char* homeBefore = std::getenv("HOME");
    const std::string home = homeBefore != nullptr ? homeBefore : "";
    setenv("HOME", "", 1);
    registry::WriteNumber("K", "N", 1);
    EXPECT_EQ(registry::ReadNumber("K", "N", 7), 7) << "a user without any folder";
    EXPECT_FALSE(fs::exists("relative"));

    setenv("HOME", (folder_ / "home").c_str(), 1);
    registry::WriteNumber("K", "N", 1);
    EXPECT_TRUE(fs::exists(folder_ / "home" / ".config" / "Pirol" / "registry.conf"));
    setenv("HOME", home.c_str(), 1);
}

TEST_F(PreferencesStore, AreStoredUnderTheirNames) {
    EXPECT_EQ(Preferences::Load(), (Preferences{"", 0, 0, "", "", false, Appearance::System})) << "a new account";
    EXPECT_EQ(Preferences(), Preferences::Load());
    const Preferences preferences = {"/opt/Blue J/bluej", 2, 0x00C08040};
    preferences.Save();
    EXPECT_EQ(Preferences::Load(), preferences);
    EXPECT_EQ(ReadFileBytes(File()), "[Software\\Pirol]\n"
                                     "\"GridColor\"=dword:00c08040\n"
                                     "\"GridStyle\"=dword:00000002\n"
                                     "\"BlueJPath\"=\"/opt/Blue J/bluej\"\n");
}

TEST_F(PreferencesStore, WhatNobodyChoseIsNotStoredAndWhatIsTakenBackIs) {
    Preferences preferences;
    preferences.Save();
    EXPECT_EQ(ReadFileBytes(File()).find("Path\"=\"/"), std::string::npos);
    for (const char* name : {"JdkPath", "SumPath", "UpdateWeekly", "Appearance"})
        EXPECT_EQ(ReadFileBytes(File()).find(name), std::string::npos) << name;
    preferences.JdkPath = "/jdk";
    preferences.SumPath = "/sum";
    preferences.LooksForUpdates = true;
    preferences.Save();
    EXPECT_EQ(Preferences::Load(), preferences);
    preferences = {};
    preferences.Save();
    EXPECT_EQ(Preferences::Load(), preferences);
    EXPECT_NE(ReadFileBytes(File()).find("\"UpdateWeekly\"=dword:00000000"), std::string::npos);
}

TEST_F(PreferencesStore, WrongValuesReadAsDefaults) {
    const auto rule = [this](const test::TableRow& row) {
        PutFile("[Software\\Pirol]\n" + row[0]);
        const Preferences loaded = Preferences::Load();
        return test::Answer(loaded.BlueJPath, loaded.GridStyle, loaded.GridColor);
    };
    EXPECT_EQ(test::Deviations("preferences", rule), "");
}

TEST_F(PreferencesStore, KeepTheAppearanceBesideTheRequiredValues) {
    for (const Appearance look : {Appearance::Dark, Appearance::Light, Appearance::System}) {
        Preferences chosen;
        chosen.Look = look;
        chosen.Save();
        EXPECT_EQ(Preferences::Load().Look, look);
    }
    for (const char* damaged : {"dword:00000007", "dword:ffffffff", "\"2\""}) {
        PutFile(std::string("[Software\\Pirol]\n\"Appearance\"=") + damaged + "\n");
        EXPECT_EQ(Preferences::Load().Look, Appearance::System) << damaged;
    }
}

TEST_F(PreferencesStore, BlueJPathIsCheckedByNameAndFile) {
    const auto rule = [this](const test::TableRow& row) {
        const std::string path = TextOf(folder_ / row[0].c_str());
        EXPECT_TRUE(BlueJPathWarning(path)) << "no such file yet";
        ReplaceFileBytes(PathOf(path), "");
        const bool isRight = !BlueJPathWarning(path);
        EXPECT_EQ(BlueJPathAfterBrowsing("old", path), isRight ? path : "old");
        return test::Answer(isRight);
    };
    EXPECT_EQ(test::Deviations("bluej-programs", rule), "");
    EXPECT_EQ(BlueJPathWarning(""),
              "Der BlueJ - Pfad ist fehlerhaft.\r\nEinige Funktionen können daher nicht arbeiten");
    fs::create_directories(folder_ / "folder" / "bluej.exe");
    EXPECT_TRUE(BlueJPathWarning(TextOf(folder_ / "folder" / "bluej.exe")));
}

#endif

} // namespace
} // namespace pirol
