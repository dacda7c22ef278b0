// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/monitor/plugins/TangoClient.h"

#include <atomic>
#include <limits>
#include <tango.h>

namespace {

QString textOf(const Tango::DevFailed &failure)
{
    QString text;
    for (CORBA::ULong i = 0; i < failure.errors.length(); ++i)
        text += QString::fromLatin1(failure.errors[i].desc.in()) + QStringLiteral("; ");
    return text;
}

template<typename Type>
void take(Tango::DeviceAttribute &given, TangoClient::Value *value)
{
    std::vector<Type> read;
    given >> read;
    for (const Type each : read)
        value->numbers.append(double(each));
    value->number = value->numbers.value(0);
}

void takeTexts(Tango::DeviceAttribute &given, TangoClient::Value *value)
{
    std::vector<std::string> read;
    given >> read;
    for (const std::string &each : read)
        value->texts.append(QString::fromLatin1(each.data(), int(each.size())));
}

//! Counts the events that are no errors.
struct Counter : Tango::CallBack
{
    void push_event(Tango::EventData *event) override { count += event->err ? 0 : 1; }
    std::atomic<int> count{0};
};

} // namespace

struct TangoClient::Private
{
    explicit Private(const QString &device)
        : name(device.toStdString())
        , proxy(name)
    {
    }
    ~Private()
    {
        if (event != 0)
            proxy.unsubscribe_event(event);
    }

    std::string name;
    Tango::DeviceProxy proxy;
    Counter counter;
    int event = 0;
};

TangoClient::TangoClient(const QString &device)
    : d(new Private(device))
{
}

TangoClient::~TangoClient() = default;

TangoClient::Value TangoClient::read(const QString &attribute)
{
    static const char *const qualities[] = {"VALID", "INVALID", "ALARM", "CHANGING", "WARNING"};
    Value value;
    try {
        std::string name = attribute.toStdString();
        Tango::DeviceAttribute given = d->proxy.read_attribute(name);
        value.quality = QLatin1String(qualities[given.quality]);
        value.time = double(given.time.tv_sec) + 1e-6 * double(given.time.tv_usec);
        given.exceptions(0);
        const int type = given.get_type();
        if (type == Tango::DEV_DOUBLE)
            take<Tango::DevDouble>(given, &value);
        else if (type == Tango::DEV_LONG64)
            take<Tango::DevLong64>(given, &value);
        else if (type == Tango::DEV_STRING)
            takeTexts(given, &value);
        else
            take<Tango::DevShort>(given, &value);
    } catch (const Tango::DevFailed &failure) {
        value.fault = textOf(failure);
    }
    return value;
}

double TangoClient::number(const QString &attribute)
{
    const Value value = read(attribute);
    const bool isUsable = value.fault.isEmpty() && value.quality != QLatin1String("INVALID");
    return isUsable ? value.number : std::numeric_limits<double>::quiet_NaN();
}

QString TangoClient::unit(const QString &attribute)
{
    try {
        const std::string unit = d->proxy.get_attribute_config(attribute.toStdString()).unit;
        return QString::fromLatin1(unit.data(), int(unit.size()));
    } catch (const Tango::DevFailed &failure) {
        return textOf(failure);
    }
}

QString TangoClient::state()
{
    try {
        return QLatin1String(Tango::DevStateName[d->proxy.state()]);
    } catch (const Tango::DevFailed &failure) {
        return textOf(failure);
    }
}

QString TangoClient::status()
{
    try {
        return QString::fromStdString(d->proxy.status());
    } catch (const Tango::DevFailed &failure) {
        return textOf(failure);
    }
}

QString TangoClient::subscribe(const QString &attribute)
{
    try {
        d->event =
            d->proxy.subscribe_event(attribute.toStdString(), Tango::CHANGE_EVENT, &d->counter);
    } catch (const Tango::DevFailed &failure) {
        return textOf(failure);
    }
    return {};
}

int TangoClient::changes() const
{
    return d->counter.count;
}
