// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

class RVXLatestPlotDataProxyModelPrivate;

/*! A plot model as a table of current readings, one row for each channel:

    | Channel | Data (unit) |
    |---|---|
    | the channel's header cell: name, lightened colour, check box | its newest sample, "N/A" while there is none |

    The unit in the title is that of all channels, and follows it through any stack of proxies. Where channels have
    different units (RVXAbstractPlotDataModel::ChannelUnitRole), each reading carries its own. Names are black or
    white, whichever is readable, where the source has no colours of its own for them.

    Channel cells can be checked, and dragged: what is dragged is a list of their texts, from which
    RVXMultichannelProxyModel makes channels. The source need not be a plot model; it is not owned. Without one,
    and after it was deleted, the table is empty. */
class CORVALE_QT_EXPORT RVXLatestPlotDataProxyModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    explicit RVXLatestPlotDataProxyModel(QObject *parent = nullptr);
    ~RVXLatestPlotDataProxyModel() override;

    QModelIndex
    index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    //! Qt::CheckStateRole of section 0 is that of all channels together.
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QModelIndex buddy(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    //! Takes any model, or null for none, in one reset.
    void setSourceModel(QAbstractItemModel *model) override;
    //! Column 0 or 1 only; any other is a fatal error.
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

public Q_SLOTS:
    //! The row of \a index is being edited: changes there are announced when editingFinished() is called.
    void edit(const QModelIndex &index);
    void editingFinished();

private:
    Q_DECLARE_PRIVATE(RVXLatestPlotDataProxyModel)
    const std::unique_ptr<RVXLatestPlotDataProxyModelPrivate> d_ptr;

    // Slots keep this order.
    // clang-format off
    Q_PRIVATE_SLOT(d_func(), void _q_sourceRowsInserted(const QModelIndex &, int, int))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceDataChanged(const QModelIndex &, const QModelIndex &))
    Q_PRIVATE_SLOT(d_func(), void _q_sourceModelAboutToBeReset())
    Q_PRIVATE_SLOT(d_func(), void _q_sourceModelReset())
    // clang-format on
private Q_SLOTS:
    void UpdateHeaders();
};

} // namespace Corvale_Qt
