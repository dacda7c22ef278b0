// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include "corvale_qt/scope/RVXStatisticsSetupPage.h"
#include "corvale_qt/settings/StoredControls_p.h"

#include "ui_RVXStatisticsSetupPage.h"

#include <QSharedPointer>

namespace Corvale_Qt {

class RVXApplicationSettings;

//! Groups of the settings file.
const QLatin1String userGroup("StatisticsSetupPage");
const QLatin1String factoryGroup("FactoryReset");

class RVXStatisticsSetupPagePrivate
{
public:
    explicit RVXStatisticsSetupPagePrivate(RVXStatisticsSetupPage *page)
        : q_ptr(page)
    {
    }

    void setUpGroups();
    void enableEditors();
    void nameStoredControls();
    int peaks() const { return ui.peaksEdit->currentText().toInt(); }
    QVector<double> cogParameters() const;
    QVector<double> regressionParameters() const;
    //! Has one view show what the page says; items that are off are taken away.
    void applyCoGTo(RVXScopePlotView *view) const;
    void applyRegressionTo(RVXScopePlotView *view) const;
    void applyCoG();
    void applyRegression();
    void applyBoth();
    void load(const QVariantList &values);
    //! Keeps what the operator changed; \a controls may be one or several, in one write.
    void store(const QVector<QWidget *> &controls);
    void storeAll();
    void chooseCoGMode(bool on);

    RVXStatisticsSetupPage *const q_ptr;
    Q_DECLARE_PUBLIC(RVXStatisticsSetupPage)
    Ui::RVXStatisticsSetupPage ui;
    StoredControls stored;
    QVariantList defaults;
    //! The title that the form gave, in the language in use; another one is the host's.
    QString formTitle;
    QVector<RVXScopePlotView *> views;
    QSharedPointer<RVXApplicationSettings> settings;

private:
    void sync();
};

} // namespace Corvale_Qt
