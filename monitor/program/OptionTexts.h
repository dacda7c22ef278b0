// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>
#include <QVector>

namespace Monitor {

//! One option, as the command line takes it and as the help and the manual page show it.
struct OptionText
{
    QString name; //!< without the dashes
    QString value; //!< placeholder of its value; empty if it takes none
    QString text;
};

//! One section of the help: words and what they mean.
struct TopicText
{
    QString title;
    QVector<QPair<QString, QString>> items;
};

//! Returns the options in the order in which the help lists them.
QVector<OptionText> optionTexts();
//! Returns the sections that follow the options: sources, exit status, examples.
QVector<TopicText> topicTexts();
//! Returns what the program does, in two sentences.
QString summaryText();

} // namespace Monitor
