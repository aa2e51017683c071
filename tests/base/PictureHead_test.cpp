#include "base/PictureHead.h"
#include "Cases.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace pirol {
namespace {

using namespace std::string_literals;

TEST(PictureHead, SizesOfEveryFormat) {
    const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x02\x80\0\0\x01\xE0"s;
    const std::string jpeg = "\xFF\xD8\xFF\xE0\0\x04JF\xFF\xFF\xC2\0\x11\x08\x01\xE0\x02\x80"s;
    const std::string bmp = "BM\0\0\0\0\0\0\0\0\0\0\0\0"s;
    const std::tuple<const char*, std::string, std::optional<PictureSize>> cases[] = {
        {"png", png, PictureSize{640, 480}},
        {"gif", "GIF89a\x80\x02\xE0\x01"s, PictureSize{640, 480}},
        {"bmp", bmp + "\x28\0\0\0\x80\x02\0\0\xE0\x01\0\0"s, PictureSize{640, 480}},
        {"bmp from the top", bmp + "\x28\0\0\0\x80\x02\0\0\x20\xFE\xFF\xFF"s, PictureSize{640, 480}},
        {"old bmp", bmp + "\x0C\0\0\0\x80\x02\xE0\x01"s, PictureSize{640, 480}},
        {"jpeg", jpeg, PictureSize{640, 480}},
        {"large png", png.substr(0, 16) + "\x01\x02\x03\x04\x05\x06\x07\x08"s, PictureSize{0x01020304, 0x05060708}},
        {"large bmp", bmp + "\x28\0\0\0\x04\x03\x02\x01\x08\x07\x06\x05"s, PictureSize{0x01020304, 0x05060708}},
        {"jpeg after its tables", "\xFF\xD8\xFF\xC4\0\x04JF\xFF\xC8\0\x02\xFF\xCC\0\x02"s + jpeg.substr(8),
         PictureSize{640, 480}},
        {"largest png", png.substr(0, 16) + "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF"s, PictureSize{0x7FFFFFFF, 0x7FFFFFFF}},
        {"smallest png", png.substr(0, 16) + "\0\0\0\1\0\0\0\1"s, PictureSize{1, 1}},
        {"flat png", png.substr(0, 16) + "\0\0\0\1\0\0\0\0"s, std::nullopt},
        {"narrow png", png.substr(0, 16) + "\0\0\0\0\0\0\0\1"s, std::nullopt},
        {"high png", png.substr(0, 16) + "\0\0\0\1\x80\0\0\0"s, std::nullopt},
        {"high bmp", bmp + "\x28\0\0\0\1\0\0\0\0\0\0\x80"s, std::nullopt},
        {"endless png", png.substr(0, 16) + "\x80\0\0\0\0\0\0\x01"s, std::nullopt},
        {"cut-off jpeg", jpeg.substr(0, 9), std::nullopt},
        {"jpeg in a circle", "\xFF\xD8\xFF\xE0"s + std::string(100, '\0'), std::nullopt},
        {"cut-off png", png.substr(0, 12), std::nullopt},
        {"text", "Bild", std::nullopt},
        {"empty", "", std::nullopt},
    };
    const test::ScratchFolder folder;
    for (int type = 0xBF; type <= 0xD0; ++type) {
        std::string one = jpeg;
        one[9] = static_cast<char>(type);
        ReplaceFileBytes(folder / "typed", one);
        const bool isFrame = type >= 0xC0 && type <= 0xCF && type != 0xC4 && type != 0xC8 && type != 0xCC;
        EXPECT_EQ(SizeOfPicture(folder / "typed").has_value(), isFrame) << type;
    }
    for (const int segments : {998, 999}) {
        std::string many = jpeg.substr(0, 2);
        for (int segment = 0; segment < segments; ++segment)
            many += "\xFF\xE0\0\2"s;
        ReplaceFileBytes(folder / "many", many + jpeg.substr(8));
        EXPECT_EQ(SizeOfPicture(folder / "many").has_value(), segments == 998);
    }
    EXPECT_EQ(SizeOfPicture(folder / "nothing"), std::nullopt);
    for (const auto& [name, bytes, size] : cases) {
        CreateFileBytes(folder / name, bytes);
        EXPECT_EQ(SizeOfPicture(folder / name), size) << name;
    }
}

} // namespace
} // namespace pirol
