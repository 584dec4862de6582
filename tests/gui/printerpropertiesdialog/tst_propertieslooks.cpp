#include "Look.h"
#include "PropertiesTest.h"

#include <QStyleFactory>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace PropertiesTest;

/** The dialog in different looks: nothing is cut, nothing lies over something else. */
class TestPropertiesLooks : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void layout_data();
    void layout();
    void fitsASmallScreen_data() { layout_data(); }
    void fitsASmallScreen();
    void positionIsNotMirrored();
    void picturesFitTheScreen_data();
    void picturesFitTheScreen();
};

namespace
{
/** The widgets of the form in sight that show something themselves. */
QList<QWidget *> leaves(const PrinterPropertiesDialog &dialog)
{
    QList<QWidget *> result;
    const auto page = child<QTabWidget>(dialog, "TabControl")->currentWidget();
    const QList<QWidget *> all = page->findChildren<QWidget *>();
    for (QWidget *widget : all) {
        const QString name = widget->objectName();
        const bool isPart =
            !qobject_cast<QGroupBox *>(widget->parentWidget()) && widget->parentWidget() != page;
        if (widget->isVisible() && !name.isEmpty() && !isPart && !qobject_cast<QGroupBox *>(widget))
            result.append(widget);
    }
    for (const char *name : {"HelpButton", "ApplyButton", "OkButton", "CancelButton"})
        result.append(child<QWidget>(dialog, name));
    return result;
}

void verifyTab(const PrinterPropertiesDialog &dialog)
{
    const QList<QWidget *> widgets = leaves(dialog);
    QVERIFY(widgets.size() > 4);
    QCOMPARE(misplaced(dialog, widgets), QString());
}
} // namespace

void TestPropertiesLooks::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
}

void TestPropertiesLooks::layout_data()
{
    QTest::addColumn<QString>("printer");
    Look::addColumns();
    QTest::newRow("plain") << "Laser" << false << false << false;
    QTest::newRow("dark") << "Laser" << true << false << false;
    QTest::newRow("mirrored") << "Laser" << false << true << false;
    QTest::newRow("wordy") << "Laser" << false << false << true;
    QTest::newRow("wordy, mirrored") << "Photo" << false << true << true;
    QTest::newRow("no driver") << "Plain" << false << false << false;
}

void TestPropertiesLooks::layout()
{
    QFETCH(QString, printer);
    QFETCH(bool, mirrored);
    const Look look = Look::ofRow();
    const auto dialog = open(printer);
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    for (const QSize size : {dialog->size(), dialog->minimumSizeHint(), QSize(1600, 1000)}) {
        dialog->resize(size);
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QCoreApplication::processEvents();
            verifyTab(*dialog);
        }
    }
    QCOMPARE(child<QLabel>(*dialog, "TextLabel1_3")->alignment() & Qt::AlignHorizontal_Mask,
             (mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute);
    tabs->setCurrentIndex(0);
    QCOMPARE(areaOf(child<QWidget>(*dialog, "TextLabel2")).x() >
                 areaOf(child<QWidget>(*dialog, "StartBannerCombo")).x(),
             mirrored);
}

/** A screen of 1024 by 768 with a title bar and a panel on it. */
void TestPropertiesLooks::fitsASmallScreen()
{
    QFETCH(QString, printer);
    const Look look = Look::ofRow();
    const auto dialog = open(printer);
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QVERIFY2(dialog->width() <= 1000 && dialog->height() <= 700,
             qPrintable(u"%1x%2"_s.arg(dialog->width()).arg(dialog->height())));
}

void TestPropertiesLooks::positionIsNotMirrored()
{
    const Look look(false, true, false);
    const auto dialog = open(u"Laser"_s, {u"position=left"_s});
    const auto slider = child<QSlider>(*dialog, "HorPositionSlider");
    turnTo(slider);
    QCOMPARE(child<QWidget>(*dialog, "framePositionedImage")->x(), 0);
    QCOMPARE(slider->layoutDirection(), Qt::LeftToRight);
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(slider->value(), 1);
}

void TestPropertiesLooks::picturesFitTheScreen_data()
{
    QTest::addColumn<QSizeF>("size");
    for (const char *label : {"OrientationPixmap", "NUpPixmap", "ColumnsPixmap", "PrettyPixmap"})
        QTest::newRow(label) << QSizeF(72, 72);
    QTest::newRow("DuplexPixmap") << QSizeF(96, 80);
    QTest::newRow("SampleImagePixmap") << QSizeF(160, 120);
    QTest::newRow("frameImagePosition") << QSizeF(84, 112);
    QTest::newRow("framePositionedImage") << QSizeF(36, 27);
}

void TestPropertiesLooks::picturesFitTheScreen()
{
    const auto dialog = open(u"Laser"_s);
    const QPixmap picture = child<QLabel>(*dialog, QTest::currentDataTag())->pixmap();
    QCOMPARE(picture.devicePixelRatio(), qApp->devicePixelRatio());
    QTEST(picture.deviceIndependentSize(), "size");
}

QTEST_MAIN(TestPropertiesLooks)
#include "tst_propertieslooks.moc"
