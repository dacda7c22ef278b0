// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the samples of the sweep that stands on the canvas.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <QPointF>
#include <QString>
#include <QVector>

namespace Corvale_Qt {

class ScopeModel;

/*! A copy of one sweep, taken when it is drawn first: a full buffer drops its samples while they still stand on the
    canvas. Only channels that are shown are copied. Row 1 is the first sample of the sweep. */
class SweepSamples : public PlotColumns
{
public:
    void clear();
    //! Copies \a rows of a model, in place of what was there.
    void take(const ScopeModel &model, RowRange rows);

    int size() const { return m_columns.value(0).size(); }
    //! Whether the model still shows its values in the unit that they had when they were copied.
    bool hasUnitOf(const ScopeModel &model) const;
    //! A series of one channel, which the caller owns; null for a channel that was not copied.
    QwtSeriesData<QPointF> *series(int channel) const;

    //! NaN for what was not copied.
    void read(int column, int firstRow, int count, double *out) const override;
    bool xRises() const override { return m_xRises; }
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const override;
    quint64 xVersion() const override { return m_xVersion; }

private:
    void takeChannel(const ScopeModel &model, RowRange rows, int channel);
    bool has(int column, int firstRow, int count) const;

    QVector<QVector<double>> m_columns; //!< as doubleData() gives them; empty for a hidden channel
    QVector<QVector<QPointF>>
        m_points; //!< of channels for which the model has a series of its own kind
    bool m_xRises = false;
    quint64 m_xVersion = 0;
    QString m_unitName;
    double m_unitScale = 1.0;
};

} // namespace Corvale_Qt
