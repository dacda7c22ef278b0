// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>
#include <QTranslator>

//! While it lives every text of the application stands in brackets: what does not, was not translated.
class BracketTranslator : public QTranslator
{
public:
    BracketTranslator()
    {
        QCoreApplication::installTranslator(this);
        QCoreApplication::sendPostedEvents(); // tells the widgets
    }
    ~BracketTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char *, const char *text, const char *, int) const override
    {
        return QString("<%1>").arg(QString::fromUtf8(text));
    }
    bool isEmpty() const override { return false; }
};
