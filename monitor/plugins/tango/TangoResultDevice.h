// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoResults.h"

#include <map>
#include <tango.h>

/*! A device whose attributes are the results of a source. Clients are answered from the newest snapshot, in the threads of the library;
    only announce() takes the lock of the device for longer, and no thread that reads an instrument calls it. */
class TangoResultDevice : public Tango::Device_5Impl
{
public:
    TangoResultDevice(Tango::DeviceClass *kind,
                      const char *name,
                      std::shared_ptr<const TangoBoard> board);

    void init_device() override { }
    Tango::DevState dev_state() override;
    Tango::ConstDevString dev_status() override;

    //! Returns what there is to answer now.
    std::shared_ptr<const TangoSnapshot> newest() const { return m_board->newest(); }
    //! Gives the attributes the units of the stream, and sends an event for each value that has changed.
    void announce();

private:
    void setUnits(const TangoSnapshot &snapshot);
    void sendEvents(const TangoSnapshot &snapshot);

    const std::shared_ptr<const TangoBoard> m_board;
    std::string m_status;
    std::map<std::string, TangoValue> m_sent; //!< what events have said last
};

//! The class of the devices. It makes one for each board, and for no other name that the database may have.
class TangoResultClass : public Tango::DeviceClass
{
public:
    using Boards = std::map<std::string, std::shared_ptr<const TangoBoard>>;

    //! \a boards are those of the devices, by their names in lower case.
    explicit TangoResultClass(const Boards &boards);

    void device_factory(const Tango::DevVarStringArray *names) override;
    void attribute_factory(std::vector<Tango::Attr *> &list) override;
    void command_factory() override { }
    //! Returns the devices that were made.
    const std::vector<TangoResultDevice *> &devices() const { return m_devices; }

private:
    const Boards m_boards;
    std::vector<TangoResultDevice *> m_devices;
};
