// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/StoredControls_p.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QSettings>
#include <QSignalBlocker>
#include <QSpinBox>

namespace Corvale_Qt {

namespace {

QVariant valueOf(const QWidget *control)
{
    if (auto *group = qobject_cast<const QGroupBox *>(control))
        return group->isChecked();
    if (auto *button = qobject_cast<const QAbstractButton *>(control))
        return button->isChecked();
    if (auto *comboBox = qobject_cast<const QComboBox *>(control))
        return comboBox->currentIndex();
    auto *spinBox = qobject_cast<const QSpinBox *>(control);
    Q_ASSERT(spinBox);
    return spinBox->value();
}

void setValue(QWidget *control, const QVariant &value)
{
    const QSignalBlocker blocker(control);
    if (auto *group = qobject_cast<QGroupBox *>(control))
        group->setChecked(value.toBool());
    else if (auto *button = qobject_cast<QAbstractButton *>(control))
        button->setChecked(value.toBool());
    else if (auto *comboBox = qobject_cast<QComboBox *>(control))
        comboBox->setCurrentIndex(qBound(0, value.toInt(), comboBox->count() - 1));
    else if (auto *spinBox = qobject_cast<QSpinBox *>(control))
        spinBox->setValue(value.toInt());
}

} // namespace

void StoredControls::add(const QString &key, QWidget *control)
{
    m_entries.append({key, control});
}

QVariantList StoredControls::values() const
{
    QVariantList values;
    for (const Entry &entry : m_entries)
        values << valueOf(entry.control);
    return values;
}

void StoredControls::setValues(const QVariantList &values)
{
    for (int i = 0; i < m_entries.size(); ++i)
        setValue(m_entries.at(i).control, values.value(i));
}

QVariantList StoredControls::read(QSettings &settings, const QString &group) const
{
    QVariantList values;
    settings.beginGroup(group);
    for (const Entry &entry : m_entries) {
        QVariant value = settings.value(entry.key);
        // A file that was edited by hand may have line breaks and blanks around its texts.
        values << (value.type() == QVariant::String ? value.toString().trimmed() : value);
    }
    settings.endGroup();
    return values;
}

void StoredControls::writeAll(QSettings &settings, const QString &group) const
{
    for (const Entry &entry : m_entries)
        settings.setValue(group + '/' + entry.key, valueOf(entry.control));
}

void StoredControls::write(QSettings &settings, const QString &group, const QWidget *control) const
{
    for (const Entry &entry : m_entries) {
        if (entry.control == control)
            settings.setValue(group + '/' + entry.key, valueOf(control));
    }
}

} // namespace Corvale_Qt
