// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/XmlSettingsFormat_p.h"
#include "tests/support/FuzzTarget.h"

#include <QBuffer>

using SettingsMap = QSettings::SettingsMap;

namespace {

bool readFrom(const QByteArray &document, SettingsMap &settings)
{
    QBuffer buffer;
    buffer.setData(document);
    buffer.open(QIODevice::ReadOnly);
    return Corvale_Qt::readXmlSettings(buffer, settings);
}

QByteArray written(const SettingsMap &settings)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    FUZZ_REQUIRE(Corvale_Qt::writeXmlSettings(buffer, settings));
    return buffer.data();
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    return {("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Settings>\n    <StatisticsSetupPage>\n"
             "        <peaks>2</peaks>\n        <center-of-gravity>true</center-of-gravity>\n"
             "    </StatisticsSetupPage>\n</Settings>\n"),
            "<Settings><a>1<b>2</b></a><a><b>3</b></a><c/></Settings>",
            ("<Settings><Beam_x0020_Line><_x0031_st>x&#13;&amp;&#65534;</_x0031_st></"
             "Beam_x0020_Line></Settings>"),
            ("<!DOCTYPE s [<!ENTITY e \"text\"><!ATTLIST a b CDATA "
             "\"c\">]><Settings><a>&e;<![CDATA[<]]></a></Settings>"),
            ("<Settings "
             "xmlns:n=\"u\"><a><Settings><n:b>1</n:b></Settings><c_x002F_d>2</c_x002F_d></a></"
             "Settings>"),
            "<Settings><a>text<![CDATA[]]></a></Settings>"};
}

//! Settings that can be read can be written; the document that is written reads back and is written the same again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    SettingsMap first;
    if (!readFrom(QByteArray(reinterpret_cast<const char *>(data), int(size)), first))
        return 0;
    const QByteArray document = written(first);
    SettingsMap second;
    FUZZ_REQUIRE(readFrom(document, second));
    FUZZ_REQUIRE(first.keys() == second.keys());
    FUZZ_REQUIRE(written(second) == document);
    return 0;
}
