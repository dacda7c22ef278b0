// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/WindowSettings.h"

#include <corvale_qt/models/RVXPlotColors.h>
#include <corvale_qt/settings/RVXApplicationSettings.h>
#include <corvale_qt/widgets/TimeSpan.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>
#include <QUrl>

#include <cmath>

namespace Monitor {

namespace {

//! Encodes bytes as text that both formats can hold.
QString toText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray fromText(const QVariant &text)
{
    return QByteArray::fromBase64(text.toString().toLatin1());
}

/*! Encodes a layout behind a sum over it: Qt crashes on some layouts that are damaged. The sum does not protect from a file that
    somebody has forged. */
QString toSealedText(const QByteArray &layout)
{
    return toText(QCryptographicHash::hash(layout, QCryptographicHash::Sha1) + layout);
}

//! Returns a layout; empty if its sum is not right.
QByteArray fromSealedText(const QVariant &text)
{
    const int sumSize = QCryptographicHash::hashLength(QCryptographicHash::Sha1);
    const QByteArray bytes = fromText(text), layout = bytes.mid(sumSize);
    return QCryptographicHash::hash(layout, QCryptographicHash::Sha1) == bytes.left(sumSize)
        ? layout
        : QByteArray();
}

QString displayKey(StreamKind kind)
{
    return QStringLiteral("Monitor/view-") + kindName(kind);
}

//! A source may be any text, of which a key may hold little; a file is the same by whatever path.
QString detectorKey(const QString &source)
{
    const QFileInfo file(source);
    const QString name = file.exists() ? file.canonicalFilePath() : source;
    return QStringLiteral("Monitor/detector-")
        + QString::fromLatin1(
               QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha1).toHex());
}

QString windowsKey(StreamKind kind)
{
    return QStringLiteral("Monitor/windows-") + kindName(kind);
}

} // namespace

WindowSettings::WindowSettings(const QString &file)
    : m_file(QFileInfo(file).absoluteFilePath())
    , m_settings(
          std::make_unique<Corvale_Qt::RVXApplicationSettings>(nullptr, m_file, false, isXml()))
{
}

void WindowSettings::makeFolder() const
{
    QDir().mkpath(QFileInfo(m_file).absolutePath());
}

WindowSettings::~WindowSettings() = default;

bool WindowSettings::isXml() const
{
    return QFileInfo(m_file).suffix() == QLatin1String("xui");
}

bool WindowSettings::hasStatistics() const
{
    // The statistics page writes this group.
    return m_settings->getSettings()->childGroups().contains(QStringLiteral("StatisticsSetupPage"));
}

QVariant WindowSettings::statisticsValue(const QString &key) const
{
    return value(QStringLiteral("StatisticsSetupPage/") + key);
}

bool WindowSettings::isHintDismissed() const
{
    return value(QStringLiteral("Monitor/hint-dismissed")).toBool();
}

void WindowSettings::dismissHint()
{
    setValue(QStringLiteral("Monitor/hint-dismissed"), true);
}

QByteArray WindowSettings::geometry() const
{
    return fromSealedText(value(QStringLiteral("Monitor/geometry")));
}

QByteArray WindowSettings::docks() const
{
    return fromSealedText(value(QStringLiteral("Monitor/docks")));
}

void WindowSettings::setLayout(const QByteArray &geometry, const QByteArray &docks)
{
    setValue(QStringLiteral("Monitor/geometry"), toSealedText(geometry));
    setValue(QStringLiteral("Monitor/docks"), toSealedText(docks));
}

double WindowSettings::timeSpan() const
{
    const QString text = value(QStringLiteral("Monitor/time-span")).toString();
    return Corvale_Qt::TimeSpan::fromText(text).value_or(0.0);
}

void WindowSettings::setTimeSpan(double seconds)
{
    // The text of a span without a limit depends on the language; "all" is read in every one.
    setValue(QStringLiteral("Monitor/time-span"),
             std::isinf(seconds) ? QStringLiteral("all") : Corvale_Qt::TimeSpan::text(seconds));
}

QString WindowSettings::valueUnit() const
{
    return value(QStringLiteral("Monitor/value-unit")).toString();
}

void WindowSettings::setValueUnit(const QString &symbol)
{
    setValue(QStringLiteral("Monitor/value-unit"), symbol);
}

bool WindowSettings::showsLegend() const
{
    const QVariant kept = value(QStringLiteral("Monitor/legend"));
    return !kept.isValid() || kept.toBool();
}

void WindowSettings::setShowsLegend(bool on)
{
    setValue(QStringLiteral("Monitor/legend"), on);
}

bool WindowSettings::showsBarNames() const
{
    const QVariant kept = value(QStringLiteral("Monitor/bar-names"));
    return !kept.isValid() || kept.toBool();
}

void WindowSettings::setShowsBarNames(bool on)
{
    setValue(QStringLiteral("Monitor/bar-names"), on);
}

int WindowSettings::palette() const
{
    using Corvale_Qt::RVXPlotColors;
    const QVariant kept = value(QStringLiteral("Monitor/colours"));
    const int palette = kept.isValid() ? kept.toInt() : RVXPlotColors::ManyColors;
    const bool isKnown =
        palette >= RVXPlotColors::EightColors && palette <= RVXPlotColors::ColorBlindSafe;
    return isKnown ? palette : RVXPlotColors::ManyColors;
}

void WindowSettings::setPalette(int palette)
{
    setValue(QStringLiteral("Monitor/colours"), palette);
}

NamedLimits WindowSettings::limits() const
{
    NamedLimits limits;
    QString fault;
    const QStringList entries = value(QStringLiteral("Monitor/limits"))
                                    .toString()
                                    .split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &entry : entries) {
        const QByteArray name = entry.section(QLatin1Char(':'), 0, 0).toLatin1();
        const auto ofChannel = limitsFromText(entry.section(QLatin1Char(':'), 1), &fault);
        if (ofChannel)
            limits.insert(QUrl::fromPercentEncoding(name), *ofChannel);
    }
    return limits;
}

void WindowSettings::setLimits(const NamedLimits &limits)
{
    QStringList entries;
    for (auto each = limits.begin(); each != limits.end(); ++each)
        entries.append(QString::fromLatin1(QUrl::toPercentEncoding(each.key())) + QLatin1Char(':')
                       + limitsText(each.value()));
    setValue(QStringLiteral("Monitor/limits"), entries.join(QLatin1Char(' ')));
}

bool WindowSettings::isAlarmSoundOn() const
{
    return value(QStringLiteral("Monitor/alarm-sound")).toBool();
}

void WindowSettings::setAlarmSoundOn(bool on)
{
    setValue(QStringLiteral("Monitor/alarm-sound"), on);
}

QString WindowSettings::timeAxis() const
{
    return value(QStringLiteral("Monitor/time-axis")).toString();
}

void WindowSettings::setTimeAxis(const QString &choice)
{
    setValue(QStringLiteral("Monitor/time-axis"), choice);
}

QString WindowSettings::importFor(const QString &headerKey) const
{
    return value(QStringLiteral("Import/header-") + headerKey).toString();
}

void WindowSettings::setImportFor(const QString &headerKey, const QString &options)
{
    setValue(QStringLiteral("Import/header-") + headerKey, options);
}

QString WindowSettings::detectorFile(const QString &source) const
{
    return value(detectorKey(source)).toString();
}

void WindowSettings::setDetectorFile(const QString &source, const QString &file)
{
    if (file != detectorFile(source))
        setValue(detectorKey(source), file);
}

QString WindowSettings::display(StreamKind kind) const
{
    return value(displayKey(kind)).toString();
}

void WindowSettings::setDisplay(StreamKind kind, const QString &display)
{
    setValue(displayKey(kind), display);
}

QMap<QString, QByteArray> WindowSettings::windows(StreamKind kind) const
{
    QMap<QString, QByteArray> windows;
    const QStringList entries =
        value(windowsKey(kind)).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &entry : entries)
        windows.insert(entry.section(QLatin1Char(':'), 0, 0),
                       fromText(entry.section(QLatin1Char(':'), 1)));
    return windows;
}

void WindowSettings::setWindows(StreamKind kind, const QMap<QString, QByteArray> &windows)
{
    QStringList entries;
    for (auto window = windows.begin(); window != windows.end(); ++window)
        entries.append(window.key() + QLatin1Char(':') + toText(window.value()));
    setValue(windowsKey(kind), entries.join(QLatin1Char(' ')));
}

QString WindowSettings::text(const QString &name) const
{
    return value(QStringLiteral("Monitor/") + name).toString();
}

void WindowSettings::setText(const QString &name, const QString &text)
{
    setValue(QStringLiteral("Monitor/") + name, text);
}

QStringList WindowSettings::list(const QString &name) const
{
    const QJsonArray texts = QJsonDocument::fromJson(text(name).toUtf8()).array();
    QStringList list;
    for (const QJsonValue &entry : texts)
        list.append(entry.toString());
    return list;
}

//! Both formats of the file hold one text for each name, so the list is written as JSON.
void WindowSettings::setList(const QString &name, const QStringList &texts)
{
    const QJsonDocument document(QJsonArray::fromStringList(texts));
    setText(name, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
}

QVariant WindowSettings::value(const QString &key) const
{
    return m_settings->getSettings()->value(key);
}

void WindowSettings::setValue(const QString &key, const QVariant &value)
{
    makeFolder();
    m_settings->getSettings()->setValue(key, value);
    m_settings->sync();
}

} // namespace Monitor
