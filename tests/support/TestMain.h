// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Every test has its tables, these modules and these standard headers at hand, and does not list what it takes from them.
#include "tests/support/Tables.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>
#include <random>

/*! Everything of a machine that would change a picture or a number is fixed here: font, style, locale, and
    the folders that settings would go to. */
template<typename Test>
int runTest(int argc, char **argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QApplication::setStyle("fusion");
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QLocale::setDefault(locale);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define CORVALE_QT_TEST_MAIN(Test)                                                                 \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        return runTest<Test>(argc, argv);                                                          \
    }
