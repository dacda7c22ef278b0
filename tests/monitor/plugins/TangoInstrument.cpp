// SPDX-License-Identifier: LGPL-2.1-or-later
/* A small TANGO device server, whose attributes have what the tests state. Each line on its standard input gives an attribute
   another reading and is answered with "taken":

       NAME QUALITY MILLISECONDS COLUMNS ROWS VALUE ...

   with a quality of TANGO, 9 for a failure, or 8 for the error by which the library tells a client that it hears no events of the
   server any more, and a time after 2001-09-09 01:46:40 UTC. Readings of the attributes "level" and "profile"
   are sent to clients as events. */
#include <algorithm>
#include <iostream>
#include <map>
#include <mutex>
#include <sstream>
#include <tango.h>
#include <thread>

namespace {

constexpr int failure = 9;
constexpr int silence = 8; //!< of events; who asks for the reading gets it

struct Reading
{
    int quality = Tango::ATTR_VALID;
    long milliseconds = 0;
    int columns = 1;
    int rows = 1;
    std::vector<double> values{0.0};
};

std::mutex mutex; //!< for the readings
std::map<std::string, Reading> readings;

//! Hands over a reading as values of a type.
template<typename Type>
void give(Tango::Attribute &attribute, const Reading &reading)
{
    // The library deletes them: a scalar as one object, anything else as an array.
    const bool isScalar = attribute.get_data_format() == Tango::SCALAR;
    const std::size_t count = isScalar ? 1 : std::max<std::size_t>(reading.values.size(), 1);
    auto *const values = isScalar ? new Type{} : new Type[count]{};
    std::transform(reading.values.begin(),
                   reading.values.begin() + std::ptrdiff_t(std::min(count, reading.values.size())),
                   values, [](double value) { return static_cast<Type>(value); });
    timeval time = {};
    time.tv_sec = 1000000000 + reading.milliseconds / 1000;
    time.tv_usec = reading.milliseconds % 1000 * 1000;
    const bool isImage = attribute.get_data_format() == Tango::IMAGE;
    attribute.set_value_date_quality(
        values, time,
        reading.quality == silence ? Tango::ATTR_VALID : Tango::AttrQuality(reading.quality),
        reading.columns, isImage ? reading.rows : 0, true);
}

template<typename Type>
void answer(Tango::Attribute &attribute)
{
    const std::lock_guard lock(mutex);
    const Reading &reading = readings[attribute.get_name()];
    if (reading.quality == failure)
        Tango::Except::throw_exception("Broken", "the cable is cut", "TangoInstrument");
    give<Type>(attribute, reading);
}

template<typename Type>
struct Scalar : Tango::Attr
{
    Scalar(const char *itsName, long itsType)
        : Tango::Attr(itsName, itsType)
    {
    }
    void read(Tango::DeviceImpl *, Tango::Attribute &attribute) override
    {
        answer<Type>(attribute);
    }
};

template<typename Type>
struct Spectrum : Tango::SpectrumAttr
{
    Spectrum(const char *itsName, long itsType)
        : Tango::SpectrumAttr(itsName, itsType, 100000)
    {
    }
    void read(Tango::DeviceImpl *, Tango::Attribute &attribute) override
    {
        answer<Type>(attribute);
    }
};

struct Image : Tango::ImageAttr
{
    explicit Image(const char *itsName)
        : Tango::ImageAttr(itsName, Tango::DEV_DOUBLE, 1000, 1000)
    {
    }
    void read(Tango::DeviceImpl *, Tango::Attribute &attribute) override
    {
        answer<Tango::DevDouble>(attribute);
    }
};

//! Returns whether an attribute sends events.
bool isPushed(const std::string &name)
{
    return name == "level" || name == "profile";
}

class Instrument : public Tango::Device_5Impl
{
public:
    Instrument(Tango::DeviceClass *kind, const char *name)
        : Tango::Device_5Impl(kind, name)
    {
    }
    void init_device() override { }
    //! Sends clients a reading of an attribute.
    void push(const std::string &attributeName, const Reading &reading)
    {
        const Tango::AutoTangoMonitor lock(this, true);
        Tango::Attribute &attribute = get_device_attr()->get_attr_by_name(attributeName.c_str());
        if (reading.quality == failure || reading.quality == silence) {
            Tango::DevErrorList errors(1);
            errors.length(1);
            errors[0].reason =
                CORBA::string_dup(reading.quality == failure ? "Broken" : "API_EventTimeout");
            errors[0].desc = CORBA::string_dup("the cable is cut");
            errors[0].origin = CORBA::string_dup("TangoInstrument");
            errors[0].severity = Tango::ERR;
            Tango::DevFailed failed(errors);
            attribute.fire_change_event(&failed);
            return;
        }
        give<Tango::DevDouble>(attribute, reading);
        attribute.fire_change_event();
    }
};

Instrument *instrument = nullptr; //!< the only one

class InstrumentClass : public Tango::DeviceClass
{
public:
    explicit InstrumentClass(std::string &itsName)
        : Tango::DeviceClass(itsName)
    {
    }
    void device_factory(const Tango::DevVarStringArray *names) override
    {
        for (CORBA::ULong i = 0; i < names->length(); ++i) {
            instrument = new Instrument(this, (*names)[i]);
            device_list.push_back(instrument);
            instrument->set_change_event("level", true, false);
            instrument->set_change_event("profile", true, false);
            export_device(device_list.back(), (*names)[i]);
        }
    }
    void command_factory() override { }
    void attribute_factory(std::vector<Tango::Attr *> &list) override
    {
        auto *const position = new Scalar<Tango::DevDouble>("pos", Tango::DEV_DOUBLE);
        Tango::UserDefaultAttrProp properties;
        properties.set_label("Position of the beam");
        properties.set_unit("\xb5m"); // in Latin-1
        properties.set_min_alarm("-5");
        properties.set_min_warning("-2");
        properties.set_max_warning("2");
        properties.set_max_alarm("5");
        properties.set_max_value("8");
        position->set_default_properties(properties);
        auto *const current = new Scalar<Tango::DevDouble>("cur", Tango::DEV_DOUBLE);
        Tango::UserDefaultAttrProp others;
        others.set_label("pos");
        others.set_unit("nA");
        others.set_display_unit("1000");
        others.set_max_alarm("0.05");
        current->set_default_properties(others);
        list.push_back(position);
        list.push_back(current);
        list.push_back(new Spectrum<Tango::DevBoolean>("booleans", Tango::DEV_BOOLEAN));
        list.push_back(new Spectrum<Tango::DevUChar>("uchars", Tango::DEV_UCHAR));
        list.push_back(new Spectrum<Tango::DevShort>("shorts", Tango::DEV_SHORT));
        list.push_back(new Spectrum<Tango::DevUShort>("ushorts", Tango::DEV_USHORT));
        list.push_back(new Spectrum<Tango::DevLong>("longs", Tango::DEV_LONG));
        list.push_back(new Spectrum<Tango::DevULong>("ulongs", Tango::DEV_ULONG));
        list.push_back(new Spectrum<Tango::DevLong64>("long64s", Tango::DEV_LONG64));
        list.push_back(new Spectrum<Tango::DevULong64>("ulong64s", Tango::DEV_ULONG64));
        list.push_back(new Spectrum<Tango::DevFloat>("floats", Tango::DEV_FLOAT));
        list.push_back(new Spectrum<Tango::DevDouble>("x", Tango::DEV_DOUBLE));
        list.push_back(new Spectrum<Tango::DevDouble>("y", Tango::DEV_DOUBLE));
        list.push_back(new Scalar<Tango::DevDouble>("level", Tango::DEV_DOUBLE));
        list.push_back(new Spectrum<Tango::DevDouble>("profile", Tango::DEV_DOUBLE));
        list.push_back(new Image("image"));
    }
};

//! Takes readings from the standard input until it ends, and ends the server then: the test is gone.
void takeLines()
{
    const omni_thread::ensure_self self;
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string name;
        Reading reading;
        words >> name >> reading.quality >> reading.milliseconds >> reading.columns >> reading.rows;
        reading.values.clear();
        for (double value = 0.0; words >> value;)
            reading.values.push_back(value);
        {
            const std::lock_guard lock(mutex);
            readings[name] = reading;
        }
        if (isPushed(name))
            instrument->push(name, reading);
        std::cout << "taken" << std::endl;
    }
    std::_Exit(0);
}

} // namespace

void Tango::DServer::class_factory()
{
    static std::string name("Instrument");
    add_class(new InstrumentClass(name));
}

int main(int argc, char **argv)
{
    try {
        Tango::Util *server = Tango::Util::init(argc, argv);
        server->server_init(false);
        std::thread(takeLines).detach();
        std::cout << "Ready to accept request" << std::endl;
        server->server_run();
    } catch (const CORBA::Exception &exception) {
        Tango::Except::print_exception(exception);
        return 1;
    }
    return 0;
}
