// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoAttribute.h"

#include <QStringList>

#include <chrono>
#include <memory>
#include <vector>

class TangoEventQueue;

/*! A device of the control system. Its source is the only one that sees the client library.

    Every function may wait for the device, and has to be called in the thread that made the object. A device that does not
    answer at all keeps the constructor for up to 6 s. */
class TangoDevice
{
public:
    //! A call takes this long at most; the library makes it once more before it gives up.
    static constexpr std::chrono::milliseconds timeout{2000};

    //! Why a device could not be asked.
    struct Fault
    {
        QString text;
        bool isLasting = false; //!< whether asking again would change nothing
    };

    //! Looks for a device. Whether it answers is seen when it is asked.
    explicit TangoDevice(const QString &name);
    ~TangoDevice();
    TangoDevice(const TangoDevice &) = delete;
    TangoDevice &operator=(const TangoDevice &) = delete;

    //! Returns what is configured of its attributes; nothing after a fault.
    std::vector<TangoAttribute> attributes(const QStringList &names, Fault *fault);
    //! Reads attributes in one call. Returns whether the device has answered.
    bool read(const std::vector<TangoAttribute> &attributes,
              std::vector<TangoReading> *readings,
              Fault *fault);
    /*! Makes the server send the changes of an attribute, beginning with its present value. They go to \a queue, which has to live longer
        than this object. Returns whether the server does; otherwise \a fault says why not, and the attribute can be read. */
    bool subscribe(const TangoAttribute &attribute, TangoEventQueue &queue, Fault *fault);
    //! Lets nothing more go to the queue.
    void unsubscribe();
    //! Asks for nothing. Returns whether the device has answered.
    bool ping(Fault *fault);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
