#include "MultiUnitSpinBox.h"
#include "SpinBoxPair.h"

#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class TestSpinBoxPair : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void setsOneValue_data();
    void setsOneValue();
    void setsTheTotal_data();
    void setsTheTotal();
    void userIsHeldByTheOther();
    void typedTextStays();
    void forwardsChanges();
    void enablesBoth();

private:
    void start(int first, int second, int total);
    QList<int> values() const { return {m_first->value(), m_second->value()}; }
    QList<int> maxima() const { return {m_first->maximum(), m_second->maximum()}; }

    std::unique_ptr<QSpinBox> m_first;
    std::unique_ptr<QSpinBox> m_second;
    std::unique_ptr<SpinBoxPair> m_pair;
};

void TestSpinBoxPair::init()
{
    m_pair.reset();
    m_first = std::make_unique<QSpinBox>();
    m_second = std::make_unique<QSpinBox>();
    m_pair = std::make_unique<SpinBoxPair>(m_first.get(), m_second.get());
}

void TestSpinBoxPair::start(int first, int second, int total)
{
    m_pair->setTotal(total);
    m_pair->setValue2(second);
    m_pair->setValue1(first);
}

void TestSpinBoxPair::setsOneValue_data()
{
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<int>("value");
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<QList<int>>("maxima");

    using L = QList<int>;
    QTest::newRow("first") << true << 30 << L{30, 20} << L{80, 70};
    QTest::newRow("second") << false << 30 << L{10, 30} << L{70, 90};
    QTest::newRow("first, all that is left") << true << 80 << L{80, 20} << L{80, 20};
    QTest::newRow("first takes from second") << true << 95 << L{95, 5} << L{95, 5};
    QTest::newRow("second takes from first") << false << 95 << L{5, 95} << L{5, 95};
    QTest::newRow("first takes all") << true << 100 << L{100, 0} << L{100, 0};
    QTest::newRow("more than all") << true << 101 << L{100, 0} << L{100, 0};
    QTest::newRow("nothing") << false << 0 << L{10, 0} << L{100, 90};
    QTest::newRow("below nothing") << false << -5 << L{10, 0} << L{100, 90};
}

void TestSpinBoxPair::setsOneValue()
{
    QFETCH(bool, isFirst);
    QFETCH(int, value);
    start(10, 20, 100);
    isFirst ? m_pair->setValue1(value) : m_pair->setValue2(value);
    QTEST(values(), "values");
    QTEST(maxima(), "maxima");
}

void TestSpinBoxPair::setsTheTotal_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<QList<int>>("maxima");

    using L = QList<int>;
    QTest::newRow("larger") << 757 << L{40, 50} << L{707, 717};
    QTest::newRow("smaller") << 95 << L{40, 50} << L{45, 55};
    QTest::newRow("just enough") << 90 << L{40, 50} << L{40, 50};
    QTest::newRow("second gives way") << 70 << L{40, 30} << L{40, 30};
    QTest::newRow("only the first has room") << 40 << L{40, 0} << L{40, 0};
}

void TestSpinBoxPair::setsTheTotal()
{
    QFETCH(int, total);
    start(40, 50, 200);
    m_pair->setTotal(total);
    QCOMPARE(m_pair->total(), total);
    QTEST(values(), "values");
    QTEST(maxima(), "maxima");
}

void TestSpinBoxPair::userIsHeldByTheOther()
{
    start(10, 20, 30);
    QTest::keyClick(m_first.get(), Qt::Key_Up);
    QCOMPARE(values(), (QList<int>{10, 20}));
    QTest::keyClick(m_second.get(), Qt::Key_Down);
    QCOMPARE(maxima(), (QList<int>{11, 20}));
    QTest::keyClick(m_first.get(), Qt::Key_Up);
    QTest::keyClick(m_first.get(), Qt::Key_Up);
    QCOMPARE(values(), (QList<int>{11, 19}));
    QCOMPARE(maxima(), (QList<int>{11, 19}));
}

void TestSpinBoxPair::typedTextStays()
{
    MultiUnitSpinBox first;
    first.setRange(13, 500);
    first.setConversion(720, 254, 1);
    QSpinBox second;
    second.setRange(13, 500);
    SpinBoxPair pair(&first, &second);
    pair.setTotal(535);
    first.selectAll();
    QTest::keyClicks(&first, QStringLiteral("25.4"));
    QCOMPARE(first.text(), QStringLiteral("25.4"));
    QCOMPARE(first.value(), 72);
}

void TestSpinBoxPair::forwardsChanges()
{
    start(10, 20, 100);
    const QSignalSpy first(m_pair.get(), &SpinBoxPair::value1Changed);
    const QSignalSpy second(m_pair.get(), &SpinBoxPair::value2Changed);
    m_pair->setValue1(10);
    QCOMPARE(first.size() + second.size(), 0);
    m_second->setValue(25);
    QCOMPARE(first.size(), 0);
    QCOMPARE(second, (QList<QVariantList>{{25}}));
    m_pair->setValue1(90);
    QCOMPARE(first, (QList<QVariantList>{{90}}));
    QCOMPARE(second, (QList<QVariantList>{{25}, {10}}));
}

void TestSpinBoxPair::enablesBoth()
{
    m_pair->setEnabled(false);
    QVERIFY(!m_first->isEnabled() && !m_second->isEnabled());
    m_pair->setEnabled(true);
    QVERIFY(m_first->isEnabled() && m_second->isEnabled());
}

QTEST_MAIN(TestSpinBoxPair)
#include "tst_spinboxpair.moc"
