#pragma once

#include "Tables.h"

#include <QTest>

#include <array>

namespace pirol::test {

/// The data of a test that runs once for each line of a table of cases; the line's first field is its name.
inline void AddRows(const char* table) {
    QTest::addColumn<TableRow>("row");
    for (const TableRow& row : Table(table))
        QTest::newRow(row[0].c_str()) << row;
}

/// The fields behind the name, of the line that the test runs with.
template <std::size_t count>
std::array<QString, count> CurrentRow() {
    QFETCH(const TableRow, row);
    std::array<QString, count> fields;
    for (std::size_t field = 0; field < count; ++field)
        fields.at(field) = QString::fromStdString(row[field + 1]);
    return fields;
}

} // namespace pirol::test
