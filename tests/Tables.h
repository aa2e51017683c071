#pragma once

#include "base/Conversions.h"
#include "base/FileAccess.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pirol::test {

/// A line of a table of cases and its fields.
struct TableRow {
    std::string line;
    std::vector<std::string> fields;

    const std::string& operator[](std::size_t field) const { return fields.at(field); }
    int Number(std::size_t field) const { return std::stoi(fields.at(field)); }
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

/// The cases of tests/data/tables/NAME.txt, one a line, their fields between bars that have a blank on either side.
/// The escapes \n, \r, \t, \0, \1 and \xHH are those of C++, \s is a blank at a field's edge. "#" begins a remark.
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

} // namespace pirol::test
