// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace Monitor {

using Corvale_Qt::DisplayPicture;

PictureDialog::PictureDialog(const PictureOptions &options, const QString &title, QWidget *parent)
    : QDialog(parent)
    , m_hasTitle(addBox("hasTitle",
                        tr("&Title:"),
                        tr("A title above the picture (Alt+T)"),
                        options.hasTitle))
    , m_title(new QLineEdit(title, this))
    , m_hasTime(
          addBox("hasTime",
                 tr("T&ime"),
                 tr("When the picture was taken, and what was subtracted or averaged (Alt+I)"),
                 options.hasTime))
    , m_hasLegend(addBox("hasLegend",
                         tr("&Legend"),
                         tr("The channels that are shown, with their newest values (Alt+L)"),
                         options.hasLegend))
    , m_colors(new QComboBox(this))
{
    setWindowTitle(tr("Picture"));
    m_title->setObjectName(QStringLiteral("title"));
    m_title->setAccessibleName(tr("Title"));
    m_title->setEnabled(options.hasTitle);
    m_title->setMinimumWidth(m_title->fontMetrics().averageCharWidth() * 50);
    connect(m_hasTitle, &QCheckBox::toggled, m_title, &QWidget::setEnabled);
    m_colors->setObjectName(QStringLiteral("colors"));
    m_colors->addItems({tr("As on the screen"), tr("Light, for paper"), tr("Dark")});
    m_colors->setCurrentIndex(int(options.colors));
    m_colors->setToolTip(tr("The colours of the picture; the screen stays as it is (Alt+O)"));

    auto *form = new QFormLayout(this);
    form->addRow(m_hasTitle, m_title);
    form->addRow(QString(), m_hasTime);
    form->addRow(QString(), m_hasLegend);
    form->addRow(tr("C&olours:"), m_colors);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton *save = buttons->addButton(tr("&Save..."), QDialogButtonBox::AcceptRole);
    save->setDefault(true);
    save->setToolTip(tr("Write a PNG, SVG or PDF file (Enter)"));
    QPushButton *copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setToolTip(tr("Copy the picture to the clipboard (Alt+C)"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(copy, &QPushButton::clicked, this, [this] {
        done(Copy);
    });
    save->setFocus();
}

QCheckBox *
PictureDialog::addBox(const char *name, const QString &text, const QString &toolTip, bool checked)
{
    auto *box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(toolTip);
    box->setChecked(checked);
    return box;
}

PictureOptions PictureDialog::options() const
{
    return {m_hasTitle->isChecked(),
            m_hasTime->isChecked(),
            m_hasLegend->isChecked(),
            DisplayPicture::Colors(m_colors->currentIndex())};
}

QString PictureDialog::title() const
{
    return m_title->text();
}

} // namespace Monitor
