#include "DialogTest.h"
#include "PrintDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;
using namespace DialogTest;

using Values = QMap<QString, QString>;

/** Pages and copies, and what OK writes. */
class TestPrintDialogPages : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void initialState();
    void setOptions_data();
    void setOptions();
    void setOptionsStartsAfresh();
    void documentHandling_data();
    void documentHandling();
    void documentHandlingAsAnOptionOfThePpd();
    void copiesAreClamped_data();
    void copiesAreClamped();

    void pagesEditIsForSomePages_data();
    void pagesEditIsForSomePages();
    void collateIsForManyCopies();
    void pictures_data();
    void pictures();

    void writes_data();
    void writes();
    void nothingIsRemoved();
    void invalidPages_data();
    void invalidPages();
    void invalidPagesTranslated();
    void hiddenPageTextIsNotChecked();
    void stoppedPrinter_data();
    void stoppedPrinter();
    void stoppedPrinterComesFirst();
    void acceptsAfterTheStart();
    void notFoundCanOnlyBeCancelled();
    void scaling_data();
    void scaling();
    void scalingAsAnOptionOfThePpd();
    void execTellsTheChoice();

private:
    void make(const QString &printer = u"Plain"_s,
              const PrinterOptions &options = PrinterOptions());
    template <typename Widget> Widget *find(const char *name)
    {
        return child<Widget>(*m_dialog, name);
    }
    QSpinBox *copies() { return find<QSpinBox>("CopiesSpinBox"); }
    QCheckBox *collate() { return find<QCheckBox>("CollateCheckBox"); }
    QCheckBox *reverse() { return find<QCheckBox>("ReverseCheckBox"); }
    QLineEdit *pages() { return find<QLineEdit>("PagesEdit"); }
    QString checkedRadio();
    Values options() { return m_dialog->options(); }
    /** The options that are there now, but were not or otherwise before. */
    Values news(const Values &before);

    World m_world;
    std::unique_ptr<PrintDialog> m_dialog;
};

namespace
{
PrinterOptions optionsWith(const Values &values)
{
    PrinterOptions options;
    for (auto value = values.begin(); value != values.end(); ++value)
        options.setOption(value.key(), value.value());
    return options;
}

/** Sets saved options of Plain. */
void save(const Values &values)
{
    QStringList arguments{u"-p"_s, u"Plain"_s};
    for (auto value = values.begin(); value != values.end(); ++value)
        arguments += {u"-o"_s, value.key() + u'=' + value.value()};
    run("lpoptions", arguments);
}

/** A queue TestPpd whose PPD has these options, and its option set with the PPD open. */
class PpdWithOptions
{
public:
    explicit PpdWithOptions(const QByteArrayList &keywords)
    {
        QFile sample(qEnvironmentVariable("CUPS_SERVERROOT") + u"/ppd/Laser.ppd"_s);
        if (!sample.open(QIODevice::ReadOnly))
            qFatal("no sample PPD");
        QByteArray ppd = sample.readAll();
        for (const QByteArray &keyword : keywords)
            ppd += "*OpenUI *" + keyword + "/Text: PickOne\n*Default" + keyword + ": A\n*" +
                   keyword + " A/A: \"\"\n*" + keyword + " B/B: \"\"\n*CloseUI: *" + keyword + "\n";
        QFile file(m_folder.filePath(u"test.ppd"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(ppd) != ppd.size())
            qFatal("cannot write the PPD");
        file.close();
        addQueue(u"TestPpd"_s, {u"-P"_s, file.fileName()});
    }

    PrinterOptions options() const
    {
        PrinterOptions opened;
        opened.setDestination(u"TestPpd"_s);
        if (!opened.openPPD() || !opened.ppd())
            qFatal("cannot open the PPD");
        return opened;
    }

private:
    QTemporaryDir m_folder;
};

/** Numbers the placeholders of the message as a translator might. */
class NumberingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(context, "PrintDialog") != 0 || !QByteArray(text).startsWith("Invalid page"))
            return QString();
        return u"text %1 position %2 item %3"_s;
    }
};
} // namespace

void TestPrintDialogPages::init()
{
    m_world.reset();
}

void TestPrintDialogPages::cleanup()
{
    m_dialog.reset();
}

void TestPrintDialogPages::make(const QString &printer, const PrinterOptions &options)
{
    m_dialog = std::make_unique<PrintDialog>(printer, options);
}

QString TestPrintDialogPages::checkedRadio()
{
    QStringList names;
    const QList<QRadioButton *> radios = m_dialog->findChildren<QRadioButton *>();
    for (const QRadioButton *radio : radios) {
        if (radio->isChecked())
            names.append(radio->objectName());
    }
    return names.join(u' ');
}

Values TestPrintDialogPages::news(const Values &before)
{
    Values changed = options();
    for (auto value = before.begin(); value != before.end(); ++value) {
        if (changed.contains(value.key()) && changed.value(value.key()) == value.value())
            changed.remove(value.key());
    }
    return changed;
}

void TestPrintDialogPages::initialState()
{
    make();
    QCOMPARE(checkedRadio(), u"AllPagesRadio"_s);
    QCOMPARE(pages()->text(), QString());
    QVERIFY(!pages()->isEnabled());
    QCOMPARE(copies()->value(), 1);
    QVERIFY(collate()->isChecked());
    QVERIFY(!collate()->isEnabled());
    QVERIFY(!reverse()->isChecked());
    const auto comments = find<QLabel>("PagesComments");
    QVERIFY(comments->minimumHeight() > 0);
    QCOMPARE(comments->minimumHeight(), comments->sizeHint().height());
}

void TestPrintDialogPages::setOptions_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<QString>("radio");
    QTest::addColumn<QString>("pageText");
    QTest::addColumn<int>("copyCount");
    QTest::addColumn<bool>("collated");
    QTest::addColumn<bool>("reversed");
    const QString all = u"AllPagesRadio"_s;
    const QString even = u"EvenPagesRadio"_s;
    const QString odd = u"OddPagesRadio"_s;
    const QString some = u"SomePagesRadio"_s;
    const QString empty = u""_s;
    using V = Values;
    QTest::newRow("nothing") << V{} << all << empty << 1 << true << false;
    QTest::newRow("copies") << V{{u"copies"_s, u"12"_s}} << all << empty << 12 << true << false;
    QTest::newRow("even") << V{{u"page-set"_s, u"even"_s}} << even << empty << 1 << true << false;
    QTest::newRow("odd") << V{{u"page-set"_s, u"odd"_s}} << odd << empty << 1 << true << false;
    QTest::newRow("all") << V{{u"page-set"_s, u"all"_s}} << all << empty << 1 << true << false;
    QTest::newRow("other set") << V{{u"page-set"_s, u"some"_s}} << all << empty << 1 << true
                               << false;
    QTest::newRow("ranges") << V{{u"page-ranges"_s, u"2-4,7"_s}} << some << u"2-4,7"_s << 1 << true
                            << false;
    QTest::newRow("ranges and odd") << V{{u"page-ranges"_s, u"2-4"_s}, {u"page-set"_s, u"odd"_s}}
                                    << odd << u"2-4"_s << 1 << true << false;
    QTest::newRow("collate False")
        << V{{u"Collate"_s, u"False"_s}} << all << empty << 1 << false << false;
    QTest::newRow("collate TRUE") << V{{u"Collate"_s, u"TRUE"_s}} << all << empty << 1 << true
                                  << false;
    QTest::newRow("collate untrue")
        << V{{u"Collate"_s, u"untrue"_s}} << all << empty << 1 << true << false;
    QTest::newRow("reverse") << V{{u"OutputOrder"_s, u"Reverse"_s}} << all << empty << 1 << true
                             << true;
    QTest::newRow("normal order") << V{{u"OutputOrder"_s, u"Normal"_s}} << all << empty << 1 << true
                                  << false;
}

void TestPrintDialogPages::setOptions()
{
    QFETCH(Values, values);
    make();
    m_dialog->setOptions(optionsWith(values));
    QTEST(checkedRadio(), "radio");
    QTEST(pages()->text(), "pageText");
    QCOMPARE(pages()->isEnabled(), checkedRadio() == u"SomePagesRadio"_s);
    QTEST(copies()->value(), "copyCount");
    QTEST(collate()->isChecked(), "collated");
    QCOMPARE(collate()->isEnabled(), copies()->value() > 1);
    QTEST(reverse()->isChecked(), "reversed");

    // A destination with these saved options is shown the same way.
    const Values shown{{checkedRadio(), pages()->text()}, {u"copies"_s, copies()->text()}};
    save(values);
    make();
    QCOMPARE(Values({{checkedRadio(), pages()->text()}, {u"copies"_s, copies()->text()}}), shown);
    QTEST(collate()->isChecked(), "collated");
    QTEST(reverse()->isChecked(), "reversed");
}

void TestPrintDialogPages::setOptionsStartsAfresh()
{
    make();
    m_dialog->setOptions(optionsWith({{u"page-ranges"_s, u"1"_s},
                                      {u"copies"_s, u"3"_s},
                                      {u"Collate"_s, u"False"_s},
                                      {u"OutputOrder"_s, u"Reverse"_s}}));
    QCOMPARE(checkedRadio(), u"SomePagesRadio"_s);
    m_dialog->setOptions(PrinterOptions());
    QCOMPARE(checkedRadio(), u"AllPagesRadio"_s);
    QCOMPARE(pages()->text(), QString());
    QCOMPARE(copies()->value(), 1);
    QVERIFY(collate()->isChecked());
    QVERIFY(!reverse()->isChecked());
}

void TestPrintDialogPages::documentHandling_data()
{
    QTest::addColumn<QString>("onCommandLine"); // null: not there
    QTest::addColumn<QString>("savedHandling");
    QTest::addColumn<QString>("savedCollate");
    QTest::addColumn<bool>("collated");
    const QString collated = u"separate-documents-collated-copies"_s;
    const QString uncollated = u"separate-documents-uncollated-copies"_s;
    QTest::newRow("collated beats False") << uncollated << collated << "False" << true;
    QTest::newRow("uncollated beats True") << uncollated << uncollated << "True" << false;
    QTest::newRow("one document") << uncollated << u"single-document"_s << "False" << true;
    QTest::newRow("new sheet") << uncollated << u"single-document-new-sheet"_s << "False" << true;
    QTest::newRow("other, False") << uncollated << u"other"_s << "False" << false;
    QTest::newRow("other, True") << uncollated << u"other"_s << "True" << true;
    QTest::newRow("not saved") << uncollated << QString() << "True" << true;
    QTest::newRow("not on the command line") << QString() << collated << "False" << false;
    QTest::newRow("not on the command line, uncollated")
        << QString() << uncollated << "True" << true;
}

void TestPrintDialogPages::documentHandling()
{
    QFETCH(QString, onCommandLine);
    QFETCH(QString, savedHandling);
    QFETCH(QString, savedCollate);
    Values saved{{u"Collate"_s, savedCollate}};
    if (!savedHandling.isNull())
        saved.insert(u"multiple-document-handling"_s, savedHandling);
    save(saved);
    Values initial;
    if (!onCommandLine.isNull())
        initial.insert(u"multiple-document-handling"_s, onCommandLine);
    make(u"Plain"_s, optionsWith(initial));
    QTEST(collate()->isChecked(), "collated");
}

void TestPrintDialogPages::documentHandlingAsAnOptionOfThePpd()
{
    const PpdWithOptions ppd({"multiple-document-handling"});
    save({{u"Collate"_s, u"False"_s},
          {u"multiple-document-handling"_s, u"separate-documents-collated-copies"_s}});
    make(u"Plain"_s, ppd.options());
    QVERIFY(collate()->isChecked());
    make(u"Plain"_s);
    QVERIFY(!collate()->isChecked());
}

void TestPrintDialogPages::copiesAreClamped_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("shown");
    QTest::newRow("no number") << "many" << 1;
    QTest::newRow("empty") << "" << 1;
    QTest::newRow("0") << "0" << 1;
    QTest::newRow("negative") << "-4" << 1;
    QTest::newRow("highest") << "9999" << 9999;
    QTest::newRow("too many") << "10000" << 9999;
    QTest::newRow("no int") << "99999999999" << 1;
}

void TestPrintDialogPages::copiesAreClamped()
{
    QFETCH(QString, value);
    make();
    m_dialog->setOptions(optionsWith({{u"copies"_s, value}}));
    QTEST(copies()->value(), "shown");
}

void TestPrintDialogPages::pagesEditIsForSomePages_data()
{
    QTest::addColumn<QString>("radio");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("all") << "AllPagesRadio" << false;
    QTest::newRow("even") << "EvenPagesRadio" << false;
    QTest::newRow("odd") << "OddPagesRadio" << false;
    QTest::newRow("some") << "SomePagesRadio" << true;
}

void TestPrintDialogPages::pagesEditIsForSomePages()
{
    QFETCH(QString, radio);
    make();
    find<QRadioButton>("SomePagesRadio")->click();
    QVERIFY(pages()->isEnabled());
    find<QRadioButton>(qPrintable(radio))->click();
    QTEST(pages()->isEnabled(), "enabled");
    QCOMPARE(checkedRadio(), radio);
}

void TestPrintDialogPages::collateIsForManyCopies()
{
    make();
    QVERIFY(!collate()->isEnabled());
    collate()->click();
    QVERIFY(collate()->isChecked());
    copies()->setValue(2);
    QVERIFY(collate()->isEnabled());
    collate()->click();
    QVERIFY(!collate()->isChecked());
    copies()->setValue(1);
    QVERIFY(!collate()->isEnabled());
    QVERIFY(!collate()->isChecked());
}

void TestPrintDialogPages::pictures_data()
{
    QTest::addColumn<bool>("collated");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<QString>("file");
    QTest::newRow("collated") << true << false << "collate.png";
    QTest::newRow("collated, reverse") << true << true << "collate_rev.png";
    QTest::newRow("uncollated") << false << false << "uncollate.png";
    QTest::newRow("uncollated, reverse") << false << true << "uncollate_rev.png";
}

void TestPrintDialogPages::pictures()
{
    QFETCH(bool, collated);
    QFETCH(bool, reversed);
    QFETCH(QString, file);
    make();
    copies()->setValue(2);
    if (!collated)
        collate()->click();
    if (reversed)
        reverse()->click();
    const QPixmap expected(u":/printdialog/images/"_s + file);
    QVERIFY(!expected.isNull());
    QCOMPARE(find<QLabel>("CopiesImage")->pixmap().toImage(), expected.toImage());
    // Each picture differs from the three others.
    for (const char *other :
         {"collate.png", "collate_rev.png", "uncollate.png", "uncollate_rev.png"}) {
        if (file != QLatin1StringView(other))
            QVERIFY(QPixmap(u":/printdialog/images/"_s + QLatin1StringView(other)).toImage() !=
                    expected.toImage());
    }
}

void TestPrintDialogPages::writes_data()
{
    using Action = std::function<void(TestPrintDialogPages &)>;
    QTest::addColumn<Action>("action");
    QTest::addColumn<Values>("expected");
    using T = TestPrintDialogPages;
    const auto radio = [](const char *name) {
        return Action([name](T &t) { t.find<QRadioButton>(name)->click(); });
    };
    QTest::newRow("nothing") << Action([](T &) {}) << Values{};
    QTest::newRow("all pages") << radio("AllPagesRadio") << Values{};
    QTest::newRow("even pages") << radio("EvenPagesRadio") << Values{{u"page-set"_s, u"even"_s}};
    QTest::newRow("odd pages") << radio("OddPagesRadio") << Values{{u"page-set"_s, u"odd"_s}};
    QTest::newRow("some pages") << Action([](T &t) {
        t.find<QRadioButton>("SomePagesRadio")->click();
        QTest::keyClicks(t.pages(), u"01,2-5,10-12,17"_s);
    }) << Values{{u"page-ranges"_s, u"01,2-5,10-12,17"_s}};
    QTest::newRow("copies, collated")
        << Action([](T &t) { t.copies()->setValue(2); })
        << Values{{u"copies"_s, u"2"_s},
                  {u"Collate"_s, u"True"_s},
                  {u"multiple-document-handling"_s, u"separate-documents-collated-copies"_s}};
    QTest::newRow("copies, uncollated")
        << Action([](T &t) {
               t.copies()->setValue(9999);
               t.collate()->click();
           })
        << Values{{u"copies"_s, u"9999"_s},
                  {u"Collate"_s, u"False"_s},
                  {u"multiple-document-handling"_s, u"separate-documents-uncollated-copies"_s}};
    QTest::newRow("one copy after two, uncollated") << Action([](T &t) {
        t.copies()->setValue(2);
        t.collate()->click();
        t.copies()->setValue(1);
    }) << Values{};
    QTest::newRow("reverse") << Action([](T &t) { t.reverse()->click(); })
                             << Values{{u"OutputOrder"_s, u"Reverse"_s}};
    QTest::newRow("reverse, and back") << Action([](T &t) {
        t.reverse()->click();
        t.reverse()->click();
    }) << Values{};
}

void TestPrintDialogPages::writes()
{
    QFETCH(std::function<void(TestPrintDialogPages &)>, action);
    QFETCH(Values, expected);
    make();
    const Values before = options();
    action(*this);
    QCOMPARE(options(), before); // written on OK only
    QVERIFY(!boxShownBy([this] { find<QPushButton>("OkButton")->click(); }));
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    expected.insert(u"scaling"_s, u"100"_s);
    QCOMPARE(news(before), expected);
    for (auto option = expected.begin(); option != expected.end(); ++option)
        QVERIFY(m_dialog->options().hasCupsOption(option.key()));
}

void TestPrintDialogPages::nothingIsRemoved()
{
    const Values saved{{u"page-ranges"_s, u"2-3"_s},
                       {u"page-set"_s, u"odd"_s},
                       {u"copies"_s, u"5"_s},
                       {u"Collate"_s, u"False"_s},
                       {u"OutputOrder"_s, u"Reverse"_s}};
    save(saved);
    make();
    find<QRadioButton>("AllPagesRadio")->click();
    copies()->setValue(1);
    reverse()->click();
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    for (auto option = saved.begin(); option != saved.end(); ++option)
        QCOMPARE(options().value(option.key()), option.value());
    QVERIFY(!options().contains(u"multiple-document-handling"_s));
}

void TestPrintDialogPages::invalidPages_data()
{
    QTest::addColumn<QString>("pageText");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("selected");
    QTest::newRow("blank") << "1, 2"
                           << "Invalid page ranges \"1, 2\"\n"
                              "Error at position 1, 2: invalid range value \"1, 2\""
                           << 2 << " 2";
    QTest::newRow("falling") << "1-2,5-3"
                             << "Invalid page ranges \"1-2,5-3\"\n"
                                "Error at position 1-2,5-3: invalid range value \"1-2,5-3\""
                             << 4 << "5-3";
    QTest::newRow("empty") << ""
                           << "Invalid page ranges \"\"\n"
                              "Error at position : invalid range value \"\""
                           << 0 << "";
    QTest::newRow("tags") << "<b>1</b>"
                          << "Invalid page ranges \"<b>1</b>\"\n"
                             "Error at position <b>1</b>: invalid range value \"<b>1</b>\""
                          << 0 << "<b>1</b>";
    // The second substitution finds the placeholder that the user has typed.
    QTest::newRow("placeholder") << "%1"
                                 << "Invalid page ranges \"0\"\n"
                                    "Error at position 0: invalid range value \"0\""
                                 << 0 << "%1";
}

void TestPrintDialogPages::invalidPages()
{
    QFETCH(QString, pageText);
    make();
    const Values before = options();
    find<QRadioButton>("SomePagesRadio")->click();
    pages()->setText(pageText);
    copies()->setValue(3);
    reverse()->click();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    const auto box = boxShownBy([this] { m_dialog->accept(); });
    QVERIFY(box);
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->title, u"Error!"_s);
    QTEST(box->text, "message");
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(options(), before);
    // The item is selected, for the next try.
    QCOMPARE(m_dialog->focusWidget(), pages());
    QTEST(pages()->selectedText(), "selected");
    QTEST(pages()->hasSelectedText() ? pages()->selectionStart() : pages()->cursorPosition(),
          "position");

    pages()->setText(u"1"_s);
    QVERIFY(!boxShownBy([this] { m_dialog->accept(); }));
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void TestPrintDialogPages::invalidPagesTranslated()
{
    NumberingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    make();
    find<QRadioButton>("SomePagesRadio")->click();
    pages()->setText(u"1,x,2"_s);
    const auto box = boxShownBy([this] { m_dialog->accept(); });
    QVERIFY(box);
    QCOMPARE(box->text, u"text 1,x,2 position 2 item x"_s);
}

void TestPrintDialogPages::hiddenPageTextIsNotChecked()
{
    make();
    const Values before = options();
    find<QRadioButton>("SomePagesRadio")->click();
    pages()->setText(u"nonsense"_s);
    find<QRadioButton>("OddPagesRadio")->click();
    QVERIFY(!boxShownBy([this] { m_dialog->accept(); }));
    QCOMPARE(news(before), Values({{u"page-set"_s, u"odd"_s}, {u"scaling"_s, u"100"_s}}));
}

void TestPrintDialogPages::stoppedPrinter_data()
{
    QTest::addColumn<QString>("queue");
    QTest::newRow("stopped") << "Stopped";
    QTest::newRow("idle, rejecting") << "Rejecting";
}

void TestPrintDialogPages::stoppedPrinter()
{
    QFETCH(QString, queue);
    make(queue);
    const Values before = options();
    copies()->setValue(2);
    m_dialog->show();
    const auto box = boxShownBy([this] { find<QPushButton>("OkButton")->click(); });
    QVERIFY(box);
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->title, u"Warning!"_s);
    QCOMPARE(box->text, u"You can't print anything while printer is stopped. Please, start the "
                        "selected printer."_s);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QCOMPARE(options(), before);
}

void TestPrintDialogPages::stoppedPrinterComesFirst()
{
    make(u"Stopped"_s);
    find<QRadioButton>("SomePagesRadio")->click();
    pages()->setText(u"x"_s);
    const auto box = boxShownBy([this] { m_dialog->accept(); });
    QVERIFY(box);
    QCOMPARE(box->title, u"Warning!"_s);
}

void TestPrintDialogPages::acceptsAfterTheStart()
{
    make(u"Rejecting"_s);
    QVERIFY(boxShownBy([this] { m_dialog->accept(); }));
    find<QPushButton>("StartButton")->click();
    QVERIFY(!boxShownBy([this] { m_dialog->accept(); }));
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->destination(), u"Rejecting"_s);
}

void TestPrintDialogPages::notFoundCanOnlyBeCancelled()
{
    addQueue(u"TestGone"_s);
    make(u"TestGone"_s);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    run("lpadmin", {u"-x"_s, u"TestGone"_s});
    m_dialog->updatePrinterControls();
    QTest::keyClick(m_dialog.get(), Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
}

void TestPrintDialogPages::scaling_data()
{
    QTest::addColumn<Values>("saved");
    QTest::addColumn<Values>("initial");
    QTest::addColumn<QString>("expected"); // null: no such option
    const Values fifty{{u"scaling"_s, u"50"_s}};
    const Values other{{u"natural-scaling"_s, u"50"_s}};
    QTest::newRow("nowhere") << Values{} << Values{} << u"100"_s;
    QTest::newRow("saved") << fifty << Values{} << u"50"_s;
    QTest::newRow("on the command line") << Values{} << fifty << QString();
    QTest::newRow("both") << fifty << Values{{u"scaling"_s, u"70"_s}} << u"50"_s;
    QTest::newRow("another option") << other << other << u"100"_s;
}

void TestPrintDialogPages::scaling()
{
    QFETCH(Values, saved);
    QFETCH(Values, initial);
    QFETCH(QString, expected);
    save(saved);
    make(u"Plain"_s, optionsWith(initial));
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(options().contains(u"scaling"_s), !expected.isNull());
    QCOMPARE(options().value(u"scaling"_s), expected);
}

void TestPrintDialogPages::scalingAsAnOptionOfThePpd()
{
    const PpdWithOptions ppd({"scaling"});
    make(u"Plain"_s, ppd.options());
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!options().contains(u"scaling"_s));
}

void TestPrintDialogPages::execTellsTheChoice()
{
    make(u"Photo"_s);
    QTimer::singleShot(0, m_dialog.get(), [this] { find<QPushButton>("OkButton")->click(); });
    QCOMPARE(m_dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->destination(), u"Photo"_s);
    QTimer::singleShot(0, m_dialog.get(), [this] { find<QPushButton>("CancelButton")->click(); });
    QCOMPARE(m_dialog->exec(), int(QDialog::Rejected));
}

QTEST_MAIN(TestPrintDialogPages)
#include "tst_printdialogpages.moc"
