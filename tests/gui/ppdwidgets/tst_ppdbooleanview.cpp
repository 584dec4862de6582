#include "PPDBooleanView.h"

#include "EditorsTestSupport.h"

#include <QRadioButton>
#include <QSignalSpy>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

/** The two radio buttons of a boolean option. */
class TestPPDBooleanView : public QObject
{
    Q_OBJECT
private slots:
    void formAsDesigned();
    void textsAreShownAsTheyAre();
    void checkedById();
    void clicksAreToldById();
    void keysAreToldById();
};

void TestPPDBooleanView::formAsDesigned()
{
    const PPDBooleanView view;
    QCOMPARE(view.objectName(), u"PPDBooleanView"_s);
    QCOMPARE(view.windowTitle(), u"PPD Boolean Option"_s);
    QCOMPARE(child<QRadioButton>(view, "button1")->text(), u"Choice1 text"_s);
    QCOMPARE(child<QRadioButton>(view, "button2")->text(), u"Choice2 text"_s);
}

void TestPPDBooleanView::textsAreShownAsTheyAre()
{
    PPDBooleanView view;
    view.setChoiceText(0, u"Off"_s);
    view.setChoiceText(1, u"R&D"_s);
    view.setChoiceText(2, u"nowhere"_s);
    view.setChoiceText(-1, u"nowhere"_s);
    QCOMPARE(child<QRadioButton>(view, "button1")->text(), u"Off"_s);
    QCOMPARE(child<QRadioButton>(view, "button2")->text(), u"R&&D"_s);
    QVERIFY(child<QRadioButton>(view, "button2")->shortcut().isEmpty());
}

void TestPPDBooleanView::checkedById()
{
    PPDBooleanView view;
    const QSignalSpy told(&view, &PPDBooleanView::valueChanged);
    view.setChecked(1);
    QVERIFY(child<QRadioButton>(view, "button2")->isChecked());
    view.setChecked(0);
    QVERIFY(child<QRadioButton>(view, "button1")->isChecked());
    QVERIFY(!child<QRadioButton>(view, "button2")->isChecked());
    view.setChecked(2);
    view.setChecked(-1);
    QVERIFY(child<QRadioButton>(view, "button1")->isChecked());
    QCOMPARE(told.count(), 0);
}

void TestPPDBooleanView::clicksAreToldById()
{
    PPDBooleanView view;
    view.setChecked(1);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy told(&view, &PPDBooleanView::valueChanged);
    QTest::mouseClick(child<QRadioButton>(view, "button1"), Qt::LeftButton, {}, {10, 10});
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.takeFirst(), QVariantList{0});
    QTest::mouseClick(child<QRadioButton>(view, "button2"), Qt::LeftButton, {}, {10, 10});
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.takeFirst(), QVariantList{1});
}

void TestPPDBooleanView::keysAreToldById()
{
    PPDBooleanView view;
    view.setChecked(0);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    auto *first = child<QRadioButton>(view, "button1");
    first->setFocus();
    const QSignalSpy told(&view, &PPDBooleanView::valueChanged);
    QTest::keyClick(first, Qt::Key_Down);
    QVERIFY(child<QRadioButton>(view, "button2")->isChecked());
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first(), QVariantList{1});
}

QTEST_MAIN(TestPPDBooleanView)
#include "tst_ppdbooleanview.moc"
