#include "CUPSManager.h"
#include "Destinations.h"
#include "PrintCommands.h"
#include "PrinterRecords.h"
#include "Requests.h"
#include "SavedDestinationRows.h"
#include "SavedOptionsFiles.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

/** The listings of the facade and the destinations against a real server, as others see it. */

using Destinations::Entry;

using namespace PrintCommands;
using namespace PrinterRecords;
using namespace SavedOptionsFiles;

namespace
{
QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray uriOf(const QString &name, const char *folder = "printers")
{
    return QByteArray("ipp://localhost/") + folder + '/' + name.toLatin1();
}

QMap<QString, CUPSPrinter> printers()
{
    QMap<QString, CUPSPrinter> all;
    _CUPS->getPrinters(all, 0, 0, nullptr);
    return all;
}

CUPSPrinter printer(const char *name)
{
    CUPSPrinter found;
    _CUPS->findPrinter(QString::fromLatin1(name), found, false);
    return found;
}

/** The library's own list. */
Cups::DestinationArray libraryDestinations()
{
    Cups::DestinationArray all;
    all.countRef() = cupsGetDests(all.dataRef());
    return all;
}

QString fullName(const cups_dest_t &destination)
{
    const QString name = QString::fromLatin1(destination.name);
    return destination.instance ? name + u'/' + QString::fromLatin1(destination.instance) : name;
}

QString fullName(const Entry &entry)
{
    return entry.instance.isEmpty() ? entry.name : entry.name + u'/' + entry.instance;
}

QStringList optionsOf(const cups_dest_t &destination)
{
    QStringList options;
    for (int i = 0; i < destination.num_options; ++i)
        options.append(
            QStringLiteral("%1=%2").arg(QString::fromLatin1(destination.options[i].name),
                                        QString::fromLocal8Bit(destination.options[i].value)));
    return options;
}
} // namespace

class TestCupsOperations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void listsThePrinters();
    void requestedAttributesChangeNoRecord();
    void findsEveryPrinter();
    void listsTheClasses();
    void defaultPrinter();
    void startsTheStoppedPrinter();
    void startsTheRejectingPrinter();
    void listsTheDrivers();
    void refusedRequest();

    void destinations_data();
    void destinations();
    void namedDestinations_data();
    void namedDestinations();
    void unknownNames();
    void readsWhatLpoptionsWrites();
    void savedOptionsOfOthersSurvive();
    void instancesWithTheServersOptionsSurvive();
    void savedOptionsSurviveWithoutServer();
    void queuesAreInTheLibrarysOrder();

private:
    QByteArray m_savedAtStart;
};

void TestCupsOperations::initTestCase()
{
    QVERIFY2(lpstat("-r").startsWith(QStringLiteral("scheduler is running")),
             "this test runs in a private world");
    m_savedAtStart = readFile(userFile());
    QVERIFY(m_savedAtStart.contains("Dest Laser/draft "));
}

void TestCupsOperations::init()
{
    writeFile(userFile(), m_savedAtStart);
    QFile::remove(systemFile());
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
}

void TestCupsOperations::listsThePrinters()
{
    const QMap<QString, CUPSPrinter> all = printers();
    QCOMPARE(all.keys(), QStringList({QStringLiteral("Laser"), QStringLiteral("Office"),
                                      QStringLiteral("Photo"), QStringLiteral("Plain"),
                                      QStringLiteral("Rejecting"), QStringLiteral("Stopped")}));
    const QString accepting = lpstat("-a");
    const QString defaultName = lpstat("-d").trimmed().section(u' ', -1);
    for (const CUPSPrinter &found : all) {
        const PrinterInfo &info = found.attributes;
        const QString details = lpstat({QStringLiteral("-l"), QStringLiteral("-p"), info.name});
        QVERIFY(details.contains(QStringLiteral("Description: ") + info.description));
        QVERIFY(details.contains(QStringLiteral("Location: ") + info.location));
        QCOMPARE(info.state, details.contains(QStringLiteral(" disabled since ")) ? 5 : 3);
        QCOMPARE(info.acceptingJobs,
                 accepting.contains(info.name + QStringLiteral(" accepting requests")));
        QCOMPARE(info.isDefault, info.name == defaultName);
        QCOMPARE(found.driver.model, info.modelInfo);
    }
    const PrinterInfo laser = all.value(QStringLiteral("Laser")).attributes;
    QCOMPARE(laser.modelInfo, QStringLiteral("Tarvel CL 4200, sample driver 1.0"));
    QVERIFY(laser.isDefault);
    QVERIFY(laser.colorSupported && laser.pageRangesSupported);
    QCOMPARE(laser.copiesMin, 1);
    QVERIFY(laser.copiesMax > 1);
    QVERIFY(!laser.mediaSupported.isEmpty());
    QCOMPARE(laser.jobSheetsStart, QStringLiteral("none"));
    QCOMPARE(laser.orientationDefault, 3); // the server has no value for it
    QVERIFY(lpstat("-v Laser").contains(laser.localUri));
    QCOMPARE(all.value(QStringLiteral("Stopped")).attributes.stateMessage,
             QStringLiteral("Paused for repair"));
}

void TestCupsOperations::requestedAttributesChangeNoRecord()
{
    QMap<QString, QStringList> found;
    for (const CUPSPrinter &one : printers())
        found.insert(one.attributes.name, described(one.attributes));
    Requests::GetPrinters plainRequest(0, 0);
    QCOMPARE(found, recordsOf<PrinterInfo>(plainRequest));

    QMap<QString, ClassInfo> classes;
    QCOMPARE(_CUPS->getClasses(classes), 1);
    found.clear();
    for (const ClassInfo &cls : std::as_const(classes))
        found.insert(cls.name, described(cls));
    QCOMPARE(found.value(QStringLiteral("Office")).value(found.first().size() - 1),
             QStringLiteral("Photo"));
    Requests::GetClasses plainClasses;
    QCOMPARE(found, recordsOf<ClassInfo>(plainClasses));
}

void TestCupsOperations::findsEveryPrinter()
{
    const QMap<QString, CUPSPrinter> all = printers();
    for (const CUPSPrinter &one : all) {
        CUPSPrinter found;
        QVERIFY(_CUPS->findPrinter(one.attributes.name, found, false));
        QCOMPARE(described(found.attributes), described(one.attributes));
        QCOMPARE(found.attributes.isDefault, one.attributes.isDefault);
        QVERIFY(!_CUPS->findPrinter(one.attributes.name.toLower(), found, false));
        CUPSPrinter byUri;
        QVERIFY(_CUPS->getPrinterAttributes(uriOf(one.attributes.name).constData(), byUri));
        QCOMPARE(described(byUri.attributes), described(one.attributes));
    }
    CUPSPrinter found;
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("nobody"), found, false));
    QVERIFY(!_CUPS->findPrinter(QString(), found, false));
    QVERIFY(!_CUPS->getPrinterAttributes(uriOf(QStringLiteral("nobody")).constData(), found));
    QCOMPARE(_CUPS->lastStatus(), 0x0406);
}

void TestCupsOperations::listsTheClasses()
{
    ClassInfo office;
    QVERIFY(_CUPS->findClass(QStringLiteral("Office"), office));
    QCOMPARE(office.memberNames, QStringList({QStringLiteral("Laser"), QStringLiteral("Photo")}));
    QCOMPARE(office.memberUris.size(), 2);
    QVERIFY(office.memberUris.constFirst().endsWith(QStringLiteral("/printers/Laser")));
    QVERIFY(lpstat("-c Office").contains(QStringLiteral("Laser\n")));
    QVERIFY(!_CUPS->findClass(QStringLiteral("office"), office));
    QVERIFY(!_CUPS->findClass(QStringLiteral("Laser"), office));
}

void TestCupsOperations::defaultPrinter()
{
    CUPSPrinter found;
    QVERIFY(_CUPS->getDefaultPrinter(found));
    QCOMPARE(found.attributes.name, QStringLiteral("Laser"));
    QVERIFY(_CUPS->setDefaultPrinter(QString::fromLatin1(uriOf(QStringLiteral("Photo")))));
    QCOMPARE(lpstat("-d"), QStringLiteral("system default destination: Photo\n"));
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Photo"));
    QVERIFY(printer("Photo").attributes.isDefault);
    QVERIFY(_CUPS->setDefaultPrinter(QString::fromLatin1(uriOf(QStringLiteral("Laser")))));
    QCOMPARE(lpstat("-d"), QStringLiteral("system default destination: Laser\n"));
}

void TestCupsOperations::startsTheStoppedPrinter()
{
    QVERIFY(lpstat("-p Stopped").contains(QStringLiteral(" disabled since ")));
    QVERIFY(_CUPS->startPrinter(printer("Stopped").attributes.uri.toLatin1().constData()));
    QVERIFY(lpstat("-p Stopped").contains(QStringLiteral(" is idle.  enabled since ")));
    QVERIFY(!run("cupsdisable Stopped").isNull());
}

void TestCupsOperations::startsTheRejectingPrinter()
{
    QVERIFY(lpstat("-a Rejecting").contains(QStringLiteral(" not accepting requests ")));
    QVERIFY(_CUPS->startPrinter(printer("Rejecting").attributes.uri.toLatin1().constData()));
    QVERIFY(!lpstat("-a Rejecting").contains(QStringLiteral(" not accepting requests ")));
    QVERIFY(!run("cupsreject Rejecting").isNull());
}

void TestCupsOperations::listsTheDrivers()
{
    QStringList names;
    for (const DriverInfo &driver : _CUPS->getPPDs(nullptr)) {
        QVERIFY(!driver.model.isEmpty() && !driver.make.isEmpty());
        names.append(driver.driverFile);
    }
    QVERIFY(!names.isEmpty());
    QSet<QString> expected;
    const QString nameStart = QStringLiteral("Model:  name = ");
    for (const QString &line : run("lpinfo -l -m").split(u'\n')) {
        if (line.startsWith(nameStart))
            expected.insert(line.mid(nameStart.size()));
    }
    // lpinfo adds this one, and "raw" is no driver of the server's.
    expected -= QSet<QString>{QStringLiteral("everywhere"), QStringLiteral("raw")};
    QSet<QString> found(names.cbegin(), names.cend());
    found -= QSet<QString>{QStringLiteral("everywhere"), QStringLiteral("raw")};
    QCOMPARE(found, expected);
}

void TestCupsOperations::refusedRequest()
{
    QVERIFY(_CUPS->startPrinter(uriOf(QStringLiteral("nobody")).constData()));
    QCOMPARE(_CUPS->lastStatus(), 0x0406);
    QCOMPARE(IPPRequest::statusText(_CUPS->lastStatus()),
             QStringLiteral("IPP_NOT_FOUND - Not found"));
}

void TestCupsOperations::destinations_data()
{
    SavedDestinationRows::add(std::to_array<SavedDestinationRows::Row>({
        {"nothing saved", "", "", nullptr, "Laser"},
        {"as the world has it", "", "Default Laser\nDest Laser/draft Duplex=DuplexNoTumble\n",
         nullptr, "Laser"},
        {"default with options", "", "Dest Laser Duplex=DuplexNoTumble\n", nullptr, "Laser"},
        {"default with an instance", "", "Dest Laser/draft a=1\n", nullptr, "Laser"},
        {"user's default", "", "Default Photo a=1\n", nullptr, "Photo"},
        {"default instance", "", "Default Photo/glossy a=1\nDest Photo b=1\n", nullptr,
         "Photo/glossy"},
        {"system's default", "Default Plain\n", "Dest Photo b=1\n", nullptr, "Plain"},
        {"both", "Default Plain a=1\nDest Laser/sys b=1\n",
         "Default Office c=1\nDest Laser/own d=1\nDest Plain/x e=1\n", nullptr, "Office"},
        {"stale entries", "Dest Gone a=1\n", "Dest Other/i b=1\nDest Laser/i c=1\n", nullptr,
         "Laser"},
        {"stale default", "", "Default Gone a=1\n", nullptr, ""},
        {"comments", "# none\n", "Dest Laser/i a=1 # more\n#Dest Photo/j\n", nullptr, "Laser"},
        {"environment", "", "Default Photo a=1\n", "Plain", "Plain"},
        {"environment: instance", "", "Dest Plain/x a=1\n", "Plain/x", "Plain/x"},
        {"environment: unknown", "", "Default Photo a=1\n", "Gone", ""},
        {"environment: lp", "", "Default Photo a=1\n", "lp", "Photo"},
    }));
}

void TestCupsOperations::destinations()
{
    SavedDestinationRows::apply();
    QStringList expected;
    QString libraryDefault;
    for (const cups_dest_t &destination : libraryDestinations()) {
        expected.append(fullName(destination));
        if (destination.is_default)
            libraryDefault = fullName(destination);
    }
    QStringList found;
    QStringList defaults;
    for (const Entry &entry : Destinations::listWithoutDiscovery()) {
        found.append(fullName(entry));
        if (entry.isDefault)
            defaults.append(fullName(entry));
    }
    QCOMPARE(found, expected);
    QTEST(defaults.join(u' '), "expected");
    // The library leaves some defaults without a mark, but it marks no other.
    if (!libraryDefault.isEmpty())
        QCOMPARE(defaults, QStringList(libraryDefault));
    // The system's tools take the same one.
    if (!defaults.isEmpty())
        QCOMPARE(run("lpstat -d"),
                 QStringLiteral("system default destination: %1\n").arg(defaults.constFirst()));
}

void TestCupsOperations::namedDestinations_data()
{
    destinations_data();
}

void TestCupsOperations::namedDestinations()
{
    SavedDestinationRows::writeFiles();
    const Cups::DestinationArray all = libraryDestinations();
    QVERIFY(all.count() >= 6);
    for (const cups_dest_t &expected : all) {
        const auto found = Destinations::named(expected.name, expected.instance);
        QCOMPARE(found.count(), 1);
        QCOMPARE(fullName(*found.data()), fullName(expected));
        QCOMPARE(optionsOf(*found.data()), optionsOf(expected));
    }
}

void TestCupsOperations::unknownNames()
{
    QCOMPARE(Destinations::named("nobody", nullptr).count(), 0);
    QCOMPARE(Destinations::named("Laser", "nobody").count(), 0);
    QCOMPARE(Destinations::named("", nullptr).count(), 0);
    QCOMPARE(Destinations::named("La ser/../x", nullptr).count(), 0);
    QCOMPARE(Destinations::named("laser", nullptr).count(), 1);
}

void TestCupsOperations::readsWhatLpoptionsWrites()
{
    writeFile(userFile(), {});
    QVERIFY(!run("lpoptions -d Photo").isNull());
    QVERIFY(!run(QStringLiteral("lpoptions"),
                 {QStringLiteral("-p"), QStringLiteral("Plain/odd"), QStringLiteral("-o"),
                  QStringLiteral("text=a\\ \\\"quoted\\\"\\ \\'text\\'\\ \\\\\\ end"),
                  QStringLiteral("-o"), QStringLiteral("flag")})
                 .isNull());
    const auto entries = Destinations::parseSavedOptions(readFile(userFile()));
    QVERIFY(!entries.isEmpty());
    Cups::DestinationArray saved = Destinations::saved();
    const cups_dest_t *photo = saved.find("Photo", nullptr);
    QVERIFY(photo && photo->is_default);
    const cups_dest_t *odd = saved.find("Plain", "odd");
    QVERIFY(odd);
    QCOMPARE(cupsGetOption("text", odd->num_options, odd->options), "a \"quoted\" 'text' \\ end");
    QCOMPARE(cupsGetOption("flag", odd->num_options, odd->options), "true");
    // Written back, it is the same to lpoptions.
    const QString before = run("lpoptions -p Plain/odd");
    QVERIFY(Destinations::writeSaved(std::move(saved)));
    QCOMPARE(run("lpoptions -p Plain/odd"), before);
}

void TestCupsOperations::savedOptionsOfOthersSurvive()
{
    const QByteArray system = "Dest Laser Resolution=300dpi\nDest Photo/sys a=1\n";
    writeFile(systemFile(), system);
    writeFile(userFile(), "Dest Laser Duplex=DuplexNoTumble\nDest Laser/draft InputSlot=Tray2\n"
                          "Dest Gone z=1\nDefault Other/i y='a b'\n");
    Cups::DestinationArray all = Destinations::saved();
    all.add("Plain", nullptr);
    cups_dest_t *plain = all.find("Plain", nullptr);
    plain->num_options = cupsAddOption("wrap", "true", plain->num_options, &plain->options);
    QVERIFY(Destinations::writeSaved(std::move(all)));
    QCOMPARE(readFile(userFile()),
             QByteArray("Dest Gone z=1\nDest Laser Duplex=DuplexNoTumble\n"
                        "Dest Laser/draft InputSlot=Tray2\nDefault Other/i y=\"a b\"\n"
                        "Dest Plain wrap=true\n"));
    QCOMPARE(readFile(systemFile()), system);
    const QString laser = run("lpoptions -p Laser");
    QVERIFY(laser.contains(QStringLiteral("Duplex=DuplexNoTumble")));
    QVERIFY(laser.contains(QStringLiteral("Resolution=300dpi")));
    QVERIFY(run("lpoptions -p Plain").contains(QStringLiteral("wrap=true")));
}

void TestCupsOperations::instancesWithTheServersOptionsSurvive()
{
    const QByteArray before = "Dest Other a=1\nDest Laser x=1\nDest Laser/bare\n"
                              "Dest Laser/copy copies=1\nDest Laser/own y=2\n";
    writeFile(userFile(), before);
    Cups::DestinationArray all = Destinations::saved();
    all.countRef() = cupsRemoveDest("Other", nullptr, all.count(), all.dataRef());
    QVERIFY(Destinations::writeSaved(std::move(all)));
    const QByteArray written = readFile(userFile());
    QCOMPARE(written, QByteArray("Dest Laser x=1\nDest Laser/bare x=1\nDest Laser/copy x=1\n"
                                 "Dest Laser/own y=2\n"));
    // The system's own command keeps the same instances.
    writeFile(userFile(), before);
    QVERIFY(!run("lpoptions -x Other").isNull());
    QCOMPARE(readFile(userFile()), QByteArray(written).replace("own y=2", "own x=1 y=2"));
}

void TestCupsOperations::savedOptionsSurviveWithoutServer()
{
    const QByteArray text = "Dest Laser a=1\nDefault Gone z=1\n";
    writeFile(userFile(), text);
    const QByteArray server = cupsServer();
    cupsSetServer("/nonexistent/socket");
    const bool isWritten = Destinations::writeSaved(Destinations::saved());
    cupsSetServer(server.constData());
    QVERIFY(!isWritten);
    QCOMPARE(readFile(userFile()), text);
}

void TestCupsOperations::queuesAreInTheLibrarysOrder()
{
    QStringList names;
    for (const char *name : {"zeta", "Alpha", "beta", "Gamma", "alpha2", "ALPHA1"}) {
        QVERIFY(!run(qPrintable(QStringLiteral("lpadmin -p %1 -E -v file:/dev/null")
                                    .arg(QString::fromLatin1(name))))
                     .isNull());
        names.append(QString::fromLatin1(name));
    }
    QStringList expected;
    for (const cups_dest_t &destination : libraryDestinations())
        expected.append(fullName(destination));
    QStringList found;
    for (const Entry &entry : Destinations::listWithoutDiscovery())
        found.append(fullName(entry));
    QCOMPARE(found, expected);
    for (const QString &name : std::as_const(names))
        QVERIFY(!run(QStringLiteral("lpadmin"), {QStringLiteral("-x"), name}).isNull());
}

QTEST_GUILESS_MAIN(TestCupsOperations)
#include "tst_cups_operations.moc"
