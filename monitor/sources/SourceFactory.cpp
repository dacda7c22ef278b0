// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SourceFactory.h"

#include "monitor/core/Text.h"
#include "monitor/sources/PgmSource.h"
#include "monitor/sources/PluginCall.h"
#include "monitor/sources/PluginSource.h"
#include "monitor/sources/SerialSource.h"
#include "monitor/sources/SimulatorSource.h"
#include "monitor/sources/SourcePlugins.h"
#include "monitor/sources/StandardInputSource.h"
#include "monitor/sources/TcpClientSource.h"
#include "monitor/sources/TcpServerSource.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Monitor {

namespace {

const QString simulatorScheme = QStringLiteral("sim:");
const QString serialScheme = QStringLiteral("serial:");

//! Returns whether the query has only keys from the list.
bool hasOnly(const QUrlQuery &query, const QStringList &keys)
{
    const auto items = query.queryItems();
    return std::all_of(items.begin(), items.end(), [&](const QPair<QString, QString> &item) {
        return keys.contains(item.first);
    });
}

//! Splits "rest?query" at the question mark.
QUrlQuery splitQuery(const QString &text, QString *rest)
{
    const int mark = text.indexOf(QLatin1Char('?'));
    *rest = text.left(mark);
    return mark < 0 ? QUrlQuery() : QUrlQuery(text.mid(mark + 1));
}

/*! Returns the longest silence that the query names (0 for no limit), \a usual if it names none, and nothing if the
    value makes no sense. */
std::optional<double> silenceOf(const QUrlQuery &query, double usual)
{
    const QString key = QStringLiteral("silence");
    if (!query.hasQueryItem(key))
        return usual;
    const QString text = query.queryItemValue(key);
    return text == QLatin1String("0") ? std::optional<double>(0.0) : secondsFromText(text);
}

} // namespace

std::optional<double> secondsFromText(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9.]+)(ms|s|min|h)?$"));
    const QRegularExpressionMatch match = form.match(text);
    bool ok = false;
    const double number = match.captured(1).toDouble(&ok);
    if (!ok || !(number > 0.0) || !std::isfinite(number))
        return std::nullopt;
    const QString unit = match.captured(2);
    const double factor = unit == QLatin1String("ms") ? 1e-3
        : unit == QLatin1String("min")                ? 60.0
        : unit == QLatin1String("h")                  ? 3600.0
                                                      : 1.0;
    return number * factor;
}

SourceFactory::SourceFactory(Clock &clock, const FileSource::Options &fileOptions)
    : m_clock(clock)
    , m_fileOptions(fileOptions)
{
}

std::unique_ptr<Source> SourceFactory::failed(const QString &error)
{
    m_error = error;
    return nullptr;
}

const SourceFactory::Kind *SourceFactory::kindOf(const QString &text)
{
    static const Kind kinds[] = {
        {simulatorScheme, &SourceFactory::simulator},
        {QStringLiteral("tcp://"), &SourceFactory::tcpClient},
        {QStringLiteral("tcp-listen://"), &SourceFactory::tcpServer},
        {serialScheme, &SourceFactory::serial},
    };
    const auto *const found =
        std::find_if(std::begin(kinds), std::end(kinds), [&text](const Kind &kind) {
            return text.startsWith(kind.scheme);
        });
    return found == std::end(kinds) ? nullptr : found;
}

QString SourceFactory::filePath(const QString &text)
{
    const QLatin1String fileScheme("file:");
    if (text.startsWith(fileScheme))
        return text.mid(fileScheme.size());
    const bool isOther = text == QLatin1String("-") || kindOf(text)
        || text.contains(QLatin1String("://")) || !SourcePlugins::schemeOf(text).isEmpty();
    return isOther ? QString() : text;
}

std::unique_ptr<Source> SourceFactory::make(const QString &text)
{
    m_error.clear();
    if (text == QLatin1String("-"))
        return std::make_unique<StandardInputSource>(m_clock);
    if (const Kind *const kind = kindOf(text))
        return (this->*kind->make)(text);
    if (!SourcePlugins::schemeOf(text).isEmpty())
        return ofPlugin(text);
    const QString path = filePath(text);
    if (path.contains(QLatin1String("://")) || path.isEmpty())
        return failed(
            Text::tr("\"%1\" is not a known kind of source; there are sim:, file:, -, tcp://, "
                     "tcp-listen:// and serial:")
                .arg(text));
    if (PgmSource::suits(path))
        return std::make_unique<PgmSource>(m_clock, path, m_fileOptions);
    return std::make_unique<FileSource>(m_clock, path, m_fileOptions);
}

std::unique_ptr<Source> SourceFactory::ofPlugin(const QString &text)
{
    QString error;
    CorvaleMonitor::SourcePlugin *plugin =
        SourcePlugins().load(SourcePlugins::schemeOf(text), &error);
    if (plugin)
        callPlugin(&error, [&] {
            error = plugin->check(text);
        });
    else
        error = Text::tr("\"%1\" is not a known kind of source: %2").arg(text, error);
    if (!error.isEmpty())
        return failed(error);
    return std::make_unique<PluginSource>(m_clock, *plugin, text);
}

std::unique_ptr<Source> SourceFactory::simulator(const QString &text)
{
    const QString rest = text.mid(simulatorScheme.size());
    QString name;
    const QUrlQuery query = splitQuery(rest, &name);
    bool ok = true;
    const unsigned seed = query.hasQueryItem(QStringLiteral("seed"))
        ? query.queryItemValue(QStringLiteral("seed")).toUInt(&ok)
        : SimulatorSource::defaultSeed;
    if (!ok || !hasOnly(query, {QStringLiteral("seed")}))
        return failed(Text::tr("sim:%1: only seed=NUMBER may follow the question mark").arg(rest));
    if (!SimulatedInstrument::make(name))
        return failed(
            Text::tr("there is no simulator \"%1\"; there are sim:ic4, sim:strips, sim:pixels and "
                     "sim:spots")
                .arg(name));
    return std::make_unique<SimulatorSource>(m_clock, name, seed);
}

std::unique_ptr<Source> SourceFactory::tcpClient(const QString &text)
{
    const QUrl url(text);
    if (!url.isValid() || url.host().isEmpty() || url.port() <= 0 || !url.path().isEmpty())
        return failed(Text::tr("\"%1\" should be tcp://HOST:PORT").arg(text));
    const QUrlQuery query(url);
    TcpClientSource::Question question{{}, TcpClientSource::usualInterval};
    question.text =
        query.queryItemValue(QStringLiteral("ask"), QUrl::FullyDecoded).toUtf8().left(1000);
    const QString every = query.queryItemValue(QStringLiteral("every"));
    const std::optional<double> seconds = secondsFromText(every);
    question.every = seconds.value_or(question.every);
    auto source =
        std::make_unique<TcpClientSource>(m_clock, url.host(), quint16(url.port()), question);
    const std::optional<double> silence = silenceOf(query, source->longestSilence());
    const bool known =
        hasOnly(query, {QStringLiteral("ask"), QStringLiteral("every"), QStringLiteral("silence")});
    if (!known || !silence || (!every.isEmpty() && !seconds)
        || (seconds && question.text.isEmpty()))
        return failed(Text::tr("\"%1\": only ?ask=TEXT&every=100ms&silence=30s may follow the port")
                          .arg(text));
    source->setLongestSilence(*silence);
    return source;
}

std::unique_ptr<Source> SourceFactory::tcpServer(const QString &text)
{
    const QUrl url(text);
    const QHostAddress address(
        url.host() == QLatin1String("localhost") ? QStringLiteral("127.0.0.1") : url.host());
    const QUrlQuery query(url);
    const std::optional<double> silence = silenceOf(query, 0.0);
    const bool known = silence && hasOnly(query, {QStringLiteral("silence")});
    if (!url.isValid() || address.isNull() || url.port() < 0 || !url.path().isEmpty() || !known)
        return failed(
            Text::tr(
                "\"%1\" should be tcp-listen://127.0.0.1:PORT, with the address of one of this "
                "machine's interfaces (0.0.0.0 for all of them); only ?silence=30s may follow the "
                "port")
                .arg(text));
    auto source = std::make_unique<TcpServerSource>(m_clock, address, quint16(url.port()));
    source->setLongestSilence(*silence);
    return source;
}

std::unique_ptr<Source> SourceFactory::serial(const QString &text)
{
    const QString rest = text.mid(serialScheme.size());
    QString device;
    const QUrlQuery query = splitQuery(rest, &device);
    bool ok = true;
    const int baud = query.hasQueryItem(QStringLiteral("baud"))
        ? query.queryItemValue(QStringLiteral("baud")).toInt(&ok)
        : SerialSource::defaultBaudRate;
    const std::optional<double> silence = silenceOf(query, 0.0);
    const bool known =
        silence && hasOnly(query, {QStringLiteral("baud"), QStringLiteral("silence")});
    if (device.isEmpty() || !ok || baud <= 0 || !known)
        return failed(Text::tr("\"serial:%1\" should be serial:DEVICE or "
                               "serial:DEVICE?baud=NUMBER&silence=30s")
                          .arg(rest));
    auto source = std::make_unique<SerialSource>(m_clock, device, baud);
    source->setLongestSilence(*silence);
    return source;
}

} // namespace Monitor
