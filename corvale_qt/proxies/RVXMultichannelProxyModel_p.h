// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/proxies/AbstractChannelModelFactory.h"
#include "corvale_qt/proxies/RowAnnouncer_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QObject>
#include <QPointer>

namespace Corvale_Qt {

/*! Passes unitsChanged() of source models on as unitsChanged() of a RVXMultichannelProxyModel: once for a model of the
    proxy, twice for a model that was removed, however often a model is inserted and removed. */
class UnitsRelay : public QObject
{
    Q_OBJECT

public:
    //! \a proxy has the signal unitsChanged().
    explicit UnitsRelay(QObject *proxy);

    //! Passes each signal of \a model on once.
    void relay(const QObject *model);
    //! Passes each signal of \a model on twice.
    void relayTwice(const QObject *model);

Q_SIGNALS:
    //! Leads to the proxy as well, for the second signal.
    void unitsChanged(const Corvale_Qt::Units::MeasurementUnit *unit);

private:
    QObject *const m_proxy;
};

//! Keeps the inputs and channels of the proxy, and reads their columns in bulk.
class RVXMultichannelProxyModelPrivate : public LibraryBulkData
{
public:
    explicit RVXMultichannelProxyModelPrivate(RVXMultichannelProxyModel *proxy);
    ~RVXMultichannelProxyModelPrivate() override;

    const std::type_info &vouchedType() const override { return typeid(RVXMultichannelProxyModel); }
    void read(int column, int firstRow, int count, double *out) const override;
    bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const override;
    bool xRises() const override;
    quint64 xVersion() const override;
    qint64 droppedRows(int column) const override;

    //! Returns the channel shown in \a column, or null.
    const Channel *channel(int column) const
    {
        return column >= 1 && column <= channels.size() ? &channels.at(column - 1) : nullptr;
    }
    //! Returns the input that reads \a model, or null.
    MergedInput *inputOf(const QAbstractItemModel *model) const;
    //! Returns the model of the first channel, or null.
    RVXAbstractPlotDataModel *firstPlot() const;

    static constexpr int mostChannels = maxChannels;
    //! Returns whether one more channel may be added; if not, says so on the debug stream.
    bool hasRoom() const;
    void
    insert(int position, QAbstractItemModel *items, RVXAbstractPlotDataModel *plot, int column);
    void remove(MergedInput *input);
    void inputDestroyed(MergedInput *input);
    //! Header sections \a first to \a last of \a input changed.
    void inputTitlesChanged(const MergedInput *input, int first, int last);
    //! Announces the titles of columns \a first to \a last as changed, in the header and in the header row.
    void titlesChanged(int first, int last);
    //! Returns the name that the header shows for a channel; empty if it shows what the model shows.
    QString shownName(const Channel &channel) const;

    /*! Returns the time of \a row in the first channel that has the row. If none has it, returns the newest time of the
        last channel with samples, or 0. */
    double time(int row) const;
    //! Returns the answer of a header cell to RVXAbstractPlotDataModel::ChannelUnitRole: the channel's unit or its model's.
    static QVariant unitOf(const Channel &channel);
    //! Returns the data of a cell whose channel has no reading.
    static QVariant withoutReading(int role);

    //! Returns the models that \a proxy reads.
    static QVector<const QAbstractItemModel *> models(const RVXMultichannelProxyModel &proxy);

    RVXMultichannelProxyModel *const q;
    // One input for each model; one channel for each column of the proxy except the first.
    MergedInputs inputs;
    QVector<Channel> channels;
    RowAnnouncer announcer;
    UnitsRelay unitsRelay;
    QPointer<AbstractChannelModelFactory> factory;
    bool showNames = false;

private:
    bool timesAreOfFirst() const;
    void readTimes(int firstRow, int count, double *out) const;
    void readChannel(const Channel &channel, int firstRow, int count, double *out) const;
    void channelsChanged();
};

} // namespace Corvale_Qt
