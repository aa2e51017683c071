#include "base/FileLock.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

using test::ErrorNumberOf;

std::size_t CountIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(FileAccess, ReplacingLeavesNoRemainderAndNoOtherFile) {
    const test::ScratchFolder scratch;
    const fs::path file = scratch / "a.prl";
    ReplaceFileBytes(file, "a long text");
    ReplaceFileBytes(file, std::string_view("x\0y", 3));
    EXPECT_EQ(ReadFileBytes(file), std::string("x\0y", 3));
    EXPECT_EQ(CountIn(file.parent_path()), 1U);
    std::string all;
    ReplaceFile(file, [&all](const ByteSink& write) {
        for (char piece = 'a'; piece <= 'g'; ++piece) {
            write(std::string(90'000, piece));
            all.append(90'000, piece);
        }
    });
    EXPECT_EQ(ReadFileBytes(file), all);
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
    EXPECT_EQ(CountIn(file.parent_path()), 1U);
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

TEST(FileAccess, ANewFileIsForWhomTheSystemSays) {
    const test::ScratchFolder scratch;
    for (const mode_t taken : {0U, 027U}) {
        const mode_t before = umask(taken);
        CreateFileBytes(scratch / "created", "");
        ReplaceFileBytes(scratch / "replaced", "");
        ReplaceFile(
            scratch / "own", [](const ByteSink&) {}, Privacy::UserAlone);
        umask(before);
        for (const auto& [name, mode] :
             {std::pair<const char*, mode_t>{"created", 0666}, {"replaced", 0666}, {"own", 0600}}) {
            struct stat status = {};
            stat((scratch / name).c_str(), &status);
            EXPECT_EQ(status.st_mode & 0777U, mode & ~taken) << name;
            fs::remove(scratch / name);
        }
    }
}

TEST(FileLock, MovesItsFileAlong) {
    const test::ScratchFolder scratch;
    std::optional<FileLock> kept = FileLock::TryLock(scratch / "a");
    std::optional<FileLock> other = FileLock::TryLock(scratch / "b");
    const std::size_t open = CountIn("/proc/self/fd");
    EXPECT_FALSE(FileLock::TryLock(scratch / "a"));
    EXPECT_EQ(CountIn("/proc/self/fd"), open);
    *kept = std::move(*other);
    other.reset();
    EXPECT_EQ(CountIn(scratch / ""), 1U);
    EXPECT_TRUE(kept->IsInPlace());
    EXPECT_TRUE(FileLock::TryLock(scratch / "a"));
    fs::remove(scratch / "b");
    EXPECT_FALSE(kept->IsInPlace());
    CreateFileBytes(scratch / "b", "another one");
    EXPECT_FALSE(kept->IsInPlace());
    kept.reset();
    EXPECT_EQ(ReadFileBytes(scratch / "b"), "another one");
    EXPECT_EQ(ErrorNumberOf([&] { FileLock::TryLock(scratch / "nowhere/a"); }), 53);
}

TEST(FileAccess, PipesAndDevicesAreRefusedAtOnce) {
    const test::ScratchFolder scratch;
    ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
    for (const fs::path& path : {scratch / "pipe", fs::path("/dev/zero"), fs::path("/dev/full")}) {
        EXPECT_EQ(ErrorNumberOf([&] { ReadFileBytes(path); }), 75) << path;
        for (const auto write : {ReplaceFileBytes, OverwriteFileBytes})
            EXPECT_EQ(ErrorNumberOf([&] { write(path, "x"); }), 75) << path;
    }
}

TEST(FileAccess, WhateverCanBeNamedCanBeSaved) {
    const test::ScratchFolder scratch;
    fs::create_symlink("far/real", scratch / "link");
    fs::create_directory(scratch / "far");
    const auto link = [](int number) { return "link" + std::to_string(number); };
    for (int number = 1; number < 39; ++number)
        fs::create_symlink(link(number + 1), scratch / link(number).c_str());
    fs::create_symlink("end", scratch / link(39).c_str());
    fs::create_symlink(link(1), scratch / "first"); // 40 links, as many as the system follows
    for (const std::string& name :
         {std::string(255, 'x'), std::string("f\xfcr Zo\xeb.prl"), std::string("link"), std::string("first")})
        for (const std::string bytes : {"first", "then"}) {
            ReplaceFileBytes(scratch / name.c_str(), bytes);
            EXPECT_EQ(ReadFileBytes(scratch / name.c_str()), bytes);
        }
    EXPECT_TRUE(fs::is_symlink(scratch / "link"));
    EXPECT_EQ(ReadFileBytes(scratch / "far" / "real"), "then");
    EXPECT_EQ(ReadFileBytes(scratch / "end"), "then");
}

TEST(FileAccess, HalfWrittenFilesOfKilledProgramsAreClearedAway) {
    const test::ScratchFolder scratch;
    CreateFileBytes(scratch / ".pirol-1.tmp", "killed");
    CreateFileBytes(scratch / ".other-1.tmp", "not ours");
    ReplaceFile(scratch / "a", [&](const ByteSink& write) {
        write("outer");
        ReplaceFileBytes(scratch / "b", "inner"); // and leaves what is being written
    });
    EXPECT_EQ(ReadFileBytes(scratch / "a"), "outer");
    EXPECT_EQ(CountIn(scratch / ""), 3U);
}

/// The administrator may write everywhere, so he is somebody else here.
class AsUser {
  public:
    AsUser() { seteuid(geteuid() == 0 ? 65534 : geteuid()); }
    AsUser(const AsUser&) = delete;
    AsUser& operator=(const AsUser&) = delete;
    ~AsUser() { seteuid(getuid()); }
};

/// No file can become larger, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    void (*handler_)(int);
    rlimit before_ = {};
};

TEST(FileAccess, AFolderThatForbidsReplacingDoesNotForbidSaving) {
    const AsUser user;
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "folder";
    fs::create_directory(folder);
    CreateFileBytes(folder / "a.prl", "a longer old text");
    setenv("XDG_STATE_HOME", (scratch / "state").c_str(), 1);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    for (const std::string bytes : {"short", "long again"}) {
        ReplaceFileBytes(folder / "a.prl", bytes);
        EXPECT_EQ(ReadFileBytes(folder / "a.prl"), bytes);
    }
    CreateFileBytes(scratch / "b.prl", "long again");
    for (const fs::path& path : {folder / "a.prl", scratch / "b.prl"}) {
        int error = 0;
        {
            const FullDisk disk(50);
            error = ErrorNumberOf([&] { ReplaceFileBytes(path, std::string(100, 'x')); });
        }
        EXPECT_EQ(error, 61) << path;
        EXPECT_EQ(ReadFileBytes(path), "long again");
    }
    EXPECT_EQ(CountIn(scratch / ""), 3U) << "the folder, the file and the folder of copies";
    EXPECT_EQ(ErrorNumberOf([&] { ReplaceFileBytes(folder / "new.prl", "x"); }), 70);
    fs::permissions(folder, fs::perms::owner_write | fs::perms::owner_exec);
    ReplaceFileBytes(folder / "a.prl", "in a folder that nobody may read");
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(ReadFileBytes(folder / "a.prl"), "in a folder that nobody may read");
    EXPECT_EQ(CountIn(folder), 1U);
    EXPECT_EQ(CountIn(scratch / "state" / "pirol" / "saving"), 0U);
    unsetenv("XDG_STATE_HOME");
    fs::permissions(folder, fs::perms::owner_all);
}

TEST(FileAccess, OwnersStayAndTheirMarksAreNotCarriedToOthers) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the administrator can give files away";
    const test::ScratchFolder scratch;
    const fs::path file = scratch / "a.prl";
    CreateFileBytes(file, "old");
    struct stat status = {};
    ASSERT_EQ(chown(file.c_str(), 65534, 4), 0);
    ASSERT_EQ(chmod(file.c_str(), 06666), 0);
    ReplaceFileBytes(file, "new");
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(std::make_tuple(status.st_uid, status.st_gid, status.st_mode & 07777U),
              std::make_tuple(65534U, 4U, 06666U));

    ASSERT_EQ(chown(file.c_str(), 0, 4), 0);
    ASSERT_EQ(chmod(file.c_str(), 06662), 0);
    fs::permissions(scratch / "", fs::perms::all);
    const AsUser user;
    std::error_code error;
    OpenFile copy = OpenFile::Open(scratch / "copy", OpenFile::Purpose::Create, error, Privacy::UserAlone);
    seteuid(0);
    OpenFile old = OpenFile::Open(file, OpenFile::Purpose::Change, error);
    seteuid(65534);
    copy.TakeOwnerAndRights(old);
    ASSERT_EQ(stat((scratch / "copy").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534U);
    EXPECT_EQ(status.st_mode & 06000U, 0U);
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
    constexpr std::pair<int, int> codes[] = {
        {ENOSPC, 61}, {EINTR, 75},  {ELOOP, 75}, {EIO, 57},
#ifndef _WIN32
        {EDQUOT, 61}, {ESTALE, 75},
#endif
    };
    for (const auto& [code, number] : codes) {
        EXPECT_EQ(RuntimeError::OfFile({code, std::generic_category()}).ErrorNumber(), number) << code;
#ifndef _WIN32
        EXPECT_EQ(RuntimeError::OfFile({code, std::system_category()}).ErrorNumber(), number) << code;
#endif
    }
    EXPECT_EQ(ReadFileBytes(scratch / "file"), "x");
}

} // namespace
} // namespace pirol
