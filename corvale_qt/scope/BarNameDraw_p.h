// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_draw.h>

#include <QStringList>

namespace Corvale_Qt {

/*! Labels the bars of a histogram with the names of their channels. Names that do not fit under their bars are shortened in the
    middle, and written upwards if not even four letters fit. */
class BarNameDraw : public QwtScaleDraw
{
public:
    //! \a names are those of channels 1 and up.
    explicit BarNameDraw(const QStringList &names);
    QwtText label(double channel) const override;
    void draw(QPainter *painter, const QPalette &palette) const override;
    double extent(const QFont &font) const override;

private:
    bool isUpright(const QFont &font) const;
    double barWidth() const;
    QString shortened(const QString &name, const QFont &font, double room) const;

    QStringList m_names;
};

} // namespace Corvale_Qt
