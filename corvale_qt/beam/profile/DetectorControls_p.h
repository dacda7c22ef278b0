// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QGroupBox>

class QAction;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace Corvale_Qt {

class QScienceSpinBox;
class RVXSpectrogram;

/*! The controls of a described detector: a group of the side bar, and the same as actions of the picture's context menu, which can
    be reached without a side bar. */
class DetectorControls : public QGroupBox
{
    Q_OBJECT

public:
    //! Becomes a child of the side bar, above the plot over time. The display must outlive the controls.
    DetectorControls(RVXSpectrogram &display, QWidget *sideBar, QBoxLayout *box);
    ~DetectorControls() override;

    //! Shows or hides the controls and their actions.
    void setLayoutShown(bool shown);
    //! Shows what is set now.
    void showState();

private:
    void setUpEstimators();
    void setUpFrames();
    void setUpRange();
    void placeControls();
    void connectControls();
    void takePlaceInTabOrder(QBoxLayout *box);
    void makeActions();
    QAction *addAction(const char *name, const QString &text);
    void typeRange(bool typed);
    void applyRange();
    void showRange();
    void save(bool picture);

    RVXSpectrogram &m_display;
    QComboBox *m_estimator;
    QCheckBox *m_log;
    QCheckBox *m_projections;
    QCheckBox *m_typed;
    QScienceSpinBox *m_low;
    QScienceSpinBox *m_high;
    QSpinBox *m_averaged;
    QPushButton *m_take;
    QSpinBox *m_backgroundFrames;
    QCheckBox *m_subtracted;
    QLabel *m_state;
    QList<QAction *> m_actions;
    QAction *m_clear = nullptr;
    bool m_isShowing = false; //!< the controls are being set, not by the user
};

} // namespace Corvale_Qt
