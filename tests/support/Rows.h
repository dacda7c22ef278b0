// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QTest>

//! Adds a row to a test's table, with a value for each column; a string literal fills a column of QString.
template<typename... Values>
void row(const char *name, Values... values)
{
    (QTest::newRow(name) << ... << values);
}
