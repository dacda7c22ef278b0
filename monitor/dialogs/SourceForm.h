// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QFormLayout;

namespace Monitor {

//! The fields of one kind of source, each with a line that explains it. The fields and a text as on the command line say the same.
class SourceForm : public QWidget
{
    Q_OBJECT

public:
    //! Returns the name of the kind, for a list.
    virtual QString title() const = 0;
    //! Returns the source that the fields describe, as SourceFactory reads it; empty while a field that is needed is empty.
    virtual QString source() const = 0;
    //! Fills the fields from a text. Returns false, and changes nothing, if the text names another kind.
    virtual bool setSource(const QString &text) = 0;
    //! Returns whether the source can be tried without taking its readings away.
    virtual bool canBeTested() const { return true; }

Q_SIGNALS:
    //! Emitted when a field was changed.
    void edited();

protected:
    explicit SourceForm(QWidget *parent = nullptr);
    //! Adds a field; \a explanation stands below it and is its tool tip.
    void addField(const QString &label,
                  QWidget *editor,
                  const QString &explanation,
                  QWidget *row = nullptr);
    //! Adds a paragraph below the fields.
    void addText(const QString &text);

private:
    QFormLayout *m_layout;
};

//! Returns a new form for each kind of source, in the order in which they are offered.
QList<SourceForm *> newSourceForms(QWidget *parent);

} // namespace Monitor
