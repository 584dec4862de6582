#include "Route.h"

#include <QTest>

class TestRoute : public QObject
{
    Q_OBJECT
private slots:
    void routes_data();
    void routes();
    void reads();
    void readsAnEmptyVector();
};

void TestRoute::routes_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<bool>("companion");
    QTest::addColumn<bool>("handedOver");

    QTest::newRow("file") << QStringLiteral("lpr f") << false << false;
    QTest::newRow("nothing") << QStringLiteral("lpr") << false << false;
    QTest::newRow("known options")
        << QStringLiteral("lpr -P a -# 2 -o b -h -p -T t f") << false << false;
    QTest::newRow("unknown option") << QStringLiteral("lpr -Z f") << false << true;
    QTest::newRow("missing argument") << QStringLiteral("lpr f -P") << false << true;
    QTest::newRow("window off") << QStringLiteral("lpr --ui False f") << false << true;
    QTest::newRow("window off alone") << QStringLiteral("lpr --ui False") << false << true;
    QTest::newRow("window off with =") << QStringLiteral("lpr --ui=False f") << false << true;
    QTest::newRow("ui alone") << QStringLiteral("lpr --ui f") << false << false;
    QTest::newRow("ui True") << QStringLiteral("lpr --ui True f") << false << false;
    QTest::newRow("a file named False") << QStringLiteral("lpr False") << false << false;
    QTest::newRow("False is not the first") << QStringLiteral("lpr --ui f False") << false << false;
    QTest::newRow("other case") << QStringLiteral("lpr --ui false f") << false << false;
    QTest::newRow("companion") << QStringLiteral("lpr f") << true << true;
}

void TestRoute::routes()
{
    QFETCH(QString, commandLine);
    QFETCH(bool, companion);
    QList<QByteArray> words = commandLine.toUtf8().split(' ');
    std::vector<char *> argv;
    for (QByteArray &word : words)
        argv.push_back(word.data());
    QTEST(mustHandOver(readCommandLine(argv), companion), "handedOver");
}

void TestRoute::reads()
{
    char words[][8] = {"lpr", "-T", "one", "b", "-T", "two", "-P", "x", "--", "-a"};
    std::vector<char *> argv;
    for (char *word : words)
        argv.push_back(word);
    const CommandLine commandLine = readCommandLine(argv);
    QVERIFY(!commandLine.isUnknown);
    QVERIFY(!commandLine.hasUi);
    QCOMPARE(commandLine.title, std::string("two"));
    QCOMPARE(commandLine.operands, (std::vector<std::string>{"b", "-a"}));
}

void TestRoute::readsAnEmptyVector()
{
    QVERIFY(readCommandLine({}).operands.empty());
}

QTEST_GUILESS_MAIN(TestRoute)
#include "tst_route.moc"
