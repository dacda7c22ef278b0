// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/ChannelRings_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/units/UnitTraits_p.h"

#include <QVarLengthArray>

#include <atomic>
#include <optional>

class QIODevice;

namespace Corvale_Qt {

//! Converts the stored numbers of a channel to those that doubleData() returns.
class ShownNumbers
{
public:
    //! \a given is the unit of the stored numbers, null for the base unit. With \a shown null they are shown as stored.
    ShownNumbers(const Units::MeasurementUnit *given, const Units::MeasurementUnit *shown)
        : m_given(given)
        , m_shown(shown)
    {
        using Units::UnitTraits;
        if (!shown || given == shown)
            m_factor = 1.0;
        else if (given && UnitTraits::isPlain(*given) && UnitTraits::isPlain(*shown))
            m_factor = ratio();
    }

    double operator()(double stored) const
    {
        if (m_factor)
            return *m_factor * stored;
        return m_shown->scale(m_given ? m_given->unscale(stored) : stored);
    }

    //! Returns the number whose product with a stored number is, to the last bit, the shown number; nothing if there is none.
    std::optional<double> factor() const
    {
        const bool isScaled = !m_factor && !m_given && Units::UnitTraits::isPlain(*m_shown);
        // scale(1.0) is the product that scale() forms first, to the last bit.
        return isScaled ? m_shown->scale(1.0) : m_factor;
    }

private:
    //! Units of the same size have the ratio 1: numbers that need no conversion are shown to the last bit as they came.
    double ratio() const
    {
        return m_given->scale(1.0) == m_shown->scale(1.0) ? 1.0
                                                          : m_shown->scale(m_given->unscale(1.0));
    }

    const Units::MeasurementUnit *m_given;
    const Units::MeasurementUnit *m_shown;
    std::optional<double> m_factor;
};

class RVXMultichannelDeviceModelPrivate;

class RVXMultichannelDeviceModel::TakenReadings
{
public:
    explicit TakenReadings(ChannelRings taken)
        : rings(std::move(taken))
    {
    }

    ChannelRings rings;
};

//! The history of the model's rings, in the units that the model shows. Without one it is empty.
class ShownHistory : public RVXPlotHistory
{
public:
    explicit ShownHistory(const RVXMultichannelDeviceModelPrivate &model)
        : m_model(model)
    {
    }

    int levels() const override;
    qint64 firstBlock(int level) const override;
    qint64 endBlock(int level) const override;
    Interval interval(int level, qint64 block) const override;
    bool read(int level, int column, qint64 first, int count, Block *out) const override;

private:
    const HistoryPyramid *pyramid() const;

    const RVXMultichannelDeviceModelPrivate &m_model;
};

//! Keeps the rows and channels of the model, announces rows, and reads columns in bulk.
class RVXMultichannelDeviceModelPrivate : public LibraryBulkData
{
public:
    //! Consecutive rows of a block.
    struct Stretch
    {
        int first;
        int count;
    };
    //! The rows of a block that are to be stored; nearly always one stretch.
    using Stretches = QVarLengthArray<Stretch, 8>;
    //! The memory of a block: a time for each row, and the values of all channels, row after row.
    struct Block
    {
        const double *times;
        const double *values;
    };

    RVXMultichannelDeviceModelPrivate(RVXMultichannelDeviceModel *model, int channelCount);

    const std::type_info &vouchedType() const override
    {
        return typeid(RVXMultichannelDeviceModel);
    }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override { return rings.times().rises(); }
    quint64 xVersion() const override { return rings.times().version(); }
    bool appendText(QByteArray &text, int row, int column) const override;

    bool isChannel(int column) const { return column >= 1 && column <= rings.channels(); }
    bool has(int row) const { return row >= 1 && row <= rings.rows(); }
    //! Returns the unit of display of a channel; null if it has none.
    const Units::MeasurementUnit *unitOf(int column) const;
    ShownNumbers shown(int column) const;

    //! Returns which rows of a block the rules of appendRow() take; clears the model where a time of 0 says so.
    Stretches select(const double *times, int rows);
    //! Stores and announces rows of a block, the last of which has \a fits, if there are any.
    void store(const Block &block, const Stretches &stretches, const QVariantList &fits);
    void dropOldest(int rows);
    //! Removes all rows, without an announcement.
    void removeRows(int channelCount);
    bool isOwnThread() const;
    //! Makes the model's thread append a copy of a block: all rows, or by the rules of appendRow(). Says so the first time.
    void handOver(const Block &block, int rows, const QVariantList &fits, bool all);
    QVariantList fitsOf(int row) const;

    QString title(int column) const;
    QVariant text(int row, int column) const;
    QVariant toolTip(int row, int column) const;
    /*! Writes all rows as CSV. Returns false if \a file does not accept everything, or if the save was canceled. While
        its progress is watched, the object may be deleted before this returns. */
    bool write(QIODevice &file) const;

    RVXMultichannelDeviceModel *const q;
    QVector<RVXMultichannelDeviceModel::Channel> channels;
    ChannelRings rings;
    int visibleRows = 0;
    QVariantList deviceFits;
    qint64 fittedRow = 0; // the row of the fits, counted as ChannelRings::taken() counts
    int plotWidthHintPoints = 0;
    double plotWidthHint = 0.0;
    double historySpan = 0.0;
    qint64 historyMemory = RVXMultichannelDeviceModel::usualHistoryMemory;
    const ShownHistory history{*this};

private:
    void keepSurplus(const Block &block, const Stretches &stretches, int surplus);
    QByteArray titles() const;

    std::atomic<bool> toldOfOtherThread{false};
};

} // namespace Corvale_Qt
