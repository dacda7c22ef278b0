// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_monitor/SourcePlugin.h>
#include <vector>

/*! What a plugin implements that makes the results of corvale-monitor readable for other programs, such as an archive or an alarm
    handler. It needs QtCore only. docs/source-plugins.md explains it. */
namespace CorvaleMonitor {

//! How far the numbers of a plane may be trusted.
enum class ResultValidity {
    Valid, //!< they describe the readings
    Poor, //!< there is a beam, but they describe it poorly
    Invalid, //!< they must not be used
};

//! What was found in one plane of the newest reading. A number that does not exist is NaN.
struct PlaneResult
{
    double position = std::numeric_limits<double>::quiet_NaN(); //!< of the fitted Gaussian
    double sigma = std::numeric_limits<double>::quiet_NaN(); //!< of the fitted Gaussian
    double integral = std::numeric_limits<double>::quiet_NaN(); //!< of the fitted Gaussian
    double reducedChiSquare =
        std::numeric_limits<double>::quiet_NaN(); //!< NaN unless the noise is known
    ResultValidity validity = ResultValidity::Invalid;
    QString verdict; //!< the same in words, with the reasons; empty if there is no such plane
};

//! How the newest reading of a channel stands to its limits.
enum class ChannelState {
    Normal,
    Warning, //!< beyond a warning limit
    Alarm, //!< beyond an alarm limit
    OverRange, //!< outside the range of the instrument
};

//! What stays the same from one reading to the next.
struct ResultStream
{
    QString source; //!< what is read, as a person would name it
    QVector<SourceChannel> channels; //!< of the values, with the limits by which they are judged
    QString unitX; //!< of position and sigma of x; empty if there is no such plane
    QString unitY; //!< the same of y
    QString integralUnit; //!< of both integrals; empty if it is not known, as with densities
};

//! What is known after the newest reading.
struct Results
{
    //! When the newest reading was taken, in seconds since 1970; NaN before the first one.
    double time = std::numeric_limits<double>::quiet_NaN();
    qint64 readings = 0; //!< of the stream, so far
    double rate = 0.0; //!< readings that arrive in a second
    SourceState state = SourceState::Connecting; //!< of the source
    QString stateText;
    //! Whether a reading should have come since, so that the numbers are not those of now.
    bool isOverdue = false;
    PlaneResult x;
    PlaneResult y;
    QVector<double> values; //!< one for each channel; NaN if it is missing
    QVector<ChannelState> states; //!< one for each channel
};

/*! One source whose results are published. The destructor says to those who read them that no more will come. All functions are
    called in the thread of the window and must not wait for a peer. */
class Publication
{
public:
    virtual ~Publication() = default;
    //! Tells what follows. It is called before the first results, and when channels, units or limits are others.
    virtual void begin(const ResultStream &stream) = 0;
    //! Gives the newest results, 25 times a second at most.
    virtual void publish(const Results &results) = 0;
};

/*! Publishes results under addresses. The object of a plugin derives from QObject and from this class, and from SourcePlugin as well
    if it reads sources; Q_INTERFACES has both. The file that Q_PLUGIN_METADATA names says which addresses it publishes under:

    \code
    {"schemes": ["example"], "title": "Example", "address": "example:2", "publishes": ["example"]}
    \endcode */
class ResultPublisher
{
public:
    virtual ~ResultPublisher() = default;
    //! Returns what is wrong with an address, its scheme included, and what would be right; empty if nothing is.
    virtual QString checkPublished(const QString &address) const = 0;
    /*! Opens addresses that are in order: all that a run has of this publisher, in one call at its start, which may take some seconds.
        Returns a publication for each; none if one cannot be opened, and \a error says why in a sentence without its full stop. */
    virtual std::vector<std::unique_ptr<Publication>> publish(const QStringList &addresses,
                                                              QString *error) = 0;
};

} // namespace CorvaleMonitor

//! The name of the interface with its version: a plugin that was built for another version does not publish.
#define CorvaleMonitor_ResultPublisher_iid "org.corvale_qt.corvale_monitor.ResultPublisher/1"
Q_DECLARE_INTERFACE(CorvaleMonitor::ResultPublisher, CorvaleMonitor_ResultPublisher_iid)
