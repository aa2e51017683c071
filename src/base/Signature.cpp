#include "base/Signature.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <gcrypt.h>

namespace pirol {
namespace {

constexpr std::size_t signatureSize = 64;
constexpr std::string_view base64Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The library wants this once before its first use. There are no secrets here that need locked memory.
void PrepareLibrary() {
    static const bool prepared = [] {
        gcry_check_version(nullptr);
        gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
        gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
        return true;
    }();
    static_cast<void>(prepared);
}

/// An expression of the library, freed at the end.
class Expression {
  public:
    template <class... Values>
    explicit Expression(const char* format, Values... values) {
        if (gcry_sexp_build(&expression_, nullptr, format, values...) != 0)
            throw RuntimeError(RuntimeError::OutOfMemory);
    }
    ~Expression() { gcry_sexp_release(expression_); }
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;

    gcry_sexp_t Get() const { return expression_; }

  private:
    gcry_sexp_t expression_ = nullptr;
};

/// Lowest byte first.
constexpr std::array<unsigned char, signatureSize / 2> groupOrder = {
    0xED, 0xD3, 0xF5, 0x5C, 0x1A, 0x63, 0x12, 0x58, 0xD6, 0x9C, 0xF7, 0xA2, 0xDE, 0xF9, 0xDE, 0x14,
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0x10};

/// The curve has a few points, 0, 1 and -1, that are nobody's key and for which the library ends the program.
bool IsKey(std::string_view publicKey) {
    if (publicKey.size() != publicKeySize)
        return false;
    const std::string_view middle = publicKey.substr(1, publicKeySize - 2);
    return std::adjacent_find(middle.begin(), middle.end(), std::not_equal_to<>()) != middle.end();
}

} // namespace

std::string ToBase64(std::string_view bytes) {
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        unsigned group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8U | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text += i <= count ? base64Digits[group >> (18 - 6 * i) & 63U] : '=';
    }
    return text;
}

std::optional<std::string> FromBase64(std::string_view text) {
    std::string bytes;
    unsigned group = 0;
    unsigned bits = 0;
    for (const char digit : text.substr(0, text.find('='))) {
        const std::size_t value = base64Digits.find(digit);
        if (value == std::string_view::npos)
            return std::nullopt;
        group = (group << 6U | static_cast<unsigned>(value)) & 0xFFFFU;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(group >> bits & 0xFFU);
        }
    }
    // Stray bits and missing or superfluous signs at the end show here.
    return ToBase64(bytes) == text ? std::optional(bytes) : std::nullopt;
}

bool IsBelowGroupOrder(std::string_view number) {
    return std::lexicographical_compare(
        number.rbegin(), number.rend(), groupOrder.rbegin(), groupOrder.rend(),
        [](auto a, auto b) { return static_cast<unsigned char>(a) < static_cast<unsigned char>(b); });
}

bool IsSignedBy(std::string_view publicKey, std::string_view bytes, std::string_view signature) {
    constexpr std::size_t half = signatureSize / 2;
    if (!IsKey(publicKey) || signature.size() != signatureSize || !IsBelowGroupOrder(signature.substr(half)))
        return false;
    PrepareLibrary();
    const Expression key("(public-key (ecc (curve Ed25519) (flags eddsa) (q %b)))", static_cast<int>(publicKey.size()),
                         publicKey.data());
    const Expression data("(data (flags eddsa) (hash-algo sha512) (value %b))", static_cast<int>(bytes.size()),
                          bytes.data());
    const Expression value("(sig-val (eddsa (r %b) (s %b)))", static_cast<int>(half), signature.data(),
                           static_cast<int>(half), signature.data() + half);
    return gcry_pk_verify(value.Get(), data.Get(), key.Get()) == 0;
}

struct Sha256::State {
    gcry_md_hd_t handle = nullptr;
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    PrepareLibrary();
    if (gcry_md_open(&state_->handle, GCRY_MD_SHA256, 0) != 0)
        throw RuntimeError(RuntimeError::OutOfMemory);
}

Sha256::~Sha256() {
    gcry_md_close(state_->handle);
}

void Sha256::Add(std::string_view bytes) {
    gcry_md_write(state_->handle, bytes.data(), bytes.size());
}

std::string Sha256::Digits() {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t size = 32;
    const unsigned char* const hash = gcry_md_read(state_->handle, GCRY_MD_SHA256);
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        text += digits[hash[i] >> 4U];
        text += digits[hash[i] & 15U];
    }
    return text;
}

} // namespace pirol
