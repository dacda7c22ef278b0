// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QSettings>

class QIODevice;

namespace Corvale_Qt {

/*! Settings as an XML document: one element for each part of a key, inside the root element "Settings".

        <Settings>
            <StatisticsSetupPage>
                <peaks>2</peaks>
            </StatisticsSetupPage>
        </Settings>

    stands for StatisticsSetupPage/peaks = "2". Every value is text and comes back as a string; an empty one, or one
    of white space alone, comes back as missing. The functions have the shapes that QSettings::registerFormat()
    wants.

    A part of a key that cannot be the name of an element ("Beam Line", "1st", "Settings") has the characters in
    question written as _xHHHH_, their UTF-16 code in upper-case hexadecimal digits. Characters that XML cannot hold,
    control characters for one, become U+FFFD in a value.

    Both directions refuse, with false, what no application has as settings: keys of more than 32 parts, more than
    4 Mi characters of keys and values, more than 256 Ki nodes (elements, their ends, attributes, texts, comments),
    more than 16 MiB of document. \a settings is changed only by a read that succeeds. */
bool readXmlSettings(QIODevice &device, QSettings::SettingsMap &settings);
bool writeXmlSettings(QIODevice &device, const QSettings::SettingsMap &settings);

} // namespace Corvale_Qt
