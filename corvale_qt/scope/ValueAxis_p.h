// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/units/SiPrefix.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

class QwtPlot;

namespace Corvale_Qt {

class SteadyScaleEngine;

/*! An axis of values. Its ticks and its title may have the prefix that suits its scale; the prefix is chosen once for each
    change of the scale, whatever its cause. Samples and scale keep the unit of the model. */
class ValueAxis : public QObject
{
public:
    //! Sets up \a axis of \a plot, a QwtPlot::Axis.
    ValueAxis(QwtPlot *plot, int axis);

    //! Sets whether the unit gets a prefix; false at first.
    void setSiPrefix(bool on);
    bool hasSiPrefix() const { return m_isOn; }
    //! Sets the unit to show, whatever the scale; empty for the prefix that suits the scale. It waits for a model that has it.
    void setFixedUnit(const QString &symbol);
    const QString &fixedUnit() const { return m_fixedUnit; }
    //! Sets the symbol of the unit of the samples. Returns whether it is another one than before.
    bool setGivenUnit(const QString &symbol);
    const QString &givenUnit() const { return m_givenUnit; }
    //! Calls \a listener when the unit that the axis shows has changed.
    void setListener(std::function<void()> listener);

    //! Returns the symbol of the unit that the ticks are in.
    QString unit() const;
    //! Returns what converts between samples and ticks. Without a prefix, both are in the unit of the samples.
    const Units::SiPrefix &prefix() const { return m_prefix; }
    //! Returns a value in the unit of the samples as text in the unit of the ticks, without the unit.
    QString shownText(double value) const;
    /*! Returns the value that a person typed, in the unit of the samples: in that of the ticks, without a prefix in \a plainUnit, or
        with a unit. NaN if the text is not such a value. */
    double typedValue(const QString &text, const QString &plainUnit) const;

    //! Sets whether an axis that follows the data has hysteresis.
    void setSteady(bool on);
    //! Shows parts of the data's full scale, see SteadyScaleEngine::setFractions(). With 0 for both it follows no full scale.
    void showFractions(double lower, double upper);
    //! Sets whether the axis is logarithmic, and then without hysteresis and full scale.
    void setLogarithmic(bool on);
    bool isLogarithmic() const { return m_isLogarithmic; }
    //! Follows the next data as if they were the first.
    void restart();
    //! Shows this range in the given unit if the axis follows the data, as there are none. The next data count as the first.
    void showEmpty(double lower, double upper);

private:
    void chooseAnew();
    void followScale();
    void show();
    bool hasPrefix() const { return m_isOn && m_prefix.isScalable(); }
    SteadyScaleEngine *engine() const;

    QwtPlot *m_plot;
    const int m_axis;
    Units::SiPrefix m_prefix;
    QString m_givenUnit;
    QString m_fixedUnit;
    QString m_shownUnit;
    bool m_isOn = false;
    bool m_isSteady = false;
    bool m_isLogarithmic = false;
    double m_lowerFraction = 0.0;
    double m_upperFraction = 0.0;
    std::optional<std::pair<double, double>> m_emptyRange; //!< shown since no data were there
    std::function<void()> m_listener;
};

} // namespace Corvale_Qt
