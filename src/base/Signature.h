#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// The bytes of a base64 text; nothing when it is not exactly the text that these bytes have in base64.
std::optional<std::string> FromBase64(std::string_view text);
std::string ToBase64(std::string_view bytes);

constexpr std::size_t publicKeySize = 32;

/// Whether the bytes bear the Ed25519 signature (64 bytes) of the key (32 bytes). False for everything of another size
/// and for a second form of a right signature, of which there is only one that counts.
bool IsSignedBy(std::string_view publicKey, std::string_view bytes, std::string_view signature);

/// Whether a number (32 bytes, the lowest first) is less than the order of the curve's group, as the second half of a
/// signature must be: adding the order to it gives another one that the library takes as well.
bool IsBelowGroupOrder(std::string_view number);

/// The SHA-256 of bytes that come piece by piece. Raises RuntimeError::OutOfMemory when it cannot be made.
class Sha256 {
  public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void Add(std::string_view bytes);
    /// 64 lower-case hexadecimal digits. Nothing may be added afterwards.
    std::string Digits();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace pirol
