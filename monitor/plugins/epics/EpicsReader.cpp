// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/epics/EpicsReader.h"

#include "monitor/plugins/epics/EpicsText.h"
#include "monitor/plugins/support/ReaderThreads.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace ChannelAccess;
using CorvaleMonitor::SourceState;
using CorvaleMonitor::SourceStream;

namespace {

//! A variable may have this many values; it is what planes of strips may have together.
constexpr int mostValues = 65536;

} // namespace

EpicsReader::EpicsReader(const Library &library,
                         const QString &address,
                         const QStringList &names,
                         const std::shared_ptr<CorvaleMonitor::SourceReceiver> &receiver)
    : m_library(library)
    , m_address(address)
    , m_receiver(receiver)
    , m_sink([this](double time, const double *values) {
        m_receiver->add(1, &time, values);
    })
    , m_variables(std::size_t(names.size()))
{
    for (std::size_t i = 0; i < m_variables.size(); ++i) {
        m_variables[i].reader = this;
        m_variables[i].index = int(i);
        m_variables[i].name = names.at(int(i)).toUtf8();
        m_variables[i].description.name = names.at(int(i));
    }
}

void EpicsReader::start(const std::shared_ptr<EpicsReader> &reader)
{
    ReaderThreads::run([reader] {
        reader->run();
    });
}

void EpicsReader::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
}

void EpicsReader::run()
{
    if (m_library.context_create(enablePreemptiveCallback) != normal) {
        m_receiver->setState(SourceState::Failed,
                             EpicsText::tr("the Channel Access client library does not start"));
        return;
    }
    m_library.add_exception_event(&EpicsReader::keepQuiet, nullptr);
    search();
    std::unique_lock lock(m_mutex);
    while (!m_isStopping) {
        const Clock::time_point deadline = nextDeadline();
        if (deadline == Clock::time_point::max())
            m_changed.wait(lock);
        else
            m_changed.wait_until(lock, deadline);
        const Clock::time_point now = Clock::now();
        if (m_isSearching && now >= m_openedAt + searchPatience)
            giveUpSearch();
        if (m_rows.isWaiting() && now >= m_rowBegan + rowPatience)
            m_rows.flush(m_sink);
    }
    lock.unlock();
    m_library.context_destroy(); // ends all callbacks
}

//! Returns when the thread has something to do next.
EpicsReader::Clock::time_point EpicsReader::nextDeadline() const
{
    Clock::time_point next = Clock::time_point::max();
    if (m_isSearching)
        next = m_openedAt + searchPatience;
    return m_rows.isWaiting() ? std::min(next, m_rowBegan + rowPatience) : next;
}

void EpicsReader::search()
{
    for (EpicsVariable &variable : m_variables) {
        ChannelId channel = nullptr;
        const int status = m_library.create_channel(variable.name.constData(),
                                                    &EpicsReader::connectionChanged,
                                                    &variable,
                                                    usualPriority,
                                                    &channel);
        if (status != normal)
            m_receiver->note(QStringLiteral("ERROR %1: %2")
                                 .arg(QString::fromUtf8(variable.name),
                                      QString::fromLatin1(m_library.message(status))));
    }
    m_library.flush_io();
}

//! Replaces the library's own report on the error stream: lost connections are reported by the channels.
void EpicsReader::keepQuiet(Exception) { }

void EpicsReader::connectionChanged(ConnectionChange change)
{
    auto *variable = static_cast<EpicsVariable *>(Library::loaded().puser(change.channel));
    variable->channel = change.channel;
    variable->reader->takeConnection(*variable, change.operation == connectionUp);
}

void EpicsReader::takeConnection(EpicsVariable &variable, bool isUp)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isStopping)
            return; // the library is being closed
        const QString name = QString::fromUtf8(variable.name);
        if (isUp && variable.wasConnected)
            m_receiver->note(QStringLiteral("%1 is connected again").arg(name));
        else if (!isUp)
            m_receiver->note(QStringLiteral("WARNING %1 is not connected any more").arg(name));
        variable.isConnected = isUp;
        variable.wasConnected = variable.wasConnected || isUp;
        variable.isDescribed = false;
        variable.severity = NoAlarm;
        variable.values.clear();
        if (!isUp && m_hasBegun)
            m_rows.remove(variable.index, m_sink);
        if (!isUp)
            tellState();
    }
    if (isUp)
        askFor(variable);
    m_changed.notify_all();
}

//! Asks for unit and limits, at every connection, since they may have changed; values are subscribed to once.
void EpicsReader::askFor(EpicsVariable &variable)
{
    m_library.array_get_callback(typeControlDouble,
                                 1,
                                 variable.channel,
                                 &EpicsReader::described,
                                 &variable);
    m_library.flush_io();
}

void EpicsReader::described(Event event)
{
    auto *variable = static_cast<EpicsVariable *>(event.user);
    variable->reader->takeDescription(*variable, event);
}

void EpicsReader::takeDescription(EpicsVariable &variable, const Event &event)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!variable.isConnected)
            return;
        const EpicsVariable before = variable;
        variable.count = int(std::clamp<unsigned long>(m_library.element_count(variable.channel),
                                                       1,
                                                       std::numeric_limits<int>::max()));
        if (event.status == normal && event.data)
            variable.describe(*static_cast<const ControlDouble *>(event.data));
        variable.isDescribed = true;
        if (variable.count > mostValues) {
            fail(EpicsText::tr("%1 has %2 values; a window shows at most %3")
                     .arg(QString::fromUtf8(variable.name),
                          QString::number(variable.count),
                          QString::number(mostValues)));
            return; // no server is asked for so many
        }
        char server[256] = "";
        m_library.get_host_name(variable.channel, server, sizeof(server));
        m_receiver->tell(variable.summary(QString::fromLatin1(server)));
        if (m_hasBegun && variable.hasFormOf(before)) {
            m_rows.expect(variable.index);
            show(variable);
        } else if (m_hasBegun || !m_isSearching)
            begin();
        tellState();
        if (std::exchange(variable.isSubscribed, true))
            return;
    }
    m_library.create_subscription(typeTimeDouble,
                                  0, // as many values as there are at a time
                                  variable.channel,
                                  valueOrAlarmChanged,
                                  &EpicsReader::valueChanged,
                                  &variable,
                                  nullptr);
    m_library.flush_io();
}

void EpicsReader::beginIfComplete()
{
    const bool isComplete =
        std::all_of(m_variables.begin(), m_variables.end(), [](const EpicsVariable &variable) {
            return variable.isDescribed && !variable.values.empty();
        });
    if (isComplete)
        begin();
}

//! Returns the newest time of the values, in seconds since 1970; the present time if no server knows it.
double EpicsReader::newestTime() const
{
    constexpr double milli = 1e-3;
    double newest = 0.0;
    for (const EpicsVariable &variable : m_variables)
        if (!variable.values.empty() && variable.time > newest)
            newest = variable.time;
    return newest > 0.0 ? newest : milli * double(QDateTime::currentMSecsSinceEpoch());
}

void EpicsReader::fail(const QString &text)
{
    m_hasFailed = true;
    m_receiver->setState(SourceState::Failed, text);
}

//! Begins a stream with what is known of the variables, and shows the values that they have.
void EpicsReader::begin()
{
    if (m_hasFailed)
        return;
    SourceStream stream;
    stream.onChange = true;
    if (!setLayout(&stream)) {
        fail(EpicsText::tr(
                 "%1: waveforms and single values cannot be read together, and no more than "
                 "two waveforms; read the others in a window of their own")
                 .arg(m_address));
        return;
    }
    m_start = std::floor(newestTime());
    stream.start = QDateTime::fromSecsSinceEpoch(qint64(m_start), Qt::UTC);
    m_hasBegun = true;
    m_receiver->begin(stream);
    std::vector<int> sizes;
    for (const EpicsVariable &variable : m_variables)
        sizes.push_back(variable.count);
    m_rows.begin(sizes);
    for (const EpicsVariable &variable : m_variables)
        if (variable.isConnected)
            m_rows.expect(variable.index);
    for (const EpicsVariable &variable : m_variables)
        show(variable);
}

//! Single values are channels; one waveform is a plane of strips, and two are the planes of x and y.
bool EpicsReader::setLayout(SourceStream *stream) const
{
    const auto waveforms =
        std::count_if(m_variables.begin(), m_variables.end(), [](const EpicsVariable &variable) {
            return variable.count > 1;
        });
    if (waveforms == 0) {
        for (const EpicsVariable &variable : m_variables)
            stream->channels.append(variable.description);
        return true;
    }
    stream->layout = SourceStream::Layout::Strips;
    stream->unit = m_variables.front().description.unit;
    stream->columns = m_variables.front().count;
    stream->rows = m_variables.size() > 1 ? m_variables.back().count : 0;
    return m_variables.size() <= 2 && waveforms == qint64(m_variables.size());
}

//! Puts the newest values of a variable into the row.
void EpicsReader::show(const EpicsVariable &variable)
{
    if (variable.values.empty() || m_hasFailed)
        return;
    if (!m_rows.isWaiting())
        m_rowBegan = Clock::now();
    m_rows.update(variable.index,
                  variable.time - m_start,
                  variable.values.data(),
                  int(variable.values.size()),
                  m_sink);
}

void EpicsReader::valueChanged(Event event)
{
    auto *variable = static_cast<EpicsVariable *>(event.user);
    variable->reader->takeValues(*variable, event);
}

void EpicsReader::takeValues(EpicsVariable &variable, const Event &event)
{
    const std::lock_guard lock(m_mutex);
    if (event.status != normal || !event.data || event.count < 1) {
        if (variable.isConnected)
            m_receiver->note(QStringLiteral("ERROR %1: %2")
                                 .arg(QString::fromUtf8(variable.name),
                                      QString::fromLatin1(m_library.message(event.status))));
        return;
    }
    const auto &data = *static_cast<const TimeDouble *>(event.data);
    takeAlarm(variable, data);
    variable.values.assign(&data.value, &data.value + event.count);
    if (variable.severity == Invalid)
        std::fill(variable.values.begin(),
                  variable.values.end(),
                  std::numeric_limits<double>::quiet_NaN());
    variable.time = epicsTime(data);
    if (!m_hasBegun)
        beginIfComplete();
    else if (variable.isDescribed) // values after a new connection may have another length
        show(variable);
    m_changed.notify_all(); // a row may have begun to wait
}

//! Notes that the severity of a variable's alarm has changed.
void EpicsReader::takeAlarm(EpicsVariable &variable, const TimeDouble &data)
{
    if (data.severity == std::exchange(variable.severity, data.severity))
        return;
    const QString name = QString::fromUtf8(variable.name);
    if (data.severity == NoAlarm)
        m_receiver->note(QStringLiteral("%1: no alarm any more").arg(name));
    else
        m_receiver->note(
            QStringLiteral("WARNING %1: %2").arg(name, epicsAlarmText(data.severity, data.status)));
}

//! Tells how many of the variables are connected, and which are not.
void EpicsReader::tellState()
{
    if (m_hasFailed)
        return;
    QStringList missing;
    for (const EpicsVariable &variable : m_variables)
        if (!variable.isDescribed)
            missing.append(QString::fromUtf8(variable.name));
    const QString names = missing.size() > 3
        ? missing.mid(0, 3).join(QStringLiteral(", ")) + QStringLiteral(", ...")
        : missing.join(QStringLiteral(", "));
    if (missing.isEmpty())
        m_receiver->setState(SourceState::Live, m_address);
    else if (m_isSearching && !m_hasBegun)
        m_receiver->setState(SourceState::Connecting, EpicsText::tr("searching for %1").arg(names));
    else if (missing.size() < int(m_variables.size()))
        m_receiver->setState(
            SourceState::Live,
            EpicsText::tr("%1, without %2, which is not connected").arg(m_address, names));
    else
        m_receiver->setState(SourceState::Lost,
                             EpicsText::tr("no server answers for %1").arg(names));
}

//! Goes on with those variables that were found, and says which were not.
void EpicsReader::giveUpSearch()
{
    m_isSearching = false;
    if (m_hasBegun)
        return;
    const bool any =
        std::any_of(m_variables.begin(), m_variables.end(), [](const EpicsVariable &variable) {
            return variable.isDescribed;
        });
    if (any)
        begin();
    tellState();
}
