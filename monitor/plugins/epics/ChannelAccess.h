// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <cstdint>

/*! The part of the C interface of the Channel Access client library that is needed here, as the Channel Access Reference Manual
    documents it. The names of its functions are kept, without their prefix ca_. The library is found when the program runs. */
namespace ChannelAccess {

//! A channel of the library, which only the library looks into.
struct Channel;
using ChannelId = Channel *;

//! What the library hands to connectionChanged.
struct ConnectionChange
{
    ChannelId channel;
    long operation; //!< connectionUp or connectionDown
};
constexpr long connectionUp = 6;
constexpr long connectionDown = 7;

//! What the library hands over with values.
struct Event
{
    void *user;
    ChannelId channel;
    long type;
    long count; //!< number of values
    const void *data; //!< null unless the status is normal
    int status;
};
//! What the library hands over when something is wrong that belongs to no call.
struct Exception
{
    void *user;
    ChannelId channel;
    long type;
    long count;
    void *address;
    long status;
    long operation;
    const char *context;
    const char *file;
    unsigned line;
};
using ConnectionHandler = void (*)(ConnectionChange);
using EventHandler = void (*)(Event);
using ExceptionHandler = void (*)(Exception);

constexpr int normal = 1; //!< the status of success
constexpr int enablePreemptiveCallback = 1;
constexpr unsigned usualPriority = 0;
constexpr long valueOrAlarmChanged = 1 | 4;

//! The numbers of the types in which values are asked for.
constexpr long typeTimeDouble = 20;
constexpr long typeControlDouble = 34;

//! Alarm severities.
enum Severity : int16_t {
    NoAlarm,
    Minor,
    Major,
    Invalid
};

//! Values with their time: type typeTimeDouble.
struct TimeDouble
{
    int16_t status;
    int16_t severity;
    uint32_t seconds; //!< since 1990-01-01 UTC; 0 if the time is not known
    uint32_t nanoseconds;
    int32_t padding;
    double value; //!< the first of them
};
static_assert(sizeof(TimeDouble) == 24);

//! What is configured of a variable: type typeControlDouble.
struct ControlDouble
{
    int16_t status;
    int16_t severity;
    int16_t precision;
    int16_t padding;
    char unit[8]; //!< ends with a 0 unless it fills its place
    double highDisplay;
    double lowDisplay;
    double highAlarm;
    double highWarning;
    double lowWarning;
    double lowAlarm;
    double highControl;
    double lowControl;
    double value;
};
static_assert(sizeof(ControlDouble) == 88);

//! The library's functions.
struct Library
{
    int (*context_create)(int select) = nullptr;
    void (*context_destroy)() = nullptr;
    int (*add_exception_event)(ExceptionHandler handler, void *user) = nullptr;
    int (*create_channel)(const char *name,
                          ConnectionHandler handler,
                          void *user,
                          unsigned priority,
                          ChannelId *channel) = nullptr;
    int (*create_subscription)(long type,
                               unsigned long count,
                               ChannelId channel,
                               long mask,
                               EventHandler handler,
                               void *user,
                               void **subscription) = nullptr;
    int (*array_get_callback)(long type,
                              unsigned long count,
                              ChannelId channel,
                              EventHandler handler,
                              void *user) = nullptr;
    int (*flush_io)() = nullptr;
    unsigned long (*element_count)(ChannelId channel) = nullptr;
    unsigned (*get_host_name)(ChannelId channel, char *text, unsigned size) = nullptr;
    void *(*puser)(ChannelId channel) = nullptr;
    const char *(*message)(long status) = nullptr;

    //! Returns the library, loaded; null if it cannot be used, and \a error says why and what to do.
    static const Library *load(QString *error);
    //! Returns the library that load() has loaded.
    static const Library &loaded();
};

} // namespace ChannelAccess
