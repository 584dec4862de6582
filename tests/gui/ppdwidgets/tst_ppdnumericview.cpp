#include "PPDNumericView.h"

#include "EditorsTestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>

#include <limits>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

namespace
{
constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr int realScale = 1000;

int beeps = 0;

/** A view with its parts at hand. */
struct Numeric {
    explicit Numeric(int scale)
        : edit(child<QLineEdit>(view, "editValue"))
        , slider(child<QSlider>(view, "sliderValue"))
    {
        view.setScale(scale);
    }
    QString limits() const
    {
        return child<QLabel>(view, "labelMin")->text() + u".."_s +
               child<QLabel>(view, "labelMax")->text();
    }

    PPDNumericView view;
    QLineEdit *edit;
    QSlider *slider;
};

double valueOf(const QList<QVariant> &signal)
{
    return signal.first().toDouble();
}
} // namespace

/** Takes the place of the toolkit's function in this program: the platform would beep unheard. */
void QApplication::beep()
{
    ++beeps;
}

/** The entry and the slider of a number. */
class TestPPDNumericView : public QObject
{
    Q_OBJECT
private slots:
    void formAsDesigned();
    void range_data();
    void range();
    void rangeIsSetSilently();
    void setValueMovesTheSlider();
    void setValueReplacesAnotherOptionsText();
    void sliderKeysAreTold();
    void typedNumber_data();
    void typedNumber();
    void typedBeyondTheRange();
    void typedLetters();
    void typedNegativeNumber();
    void unreadableTextDoesNotStay();
    void bothSeparatorsAreAccepted();
    void fieldAcceptsWhatItShows();
    void textsForAScreenReader();
    void tabKeyGoesFromEntryToSlider();
};

void TestPPDNumericView::formAsDesigned()
{
    const PPDNumericView view;
    QCOMPARE(view.objectName(), u"PPDNumericView"_s);
    QCOMPARE(view.windowTitle(), u"PPD Numeric Option"_s);
    QCOMPARE(child<QLabel>(view, "labelTitle")->text(), u"Value:"_s);
    QCOMPARE(child<QSlider>(view, "sliderValue")->orientation(), Qt::Horizontal);
    QCOMPARE(view.scale(), 1);
}

void TestPPDNumericView::range_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("upper");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("limits");
    QTest::newRow("real") << realScale << 0.5 << 2.0 << 500 << 2000 << 75
                          << shown("0.500") + u".."_s + shown("2.000");
    QTest::newRow("integer") << 1 << -5.0 << 100.0 << -5 << 100 << 5 << u"-5..100"_s;
    QTest::newRow("truncated") << 1 << -1.9 << 41.9 << -1 << 41 << 2 << u"-1..41"_s;
    QTest::newRow("page of two") << 1 << 0.0 << 40.0 << 0 << 40 << 2 << u"0..40"_s;
    QTest::newRow("page of one") << 1 << 0.0 << 39.0 << 0 << 39 << 1 << u"0..39"_s;
    QTest::newRow("nothing to choose") << 1 << 7.0 << 7.0 << 7 << 7 << 1 << u"7..7"_s;
    QTest::newRow("turned round") << 1 << 10.0 << 0.0 << 0 << 10 << 1 << u"0..10"_s;
    QTest::newRow("huge") << realScale << -1e9 << 1e9 << intMin << intMax << 214748364
                          << shown("-1000000000.000") + u".."_s + shown("1000000000.000");
    QTest::newRow("next to nothing") << realScale << -0.0001 << 0.0004 << 0 << 0 << 1
                                     << shown("0.000") + u".."_s + shown("0.000");
    QTest::newRow("below nothing")
        << realScale << -0.001 << 0.0 << -1 << 0 << 1 << shown("-0.001") + u".."_s + shown("0.000");
    QTest::newRow("a fraction below nothing") << 1 << -0.9 << 5.0 << 0 << 5 << 1 << u"0..5"_s;
    QTest::newRow("no number") << 1 << noNumber << 5.0 << 0 << 5 << 1 << u"0..5"_s;
}

void TestPPDNumericView::range()
{
    QFETCH(int, scale);
    QFETCH(double, min);
    QFETCH(double, max);
    Numeric numeric(scale);
    numeric.view.setRange(min, max);
    QTEST(numeric.slider->minimum(), "lower");
    QTEST(numeric.slider->maximum(), "upper");
    QTEST(numeric.slider->pageStep(), "page");
    QCOMPARE(numeric.slider->singleStep(), 1);
    QTEST(numeric.limits(), "limits");
}

void TestPPDNumericView::rangeIsSetSilently()
{
    Numeric numeric(1);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    numeric.view.setRange(10, 20);
    QCOMPARE(numeric.slider->value(), 10);
    QCOMPARE(told.count(), 0);
}

void TestPPDNumericView::setValueMovesTheSlider()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    numeric.view.setValue(1.2519);
    QCOMPARE(numeric.slider->value(), 1251);
    QCOMPARE(numeric.edit->text(), shown("1.251"));
    QCOMPARE(valueOf(told.takeFirst()), 1.251);
    numeric.view.setValue(noNumber);
    QCOMPARE(numeric.slider->value(), 500);
    numeric.view.setValue(1e300);
    QCOMPARE(numeric.slider->value(), 2000);
    QCOMPARE(numeric.edit->text(), shown("2.000"));
}

void TestPPDNumericView::setValueReplacesAnotherOptionsText()
{
    Numeric numeric(1);
    numeric.view.setRange(0, 10);
    numeric.view.setValue(0);
    QCOMPARE(numeric.edit->text(), u"0"_s);
    type(numeric.edit, u"5x"_s);
    numeric.view.setScale(realScale);
    numeric.view.setRange(0, 0.010);
    numeric.view.setValue(0.005);
    QCOMPARE(numeric.slider->value(), 5);
    QCOMPARE(numeric.edit->text(), shown("0.005"));
}

void TestPPDNumericView::sliderKeysAreTold()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    numeric.view.setValue(1);
    QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    QTest::keyClick(numeric.slider, Qt::Key_Right);
    QCOMPARE(valueOf(told.takeFirst()), 1.001);
    QCOMPARE(numeric.edit->text(), shown("1.001"));
    QTest::keyClick(numeric.slider, Qt::Key_PageUp);
    QCOMPARE(valueOf(told.takeFirst()), 1.076);
    QTest::keyClick(numeric.slider, Qt::Key_End);
    QCOMPARE(numeric.edit->text(), shown("2.000"));
    QCOMPARE(told.count(), 1);
}

void TestPPDNumericView::typedNumber_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("position");
    QTest::newRow("real") << realScale << shown("1.25") << 1.25 << 1250;
    QTest::newRow("real, cut off") << realScale << shown("1.0019") << 1.0019 << 1001;
    QTest::newRow("integer") << 1 << u"2"_s << 2.0 << 2;
}

void TestPPDNumericView::typedNumber()
{
    QFETCH(int, scale);
    QFETCH(QString, text);
    Numeric numeric(scale);
    numeric.view.setRange(0.5, 2.0);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    type(numeric.edit, text);
    QTEST(numeric.slider->value(), "position");
    QTEST(valueOf(told.last()), "value");
    QCOMPARE(numeric.edit->text(), text);
}

void TestPPDNumericView::typedBeyondTheRange()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    type(numeric.edit, u"7"_s);
    QCOMPARE(numeric.slider->value(), 2000);
    QCOMPARE(valueOf(told.last()), 7.0);
    QCOMPARE(numeric.edit->text(), u"7"_s);
}

void TestPPDNumericView::typedLetters()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    numeric.view.setValue(1.25);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    beeps = 0;
    type(numeric.edit, u"x"_s);
    QCOMPARE(beeps, 1);
    QCOMPARE(numeric.edit->text(), u"x"_s);
    QCOMPARE(numeric.edit->selectedText(), u"x"_s);
    QCOMPARE(numeric.slider->value(), 1250);
    QCOMPARE(told.count(), 0);
}

void TestPPDNumericView::typedNegativeNumber()
{
    Numeric numeric(realScale);
    numeric.view.setRange(-10, 10);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    beeps = 0;
    type(numeric.edit, u"-"_s);
    QCOMPARE(beeps, 0);
    QCOMPARE(numeric.edit->selectedText(), QString());
    QCOMPARE(told.count(), 0);
    QTest::keyClicks(numeric.edit, shown(".5"));
    QCOMPARE(numeric.slider->value(), -500);
    QCOMPARE(valueOf(told.last()), -0.5);
}

void TestPPDNumericView::unreadableTextDoesNotStay()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    numeric.view.setValue(1.25);
    type(numeric.edit, u"x"_s);
    const QSignalSpy told(&numeric.view, &PPDNumericView::valueChanged);
    QTest::keyClick(numeric.edit, Qt::Key_Return);
    QCOMPARE(numeric.edit->text(), shown("1.250"));
    QCOMPARE(told.count(), 0);
}

void TestPPDNumericView::bothSeparatorsAreAccepted()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    type(numeric.edit, u"1.5"_s);
    QCOMPARE(numeric.slider->value(), 1500);
    type(numeric.edit, shown("1.75"));
    QCOMPARE(numeric.slider->value(), 1750);
}

void TestPPDNumericView::fieldAcceptsWhatItShows()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0, 100000);
    numeric.view.setValue(12345.678);
    const QString text = numeric.edit->text();
    QCOMPARE(text, shown("12345.678"));
    numeric.view.setValue(1);
    type(numeric.edit, text);
    QCOMPARE(numeric.slider->value(), 12345678);
}

void TestPPDNumericView::textsForAScreenReader()
{
    Numeric numeric(realScale);
    numeric.view.setRange(0.5, 2.0);
    QCOMPARE(child<QLabel>(numeric.view, "labelTitle")->buddy(), numeric.edit);
    QCOMPARE(numeric.slider->accessibleName(), u"Value"_s);
    const QString range = u"From "_s + shown("0.500") + u" to "_s + shown("2.000");
    QCOMPARE(numeric.edit->toolTip(), range);
    QCOMPARE(numeric.slider->toolTip(), range);
}

void TestPPDNumericView::tabKeyGoesFromEntryToSlider()
{
    Numeric numeric(realScale);
    numeric.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&numeric.view));
    numeric.edit->setFocus();
    QTest::keyClick(numeric.edit, Qt::Key_Tab);
    QVERIFY(numeric.slider->hasFocus());
}

int main(int argc, char **argv)
{
    return runInBothLocales<TestPPDNumericView>(argc, argv);
}
#include "tst_ppdnumericview.moc"
