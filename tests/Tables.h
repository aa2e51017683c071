// How the tests speak. Most of them are one of these:
//
// A case is a folder of files, input and expected output: tests/data/generate/NAME and the like (CaseFolders in
// Cases.h).
//
// A table is tests/data/tables/NAME.txt: a case a line, its fields between bars that have a blank on either side. What
// the fields are stands in the first line. "#" begins a remark. The escapes \n, \r, \t, \0, \1 and \xHH are those of
// C++, \s is a blank at a field's edge. Flags are "yes" and "no", rectangles left, top, width and height, a run-time
// error is "Fehler" and its number.
//
// A rule is a table and what the program makes of a line's first fields; it must be the last ones (Deviations).
// tests/tables_test.cpp holds the rules that need no more than a call.
//
// Steps are what a user does in a window, in one text with a blank after each: "@cmdAdd" clicks the part of that name,
// "F2" and "Alt+Up" press keys, everything else is typed (Do in ui/Forms.h). A window test that has steps in a table
// runs once for each of its lines (AddRows there).

#pragma once

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/Rectangle.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <concepts>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pirol::test {

using Fields = std::vector<std::string>;

/// A line of a table of cases and its fields.
struct TableRow {
    std::string line;
    Fields fields;

    const std::string& operator[](std::size_t field) const { return fields.at(field); }
    int Number(std::size_t field) const { return std::stoi(fields.at(field)); }
    std::int16_t Short(std::size_t field) const { return static_cast<std::int16_t>(Number(field)); }
};

/// The text of a field: without the blanks around it and with what its escapes stand for.
inline std::string Unescaped(std::string_view field) {
    constexpr std::string_view letters = "nrts01";
    constexpr std::string_view meanings("\n\r\t \0\1", letters.size());
    std::string text;
    field = Trim(field);
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] != '\\') {
            text += field[at];
        } else if (field.at(++at) == 'x') {
            text += static_cast<char>(std::stoi(std::string(field.substr(at + 1, 2)), nullptr, 16));
            at += 2;
        } else {
            const std::size_t letter = letters.find(field[at]);
            text += letter == std::string_view::npos ? field[at] : meanings[letter];
        }
    }
    return text;
}

inline std::vector<TableRow> Table(const std::string& name) {
    const std::string text = ReadFileBytes(std::filesystem::path(PIROL_TEST_DATA) / "tables" / (name + ".txt"));
    std::vector<TableRow> rows;
    for (const std::string_view line : Split(text, '\n')) {
        if (line.empty() || line.starts_with('#'))
            continue;
        TableRow& row = rows.emplace_back(TableRow{std::string(line), {}});
        const std::string padded = " " + row.line + " ";
        std::size_t begin = 0;
        for (std::size_t bar = padded.find(" | "); bar != std::string::npos; bar = padded.find(" | ", begin)) {
            row.fields.push_back(Unescaped(std::string_view(padded).substr(begin, bar - begin)));
            begin = bar + 2;
        }
        row.fields.push_back(Unescaped(std::string_view(padded).substr(begin)));
    }
    if (rows.empty())
        throw std::runtime_error("no cases in " + name);
    return rows;
}

inline std::string FieldText(std::string_view text) {
    return std::string(text);
}
inline std::string FieldText(const Rectangle& box) {
    return std::to_string(box.left) + " " + std::to_string(box.top) + " " + std::to_string(box.width) + " " +
           std::to_string(box.height);
}
template <std::integral Number>
std::string FieldText(Number number) {
    if constexpr (std::is_same_v<Number, bool>)
        return number ? "yes" : "no";
    else
        return std::to_string(number);
}

/// Values as fields.
template <class... Values>
Fields Answer(const Values&... values) {
    return {FieldText(values)...};
}

/// The lines of a table whose last fields are not the rule's answer to the line, each with that answer; empty when the
/// program keeps the rule.
template <class Rule>
std::string Deviations(const std::string& table, const Rule& rule) {
    std::string deviations;
    for (const TableRow& row : Table(table)) {
        Fields answer;
        try {
            answer = rule(row);
        } catch (const RuntimeError& error) {
            answer = {"Fehler " + std::to_string(error.ErrorNumber())};
        }
        if (answer.size() <= row.fields.size() && std::equal(answer.rbegin(), answer.rend(), row.fields.rbegin()))
            continue;
        deviations += table + ": " + row.line + "\n    answer:";
        for (const std::string& field : answer)
            deviations += " | " + field;
        deviations += '\n';
    }
    return deviations;
}

} // namespace pirol::test
