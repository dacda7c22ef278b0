// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureMaker.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const QString pictureKey = QStringLiteral("picture");
const QStringList colorNames = {QStringLiteral("shown"),
                                QStringLiteral("light"),
                                QStringLiteral("dark")};

} // namespace

PictureMaker::PictureMaker(Session &session, DisplayTabs &displays, WindowSettings &settings)
    : m_session(session)
    , m_displays(displays)
    , m_settings(settings)
{
}

PictureOptions PictureMaker::options() const
{
    PictureOptions options;
    if (m_settings.text(pictureKey).isEmpty())
        return options;
    const QStringList words = m_settings.text(pictureKey).split(QLatin1Char(' '));
    options.hasTitle = words.contains(QStringLiteral("title"));
    options.hasTime = words.contains(QStringLiteral("time"));
    options.hasLegend = words.contains(QStringLiteral("legend"));
    options.colors = DisplayPicture::Colors(qMax(0, colorNames.indexOf(words.last())));
    return options;
}

void PictureMaker::setOptions(const PictureOptions &options)
{
    QStringList words;
    if (options.hasTitle)
        words << QStringLiteral("title");
    if (options.hasTime)
        words << QStringLiteral("time");
    if (options.hasLegend)
        words << QStringLiteral("legend");
    words << colorNames.at(int(options.colors));
    m_settings.setText(pictureKey, words.join(QLatin1Char(' ')));
}

QWidget *PictureMaker::displayInUse() const
{
    return m_displays.displayInUse();
}

QWidget *PictureMaker::drawnPart(QWidget *display) const
{
    return display == m_displays.scope() ? m_displays.scope()->plotView() : display;
}

QString PictureMaker::title() const
{
    return m_session.source().description();
}

QString PictureMaker::note(const QWidget *display) const
{
    QStringList parts;
    if (display == m_displays.scope()) {
        if (m_displays.scope()->averaging() > 1)
            parts << Text::tr("%1x average").arg(m_displays.scope()->averaging());
        if (m_displays.baseline()->kind() != Baseline::Kind::None)
            parts << m_displays.baseline()->text();
    }
    parts << m_session.clock().wallTime().toUTC().toString(
        QStringLiteral("yyyy-MM-dd HH:mm:ss 'UTC'"));
    return parts.join(QStringLiteral(", "));
}

void PictureMaker::prepare(DisplayPicture &picture,
                           const QWidget *display,
                           const QString &title) const
{
    const PictureOptions wanted = options();
    if (wanted.hasTitle)
        picture.setTitle(title);
    if (wanted.hasTime)
        picture.setNote(note(display));
    picture.setLegendVisible(wanted.hasLegend);
    picture.setColors(wanted.colors);
}

} // namespace Monitor
