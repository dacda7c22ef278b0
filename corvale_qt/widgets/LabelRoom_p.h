// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QSize>
#include <QWidget>

class QLabel;

namespace Corvale_Qt {

/*! The room of a label whose text changes often. Each text of a QLabel that lies in a layout lays the whole window out anew, which
    paints more than the label; in this room a text does so only if it needs more room than the ones before. Where the layout has
    not enough room for all, this room shrinks first, and a label that has not the room of its text is hidden: part of a number would
    be another number. */
class LabelRoom : public QWidget
{
public:
    //! Takes the place of \a label in the layout of its parent, and becomes its parent.
    explicit LabelRoom(QLabel *label);

    //! Sets the room to \a width, which is wide enough for usual texts, and to the height of a text.
    void reserve(int width);
    QSize sizeHint() const override { return m_room; }
    QSize minimumSizeHint() const override { return {0, m_room.height()}; }

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void fitLabel();

    QLabel *const m_label;
    QSize m_room;
    bool m_isEnough = true;
};

} // namespace Corvale_Qt
