// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QToolBar;
class QToolButton;

namespace Monitor {

class FileSource;
class Session;
class TapeDeck;
class TapeTimeline;

//! The tape deck of a recording: its time line, and buttons to play, pause, step, repeat, and choose the speed.
class TapePanel : public QWidget
{
    Q_OBJECT

public:
    //! Returns the panel of a session that plays a file; null if it does not. The session must outlive the panel.
    static TapePanel *forSession(Session &session, QWidget *parent = nullptr);
    //! Returns the same in a tool bar, for the whole width of a window.
    static QToolBar *toolBarFor(Session &session, QWidget *parent);
    ~TapePanel() override;

    TapeDeck &deck() const { return *m_deck; }
    TapeTimeline &timeline() const { return *m_timeline; }

protected:
    void changeEvent(QEvent *event) override;

private:
    TapePanel(Session &session, FileSource &source, QWidget *parent);
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
    void showPosition();

    TapeDeck *m_deck;
    TapeTimeline *m_timeline;
    QToolButton *m_play = nullptr;
    QVector<QPair<QToolButton *, Sign>> m_buttons;
    QComboBox *m_speed = nullptr;
    QLabel *m_position = nullptr;
};

} // namespace Monitor
