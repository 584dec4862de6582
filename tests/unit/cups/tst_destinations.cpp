#include "Destinations.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "SavedDestinationRows.h"
#include "SavedOptionsFiles.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <array>

using Destinations::Entry;
using Destinations::SavedEntry;

using namespace SavedOptionsFiles;

namespace
{
QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QString described(const SavedEntry &entry)
{
    return QStringLiteral("%1<%2><%3><%4>")
        .arg(entry.isDefault ? QStringLiteral("*") : QString(), QString::fromLatin1(entry.name),
             QString::fromLatin1(entry.instance), QString::fromLatin1(entry.options));
}

QString described(const QList<Entry> &entries)
{
    QStringList texts;
    for (const Entry &entry : entries)
        texts.append((entry.isDefault ? QStringLiteral("*") : QString()) + entry.name +
                     (entry.instance.isEmpty() ? QString() : QString(u'/' + entry.instance)));
    return texts.join(u' ');
}

QString described(const Cups::DestinationArray &destinations)
{
    QStringList texts;
    for (const cups_dest_t &destination : destinations) {
        QString text = destination.is_default ? QStringLiteral("*") : QString();
        text += QString::fromLatin1(destination.name);
        if (destination.instance)
            text += u'/' + QString::fromLatin1(destination.instance);
        for (int i = 0; i < destination.num_options; ++i)
            text += QStringLiteral(" %1=%2").arg(QString::fromLatin1(destination.options[i].name),
                                                 QString::fromLatin1(destination.options[i].value));
        texts.append(text);
    }
    return texts.join(u'|');
}

/** A queue as a server tells of it. The library leaks one byte for a queue without options. */
IppBytes &addQueue(IppBytes &bytes, const QByteArray &name)
{
    return bytes.group(4).name("printer-name", name).text("printer-info", "a queue");
}

/** A server with the queues Laser, office and Photo; Laser is its default. */
FakeIppServer::Answer answerOfSampleServer(const FakeIppServer::Request &request)
{
    IppBytes bytes = IppBytes::response();
    if (request.operation() == 0x4002)
        addQueue(addQueue(addQueue(bytes, "Photo"), "office"), "Laser");
    else
        addQueue(bytes, "Laser");
    return FakeIppServer::ok(bytes);
}
} // namespace

class TestDestinations : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void parseSavedOptions_data();
    void parseSavedOptions();
    void parsesAllLines();
    void environmentDefault_data();
    void environmentDefault();
    void list_data();
    void list();
    void listOfHostileNames();
    void listWithoutServer();
    void namedWithoutServer();
    void saved_data();
    void saved();
    void savedIgnoresTheSystemsFile();
    void writeSavedKeepsTheOthers();
    void writeSavedKeepsSignsOfTheOthers();
    void writeSavedWithoutServer();
    void discoveryReportsOnce();
    void discoveryMarksTheDefault();
    void discoveryMayEndEarly();
    void processMayEndDuringDiscovery();

private:
    /** Waits for a request; no event is processed meanwhile. */
    bool hasRequestWithoutEvents()
    {
        const QDeadlineTimer deadline(5000);
        while (m_server->requestCount() == 0 && !deadline.hasExpired())
            QThread::yieldCurrentThread();
        return m_server->requestCount() > 0;
    }

    std::unique_ptr<FakeIppServer> m_server;
};

void TestDestinations::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    m_server->setHandler(answerOfSampleServer);
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
    writeFile(userFile(), {});
    writeFile(systemFile(), {});
}

void TestDestinations::cleanup()
{
    m_server.reset();
}

void TestDestinations::parseSavedOptions_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("entry");
    const auto row = [](const char *line, const char *entry) {
        QTest::addRow("%s", line) << QByteArray(line) << QString::fromLatin1(entry);
    };
    row("Dest Laser Duplex=None sides=one-sided", "<Laser><><Duplex=None sides=one-sided>");
    row("Dest Laser/draft quality=3", "<Laser><draft><quality=3>");
    row("Default Laser a=1", "*<Laser><><a=1>");
    row("Default Laser/draft a=1", "*<Laser><draft><a=1>");
    row("dEST Laser a=1", "<Laser><><a=1>");
    row("DEFAULT Laser", "*<Laser><><>");
    row("Dest Laser", "<Laser><><>");
    row(" \t Dest\t Laser/draft \t a=1  b=2 \r", "<Laser><draft><a=1  b=2>");
    row("Dest Laser a='b c' d=\"e f\"", "<Laser><><a='b c' d=\"e f\">");
    row("Dest Laser a=1 # more", "<Laser><><a=1>");
    row("Dest Laser a=\\#1 b=#2", "<Laser><><a=#1 b=#2>");
    row("Dest Laser/ a=1", "<Laser><><a=1>");
    row("Dest Laser/a/b c=1", "<Laser><a/b><c=1>");
    row("Dest L\xe4ser a=1", "<L\xe4ser><><a=1>");
    row("", "");
    row("   ", "");
    row("#Dest Laser a=1", "");
    row("# a comment", "");
    row("Dest", "");
    row("Dest   ", "");
    row("Default #x", "");
    row("Destination Laser a=1", "");
    row("Laser a=1", "");
    row("Dest#Laser", "");
}

void TestDestinations::parseSavedOptions()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, entry);
    for (const QByteArray &end : {QByteArray(), QByteArray("\n")}) {
        const QList<SavedEntry> entries = Destinations::parseSavedOptions(line + end);
        QCOMPARE(entries.size(), entry.isEmpty() ? 0 : 1);
        if (!entries.isEmpty())
            QCOMPARE(described(entries.constFirst()), entry);
    }
}

void TestDestinations::parsesAllLines()
{
    const QList<SavedEntry> entries = Destinations::parseSavedOptions(
        "# saved\nDest B a=1\n\nOther x\nDefault A b=2\nDest B c=3\nDest C/i " +
        QByteArray(20000, 'x'));
    QCOMPARE(entries.size(), 4);
    QCOMPARE(described(entries.at(0)), QStringLiteral("<B><><a=1>"));
    QCOMPARE(described(entries.at(1)), QStringLiteral("*<A><><b=2>"));
    QCOMPARE(described(entries.at(2)), QStringLiteral("<B><><c=3>"));
    QCOMPARE(entries.at(3).options.size(), 20000);
}

void TestDestinations::environmentDefault_data()
{
    QTest::addColumn<QByteArray>("lpdest");
    QTest::addColumn<QByteArray>("printer");
    QTest::addColumn<QByteArray>("name");
    const QByteArray unset;
    const auto row = [](const char *title, const QByteArray &lpdest, const QByteArray &printer,
                        const QByteArray &name) {
        QTest::addRow("%s", title) << lpdest << printer << name;
    };
    row("none", unset, unset, unset);
    row("PRINTER", unset, "Laser/draft", "Laser/draft");
    row("PRINTER lp", unset, "lp", unset);
    row("LPDEST", "Laser", unset, "Laser");
    row("LPDEST lp", "lp", unset, "lp");
    row("both", "Laser", "Photo", "Laser");
    row("LPDEST empty", "", "Photo", "");
}

void TestDestinations::environmentDefault()
{
    QFETCH(QByteArray, lpdest);
    QFETCH(QByteArray, printer);
    QFETCH(QByteArray, name);
    if (!lpdest.isNull())
        qputenv("LPDEST", lpdest);
    if (!printer.isNull())
        qputenv("PRINTER", printer);
    QCOMPARE(Destinations::environmentDefault(), name);
    // The library has the same.
    m_server->setHandler(
        [](const auto &) { return FakeIppServer::ok(IppBytes::response(0x0406)); });
    const Cups::HttpPtr none;
    QCOMPARE(QByteArray(cupsGetDefault2(CUPS_HTTP_DEFAULT)), name);
}

void TestDestinations::list_data()
{
    SavedDestinationRows::add(std::to_array<SavedDestinationRows::Row>({
        {"the server's alone", "", "", nullptr, "*Laser office Photo"},
        {"options of queues", "Dest Laser a=1\n", "Dest Photo b=1\n", nullptr,
         "*Laser office Photo"},
        {"instances", "Dest Laser/draft a=1\n", "Dest Photo/x b=1\nDest Laser/Best c=1\n", nullptr,
         "*Laser Laser/Best Laser/draft office Photo Photo/x"},
        {"instances of nobody", "Dest Gone/draft a=1\n", "Dest Other/x b=1\n", nullptr,
         "*Laser office Photo"},
        {"instance twice", "Dest Laser/draft a=1\n", "Dest Laser/draft b=1\n", nullptr,
         "*Laser Laser/draft office Photo"},
        {"user's default", "", "Default Photo a=1\n", nullptr, "Laser office *Photo"},
        {"system's default", "Default Photo a=1\n", "", nullptr, "Laser office *Photo"},
        {"user's before system's", "Default Photo a=1\n", "Default office\n", nullptr,
         "Laser *office Photo"},
        {"last default", "", "Default Photo a=1\nDefault office\n", nullptr, "Laser *office Photo"},
        {"default instance", "", "Default Photo/x a=1\n", nullptr, "Laser office Photo *Photo/x"},
        {"unknown default", "", "Default Gone a=1\n", nullptr, "Laser office Photo"},
        {"names in another case", "", "Dest laser/two a=1\nDefault PHOTO a=1\n", nullptr,
         "Laser Laser/two office *Photo"},
        {"environment", "", "Default Photo a=1\n", "office", "Laser *office Photo"},
        {"environment's instance", "", "Dest Photo/x a=1\n", "Photo/x",
         "Laser office Photo *Photo/x"},
        {"environment's unknown", "", "Default Photo a=1\n", "Gone", "Laser office Photo"},
        {"environment's unknown instance", "", "", "Laser/gone", "Laser office Photo"},
        {"environment's other case", "", "", "OFFICE", "Laser *office Photo"},
    }));
}

void TestDestinations::list()
{
    SavedDestinationRows::apply();
    QTEST(described(Destinations::listWithoutDiscovery()), "expected");
    const auto requests = m_server->takeRequests();
    QVERIFY(requests.size() <= 2);
    QVERIFY(requests.constFirst().message.contains("requested-attributes"));
}

void TestDestinations::listOfHostileNames()
{
    IppBytes all = IppBytes::response().name("printer-name", "no printer");
    all.group(4).integer(0x21, "printer-name", 7);
    all.group(4).attribute(0x13, "printer-name", "");
    addQueue(all, "");
    addQueue(all, QByteArray(1000, 'x'));
    addQueue(all, "../L\xc3\xa4 ser");
    m_server->setHandler([all](const auto &) { return FakeIppServer::ok(all); });
    QStringList names;
    for (const Entry &entry : Destinations::listWithoutDiscovery())
        names.append(entry.name);
    QVERIFY(names.contains(QStringLiteral("../L\u00e4 ser")));
    QVERIFY(!names.contains(QStringLiteral("no printer")));
    // Nor does it matter what the server says of one that it was asked for.
    IppBytes one = IppBytes::response();
    addQueue(one, "../L\xc3\xa4 ser");
    m_server->setHandler([one](const auto &) { return FakeIppServer::ok(one); });
    for (const QString &name : std::as_const(names)) {
        const auto found = Destinations::named(name.toUtf8().constData(), nullptr);
        QCOMPARE(found.count(), name == QStringLiteral("../L\u00e4 ser") ? 1 : 0);
    }
}

void TestDestinations::listWithoutServer()
{
    writeFile(userFile(), "Dest Laser/draft a=1\n");
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    QVERIFY(Destinations::listWithoutDiscovery().isEmpty());
    m_server.reset();
    QVERIFY(Destinations::listWithoutDiscovery().isEmpty());
}

void TestDestinations::namedWithoutServer()
{
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    QCOMPARE(Destinations::named("Laser", nullptr).count(), 0);
    m_server.reset();
    QCOMPARE(Destinations::named("Laser", nullptr).count(), 0);
}

void TestDestinations::saved_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("destinations");
    QTest::addRow("nothing") << QByteArray() << QString();
    QTest::addRow("several") << QByteArray(
                                    "Dest Photo b=2 c='d e'\nDefault Gone/x f\nDest Laser a=1\n")
                             << QStringLiteral("Gone|*Gone/x f=true|Laser a=1|Photo b=2 c=d e");
    QTest::addRow("instances have their own options alone")
        << QByteArray("Dest Laser a=1\nDest Laser/draft b=2\n")
        << QStringLiteral("Laser a=1|Laser/draft b=2");
    QTest::addRow("twice") << QByteArray("Dest Laser a=1 b=1\nDest Laser b=2 c=3\n")
                           << QStringLiteral("Laser a=1 b=2 c=3");
    QTest::addRow("one default") << QByteArray("Default Laser a=1\nDefault Photo b=2\n")
                                 << QStringLiteral("Laser a=1|*Photo b=2");
}

void TestDestinations::saved()
{
    QFETCH(QByteArray, text);
    writeFile(userFile(), text);
    QTEST(described(Destinations::saved()), "destinations");
    QCOMPARE(m_server->takeRequests().size(), 0);
}

void TestDestinations::savedIgnoresTheSystemsFile()
{
    writeFile(systemFile(), "Default Laser a=1\nDest Laser/draft b=2\n");
    writeFile(userFile(), "Dest Laser c=3\n");
    QCOMPARE(described(Destinations::saved()), QStringLiteral("Laser c=3"));
}

void TestDestinations::writeSavedKeepsTheOthers()
{
    const QByteArray system = "Default Laser a=1\nDest Laser/draft b=2\n";
    writeFile(systemFile(), system);
    writeFile(userFile(), "Dest Laser c=3\nDest Laser/mine own=1\nDefault Gone z=\"a b\"\n"
                          "Dest Gone/x y=1\nDest Photo/i w\n");
    Cups::DestinationArray all = Destinations::saved();
    all.add("office", nullptr);
    cups_dest_t *office = all.find("office", nullptr);
    office->num_options = cupsAddOption("n", "1", office->num_options, &office->options);
    QVERIFY(Destinations::writeSaved(std::move(all)));
    const QByteArray written = "Default Gone z=\"a b\"\nDest Gone/x y=1\nDest Laser c=3\n"
                               "Dest Laser/mine own=1\nDest office n=1\nDest Photo/i w=true\n";
    QCOMPARE(readFile(userFile()), written);
    QCOMPARE(readFile(systemFile()), system);
    // And again, without a change.
    QVERIFY(Destinations::writeSaved(Destinations::saved()));
    QCOMPARE(readFile(userFile()), written);
}

void TestDestinations::writeSavedKeepsSignsOfTheOthers()
{
    writeFile(userFile(), "Dest Gone/x y=\\#1 z=#2 zz=3\nDest Laser c=3\n");
    const QString before = described(Destinations::saved());
    QVERIFY2(before.contains(QStringLiteral("y=#1 z=#2 zz=3")), qPrintable(before));
    for (int round = 0; round < 3; ++round) {
        QVERIFY(Destinations::writeSaved(Destinations::saved()));
        QCOMPARE(described(Destinations::saved()), before);
    }
}

void TestDestinations::writeSavedWithoutServer()
{
    const QByteArray text = "Dest Laser c=3\nDefault Gone z=1\n";
    writeFile(userFile(), text);
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    QVERIFY(!Destinations::writeSaved(Destinations::saved()));
    QCOMPARE(readFile(userFile()), text);
    m_server.reset();
    QVERIFY(!Destinations::writeSaved(Destinations::saved()));
    QCOMPARE(readFile(userFile()), text);
}

void TestDestinations::discoveryReportsOnce()
{
    writeFile(userFile(), "Dest Laser/draft a=1\n");
    Destinations::Discovery discovery;
    QStringList reports;
    bool isOwnThread = false;
    connect(
        &discovery, &Destinations::Discovery::finished, &discovery,
        [&](const QList<Entry> &entries) {
            reports.append(described(entries));
            isOwnThread = QThread::currentThread() == discovery.thread();
        },
        Qt::DirectConnection);
    discovery.start();
    discovery.start();
    QTRY_VERIFY(!reports.isEmpty());
    // Nothing more is on its way once a second discovery has reported.
    Destinations::Discovery second;
    bool secondIsDone = false;
    connect(&second, &Destinations::Discovery::finished, this, [&] { secondIsDone = true; });
    second.start();
    QTRY_VERIFY(secondIsDone);
    QCOMPARE(reports, QStringList(QStringLiteral("*Laser Laser/draft office Photo")));
    QVERIFY(isOwnThread);
}

void TestDestinations::discoveryMarksTheDefault()
{
    // The library does not mark a default with saved options of its own.
    writeFile(userFile(), "Dest Laser a=1\n");
    Destinations::Discovery discovery;
    QString report;
    connect(&discovery, &Destinations::Discovery::finished, this,
            [&](const QList<Entry> &entries) { report = described(entries); });
    discovery.start();
    QTRY_COMPARE(report, QStringLiteral("*Laser office Photo"));
    QCOMPARE(report, described(Destinations::listWithoutDiscovery()));
}

void TestDestinations::discoveryMayEndEarly()
{
    int reports = 0;
    const auto count = [&reports] { ++reports; };
    {
        Destinations::Discovery never;
        connect(&never, &Destinations::Discovery::finished, this, count);
    }
    for (int round = 0; round < 50; ++round) {
        Destinations::Discovery discovery;
        connect(&discovery, &Destinations::Discovery::finished, this, count);
        m_server->takeRequests();
        discovery.start();
        if (round % 2)
            QVERIFY(hasRequestWithoutEvents());
    }
    // The objects are gone while some of their threads are still at work.
    Destinations::Discovery last;
    bool isDone = false;
    connect(&last, &Destinations::Discovery::finished, this, [&isDone] { isDone = true; });
    last.start();
    QTRY_VERIFY(isDone);
    QCOMPARE(reports, 0);

    // Nor does the end wait for a server that does not answer.
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    auto silent = std::make_unique<Destinations::Discovery>();
    connect(silent.get(), &Destinations::Discovery::finished, this, count);
    m_server->takeRequests();
    silent->start();
    QTRY_VERIFY(m_server->requestCount() > 0);
    QElapsedTimer timer;
    timer.start();
    silent.reset();
    QVERIFY(timer.elapsed() < 500);
    QCOMPARE(reports, 0);
}

namespace
{
constexpr char EndDuringDiscovery[] = "--end-during-discovery";

/** What the process does that ends while its discovery is on the way. */
int endDuringDiscovery()
{
    auto *discovery = new Destinations::Discovery(qApp);
    discovery->start();
    return 0;
}
} // namespace

void TestDestinations::processMayEndDuringDiscovery()
{
    for (const bool isSilent : {false, true}) {
        if (isSilent)
            m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
        for (int round = 0; round < 20; ++round) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedChannels);
            process.start(QCoreApplication::applicationFilePath(),
                          {QString::fromLatin1(EndDuringDiscovery)});
            QVERIFY(process.waitForFinished(5000));
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(process.exitCode(), 0);
        }
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(QString::fromLatin1(EndDuringDiscovery)))
        return endDuringDiscovery();
    TestDestinations test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_destinations.moc"
