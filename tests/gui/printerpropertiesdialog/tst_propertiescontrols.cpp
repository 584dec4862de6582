#include "PropertiesTest.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace PropertiesTest;

/** Each control both ways: what of the options it shows, and what it writes when worked. */
class TestPropertiesControls : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { m_world.resetSavedOptions(); }

    void optionToControl_data();
    void optionToControl();
    void controlToOption_data();
    void controlToOption();
    void controlComesBack_data() { controlToOption_data(); }
    void controlComesBack();
    void everyPaper();
    void everyBanner_data();
    void everyBanner();
    void everyPosition_data();
    void everyPosition();
    void everyMarginSide_data();
    void everyMarginSide();
    void marginsTurnWithThePage_data();
    void marginsTurnWithThePage();
    void pictures_data();
    void pictures();
    void removedOptionsAreNotSaved_data();
    void removedOptionsAreNotSaved();

private:
    DialogTest::World m_world;
};

void TestPropertiesControls::optionToControl_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("shows"); // name.property=value
    const auto row = [](const char *name, const QString &options, const QString &shows) {
        QTest::newRow(name) << options.split(u' ', Qt::SkipEmptyParts) << shows.split(u';');
    };
    row("nothing", u""_s,
        u"PortraitRadio.checked=true;OrientationReverseCheck.checked=false;"
        "DuplexOffRadio.checked=true;DuplexGroup.enabled=true;OnePageRadio.checked=true;"
        "StartBannerCombo.currentText=none;EndBannerCombo.currentText=none;"
        "SizeCombo.currentText=A4;MediaCombo.currentText=Plain Paper;"
        "DefaultMarginsCheckBox.checked=true;UnitsCombo.currentText=points;CpiSpinBox.value=10;"
        "LpiSpinBox.value=6;ColumnsSpinBox.value=1;PrettyCheckBox.checked=false;"
        "DefColorsCheckBox.checked=true;BrightnessSlider.value=100;GammaSlider.value=1000;"
        "HueSlider.value=0;SaturationSlider.value=100;ScalingCheckBox.checked=true;"
        "ScalingSlider.value=100;ResolutionSlider.value=128;HorPositionSlider.value=1;"
        "VerPositionSlider.value=1;ApplyButton.enabled=false"_s);
    row("paper", u"PageSize=Letter MediaType=Thick"_s,
        u"SizeCombo.currentText=US Letter;MediaCombo.currentText=Thick Paper"_s);
    row("media", u"media=A5"_s, u"SizeCombo.currentText=A5"_s);
    row("portrait", u"orientation-requested=3"_s,
        u"PortraitRadio.checked=true;OrientationReverseCheck.checked=false"_s);
    row("landscape", u"orientation-requested=4"_s,
        u"LandscapeRadio.checked=true;OrientationReverseCheck.checked=false"_s);
    row("landscape, reversed", u"orientation-requested=5"_s,
        u"LandscapeRadio.checked=true;OrientationReverseCheck.checked=true"_s);
    row("portrait, reversed", u"orientation-requested=6"_s,
        u"PortraitRadio.checked=true;OrientationReverseCheck.checked=true"_s);
    row("orientation of no sense", u"orientation-requested=upright"_s,
        u"PortraitRadio.checked=true;OrientationReverseCheck.checked=false"_s);
    row("landscape by name", u"landscape="_s, u"LandscapeRadio.checked=true"_s);
    row("landscape by name beats portrait", u"landscape=true orientation-requested=3"_s,
        u"LandscapeRadio.checked=true"_s);
    row("duplex, long edge", u"Duplex=DuplexNoTumble"_s, u"DuplexLongRadio.checked=true"_s);
    row("duplex, short edge", u"Duplex=DuplexTumble"_s, u"DuplexShortRadio.checked=true"_s);
    row("duplex, off", u"Duplex=None"_s, u"DuplexOffRadio.checked=true"_s);
    row("sides, long edge", u"sides=two-sided-long-edge"_s, u"DuplexLongRadio.checked=true"_s);
    row("sides, short edge", u"sides=two-sided-short-edge"_s, u"DuplexShortRadio.checked=true"_s);
    row("sides, one", u"sides=one-sided"_s, u"DuplexOffRadio.checked=true"_s);
    row("banners", u"job-sheets=secret,standard"_s,
        u"StartBannerCombo.currentText=secret;EndBannerCombo.currentText=standard"_s);
    row("one banner", u"job-sheets=classified"_s,
        u"StartBannerCombo.currentText=classified;EndBannerCombo.currentText=none"_s);
    row("unknown banner", u"job-sheets=ours,none"_s,
        u"StartBannerCombo.currentIndex=-1;EndBannerCombo.currentText=none"_s);
    row("banner in another case", u"job-sheets=Secret,none"_s,
        u"StartBannerCombo.currentIndex=-1"_s);
    row("1-up", u"number-up=1"_s, u"OnePageRadio.checked=true"_s);
    row("2-up", u"number-up=2"_s, u"TwoPagesRadio.checked=true"_s);
    row("4-up", u"number-up=4"_s, u"FourPagesRadio.checked=true"_s);
    row("6-up", u"number-up=6"_s, u"OnePageRadio.checked=true"_s);

    row("one margin", u"page-left=40"_s,
        u"DefaultMarginsCheckBox.checked=false;LeftSpinBox.value=40;RightSpinBox.value=13;"
        "TopSpinBox.value=13;BottomSpinBox.value=13;LeftSpinBox.enabled=true"_s);
    row("four margins", u"page-left=40 page-right=50 page-top=60 page-bottom=70"_s,
        u"LeftSpinBox.value=40;RightSpinBox.value=50;TopSpinBox.value=60;BottomSpinBox.value=70"_s);
    row("too large a margin", u"page-left=900"_s, u"LeftSpinBox.value=522;RightSpinBox.value=13"_s);
    row("margin of no sense", u"page-top=wide"_s,
        u"DefaultMarginsCheckBox.checked=false;TopSpinBox.value=13"_s);
    row("spacing", u"cpi=12 lpi=8"_s, u"CpiSpinBox.value=12;LpiSpinBox.value=8"_s);
    for (const int columns : {1, 2, 3, 4})
        row(qPrintable(u"columns %1"_s.arg(columns)), u"columns=%1"_s.arg(columns),
            u"ColumnsSpinBox.value=%1"_s.arg(columns));
    for (const int columns : {-1, 0, 5, 7})
        row(qPrintable(u"columns %1"_s.arg(columns)), u"columns=%1"_s.arg(columns),
            u"ColumnsSpinBox.value=1"_s);
    row("pretty", u"prettyprint="_s, u"PrettyCheckBox.checked=true"_s);

    row("brightness", u"brightness=150"_s,
        u"DefColorsCheckBox.checked=false;BrightnessSlider.value=150;BrightnessSpinBox.value=150;"
        "BrightnessSlider.enabled=true;BrightnessLabel.enabled=true"_s);
    row("gamma", u"gamma=500"_s,
        u"DefColorsCheckBox.checked=false;GammaSlider.value=500;GammaSpinBox.value=500"_s);
    row("hue", u"hue=-40"_s,
        u"DefColorsCheckBox.checked=false;HueSlider.value=-40;HueSpinBox.value=-40"_s);
    row("saturation", u"saturation=0"_s,
        u"DefColorsCheckBox.checked=false;SaturationSlider.value=0;SaturationSpinBox.value=0"_s);
    row("colours by default", u""_s,
        u"BrightnessSlider.enabled=false;BrightnessSpinBox.enabled=false;"
        "BrightnessLabel.enabled=false;SaturationLabel.enabled=false"_s);
    row("resolution", u"ppi=300"_s,
        u"ResolutionCheckBox.checked=true;ResolutionSlider.value=300;ResolutionSpinBox.value=300;"
        "ResolutionSlider.enabled=true;ScalingSlider.enabled=false;FitToPageButton.enabled=false"_s);
    row("scaling", u"scaling=50"_s,
        u"ScalingCheckBox.checked=true;ScalingSlider.value=50;ScalingSpinBox.value=50;"
        "ResolutionSlider.enabled=false;ResolutionSpinBox.enabled=false;"
        "FitToPageButton.enabled=true"_s);
    row("resolution and scaling", u"ppi=300 scaling=50"_s,
        u"ResolutionCheckBox.checked=true;ScalingSpinBox.value=50"_s);
    row("numbers out of range", u"ppi=5000 scaling=0"_s,
        u"ResolutionSpinBox.value=1200;ScalingSpinBox.value=1"_s);
}

void TestPropertiesControls::optionToControl()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, shows);
    const auto dialog = open(u"Laser"_s, options);
    for (const QString &show : shows) {
        const QString what = show.section(u'=', 0, 0);
        QVERIFY2(shown(*dialog, what) == show.section(u'=', 1),
                 qPrintable(show + u" but is "_s + shown(*dialog, what)));
    }
}

void TestPropertiesControls::controlToOption_data()
{
    QTest::addColumn<QStringList>("steps"); // name or name=value
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("value"); // null: not among the options
    const auto row = [](const QString &steps, const QString &option, const QString &value) {
        QTest::newRow(qPrintable(steps)) << steps.split(u';') << option << value;
    };
    const QString removed;
    row(u"SizeCombo=US Legal"_s, u"PageSize"_s, u"Legal"_s);
    row(u"MediaCombo=Labels"_s, u"MediaType"_s, u"Labels"_s);
    row(u"LandscapeRadio"_s, u"orientation-requested"_s, u"4"_s);
    row(u"LandscapeRadio;PortraitRadio"_s, u"orientation-requested"_s, u"3"_s);
    row(u"OrientationReverseCheck"_s, u"orientation-requested"_s, u"6"_s);
    row(u"LandscapeRadio;OrientationReverseCheck"_s, u"orientation-requested"_s, u"5"_s);
    row(u"DuplexLongRadio"_s, u"sides"_s, u"two-sided-long-edge"_s);
    row(u"DuplexShortRadio"_s, u"sides"_s, u"two-sided-short-edge"_s);
    row(u"DuplexLongRadio;DuplexOffRadio"_s, u"sides"_s, removed);
    row(u"TwoPagesRadio"_s, u"number-up"_s, u"2"_s);
    row(u"FourPagesRadio"_s, u"number-up"_s, u"4"_s);
    row(u"TwoPagesRadio;OnePageRadio"_s, u"number-up"_s, removed);
    row(u"StartBannerCombo=topsecret"_s, u"job-sheets"_s, u"topsecret,none"_s);
    row(u"EndBannerCombo=standard"_s, u"job-sheets"_s, u"none,standard"_s);

    row(u"DefaultMarginsCheckBox;LeftSpinBox=20"_s, u"page-left"_s, u"20"_s);
    row(u"DefaultMarginsCheckBox;RightSpinBox=21"_s, u"page-right"_s, u"21"_s);
    row(u"DefaultMarginsCheckBox;TopSpinBox=22"_s, u"page-top"_s, u"22"_s);
    row(u"DefaultMarginsCheckBox;BottomSpinBox=23"_s, u"page-bottom"_s, u"23"_s);
    row(u"DefaultMarginsCheckBox;UnitsCombo=mm;LeftSpinBox=20"_s, u"page-left"_s, u"57"_s);
    row(u"DefaultMarginsCheckBox;UnitsCombo=1/10 inches;LeftSpinBox=5"_s, u"page-left"_s, u"36"_s);
    row(u"DefaultMarginsCheckBox;LeftSpinBox=20;DefaultMarginsCheckBox"_s, u"page-left"_s, removed);
    row(u"ColumnsSpinBox=3"_s, u"columns"_s, u"3"_s);
    row(u"CpiSpinBox=17"_s, u"cpi"_s, u"17"_s);
    row(u"LpiSpinBox=4"_s, u"lpi"_s, u"4"_s);
    row(u"PrettyCheckBox;PrettyCheckBox"_s, u"prettyprint"_s, removed);

    row(u"DefColorsCheckBox;BrightnessSlider=120"_s, u"brightness"_s, u"120"_s);
    row(u"DefColorsCheckBox;BrightnessSpinBox=30"_s, u"brightness"_s, u"30"_s);
    row(u"DefColorsCheckBox;GammaSlider=1801"_s, u"gamma"_s, u"1801"_s);
    row(u"DefColorsCheckBox;GammaSpinBox=1"_s, u"gamma"_s, u"1"_s);
    row(u"DefColorsCheckBox;HueSlider=-72"_s, u"hue"_s, u"-72"_s);
    row(u"DefColorsCheckBox;HueSpinBox=-360"_s, u"hue"_s, u"-360"_s);
    row(u"DefColorsCheckBox;SaturationSlider=0"_s, u"saturation"_s, u"0"_s);
    row(u"DefColorsCheckBox;SaturationSpinBox=200"_s, u"saturation"_s, u"200"_s);
    row(u"DefColorsCheckBox;HueSpinBox=10;DefColorsCheckBox"_s, u"hue"_s, removed);
    row(u"ResolutionCheckBox;ResolutionSlider=600"_s, u"ppi"_s, u"600"_s);
    row(u"ResolutionCheckBox;ResolutionSpinBox=75"_s, u"ppi"_s, u"75"_s);
    row(u"ResolutionCheckBox"_s, u"scaling"_s, removed);
    row(u"ResolutionCheckBox;ScalingCheckBox"_s, u"ppi"_s, removed);
    row(u"ScalingSlider=250"_s, u"scaling"_s, u"250"_s);
    row(u"ScalingSpinBox=800"_s, u"scaling"_s, u"800"_s);
    row(u"ScalingSpinBox=800;FitToPageButton"_s, u"scaling"_s, u"100"_s);
    row(u"HorPositionSlider=2"_s, u"position"_s, u"right"_s);
    row(u"VerPositionSlider=0"_s, u"position"_s, u"top"_s);
    row(u"VerPositionSlider=0;VerPositionSlider=1"_s, u"position"_s, removed);
}

void TestPropertiesControls::controlToOption()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, option);
    const auto dialog = open(u"Laser"_s);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    for (const QString &step : steps)
        work(*dialog, step);
    QVERIFY(applyButton(*dialog)->isEnabled());
    QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    QVERIFY(!applyButton(*dialog)->isEnabled());
    QTEST(dialog->options().value(option, QString()), "value");
    QCOMPARE(dialog->options().contains(option), !dialog->options().value(option, {}).isNull());
}

void TestPropertiesControls::controlComesBack()
{
    QFETCH(QStringList, steps);
    auto dialog = open(u"Laser"_s);
    for (const QString &step : steps)
        work(*dialog, step);
    const QString name = steps.last().section(u'=', 0, 0);
    const QString property = name.endsWith(u"Combo")     ? u".currentText"_s
                             : name.endsWith(u"SpinBox") ? u".value"_s
                             : name.endsWith(u"Slider")  ? u".value"_s
                                                         : u".checked"_s;
    const QString set = shown(*dialog, name + property);
    QTest::mouseClick(child<QPushButton>(*dialog, "OkButton"), Qt::LeftButton);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    dialog = open(u"Laser"_s);
    QCOMPARE(shown(*dialog, name + property), set);
}

void TestPropertiesControls::everyPaper()
{
    const auto dialog = open(u"Laser"_s);
    const auto combo = child<QComboBox>(*dialog, "SizeCombo");
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i) {
        texts.append(combo->itemText(i));
        choose(combo, i);
        QCOMPARE(dialog->options().valueAsText(u"PageSize"_s), combo->itemText(i));
    }
    QCOMPARE(texts, QStringList({u"A4"_s, u"A5"_s, u"A3"_s, u"US Letter"_s, u"US Legal"_s}));
}

void TestPropertiesControls::everyBanner_data()
{
    QTest::addColumn<QString>("banner");
    for (const char *banner :
         {"none", "classified", "confidential", "secret", "standard", "topsecret", "unclassified"})
        QTest::newRow(banner) << QString::fromLatin1(banner);
}

void TestPropertiesControls::everyBanner()
{
    QFETCH(QString, banner);
    const auto dialog = open(u"Laser"_s, {u"job-sheets="_s + banner + u',' + banner});
    QCOMPARE(shown(*dialog, u"StartBannerCombo.currentText"_s), banner);
    QCOMPARE(shown(*dialog, u"EndBannerCombo.currentText"_s), banner);
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"job-sheets"_s, {}), banner + u',' + banner);
}

void TestPropertiesControls::everyPosition_data()
{
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("vertical");
    QTest::addColumn<QString>("value"); // null: removed
    QTest::addColumn<QPoint>("place");
    const int right = 84 - 36;
    const int bottom = 112 - 27;
    const auto row = [](int horizontal, int vertical, const char *value, QPoint place) {
        QTest::addRow("%d, %d", horizontal, vertical)
            << horizontal << vertical << QString::fromLatin1(value) << place;
    };
    row(0, 0, "top-left", {0, 0});
    row(1, 0, "top", {right / 2, 0});
    row(2, 0, "top-right", {right, 0});
    row(0, 1, "left", {0, bottom / 2});
    row(1, 1, nullptr, {right / 2, bottom / 2});
    row(2, 1, "right", {right, bottom / 2});
    row(0, 2, "bottom-left", {0, bottom});
    row(1, 2, "bottom", {right / 2, bottom});
    row(2, 2, "bottom-right", {right, bottom});
}

void TestPropertiesControls::everyPosition()
{
    QFETCH(int, horizontal);
    QFETCH(int, vertical);
    QFETCH(QPoint, place);
    auto dialog = open(u"Laser"_s, {u"position=center"_s});
    work(*dialog, u"HorPositionSlider=%1"_s.arg(horizontal));
    work(*dialog, u"VerPositionSlider=%1"_s.arg(vertical));
    QCOMPARE(child<QWidget>(*dialog, "framePositionedImage")->pos(), place);
    dialog->ApplyChanges();
    const QString value = dialog->options().value(u"position"_s, {});
    QTEST(value, "value");

    dialog = open(u"Laser"_s, value.isNull() ? QStringList() : QStringList{u"position="_s + value});
    QCOMPARE(shown(*dialog, u"HorPositionSlider.value"_s).toInt(), horizontal);
    QCOMPARE(shown(*dialog, u"VerPositionSlider.value"_s).toInt(), vertical);
    QCOMPARE(child<QWidget>(*dialog, "framePositionedImage")->pos(), place);
}

void TestPropertiesControls::everyMarginSide_data()
{
    QTest::addColumn<int>("requested");
    QTest::addColumn<QString>("side");
    for (const int requested : {3, 4, 5, 6}) {
        for (const char *side : {"left", "right", "top", "bottom"})
            QTest::addRow("%d, %s", requested, side) << requested << QString::fromLatin1(side);
    }
}

/** Where the page lies still, an option and the box of its name are the same. */
void TestPropertiesControls::everyMarginSide()
{
    QFETCH(int, requested);
    QFETCH(QString, side);
    QString boxName = side + u"SpinBox"_s;
    boxName[0] = boxName[0].toUpper();
    const QString orientation = u"orientation-requested=%1"_s.arg(requested);
    const auto dialog = open(u"Laser"_s, {orientation, u"page-%1=44"_s.arg(side)});
    QCOMPARE(shown(*dialog, boxName + u".value"_s), u"44"_s);
    work(*dialog, boxName + u"=55"_s);
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"page-"_s + side, {}), u"55"_s);
}

void TestPropertiesControls::marginsTurnWithThePage_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QList<int>>("shown"); // left, right, top, bottom
    QTest::newRow("portrait") << QStringList() << QList<int>{20, 30, 40, 50};
    QTest::newRow("portrait, reversed")
        << QStringList{u"OrientationReverseCheck"_s} << QList<int>{30, 20, 50, 40};
    QTest::newRow("landscape") << QStringList{u"LandscapeRadio"_s} << QList<int>{50, 40, 20, 30};
    QTest::newRow("landscape, reversed")
        << QStringList{u"LandscapeRadio"_s, u"OrientationReverseCheck"_s}
        << QList<int>{40, 50, 30, 20};
}

void TestPropertiesControls::marginsTurnWithThePage()
{
    QFETCH(QStringList, steps);
    QFETCH(QList<int>, shown);
    const auto dialog = open(u"Laser"_s, {u"page-left=20"_s, u"page-right=30"_s, u"page-top=40"_s});
    // Typed and not yet stored when the page is turned.
    work(*dialog, u"BottomSpinBox=50"_s);
    for (const QString &step : steps)
        work(*dialog, step);
    QList<int> values;
    for (const char *name : {"LeftSpinBox", "RightSpinBox", "TopSpinBox", "BottomSpinBox"})
        values.append(child<QSpinBox>(*dialog, name)->value());
    QCOMPARE(values, shown);
    dialog->ApplyChanges();
    QCOMPARE(dialog->options().value(u"page-left"_s, {}), QString::number(shown[0]));
    QCOMPARE(dialog->options().value(u"page-bottom"_s, {}), QString::number(shown[3]));
}

void TestPropertiesControls::pictures_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("file");
    const auto row = [](const char *file, const char *label, const QString &steps) {
        QTest::newRow(file) << steps.split(u';', Qt::SkipEmptyParts) << QByteArray(label)
                            << QString::fromLatin1(file).section(u' ', 0, 0);
    };
    row("portrait.png", "OrientationPixmap", u""_s);
    row("portrait_rev.png", "OrientationPixmap", u"OrientationReverseCheck"_s);
    row("landscape.png", "OrientationPixmap", u"LandscapeRadio"_s);
    row("landscape_rev.png", "OrientationPixmap", u"LandscapeRadio;OrientationReverseCheck"_s);
    row("dupl_none.png", "DuplexPixmap", u""_s);
    row("dupl_long.png", "DuplexPixmap", u"DuplexLongRadio"_s);
    row("dupl_short.png", "DuplexPixmap", u"DuplexShortRadio"_s);
    row("dupl_none.png again", "DuplexPixmap", u"DuplexShortRadio;DuplexOffRadio"_s);
    row("nup1.png", "NUpPixmap", u""_s);
    row("nup2.png", "NUpPixmap", u"TwoPagesRadio"_s);
    row("nup4.png", "NUpPixmap", u"FourPagesRadio"_s);
    row("columns1.png", "ColumnsPixmap", u""_s);
    row("columns2.png", "ColumnsPixmap", u"ColumnsSpinBox=2"_s);
    row("columns3.png", "ColumnsPixmap", u"ColumnsSpinBox=3"_s);
    row("columns4.png", "ColumnsPixmap", u"ColumnsSpinBox=4"_s);
    row("pretty.png", "PrettyPixmap", u"PrettyCheckBox"_s);
    row("columns1.png as not pretty", "PrettyPixmap", u"ColumnsSpinBox=3"_s);
    row("columns1.png as no longer pretty", "PrettyPixmap", u"PrettyCheckBox;PrettyCheckBox"_s);
}

void TestPropertiesControls::pictures()
{
    QFETCH(QStringList, steps);
    QFETCH(QByteArray, label);
    QFETCH(QString, file);
    auto dialog = open(u"Laser"_s);
    for (const QString &step : steps)
        work(*dialog, step);
    QVERIFY(showsPicture(*dialog, label.constData(), file));
    if (!applyButton(*dialog)->isEnabled())
        return;
    dialog->ApplyChanges();
    dialog = open(u"Laser"_s);
    QVERIFY(showsPicture(*dialog, label.constData(), file));
}

void TestPropertiesControls::removedOptionsAreNotSaved_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("step");
    const auto row = [](const QString &before, const QString &step) {
        QTest::newRow(qPrintable(before)) << before << step;
    };
    row(u"sides=two-sided-long-edge"_s, u"DuplexOffRadio"_s);
    row(u"number-up=4"_s, u"OnePageRadio"_s);
    row(u"prettyprint="_s, u"PrettyCheckBox"_s);
    row(u"page-left=40"_s, u"DefaultMarginsCheckBox"_s);
    row(u"hue=40"_s, u"DefColorsCheckBox"_s);
    row(u"ppi=300"_s, u"ScalingCheckBox"_s);
    row(u"scaling=50"_s, u"ResolutionCheckBox"_s);
    row(u"position=left"_s, u"HorPositionSlider=1"_s);
}

void TestPropertiesControls::removedOptionsAreNotSaved()
{
    QFETCH(QString, before);
    QFETCH(QString, step);
    const QString name = before.section(u'=', 0, 0);
    PrinterOptions options = optionsOf(u"Laser"_s, {before});
    QVERIFY(options.save(u"Laser"_s));
    QVERIFY(savedOptions(u"Laser"_s).contains(name));
    const auto dialog = open(u"Laser"_s);
    work(*dialog, step);
    QTest::mouseClick(applyButton(*dialog), Qt::LeftButton);
    QVERIFY(!savedOptions(u"Laser"_s).contains(name));
    QVERIFY(!dialog->options().contains(name));
}

QTEST_MAIN(TestPropertiesControls)
#include "tst_propertiescontrols.moc"
