// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"
#include "monitor/window/ComputedDialog.h"
#include "monitor/window/PictureDialog.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/ValueTable.h"
#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/ReadTable.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/Files.h"
#include "tests/support/Mouse.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <qwt_plot.h>
#include <qwt_scale_widget.h>

#include <QPicture>
#include <QPrinter>

#include <cmath>

using namespace Monitor;
using Corvale_Qt::DisplayPicture;

namespace {

struct OutputInTest : WindowInTest
{
    using WindowInTest::WindowInTest;
    void trigger(const char *action) const { window.findChild<QAction *>(action)->trigger(); }
    Corvale_Qt::RVXScopePlotView *view() const { return window.displays().scope()->plotView(); }
    //! Returns the newest reading of each channel in the charts, by name: "ch1 3, sum 1006".
    QString newest() const
    {
        const auto *model = view()->model();
        QStringList texts;
        for (int column = 1; column < model->columnCount(); ++column)
            texts << model->index(0, column).data().toString() + ' '
                    + QString::number(
                         view()->model()->index(model->rowCount() - 1, column).data().toDouble());
        return texts.join(", ");
    }
};

//! Returns which part of the pixels of a picture is lighter than mid grey.
double lightShare(const QImage &image)
{
    int light = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            light += qGray(image.pixel(x, y)) > 127;
    return double(light) / (image.width() * image.height());
}

} // namespace

//! What leaves the window: pictures of displays, and channels that are computed for charts, tables and recordings.
class tst_Outputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void aPictureGoesToAFile()
    {
        OutputInTest w(file("file.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        const DisplayPicture picture(w.window.displays().displayInUse());
        QString error;
        for (const auto &[name, beginning] :
             {std::pair("v.png", "\x89PNG"), {"v.svg", "<?xml"}, {"v.pdf", "%PDF"}}) {
            QVERIFY2(PictureExport::save(picture, file(name), &error), qPrintable(error));
            QVERIFY(fileContents(file(name)).startsWith(beginning));
        }
        // A drawing is as large as on the screen, so that texts in points fit their places.
        const QString svg = fileContents(file("v.svg")).left(200);
        const double width = svg.section("width=\"", 1).section("mm", 0, 0).toDouble(); // mm
        QCOMPARE(std::lround(width * 96 / 25.4), long(picture.size().width()));
        QVERIFY(!PictureExport::save(picture, file("v.tiff"), &error));
        QVERIFY(error.contains(".png, .svg or .pdf"));
        // What stands at the pointer is not on it.
        const DisplayPicture plot(w.view());
        const auto painted = [&] {
            QImage image(plot.size(), QImage::Format_RGB32);
            QPainter painter(&image);
            plot.paint(&painter);
            return image;
        };
        const QImage before = painted();
        auto *canvas = w.view()->findChild<QwtPlot *>()->canvas();
        moveMouse(canvas, canvas->rect().center());
        const auto *box = canvas->findChild<QWidget *>("hoverCursor");
        QVERIFY(box->isVisible());
        QCOMPARE(painted(), before);
        QVERIFY(box->isVisible());
    }

    //! As they were taken, while the table shows three digits of them.
    void valuesAreCopiedWithAllDigits()
    {
        OutputInTest w(file("values.xui"));
        const auto copied = [&] {
            w.trigger("copyValues");
            return QGuiApplication::clipboard()->text();
        };
        w.source->begin(StreamKind::Channels, 2, "nA");
        QCOMPARE(copied().count("\tN/A"), 2);
        w.source->give(1.25, {0.1234567890123, NAN});
        w.settle();
        QCOMPARE(copied(), QString("time\t1.25\ts\nch1\t0.1234567890123\tnA\nch2\t"));
    }

    //! A page is made of lines and letters: as an image with all the dots of a printer it would take a second and 500 MB.
    void aPictureGoesToAPrinter()
    {
        OutputInTest w(file("page.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(file("page.pdf"));
        QVERIFY(PictureExport::print(DisplayPicture(w.view()), &printer));
        const QByteArray page = fileContents(file("page.pdf"));
        QVERIFY(page.startsWith("%PDF"));
        for (auto image = QRegularExpression("/Width (\\d+)").globalMatch(page); image.hasNext();)
            QVERIFY(image.next().captured(1).toInt() < 100); // icons and the like
        // The strokes show what the pixels show, to the end of the time axis.
        const DisplayPicture picture(w.view());
        QPicture strokes;
        QPainter recorder(&strokes);
        picture.paint(&recorder);
        recorder.end();
        const QWidget *axis = w.view()->findChild<QwtPlot *>()->axisWidget(QwtPlot::xBottom);
        const QRect end(axis->mapTo(w.view(), axis->rect().center()), axis->size() / 2);
        const auto darkShare = [&](auto draw) {
            QImage image(picture.size(), QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            draw(painter);
            return 1.0 - lightShare(image.copy(end));
        };
        const double drawn =
            darkShare([&](QPainter &painter) { painter.drawPicture(0, 0, strokes); });
        const double shown = darkShare([&](QPainter &painter) { picture.paint(&painter); });
        QVERIFY2(shown > 0.0 && std::abs(drawn / shown - 1) < 0.2,
                 qPrintable(QString::number(drawn / shown)));
    }

    //! What the operator chooses is on the picture, and is chosen again the next time.
    void aPictureHasWhatIsChosen()
    {
        const QString settings = file("chosen.xui");
        {
            OutputInTest w(settings);
            w.source->begin(StreamKind::Channels, 2);
            w.run(20);
            const auto copied = [&](bool title, bool time, bool legend, int colors) {
                onNextDialog([&](QDialog *dialog) {
                    dialog->findChild<QCheckBox *>("hasTitle")->setChecked(title);
                    dialog->findChild<QCheckBox *>("hasTime")->setChecked(time);
                    dialog->findChild<QCheckBox *>("hasLegend")->setChecked(legend);
                    dialog->findChild<QComboBox *>("colors")->setCurrentIndex(colors);
                    clickButton(dialog, "Copy");
                });
                w.trigger("picture");
                return QGuiApplication::clipboard()->image();
            };
            const QSize plain = w.view()->size() * w.window.devicePixelRatioF();
            const QImage bare = copied(false, false, false, 0);
            QCOMPARE(bare.size(), plain);
            QVERIFY(copied(true, false, false, 0).height() > plain.height());
            QCOMPARE(copied(true, true, false, 0).height(), copied(true, false, false, 0).height());
            QVERIFY(lightShare(copied(false, false, false, 1)) > 0.8);
            QVERIFY(lightShare(copied(false, false, false, 2)) < 0.2);
            QVERIFY(!w.view()->hasLightCanvas()); // the screen stays as it is
            QCOMPARE(copied(false, false, false, 0), bare);
            w.view()->setLegendVisible(false); // the picture then has its own
            QVERIFY(copied(false, false, true, 1).height() > plain.height());
        }
        OutputInTest again(settings);
        onNextDialog([](QDialog *dialog) {
            const PictureOptions options = qobject_cast<PictureDialog *>(dialog)->options();
            QVERIFY(!options.hasTitle && !options.hasTime && options.hasLegend);
            QCOMPARE(options.colors, DisplayPicture::Colors::Light);
        });
        again.trigger("picture");
    }

    //! What is shown goes on while the operator looks for a folder: the time on the picture is that of the readings on it.
    void aPictureHasTheTimeOfWhatItShows()
    {
        OutputInTest w(file("time.xui"));
        w.source->begin(StreamKind::Channels, 2);
        w.run(20);
        const QDateTime later = w.clock.wallTime().addSecs(600);
        onNextDialog([&](QDialog *dialog) {
            onNextDialog([&](QDialog *files) {
                w.clock.setWallTime(later);
                files->findChild<QLineEdit *>("fileNameEdit")->setText(file("time.png"));
                files->accept();
            });
            clickButton(dialog, "Save...");
        });
        w.trigger("picture");
        w.trigger("copyPicture"); // at the same time
        QImage copied = QGuiApplication::clipboard()->image();
        copied.setDevicePixelRatio(1.0); // a file says none
        QCOMPARE(QImage(file("time.png")).convertToFormat(QImage::Format_RGB32),
                 copied.convertToFormat(QImage::Format_RGB32));
    }

    //! A channel that is added is in charts and recordings at once, with the readings before; it is there at the next start.
    void aChannelIsComputedFromNowOn()
    {
        const QString settings = file("computed.xui");
        {
            OutputInTest w(settings);
            w.source->begin(StreamKind::Channels, 2, "nA");
            w.run(3);
            QCOMPARE(w.record(file("computed.csv")), QString());
            w.run(1);
            onNextDialog([](QDialog *dialog) {
                clickButton(dialog, "Add");
                QTest::keyClicks(dialog->findChild<QLineEdit *>("name"), "sum");
                QTest::keyClicks(dialog->findChild<QLineEdit *>("unit"), "nA");
                QTest::keyClicks(dialog->findChild<QPlainTextEdit *>("expression"), "ch1 + ch2");
                clickButton(dialog, "OK");
            });
            w.trigger("computedChannels");
            QCOMPARE(w.session.model().rowCount(), 5);
            QCOMPARE(w.newest(), QString("ch1 3, ch2 1003, sum 1006"));
            w.run(1);
            w.settle();
            QCOMPARE(w.newest(), QString("ch1 4, ch2 1004, sum 1008"));
            QVERIFY(w.session.stopRecording());
            QVERIFY(w.log().contains("computed: sum [nA] = ch1 + ch2"));
        }
        OutputInTest again(settings);
        again.source->begin(StreamKind::Channels, 2, "nA");
        again.run(1);
        again.settle();
        QCOMPARE(again.newest(), QString("ch1 0, ch2 1000, sum 1000"));
        onNextDialog([](QDialog *dialog) {
            clickButton(dialog, "Remove");
            clickButton(dialog, "OK");
        });
        again.trigger("computedChannels");
        QCOMPARE(again.newest(), QString("ch1 0, ch2 1000"));
    }

    void anExpressionIsRefusedAtItsPlace_data()
    {
        tableFrom(R"(
            | name | expression | fault | marked
            a good one                               | sum | ch1 + ch2 |  |
            no such channel                          | sum | ch1 + ch9 * 2 | sum: character 7: no channel is called "ch9" | ch9
            a name that is taken                     | ch2 | ch1 | ch2: there is already a channel called "ch2" |
            a name that would be read as another one | a = b | ch1 | a = b: a name or a unit cannot have the signs =, [ and ] |
            no name                                  |  | ch1 | the computed channel has no name |
        )");
    }

    void anExpressionIsRefusedAtItsPlace()
    {
        QFETCH(QString, expression);
        StreamHeader header;
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, 2);
        ComputedDialog dialog({{"before", "", "ch1"}, {cell("name"), "", expression}}, header);
        dialog.findChild<QListWidget *>("computed")->setCurrentRow(1);
        QTEST(dialog.findChild<QLabel *>("fault")->text(), "fault");
        QFETCH(QString, fault);
        QCOMPARE(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled(),
                 fault.isEmpty());
        QString marked;
        for (const auto &mark : dialog.findChild<QPlainTextEdit *>("expression")->extraSelections())
            marked += mark.cursor.selectedText();
        QTEST(marked, "marked");
    }

    //! Values that come faster than a person reads them are painted a little later, and without their names.
    void theNewestValueIsPaintedInTheEnd()
    {
        QStandardItemModel model(2, 2);
        ValueTable table;
        table.setModel(&model);
        table.show();
        QVERIFY(QTest::qWaitForWindowExposed(&table));
        const PaintCounter counter(table.viewport());
        for (int value = 1; value <= 3; ++value) {
            model.setData(model.index(1, 1), value);
            QCoreApplication::processEvents();
        }
        const int before = counter.count;
        model.setData(model.index(0, 1), QStringLiteral("last"));
        QTRY_VERIFY(counter.count > before);
        const QRect values =
            table.visualRect(model.index(0, 1)) | table.visualRect(model.index(1, 1));
        QCOMPARE(counter.painted, QRegion(values));
        model.setData(model.index(0, 0), QStringLiteral("name"));
        QTRY_VERIFY(counter.painted.intersects(table.visualRect(model.index(0, 0))));
    }

private:
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_Outputs)
#include "tst_Outputs.moc"
