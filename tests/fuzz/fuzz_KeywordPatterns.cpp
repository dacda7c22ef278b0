// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "tests/support/FuzzTarget.h"

#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include <cstring>

using Corvale_Qt::RVXLogBrowser;

//! Each line before the first empty line is a keyword; the rest is the text that a host appends to the log.
std::vector<std::string> fuzzSeeds()
{
    return {"ERROR\nFATAL\n\nan ERROR of E17",
            "E\\d+\n\\w*\n\ncode E17",
            "(a+)+\n|x\n\naaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa!",
            "\n\n",
            "(?=x)\n\\Q\n[[:alpha:]]\n(?R)?\n\nx y z",
            "(*UTF)x\n(?i)warn\n\\p{L}\n\n\xf0\x9f\x92\xa5 warn \xe2\x80\xa8 x"};
}

//! Every match lies within its line, and no line becomes longer.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const int end = bytes.indexOf("\n\n");
    const QStringList keywords = QString::fromUtf8(bytes.left(end < 0 ? 0 : end)).split('\n');
    const QString line = QString::fromUtf8(bytes.mid(end < 0 ? 0 : end + 2));

    static auto *browser = new RVXLogBrowser;
    browser->clear();
    browser->setWholeBlockSyntaxHighlighting(size % 2);
    browser->addErrorKeywords(keywords);
    browser->addWarningKeywords(keywords.mid(1));
    browser->appendLine("before");
    browser->appendLine(line);

    const QTextDocument *document = browser->textBrowser()->document();
    FUZZ_REQUIRE(document->blockCount() >= 2);
    FUZZ_REQUIRE(document->characterCount() <= int(std::strlen("before\n")) + line.size() + 1);
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        for (const auto &range : block.layout()->formats())
            FUZZ_REQUIRE(range.start >= 0 && range.start + range.length < block.length());
    return 0;
}
