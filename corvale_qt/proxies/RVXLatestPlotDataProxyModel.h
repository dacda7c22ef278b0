// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractProxyModel>

#include <memory>

namespace Corvale_Qt {

class RVXLatestPlotDataProxyModelPrivate;

/*! Shows a plot model as a table of current readings, one row for each channel:

    | Channel | Data (unit) |
    |---|---|
    | the channel's header cell: name, lightened colour, check box | its newest sample, "N/A" without samples |

    The title shows the unit of the channels and follows its changes through any stack of proxies. If channels have
    different units (RVXAbstractPlotDataModel::ChannelUnitRole), each reading shows its unit instead. Names are
    black or white, whichever is readable, unless the source gives both colours.

    Channel cells can be checked and dragged. A drag carries a list of their texts, from which
    RVXMultichannelProxyModel creates channels. The source need not be a plot model; it is not owned. Without a
    source, and after its deletion, the table is empty. */
class CORVALE_QT_EXPORT RVXLatestPlotDataProxyModel : public QAbstractProxyModel
{
    Q_OBJECT
    //! Whether each reading is shown with the prefix and the digits that suit it; false at first.
    Q_PROPERTY(bool siPrefix READ hasSiPrefix WRITE setSiPrefix NOTIFY siPrefixChanged)
    //! With siPrefix, the unit of readings whose quantity has it, such as "nA"; empty, as at first, for one that suits each reading.
    Q_PROPERTY(QString valueUnit READ valueUnit WRITE setValueUnit NOTIFY valueUnitChanged)

public:
    //! Creates a table without a source.
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
    //! Qt::CheckStateRole of section 0 is the check state of all channels, partially checked if they differ.
    QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    //! Returns whether each reading is shown with the prefix and the digits that suit it.
    bool hasSiPrefix() const;
    /*! Sets whether each reading is shown with its unit, the prefix that suits it, and as many digits as its noise allows, see
        Units::SiPrefix. Other roles than Qt::DisplayRole stay as they are. */
    void setSiPrefix(bool on);
    //! Returns the unit that was set for readings; empty if it suits each of them.
    QString valueUnit() const;
    //! Sets the unit of readings whose quantity has it, see RVXScopePlotView::valueUnit; empty for one that suits each reading.
    void setValueUnit(const QString &symbol);

    // These answer for the source while it lives; a table that has not heard yet that its source is deleted is empty.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool setHeaderData(int section,
                       Qt::Orientation orientation,
                       const QVariant &value,
                       int role = Qt::EditRole) override;
    QSize span(const QModelIndex &index) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    bool submit() override;
    void revert() override;
    bool canDropMimeData(const QMimeData *data,
                         Qt::DropAction action,
                         int row,
                         int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data,
                      Qt::DropAction action,
                      int row,
                      int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;
    QModelIndex buddy(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    //! Sets the source in one reset: any model, or null. A model that stands on this proxy is refused, without a change.
    void setSourceModel(QAbstractItemModel *model) override;
    //! \a proxyIndex must be in column 0 or 1; any other column is a fatal error.
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QItemSelection mapSelectionToSource(const QItemSelection &selection) const override;
    QItemSelection mapSelectionFromSource(const QItemSelection &selection) const override;

Q_SIGNALS:
    //! Readings are shown with a prefix, or as the source has them again.
    void siPrefixChanged(bool on);
    //! Readings are shown in another unit.
    void valueUnitChanged(const QString &symbol);

public Q_SLOTS:
    //! Holds back changes in the row of \a index, which is being edited, until editingFinished().
    void edit(const QModelIndex &index);
    //! Ends what edit() began and announces the changes that were held back.
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
