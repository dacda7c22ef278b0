// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/RVXStatisticsSetupPage.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QtTest>

//! What was announced last, and how often: "2x on 1 0.1 10, 4 peaks".
class Announcements : public QObject
{
public:
    explicit Announcements(Corvale_Qt::RVXStatisticsSetupPage &page)
    {
        const auto note = [](QString &text, int &count) {
            return [&text, &count](bool on, const QVector<double> &parameters, int peaks) {
                QStringList words{on ? "on" : "off"};
                for (const double parameter : parameters)
                    words << QString::number(parameter);
                text = words.join(' ') + QString(", %1 peaks").arg(peaks);
                ++count;
            };
        };
        connect(&page,
                &Corvale_Qt::RVXStatisticsSetupPage::CoGOptions,
                this,
                note(m_cog, m_cogCount));
        connect(&page,
                &Corvale_Qt::RVXStatisticsSetupPage::RegressionOptions,
                this,
                note(m_fit, m_fitCount));
    }

    QString takeCoG() { return take(m_cog, m_cogCount); }
    QString takeFit() { return take(m_fit, m_fitCount); }

private:
    static QString take(QString &text, int &count)
    {
        const QString taken = count ? QString("%1x %2").arg(count).arg(text) : QString();
        count = 0;
        return taken;
    }

    QString m_cog, m_fit;
    int m_cogCount = 0, m_fitCount = 0;
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

//! All that the page keeps: "stats cog fit" for what is on, then the mode, peaks and numbers.
inline QString stateOf(QWidget &page)
{
    const auto on = [&](const char *name, const char *word) {
        return child<QGroupBox>(page, name)->isChecked() ? QString(word) : QString("-");
    };
    QStringList words{on("fullStatsCBox", "stats"),
                      on("CoGCBox", "cog"),
                      on("regressionCBox", "fit")};
    words << (child<QAbstractButton>(page, "CoGThresholdRadio")->isChecked() ? "threshold"
                                                                             : "window");
    words << child<QComboBox>(page, "peaksEdit")->currentText();
    for (const char *name : {"CoGThresholdEdit",
                             "CoGWindowEdit",
                             "RegressionThresholdEdit",
                             "RegressionWindowEdit",
                             "Chi2WindowEdit"})
        words << QString::number(child<QSpinBox>(page, name)->value());
    return words.join(' ');
}

//! The state of a page that nobody has touched.
inline const char *const defaultState = "- - - threshold 1 10 10 10 10 5";
