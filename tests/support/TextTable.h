// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QRegularExpression>
#include <QTest>

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
