#include "DialogTest.h"
#include "ui_PrinterPropertiesDialogBase.h"

#include <QAccessible>
#include <QDialog>

using namespace Qt::StringLiterals;
using DialogTest::child;

/** The form alone: what is in it before the dialog fills it. */
class TestPropertiesForm : public QObject
{
    Q_OBJECT
public:
    TestPropertiesForm()
    {
        Q_INIT_RESOURCE(printerpropertiesdialog);
        m_form.setupUi(&m_dialog);
    }

private slots:
    void window();
    void tabs_data();
    void tabs();
    void widgets_data();
    void widgets();
    void layouts_data();
    void layouts();
    void checked_data();
    void checked();
    void ranges_data();
    void ranges();
    void positionSliders();
    void buttonGroupIds_data();
    void buttonGroupIds();
    void groups_data();
    void groups();
    void buttons();
    void mnemonicsDiffer();
    void buddies_data();
    void buddies();
    void tabOrder();
    void everythingHasAName_data();
    void everythingHasAName();

private:
    QDialog m_dialog;
    Ui::PrinterPropertiesDialogBase m_form;
};

namespace
{
QStringList namesOf(const QList<QWidget *> &widgets)
{
    QStringList names;
    for (const QWidget *widget : widgets)
        names.append(widget->objectName());
    return names;
}

bool isPartOfAnother(const QWidget *widget, const QWidget *pane)
{
    return widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_") ||
           widget->focusProxy() || pane->isAncestorOf(widget) ||
           qobject_cast<const QTabBar *>(widget->parentWidget());
}

/** The widgets of the form below `root` that Tab leads to, in that order. */
QList<QWidget *> focusChain(QWidget *root)
{
    const auto pane = child<QWidget>(*root, "ppdOptionView");
    QList<QWidget *> chain;
    for (QWidget *widget = root->nextInFocusChain(); widget != root;
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) && !isPartOfAnother(widget, pane))
            chain.append(widget);
    }
    return chain;
}
} // namespace

void TestPropertiesForm::window()
{
    QCOMPARE(m_dialog.windowTitle(), u"'%s' Properties"_s);
    QCOMPARE(m_dialog.layout()->objectName(), u"vboxLayout"_s);
}

void TestPropertiesForm::tabs_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("layout");
    QTest::newRow("general") << 0 << "GeneralPage"
                             << "General"
                             << "gridLayout";
    QTest::newRow("text") << 1 << "TextPage"
                          << "Text"
                          << "vboxLayout1";
    QTest::newRow("graphics") << 2 << "tab"
                              << "Graphics"
                              << "gridLayout9";
    QTest::newRow("advanced") << 3 << "AdvancedPage"
                              << "Advanced"
                              << "vboxLayout2";
}

void TestPropertiesForm::tabs()
{
    QFETCH(int, index);
    QCOMPARE(m_form.TabControl->count(), 4);
    QCOMPARE(m_form.TabControl->currentIndex(), 0);
    QTEST(m_form.TabControl->widget(index)->objectName(), "name");
    QTEST(m_form.TabControl->tabText(index), "text");
    QTEST(m_form.TabControl->widget(index)->layout()->objectName(), "layout");
}

void TestPropertiesForm::widgets_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("GroupBox3") << "QGroupBox"
                               << "Paper Options";
    QTest::newRow("TextLabel1") << "QLabel"
                                << "Paper Size:";
    QTest::newRow("SizeCombo") << "QComboBox"
                               << "";
    QTest::newRow("TextLabel1_2") << "QLabel"
                                  << "Paper Type:";
    QTest::newRow("MediaCombo") << "QComboBox"
                                << "";
    QTest::newRow("OrientationGroup") << "QGroupBox"
                                      << "Paper Orientation";
    QTest::newRow("PortraitRadio") << "QRadioButton"
                                   << "Portrait";
    QTest::newRow("LandscapeRadio") << "QRadioButton"
                                    << "Landscape";
    QTest::newRow("OrientationReverseCheck") << "QCheckBox"
                                             << "Reverse";
    QTest::newRow("OrientationPixmap") << "QLabel"
                                       << "";
    QTest::newRow("DuplexGroup") << "QGroupBox"
                                 << "Double-Sided Printing";
    QTest::newRow("DuplexOffRadio") << "QRadioButton"
                                    << "Off";
    QTest::newRow("DuplexLongRadio") << "QRadioButton"
                                     << "Long Edge [Book]";
    QTest::newRow("DuplexShortRadio") << "QRadioButton"
                                      << "Short Edge [Tablet]";
    QTest::newRow("DuplexPixmap") << "QLabel"
                                  << "";
    QTest::newRow("GroupBox4") << "QGroupBox"
                               << "Banners";
    QTest::newRow("TextLabel2") << "QLabel"
                                << "Start:";
    QTest::newRow("StartBannerCombo") << "QComboBox"
                                      << "";
    QTest::newRow("TextLabel2_2") << "QLabel"
                                  << "End:";
    QTest::newRow("EndBannerCombo") << "QComboBox"
                                    << "";
    QTest::newRow("NUpGroup") << "QGroupBox"
                              << "Pages per Side [N-Up]";
    QTest::newRow("OnePageRadio") << "QRadioButton"
                                  << "Normal (1-Up)";
    QTest::newRow("TwoPagesRadio") << "QRadioButton"
                                   << "2-Up";
    QTest::newRow("FourPagesRadio") << "QRadioButton"
                                    << "4-Up";
    QTest::newRow("NUpPixmap") << "QLabel"
                               << "";
    QTest::newRow("TextLabel2_3") << "QLabel"
                                  << "The following options apply only when printing text files.";
    QTest::newRow("GroupBox7") << "QGroupBox"
                               << "Margins";
    QTest::newRow("DefaultMarginsCheckBox") << "QCheckBox"
                                            << "Use device default margins";
    QTest::newRow("UnitsLabel") << "QLabel"
                                << "Units:";
    QTest::newRow("UnitsCombo") << "QComboBox"
                                << "";
    QTest::newRow("LeftLabel") << "QLabel"
                               << "Left:";
    QTest::newRow("LeftSpinBox") << "MultiUnitSpinBox"
                                 << "13";
    QTest::newRow("RightLabel") << "QLabel"
                                << "Right:";
    QTest::newRow("RightSpinBox") << "MultiUnitSpinBox"
                                  << "13";
    QTest::newRow("TopLabel") << "QLabel"
                              << "Top:";
    QTest::newRow("TopSpinBox") << "MultiUnitSpinBox"
                                << "13";
    QTest::newRow("BottomLabel") << "QLabel"
                                 << "Bottom:";
    QTest::newRow("BottomSpinBox") << "MultiUnitSpinBox"
                                   << "13";
    QTest::newRow("GroupBox8") << "QGroupBox"
                               << "Plain Text Options";
    QTest::newRow("GroupBox14") << "QGroupBox"
                                << "Spacing";
    QTest::newRow("CpiLabel") << "QLabel"
                              << "Characters per inch:";
    QTest::newRow("CpiSpinBox") << "QSpinBox"
                                << "10";
    QTest::newRow("LpiLabel") << "QLabel"
                              << "Lines per inch:";
    QTest::newRow("LpiSpinBox") << "QSpinBox"
                                << "6";
    QTest::newRow("GroupBox9_2_2") << "QGroupBox"
                                   << "Columns";
    QTest::newRow("ColumnsLabel_2_2") << "QLabel"
                                      << "Columns:";
    QTest::newRow("ColumnsSpinBox") << "QSpinBox"
                                    << "1";
    QTest::newRow("ColumnsPixmap") << "QLabel"
                                   << "";
    QTest::newRow("GroupBox9_3") << "QGroupBox"
                                 << "Page Decoration";
    QTest::newRow("PrettyCheckBox") << "QCheckBox"
                                    << "Pretty printing";
    QTest::newRow("PrettyPixmap") << "QLabel"
                                  << "";
    QTest::newRow("TextLabel1_3") << "QLabel"
                                  << "The following options apply only when printing image files.";
    QTest::newRow("GroupBox28") << "QGroupBox"
                                << "Color Adjustments";
    QTest::newRow("DefColorsCheckBox") << "QCheckBox"
                                       << "Use default color settings";
    QTest::newRow("BrightnessLabel") << "QLabel"
                                     << "Brightness:";
    QTest::newRow("BrightnessSlider") << "QSlider"
                                      << "";
    QTest::newRow("BrightnessSpinBox") << "QSpinBox"
                                       << "100";
    QTest::newRow("GammaLabel") << "QLabel"
                                << "Gamma:";
    QTest::newRow("GammaSlider") << "QSlider"
                                 << "";
    QTest::newRow("GammaSpinBox") << "QSpinBox"
                                  << "1000";
    QTest::newRow("HueLabel") << "QLabel"
                              << "Hue:";
    QTest::newRow("HueSlider") << "QSlider"
                               << "";
    QTest::newRow("HueSpinBox") << "QSpinBox"
                                << "0";
    QTest::newRow("SaturationLabel") << "QLabel"
                                     << "Saturation:";
    QTest::newRow("SaturationSlider") << "QSlider"
                                      << "";
    QTest::newRow("SaturationSpinBox") << "QSpinBox"
                                       << "100";
    QTest::newRow("SampleImagePixmap") << "QLabel"
                                       << "";
    QTest::newRow("GroupBox29") << "QGroupBox"
                                << "Image Size";
    QTest::newRow("ResolutionCheckBox") << "QRadioButton"
                                        << "Use specific resolution";
    QTest::newRow("ResolutionSlider") << "QSlider"
                                      << "";
    QTest::newRow("ResolutionSpinBox") << "QSpinBox"
                                       << "128";
    QTest::newRow("PpiLabel") << "QLabel"
                              << "ppi";
    QTest::newRow("ScalingCheckBox") << "QRadioButton"
                                     << "Use scaling";
    QTest::newRow("ScalingSlider") << "QSlider"
                                   << "";
    QTest::newRow("ScalingSpinBox") << "QSpinBox"
                                    << "100";
    QTest::newRow("PercentLabel") << "QLabel"
                                  << "%";
    QTest::newRow("FitToPageButton") << "QPushButton"
                                     << "Fit to Page";
    QTest::newRow("GroupBox29_2") << "QGroupBox"
                                  << "Image Position";
    QTest::newRow("HorPositionSlider") << "QSlider"
                                       << "";
    QTest::newRow("VerPositionSlider") << "QSlider"
                                       << "";
    QTest::newRow("frameImagePosition") << "QLabel"
                                        << "";
    QTest::newRow("framePositionedImage") << "QLabel"
                                          << "";
    QTest::newRow("ppdTreeView") << "PPDTreeView"
                                 << "";
    QTest::newRow("ppdOptionView") << "PPDOptionView"
                                   << "";
    QTest::newRow("HelpButton") << "QPushButton"
                                << "&Help";
    QTest::newRow("ApplyButton") << "QPushButton"
                                 << "&Apply";
    QTest::newRow("OkButton") << "QPushButton"
                              << "&OK";
    QTest::newRow("CancelButton") << "QPushButton"
                                  << "&Cancel";
}

void TestPropertiesForm::widgets()
{
    const auto widget = child<QWidget>(m_dialog, QTest::currentDataTag());
    QTEST(QString::fromLatin1(widget->metaObject()->className()), "type");
    const char *property =
        widget->inherits("QGroupBox") && !widget->inherits("PPDOptionView") ? "title" : "text";
    QTEST(widget->property(property).toString(), "text");
}

void TestPropertiesForm::layouts_data()
{
    QTest::addColumn<QString>("type");
    for (const char *grid :
         {"gridLayout", "gridLayout5", "gridLayout6", "gridLayout7", "gridLayout9", "gridLayout12"})
        QTest::newRow(grid) << "QGridLayout";
    for (const char *column : {"vboxLayout", "vboxLayout1", "vboxLayout2"})
        QTest::newRow(column) << "QVBoxLayout";
    QTest::newRow("hboxLayout2") << "QHBoxLayout";
}

void TestPropertiesForm::layouts()
{
    const auto layout = m_dialog.findChild<QLayout *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(layout);
    QTEST(QString::fromLatin1(layout->metaObject()->className()), "type");
}

void TestPropertiesForm::checked_data()
{
    QTest::addColumn<bool>("isChecked");
    for (const char *name : {"PortraitRadio", "DuplexOffRadio", "OnePageRadio",
                             "DefaultMarginsCheckBox", "DefColorsCheckBox", "ScalingCheckBox"})
        QTest::newRow(name) << true;
    for (const char *name :
         {"LandscapeRadio", "OrientationReverseCheck", "DuplexLongRadio", "DuplexShortRadio",
          "TwoPagesRadio", "FourPagesRadio", "PrettyCheckBox", "ResolutionCheckBox"})
        QTest::newRow(name) << false;
}

void TestPropertiesForm::checked()
{
    QTEST(child<QAbstractButton>(m_dialog, QTest::currentDataTag())->isChecked(), "isChecked");
}

void TestPropertiesForm::ranges_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("pageStep"); // of the slider; 0: there is none
    QTest::addColumn<int>("value");
    QTest::newRow("Brightness") << 0 << 200 << 20 << 100;
    QTest::newRow("Gamma") << 1 << 2000 << 200 << 1000;
    QTest::newRow("Hue") << -360 << 360 << 72 << 0;
    QTest::newRow("Saturation") << 0 << 200 << 20 << 100;
    QTest::newRow("Resolution") << 1 << 1200 << 120 << 128;
    QTest::newRow("Scaling") << 1 << 800 << 100 << 100;
    QTest::newRow("Cpi") << 1 << 99 << 0 << 10;
    QTest::newRow("Lpi") << 1 << 99 << 0 << 6;
    QTest::newRow("Columns") << 1 << 4 << 0 << 1;
    for (const char *side : {"Left", "Right", "Top", "Bottom"})
        QTest::newRow(side) << 13 << 9999 << 0 << 13;
}

void TestPropertiesForm::ranges()
{
    QFETCH(int, pageStep);
    const QByteArray name = QTest::currentDataTag();
    const auto box = child<QSpinBox>(m_dialog, (name + "SpinBox").constData());
    QTEST(box->minimum(), "minimum");
    QTEST(box->maximum(), "maximum");
    QTEST(box->value(), "value");
    if (pageStep == 0)
        return;
    const auto slider = child<QSlider>(m_dialog, (name + "Slider").constData());
    QTEST(slider->minimum(), "minimum");
    QTEST(slider->maximum(), "maximum");
    QTEST(slider->value(), "value");
    QCOMPARE(slider->pageStep(), pageStep);
    QCOMPARE(slider->orientation(), Qt::Horizontal);
}

void TestPropertiesForm::positionSliders()
{
    for (const QSlider *slider : {m_form.HorPositionSlider, m_form.VerPositionSlider}) {
        QCOMPARE(slider->minimum(), 0);
        QCOMPARE(slider->maximum(), 2);
        QCOMPARE(slider->value(), 1);
        QCOMPARE(slider->pageStep(), 1);
    }
    QCOMPARE(m_form.HorPositionSlider->orientation(), Qt::Horizontal);
    QCOMPARE(m_form.HorPositionSlider->tickPosition(), QSlider::TicksBelow);
    QCOMPARE(m_form.VerPositionSlider->orientation(), Qt::Vertical);
    QVERIFY(m_form.VerPositionSlider->tickPosition() != QSlider::NoTicks);
    QVERIFY(m_form.VerPositionSlider->invertedAppearance());
    QVERIFY(m_form.VerPositionSlider->invertedControls());
    QCOMPARE(m_form.framePositionedImage->parentWidget(), m_form.frameImagePosition);
}

void TestPropertiesForm::buttonGroupIds_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("OnePageRadio") << 1;
    QTest::newRow("TwoPagesRadio") << 2;
    QTest::newRow("FourPagesRadio") << 4;
}

void TestPropertiesForm::buttonGroupIds()
{
    const auto button = child<QRadioButton>(m_dialog, QTest::currentDataTag());
    QTEST(button->property("buttonGroupId").toInt(), "id");
}

void TestPropertiesForm::groups_data()
{
    QTest::addColumn<QString>("group");
    for (const char *name : {"SizeCombo", "MediaCombo"})
        QTest::newRow(name) << "GroupBox3";
    for (const char *name :
         {"PortraitRadio", "LandscapeRadio", "OrientationReverseCheck", "OrientationPixmap"})
        QTest::newRow(name) << "OrientationGroup";
    for (const char *name : {"DuplexOffRadio", "DuplexLongRadio", "DuplexShortRadio"})
        QTest::newRow(name) << "DuplexGroup";
    for (const char *name : {"StartBannerCombo", "EndBannerCombo"})
        QTest::newRow(name) << "GroupBox4";
    for (const char *name : {"OnePageRadio", "TwoPagesRadio", "FourPagesRadio", "NUpPixmap"})
        QTest::newRow(name) << "NUpGroup";
    for (const char *name : {"DefaultMarginsCheckBox", "UnitsCombo", "LeftSpinBox"})
        QTest::newRow(name) << "GroupBox7";
    for (const char *name : {"GroupBox14", "GroupBox9_2_2", "GroupBox9_3"})
        QTest::newRow(name) << "GroupBox8";
    for (const char *name : {"CpiSpinBox", "LpiSpinBox"})
        QTest::newRow(name) << "GroupBox14";
    for (const char *name : {"ColumnsSpinBox", "ColumnsPixmap"})
        QTest::newRow(name) << "GroupBox9_2_2";
    for (const char *name : {"PrettyCheckBox", "PrettyPixmap"})
        QTest::newRow(name) << "GroupBox9_3";
    for (const char *name : {"DefColorsCheckBox", "HueSlider", "SampleImagePixmap"})
        QTest::newRow(name) << "GroupBox28";
    for (const char *name : {"ResolutionCheckBox", "ScalingSpinBox", "FitToPageButton"})
        QTest::newRow(name) << "GroupBox29";
    for (const char *name : {"HorPositionSlider", "VerPositionSlider", "frameImagePosition"})
        QTest::newRow(name) << "GroupBox29_2";
    for (const char *name : {"ppdTreeView", "ppdOptionView"})
        QTest::newRow(name) << "AdvancedPage";
}

void TestPropertiesForm::groups()
{
    QTEST(child<QWidget>(m_dialog, QTest::currentDataTag())->parentWidget()->objectName(), "group");
}

void TestPropertiesForm::buttons()
{
    QVERIFY(m_form.OkButton->isDefault());
    m_dialog.setResult(QDialog::Rejected);
    m_form.OkButton->click();
    QCOMPARE(m_dialog.result(), int(QDialog::Accepted));
    m_form.CancelButton->click();
    QCOMPARE(m_dialog.result(), int(QDialog::Rejected));
}

void TestPropertiesForm::mnemonicsDiffer()
{
    QStringList mnemonics;
    const QList<QWidget *> all = m_dialog.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        for (const char *property : {"text", "title"}) {
            const QKeySequence key = QKeySequence::mnemonic(widget->property(property).toString());
            if (!key.isEmpty())
                mnemonics.append(key.toString());
        }
    }
    mnemonics.sort();
    QCOMPARE(mnemonics, QStringList({u"Alt+A"_s, u"Alt+C"_s, u"Alt+H"_s, u"Alt+O"_s}));
}

void TestPropertiesForm::buddies_data()
{
    QTest::addColumn<QString>("buddy");
    QTest::newRow("TextLabel1") << "SizeCombo";
    QTest::newRow("TextLabel1_2") << "MediaCombo";
    QTest::newRow("TextLabel2") << "StartBannerCombo";
    QTest::newRow("TextLabel2_2") << "EndBannerCombo";
    QTest::newRow("UnitsLabel") << "UnitsCombo";
    for (const char *name : {"Left", "Right", "Top", "Bottom", "Cpi", "Lpi", "Brightness", "Gamma",
                             "Hue", "Saturation"})
        QTest::addRow("%sLabel", name) << QLatin1String(name) + u"SpinBox"_s;
    QTest::newRow("ColumnsLabel_2_2") << "ColumnsSpinBox";
    QTest::newRow("PpiLabel") << "ResolutionSpinBox";
    QTest::newRow("PercentLabel") << "ScalingSpinBox";
}

void TestPropertiesForm::buddies()
{
    const auto label = child<QLabel>(m_dialog, QTest::currentDataTag());
    QVERIFY(label->buddy());
    QTEST(label->buddy()->objectName(), "buddy");
}

void TestPropertiesForm::tabOrder()
{
    QCOMPARE(namesOf(focusChain(&m_dialog)).join(u' '),
             u"SizeCombo MediaCombo PortraitRadio LandscapeRadio OrientationReverseCheck "
             "DuplexOffRadio DuplexLongRadio DuplexShortRadio OnePageRadio TwoPagesRadio "
             "FourPagesRadio StartBannerCombo EndBannerCombo DefaultMarginsCheckBox UnitsCombo "
             "LeftSpinBox RightSpinBox TopSpinBox BottomSpinBox CpiSpinBox LpiSpinBox "
             "ColumnsSpinBox PrettyCheckBox DefColorsCheckBox BrightnessSlider BrightnessSpinBox "
             "GammaSlider GammaSpinBox HueSlider HueSpinBox SaturationSlider SaturationSpinBox "
             "ResolutionCheckBox ResolutionSlider ResolutionSpinBox ScalingCheckBox ScalingSlider "
             "ScalingSpinBox FitToPageButton VerPositionSlider HorPositionSlider ppdTreeView "
             "HelpButton ApplyButton OkButton CancelButton"_s);
}

void TestPropertiesForm::everythingHasAName_data()
{
    QTest::addColumn<QWidget *>("widget");
    for (QWidget *widget : focusChain(&m_dialog))
        QTest::newRow(qPrintable(widget->objectName())) << widget;
    for (const char *picture : {"OrientationPixmap", "DuplexPixmap", "NUpPixmap", "ColumnsPixmap",
                                "PrettyPixmap", "SampleImagePixmap", "frameImagePosition"})
        QTest::newRow(picture) << child<QWidget>(m_dialog, picture);
}

void TestPropertiesForm::everythingHasAName()
{
    QFETCH(QWidget *, widget);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(accessible);
    QVERIFY(!accessible->text(QAccessible::Name).isEmpty());
}

QTEST_MAIN(TestPropertiesForm)
#include "tst_propertiesform.moc"
