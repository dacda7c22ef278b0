// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/Appearance.h"

#include "monitor/dialogs/QuietColor.h"
#include "monitor/window/Symbols.h"
#include "monitor/window/WindowSettings.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QProxyStyle>
#include <QStyleFactory>

namespace Monitor {

namespace {

const QString appearanceKey = QStringLiteral("appearance");
const QStringList names = {QStringLiteral("desktop"),
                           QStringLiteral("light"),
                           QStringLiteral("dark")};
//! The style whose colours follow any palette.
const QString plainStyle = QStringLiteral("fusion");

//! The plain style with the program's icons instead of Qt's own pictures: none on the buttons of dialogs, symbols on those of docks.
class PlainStyle : public QProxyStyle
{
public:
    PlainStyle()
        : QProxyStyle(plainStyle)
    {
        setObjectName(plainStyle);
    }
    int styleHint(StyleHint hint,
                  const QStyleOption *option,
                  const QWidget *widget,
                  QStyleHintReturn *more) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
            ? 0
            : QProxyStyle::styleHint(hint, option, widget, more);
    }
    QIcon standardIcon(StandardPixmap picture,
                       const QStyleOption *option,
                       const QWidget *widget) const override
    {
        return picture == SP_TitleBarCloseButton ? symbol(QStringLiteral("close"))
            : picture == SP_TitleBarNormalButton
            ? symbol(QStringLiteral("float"))
            : QProxyStyle::standardIcon(picture, option, widget);
    }
};

void setStyle(const QString &name)
{
    const QStyle *present = QApplication::style();
    const bool isPlain = name == plainStyle;
    const bool isSet = isPlain ? dynamic_cast<const PlainStyle *>(present) != nullptr
                               : present->objectName() == name;
    if (isSet || !QStyleFactory::keys().contains(name, Qt::CaseInsensitive))
        return;
    if (isPlain)
        QApplication::setStyle(new PlainStyle);
    else
        QApplication::setStyle(name);
}

QPalette lightPalette()
{
    QPalette palette(QColor(239, 239, 239));
    palette.setColor(QPalette::PlaceholderText, QColor(96, 96, 96)); // Qt leaves it transparent
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(245, 245, 245));
    palette.setColor(QPalette::Highlight, QColor(25, 96, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(25, 96, 170));
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    return palette;
}

QPalette darkPalette()
{
    const QColor text(230, 230, 230);
    const QColor faint(130, 130, 130);
    QPalette palette(QColor(48, 50, 54));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, QColor(180, 180, 180));
    palette.setColor(QPalette::Base, QColor(30, 32, 35));
    palette.setColor(QPalette::AlternateBase, QColor(38, 40, 44));
    palette.setColor(QPalette::ToolTipBase, QColor(60, 62, 66));
    palette.setColor(QPalette::Highlight, QColor(86, 160, 235));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::Link, QColor(120, 180, 240));
    return palette;
}

//! Returns the palette of the desktop, in which hints in empty fields may be too pale to be read.
QPalette readable(QPalette palette)
{
    const QColor hint = quietColor(palette, QPalette::Text, QPalette::Base);
    palette.setColor(QPalette::PlaceholderText, hint);
    return palette;
}

} // namespace

Appearance::Appearance(WindowSettings &settings, QMenu *menu, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_actions(new QActionGroup(this))
    , m_desktopPalette(QApplication::palette())
    , m_desktopStyle(QApplication::style()->objectName())
{
    QMenu *choices = menu->addMenu(tr("Appea&rance"));
    choices->setObjectName(QStringLiteral("appearance"));
    for (const QString &text : {tr("As the des&ktop"), tr("&Light"), tr("&Dark")}) {
        QAction *action = choices->addAction(text);
        action->setCheckable(true);
        action->setData(m_actions->actions().size());
        m_actions->addAction(action);
    }
    connect(m_actions, &QActionGroup::triggered, this, [this](QAction *action) {
        choose(Choice(action->data().toInt()));
    });
    m_choice = Choice(qMax(0, names.indexOf(settings.text(appearanceKey))));
    m_actions->actions().at(int(m_choice))->setChecked(true);
    apply();
}

//! Leaves the application as it was found: its colours outlive the window.
Appearance::~Appearance()
{
    m_choice = Choice::Desktop;
    apply();
    QApplication::setPalette(m_desktopPalette);
}

void Appearance::choose(Choice choice)
{
    m_actions->actions().at(int(choice))->setChecked(true);
    if (choice == m_choice)
        return;
    m_choice = choice;
    m_settings.setText(appearanceKey, names.at(int(choice)));
    apply();
}

void Appearance::apply()
{
    setStyle(m_choice == Choice::Desktop ? m_desktopStyle : plainStyle);
    QApplication::setPalette(m_choice == Choice::Light      ? lightPalette()
                                 : m_choice == Choice::Dark ? darkPalette()
                                                            : readable(m_desktopPalette));
}

} // namespace Monitor
