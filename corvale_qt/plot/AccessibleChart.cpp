// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/AccessibleChart_p.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

#include <utility>

namespace Corvale_Qt {

namespace {

//! Keeps the words of a chart, as a child of it.
class ChartSpeaker : public QObject
{
public:
    ChartSpeaker(QWidget *chart, std::function<ChartWords()> words)
        : QObject(chart)
        , m_words(std::move(words))
    {
    }
    ChartWords words() const { return m_words(); }

    //! Returns the one of a chart; null if describeChart() was not called for it.
    static ChartSpeaker *of(const QObject *chart)
    {
        for (QObject *child : chart->children())
            if (auto *speaker = dynamic_cast<ChartSpeaker *>(child))
                return speaker;
        return nullptr;
    }

private:
    const std::function<ChartWords()> m_words;
};

//! A chart as screen readers see it. Its children are the widgets on it.
class AccessibleChart : public QAccessibleWidget
{
public:
    explicit AccessibleChart(QWidget *chart)
        : QAccessibleWidget(chart, QAccessible::Chart)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const ChartSpeaker *speaker = ChartSpeaker::of(object());
        if (!speaker || (kind != QAccessible::Value && kind != QAccessible::Description))
            return QAccessibleWidget::text(kind);
        const ChartWords words = speaker->words();
        if (kind == QAccessible::Value)
            return words.values;
        return words.values.isEmpty() ? words.state
                                      : words.state + QStringLiteral(". ") + words.values;
    }
};

QAccessibleInterface *chartFor(const QString &, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    return widget && ChartSpeaker::of(widget) ? new AccessibleChart(widget) : nullptr;
}

} // namespace

void describeChart(QWidget *chart, std::function<ChartWords()> words)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(chartFor);
        return true;
    }();
    Q_UNUSED(isInstalled)
    delete ChartSpeaker::of(chart);
    // A screen reader that runs may have been told of the widget, as another kind of it, while it was being made.
    const QAccessible::Id former =
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(chart));
    QAccessible::deleteAccessibleInterface(former);
    new ChartSpeaker(chart, std::move(words));
}

void announceChartState(QWidget *chart)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(chart, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace Corvale_Qt
