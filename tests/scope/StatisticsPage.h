// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/RVXStatisticsSetupPage.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QtTest>

//! The last values of the page's signals and how often they were emitted: "2x on 1 0.1 10, 4 peaks".
class Announcements
{
public:
    using Page = Corvale_Qt::RVXStatisticsSetupPage;

    explicit Announcements(Page &page)
        : m_cog(&page, &Page::CoGOptions)
        , m_fit(&page, &Page::RegressionOptions)
    {
    }

    QString takeCoG() { return take(m_cog); }
    QString takeFit() { return take(m_fit); }

private:
    static QString take(QSignalSpy &spy)
    {
        if (spy.isEmpty())
            return QString();
        const QVariantList last = spy.last();
        QStringList words{last[0].toBool() ? "on" : "off"};
        for (const double parameter : last[1].value<QVector<double>>())
            words << QString::number(parameter);
        const QString text = QString("%1x %2, %3 peaks");
        const int count = spy.size();
        spy.clear();
        return text.arg(count).arg(words.join(' ')).arg(last[2].toInt());
    }

    QSignalSpy m_cog, m_fit;
};

template<typename Widget>
Widget *child(QWidget &page, const char *name)
{
    auto *widget = page.findChild<Widget *>(name);
    if (!widget)
        qFatal("no %s", name);
    return widget;
}

inline void toggleGroup(QWidget &page, const char *name)
{
    QTest::keyClick(child<QGroupBox>(page, name), Qt::Key_Space);
}

inline void type(QWidget &page, const char *name, const QString &text)
{
    auto *spinBox = child<QAbstractSpinBox>(page, name);
    spinBox->selectAll();
    QTest::keyClicks(spinBox, text);
    QTest::keyClick(spinBox, Qt::Key_Return);
}

//! Returns all stored values of a page: "stats cog fit" for the groups that are on, then mode, peaks and numbers.
inline QString stateOf(QWidget &page)
{
    const auto on = [&](const char *name, const char *word) {
        return child<QGroupBox>(page, name)->isChecked() ? QString(word) : QString("-");
    };
    QStringList words{on("fullStatsCBox", "stats"), on("CoGCBox", "cog"),
                      on("regressionCBox", "fit")};
    words << (child<QAbstractButton>(page, "CoGThresholdRadio")->isChecked() ? "threshold"
                                                                             : "window");
    words << child<QComboBox>(page, "peaksEdit")->currentText();
    for (const char *name : {"CoGThresholdEdit", "CoGWindowEdit", "RegressionThresholdEdit",
                             "RegressionWindowEdit", "Chi2WindowEdit"})
        words << QString::number(child<QSpinBox>(page, name)->value());
    return words.join(' ');
}

//! The state of a new page.
inline const char *const defaultState = "- - - threshold 1 10 10 10 10 5";
