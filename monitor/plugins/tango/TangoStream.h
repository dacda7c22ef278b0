// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoAttribute.h"

#include <memory>
#include <vector>

/*! Puts what is read of several attributes together into the readings of a stream. Scalars are channels, a spectrum is a plane of strips,
    two are the planes of x and y, and an image is a matrix, whose first row is the top of the picture.

    What changes in a spectrum or an image is its size. One that has grown begins another part of the stream. One that has shrunk leaves
    missing values, until it has kept its size for shrunkReadings. So an attribute that is longer or shorter at each
    reading does not begin a part each time. */
class TangoStream
{
public:
    static constexpr int shrunkReadings = 10;

    explicit TangoStream(const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver);

    /*! Says what is configured of the attributes, and whether readings come only when something changes. If that is no longer what it was,
        the next readings begin another part. Returns why the attributes cannot be shown together; empty if they can. */
    QString configure(const std::vector<TangoAttribute> &attributes, bool isOnChange);
    //! Returns whether there were readings, so that sizes and channels are known.
    bool hasBegun() const { return m_hasBegun; }
    /*! Adds readings of the attributes, in their order, that were made together. Those that have neither another time nor other values than the
        ones before are left out. */
    void add(const std::vector<TangoReading> &readings);
    //! Says that the device is gone: the newest values are missing.
    void interrupt();

private:
    struct Size
    {
        int columns = 0;
        int rows = 0;
        int count() const { return columns * rows; }
        bool operator==(const Size &other) const
        {
            return columns == other.columns && rows == other.rows;
        }
    };

    bool isFrames() const { return m_attributes.front().form != TangoAttribute::Form::Scalar; }
    bool takeSizes(const std::vector<TangoReading> &readings);
    bool wantsOtherSizes(const std::vector<TangoReading> &readings);
    void resize(std::size_t index, const TangoReading &reading, bool isGrowth);
    void begin(double start);
    QString channelName(const TangoAttribute &attribute) const;
    double timeOf(const std::vector<TangoReading> &readings);
    static void fill(const Size &size, const TangoReading &reading, double *place);
    void deliver(double time);

    const std::shared_ptr<CorvaleMonitor::SourceReceiver> m_receiver;
    std::vector<TangoAttribute> m_attributes;
    std::vector<Size> m_sizes; //!< of the attributes in this part of the stream
    std::vector<Size> m_given; //!< of the newest values of each attribute
    std::vector<double>
        m_times; //!< the last that is known of each attribute, in seconds since 1970
    std::vector<double> m_row;
    std::vector<double> m_lastRow;
    double m_start = 0.0; //!< of this part, in seconds since 1970
    double m_lastTime = 0.0; //!< of the last row, in seconds since 1970
    int m_shrunk = 0; //!< readings in a row that were smaller, and alike
    bool m_isOnChange = false;
    bool m_hasBegun = false;
    bool m_mustBegin = true;
    bool m_hasRows = false; //!< in this part
};
