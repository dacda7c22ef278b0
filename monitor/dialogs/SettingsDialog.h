// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/MonitorOptions.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace Monitor {

class VerdictPage;

//! Asks for what the command line can also say: the language, how files are played, limits, the detector, verdicts, and recordings.
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    //! \a settingsFile is where the choices are kept; the dialog shows it.
    SettingsDialog(const MonitorOptions &options,
                   const QString &settingsFile,
                   QWidget *parent = nullptr);

    //! Returns what the fields say.
    MonitorOptions options() const;
    void accept() override;

private:
    QWidget *newStartPage(const QString &settingsFile);
    QWidget *newFilePage();
    QWidget *newReadingsPage();
    QWidget *newRecordPage();
    void fill();
    QWidget *withBrowse(QLineEdit *edit);
    void browse(QLineEdit *edit, bool folder);
    QWidget *withDetectors(QLineEdit *edit);
    QString fault() const;

    const MonitorOptions m_former;
    QComboBox *m_start;
    QComboBox *m_language;
    QDoubleSpinBox *m_speed;
    QCheckBox *m_unpaced;
    QCheckBox *m_loop;
    QLineEdit *m_from;
    QLineEdit *m_to;
    QLineEdit *m_low;
    QLineEdit *m_high;
    QLineEdit *m_detector;
    QLineEdit *m_minimumSum;
    QLineEdit *m_folder;
    QLineEdit *m_rotation;
    QComboBox *m_segments;
    VerdictPage *m_verdicts;
    QLabel *m_fault;
};

} // namespace Monitor
