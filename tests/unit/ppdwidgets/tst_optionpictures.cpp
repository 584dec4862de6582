#include "OptionPictures.h"

#include <QTest>

using namespace Qt::StringLiterals;

/** The file names of the pictures; the pictures themselves need a window system. */
class TestOptionPictures : public QObject
{
    Q_OBJECT
private slots:
    void optionFile_data();
    void optionFile();
    void fallback_data();
    void fallback();
    void booleanFile_data();
    void booleanFile();
    void groupFile_data();
    void groupFile();
    void installGroup_data();
    void installGroup();
};

void TestOptionPictures::optionFile_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("file");
    const auto row = [](const char *keyword, const char *file) {
        QTest::newRow(keyword) << QString::fromLatin1(keyword) << QString::fromLatin1(file);
    };
    row("PageSize", "pagesize.png");
    row("MediaType", "pagesize.png");
    row("InputSlot", "inputslot.png");
    row("Brightness", "brightness.png");
    row("ColorModel", "color_opt.png");
    row("Grayscale", "color_opt.png");
    row("Yellow", "yellow.png");
    row("Cyan", "cyan.png");
    row("Magenta", "magenta.png");
    row("Gamma", "gamma.png");
    row("Duplex", "duplex.png");
    row("GSResolution", "gsresol.png");
    row("Resolution", "resol.png");
    row("Saturation", "saturation.png");
    row("Contrast", "contrast.png");
    row("Dither", "dither.png");
    row("Dithering", "dither.png");
    row("ImageType", "imagetype.png");
    row("Quality", "pagesize.png");
    row("brightness", "brightness.png");
    row("BRIGHTNESS", "brightness.png");
    row("StpBrightness", "brightness.png");
    row("STPBRIGHTNESS", "brightness.png");
    row("StpGamma", "gamma.png");
}

void TestOptionPictures::optionFile()
{
    QFETCH(QString, keyword);
    QTEST(OptionPictures::optionFile(keyword, u"other.png"_s), "file");
}

void TestOptionPictures::fallback_data()
{
    QTest::addColumn<QString>("keyword");
    for (const char *keyword : {"Gamma2", "StpGamma2", "StpStpGamma", "Stp", "", "Page Size",
                                "PageSize ", "Unknown", "OptionDuplex"})
        QTest::newRow(keyword) << QString::fromLatin1(keyword);
}

void TestOptionPictures::fallback()
{
    QFETCH(QString, keyword);
    QCOMPARE(OptionPictures::optionFile(keyword, u"list.png"_s), u"list.png"_s);
    QCOMPARE(OptionPictures::optionFile(keyword, u"numeric.png"_s), u"numeric.png"_s);
}

void TestOptionPictures::booleanFile_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("file");
    QTest::newRow("True") << u"True"_s << u"bool_on.png"_s;
    for (const char *choice : {"False", "true", "TRUE", "On", "True ", ""})
        QTest::newRow(choice) << QString::fromLatin1(choice) << u"bool_off.png"_s;
}

void TestOptionPictures::booleanFile()
{
    QFETCH(QString, choice);
    QTEST(OptionPictures::booleanFile(choice), "file");
}

void TestOptionPictures::groupFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("file");
    const auto row = [](const char *text, const char *file) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(file);
    };
    row("Extra", "printer_extra.png");
    row("JCL", "printer_jcl.png");
    row("Installable Options", "printer_install.png");
    row("INSTALLED", "printer_install.png");
    row("Options Installed", "printer_install.png");
    row("General", "printer_general.png");
    row("extra", "printer_general.png");
    row("Extra ", "printer_general.png");
    row("jcl", "printer_general.png");
    row("JCL Options", "printer_general.png");
    row("", "printer_general.png");
}

void TestOptionPictures::groupFile()
{
    QFETCH(QString, text);
    QTEST(OptionPictures::groupFile(text), "file");
}

void TestOptionPictures::installGroup_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("install");
    QTest::newRow("upper") << u"Installable Options"_s << true;
    QTest::newRow("lower") << u"uninstalled"_s << true;
    QTest::newRow("mixed") << u"InStAlL"_s << true;
    QTest::newRow("other") << u"Instal"_s << false;
    QTest::newRow("empty") << QString() << false;
}

void TestOptionPictures::installGroup()
{
    QFETCH(QString, text);
    QTEST(OptionPictures::isInstallGroup(text), "install");
}

QTEST_APPLESS_MAIN(TestOptionPictures)
#include "tst_optionpictures.moc"
