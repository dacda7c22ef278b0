// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QSettings>

class QIODevice;

namespace Corvale_Qt {

/*! \file
    Settings as an XML document: one element for each part of a key, inside the root element "Settings".

        <Settings>
            <StatisticsSetupPage>
                <peaks>2</peaks>
            </StatisticsSetupPage>
        </Settings>

    stands for StatisticsSetupPage/peaks = "2". Every value is stored as text and read as a string; a value that is
    empty or only white space is read as missing.

    Some parts of keys cannot be names of elements ("Beam Line", "1st", "Settings"). Their forbidden characters are
    written as _xHHHH_, with the UTF-16 code in upper-case hexadecimal digits. In values, characters that XML does not
    allow, such as control characters, become U+FFFD.

    Both functions return false for settings beyond these limits: 32 parts in a key, 4 Mi characters in all keys and
    values, 256 Ki nodes (elements, their ends, attributes, texts, comments), 16 MiB of document. */

//! Reads settings; signature as required by QSettings::registerFormat(). Changes \a settings only if it returns true.
bool readXmlSettings(QIODevice &device, QSettings::SettingsMap &settings);
//! Writes settings; signature as required by QSettings::registerFormat(). Returns false if \a device cannot be written.
bool writeXmlSettings(QIODevice &device, const QSettings::SettingsMap &settings);

} // namespace Corvale_Qt
