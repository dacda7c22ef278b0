// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/proxies/ChannelExpressions.h>

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace Monitor {

/*! Adds, edits and removes the channels that are computed from others. It says what is wrong with an expression and marks the place
    in the field; while something is wrong, it cannot be accepted. */
class ComputedDialog : public QDialog
{
    Q_OBJECT

public:
    //! Shows \a channels, which are computed from those that the stream with \a header measures.
    ComputedDialog(const QVector<Corvale_Qt::ComputedChannel> &channels,
                   const StreamHeader &header,
                   QWidget *parent = nullptr);

    //! Returns the channels as they were edited.
    const QVector<Corvale_Qt::ComputedChannel> &channels() const { return m_channels; }

private:
    QLineEdit *newField(const char *name, const QString &toolTip);
    QWidget *newList();
    QWidget *newFields();
    void addChannel();
    void removeChannel();
    void showChannel();
    void takeFields();
    void check();
    void showFault(const Corvale_Qt::ExpressionFault &fault);
    void markPlace(int position);
    QString explanation() const;

    const StreamHeader m_header;
    QVector<Corvale_Qt::ComputedChannel> m_channels;
    QListWidget *m_list;
    QPushButton *m_remove;
    QLineEdit *m_name;
    QLineEdit *m_unit;
    QPlainTextEdit *m_expression;
    QLabel *m_fault;
    QPushButton *m_ok = nullptr;
    bool m_isShowing = false; //!< the fields change because another channel is selected
};

} // namespace Monitor
