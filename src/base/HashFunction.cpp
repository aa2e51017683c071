#include "base/HashFunction.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace pirol {
namespace {

using Word = std::uint32_t;
using State = std::array<Word, 5>;

constexpr State initialState = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
constexpr std::size_t wordSize = 4;
constexpr std::size_t blockSize = 16 * wordSize;
constexpr std::size_t roundsPerGroup = 20;

Word Choose(Word b, Word c, Word d) {
    return (b & c) | (~b & d);
}

Word Parity(Word b, Word c, Word d) {
    return b ^ c ^ d;
}

Word Majority(Word b, Word c, Word d) {
    return (b & c) | (b & d) | (c & d);
}

Word LoadWord(const char* bytes) {
    Word word = 0;
    for (std::size_t i = 0; i < wordSize; ++i)
        word = word << 8 | static_cast<unsigned char>(bytes[i]);
    return word;
}

void StoreWord(Word word, char* bytes) {
    for (std::size_t i = wordSize; i-- > 0; word >>= 8)
        bytes[i] = static_cast<char>(word & 0xFF);
}

/// The words of the message schedule, each made just before its round: the last sixteen are all that is ever needed.
/// Making all eighty at once invites compilers to use vector code that waits for its own stores.
class Schedule {
  public:
    explicit Schedule(const char* block) {
        for (std::size_t i = 0; i < words_.size(); ++i)
            words_[i] = LoadWord(block + i * wordSize);
    }

    Word At(std::size_t round) {
        Word& word = words_[round % words_.size()];
        if (round >= words_.size())
            word = std::rotl(Earlier(round, 3) ^ Earlier(round, 8) ^ Earlier(round, 14) ^ word, 1);
        return word;
    }

  private:
    Word Earlier(std::size_t round, std::size_t distance) const { return words_[(round - distance) % words_.size()]; }

    std::array<Word, blockSize / wordSize> words_;
};

/// One round. Instead of moving all five words one place on, the next round takes them in turned order.
template <Word (*Function)(Word, Word, Word)>
void RunRound(Word a, Word& b, Word c, Word d, Word& e, Word addend) {
    e += std::rotl(a, 5) + Function(b, c, d) + addend;
    b = std::rotl(b, 30);
}

/// The rounds of one group: all with the same function, a template argument so that it is inlined, and constant.
template <Word (*Function)(Word, Word, Word)>
void RunGroup(State& state, Schedule& words, std::size_t group, Word constant) {
    auto [a, b, c, d, e] = state;
    for (std::size_t i = group * roundsPerGroup; i < (group + 1) * roundsPerGroup; i += state.size()) {
        RunRound<Function>(a, b, c, d, e, words.At(i) + constant);
        RunRound<Function>(e, a, b, c, d, words.At(i + 1) + constant);
        RunRound<Function>(d, e, a, b, c, words.At(i + 2) + constant);
        RunRound<Function>(c, d, e, a, b, words.At(i + 3) + constant);
        RunRound<Function>(b, c, d, e, a, words.At(i + 4) + constant);
    }
    state = {a, b, c, d, e};
}

void AddBlock(State& hash, const char* block) {
    Schedule words(block);
    State state = hash;
    RunGroup<Choose>(state, words, 0, 0x5A827999);
    RunGroup<Parity>(state, words, 1, 0x6ED9EBA1);
    RunGroup<Majority>(state, words, 2, 0x8F1BBCDC);
    RunGroup<Parity>(state, words, 3, 0xCA62C1D6);
    for (std::size_t i = 0; i < hash.size(); ++i)
        hash[i] += state[i];
}

/// The last, unfilled block's bytes, the end mark, zeros and the length: one block or, when these do not fit, two.
void AddPaddedRest(State& hash, std::string_view rest, std::size_t length) {
    std::array<char, 2 * blockSize> padded{};
    *std::copy(rest.begin(), rest.end(), padded.begin()) = static_cast<char>(0x80);
    constexpr std::size_t lengthSize = 2 * wordSize;
    const std::size_t end = rest.size() + 1 + lengthSize <= blockSize ? blockSize : 2 * blockSize;
    // The length's upper word stays zero.
    StoreWord(static_cast<Word>(length * 8), padded.data() + end - wordSize);
    for (std::size_t begin = 0; begin < end; begin += blockSize)
        AddBlock(hash, padded.data() + begin);
}

std::string HexadecimalText(const State& hash) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const Word word : hash)
        for (int shift = 28; shift >= 0; shift -= 4)
            text += digits[word >> shift & 0xF];
    return text;
}

} // namespace

std::string HashFunction(std::string_view bytes) {
    State hash = initialState;
    std::string_view rest = bytes;
    for (; rest.size() >= blockSize; rest.remove_prefix(blockSize))
        AddBlock(hash, rest.data());
    AddPaddedRest(hash, rest, bytes.size());
    return HexadecimalText(hash);
}

} // namespace pirol
