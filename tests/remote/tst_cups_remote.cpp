#include "CUPSManager.h"
#include "Destinations.h"
#include "OwnMemory.h"
#include "PrintCommands.h"
#include "PrinterOptions.h"
#include "Requests.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>

/**
 * A server in another network, which the environment names (see run). What is done to it is read
 * back with the system's own commands.
 */

using PrintCommands::lpstat;

namespace
{
QString server()
{
    return qEnvironmentVariable("VESK_REMOTE_SERVER");
}

/** What `lpstat` says of the server. */
QString told(const QStringList &arguments)
{
    return lpstat(QStringList{QStringLiteral("-h"), server()} + arguments);
}

CUPSPrinter printer(const char *name)
{
    CUPSPrinter found;
    _CUPS->findPrinter(QString::fromLatin1(name), found, false);
    return found;
}

QByteArray uriOf(const char *name)
{
    return printer(name).attributes.uri.toUtf8();
}

/** What `lpoptions` lists of the driver of a printer. */
QString optionsOf(const char *name)
{
    return u'\n' + PrintCommands::run(QStringLiteral("lpoptions"),
                                      {QStringLiteral("-h"), server(), QStringLiteral("-p"),
                                       QString::fromLatin1(name), QStringLiteral("-l")});
}

/** A request whose connection can be looked at. */
template <typename Base> struct Watched : Base {
    using Base::Base;
    QByteArray way() const { return httpIsEncrypted(this->m_http) ? "encrypted" : "plain"; }
};

QString document()
{
    return QCoreApplication::applicationFilePath();
}

/** The file at which a server of this machine would listen. */
class LocalSocket
{
public:
    LocalSocket()
        : m_file(qEnvironmentVariable("VESK_RELOCATED_ROOT") +
                 QStringLiteral("/var/run/cups/cups.sock"))
    {
    }
    LocalSocket(const LocalSocket &) = delete;
    LocalSocket &operator=(const LocalSocket &) = delete;
    ~LocalSocket() { m_file.remove(); }
    bool isThere() const { return m_file.exists(); }
    bool make() { return m_file.open(QIODevice::WriteOnly); }

private:
    QFile m_file;
};
} // namespace

class TestCupsRemote : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void serverIsTheConfiguredOne();
    void lists();
    void listingsAreAsTheServerWantsThem();
    void setsADriver();
    void startsAPrinter();
    void changesAreAsTheServerWantsThem();
    void stopsAPrinter();
    void uriNamesTheServer();
    void uriNamesTheLocalSocket();
    void printsAJob();
    void cancelsAJob();
    void opensTheDriver();
    void choosesADriver();
    void deletes();
    void asksForThePasswordOnce();
    void passwordStaysNowhere();

private:
    int m_questions = 0;
};

void TestCupsRemote::initTestCase()
{
    QVERIFY(!server().isEmpty());
    IPPRequest::setPasswordPrompt([this](const QString &, const QString &) {
        ++m_questions;
        return QStringLiteral("secret");
    });
}

void TestCupsRemote::serverIsTheConfiguredOne()
{
    QCOMPARE(QStringLiteral("%1:%2").arg(QString::fromLatin1(cupsServer())).arg(ippPort()),
             server());
}

void TestCupsRemote::lists()
{
    QMap<QString, CUPSPrinter> printers;
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 6);
    QStringList names = told({QStringLiteral("-e")}).split(u'\n', Qt::SkipEmptyParts);
    names.sort();
    QCOMPARE(QStringList(printers.keys()), names);
    QVERIFY(printers.value(QStringLiteral("Laser")).attributes.isDefault);
    ClassInfo office;
    QVERIFY(_CUPS->findClass(QStringLiteral("Office"), office));
    QCOMPARE(office.memberNames, QStringList({QStringLiteral("Laser"), QStringLiteral("Photo")}));
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Laser"));
    QCOMPARE(Destinations::listWithoutDiscovery().size(), 6);
    QCOMPARE(Destinations::named("Photo", nullptr).count(), 1);
}

void TestCupsRemote::listingsAreAsTheServerWantsThem()
{
    Watched<Requests::GetClasses> request;
    QVERIFY(_CUPS->execute(request));
    QCOMPARE(request.way(), qgetenv("VESK_REMOTE_LISTINGS"));
}

void TestCupsRemote::startsAPrinter()
{
    QVERIFY(told({QStringLiteral("-p"), QStringLiteral("Stopped")}).contains(u"disabled since"));
    QVERIFY(_CUPS->startPrinter(uriOf("Stopped").constData()));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    QVERIFY(told({QStringLiteral("-p"), QStringLiteral("Stopped")}).contains(u"is idle"));
}

void TestCupsRemote::changesAreAsTheServerWantsThem()
{
    Watched<Requests::SetDefaultPrinter> request("ipp://localhost/printers/Photo");
    QVERIFY(_CUPS->execute(request));
    QCOMPARE(request.way(), qgetenv("VESK_REMOTE_CHANGES"));
    QCOMPARE(told({QStringLiteral("-d")}), QStringLiteral("system default destination: Photo\n"));
}

void TestCupsRemote::stopsAPrinter()
{
    QVERIFY(_CUPS->stopPrinter(uriOf("Plain").constData()));
    QVERIFY(told({QStringLiteral("-p"), QStringLiteral("Plain")}).contains(u"disabled since"));
    QVERIFY(told({QStringLiteral("-a"), QStringLiteral("Plain")}).contains(u"not accepting"));
}

void TestCupsRemote::uriNamesTheServer()
{
    const LocalSocket socket;
    QVERIFY(!socket.isThere());
    CUPSPrinter laser = printer("Laser");
    laser.attributes.location = QStringLiteral("another room");
    QVERIFY(_CUPS->modifyPrinter(laser));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    QVERIFY(
        told({QStringLiteral("-lp"), QStringLiteral("Laser")}).contains(u"Location: another room"));
}

void TestCupsRemote::uriNamesTheLocalSocket()
{
    // Whose server it is does not matter to the server: the path tells it what is meant.
    LocalSocket socket;
    QVERIFY(socket.make());
    ClassInfo office;
    QVERIFY(_CUPS->findClass(QStringLiteral("Office"), office));
    office.description = QStringLiteral("Another description");
    QVERIFY(_CUPS->modifyClass(office));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    QVERIFY(told({QStringLiteral("-lp"), QStringLiteral("Office")})
                .contains(u"Description: Another description"));
}

void TestCupsRemote::printsAJob()
{
    const PrintJob job = {QStringLiteral("From afar"), QStringLiteral("application/octet-stream"),
                          document()};
    CUPSPrinter stopped = printer("Plain");
    // To a printer that is stopped, so that it stays; but one that takes jobs.
    QVERIFY(_CUPS->startPrinter(stopped.attributes.uri.toUtf8().constData()));
    QVERIFY(_CUPS->stopPrinter(uriOf("Photo").constData()));
    QVERIFY(_CUPS->printFile(stopped, job));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    const auto isDone = [] {
        return told({QStringLiteral("-W"), QStringLiteral("completed"), QStringLiteral("-o"),
                     QStringLiteral("Plain")})
            .startsWith(u"Plain-1");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isDone(), 20'000);
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobs(jobs, "Plain", false), 1);
    QCOMPARE(jobs.first().name, QStringLiteral("From afar"));
}

void TestCupsRemote::cancelsAJob()
{
    QCOMPARE(PrintCommands::run(QStringLiteral("lp"),
                                {QStringLiteral("-h"), server(), QStringLiteral("-H"),
                                 QStringLiteral("hold"), QStringLiteral("-d"),
                                 QStringLiteral("Laser"), document()}),
             QStringLiteral("request id is Laser-2 (1 file(s))\n"));
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobsWithUris(jobs), 1);
    QCOMPARE(jobs.firstKey(), 2);
    QVERIFY(_CUPS->cancelJob(jobs.first().uri.toUtf8().constData()));
    QCOMPARE(told({QStringLiteral("-o")}), QString());
}

void TestCupsRemote::opensTheDriver()
{
    PrinterOptions options;
    QVERIFY(options.load(QStringLiteral("Laser")));
    QVERIFY(options.openPPD());
}

/** A large one: the document goes again where the server wants a password or encryption. */
void TestCupsRemote::setsADriver()
{
    QVERIFY(!optionsOf("Plain").contains(u"\nDuplex/"));
    QFile sample(QStringLiteral(VESK_SAMPLE_PPD));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QTemporaryFile large;
    QVERIFY(large.open());
    large.write(sample.readAll());
    large.write(QByteArray("*% A line that says nothing.\n").repeated(100'000));
    large.close();
    QVERIFY(_CUPS->setPrinterPPD(uriOf("Plain").constData(), large.fileName()));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    QVERIFY(optionsOf("Plain").contains(u"\nDuplex/"));
}

void TestCupsRemote::choosesADriver()
{
    const QString name = QStringLiteral("drv:///sample.drv/generic.ppd");
    // A server whose list is new needs seconds for it: once is enough.
    if (qEnvironmentVariableIsSet("VESK_REMOTE_DRIVERS")) {
        const QList<DriverInfo> drivers = _CUPS->getPPDs("Generic");
        QVERIFY(std::any_of(drivers.begin(), drivers.end(),
                            [&](const DriverInfo &driver) { return driver.driverFile == name; }));
    }
    CUPSPrinter photo = printer("Photo");
    photo.ppdName = name;
    QVERIFY(_CUPS->modifyPrinter(photo));
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()), QStringLiteral("OK"));
    QCOMPARE(printer("Photo").attributes.modelInfo, QStringLiteral("Generic PostScript Printer"));
}

void TestCupsRemote::deletes()
{
    QVERIFY(_CUPS->deletePrinter(uriOf("Rejecting").constData()));
    QVERIFY(_CUPS->deletePrinter(uriOf("Photo").constData()));
    ClassInfo office;
    QVERIFY(_CUPS->findClass(QStringLiteral("Office"), office));
    QCOMPARE(office.memberNames, QStringList(QStringLiteral("Laser")));
    QVERIFY(_CUPS->deleteClass(uriOf("Office").constData()));
    QCOMPARE(told({QStringLiteral("-e")}), QStringLiteral("Laser\nPlain\nStopped\n"));
}

void TestCupsRemote::asksForThePasswordOnce()
{
    QCOMPARE(m_questions, 1);
}

/** In the form in which it goes over the wire; the program itself keeps the password. */
void TestCupsRemote::passwordStaysNowhere()
{
    const QByteArray changed("bl8weEq{[VOx[YP<");
    QByteArray credentials = OwnMemory::changed(changed);
    QCOMPARE(QByteArray::fromBase64(credentials), QByteArray("root:secret"));
    // It is looked for in the right way.
    QVERIFY(OwnMemory::count({changed}) > 0);
    credentials.fill('\0');
    QCOMPARE(OwnMemory::count({changed}), 0);
}

QTEST_GUILESS_MAIN(TestCupsRemote)
#include "tst_cups_remote.moc"
