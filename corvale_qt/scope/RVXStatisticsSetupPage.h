// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>
#include <QWidget>

#include <memory>

class QFileInfo;
class QFormLayout;
class QVBoxLayout;

namespace Corvale_Qt {

class RVXScopePlotView;
class RVXStatisticsSetupPagePrivate;

/*! The page on which the operator chooses the beam statistics of the histograms.

    Every registered plot view follows it at once, the signals tell everybody else, and with
    setApplicationSettings() the choice outlives the application.

    \code
    RVXStatisticsSetupPage page;
    page.addPlotView(scope.plotView());
    page.setApplicationSettings(QFileInfo(folder), true, true);
    \endcode

    Parameters of the centre of gravity: 0 for threshold or 1 for window, the threshold as a fraction of the highest
    channel, the half-width of the window in channels. Those of the regression: threshold as a fraction,
    half-width of the window, lowest peak, lowest sum (both in the base unit), weight power, half-width of the
    Chi-square window. While a group is off there are none. */
class CORVALE_QT_EXPORT RVXStatisticsSetupPage : public QWidget
{
    Q_OBJECT

public:
    explicit RVXStatisticsSetupPage(QWidget *parent = nullptr);
    ~RVXStatisticsSetupPage() override;

    //! Has a view follow the page from now on. It is not owned, and leaves the page when it is deleted.
    void addPlotView(RVXScopePlotView *view);

    /*! Loads the page from a settings file, and keeps every later choice in it. A file that does not hold the page's
        group yet gives the page's defaults; in a group that is there, a missing value counts as false or 0. Loading
        writes nothing.

        With \a useApplicationIdentity the settings lie in a folder, in the file named after the application;
        the folder is \a file where that is one, or has no suffix, and the folder of \a file otherwise. Without it,
        \a file is the settings file. See RVXApplicationSettings. */
    void
    setApplicationSettings(const QFileInfo &file, bool useApplicationIdentity, bool useXmlFormat);

    //! 1, 2, 4 or 8 peaks; any other number is taken for 1.
    void set_peaks(int n);
    //! Switches the regression on.
    void enable_regression();

    //! Where a host adds rows of its own to the fit.
    QFormLayout *gaussianLayout() const;
    //! The layout of the whole page.
    QVBoxLayout *layout() const;

Q_SIGNALS:
    void CoGOptions(bool enabled, QVector<double> parameters, int peaks);
    void RegressionOptions(bool enabled, QVector<double> parameters, int peaks);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void on_CoGCBox_toggled(bool on);
    void on_CoGThresholdEdit_valueChanged(int value);
    void on_CoGWindowEdit_valueChanged(int value);
    void on_CoGThresholdRadio_toggled(bool on);
    void on_CoGWindowRadio_toggled(bool on);
    void on_regressionCBox_toggled(bool on);
    void on_RegressionThresholdEdit_valueChanged(int value);
    void on_RegressionWindowEdit_valueChanged(int value);
    void on_Chi2WindowEdit_valueChanged(int value);
    void on_peaksEdit_currentIndexChanged(int index);
    void on_peakthreshold_valueChanged(double value);
    void on_sumthreshold_valueChanged(double value);
    void on_fullStatsCBox_toggled(bool on);
    void on_factoryResetPushButton_clicked();

private:
    Q_DECLARE_PRIVATE(RVXStatisticsSetupPage)
    const std::unique_ptr<RVXStatisticsSetupPagePrivate> d_ptr;
};

} // namespace Corvale_Qt
