#include "DialogTest.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "PrintDialog.h"
#include "ServerConnection.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTranslator>

#include <memory>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace DialogTest;
using Destinations::Entry;

/** The print dialog on a real server: destinations, their state, and what is done with them. */
class TestPrintDialog : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void methodOrder();
    void slotsAreReachedBySignals_data();
    void slotsAreReachedBySignals();

    void listsDestinationsInOrder();
    void instancesShowTheNameOnly();
    void selectsTheDefault();
    void selectsTheDestinationAskedFor();
    void destinationAskedForIsUnknown();
    void noDefaultAndNoneAskedFor();
    void emptyList();

    void states_data();
    void states();
    void namesThatAreNotAscii();
    void textsAreReadAloudWithTheirCaptions();
    void copiesLabelIsNotTranslated();
    void classThatIsNoPrinter();
    void vanishedDestination();
    void serverGoesAway();
    void serverThatDoesNotAnswer();
    void longAndHostileTexts();
    void devicePicture_data();
    void devicePicture();
    void noPictureWithoutItsService();

    void selectingLoadsOptions();
    void selectingKeepsMediaOfTheCommandLine();
    void selectingAgainOnlyUpdates();
    void choosingInTheList();

    void startsAPrinter_data();
    void startsAPrinter();
    void startOfNothing();
    void setsTheDefault();
    void defaultOfTheDefault();
    void defaultIsNotSet_data();
    void defaultIsNotSet();

    void properties_data();
    void properties();
    void propertiesOfAQueueWithoutCollate_data();
    void propertiesOfAQueueWithoutCollate();
    void propertiesHaveNoDialogYet();

    void helpButton();
    void helpAnywhere();
    void helpIsMissing();
    void helpKeyIsPassedOn();

    void discoveryAddsAQueue();
    void joiningKeepsTheSelection();
    void joiningWaitsForTheOpenList();
    void choiceFromTheOpenListSurvivesJoining();
    void joiningAnEmptyList();
    void lateDestinationIsSelected();
    void lateDefaultIsSelected();
    void lateDestinationIsNotForcedOnTheUser_data();
    void lateDestinationIsNotForcedOnTheUser();
    void dialogCanGoWhileDiscoveryRuns();

    void tabWalk();
    void keyboardOnly();
    void escapeRejects();
    void minimumHeightFollowsTheHint();
    void paintingSettles();

private:
    void make(const QString &printer = QString(), PrintDialogServices services = {},
              const PrinterOptions &options = PrinterOptions());
    template <typename Widget> Widget *find(const char *name)
    {
        return child<Widget>(*m_dialog, name);
    }
    QPushButton *button(const char *name) { return find<QPushButton>(name); }
    QString text(const char *name) { return find<QLabel>(name)->text(); }
    QComboBox *combo() { return find<QComboBox>("PrintersCombo"); }
    QStringList entries();
    void choose(const QString &name);
    void show();

    World m_world;
    std::unique_ptr<PrintDialog> m_dialog;
};

namespace
{
/** What the dialog shows of a destination that the server does not know. */
constexpr char notFoundStatus[] = "stopped, rejecting jobs";

PrinterOptions optionsWith(const QMap<QString, QString> &values)
{
    PrinterOptions options;
    for (auto value = values.begin(); value != values.end(); ++value)
        options.setOption(value.key(), value.value());
    return options;
}

QMap<QString, QString> valuesOf(const PrinterOptions &options)
{
    return options;
}

Entry entry(const QString &name, bool isDefault = false)
{
    return {name, QString(), isDefault};
}

/** The sample queues of the private world, sorted, with `more` among them. */
QList<Entry> allWith(const QList<Entry> &more)
{
    QList<Entry> all{entry(u"Laser"_s, true), {u"Laser"_s, u"draft"_s, false},
                     entry(u"Office"_s),      entry(u"Photo"_s),
                     entry(u"Plain"_s),       entry(u"Rejecting"_s),
                     entry(u"Stopped"_s)};
    for (const Entry &each : more) {
        const auto place = std::find_if(all.begin(), all.end(), [&each](const Entry &other) {
            return other.name.compare(each.name, Qt::CaseInsensitive) > 0;
        });
        all.insert(place, each);
    }
    return all;
}

/** Takes the server away for as long as it lives. */
class ServerAway
{
public:
    ServerAway() { cupsSetServer("/nonexistent/cups.sock"); }
    ~ServerAway() { cupsSetServer(nullptr); }
    ServerAway(const ServerAway &) = delete;
    ServerAway &operator=(const ServerAway &) = delete;
};

/** Puts a server in place that takes connections and says nothing, for as long as it lives. */
class SilentServer
{
public:
    SilentServer()
        : m_limits(ServerConnection::limits())
        , m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const QByteArray path = m_folder.filePath(u"cups.sock"_s).toLocal8Bit();
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
        if (bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
            listen(m_socket, 16) != 0)
            qFatal("cannot listen at %s", path.constData());
        cupsSetServer(path.constData());
        // Longer in all than the dialog's patience with an empty list.
        ServerConnection::limits() = {1000, 0.2, 2200};
    }
    ~SilentServer()
    {
        ServerConnection::limits() = m_limits;
        cupsSetServer(nullptr);
        close(m_socket);
    }
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;

private:
    ServerConnection::Limits m_limits;
    QTemporaryDir m_folder;
    int m_socket;
};

/** Sets an environment variable for as long as it lives. */
class Environment
{
public:
    Environment(const char *name, const QByteArray &value)
        : m_name(name)
        , m_value(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Environment() { m_value.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_value); }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

private:
    const char *m_name;
    QByteArray m_value;
};

/** A dialog that writes down which of its slots are called. */
class RecordingDialog : public PrintDialog
{
public:
    using PrintDialog::PrintDialog;

    void EditProperties() override { calls.append("EditProperties"); }
    void StartPrinter() override { calls.append("StartPrinter"); }
    void SetAsDefault() override { calls.append("SetAsDefault"); }
    void SelectPrinter(const QString &name) override
    {
        calls.append("SelectPrinter " + name.toUtf8());
    }
    void ShowHelp() override { calls.append("ShowHelp"); }
    void accept() override { calls.append("accept"); }
    void reject() override { calls.append("reject"); }
    void updatePrinterControls() override { calls.append("updatePrinterControls"); }
    void updatePageSelectionControls() override { calls.append("updatePageSelectionControls"); }
    void updateCopiesControls() override { calls.append("updateCopiesControls"); }

    QByteArrayList calls;
};

/** Counts how often the dialog is painted. */
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject *watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};
} // namespace

void TestPrintDialog::init()
{
    m_world.reset();
}

void TestPrintDialog::cleanup()
{
    m_dialog.reset();
}

void TestPrintDialog::make(const QString &printer, PrintDialogServices services,
                           const PrinterOptions &options)
{
    m_dialog = std::make_unique<PrintDialog>(printer, options, std::move(services));
}

QStringList TestPrintDialog::entries()
{
    QStringList texts;
    for (int index = 0; index < combo()->count(); ++index)
        texts.append(combo()->itemText(index));
    return texts;
}

/** Chooses an entry as the user does. */
void TestPrintDialog::choose(const QString &name)
{
    const int index = combo()->findText(name);
    QVERIFY2(index >= 0, qPrintable(name));
    combo()->setCurrentIndex(index);
    emit combo()->activated(index);
    emit combo()->textActivated(name);
}

void TestPrintDialog::show()
{
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void TestPrintDialog::methodOrder()
{
    QByteArrayList methods;
    const QMetaObject &meta = PrintDialog::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods.append(meta.method(index).methodSignature());
    QCOMPARE(methods,
             QByteArrayList({"EditProperties()", "StartPrinter()", "SetAsDefault()",
                             "SelectPrinter(QString)", "ShowHelp()", "setOptions(PrinterOptions)",
                             "accept()", "updatePrinterControls()", "updatePageSelectionControls()",
                             "updateCopiesControls()"}));
}

void TestPrintDialog::slotsAreReachedBySignals_data()
{
    using Action = std::function<void(const QWidget &)>;
    QTest::addColumn<Action>("action");
    QTest::addColumn<QByteArrayList>("calls");
    const auto click = [](const char *name) {
        return Action([name](const QWidget &dialog) {
            const auto clicked = child<QAbstractButton>(dialog, name);
            clicked->setEnabled(true);
            clicked->click();
        });
    };
    QTest::newRow("PropertiesButton")
        << click("PropertiesButton") << QByteArrayList{"EditProperties"};
    QTest::newRow("StartButton") << click("StartButton") << QByteArrayList{"StartPrinter"};
    QTest::newRow("SetAsDefButton") << click("SetAsDefButton") << QByteArrayList{"SetAsDefault"};
    QTest::newRow("CollateCheckBox")
        << click("CollateCheckBox") << QByteArrayList{"updateCopiesControls"};
    QTest::newRow("ReverseCheckBox")
        << click("ReverseCheckBox") << QByteArrayList{"updateCopiesControls"};
    for (const char *radio : {"AllPagesRadio", "EvenPagesRadio", "OddPagesRadio", "SomePagesRadio"})
        QTest::newRow(radio) << click(radio) << QByteArrayList{"updatePageSelectionControls"};
    QTest::newRow("buttonHelp") << click("buttonHelp") << QByteArrayList{"ShowHelp"};
    QTest::newRow("OkButton") << click("OkButton") << QByteArrayList{"accept"};
    QTest::newRow("CancelButton") << click("CancelButton") << QByteArrayList{"reject"};
    QTest::newRow("CopiesSpinBox") << Action([](const QWidget &dialog) {
        child<QSpinBox>(dialog, "CopiesSpinBox")->setValue(5);
    }) << QByteArrayList{"updateCopiesControls"};
    QTest::newRow("PrintersCombo") << Action([](const QWidget &dialog) {
        const auto list = child<QComboBox>(dialog, "PrintersCombo");
        QTest::keyClick(list, Qt::Key_End);
    }) << QByteArrayList{"SelectPrinter Stopped"};
}

void TestPrintDialog::slotsAreReachedBySignals()
{
    QFETCH(std::function<void(const QWidget &)>, action);
    RecordingDialog dialog(QString(), PrinterOptions(), {});
    dialog.calls.clear();
    action(dialog);
    QTEST(dialog.calls, "calls");
}

void TestPrintDialog::listsDestinationsInOrder()
{
    make();
    QCOMPARE(entries(), QStringList({u"Laser"_s, u"Laser"_s, u"Office"_s, u"Photo"_s, u"Plain"_s,
                                     u"Rejecting"_s, u"Stopped"_s}));
}

void TestPrintDialog::instancesShowTheNameOnly()
{
    const QString long50 = u"Photo/"_s + QString(47, u'i') + u"xyz"_s;
    run("lpoptions", {u"-p"_s, long50, u"-o"_s, u"number-up=2"_s});
    make();
    QCOMPARE(entries().mid(0, 5),
             QStringList({u"Laser"_s, u"Laser"_s, u"Office"_s, u"Photo"_s, u"Photoxyz"_s}));
}

void TestPrintDialog::selectsTheDefault()
{
    make();
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    QCOMPARE(combo()->currentText(), u"Laser"_s);
    QCOMPARE(m_dialog->options().destination(), u"Laser"_s);

    run("lpoptions", {u"-d"_s, u"Plain"_s});
    make();
    QCOMPARE(m_dialog->destination(), u"Plain"_s);
    QCOMPARE(combo()->currentText(), u"Plain"_s);
    QVERIFY(!button("SetAsDefButton")->isEnabled());
}

void TestPrintDialog::selectsTheDestinationAskedFor()
{
    make(u"Photo"_s);
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    QCOMPARE(combo()->currentText(), u"Photo"_s);
    QCOMPARE(text("DescriptionText"), u"Photo printer"_s);
}

void TestPrintDialog::destinationAskedForIsUnknown()
{
    make(u"Nowhere"_s);
    QCOMPARE(combo()->currentIndex(), 0);
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    QVERIFY(button("OkButton")->isEnabled());
}

void TestPrintDialog::noDefaultAndNoneAskedFor()
{
    const Environment noDefault("PRINTER", "Nowhere");
    const PrinterOptions options = optionsWith({{u"copies"_s, u"7"_s}});
    make(QString(), {}, options);
    QCOMPARE(m_dialog->destination(), QString());
    QVERIFY(valuesOf(m_dialog->options()).isEmpty());
    QCOMPARE(combo()->count(), 7);
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QVERIFY(!button("OkButton")->isEnabled());

    choose(u"Laser"_s);
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    QVERIFY(button("OkButton")->isEnabled());
    QVERIFY(button("SetAsDefButton")->isEnabled());
}

void TestPrintDialog::emptyList()
{
    const ServerAway away;
    make();
    QCOMPARE(combo()->count(), 0);
    QCOMPARE(m_dialog->destination(), QString());
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QCOMPARE(text("LocationText") + text("DescriptionText"), QString());
    QCOMPARE(text("CopiesLabel"), u"Copies [1~100]"_s);
    for (const char *name : {"SetAsDefButton", "PropertiesButton", "StartButton", "OkButton"})
        QVERIFY2(!button(name)->isEnabled(), name);
    for (const char *name : {"buttonHelp", "CancelButton"})
        QVERIFY2(button(name)->isEnabled(), name);
}

void TestPrintDialog::states_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("setAsDefault");
    QTest::newRow("Laser") << "idle, accepting jobs"
                           << "First floor, room 12"
                           << "Colour laser printer" << false << false;
    QTest::newRow("Photo") << "idle, accepting jobs"
                           << "Studio"
                           << "Photo printer" << false << true;
    QTest::newRow("Stopped") << "stopped, accepting jobs"
                             << "Workshop"
                             << "Printer in repair" << true << true;
    QTest::newRow("Rejecting") << "idle, rejecting jobs"
                               << "Archive"
                               << "Printer that takes no jobs" << true << true;
    QTest::newRow("Office") << "idle, accepting jobs"
                            << "First floor"
                            << "Any printer of the office" << false << true;
    QTest::newRow("TestBoth") << "stopped, rejecting jobs"
                              << ""
                              << "TestBoth" << true << true;
}

void TestPrintDialog::states()
{
    addQueue(u"TestBoth"_s, {u"-D"_s, u"TestBoth"_s});
    run("cupsdisable", {u"TestBoth"_s});
    run("cupsreject", {u"TestBoth"_s});

    PrintDialogServices services;
    services.createPropertiesDialog = [](const QString &, const PrinterOptions &, QWidget *) {
        return new QDialog;
    };
    make(QString::fromLatin1(QTest::currentDataTag()), services);
    QTEST(text("StatusText"), "status");
    QTEST(text("LocationText"), "location");
    QTEST(text("DescriptionText"), "description");
    QTEST(button("StartButton")->isEnabled(), "start");
    QTEST(button("SetAsDefButton")->isEnabled(), "setAsDefault");
    QVERIFY(button("PropertiesButton")->isEnabled());
    QVERIFY(button("OkButton")->isEnabled());
    QCOMPARE(text("CopiesLabel"), u"Copies [1~9999]"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->minimum(), 1);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->maximum(), 9999);
}

void TestPrintDialog::namesThatAreNotAscii()
{
    const QString queue = u"TestB\u00fcro"_s;
    const QString location = u"Geb\u00e4ude 3"_s;
    addQueue(queue, {u"-L"_s, location});
    run("lpoptions", {u"-p"_s, queue, u"-o"_s, u"note=gr\u00fcn"_s});
    make(queue);
    QCOMPARE(combo()->currentText(), queue);
    QCOMPARE(m_dialog->destination(), queue);
    QCOMPARE(text("LocationText"), location);
    QCOMPARE(valuesOf(m_dialog->options()).value(u"note"_s), u"gr\u00fcn"_s);
    QVERIFY(button("OkButton")->isEnabled());
    button("SetAsDefButton")->click();
    QVERIFY(run("lpstat", {u"-d"_s}).trimmed().endsWith(": TestB\xc3\xbcro"));
}

void TestPrintDialog::textsAreReadAloudWithTheirCaptions()
{
    const auto spoken = [this](const char *name) { return find<QLabel>(name)->accessibleName(); };
    make(u"Photo"_s);
    QCOMPARE(spoken("LocationText"), u"Location: Studio"_s);
    QCOMPARE(spoken("StatusText"), u"Status: idle, accepting jobs"_s);
    QCOMPARE(spoken("DescriptionText"), u"Description: Photo printer"_s);
    const ServerAway away;
    m_dialog->updatePrinterControls();
    QCOMPARE(spoken("LocationText"), u"Location:"_s);
    QCOMPARE(spoken("StatusText"), u"Status: stopped, rejecting jobs"_s);
    QCOMPARE(spoken("DescriptionText"), u"Description:"_s);
}

namespace
{
/** Translates whatever there is to translate. */
class EveryTextTranslator : public QTranslator
{
public:
    EveryTextTranslator() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return u"*"_s + QString::fromUtf8(text);
    }
};
} // namespace

void TestPrintDialog::copiesLabelIsNotTranslated()
{
    const EveryTextTranslator translator;
    make(u"Photo"_s);
    QCOMPARE(button("StartButton")->text(), u"*Start"_s);
    QCOMPARE(text("CopiesLabel"), u"Copies [1~9999]"_s);
}

/** A server may list its classes apart from its printers. */
void TestPrintDialog::classThatIsNoPrinter()
{
    constexpr char uri[] = "ipp://localhost/classes/Group";
    make();
    FakeIppServer server;
    server.setHandler([&](const FakeIppServer::Request &request) {
        IppBytes response = IppBytes::response();
        if (request.operation() == IPP_OP_CUPS_GET_CLASSES)
            response.group(IPP_TAG_PRINTER)
                .name("printer-name", "Group")
                .text("printer-location", "everywhere")
                .integer(IPP_TAG_ENUM, "printer-state", IPP_PSTATE_STOPPED)
                .boolean("printer-is-accepting-jobs", 1)
                .uri("printer-uri-supported", uri);
        return FakeIppServer::ok(response);
    });
    cupsSetServer(server.address().constData());
    m_dialog->joinDestinations(allWith({entry(u"Group"_s)}));
    choose(u"Group"_s);
    const QString location = text("LocationText");
    const QString status = text("StatusText");
    const bool startable = button("StartButton")->isEnabled();
    server.takeRequests();
    button("StartButton")->click();
    QList<int> operations;
    for (const FakeIppServer::Request &request : server.takeRequests()) {
        if (request.message.contains(uri))
            operations.append(request.operation());
    }
    cupsSetServer(nullptr);
    QCOMPARE(location, u"everywhere"_s);
    QCOMPARE(status, u"stopped, accepting jobs"_s);
    QVERIFY(startable);
    QCOMPARE(operations, QList<int>({IPP_OP_CUPS_ACCEPT_JOBS, IPP_OP_RESUME_PRINTER}));
}

void TestPrintDialog::vanishedDestination()
{
    addQueue(u"TestGone"_s, {u"-D"_s, u"Soon gone"_s, u"-L"_s, u"Here"_s});
    PrintDialogServices services;
    services.createPropertiesDialog = [](const QString &, const PrinterOptions &, QWidget *) {
        return new QDialog;
    };
    make(u"TestGone"_s, services);
    QVERIFY(button("OkButton")->isEnabled());
    run("lpadmin", {u"-x"_s, u"TestGone"_s});
    choose(u"TestGone"_s);

    QCOMPARE(m_dialog->destination(), u"TestGone"_s);
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QCOMPARE(text("LocationText") + text("DescriptionText"), QString());
    for (const char *name : {"SetAsDefButton", "PropertiesButton", "StartButton", "OkButton"})
        QVERIFY2(!button(name)->isEnabled(), name);
    QCOMPARE(text("CopiesLabel"), u"Copies [1~100]"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->maximum(), 100);
}

void TestPrintDialog::serverGoesAway()
{
    make();
    show();
    const ServerAway away;
    choose(u"Photo"_s);
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QCOMPARE(m_dialog->options().destination(), u"Photo"_s);
    QVERIFY(!button("OkButton")->isEnabled());
    m_dialog->StartPrinter();
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
}

void TestPrintDialog::serverThatDoesNotAnswer()
{
    make();
    const SilentServer silent;
    unsigned before = ServerConnection::openings();
    choose(u"Photo"_s);
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QVERIFY(!button("OkButton")->isEnabled());
    // The time for the saved options is the time for all: the printer is not asked for any more.
    QCOMPARE(ServerConnection::openings() - before, 1U);

    before = ServerConnection::openings();
    m_dialog->StartPrinter();
    QCOMPARE(ServerConnection::openings() - before, 1U);
    before = ServerConnection::openings();
    m_dialog->updatePrinterControls();
    QCOMPARE(ServerConnection::openings() - before, 1U);

    // It is asked for its destinations once, not 20 times.
    before = ServerConnection::openings();
    make();
    QCOMPARE(combo()->count(), 0);
    QCOMPARE(ServerConnection::openings() - before, 1U);
}

void TestPrintDialog::longAndHostileTexts()
{
    make();
    const int width = m_dialog->minimumSizeHint().width();
    const QString location = u"<b>bold</b> &amp; 100% "_s + QString(90, u'x');
    const QString description = u"a long description "_s.repeated(6).trimmed();
    addQueue(u"TestTexts"_s, {u"-L"_s, location, u"-D"_s, description});
    make(u"TestTexts"_s);
    QCOMPARE(text("LocationText"), location);
    QCOMPARE(text("DescriptionText"), description);
    QCOMPARE(find<QLabel>("LocationText")->toolTip(),
             u"<p>"_s + location.toHtmlEscaped() + u"</p>"_s);
    QCOMPARE(m_dialog->minimumSizeHint().width(), width);

    show();
    const auto label = find<QLabel>("DescriptionText");
    QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
}

void TestPrintDialog::devicePicture_data()
{
    QTest::addColumn<QString>("asked");
    QTest::newRow("Laser") << "Tarvel CL 4200, sample driver 1.0";
    QTest::newRow("Office") << "";
    QTest::newRow("") << "";
}

void TestPrintDialog::devicePicture()
{
    const Environment noDefault("PRINTER", "Nowhere");
    QStringList asked;
    QPixmap red(20, 30);
    red.fill(Qt::red);
    PrintDialogServices services;
    services.devicePicture = [&](const QString &makeAndModel) {
        asked.append(makeAndModel);
        return red;
    };
    make(QString::fromLatin1(QTest::currentDataTag()), services);
    QVERIFY(!asked.isEmpty());
    QTEST(asked.last(), "asked");
    QCOMPARE(find<QLabel>("PrinterImage")->pixmap().toImage(), red.toImage());
}

void TestPrintDialog::noPictureWithoutItsService()
{
    make(u"Laser"_s);
    QVERIFY(find<QLabel>("PrinterImage")->pixmap().isNull());
}

void TestPrintDialog::selectingLoadsOptions()
{
    run("lpoptions", {u"-p"_s, u"Plain"_s, u"-o"_s, u"prettyprint=true"_s, u"-o"_s, u"copies=3"_s});
    make(u"Plain"_s);
    QCOMPARE(m_dialog->options().value(u"prettyprint"_s, QString()), u"true"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 3);
    choose(u"Photo"_s);
    QVERIFY(!m_dialog->options().hasOption(u"prettyprint"_s));
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 1);
    QCOMPARE(m_dialog->options().destination(), u"Photo"_s);
}

void TestPrintDialog::selectingKeepsMediaOfTheCommandLine()
{
    make(u"Plain"_s, {},
         optionsWith({{u"media"_s, u"A5"_s}, {u"MediaType"_s, u"Thick"_s}, {u"copies"_s, u"4"_s}}));
    QCOMPARE(m_dialog->options().value(u"media"_s, QString()), u"A5"_s);
    choose(u"Photo"_s);
    QCOMPARE(m_dialog->options().value(u"media"_s, QString()), u"A5"_s);
    QCOMPARE(m_dialog->options().value(u"MediaType"_s, QString()), u"Thick"_s);
    QVERIFY(m_dialog->options().value(u"copies"_s, QString()) != u"4"_s);
}

void TestPrintDialog::selectingAgainOnlyUpdates()
{
    make(u"Plain"_s);
    find<QSpinBox>("CopiesSpinBox")->setValue(6);
    run("cupsdisable", {u"Plain"_s});
    choose(u"Plain"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 6);
    QCOMPARE(text("StatusText"), u"stopped, accepting jobs"_s);
    choose(u"Photo"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 1);
    run("cupsenable", {u"Plain"_s});
}

void TestPrintDialog::choosingInTheList()
{
    make();
    show();
    combo()->setFocus();
    combo()->showPopup();
    QAbstractItemView *list = combo()->view();
    QTRY_VERIFY(list->isVisible());
    list->setCurrentIndex(list->model()->index(combo()->findText(u"Stopped"_s), 0));
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_COMPARE(m_dialog->destination(), u"Stopped"_s);
    QVERIFY(button("StartButton")->isEnabled());
}

void TestPrintDialog::startsAPrinter_data()
{
    QTest::addColumn<QString>("queue");
    for (const char *queue : {"Stopped", "Rejecting", "TestBoth", "Office"})
        QTest::newRow(queue) << queue;
}

void TestPrintDialog::startsAPrinter()
{
    QFETCH(QString, queue);
    addQueue(u"TestBoth"_s);
    run("cupsdisable", {u"TestBoth"_s, u"Office"_s});
    run("cupsreject", {u"TestBoth"_s});

    make(queue);
    QVERIFY(button("StartButton")->isEnabled());
    button("StartButton")->click();

    const QByteArray state = run("lpstat", {u"-p"_s, queue});
    QVERIFY2(state.contains("is idle."), state);
    const QByteArray accepting = run("lpstat", {u"-a"_s, queue});
    QVERIFY2(accepting.contains(" accepting requests"), accepting);
    QVERIFY2(!accepting.contains("not accepting"), accepting);
    QCOMPARE(text("StatusText"), u"idle, accepting jobs"_s);
    QVERIFY(!button("StartButton")->isEnabled());
    QVERIFY(button("OkButton")->isEnabled());
}

void TestPrintDialog::startOfNothing()
{
    const Environment noDefault("PRINTER", "Nowhere");
    make();
    m_dialog->StartPrinter();
    QCOMPARE(text("StatusText"), QString::fromLatin1(notFoundStatus));
    QVERIFY(run("lpstat", {u"-p"_s, u"Stopped"_s}).contains("disabled"));
}

void TestPrintDialog::setsTheDefault()
{
    make(u"Photo"_s);
    QVERIFY(button("SetAsDefButton")->isEnabled());
    button("SetAsDefButton")->click();
    QVERIFY(!button("SetAsDefButton")->isEnabled());
    const QByteArray saved = run("lpstat", {u"-d"_s});
    QVERIFY2(saved.trimmed().endsWith(": Photo"), saved);

    // The other saved entries are still there.
    QVERIFY(run("lpstat", {u"-e"_s}).contains("Laser/draft"));

    choose(u"Laser"_s);
    QVERIFY(!button("SetAsDefButton")->isEnabled());
    choose(u"Photo"_s);
    QVERIFY(button("SetAsDefButton")->isEnabled());
}

void TestPrintDialog::defaultOfTheDefault()
{
    make();
    QTest::ignoreMessage(QtWarningMsg, "Destination is already default");
    const QByteArray before = run("lpstat", {u"-d"_s});
    m_dialog->SetAsDefault();
    QCOMPARE(run("lpstat", {u"-d"_s}), before);
}

void TestPrintDialog::defaultIsNotSet_data()
{
    QTest::addColumn<QByteArray>("lpoptions"); // null: there is none
    QTest::addColumn<QString>("warning");
    const QString tookTooLong = u"ProcessEx::execute: lpoptions took too long and was ended"_s;
    QTest::newRow("missing") << QByteArray() << u"ProcessEx::execute: failed to launch"_s;
    QTest::newRow("fails") << QByteArray("exit 1") << QString();
    QTest::newRow("hangs") << QByteArray("exec /bin/sleep 600") << tookTooLong;
    QTest::newRow("hangs and will not end")
        << QByteArray("trap '' TERM; exec /bin/sleep 600") << tookTooLong;
}

void TestPrintDialog::defaultIsNotSet()
{
    QFETCH(QByteArray, lpoptions);
    QFETCH(QString, warning);
    make(u"Photo"_s);
    const QTemporaryDir folder;
    if (!lpoptions.isNull()) {
        QFile program(folder.filePath(u"lpoptions"_s));
        QVERIFY(program.open(QIODevice::WriteOnly));
        QVERIFY(program.write("#!/bin/sh\n" + lpoptions + '\n') > 0);
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }
    if (!warning.isNull())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    const auto limits = ServerConnection::limits();
    QElapsedTimer timer;
    timer.start();
    const auto box = boxShownBy([&] {
        const Environment path("PATH", folder.path().toLocal8Bit());
        ServerConnection::limits().totalMs = 200;
        button("SetAsDefButton")->click();
        ServerConnection::limits() = limits;
    });
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(box);
    QCOMPARE(box->title, u"Error!"_s);
    QCOMPARE(box->text, u"\"Photo\" could not be made the default."_s);
    QVERIFY(!button("SetAsDefButton")->isEnabled());
    QVERIFY(!run("lpstat", {u"-d"_s}).contains("Photo"));
}

void TestPrintDialog::properties_data()
{
    QTest::addColumn<QString>("ppdDefault");
    QTest::addColumn<bool>("collated");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("saved"); // what the properties dialog saves; null: nothing
    QTest::addColumn<bool>("expected");
    const QString nothing;
    QTest::newRow("default on") << "True" << false << true << nothing << true;
    QTest::newRow("default off") << "False" << true << true << nothing << false;
    QTest::newRow("saved True") << "False" << false << true << "True" << true;
    QTest::newRow("saved False") << "True" << true << true << "False" << false;
    QTest::newRow("saved true") << "False" << false << true << "true" << true;
    QTest::newRow("saved ON") << "False" << false << true << "ON" << true;
    QTest::newRow("saved Yes") << "False" << false << true << "Yes" << true;
    QTest::newRow("saved untrue") << "True" << true << true << "untrue" << false;
    QTest::newRow("rejected, default on") << "True" << false << false << nothing << false;
    QTest::newRow("rejected, default off") << "False" << true << false << nothing << true;
    QTest::newRow("rejected, saved False") << "True" << true << false << "False" << true;
}

void TestPrintDialog::properties()
{
    QFETCH(QString, ppdDefault);
    QFETCH(bool, collated);
    QFETCH(bool, accepted);
    QFETCH(QString, saved);
    QFile sample(qEnvironmentVariable("CUPS_SERVERROOT") + u"/ppd/Laser.ppd"_s);
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QByteArray ppd = sample.readAll();
    QVERIFY(ppd.contains("*DefaultCollate: False"));
    ppd.replace("*DefaultCollate: False", "*DefaultCollate: " + ppdDefault.toLatin1());
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"test.ppd"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(ppd) == ppd.size());
    file.close();
    addQueue(u"TestCollate"_s, {u"-P"_s, file.fileName()});

    QPointer<QDialog> shown;
    QString destination;
    QString given;
    bool ppdOpen = true;
    PrintDialogServices services;
    services.createPropertiesDialog = [&](const QString &name, const PrinterOptions &options,
                                          QWidget *parent) {
        destination = name;
        given = options.value(u"Collate"_s, QString());
        ppdOpen = options.ppd() != nullptr;
        shown = new QDialog(parent);
        QTimer::singleShot(0, shown, [&] {
            QStringList arguments{u"-p"_s, name, u"-o"_s, u"number-up=2"_s};
            if (!saved.isNull())
                arguments += {u"-o"_s, u"Collate="_s + saved};
            run("lpoptions", arguments);
            shown->done(accepted ? QDialog::Accepted : QDialog::Rejected);
        });
        return shown;
    };
    make(u"TestCollate"_s, services);
    find<QSpinBox>("CopiesSpinBox")->setValue(2);
    const auto collate = find<QAbstractButton>("CollateCheckBox");
    if (collate->isChecked() != collated)
        collate->click();
    button("PropertiesButton")->click();

    QCOMPARE(destination, u"TestCollate"_s);
    QCOMPARE(given, collated ? u"True"_s : u"False"_s);
    QVERIFY(!ppdOpen);
    QVERIFY(!shown);
    QTEST(collate->isChecked(), "expected");
    QCOMPARE(m_dialog->options().value(u"number-up"_s, QString()), u"2"_s);
    QCOMPARE(m_dialog->options().value(u"Collate"_s, QString()), saved);
    const QString picture = collate->isChecked() ? u"collate.png"_s : u"uncollate.png"_s;
    QCOMPARE(find<QLabel>("CopiesImage")->pixmap().toImage(),
             QPixmap(u":/printdialog/images/"_s + picture).toImage());
    // Copies and pages are as the user left them.
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 2);
}

void TestPrintDialog::propertiesOfAQueueWithoutCollate_data()
{
    QTest::addColumn<QString>("queue");
    QTest::newRow("without a PPD") << "Plain";
    QTest::newRow("with a PPD") << "Photo";
}

void TestPrintDialog::propertiesOfAQueueWithoutCollate()
{
    QFETCH(QString, queue);
    bool hasCollate = true;
    bool ppdOpen = true;
    int count = 0;
    PrintDialogServices services;
    services.createPropertiesDialog = [&](const QString &, const PrinterOptions &options,
                                          QWidget *parent) {
        ++count;
        hasCollate = options.hasOption(u"Collate"_s);
        ppdOpen = options.ppd() != nullptr;
        const auto dialog = new QDialog(parent);
        QTimer::singleShot(0, dialog, &QDialog::accept);
        return dialog;
    };
    make(queue, services);
    find<QSpinBox>("CopiesSpinBox")->setValue(2);
    const auto collate = find<QAbstractButton>("CollateCheckBox");
    for (const bool collated : {true, false}) {
        collate->setChecked(collated);
        button("PropertiesButton")->click();
        QVERIFY(!hasCollate);
        QVERIFY(!ppdOpen);
        QCOMPARE(collate->isChecked(), collated);
    }
    QCOMPARE(count, 2);
}

void TestPrintDialog::propertiesHaveNoDialogYet()
{
    make(u"Laser"_s);
    QVERIFY(button("OkButton")->isEnabled());
    QVERIFY(!button("PropertiesButton")->isEnabled());
    QCOMPARE(button("PropertiesButton")->toolTip(), u"This version has no properties dialog."_s);
    const QMap<QString, QString> before = valuesOf(m_dialog->options());
    m_dialog->EditProperties();
    QCOMPARE(valuesOf(m_dialog->options()), before);
}

void TestPrintDialog::helpButton()
{
    QStringList topics;
    PrintDialogServices services;
    services.showHelp = [&topics](const QString &topic) { topics.append(topic); };
    make(QString(), services);
    button("buttonHelp")->click();
    QCOMPARE(topics, QStringList(u"VESK.htm#GuiLPRDialog"_s));
}

void TestPrintDialog::helpAnywhere()
{
    int count = 0;
    PrintDialogServices services;
    services.showHelp = [&count](const QString &) { ++count; };
    services.createPropertiesDialog = [](const QString &, const PrinterOptions &, QWidget *) {
        return new QDialog;
    };
    make(u"Stopped"_s, services);
    find<QSpinBox>("CopiesSpinBox")->setValue(2);
    find<QAbstractButton>("SomePagesRadio")->click();
    show();
    int focusable = 0;
    const QList<QWidget *> all = m_dialog->findChildren<QWidget *>();
    for (QWidget *widget : all) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || !widget->isEnabled())
            continue;
        widget->setFocus();
        QTRY_VERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        QCOMPARE(count, ++focusable);
    }
    QVERIFY2(focusable >= 15, qPrintable(QString::number(focusable)));
    QTest::keyClick(m_dialog.get(), Qt::Key_F1);
    QCOMPARE(count, focusable + 1);
    QTest::keyClick(m_dialog.get(), Qt::Key_F2);
    QCOMPARE(count, focusable + 1);
}

void TestPrintDialog::helpIsMissing()
{
    make();
    m_dialog->ShowHelp();
    QTest::keyClick(m_dialog.get(), Qt::Key_F1);
    QVERIFY(button("OkButton")->isEnabled());
}

void TestPrintDialog::helpKeyIsPassedOn()
{
    int count = 0;
    PrintDialogServices services;
    services.showHelp = [&count](const QString &) { ++count; };
    make(QString(), services);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    event.accept();
    QCoreApplication::sendEvent(m_dialog.get(), &event);
    QCOMPARE(count, 1);
    // A dialog ignores the keys that it has no use for.
    QVERIFY(!event.isAccepted());
}

void TestPrintDialog::discoveryAddsAQueue()
{
    make();
    QCOMPARE(combo()->count(), 7);
    addQueue(u"TestLate"_s);
    show();
    QTRY_COMPARE(combo()->count(), 8);
    QCOMPARE(entries().last(), u"TestLate"_s);
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    QCOMPARE(combo()->currentIndex(), 0);
    choose(u"TestLate"_s);
    QCOMPARE(m_dialog->destination(), u"TestLate"_s);
    QVERIFY(button("OkButton")->isEnabled());
}

void TestPrintDialog::joiningKeepsTheSelection()
{
    make(u"Photo"_s);
    QSignalSpy activated(combo(), &QComboBox::textActivated);
    find<QSpinBox>("CopiesSpinBox")->setValue(5);
    m_dialog->joinDestinations(
        allWith({entry(u"Aa"_s), entry(u"Net"_s), entry(u"Zz"_s), entry(u"Pa"_s, true)}));
    QCOMPARE(entries(),
             QStringList({u"Aa"_s, u"Laser"_s, u"Laser"_s, u"Net"_s, u"Office"_s, u"Pa"_s,
                          u"Photo"_s, u"Plain"_s, u"Rejecting"_s, u"Stopped"_s, u"Zz"_s}));
    QCOMPARE(combo()->currentText(), u"Photo"_s);
    QCOMPARE(combo()->currentIndex(), 6);
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    QCOMPARE(find<QSpinBox>("CopiesSpinBox")->value(), 5);
    QVERIFY(activated.isEmpty());

    // What is there already does not join again.
    m_dialog->joinDestinations(allWith({entry(u"Net"_s)}));
    QCOMPARE(combo()->count(), 11);

    // The second entry of the same text stays the second one.
    combo()->setCurrentIndex(2);
    m_dialog->joinDestinations(allWith({entry(u"Ab"_s)}));
    QCOMPARE(combo()->currentIndex(), 3);
}

void TestPrintDialog::joiningWaitsForTheOpenList()
{
    make();
    show();
    combo()->showPopup();
    QAbstractItemView *list = combo()->view();
    QTRY_VERIFY(list->isVisible());
    list->setCurrentIndex(list->model()->index(3, 0));
    m_dialog->joinDestinations(allWith({entry(u"Aa"_s)}));
    QCoreApplication::processEvents();
    QVERIFY(list->isVisible());
    QCOMPARE(combo()->count(), 7);
    QCOMPARE(list->currentIndex().row(), 3);
    combo()->hidePopup();
    QTRY_COMPARE(combo()->count(), 8);
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    QCOMPARE(combo()->currentIndex(), 1);
}

void TestPrintDialog::choiceFromTheOpenListSurvivesJoining()
{
    make();
    show();
    combo()->showPopup();
    QAbstractItemView *list = combo()->view();
    QTRY_VERIFY(list->isVisible());
    m_dialog->joinDestinations(allWith({entry(u"Aa"_s)}));
    list->setCurrentIndex(list->model()->index(combo()->findText(u"Plain"_s), 0));
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_COMPARE(combo()->count(), 8);
    QCOMPARE(m_dialog->destination(), u"Plain"_s);
    QCOMPARE(combo()->currentText(), u"Plain"_s);
}

void TestPrintDialog::joiningAnEmptyList()
{
    {
        const ServerAway away;
        make();
    }
    m_dialog->joinDestinations({entry(u"Net"_s), entry(u"Photo"_s)});
    QCOMPARE(entries(), QStringList({u"Net"_s, u"Photo"_s}));
    QCOMPARE(combo()->currentIndex(), -1);
    QCOMPARE(m_dialog->destination(), QString());
    QVERIFY(!button("OkButton")->isEnabled());
    choose(u"Photo"_s);
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    QVERIFY(button("OkButton")->isEnabled());
}

void TestPrintDialog::lateDestinationIsSelected()
{
    make(u"TestLate"_s);
    QCOMPARE(m_dialog->destination(), u"Laser"_s);
    addQueue(u"TestLate"_s, {u"-D"_s, u"Late one"_s});
    show();
    QTRY_COMPARE(m_dialog->destination(), u"TestLate"_s);
    QCOMPARE(combo()->currentText(), u"TestLate"_s);
    QCOMPARE(m_dialog->options().destination(), u"TestLate"_s);
    QCOMPARE(text("DescriptionText"), u"Late one"_s);
}

void TestPrintDialog::lateDefaultIsSelected()
{
    {
        const Environment noDefault("PRINTER", "Nowhere");
        make();
    }
    QCOMPARE(m_dialog->destination(), QString());
    m_dialog->joinDestinations(allWith({entry(u"Net"_s, true)}));
    QCOMPARE(m_dialog->destination(), u"Net"_s);
    QCOMPARE(combo()->currentText(), u"Net"_s);
    // It is no queue of the server.
    QVERIFY(!button("OkButton")->isEnabled());
    choose(u"Laser"_s);
    QVERIFY(button("OkButton")->isEnabled());
    QVERIFY(button("SetAsDefButton")->isEnabled());
}

void TestPrintDialog::lateDestinationIsNotForcedOnTheUser_data()
{
    using Action = std::function<void(const QWidget &)>;
    QTest::addColumn<Action>("action");
    QTest::newRow("other destination") << Action([](const QWidget &dialog) {
        QTest::keyClick(child<QComboBox>(dialog, "PrintersCombo"), Qt::Key_Home);
    });
    QTest::newRow("copies") << Action([](const QWidget &dialog) {
        QTest::keyClick(child<QSpinBox>(dialog, "CopiesSpinBox"), Qt::Key_Up);
    });
    QTest::newRow("pages") << Action([](const QWidget &dialog) {
        child<QWidget>(dialog, "AllPagesRadio")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    });
    QTest::newRow("order") << Action([](const QWidget &dialog) {
        QTest::mouseClick(child<QWidget>(dialog, "ReverseCheckBox"), Qt::LeftButton, {}, {8, 8});
    });
}

void TestPrintDialog::lateDestinationIsNotForcedOnTheUser()
{
    QFETCH(std::function<void(const QWidget &)>, action);
    make(u"Net"_s);
    show();
    combo()->setCurrentIndex(3);
    action(*m_dialog);
    const QString destination = m_dialog->destination();
    m_dialog->joinDestinations(allWith({entry(u"Net"_s)}));
    QCOMPARE(combo()->count(), 8);
    QCOMPARE(m_dialog->destination(), destination);
}

void TestPrintDialog::dialogCanGoWhileDiscoveryRuns()
{
    for (int i = 0; i < 20; ++i) {
        make();
        show();
        m_dialog.reset();
    }
    QCoreApplication::processEvents();
}

void TestPrintDialog::tabWalk()
{
    PrintDialogServices services;
    services.createPropertiesDialog = [](const QString &, const PrinterOptions &, QWidget *) {
        return new QDialog;
    };
    make(u"Stopped"_s, services);
    find<QSpinBox>("CopiesSpinBox")->setValue(2);
    find<QAbstractButton>("SomePagesRadio")->click();
    show();
    const QStringList order{u"PrintersCombo"_s, u"SetAsDefButton"_s,  u"PropertiesButton"_s,
                            u"StartButton"_s,   u"SomePagesRadio"_s,  u"PagesEdit"_s,
                            u"CopiesSpinBox"_s, u"CollateCheckBox"_s, u"ReverseCheckBox"_s,
                            u"buttonHelp"_s,    u"OkButton"_s,        u"CancelButton"_s};
    QCOMPARE(QApplication::focusWidget(), combo());
    const auto walk = [](Qt::Key key, qsizetype steps) {
        QStringList names;
        for (qsizetype step = 0; step < steps; ++step) {
            names.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), key);
        }
        return names;
    };
    QCOMPARE(walk(Qt::Key_Tab, order.size()), order);
    QCOMPARE(QApplication::focusWidget(), combo());

    QStringList backwards = order.mid(1);
    std::reverse(backwards.begin(), backwards.end());
    backwards.prepend(order.first());
    QCOMPARE(walk(Qt::Key_Backtab, order.size()), backwards);
}

void TestPrintDialog::keyboardOnly()
{
    make();
    show();
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    };
    press(Qt::Key_P); // Photo
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    press(Qt::Key_Tab); // Set as User Default
    press(Qt::Key_Tab); // All pages: properties and start are disabled
    QCOMPARE(QApplication::focusWidget(), find<QWidget>("AllPagesRadio"));
    press(Qt::Key_Down);
    QVERIFY(find<QAbstractButton>("EvenPagesRadio")->isChecked());
    QVERIFY(!find<QLineEdit>("PagesEdit")->isEnabled());
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QVERIFY(find<QAbstractButton>("SomePagesRadio")->isChecked());
    QVERIFY(find<QLineEdit>("PagesEdit")->isEnabled());
    press(Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"2-4"_s);
    press(Qt::Key_Tab);
    press(Qt::Key_Up); // 2 copies
    press(Qt::Key_Tab);
    press(Qt::Key_Space); // uncollated
    press(Qt::Key_Tab);
    press(Qt::Key_Space); // reverse
    press(Qt::Key_Return);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    const PrinterOptions &options = m_dialog->options();
    QCOMPARE(options.value(u"page-ranges"_s, QString()), u"2-4"_s);
    QCOMPARE(options.value(u"copies"_s, QString()), u"2"_s);
    QCOMPARE(options.value(u"Collate"_s, QString()), u"False"_s);
    QCOMPARE(options.value(u"OutputOrder"_s, QString()), u"Reverse"_s);
}

void TestPrintDialog::escapeRejects()
{
    make(u"Plain"_s);
    const QMap<QString, QString> before = valuesOf(m_dialog->options());
    find<QAbstractButton>("OddPagesRadio")->click();
    find<QSpinBox>("CopiesSpinBox")->setValue(2);
    show();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(valuesOf(m_dialog->options()), before);
}

void TestPrintDialog::minimumHeightFollowsTheHint()
{
    make();
    show();
    QTRY_COMPARE(m_dialog->minimumHeight(), m_dialog->sizeHint().height());
    const int before = m_dialog->minimumHeight();

    addQueue(u"TestTall"_s, {u"-D"_s, u"some words "_s.repeated(11).trimmed(), u"-L"_s,
                             u"more words "_s.repeated(11).trimmed()});
    m_dialog->joinDestinations(allWith({entry(u"TestTall"_s)}));
    choose(u"TestTall"_s);
    QTRY_VERIFY(m_dialog->minimumHeight() > before);
    QTRY_COMPARE(m_dialog->minimumHeight(), m_dialog->sizeHint().height());
    QVERIFY(m_dialog->height() >= m_dialog->minimumHeight());
}

void TestPrintDialog::paintingSettles()
{
    make();
    PaintCounter paints(m_dialog.get());
    show();
    QTRY_VERIFY(paints.count > 0);
    // Once the events at hand are through, no paint event brings the next one.
    for (int round = 0; round < 20; ++round)
        QCoreApplication::processEvents();
    const int settled = paints.count;
    for (int round = 0; round < 100; ++round)
        QCoreApplication::processEvents();
    QVERIFY2(paints.count <= settled + 1, qPrintable(QString::number(paints.count - settled)));
}

QTEST_MAIN(TestPrintDialog)
#include "tst_printdialog.moc"
