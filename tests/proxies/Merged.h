// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/proxies/ProxyTest.h"

//! Two models side by side, each with the last of its columns, and what the merged model announces.
struct Merged
{
    explicit Merged(int firstChannels = 1, int secondChannels = 1, int capacity = 100)
        : one(firstChannels, capacity)
        , two(secondChannels, capacity)
    {
        proxy.addSourceModel(&one, firstChannels);
        proxy.addSourceModel(&two, secondChannels);
        log.take();
    }

    /*! Runs the scripts of the models and returns what the merged model announces. The part of \a scripts after '/' is
        for the second model: "append 1 1 / drop 2". */
    QString announced(const QString &scripts)
    {
        BufferModel *model = &one;
        for (const QString &script : scripts.split('/')) {
            if (!script.trimmed().isEmpty())
                model->act(script.trimmed());
            model = &two;
        }
        return log.take();
    }

    BufferModel one;
    BufferModel two;
    Corvale_Qt::RVXMultichannelProxyModel proxy;
    ModelLog log{&proxy};
};
