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

/*! A page on which the operator chooses the beam statistics of the histograms.

    Every registered plot view follows the page immediately, other listeners are told by the signals, and with
    setApplicationSettings() the choice is kept in a file.

    \code
    RVXStatisticsSetupPage page;
    page.addPlotView(scope.plotView());
    page.setApplicationSettings(QFileInfo(folder), true, true);
    \endcode */
class CORVALE_QT_EXPORT RVXStatisticsSetupPage : public QWidget
{
    Q_OBJECT

public:
    //! Creates a page with the default parameters and with all groups switched off.
    explicit RVXStatisticsSetupPage(QWidget *parent = nullptr);
    ~RVXStatisticsSetupPage() override;

    //! Makes a view follow the page until the view is deleted. The view is not owned; null is ignored.
    void addPlotView(RVXScopePlotView *view);

    /*! Loads the page from a settings file and stores every later choice in it. If the file does not contain the page's
        group, the page takes its defaults; a value missing from the group counts as false or 0. Loading writes nothing.

        With \a useApplicationIdentity the settings are kept in a folder, in a file named after the application. The
        folder is \a file if that is a folder or has no suffix, otherwise the folder that contains \a file. Without
        \a useApplicationIdentity, \a file is the settings file. See RVXApplicationSettings. */
    void
    setApplicationSettings(const QFileInfo &file, bool useApplicationIdentity, bool useXmlFormat);

    //! Chooses the number of peaks: 1, 2, 4 or 8; any other number counts as 1.
    void set_peaks(int n);
    //! Switches the regression on.
    void enable_regression();

    //! Returns the form layout of the Gaussian fit, to which a host can add rows.
    QFormLayout *gaussianLayout() const;
    //! Returns the layout of the whole page.
    QVBoxLayout *layout() const;

Q_SIGNALS:
    /*! Reports a choice for the centre of gravity. \a parameters has three elements: 0 for threshold or 1 for window,
        the threshold as a fraction of the largest bar, and the half width of the window in channels. It is empty if not
        \a enabled. \a peaks is 1, 2, 4 or 8. */
    void CoGOptions(bool enabled, QVector<double> parameters, int peaks);
    /*! Reports a choice for the Gaussian fit. \a parameters has six elements: the threshold as a fraction of the peak,
        the half width of the window in channels, the smallest peak and the smallest sum in the base unit, the power of
        the weights, and the half width of the Chi-square window in channels. It is empty if not \a enabled. \a peaks is
        1, 2, 4 or 8. */
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
