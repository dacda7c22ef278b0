// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/PlotModeTabs_p.h"
#include "corvale_qt/scope/PlotModes_p.h"

#include <QCoreApplication>
#include <QTabBar>
#include <QVariant>

#include <iterator>

namespace Corvale_Qt {

QString PlotModeTabs::titleOf(int mode)
{
    static const char *const titles[] = {
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Strip"),
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Scope"),
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Histogram"),
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "2D"),
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Position"),
        QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Split"),
    };
    static_assert(std::size(titles) == kPlotModes, "each mode has a title");
    return QCoreApplication::translate("Corvale_Qt::RVXScope", titles[mode]);
}

int PlotModeTabs::add(int mode)
{
    const int index = m_bar->count();
    place(index, mode);
    return index;
}

void PlotModeTabs::insert(int mode)
{
    int index = 0;
    while (index < m_bar->count() && modeAt(index) < mode)
        ++index;
    place(index, mode);
}

void PlotModeTabs::place(int index, int mode)
{
    m_bar->insertTab(index, QString());
    m_bar->setTabData(index, mode);
    setTitle(index);
}

/*! Sets the text and the accessible name of a tab. A screen reader reads only the tab, so its name includes "Plot
    mode". */
void PlotModeTabs::setTitle(int index)
{
    const QString title = titleOf(modeAt(index));
    m_bar->setTabText(index, title);
    m_bar->setAccessibleTabName(
        index,
        QCoreApplication::translate("Corvale_Qt::RVXScope", "Plot mode: %1").arg(title));
}

void PlotModeTabs::remove(int mode)
{
    const int index = indexOf(mode);
    if (index >= 0)
        m_bar->removeTab(index);
}

int PlotModeTabs::indexOf(int mode) const
{
    for (int index = 0; index < m_bar->count(); ++index) {
        if (m_bar->tabData(index) == mode)
            return index;
    }
    return -1;
}

int PlotModeTabs::modeAt(int index) const
{
    const QVariant mode = m_bar->tabData(index);
    return mode.isValid() ? mode.toInt() : index;
}

int PlotModeTabs::flags() const
{
    int flags = 0;
    for (int index = 0; index < m_bar->count(); ++index)
        flags |= 1 << modeAt(index);
    return flags;
}

void PlotModeTabs::retranslate()
{
    for (int index = 0; index < m_bar->count(); ++index)
        setTitle(index);
}

} // namespace Corvale_Qt
