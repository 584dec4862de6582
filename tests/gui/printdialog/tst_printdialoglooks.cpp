#include "DevicePicture.h"
#include "DialogTest.h"
#include "Look.h"
#include "PrintDialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyleFactory>

#include <memory>

using namespace Qt::StringLiterals;
using namespace DialogTest;

/** The dialog in different looks: nothing is cut, nothing lies over something else. */
class TestPrintDialogLooks : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void layout_data();
    void layout();
    void picturesFitTheScreen_data();
    void picturesFitTheScreen();
    void picturesSuitAnyBackground_data();
    void picturesSuitAnyBackground();
    void narrowestWindow();
};

namespace
{
/** With the pictures of devices that the program shows. */
PrintDialogServices services()
{
    PrintDialogServices result;
    result.devicePicture = devicePicture;
    return result;
}

/** The widgets that show something themselves: not the frames around them, not their parts. */
QList<QWidget *> leaves(const PrintDialog &dialog)
{
    QList<QWidget *> result;
    const QList<QWidget *> all = dialog.findChildren<QWidget *>();
    for (QWidget *widget : all) {
        const QString name = widget->objectName();
        if (widget->isVisible() && !name.isEmpty() && !name.startsWith(u"qt_") &&
            !qobject_cast<QGroupBox *>(widget))
            result.append(widget);
    }
    return result;
}

void verifyLayout(const PrintDialog &dialog)
{
    const QList<QWidget *> widgets = leaves(dialog);
    QCOMPARE(widgets.size(), 25);
    QCOMPARE(misplaced(dialog, widgets), QString());
}

QList<QRgb> opaqueColours(const QImage &image)
{
    QList<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                colours.append(image.pixel(x, y));
        }
    }
    return colours;
}
} // namespace

void TestPrintDialogLooks::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    addQueue(u"TestWordy"_s,
             {u"-L"_s, u"In the cellar, behind the door "_s.repeated(4).trimmed(), u"-D"_s,
              u"The printer that everybody uses "_s.repeated(4).trimmed()});
}

void TestPrintDialogLooks::layout_data()
{
    QTest::addColumn<QString>("printer");
    Look::addColumns();
    QTest::newRow("plain") << "Laser" << false << false << false;
    QTest::newRow("dark") << "Laser" << true << false << false;
    QTest::newRow("mirrored") << "Laser" << false << true << false;
    QTest::newRow("wordy") << "Laser" << false << false << true;
    QTest::newRow("wordy, mirrored") << "Rejecting" << false << true << true;
    QTest::newRow("texts of the server") << "TestWordy" << false << false << false;
    QTest::newRow("everything") << "TestWordy" << true << true << true;
}

void TestPrintDialogLooks::layout()
{
    QFETCH(QString, printer);
    QFETCH(bool, mirrored);
    const Look look = Look::ofRow();
    PrintDialog dialog(printer, PrinterOptions(), services());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_COMPARE(dialog.minimumHeight(), dialog.sizeHint().height());
    QTRY_VERIFY(dialog.height() >= dialog.minimumHeight());
    verifyLayout(dialog);

    // The captions are on the side where reading begins.
    const auto caption = child<QLabel>(dialog, "StatusLabel");
    const auto value = child<QLabel>(dialog, "StatusText");
    QCOMPARE(areaOf(caption).x() > areaOf(value).x(), mirrored);
    QCOMPARE(value->alignment() & Qt::AlignHorizontal_Mask,
             (mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute);
}

void TestPrintDialogLooks::picturesFitTheScreen_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("copies") << "CopiesImage" << QSizeF(160, 56);
    QTest::newRow("printer") << "PrinterImage" << QSizeF(48, 48);
}

void TestPrintDialogLooks::picturesFitTheScreen()
{
    QFETCH(QString, label);
    PrintDialog dialog(QString(), PrinterOptions{}, services());
    const QPixmap picture = child<QLabel>(dialog, qPrintable(label))->pixmap();
    QCOMPARE(picture.devicePixelRatio(), qApp->devicePixelRatio());
    QTEST(picture.deviceIndependentSize(), "size");
}

void TestPrintDialogLooks::picturesSuitAnyBackground_data()
{
    QTest::addColumn<QString>("file");
    for (const char *name : {"collate", "collate_rev", "uncollate", "uncollate_rev"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPrintDialogLooks::picturesSuitAnyBackground()
{
    QFETCH(QString, file);
    PrintDialog registersThePictures(QString(), PrinterOptions{});
    const QImage plain(u":/printdialog/images/%1.png"_s.arg(file));
    const QImage doubled(u":/printdialog/images/%1@2x.png"_s.arg(file));
    QVERIFY(!plain.isNull());
    QCOMPARE(doubled.size(), plain.size() * 2);
    QCOMPARE(qAlpha(plain.pixel(0, 0)), 0);
    // White paper with dark signs: the contrast is in the picture, whatever is behind it.
    const QList<QRgb> colours = opaqueColours(plain);
    const auto isLight = [](QRgb colour) { return qGray(colour) > 240; };
    const auto isDark = [](QRgb colour) { return qGray(colour) < 128; };
    QVERIFY(std::count_if(colours.begin(), colours.end(), isLight) > 200);
    QVERIFY(std::count_if(colours.begin(), colours.end(), isDark) > 50);
}

void TestPrintDialogLooks::narrowestWindow()
{
    PrintDialog dialog(u"TestWordy"_s, PrinterOptions(), services());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.resize(1, 1);
    QTRY_COMPARE(dialog.minimumHeight(), dialog.sizeHint().height());
    QTRY_VERIFY(dialog.height() >= dialog.minimumHeight());
    verifyLayout(dialog);
    dialog.resize(1600, dialog.height());
    verifyLayout(dialog);
}

QTEST_MAIN(TestPrintDialogLooks)
#include "tst_printdialoglooks.moc"
