// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/SourceForm.h"

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace Monitor {

//! A simulated beam.
class SimulatorForm : public SourceForm
{
    Q_OBJECT

public:
    explicit SimulatorForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    QComboBox *m_instrument;
    QSpinBox *m_seed;
};

//! A recording or another table in a file.
class FileForm : public SourceForm
{
    Q_OBJECT

public:
    explicit FileForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    void browse();

    QLineEdit *m_path;
};

//! Lines on standard input, which has no fields.
class StandardInputForm : public SourceForm
{
    Q_OBJECT

public:
    explicit StandardInputForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;
    bool canBeTested() const override { return false; }
};

} // namespace Monitor
