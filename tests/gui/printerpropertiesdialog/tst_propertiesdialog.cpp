#include "PPDOptionView.h"
#include "PPDTreeView.h"
#include "PropertiesTest.h"
#include "TestPpd.h"

#include <QButtonGroup>
#include <QMetaMethod>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace PropertiesTest;

/** The dialog as a whole: what it begins with, what leads where, when it can be applied. */
class TestPropertiesDialog : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { m_world.resetSavedOptions(); }

    void methodOrder();
    void slotsAreReached_data();
    void slotsAreReached();
    void title_data();
    void title();
    void fourTabs();
    void buttonGroups();
    void listsOfTheDriver();
    void paperThatIsNotListed();
    void withoutDriver();
    void driverWithoutDuplex_data();
    void driverWithoutDuplex();
    void unknownDuplexLeavesTheButtons();

    void applyBeginsDisabled();
    void everyControlEnablesApply_data();
    void everyControlEnablesApply();
    void sameChoiceLeavesApply_data();
    void sameChoiceLeavesApply();
    void changedChoiceAfterApply();

    void duplexIsWrittenAtOnce_data();
    void duplexIsWrittenAtOnce();
    void paperIsMarkedAtOnce();
    void treeFollowsThePaper();
    void paneFollowsThePaper();
    void selectedRowStaysInSight();
    void generalFollowsTheDriver();
    void choosingThePaperThatWasThereFirst();

    void marginTotals_data();
    void marginTotals();
    void marginsKeepWithinTheirTotal();
    void marginsAreAtLeastThirteen();
    void smallerPaperTakesMarginsAlong();
    void unitsKeepTheMargins_data();
    void unitsKeepTheMargins();
    void defaultMargins();
    void slidersAndSpinBoxesAreOne_data();
    void slidersAndSpinBoxesAreOne();
    void defaultColours();
    void coloursOfTheDriver();
    void sampleImageFollowsTheSliders();
    void fitToPage();

    void helpByButtonAndKey();
    void keysLeadThroughATab();
    void keysLeadThroughCustomValues();
    void arrowsChooseInAGroup();
    void cancelSavesNothing();

private:
    DialogTest::World m_world;
};

namespace
{
/** Notes each of its slots that is called. */
class Recorder : public PrinterPropertiesDialog
{
public:
    using PrinterPropertiesDialog::PrinterPropertiesDialog;

    void FitToPage() override { note("FitToPage"), PrinterPropertiesDialog::FitToPage(); }
    void OnSliderChanged() override
    {
        note("OnSliderChanged"), PrinterPropertiesDialog::OnSliderChanged();
    }
    void OnSpinChanged() override
    {
        note("OnSpinChanged"), PrinterPropertiesDialog::OnSpinChanged();
    }
    void UpdateControls() override
    {
        note("UpdateControls"), PrinterPropertiesDialog::UpdateControls();
    }
    void ApplyChanges() override { note("ApplyChanges"), PrinterPropertiesDialog::ApplyChanges(); }
    void ShowHelp() override { note("ShowHelp"), PrinterPropertiesDialog::ShowHelp(); }
    void OnComboItemActivated(const QString &text) override
    {
        note("OnComboItemActivated"), PrinterPropertiesDialog::OnComboItemActivated(text);
    }
    void OnButtonGroupClicked(int id) override
    {
        note("OnButtonGroupClicked"), PrinterPropertiesDialog::OnButtonGroupClicked(id);
    }
    void setUseDefaultMargins(bool use) override
    {
        note("setUseDefaultMargins"), PrinterPropertiesDialog::setUseDefaultMargins(use);
    }
    void setReversePageOrientation(bool on) override
    {
        note("setReversePageOrientation"), PrinterPropertiesDialog::setReversePageOrientation(on);
    }
    void RefreshMargins() override
    {
        note("RefreshMargins"), PrinterPropertiesDialog::RefreshMargins();
    }
    void RefreshUnits() override { note("RefreshUnits"), PrinterPropertiesDialog::RefreshUnits(); }
    void RefreshColorOptions() override
    {
        note("RefreshColorOptions"), PrinterPropertiesDialog::RefreshColorOptions();
    }
    void RefreshSampleImage() override
    {
        note("RefreshSampleImage"), PrinterPropertiesDialog::RefreshSampleImage();
    }
    void RefreshImageSize() override
    {
        note("RefreshImageSize"), PrinterPropertiesDialog::RefreshImageSize();
    }
    void RefreshImagePosition() override
    {
        note("RefreshImagePosition"), PrinterPropertiesDialog::RefreshImagePosition();
    }
    void accept() override { note("accept"), PrinterPropertiesDialog::accept(); }

    QStringList called;

private:
    void note(const char *slot) { called.append(QString::fromLatin1(slot)); }
};

/** Selects the row of an option of the driver, as a click on it does. */
void selectRow(PrinterPropertiesDialog &dialog, const char *keyword)
{
    const auto tree = child<PPDTreeView>(dialog, "ppdTreeView");
    turnTo(tree);
    QTreeWidgetItem *row = tree->m_dict.value(QString::fromLatin1(keyword));
    if (!row)
        qFatal("no row %s", keyword);
    tree->scrollToItem(row);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(row).center());
}

/** The list of choices that the pane shows. */
QListWidget *choiceList(const PrinterPropertiesDialog &dialog)
{
    const auto pane = child<PPDOptionView>(dialog, "ppdOptionView");
    const QList<QListWidget *> lists = pane->findChildren<QListWidget *>();
    for (QListWidget *list : lists) {
        if (list->isVisible())
            return list;
    }
    qFatal("no list of choices");
}

/** Clicks a choice of the option that is selected. */
void clickChoice(const PrinterPropertiesDialog &dialog, const QString &text)
{
    QListWidget *list = choiceList(dialog);
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        qFatal("no choice %s", qPrintable(text));
    list->scrollToItem(found.first());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.first()).center());
}

QByteArray markedChoice(const PrinterPropertiesDialog &dialog, const char *keyword)
{
    return TestPpd::marked(dialog.options().ppd(), keyword);
}

/** A dialog over a driver that is none of the server's. */
std::unique_ptr<PrinterPropertiesDialog> openWithDriver(const QByteArray &ppd,
                                                        const QStringList &pairs = {})
{
    PrinterOptions options;
    for (const QString &pair : pairs)
        options.setOption(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    options.usePPD(TestPpd::open(ppd));
    if (!options.ppd())
        qFatal("the library does not like the PPD");
    auto dialog = std::make_unique<PrinterPropertiesDialog>(u"Laser"_s, options);
    dialog->show();
    return dialog;
}
} // namespace

void TestPropertiesDialog::methodOrder()
{
    const QMetaObject &meta = PrinterPropertiesDialog::staticMetaObject;
    QStringList slots_;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Slot)
            slots_.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(slots_,
             QStringList({u"FitToPage()"_s, u"OnSliderChanged()"_s, u"OnSpinChanged()"_s,
                          u"UpdateControls()"_s, u"ApplyChanges()"_s, u"ShowHelp()"_s,
                          u"OnComboItemActivated(QString)"_s, u"OnButtonGroupClicked(int)"_s,
                          u"setUseDefaultMargins(bool)"_s, u"setReversePageOrientation(bool)"_s,
                          u"RefreshMargins()"_s, u"RefreshUnits()"_s, u"RefreshColorOptions()"_s,
                          u"RefreshSampleImage()"_s, u"RefreshImageSize()"_s,
                          u"RefreshImagePosition()"_s, u"accept()"_s}));
}

void TestPropertiesDialog::slotsAreReached_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("step");
    QTest::addColumn<QStringList>("called");
    const auto row = [](const QString &before, const QString &step, const QString &called) {
        QTest::newRow(qPrintable(step))
            << before.split(u' ', Qt::SkipEmptyParts) << step << called.split(u' ');
    };
    const QString combo = u"OnComboItemActivated"_s;
    const QString group = u"OnButtonGroupClicked"_s;
    const QString update = u"UpdateControls"_s;
    const QString margins = u" RefreshMargins"_s;
    row({}, u"SizeCombo=A5"_s, combo + margins);
    row({}, u"MediaCombo=Labels"_s, combo);
    row({}, u"StartBannerCombo=secret"_s, combo);
    row({}, u"EndBannerCombo=secret"_s, combo);
    row({}, u"UnitsCombo=mm"_s, combo + u" RefreshUnits"_s + margins);
    row({}, u"PortraitRadio"_s, group + margins);
    row({}, u"LandscapeRadio"_s, group + margins);
    row({}, u"OrientationReverseCheck"_s, u"setReversePageOrientation"_s + margins);
    for (const char *radio : {"DuplexOffRadio", "DuplexLongRadio", "DuplexShortRadio",
                              "OnePageRadio", "TwoPagesRadio", "FourPagesRadio"})
        row({}, QString::fromLatin1(radio), group);
    row({}, u"DefaultMarginsCheckBox"_s, u"setUseDefaultMargins RefreshMargins UpdateControls"_s);
    for (const char *box : {"LeftSpinBox", "RightSpinBox", "TopSpinBox", "BottomSpinBox"})
        row(u"DefaultMarginsCheckBox"_s, QLatin1String(box) + u"=50"_s, update);
    for (const char *box : {"CpiSpinBox", "LpiSpinBox", "ColumnsSpinBox"})
        row({}, QLatin1String(box) + u"=3"_s, update);
    row({}, u"PrettyCheckBox"_s, update);
    row({}, u"DefColorsCheckBox"_s, update + u" RefreshColorOptions RefreshSampleImage"_s);
    for (const char *box : {"BrightnessSpinBox", "GammaSpinBox", "HueSpinBox", "SaturationSpinBox"})
        row(u"DefColorsCheckBox"_s, QLatin1String(box) + u"=3"_s,
            u"OnSpinChanged RefreshSampleImage UpdateControls"_s);
    row({}, u"ScalingSpinBox=3"_s, u"OnSpinChanged RefreshSampleImage UpdateControls"_s);
    row({}, u"ResolutionCheckBox"_s,
        u"UpdateControls RefreshImageSize UpdateControls RefreshImageSize"_s);
    row({}, u"FitToPageButton"_s, u"FitToPage UpdateControls RefreshImageSize"_s);
    row({}, u"HorPositionSlider=0"_s, update + u" RefreshImagePosition"_s);
    row({}, u"VerPositionSlider=0"_s, update + u" RefreshImagePosition"_s);
    row({}, u"HelpButton"_s, u"ShowHelp"_s);
    row(u"PrettyCheckBox"_s, u"ApplyButton"_s, u"ApplyChanges"_s);
    row({}, u"OkButton"_s, u"accept ApplyChanges"_s);
}

void TestPropertiesDialog::slotsAreReached()
{
    QFETCH(QStringList, before);
    QFETCH(QString, step);
    Recorder dialog(u"Laser"_s, optionsOf(u"Laser"_s));
    dialog.show();
    for (const QString &other : before)
        work(dialog, other);
    dialog.called.clear();
    work(dialog, step);
    QTEST(dialog.called, "called");
}

void TestPropertiesDialog::title_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("title");
    QTest::newRow("printer") << "Laser"
                             << "'Laser' Properties";
    QTest::newRow("instance") << "Laser/draft"
                              << "'Laser/draft' Properties";
    QTest::newRow("class") << "Office"
                           << "'Office' Properties";
    QTest::newRow("placeholders") << "50%s%d"
                                  << "'50%s%d' Properties";
}

void TestPropertiesDialog::title()
{
    QFETCH(QString, destination);
    QTEST(PrinterPropertiesDialog(destination, PrinterOptions()).windowTitle(), "title");
}

void TestPropertiesDialog::fourTabs()
{
    const auto dialog = open(u"Laser"_s);
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    QStringList titles;
    for (int i = 0; i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    QCOMPARE(titles, QStringList({u"General"_s, u"Text"_s, u"Graphics"_s, u"Advanced"_s}));
    QCOMPARE(tabs->currentIndex(), 0);
}

void TestPropertiesDialog::buttonGroups()
{
    const auto dialog = open(u"Laser"_s);
    const auto ids = [&dialog](const char *name) {
        const auto group = dialog->findChild<QButtonGroup *>(QString::fromLatin1(name),
                                                             Qt::FindDirectChildrenOnly);
        QStringList result;
        if (!group)
            return result;
        const QList<QAbstractButton *> buttons = group->buttons();
        for (QAbstractButton *button : buttons)
            result.append(u"%1 %2"_s.arg(button->objectName()).arg(group->id(button)));
        return result;
    };
    QCOMPARE(ids("duplexButtons"),
             QStringList({u"DuplexOffRadio 0"_s, u"DuplexLongRadio 1"_s, u"DuplexShortRadio 2"_s}));
    QCOMPARE(ids("nupButtons"),
             QStringList({u"OnePageRadio 1"_s, u"TwoPagesRadio 2"_s, u"FourPagesRadio 4"_s}));
    QCOMPARE(ids("orientationButtons").size(), 2);
    QCOMPARE(ids("imageSizeButtons").size(), 2);
}

void TestPropertiesDialog::listsOfTheDriver()
{
    const auto dialog = open(u"Laser"_s);
    const auto size = child<QComboBox>(*dialog, "SizeCombo");
    QCOMPARE(size->count(), 5);
    QCOMPARE(size->itemText(3), u"US Letter"_s);
    QVERIFY(size->isEnabled());
    const auto media = child<QComboBox>(*dialog, "MediaCombo");
    QCOMPARE(media->count(), 5);
    QCOMPARE(media->itemText(4), u"Labels"_s);
}

void TestPropertiesDialog::paperThatIsNotListed()
{
    QTest::ignoreMessage(QtWarningMsg, "Failed to get value as text");
    const auto dialog =
        openWithDriver(TestPpd::group("Main", TestPpd::pickOne("PageSize", "B9", {"A4", "A5"})));
    QCOMPARE(shown(*dialog, u"SizeCombo.currentIndex"_s), u"-1"_s);
    QVERIFY(child<QComboBox>(*dialog, "SizeCombo")->isEnabled());
    QVERIFY(!child<QComboBox>(*dialog, "MediaCombo")->isEnabled());
    // Nine tenths of 612 points.
    QCOMPARE(child<QSpinBox>(*dialog, "LeftSpinBox")->maximum(), 550 - 13);
    work(*dialog, u"SizeCombo=A4"_s);
    QCOMPARE(markedChoice(*dialog, "PageSize"), QByteArray("A4"));
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::withoutDriver()
{
    const auto dialog = open(u"Plain"_s, {u"sides=two-sided-short-edge"_s});
    for (const char *name : {"SizeCombo", "MediaCombo"}) {
        QCOMPARE(child<QComboBox>(*dialog, name)->count(), 0);
        QVERIFY(!child<QComboBox>(*dialog, name)->isEnabled());
    }
    QVERIFY(child<QGroupBox>(*dialog, "DuplexGroup")->isEnabled());
    QVERIFY(child<QRadioButton>(*dialog, "DuplexShortRadio")->isChecked());
    const auto label = child<QLabel>(*dialog, "noDriverLabel");
    turnTo(label);
    QVERIFY(label->isVisible());
    QVERIFY(!child<QWidget>(*dialog, "ppdTreeView")->isVisible());
    work(*dialog, u"DuplexLongRadio"_s);
    QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    QCOMPARE(savedOptions(u"Plain"_s).value(u"sides"_s), u"two-sided-long-edge"_s);
}

void TestPropertiesDialog::driverWithoutDuplex_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("checked");
    QTest::addColumn<bool>("isEnabled");
    QTest::newRow("nothing") << QStringList() << "DuplexOffRadio" << false;
    QTest::newRow("long") << QStringList{u"sides=two-sided-long-edge"_s} << "DuplexLongRadio"
                          << false;
    QTest::newRow("short") << QStringList{u"sides=two-sided-short-edge"_s} << "DuplexShortRadio"
                           << false;
    QTest::newRow("unknown") << QStringList{u"sides=three"_s} << "DuplexOffRadio" << false;
    QTest::newRow("Duplex among the options")
        << QStringList{u"Duplex=DuplexTumble"_s} << "DuplexShortRadio" << true;
}

void TestPropertiesDialog::driverWithoutDuplex()
{
    QFETCH(QStringList, options);
    QFETCH(QString, checked);
    const auto dialog = openWithDriver(
        TestPpd::group("Main", TestPpd::pickOne("PageSize", "A4", {"A4", "A5"})), options);
    QVERIFY(child<QRadioButton>(*dialog, qPrintable(checked))->isChecked());
    QTEST(child<QGroupBox>(*dialog, "DuplexGroup")->isEnabled(), "isEnabled");
}

void TestPropertiesDialog::unknownDuplexLeavesTheButtons()
{
    const auto dialog = openWithDriver(
        TestPpd::group("Main", TestPpd::pickOne("Duplex", "Simplex", {"Simplex", "DuplexTumble"})),
        {u"sides=two-sided-long-edge"_s});
    QVERIFY(child<QRadioButton>(*dialog, "DuplexOffRadio")->isChecked());
    QVERIFY(child<QGroupBox>(*dialog, "DuplexGroup")->isEnabled());
}

void TestPropertiesDialog::applyBeginsDisabled()
{
    const auto dialog = open(u"Laser"_s, {u"page-left=40"_s, u"hue=3"_s, u"ppi=70"_s,
                                          u"orientation-requested=5"_s, u"position=left"_s});
    QVERIFY(!applyButton(*dialog)->isEnabled());
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    for (int i = 0; i < tabs->count(); ++i)
        tabs->setCurrentIndex(i);
    selectRow(*dialog, "InputSlot");
    QVERIFY(!applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::everyControlEnablesApply_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("step");
    const QStringList none;
    for (const char *step : {"SizeCombo=A5",
                             "MediaCombo=Labels",
                             "StartBannerCombo=secret",
                             "EndBannerCombo=secret",
                             "UnitsCombo=mm",
                             "LandscapeRadio",
                             "OrientationReverseCheck",
                             "DuplexLongRadio",
                             "DuplexShortRadio",
                             "TwoPagesRadio",
                             "FourPagesRadio",
                             "DefaultMarginsCheckBox",
                             "CpiSpinBox=12",
                             "LpiSpinBox=8",
                             "ColumnsSpinBox=2",
                             "PrettyCheckBox",
                             "DefColorsCheckBox",
                             "ResolutionCheckBox",
                             "ScalingSpinBox=50",
                             "ScalingSlider=300",
                             "FitToPageButton",
                             "HorPositionSlider=0",
                             "VerPositionSlider=2"})
        QTest::newRow(step) << none << QString::fromLatin1(step);
    for (const char *step :
         {"LeftSpinBox=50", "RightSpinBox=50", "TopSpinBox=50", "BottomSpinBox=50"})
        QTest::newRow(step) << QStringList{u"page-left=20"_s} << QString::fromLatin1(step);
    for (const char *step :
         {"BrightnessSlider=50", "BrightnessSpinBox=50", "GammaSlider=1", "GammaSpinBox=2",
          "HueSlider=-72", "HueSpinBox=7", "SaturationSlider=0", "SaturationSpinBox=9"})
        QTest::newRow(step) << QStringList{u"hue=0"_s} << QString::fromLatin1(step);
    for (const char *step : {"ResolutionSlider=600", "ResolutionSpinBox=5"})
        QTest::newRow(step) << QStringList{u"ppi=100"_s} << QString::fromLatin1(step);
}

void TestPropertiesDialog::everyControlEnablesApply()
{
    QFETCH(QStringList, options);
    QFETCH(QString, step);
    const auto dialog = open(u"Laser"_s, options);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    work(*dialog, step);
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::sameChoiceLeavesApply_data()
{
    QTest::addColumn<QString>("step");
    for (const char *step :
         {"SizeCombo=A4", "MediaCombo=Plain Paper", "StartBannerCombo=none", "EndBannerCombo=none",
          "UnitsCombo=points", "PortraitRadio", "DuplexOffRadio", "OnePageRadio"})
        QTest::newRow(step) << QString::fromLatin1(step);
}

void TestPropertiesDialog::sameChoiceLeavesApply()
{
    QFETCH(QString, step);
    const auto dialog = open(u"Laser"_s);
    work(*dialog, step);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    work(*dialog, u"PrettyCheckBox"_s);
    work(*dialog, step);
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::changedChoiceAfterApply()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"SizeCombo=A5"_s);
    QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    work(*dialog, u"SizeCombo=A5"_s);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    work(*dialog, u"SizeCombo=A4"_s);
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::duplexIsWrittenAtOnce_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("sides");
    QTest::addColumn<QByteArray>("mark");
    QTest::newRow("long") << QStringList{u"DuplexLongRadio"_s} << "two-sided-long-edge"
                          << QByteArray("DuplexNoTumble");
    QTest::newRow("short") << QStringList{u"DuplexShortRadio"_s} << "two-sided-short-edge"
                           << QByteArray("DuplexTumble");
    QTest::newRow("off") << QStringList{u"DuplexShortRadio"_s, u"DuplexOffRadio"_s} << "one-sided"
                         << QByteArray("None");
}

void TestPropertiesDialog::duplexIsWrittenAtOnce()
{
    QFETCH(QStringList, steps);
    QFETCH(QByteArray, mark);
    const auto dialog = open(u"Laser"_s);
    for (const QString &step : steps)
        work(*dialog, step);
    QTEST(dialog->options().value(u"sides"_s, {}), "sides");
    QCOMPARE(markedChoice(*dialog, "Duplex"), mark);
    // The tree shows it.
    const auto tree = child<PPDTreeView>(*dialog, "ppdTreeView");
    const auto row = static_cast<PPDTree::OptionItem *>(tree->m_dict.value(u"Duplex"_s));
    QCOMPARE(QByteArray(row->m_choice->choice), mark);
    // Nothing is saved by that.
    QVERIFY(!savedOptions(u"Laser"_s).contains(u"sides"_s));
}

void TestPropertiesDialog::paperIsMarkedAtOnce()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"SizeCombo=US Letter"_s);
    work(*dialog, u"MediaCombo=Thick Paper"_s);
    QCOMPARE(markedChoice(*dialog, "PageSize"), QByteArray("Letter"));
    QCOMPARE(markedChoice(*dialog, "MediaType"), QByteArray("Thick"));
    QCOMPARE(dialog->options().value(u"PageSize"_s, {}), u"Letter"_s);
}

void TestPropertiesDialog::treeFollowsThePaper()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"SizeCombo=US Letter"_s);
    const auto tree = child<PPDTreeView>(*dialog, "ppdTreeView");
    QCOMPARE(tree->m_dict.value(u"PageSize"_s)->text(0), u"Media Size: <US Letter>"_s);
}

void TestPropertiesDialog::paneFollowsThePaper()
{
    const auto dialog = open(u"Laser"_s);
    selectRow(*dialog, "PageSize");
    QCOMPARE(choiceList(*dialog)->currentItem()->text(), u"A4"_s);
    work(*dialog, u"SizeCombo=US Letter"_s);
    turnTo(child<PPDTreeView>(*dialog, "ppdTreeView"));
    QCOMPARE(choiceList(*dialog)->currentItem()->text(), u"US Letter"_s);
}

/** The editor of a custom paper is higher than the one before it. */
void TestPropertiesDialog::selectedRowStaysInSight()
{
    const auto dialog = open(u"Photo"_s);
    const auto tree = child<PPDTreeView>(*dialog, "ppdTreeView");
    turnTo(tree);
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    const int height = tree->height();
    selectRow(*dialog, "PageSize");
    QTRY_VERIFY(tree->height() < height);
    QTRY_VERIFY2(
        tree->visualItemRect(tree->currentItem()).bottom() <= tree->viewport()->height(),
        qPrintable(u"row ends at %1 of %2"_s.arg(tree->visualItemRect(tree->currentItem()).bottom())
                       .arg(tree->viewport()->height())));
}

void TestPropertiesDialog::generalFollowsTheDriver()
{
    const auto dialog = open(u"Laser"_s);
    selectRow(*dialog, "PageSize");
    clickChoice(*dialog, u"A5"_s);
    QCOMPARE(shown(*dialog, u"SizeCombo.currentText"_s), u"A5"_s);
    QVERIFY(applyButton(*dialog)->isEnabled());
    // The margins follow, too: nine tenths of 420 points.
    QCOMPARE(child<QSpinBox>(*dialog, "LeftSpinBox")->maximum(), 378 - 13);

    selectRow(*dialog, "MediaType");
    clickChoice(*dialog, u"Thick Paper"_s);
    QCOMPARE(shown(*dialog, u"MediaCombo.currentText"_s), u"Thick Paper"_s);

    selectRow(*dialog, "Duplex");
    clickChoice(*dialog, u"Short Edge (Landscape)"_s);
    QVERIFY(child<QRadioButton>(*dialog, "DuplexShortRadio")->isChecked());
    QVERIFY(showsPicture(*dialog, "DuplexPixmap", u"dupl_short.png"_s));
    clickChoice(*dialog, u"Long Edge (Portrait)"_s);
    QVERIFY(child<QRadioButton>(*dialog, "DuplexLongRadio")->isChecked());
    clickChoice(*dialog, u"Off"_s);
    QVERIFY(child<QRadioButton>(*dialog, "DuplexOffRadio")->isChecked());
    QVERIFY(showsPicture(*dialog, "DuplexPixmap", u"dupl_none.png"_s));
}

void TestPropertiesDialog::choosingThePaperThatWasThereFirst()
{
    const auto dialog = open(u"Laser"_s);
    selectRow(*dialog, "PageSize");
    clickChoice(*dialog, u"A5"_s);
    QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    work(*dialog, u"SizeCombo=A4"_s);
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::marginTotals_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("vertical");
    QTest::newRow("A4") << QStringList() << 535 << 757;
    QTest::newRow("A4, landscape") << QStringList{u"LandscapeRadio"_s} << 757 << 535;
    QTest::newRow("A4, reversed") << QStringList{u"OrientationReverseCheck"_s} << 535 << 757;
    QTest::newRow("A5") << QStringList{u"SizeCombo=A5"_s} << 378 << 535;
    QTest::newRow("unknown size") << QStringList{u"SizeCombo=US Letter"_s} << 550 << 712;
    QTest::newRow("and back") << QStringList{u"SizeCombo=A5"_s, u"SizeCombo=A4"_s} << 535 << 757;
}

void TestPropertiesDialog::marginTotals()
{
    QFETCH(QStringList, steps);
    const auto dialog = open(u"Laser"_s);
    for (const QString &step : steps)
        work(*dialog, step);
    // Each box can have all but what the other one has.
    QTEST(child<QSpinBox>(*dialog, "LeftSpinBox")->maximum() + 13, "horizontal");
    QTEST(child<QSpinBox>(*dialog, "RightSpinBox")->maximum() + 13, "horizontal");
    QTEST(child<QSpinBox>(*dialog, "TopSpinBox")->maximum() + 13, "vertical");
    QTEST(child<QSpinBox>(*dialog, "BottomSpinBox")->maximum() + 13, "vertical");
}

void TestPropertiesDialog::marginsKeepWithinTheirTotal()
{
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"DefaultMarginsCheckBox"_s);
    work(*dialog, u"LeftSpinBox=335"_s);
    QCOMPARE(child<QSpinBox>(*dialog, "RightSpinBox")->maximum(), 200);
    work(*dialog, u"RightSpinBox=150"_s);
    QCOMPARE(child<QSpinBox>(*dialog, "LeftSpinBox")->maximum(), 385);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.value"_s), u"335"_s);
}

void TestPropertiesDialog::marginsAreAtLeastThirteen()
{
    const auto dialog = open(u"Laser"_s, {u"page-left=5"_s, u"page-right=9000"_s,
                                          u"page-top=9000"_s, u"page-bottom=9000"_s});
    for (const char *name : {"LeftSpinBox", "RightSpinBox", "TopSpinBox", "BottomSpinBox"}) {
        QCOMPARE(child<QSpinBox>(*dialog, name)->minimum(), 13);
        QVERIFY(child<QSpinBox>(*dialog, name)->value() >= 13);
    }
    QCOMPARE(shown(*dialog, u"LeftSpinBox.value"_s), u"13"_s);
    QCOMPARE(shown(*dialog, u"RightSpinBox.value"_s), u"522"_s);
}

void TestPropertiesDialog::smallerPaperTakesMarginsAlong()
{
    const auto dialog = open(u"Laser"_s, {u"page-top=600"_s, u"page-bottom=150"_s});
    work(*dialog, u"SizeCombo=A5"_s);
    QCOMPARE(shown(*dialog, u"TopSpinBox.value"_s), u"522"_s);
    QCOMPARE(shown(*dialog, u"BottomSpinBox.value"_s), u"13"_s);
    QCOMPARE(child<QSpinBox>(*dialog, "TopSpinBox")->minimum(), 13);
    QCOMPARE(child<QSpinBox>(*dialog, "BottomSpinBox")->minimum(), 13);
}

void TestPropertiesDialog::unitsKeepTheMargins_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("points") << "points"
                            << "72";
    QTest::newRow("inches") << "1/10 inches"
                            << "10.0";
    QTest::newRow("mm") << "mm"
                        << "25.4";
}

void TestPropertiesDialog::unitsKeepTheMargins()
{
    QFETCH(QString, unit);
    const auto dialog = open(u"Laser"_s, {u"page-left=72"_s});
    work(*dialog, u"UnitsCombo=mm"_s);
    work(*dialog, u"UnitsCombo="_s + unit);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.value"_s), u"72"_s);
    QTEST(shown(*dialog, u"LeftSpinBox.text"_s), "text");
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"page-left"_s, {}), u"72"_s);
}

void TestPropertiesDialog::defaultMargins()
{
    const auto dialog = open(u"Laser"_s, {u"page-left=72"_s});
    work(*dialog, u"DefaultMarginsCheckBox"_s);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.value"_s), u"13"_s);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.enabled"_s), u"false"_s);
    work(*dialog, u"DefaultMarginsCheckBox"_s);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.value"_s), u"13"_s);
    QCOMPARE(shown(*dialog, u"LeftSpinBox.enabled"_s), u"true"_s);
}

void TestPropertiesDialog::slidersAndSpinBoxesAreOne_data()
{
    QTest::addColumn<QStringList>("options");
    for (const char *name : {"Brightness", "Gamma", "Hue", "Saturation"})
        QTest::newRow(name) << QStringList{u"hue=0"_s};
    QTest::newRow("Resolution") << QStringList{u"ppi=128"_s};
    QTest::newRow("Scaling") << QStringList();
}

void TestPropertiesDialog::slidersAndSpinBoxesAreOne()
{
    QFETCH(QStringList, options);
    const QByteArray name = QTest::currentDataTag();
    const auto dialog = open(u"Laser"_s, options);
    const auto slider = child<QSlider>(*dialog, (name + "Slider").constData());
    const auto box = child<QSpinBox>(*dialog, (name + "SpinBox").constData());
    turnTo(slider);
    QTest::keyClick(slider, Qt::Key_End);
    QCOMPARE(slider->value(), slider->maximum());
    QCOMPARE(box->value(), slider->value());
    QTest::keyClick(slider, Qt::Key_PageDown);
    QCOMPARE(box->value(), slider->maximum() - slider->pageStep());
    type(box, u"7"_s);
    QCOMPARE(slider->value(), 7);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(slider->value(), 6);
}

void TestPropertiesDialog::defaultColours()
{
    const auto dialog = open(u"Laser"_s, {u"brightness=10"_s, u"gamma=20"_s, u"hue=30"_s});
    work(*dialog, u"DefColorsCheckBox"_s);
    const auto values = [&dialog](const QString &kind) {
        QStringList result;
        for (const char *name : {"Brightness", "Gamma", "Hue", "Saturation"})
            result.append(shown(*dialog, QLatin1String(name) + kind + u".value"_s));
        return result;
    };
    const QStringList defaults{u"100"_s, u"1000"_s, u"0"_s, u"100"_s};
    QCOMPARE(values(u"Slider"_s), defaults);
    QCOMPARE(values(u"SpinBox"_s), defaults);
    QCOMPARE(shown(*dialog, u"HueSlider.enabled"_s), u"false"_s);
    work(*dialog, u"DefColorsCheckBox"_s);
    QCOMPARE(values(u"Slider"_s), defaults);
    QCOMPARE(shown(*dialog, u"HueSlider.enabled"_s), u"true"_s);
}

void TestPropertiesDialog::coloursOfTheDriver()
{
    const auto dialog = openWithDriver(
        TestPpd::group("Main", TestPpd::pickOne("Brightness", "Normal", {"Normal", "Light"})));
    QCOMPARE(shown(*dialog, u"DefColorsCheckBox.checked"_s), u"true"_s);
    work(*dialog, u"DefColorsCheckBox"_s);
    for (const char *name : {"Brightness", "Gamma"}) {
        for (const char *kind : {"Label", "Slider", "SpinBox"})
            QVERIFY(!child<QWidget>(*dialog, (QByteArray(name) + kind).constData())->isEnabled());
    }
    QCOMPARE(shown(*dialog, u"HueSlider.enabled"_s), u"true"_s);
    QCOMPARE(shown(*dialog, u"SaturationLabel.enabled"_s), u"true"_s);
}

void TestPropertiesDialog::sampleImageFollowsTheSliders()
{
    const auto dialog = open(u"Laser"_s);
    const auto image = [&dialog] {
        return child<QLabel>(*dialog, "SampleImagePixmap")->pixmap().toImage();
    };
    const QImage plain = image();
    QVERIFY(!plain.isNull());
    work(*dialog, u"DefColorsCheckBox"_s);
    QCOMPARE(image(), plain);
    work(*dialog, u"SaturationSlider=0"_s);
    const QColor grey = image().pixelColor(plain.width() / 3, plain.height() / 3);
    QCOMPARE(grey.red(), grey.green());
    QCOMPARE(grey.green(), grey.blue());
    work(*dialog, u"BrightnessSpinBox=0"_s);
    QCOMPARE(image().pixelColor(plain.width() / 3, plain.height() / 3), QColor(Qt::black));
    work(*dialog, u"DefColorsCheckBox"_s);
    QCOMPARE(image(), plain);
}

void TestPropertiesDialog::fitToPage()
{
    const auto dialog = open(u"Laser"_s, {u"scaling=300"_s});
    work(*dialog, u"FitToPageButton"_s);
    QCOMPARE(shown(*dialog, u"ScalingSpinBox.value"_s), u"100"_s);
    QCOMPARE(shown(*dialog, u"ScalingSlider.value"_s), u"100"_s);
}

void TestPropertiesDialog::helpByButtonAndKey()
{
    QStringList topics;
    PrinterPropertiesDialog dialog(u"Laser"_s, optionsOf(u"Laser"_s), nullptr,
                                   [&topics](const QString &topic) { topics.append(topic); });
    dialog.show();
    work(dialog, u"HelpButton"_s);
    QCOMPARE(topics, QStringList{u"VESKDestinationProperties.htm"_s});
    for (const char *name : {"SizeCombo", "LeftSpinBox", "HueSlider", "ppdTreeView"}) {
        const auto widget = child<QWidget>(dialog, name);
        turnTo(widget);
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_F1);
    }
    QCOMPARE(topics.size(), 5);
    QCOMPARE(topics.last(), u"VESKDestinationProperties.htm"_s);
}

void TestPropertiesDialog::keysLeadThroughATab()
{
    const auto dialog = open(u"Laser"_s);
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    child<QWidget>(*dialog, "SizeCombo")->setFocus();
    QStringList visited;
    for (int i = 0; i < 9; ++i) {
        visited.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // One stop for a group of radio buttons: the chosen one.
    QCOMPARE(visited.join(u' '),
             u"SizeCombo MediaCombo PortraitRadio OrientationReverseCheck DuplexOffRadio "
             "OnePageRadio StartBannerCombo EndBannerCombo HelpButton"_s);
    child<QWidget>(*dialog, "PortraitRadio")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(child<QTabWidget>(*dialog, "TabControl")->currentIndex(), 1);
}

void TestPropertiesDialog::keysLeadThroughCustomValues()
{
    const auto dialog = open(u"Photo"_s);
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    auto *tree = child<QWidget>(*dialog, "ppdTreeView");
    turnTo(tree);
    tree->setFocus();
    QTest::keyClicks(tree, u"sharp"_s);
    QTest::keyClick(tree, Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"cust"_s);
    QStringList visited;
    for (int i = 0; i < 2; ++i) {
        visited.append(QApplication::focusWidget()->accessibleName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, QStringList({u"Sharpness"_s, u"Amount"_s}));
    QCOMPARE(QApplication::focusWidget()->objectName(), u"HelpButton"_s);
}

void TestPropertiesDialog::arrowsChooseInAGroup()
{
    const auto dialog = open(u"Laser"_s);
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    child<QWidget>(*dialog, "DuplexOffRadio")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QVERIFY(child<QRadioButton>(*dialog, "DuplexLongRadio")->isChecked());
    QCOMPARE(dialog->options().value(u"sides"_s, {}), u"two-sided-long-edge"_s);
    QVERIFY(applyButton(*dialog)->isEnabled());
}

void TestPropertiesDialog::cancelSavesNothing()
{
    const QByteArray before = savedFile();
    const auto dialog = open(u"Laser"_s);
    work(*dialog, u"SizeCombo=A5"_s);
    work(*dialog, u"DuplexLongRadio"_s);
    work(*dialog, u"PrettyCheckBox"_s);
    work(*dialog, u"CancelButton"_s);
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
    QVERIFY(!dialog->isVisible());
    QCOMPARE(savedFile(), before);
}

QTEST_MAIN(TestPropertiesDialog)
#include "tst_propertiesdialog.moc"
