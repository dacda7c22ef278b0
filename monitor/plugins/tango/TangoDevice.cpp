// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoDevice.h"

#include "monitor/plugins/tango/TangoEventQueue.h"
#include "monitor/plugins/tango/TangoText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <tango.h>
#include <type_traits>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Form = TangoAttribute::Form;
using Quality = TangoReading::Quality;

//! A window shows no image larger than this, and no longer spectrum.
constexpr int largestSide = 256;
constexpr int longestSpectrum = 65536;

//! Returns a text of a device. The protocol does not say how texts are encoded: most are Latin-1, some are UTF-8.
QString textOf(const std::string &bytes)
{
    const QString text = QString::fromStdString(bytes);
    const bool isUtf8 = !text.contains(QChar(QChar::ReplacementCharacter));
    return (isUtf8 ? text : QString::fromLatin1(bytes.data(), int(bytes.size()))).simplified();
}

//! Returns whether one of the errors has a reason that begins like this.
bool hasReason(const Tango::DevFailed &failure, const char *reason)
{
    for (CORBA::ULong i = 0; i < failure.errors.length(); ++i)
        if (QByteArray(failure.errors[i].reason.in()).startsWith(reason))
            return true;
    return false;
}

bool isTimeout(const Tango::DevFailed &failure)
{
    for (CORBA::ULong i = 0; i < failure.errors.length(); ++i)
        if (QByteArray(failure.errors[i].desc.in()).contains("CallTimedout"))
            return true;
    return hasReason(failure, "API_DeviceTimedOut");
}

//! Returns what went wrong at first, in the words of the library; what it says of its transport only if there is nothing else.
QString firstText(const Tango::DevErrorList &errors)
{
    if (errors.length() == 0)
        return TangoText::tr("an error without a description");
    CORBA::ULong first = 0;
    while (first + 1 < errors.length() && textOf(errors[first].reason.in()) == "API_CorbaException")
        ++first;
    return QStringLiteral("%1: %2").arg(textOf(errors[first].reason.in()),
                                        textOf(errors[first].desc.in()));
}

TangoDevice::Fault faultOf(const Tango::DevFailed &failure, const QString &device)
{
    if (isTimeout(failure))
        return {TangoText::tr("%1 does not answer in time").arg(device)};
    if (hasReason(failure, "API_DeviceNotDefined") || hasReason(failure, "DB_DeviceNotDefined"))
        return {TangoText::tr("there is no device %1").arg(device)};
    if (hasReason(failure, "API_ServerNotRunning")
        || hasReason(failure, Tango::API_CantConnectToDevice)
        || hasReason(failure, Tango::API_DeviceNotExported))
        return {TangoText::tr("no server answers for %1").arg(device)};
    const QString text = QStringLiteral("%1: %2").arg(device, firstText(failure.errors));
    return {text, hasReason(failure, Tango::API_AttrNotFound)};
}

//! Calls the library. Returns whether it succeeded, and else says why not.
template<typename Call>
bool guarded(const QString &device, TangoDevice::Fault *fault, Call call)
{
    try {
        call();
        return true;
    } catch (const Tango::DevFailed &failure) {
        *fault = faultOf(failure, device);
    } catch (const CORBA::Exception &exception) {
        *fault = {QStringLiteral("%1: %2").arg(device, QLatin1String(exception._name()))};
    } catch (const std::exception &exception) {
        *fault = {QStringLiteral("%1: %2").arg(device, QLatin1String(exception.what()))};
    }
    return false;
}

//! Returns a number that is configured; NaN if none is.
double numberOf(const std::string &text, double factor = 1.0)
{
    bool ok = false;
    const double number = textOf(text).toDouble(&ok);
    return ok ? factor * number : std::numeric_limits<double>::quiet_NaN();
}

//! Returns what the values are to be multiplied with before they are shown in the unit: the display unit, which is a number.
double factorOf(const std::string &displayUnit)
{
    const double factor = numberOf(displayUnit);
    return std::isfinite(factor) && factor > 0.0 ? factor : 1.0;
}

Form formOf(Tango::AttrDataFormat format)
{
    return format == Tango::IMAGE   ? Form::Image
        : format == Tango::SPECTRUM ? Form::Spectrum
                                    : Form::Scalar;
}

bool isNumberType(int type)
{
    switch (type) {
    case Tango::DEV_BOOLEAN:
    case Tango::DEV_SHORT:
    case Tango::DEV_LONG:
    case Tango::DEV_FLOAT:
    case Tango::DEV_DOUBLE:
    case Tango::DEV_USHORT:
    case Tango::DEV_ULONG:
    case Tango::DEV_UCHAR:
    case Tango::DEV_LONG64:
    case Tango::DEV_ULONG64:
    case Tango::DEV_ENUM:
        return true;
    default:
        return false;
    }
}

QString typeName(int type)
{
    const bool isKnown = type >= 0 && type < int(std::extent_v<decltype(Tango::CmdArgTypeName)>);
    return isKnown ? QLatin1String(Tango::CmdArgTypeName[type]) : QString::number(type);
}

//! Returns which changes are too small for an event; empty if none is configured, as where the server itself decides.
QString thresholdOf(const Tango::ChangeEventInfo &events)
{
    const double absolute = numberOf(events.abs_change);
    const double relative = numberOf(events.rel_change);
    QStringList parts;
    if (std::isfinite(absolute))
        parts.append(QString::number(absolute));
    if (std::isfinite(relative))
        parts.append(QStringLiteral("%1 %").arg(relative));
    return parts.join(QStringLiteral(", "));
}

TangoAttribute attributeOf(const Tango::AttributeInfoEx &info)
{
    TangoAttribute attribute;
    attribute.factor = factorOf(info.display_unit);
    attribute.channel.name = textOf(info.name);
    const QString unit = textOf(info.unit);
    attribute.channel.unit = unit == QLatin1String("No unit") ? QString() : unit;
    attribute.channel.lowAlarm = numberOf(info.alarms.min_alarm, attribute.factor);
    attribute.channel.lowWarning = numberOf(info.alarms.min_warning, attribute.factor);
    attribute.channel.highWarning = numberOf(info.alarms.max_warning, attribute.factor);
    attribute.channel.highAlarm = numberOf(info.alarms.max_alarm, attribute.factor);
    attribute.label = textOf(info.label);
    attribute.type = typeName(info.data_type);
    attribute.form = formOf(info.data_format);
    attribute.eventThreshold = thresholdOf(info.events.ch_event);
    attribute.isNumber = isNumberType(info.data_type);
    attribute.lowest = numberOf(info.min_value, attribute.factor);
    attribute.highest = numberOf(info.max_value, attribute.factor);
    return attribute;
}

//! Takes the values that were read; those that were set, which the library puts behind them, are left out.
template<typename Value>
bool takeAs(Tango::DeviceAttribute &given, double factor, TangoReading *reading)
{
    std::vector<Value> values;
    if (!(given >> values))
        return false;
    const std::size_t count =
        std::min(values.size(), std::size_t(reading->columns) * std::size_t(reading->rows));
    reading->values.resize(count);
    std::transform(values.begin(),
                   values.begin() + std::ptrdiff_t(count),
                   reading->values.begin(),
                   [factor](Value value) {
                       return factor * double(value);
                   });
    return true;
}

bool takeValues(Tango::DeviceAttribute &given, double factor, TangoReading *reading)
{
    switch (given.get_type()) {
    case Tango::DEV_BOOLEAN:
        return takeAs<bool>(given, factor, reading);
    case Tango::DEV_SHORT:
    case Tango::DEV_ENUM:
        return takeAs<Tango::DevShort>(given, factor, reading);
    case Tango::DEV_LONG:
        return takeAs<Tango::DevLong>(given, factor, reading);
    case Tango::DEV_FLOAT:
        return takeAs<Tango::DevFloat>(given, factor, reading);
    case Tango::DEV_DOUBLE:
        return takeAs<Tango::DevDouble>(given, factor, reading);
    case Tango::DEV_USHORT:
        return takeAs<Tango::DevUShort>(given, factor, reading);
    case Tango::DEV_ULONG:
        return takeAs<Tango::DevULong>(given, factor, reading);
    case Tango::DEV_UCHAR:
        return takeAs<Tango::DevUChar>(given, factor, reading);
    case Tango::DEV_LONG64:
        return takeAs<Tango::DevLong64>(given, factor, reading);
    case Tango::DEV_ULONG64:
        return takeAs<Tango::DevULong64>(given, factor, reading);
    default:
        return false;
    }
}

Quality qualityOf(Tango::AttrQuality quality)
{
    switch (quality) {
    case Tango::ATTR_INVALID:
        return Quality::Invalid;
    case Tango::ATTR_ALARM:
        return Quality::Alarm;
    case Tango::ATTR_WARNING:
        return Quality::Warning;
    default: // a value that is changing is as good as any other
        return Quality::Valid;
    }
}

double timeOf(const Tango::TimeVal &time)
{
    if (time.tv_sec <= 0)
        return std::numeric_limits<double>::quiet_NaN();
    return double(time.tv_sec) + 1e-6 * double(time.tv_usec) + 1e-9 * double(time.tv_nsec);
}

QString tooLargeText(const TangoAttribute &attribute, const TangoReading &reading)
{
    if (attribute.form == Form::Image)
        return TangoText::tr("%1 is an image of %2 x %3 values; a window shows at most %4 x %4")
            .arg(attribute.channel.name,
                 QString::number(reading.columns),
                 QString::number(reading.rows),
                 QString::number(largestSide));
    return TangoText::tr("%1 has %2 values; a window shows at most %3")
        .arg(attribute.channel.name,
             QString::number(reading.columns),
             QString::number(longestSpectrum));
}

void takeReading(const TangoAttribute &attribute,
                 Tango::DeviceAttribute &given,
                 TangoReading *reading)
{
    given.exceptions(0);
    reading->values.clear();
    reading->columns = reading->rows = 0;
    reading->isTooLarge = false;
    reading->fault = given.has_failed() ? firstText(given.get_err_stack()) : QString();
    reading->quality = qualityOf(given.quality);
    // The time of a failure is not that of a value.
    reading->time =
        given.has_failed() ? std::numeric_limits<double>::quiet_NaN() : timeOf(given.time);
    if (given.has_failed() || reading->quality == Quality::Invalid)
        return;
    const bool isImage = attribute.form == Form::Image;
    const int most = attribute.form == Form::Scalar ? 1 : std::numeric_limits<int>::max();
    reading->columns = std::clamp(given.dim_x, 0, most);
    reading->rows = isImage ? std::max(given.dim_y, 0) : 1;
    reading->isTooLarge = isImage ? std::max(reading->columns, reading->rows) > largestSide
                                  : reading->columns > longestSpectrum;
    if (reading->isTooLarge)
        reading->fault = tooLargeText(attribute, *reading);
    else if (reading->columns * reading->rows > 0 && !takeValues(given, attribute.factor, reading))
        reading->fault = TangoText::tr("its values cannot be read as numbers");
}

//! The library does not keep subscriptions apart that begin and end in several threads at the same time.
std::mutex &subscriptionMutex()
{
    static auto *const mutex = new std::mutex; // threads may outlive main()
    return *mutex;
}

//! Takes the events of an attribute, in a thread of the library.
class Listener : public Tango::CallBack
{
public:
    Listener(TangoAttribute attribute, TangoEventQueue &queue)
        : m_attribute(std::move(attribute))
        , m_queue(&queue)
    {
    }
    void push_event(Tango::EventData *event) override
    {
        const std::lock_guard lock(m_mutex);
        if (!m_queue)
            return;
        try {
            if (event->err) {
                takeErrors(event->errors);
                return;
            }
            TangoReading reading;
            takeReading(m_attribute, *event->attr_value, &reading);
            m_queue->add(std::move(reading));
        } catch (const CORBA::Exception &) {
            m_queue->noteGap(); // an event whose values cannot be taken out is one that is missing
        }
    }
    //! Returns whether the library has said that events do not arrive any more.
    bool wasSilent() const
    {
        const std::lock_guard lock(m_mutex);
        return m_wasSilent;
    }
    //! Leaves the queue alone from now on.
    void detach()
    {
        const std::lock_guard lock(m_mutex);
        m_queue = nullptr;
    }

private:
    void takeErrors(const Tango::DevErrorList &errors)
    {
        const Tango::DevFailed failure(errors);
        if (hasReason(failure, Tango::API_MissedEvents)) {
            m_queue->noteGap();
        } else if (hasReason(failure, "API_EventTimeout")) {
            m_wasSilent = true;
            m_queue->noteSilence();
        } else {
            TangoReading failed;
            failed.fault = firstText(errors);
            m_queue->add(std::move(failed));
        }
    }

    const TangoAttribute m_attribute;
    mutable std::mutex m_mutex;
    TangoEventQueue *m_queue; //!< null once it is detached
    bool m_wasSilent = false;
};

//! What the library still refers to, and crashes over if it is asked to end it.
struct Abandoned
{
    std::unique_ptr<Tango::DeviceProxy> proxy;
    std::unique_ptr<Listener> listener;
};

#ifdef __GLIBC__
//! Ends the process before the library does away with its channels, over which it crashes as well.
void endWithoutLibrary(int status, void *)
{
    std::fflush(nullptr);
    ::_exit(status);
}
#endif

//! Keeps a subscription that cannot be ended until the program ends.
void abandon(Abandoned subscription)
{
#ifdef __GLIBC__
    // What is registered last is called first.
    static std::once_flag once;
    std::call_once(once, [] {
        ::on_exit(endWithoutLibrary, nullptr);
    });
#endif
    static auto *const all = new std::vector<Abandoned>; // threads may outlive main()
    const std::lock_guard lock(subscriptionMutex());
    all->push_back(std::move(subscription));
}

} // namespace

struct TangoDevice::Private
{
    //! The library has to know the thread, which it did not make.
    omni_thread::ensure_self self;
    QString name;
    std::unique_ptr<Tango::DeviceProxy> proxy;
    std::unique_ptr<Listener> listener;
    std::optional<int> subscription; //!< which the listener hears
    std::unique_ptr<Listener> abandoned; //!< the listener of a subscription that cannot be ended
    Fault fault; //!< why there is no proxy
};

TangoDevice::TangoDevice(const QString &name)
    : d(new Private)
{
    d->name = name;
    guarded(name, &d->fault, [&] {
        d->proxy = std::make_unique<Tango::DeviceProxy>(name.toUtf8().constData());
        // A device that has gone is looked for by the reader, at its own pace.
        d->proxy->set_transparency_reconnection(false);
        d->proxy->set_timeout_millis(int(timeout.count()));
    });
}

TangoDevice::~TangoDevice()
{
    unsubscribe();
    if (d->abandoned)
        abandon({std::move(d->proxy), std::move(d->abandoned)});
}

std::vector<TangoAttribute> TangoDevice::attributes(const QStringList &names, Fault *fault)
{
    std::vector<TangoAttribute> attributes;
    if (!d->proxy) {
        *fault = d->fault;
        return attributes;
    }
    std::vector<std::string> asked;
    asked.reserve(std::size_t(names.size()));
    for (const QString &name : names)
        asked.push_back(name.toStdString());
    guarded(d->name, fault, [&] {
        const std::unique_ptr<Tango::AttributeInfoListEx> infos(
            d->proxy->get_attribute_config_ex(asked));
        for (const Tango::AttributeInfoEx &info : *infos)
            attributes.push_back(attributeOf(info));
    });
    if (fault->text.isEmpty() && attributes.size() != asked.size())
        *fault = {TangoText::tr("%1 does not tell what its attributes are").arg(d->name)};
    return attributes;
}

bool TangoDevice::read(const std::vector<TangoAttribute> &attributes,
                       std::vector<TangoReading> *readings,
                       Fault *fault)
{
    std::vector<std::string> names;
    names.reserve(attributes.size());
    for (const TangoAttribute &attribute : attributes)
        names.push_back(attribute.channel.name.toStdString());
    readings->resize(attributes.size());
    return guarded(d->name, fault, [&] {
        const std::unique_ptr<std::vector<Tango::DeviceAttribute>> given(
            d->proxy->read_attributes(names));
        for (std::size_t i = 0; i < readings->size(); ++i)
            takeReading(attributes[i], given->at(i), &(*readings)[i]);
    });
}

bool TangoDevice::subscribe(const TangoAttribute &attribute, TangoEventQueue &queue, Fault *fault)
{
    queue.restart();
    d->listener = std::make_unique<Listener>(attribute, queue);
    const std::lock_guard lock(subscriptionMutex());
    return guarded(d->name, fault, [&] {
        d->subscription = d->proxy->subscribe_event(attribute.channel.name.toStdString(),
                                                    Tango::CHANGE_EVENT,
                                                    d->listener.get());
    });
}

void TangoDevice::unsubscribe()
{
    if (!d->subscription)
        return;
    // After a restart of the server the library does not find the channel of a silent subscription, and does not look whether it has one.
    if (d->listener->wasSilent()) {
        d->listener->detach();
        d->abandoned = std::move(d->listener);
        d->subscription.reset();
        return;
    }
    const std::lock_guard lock(subscriptionMutex());
    Fault fault; // of which nobody wants to hear any more
    guarded(d->name, &fault, [&] {
        d->proxy->unsubscribe_event(*d->subscription);
    });
    d->subscription.reset();
}

bool TangoDevice::ping(Fault *fault)
{
    return guarded(d->name, fault, [&] {
        d->proxy->ping();
    });
}
