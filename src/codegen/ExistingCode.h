#pragma once

#include "codegen/ClassFrame.h"
#include "codegen/ExistingMethods.h"
#include "codegen/GeneratedCode.h"
#include "codegen/JavaGenerator.h"
#include "codegen/NameMap.h"
#include "codegen/SourceStatement.h"
#include "codegen/SourceTokens.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace pirol {

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

/// What a source that pupils write in holds of Pirol. Linear in the length of the source.
class ExistingCode {
  public:
    /// Takes the menu bar and the database access for Pirol's when `blocks` says so, and for the pupil's otherwise.
    /// Raises UpdateRefusal. Both must outlive it.
    ExistingCode(const SourceTokens& tokens, const GeneratedCode& wanted, CodeOptions blocks);

    const ClassFrame frame; ///< where the class and its sections are
    /// Pirol's pieces in the order of the source.
    std::vector<ExistingPiece> pieces;
    NameMap<ExistingField> fields;
    /// Handlers that Pirol's statements register, but for those that are word for word as wanted.
    NameMap<Registration> registered;
    /// Methods of wanted or registered names that are the pupil's, and where.
    NameMap<std::size_t> ownMethods;
    /// Whether own lines need the database's import.
    bool needsDatabaseImport = false;
    /// The database's "if" is there, but not as generated.
    bool ownDatabaseBlock = false;
    bool callsThis = false; ///< the constructor begins with another one

  private:
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
    std::uint32_t AddUndeclared(std::string_view name, std::size_t token);
    void AddKnown(std::size_t token, const GeneratedPiece& wanted);
    void CollectRegistered();
    void ReadMethods();
    void PutInOrder();
    void DropOverlaps();
    std::uint32_t FindField(std::string_view name);
    ExistingPiece& AddPiece(const CodeKey* key, CodeSection section, std::size_t firstToken, std::size_t endToken);
    const CodeKey* Keep(const CodeKey& key) { return &keys_.emplace_back(key); }

    const SourceTokens& tokens_;
    std::string_view source_;
    const GeneratedCode& wanted_;
    CodeOptions blocks_;
    std::deque<CodeKey> keys_; ///< of the pieces that are no wanted ones
    std::deque<std::string> details_;
    std::unordered_set<std::string_view> wantedCodes_; ///< all of them, when first asked for
    std::uint32_t lastField_ = 0;
    const std::pair<const std::string, ClassForm>* lastForm_ = nullptr;
    std::size_t nextComment_ = 0; ///< of those that begin a line
};

} // namespace pirol
