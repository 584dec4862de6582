#include "DestinationList.h"

#include <QTest>

using namespace Qt::StringLiterals;

#include <chrono>

using namespace DestinationList;
using Destinations::Entry;

class TestDestinationList : public QObject
{
    Q_OBJECT
private slots:
    void entryText_data();
    void entryText();
    void listsOnceWhenThereAreDestinations();
    void asksAgainUntilThereAreDestinations();
    void givesUpAfterTwentyTries();
    void givesUpWhenPatienceIsOver();
    void additions_data();
    void additions();
    void additionsKeepTheShownOrder();
    void additionsOfALongList();
};

namespace
{
/** "name" or "name/instance". */
Entry entry(const QString &text)
{
    return {text.section(u'/', 0, 0), text.section(u'/', 1), false};
}

Entries entries(const QStringList &texts)
{
    Entries list;
    for (const QString &text : texts)
        list.append(entry(text));
    return list;
}

QStringList joined(const QStringList &shown, const QStringList &all)
{
    Entries list = entries(shown);
    const QList<Addition> toAdd = DestinationList::additions(list, entries(all));
    for (const Addition &addition : toAdd)
        list.insert(addition.index, addition.entry);
    QStringList texts;
    for (const Entry &each : std::as_const(list))
        texts.append(each.instance.isEmpty() ? each.name : each.name + u'/' + each.instance);
    return texts;
}

/** A server that gives destinations at the try with that number. */
struct Server {
    explicit Server(int answers)
        : answersAt(answers)
    {
    }
    Entries ask(QDeadlineTimer patience = QDeadlineTimer(QDeadlineTimer::Forever))
    {
        return listPatiently(
            [this] { return ++tries == answersAt ? entries({u"Laser"_s}) : Entries(); },
            [this] { ++pauses; }, patience);
    }

    int answersAt;
    int tries = 0;
    int pauses = 0;
};
} // namespace

void TestDestinationList::entryText_data()
{
    const QString bytes47 = QString(47, u'i');
    const QString umlaut = QStringLiteral("\u00e4"); // two bytes
    QTest::addColumn<QString>("instance");
    QTest::addColumn<QString>("text");
    QTest::newRow("no instance") << ""
                                 << "Laser";
    QTest::newRow("short instance") << "draft"
                                    << "Laser";
    QTest::newRow("47 bytes") << bytes47 << "Laser";
    QTest::newRow("48 bytes") << bytes47 + u'x' << "Laserx";
    QTest::newRow("long") << bytes47 + QStringLiteral("draft") << "Laserdraft";
    QTest::newRow("counted in bytes") << QString(45, u'i') + umlaut + u'x' << "Laserx";
}

void TestDestinationList::entryText()
{
    QFETCH(QString, instance);
    QTEST(DestinationList::entryText({QStringLiteral("Laser"), instance, false}), "text");
}

void TestDestinationList::listsOnceWhenThereAreDestinations()
{
    Server server(1);
    QCOMPARE(server.ask(), entries({u"Laser"_s}));
    QCOMPARE(server.tries, 1);
    QCOMPARE(server.pauses, 0);
}

void TestDestinationList::asksAgainUntilThereAreDestinations()
{
    Server server(20);
    QCOMPARE(server.ask(), entries({u"Laser"_s}));
    QCOMPARE(server.tries, 20);
    QCOMPARE(server.pauses, 19);
}

void TestDestinationList::givesUpAfterTwentyTries()
{
    Server server(21);
    QCOMPARE(server.ask(), Entries());
    QCOMPARE(server.tries, 20);
    QCOMPARE(server.pauses, 20);
}

void TestDestinationList::givesUpWhenPatienceIsOver()
{
    Server server(2);
    QCOMPARE(server.ask(QDeadlineTimer(std::chrono::seconds(0))), Entries());
    QCOMPARE(server.tries, 1);
    QCOMPARE(server.pauses, 1);
}

void TestDestinationList::additions_data()
{
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("all");
    QTest::addColumn<QStringList>("expected");
    using L = QStringList;
    QTest::newRow("nothing new") << L{u"A"_s, u"B"_s} << L{u"A"_s, u"B"_s} << L{u"A"_s, u"B"_s};
    QTest::newRow("nothing at all") << L{} << L{} << L{};
    QTest::newRow("nothing found") << L{u"A"_s} << L{} << L{u"A"_s};
    QTest::newRow("all new") << L{} << L{u"A"_s, u"B"_s} << L{u"A"_s, u"B"_s};
    QTest::newRow("front") << L{u"M"_s} << L{u"A"_s, u"B"_s, u"M"_s} << L{u"A"_s, u"B"_s, u"M"_s};
    QTest::newRow("end") << L{u"M"_s} << L{u"M"_s, u"X"_s, u"Y"_s} << L{u"M"_s, u"X"_s, u"Y"_s};
    QTest::newRow("everywhere") << L{u"B"_s, u"D"_s} << L{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s}
                                << L{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s};
    QTest::newRow("instance") << L{u"A"_s, u"B"_s} << L{u"A"_s, u"A/draft"_s, u"B"_s}
                              << L{u"A"_s, u"A/draft"_s, u"B"_s};
    QTest::newRow("queue of a shown instance")
        << L{u"A/draft"_s} << L{u"A"_s, u"A/draft"_s} << L{u"A"_s, u"A/draft"_s};
    QTest::newRow("vanished ones stay")
        << L{u"A"_s, u"M"_s, u"Z"_s} << L{u"B"_s, u"Z"_s} << L{u"B"_s, u"A"_s, u"M"_s, u"Z"_s};
    QTest::newRow("case matters") << L{u"a"_s} << L{u"A"_s, u"a"_s} << L{u"A"_s, u"a"_s};
}

void TestDestinationList::additions()
{
    QFETCH(QStringList, shown);
    QFETCH(QStringList, all);
    QTEST(joined(shown, all), "expected");
}

void TestDestinationList::additionsKeepTheShownOrder()
{
    QCOMPARE(joined({u"C"_s, u"A"_s}, {u"A"_s, u"B"_s, u"C"_s, u"D"_s}),
             QStringList({u"C"_s, u"D"_s, u"A"_s, u"B"_s}));
}

void TestDestinationList::additionsOfALongList()
{
    QStringList shown;
    QStringList all;
    for (int i = 0; i < 20000; ++i) {
        all.append(QStringLiteral("%1").arg(i, 5, 10, QLatin1Char('0')));
        if (i % 2)
            shown.append(all.last());
    }
    QCOMPARE(joined(shown, all), all);
}

QTEST_APPLESS_MAIN(TestDestinationList)
#include "tst_destinationlist.moc"
