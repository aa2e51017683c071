#include "codegen/CallIndex.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pirol {
namespace {

constexpr std::size_t longestVariable = 1000;

/// Argument texts of this length together are allowed for a source of any size.
constexpr std::size_t smallSource = 1'000'000;
/// What a statement has besides its argument text. It counts too, so that the number of empty arguments is limited.
constexpr std::size_t shortestStatement = 10;

/// A hash of texts that is built from their last character to their first, so that all endings of a text are hashed in
/// one walk.
class BackwardHash {
  public:
    void Add(char character) { value_ = (value_ ^ static_cast<unsigned char>(character)) * 1099511628211U; }
    std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 14695981039346656037U;
};

std::uint64_t HashBackwards(std::string_view text) {
    BackwardHash hash;
    std::for_each(text.rbegin(), text.rend(), [&hash](char character) { hash.Add(character); });
    return hash.Value();
}

} // namespace

// Argument texts of nested statements overlap a little, and those of a name that occurs twice are read twice. No
// program needs much more than that.
ArgumentScanner::ArgumentScanner(std::string_view source)
    : source_(source), allowance_(2 * source.size() + smallSource) {}

std::string_view ArgumentScanner::Read(std::size_t begin) {
    const std::size_t end = source_.find(");", begin);
    if (end == std::string_view::npos)
        throw RuntimeError(RuntimeError::InvalidCall);
    const std::size_t length = end - begin;
    if (length + shortestStatement > allowance_)
        throw RuntimeError(RuntimeError::OutOfMemory);
    allowance_ -= length + shortestStatement;
    return source_.substr(begin, length);
}

CallIndex::CallIndex(std::string_view source, std::string_view method, const std::vector<std::string_view>& variables)
    : scanner_(source), source_(source) {
    std::unordered_map<std::uint64_t, std::string_view> byHash;
    std::array<bool, longestVariable + 1> lengthOccurs = {};
    std::size_t longest = 0;
    for (const std::string_view variable : variables) {
        if (variable.size() > longestVariable)
            throw RuntimeError(RuntimeError::InvalidCall);
        byHash.emplace(HashBackwards(variable), variable);
        // cppcheck-suppress containerOutOfBounds ; longer ones have been refused above
        lengthOccurs[variable.size()] = true;
        longest = std::max(longest, variable.size());
    }
    const std::string call = Concatenate(".", method, "(");
    for (std::size_t hit = source.find(call); hit != std::string_view::npos; hit = source.find(call, hit + 1)) {
        BackwardHash hash;
        for (std::size_t length = 0; length <= std::min(hit, longest); ++length) {
            if (length > 0)
                hash.Add(source[hit - length]);
            // Variables hold no blank, so nothing longer can match behind one.
            if (length > 0 && source[hit - length] == ' ')
                break;
            if (!lengthOccurs[length])
                continue;
            const auto found = byHash.find(hash.Value());
            if (found != byHash.end() && found->second == source.substr(hit - length, length))
                argumentBegins_[found->second].push_back(hit + call.size());
        }
    }
}

const std::vector<std::size_t>& CallIndex::ArgumentsOf(std::string_view variable) const {
    static const std::vector<std::size_t> none;
    const auto found = argumentBegins_.find(variable);
    return found == argumentBegins_.end() ? none : found->second;
}

std::string CallIndex::GetValue(std::string_view variable, std::string_view defaultValue) {
    return UnderLabel("Main.File.Import.GetValue", [&] {
        const std::vector<std::size_t>& begins = ArgumentsOf(variable);
        return begins.empty() ? std::string(defaultValue) : WithoutQuotes(scanner_.Read(begins.front()));
    });
}

std::vector<std::string> CallIndex::GetValues(std::string_view variable) {
    return UnderLabel("Main.File.Import.GetValues", [&] {
        std::vector<std::string> values;
        for (const std::size_t begin : ArgumentsOf(variable))
            values.push_back(WithoutQuotes(scanner_.Read(begin)));
        return values;
    });
}

std::string WithoutQuotes(std::string_view text) {
    std::string result(text);
    std::erase(result, '"');
    return result;
}

} // namespace pirol
