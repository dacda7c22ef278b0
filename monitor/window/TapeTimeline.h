// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPixmap>
#include <QWidget>

namespace Monitor {

class Tape;
class TapeSketch;

/*! A tape from its beginning to its end: the smallest and the largest sum of the readings of its first recording, where each of several
    recordings lies, events and gaps, what is repeated, and the present position. A click or a drag goes there; a drag with Shift chooses what is repeated. */
class TapeTimeline : public QWidget
{
    Q_OBJECT

public:
    //! \a deck must outlive the widget.
    explicit TapeTimeline(Tape &deck, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    //! Returns the position on the tape, in seconds, of a point at \a x.
    double positionAt(int x) const;
    //! Returns where a position lies in the widget.
    int xOf(double position) const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    static bool isOwnKey(const QKeyEvent &event);
    void forgetPicture();
    void updateCursor();
    QRect band() const;
    TapeSketch sketch() const;
    void paintPicture();
    void paintLoop(QPainter *painter) const;
    void paintPosition(QPainter *painter) const;
    QString toolTipAt(int x) const;

    Tape &m_deck;
    QPixmap m_picture; //!< everything but the position and the loop
    int m_shownX = -1;
    double m_loopFrom = -1.0; //!< where a drag with Shift began
};

} // namespace Monitor
