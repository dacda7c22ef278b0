// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>
#include <QVector>

namespace Monitor {

//! One option, as the command line takes it and as help and manual page show it.
struct OptionText
{
    QString name;
    QString value; //!< empty where it takes none
    QString text;
};

//! One paragraph with its headings: a word and what it means.
struct TopicText
{
    QString title;
    QVector<QPair<QString, QString>> items;
};

//! All that is said about the program in words, once.
QVector<OptionText> optionTexts();
QVector<TopicText> topicTexts();
QString summaryText();

} // namespace Monitor
