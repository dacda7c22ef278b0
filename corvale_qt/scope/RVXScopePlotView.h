// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractItemView>
#include <QSharedPointer>
#include <QVector>

#include <memory>
#include <utility>
#include <vector>

class QLabel;
class QPointF;
class QwtPlot;
class QwtPlotGrid;
class QwtPlotHistogram;
class QwtPlotMarker;

namespace Corvale_Qt {

class RVXPositionPlot;
class RVXScopePlotViewPrivate;
class RVXSpectrogram;
class RVXSplitPlot;
class RVX_StatisticsHistogramItem;

/*! Draws the channels of a plot model: as a scrolling strip chart, as sweeps like an oscilloscope, or as a histogram
    of the newest sample with one bar a channel and beam statistics on it. Three further modes show a companion
    widget instead of the plot; the host feeds those itself.

    Any model that derives from QAbstractItemModel and RVXAbstractPlotDataModel will do; the first 256 channels are
    drawn. The model is not owned. A channel is shown while its check state in row 0 is not 0, in the colour of its
    background brush there. Rows may come at any rate: the plot is made once for each repaint.

    While enablePlotMarker() is on, a left click places the first marker and a right click the second; their labels
    read the sample they stand on and, between them, period, sum, mean, RMS and standard deviation of the samples
    that are there, and how many are missing. Left and Right move the marker placed last by one sample, with Shift by
    ten; Delete takes it away. A marker goes when its sample leaves the model. The sample of the first marker is
    selected while the user moves it; a selection that is made elsewhere is followed and left as it is.

    \code
    RVXScopePlotView view;
    view.setModel(&model);
    view.SetRange(-1e-8, 1e-8);
    view.SetYScaleMode(RVXScopePlotView::FullRange);
    \endcode */
class CORVALE_QT_EXPORT RVXScopePlotView : public QAbstractItemView
{
    Q_OBJECT

public:
    //! What is shown. Until a model is set it is StripMode.
    enum PlotMode {
        StripMode = 0,
        ScopeMode = 1,
        HistogramMode = 2,
        SpectrogramMode = 3,
        PositionMode = 4,
        SplitMode = 5,
    };
    Q_ENUM(PlotMode)

    //! Scale of the y axis; the percentages are of the range given to SetRange().
    enum PlotScales {
        AutoScale = 0,
        //! Each curve is divided by its own largest magnitude.
        Normalized = 1,
        FullRange = 2,
        Percent50 = 3,
        Percent20 = 4,
        Percent10 = 5,
        Percent5 = 6,
        Percent2 = 7,
        Percent1 = 8,
        Percent0_5 = 9,
        Percent0_2 = 10,
        Percent0_1 = 11,
        Percent0_05 = 12,
        Percent0_02 = 13,
        Percent0_01 = 14,
    };
    Q_ENUM(PlotScales)

    //! Statistics that can be shown on the histogram.
    enum HistogramItemTypes {
        GaussabolaItem = 0,
        CenterOfGravityItem = 1,
        RegressionItem = 2,
        PrecalculatedFitItem = 3,
    };
    Q_ENUM(HistogramItemTypes)

    explicit RVXScopePlotView(QWidget *parent = nullptr);
    ~RVXScopePlotView() override;

    void SetPlotMode(PlotMode mode);
    /*! The full-scale range, [-1, 1] at the start, in the model's unit. False where nothing changed: both are as
        before, or one is not finite. The y axis follows with the next SetYScaleMode(). */
    bool SetRange(double min, double max);
    //! What SetRange() has set, minimum and maximum.
    std::pair<double, double> range() const;
    PlotScales yScaleMode();
    //! A label that is told the number of buffered samples, "<n> Samples". Not owned; null for none.
    void SetBufferSizeLabel(QLabel *label);
    //! Whether clicks place markers; off at the start. Switching it off takes both markers away.
    void enablePlotMarker(bool enable);

    /*! Replaces the statistics of one type by \a count new ones, each on its share of the channels: item g begins at
        channel g * floor(channels / count) + 1, the last one takes what is left. A count of 0 or less removes
        them. \a parameters are those of the type's class; \a fullStatistics adds what it has beyond position and
        width. */
    void enableHistogramItem(HistogramItemTypes type,
                             int count,
                             const QVector<double> &parameters,
                             bool fullStatistics);
    //! The items of a type, first channels first. They are the view's, and gone after enableHistogramItem().
    QVector<RVX_StatisticsHistogramItem *> histogramItems(HistogramItemTypes type) const;
    //! Whether the items show the energy that the calibration table gives for their position.
    void toggleMLFC(bool enable);
    /*! Energy in MeV of each channel, channel 1 first. It is copied; null takes it away. Centre-of-gravity items have
        no use for it. */
    void upload_MLFC_calibration_table(std::vector<double> *table);

    //! Passed on to the spectrogram: the layout of a pixel matrix.
    void setPixelated(bool pixelated);
    RVXPositionPlot *positionPlot();
    RVXSpectrogram *spectrogram();
    RVXSplitPlot *splitPlot();

    //! Always invalid: samples have no place of their own on the screen.
    QModelIndex indexAt(const QPoint &point) const override;
    QRect visualRect(const QModelIndex &index) const override;
    /*! In strip mode, scrolls towards the sample. Every hint ends at the value for the centre, in units of x: kept for
        the hosts that are used to it. */
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    //! A model that is no plot model, or null, gives an empty plot.
    void setModel(QAbstractItemModel *model) override;
    void reset() override;
    //! Does nothing: samples have no text to search for.
    void keyboardSearch(const QString &search) override;
    //! Room for the plot below the labels of the statistics.
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    //! Ignored above 5, and while there is no model.
    void SetPlotMode(int plotMode);
    //! Passed on to the companion widgets; any value but those of PlotScales scales automatically.
    void SetYScaleMode(int scaleMode);
    //! Shows a tenth of the negative range instead of all of it.
    void SetPositiveOnly(bool positiveOnly);

protected Q_SLOTS:
    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void doItemsLayout() override;
    //! Makes the plot if one is asked for. Called when the canvas is painted.
    void Plot();
    //! Asks for a plot at the next repaint.
    void RequestReplot();
    //! The same; in scope mode the last sweep is drawn again if there is no new one.
    void RequestReplotRefresh();
    void SelectPoint1(QPointF pos);
    void SelectPoint2(QPointF pos);
    void scrollTo(int value);

protected:
    QwtPlot *qwtPlot();
    QwtPlotGrid *grid();
    QwtPlotHistogram *histogram();
    //! Marker 0 or 1; null for any other index.
    QSharedPointer<QwtPlotMarker> plotMarker(int index);

    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    using QAbstractItemView::edit;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags flags) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct MarkerData;
    //! Units of the horizontal scroll bar for each unit of x.
    static const double SCROLLBAR_FACTOR;

    void PlotStripMode();
    void PlotScopeMode();
    void PlotHistogramMode();

    friend class ScopeCurves;
    friend class ScopeMarkers;
    Q_DECLARE_PRIVATE(RVXScopePlotView)
    const std::unique_ptr<RVXScopePlotViewPrivate> d_ptr;
};

} // namespace Corvale_Qt
