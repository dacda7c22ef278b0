// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "tests/support/ModelText.h"

#include <qwt_plot.h>
#include <qwt_scale_div.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <QtTest>

//! A panel with functions to operate it by mouse and keyboard and to read what it shows.
class Panel : public Corvale_Qt::RVXScope
{
public:
    template<typename Widget = QWidget>
    Widget *control(const char *name) const
    {
        auto *widget = findChild<Widget *>(name);
        if (!widget)
            qFatal("no %s", name);
        return widget;
    }
    void click(const char *name) { QTest::mouseClick(control(name), Qt::LeftButton); }
    void choose(const char *combo, const QString &text)
    {
        auto *box = control<QComboBox>(combo);
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < box->count() && box->currentText() != text; ++i)
            QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentText(), text);
    }
    void chooseTab(const QString &title)
    {
        auto *tabs = control<QTabBar>("modeSelect");
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) == title)
                QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(i).center());
        }
    }
    //! Returns the titles of the tabs with the current one in brackets: "Strip [Scope] Histogram".
    QString tabs() const
    {
        auto *bar = control<QTabBar>("modeSelect");
        QStringList titles;
        for (int i = 0; i < bar->count(); ++i)
            titles << (i == bar->currentIndex() ? "[" + bar->tabText(i) + "]" : bar->tabText(i));
        return titles.join(' ');
    }
    //! Returns the names of the view's visible widgets.
    QString shown() const
    {
        const std::pair<QString, QWidget *> widgets[] = {
            {"plot", plot()},
            {"2D", (QWidget *)plotView()->spectrogram()},
            {"position", (QWidget *)plotView()->positionPlot()},
            {"split", (QWidget *)plotView()->splitPlot()}};
        QStringList names;
        for (const auto &widget : widgets) {
            if (widget.second->isVisibleTo(plotView()))
                names << widget.first;
        }
        return names.join(' ');
    }
    QwtPlot *plot() const
    {
        return plotView()->viewport()->findChild<QwtPlot *>(QString(), Qt::FindDirectChildrenOnly);
    }
    //! Returns the y scale, "[-1, 1]" or "auto", and the state of the button for positive values.
    QString yScale() const
    {
        plot()->updateAxes(); // as the next plot does
        const QwtScaleDiv &division = plot()->axisScaleDiv(QwtPlot::yLeft);
        const QString scale = plot()->axisAutoScale(QwtPlot::yLeft)
            ? QString("auto")
            : QString("[%1, %2]").arg(division.lowerBound()).arg(division.upperBound());
        const auto *button = control<QAbstractButton>("positiveOnlyButton");
        return scale
            + (button->isHidden()         ? " hidden"
                   : !button->isEnabled() ? " disabled"
                   : button->isChecked()  ? " on"
                                          : " off");
    }
    QString bufferSize() const { return control<QLabel>("bufferSizeLabel")->text(); }
    QString values() const
    {
        return rowsText(*qobject_cast<Corvale_Qt::RVXZeroingProxyModel *>(topLevelModel()));
    }
};
