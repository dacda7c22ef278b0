// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/EnglishTexts.h"

#include <QtWidgets>

/*! A language that is English with accents while it lives: a text without them has not been translated. Its texts are as wide as
    English ones. */
class MarkedLanguage : public QTranslator
{
public:
    MarkedLanguage() { QCoreApplication::installTranslator(this); }
    ~MarkedLanguage() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        static const QString plain = "aeiou", marked = QString::fromUtf8("àèìòù");
        static const QRegularExpression kept("<[^>]*>|&[a-z]+;"); // markup
        if (Monitor::EnglishTexts::areWanted())
            return QString();
        QString text = QString::fromUtf8(source);
        int end = 0;
        for (int from = 0; from < text.size(); from = end) {
            const QRegularExpressionMatch markup = kept.match(text, from);
            const int until = markup.hasMatch() ? markup.capturedStart() : text.size();
            for (int i = from; i < until; ++i)
                if (const int vowel = plain.indexOf(text[i]); vowel >= 0)
                    text[i] = marked[vowel];
            end = markup.hasMatch() ? markup.capturedEnd() : until;
        }
        return text;
    }

    //! Returns the texts of a part of a window that have two words in a row without an accent.
    static QStringList unmarked(const QWidget *part)
    {
        QStringList texts;
        for (const char *name : {"text", "title", "toolTip", "placeholderText", "windowTitle",
                                 "accessibleName", "accessibleDescription", "statusTip"})
            texts << part->property(name).toString();
        for (const QAction *action : part->actions())
            texts << action->text() << action->toolTip();
        if (const auto *box = qobject_cast<const QComboBox *>(part))
            for (int i = 0; i < box->count(); ++i)
                texts << box->itemText(i) << box->itemData(i, Qt::ToolTipRole).toString();
        static const QRegularExpression english("\\b[A-Za-z]*[aeiou][a-z]+ [a-z]*[aeiou][a-z]+\\b");
        return texts.filter(english);
    }

    //! Returns a text of this language in English.
    static QString unaccented(QString text)
    {
        text = text.normalized(QString::NormalizationForm_D);
        return text.remove(QRegularExpression("\\p{M}"));
    }
};
