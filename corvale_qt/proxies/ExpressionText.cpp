// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ExpressionText_p.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace Corvale_Qt {

namespace {

//! Reads the characters of one expression.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::Reader)

public:
    Reader(const QString &expression, const QStringList &names, int rangeEnd)
        : m_expression(expression)
        , m_names(names)
        , m_rangeEnd(rangeEnd)
    {
    }

    ExpressionText read(ExpressionFault *fault)
    {
        while (m_at < m_expression.size() && m_fault.isEmpty())
            readNext();
        m_found.origins.append(m_at);
        if (m_fault.isEmpty())
            return m_found;
        *fault = m_fault;
        return ExpressionText();
    }

private:
    void readNext()
    {
        static const QRegularExpression number(
            QStringLiteral("(\\d+(\\.(?!\\.)\\d*)?|\\.\\d+)([eE][+-]?\\d+)?"));
        static const QRegularExpression word(QStringLiteral("[\\p{L}_][\\p{L}\\p{N}_]*"));
        static const QRegularExpression sign(
            QStringLiteral("[-+*/^()?:,\\s]|[<>!=]=|[<>]|&&|\\|\\|"));
        const int begin = m_at;
        if (const QString digits = take(number); !digits.isEmpty())
            append(digits.toLatin1(), begin);
        else if (const QString name = take(word); !name.isEmpty())
            readWord(name, begin);
        else if (m_expression[m_at] == QLatin1Char('['))
            readChannel(begin);
        else if (const QString mark = take(sign); !mark.isEmpty())
            append(mark.trimmed().isEmpty() ? QByteArray(" ") : mark.toLatin1(), begin);
        else
            fail(begin, tr("\"%1\" means nothing here").arg(m_expression[m_at]));
    }

    void readWord(const QString &name, int begin)
    {
        const bool isConstant = name == QLatin1String("_pi") || name == QLatin1String("_e");
        if (m_names.contains(name) && !isCall()) {
            m_at = begin;
            readChannel(begin);
        } else if (isCall() || isConstant) {
            append(name.toUtf8(), begin);
            if (!isConstant && !isFunction(name))
                fail(begin, tr("there is no function \"%1\"").arg(name));
        } else {
            fail(begin, tr("no channel is called \"%1\"").arg(name));
        }
    }

    //! Reads a channel, or a range of channels, as what the parser reads.
    void readChannel(int begin)
    {
        const int first = channel();
        static const QRegularExpression dots(QStringLiteral("\\s*\\.\\.\\s*"));
        if (!m_fault.isEmpty())
            return;
        if (take(dots).isEmpty()) {
            appendChannel(first, begin);
            return;
        }
        const int endAt = m_at;
        const int last = m_at < m_expression.size() ? channel() : -1;
        if (!m_fault.isEmpty())
            return;
        if (last < first || last >= m_rangeEnd) {
            fail(endAt, tr("a range of channels ends with a later channel that is not computed"));
            return;
        }
        for (int i = first; i <= last; ++i) {
            appendChannel(i, begin);
            if (i < last)
                append(",", begin);
        }
    }

    //! Reads the name of a channel. Returns -1, with a fault, if there is none of that name.
    int channel()
    {
        static const QRegularExpression word(QStringLiteral("[\\p{L}_][\\p{L}\\p{N}_]*"));
        static const QRegularExpression bracket(QStringLiteral("\\[[^\\]]*\\]"));
        const int begin = m_at;
        QString name = take(word);
        if (name.isEmpty()) {
            name = take(bracket);
            if (name.isEmpty()) {
                fail(begin, tr("a name of a channel is missing, or its bracket is not closed"));
                return -1;
            }
            name = name.mid(1, name.size() - 2).trimmed();
        }
        const int found = m_names.indexOf(name);
        if (found < 0)
            fail(begin, tr("no channel is called \"%1\"").arg(name));
        return found;
    }

    void appendChannel(int channel, int origin)
    {
        if (!m_found.channels.contains(channel))
            m_found.channels.append(channel);
        append('v' + QByteArray::number(channel), origin);
    }

    static bool isFunction(const QString &name)
    {
        static const QStringList functions = {
            "sqrt", "abs",  "exp",  "ln",   "log10",        "sin",       "cos",
            "tan",  "asin", "acos", "atan", "atan2",        "min",       "max",
            "sum",  "avg",  "sign", "rint", "fit_position", "fit_sigma", "fit_integral"};
        return functions.contains(name);
    }
    bool isCall() const
    {
        static const QRegularExpression parenthesis(QStringLiteral("\\G\\s*\\("));
        return parenthesis.match(m_expression, m_at).hasMatch();
    }
    //! Returns what matches at the present place, and goes on behind it.
    QString take(const QRegularExpression &form)
    {
        const QRegularExpressionMatch match = form.match(m_expression,
                                                         m_at,
                                                         QRegularExpression::NormalMatch,
                                                         QRegularExpression::AnchoredMatchOption);
        m_at += match.hasMatch() ? match.capturedLength() : 0;
        return match.captured();
    }
    void append(const QByteArray &text, int origin)
    {
        m_found.text += text;
        for (int i = 0; i < text.size(); ++i)
            m_found.origins.append(origin);
    }
    void fail(int position, const QString &text)
    {
        if (m_fault.isEmpty())
            m_fault = {-1, position, text};
    }

    const QString &m_expression;
    const QStringList &m_names;
    int m_rangeEnd;
    int m_at = 0;
    ExpressionText m_found;
    ExpressionFault m_fault;
};

} // namespace

ExpressionText ExpressionText::from(const QString &expression,
                                    const QStringList &names,
                                    int rangeEnd,
                                    ExpressionFault *fault)
{
    return Reader(expression, names, rangeEnd).read(fault);
}

} // namespace Corvale_Qt
