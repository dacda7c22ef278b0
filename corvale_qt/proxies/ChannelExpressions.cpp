// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ChannelExpressions.h"

#include "corvale_qt/proxies/ExpressionText_p.h"
#include "corvale_qt/proxies/RowFormula_p.h"

#include <QCoreApplication>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int longestExpression = 4096; // characters
constexpr int longestFormula =
    9000; // characters after ranges of channels were written out; the parser takes 10000

} // namespace

std::optional<ComputedChannel> ComputedChannel::fromText(const QString &text)
{
    const int equals = text.indexOf(QLatin1Char('='));
    ComputedChannel channel;
    channel.name = text.left(std::max(equals, 0)).trimmed();
    channel.expression = text.mid(equals + 1).trimmed();
    const int bracket = channel.name.indexOf(QLatin1Char('['));
    if (channel.name.endsWith(QLatin1Char(']')) && bracket >= 0) {
        channel.unit = channel.name.mid(bracket + 1).chopped(1).trimmed();
        channel.name = channel.name.left(bracket).trimmed();
    }
    if (channel.name.isEmpty())
        return std::nullopt;
    return channel;
}

QString ExpressionFault::message() const
{
    return position < 0 || isEmpty()
        ? text
        : QCoreApplication::translate("Corvale_Qt", "character %1: %2").arg(position + 1).arg(text);
}

//! The formulas, in the order in which they can be computed.
class ChannelExpressionsPrivate
{
public:
    bool checkNames(const QStringList &channels,
                    const QVector<ComputedChannel> &computed,
                    ExpressionFault *fault) const;
    bool read(const QStringList &channels,
              const QVector<ComputedChannel> &computed,
              ExpressionFault *fault);
    bool order(const QVector<ComputedChannel> &computed, ExpressionFault *fault);
    bool visit(int k,
               QVector<int> &marks,
               const QVector<ComputedChannel> &computed,
               ExpressionFault *fault);
    void clear();

    int channels = 0;
    std::vector<ExpressionText> texts; // of each computed channel
    std::vector<std::unique_ptr<RowFormula>> formulas;
    QVector<int> sequence; // of computed channels
    QVector<const double *> sources; // scratch: where each channel's row lies

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::ChannelExpressionsPrivate)
};

void ChannelExpressionsPrivate::clear()
{
    texts.clear();
    formulas.clear();
    sequence.clear();
}

bool ChannelExpressionsPrivate::checkNames(const QStringList &names,
                                           const QVector<ComputedChannel> &computed,
                                           ExpressionFault *fault) const
{
    QStringList taken = names;
    for (int k = 0; k < computed.size(); ++k) {
        const QString &name = computed[k].name;
        if (name.isEmpty())
            *fault = {k, -1, tr("the computed channel has no name")};
        else if (taken.contains(name))
            *fault = {k, -1, tr("there is already a channel called \"%1\"").arg(name)};
        else if (computed[k].expression.size() > longestExpression)
            *fault = {k, longestExpression, tr("the expression is too long")};
        if (!fault->isEmpty())
            return false;
        taken.append(name);
    }
    return true;
}

//! Reads the expressions, whose names are those of the channels and then those of the computed ones.
bool ChannelExpressionsPrivate::read(const QStringList &names,
                                     const QVector<ComputedChannel> &computed,
                                     ExpressionFault *fault)
{
    QStringList all = names;
    for (const ComputedChannel &channel : computed)
        all.append(channel.name);
    channels = names.size();
    for (int k = 0; k < computed.size(); ++k) {
        texts.push_back(ExpressionText::from(computed[k].expression, all, channels, fault));
        if (fault->isEmpty() && texts.back().text.size() > longestFormula)
            *fault = {k, 0, tr("the expression is too long")};
        if (fault->isEmpty())
            formulas.push_back(RowFormula::from(texts.back(), fault));
        if (!fault->isEmpty()) {
            fault->channel = k;
            return false;
        }
    }
    return true;
}

//! Puts each computed channel after those that it uses. Refuses one that uses itself.
bool ChannelExpressionsPrivate::order(const QVector<ComputedChannel> &computed,
                                      ExpressionFault *fault)
{
    QVector<int> marks(computed.size(), 0);
    for (int k = 0; k < computed.size(); ++k) {
        if (!visit(k, marks, computed, fault))
            return false;
    }
    return true;
}

bool ChannelExpressionsPrivate::visit(int k,
                                      QVector<int> &marks,
                                      const QVector<ComputedChannel> &computed,
                                      ExpressionFault *fault)
{
    enum {
        Open = 1,
        Done = 2
    };
    if (marks[k] == Open)
        *fault = {k, -1, tr("\"%1\" is computed from itself").arg(computed[k].name)};
    if (marks[k] != 0)
        return marks[k] == Done;
    marks[k] = Open;
    for (const int used : qAsConst(texts[size_t(k)].channels)) {
        if (used >= channels && !visit(used - channels, marks, computed, fault))
            return false;
    }
    marks[k] = Done;
    sequence.append(k);
    return true;
}

bool ChannelExpressions::isAvailable()
{
    return RowFormula::isAvailable();
}

ChannelExpressions::ChannelExpressions()
    : d(new ChannelExpressionsPrivate)
{
}

ChannelExpressions::~ChannelExpressions() = default;

bool ChannelExpressions::compile(const QStringList &channels,
                                 const QVector<ComputedChannel> &computed,
                                 ExpressionFault *fault)
{
    *fault = ExpressionFault();
    d->clear();
    const bool isGood = d->checkNames(channels, computed, fault)
        && d->read(channels, computed, fault) && d->order(computed, fault);
    if (!isGood)
        d->clear();
    return isGood;
}

int ChannelExpressions::count() const
{
    return d->sequence.size();
}

QVector<int> ChannelExpressions::inputs() const
{
    QVector<int> inputs;
    for (const ExpressionText &text : d->texts) {
        for (const int channel : text.channels) {
            if (channel < d->channels && !inputs.contains(channel))
                inputs.append(channel);
        }
    }
    return inputs;
}

void ChannelExpressions::evaluate(const double *const *inputs, int rows, double *const *outputs)
{
    d->sources.resize(d->channels + count());
    std::copy_n(inputs, d->channels, d->sources.begin());
    std::copy_n(outputs, count(), d->sources.begin() + d->channels);
    for (const int k : qAsConst(d->sequence))
        d->formulas[size_t(k)]->evaluate(d->sources.constData(), rows, outputs[k]);
}

} // namespace Corvale_Qt
