// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

#include <memory>

class QComboBox;
class QLabel;
class QToolBar;
class QToolButton;

namespace Monitor {

class Tape;
class TapeTimeline;

//! The tape deck of a recording, or of several that are played together: its time line, and buttons to play, pause, step, repeat, and choose the speed.
class TapePanel : public QWidget
{
    Q_OBJECT

public:
    explicit TapePanel(std::unique_ptr<Tape> tape, QWidget *parent = nullptr);
    //! Returns a panel in a tool bar, for the whole width of a window.
    static QToolBar *toolBarFor(std::unique_ptr<Tape> tape, QWidget *parent);
    ~TapePanel() override;

    Tape &deck() const { return *m_deck; }
    TapeTimeline &timeline() const { return *m_timeline; }

protected:
    void changeEvent(QEvent *event) override;

private:
    //! What is drawn on a button.
    enum class Sign {
        Play,
        Pause,
        Back,
        Forth,
        LoopBegin,
        LoopEnd,
        NoLoop
    };
    QToolButton *addButton(const char *name, Sign sign, const QString &text);
    QIcon icon(Sign sign) const;
    void dressButtons();
    void showSpeed();
    void refresh();
    void keepRoomForPositions();
    void showPosition();

    const std::unique_ptr<Tape> m_deck;
    TapeTimeline *m_timeline;
    QToolButton *m_play = nullptr;
    QVector<QPair<QToolButton *, Sign>> m_buttons;
    QComboBox *m_speed = nullptr;
    QLabel *m_position = nullptr;
};

} // namespace Monitor
