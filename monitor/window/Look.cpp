// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/Look.h"

#include <QFontMetrics>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace Look {

QColor ground(State state)
{
    switch (state) {
    case State::Simulated:
        return {255, 215, 94};
    case State::Paused:
        return {159, 208, 255};
    case State::Processed:
        return {136, 255, 138}; // as the library marks a zero on the panel
    case State::Hint:
        return {205, 228, 255};
    case State::Waiting:
        return {255, 179, 0};
    case State::Trouble:
        return {183, 28, 28};
    case State::Ended:
        break;
    }
    return {216, 216, 216};
}

QColor ink(State state)
{
    return state == State::Trouble ? Qt::white : Qt::black;
}

QColor word(State state, bool onDark)
{
    if (state == State::Trouble)
        return onDark ? QColor(255, 120, 110) : ground(state);
    if (state == State::Waiting && !onDark)
        return {138, 90, 0};
    return onDark ? ground(state) : ink(state);
}

QString styleSheet(State state)
{
    return QStringLiteral("background: %1; color: %2;")
        .arg(ground(state).name(), ink(state).name());
}

QColor mixed(const QColor &first, const QColor &second, double share)
{
    const auto mix = [share](int a, int b) {
        return int(std::lround(a + (b - a) * share));
    };
    return {mix(first.red(), second.red()),
            mix(first.green(), second.green()),
            mix(first.blue(), second.blue())};
}

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

void dress(QWidget *widget, State state)
{
    QPalette colours = widget->palette();
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        colours.setColor(role, ground(state));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, ink(state));
    widget->setPalette(colours);
    widget->setAutoFillBackground(true);
}

bool isDark(const QWidget *widget)
{
    constexpr int half = 128;
    return widget->palette().color(QPalette::Base).lightness() < half;
}

namespace {

bool hasTabularFigures(const QFont &font)
{
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(QLatin1Char('0'));
    for (char figure = '1'; figure <= '9'; ++figure)
        if (metrics.horizontalAdvance(QLatin1Char(figure)) != width)
            return false;
    return true;
}

} // namespace

QFont figures(const QFont &font)
{
    if (hasTabularFigures(font))
        return font;
    QFont even = font;
    even.setFamily(QStringLiteral("monospace"));
    even.setStyleHint(QFont::Monospace);
    return even;
}

} // namespace Look

} // namespace Monitor
