#include "ToolkitOptions.h"

#include <QStringList>
#include <QTest>

namespace
{
QStringList texts(const std::vector<char *> &argv)
{
    QStringList result;
    for (const char *argument : argv)
        result.append(QString::fromUtf8(argument));
    return result;
}

/** An argument vector that owns its texts. */
class Arguments
{
public:
    explicit Arguments(const QStringList &arguments)
    {
        for (const QString &argument : arguments)
            m_texts.push_back(argument.toUtf8());
        for (QByteArray &text : m_texts)
            m_argv.push_back(text.data());
    }
    ToolkitOptions::Split split()
    {
        return ToolkitOptions::split(int(m_argv.size()), m_argv.data());
    }

private:
    std::vector<QByteArray> m_texts;
    std::vector<char *> m_argv;
};
} // namespace

class TestToolkitOptions : public QObject
{
    Q_OBJECT
private slots:
    void splits_data();
    void splits();
    void namesDisplayAndPlatform();
    void leavesBothUnnamed();
    void takesAnEmptyVector();
};

void TestToolkitOptions::splits_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("toolkit");
    QTest::addColumn<QStringList>("rest");

    const QStringList withValue = {QStringLiteral("style"),
                                   QStringLiteral("stylesheet"),
                                   QStringLiteral("platform"),
                                   QStringLiteral("platformtheme"),
                                   QStringLiteral("plugin"),
                                   QStringLiteral("platformpluginpath"),
                                   QStringLiteral("qwindowgeometry"),
                                   QStringLiteral("geometry"),
                                   QStringLiteral("qwindowicon"),
                                   QStringLiteral("icon"),
                                   QStringLiteral("qwindowtitle"),
                                   QStringLiteral("title"),
                                   QStringLiteral("session"),
                                   QStringLiteral("display"),
                                   QStringLiteral("name"),
                                   QStringLiteral("qmljsdebugger")};
    for (const QString &name : withValue) {
        const QString option = QLatin1Char('-') + name;
        QTest::newRow(qPrintable(name))
            << QStringList{QStringLiteral("lpr"), option, QStringLiteral("x"), QStringLiteral("f")}
            << QStringList{QStringLiteral("lpr"), option, QStringLiteral("x")}
            << QStringList{QStringLiteral("lpr"), QStringLiteral("f")};
    }
    const auto row = [](const char *name, const char *arguments, const char *toolkit,
                        const char *rest) {
        const auto words = [](const char *text) {
            return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow(name) << words(arguments) << words(toolkit) << words(rest);
    };
    row("nothing", "lpr", "lpr", "lpr");
    row("double dash", "lpr --style fusion f", "lpr --style fusion", "lpr f");
    row("reverse", "lpr -reverse f", "lpr -reverse", "lpr f");
    row("widgetcount", "lpr -widgetcount f", "lpr -widgetcount", "lpr f");
    row("inline style", "lpr -style=fusion f", "lpr -style=fusion", "lpr f");
    row("inline stylesheet", "lpr -stylesheet=a.qss f", "lpr -stylesheet=a.qss", "lpr f");
    row("inline debugger", "lpr -qmljsdebugger=port:1 f", "lpr -qmljsdebugger=port:1", "lpr f");
    row("no inline display", "lpr -display=:1 f", "lpr", "lpr -display=:1 f");
    row("value missing", "lpr f -display", "lpr", "lpr f -display");
    row("after the end of options", "lpr -- -display :1", "lpr", "lpr -- -display :1");
    row("own options", "lpr -P lp1 -o a=1 -# 2 -T t -n 3 f", "lpr",
        "lpr -P lp1 -o a=1 -# 2 -T t -n 3 f");
    row("unknown option", "lpr -Z f", "lpr", "lpr -Z f");
    row("mixed", "lpr a -display :1 -P x b", "lpr -display :1", "lpr a -P x b");
    row("alone dash", "lpr - -reverse", "lpr -reverse", "lpr -");
    row("name begins like one", "lpr -named f -styles f", "lpr", "lpr -named f -styles f");
}

void TestToolkitOptions::splits()
{
    QFETCH(QStringList, arguments);
    Arguments given(arguments);
    const ToolkitOptions::Split split = given.split();
    QTEST(texts(split.toolkit), "toolkit");
    QTEST(texts(split.rest), "rest");
}

void TestToolkitOptions::namesDisplayAndPlatform()
{
    Arguments given({QStringLiteral("lpr"), QStringLiteral("-display"), QStringLiteral(":7"),
                     QStringLiteral("--platform"), QStringLiteral("xcb"),
                     QStringLiteral("-platformpluginpath"), QStringLiteral("/p")});
    const ToolkitOptions::Split split = given.split();
    QCOMPARE(QByteArray(split.display), QByteArray(":7"));
    QCOMPARE(QByteArray(split.platform), QByteArray("xcb"));
    QCOMPARE(QByteArray(split.platformPluginPath), QByteArray("/p"));
}

void TestToolkitOptions::leavesBothUnnamed()
{
    Arguments given({QStringLiteral("lpr"), QStringLiteral("f")});
    const ToolkitOptions::Split split = given.split();
    QVERIFY(!split.display);
    QVERIFY(!split.platform);
    QVERIFY(!split.platformPluginPath);
}

void TestToolkitOptions::takesAnEmptyVector()
{
    const ToolkitOptions::Split split = ToolkitOptions::split(0, nullptr);
    QVERIFY(split.toolkit.empty());
    QVERIFY(split.rest.empty());
}

QTEST_GUILESS_MAIN(TestToolkitOptions)
#include "tst_toolkitoptions.moc"
