// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/LimitTexts.h"
#include "monitor/readings/StreamHeader.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <memory>

namespace Corvale_Qt {
class RVXApplicationSettings;
} // namespace Corvale_Qt

namespace Monitor {

//! What the window keeps from one start to the next in a settings file: XML if its suffix is .xui, otherwise INI.
class WindowSettings
{
public:
    explicit WindowSettings(const QString &file);
    ~WindowSettings();

    //! Returns the absolute path of the file.
    QString fileName() const { return m_file; }
    //! Creates the folder of the file, as every change does; reading creates nothing.
    void makeFolder() const;
    bool isXml() const;
    //! Returns whether the file has choices of an operator on the statistics page.
    bool hasStatistics() const;
    //! Returns what the statistics page keeps under a key; not valid if it is nothing.
    QVariant statisticsValue(const QString &key) const;

    //! Returns whether the operator does not want to see the hint again.
    bool isHintDismissed() const;
    void dismissHint();

    //! Returns the saved geometry of the window; empty before the first setLayout().
    QByteArray geometry() const;
    //! Returns the saved state of the docks; empty before the first setLayout().
    QByteArray docks() const;
    void setLayout(const QByteArray &geometry, const QByteArray &docks);

    //! Returns the time that the strip chart showed, in seconds, infinity for all; 0 before the first setTimeSpan().
    double timeSpan() const;
    void setTimeSpan(double seconds);
    //! Returns the name of what the time axis showed; empty before the first setTimeAxis().
    QString timeAxis() const;
    void setTimeAxis(const QString &choice);

    //! Returns the unit that the operator chose for values, such as "nA"; empty for the one that suits each value.
    QString valueUnit() const;
    void setValueUnit(const QString &symbol);
    //! Returns whether the scope has a legend; true before the first setShowsLegend().
    bool showsLegend() const;
    void setShowsLegend(bool on);
    //! Returns whether the names of channels stand under the bars of the histogram; true before the first setShowsBarNames().
    bool showsBarNames() const;
    void setShowsBarNames(bool on);
    //! Returns the set of colours of the channels, an RVXPlotColors::Palette; that of many colours before the first setPalette().
    int palette() const;
    void setPalette(int palette);
    //! Returns the limits that the operator chose, by the names of channels.
    NamedLimits limits() const;
    void setLimits(const NamedLimits &limits);
    //! Returns whether alarms make a sound; they do not at first.
    bool isAlarmSoundOn() const;
    void setAlarmSoundOn(bool on);
    //! Returns how tables with that header were read the last time, as --import takes it; empty if none was.
    QString importFor(const QString &headerKey) const;
    void setImportFor(const QString &headerKey, const QString &options);

    //! Returns the file that describes the detector of a source; empty if none was kept for it.
    QString detectorFile(const QString &source) const;
    //! Keeps the file that describes the detector of a source; an empty one forgets it.
    void setDetectorFile(const QString &source, const QString &file);

    //! Returns the display that was last shown for streams of that kind; empty if there is none.
    QString display(StreamKind kind) const;
    void setDisplay(StreamKind kind, const QString &display);

    //! Returns the displays that were in separate windows, by name, each with the saved geometry of its window.
    QMap<QString, QByteArray> windows(StreamKind kind) const;
    void setWindows(StreamKind kind, const QMap<QString, QByteArray> &windows);

    //! Returns a text that was kept under a name such as "recent"; empty if there is none.
    QString text(const QString &name) const;
    void setText(const QString &name, const QString &text);
    //! Returns texts that were kept under a name, in their order.
    QStringList list(const QString &name) const;
    void setList(const QString &name, const QStringList &texts);

private:
    QVariant value(const QString &key) const;
    void setValue(const QString &key, const QVariant &value);

    const QString m_file;
    const std::unique_ptr<Corvale_Qt::RVXApplicationSettings> m_settings;
};

} // namespace Monitor
