// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/DetectorControls_p.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace Corvale_Qt {

DetectorControls::DetectorControls(RVXSpectrogram &display, QWidget *sideBar, QBoxLayout *box)
    : QGroupBox(tr("Detector"), sideBar)
    , m_display(display)
    , m_estimator(new QComboBox(this))
    , m_log(new QCheckBox(tr("Logarithmic colours"), this))
    , m_projections(new QCheckBox(tr("Projections"), this))
    , m_typed(new QCheckBox(tr("Colours from"), this))
    , m_low(new QScienceSpinBox(this))
    , m_high(new QScienceSpinBox(this))
    , m_averaged(new QSpinBox(this))
    , m_take(new QPushButton(tr("Take background"), this))
    , m_backgroundFrames(new QSpinBox(this))
    , m_subtracted(new QCheckBox(tr("Subtract background"), this))
    , m_state(new QLabel(this))
{
    setObjectName(QStringLiteral("groupBox_detector"));
    box->insertWidget(box->count() - 1, this);
    setUpEstimators();
    setUpFrames();
    setUpRange();
    placeControls();
    connectControls();
    makeActions();
    takePlaceInTabOrder(box);
    showState();
}

DetectorControls::~DetectorControls() = default;

//! Lets the Tab key lead to these controls from those above them, and not from the last of the window.
void DetectorControls::takePlaceInTabOrder(QBoxLayout *box)
{
    const QWidget *sideBar = parentWidget();
    const QWidget *below = box->itemAt(box->indexOf(this) + 1)->widget();
    const auto isAbove = [&](const QWidget *control) {
        const bool isOther =
            isAncestorOf(control) || control == below || (below && below->isAncestorOf(control));
        return sideBar->isAncestorOf(control) && !isOther
            && (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    };
    QWidget *last = m_estimator;
    for (QWidget *next = m_estimator->nextInFocusChain(); next != m_estimator;
         next = next->nextInFocusChain())
        if (isAbove(next))
            last = next;
    for (QWidget *control : std::initializer_list<QWidget *>{m_estimator,
                                                             m_log,
                                                             m_projections,
                                                             m_typed,
                                                             m_low,
                                                             m_high,
                                                             m_averaged,
                                                             m_take,
                                                             m_backgroundFrames,
                                                             m_subtracted}) {
        setTabOrder(last, control);
        last = control;
    }
}

void DetectorControls::setUpEstimators()
{
    // In the order of BeamEstimator.
    m_estimator->addItems({tr("Centre of gravity"),
                           tr("Three points"),
                           tr("Regression"),
                           tr("Least squares"),
                           tr("Least squares, linear background"),
                           tr("Half maximum"),
                           tr("Second moment")});
    m_estimator->setObjectName(QStringLiteral("comboBox_estimator"));
    m_estimator->setToolTip(tr("How mean and sigma are found"));
    m_state->setObjectName(QStringLiteral("label_processing"));
    m_state->setWordWrap(true);
}

//! Sets up the average and the background, which are of a number of frames.
void DetectorControls::setUpFrames()
{
    for (QSpinBox *frames : {m_averaged, m_backgroundFrames}) {
        frames->setRange(1, 100);
        const auto name = [frames](int count) {
            frames->setSuffix(Corvale_Qt::tr(" frame(s)", nullptr, count));
        };
        connect(frames, QOverload<int>::of(&QSpinBox::valueChanged), this, name);
        name(frames->value());
    }
    m_averaged->setObjectName(QStringLiteral("spinBox_averaged"));
    m_averaged->setAccessibleName(tr("Averaged frames"));
    m_backgroundFrames->setObjectName(QStringLiteral("spinBox_backgroundFrames"));
    m_backgroundFrames->setAccessibleName(tr("Frames of the background"));
    m_backgroundFrames->setValue(10);
    m_take->setObjectName(QStringLiteral("button_background"));
}

//! Sets up the range of the colours.
void DetectorControls::setUpRange()
{
    for (QScienceSpinBox *limit : {m_low, m_high})
        limit->setKeyboardTracking(false);
    m_low->setObjectName(QStringLiteral("spinBox_lowestColor"));
    m_high->setObjectName(QStringLiteral("spinBox_highestColor"));
    m_typed->setObjectName(QStringLiteral("checkBox_colorRange"));
    m_low->setAccessibleName(tr("Lowest value of the colours"));
    m_high->setAccessibleName(tr("Highest value of the colours"));
}

void DetectorControls::placeControls()
{
    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(tr("Estimator"), this), 0, 0);
    grid->addWidget(m_estimator, 0, 1);
    grid->addWidget(m_log, 1, 0);
    grid->addWidget(m_projections, 1, 1);
    grid->addWidget(m_typed, 2, 0);
    auto *range = new QHBoxLayout;
    range->addWidget(m_low);
    range->addWidget(new QLabel(tr("to"), this));
    range->addWidget(m_high);
    grid->addLayout(range, 2, 1);
    grid->addWidget(new QLabel(tr("Average of"), this), 3, 0);
    grid->addWidget(m_averaged, 3, 1);
    grid->addWidget(m_take, 4, 0);
    grid->addWidget(m_backgroundFrames, 4, 1);
    grid->addWidget(m_subtracted, 5, 0, 1, 2);
    grid->addWidget(m_state, 6, 0, 1, 2);
}

void DetectorControls::connectControls()
{
    connect(m_estimator, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        m_display.setEstimator(BeamEstimator(index));
    });
    // What showState() sets has been set already: to set it again would compute the frame, and tell of it, in the middle of that.
    const auto onToggled = [this](QCheckBox *box, auto set) {
        connect(box, &QCheckBox::toggled, this, [this, set](bool on) {
            if (!m_isShowing)
                (m_display.*set)(on);
        });
    };
    onToggled(m_log, &RVXSpectrogram::setLogarithmicColors);
    onToggled(m_projections, &RVXSpectrogram::setProjectionsVisible);
    onToggled(m_subtracted, &RVXSpectrogram::setBackgroundSubtracted);
    connect(m_averaged, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int frames) {
        if (!m_isShowing)
            m_display.setAveragedFrames(frames);
    });
    connect(m_take, &QPushButton::clicked, this, [this] {
        m_display.takeBackground(m_backgroundFrames->value());
    });
    connect(m_typed, &QCheckBox::toggled, this, &DetectorControls::typeRange);
    for (QScienceSpinBox *limit : {m_low, m_high})
        connect(limit,
                QOverload<double>::of(&QDoubleSpinBox::valueChanged),
                this,
                &DetectorControls::applyRange);
}

QAction *DetectorControls::addAction(const char *name, const QString &text)
{
    auto *action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    m_actions.append(action);
    return action;
}

void DetectorControls::makeActions()
{
    for (const auto &[name, box] : {std::pair("action_log", m_log),
                                    std::pair("action_projections", m_projections),
                                    std::pair("action_subtract", m_subtracted)}) {
        QAction *action = addAction(name, box->text());
        action->setCheckable(true);
        connect(action, &QAction::toggled, box, &QCheckBox::setChecked);
        connect(box, &QCheckBox::toggled, action, &QAction::setChecked);
    }
    QAction *take = addAction("action_background", tr("Take background"));
    connect(take, &QAction::triggered, this, [this] {
        m_display.takeBackground(m_backgroundFrames->value());
    });
    m_clear = addAction("action_clearBackground", tr("Clear background"));
    connect(m_clear, &QAction::triggered, &m_display, &RVXSpectrogram::clearBackground);
    QAction *all = addAction("action_showAll", tr("Show the whole detector"));
    connect(all, &QAction::triggered, this, [this] {
        m_display.setShownArea({});
    });
    QAction *frame = addAction("action_saveFrame", tr("Save the frame as CSV\u2026"));
    connect(frame, &QAction::triggered, this, [this] {
        save(false);
    });
    QAction *picture = addAction("action_savePicture", tr("Save a picture\u2026"));
    connect(picture, &QAction::triggered, this, [this] {
        save(true);
    });
}

void DetectorControls::setLayoutShown(bool shown)
{
    setVisible(shown);
    QWidget *canvas = m_display.findChild<SpectrogramPlot *>()->canvas();
    canvas->setContextMenuPolicy(shown ? Qt::ActionsContextMenu : Qt::DefaultContextMenu);
    for (QAction *action : qAsConst(m_actions)) {
        if (shown)
            canvas->addAction(action);
        else
            canvas->removeAction(action);
    }
    showState();
}

void DetectorControls::showState()
{
    m_isShowing = true;
    m_estimator->setCurrentIndex(int(m_display.estimator()));
    m_log->setChecked(m_display.hasLogarithmicColors());
    m_projections->setChecked(m_display.areProjectionsVisible());
    m_averaged->setValue(m_display.averagedFrames());
    m_subtracted->setChecked(m_display.isBackgroundSubtracted());
    showRange();
    m_isShowing = false;
    m_clear->setEnabled(m_display.hasBackground());
    const QString text = m_display.frameProcessing();
    if (m_state->text() != text)
        m_state->setText(text);
    m_state->setVisible(!text.isEmpty());
}

//! Keeps the colours as they are, and lets their range be typed; or makes them follow the frames again.
void DetectorControls::typeRange(bool typed)
{
    if (m_isShowing)
        return;
    const auto [low, high] = m_display.colorRange();
    if (typed)
        m_display.setColorRange(low, high);
    else
        m_display.resetColorRange();
}

//! Whichever of the two is typed first, the colours run from the lower to the higher one.
void DetectorControls::applyRange()
{
    if (m_isShowing || !m_typed->isChecked())
        return;
    const auto [low, high] = std::minmax({m_low->value(), m_high->value()});
    m_display.setColorRange(low, high);
}

void DetectorControls::showRange()
{
    m_typed->setChecked(m_display.hasColorRange());
    for (QScienceSpinBox *limit : {m_low, m_high})
        limit->setEnabled(m_typed->isChecked());
    const auto [low, high] = std::minmax({m_low->value(), m_high->value()});
    if (!m_typed->isChecked() || qMakePair(low, high) == m_display.colorRange())
        return;
    m_low->setValue(m_display.colorRange().first);
    m_high->setValue(m_display.colorRange().second);
}

void DetectorControls::save(bool picture)
{
    const QString name = QFileDialog::getSaveFileName(
        &m_display,
        picture ? tr("Save a picture") : tr("Save the frame"),
        picture ? QStringLiteral("profile.png") : QStringLiteral("frame.csv"),
        picture ? tr("Pictures (*.png)") : tr("CSV files (*.csv)"));
    if (name.isEmpty())
        return;
    const bool saved = picture ? m_display.savePicture(name) : m_display.saveFrame(name);
    if (!saved)
        QMessageBox::warning(&m_display, tr("Save"), tr("Error saving data file."));
}

} // namespace Corvale_Qt
