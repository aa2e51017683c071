#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

using test::ErrorNumberOf;

std::size_t FilesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(FileAccess, ReplacingLeavesNoRemainderAndNoOtherFile) {
    const test::ScratchFolder scratch;
    const fs::path file = scratch / "a.prl";
    ReplaceFileBytes(file, "a long text");
    ReplaceFileBytes(file, std::string_view("x\0y", 3));
    EXPECT_EQ(ReadFileBytes(file), std::string("x\0y", 3));
    EXPECT_EQ(FilesIn(file.parent_path()), 1U);
}

TEST(FileAccess, WhatFailsHalfWayLeavesTheOldFile) {
    const test::ScratchFolder scratch;
    const fs::path file = scratch / "a.java";
    const auto failing = [](const ByteSink& write) {
        write(std::string(100'000, 'x'));
        throw RuntimeError(RuntimeError::Overflow);
    };
    EXPECT_EQ(ErrorNumberOf([&] { ReplaceFile(file, failing); }), 6);
    EXPECT_FALSE(fs::exists(file));
    ReplaceFileBytes(file, "old");
    EXPECT_EQ(ErrorNumberOf([&] { ReplaceFile(file, failing); }), 6);
    EXPECT_EQ(ReadFileBytes(file), "old");
    EXPECT_EQ(FilesIn(file.parent_path()), 1U);
}

#ifndef _WIN32

TEST(FileAccess, ReplacingKeepsThePermissionsAndLinks) {
    const test::ScratchFolder scratch;
    CreateFileBytes(scratch / "real", "old");
    fs::permissions(scratch / "real", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real", scratch / "link");
    ReplaceFileBytes(scratch / "link", "new");
    EXPECT_TRUE(fs::is_symlink(scratch / "link"));
    EXPECT_EQ(ReadFileBytes(scratch / "real"), "new");
    EXPECT_EQ(fs::status(scratch / "real").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(FileAccess, DevicesFailAsFilesDo) {
    EXPECT_EQ(ErrorNumberOf([] { ReadFileBytes("/dev/zero"); }), 7);
    for (const auto write : {ReplaceFileBytes, OverwriteFileBytes})
        EXPECT_EQ(ErrorNumberOf([&] { write("/dev/full", "x"); }), 61);
}

#endif

TEST(FileAccess, OverwritingKeepsTheOldTail) {
    const test::ScratchFolder scratch;
    OverwriteFileBytes(scratch / "f", "0123456789");
    OverwriteFileBytes(scratch / "f", "abc");
    EXPECT_EQ(ReadFileBytes(scratch / "f"), "abc3456789");
}

TEST(FileAccess, EveryFailureHasItsNumber) {
    const test::ScratchFolder scratch;
    fs::create_directory(scratch / "folder");
    CreateFileBytes(scratch / "file", "x");
    const auto rule = [&scratch](const test::TableRow& row) {
        const fs::path path = scratch / ReplaceAll(row[1], "LONG", std::string(300, 'x')).c_str();
        if (row[0] == "read")
            ReadFileBytes(path);
        else
            (row[0] == "replace"  ? ReplaceFileBytes
             : row[0] == "create" ? CreateFileBytes
                                  : OverwriteFileBytes)(path, "y");
        return test::Answer("no error");
    };
    EXPECT_EQ(test::Deviations("file-errors", rule), "");
    EXPECT_EQ(ReadFileBytes(scratch / "file"), "x");
}

} // namespace
} // namespace pirol
