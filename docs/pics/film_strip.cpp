// SPDX-License-Identifier: LGPL-2.1-or-later
// Makes the pictures of the first five minutes with the monitor: film_strip FILE.png [dark].
#include "monitor/dialogs/HelpWindow.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/RecordAction.h"
#include "monitor/window/SourceSwitch.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/Files.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <qwt_plot.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

using namespace Monitor;

namespace {

constexpr QSize windowSize(1100, 720);
constexpr int columns = 2, frameWidth = 720, captionHeight = 30, margin = 12;

//! Returns five minutes of a beam on four plates, with a pause and a jump.
QByteArray recording()
{
    std::mt19937 dice(5);
    std::normal_distribution<double> noise(0.0, 0.6);
    QByteArray text = "time_s,left_nA,right_nA,up_nA,down_nA\n";
    for (int i = 0; i < 6000; ++i) {
        const double t = i * 0.05;
        if (t > 120.0 && t < 150.0)
            continue;
        const double beam = t < 20.0 ? 0.0 : 60.0 + 12.0 * std::sin(t / 9.0),
                     shift = t > 210.0 ? 9.0 : 2.0;
        text += QByteArray::number(t, 'f', 2);
        for (const double part : {shift, -shift, 3.0, -3.0})
            text +=
                ',' + QByteArray::number(beam + (beam > 0.0 ? part : 0.0) + noise(dice), 'f', 3);
        text += '\n';
    }
    return text;
}

//! Returns the picture with the 256 colours that it has most of, which makes its file a third as large.
QImage withPalette(const QImage &picture)
{
    struct Sum
    {
        qint64 red = 0, green = 0, blue = 0, count = 0;
    };
    QHash<QRgb, Sum> sums;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            Sum &sum = sums[colour & 0xF0F0F0];
            sum.red += qRed(colour);
            sum.green += qGreen(colour);
            sum.blue += qBlue(colour);
            ++sum.count;
        }
    QVector<Sum> all;
    for (const Sum &sum : qAsConst(sums))
        all.append(sum);
    std::sort(all.begin(), all.end(), [](const Sum &a, const Sum &b) {
        return a.count > b.count;
    });
    QVector<QRgb> colours;
    for (const Sum &sum : all.mid(0, 256))
        colours.append(
            qRgb(int(sum.red / sum.count), int(sum.green / sum.count), int(sum.blue / sum.count)));
    return picture.convertToFormat(QImage::Format_Indexed8,
                                   colours,
                                   Qt::ThresholdDither | Qt::AvoidDither);
}

//! The frames of the strip, and the window that they are taken of.
class FilmStrip
{
public:
    explicit FilmStrip(const QString &folder)
        : m_folder(folder)
        , m_window(m_scripted.session, m_folder.filePath("film.xui"))
    {
        m_window.resize(windowSize);
        m_window.show();
    }

    void take(bool dark)
    {
        m_window.findChild<Appearance *>()->choose(dark ? Appearance::Choice::Dark
                                                        : Appearance::Choice::Light);
        m_window.sources().open("sim:strips");
        pass(8.0);
        frame("1  The program starts with a simulated beam");
        putFile(m_folder.filePath("monday.csv"), recording());
        QDir::setCurrent(m_folder.path());
        m_window.sources().open("monday.csv");
        pass(250.0);
        m_window.displays().showDisplay("strip");
        pass(1.0);
        frame("2  Ctrl+O opens a recording; its tape lies below the chart");
        for (int i = 0; i < 2; ++i)
            typeInChart(Qt::Key_Plus);
        typeInChart(Qt::Key_Left);
        pass(0.5);
        frame("3  The wheel, or + and -, zooms; the picture is held");
        if (!m_window.displays().scope()->areMarkersEnabled())
            trigger("markers");
        auto *plot = m_window.displays().scope()->findChild<QwtPlot *>();
        for (const auto &[button, share] :
             {std::pair(Qt::LeftButton, 0.3), std::pair(Qt::RightButton, 0.7)}) {
            QWidget *canvas = plot->canvas();
            QTest::mouseClick(canvas,
                              button,
                              {},
                              {int(canvas->width() * share), canvas->height() / 2});
            pass(0.1);
        }
        pass(0.5);
        frame("4  Two markers measure between them");
        connectFrame();
        QString error;
        m_window.sources().open("sim:ic4");
        m_window.findChild<RecordAction *>()->recordTo(m_folder.filePath("tuesday.csv"), &error);
        m_window.findChild<EventLog *>()
            ->textBrowser()
            ->clear(); // it names a folder of this machine
        pass(30.0);
        frame("6  Ctrl+R records; the status line says so, and for how long there is room");
        trigger("firstSteps");
        pass(0.5);
        for (QWidget *shown : QApplication::topLevelWidgets())
            if (qobject_cast<HelpWindow *>(shown) && shown->isVisible())
                add("7  F1 has the first steps, without a network", shown->grab());
    }

    bool save(const QString &path) const
    {
        const double ratio = m_frames.isEmpty() ? 1.0 : m_frames.first().devicePixelRatio();
        const int height = m_frames.isEmpty() ? 0 : m_frames.first().height();
        const int rows = (m_frames.size() + columns - 1) / columns;
        const QSize cell(int(frameWidth * ratio) + margin, height + margin);
        QImage strip(columns * cell.width() + margin,
                     rows * cell.height() + margin,
                     QImage::Format_RGB32);
        strip.fill(QColor(72, 76, 82));
        QPainter painter(&strip);
        for (int i = 0; i < m_frames.size(); ++i) {
            QPixmap plain = m_frames.at(i);
            plain.setDevicePixelRatio(1.0);
            painter.drawPixmap(margin + i % columns * cell.width(),
                               margin + i / columns * cell.height(),
                               plain);
        }
        painter.end();
        return withPalette(strip).save(path, "PNG", 0);
    }

private:
    void pass(double seconds)
    {
        double left = seconds;
        while (left > 0.0) {
            m_scripted.clock.advance(std::min(left, 1.0));
            QCoreApplication::processEvents();
            left -= 1.0;
        }
        QTest::qWait(150); // displays paint ten times a second
    }
    void trigger(const char *name)
    {
        if (auto *action = m_window.findChild<QAction *>(QLatin1String(name)))
            action->trigger();
        else
            std::fprintf(stderr, "film_strip: there is no action %s\n", name);
    }
    void typeInChart(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *chart = m_window.displays().scope()->plotView();
        chart->setFocus();
        QTest::keyClick(chart, key, modifiers);
        pass(0.1); // a key goes on from what is painted
    }
    void connectFrame()
    {
        onEveryDialog(
            [this](QDialog *dialog) {
                dialog->findChild<QListWidget *>("kinds")->setCurrentRow(0);
                clickButton(dialog, "Test");
                pass(2.0);
                add("5  Ctrl+N connects an instrument; Test shows what it sends",
                    overWindow(dialog));
            },
            [this] {
                trigger("connect");
            });
    }
    //! Returns the window with a dialog on top of it.
    QPixmap overWindow(QWidget *dialog)
    {
        QPixmap picture = m_window.grab();
        QPainter painter(&picture);
        painter.drawPixmap((m_window.width() - dialog->width()) / 2, 60, dialog->grab());
        return picture;
    }
    void frame(const QString &caption) { add(caption, m_window.grab()); }
    void add(const QString &caption, const QPixmap &picture)
    {
        const double ratio = picture.devicePixelRatio();
        const int width = int(frameWidth * ratio);
        const QSize size(width, width * windowSize.height() / windowSize.width());
        const QPixmap small = picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPixmap frame(size.width(), size.height() + int(captionHeight * ratio));
        frame.fill(Qt::white);
        QPainter painter(&frame);
        QFont font = QApplication::font();
        font.setPixelSize(int(15 * ratio));
        painter.setFont(font);
        painter.drawText(QRect(margin, 0, frame.width(), int(captionHeight * ratio)),
                         Qt::AlignVCenter,
                         caption);
        QPixmap plain = small;
        plain.setDevicePixelRatio(1.0);
        painter.drawPixmap((size.width() - plain.width()) / 2, int(captionHeight * ratio), plain);
        painter.end();
        frame.setDevicePixelRatio(ratio);
        m_frames.append(frame);
    }

    QDir m_folder;
    ScriptedSession m_scripted;
    MonitorWindow m_window;
    QVector<QPixmap> m_frames;
};

} // namespace

int main(int argc, char **argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QApplication::setStyle("fusion");
    QLocale::setDefault(QLocale::c());
    const QTemporaryDir folder;
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2 || !folder.isValid()) {
        std::fputs("film_strip FILE.png [dark]\n", stderr);
        return 1;
    }
    const QString path = QFileInfo(arguments.at(1)).absoluteFilePath();
    FilmStrip strip(folder.path());
    strip.take(arguments.contains("dark"));
    return strip.save(path) ? 0 : 1;
}
