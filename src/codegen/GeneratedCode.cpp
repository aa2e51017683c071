#include "codegen/GeneratedCode.h"

#include "base/Conversions.h"
#include "codegen/SourceStatement.h"
#include "codegen/SourceTokens.h"
#include "codegen/WordList.h"
#include "model/ProjectModel.h"

#include <algorithm>
#include <functional>

namespace pirol {
namespace {

constexpr std::string_view listMethods[] = {"fuegeEin", "haengeAn", "haengeZeileAn", "setzeSpaltentitelAn"};

/// The last argument of a generated call, whatever its texts hold.
std::string_view LastArgument(std::string_view arguments) {
    bool inText = false;
    std::size_t begin = 0;
    for (std::size_t position = 0; position < arguments.size(); ++position) {
        inText ^= arguments[position] == '"';
        if (arguments[position] == ',' && !inText)
            begin = position + 1;
    }
    return Trim(arguments.substr(begin));
}

std::string_view UpTo(std::string_view text, std::string_view sign) {
    return text.substr(0, text.find(sign));
}

CodeKey KeyOfImport(std::string_view line) {
    const std::size_t begin = line.find("sum.") + 4;
    return {{}, members::import, UpTo(line.substr(begin), ".")};
}

CodeKey KeyOfField(std::string_view line) {
    if (line.starts_with("//"))
        return {line, members::comment, {}};
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos || !line.ends_with(';'))
        return {line, members::other, {}};
    return {line.substr(blank + 1, line.size() - blank - 2), members::field, {}};
}

CodeKey KeyOfAssignment(std::string_view object, std::string_view value) {
    return {object, members::assignment, value.starts_with("new ") ? std::string_view() : value};
}

CodeKey KeyOfComment(std::string_view line) {
    if (line.ends_with(proposalEnd))
        return {line.substr(2, line.size() - 2 - proposalEnd.size()), members::proposal, {}};
    return {line, members::comment, {}};
}

CodeKey KeyOfStatement(std::string_view line) {
    if (line.starts_with("//"))
        return KeyOfComment(line);
    if (line.starts_with("super("))
        return {superCall, {}, {}};
    if (line.starts_with("if (") || line.size() == 1) // a brace
        return {UpTo(line, " "), members::block, {}};
    const auto* const objectEnd = std::find_if(line.begin(), line.end(), [](char c) { return c == ' ' || c == '.'; });
    const std::string_view object(line.begin(), objectEnd);
    const std::string_view rest(objectEnd, line.end());
    if (rest.starts_with(" = "))
        return KeyOfAssignment(object, rest.substr(3));
    const std::size_t bracket = rest.find('(');
    if (!rest.starts_with('.') || bracket == std::string_view::npos || !rest.ends_with(");"))
        return {line, members::other, {}};
    const std::string_view method = rest.substr(1, bracket - 1);
    const std::string_view arguments = rest.substr(bracket + 1, rest.size() - bracket - 3);
    return {object, method, IsListMethod(method) ? LastArgument(arguments) : std::string_view()};
}

CodeKey KeyOfMethod(std::string_view head) {
    const std::string_view front = UpTo(head, "(");
    return {front.substr(std::min(front.rfind(' ') + 1, front.size())), members::method, {}};
}

CodeKey KeyOf(CodeSection section, std::string_view line) {
    switch (section) {
    case CodeSection::Imports:
        return KeyOfImport(line);
    case CodeSection::Fields:
        return KeyOfField(line);
    case CodeSection::Constructor:
        return KeyOfStatement(line);
    case CodeSection::Methods:
        break;
    }
    return KeyOfMethod(line);
}

/// A line at which the generator goes on to the next section.
struct SectionEnd {
    std::string_view line;
    CodeSection next;
};

constexpr SectionEnd sectionEnds[] = {
    {"public class SuMAnwendung extends EBAnwendung", CodeSection::Fields},
    {"    public SuMAnwendung()", CodeSection::Constructor},
    {"    }", CodeSection::Methods},
};

/// A value that makes a property write its statement.
std::string_view SampleOf(EditorKind editor) {
    switch (editor) {
    case EditorKind::Number:
    case EditorKind::Choice:
        return "1";
    case EditorKind::Flag:
        return "Wahr";
    default:
        return "x";
    }
}

/// Reads the forms from what a control writes that has every property set.
template <class ControlClass>
void AddForms(std::map<std::string, ClassForm, std::less<>>& forms) {
    ControlClass control;
    control.ObjectName = "sample";
    for (const PropertyRow& row : control.Table().Rows())
        row.set(control, row.key->key == keys::optionbuttons.key ? JoinRadioButtons({cRadioButton()})
                                                                 : SampleOf(row.key->editor));
    const std::string statements = control.CreateInitText(0, 0);
    const SourceTokens tokens(statements, SourceTokens::Comments::WithinLines);
    std::map<std::string_view, std::string_view> classes;
    for (std::size_t index = 0; index < tokens.Count(); ++index) {
        const auto statement = ReadStatement(tokens, index);
        if (!statement)
            continue;
        if (!statement->createdClass.empty()) {
            classes[tokens.Text(index)] = statement->createdClass;
            forms[std::string(statement->createdClass)].creation = statement->arguments.kinds;
        } else if (!statement->method.empty()) {
            forms[std::string(classes[tokens.Text(index)])].calls[std::string(statement->method)] =
                statement->arguments.kinds;
        }
    }
}

template <class... Controls>
std::map<std::string, ClassForm, std::less<>> FormsOf() {
    static_assert(sizeof...(Controls) == kindCount);
    std::map<std::string, ClassForm, std::less<>> forms;
    (AddForms<Controls>(forms), ...);
    forms["Menue"] = {"s", {{"haengeZeileAn", "ss"}, {"haengeTrennungAn", ""}}};
    forms["Datenbank"] = {"", {}};
    forms["SQLErgebnisliste"] = {};
    return forms;
}

} // namespace

std::size_t CodeKeyHash::operator()(const CodeKey& key) const {
    constexpr std::hash<std::string_view> hash;
    constexpr std::size_t factor = 1000003;
    return (hash(key.object) * factor + hash(key.member)) * factor + hash(key.detail);
}

bool IsListMethod(std::string_view method) {
    return Contains(listMethods, method);
}

const std::map<std::string, ClassForm, std::less<>>& ClassForms() {
    static const auto forms =
        FormsOf<dEtikett, dButton, dText, dZeichenbereich, dZeilenbereich, dPassword, dSchalter, dOptionsgruppe,
                dAuswahl, dRegler, dFortschritt, dTabelle, dBild, dMusik, dVideo>();
    return forms;
}

GeneratedPiece::GeneratedPiece(CodeSection inSection, std::string_view line)
    : code(TrimLeft(line)), key(KeyOf(inSection, code)), section(inSection),
      indent(static_cast<std::uint8_t>(line.size() - code.size())),
      optional(code.starts_with("//") && key.member != members::proposal) {}

GeneratedCode::GeneratedCode(std::string source) : source_(std::move(source)) {
    TakeApart();
}

void GeneratedCode::TakeApart() {
    const std::string_view source = source_;
    auto section = CodeSection::Imports;
    std::size_t position = 0;
    std::size_t methodBegin = std::string_view::npos; // of a method whose end is not reached yet
    constexpr std::size_t usualLength = 64;           // of a line
    pieces.reserve(source.size() / usualLength);
    fields.Reserve(pieces.capacity() / 4);
    methods.Reserve(pieces.capacity() / 4);
    while (position < source.size()) {
        const std::size_t begin = position;
        const std::size_t end = std::min(source.find(lineEnd, position), source.size());
        position = std::min(end + lineEnd.size(), source.size());
        const std::string_view line = source.substr(begin, end - begin);
        if (section != CodeSection::Methods) {
            if (line == sectionEnds[static_cast<std::size_t>(section)].line) {
                section = sectionEnds[static_cast<std::size_t>(section)].next;
                sections[static_cast<std::size_t>(section)] = pieces.size();
            } else if (!(section == CodeSection::Fields && line == "{") && line != "    {") {
                AddLine(section, line);
            }
        } else if (methodBegin != std::string_view::npos) {
            if (line == "    }") {
                pieces.back().code = Trim(source.substr(methodBegin, end - methodBegin));
                methodBegin = std::string_view::npos;
            }
        } else if (line != "}") {
            AddLine(section, line);
            if (!line.empty())
                methodBegin = begin;
        }
    }
    sections.back() = pieces.size();
}

void GeneratedCode::AddLine(CodeSection section, std::string_view line) {
    const bool behindPiece = pieces.size() > sections[static_cast<std::size_t>(section)];
    if (line.empty()) {
        // Imports and declarations end in an empty line that belongs to what follows.
        if (behindPiece && section >= CodeSection::Constructor)
            pieces.back().blankBehind = true;
        return;
    }
    const GeneratedPiece& piece = pieces.emplace_back(section, line);
    if (section == CodeSection::Fields && piece.key.member == members::field)
        fields.Add(piece.key.object, UpTo(piece.code, " "));
    if (section == CodeSection::Methods)
        methods.Add(piece.key.object, pieces.size() - 1);
}

} // namespace pirol
