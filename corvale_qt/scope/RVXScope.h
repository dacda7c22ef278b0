// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QDateTime>
#include <QWidget>

#include <memory>

class QAbstractItemModel;
class QItemSelectionModel;
class QVBoxLayout;

namespace Corvale_Qt {

class RVXScopePlotView;
class RVXScopePrivate;

/*! A scope panel: a plot of the model's channels with the controls that an operator needs.

    The panel averages the model's data and can subtract a zero before the plot shows it. Files are saved from the model
    itself, with the values as measured.

    \code
    RVXScope scope;
    scope.setModel(&model);
    scope.show();
    \endcode

    What the controls say is also a property of the panel: setting the property moves the control, and a click on the control
    emits the property's signal. saveState() keeps all of it.

    While the focus is in the panel, Ctrl+S saves, Ctrl+L clears and Ctrl+0 zeroes, even if an action of the host has
    the same keys. The host gets a key if the focus is elsewhere, or if the button for it is hidden or disabled. */
class CORVALE_QT_EXPORT RVXScope : public QWidget
{
    Q_OBJECT
    //! Whether the button "d/dx" is visible; false at first.
    Q_PROPERTY(bool derivativeVisible READ isDerivativeVisible WRITE setDerivativeVisible)
    //! What the plot shows; StripMode at first.
    Q_PROPERTY(PlotMode plotMode READ plotMode WRITE setPlotMode NOTIFY plotModeChanged)
    //! The modes that have a tab; strip, scope and histogram at first.
    Q_PROPERTY(PlotTabs plotTabs READ plotTabs WRITE setPlotTabs NOTIFY plotTabsChanged)
    //! The list of y ranges that the operator chooses from; PercentRanges at first.
    Q_PROPERTY(YScaleMode yScaleMode READ yScaleMode WRITE setYScaleMode NOTIFY yScaleModeChanged)
    //! The chosen entry of that list, counted from 0, which is always "Auto".
    Q_PROPERTY(int yScaleIndex READ yScaleIndex WRITE setYScaleIndex NOTIFY yScaleIndexChanged)
    //! Lower end of the full-scale range in the unit of the data; -1 at first.
    Q_PROPERTY(double yMinimum READ yMinimum WRITE setYMinimum NOTIFY rangeChanged)
    //! Upper end of the full-scale range in the unit of the data; 1 at first.
    Q_PROPERTY(double yMaximum READ yMaximum WRITE setYMaximum NOTIFY rangeChanged)
    //! Whether the y axis shows only a tenth of the negative range; false at first.
    Q_PROPERTY(
        bool positiveOnly READ isPositiveOnly WRITE SetPositiveOnly NOTIFY positiveOnlyChanged)
    //! Length of the running average in samples: 1 (no averaging), 10, 100 or 1000; 1 at first.
    Q_PROPERTY(int averaging READ averaging WRITE setAveraging NOTIFY averagingChanged)
    //! Whether a zero is subtracted from the data.
    Q_PROPERTY(bool zeroed READ isZeroed NOTIFY zeroedChanged STORED false)
    //! Acquisition period in milliseconds: 0 (as fast as readings come), 100, 1000 or 10000; 0 at first.
    Q_PROPERTY(int period READ period WRITE setPeriod NOTIFY periodChanged)
    //! Width of the strip chart in the unit of x; 0, as at first, for the width that the model asks for, infinity for all samples.
    Q_PROPERTY(double timeSpan READ timeSpan WRITE setTimeSpan NOTIFY timeSpanChanged)
    //! Number of samples in a sweep and across the strip chart; 0, as at first, for the number that the model asks for.
    Q_PROPERTY(int sampleSpan READ sampleSpan WRITE setSampleSpan NOTIFY sampleSpanChanged)
    //! Whether the strip chart begins at its first sample and grows, instead of showing time before it; false at first.
    Q_PROPERTY(
        bool beginAtFirst READ beginsAtFirst WRITE setBeginAtFirst NOTIFY beginAtFirstChanged)
    // Navigation; RVXScopePlotView says more of each.
    //! Whether the operator may zoom and pan with mouse, wheel, touch pad and keys; false at first.
    Q_PROPERTY(bool interactive READ isInteractive WRITE setInteractive NOTIFY interactiveChanged)
    //! Whether the picture stands still although rows come, because it was zoomed or panned.
    Q_PROPERTY(bool held READ isHeld NOTIFY heldChanged STORED false)
    //! What the x axis says while x is a time; Seconds at first.
    Q_PROPERTY(TimeAxis timeAxis READ timeAxis WRITE setTimeAxis NOTIFY timeAxisChanged)
    //! The moment at which x is 0, for LocalTime and Utc; invalid, as at first, for 1970-01-01 00:00 UTC.
    Q_PROPERTY(QDateTime timeOrigin READ timeOrigin WRITE setTimeOrigin NOTIFY timeOriginChanged)
    //! Whether a line follows the pointer and shows what is drawn there; false at first.
    Q_PROPERTY(
        bool cursorEnabled READ isCursorEnabled WRITE setCursorEnabled NOTIFY cursorEnabledChanged)
    //! Whether the label of the second marker also shows difference, extremes, integral and slope; false at first.
    Q_PROPERTY(
        bool markerDetails READ hasMarkerDetails WRITE setMarkerDetails NOTIFY markerDetailsChanged)
    //! Whether clicks on the plot place markers; false at first.
    Q_PROPERTY(bool markersEnabled READ areMarkersEnabled WRITE setMarkersEnabled NOTIFY
                   markersEnabledChanged)
    //! Whether the controls below the tabs are visible, which the button at the right end of the tabs switches; true at first.
    Q_PROPERTY(bool controlsVisible READ areControlsVisible WRITE setControlsVisible NOTIFY
                   controlsVisibleChanged)
    //! Whether the panel asks before the operator clears samples, by the button or by another period; false at first.
    Q_PROPERTY(bool confirmClear READ confirmsClear WRITE setConfirmClear)

public:
    //! What the plot shows; the values are those of RVXScopePlotView::PlotMode.
    enum PlotMode : int {
        StripMode = 0,
        ScopeMode = 1,
        HistogramMode = 2,
        SpectrogramMode = 3,
        PositionMode = 4,
        SplitMode = 5,
    };
    Q_ENUM(PlotMode)

    //! The tabs that a panel can have, one for each PlotMode.
    enum PlotTab : int {
        StripTab = 0x01,
        ScopeTab = 0x02,
        HistogramTab = 0x04,
        SpectrogramTab = 0x08,
        PositionTab = 0x10,
        SplitTab = 0x20,
    };
    Q_DECLARE_FLAGS(PlotTabs, PlotTab)
    Q_FLAG(PlotTabs)

    //! The lists of y ranges that the panel can offer.
    enum YScaleMode : int {
        //! Percentages of SetRange(); the index of an entry is its RVXScopePlotView::PlotScales value.
        PercentRanges = 0,
        //! The scale follows the data.
        AutomaticRange = 1,
        //! From minus a value to plus that value, in the unit of the data.
        AbsoluteRanges = 2,
        //! From 0 to a value, in the unit of the data.
        AbsolutePositiveRanges = 3,
    };
    Q_ENUM(YScaleMode)

    //! What the x axis says; the values are those of RVXScopePlotView::TimeAxis.
    enum TimeAxis : int {
        Seconds = 0,
        RelativeToNow = 1,
        LocalTime = 2,
        Utc = 3,
    };
    Q_ENUM(TimeAxis)

    //! Creates a panel without a model, in strip mode.
    explicit RVXScope(QWidget *parent = nullptr);
    ~RVXScope() override;

    /*! Sets the model to show, which is not owned. It must also derive from RVXAbstractPlotDataModel; any other model
        leaves the plot empty and writes a line to the debug stream. Null leaves the plot empty. A zero taken from
        another model is dropped. */
    void setModel(QAbstractItemModel *model);
    //! Sets the selection model of the plot view. It must belong to topLevelModel() and is not owned.
    void setSelectionModel(QItemSelectionModel *selectionModel);
    //! Returns the model that was passed to setModel(); null after it was deleted.
    QAbstractItemModel *baseModel() const;
    //! Returns the model that the plot shows: the host's model, averaged and zeroed. The panel owns it.
    QAbstractItemModel *topLevelModel() const;
    //! Returns the plot view, which the panel owns.
    RVXScopePlotView *plotView() const;
    //! Returns the layout beside the plot in which a host can place widgets, see set2DEnabled().
    QVBoxLayout *getPositionLayout() const;

    //! Sets what the plot shows, and selects the tab of the mode if there is one.
    void SetPlotMode(PlotMode mode);
    //! Does what SetPlotMode(PlotMode) does.
    void setPlotMode(PlotMode mode);
    //! Returns what the plot shows.
    PlotMode plotMode() const;
    //! Returns the modes that have a tab.
    PlotTabs plotTabs() const;
    /*! Sets the modes that have a tab. New tabs are inserted in the order of the modes. If the tab of the current mode goes,
        the mode of a tab beside it is shown. */
    void setPlotTabs(PlotTabs tabs);
    //! Presses or releases the button for positive values; has no effect while that button is hidden.
    void SetPositiveOnly(bool positiveOnly);
    //! Sets the full-scale range of the y axis, of which the percentages are taken, in the unit of the data.
    void SetRange(double min, double max);
    /*! Sets the list of y ranges: 1 for automatic only, 2 for plus and minus a value, 3 for 0 to a value, in the unit
        of the data. At first the list has percentages of SetRange(). It cannot be set back to these, on purpose: hosts
        rely on other values than 1, 2 and 3 being ignored. */
    void SetYScaleMode(int mode);
    //! Sets the list of y ranges, which may also be PercentRanges, and selects its first entry.
    void setYScaleMode(YScaleMode mode);
    //! Returns the list of y ranges.
    YScaleMode yScaleMode() const;
    //! Returns the chosen entry of the list of y ranges, counted from 0.
    int yScaleIndex() const;
    //! Chooses an entry of the list of y ranges. Ignores an index that the list does not have.
    void setYScaleIndex(int index);
    //! Returns the minimum of the full-scale range, in the unit of the data.
    double yMinimum() const;
    //! Returns the maximum of the full-scale range, in the unit of the data.
    double yMaximum() const;
    //! Sets the minimum of the full-scale range. Ignores a number that is not finite.
    void setYMinimum(double minimum);
    //! Sets the maximum of the full-scale range. Ignores a number that is not finite.
    void setYMaximum(double maximum);
    //! Returns whether the y axis shows only a tenth of the negative range.
    bool isPositiveOnly() const;

    //! Returns the length of the running average in samples; 1 without averaging.
    int averaging() const;
    //! Sets the length of the running average in samples. Ignores lengths other than 1, 10, 100 and 1000.
    void setAveraging(int length);
    //! Returns whether a zero is subtracted from the data.
    bool isZeroed() const;
    //! Returns the acquisition period in milliseconds; 0 for as fast as readings come.
    int period() const;
    /*! Sets the acquisition period in milliseconds. Ignores periods other than 0, 100, 1000 and 10000. The samples are
        kept; they are cleared only when the operator chooses another period. */
    void setPeriod(int milliseconds);

    //! Returns the width of the strip chart in the unit of x; 0 if the model decides, infinity for all samples.
    double timeSpan() const;
    //! Sets the width of the strip chart in the unit of x, see RVXScopePlotView::setTimeSpan().
    void setTimeSpan(double span);
    //! Returns the number of samples in a sweep and across the strip chart; 0 if the model decides.
    int sampleSpan() const;
    //! Sets the number of samples in a sweep and across the strip chart, see RVXScopePlotView::setSampleSpan().
    void setSampleSpan(int samples);
    //! Returns whether the strip chart shows no time before its first sample.
    bool beginsAtFirst() const;
    //! Sets whether the strip chart shows no time before its first sample, see RVXScopePlotView::setBeginAtFirst().
    void setBeginAtFirst(bool begin);
    //! Returns whether the operator may zoom and pan.
    bool isInteractive() const;
    //! Sets whether the operator may zoom and pan, see RVXScopePlotView::setInteractive().
    void setInteractive(bool interactive);
    //! Returns whether the picture stands still although rows come.
    bool isHeld() const;
    //! Returns what the x axis says.
    TimeAxis timeAxis() const;
    //! Sets what the x axis says. Ignores a number that is not a TimeAxis.
    void setTimeAxis(TimeAxis axis);
    //! Returns the moment at which x is 0; invalid for 1970-01-01 00:00 UTC.
    QDateTime timeOrigin() const;
    //! Sets the moment at which x is 0; invalid if x counts from 1970-01-01 00:00 UTC.
    void setTimeOrigin(const QDateTime &origin);
    //! Returns whether a line follows the pointer.
    bool isCursorEnabled() const;
    //! Sets whether a line follows the pointer, see RVXScopePlotView::setCursorEnabled().
    void setCursorEnabled(bool enabled);
    //! Returns whether the label of the second marker also shows difference, extremes, integral and slope.
    bool hasMarkerDetails() const;
    //! Sets whether the label of the second marker also shows difference, extremes, integral and slope.
    void setMarkerDetails(bool detailed);
    //! Returns whether clicks on the plot place markers.
    bool areMarkersEnabled() const;
    //! Sets whether clicks on the plot place markers. Switching this off removes both markers.
    void setMarkersEnabled(bool enable);
    //! Returns whether the controls below the tabs are visible.
    bool areControlsVisible() const;
    //! Shows or hides the controls below the tabs.
    void setControlsVisible(bool visible);

    //! Returns whether the panel asks before the operator clears samples.
    bool confirmsClear() const;
    //! Sets whether the panel asks before the operator clears samples. It never asks for what a host does, as by clear().
    void setConfirmClear(bool confirm);

    /*! Returns what is set on the panel as bytes that restoreState() reads: the properties above, except zeroed, held,
        derivativeVisible, confirmClear, timeOrigin, interactive, cursorEnabled and markerDetails, and of the plot view the trigger,
        the gaps, the legend, the names of bars, and how values are shown. \a version is a number of the host, for when the meaning
        of its states changes. */
    QByteArray saveState(int version = 0) const;
    /*! Sets the panel to what saveState() returned for the same \a version. Returns false and changes nothing if the bytes are
        not such a state. The samples are kept. What another version of the library did not keep, or keeps in addition, stays as
        it is. */
    bool restoreState(const QByteArray &state, int version = 0);

    //! Hides or shows the tabs, the number of samples and the button "Save".
    void hideConfig(bool hide);
    //! Shows or hides the frame around getPositionLayout(), which is hidden at first.
    void set2DEnabled(bool enable);
    //! Adds the tab "2D" and selects it, or removes it. Also sets whether the spectrogram shows a pixel matrix.
    void setSpectrogramEnabled(bool enable);
    //! Adds or removes the tab "Position".
    void setPositionEnabled(bool enable);
    //! Adds or removes the tab "Split".
    void setSplitEnabled(bool enable);

    //! Returns whether the button "d/dx" is visible; false at first.
    bool isDerivativeVisible() const;
    //! Shows or hides the button "d/dx" (object name "derivativeButton"). It has no function unless a host connects it.
    void setDerivativeVisible(bool visible);

Q_SIGNALS:
    //! The panel is about to remove all samples from the model; a host that keeps them can offer to undo that.
    void aboutToClear();
    //! The operator chose whether the instrument collects for \a interval seconds before it reports a reading.
    void bufferedIntervalChanged(bool enabled, double interval);
    /*! The operator chose another y range. \a enabled is false if the scale is automatic or normalised. \a min and \a
        max are the full-scale range in the unit of the data, rounded to integers. */
    void yScaleChanged(bool enabled, int min, int max);

    //! The plot shows another mode.
    void plotModeChanged(Corvale_Qt::RVXScope::PlotMode mode);
    //! Other modes have a tab.
    void plotTabsChanged(Corvale_Qt::RVXScope::PlotTabs tabs);
    //! The operator chooses from another list of y ranges.
    void yScaleModeChanged(Corvale_Qt::RVXScope::YScaleMode mode);
    //! Another entry of the list of y ranges is chosen.
    void yScaleIndexChanged(int index);
    //! The full-scale range is another one, in the unit of the data.
    void rangeChanged(double minimum, double maximum);
    //! The y axis shows only a tenth of the negative range, or all of it again.
    void positiveOnlyChanged(bool positiveOnly);
    //! The running average has another length in samples.
    void averagingChanged(int length);
    //! A zero is subtracted from the data, or is subtracted no more.
    void zeroedChanged(bool zeroed);
    //! The acquisition period is another one, in milliseconds.
    void periodChanged(int milliseconds);
    //! The strip chart has another width, in the unit of x; 0 if the model decides, infinity for all samples.
    void timeSpanChanged(double span);
    //! Sweeps and strip chart have another number of samples; 0 if the model decides.
    void sampleSpanChanged(int samples);
    //! The strip chart begins at its first sample, or shows time before it again.
    void beginAtFirstChanged(bool begin);
    //! The operator may zoom and pan, or may do so no more.
    void interactiveChanged(bool interactive);
    //! The picture stands still, or follows the newest samples again. Emitted by the event loop.
    void heldChanged(bool held);
    //! The x axis says something else.
    void timeAxisChanged(Corvale_Qt::RVXScope::TimeAxis axis);
    //! x is 0 at another moment.
    void timeOriginChanged(const QDateTime &origin);
    //! A line follows the pointer, or does so no more.
    void cursorEnabledChanged(bool enabled);
    //! The label of the second marker shows more, or less.
    void markerDetailsChanged(bool detailed);
    //! Clicks on the plot place markers, or do so no more.
    void markersEnabledChanged(bool enabled);
    //! The controls below the tabs were shown or hidden.
    void controlsVisibleChanged(bool visible);

public Q_SLOTS:
    //! Sets what the plot shows to the mode of a tab, counted from 0; a number that is not a tab's is a PlotMode.
    void SetPlotMode(int plotMode);
    //! Takes the newest sample of each channel as its zero, as the button "Zero" does. Does nothing without samples.
    void zeroNow();
    //! Subtracts no zero any more.
    void zeroClear();
    //! Follows the newest samples again, and shows the y scale that is set.
    void goLive();
    //! Removes all samples from the model.
    void clear();
    /*! Saves the samples of the model to a file, as they were measured. Returns false if there is no model or the file cannot
        be written; shows no message. */
    bool saveDataToFile(const QString &path);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void SetYScale(int scaleMode);
    void SaveDataToFile();
    void Clear();
    void SetAveragingMode(int averagingMode);
    void ZeroNow();
    void ZeroClear();
    void on_buffered_interval_doubleSpinBox_valueChanged(double arg1);
    void on_checkBox_bufferedInterval_toggled(bool checked);
    void on_comboBox_period_currentIndexChanged(int index);

private:
    Q_DECLARE_PRIVATE(RVXScope)
    const std::unique_ptr<RVXScopePrivate> d_ptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(RVXScope::PlotTabs)

} // namespace Corvale_Qt
