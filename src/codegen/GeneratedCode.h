#pragma once

#include "codegen/NameMap.h"
#include "codegen/SourceTokens.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pirol {

/// The four places of a source in which the generator writes, in their order.
enum class CodeSection : std::uint8_t { Imports, Fields, Constructor, Methods };
constexpr std::size_t sectionCount = 4;

/// By what a piece of code is known as the same one again, whatever values it holds: the name it is about, what it says
/// of it, and for what may be said several times the value that tells them apart.
struct CodeKey {
    std::string_view object;
    std::string_view member;
    std::string_view detail;

    bool operator==(const CodeKey&) const = default;
};

struct CodeKeyHash {
    std::size_t operator()(const CodeKey& key) const;
};

/// The member of the keys that are no call.
namespace members {
inline constexpr std::string_view import = "import";
inline constexpr std::string_view field = "field";
inline constexpr std::string_view assignment = "=";
inline constexpr std::string_view proposal = "//";
inline constexpr std::string_view comment = "comment";
inline constexpr std::string_view method = "()";
inline constexpr std::string_view block = "block"; ///< the database's "if" with its braces
inline constexpr std::string_view other = "other";
} // namespace members

/// The keys that name no variable.
inline constexpr std::string_view superCall = "super";
inline constexpr std::string_view superComment = "// Initialisierung der Oberklasse";
inline constexpr std::string_view fieldsComment = "// Objekte";
inline constexpr std::string_view proposalEnd = ".spieleTon();  // <- zum sofortigen Abspielen dekommentieren";
inline constexpr std::string_view handlerComment = "//   Hier wird der Methodeninhalt eingefügt";
inline constexpr std::string_view registration = "setzeBearbeiter";
inline constexpr std::string_view connectMethod = "VerbindeMitDatenbank";
inline constexpr std::string_view toolsPackage = "werkzeuge";
inline constexpr std::string_view databasePackage = "sql";
inline constexpr std::string_view menuClass = "Menue";
inline constexpr std::string_view databaseClass = "Datenbank";
inline constexpr std::string_view resultClass = "SQLErgebnisliste";
inline constexpr std::string_view subMenu = "hatMenueTemp";
inline constexpr std::string_view database = "hatDatenbank";
inline constexpr std::string_view resultList = "hatErgebnisliste";

/// A statement, declaration, method or comment line that the generator writes.
struct GeneratedPiece {
    /// Reads the first line.
    GeneratedPiece(CodeSection section, std::string_view line);

    std::string_view code; ///< without its indent and its last line end
    CodeKey key;
    CodeSection section;
    std::uint8_t indent; ///< blanks before it
    bool blankBehind = false;
    bool optional;           ///< a comment: not written again when a source lacks it
    bool isReplaced = false; ///< its code is not the generated one
};

/// The generated source of a design, taken apart. Views point into it, so it neither copies nor moves.
class GeneratedCode {
  public:
    explicit GeneratedCode(std::string source);
    GeneratedCode(const GeneratedCode&) = delete;
    GeneratedCode& operator=(const GeneratedCode&) = delete;
    ~GeneratedCode() = default;

    std::vector<GeneratedPiece> pieces; ///< in the order of the source
    /// Where the pieces of each section begin, and where all end.
    std::array<std::size_t, sectionCount + 1> sections{};
    /// The classes of the fields by their names, and the methods' names with their pieces.
    NameMap<std::string_view> fields;
    NameMap<std::size_t> methods;

    /// The piece that a token is word for word; null for another token.
    const GeneratedPiece* Known(const SourceToken& token) const {
        return token.known == 0 ? nullptr : &pieces[token.known - 1];
    }

    /// Gives a piece another code, which is kept as long as the pieces.
    void Replace(GeneratedPiece& piece, std::string code) {
        piece.code = texts_.emplace_back(std::move(code));
        piece.isReplaced = true;
    }

  private:
    void TakeApart();
    void AddLine(CodeSection section, std::string_view line);

    std::string source_;
    std::deque<std::string> texts_;
};

/// What the generator says of the fields of one class, by the kinds of arguments: n number, s text, c character, i
/// name.
struct ClassForm {
    std::string creation;
    std::map<std::string, std::string, std::less<>> calls;
};

/// The forms by Java class, of all classes that generated fields have.
const std::map<std::string, ClassForm, std::less<>>& ClassForms();

/// Whether several statements of this method may stand for one variable; the last argument tells them apart.
bool IsListMethod(std::string_view method);

} // namespace pirol
