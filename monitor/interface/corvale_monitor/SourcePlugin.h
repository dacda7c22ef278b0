// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>
#include <QtPlugin>

#include <limits>
#include <memory>

/*! What a plugin implements that gives corvale-monitor a further kind of source. It needs QtCore only. docs/source-plugins.md
    explains it with an example. */
namespace CorvaleMonitor {

//! A channel of a source, and the limits of its readings in its unit; a limit that is NaN does not exist.
struct SourceChannel
{
    QString name;
    QString unit; //!< the symbol of the unit, like nA or mm; empty if there is none
    double lowAlarm = std::numeric_limits<double>::quiet_NaN(); //!< readings below it are an alarm
    double lowWarning = std::numeric_limits<double>::quiet_NaN(); //!< below it are a warning
    double highWarning = std::numeric_limits<double>::quiet_NaN(); //!< above it are a warning
    double highAlarm = std::numeric_limits<double>::quiet_NaN(); //!< above it are an alarm
};

//! What is known about the readings of a source before the first of them.
struct SourceStream
{
    //! What the values of a reading are.
    enum class Layout {
        Channels, //!< one value for each channel
        Strips, //!< a frame: the strips of x, then the strips of y
        Matrix, //!< a frame: row after row, row 1 at the smallest y
    };

    Layout layout = Layout::Channels;
    QVector<SourceChannel> channels; //!< 1 to 256 of them; frames have none
    int columns = 0; //!< the strips of x, or the columns of a matrix
    int rows =
        0; //!< the strips of y, or the rows of a matrix; 0 if there is only one plane of strips
    QString unit; //!< of the values of a frame; empty if it is not known
    QDateTime start; //!< the moment at which t is 0; invalid if nobody knows it
    //! Whether readings come only when something has changed, so that a live source that is silent is in order.
    bool onChange = false;

    //! Returns the number of values in each reading; 0 if the sizes are negative, or larger than any that can be shown.
    int valuesPerReading() const
    {
        constexpr int most = 65536;
        if (layout == Layout::Channels)
            return int(channels.size());
        if (columns < 0 || rows < 0 || columns > most || rows > most)
            return 0;
        const qint64 values =
            layout == Layout::Strips ? qint64(columns) + rows : qint64(columns) * rows;
        return values > most ? 0 : int(values);
    }
};

//! How it stands with a source.
enum class SourceState {
    Connecting, //!< the first connection is being made
    Live, //!< readings come, or would come if there were any
    Lost, //!< the connection is gone; the plugin is trying to make it again
    Finished, //!< the source has delivered everything
    Failed, //!< the source cannot be read, and the plugin has given up
};

/*! Takes what a source delivers. All functions may be called from any thread, also while the connection is being deleted, and
    return at once. Nothing is lost as long as the monitor keeps up: it holds 64 MB of readings that it has not shown yet. */
class SourceReceiver
{
public:
    virtual ~SourceReceiver() = default;
    //! Begins a stream. To be called before the first readings, and again when channels, sizes or limits have changed.
    virtual void begin(const SourceStream &stream) = 0;
    /*! Adds \a count readings of the stream that began last: their \a times in seconds from its start, which do not go
        back, and their \a values, all of a reading side by side. A value that is missing or means nothing is NaN. */
    virtual void add(int count, const double *times, const double *values) = 0;
    //! Sets the state. \a text says what was tried and what came back, as a sentence without its full stop.
    virtual void setState(SourceState state, const QString &text) = 0;
    //! Adds a line to the log, which begins with "WARNING " or "ERROR " if it is one.
    virtual void note(const QString &text) = 0;
    //! Shows a line to a person who tests the source: what it found, in its own words. Without a test nobody sees it.
    virtual void tell(const QString &line) = 0;
};

/*! A source that is open. The destructor closes it. The monitor calls it in the thread of its window, so that it must not wait for
    a peer. */
class SourceConnection
{
public:
    virtual ~SourceConnection() = default;
};

/*! A kind of source. The object of a plugin derives from QObject and from this class, and names CorvaleMonitor_SourcePlugin_iid in
    Q_PLUGIN_METADATA with a file like this:

    \code
    {"schemes": ["example"], "title": "Example", "address": "example:2"}
    \endcode

    The schemes are what addresses begin with, in lower case; title and address, an example, are what the monitor shows. All
    functions are called in the thread of the window and must not block it. */
class SourcePlugin
{
public:
    virtual ~SourcePlugin() = default;
    //! Returns what is wrong with an address, its scheme included, and what would be right; empty if nothing is.
    virtual QString check(const QString &address) const = 0;
    /*! Opens an address that is in order. The readings go to \a receiver, which may be kept by other threads. Where an
        exception derived from std::exception comes out, the source has failed for that reason. */
    virtual std::unique_ptr<SourceConnection>
    open(const QString &address, const std::shared_ptr<SourceReceiver> &receiver) = 0;
    //! Returns what a person can do if the source fails or is silent; empty if there is no general advice.
    virtual QString remedy() const { return {}; }
};

} // namespace CorvaleMonitor

//! The name of the interface with its version: a plugin that was built for another version is not loaded.
#define CorvaleMonitor_SourcePlugin_iid "org.corvale_qt.corvale_monitor.SourcePlugin/1"
Q_DECLARE_INTERFACE(CorvaleMonitor::SourcePlugin, CorvaleMonitor_SourcePlugin_iid)
