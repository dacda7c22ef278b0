// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoResultDevice.h"

#include <algorithm>
#include <cmath>
#include <limits>

using CorvaleMonitor::SourceState;

namespace {

using Form = TangoResult::Form;

//! More channels than a stream has.
constexpr long mostValues = 256;

//! Returns a text as most clients decode it: as Latin-1, or as UTF-8 if it has other characters.
std::string bytesOf(const QString &text)
{
    const QByteArray latin1 = text.toLatin1();
    return QString::fromLatin1(latin1) == text ? latin1.toStdString() : text.toStdString();
}

Tango::AttrQuality qualityOf(TangoQuality quality)
{
    switch (quality) {
    case TangoQuality::Valid:
        return Tango::ATTR_VALID;
    case TangoQuality::Warning:
        return Tango::ATTR_WARNING;
    case TangoQuality::Alarm:
        return Tango::ATTR_ALARM;
    default:
        return Tango::ATTR_INVALID;
    }
}

//! Returns the time of the newest reading, or the present moment if there is no reading or its time does not fit into 32 bits.
timeval timeOf(const TangoSnapshot &snapshot)
{
    timeval time = {};
    const double seconds = snapshot.results.time;
    const bool canBeSaid = std::abs(seconds) < double(std::numeric_limits<CORBA::Long>::max());
    if (!canBeSaid) {
        gettimeofday(&time, nullptr);
        return time;
    }
    constexpr double micro = 1e6;
    const double whole = std::floor(seconds);
    time.tv_sec = time_t(whole);
    time.tv_usec = suseconds_t((seconds - whole) * micro);
    return time;
}

//! Returns how many values an attribute is given of those that there are.
int countFor(Tango::Attribute &attribute, int there)
{
    return attribute.get_data_format() == Tango::SCALAR ? 1 : std::min(there, int(mostValues));
}

//! Returns room for values that the library deletes: a scalar as one object, others as an array.
template<typename Type>
Type *newValues(Tango::Attribute &attribute, int count)
{
    return attribute.get_data_format() == Tango::SCALAR
        ? new Type()
        : new Type[std::size_t(std::max(count, 1))]();
}

//! Gives an attribute numbers as values of a type; one that is missing is 0.
template<typename Type>
void giveNumbers(Tango::Attribute &attribute, const TangoValue &value, timeval time)
{
    const int count = countFor(attribute, value.numbers.size());
    auto *const values = newValues<Type>(attribute, count);
    std::transform(value.numbers.begin(),
                   value.numbers.begin() + std::min(count, value.numbers.size()),
                   values,
                   [](double number) {
                       return static_cast<Type>(number);
                   });
    attribute.set_value_date_quality(values, time, qualityOf(value.quality), count, 0, true);
}

void giveTexts(Tango::Attribute &attribute, const TangoValue &value, timeval time)
{
    const int count = countFor(attribute, value.texts.size());
    auto *const texts = newValues<Tango::DevString>(attribute, count);
    for (int i = 0; i < count; ++i)
        texts[i] = CORBA::string_dup(bytesOf(value.texts.value(i)).c_str());
    attribute.set_value_date_quality(texts, time, qualityOf(value.quality), count, 0, true);
}

void give(Tango::Attribute &attribute,
          const TangoResult &result,
          const TangoValue &value,
          timeval time)
{
    switch (result.form) {
    case Form::Number:
    case Form::Numbers:
        giveNumbers<Tango::DevDouble>(attribute, value, time);
        break;
    case Form::Count:
        giveNumbers<Tango::DevLong64>(attribute, value, time);
        break;
    case Form::Validity:
    case Form::States:
        giveNumbers<Tango::DevShort>(attribute, value, time);
        break;
    case Form::Text:
    case Form::Texts:
        giveTexts(attribute, value, time);
        break;
    }
}

int typeOf(Form form)
{
    switch (form) {
    case Form::Number:
    case Form::Numbers:
        return Tango::DEV_DOUBLE;
    case Form::Count:
        return Tango::DEV_LONG64;
    case Form::Validity:
        return Tango::DEV_ENUM;
    case Form::States:
        return Tango::DEV_SHORT;
    default:
        return Tango::DEV_STRING;
    }
}

bool isSpectrum(Form form)
{
    return form == Form::Numbers || form == Form::Texts || form == Form::States;
}

void answer(Tango::DeviceImpl *device, Tango::Attribute &attribute, const TangoResult &result)
{
    const auto snapshot = static_cast<TangoResultDevice *>(device)->newest();
    give(attribute, result, result.value(*snapshot), timeOf(*snapshot));
}

//! An attribute that is answered from the newest snapshot, as a scalar or as a spectrum.
struct ResultScalar : Tango::Attr
{
    explicit ResultScalar(const TangoResult &itsResult)
        : Tango::Attr(itsResult.name, typeOf(itsResult.form))
        , result(itsResult)
    {
    }
    void read(Tango::DeviceImpl *device, Tango::Attribute &attribute) override
    {
        answer(device, attribute, result);
    }

    const TangoResult &result;
};

struct ResultSpectrum : Tango::SpectrumAttr
{
    explicit ResultSpectrum(const TangoResult &itsResult)
        : Tango::SpectrumAttr(itsResult.name, typeOf(itsResult.form), mostValues)
        , result(itsResult)
    {
    }
    void read(Tango::DeviceImpl *device, Tango::Attribute &attribute) override
    {
        answer(device, attribute, result);
    }

    const TangoResult &result;
};

/*! Opens the unit of an attribute, which classes that derive from it may set. The setter of the library writes to the database as well,
    and crashes where there is none. */
struct UnitOfAttribute : Tango::Attribute
{
    static std::string &in(Tango::Attribute &attribute)
    {
        return attribute.*(&UnitOfAttribute::unit);
    }
};

bool isSame(const TangoValue &a, const TangoValue &b)
{
    const auto equal = [](double one, double other) {
        return one == other || (std::isnan(one) && std::isnan(other));
    };
    return a.quality == b.quality && a.texts == b.texts
        && std::equal(a.numbers.begin(),
                      a.numbers.end(),
                      b.numbers.begin(),
                      b.numbers.end(),
                      equal);
}

} // namespace

TangoResultDevice::TangoResultDevice(Tango::DeviceClass *kind,
                                     const char *name,
                                     std::shared_ptr<const TangoBoard> board)
    : Tango::Device_5Impl(kind, name)
    , m_board(std::move(board))
{
}

Tango::DevState TangoResultDevice::dev_state()
{
    const auto snapshot = newest();
    const auto &results = snapshot->results;
    if (snapshot->isClosed)
        return Tango::OFF;
    if (results.state == SourceState::Lost || results.state == SourceState::Failed)
        return Tango::FAULT;
    if (results.state == SourceState::Connecting || results.readings == 0)
        return Tango::INIT;
    const bool isAlarm = results.isOverdue
        || std::any_of(results.states.begin(),
                       results.states.end(),
                       [](CorvaleMonitor::ChannelState state) {
                           return state != CorvaleMonitor::ChannelState::Normal;
                       });
    return isAlarm ? Tango::ALARM : Tango::ON;
}

Tango::ConstDevString TangoResultDevice::dev_status()
{
    const auto snapshot = newest();
    QString text = snapshot->stream.source;
    if (snapshot->isClosed)
        text += QStringLiteral(": closed");
    else if (snapshot->results.isOverdue)
        text += QStringLiteral(": readings are overdue");
    if (!snapshot->results.stateText.isEmpty() && snapshot->results.stateText != text)
        text += QStringLiteral(": ") + snapshot->results.stateText;
    m_status = bytesOf(text);
    return m_status.c_str();
}

void TangoResultDevice::announce()
{
    const auto snapshot = newest();
    Tango::AutoTangoMonitor lock(this, true);
    setUnits(*snapshot);
    sendEvents(*snapshot);
}

void TangoResultDevice::setUnits(const TangoSnapshot &snapshot)
{
    for (const TangoResult &result : tangoResults()) {
        if (!result.unit)
            continue;
        Tango::Attribute &attribute = get_device_attr()->get_attr_by_name(result.name);
        const std::string unit = bytesOf(result.unit(snapshot.stream));
        if (UnitOfAttribute::in(attribute) == unit)
            continue;
        {
            // The library reads the unit for clients under this lock, without that of the device.
            const Tango::AutoTangoMonitor configuration(&get_att_conf_monitor());
            UnitOfAttribute::in(attribute) = unit;
        }
        push_att_conf_event(&attribute);
    }
}

void TangoResultDevice::sendEvents(const TangoSnapshot &snapshot)
{
    const timeval time = timeOf(snapshot);
    for (const TangoResult &result : tangoResults()) {
        const TangoValue value = result.value(snapshot);
        const auto sent = m_sent.find(result.name);
        if (sent != m_sent.end() && isSame(sent->second, value))
            continue;
        m_sent[result.name] = value;
        Tango::Attribute &attribute = get_device_attr()->get_attr_by_name(result.name);
        give(attribute, result, value, time);
        attribute.fire_change_event();
        give(attribute, result, value, time); // an event uses the value up
        attribute.fire_archive_event();
    }
}

namespace {

std::string &className()
{
    static std::string name("CorvaleMonitor");
    return name;
}

std::string lowered(const char *name)
{
    return QString::fromLatin1(name).toLower().toStdString();
}

} // namespace

TangoResultClass::TangoResultClass(const Boards &boards)
    : Tango::DeviceClass(className())
    , m_boards(boards)
{
}

void TangoResultClass::device_factory(const Tango::DevVarStringArray *names)
{
    for (CORBA::ULong i = 0; i < names->length(); ++i) {
        const char *const its = (*names)[i];
        const auto board = m_boards.find(lowered(its));
        if (board == m_boards.end())
            continue; // another source of this server is not published in this run
        m_devices.push_back(new TangoResultDevice(this, its, board->second));
        device_list.push_back(m_devices.back());
        for (const TangoResult &result : tangoResults()) {
            m_devices.back()->set_change_event(result.name, true, false);
            m_devices.back()->set_archive_event(result.name, true, false);
        }
        export_device(m_devices.back(), Tango::Util::_UseDb ? "Unused" : its);
    }
}

void TangoResultClass::attribute_factory(std::vector<Tango::Attr *> &list)
{
    for (const TangoResult &result : tangoResults()) {
        Tango::UserDefaultAttrProp properties;
        properties.set_description(result.description);
        if (result.form == Form::Validity) {
            std::vector<std::string> labels{"valid", "poor", "invalid"};
            properties.set_enum_labels(labels);
        }
        Tango::Attr *attribute = nullptr;
        if (isSpectrum(result.form)) {
            auto *const spectrum = new ResultSpectrum(result);
            spectrum->set_default_properties(properties);
            attribute = spectrum;
        } else {
            attribute = new ResultScalar(result);
            attribute->set_default_properties(properties);
        }
        list.push_back(attribute);
    }
}
