#pragma once

#include "codegen/GeneratedCode.h"
#include "codegen/SourceTokens.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pirol {

/// Where the class that extends EBAnwendung and its constructor are in a source that pupils write in. Both are found by
/// their heads; they end by their braces as long as these are in order, and by the last brace before the next head
/// otherwise. Linear in the length of the source. Numbers are those of tokens.
class ClassFrame {
  public:
    /// Raises UpdateRefusal when there is no such class or constructor, or several. Both must outlive it.
    ClassFrame(const SourceTokens& tokens, const GeneratedCode& wanted);

    std::string_view className;
    std::size_t classToken = 0;
    std::size_t classOpen = 0; ///< "{" or what stands for it
    std::size_t constructor = 0;
    std::size_t constructorOpen = 0;
    std::size_t constructorEnd = 0; ///< "}", or the token before which one is missing
    bool constructorCloses = true;
    std::size_t classEnd = 0; ///< "}" or the count of tokens
    bool inOrder = false;     ///< braces tell what stands on which level

    /// Behind the constructor.
    std::size_t Methods() const { return constructorEnd + (constructorCloses ? 1 : 0); }

    /// Everything between two positions of the source in which pieces of one section are kept in order.
    struct Region {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    std::array<Region, sectionCount> regions;

  private:
    void FindClass();
    void FindConstructor();
    void FindConstructorOpen();
    void FindConstructorEnd();
    void FindBrokenConstructorEnd();
    void FindClassEnd();
    void SetRegions();
    bool StandsAsConstructor(std::size_t index) const;
    bool IsKnownHead(std::size_t index);
    void RememberHandler(std::size_t index);
    bool IsNamedHandler(std::string_view name);
    bool LooksLikeStatement(std::size_t index) const;
    bool LooksLikeCall(std::size_t index) const;
    std::size_t BehindToken(std::size_t index) const;
    std::size_t AboveComments(std::size_t position, std::size_t lowest) const;

    const SourceTokens& tokens_;
    std::string_view source_;
    const GeneratedCode& wanted_;
    bool bracesMatch_ = false;               ///< as many open as close in the whole source
    std::vector<std::size_t> handlerTokens_; ///< in any registration, not in namedHandlers_ yet
    std::unordered_set<std::string_view> namedHandlers_;
};

} // namespace pirol
