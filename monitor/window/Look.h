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

/*! What a coloured ground means. Each state has one colour everywhere, in light and dark palettes: in the status line, in
    notices, tables and time lines. Those of a poor and of an invalid fit are those that the library's displays give them. */
enum class State {
    Simulated,
    Paused, //!< what is shown stands still
    Processed, //!< something was subtracted from what is shown
    Hint,
    Waiting, //!< nothing comes at present, or not all of it; a warning; a poor fit
    Trouble, //!< somebody must look; an alarm; a fit that is not valid
    Ended,
};

QColor ground(State state);
//! Returns the colour of text on the ground of a state.
QColor ink(State state);
/*! Returns the colour of a word that stands for a state without its ground, on a light or a dark page; its contrast there is
    above 4.5. States that are neither a warning nor trouble have the colour of their ground on a dark page, and black on a light one. */
QColor word(State state, bool onDark);
//! Returns ground and text of a state for a style sheet.
QString styleSheet(State state);
//! Returns how far two colours are apart, from 1 to 21 (WCAG 2.1, "contrast ratio").
double contrast(const QColor &one, const QColor &other);
//! Returns a colour between two: \a second at a \a share of 1, \a first at 0.
QColor mixed(const QColor &first, const QColor &second, double share);
//! Gives a widget the ground of a state, and text that is read on it.
void dress(QWidget *widget, State state);
//! Returns whether the palette of a widget is a dark one.
bool isDark(const QWidget *widget);
//! Returns the font whose figures all have the same width, so that numbers that change do not move.
QFont figures(const QFont &font);

} // namespace Look

} // namespace Monitor
