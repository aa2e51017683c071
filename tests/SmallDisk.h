#pragma once

#include <filesystem>
#include <fstream>
#include <sys/mount.h>
#include <utility>

namespace pirol::test {

/// A file system of its own with hardly any room, on Linux. Only an administrator can make one; for everybody else it
/// is not mounted, and tests that need it are skipped.
class SmallDisk {
  public:
    explicit SmallDisk(std::filesystem::path folder) : folder_(std::move(folder)) {
        std::filesystem::create_directory(folder_);
        mounted_ = Mount(0, "size=16k");
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        if (mounted_)
            umount(folder_.c_str());
    }

    bool IsMounted() const { return mounted_; }
    /// Leaves not a byte free.
    bool Fill() const {
        std::ofstream filler(folder_ / "filler", std::ios::binary);
        while (filler.put('x').flush()) {
        }
        return std::filesystem::space(folder_).available == 0;
    }
    /// Allows no one to write, not even an administrator.
    bool Lock() const { return Mount(MS_REMOUNT | MS_RDONLY, ""); }

  private:
    bool Mount(unsigned long flags, const char* options) const {
        return mount("tmpfs", folder_.c_str(), "tmpfs", flags, options) == 0;
    }

    std::filesystem::path folder_;
    bool mounted_;
};

} // namespace pirol::test
