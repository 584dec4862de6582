#include "CustomPageSizeView.h"

#include "EditorsTestSupport.h"
#include "PPDCustomView.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSignalSpy>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

namespace
{
enum Unit { Points, Millimetres, Centimetres, Inches };

/** A view over the PPD's custom page sizes, with its parts at hand. */
struct PageSize {
    explicit PageSize(const Cups::PpdPtr &opened = openPpd())
        : ppd(opened)
        , view(&parent)
        , width(child<QDoubleSpinBox>(view, "m_widthSpinBox"))
        , height(child<QDoubleSpinBox>(view, "m_heightSpinBox"))
        , units(child<QComboBox>(view, "m_unitsComboBox"))
    {
        view.setCustomOption(ppdFindCustomOption(ppd.get(), "PageSize"));
    }
    QString labels() const
    {
        return child<QLabel>(view, "m_widthLabel")->text() + u'|' +
               child<QLabel>(view, "m_heightLabel")->text();
    }
    QString fields() const { return width->text() + u'x' + height->text(); }

    Cups::PpdPtr ppd;
    PPDCustomView parent;
    CustomPageSizeView view;
    QDoubleSpinBox *width;
    QDoubleSpinBox *height;
    QComboBox *units;
};

QString sizes(const char *width, const char *height)
{
    return shown(width) + u'x' + shown(height);
}
} // namespace

/** Width, height and unit of a custom page size. */
class TestCustomPageSizeView : public QObject
{
    Q_OBJECT
private slots:
    void formAsDesigned();
    void units_data();
    void units();
    void startsAtTheSmallestSize();
    void limits_data();
    void limits();
    void typedSize();
    void anotherUnitShowsTheSameSize();
    void unitAloneSaysNothing();
    void edgesOfTheRange();
    void setValue_data();
    void setValue();
    void unknownUnitWordKeepsTheUnit();
    void unitThatIsNotOffered();
    void limitsInEitherOrder();
    void tellsTheParentView();
    void fieldAcceptsWhatItShows();
    void tabKeyOrder();
    void nullOptionIsFatal();
    void missingParameterIsFatal_data();
    void missingParameterIsFatal();
};

void TestCustomPageSizeView::formAsDesigned()
{
    CustomPageSizeView view(nullptr);
    QCOMPARE(view.objectName(), u"Form"_s);
    QCOMPARE(child<QLabel>(view, "m_widthLabel")->text(), u"Width: [1-3 ]pt"_s);
    QCOMPARE(child<QLabel>(view, "m_heightLabel")->text(), u"Height: [2-4]pt"_s);
    QCOMPARE(child<QLabel>(view, "label_3")->text(), u"Units:"_s);
    const auto *units = child<QComboBox>(view, "m_unitsComboBox");
    QStringList texts;
    for (int i = 0; i < units->count(); ++i) {
        texts.append(units->itemText(i));
        QCOMPARE(units->itemData(i), QVariant(i));
    }
    QCOMPARE(texts, QStringList({u"pt"_s, u"mm"_s, u"cm"_s, u"in"_s}));
    QCOMPARE(child<QLabel>(view, "m_widthLabel")->buddy(),
             child<QDoubleSpinBox>(view, "m_widthSpinBox"));
    QCOMPARE(child<QLabel>(view, "m_heightLabel")->buddy(),
             child<QDoubleSpinBox>(view, "m_heightSpinBox"));
    QCOMPARE(child<QLabel>(view, "label_3")->buddy(), units);
}

void TestCustomPageSizeView::units_data()
{
    QTest::addColumn<size_t>("index");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<double>("points");
    QTest::newRow("pt") << size_t{0} << QByteArray("pt") << 1.0;
    QTest::newRow("mm") << size_t{1} << QByteArray("mm") << 2.83446712;
    QTest::newRow("cm") << size_t{2} << QByteArray("cm") << 28.3446712;
    QTest::newRow("in") << size_t{3} << QByteArray("in") << 72.0;
    QTest::newRow("ft") << size_t{4} << QByteArray("ft") << 864.0;
    QTest::newRow("m") << size_t{5} << QByteArray("m") << 2834.46712;
}

void TestCustomPageSizeView::units()
{
    QFETCH(size_t, index);
    QTEST(QByteArray(CustomPageSizeView::UnitNames[index]), "name");
    QTEST(CustomPageSizeView::PointsInUnit[index], "points");
}

void TestCustomPageSizeView::startsAtTheSmallestSize()
{
    const PageSize size;
    QCOMPARE(size.fields(), sizes("72.000", "72.000"));
    QCOMPARE(size.view.value(), u"Custom.72.000x72.000pt"_s);
    QCOMPARE(size.view.sizeInPoints(), QSizeF(72, 72));
}

void TestCustomPageSizeView::limits_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("labels");
    const auto text = [](const char *dimension, const char *minimum, const char *maximum,
                         const char *unit) {
        return QString::fromLatin1(dimension) + u" ["_s + shown(minimum) + u'-' + shown(maximum) +
               u"] "_s + QString::fromLatin1(unit) + u':';
    };
    QTest::newRow("pt") << int{Points}
                        << text("Width", "72.00", "1224.00", "pt") + u'|' +
                               text("Height", "72.00", "1584.00", "pt");
    QTest::newRow("mm") << int{Millimetres}
                        << text("Width", "25.40", "431.83", "mm") + u'|' +
                               text("Height", "25.40", "558.84", "mm");
    QTest::newRow("cm") << int{Centimetres}
                        << text("Width", "2.54", "43.18", "cm") + u'|' +
                               text("Height", "2.54", "55.88", "cm");
    QTest::newRow("in") << int{Inches}
                        << text("Width", "1.00", "17.00", "in") + u'|' +
                               text("Height", "1.00", "22.00", "in");
}

void TestCustomPageSizeView::limits()
{
    QFETCH(int, unit);
    PageSize size;
    size.units->setCurrentIndex(unit);
    QTEST(size.labels(), "labels");
    const double points = CustomPageSizeView::PointsInUnit[static_cast<size_t>(unit)];
    QVERIFY(std::abs(size.width->minimum() - 72 / points) < 0.0006);
    QVERIFY(std::abs(size.width->maximum() - 1224 / points) < 0.0006);
    QVERIFY(std::abs(size.height->maximum() - 1584 / points) < 0.0006);
    QCOMPARE(size.width->decimals(), 3);
}

void TestCustomPageSizeView::typedSize()
{
    PageSize size;
    const QSignalSpy changed(&size.view, &CustomPageSizeView::sizeChanged);
    type(size.width, shown("595.28"));
    type(size.height, u"841.89"_s);
    QCOMPARE(size.view.value(), u"Custom.595.280x841.890pt"_s);
    QVERIFY(changed.count() > 0);
}

void TestCustomPageSizeView::anotherUnitShowsTheSameSize()
{
    PageSize size;
    type(size.width, shown("595.28"));
    type(size.height, shown("841.89"));
    QTest::keyClick(size.units, Qt::Key_Down);
    QCOMPARE(size.units->currentText(), u"mm"_s);
    QCOMPARE(size.view.value(), u"Custom.210.015x297.019mm"_s);
    QCOMPARE(size.fields(), sizes("210.015", "297.019"));
    QTest::keyClick(size.units, Qt::Key_Down);
    QCOMPARE(size.view.value(), u"Custom.21.001x29.702cm"_s);
    QCOMPARE(size.fields(), sizes("21.001", "29.702"));
    size.units->setCurrentIndex(Inches);
    QCOMPARE(size.view.value(), u"Custom.8.268x11.693in"_s);
    size.units->setCurrentIndex(Points);
    QCOMPARE(size.view.value(), u"Custom.595.280x841.890pt"_s);
}

void TestCustomPageSizeView::unitAloneSaysNothing()
{
    PageSize size;
    const QSignalSpy changed(&size.view, &CustomPageSizeView::sizeChanged);
    for (const int unit : {Inches, Millimetres, Centimetres, Points})
        size.units->setCurrentIndex(unit);
    QCOMPARE(changed.count(), 0);
}

void TestCustomPageSizeView::edgesOfTheRange()
{
    PageSize size;
    for (const int unit : {Points, Millimetres, Centimetres, Inches}) {
        size.units->setCurrentIndex(unit);
        size.width->setValue(1e9);
        size.height->setValue(-1e9);
        const QString unitName =
            QString::fromLatin1(CustomPageSizeView::UnitNames[static_cast<size_t>(unit)]);
        QCOMPARE(size.view.value(),
                 u"Custom."_s + QLocale::c().toString(size.width->maximum(), 'f', 3).remove(u',') +
                     u'x' + QString::number(size.height->minimum(), 'f', 3) + unitName);
    }
}

void TestCustomPageSizeView::setValue_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *choice, const char *value) {
        QTest::newRow(choice) << QString::fromLatin1(choice) << QString::fromLatin1(value);
    };
    row("Custom.8.5x11in", "Custom.8.500x11.000in");
    row("Custom.300x400pt", "Custom.300.000x400.000pt");
    row("Custom.210x297mm", "Custom.210.000x297.000mm");
    row("Custom.21x29.7cm", "Custom.21.000x29.700cm");
    row("Custom.1x2ft", "");
    row("Custom.1x2m", "");
    row("Custom.9999x1pt", "Custom.1224.000x72.000pt");
    for (const char *unread : {"A4", "Custom", "", "Custom.8.5x11", "Custom.8,5x11in", "x"})
        row(unread, "Custom.72.000x72.000pt");
}

void TestCustomPageSizeView::setValue()
{
    QFETCH(QString, choice);
    PageSize size;
    size.view.setValue(choice);
    QTEST(size.view.value(), "value");
}

void TestCustomPageSizeView::unknownUnitWordKeepsTheUnit()
{
    PageSize size;
    size.units->setCurrentIndex(Inches);
    const QSignalSpy changed(&size.view, &CustomPageSizeView::sizeChanged);
    size.view.setValue(u"Custom.5x6furlong"_s);
    QCOMPARE(size.view.value(), u"Custom.5.000x6.000in"_s);
    QVERIFY(changed.count() > 0);
}

void TestCustomPageSizeView::unitThatIsNotOffered()
{
    PageSize size;
    size.view.setValue(u"Custom.1x2ft"_s);
    QCOMPARE(size.units->currentIndex(), -1);
    QCOMPARE(size.view.value(), QString());
    size.width->setValue(200);
    QCOMPARE(size.view.value(), QString());
    size.units->setCurrentIndex(Millimetres);
    QCOMPARE(size.view.value(), u"Custom.25.402x25.402mm"_s);
    QCOMPARE(size.fields(), sizes("25.402", "25.402"));
}

void TestCustomPageSizeView::limitsInEitherOrder()
{
    const PageSize size(openPpdWith("Width: 1 points 72 1224", "Width: 1 points 1224 72"));
    QCOMPARE(size.width->minimum(), 72.0);
    QCOMPARE(size.width->maximum(), 1224.0);
    QCOMPARE(size.view.value(), u"Custom.72.000x72.000pt"_s);
}

void TestCustomPageSizeView::tellsTheParentView()
{
    PageSize size;
    const QSignalSpy told(&size.parent, &PPDCustomView::choiceChanged);
    const QSignalSpy changed(&size.view, &CustomPageSizeView::sizeChanged);
    size.width->setValue(100);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(told.count(), 1);
    size.view.setCustomOption(ppdFindCustomOption(size.ppd.get(), "PageSize"));
    QCOMPARE(told.count(), 2);
}

void TestCustomPageSizeView::fieldAcceptsWhatItShows()
{
    PageSize size;
    size.view.setValue(u"Custom.1000.5x500.25pt"_s);
    const QString text = size.width->text();
    QCOMPARE(text, shown("1000.500"));
    size.width->setValue(100);
    type(size.width, text);
    QCOMPARE(size.view.value(), u"Custom.1000.500x500.250pt"_s);
}

void TestCustomPageSizeView::tabKeyOrder()
{
    CustomPageSizeView view(nullptr);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    auto *width = child<QDoubleSpinBox>(view, "m_widthSpinBox");
    width->setFocus();
    QTest::keyClick(width, Qt::Key_Tab);
    auto *height = child<QDoubleSpinBox>(view, "m_heightSpinBox");
    QVERIFY(height->hasFocus());
    QTest::keyClick(height, Qt::Key_Tab);
    QVERIFY(child<QComboBox>(view, "m_unitsComboBox")->hasFocus());
}

void TestCustomPageSizeView::nullOptionIsFatal()
{
    const End end = endOf([] { CustomPageSizeView(nullptr).setCustomOption(nullptr); });
    QCOMPARE(end.signal, SIGABRT);
    QCOMPARE(end.message.trimmed(), QByteArray("coption = NULL!"));
}

void TestCustomPageSizeView::missingParameterIsFatal_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("width") << QByteArray("Width") << QByteArray("Width not found!");
    QTest::newRow("height") << QByteArray("Height") << QByteArray("Height not found!");
}

void TestCustomPageSizeView::missingParameterIsFatal()
{
    QFETCH(QByteArray, name);
    const Cups::PpdPtr ppd = openPpd();
    std::strcpy(param(ppd, "PageSize", name.constData()).name, "Other");
    const End end = endOf([&] {
        CustomPageSizeView(nullptr).setCustomOption(ppdFindCustomOption(ppd.get(), "PageSize"));
    });
    QCOMPARE(end.signal, SIGABRT);
    QTEST(end.message.trimmed(), "message");
}

int main(int argc, char **argv)
{
    return runInBothLocales<TestCustomPageSizeView>(argc, argv);
}
#include "tst_custompagesizeview.moc"
