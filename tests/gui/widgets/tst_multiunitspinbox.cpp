#include "DecimalCommaLocale.h"
#include "MultiUnitSpinBox.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
/** Steps, units, decimals. */
struct Conversion {
    int steps;
    int units;
    int decimals;
};
constexpr Conversion None{1, 1, 0};
constexpr Conversion TenthsOfInches{72, 10, 1};
constexpr Conversion Millimetres{720, 254, 1};

/** Shows what the class keeps to itself. */
class Box : public MultiUnitSpinBox
{
public:
    explicit Box(const Conversion &conversion = None, int low = 0, int high = 1000)
    {
        setRange(low, high);
        set(conversion);
    }
    void set(const Conversion &c) { setConversion(c.steps, c.units, c.decimals); }
    QList<int> conversion() const { return {steps(), units(), decimals()}; }
    const QValidator *validator() const { return lineEdit()->validator(); }
    const QDoubleValidator *unitValidator() const
    {
        return qobject_cast<const QDoubleValidator *>(validator());
    }
    QString shown() const { return lineEdit()->text(); }
    /** Puts keys in place of the text, as a user does. */
    void type(const QString &keys)
    {
        lineEdit()->selectAll();
        QTest::keyClicks(this, keys);
    }

    using MultiUnitSpinBox::fixup;
    using MultiUnitSpinBox::lineEdit;
    using MultiUnitSpinBox::textFromValue;
    using MultiUnitSpinBox::validate;
    using MultiUnitSpinBox::valueFromText;
};

QLocale german()
{
    return QLocale(QLocale::German, QLocale::Germany);
}
} // namespace

Q_DECLARE_METATYPE(Conversion)

class TestMultiUnitSpinBox : public QObject
{
    Q_OBJECT
private slots:
    void startsWithoutConversion();
    void showsAndReads_data();
    void showsAndReads();
    void readsText_data();
    void readsText();
    void typed_data();
    void typed();
    void takesWhatItShows_data();
    void takesWhatItShows();
    void takesLimitsAsShown_data();
    void takesLimitsAsShown();
    void followsNewLimits();
    void steps();
    void unitChangesNoValue();
    void takesPendingTextInTheOldUnit();
    void fieldGrowsWithItsText();
    void withoutConversionIsASpinBox_data();
    void withoutConversionIsASpinBox();
    void switchesTheValidator();
    void properties();
    void unitsEqualToStepsEndsTheConversion();
    void putsTheValidatorBack();
    void extremes_data();
    void extremes();
    void commaLocale_data();
    void commaLocale();
    void rightToLeft();
    void dump();
    void dumpInACommaLocale();
    void dumpWithoutValidator();
};

void TestMultiUnitSpinBox::startsWithoutConversion()
{
    const Box plain;
    QCOMPARE(plain.conversion(), (QList<int>{1, 1, 0}));
    QVERIFY(plain.validator());
    QVERIFY(!plain.unitValidator());
}

void TestMultiUnitSpinBox::showsAndReads_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("half an inch") << TenthsOfInches << 36 << u"5.0"_s;
    QTest::newRow("nothing") << TenthsOfInches << 0 << u"0.0"_s;
    QTest::newRow("rounded down") << TenthsOfInches << 13 << u"1.8"_s;
    QTest::newRow("rounded up") << TenthsOfInches << 14 << u"1.9"_s;
    QTest::newRow("an inch in millimetres") << Millimetres << 72 << u"25.4"_s;
    QTest::newRow("two decimals") << Conversion{72, 254, 2} << 36 << u"127.00"_s;
    QTest::newRow("no decimals") << Conversion{10, 1, 0} << 40 << u"4"_s;
    QTest::newRow("units finer than steps") << Conversion{1, 10, 0} << 7 << u"70"_s;
}

void TestMultiUnitSpinBox::showsAndReads()
{
    QFETCH(Conversion, conversion);
    QFETCH(int, value);
    QFETCH(QString, text);
    Box box(conversion, -1000, 1000);
    box.setValue(value);
    QCOMPARE(box.shown(), text);
    QCOMPARE(box.textFromValue(value), text);
    QCOMPARE(box.valueFromText(text), value);
}

void TestMultiUnitSpinBox::readsText_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");

    QTest::newRow("more decimals than shown") << TenthsOfInches << u"5.05"_s << 36;
    QTest::newRow("half a step up") << Conversion{2, 1, 2} << u"0.25"_s << 1;
    QTest::newRow("less than half a step") << Conversion{2, 1, 2} << u"0.24"_s << 0;
    QTest::newRow("below zero") << TenthsOfInches << u"-5.0"_s << -35;
    QTest::newRow("integer part below zero") << Conversion{2, 1, 2} << u"-1"_s << -1;
    QTest::newRow("nothing") << TenthsOfInches << QString() << 0;
    QTest::newRow("no number") << TenthsOfInches << u"abc"_s << 0;
    QTest::newRow("two signs") << TenthsOfInches << u"1.2.3"_s << 0;
    QTest::newRow("comma") << TenthsOfInches << u"5,0"_s << 36;
    QTest::newRow("comma of a group") << Conversion{1, 10, 3} << u"1,230"_s << 0;
    QTest::newRow("too large") << TenthsOfInches << u"1e300"_s << std::numeric_limits<int>::max();
    QTest::newRow("too small") << TenthsOfInches << u"-1e300"_s << std::numeric_limits<int>::min();
    QTest::newRow("infinite") << TenthsOfInches << u"inf"_s << std::numeric_limits<int>::max();
    QTest::newRow("not a number") << TenthsOfInches << u"nan"_s << 0;
}

void TestMultiUnitSpinBox::readsText()
{
    QFETCH(Conversion, conversion);
    QFETCH(QString, text);
    QTEST(Box(conversion).valueFromText(text), "value");
}

void TestMultiUnitSpinBox::typed_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("textAfterReturn");

    const Conversion &inches = TenthsOfInches;
    QTest::newRow("5.05") << inches << u"5.05"_s << u"5.0"_s << 36 << u"5.0"_s;
    QTest::newRow("5.05, two decimals")
        << Conversion{72, 10, 2} << u"5.05"_s << u"5.05"_s << 36 << u"5.00"_s;
    QTest::newRow("whole") << inches << u"5"_s << u"5"_s << 36 << u"5.0"_s;
    QTest::newRow("rounded to a step") << inches << u"5.1"_s << u"5.1"_s << 37 << u"5.1"_s;
    QTest::newRow("letters") << inches << u"a5b.c1d"_s << u"5.1"_s << 37 << u"5.1"_s;
    QTest::newRow("exponent") << inches << u"1e1"_s << u"11"_s << 79 << u"11.0"_s;
    QTest::newRow("comma") << inches << u"5,1"_s << u"5.1"_s << 37 << u"5.1"_s;
    QTest::newRow("group and decimals") << inches << u"1,2.3"_s << u"1.2"_s << 9 << u"1.3"_s;
    QTest::newRow("minus") << inches << u"-5"_s << u"5"_s << 36 << u"5.0"_s;
    QTest::newRow("above the limit") << inches << u"140"_s << u"140"_s << 101 << u"14.0"_s;
    QTest::newRow("none") << Conversion{10, 10, 1} << u"5.1"_s << u"51"_s << 51 << u"51"_s;
}

void TestMultiUnitSpinBox::typed()
{
    QFETCH(Conversion, conversion);
    QFETCH(QString, keys);
    Box box(conversion);
    box.type(keys);
    QTEST(box.shown(), "text");
    QTEST(box.value(), "value");
    QTest::keyClick(&box, Qt::Key_Return);
    QTEST(box.value(), "value");
    QTEST(box.shown(), "textAfterReturn");
}

void TestMultiUnitSpinBox::takesWhatItShows_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QLocale>("locale");
    for (const QLocale &locale : {QLocale::c(), german()}) {
        QTest::addRow("1/10 inches %s", qPrintable(locale.name())) << TenthsOfInches << locale;
        QTest::addRow("mm %s", qPrintable(locale.name())) << Millimetres << locale;
        QTest::addRow("two decimals %s", qPrintable(locale.name()))
            << Conversion{72, 254, 2} << locale;
    }
}

void TestMultiUnitSpinBox::takesWhatItShows()
{
    QFETCH(Conversion, conversion);
    QFETCH(QLocale, locale);
    Box box(conversion, 13, 200);
    box.setLocale(locale);
    for (int value = box.minimum(); value <= box.maximum(); ++value) {
        box.setValue(value);
        QString text = box.shown();
        int position = 0;
        QCOMPARE(box.validate(text, position), QValidator::Acceptable);
        box.interpretText();
        QCOMPARE(box.value(), value);
        QCOMPARE(box.shown(), text);
    }
}

void TestMultiUnitSpinBox::takesLimitsAsShown_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QString>("lowText");
    QTest::addColumn<QString>("highText");

    // 1.80556 and 74.30556, 1.94444 and 9.86111.
    QTest::newRow("low rounded down") << 13 << 535 << u"1.8"_s << u"74.3"_s;
    QTest::newRow("high rounded up") << 14 << 71 << u"1.9"_s << u"9.9"_s;
}

void TestMultiUnitSpinBox::takesLimitsAsShown()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(QString, lowText);
    QFETCH(QString, highText);
    Box box(TenthsOfInches, low, high);
    box.setValue(low + 1);
    box.type(lowText);
    QCOMPARE(box.value(), low);
    QTest::keyClick(&box, Qt::Key_Up);
    QCOMPARE(box.value(), low + 1);
    box.type(highText);
    QCOMPARE(box.value(), high);
    QTest::keyClick(&box, Qt::Key_Down);
    QCOMPARE(box.value(), high - 1);
}

void TestMultiUnitSpinBox::followsNewLimits()
{
    Box box(TenthsOfInches, 0, 72);
    box.setMaximum(720);
    box.type(u"99"_s);
    QCOMPARE(box.value(), 713);
    box.setMinimum(360);
    box.type(u"1"_s);
    QCOMPARE(box.value(), 713);
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.shown(), u"99.0"_s);
}

void TestMultiUnitSpinBox::steps()
{
    Box box(TenthsOfInches);
    box.setValue(36);
    QTest::keyClick(&box, Qt::Key_Up);
    QCOMPARE(box.value(), 37);
    QCOMPARE(box.shown(), u"5.1"_s);
    QTest::keyClick(&box, Qt::Key_PageUp);
    QCOMPARE(box.value(), 47);
    box.setSingleStep(5);
    box.stepBy(-1);
    QCOMPARE(box.value(), 42);
    box.type(u"10"_s);
    box.stepBy(1);
    QCOMPARE(box.value(), 77);
    box.setWrapping(true);
    box.setValue(box.maximum());
    box.stepBy(1);
    QCOMPARE(box.value(), box.minimum());
}

void TestMultiUnitSpinBox::unitChangesNoValue()
{
    Box box(None, 13);
    box.setValue(100);
    const QSignalSpy changed(&box, &QSpinBox::valueChanged);
    const QList<std::pair<Conversion, QString>> shown{{TenthsOfInches, u"13.9"_s},
                                                      {Millimetres, u"35.3"_s},
                                                      {{720, 254, 0}, u"35"_s},
                                                      {None, u"100"_s}};
    for (const auto &[conversion, text] : shown) {
        box.set(conversion);
        QCOMPARE(box.shown(), text);
        QCOMPARE(box.value(), 100);
    }
    QCOMPARE(changed.size(), 0);
}

void TestMultiUnitSpinBox::takesPendingTextInTheOldUnit()
{
    Box box(TenthsOfInches);
    box.setKeyboardTracking(false);
    box.type(u"5"_s);
    QCOMPARE(box.value(), 0);
    box.set(Millimetres);
    QCOMPARE(box.value(), 36);
    QCOMPARE(box.shown(), u"12.7"_s);
}

void TestMultiUnitSpinBox::fieldGrowsWithItsText()
{
    Box box;
    const int width = box.sizeHint().width();
    box.set({1, 1000, 3});
    QVERIFY(box.sizeHint().width() > width);
    box.set(None);
    QCOMPARE(box.sizeHint().width(), width);
}

void TestMultiUnitSpinBox::withoutConversionIsASpinBox_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::newRow("1 of 1") << None;
    QTest::newRow("10 of 10") << Conversion{10, 10, 0};
    QTest::newRow("1 of 1, decimals") << Conversion{1, 1, 3};
    QTest::newRow("10 of 10, decimals") << Conversion{10, 10, 1};
    QTest::newRow("0 of 0") << Conversion{0, 0, 2};
}

void TestMultiUnitSpinBox::withoutConversionIsASpinBox()
{
    QFETCH(Conversion, conversion);
    Box box(conversion, -20, 50);
    QSpinBox plain;
    plain.setRange(-20, 50);
    for (QSpinBox *each : {static_cast<QSpinBox *>(&box), &plain}) {
        each->setPrefix(u"+/- "_s);
        each->setSuffix(u" pt"_s);
        each->setSpecialValueText(u"least"_s);
    }
    QVERIFY(!box.unitValidator());
    for (const int value : {-20, -1, 0, 50}) {
        box.setValue(value);
        plain.setValue(value);
        QCOMPARE(box.text(), plain.text());
        QCOMPARE(box.cleanText(), plain.cleanText());
    }
    auto *plainEdit = plain.findChild<QLineEdit *>();
    for (const QString &keys : {u"5.1"_s, u"-7"_s, u"99"_s, u"x"_s, u"1,2"_s}) {
        box.type(keys);
        plainEdit->selectAll();
        QTest::keyClicks(&plain, keys);
        QCOMPARE(box.text(), plain.text());
        QCOMPARE(box.value(), plain.value());
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClick(&plain, Qt::Key_Return);
        QCOMPARE(box.text(), plain.text());
        QCOMPARE(box.value(), plain.value());
    }
    QCOMPARE(box.sizeHint(), plain.sizeHint());
}

void TestMultiUnitSpinBox::switchesTheValidator()
{
    Box box;
    const QValidator *const own = box.validator();
    box.set(TenthsOfInches);
    const QDoubleValidator *const unit = box.unitValidator();
    QVERIFY(unit);
    QCOMPARE(unit->bottom(), 0.0);
    QCOMPARE(unit->top(), 10000.0 / 72);
    QCOMPARE(unit->decimals(), 1);
    box.set({72, 254, 2});
    QCOMPARE(box.unitValidator(), unit);
    QCOMPARE(unit->top(), 254000.0 / 72);
    QCOMPARE(unit->decimals(), 2);
    box.set(None);
    QCOMPARE(box.validator(), own);
    box.set({5, 5, 3});
    QCOMPARE(box.validator(), own);
    box.set({5, 4, 3});
    QCOMPARE(box.unitValidator(), unit);
}

void TestMultiUnitSpinBox::properties()
{
    Box box;
    const QMetaObject &meta = MultiUnitSpinBox::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 3);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 0);
    const char *const names[] = {"steps", "units", "decimals"};
    QList<int> expected{1, 1, 0};
    for (int i = 0; i < 3; ++i) {
        const QMetaProperty property = meta.property(meta.propertyOffset() + i);
        QCOMPARE(property.name(), names[i]);
        QCOMPARE(property.typeId(), int(QMetaType::Int));
        QCOMPARE(property.read(&box).toInt(), expected[i]);
        expected[i] = 7 + i;
        QVERIFY(property.write(&box, expected[i]));
        QCOMPARE(property.read(&box).toInt(), expected[i]);
        QCOMPARE(box.conversion(), expected);
    }
    QCOMPARE(box.unitValidator()->decimals(), 9);
}

void TestMultiUnitSpinBox::unitsEqualToStepsEndsTheConversion()
{
    Box box;
    const QValidator *const own = box.validator();
    box.set(TenthsOfInches);
    box.setValue(36);
    QVERIFY(box.setProperty("units", 72));
    QCOMPARE(box.validator(), own);
    QCOMPARE(box.shown(), u"36"_s);
}

void TestMultiUnitSpinBox::putsTheValidatorBack()
{
    // The line edit outlives the box's own destructor, not that of the base.
    struct Watcher : QObject {
        QPointer<QLineEdit> edit;
        QPointer<const QValidator> own;
        bool isOwnAtEnd = false;
    } watcher;
    auto *box = new Box;
    watcher.own = box->validator();
    watcher.edit = box->lineEdit();
    box->set(TenthsOfInches);
    QVERIFY(watcher.edit->validator() != watcher.own);
    QObject::connect(box, &QObject::destroyed, &watcher, [&watcher] {
        watcher.isOwnAtEnd =
            watcher.edit && watcher.own && watcher.edit->validator() == watcher.own;
    });
    delete box;
    QVERIFY(watcher.isOwnAtEnd);
}

void TestMultiUnitSpinBox::extremes_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");

    constexpr int high = std::numeric_limits<int>::max();
    constexpr int low = std::numeric_limits<int>::min();
    QTest::newRow("product is cut to 32 bits") << Conversion{1, 3, 0} << high << u"2147483645"_s;
    QTest::newRow("product turns negative") << Conversion{1, 2, 0} << high << u"-2"_s;
    QTest::newRow("lowest") << Conversion{1, -1, 0} << low << u"-2147483648"_s;
    QTest::newRow("lowest by two") << Conversion{1, 2, 0} << low << u"0"_s;
    QTest::newRow("no steps") << Conversion{0, 10, 1} << 36 << u"0.0"_s;
    QTest::newRow("no units") << Conversion{72, 0, 1} << 36 << u"0.0"_s;
    QTest::newRow("negative steps") << Conversion{-72, 10, 1} << 36 << u"-5.0"_s;
}

void TestMultiUnitSpinBox::extremes()
{
    QFETCH(Conversion, conversion);
    QFETCH(int, value);
    Box box(conversion, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    box.setValue(value);
    QCOMPARE(box.value(), value);
    QTEST(box.shown(), "text");
    QVERIFY(!box.dump().isEmpty());
    // Whatever it is read as, it is read without overflow.
    box.type(u"99999999999"_s);
    QTest::keyClick(&box, Qt::Key_Return);
}

void TestMultiUnitSpinBox::commaLocale_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("comma") << u"5,1"_s << 37 << u"5,1"_s;
    QTest::newRow("point") << u"5.1"_s << 37 << u"5,1"_s;
    QTest::newRow("whole") << u"5"_s << 36 << u"5,0"_s;
    QTest::newRow("both signs") << u"1.2,3"_s << 9 << u"1,3"_s;
    QTest::newRow("two decimals") << u"5,05"_s << 36 << u"5,0"_s;
}

void TestMultiUnitSpinBox::commaLocale()
{
    QFETCH(QString, keys);
    QFETCH(int, value);
    QFETCH(QString, text);
    Box box(TenthsOfInches);
    box.setLocale(german());
    QCOMPARE(box.shown(), u"0,0"_s);
    box.type(keys);
    QCOMPARE(box.value(), value);
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.value(), value);
    QCOMPARE(box.shown(), text);
    QCOMPARE(box.valueFromText(u"5.05"_s), 36);
    QCOMPARE(box.valueFromText(u"5,05"_s), 36);
    // A group to one, three decimals to the other.
    QCOMPARE(box.valueFromText(u"1.234"_s), 0);
    box.set(None);
    QCOMPARE(box.value(), value);
}

void TestMultiUnitSpinBox::rightToLeft()
{
    Box box(TenthsOfInches);
    box.setLayoutDirection(Qt::RightToLeft);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    box.type(u"5.1"_s);
    QCOMPARE(box.value(), 37);
    QTest::keyClick(&box, Qt::Key_Up);
    QCOMPARE(box.value(), 38);
    QCOMPARE(box.shown(), u"5.3"_s);
}

void TestMultiUnitSpinBox::dump()
{
    Box box(TenthsOfInches, 0, 72);
    box.setValue(36);
    const auto address = [](const QObject *object) {
        return QString::asprintf("%p", static_cast<const void *>(object));
    };
    const QValidator *const unit = box.validator();
    QCOMPARE(box.dump(), QStringLiteral("\n\thasUnitConversion=1 m_steps=72 m_units=10 m_decimals=1"
                                        "\n\tvalue: 0 < 36(+1) < 72"
                                        "\n\tunit: 0.000000 < 5.000000(+0.138889) < 10.000000"
                                        "\n\tunit(fixed): 0.0 < 5.0(+0.1) < 10.0"
                                        "\n\tvalidator: %1(QDoubleValidator)"
                                        "\n\tunitValidator: %1(QDoubleValidator): "
                                        "[0.0(0.000000); 10.0(10.000000)]")
                             .arg(address(unit)));
    box.set(None);
    QCOMPARE(box.dump(), QStringLiteral("\n\thasUnitConversion=0 m_steps=1 m_units=1 m_decimals=0"
                                        "\n\tvalue: 0 < 36(+1) < 72"
                                        "\n\tunit: 0.000000 < 36.000000(+1.000000) < 72.000000"
                                        "\n\tunit(fixed): 0 < 36(+1) < 72"
                                        "\n\tvalidator: %1(QValidator)"
                                        "\n\tunitValidator: %2(QDoubleValidator): "
                                        "[0(0.000000); 10(10.000000)]")
                             .arg(address(box.validator()), address(unit)));
}

void TestMultiUnitSpinBox::dumpInACommaLocale()
{
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    QVERIFY(Box(TenthsOfInches).dump().contains(u"(+0.138889)"));
}

void TestMultiUnitSpinBox::dumpWithoutValidator()
{
    Box box;
    box.lineEdit()->setValidator(nullptr);
    QVERIFY(box.dump().contains(u"(missed validator)"));
}

QTEST_MAIN(TestMultiUnitSpinBox)
#include "tst_multiunitspinbox.moc"
