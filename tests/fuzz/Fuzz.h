#pragma once

#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "project/ProjectFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace pirol::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program, which the fuzzer reports as a finding.
inline void Require(bool condition, std::string_view rule) {
    if (condition)
        return;
    std::cerr << "Broken rule: " << rule << '\n';
    std::abort();
}

/// Whether the operation succeeded. A run-time error is a proper end, provided that it has number, text and label;
/// everything else that is thrown is a finding.
template <class Operation>
bool Succeeds(Operation&& operation) {
    try {
        std::forward<Operation>(operation)();
        return true;
    } catch (const RuntimeError& error) {
        Require(error.ErrorNumber() > 0 && !error.Description().empty() && !error.Label().empty(),
                "errors say what happened and where");
        return false;
    }
}

/// The design of a project file, which must be one that loads.
inline ProjectModel Read(const std::string& bytes) {
    ProjectModel model;
    Require(Succeeds([&] { Require(ReadPRLBytes(bytes, model) == ReadResult::Loaded, "the hash matches"); }),
            "what was written can be read");
    return model;
}

/// The project file made of the text up to its last line end, with the hash that belongs to it.
inline std::string Signed(std::string_view text) {
    const std::size_t end = text.rfind("\r\n");
    std::string bytes(text.substr(0, end == std::string_view::npos ? 0 : end + 2));
    bytes += HashFunction(bytes);
    return bytes;
}

} // namespace pirol::fuzz
