// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

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

    While the focus is in the panel, Ctrl+S saves, Ctrl+L clears and Ctrl+0 zeroes, even if an action of the host has
    the same keys. The host gets a key if the focus is elsewhere, or if the button for it is hidden or disabled. */
class CORVALE_QT_EXPORT RVXScope : public QWidget
{
    Q_OBJECT
    //! Whether the button "d/dx" is visible; false at first.
    Q_PROPERTY(bool derivativeVisible READ isDerivativeVisible WRITE setDerivativeVisible)

public:
    //! What the plot shows; the values are those of RVXScopePlotView::PlotMode.
    enum PlotMode {
        StripMode = 0,
        ScopeMode = 1,
        HistogramMode = 2,
        SpectrogramMode = 3,
        PositionMode = 4,
        SplitMode = 5,
    };
    Q_ENUM(PlotMode)

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
    //! Presses or releases the button for positive values; has no effect while that button is hidden.
    void SetPositiveOnly(bool positiveOnly);
    //! Sets the full-scale range of the y axis, of which the percentages are taken, in the unit of the data.
    void SetRange(double min, double max);
    /*! Sets the list of y ranges: 1 for automatic only, 2 for plus and minus a value, 3 for 0 to a value, in the unit
        of the data. At first the list has percentages of SetRange(). It cannot be set back to these, on purpose: hosts
        rely on other values than 1, 2 and 3 being ignored. */
    void SetYScaleMode(int mode);

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
    //! The operator chose whether the instrument collects for \a interval seconds before it reports a reading.
    void bufferedIntervalChanged(bool enabled, double interval);
    /*! The operator chose another y range. \a enabled is false if the scale is automatic or normalised. \a min and \a
        max are the full-scale range in the unit of the data, rounded to integers. */
    void yScaleChanged(bool enabled, int min, int max);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void SetYScale(int scaleMode);
    void SaveDataToFile();
    void Clear();
    void SetAveragingMode(int averagingMode);
    void SetPlotMode(int plotMode);
    void ZeroNow();
    void ZeroClear();
    void on_buffered_interval_doubleSpinBox_valueChanged(double arg1);
    void on_checkBox_bufferedInterval_toggled(bool checked);
    void on_comboBox_period_currentIndexChanged(int index);

private:
    Q_DECLARE_PRIVATE(RVXScope)
    const std::unique_ptr<RVXScopePrivate> d_ptr;
};

} // namespace Corvale_Qt
