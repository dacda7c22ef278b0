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

/*! The panel of a scope: a plot of the model's channels with the controls an operator needs.

    Between the host's model and the plot stand a running average and a zero that can be subtracted; both are
    the panel's own. What is saved is the model's data as it was measured.

    \code
    RVXScope scope;
    scope.setModel(&model);
    scope.show();
    \endcode

    While the focus is in the panel, Ctrl+S saves, Ctrl+L clears and Ctrl+0 zeroes, even where an action of the host
    has the same keys. They are the host's everywhere else, and while the button in question is hidden or disabled. */
class CORVALE_QT_EXPORT RVXScope : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool derivativeVisible READ isDerivativeVisible WRITE setDerivativeVisible)

public:
    //! As in RVXScopePlotView.
    enum PlotMode {
        StripMode = 0,
        ScopeMode = 1,
        HistogramMode = 2,
        SpectrogramMode = 3,
        PositionMode = 4,
        SplitMode = 5,
    };
    Q_ENUM(PlotMode)

    explicit RVXScope(QWidget *parent = nullptr);
    ~RVXScope() override;

    /*! The model to show: one that derives from RVXAbstractPlotDataModel too. It is not owned. Null, or a model of
        another kind (a line on the debug stream), gives an empty plot. A zero that was taken of another model is
        dropped. */
    void setModel(QAbstractItemModel *model);
    //! Passed on to the plot view. It must be a selection of topLevelModel().
    void setSelectionModel(QItemSelectionModel *selectionModel);
    //! What was given to setModel(); null once it has been deleted.
    QAbstractItemModel *baseModel() const;
    //! What the plot shows: the host's model, averaged and zeroed.
    QAbstractItemModel *topLevelModel() const;
    RVXScopePlotView *plotView() const;
    //! The place for a host's own widgets beside the plot, see set2DEnabled().
    QVBoxLayout *getPositionLayout() const;

    void SetPlotMode(PlotMode mode);
    //! Presses or releases the button for positive values; without effect while that button is hidden.
    void SetPositiveOnly(bool positiveOnly);
    //! The full-scale range of the y axis that percentages are of, in the unit of the data.
    void SetRange(double min, double max);
    /*! Which y ranges are on offer: 1 automatic only, 2 plus and minus a value, 3 from 0 to a value, in the unit of
        the data. At first it is percentages of SetRange(); there is no way back to these, on purpose: hosts count
        on anything but 1, 2 and 3 being ignored. */
    void SetYScaleMode(int mode);

    //! Hides, or shows, the tabs, the number of samples and the button to save.
    void hideConfig(bool hide);
    //! Shows the frame of getPositionLayout(), which is hidden at first.
    void set2DEnabled(bool enable);
    //! Offers the tab "2D" and turns to it. The plot view's spectrogram is set to a pixel matrix by the same switch.
    void setSpectrogramEnabled(bool enable);
    //! Offers the tab "Position".
    void setPositionEnabled(bool enable);
    //! Offers the tab "Split".
    void setSplitEnabled(bool enable);

    /*! Whether the button "d/dx" (object name "derivativeButton") is shown; false at first. It does nothing of its
        own: show it where a host has connected it. */
    bool isDerivativeVisible() const;
    void setDerivativeVisible(bool visible);

Q_SIGNALS:
    //! The operator has the instrument collect for \a interval seconds before it reports, or not.
    void bufferedIntervalChanged(bool enabled, double interval);
    /*! The operator chose another y range. It is not \a enabled while the scale is automatic or normalised;
        \a min and \a max are the full-scale range, rounded to integers. */
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
