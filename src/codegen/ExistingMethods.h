#pragma once

#include "codegen/ClassFrame.h"
#include "codegen/GeneratedCode.h"
#include "codegen/NameMap.h"
#include "codegen/SourceTokens.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pirol {

struct ExistingPiece;

/// Who registers a handler.
enum class Registration : std::uint8_t { Component, Menu };

/// A handler or a database's query in the class of a source, by its name and its parameters.
struct ExistingMethod {
    std::string_view name;
    std::size_t firstToken; ///< of its head, modifiers left out unless they are the generator's
    std::size_t endToken;
    int depth;
    bool isQuery;
    bool generated;
    bool mentioned = false; ///< in own lines
};

/// The methods of a source that may be Pirol's: those of wanted or registered names, and the database's queries.
class ExistingMethods {
  public:
    /// Raises UpdateRefusal for a method that is declared twice. All must outlive it.
    ExistingMethods(const SourceTokens& tokens, const GeneratedCode& wanted, const ClassFrame& frame,
                    const NameMap<Registration>& registered);

    /// Looks in all that is neither one of these pieces, in the order of the source, nor a generated method for the
    /// names of methods: the library finds them by text, too.
    void FindMentions(const std::vector<ExistingPiece>& pieces);

    /// Calls `visit` for the method that counts of each name.
    template <class Visitor>
    void ForEach(const Visitor& visit) const {
        for (const auto& [name, number] : methodOf_)
            visit(methods_[number]);
    }

    /// Whether own lines need the database's import; known when mentions are found.
    bool MentionsDatabase() const { return mentionsDatabase_; }

  private:
    void Read(std::size_t first, std::size_t end);
    void Add(const ExistingMethod& method);
    bool IsHead(std::size_t name) const;
    bool IsGeneratedHandler(std::size_t name, std::size_t& end) const;
    bool IsGeneratedQuery(std::size_t name, std::size_t& end) const;
    void AddMention(const SourceTokens& tokens, std::size_t index);

    const SourceTokens& tokens_;
    std::string_view source_;
    const GeneratedCode& wanted_;
    const ClassFrame& frame_;
    const NameMap<Registration>& registered_;
    std::vector<ExistingMethod> methods_; ///< in the order of the source, some passed over
    NameMap<std::size_t> methodOf_;       ///< of each name the one that counts
    bool mentionsDatabase_ = false;
};

} // namespace pirol
