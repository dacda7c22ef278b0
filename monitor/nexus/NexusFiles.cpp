// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusFiles.h"

#include "monitor/core/RegularFile.h"
#include "monitor/core/Text.h"

#include <QFile>
#include <QFileInfo>

namespace Monitor {

bool isNexusName(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("h5") || suffix == QLatin1String("hdf5")
        || suffix == QLatin1String("nxs");
}

bool isHdf5File(const QString &path)
{
    constexpr char magic[] = "\x89HDF\r\n\x1a\n";
    constexpr int magicSize = 8;
    QFile file(path);
    return openRegular(file) && file.read(magicSize) == QByteArray(magic, magicSize);
}

QString nexusMissing()
{
#ifdef CORVALE_MONITOR_HAS_HDF5
    return {};
#else
    return Text::tr("this program was built without HDF5; build it with the HDF5 library (Debian "
                    "has it in libhdf5-dev) and the option CORVALE_QT_HDF5");
#endif
}

} // namespace Monitor
