#include "PpdMarks.h"

#include "DecimalCommaLocale.h"
#include "OptionsTestSupport.h"
#include "TestPpd.h"

#include <QTest>

#include <cstring>
#include <utility>

using TestSupport::words;

namespace
{
/** The texts of an option's marked choices, joined as they are saved. */
QString savedText(ppd_file_t *ppd, const char *keyword)
{
    const ppd_option_t *option = ppdFindOption(ppd, keyword);
    return option ? PpdMarks::choiceTexts(ppd, *option, nullptr).join(QLatin1Char(','))
                  : QStringLiteral("no such option");
}

ppd_choice_t *choice(ppd_file_t *ppd, const char *keyword, const char *name)
{
    return ppdFindChoice(ppdFindOption(ppd, keyword), name);
}

QStringList keywords(const std::vector<ppd_option_t *> &options)
{
    QStringList result;
    for (const ppd_option_t *option : options)
        result.append(QString::fromLatin1(option->keyword));
    return result;
}

QByteArray contents(FILE *file)
{
    rewind(file);
    char text[256];
    return QByteArray(text, static_cast<qsizetype>(fread(text, 1, sizeof text, file)));
}

class LogFile
{
public:
    LogFile()
        : m_file(tmpfile())
    {
    }
    LogFile(const LogFile &) = delete;
    LogFile &operator=(const LogFile &) = delete;
    ~LogFile() { fclose(m_file); }
    FILE *get() const { return m_file; }

private:
    FILE *m_file;
};

/** Shortens the list of an option's parameters while it lives. */
class ParametersOf
{
public:
    explicit ParametersOf(ppd_coption_t *option)
        : m_option(option)
        , m_all(option->params)
    {
        option->params = cupsArrayNew(nullptr, nullptr);
    }
    ParametersOf(const ParametersOf &) = delete;
    ParametersOf &operator=(const ParametersOf &) = delete;
    ~ParametersOf() { cupsArrayDelete(std::exchange(m_option->params, m_all)); }
    void keep(int count)
    {
        for (int i = 0; i < count; ++i)
            cupsArrayAdd(m_option->params, cupsArrayIndex(m_all, i));
    }

private:
    ppd_coption_t *m_option;
    cups_array_t *m_all;
};

ppd_cparam_t parameterOf(ppd_cptype_t type)
{
    ppd_cparam_t parameter = {};
    std::strcpy(parameter.name, "Name");
    parameter.type = type;
    return parameter;
}
} // namespace

class tst_PpdMarks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void optionsInOrder();
    void optionsOfNestedSubgroups();
    void parameterText_data();
    void parameterText();
    void parameterTextOfUnknownType();
    void customValues_data();
    void customValues();
    void customPageSize_data();
    void customPageSize();
    void customPageSizeReadsBack_data();
    void customPageSizeReadsBack();
    void customPageSizeWithTheHeightFirst();
    void customPageSizeWithOneParameter();
    void customWithoutParameters();
    void severalParameters();
    void savedListMarksAgain_data();
    void savedListMarksAgain();
    void otherListsStay_data();
    void otherListsStay();
    void choiceNamedCustom();
    void keywordOfAPlainChoice();
    void severalMarkedChoices();
    void noMarkedChoice();
    void list();
    void listOfNull();
    void listReadsOneLevelOfSubgroups();
    void listOfPickMany();

private:
    ppd_file_t *ppd() const { return m_ppd.get(); }

    Cups::PpdPtr m_ppd;
};

void tst_PpdMarks::init()
{
    m_ppd = TestSupport::openMarksPpd();
    QVERIFY(m_ppd);
}

void tst_PpdMarks::cleanup()
{
    m_ppd.reset();
}

void tst_PpdMarks::optionsInOrder()
{
    QCOMPARE(keywords(PpdMarks::options(ppd())),
             words("PageSize PageRegion MediaType Duplex InputSlot ManualFeed Extras Undefined "
                   "Plainly ACurve AnInt AnInvCurve APasscode APassword APoints AReal AString "
                   "Several"));
}

void tst_PpdMarks::optionsOfNestedSubgroups()
{
    // The library reads no subgroups from a file, but its structures have them.
    ppd_option_t inner = {}, middle = {}, outer = {};
    std::strcpy(inner.keyword, "inner");
    std::strcpy(middle.keyword, "middle");
    std::strcpy(outer.keyword, "outer");
    ppd_group_t deepest = {}, sub = {}, top = {};
    deepest.num_options = sub.num_options = top.num_options = 1;
    deepest.options = &inner;
    sub.options = &middle;
    top.options = &outer;
    sub.num_subgroups = top.num_subgroups = 1;
    sub.subgroups = &deepest;
    top.subgroups = &sub;
    ppd_file_t file = {};
    file.num_groups = 1;
    file.groups = &top;
    QCOMPARE(keywords(PpdMarks::options(&file)), words("inner middle outer"));
}

void tst_PpdMarks::parameterText_data()
{
    QTest::addColumn<ppd_cparam_t>("parameter");
    QTest::addColumn<QString>("text");

    const auto number = [](const char *name, ppd_cptype_t type, float value, const char *text) {
        ppd_cparam_t parameter = parameterOf(type);
        parameter.current.custom_real = value;
        QTest::newRow(name) << parameter << QString::fromUtf8(text);
    };
    number("curve", PPD_CUSTOM_CURVE, 12.5F, "12.500");
    number("inverse curve", PPD_CUSTOM_INVCURVE, 0.25F, "0.250");
    number("points", PPD_CUSTOM_POINTS, 595.276F, "595.276");
    number("real", PPD_CUSTOM_REAL, -1.0F, "-1.000");
    number("rounded", PPD_CUSTOM_REAL, 2.0006F, "2.001");
    number("zero", PPD_CUSTOM_REAL, 0.0F, "0.000");
    number("without a group separator", PPD_CUSTOM_POINTS, 123456.0F, "123456.000");

    const auto integer = [](const char *name, int value, const char *text) {
        ppd_cparam_t parameter = parameterOf(PPD_CUSTOM_INT);
        parameter.current.custom_int = value;
        QTest::newRow(name) << parameter << QString::fromUtf8(text);
    };
    integer("integer", 300, "300");
    integer("negative integer", -7, "-7");
    integer("large integer", 1234567, "1234567");

    static char latin1[] = "1\xe4";
    static char utf8[] = "\xc3\xa4\xe2\x82\xac x";
    const auto string = [](const char *name, ppd_cptype_t type, char *value, const char *text) {
        ppd_cparam_t parameter = parameterOf(type);
        parameter.current.custom_string = value;
        QTest::newRow(name) << parameter << (text ? QString::fromUtf8(text) : QString());
    };
    string("passcode", PPD_CUSTOM_PASSCODE, latin1, "1\xc3\xa4");
    string("password", PPD_CUSTOM_PASSWORD, utf8, "\xc3\xa4\xe2\x82\xac x");
    string("string", PPD_CUSTOM_STRING, utf8, "\xc3\xa4\xe2\x82\xac x");
    string("null passcode", PPD_CUSTOM_PASSCODE, nullptr, nullptr);
    string("null password", PPD_CUSTOM_PASSWORD, nullptr, nullptr);
    string("null string", PPD_CUSTOM_STRING, nullptr, nullptr);
}

void tst_PpdMarks::parameterText()
{
    QFETCH(ppd_cparam_t, parameter);
    const LogFile log;
    QTEST(PpdMarks::parameterText(parameter, log.get()), "text");
    QCOMPARE(contents(log.get()), QByteArray());

    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    QTEST(PpdMarks::parameterText(parameter, nullptr), "text");
}

void tst_PpdMarks::parameterTextOfUnknownType()
{
    const LogFile log;
    const ppd_cparam_t parameter = parameterOf(PPD_CUSTOM_UNKNOWN);
    QCOMPARE(PpdMarks::parameterText(parameter, log.get()), QString());
    QCOMPARE(contents(log.get()), QByteArray("Unknown type -1!\n"));
    QCOMPARE(PpdMarks::parameterText(parameter, nullptr), QString());
}

void tst_PpdMarks::customValues_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QByteArray>("marked");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *keyword, const char *marked, const char *text) {
        QTest::newRow(keyword) << QByteArray(keyword) << QByteArray(marked)
                               << QString::fromUtf8(text);
    };
    row("ACurve", "Custom.1.5", "Custom.1.500");
    row("AnInt", "Custom.-42", "Custom.-42");
    row("AnInvCurve", "Custom.0.125", "Custom.0.125");
    row("APasscode", "Custom.0042", "Custom.0042");
    row("APassword", "Custom.geh\xc3\xa4im", "Custom.geh\xc3\xa4im");
    row("APoints", "Custom.1in", "Custom.72.000");
    row("AReal", "Custom.-2.25", "Custom.-2.250");
    row("AString", "Custom.two words", "Custom.two words");
}

/** What is saved marks the same value again, whatever the decimal point of the locale. */
void tst_PpdMarks::customValues()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QByteArray, marked);
    ppdMarkOption(ppd(), keyword.constData(), marked.constData());
    QTEST(savedText(ppd(), keyword.constData()), "text");

    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    const QByteArray saved = savedText(ppd(), keyword.constData()).toLocal8Bit();
    m_ppd = TestSupport::openMarksPpd();
    ppdMarkOption(ppd(), keyword.constData(), saved.constData());
    QTEST(savedText(ppd(), keyword.constData()), "text");
}

void tst_PpdMarks::customPageSize_data()
{
    QTest::addColumn<QByteArray>("marked");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *marked, const char *text) {
        QTest::newRow(marked) << QByteArray(marked) << QString::fromUtf8(text);
    };
    row("Custom.300x400", "Custom.300x400pt");
    row("Custom.300.5x400.25pt", "Custom.300.5x400.25pt");
    row("Custom.8.5x11in", "Custom.612x792pt");
    row("Custom.1000x2000", "Custom.1000x2000pt");
    row("Custom.595.276x841.89", "Custom.595.276x841.89pt");
    row("Custom.100x100000", "Custom.100x100000pt");
}

void tst_PpdMarks::customPageSize()
{
    QFETCH(QByteArray, marked);
    ppdMarkOption(ppd(), "PageSize", marked.constData());
    QTEST(savedText(ppd(), "PageSize"), "text");
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    QTEST(savedText(ppd(), "PageSize"), "text");
}

void tst_PpdMarks::customPageSizeReadsBack_data()
{
    QTest::addColumn<QByteArray>("marked");
    for (const char *marked : {"Custom.100x150mm", "Custom.210x297mm", "Custom.1.2345x99999.99",
                               "Custom.1190.5512x1683.7795"})
        QTest::newRow(marked) << QByteArray(marked);
}

void tst_PpdMarks::customPageSizeReadsBack()
{
    QFETCH(QByteArray, marked);
    ppdMarkOption(ppd(), "PageSize", marked.constData());
    const ppd_coption_t *option = ppdFindCustomOption(ppd(), "PageSize");
    const auto value = [&](const char *name) {
        return ppdFindCustomParam(const_cast<ppd_coption_t *>(option), name)->current.custom_points;
    };
    const float width = value("Width");
    const float height = value("Height");
    const QByteArray saved = savedText(ppd(), "PageSize").toLocal8Bit();

    ppdMarkOption(ppd(), "PageSize", "Custom.50x50");
    ppdMarkOption(ppd(), "PageSize", saved.constData());
    // Exactly: QCOMPARE would let numbers pass that only nearly agree.
    QVERIFY(value("Width") == width);
    QVERIFY(value("Height") == height);
}

void tst_PpdMarks::customPageSizeWithTheHeightFirst()
{
    m_ppd = TestPpd::open(
        TestPpd::pickOne("PageSize", "A4", {"A4"}) +
        TestPpd::custom("PageSize", {"Height 1 points 10 2000", "Width 2 points 10 2000",
                                     "Orientation 3 int 0 3"}));
    QVERIFY(ppd());
    ppdMarkOption(ppd(), "PageSize", "Custom.300x400");
    QCOMPARE(savedText(ppd(), "PageSize"), QStringLiteral("Custom.300x400pt"));
}

void tst_PpdMarks::customPageSizeWithOneParameter()
{
    ppdMarkOption(ppd(), "PageSize", "Custom.300x400");
    ParametersOf parameters(ppdFindCustomOption(ppd(), "PageSize"));
    parameters.keep(1);
    QCOMPARE(savedText(ppd(), "PageSize"), QStringLiteral("Custom.300.000"));
}

void tst_PpdMarks::customWithoutParameters()
{
    ppdMarkOption(ppd(), "AReal", "Custom.1");
    ParametersOf parameters(ppdFindCustomOption(ppd(), "AReal"));
    parameters.keep(0);
    QCOMPARE(savedText(ppd(), "AReal"), QStringLiteral("Custom"));
}

void tst_PpdMarks::savedListMarksAgain_data()
{
    QTest::addColumn<QString>("list");
    const auto row = [](const char *list) { QTest::newRow(list) << QString::fromUtf8(list); };
    row("{Ruling=85,Angle=12.500,Label=fast}");
    row("{Ruling=85,Angle=12.500,Label=}");
    row("{Ruling=85,Angle=12.500,Label=two words}");
    row("{Ruling=85,Angle=12.500,Label=a,b}");
    row("{Ruling=85,Angle=12.500,Label=\"it's\" \\}");
}

void tst_PpdMarks::savedListMarksAgain()
{
    QFETCH(QString, list);
    const QString markable = PpdMarks::markableList(*ppdFindCustomOption(ppd(), "Several"), list);
    ppdMarkOption(ppd(), "Several", markable.toUtf8().constData());
    QCOMPARE(savedText(ppd(), "Several"), list);
}

void tst_PpdMarks::otherListsStay_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"", "{", "}", "{}", "Custom", "{Ruling=85 Angle=12.5 Label=fast}", "{Ruling=85}",
          "{Angle=12.5,Ruling=85,Label=fast}", "{Ruling=85,Angle=12.5}", "{Ruling=85,Label=fast",
          "{x,Ruling=85,Angle=12.5,Label=fast}"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void tst_PpdMarks::otherListsStay()
{
    QFETCH(QString, text);
    QCOMPARE(PpdMarks::markableList(*ppdFindCustomOption(ppd(), "Several"), text), text);
}

void tst_PpdMarks::severalParameters()
{
    ppdMarkOption(ppd(), "Several", "{Ruling=85 Angle=12.5 Label=fast}");
    QCOMPARE(savedText(ppd(), "Several"), QStringLiteral("{Ruling=85,Angle=12.500,Label=fast}"));

    // A parameter that has no value yet is written without one.
    m_ppd = TestSupport::openMarksPpd();
    ppdMarkOption(ppd(), "Several", "{Ruling=85}");
    QCOMPARE(savedText(ppd(), "Several"), QStringLiteral("{Ruling=85,Angle=0.000,Label=}"));
}

void tst_PpdMarks::choiceNamedCustom()
{
    std::strcpy(choice(ppd(), "Plainly", "Standard")->choice, "Custom");
    QVERIFY(!ppdFindCustomOption(ppd(), "Plainly"));
    QCOMPARE(savedText(ppd(), "Plainly"), QStringLiteral("Custom"));
}

void tst_PpdMarks::keywordOfAPlainChoice()
{
    QCOMPARE(savedText(ppd(), "AReal"), QStringLiteral("None"));
    QCOMPARE(savedText(ppd(), "PageSize"), QStringLiteral("A4"));
    ppdMarkOption(ppd(), "MediaType", "Glossy");
    QCOMPARE(savedText(ppd(), "MediaType"), QStringLiteral("Glossy"));
}

void tst_PpdMarks::severalMarkedChoices()
{
    choice(ppd(), "Extras", "Oil")->marked = 1;
    choice(ppd(), "Extras", "Dots")->marked = 1;
    QCOMPARE(savedText(ppd(), "Extras"), QStringLiteral("Dots,Oil"));
}

void tst_PpdMarks::noMarkedChoice()
{
    const ppd_option_t *option = ppdFindOption(ppd(), "Undefined");
    QCOMPARE(PpdMarks::choiceTexts(ppd(), *option, nullptr), QStringList());
}

void tst_PpdMarks::list()
{
    ppdMarkOption(ppd(), "APoints", "Custom.1in");
    const QStringList list = PpdMarks::list(ppd());
    QCOMPARE(list.mid(0, 3), words("PageSize=A4 MediaType=Plain Duplex=None"));
    QVERIFY(list.contains(QStringLiteral("APoints=Custom")));
    // No line without a mark: the unknown default, and the tray that manual feed replaces.
    QCOMPARE(list.filter(QStringLiteral("Undefined=")), QStringList());
    ppdMarkOption(ppd(), "ManualFeed", "True");
    QCOMPARE(PpdMarks::list(ppd()).filter(QStringLiteral("InputSlot=")), QStringList());
}

void tst_PpdMarks::listOfNull()
{
    QCOMPARE(PpdMarks::list(nullptr), QStringList());
}

void tst_PpdMarks::listReadsOneLevelOfSubgroups()
{
    ppd_choice_t marked = {};
    marked.marked = 1;
    std::strcpy(marked.choice, "on");
    const auto option = [&](const char *keyword) {
        ppd_option_t result = {};
        std::strcpy(result.keyword, keyword);
        result.num_choices = 1;
        result.choices = &marked;
        return result;
    };
    ppd_option_t deep = option("deep"), inner1 = option("inner1"), inner2 = option("inner2"),
                 outer = option("outer");
    ppd_group_t deepest = {}, top = {};
    ppd_group_t subs[2] = {};
    deepest.num_options = top.num_options = subs[0].num_options = subs[1].num_options = 1;
    deepest.options = &deep;
    subs[0].options = &inner1;
    subs[0].num_subgroups = 1;
    subs[0].subgroups = &deepest;
    subs[1].options = &inner2;
    top.options = &outer;
    top.num_subgroups = 2;
    top.subgroups = subs;
    ppd_file_t file = {};
    file.num_groups = 1;
    file.groups = &top;
    QCOMPARE(PpdMarks::list(&file), words("inner1=on inner2=on outer=on"));
}

void tst_PpdMarks::listOfPickMany()
{
    choice(ppd(), "Extras", "Dots")->marked = 0;
    choice(ppd(), "Extras", "Lines")->marked = 1;
    choice(ppd(), "Extras", "Oil")->marked = 1;
    // "Lines" and "Ölfarbe" without their first three characters, behind the first keyword.
    QVERIFY(PpdMarks::list(ppd()).contains(QStringLiteral("Extras=Linesesarbe")));
}

QTEST_GUILESS_MAIN(tst_PpdMarks)
#include "tst_ppdmarks.moc"
