#include "Param.h"

#include "DecimalSpinBox.h"
#include "EditorsTestSupport.h"
#include "PPDCustomView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

namespace
{
/** A parameter as the library makes it, with its limits and current value in the unions. */
ppd_cparam_t param(ppd_cptype_e paramType)
{
    ppd_cparam_t result{};
    std::strcpy(result.name, "Name");
    std::strcpy(result.text, "Text & more");
    result.type = paramType;
    return result;
}

ppd_cparam_t number(ppd_cptype_e paramType, float minimum, float maximum, float current)
{
    ppd_cparam_t result = param(paramType);
    result.minimum.custom_real = minimum;
    result.maximum.custom_real = maximum;
    result.current.custom_real = current;
    return result;
}

ppd_cparam_t integer(int minimum, int maximum, int current)
{
    ppd_cparam_t result = param(PPD_CUSTOM_INT);
    result.minimum.custom_int = minimum;
    result.maximum.custom_int = maximum;
    result.current.custom_int = current;
    return result;
}

/** `current` must outlive what is returned. */
ppd_cparam_t text(ppd_cptype_e paramType, int minimum, int maximum, QByteArray &current)
{
    ppd_cparam_t result = param(paramType);
    result.minimum.custom_string = minimum;
    result.maximum.custom_string = maximum;
    result.current.custom_string = current.data();
    return result;
}

/** An editor in a view whose signal is watched. */
template <ppd_cptype_e T> struct Edited {
    explicit Edited(ppd_cparam_t parameter)
        : param(new Param<T>(&view, &parameter))
        , editor(only<ParamEditor<T>>(*param))
        , told(&view, &PPDCustomView::choiceChanged)
    {
    }

    PPDCustomView view;
    Param<T> *param;
    ParamEditor<T> *editor;
    QSignalSpy told;
};

template <ppd_cptype_e T> void checkFractional(bool hiddenWhenFixed)
{
    Edited<T> edited(number(T, 0.5F, 2000, 1.25F));
    QCOMPARE(edited.editor->decimals(), 3);
    QCOMPARE(edited.editor->minimum(), 0.5);
    QCOMPARE(edited.editor->maximum(), 2000.0);
    QCOMPARE(edited.param->value(), u"1.250"_s);
    QVERIFY(!edited.param->isHidden());

    type(edited.editor, shown("1234.5"));
    QCOMPARE(edited.param->value(), u"1234.500"_s);
    QCOMPARE(edited.told.count(), 5);

    const Edited<T> fixed(number(T, 1, 1, 0));
    QCOMPARE(fixed.param->isHidden(), hiddenWhenFixed);
    QCOMPARE(fixed.param->value(), u"1.000"_s);

    const Edited<T> turnedRound(number(T, 5, -5, 2));
    QCOMPARE(turnedRound.editor->minimum(), -5.0);
    QCOMPARE(turnedRound.editor->maximum(), 5.0);
    QCOMPARE(turnedRound.param->value(), u"2.000"_s);
}
} // namespace

/** The editors of custom parameters, by type. */
class TestParam : public QObject
{
    Q_OBJECT
private slots:
    void curve() { checkFractional<PPD_CUSTOM_CURVE>(true); }
    void inverseCurve() { checkFractional<PPD_CUSTOM_INVCURVE>(true); }
    void real() { checkFractional<PPD_CUSTOM_REAL>(true); }
    void points() { checkFractional<PPD_CUSTOM_POINTS>(false); }
    void pointsShowTheirUnit();
    void integers();
    void passcode();
    void passcodeRejects_data();
    void passcodeRejects();
    void password();
    void string();
    void currentTextIsUtf8();
    void lengths_data();
    void lengths();
    void numbersThatAreNone();
    void limitsNextToNothing();
    void fieldAcceptsWhatItShows();
    void fieldTakesAPointToo();
    void labelAndLayout();
    void textsForAScreenReader();
    void typedInAFieldInsideAWindow();
};

void TestParam::pointsShowTheirUnit()
{
    const Edited<PPD_CUSTOM_POINTS> edited(number(PPD_CUSTOM_POINTS, 0, 100, 12.5F));
    QCOMPARE(edited.editor->text(), shown("12.500 pt"));
    QCOMPARE(edited.param->value(), u"12.500"_s);
}

void TestParam::integers()
{
    Edited<PPD_CUSTOM_INT> edited(integer(-100, 100000, 300));
    QCOMPARE(edited.param->value(), u"300"_s);
    type(edited.editor, u"-42"_s);
    QCOMPARE(edited.param->value(), u"-42"_s);
    QVERIFY(edited.told.count() > 0);
    type(edited.editor, u"99999"_s);
    QCOMPARE(edited.param->value(), u"99999"_s);

    const Edited<PPD_CUSTOM_INT> fixed(integer(7, 7, 0));
    QVERIFY(fixed.param->isHidden());
    QCOMPARE(fixed.param->value(), u"7"_s);

    const Edited<PPD_CUSTOM_INT> turnedRound(integer(10, 0, 5));
    QCOMPARE(turnedRound.editor->minimum(), 0);
    QCOMPARE(turnedRound.editor->maximum(), 10);
    QCOMPARE(turnedRound.param->value(), u"5"_s);
}

void TestParam::passcode()
{
    QByteArray current("1234");
    Edited<PPD_CUSTOM_PASSCODE> edited(text(PPD_CUSTOM_PASSCODE, 4, 8, current));
    QCOMPARE(edited.editor->echoMode(), QLineEdit::Password);
    QCOMPARE(edited.editor->maxLength(), 8);
    const auto *validator =
        qobject_cast<const QRegularExpressionValidator *>(edited.editor->validator());
    QVERIFY(validator);
    QVERIFY(validator->regularExpression().pattern().contains(u"^[0-9]{4,8}$"_s));
    QVERIFY(!edited.param->isHidden());
    QCOMPARE(edited.param->value(), u"1234"_s);

    type(edited.editor, u"56789"_s);
    QCOMPARE(edited.param->value(), u"56789"_s);
    QVERIFY(edited.editor->hasAcceptableInput());
    QCOMPARE(edited.told.count(), 5);
    edited.editor->setText(u"1111"_s);
    QCOMPARE(edited.told.count(), 5);
}

void TestParam::passcodeRejects_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<bool>("acceptable");
    QTest::newRow("digits") << u"1234"_s << u"1234"_s << true;
    QTest::newRow("a letter") << u"12a4"_s << u"124"_s << false;
    QTest::newRow("too short") << u"123"_s << u"123"_s << false;
    QTest::newRow("too long") << u"123456789"_s << u"12345678"_s << true;
    QTest::newRow("other digits") << u"12٣4"_s << u"124"_s << false;
}

void TestParam::passcodeRejects()
{
    QFETCH(QString, typed);
    QByteArray current;
    Edited<PPD_CUSTOM_PASSCODE> edited(text(PPD_CUSTOM_PASSCODE, 4, 8, current));
    type(edited.editor, typed);
    QTEST(edited.editor->text(), "kept");
    QTEST(edited.editor->hasAcceptableInput(), "acceptable");
}

void TestParam::password()
{
    QByteArray current;
    Edited<PPD_CUSTOM_PASSWORD> edited(text(PPD_CUSTOM_PASSWORD, 4, 6, current));
    QCOMPARE(edited.editor->echoMode(), QLineEdit::Password);
    QCOMPARE(edited.editor->maxLength(), 6);
    const auto *validator =
        qobject_cast<const QRegularExpressionValidator *>(edited.editor->validator());
    QVERIFY(validator);
    QVERIFY(validator->regularExpression().pattern().contains(u"^\\S{4,6}$"_s));
    type(edited.editor, u"a b"_s);
    QCOMPARE(edited.param->value(), u"ab"_s);
    QVERIFY(!edited.editor->hasAcceptableInput());
    type(edited.editor, u"aß1!"_s);
    QCOMPARE(edited.param->value(), u"aß1!"_s);
    QVERIFY(edited.editor->hasAcceptableInput());
    QVERIFY(!edited.param->isHidden());
}

void TestParam::string()
{
    QByteArray current("fast");
    Edited<PPD_CUSTOM_STRING> edited(text(PPD_CUSTOM_STRING, 2, 8, current));
    QCOMPARE(edited.editor->echoMode(), QLineEdit::Normal);
    QVERIFY(!edited.editor->validator());
    QCOMPARE(edited.param->value(), u"fast"_s);
    type(edited.editor, u"a bc & defgh"_s);
    QCOMPARE(edited.param->value(), u"a bc & d"_s);
    QCOMPARE(edited.told.count(), 8);
    QVERIFY(!edited.param->isHidden());
}

void TestParam::currentTextIsUtf8()
{
    QByteArray current("Größe");
    const Edited<PPD_CUSTOM_STRING> edited(text(PPD_CUSTOM_STRING, 0, 40, current));
    QCOMPARE(edited.param->value(), u"Größe"_s);
    ppd_cparam_t none = param(PPD_CUSTOM_STRING);
    none.maximum.custom_string = 8;
    const Edited<PPD_CUSTOM_STRING> empty(none);
    QCOMPARE(empty.param->value(), QString());
}

void TestParam::lengths_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<QString>("tip");
    QTest::newRow("as usual") << 1 << 4 << 4 << u"1 to 4 digits"_s;
    QTest::newRow("none needed") << 0 << 4 << 4 << u"At most 4 digits"_s;
    QTest::newRow("no limit") << 0 << 0 << 32767 << QString();
    QTest::newRow("turned round") << 4 << 1 << 4 << u"1 to 4 digits"_s;
    QTest::newRow("beyond counting") << 0 << 2147483647 << 32767 << QString();
    QTest::newRow("negative") << -5 << -1 << 32767 << QString();
}

void TestParam::lengths()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QByteArray current;
    Edited<PPD_CUSTOM_PASSCODE> edited(text(PPD_CUSTOM_PASSCODE, minimum, maximum, current));
    QTEST(edited.editor->maxLength(), "maxLength");
    QTEST(edited.editor->toolTip(), "tip");
    type(edited.editor, u"12x"_s);
    QCOMPARE(edited.param->value(), u"12"_s);
    QVERIFY(edited.editor->hasAcceptableInput());
}

void TestParam::numbersThatAreNone()
{
    const float none = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, none, endless, none));
    QCOMPARE(edited.param->value(), u"0.000"_s);
    type(edited.editor, u"12"_s);
    QCOMPARE(edited.param->value(), u"12.000"_s);
}

void TestParam::limitsNextToNothing()
{
    const Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, -0.0001F, 0.0001F, -0.0001F));
    const QString nothing = shown("0.000");
    QCOMPARE(edited.editor->toolTip(), u"From %1 to %1"_s.arg(nothing));
    QCOMPARE(edited.editor->text(), nothing);
    QCOMPARE(edited.param->value(), u"0.000"_s);
}

void TestParam::fieldAcceptsWhatItShows()
{
    Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, 0, 100000, 12345.5F));
    const QString text = edited.editor->text();
    QCOMPARE(text, shown("12345.500"));
    edited.editor->setValue(1);
    type(edited.editor, text);
    QCOMPARE(edited.param->value(), u"12345.500"_s);
}

void TestParam::fieldTakesAPointToo()
{
    Edited<PPD_CUSTOM_POINTS> edited(number(PPD_CUSTOM_POINTS, 0, 100000, 0));
    type(edited.editor, u"210.5"_s);
    QCOMPARE(edited.param->value(), u"210.500"_s);
    type(edited.editor, shown("210.25"));
    QCOMPARE(edited.param->value(), u"210.250"_s);
}

void TestParam::labelAndLayout()
{
    const Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, 0, 1, 0));
    QCOMPARE(edited.param->name(), u"Name"_s);
    const auto *layout = qobject_cast<QHBoxLayout *>(edited.param->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    const auto *label = qobject_cast<QLabel *>(layout->itemAt(0)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), u"Text && more"_s);
    QCOMPARE(layout->itemAt(1)->widget(), edited.editor);
}

void TestParam::textsForAScreenReader()
{
    const Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, 0.5F, 2, 1));
    QCOMPARE(edited.editor->accessibleName(), u"Text & more"_s);
    QCOMPARE(only<QLabel>(*edited.param)->buddy(), edited.editor);
    QCOMPARE(edited.editor->toolTip(), u"From "_s + shown("0.500") + u" to "_s + shown("2.000"));
}

void TestParam::typedInAFieldInsideAWindow()
{
    Edited<PPD_CUSTOM_REAL> edited(number(PPD_CUSTOM_REAL, 0, 10, 1));
    edited.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&edited.view));
    edited.editor->setFocus();
    edited.editor->selectAll();
    QTest::keyClicks(QApplication::focusWidget(), shown("2.5"));
    QCOMPARE(edited.param->value(), u"2.500"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(edited.param->value(), u"3.500"_s);
}

int main(int argc, char **argv)
{
    return runInBothLocales<TestParam>(argc, argv);
}
#include "tst_param.moc"
