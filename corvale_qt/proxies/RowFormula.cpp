// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "corvale_qt/proxies/RowFormula_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#ifdef CORVALE_QT_HAS_MUPARSER
#include <muParser.h>
#endif

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Corvale_Qt {

namespace {

} // namespace

RowFormula::RowFormula() = default;
RowFormula::~RowFormula() = default;

#ifdef CORVALE_QT_HAS_MUPARSER

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

BeamEstimate fit(const double *readings, int count)
{
    return logParabolaGaussian(
        BeamProfile::uniform(QVector<double>(readings, readings + count), 1.0, 1.0));
}

double fitPosition(const double *readings, int count)
{
    const BeamEstimate found = fit(readings, count);
    return found.isOk() ? found.position.value : notANumber;
}

double fitSigma(const double *readings, int count)
{
    const BeamEstimate found = fit(readings, count);
    return found.isOk() ? found.sigma.value : notANumber;
}

double fitIntegral(const double *readings, int count)
{
    const BeamEstimate found = fit(readings, count);
    const double rootOfTwoPi = std::sqrt(2.0 * std::acos(-1.0));
    return found.isOk() ? found.height.value * found.sigma.value * rootOfTwoPi : notANumber;
}

//! Returns what the parser means, in the words of somebody who types an expression.
QString explained(const mu::ParserError &error)
{
    switch (error.GetCode()) {
    case mu::ecEMPTY_EXPRESSION:
        return tr("there is no expression");
    case mu::ecUNEXPECTED_EOF:
        return tr("the expression ends too early");
    case mu::ecMISSING_PARENS:
        return tr("a parenthesis is not closed");
    case mu::ecUNEXPECTED_PARENS:
        return tr("this parenthesis has no counterpart, or nothing in it");
    case mu::ecTOO_MANY_PARAMS:
        return tr("the function has too many arguments");
    case mu::ecTOO_FEW_PARAMS:
        return tr("the function has too few arguments");
    case mu::ecUNEXPECTED_OPERATOR:
        return tr("a value is missing before this operator");
    case mu::ecUNEXPECTED_VAL:
    case mu::ecUNEXPECTED_VAR:
    case mu::ecUNEXPECTED_FUN:
        return tr("an operator is missing before this");
    case mu::ecUNEXPECTED_ARG_SEP:
    case mu::ecUNEXPECTED_ARG:
        return tr("this comma does not separate the arguments of a function");
    case mu::ecMISSING_ELSE_CLAUSE:
    case mu::ecMISPLACED_COLON:
    case mu::ecUNEXPECTED_CONDITIONAL:
        return tr("\"?\" and \":\" do not belong together here");
    default:
        return tr("this cannot be understood");
    }
}

/*! Evaluates row after row. The parser's own loop over many rows starts threads, and this library starts none behind the back of
    its hosts. */
class CompiledFormula : public RowFormula
{
public:
    explicit CompiledFormula(const ExpressionText &text)
        : m_channels(text.channels)
        , m_values(size_t(text.channels.size()), 1.0)
    {
        m_parser.DefineFun("fit_position", fitPosition);
        m_parser.DefineFun("fit_sigma", fitSigma);
        m_parser.DefineFun("fit_integral", fitIntegral);
        for (size_t i = 0; i < m_values.size(); ++i)
            m_parser.DefineVar('v' + std::to_string(m_channels[int(i)]), &m_values[i]);
        m_parser.SetExpr(text.text.toStdString());
        m_parser.Eval(); // the parser reads it only now
    }

    void evaluate(const double *const *sources, int rows, double *out) override
    {
        for (int row = 0; row < rows; ++row) {
            for (size_t i = 0; i < m_values.size(); ++i)
                m_values[i] = sources[m_channels[int(i)]][row];
            out[row] = value();
        }
    }

private:
    double value()
    {
        try {
            return m_parser.Eval();
        } catch (const mu::ParserError &) {
            return notANumber;
        }
    }

    QVector<int> m_channels;
    std::vector<double> m_values; // does not move: the parser has pointers to it
    mu::Parser m_parser;
};

} // namespace

bool RowFormula::isAvailable()
{
    return true;
}

std::unique_ptr<RowFormula> RowFormula::from(const ExpressionText &text, ExpressionFault *fault)
{
    try {
        return std::make_unique<CompiledFormula>(text);
    } catch (const mu::ParserError &error) {
        const int place = std::clamp(error.GetPos(), 0, text.origins.size() - 1);
        *fault = {-1, text.origins[place], explained(error)};
    }
    return nullptr;
}

#else

bool RowFormula::isAvailable()
{
    return false;
}

std::unique_ptr<RowFormula> RowFormula::from(const ExpressionText &, ExpressionFault *fault)
{
    *fault = {-1, -1, tr("this library was built without muparser, which reads expressions")};
    return nullptr;
}

#endif

} // namespace Corvale_Qt
