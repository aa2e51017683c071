#pragma once

#include <QTest>

namespace pirol::test {

/// The data of a test that runs once for each row of a table; every row has a name.
template <class Row, std::size_t count>
void AddRows(const Row (&table)[count]) {
    QTest::addColumn<std::size_t>("row");
    for (std::size_t row = 0; row < count; ++row)
        QTest::newRow(table[row].name) << row;
}

/// The row that the test runs with.
template <class Row, std::size_t count>
const Row& CurrentRow(const Row (&table)[count]) {
    QFETCH(std::size_t, row);
    return table[row];
}

} // namespace pirol::test
