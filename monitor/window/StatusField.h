// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/Look.h"

#include <QLabel>
#include <QVector>

#include <optional>

namespace Monitor {

/*! A field of the status line. Where there is no room for the whole text it ends with an ellipsis, and the tool tip has all of
    it. Texts are shown as they are, never as markup. */
class StatusField : public QLabel
{
    Q_OBJECT

public:
    //! A piece of the text, on the ground of a state if it has one.
    struct Part
    {
        QString text;
        QString help; //!< for the tool tip: what the text means, and what to do
        std::optional<Look::State> state;

        bool operator==(const Part &other) const
        {
            return text == other.text && help == other.help && state == other.state;
        }
    };

    //! \a meaning says in the tool tip what the field shows.
    StatusField(const QString &meaning, QWidget *parent);

    void tell(const QString &text);
    //! Shows pieces beside each other; where room is short, the last ones are cut first.
    void tell(const QVector<Part> &parts);
    //! Returns what is painted of each piece in the present width.
    QStringList shownTexts() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int widthOf(const Part &part) const;
    QVector<int> widths() const;
    void explain();

    const QString m_meaning;
    QVector<Part> m_parts;
};

} // namespace Monitor
