// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QTest>

//! Adds columns to a test's table: columns<double, QString>("width", "text").
template<typename... Types, typename... Names>
void columns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

//! Adds a row to a test's table, with a value for each column; a string literal fills a column of QString.
template<typename... Values>
void row(const char *name, Values... values)
{
    (QTest::newRow(name) << ... << values);
}
