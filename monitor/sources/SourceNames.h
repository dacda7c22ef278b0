// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QVector>

#include <optional>

namespace Monitor {

//! The address of a source, and the name that distinguishes it from the other sources of a run.
struct NamedAddress
{
    QString name;
    QString address;
};

/*! Reads NAME=ADDRESS. A name has letters, digits, "_", "-" and "." only, since files are named after it. Returns nothing if
    there is no such name or no address. */
std::optional<NamedAddress> namedAddressFromText(const QString &text);
//! Returns the name that a source has by itself: that of its file, its simulator, its host or its first variable.
QString usualSourceName(const QString &address);
//! Gives each source without a name its usual one, and numbers the names that meet: "ic4", "ic4-2". Case makes no difference.
void nameSources(QVector<NamedAddress> *sources);

} // namespace Monitor
