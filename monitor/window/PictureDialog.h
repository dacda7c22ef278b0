// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/PictureMaker.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace Monitor {

//! Asks what stands on a picture, and where it goes.
class PictureDialog : public QDialog
{
    Q_OBJECT

public:
    //! What is done with the picture.
    enum Action {
        Cancel = Rejected,
        Save = Accepted,
        Copy,
    };

    PictureDialog(const PictureOptions &options, const QString &title, QWidget *parent = nullptr);

    PictureOptions options() const;
    //! Returns the title that stands in the field.
    QString title() const;

private:
    QCheckBox *addBox(const char *name, const QString &text, const QString &toolTip, bool checked);

    QCheckBox *m_hasTitle;
    QLineEdit *m_title;
    QCheckBox *m_hasTime;
    QCheckBox *m_hasLegend;
    QComboBox *m_colors;
};

} // namespace Monitor
