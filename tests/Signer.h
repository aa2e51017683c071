#pragma once

#include "base/Signature.h"

#include <cstddef>
#include <gcrypt.h>
#include <stdexcept>
#include <string>

namespace pirol::test {

/// Whoever has a secret key signs with it.
class Signer {
  public:
    Signer() {
        Sha256(); // prepares the library
        gcry_sexp_t parameters = nullptr;
        gcry_sexp_build(&parameters, nullptr, "(genkey (ecc (curve Ed25519) (flags eddsa transient-key)))");
        if (gcry_pk_genkey(&pair_, parameters) != 0)
            throw std::runtime_error("no key");
        gcry_sexp_release(parameters);
    }
    ~Signer() { gcry_sexp_release(pair_); }
    Signer(const Signer&) = delete;
    Signer& operator=(const Signer&) = delete;

    std::string PublicKey() const { return Value(pair_, "public-key", "q"); }
    std::string Signature(const std::string& text) const {
        gcry_sexp_t data = nullptr;
        gcry_sexp_t signature = nullptr;
        gcry_sexp_build(&data, nullptr, "(data (flags eddsa) (hash-algo sha512) (value %b))",
                        static_cast<int>(text.size()), text.data());
        gcry_pk_sign(&signature, data, pair_);
        const std::string bytes = Value(signature, "eddsa", "r") + Value(signature, "eddsa", "s");
        gcry_sexp_release(data);
        gcry_sexp_release(signature);
        return bytes;
    }
    std::string Signed(const std::string& text) const {
        return text + "signature: " + ToBase64(Signature(text)) + "\n";
    }

  private:
    static std::string Value(gcry_sexp_t all, const char* part, const char* name) {
        gcry_sexp_t found = gcry_sexp_find_token(all, part, 0);
        gcry_sexp_t value = gcry_sexp_find_token(found, name, 0);
        std::size_t size = 0;
        const char* const bytes = gcry_sexp_nth_data(value, 1, &size);
        std::string text(bytes, size);
        gcry_sexp_release(value);
        gcry_sexp_release(found);
        return text;
    }

    gcry_sexp_t pair_ = nullptr;
};

} // namespace pirol::test
