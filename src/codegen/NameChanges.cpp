#include "codegen/NameChanges.h"

#include "base/Text.h"
#include "codegen/GeneratedCode.h"
#include "codegen/SourceTokens.h"

#include <map>
#include <utility>

namespace pirol {
namespace {

/// The names that take another one: components with their handlers.
using NewNames = std::map<std::string, std::string, std::less<>>;

bool IsField(const SourceTokens& tokens, std::size_t name) {
    return tokens.Is(name + 1, ";") && ClassForms().contains(tokens.Text(name - 1));
}

/// Only what the source has under the old name is renamed, and only to a name that is free there by then.
NewNames NamesToChange(const SourceTokens& tokens, const std::vector<NameChange>& renames,
                       std::vector<PlacedEntry>& entries) {
    std::map<std::string_view, std::size_t> fields;
    for (const NameChange& rename : renames) {
        fields.emplace(rename.before, noPosition);
        fields.emplace(rename.now, noPosition);
    }
    for (std::size_t index = 0; index < tokens.Count(); ++index)
        if (IsField(tokens, index))
            if (const auto field = fields.find(tokens.Text(index)); field != fields.end())
                field->second = index;
    std::map<std::string_view, std::string_view> changes;
    for (const NameChange& rename : renames)
        if (rename.before != rename.now && fields[rename.before] != noPosition)
            changes.emplace(rename.before, rename.now);
    for (bool again = true; again;) {
        const auto before = changes.size();
        std::erase_if(changes, [&](const auto& change) {
            return fields[change.second] != noPosition && !changes.contains(change.second);
        });
        again = changes.size() != before;
    }
    NewNames names;
    for (const auto& [before, now] : changes) {
        const std::size_t field = fields[before];
        names.emplace(before, now);
        for (const auto& [method, kinds] : ClassForms().find(tokens.Text(field - 1))->second.calls)
            if (method.starts_with(registration))
                names.emplace(Concatenate(before, method.substr(registration.size())),
                              Concatenate(now, method.substr(registration.size())));
        entries.push_back({{UpdateAction::Renamed, Concatenate(before, " heißt jetzt ", now)},
                           tokens[field].begin,
                           tokens[field].begin});
    }
    return names;
}

std::string Renamed(const SourceTokens& tokens, const NewNames& names) {
    const std::string_view source = tokens.Source();
    std::string text;
    std::size_t position = 0;
    const auto replace = [&](std::size_t begin, std::size_t end) {
        const auto name = names.find(source.substr(begin, end - begin));
        if (name == names.end())
            return;
        text += source.substr(position, begin - position);
        text += name->second;
        position = end;
    };
    auto comment = tokens.LineComments().begin();
    const auto renameProposals = [&](std::size_t limit) {
        for (; comment != tokens.LineComments().end() && comment->begin < limit; ++comment) {
            const std::string_view line = source.substr(comment->begin, comment->end - comment->begin);
            const std::size_t dot = line.find(proposalEnd);
            if (dot != std::string_view::npos)
                replace(comment->begin + 2, comment->begin + dot);
        }
    };
    for (std::size_t index = 0; index < tokens.Count(); ++index) {
        renameProposals(tokens[index].begin);
        const bool isRegistration = tokens.IsLiteral(index, '"') && tokens.Is(index - 1, "(") &&
                                    tokens.Text(index - 2).starts_with(registration) && tokens.Is(index - 3, ".") &&
                                    names.contains(tokens.Text(index - 4));
        if (isRegistration)
            replace(tokens[index].begin + 1, tokens[index].end - 1);
        else if (tokens.IsWord(index))
            replace(tokens[index].begin, tokens[index].end);
    }
    renameProposals(source.size());
    return text.append(source.substr(position));
}

} // namespace

RenamedSource WithNewNames(std::string_view source, const std::vector<NameChange>& renames) {
    const SourceTokens tokens(source, SourceTokens::Comments::AcrossLines);
    std::vector<PlacedEntry> entries;
    const NewNames names = NamesToChange(tokens, renames, entries);
    NumberLines(source, entries, &PlacedEntry::oldPosition, &UpdateEntry::oldLine);
    RenamedSource renamed{Renamed(tokens, names), {}};
    for (PlacedEntry& placed : entries)
        renamed.entries.push_back(std::move(placed.entry));
    return renamed;
}

} // namespace pirol
