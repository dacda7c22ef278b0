// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/SimulatedInstruments.h"
#include "monitor/sources/Source.h"

namespace Monitor {

//! Readings of a simulated instrument, for a first look and for tests.
class SimulatorSource : public Source
{
    Q_OBJECT

public:
    static constexpr unsigned defaultSeed = 1;

    //! \a name must be one that SimulatedInstrument::make() knows.
    SimulatorSource(Clock &clock,
                    const QString &name,
                    unsigned seed = defaultSeed,
                    QObject *parent = nullptr);
    void start() override;
    QString description() const override;
    bool isLive() const override { return true; }
    bool isSimulated() const override { return true; }
    LineCounts counts() const override;

private:
    void play();

    const QString m_name;
    const std::unique_ptr<SimulatedInstrument> m_instrument;
    StreamHeader m_header;
    SimulatedBeam m_beam;
    double m_startedAt = 0.0;
    qint64 m_next = 0;
    std::vector<double> m_values;
    ReadingBlock m_block;
};

} // namespace Monitor
