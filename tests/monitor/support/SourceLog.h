// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/Source.h"
#include "tests/monitor/support/TextSink.h"

#include <QMetaEnum>

//! Writes down what a source emits, in TextSink's words, and its states.
class SourceLog : public QObject
{
public:
    explicit SourceLog(Monitor::Source &source)
    {
        using Monitor::Source;
        connect(&source, &Source::streamStarted, this,
                [this](const Monitor::StreamHeader &header) { sink.streamStarted(header); });
        connect(&source, &Source::readingsArrived, this,
                [this](const Monitor::ReadingBlock &block) {
                    blocks += 1;
                    for (int row = 0; row < block.size(); ++row) {
                        sink.reading(block.time(row), block.values(row));
                        times.append(block.time(row));
                    }
                });
        connect(&source, &Source::noted, this,
                [this](const QString &text) { sink.eventNoted(text); });
        connect(&source, &Source::lineRefused, this,
                [this](const Monitor::RefusedLine &line) { sink.lineRefused(line); });
        connect(&source, &Source::stateChanged, this,
                [this](Source::State state, const QString &text) {
                    states.append(QString::fromLatin1(
                        QMetaEnum::fromType<Source::State>().valueToKey(int(state))));
                    lastText = text;
                });
    }

    QString text() const { return sink.text(); }
    QString stateNames() const { return states.join(QLatin1Char(' ')); }

    TextSink sink;
    QVector<double> times;
    QStringList states;
    QString lastText;
    int blocks = 0;
};
