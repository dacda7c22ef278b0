// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QRegularExpression>
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

//! Returns a cell of the current row of a test's table, as QFETCH() does, for a cell that is used once.
template<typename T = QString>
T cell(const char *column)
{
    return *static_cast<const T *>(QTest::qData(column, qMetaTypeId<T>()));
}

/*! Fills a test's table from \a text, of which each line is a row and '|' separates the cells, blanks around which do not
    count. The first line names the columns, with the type in front of the name unless cells are texts: "| int capacity | script". If it
    begins with "||", that separates the cells, which may contain '|' then. Each other line begins with the name of its row. A row
    continues in the next line if that begins with '|', or after a comma. In a cell, "\n" is the end of a line. */
inline void tableFrom(const char *text)
{
    static QByteArrayList names; // the test's table keeps pointers to them
    QVector<int> types;
    const QRegularExpression lineInRow("\n\\s*(?=\\|)|(?<=,)\n\\s*");
    const QString separator(QString::fromUtf8(text).trimmed().startsWith("||") ? "||" : "|");
    for (const QString &line : QString::fromUtf8(text).replace(lineInRow, " ").split('\n')) {
        QStringList cells;
        for (const QString &cell : line.split(separator))
            cells << cell.trimmed().replace("\\n", "\n");
        const QString name = cells.takeFirst();
        if (types.isEmpty()) {
            for (const QString &cell : qAsConst(cells)) {
                const QString type = cell.section(' ', 0, -2);
                types << QMetaType::type(type.isEmpty() ? "QString" : qPrintable(type));
                names << cell.section(' ', -1).toUtf8();
                QTest::addColumnInternal(types.last(), names.last());
            }
        } else if (!name.isEmpty()) {
            QTestData &row = QTest::newRow(qPrintable(name));
            for (int i = 0; i < types.size(); ++i) {
                QVariant value(cells.value(i));
                if (!value.convert(types[i]) || cells.size() != types.size())
                    qFatal("The table cannot hold this row: %s", qPrintable(line));
                row.append(types[i], value.constData());
            }
        }
    }
}
