#include "Destinations.h"
#include "MessageBoxes.h"
#include "PPDOptionView.h"
#include "PPDTreeView.h"
#include "Plugins.h"
#include "PropertiesTest.h"
#include "ServerConnection.h"
#include "TestPpd.h"

#include <vesk/plugin.h>

#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace PropertiesTest;
using MessageBoxes::Box;

/** What Apply and OK write and save, and when they refuse to. */
class TestPropertiesApply : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();

    void savesWhatTheControlsShow();
    void applyTwiceWritesTheSame();
    void okAppliesAndCloses();
    void savedDuplexBecomesSides();
    void savedLandscapeCanBeLeft();
    void driverOptionsAreSaved();
    void customPaperHasASize_data();
    void customPaperHasASize();
    void instanceIsSavedApart();
    void classIsSaved();
    void unknownBannerIsKept();
    void numbersHaveAPointInEveryLocale();

    void conflictIsRefused();
    void conflictOnOk();
    void resolvedConflictIsApplied();

    void destinationThatIsGone();
    void serverThatIsGone();
    void okWhileTheServerIsGone();
    void fileThatCannotBeWritten();

    void pluginPagesBecomeTabs();
    void pluginPageThatDoesNotApply();
    void pluginPagesAreKeptUpToDate_data();
    void pluginPagesAreKeptUpToDate();
    void pluginPagesFollowTheDriver();
    void pluginPagesAreAppliedLast();

    void roundTrip();

private:
    std::optional<Box> apply(PrinterPropertiesDialog &dialog);

    DialogTest::World m_world;
};

namespace
{
#ifdef __SANITIZE_ADDRESS__
constexpr bool fullRounds = false;
#else
constexpr bool fullRounds = true;
#endif

/** Has the library ask a server that is not there, while it lives. */
class NoServer
{
public:
    NoServer()
        : m_server(cupsServer())
    {
        cupsSetServer("/nowhere/cups.sock");
    }
    ~NoServer() { cupsSetServer(m_server.constData()); }
    NoServer(const NoServer &) = delete;
    NoServer &operator=(const NoServer &) = delete;

private:
    QByteArray m_server;
};

/** A page with one field, and what it was told. */
class TestPage : public QWidget, public Vesk::PluginPage
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    QStringList handledOptions() const override { return {u"qfax-number"_s, u"cpi"_s}; }
    void setOptions(const Vesk::OptionValues &values) override { told.append(values); }
    void collectOptions(Vesk::OptionValues &values, QStringList &removed) const override
    {
        values.insert(u"qfax-number"_s, u"555"_s);
        values.insert(u"cpi"_s, u"42"_s);
        removed.append(u"lpi"_s);
    }
    QStringList volatileOptions() const override { return {u"qfax-number"_s}; }

    QList<Vesk::OptionValues> told;

signals:
    void optionChanged();
};

class TestPlugin : public Vesk::Plugin
{
public:
    explicit TestPlugin(bool applies)
        : m_applies(applies)
    {
    }
    bool applies(const Vesk::PluginHost *host) override
    {
        asked.append(host->destination());
        return m_applies;
    }
    QWidget *createPage(QWidget *parent) override { return page = new TestPage(parent); }
    QString title() const override { return u"Fax"_s; }
    Vesk::PluginPage *pageInterface(QWidget *) override { return page; }

    QStringList asked;
    TestPage *page = nullptr;

private:
    bool m_applies;
};

/** Adds a plug-in for one dialog. */
class WithPlugin
{
public:
    explicit WithPlugin(bool applies = true)
        : plugin(applies)
    {
        Plugins::plugins()->append(&plugin);
    }
    ~WithPlugin() { Plugins::plugins()->removeLast(); }
    WithPlugin(const WithPlugin &) = delete;
    WithPlugin &operator=(const WithPlugin &) = delete;

    TestPlugin plugin;
};

QMap<QString, QString> tableOf(const PrinterPropertiesDialog &dialog)
{
    return dialog.options();
}

PPDTreeView *tree(const PrinterPropertiesDialog &dialog)
{
    return child<PPDTreeView>(dialog, "ppdTreeView");
}

/** Sets an option of the driver as the pane does for its user. */
void setDriverOption(PrinterPropertiesDialog &dialog, const char *keyword, const char *choice)
{
    PPDTree::BaseItem *row = tree(dialog)->m_dict.value(QString::fromLatin1(keyword));
    tree(dialog)->setCurrentItem(row);
    const auto option = static_cast<PPDTree::OptionItem *>(row);
    const ppd_choice_t *wanted = ppdFindChoice(option->m_option, choice);
    if (!wanted)
        qFatal("no choice %s of %s", choice, keyword);
    const int index = static_cast<int>(wanted - option->m_option->choices);
    child<PPDOptionView>(dialog, "ppdOptionView")->selectionChanged(index);
}

/** Makes the dialog's driver options conflict, and answers the tree's warning. */
void makeConflict(PrinterPropertiesDialog &dialog)
{
    work(dialog, u"DuplexLongRadio"_s);
    const auto box = MessageBoxes::boxShownBy([&] { work(dialog, u"MediaCombo=Labels"_s); });
    if (!box || !tree(dialog)->m_hasConflicts)
        qFatal("no conflict");
}

/** The saved-options file without the line of a destination. */
QByteArrayList otherLines(const QByteArray &file, const QByteArray &destination)
{
    QByteArrayList lines;
    const QByteArrayList all = file.split('\n');
    for (const QByteArray &line : all) {
        if (line.split(' ').value(1) != destination)
            lines.append(line);
    }
    return lines;
}

/** What all controls show, by object name. What cannot be worked is not saved, so it has no value.
 */
QMap<QString, QString> controls(const PrinterPropertiesDialog &dialog)
{
    QMap<QString, QString> result;
    const auto pane = child<QWidget>(dialog, "ppdOptionView");
    const auto add = [&result, &dialog, pane](auto *type, const char *property) {
        const auto all = dialog.findChildren<std::remove_pointer_t<decltype(type)> *>();
        for (const QWidget *widget : all) {
            const QString name = widget->objectName();
            if (!name.isEmpty() && !name.startsWith(u"qt_") && !pane->isAncestorOf(widget))
                result.insert(name, widget->isEnabled() ? widget->property(property).toString()
                                                        : u"off"_s);
        }
    };
    add(static_cast<QRadioButton *>(nullptr), "checked");
    add(static_cast<QCheckBox *>(nullptr), "checked");
    add(static_cast<QComboBox *>(nullptr), "currentText");
    add(static_cast<QSpinBox *>(nullptr), "value");
    add(static_cast<QSlider *>(nullptr), "value");
    result.remove(u"UnitsCombo"_s); // of the dialog alone, and not saved
    for (auto row = tree(dialog)->m_dict.cbegin(); row != tree(dialog)->m_dict.cend(); ++row)
        result.insert(row.key(), (*row)->text(0));
    return result;
}

/** Works every control with values of `random`. */
void workAll(PrinterPropertiesDialog &dialog, QRandomGenerator &random)
{
    const auto pick = [&random](int count) { return random.bounded(count); };
    for (const char *name : {"SizeCombo", "StartBannerCombo", "EndBannerCombo", "UnitsCombo"}) {
        const auto combo = child<QComboBox>(dialog, name);
        combo->setCurrentIndex(pick(combo->count()));
        emit combo->textActivated(combo->currentText());
    }
    // The first three go with a duplexer.
    const auto media = child<QComboBox>(dialog, "MediaCombo");
    media->setCurrentIndex(pick(3));
    emit media->textActivated(media->currentText());
    for (const auto &names : {QList<const char *>{"PortraitRadio", "LandscapeRadio"},
                              {"DuplexOffRadio", "DuplexLongRadio", "DuplexShortRadio"},
                              {"OnePageRadio", "TwoPagesRadio", "FourPagesRadio"},
                              {"ResolutionCheckBox", "ScalingCheckBox"}})
        child<QAbstractButton>(dialog, names[pick(static_cast<int>(names.size()))])->click();
    for (const char *name : {"OrientationReverseCheck", "DefaultMarginsCheckBox", "PrettyCheckBox",
                             "DefColorsCheckBox"}) {
        if (pick(2))
            child<QAbstractButton>(dialog, name)->click();
    }
    const QList<QSpinBox *> boxes = dialog.findChildren<QSpinBox *>();
    for (QSpinBox *box : boxes) {
        if (box->isEnabled())
            box->setValue(random.bounded(box->minimum(), box->maximum() + 1));
    }
    for (const char *name : {"HorPositionSlider", "VerPositionSlider"})
        child<QSlider>(dialog, name)->setValue(pick(3));
    const QList<QPair<const char *, QList<const char *>>> driver{
        {"Resolution", {"300dpi", "600dpi", "1200dpi"}},
        {"ColorModel", {"CMYK", "Gray"}},
        {"ColorProfile", {"Office", "Vivid", "None"}},
        {"Density", {"Level1", "Level2", "Level3", "Level4", "Level5"}},
        {"TonerSaving", {"False", "True"}},
        {"OutputBin", {"Upper", "Rear"}},
        {"InputSlot", {"Auto", "Tray1", "Tray2", "Tray3"}}};
    for (const auto &[keyword, choices] : driver)
        setDriverOption(dialog, keyword, choices[pick(static_cast<int>(choices.size()))]);
}
} // namespace

void TestPropertiesApply::cleanup()
{
    m_world.resetSavedOptions();
}

/** Presses Apply; returns the message box that comes up. */
std::optional<Box> TestPropertiesApply::apply(PrinterPropertiesDialog &dialog)
{
    return MessageBoxes::boxShownBy(
        [&dialog] { QTest::mouseClick(applyButton(dialog), Qt::LeftButton); });
}

void TestPropertiesApply::savesWhatTheControlsShow()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"PrettyCheckBox"_s);
    QVERIFY(!apply(*dialog));
    const QMap<QString, QString> saved = savedOptions(u"Laser"_s);
    const QMap<QString, QString> always{{u"orientation-requested"_s, u"3"_s},
                                        {u"columns"_s, u"1"_s},
                                        {u"cpi"_s, u"10"_s},
                                        {u"lpi"_s, u"6"_s},
                                        {u"scaling"_s, u"100"_s}};
    for (auto option = always.begin(); option != always.end(); ++option)
        QCOMPARE(saved.value(option.key()), option.value());
    QVERIFY(saved.contains(u"prettyprint"_s));
    for (const char *name : {"sides", "Duplex", "number-up", "page-left", "hue", "ppi", "position",
                             "PageSize", "PageRegion", "media"})
        QVERIFY2(!saved.contains(QString::fromLatin1(name)), name);
    // The server's own default for it is the same, so the library need not write it.
    QCOMPARE(dialog->options().value(u"job-sheets"_s, {}), u"none,none"_s);
}

void TestPropertiesApply::applyTwiceWritesTheSame()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"LandscapeRadio"_s);
    work(*dialog, u"DuplexLongRadio"_s);
    QVERIFY(!apply(*dialog));
    const QByteArray once = savedFile();
    QVERIFY(!applyButton(*dialog)->isEnabled());
    work(*dialog, u"PrettyCheckBox"_s);
    work(*dialog, u"PrettyCheckBox"_s);
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedFile(), once);
}

void TestPropertiesApply::okAppliesAndCloses()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"LpiSpinBox=8"_s);
    work(*dialog, u"OkButton"_s);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QVERIFY(!dialog->isVisible());
    QCOMPARE(savedOptions(u"Laser"_s).value(u"lpi"_s), u"8"_s);
}

void TestPropertiesApply::savedDuplexBecomesSides()
{
    const auto dialog = open(u"Laser/draft"_s);
    QVERIFY(child<QRadioButton>(*dialog, "DuplexLongRadio")->isChecked());
    dialog->ApplyChanges();
    const QMap<QString, QString> saved = savedOptions(u"Laser/draft"_s);
    QVERIFY(!saved.contains(u"Duplex"_s));
    QCOMPARE(saved.value(u"sides"_s), u"two-sided-long-edge"_s);
    QVERIFY(child<QRadioButton>(*open(u"Laser/draft"_s), "DuplexLongRadio")->isChecked());
}

void TestPropertiesApply::savedLandscapeCanBeLeft()
{
    PrinterOptions options;
    QVERIFY(options.load(u"Plain"_s));
    options.setOption(u"landscape"_s, u"true"_s);
    QVERIFY(options.save(u"Plain"_s));
    const auto dialog = open(u"Plain"_s);
    QVERIFY(child<QRadioButton>(*dialog, "LandscapeRadio")->isChecked());
    child<QRadioButton>(*dialog, "PortraitRadio")->click();
    QVERIFY(!apply(*dialog));
    QVERIFY(!savedOptions(u"Plain"_s).contains(u"landscape"_s));
    QVERIFY(child<QRadioButton>(*open(u"Plain"_s), "PortraitRadio")->isChecked());
}

void TestPropertiesApply::driverOptionsAreSaved()
{
    const auto dialog = open(u"Laser"_s);
    setDriverOption(*dialog, "ColorModel", "Gray");
    QVERIFY(applyButton(*dialog)->isEnabled());
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedOptions(u"Laser"_s).value(u"ColorModel"_s), u"Gray"_s);
    setDriverOption(*dialog, "ColorModel", "CMYK");
    QVERIFY(!apply(*dialog));
    QVERIFY(!savedOptions(u"Laser"_s).contains(u"ColorModel"_s));
}

void TestPropertiesApply::customPaperHasASize_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("saved");
    QTest::newRow("of the paper before") << "PageSize=A4"
                                         << "Custom.595x842pt";
    QTest::newRow("the custom paper again") << "PageSize=Custom.300x400"
                                            << "Custom.300x400pt";
}

void TestPropertiesApply::customPaperHasASize()
{
    QFETCH(QString, before);
    auto dialog = open(u"Photo"_s, {before});
    const auto combo = child<QComboBox>(*dialog, "SizeCombo");
    choose(combo, combo->count() - 1);
    dialog->ApplyChanges();
    QTEST(savedOptions(u"Photo"_s).value(u"PageSize"_s), "saved");
    const int custom = combo->currentIndex();
    dialog = open(u"Photo"_s);
    QCOMPARE(child<QComboBox>(*dialog, "SizeCombo")->currentIndex(), custom);
}

void TestPropertiesApply::instanceIsSavedApart()
{
    const QByteArray before = savedFile();
    const auto dialog = open(u"Laser/draft"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedOptions(u"Laser/draft"_s).value(u"cpi"_s), u"17"_s);
    QCOMPARE(otherLines(savedFile(), "Laser/draft"), otherLines(before, "Laser/draft"));
}

void TestPropertiesApply::classIsSaved()
{
    const auto dialog = open(u"Office"_s);
    QVERIFY(child<QComboBox>(*dialog, "SizeCombo")->count() > 0);
    work(*dialog, u"CpiSpinBox=17"_s);
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedOptions(u"Office"_s).value(u"cpi"_s), u"17"_s);
}

void TestPropertiesApply::unknownBannerIsKept()
{
    const auto dialog = open(u"Laser"_s, {u"job-sheets=ours"_s});
    QCOMPARE(child<QComboBox>(*dialog, "StartBannerCombo")->currentIndex(), -1);
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"job-sheets"_s, {}), u"ours,none"_s);
    work(*dialog, u"StartBannerCombo=secret"_s);
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"job-sheets"_s, {}), u"secret,none"_s);
}

void TestPropertiesApply::numbersHaveAPointInEveryLocale()
{
    const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"DefaultMarginsCheckBox"_s);
    work(*dialog, u"UnitsCombo=mm"_s);
    work(*dialog, u"LeftSpinBox=25,4"_s);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.text"_s), u"25,4"_s);
    work(*dialog, u"ScalingSpinBox=800"_s);
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedOptions(u"Laser"_s).value(u"page-left"_s), u"72"_s);
    QCOMPARE(savedOptions(u"Laser"_s).value(u"scaling"_s), u"800"_s);
}

void TestPropertiesApply::conflictIsRefused()
{
    const QByteArray before = savedFile();
    const auto dialog = open(u"Laser"_s);
    makeConflict(*dialog);
    const QMap<QString, QString> options = tableOf(*dialog);
    const auto box = apply(*dialog);
    QVERIFY(box);
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->title, u"LPR GUI: Options Conflict"_s);
    QCOMPARE(box->text, u"Some options selected are in conflict.\nResolve those conflicts before "
                        "continuing.\nHint: click Advanced on Device tab.\nConflicting options "
                        "will be shown in red color.\n"_s);
    QCOMPARE(box->buttons, QMessageBox::Ok);
    QCOMPARE(box->parent, dialog.get());
    QVERIFY(applyButton(*dialog)->isEnabled());
    QCOMPARE(tableOf(*dialog), options);
    QCOMPARE(savedFile(), before);
    // Both rows are in conflict, others are not.
    for (const char *keyword : {"Duplex", "MediaType"})
        QVERIFY(tree(*dialog)->m_dict.value(QString::fromLatin1(keyword))->m_conflict);
    QVERIFY(!tree(*dialog)->m_dict.value(u"PageSize"_s)->m_conflict);
}

void TestPropertiesApply::conflictOnOk()
{
    const auto dialog = open(u"Laser"_s);
    makeConflict(*dialog);
    // Each of the two answers one box.
    std::optional<Box> other;
    const auto box = MessageBoxes::boxShownBy(
        [&] { other = MessageBoxes::boxShownBy([&] { work(*dialog, u"OkButton"_s); }); });
    QCOMPARE(int(box.has_value()) + int(other.has_value()), 1);
    QCOMPARE((box ? box : other)->title, u"LPR GUI: Options Conflict"_s);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
}

void TestPropertiesApply::resolvedConflictIsApplied()
{
    const auto dialog = open(u"Laser"_s);
    makeConflict(*dialog);
    QVERIFY(apply(*dialog));
    work(*dialog, u"MediaCombo=Thick Paper"_s);
    QVERIFY(!tree(*dialog)->m_hasConflicts);
    QVERIFY(!apply(*dialog));
    QCOMPARE(savedOptions(u"Laser"_s).value(u"MediaType"_s), u"Thick"_s);
    QCOMPARE(savedOptions(u"Laser"_s).value(u"sides"_s), u"two-sided-long-edge"_s);
}

void TestPropertiesApply::destinationThatIsGone()
{
    DialogTest::addQueue(u"TestGone"_s);
    const auto dialog = open(u"TestGone"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    DialogTest::run("lpadmin", {u"-x"_s, u"TestGone"_s});
    const auto box = apply(*dialog);
    QVERIFY(box);
    QCOMPARE(box->title, u"Unknown Printer"_s);
    QVERIFY(box->text.contains(u"\"TestGone\""_s));
    QVERIFY(!applyButton(*dialog)->isEnabled());
    // As told, it is there for when the printer comes back.
    QCOMPARE(savedOptions(u"TestGone"_s).value(u"cpi"_s), u"17"_s);
}

void TestPropertiesApply::serverThatIsGone()
{
    const QByteArray before = savedFile();
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    work(*dialog, u"SizeCombo=A5"_s);
    const NoServer noServer;
    QString details;
    const auto box = MessageBoxes::boxShownBy([&] {
        QTimer::singleShot(0, dialog.get(), [&] {
            const auto shownBox = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            const auto list = shownBox ? shownBox->findChild<QTextEdit *>() : nullptr;
            details = list && list->isVisible() ? list->toPlainText() : QString();
        });
        QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    });
    QVERIFY(box);
    QCOMPARE(box->title, u"Options Not Saved"_s);
    QVERIFY(box->text.contains(u"\"Laser\""_s));
    const QStringList lines = details.split(u'\n');
    QVERIFY2(lines.contains(u"cpi = 17"_s), qPrintable(details));
    QVERIFY2(lines.contains(u"PageSize = A5"_s), qPrintable(details));
    QVERIFY(!applyButton(*dialog)->isEnabled());
    QCOMPARE(savedFile(), before);
}

void TestPropertiesApply::okWhileTheServerIsGone()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    const NoServer noServer;
    QVERIFY(MessageBoxes::boxShownBy([&] { work(*dialog, u"OkButton"_s); }));
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QVERIFY(!dialog->isVisible());
}

void TestPropertiesApply::fileThatCannotBeWritten()
{
    const QString file = DialogTest::World::savedOptionsFile();
    const QString aside = file + u".aside"_s;
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    QVERIFY(QFile::rename(file, aside));
    QVERIFY(QDir().mkpath(file)); // nobody can write into a folder, root neither
    const auto box = apply(*dialog);
    QVERIFY(QDir().rmdir(file));
    QVERIFY(QFile::rename(aside, file));
    QVERIFY(box);
    QCOMPARE(box->title, u"Options Not Saved"_s);
}

void TestPropertiesApply::pluginPagesBecomeTabs()
{
    WithPlugin with;
    const auto dialog = open(u"Laser"_s, {u"cpi=7"_s});
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    QCOMPARE(tabs->count(), 5);
    QCOMPARE(tabs->tabText(4), u"Fax"_s);
    QCOMPARE(with.plugin.asked, QStringList{u"Laser"_s});
    // At first it is told everything, its own options included.
    QCOMPARE(with.plugin.page->told.size(), 1);
    QCOMPARE(with.plugin.page->told.first().value(u"cpi"_s), u"7"_s);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    emit with.plugin.page->optionChanged();
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesApply::pluginPageThatDoesNotApply()
{
    WithPlugin with(false);
    QCOMPARE(child<QTabWidget>(*open(u"Laser"_s), "TabControl")->count(), 4);
    QVERIFY(!with.plugin.page);
}

void TestPropertiesApply::pluginPagesAreKeptUpToDate_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("paper size") << "SizeCombo=A5" << true;
    QTest::newRow("paper type") << "MediaCombo=Labels" << true;
    QTest::newRow("image size") << "ResolutionCheckBox" << true;
    QTest::newRow("fit") << "FitToPageButton" << true;
    QTest::newRow("banner") << "StartBannerCombo=secret" << false;
    QTest::newRow("orientation") << "LandscapeRadio" << false;
    QTest::newRow("duplex") << "DuplexLongRadio" << false;
    QTest::newRow("colours") << "DefColorsCheckBox" << false;
}

void TestPropertiesApply::pluginPagesAreKeptUpToDate()
{
    QFETCH(QString, step);
    WithPlugin with;
    const auto dialog = open(u"Laser"_s, {u"cpi=7"_s, u"lpi=8"_s});
    with.plugin.page->told.clear();
    work(*dialog, step);
    QTEST(!with.plugin.page->told.isEmpty(), "isTold");
    if (with.plugin.page->told.isEmpty())
        return;
    const Vesk::OptionValues told = with.plugin.page->told.last();
    QCOMPARE(told.value(u"PageSize"_s), dialog->options().value(u"PageSize"_s, {}));
    QCOMPARE(told.value(u"Resolution"_s), u"600dpi"_s);
    QCOMPARE(told.value(u"lpi"_s), u"8"_s);
    QVERIFY(!told.contains(u"cpi"_s));
}

void TestPropertiesApply::pluginPagesFollowTheDriver()
{
    WithPlugin with;
    const auto dialog = open(u"Laser"_s);
    with.plugin.page->told.clear();
    setDriverOption(*dialog, "Resolution", "1200dpi");
    QVERIFY(!with.plugin.page->told.isEmpty());
    QCOMPARE(with.plugin.page->told.last().value(u"Resolution"_s), u"1200dpi"_s);
}

void TestPropertiesApply::pluginPagesAreAppliedLast()
{
    WithPlugin with;
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"CpiSpinBox=17"_s);
    work(*dialog, u"LpiSpinBox=8"_s);
    QVERIFY(!apply(*dialog));
    QCOMPARE(dialog->options().value(u"cpi"_s, {}), u"42"_s);
    QVERIFY(!dialog->options().contains(u"lpi"_s));
    const QMap<QString, QString> saved = savedOptions(u"Laser"_s);
    QCOMPARE(saved.value(u"cpi"_s), u"42"_s);
    QVERIFY(!saved.contains(u"lpi"_s));
    QCOMPARE(saved.value(u"volatile-qfax-number"_s), u"555"_s);
    QCOMPARE(optionsOf(u"Laser"_s).value(u"qfax-number"_s, {}), u"555"_s);
}

/** Random settings come back as they were, and nothing else in the file changes. */
void TestPropertiesApply::roundTrip()
{
    constexpr int rounds = fullRounds ? 300 : 60;
    QRandomGenerator random(20261121);
    const QByteArray before = savedFile();
    for (int round = 0; round < rounds; ++round) {
        auto dialog = open(u"Laser"_s);
        workAll(*dialog, random);
        QVERIFY(!tree(*dialog)->m_hasConflicts);
        dialog->ApplyChanges();
        const QMap<QString, QString> set = controls(*dialog);
        const QByteArray saved = savedFile();
        QCOMPARE(otherLines(saved, "Laser"), otherLines(before, "Laser"));

        dialog = open(u"Laser"_s);
        const QMap<QString, QString> read = controls(*dialog);
        for (auto value = set.begin(); value != set.end(); ++value)
            QVERIFY2(read.value(value.key()) == *value,
                     qPrintable(u"round %1: %2 was %3 and is %4"_s.arg(round).arg(
                         value.key(), *value, read.value(value.key()))));
        dialog->ApplyChanges();
        QCOMPARE(savedFile(), saved);
    }
}

QTEST_MAIN(TestPropertiesApply)
#include "tst_propertiesapply.moc"
