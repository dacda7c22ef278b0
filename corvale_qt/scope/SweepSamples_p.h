// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <QPointF>
#include <QString>
#include <QVector>

template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

class ScopeModel;

/*! A copy of the sweep on the canvas, taken when the sweep is drawn first, because a full buffer drops its samples while
    they are still shown. Only channels that are shown are copied. Row 1 is the first sample of the sweep. */
class SweepSamples : public LibraryBulkData
{
public:
    void clear();
    //! Replaces the copy by \a rows of a model.
    void take(const ScopeModel &model, RowRange rows);

    //! Makes the x of a row 0 and counts the x of the others from there.
    void setOrigin(int row);
    //! Returns the x in the model that counts as 0 here.
    double origin() const { return m_origin; }

    int size() const { return m_columns.value(0).size(); }
    //! Returns whether the values of the model still have the unit that they had when they were copied.
    bool hasUnitOf(const ScopeModel &model) const;
    //! Returns a series of one channel, which the caller owns; null for a channel that was not copied.
    QwtSeriesData<QPointF> *series(int channel) const;

    const std::type_info &vouchedType() const override { return typeid(SweepSamples); }
    //! Gives NaN for cells that were not copied.
    void read(int column, int firstRow, int count, double *out) const override;
    bool xRises() const override { return m_xRises; }
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    quint64 xVersion() const override { return m_xVersion; }

private:
    void takeChannel(const ScopeModel &model, RowRange rows, int channel);
    bool has(int column, int firstRow, int count) const;

    QVector<QVector<double>> m_columns; //!< as doubleData() gives them; empty for a hidden channel
    QVector<QVector<QPointF>>
        m_points; //!< of channels whose series is of a class that the host defines
    double m_origin = 0.0;
    bool m_xRises = false;
    quint64 m_xVersion = 0;
    QString m_unitName;
    double m_unitScale = 1.0;
};

} // namespace Corvale_Qt
