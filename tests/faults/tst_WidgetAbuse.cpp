// SPDX-License-Identifier: LGPL-2.1-or-later
// Hosts may delete any widget of the library inside its own signals, give it any size, and take its model away. The widgets, with
// something in them, are those that Qt Designer previews. A last one has each fault that the others must not have.
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "designer/WidgetTable.h"
#include "tests/support/TestMain.h"

#include <map>

using namespace Corvale_Qt;

namespace {

//! Deletes a widget as soon as it is told to.
class Deleter : public QObject
{
    Q_OBJECT

public:
    explicit Deleter(QWidget *widget)
        : m_widget(widget)
    {
    }
    bool hasActed() const { return m_hasActed; }

public Q_SLOTS:
    void act()
    {
        if (m_hasActed)
            return;
        m_hasActed = true;
        delete m_widget;
    }

private:
    QWidget *m_widget;
    bool m_hasActed = false;
};

//! A widget as Designer shows it. Its models are not its children, so that they may announce something while it dies.
class Specimen
{
public:
    explicit Specimen(const WidgetDescription &description)
        : widget(description.create(nullptr))
    {
        if (description.preview)
            description.preview(widget);
        widget->resize(description.size);
        for (QAbstractItemModel *model : widget->findChildren<QAbstractItemModel *>()) {
            const bool isOfHost = qobject_cast<QStandardItemModel *>(model)
                || qobject_cast<RVXSingleChannelDataModel *>(model);
            const bool isOfField =
                model->parent() != widget && qobject_cast<QComboBox *>(model->parent());
            if (isOfHost && !isOfField)
                model->setParent(&m_models);
        }
        widget->show();
        widget->grab();
    }
    ~Specimen() { delete widget; }

    QList<QAbstractItemModel *> models() const
    {
        return m_models.findChildren<QAbstractItemModel *>(QString(), Qt::FindDirectChildrenOnly);
    }

    QPointer<QWidget> widget;

private:
    QObject m_models;
};

using Action = std::function<void(Specimen &)>;

//! Returns the first class below the library's classes of which a widget is one.
const QMetaObject *qtClassOf(const QWidget &widget)
{
    const QMetaObject *type = widget.metaObject();
    while (QByteArray(type->className()).startsWith("Corvale_Qt::"))
        type = type->superClass();
    return type;
}

//! Adds actions that give a property other values than it has.
void addPropertyActions(const QMetaProperty &property, QVector<Action> &actions)
{
    const auto add = [&](auto change) {
        actions.append([property, change](Specimen &specimen) {
            property.write(specimen.widget, change(property.read(specimen.widget)));
        });
    };
    if (!property.isWritable())
        return;
    if (property.userType() == QMetaType::Bool) {
        for (int i = 0; i < 2; ++i)
            add([](const QVariant &value) { return QVariant(!value.toBool()); });
    } else if (property.isEnumType() || property.userType() == QMetaType::Int) {
        QVector<int> numbers{0, 1, 2, 3, 5, 10};
        if (property.isEnumType()) {
            numbers.clear();
            for (int i = 0; i < property.enumerator().keyCount(); ++i)
                numbers.append(property.enumerator().value(i));
        }
        for (const int number : qAsConst(numbers))
            add([number](const QVariant &) { return QVariant(number); });
    } else if (property.userType() == QMetaType::Double) {
        for (const double factor : {2.0, 0.0})
            add([factor](const QVariant &value) {
                return QVariant(factor * value.toDouble() + 1.0);
            });
    } else if (property.userType() == QMetaType::QDateTime) {
        add([](const QVariant &) {
            return QVariant(QDateTime(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC));
        });
    } else if (property.userType() == QMetaType::QString) {
        add([](const QVariant &value) { return QVariant(value.toString() + QLatin1Char('u')); });
    }
}

//! Returns a value as the argument of a slot that is called by its name. The argument points to the value.
template<typename Value>
QArgument<Value> argumentOf(const Value &value)
{
    return {QMetaType::typeName(qMetaTypeId<Value>()), value};
}

//! Adds actions that call a slot, if its arguments are simple.
void addSlotActions(const QMetaMethod &slot, QVector<Action> &actions)
{
    if (slot.methodType() != QMetaMethod::Slot || slot.access() != QMetaMethod::Public)
        return;
    const auto add = [&](auto... values) {
        actions.append([slot, values...](Specimen &specimen) {
            slot.invoke(specimen.widget, Qt::DirectConnection, argumentOf(values)...);
        });
    };
    const QList<QByteArray> types = slot.parameterTypes();
    if (types.isEmpty())
        add();
    else if (types == QList<QByteArray>{"int"})
        for (const int number : {0, 1, 2, 3})
            add(number);
    else if (types == QList<QByteArray>{"bool"})
        for (const bool on : {true, false})
            add(on);
    else if (types == QList<QByteArray>{"double"})
        add(1.0);
    else if (types == QList<QByteArray>{"double", "double"})
        add(1.0, 2.0);
}

//! Adds actions of the source: another reading, spot or line.
void addDataActions(QVector<Action> &actions)
{
    const auto feed = [](Specimen &specimen) {
        for (QAbstractItemModel *model : specimen.models()) {
            if (auto *channel = qobject_cast<RVXSingleChannelDataModel *>(model))
                channel->AddData(1e4 + channel->rowCount(), 1e-9);
            else if (auto *items = qobject_cast<QStandardItemModel *>(model))
                items->appendRow(items->takeRow(0));
        }
    };
    const auto empty = [](Specimen &specimen) {
        for (QAbstractItemModel *model : specimen.models())
            model->removeRows(0, model->rowCount());
    };
    const auto paint = [](Specimen &specimen) { specimen.widget->grab(); };
    const auto wait = [](Specimen &) { QCoreApplication::processEvents(); };
    actions << feed << paint << wait << empty << paint << wait;
}

/*! Adds keys and the mouse, as they come to the widget and to those in it. Return is left out: Qt's line edit goes on with
    itself after it has announced the key, so that no slot of a field may delete it. */
void addInputActions(QVector<Action> &actions)
{
    for (const int key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_Space, Qt::Key_Home, Qt::Key_Escape})
        actions.append([key](Specimen &specimen) {
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent event(type, key, Qt::NoModifier);
                if (specimen.widget)
                    QCoreApplication::sendEvent(specimen.widget, &event);
            }
        });
    actions.append([](Specimen &specimen) {
        QVector<QPointer<QAbstractButton>> buttons;
        for (QAbstractButton *button : specimen.widget->findChildren<QAbstractButton *>())
            buttons.append(button);
        for (const QPointer<QAbstractButton> &button : buttons)
            if (button && button->isVisible())
                button->click();
    });
}

//! Returns what can be done to each widget of a class.
QVector<Action> actionsFor(const QWidget &widget)
{
    QVector<Action> actions;
    const QMetaObject *type = widget.metaObject(), *qtType = qtClassOf(widget);
    for (int i = qtType->propertyCount(); i < type->propertyCount(); ++i)
        addPropertyActions(type->property(i), actions);
    addDataActions(actions);
    addInputActions(actions);
    for (int i = qtType->methodCount(); i < type->methodCount(); ++i)
        addSlotActions(type->method(i), actions);
    return actions;
}

const QMetaMethod &actSlot()
{
    static const QMetaMethod slot =
        Deleter::staticMetaObject.method(Deleter::staticMetaObject.indexOfSlot("act()"));
    return slot;
}

//! Returns the signals of a widget's own classes that \a actions cause, and the first action after which each was emitted.
QHash<int, int> firedBy(const WidgetDescription &description, const QVector<Action> &actions)
{
    QHash<int, int> fired;
    Specimen specimen(description);
    const QMetaObject *type = specimen.widget->metaObject();
    std::map<int, std::unique_ptr<QSignalSpy>> spies;
    for (int i = qtClassOf(*specimen.widget)->methodCount(); i < type->methodCount(); ++i)
        if (type->method(i).methodType() == QMetaMethod::Signal)
            spies[i] = std::make_unique<QSignalSpy>(specimen.widget, type->method(i));
    for (int action = 0; action < actions.size(); ++action) {
        actions[action](specimen);
        for (const auto &[signal, spy] : spies)
            if (!spy->isEmpty() && !fired.contains(signal))
                fired.insert(signal, action);
    }
    return fired;
}

//! Deletes a widget inside each of its signals; returns how many there are.
int deleteInsideSignals(const WidgetDescription &description)
{
    const QVector<Action> actions = actionsFor(*Specimen(description).widget);
    const QHash<int, int> fired = firedBy(description, actions);
    for (auto each = fired.begin(); each != fired.end(); ++each) {
        Specimen specimen(description);
        const QMetaMethod signal = specimen.widget->metaObject()->method(each.key());
        if (qEnvironmentVariableIsSet("CORVALE_QT_TEST_VERBOSE"))
            qInfo("%s", signal.methodSignature().constData());
        Deleter deleter(specimen.widget);
        QObject::connect(specimen.widget, signal, &deleter, actSlot());
        actions[each.value()](specimen);
        for (int i = 0; specimen.widget && i <= each.value(); ++i)
            actions[i](specimen);
        if (deleter.hasActed() != specimen.widget.isNull())
            QTest::qFail(signal.methodSignature(), __FILE__, __LINE__);
    }
    return fired.size();
}

void giveAnySize(const WidgetDescription &description)
{
    Specimen specimen(description);
    for (const QSize &size :
         {QSize(0, 0), QSize(1, 1), QSize(30000, 30), QSize(30, 30000), QSize(2, 500)}) {
        specimen.widget->setMinimumSize(0, 0);
        specimen.widget->resize(size);
        QCOMPARE(specimen.widget->grab().isNull(), specimen.widget->size().isEmpty());
        QCoreApplication::processEvents();
    }
}

void deleteModelsBeforeAPaint(const WidgetDescription &description)
{
    Specimen specimen(description);
    for (QAbstractItemModel *model : specimen.models()) {
        if (auto *channel = qobject_cast<RVXSingleChannelDataModel *>(model))
            channel->AddData(1e4, 1e-9);
        specimen.widget->update();
        delete model;
        QVERIFY(!specimen.widget->grab().isNull());
    }
    QCoreApplication::processEvents();
}

} // namespace

namespace Corvale_Qt {

/*! Has each fault that the tests look for. Where another widget would crash, it notes what it did: it goes on after its deletion,
    cannot be painted in every size, and reads its model in a paint although the model is gone. */
class FaultyWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool mark READ isMarked WRITE setMarked NOTIFY markedChanged)

public:
    using QWidget::QWidget;

    static QStringList faults;

    static QWidget *create(QWidget *parent) { return new FaultyWidget(parent); }
    static void giveModel(QWidget *widget)
    {
        auto *const self = static_cast<FaultyWidget *>(widget);
        self->m_model = new RVXSingleChannelDataModel(self);
        self->m_hasModel = true;
    }

    bool isMarked() const { return m_isMarked; }
    void setMarked(bool marked)
    {
        const QPointer<FaultyWidget> self(this);
        m_isMarked = marked;
        Q_EMIT markedChanged(marked);
        note(!self, "deleted");
    }

Q_SIGNALS:
    void markedChanged(bool marked);

protected:
    void paintEvent(QPaintEvent *) override
    {
        note(width() > 20000, "wide");
        note(height() > 20000, "high");
        note(width() == 1, "narrow");
        note(m_hasModel && !m_model, "model");
    }

private:
    static void note(bool isFault, const char *what)
    {
        if (isFault && !faults.contains(what))
            faults.append(what);
    }

    QPointer<QAbstractItemModel> m_model;
    bool m_hasModel = false;
    bool m_isMarked = false;
};

QStringList FaultyWidget::faults;

} // namespace Corvale_Qt

class tst_WidgetAbuse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // A dialog that a slot opens is closed.
        connect(&m_closer, &QTimer::timeout, this, [] {
            if (QWidget *dialog = QApplication::activeModalWidget())
                dialog->close();
            if (QWidget *popup = QApplication::activePopupWidget())
                popup->close();
        });
        m_closer.start(1);
    }

    void deletedInsideItsSignals_data() { everyWidget(); }
    void deletedInsideItsSignals()
    {
        const WidgetDescription &description = widgetTable()[std::size_t(cell<int>("number"))];
        const int count = deleteInsideSignals(description);
        qInfo("%s: deleted inside %d signals", description.className, count);
    }

    void anySize_data() { everyWidget(); }
    void anySize() { giveAnySize(widgetTable()[std::size_t(cell<int>("number"))]); }

    void modelDeletedBeforeAPaint_data() { everyWidget(); }
    void modelDeletedBeforeAPaint()
    {
        deleteModelsBeforeAPaint(widgetTable()[std::size_t(cell<int>("number"))]);
    }

    void plantedFaultsAreFound()
    {
        WidgetDescription faulty;
        faulty.size = QSize(100, 30);
        faulty.create = FaultyWidget::create;
        faulty.preview = FaultyWidget::giveModel;
        const auto found = [&](void (*abuse)(const WidgetDescription &)) {
            FaultyWidget::faults.clear();
            abuse(faulty);
            return FaultyWidget::faults.join(QLatin1Char(' '));
        };
        QCOMPARE(found([](const WidgetDescription &description) {
                     QCOMPARE(deleteInsideSignals(description), 1);
                 }),
                 QString("deleted"));
        QCOMPARE(found(giveAnySize), QString("narrow wide high"));
        QCOMPARE(found(deleteModelsBeforeAPaint), QString("model"));
    }

private:
    static void everyWidget()
    {
        QTest::addColumn<int>("number");
        int number = 0;
        for (const WidgetDescription &description : widgetTable())
            QTest::newRow(description.className) << number++;
    }

    QTimer m_closer;
};

CORVALE_QT_TEST_MAIN(tst_WidgetAbuse)
#include "tst_WidgetAbuse.moc"
