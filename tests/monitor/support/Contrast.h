// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/support/Contrast.h"

#include <QtWidgets>

/*! Returns the contrast of what a picture shows with its most frequent colour, the background: that of the colour
    farthest from it. The edges of letters are paler than their cores. */
inline double contrastIn(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    QRgb background = 0;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color)
        if (color.value() > counts.value(background))
            background = color.key();
    double farthest = 1.0;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color)
        farthest = std::max(farthest, contrast(color.key(), background));
    return farthest;
}

/*! Returns a line for each visible part of a window that is too pale, as it is painted: text needs a contrast of 4.5, a
    symbol 3 (WCAG 2.1, 1.4.3 and 1.4.11). What is disabled needs none. \a looked counts the parts. */
inline QStringList paleParts(QWidget *window, int &looked)
{
    QStringList pale;
    for (QWidget *part : window->findChildren<QWidget *>()) {
        const auto *label = qobject_cast<const QLabel *>(part);
        const auto *button = qobject_cast<const QAbstractButton *>(part);
        const auto *box = qobject_cast<const QComboBox *>(part);
        const auto *line = qobject_cast<const QLineEdit *>(part);
        const QString text = label ? label->text()
            : button               ? button->text()
            : box                  ? box->currentText()
            : line                 ? line->text() + line->placeholderText()
                                   : QString();
        const bool hasSymbol = button && !button->icon().isNull();
        if (!part->isVisibleTo(window) || !part->isEnabled() || part->visibleRegion().isEmpty()
            || part->property("text").toString().startsWith('<') || (text.isEmpty() && !hasSymbol))
            continue;
        ++looked;
        const QRect area(part->mapTo(window, QPoint()), part->size());
        const double found = contrastIn(window->grab(area & window->rect()).toImage());
        if (found < (text.isEmpty() ? 3.0 : 4.5))
            pale.append(QString("%1 %2 \"%3\": %4")
                            .arg(part->metaObject()->className(), part->objectName(), text)
                            .arg(found, 0, 'f', 2));
    }
    return pale;
}
