// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>
#include <QFont>

class QWidget;

namespace Monitor {

//! The looks that all parts of the window share: distances, colours of states, figures.
namespace Look {

//! Distances are multiples of this, in pixels.
constexpr int gap = 8;

//! What a coloured ground means. Each state has one colour everywhere, with black text, in light and dark palettes.
enum class State {
    Simulated,
    Paused, //!< what is shown stands still
    Processed, //!< something was subtracted from what is shown
    Hint,
    Waiting, //!< nothing comes at present, or not all of it
    Trouble, //!< somebody must look
    Ended,
};

QColor ground(State state);
//! Gives a widget the ground of a state, and black text.
void dress(QWidget *widget, State state);
//! Returns whether the palette of a widget is a dark one.
bool isDark(const QWidget *widget);
//! Returns the font whose figures all have the same width, so that numbers that change do not move.
QFont figures(const QFont &font);

} // namespace Look

} // namespace Monitor
