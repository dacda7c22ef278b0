// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

namespace Corvale_Qt {

class ChannelExpressionsPrivate;

//! A channel whose readings are computed from those of other channels.
struct CORVALE_QT_EXPORT ComputedChannel
{
    QString name; //!< what other expressions call it, and the title of its column
    QString unit; //!< symbol of its unit, as MeasurementUnit::fromString() reads it; empty for none
    QString expression; //!< see ChannelExpressions

    //! Reads "NAME [unit] = expression"; the unit may be missing. Nothing if there is no name or no "=".
    static std::optional<ComputedChannel> fromText(const QString &text);
};

//! What is wrong with a computed channel.
struct CORVALE_QT_EXPORT ExpressionFault
{
    int channel = -1; //!< which of the computed channels, from 0; -1 for none
    int position =
        -1; //!< of the first character in the expression that is wrong, from 0; -1 if it is not in the expression
    QString text; //!< what is wrong, in words; empty if nothing is

    //! Returns whether nothing is wrong.
    bool isEmpty() const { return text.isEmpty(); }
    //! Returns the text with the place, where there is one: "character 5: no channel is called "x"".
    QString message() const;
};

/*! Computes channels from others by expressions, row by row. It needs no window and no model.

    An expression has numbers, + - * / ^, comparisons, && and ||, condition ? a : b, parentheses, the constants _pi and _e, and
    the functions sqrt, abs, exp, ln, log10, sin, cos, tan, asin, acos, atan, atan2, min, max, sum, avg, sign, rint. A channel is
    called by its name, or [by its name in brackets] if that is not one word of letters, digits and underscores. "a .. d" are the
    arguments from channel a to channel d, for functions of any number of arguments. Three of these fit a Gaussian to a profile
    of at least three readings (logParabolaGaussian()): fit_position (in channels, 1 for the first argument), fit_sigma (in
    channels) and fit_integral (the sum of the readings that the Gaussian stands for); they are NaN if it cannot be fitted.

    An expression may use other computed channels, in any order, but not itself. Readings that are missing (NaN) make the result
    NaN where they are used.

    \code
    ChannelExpressions expressions;
    ExpressionFault fault;
    expressions.compile({"A", "B"}, {{"asymmetry", "", "(A - B) / (A + B)"}}, &fault);
    \endcode */
class CORVALE_QT_EXPORT ChannelExpressions
{
public:
    //! Returns whether the library was built with a parser for expressions. Without one, no expression compiles.
    static bool isAvailable();

    ChannelExpressions();
    ~ChannelExpressions();
    Q_DISABLE_COPY(ChannelExpressions)

    /*! Replaces the expressions. \a channels are the names of the channels that they are computed from, in their order; of equal
        names the first counts. Returns false, with a \a fault, if a computed channel has no name or one that is taken, or if
        an expression makes no sense; then there are no expressions. */
    bool compile(const QStringList &channels,
                 const QVector<ComputedChannel> &computed,
                 ExpressionFault *fault);
    //! Returns how many channels are computed.
    int count() const;
    //! Returns which channels, counted from 0, are used.
    QVector<int> inputs() const;
    /*! Computes \a rows rows. Row r of channel c is inputs[c][r]; only those of inputs() are read, the others may be null. Row r of
        computed channel k is written to outputs[k][r]. */
    void evaluate(const double *const *inputs, int rows, double *const *outputs);

private:
    const std::unique_ptr<ChannelExpressionsPrivate> d;
};

} // namespace Corvale_Qt
