// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "tests/scope/PanelDevice.h"
#include "tests/support/TestMain.h"

#include <vector>

using namespace Corvale_Qt;

namespace {

const QStringList properties = {
    "plotMode",       "plotTabs",     "yScaleMode",    "yScaleIndex",   "yMinimum",
    "yMaximum",       "positiveOnly", "averaging",     "zeroed",        "period",
    "timeSpan",       "sampleSpan",   "beginAtFirst",  "interactive",   "held",
    "timeAxis",       "timeOrigin",   "cursorEnabled", "markerDetails", "markersEnabled",
    "controlsVisible"};

//! Returns a value as text; enumerations and flags as numbers.
QString text(const QVariant &value)
{
    if (value.userType() >= QMetaType::User)
        return QString::number(*static_cast<const int *>(value.constData()));
    return value.toString();
}

//! Returns all properties as "name=value".
QString allProperties(const QObject &object)
{
    QStringList texts;
    for (const QString &name : properties)
        texts << name + "=" + text(object.property(name.toLatin1()));
    return texts.join(' ');
}

//! Notes each signal of a property, with the value that it tells, as "name=value".
class ChangeLog
{
public:
    explicit ChangeLog(QObject &object)
    {
        for (const QString &name : properties) {
            const int index = object.metaObject()->indexOfProperty(name.toLatin1());
            const QMetaMethod changed = object.metaObject()->property(index).notifySignal();
            m_spies.emplace_back(name, std::make_unique<QSignalSpy>(&object, changed));
        }
    }
    QString taken()
    {
        QStringList texts;
        for (const auto &[name, spy] : m_spies) {
            for (const auto &arguments : qAsConst(*spy))
                texts << name + "=" + text(arguments.value(name == "yMaximum" ? 1 : 0));
            spy->clear();
        }
        return texts.join(' ');
    }

private:
    std::vector<std::pair<QString, std::unique_ptr<QSignalSpy>>> m_spies;
};

using Action = std::function<void(DevicePanel &)>;

//! A panel whose properties have no value that a new panel has.
void disarrange(RVXScope &scope)
{
    scope.setPlotTabs(RVXScope::StripTab | RVXScope::HistogramTab | RVXScope::PositionTab);
    scope.setPlotMode(RVXScope::PositionMode);
    scope.setYScaleMode(RVXScope::AbsoluteRanges);
    scope.setYScaleIndex(7);
    scope.SetPositiveOnly(true);
    scope.setAveraging(100);
    scope.setPeriod(1000);
    scope.setTimeSpan(2.5);
    scope.setSampleSpan(400);
    scope.setMarkersEnabled(true);
    scope.setControlsVisible(false);
    RVXScopePlotView &view = *scope.plotView();
    view.setBeginAtFirst(true);
    view.setSiPrefix(true);
    view.setValueUnit("pA");
    view.setSecondAxis(true);
    view.setHysteresis(true);
    view.setFullScaleFromData(true);
    view.setLogarithmic(true);
    view.setLegendVisible(true);
    view.setBarNames(true);
    view.setGapIntervals(4.5);
    view.setTimeAxis(RVXScopePlotView::Utc);
    SweepTrigger trigger;
    trigger.mode = SweepTrigger::Mode::Single;
    trigger.channel = 3;
    trigger.level = -0.125;
    trigger.edge = SweepTrigger::Edge::Either;
    trigger.hysteresis = 0.5;
    trigger.shareBefore = 0.25;
    trigger.holdOff = 1.5;
    view.setTrigger(trigger);
    view.setRightRange({-0.5, 1.5, QStringLiteral("kV")});
}

//! Returns what a view was chosen to show, beyond the properties of its panel.
QString viewChoices(const RVXScope &scope)
{
    const RVXScopePlotView &view = *scope.plotView();
    const SweepTrigger trigger = view.trigger();
    const std::optional<ValueRange> right = view.givenRightRange();
    return QString("%1%2%3%4%5%6%16 \"%7\" %8; trigger %9 %10 %11 %12 %13 %14 %15%17")
        .arg(view.hasSiPrefix())
        .arg(view.hasHysteresis())
        .arg(view.isFullScaleFromData())
        .arg(view.isLogarithmic())
        .arg(view.isLegendVisible())
        .arg(view.hasBarNames())
        .arg(view.valueUnit())
        .arg(view.gapIntervals())
        .arg(int(trigger.mode))
        .arg(trigger.channel)
        .arg(trigger.level)
        .arg(int(trigger.edge))
        .arg(trigger.hysteresis)
        .arg(trigger.shareBefore)
        .arg(trigger.holdOff)
        .arg(view.hasSecondAxis())
        .arg(right ? QString("; right %1..%2 %3")
                         .arg(right->minimum)
                         .arg(right->maximum)
                         .arg(right->unit)
                   : QString());
}

constexpr int fieldsEnd = 65; // of a state; the choices of the view follow, and a sum

//! Returns the fields of a state with another format, followed by other choices of the view.
QByteArray stateOf(const QByteArray &saved, quint16 format, const QByteArray &choices)
{
    QByteArray bytes = saved.left(fieldsEnd) + choices;
    bytes[4] = char(format >> 8);
    bytes[5] = char(format & 0xff);
    const quint16 sum = qChecksum(bytes.constData(), uint(bytes.size()));
    return bytes + char(sum >> 8) + char(sum & 0xff);
}

QByteArray choicesAsBytes(const QMap<QByteArray, QByteArray> &named)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << named;
    return bytes;
}

} // namespace

Q_DECLARE_METATYPE(Action)

//! The properties of the scope panel: one truth with its controls, and kept as bytes.
class tst_RVXScopeProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlsAndProperties_data()
    {
        columns<Action, QString, QVariant, QString>("operate", "property", "value", "heard");
        const auto row = [](const char *name, const char *property, const QVariant &value,
                            const char *heard, const Action &operate) {
            QTest::newRow(name) << operate << QString(property) << value << QString(heard);
        };
        row("tab by mouse", "plotMode", 2, "plotMode=2",
            [](DevicePanel &p) { p.chooseTab("Histogram"); });
        row("tab by key", "plotMode", 1, "plotMode=1",
            [](DevicePanel &p) { QTest::keyClick(p.control("modeSelect"), Qt::Key_Right); });
        row("y range", "yScaleIndex", 2, "yScaleIndex=1 yScaleIndex=2",
            [](DevicePanel &p) { p.choose("scaleYCombo", "100%"); });
        row("positive", "positiveOnly", true, "positiveOnly=true", [](DevicePanel &p) {
            p.setYScaleIndex(2); // the button is disabled while the scale is automatic
            p.click("positiveOnlyButton");
            p.setYScaleIndex(0);
        });
        row("average", "averaging", 100, "averaging=10 averaging=100",
            [](DevicePanel &p) { p.choose("averagingCombo", "100x Avg"); });
        row("period", "period", 100, "period=100",
            [](DevicePanel &p) { p.choose("comboBox_period", "100 ms"); });
        row("controls", "controlsVisible", false, "controlsVisible=false",
            [](DevicePanel &p) { p.click("confButton"); });
    }
    //! A click moves the property and says so once; the property moves the control in the same way.
    void controlsAndProperties()
    {
        QFETCH(Action, operate);
        QFETCH(QString, property);
        QFETCH(QVariant, value);
        const auto controls = [](DevicePanel &panel) {
            QStringList states{panel.tabs(), panel.shown(), panel.yScale(), panel.device.period()};
            for (const char *combo : {"scaleYCombo", "averagingCombo", "comboBox_period"})
                states << panel.control<QComboBox>(combo)->currentText();
            states << panel.control<QLabel>("stateLabel")->text()
                   << (panel.control("configFrame")->isVisible() ? "open" : "closed");
            return states.join(", ");
        };
        DevicePanel operated(1, {{1, {5}}, {2, {6}}}), set(1, {{1, {5}}, {2, {6}}});
        const QString before = controls(operated);
        {
            ChangeLog log(operated);
            operate(operated);
            QTEST(log.taken().split(' ').filter(property).join(' '), "heard");
        }
        ChangeLog log(set);
        QVERIFY(set.setProperty(property.toLatin1(), value));
        QCOMPARE(log.taken(), property + "=" + value.toString());
        QVERIFY(set.setProperty(property.toLatin1(), value));
        QCOMPARE(log.taken(), QString());
        QCOMPARE(controls(set), controls(operated));
        QVERIFY(controls(set) != before || property == "positiveOnly");
        QCOMPARE(allProperties(set), allProperties(operated));
    }

    void refusedValues_data()
    {
        columns<QString, QVariant>("property", "value");
        QTest::newRow("mode") << "plotMode" << QVariant(6);
        QTest::newRow("list") << "yScaleMode" << QVariant(4);
        QTest::newRow("entry below the list") << "yScaleIndex" << QVariant(-1);
        QTest::newRow("entry beyond the list") << "yScaleIndex" << QVariant(15);
        QTest::newRow("minimum") << "yMinimum" << QVariant(-qInf());
        QTest::newRow("maximum") << "yMaximum" << QVariant(qQNaN());
        QTest::newRow("average that the list lacks") << "averaging" << QVariant(16);
        QTest::newRow("average of nothing") << "averaging" << QVariant(0);
        QTest::newRow("period that the list lacks") << "period" << QVariant(500);
        QTest::newRow("negative time") << "timeSpan" << QVariant(-1.0);
        QTest::newRow("time that is no number") << "timeSpan" << QVariant(qQNaN());
        QTest::newRow("time axis") << "timeAxis" << QVariant(4);
        QTest::newRow("held is read only") << "held" << QVariant(true);
        QTest::newRow("negative number") << "sampleSpan" << QVariant(-1);
        QTest::newRow("zeroed is read only") << "zeroed" << QVariant(true);
    }
    void refusedValues()
    {
        DevicePanel panel(1, {{1, {5}}});
        const QString before = allProperties(panel);
        ChangeLog heard(panel);
        panel.setProperty(cell("property").toLatin1(), cell<QVariant>("value"));
        QCOMPARE(heard.taken(), QString());
        QCOMPARE(allProperties(panel), before);
    }

    void tabs()
    {
        DevicePanel panel;
        ChangeLog heard(panel);
        panel.setPlotTabs(RVXScope::ScopeTab | RVXScope::HistogramTab | RVXScope::SplitTab);
        QCOMPARE(panel.tabs(), QString("[Scope] Histogram Split")); // strip was current
        QCOMPARE(heard.taken(), QString("plotMode=1 plotTabs=38"));
        panel.chooseTab("Split");
        panel.setPlotTabs(panel.plotTabs() | RVXScope::StripTab | RVXScope::PositionTab);
        QCOMPARE(panel.tabs(), QString("Strip Scope Histogram Position [Split]"));
        QCOMPARE(heard.taken(), QString("plotMode=5 plotTabs=55"));
        panel.SetPlotMode(3); // of the fourth tab
        QCOMPARE(panel.plotMode(), RVXScope::PositionMode);
        heard.taken();

        panel.setPlotTabs({});
        QCOMPARE(panel.tabs(), QString());
        panel.setPlotMode(RVXScope::SpectrogramMode);
        QCOMPARE(panel.shown(), QString("2D"));
        heard.taken();
        panel.setPlotTabs(RVXScope::StripTab | RVXScope::SpectrogramTab);
        QCOMPARE(panel.tabs(), QString("Strip [2D]"));
        QCOMPARE(heard.taken(), QString("plotTabs=9"));
        panel.setPositionEnabled(true);
        QCOMPARE(heard.taken(), QString("plotTabs=25"));
    }

    //! The panel shows what a host changes behind its back.
    void whatAHostSetsOnTheView()
    {
        DevicePanel panel(1, {{1, {5}}});
        ChangeLog heard(panel);
        panel.plotView()->SetPlotMode(RVXScopePlotView::HistogramMode);
        QCOMPARE(panel.tabs(), QString("Strip Scope [Histogram]"));
        panel.plotView()->SetYScaleMode(RVXScopePlotView::Percent10);
        QCOMPARE(panel.control<QComboBox>("scaleYCombo")->currentText(), QString("10%"));
        panel.plotView()->SetPositiveOnly(true);
        QCOMPARE(panel.yScale(), QString("[-0.01, 0.1] on"));
        qobject_cast<RVXAveragingProxyModel *>(
            qobject_cast<RVXZeroingProxyModel *>(panel.topLevelModel())->sourceModel())
            ->setAveraging(10);
        QCOMPARE(panel.control<QComboBox>("averagingCombo")->currentText(), QString("10x Avg"));
        qobject_cast<RVXZeroingProxyModel *>(panel.topLevelModel())->zeroNow();
        QCOMPARE(heard.taken(),
                 QString("plotMode=2 yScaleIndex=5 positiveOnly=true averaging=10 zeroed=true"));
        panel.plotView()->setTimeAxis(RVXScopePlotView::Utc);
        panel.plotView()->setInteractive(true);
        panel.plotView()->setCursorEnabled(true);
        panel.plotView()->setMarkerDetails(true);
        QCOMPARE(heard.taken(),
                 QString("interactive=true timeAxis=3 cursorEnabled=true markerDetails=true"));
        panel.plotView()->setPlotMode(RVXScopePlotView::StripMode);
        heard.taken();
        panel.plotView()->zoomToX(0, 1);
        QCoreApplication::processEvents();
        QCOMPARE(heard.taken(), QString("held=true"));
        panel.goLive();
        QCoreApplication::processEvents();
        QCOMPARE(heard.taken(), QString("held=false"));
    }

    void aSlotMaySetAPropertyAgain()
    {
        DevicePanel panel;
        QStringList heard;
        connect(&panel, &RVXScope::plotModeChanged, this, [&](RVXScope::PlotMode mode) {
            heard << QString::number(mode);
            panel.setPlotMode(RVXScope::StripMode);
        });
        connect(&panel, &RVXScope::averagingChanged, this,
                [&](int length) { heard << QString::number(length); });
        panel.chooseTab("Histogram");
        QCOMPARE(panel.tabs(), QString("[Strip] Scope Histogram"));
        QCOMPARE(heard.join(' '), QString("2 0"));
    }

    //! Whatever is set, a host may delete the panel when it hears of the change.
    void aSlotMayDeleteThePanel()
    {
        RVXScope other;
        disarrange(other);
        const std::pair<const char *, QVariant> settings[] = {
            {"plotMode", 2},          {"yScaleMode", 2},
            {"yMinimum", -3.0},       {"averaging", 10},
            {"period", 100},          {"timeSpan", 1.0},
            {"markersEnabled", true}, {"state", other.saveState()}};
        for (const auto &[name, value] : settings) {
            QPointer<RVXScope> panel = new RVXScope;
            const auto deleted = [&] { delete panel; };
            connect(panel, &RVXScope::plotModeChanged, deleted);
            connect(panel, &RVXScope::yScaleModeChanged, deleted);
            connect(panel, &RVXScope::rangeChanged, deleted);
            connect(panel, &RVXScope::averagingChanged, deleted);
            connect(panel, &RVXScope::periodChanged, deleted);
            connect(panel, &RVXScope::timeSpanChanged, deleted);
            connect(panel, &RVXScope::markersEnabledChanged, deleted);
            if (qstrcmp(name, "state") == 0)
                panel->restoreState(value.toByteArray());
            else
                panel->setProperty(name, value);
            QVERIFY2(!panel, name);
        }
    }

    //! Only the operator's choice of a period clears the samples.
    void periodKeepsTheSamples()
    {
        DevicePanel panel(1, {{1, {5}}, {2, {6}}});
        panel.setPeriod(10000);
        QCOMPARE(panel.device.rowCount(), 3);
        QCOMPARE(panel.device.period(), QString("10000"));
        panel.choose("comboBox_period", "1 s");
        QCOMPARE(panel.device.rowCount(), 1);
    }

    void slotsOfTheHost()
    {
        DevicePanel panel(1, {{1, {5}}, {2, {6}}});
        QVERIFY(QMetaObject::invokeMethod(&panel, "zeroNow"));
        QCOMPARE(panel.values(), QString("1: -1; 2: 0"));
        QVERIFY(panel.isZeroed());
        QVERIFY(QMetaObject::invokeMethod(&panel, "zeroClear"));
        QCOMPARE(panel.values(), QString("1: 5; 2: 6"));

        QString saved;
        bool works = true;
        panel.device.onSave = [&](const QString &path) {
            saved = path;
            return works;
        };
        QVERIFY(panel.saveDataToFile("some.csv"));
        QCOMPARE(saved, QString("some.csv"));
        works = false;
        QVERIFY(!panel.saveDataToFile("some.csv"));
        works = true;
        QVERIFY(!panel.saveDataToFile(" "));
        QVERIFY(QMetaObject::invokeMethod(&panel, "clear"));
        QCOMPARE(panel.values(), QString());
        panel.setModel(nullptr);
        QVERIFY(!panel.saveDataToFile("some.csv"));
    }

    void spansOverrideTheModel_data()
    {
        tableFrom(R"(
            | double timeSpan | int sampleSpan | strip | sweep
            the model decides              | 0.0  | 0    | 950..1000  | 513..768
            time                           | 30.0 | 0    | 970..1000  | 513..768
            samples                        | 0.0  | 100  | 901..1000  | 901..1000
            time before samples            | 30.0 | 100  | 970..1000  | 901..1000
            more samples than there are    | 0.0  | 2000 | -998..1000 |
            one sample, which has no width | 0.0  | 1    | 999..1000  | 999..1000
        )");
        QTest::newRow("all samples") << qInf() << 0 << "1..1000"
                                     << "513..768";
    }
    void spansOverrideTheModel()
    {
        RVXMultichannelDeviceModel model; // which asks for 256 samples in a sweep
        model.setPlotWidthHint(50.0);
        for (int i = 1; i <= 1000; ++i)
            model.appendRow(i, QVector<double>{1.0}.constData());
        Panel panel;
        panel.setModel(&model);
        panel.show();
        panel.setTimeSpan(cell<double>("timeSpan"));
        panel.setSampleSpan(cell<int>("sampleSpan"));
        const auto x = [&] {
            const QwtInterval range = panel.plot()->axisInterval(QwtPlot::xBottom);
            return QString("%1..%2")
                .arg(range.minValue(), 0, 'f', 0)
                .arg(range.maxValue(), 0, 'f', 0);
        };
        QFETCH(QString, strip);
        QTRY_COMPARE(x(), strip);
        panel.setBeginAtFirst(true);
        QTRY_COMPARE(x(), QString(strip).replace("-998", "1"));
        panel.setBeginAtFirst(false);
        QFETCH(QString, sweep);
        panel.setPlotMode(RVXScope::ScopeMode);
        if (!sweep.isEmpty())
            QTRY_COMPARE(x(), sweep);
        panel.setPlotMode(RVXScope::StripMode);
        panel.plotView()->horizontalScrollBar()->setValue(0);
        panel.setTimeSpan(qInf()); // there is nothing to scroll to
        QTRY_COMPARE(x(), QString("1..1000"));
        panel.setTimeSpan(0.0); // back to the model
        panel.setSampleSpan(0);
        QTRY_COMPARE(x(), QString("950..1000"));
    }

    void stateComesBack()
    {
        DevicePanel first(1, {{1, {5}}, {2, {6}}}), second(1, {{1, {5}}, {2, {6}}});
        const QByteArray fresh = second.saveState();
        disarrange(first);
        first.zeroNow();
        ChangeLog heard(second);
        QVERIFY(second.restoreState(first.saveState()));
        first.zeroClear(); // a zero belongs to samples, so it is not part of the state
        QCOMPARE(allProperties(second), allProperties(first));
        QCOMPARE(heard.taken(),
                 QString("plotMode=4 plotTabs=21 yScaleMode=2 yScaleIndex=7 yMinimum=-20000 "
                         "yMaximum=20000 positiveOnly=true averaging=100 period=1000 timeSpan=2.5 "
                         "sampleSpan=400 beginAtFirst=true timeAxis=3 markersEnabled=true "
                         "controlsVisible=false"));
        QCOMPARE(
            viewChoices(second),
            QString("1111111 \"pA\" 4.5; trigger 3 3 -0.125 2 0.5 0.25 1.5; right -0.5..1.5 kV"));
        QCOMPARE(second.tabs(), first.tabs());
        QCOMPARE(second.shown(), QString("position"));
        QCOMPARE(second.yScale(), first.yScale());
        QCOMPARE(second.device.rowCount(), 3);
        QCOMPARE(second.control<QLabel>("stateLabel")->text(), QString("100x Avg"));

        QVERIFY(second.restoreState(first.saveState()));
        QCOMPARE(heard.taken(), QString());
        QVERIFY(second.restoreState(fresh));
        QCOMPARE(second.saveState(), fresh);
        QCOMPARE(second.tabs(), QString("[Strip] Scope Histogram"));
        QCOMPARE(second.yScale(), QString("auto disabled"));
        QCOMPARE(viewChoices(second), viewChoices(RVXScope()));
    }

    //! What a state of another version does not tell, or tells in another way, stays as it is.
    void statesOfOtherVersions()
    {
        RVXScope other, fresh;
        disarrange(other);
        const QByteArray saved = fresh.saveState();
        const QString before = viewChoices(other);
        QVERIFY(other.restoreState(stateOf(saved, 1, QByteArray())));
        QCOMPARE(other.averaging(), 1);
        QCOMPARE(viewChoices(other), before);
        const QByteArray off(1, '\0');
        QVERIFY(
            other.restoreState(stateOf(saved, 2,
                                       choicesAsBytes({{"barNames", off},
                                                       {"legendVisible", "another size"},
                                                       {"gapIntervals", QByteArray(8, '\xff')},
                                                       {"timeAxis", QByteArray("\0\0\0\x7f", 4)},
                                                       {"trigger", QByteArray(44, '\x7f')},
                                                       {"of tomorrow", "any bytes"}}))));
        QCOMPARE(viewChoices(other), QString(before).replace("111111", "111110"));
        QCOMPARE(other.timeAxis(), RVXScope::Utc);
    }

    void hostileStates_data()
    {
        RVXScope scope;
        disarrange(scope);
        const QByteArray good = scope.saveState();
        QTest::addColumn<QByteArray>("state");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("of another version of the host") << scope.saveState(7);
        QTest::newRow("of something else") << QByteArray("\0\0\0\xff\0\0\0\0\xfd\0\0\0\0", 13);
        QTest::newRow("one byte more") << good + '\0';
        QTest::newRow("many bytes more") << good + QByteArray(10000000, '\xff');
        QTest::newRow("as long, all ones") << QByteArray(good.size(), '\xff');
        // What is whole, but has values that no panel has: the bytes of one field, and a new sum over all.
        const auto field = [&](const char *name, int at, const QByteArray &bytes) {
            QByteArray state = good;
            state.replace(at, bytes.size(), bytes);
            const quint16 sum = qChecksum(state.constData(), uint(state.size() - 2));
            state[state.size() - 2] = char(sum >> 8);
            state[state.size() - 1] = char(sum & 0xff);
            QTest::newRow(name) << state;
        };
        const QByteArray huge("\x7f\xff\xff\xff", 4);
        field("another format", 4, QByteArray("\0\3", 2));
        QTest::newRow("choices that end early")
            << stateOf(good, 2, choicesAsBytes({{"barNames", "1"}}).chopped(1));
        QTest::newRow("more choices than bytes") << stateOf(good, 2, QByteArray(4, '\x7f'));
        field("no such mode", 10, huge);
        field("no such tabs", 14, huge);
        field("no such list", 18, huge);
        field("no such entry", 22, huge);
        field("negative entry", 22, QByteArray("\xff\xff\xff\xff", 4));
        field("endless range", 26, QByteArray("\x7f\xf0\0\0\0\0\0\0", 8));
        field("no such average", 43, huge);
        field("no such period", 47, huge);
        field("time that is no number", 51, QByteArray("\x7f\xf8\0\0\0\0\0\0", 8));
        field("negative number of samples", 59, QByteArray("\xff\xff\xff\xff", 4));
    }
    void hostileStates()
    {
        RVXScope panel;
        panel.setAveraging(10);
        const QString before = allProperties(panel);
        ChangeLog heard(panel);
        QVERIFY(!panel.restoreState(cell<QByteArray>("state")));
        QCOMPARE(allProperties(panel), before);
        QCOMPARE(heard.taken(), QString());
    }

    void damagedStates()
    {
        RVXScope scope, other;
        disarrange(scope);
        const QByteArray good = scope.saveState(3);
        const QString before = allProperties(other);
        for (int bit = 0; bit < 8 * good.size(); ++bit) {
            QByteArray flipped = good;
            flipped[bit / 8] = char(flipped[bit / 8] ^ (1 << bit % 8));
            QVERIFY2(!other.restoreState(flipped, 3), qPrintable(QString::number(bit)));
        }
        for (int size = 0; size < good.size(); ++size)
            QVERIFY2(!other.restoreState(good.left(size), 3), qPrintable(QString::number(size)));
        QCOMPARE(allProperties(other), before);
        QVERIFY(other.restoreState(good, 3));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXScopeProperties)
#include "tst_RVXScopeProperties.moc"
