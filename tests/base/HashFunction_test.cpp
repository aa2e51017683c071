#include "base/HashFunction.h"

#include <gtest/gtest.h>

#include <numeric>

namespace pirol {
namespace {

std::string AllBytes() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

TEST(HashFunction, GivesTheStandardDigests) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"},
        {"abc", "A9993E364706816ABA3E25717850C26C9CD0D89D"},
        {std::string(1'000'000, 'a'), "34AA973CD4C4DAA4F61EEB2BDBAD27316534016F"},
        // Around the lengths at which the padding needs one more block.
        {std::string(55, 'a'), "C1C8BBDC22796E28C0E15163D20899B65621D65A"},
        {std::string(56, 'a'), "C2DB330F6083854C99D4B5BFB6E8F29F201BE699"},
        {std::string(63, 'a'), "03F09F5B158A7A8CDAD920BDDC29B81C18A551F5"},
        {std::string(64, 'a'), "0098BA824B5C16427BD7A1122A5A442A25EC644D"},
        {std::string(65, 'a'), "11655326C708D70319BE2610E8A57D9A5B959D3B"},
        {std::string(119, 'a'), "EE971065AAA017E0632A8CA6C77BB3BF8B1DFC56"},
        {std::string(120, 'a'), "F34C1488385346A55709BA056DDD08280DD4C6D6"},
        {AllBytes(), "4916D6BDB7F78E6803698CAB32D1586EA457DFC8"},
    };
    for (const auto& [bytes, digest] : cases)
        EXPECT_EQ(HashFunction(bytes), digest) << bytes.size() << " bytes";
}

} // namespace
} // namespace pirol
