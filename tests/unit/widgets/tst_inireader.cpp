#include "IniReader.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestIniReader : public QObject
{
    Q_OBJECT
private slots:
    void sections_data();
    void sections();
    void value_data();
    void value();
    void fallback();
    void copiesReadTheSame();
};

void TestIniReader::sections_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("nothing") << ""_ba << QStringList();
    QTest::newRow("order of the text")
        << "[b]\n[a]\nk=1\n[c]"_ba << QStringList{u"b"_s, u"a"_s, u"c"_s};
    QTest::newRow("twice the same") << "[b]\n[a]\n[b]\n"_ba << QStringList{u"b"_s, u"a"_s};
    QTest::newRow("by case") << "[b]\n[B]\n"_ba << QStringList{u"b"_s, u"B"_s};
    QTest::newRow("carriage returns") << "[b]\r\n[a]\r\n"_ba << QStringList{u"b"_s, u"a"_s};
    QTest::newRow("indented") << " \t[b]\n"_ba << QStringList{u"b"_s};
    QTest::newRow("blanks in the name") << "[ b c ]\n"_ba << QStringList{u" b c "_s};
    QTest::newRow("text behind") << "[b] ; more]\n"_ba << QStringList{u"b"_s};
    QTest::newRow("no name") << "[]\n"_ba << QStringList{u""_s};
    QTest::newRow("unfinished") << "[b\n[c]\n"_ba << QStringList{u"c"_s};
    QTest::newRow("comments") << "#[a]\n;[b]\n ;[c]\n"_ba << QStringList();
    QTest::newRow("byte order mark") << "\xef\xbb\xbf[b]\n"_ba << QStringList{u"b"_s};
    QTest::newRow("UTF-8") << "[gr\xc3\xb6\xc3\x9f"
                              "e]\n"_ba
                           << QStringList{u"größe"_s};
    QTest::newRow("no UTF-8") << "[gr\xf6\xdf"
                                 "e]\n"_ba
                              << QStringList{u"gr\ufffd\ufffde"_s};
    QTest::newRow("no text at all") << QByteArray("\0[a]\0\n\xff\n=\n[\n]\n", 13) << QStringList();
}

void TestIniReader::sections()
{
    QFETCH(QByteArray, text);
    QTEST(IniReader(text).sections(), "names");
}

void TestIniReader::value_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("value");
    const QString none = u"none"_s;
    QTest::newRow("plain") << "[s]\nk=v\n"_ba << u"v"_s;
    QTest::newRow("no line feed at the end") << "[s]\nk=v"_ba << u"v"_s;
    QTest::newRow("carriage return") << "[s]\r\nk=v\r\n"_ba << u"v"_s;
    QTest::newRow("blanks around") << "[s]\n \tk \t=\t v w \n"_ba << u"v w"_s;
    QTest::newRow("equals signs") << "[s]\nk=v=w=\n"_ba << u"v=w="_s;
    QTest::newRow("empty") << "[s]\nk=\n"_ba << u""_s;
    QTest::newRow("quoted") << "[s]\nk=\" v \"\n"_ba << u" v "_s;
    QTest::newRow("quoted, empty") << "[s]\nk=\"\"\n"_ba << u""_s;
    QTest::newRow("one quote") << "[s]\nk=\"\n"_ba << u"\""_s;
    QTest::newRow("quotes inside") << "[s]\nk=a \"b\" c\n"_ba << u"a \"b\" c"_s;
    QTest::newRow("signs of a comment inside") << "[s]\nk=a#b;c\n"_ba << u"a#b;c"_s;
    QTest::newRow("the last of two") << "[s]\nk=1\nk=2\n"_ba << u"2"_s;
    QTest::newRow("section goes on") << "[s]\nk=1\n[t]\nk=9\n[s]\nl=2\n"_ba << u"1"_s;
    QTest::newRow("section goes on, the last") << "[s]\nk=1\n[t]\nk=9\n[s]\nk=2\n"_ba << u"2"_s;
    QTest::newRow("UTF-8") << "[s]\nk=gr\xc3\xb6\xc3\x9f"
                              "e\n"_ba
                           << u"größe"_s;
    QTest::newRow("no such key") << "[s]\nl=v\n"_ba << none;
    QTest::newRow("other case") << "[s]\nK=v\n"_ba << none;
    QTest::newRow("other section") << "[t]\nk=v\n"_ba << none;
    QTest::newRow("before the first section") << "k=v\n[s]\n"_ba << none;
    QTest::newRow("after an unfinished header") << "[s]\n[t\nk=v\n"_ba << none;
    QTest::newRow("no equals sign") << "[s]\nk\n"_ba << none;
    QTest::newRow("comment") << "[s]\n#k=v\n;k=w\n"_ba << none;
}

void TestIniReader::value()
{
    QFETCH(QByteArray, text);
    IniReader reader(text);
    reader.select(u"s"_s);
    QTEST(reader.value("k", u"none"_s), "value");
}

void TestIniReader::fallback()
{
    IniReader reader("[s]\nk=v\n");
    QCOMPARE(reader.value("k", u"none"_s), u"none"_s);
    reader.select(u"s"_s);
    QCOMPARE(reader.value("k", u"none"_s), u"v"_s);
    reader.select(u"t"_s);
    QCOMPARE(reader.value("k", u"none"_s), u"none"_s);
    QCOMPARE(IniReader().value("k", u"none"_s), u"none"_s);
    QVERIFY(IniReader().sections().isEmpty());
}

void TestIniReader::copiesReadTheSame()
{
    IniReader reader;
    {
        const QByteArray text = "[s]\nk=" + QByteArray(1000, 'v') + '\n';
        const IniReader first(text);
        reader = first;
    }
    reader.select(u"s"_s);
    QCOMPARE(reader.value("k", {}), QString(1000, u'v'));
}

QTEST_GUILESS_MAIN(TestIniReader)
#include "tst_inireader.moc"
