// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/SegmentForm.h"

#include <QFileInfo>

namespace Monitor {

QStringList segmentFormNames()
{
    return {QStringLiteral("text"), QStringLiteral("zstd"), QStringLiteral("hdf5")};
}

QString segmentFormName(SegmentForm form)
{
    return segmentFormNames().at(int(form));
}

std::optional<SegmentForm> segmentFormFromName(const QString &name)
{
    const int index = segmentFormNames().indexOf(name);
    return index < 0 ? std::nullopt : std::optional<SegmentForm>(SegmentForm(index));
}

QString completedPath(const QString &path, SegmentForm form)
{
    if (form == SegmentForm::Text)
        return path;
    if (form == SegmentForm::Zstd)
        return path + QLatin1String(".zst");
    const QString suffix = QStringLiteral(".csv");
    const bool isTable = path.endsWith(suffix, Qt::CaseInsensitive);
    return path.left(path.size() - (isTable ? suffix.size() : 0)) + QLatin1String(".h5");
}

bool existsInAnyForm(const QString &path)
{
    return QFileInfo::exists(path) || QFileInfo::exists(completedPath(path, SegmentForm::Zstd))
        || QFileInfo::exists(completedPath(path, SegmentForm::Hdf5));
}

} // namespace Monitor
