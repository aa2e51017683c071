#pragma once

#include "codegen/GeneratedCode.h"
#include "codegen/JavaGenerator.h"
#include "codegen/NameMap.h"
#include "codegen/SourceStatement.h"
#include "codegen/SourceTokens.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace pirol {

/// A source that cannot be brought up to date. The German message names the line.
class UpdateRefusal : public std::runtime_error {
  public:
    UpdateRefusal(std::size_t line, std::string_view message);
    std::size_t Line() const { return line_; }

  private:
    std::size_t line_;
};

/// Who registers a handler.
enum class Registration : std::uint8_t { Component, Menu };

constexpr std::uint32_t noField = static_cast<std::uint32_t>(-1);

/// A piece of a source that reads like one the generator writes, and is Pirol's.
struct ExistingPiece {
    const CodeKey* key = nullptr;
    CodeSection section = CodeSection::Imports; ///< where the generator writes such pieces
    bool asForm = true;      ///< a call or creation has arguments of the kinds that the generator writes
    bool isKnown = false;    ///< word for word as wanted
    bool isOdd = false;      ///< its arguments cannot be told apart
    std::uint32_t begin = 0; ///< of the code itself, without indent, line end and what else stands in its lines
    std::uint32_t end = 0;
    std::uint32_t firstToken = 0; ///< equal to endToken for a comment
    std::uint32_t endToken = 0;
    std::uint32_t firstArgument = 0; ///< tokens of a call's first and last argument; 0 without any
    std::uint32_t lastArgument = 0;
    std::uint32_t field = noField; ///< that it is about, of a statement: its number among the fields
};

/// A field of the class.
struct ExistingField {
    std::string_view javaClass;
    std::string_view wantedClass;    ///< of the design's component of that name, if there is one
    const ClassForm* form = nullptr; ///< of its class, if that is one of Pirol's
    int depth = 0;
    bool alone = false;         ///< declared as the generator does
    bool hasValue = false;      ///< where it is declared
    bool createdAsForm = false; ///< made in the constructor with arguments as the generator writes them
    bool owned = false;         ///< its statements are Pirol's
    std::size_t firstToken = 0;
};

/// Which of the optional blocks a source holds: the menu bar, the database access.
CodeOptions HeldBlocks(const SourceTokens& tokens);
/// The same by a look at the text alone, which takes a commented block for one that is held.
CodeOptions SeeminglyHeldBlocks(std::string_view source);

/// What a source that pupils write in holds of Pirol. The class and its constructor are found by their heads; the
/// constructor's and the class's end by their braces as long as these are in order, and by the last brace before the
/// next head otherwise. Linear in the length of the source.
class ExistingCode {
  public:
    /// Everything between two positions in which pieces of one section are kept in order.
    struct Region {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// Takes the menu bar and the database access for Pirol's when `blocks` says so, and for the pupil's otherwise.
    /// The known texts of `tokens` are those of `wanted`. Raises UpdateRefusal. Both must outlive it.
    ExistingCode(const SourceTokens& tokens, const GeneratedCode& wanted, CodeOptions blocks);

    std::array<Region, sectionCount> regions;
    /// Pirol's pieces in the order of the source.
    std::vector<ExistingPiece> pieces;
    NameMap<ExistingField> fields;
    /// Handlers that Pirol's statements register.
    NameMap<Registration> registered;
    /// Methods of wanted or registered names that are the pupil's, and where.
    NameMap<std::size_t> ownMethods;
    /// Whether own lines need the database's import.
    bool needsDatabaseImport = false;
    /// The database's "if" is there, but not as generated.
    bool ownDatabaseBlock = false;
    bool callsThis = false; ///< the constructor begins with another one

  private:
    struct Method {
        std::string_view name;
        std::size_t firstToken; ///< of its head, modifiers left out unless they are the generator's
        std::size_t endToken;
        int depth;
        bool isQuery;
        bool generated;
        bool mentioned = false; ///< outside of what is Pirol's
    };

    void FindClass();
    void FindConstructor();
    void FindConstructorOpen();
    void FindConstructorEnd();
    void FindBrokenConstructorEnd();
    void FindClassEnd();
    void SetRegions();
    void ReadImports();
    void ReadFields(std::size_t first, std::size_t end, CodeSection section);
    void AddField(const SourceDeclaration& declaration, int level, std::size_t firstToken, std::size_t endToken,
                  const CodeKey* key);
    const ClassForm* FormOf(std::string_view javaClass);
    void ReadConstructor();
    std::size_t ReadConstructorStatement(std::size_t index);
    std::size_t AddStatement(std::size_t first, const SourceStatement& statement, std::uint32_t number);
    void ReadDatabaseBlock(std::size_t first);
    void ReadComments(std::size_t limit);
    void DecideFields();
    bool IsOwned(std::string_view name, const ExistingField& field) const;
    void KeepOwnedPieces();
    bool IsOwned(const ExistingPiece& piece);
    bool IsOwnedCall(const ExistingPiece& piece) const;
    bool IsAsWanted(const ExistingPiece& piece);
    void AddKnown(std::size_t token, const GeneratedPiece& wanted);
    void CollectRegistered();
    void ReadMethods();
    void ReadMethods(std::size_t first, std::size_t end);
    void AddMethod(const Method& method);
    bool IsHead(std::size_t name) const;
    bool IsGeneratedHandler(std::size_t name, std::size_t& end) const;
    bool IsGeneratedQuery(std::size_t name, std::size_t& end) const;
    void FindMentions();
    void AddMention(const SourceTokens& tokens, std::size_t index);
    void PutInOrder();
    void DropOverlaps();
    bool IsKnownHead(std::size_t index);
    bool IsNamedHandler(std::string_view name);
    std::uint32_t FindField(std::string_view name);
    void RememberHandler(std::size_t index);
    bool LooksLikeStatement(std::size_t index) const;
    bool LooksLikeCall(std::size_t index) const;
    std::size_t Indent(std::size_t index) const;
    ExistingPiece& AddPiece(const CodeKey* key, CodeSection section, std::size_t firstToken, std::size_t endToken);
    const CodeKey* Keep(const CodeKey& key) { return &keys_.emplace_back(key); }
    std::string_view Literal(std::size_t token) const;
    [[noreturn]] void Refuse(std::size_t token, std::string_view message) const;
    std::size_t LineOf(std::size_t token) const;
    std::size_t BehindToken(std::size_t index) const;
    std::size_t AboveComments(std::size_t position, std::size_t lowest) const;
    std::size_t LineStart(std::size_t position, std::size_t lowest) const;
    std::size_t FirstOfHead(std::size_t index) const;

    const SourceTokens& tokens_;
    std::string_view source_;
    const GeneratedCode& wanted_;
    CodeOptions blocks_;
    std::string_view className_;
    std::size_t classToken_ = 0;
    std::size_t classOpen_ = 0; ///< "{" or what stands for it
    std::size_t constructor_ = 0;
    std::size_t constructorOpen_ = 0;
    std::size_t constructorEnd_ = 0; ///< "}", or the token before which one is missing
    bool constructorCloses_ = true;
    std::size_t classEnd_ = 0;                                        ///< "}" or the count of tokens
    bool bracesMatch_ = false;                                        ///< as many open as close in the whole source
    bool inOrder_ = false;                                            ///< braces tell what stands on which level
    std::deque<CodeKey> keys_; ///< of the pieces that are no wanted ones
    std::unordered_set<std::string_view> wantedCodes_; ///< all of them, when first asked for
    std::vector<std::size_t> handlerTokens_; ///< in any registration, not in namedHandlers_ yet
    std::unordered_set<std::string_view> namedHandlers_;
    std::uint32_t lastField_ = 0;
    const std::pair<const std::string, ClassForm>* lastForm_ = nullptr;
    std::vector<Method> methods_; ///< in the order of the source, some passed over
    NameMap<std::size_t> methodOf_;
    std::size_t nextComment_ = 0; ///< of those that begin a line
};

} // namespace pirol
