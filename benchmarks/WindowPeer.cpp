// SPDX-License-Identifier: LGPL-2.1-or-later
// Shows the readings of a pipe in a plain window of another library, for window_share.py: corvale_window_peer qwt|qcustomplot WxH
#include "WindowPeer.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

//! Reads lines of a time and a value for each channel from standard input, and leaves out lines that describe.
class Pipe
{
public:
    explicit Pipe(WindowPeer &window)
        : m_window(window)
    {
    }

    double newest() const { return m_newest; }
    //! Takes what has come. Returns false at the end.
    bool read()
    {
        std::array<char, 1 << 16> piece;
        const auto got = ::read(STDIN_FILENO, piece.data(), piece.size());
        if (got > 0)
            m_text.append(piece.data(), int(got));
        int first = 0;
        for (int end = 0; (end = m_text.indexOf('\n', first)) >= 0; first = end + 1)
            take(m_text.constData() + first);
        m_text.remove(0, first);
        return got > 0;
    }

private:
    void take(const char *line)
    {
        if (*line == '#')
            return;
        char *rest = nullptr;
        m_newest = std::strtod(line, &rest);
        std::array<double, WindowPeer::channels> values{};
        for (double &value : values)
            value = std::strtod(rest + 1, &rest);
        m_window.append(m_newest, values.data());
    }

    WindowPeer &m_window;
    QByteArray m_text;
    double m_newest = 0.0;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    int width = 0;
    int height = 0;
    const bool isSized = argc == 3 && std::sscanf(argv[2], "%dx%d", &width, &height) == 2;
    auto window = !isSized                         ? nullptr
        : std::strcmp(argv[1], "qwt") == 0         ? makeQwtWindow()
        : std::strcmp(argv[1], "qcustomplot") == 0 ? makeCustomPlotWindow()
                                                   : nullptr;
    if (!window) {
        std::fputs(
            "corvale_window_peer qwt|qcustomplot WxH; qcustomplot only where it is installed\n",
            stderr);
        return 2;
    }
    window->widget().resize(width, height);
    window->widget().show();
    Pipe pipe(*window);
    QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &application, [&] {
        if (!pipe.read())
            QCoreApplication::quit();
    });
    constexpr int frame = 40; // ms
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &application, [&] {
        window->draw(pipe.newest());
    });
    timer.start(frame);
    return QApplication::exec();
}
