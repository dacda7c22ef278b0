// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/numerics/SweepTrigger.h"
#include "corvale_qt/scope/ValueRange.h"

#include <QAbstractItemView>
#include <QDateTime>
#include <QSharedPointer>
#include <QVector>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QLabel;
class QwtPlot;
class QwtPlotGrid;
class QwtPlotHistogram;
class QwtPlotMarker;

namespace Corvale_Qt {

class DetectorLayout;
class RVXPositionPlot;
class RVXScopePlotViewPrivate;
class RVXSpectrogram;
class RVXSplitPlot;
class RVX_StatisticsHistogramItem;
struct ScopeMarkerStatistics;

/*! Draws the channels of a plot model: as a scrolling strip chart, as sweeps like an oscilloscope, or as a histogram
    of the newest sample with one bar for each channel and beam statistics on it. Three further modes show a
    companion widget instead of the plot; the host gives those widgets their data.

    The model must derive from QAbstractItemModel and RVXAbstractPlotDataModel; its first 256 channels are drawn. The
    model is not owned. A channel is shown while its check state in row 0 is not 0, in the colour of its background
    brush there. Rows may come at any rate: the view plots once for each repaint.

    While enablePlotMarker() is on, a left click places the first marker and a right click the second. Each label shows
    the sample that its marker stands on. The label of the second also shows the period between both and the sum,
    mean, RMS and standard deviation of the readings between them, and how many readings are missing. Left and Right
    move the marker placed last by one sample, with Shift by ten; Delete removes it. A marker disappears when its
    sample leaves the model, unless the model has a history (RVXPlotHistory), whose blocks it reads then. The sample of the
    first marker is selected while the user moves it; a selection by another view moves the marker and stays as it is.

    The statistics and what the markers read belong to the newest samples at any time, also while the view is hidden,
    shows another mode or was never shown: they are computed when they are asked for. statisticsChanged() and
    markerStatisticsChanged() say when to ask again; while nothing is connected to them and nobody asks, nothing is
    computed that the view does not show.

    \code
    RVXScopePlotView view;
    view.setModel(&model);
    view.SetRange(-1e-8, 1e-8);
    view.SetYScaleMode(RVXScopePlotView::FullRange);
    \endcode */
class CORVALE_QT_EXPORT RVXScopePlotView : public QAbstractItemView
{
    Q_OBJECT
    //! What the view shows; StripMode at first. It may be set before there is a model.
    Q_PROPERTY(PlotMode plotMode READ plotMode WRITE setPlotMode NOTIFY plotModeChanged)
    //! Scale of the y axis; AutoScale at first.
    Q_PROPERTY(PlotScales yScaleMode READ yScaleMode WRITE setYScaleMode NOTIFY yScaleModeChanged)
    //! Lower end of the full-scale range in the unit of the model; -1 at first.
    Q_PROPERTY(double yMinimum READ yMinimum WRITE setYMinimum NOTIFY rangeChanged)
    //! Upper end of the full-scale range in the unit of the model; 1 at first.
    Q_PROPERTY(double yMaximum READ yMaximum WRITE setYMaximum NOTIFY rangeChanged)
    //! Whether the y axis shows only a tenth of the negative range; false at first.
    Q_PROPERTY(
        bool positiveOnly READ isPositiveOnly WRITE SetPositiveOnly NOTIFY positiveOnlyChanged)
    //! Whether clicks place markers; false at first.
    Q_PROPERTY(bool markersEnabled READ areMarkersEnabled WRITE enablePlotMarker NOTIFY
                   markersEnabledChanged)
    //! Width of the strip chart in the unit of x; 0, as at first, for the width that the model asks for, infinity for all samples.
    Q_PROPERTY(double timeSpan READ timeSpan WRITE setTimeSpan NOTIFY timeSpanChanged)
    //! Number of samples in a sweep and across the strip chart; 0, as at first, for the number that the model asks for.
    Q_PROPERTY(int sampleSpan READ sampleSpan WRITE setSampleSpan NOTIFY sampleSpanChanged)
    //! Whether the strip chart begins at its first sample and grows, instead of showing time before it; false at first.
    Q_PROPERTY(
        bool beginAtFirst READ beginsAtFirst WRITE setBeginAtFirst NOTIFY beginAtFirstChanged)
    //! Whether the strip chart moves by whole pixels while it follows the samples, which costs less; false at first.
    Q_PROPERTY(
        bool movesByPixels READ movesByPixels WRITE setMovesByPixels NOTIFY movesByPixelsChanged)

    // How values are shown.
    //! Whether axis and labels show values with the prefix that suits them, such as nA; false at first.
    Q_PROPERTY(bool siPrefix READ hasSiPrefix WRITE setSiPrefix NOTIFY siPrefixChanged)
    //! With siPrefix, the unit of y axis, legend and labels whatever the values, such as "nA"; empty, as at first, for one that suits each.
    Q_PROPERTY(QString valueUnit READ valueUnit WRITE setValueUnit NOTIFY valueUnitChanged)
    //! The unit that the y axis shows; empty without a unit.
    Q_PROPERTY(QString shownUnit READ shownUnit NOTIFY shownUnitChanged STORED false)
    //! Whether channels of another unit have a y axis of their own, on the right; false at first.
    Q_PROPERTY(bool secondAxis READ hasSecondAxis WRITE setSecondAxis NOTIFY secondAxisChanged)
    //! Whether a y axis that follows the data grows at once but shrinks only after a while; false at first.
    Q_PROPERTY(bool hysteresis READ hasHysteresis WRITE setHysteresis NOTIFY hysteresisChanged)
    //! Whether percentages are of the data's own full scale until a range is set; false at first.
    Q_PROPERTY(bool fullScaleFromData READ isFullScaleFromData WRITE setFullScaleFromData NOTIFY
                   fullScaleFromDataChanged)
    //! Whether the y axis is logarithmic; false at first.
    Q_PROPERTY(bool logarithmic READ isLogarithmic WRITE setLogarithmic NOTIFY logarithmicChanged)
    //! Whether a legend is shown below the plot; false at first.
    Q_PROPERTY(
        bool legendVisible READ isLegendVisible WRITE setLegendVisible NOTIFY legendVisibleChanged)
    //! The channel whose curve is drawn above the others, as its legend does while the mouse is over it; 0, as at first, for none.
    Q_PROPERTY(int raisedChannel READ raisedChannel WRITE setRaisedChannel NOTIFY
                   raisedChannelChanged STORED false)
    //! Whether the bars of the histogram are labelled with the names of their channels; false at first.
    Q_PROPERTY(bool barNames READ hasBarNames WRITE setBarNames NOTIFY barNamesChanged)
    //! Whether the canvas is white, as for paper, instead of black; false at first.
    Q_PROPERTY(bool lightCanvas READ hasLightCanvas WRITE setLightCanvas NOTIFY lightCanvasChanged)

    // Gaps, limits and the trigger.
    //! How many usual intervals without a reading are an outage, across which no line is drawn; 0, as at first, for none.
    Q_PROPERTY(
        double gapIntervals READ gapIntervals WRITE setGapIntervals NOTIFY gapIntervalsChanged)
    //! At which readings the sweeps of ScopeMode begin; off at first, so that they follow one another.
    Q_PROPERTY(Corvale_Qt::SweepTrigger trigger READ trigger WRITE setTrigger NOTIFY triggerChanged)

    // Navigation.
    //! Whether a user may zoom and pan with mouse, wheel, touch pad and keys; false at first.
    Q_PROPERTY(bool interactive READ isInteractive WRITE setInteractive NOTIFY interactiveChanged)
    //! Whether the picture stands still although rows come, because its x axis was zoomed or panned.
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged STORED false)
    //! What the x axis says while x is a time; Seconds at first.
    Q_PROPERTY(TimeAxis timeAxis READ timeAxis WRITE setTimeAxis NOTIFY timeAxisChanged)
    //! The moment at which x is 0, for LocalTime and Utc; invalid, as at first, for 1970-01-01 00:00 UTC.
    Q_PROPERTY(QDateTime timeOrigin READ timeOrigin WRITE setTimeOrigin NOTIFY timeOriginChanged)
    //! Up to which x the strip chart reaches while it follows the samples; see setTimeEnd(). NaN at first.
    Q_PROPERTY(double timeEnd READ timeEnd WRITE setTimeEnd NOTIFY timeEndChanged)
    //! Whether a line follows the pointer and shows what is drawn there; false at first.
    Q_PROPERTY(
        bool cursorEnabled READ isCursorEnabled WRITE setCursorEnabled NOTIFY cursorEnabledChanged)
    //! Whether the label of the second marker also shows difference, extremes, integral and slope; false at first.
    Q_PROPERTY(
        bool markerDetails READ hasMarkerDetails WRITE setMarkerDetails NOTIFY markerDetailsChanged)

public:
    //! What the view shows. The mode is StripMode until a model is set.
    enum PlotMode : int {
        StripMode = 0,
        ScopeMode = 1,
        HistogramMode = 2,
        SpectrogramMode = 3,
        PositionMode = 4,
        SplitMode = 5,
    };
    Q_ENUM(PlotMode)

    //! Scale of the y axis; the percentages are of the range given to SetRange().
    enum PlotScales : int {
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
    enum HistogramItemTypes : int {
        GaussabolaItem = 0,
        CenterOfGravityItem = 1,
        RegressionItem = 2,
        PrecalculatedFitItem = 3,
    };
    Q_ENUM(HistogramItemTypes)

    //! What the x axis of strip chart and sweeps says, if x of the model is a time; otherwise it has the numbers of the model.
    enum TimeAxis : int {
        //! The numbers of the model.
        Seconds = 0,
        //! The time before the newest reading, as a negative number.
        RelativeToNow = 1,
        //! Time of day and date in the time zone of the computer.
        LocalTime = 2,
        Utc = 3,
    };
    Q_ENUM(TimeAxis)

    //! Creates an empty view in strip mode.
    explicit RVXScopePlotView(QWidget *parent = nullptr);
    ~RVXScopePlotView() override;

    //! Switches to another mode. Does nothing while there is no model.
    void SetPlotMode(PlotMode mode);
    //! Switches to another mode, also while there is no model. Emits plotModeChanged() if it is another one.
    void setPlotMode(PlotMode mode);
    PlotMode plotMode() const; //!< Returns the mode that was set last.
    /*! Sets the full-scale range, initially [-1, 1], in the unit of the model. Returns false and changes nothing if both
        limits are as before or one is not finite. The next SetYScaleMode() applies the range to the y axis. */
    bool SetRange(double min, double max);
    std::pair<double, double> range() const; //!< Returns both ends of the full-scale range.
    double yMinimum() const; //!< Returns the minimum of the full-scale range.
    double yMaximum() const; //!< Returns the maximum of the full-scale range.
    //! Sets the minimum of the full-scale range and applies it to the y axis. Ignores a number that is not finite.
    void setYMinimum(double minimum);
    //! Sets the maximum of the full-scale range and applies it to the y axis. Ignores a number that is not finite.
    void setYMaximum(double maximum);
    PlotScales yScaleMode(); //!< Returns the scale mode that was set last; AutoScale at the start.
    //! Scales the y axis, and the companion widgets. Emits yScaleModeChanged() if the mode is another one.
    void setYScaleMode(PlotScales mode);
    //! Returns whether the y axis shows only a tenth of the negative range.
    bool isPositiveOnly() const;

    //! Returns the width of the strip chart in the unit of x; 0 if the model decides, infinity for all samples.
    double timeSpan() const;
    /*! Sets the width of the strip chart in the unit of x. It takes precedence over sampleSpan() and over what the model
        asks for; 0 leaves the decision to these, and infinity shows all samples of the model. Ignores a negative number
        and NaN. */
    void setTimeSpan(double span);
    //! Returns the number of samples in a sweep and across the strip chart; 0 if the model decides.
    int sampleSpan() const;
    /*! Sets the number of samples in a sweep and, unless timeSpan() is set, across the strip chart. It takes precedence over
        what the model asks for, both as a number and as a width; 0 leaves the decision to the model. 1 counts as 2,
        because one sample has no width. Ignores a negative number. */
    void setSampleSpan(int samples);
    /*! Returns the number of samples in a sweep: sampleSpan(), what the model asks for, or else what the view chose from the number of
        samples that came at once. ScopeMode draws nothing before the first sweep is complete. */
    int sweepLength() const;
    //! Returns whether the strip chart shows no time before its first sample.
    bool beginsAtFirst() const;
    /*! Sets whether the strip chart shows no time before its first sample. While there are fewer samples than the chart has
        room for, it then shows all of them, and its width grows with them to the one that is set. */
    void setBeginAtFirst(bool begin);
    bool movesByPixels() const; //!< Returns whether the strip chart moves by whole pixels.
    /*! Sets whether the strip chart moves by whole pixels while it follows the samples and shows a time span. It then ends at the newest
        sample or less than a pixel later, and a frame only draws what has come since the one before, for models with a bulk
        interface of the library. At 25 frames a second, steps are seen where less than a second is shown. */
    void setMovesByPixels(bool on);
    /*! Returns the times at the left and the right border of the strip chart, or of the sweep; NaN in other modes. They are those
        of the model, also of a sweep that counts from its trigger. */
    std::pair<double, double> shownTimes() const;

    //! Returns whether axis and labels show values with the prefix that suits them.
    bool hasSiPrefix() const;
    /*! Sets whether axes and labels show values with the prefix that suits them and the digits that their noise allows, see
        Units::SiPrefix. The samples, the range and all that functions return stay in the unit of the model. */
    void setSiPrefix(bool on);
    //! Returns the unit that was set for the y axis; empty if it suits the scale.
    QString valueUnit() const;
    /*! Sets the unit of y axes, legend and labels while siPrefix is on, one of valueUnits(), or one for each quantity: "nA mV". Other
        text has no effect before the model has a unit of that quantity. Empty chooses the unit by the values again. */
    void setValueUnit(const QString &symbol);
    //! Returns the units that valueUnit may be for the model, the smallest first; empty if its unit takes no prefixes.
    QStringList valueUnits() const;
    //! Returns the unit of the right axis, which secondAxis gives to channels of a second unit; empty while there is none.
    QString rightUnit() const;
    //! Returns the units that the right axis may show, as valueUnits() does.
    QStringList rightUnits() const;
    //! Returns the range of the right axis in the unit of its channels: the one that was set, otherwise the one that is shown.
    ValueRange rightRange() const;
    //! Returns the range that was set for the right axis, also while that is hidden or in another unit; empty if none is.
    std::optional<ValueRange> givenRightRange() const;
    /*! Returns the range of the left axis in the unit of its channels: the range() that was set, otherwise what is shown, also while
        that range is in another unit. */
    std::pair<double, double> leftRange() const;
    //! Returns the unit of a range() that was set; empty if it is not known, as without a second axis.
    std::optional<QString> rangeUnit() const;
    //! Sets the unit that range() is in: the left axis shows the range only while its channels have that unit.
    void setRangeUnit(const QString &symbol);
    //! Sets the range that the right axis shows while its channels are in the unit of the range. Ignores numbers that are not finite.
    void setRightRange(const ValueRange &range);
    //! Lets the right axis follow its channels, or their full scale, again.
    void resetRightRange();
    //! Returns a value of a channel on the right axis as text in rightUnit(), without the unit.
    QString toRightValue(double value) const;
    //! Returns the value, in the unit of the channels on the right axis, that a person typed; see fromShownValue().
    double fromRightValue(const QString &text) const;
    //! Returns the unit that the y axis shows; empty without a unit, and in a normalised plot.
    QString shownUnit() const;
    //! Returns a value of the model as text in shownUnit(), without the unit.
    QString toShownValue(double value) const;
    //! Returns the value, in the unit of the model, that a person typed in shownUnit() or with a unit; NaN if there is none.
    double fromShownValue(const QString &text) const;
    //! The y axis that a channel is drawn on.
    enum ChannelAxis : int {
        NoAxis = 0, //!< the channel is not drawn
        LeftAxis = 1,
        RightAxis = 2,
    };
    Q_ENUM(ChannelAxis)
    //! Returns whether channels of another unit have a y axis of their own.
    bool hasSecondAxis() const;
    /*! Sets whether strip chart and sweeps have a second y axis. The left axis then has the unit of the first channel that is
        shown, and the right axis the next other unit. Channels in further units are not drawn, and a line on the canvas names
        them; so it is in a histogram, whose bars and statistics are those of the left axis. A range that is set belongs to
        the unit that the left axis has then; an axis in another unit follows its channels. Both have the same settings and are
        zoomed together, or alone with the wheel above one of them. A normalised scale has no unit, so it has one axis. */
    void setSecondAxis(bool on);
    //! Returns the y axis that a channel, counted from 1, was drawn on in the last plot.
    ChannelAxis channelAxis(int channel) const;
    bool hasHysteresis() const; //!< Returns whether a y axis that follows the data has hysteresis.
    /*! Sets whether a y axis that follows the data has hysteresis, so that it does not move with noise: it grows at once, and
        shrinks only after 50 plots whose data would take at most 70 % of it. */
    void setHysteresis(bool on);
    //! Returns whether percentages are of the data's own full scale until a range is set.
    bool isFullScaleFromData() const;
    /*! Sets whether the percentages of the y scale are of the data's own full scale, which is 1, 2 or 5 times a power of ten and
        not less than any magnitude shown. A range that is set takes precedence, until resetRange(). */
    void setFullScaleFromData(bool on);
    //! Sets the range back to [-1, 1], as if none had been set.
    void resetRange();
    bool isLogarithmic() const; //!< Returns whether the y axis is logarithmic.
    /*! Sets whether the y axis is logarithmic. A line on the canvas names the channels with values that are 0 or negative and so
        have no place there. A range that begins at 0 or below is shown from a ten-thousandth of its upper end on. */
    void setLogarithmic(bool on);
    bool isLegendVisible() const; //!< Returns whether a legend is shown below the plot.
    //! Shows or hides a ScopeLegend below the plot. It is hidden in modes that show a companion widget.
    void setLegendVisible(bool visible);
    //! Returns the channel whose curve is drawn above the others; 0 for none.
    int raisedChannel() const;
    //! Draws the curve of a channel above the others, and wider if it has few samples; 0 for none.
    void setRaisedChannel(int channel);
    //! Returns whether the bars of the histogram are labelled with the names of their channels.
    bool hasBarNames() const;
    //! Sets whether names of channels, where they have room, stand below the bars of the histogram instead of letters and numbers.
    void setBarNames(bool on);
    bool hasLightCanvas() const; //!< Returns whether the canvas is white.
    //! Sets whether the canvas is white. Curves and bars whose colour is too bright for it are then drawn in a darker one.
    void setLightCanvas(bool light);

    // Gaps, limits and the trigger.
    double gapIntervals() const; //!< Returns how many usual intervals are an outage; 0 for none.
    /*! Sets how many usual intervals without a reading are an outage; 3 suits most instruments, 0 looks for none. Strip chart
        and sweeps then draw no line across an outage and shade its time, and integrals between markers leave it out; the label
        of the second marker says how much time they cover. The usual interval is the median of some 32 intervals around a
        sample. Ignores a negative number and NaN. */
    void setGapIntervals(double intervals);
    //! Returns the limits of a channel, counted from 1; empty ones if it has none.
    ChannelLimits channelLimits(int channel) const;
    /*! Sets the limits of a channel, counted from 1, in the unit of the model; empty ones remove them. They are drawn as lines in
        strip chart and sweeps, except in a normalised scale, and across the channel's bar in the histogram: warnings dashed,
        alarms solid. Every row that the model inserts is judged, whatever the view shows. Ignores limits that are not valid,
        and a channel that no view can show. */
    void setChannelLimits(int channel, const ChannelLimits &limits);
    //! Returns how the newest reading of a channel lies among its limits, with hysteresis.
    LimitState limitState(int channel) const;
    SweepTrigger trigger() const; //!< Returns at which readings the sweeps of ScopeMode begin.
    /*! Sets at which readings the sweeps of ScopeMode begin, and arms the trigger. The time of a sweep is then 0 at its trigger,
        and the plot says what the trigger does: "Armed", "Triggered" or "Auto". The level is in the unit of the model. Ignores
        a trigger that is not valid. */
    void setTrigger(const SweepTrigger &trigger);
    TriggerState triggerState() const; //!< Returns what the trigger did at the last plot of sweeps.

    //! Sets a label that shows the number of buffered samples as "<n> Samples". It is not owned; null removes it.
    void SetBufferSizeLabel(QLabel *label);
    //! Sets whether clicks place markers; initially they do not. Switching this off removes both markers.
    void enablePlotMarker(bool enable);
    bool areMarkersEnabled() const; //!< Returns whether clicks place markers.
    //! Returns what the markers read of the newest samples, also while hidden; in scope mode, a visible view reads the shown sweep.
    ScopeMarkerStatistics markerStatistics() const;
    //! Returns whether the last plot drew a reading: a finite sample of a curve, or its bar. Modes of companion widgets draw none.
    bool showsReadings() const;

    bool isInteractive() const; //!< Returns whether a user may zoom and pan.
    /*! Sets whether a user may zoom and pan. The wheel then zooms x about the pointer, with Ctrl y; a drag moves the picture,
        with Shift it draws a rectangle that is zoomed to; a double click and End show the newest samples again, Backspace the
        window before. The user's guide has the table of keys. A click still places a marker. */
    void setInteractive(bool interactive);
    //! Returns whether the picture stands still although rows come and leave. A mark says where its samples have left the model.
    bool isHeld() const;
    /*! Shows a part of the plot: x from left to right and y from top to bottom of \a area, in numbers of the axes. The x axis
        is then held; in scope mode the sweep is, too. The histogram has only the y range. An axis for which \a area has no
        width, or a range that is not finite, stays as it is. Changing the mode or the scale of y, or another model, ends it. */
    void zoomTo(const QRectF &area);
    //! Zooms and holds only the x axis, see zoomTo().
    void zoomToX(double left, double right);
    //! Zooms only the y axis, see zoomTo().
    void zoomToY(double bottom, double top);
    TimeAxis timeAxis() const; //!< Returns what the x axis says.
    //! Sets what the x axis says, and the markers and the cursor with it. Ignores a number that is not a TimeAxis.
    void setTimeAxis(TimeAxis axis);
    //! Returns the moment at which x is 0; invalid for 1970-01-01 00:00 UTC.
    QDateTime timeOrigin() const;
    //! Sets the moment at which x is 0; invalid if x counts from 1970-01-01 00:00 UTC.
    void setTimeOrigin(const QDateTime &origin);
    //! Returns up to which x the strip chart reaches at least; NaN for its newest sample.
    double timeEnd() const;
    /*! Extends the strip chart up to \a end, in units of x, while it follows the samples and shows a time span, if that is
        later than its newest sample; NaN for its newest sample. Charts of several models that get the same moment stay side by
        side, also when one of the models has no more samples. */
    void setTimeEnd(double end);
    bool isCursorEnabled() const; //!< Returns whether a line follows the pointer.
    /*! Sets whether a line follows the pointer, with a box that lists the time and the readings of the nearest sample. A marker
        is then placed on that sample, and otherwise on the first one from the pointer on. */
    void setCursorEnabled(bool enabled);
    //! Returns whether the label of the second marker also shows difference, extremes, integral and slope.
    bool hasMarkerDetails() const;
    //! Sets whether the label of the second marker also shows difference, extremes, integral and slope.
    void setMarkerDetails(bool detailed);
    //! Returns what the markers read, as Ctrl+C copies it: lines of name, number and unit with tabs between; empty without markers.
    QString markerReport() const;

    /*! Replaces the statistics of one type by \a count new ones, each on its share of the channels: item g, counted from
        0, begins at channel g * floor(channels / count) + 1, and the last one takes the remaining channels. A count of
        0 or less removes them; at most 256 are made. \a parameters are those of the item's class; \a fullStatistics
        adds the results beyond position and width. */
    void enableHistogramItem(HistogramItemTypes type,
                             int count,
                             const QVector<double> &parameters,
                             bool fullStatistics);
    /*! Returns the items of a type in channel order. The view owns them; enableHistogramItem() deletes them. Their getters
        return the results for the newest sample of the model, whatever the view shows. */
    QVector<RVX_StatisticsHistogramItem *> histogramItems(HistogramItemTypes type) const;
    //! Sets whether the items show the energy that the calibration table gives for their position.
    void toggleMLFC(bool enable);
    /*! Sets the energy in MeV of each channel, beginning with channel 1. The table is copied; null removes it.
        Centre-of-gravity items do not use it. */
    void upload_MLFC_calibration_table(std::vector<double> *table);

    /*! Sets the detector that the channels come from. If it has strips, one reading for each channel, the bars of the histogram
        stand at the places of the strips, in the unit of the layout and less pedestal and gain, and statistics are computed on
        places and widths (RVX_StatisticsHistogramItem::estimate()). Two planes stand side by side. Other layouts, and an empty one,
        leave the bars at the numbers of their channels. */
    void setDetectorLayout(const DetectorLayout &layout);
    DetectorLayout detectorLayout() const; //!< Returns the detector that was set.

    //! Sets whether the spectrogram shows a pixel matrix instead of strips.
    void setPixelated(bool pixelated);
    //! Returns the companion widget of PositionMode, which the view owns.
    RVXPositionPlot *positionPlot();
    //! Returns the companion widget of SpectrogramMode, which the view owns.
    RVXSpectrogram *spectrogram();
    RVXSplitPlot *splitPlot(); //!< Returns the companion widget of SplitMode, which the view owns.

    //! Returns an invalid index, and visualRect() an empty rectangle: a sample has no area on the screen.
    QModelIndex indexAt(const QPoint &point) const override;
    QRect visualRect(const QModelIndex &index) const override;
    /*! In strip mode, sets the scroll bar to half of the axis plus the x of the sample, for every hint. The value is in
        units of x instead of those of the scroll bar; hosts rely on it. */
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    //! Shows another model, which is not owned. The plot is empty for null and for a model that is not a plot model.
    void setModel(QAbstractItemModel *model) override;
    //! Shows the model anew after its rows or channels were replaced.
    void reset() override;
    //! Does nothing: samples have no text that could be searched for.
    void keyboardSearch(const QString &search) override;
    //! Returns a size that leaves room for the plot below the labels of the statistics.
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    //! Switches to the mode of a number. Does nothing for a number that is not a PlotMode, or without a model.
    void SetPlotMode(int plotMode);
    //! Scales the y axis, and the companion widgets, by a PlotScales value. Any other value scales automatically.
    void SetYScaleMode(int scaleMode);
    //! Sets whether the y axis shows only a tenth of the negative range.
    void SetPositiveOnly(bool positiveOnly);
    //! Waits for the next trigger, also after a single one. Does nothing while the trigger is off.
    void armTrigger();
    //! Follows the newest samples again, and shows the y scale that is set.
    void goLive();
    //! Shows what was shown before the last zoom or pan. Returns false if there is nothing to go back to.
    bool undoZoom();

Q_SIGNALS:
    /*! The results of the items of a type are those of another sample, or of the same sample with other readings, channels or
        parameters. Emitted for each type that has items once in each turn of the event loop in which this happened: several
        rows that come at once are announced together, as they are painted together. \a row is the newest row of the view's
        model and \a time its x; without a sample they are 0 and NaN. histogramItems() computes the results when it is asked
        for them. */
    void
    statisticsChanged(Corvale_Qt::RVXScopePlotView::HistogramItemTypes type, int row, double time);
    //! markerStatistics() has changed. Emitted at most once in each turn of the event loop.
    void markerStatisticsChanged();

    //! The view shows another mode.
    void plotModeChanged(Corvale_Qt::RVXScopePlotView::PlotMode mode);
    //! The y axis has another scale mode.
    void yScaleModeChanged(Corvale_Qt::RVXScopePlotView::PlotScales mode);
    //! The full-scale range has changed. The y axis shows it from the next SetYScaleMode() on.
    void rangeChanged(double minimum, double maximum);
    //! The y axis shows only a tenth of the negative range, or all of it again.
    void positiveOnlyChanged(bool positiveOnly);
    //! Clicks place markers, or do so no more.
    void markersEnabledChanged(bool enabled);
    //! The strip chart has another width, in the unit of x; 0 if the model decides, infinity for all samples.
    void timeSpanChanged(double span);
    //! Sweeps and strip chart have another number of samples; 0 if the model decides.
    void sampleSpanChanged(int samples);
    //! The strip chart begins at its first sample, or shows time before it again.
    void beginAtFirstChanged(bool begin);
    //! The strip chart moves by whole pixels, or no longer does.
    void movesByPixelsChanged(bool on);

    //! Values are shown with a prefix, or as the model has them again.
    void siPrefixChanged(bool on);
    //! givenRightRange() has changed.
    void rightRangeChanged();
    //! The unit that was set for the y axis has changed; empty if it suits the scale.
    void valueUnitChanged(const QString &symbol);
    //! The y axis shows another unit. Emitted by the event loop.
    void shownUnitChanged(const QString &symbol);
    //! Channels of another unit have a y axis of their own, or no more.
    void secondAxisChanged(bool on);
    //! channelAxis() may return something else. Emitted by the event loop.
    void channelAxesChanged();
    //! A y axis that follows the data has hysteresis, or has none any more.
    void hysteresisChanged(bool on);
    //! Percentages are of the data's own full scale until a range is set, or of the range only.
    void fullScaleFromDataChanged(bool on);
    //! The y axis is logarithmic, or linear again.
    void logarithmicChanged(bool on);
    //! A legend is shown below the plot, or no more.
    void legendVisibleChanged(bool visible);
    //! The curve of another channel is drawn above the others; 0 for none.
    void raisedChannelChanged(int channel);
    //! The bars of the histogram are labelled with names, or no more.
    void barNamesChanged(bool on);
    //! The canvas is white, or black again.
    void lightCanvasChanged(bool light);

    // Gaps, limits and the trigger.
    //! Another number of usual intervals without a reading is an outage.
    void gapIntervalsChanged(double intervals);
    //! A channel, counted from 1, has other limits.
    void channelLimitsChanged(int channel);
    /*! The readings of a channel, counted from 1, have passed to another state. Emitted from the event loop, for each change,
        also if the reading has come back since. */
    void limitStateChanged(int channel, Corvale_Qt::LimitState state);
    //! Sweeps begin at other readings.
    void triggerChanged();
    //! triggerState() has changed. Emitted from the event loop.
    void triggerStateChanged(Corvale_Qt::TriggerState state);

    //! A user may zoom and pan, or may do so no more.
    void interactiveChanged(bool interactive);
    //! The picture stands still, or follows the newest samples again. Emitted by the event loop.
    void heldChanged(bool held);
    //! The x axis says something else.
    void timeAxisChanged(Corvale_Qt::RVXScopePlotView::TimeAxis axis);
    //! x is 0 at another moment.
    void timeOriginChanged(const QDateTime &origin);
    //! The strip chart reaches up to another x.
    void timeEndChanged(double end);
    //! A line follows the pointer, or does so no more.
    void cursorEnabledChanged(bool enabled);
    //! The label of the second marker shows more, or less.
    void markerDetailsChanged(bool detailed);

protected Q_SLOTS:
    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void doItemsLayout() override;
    //! Makes the plot if one is pending. Called before the canvas is painted.
    void Plot();
    //! Asks for a plot at the next repaint.
    void RequestReplot();
    //! Asks for a plot at the next repaint that, in scope mode, draws the last sweep again if there is no new one.
    void RequestReplotRefresh();
    //! Places the first marker at \a pos, in plot coordinates, if markers are enabled.
    void SelectPoint1(QPointF pos);
    //! Places the second marker at \a pos, in plot coordinates, if markers are enabled.
    void SelectPoint2(QPointF pos);
    //! Asks for a plot after the scroll bar has moved. \a value is not used.
    void scrollTo(int value);

protected:
    QwtPlot *qwtPlot(); //!< Returns the plot, which the view owns.
    QwtPlotGrid *grid(); //!< Returns the grid of the plot, which the view owns.
    QwtPlotHistogram *histogram(); //!< Returns the bars of the histogram, which the view owns.
    //! Returns marker 0 or 1; null for any other index.
    QSharedPointer<QwtPlotMarker> plotMarker(int index);

    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    using QAbstractItemView::edit;
    //! Returns the bars of the selected channels, or the whole canvas in modes without bars.
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags flags) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    Q_DECLARE_PRIVATE(RVXScopePlotView)
    const std::unique_ptr<RVXScopePlotViewPrivate> d_ptr;
};

} // namespace Corvale_Qt
