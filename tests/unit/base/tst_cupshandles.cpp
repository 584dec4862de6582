#include "CupsHandles.h"

#include <QTest>

#include <utility>

/** The owners of what the library hands out. Leaks and double frees are for the sanitizers to see.
 */
class tst_CupsHandles : public QObject
{
    Q_OBJECT

private slots:
    void optionsAreAddedAndReplaced();
    void optionsAreParsed();
    void optionsAreCleared();
    void optionsAreMoved();
    void destinationsAreAddedAndFound();
    void destinationsAreMoved();
    void destinationsOfTheLibraryAreOwned();
    void messagesAreOwned();
    void ppdIsShared();
    void ppdOfNull();
};

void tst_CupsHandles::optionsAreAddedAndReplaced()
{
    Cups::OptionArray options;
    QCOMPARE(options.count(), 0);
    QVERIFY(options.begin() == options.end());
    QVERIFY(!options.value("a"));
    QCOMPARE(options.add("b", "2"), 1);
    QCOMPARE(options.add("a", ""), 2);
    QCOMPARE(options.add("b", "3"), 2);
    QCOMPARE(options.value("a"), "");
    QCOMPARE(options.value("b"), "3");
    QByteArray names;
    for (const cups_option_t &option : options)
        names += option.name;
    QCOMPARE(names, QByteArray("ab"));
}

void tst_CupsHandles::optionsAreParsed()
{
    Cups::OptionArray options;
    options.add("a", "0");
    QCOMPARE(options.parse("a=1 b='x y' c"), 3);
    QCOMPARE(options.value("a"), "1");
    QCOMPARE(options.value("b"), "x y");
    QCOMPARE(options.value("c"), "true");
    QCOMPARE(options.parse(""), 3);
    QCOMPARE(options.count(), 3);
}

void tst_CupsHandles::optionsAreCleared()
{
    Cups::OptionArray options;
    options.add("a", "1");
    options.clear();
    options.clear();
    QCOMPARE(options.count(), 0);
    QVERIFY(!options.data());
    QCOMPARE(options.add("b", "2"), 1);
}

void tst_CupsHandles::optionsAreMoved()
{
    Cups::OptionArray source;
    source.add("a", "1");
    Cups::OptionArray target(std::move(source));
    QCOMPARE(target.value("a"), "1");
    Cups::OptionArray other;
    other.add("b", "2");
    other = std::move(target);
    QCOMPARE(other.count(), 1);
    QCOMPARE(other.value("a"), "1");
}

void tst_CupsHandles::destinationsAreAddedAndFound()
{
    Cups::DestinationArray destinations;
    QVERIFY(!destinations.find("a", nullptr));
    destinations.add("b", nullptr);
    destinations.add("b", nullptr);
    QCOMPARE(destinations.count(), 1);
    // With an instance comes its queue.
    destinations.add("a", "draft");
    QCOMPARE(destinations.count(), 3);
    QVERIFY(destinations.find("a", nullptr));
    QVERIFY(destinations.find("a", "draft"));
    QVERIFY(!destinations.find("a", "other"));
    QVERIFY(!destinations.find("c", nullptr));
    QByteArray names;
    for (const cups_dest_t &destination : destinations)
        names += destination.name;
    QCOMPARE(names, QByteArray("aab"));
}

void tst_CupsHandles::destinationsAreMoved()
{
    Cups::DestinationArray source;
    source.add("a", nullptr);
    Cups::DestinationArray target(std::move(source));
    QVERIFY(target.find("a", nullptr));
    Cups::DestinationArray other;
    other.add("b", nullptr);
    other = std::move(target);
    QCOMPARE(other.count(), 1);
    QVERIFY(other.find("a", nullptr));
}

void tst_CupsHandles::destinationsOfTheLibraryAreOwned()
{
    Cups::DestinationArray destinations;
    destinations.countRef() = cupsAddDest("a", nullptr, 0, destinations.dataRef());
    cups_dest_t *destination = destinations.find("a", nullptr);
    QVERIFY(destination);
    destination->num_options =
        cupsAddOption("x", "1", destination->num_options, &destination->options);
    QCOMPARE(destinations.count(), 1);
    QCOMPARE(cupsGetOption("x", destinations.data()->num_options, destinations.data()->options),
             "1");
}

void tst_CupsHandles::messagesAreOwned()
{
    Cups::IppPtr message(ippNewRequest(IPP_OP_GET_JOBS));
    QVERIFY(message);
    message.reset(ippNew());
    QCOMPARE(ippGetState(message.get()), IPP_STATE_IDLE);
}

void tst_CupsHandles::ppdIsShared()
{
    FILE *file = tmpfile();
    QVERIFY(file);
    fputs("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*NickName: \"Sample\"\n", file);
    rewind(file);
    Cups::PpdPtr first = Cups::sharePpd(ppdOpen(file));
    fclose(file);
    QVERIFY(first);
    Cups::PpdPtr second = first;
    first.reset();
    QCOMPARE(second->nickname, "Sample");
    QCOMPARE(second.use_count(), 1L);
}

void tst_CupsHandles::ppdOfNull()
{
    const Cups::PpdPtr none = Cups::sharePpd(nullptr);
    QVERIFY(!none);
}

QTEST_GUILESS_MAIN(tst_CupsHandles)
#include "tst_cupshandles.moc"
