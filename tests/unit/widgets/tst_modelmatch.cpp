#include "ModelMatch.h"

#include <QElapsedTimer>
#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

class TestModelMatch : public QObject
{
    Q_OBJECT
private slots:
    void key_data();
    void key();
    void score_data();
    void score();
    void sameAsTheRuleWordByWord();
    void longTextsTakeLittleTime_data();
    void longTextsTakeLittleTime();
};

namespace
{
/** The rules of the score one after the other, without a thought for their cost. */
qsizetype plainScore(const QString &model, const QString &device)
{
    if (model.contains(device, Qt::CaseInsensitive))
        return device.size();
    if (!device.contains(u'-'))
        return 0;
    const QString prefix = device.section(u'-', 0, 0);
    if (!model.contains(prefix, Qt::CaseInsensitive))
        return 0;
    qsizetype sum = prefix.size() + 1;
    const QString tail = model.mid(model.indexOf(u'-') + 1);
    QString rest = device.mid(model.indexOf(u'-') + 1);
    while (!rest.isEmpty()) {
        const qsizetype found = tail.indexOf(rest, 0, Qt::CaseInsensitive);
        if (found == 0 || (found > 0 && tail[found - 1] == u'/')) {
            sum += rest.size();
            break;
        }
        rest.chop(1);
    }
    return sum > 2 ? sum : 0;
}

QString randomText(std::mt19937 &random)
{
    constexpr std::u16string_view letters = u"aAb1-/";
    QString text;
    for (auto length = random() % 9; length > 0; --length)
        text.append(letters[random() % letters.size()]);
    return text;
}
} // namespace

void TestModelMatch::key_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::newRow("word with a dash") << u"XQ-2010 Series"_s << u"XQ-2010"_s;
    QTest::newRow("no dash") << u"Color Laser"_s << u"COLOR LASER"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("null") << QString() << u""_s;
    QTest::newRow("word in the middle") << u"Tarvel xq-16a, driver"_s << u"XQ-16A,"_s;
    QTest::newRow("last word") << u"Tarvel xq-16"_s << u"XQ-16"_s;
    QTest::newRow("first of two dashes") << u"A-1 B-2"_s << u"A-1"_s;
    QTest::newRow("two dashes in a word") << u"Tarvel A-1-x B"_s << u"A-1-X"_s;
    QTest::newRow("nothing but a dash") << u"-"_s << u"-"_s;
    QTest::newRow("dash by itself") << u"Tarvel - Laser"_s << u"-"_s;
    QTest::newRow("dash at the start") << u"-9 Laser"_s << u"-9"_s;
    QTest::newRow("dash at the end") << u"Laser 9-"_s << u"9-"_s;
    QTest::newRow("tabulators are no blanks") << u"a\tb-1\tc d"_s << u"A\tB-1\tC"_s;
    QTest::newRow("blanks stay without a dash") << u" a  b "_s << u" A  B "_s;
    QTest::newRow("other letters") << u"größe ж"_s << u"GRÖSSE Ж"_s;
}

void TestModelMatch::key()
{
    QFETCH(QString, text);
    QTEST(ModelMatch::key(text), "key");
}

void TestModelMatch::score_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("score");
    QTest::newRow("contained: its length") << u"XQ-2010/2015"_s << u"2010"_s << 4;
    QTest::newRow("contained, whatever the case") << u"xq-2010"_s << u"XQ-20"_s << 5;
    QTest::newRow("contained, however short") << u"XQ-2010"_s << u"Q"_s << 1;
    QTest::newRow("equal") << u"LASER"_s << u"LASER"_s << 5;
    QTest::newRow("empty device") << u"LASER"_s << u""_s << 0;
    QTest::newRow("both empty") << u""_s << u""_s << 0;
    QTest::newRow("empty model") << u""_s << u"XQ-1"_s << 0;
    QTest::newRow("empty model, dash first") << u""_s << u"-12345"_s << 0;
    QTest::newRow("not contained, no dash") << u"XQ-2010"_s << u"XQ2010"_s << 0;
    QTest::newRow("prefix not contained") << u"XQ-2010"_s << u"ZZ-2010"_s << 0;
    QTest::newRow("after a slash") << u"XQ-1610/1615"_s << u"XQ-1615"_s << 7;
    QTest::newRow("after the dash") << u"XQ-1610/1615"_s << u"XQ-1610W"_s << 7;
    QTest::newRow("shortened") << u"XQ-1610/1615"_s << u"XQ-1619"_s << 6;
    QTest::newRow("shortened, after a slash") << u"XQ-1610/2615"_s << u"XQ-2619"_s << 6;
    QTest::newRow("prefix alone") << u"XQ-1610"_s << u"XQ-9"_s << 3;
    QTest::newRow("prefix of one letter alone") << u"X-1610"_s << u"X-9"_s << 0;
    QTest::newRow("two: no match") << u"AZ"_s << u"Z-9"_s << 0;
    QTest::newRow("three: the least match") << u"A/Z"_s << u"Z-9"_s << 3;
    QTest::newRow("prefix in any case") << u"xq-1610"_s << u"Xq-1619"_s << 6;
    QTest::newRow("prefix anywhere") << u"NEW-XQ/5"_s << u"XQ-5"_s << 3;
    QTest::newRow("cut at the model's dash") << u"AXQ-1610"_s << u"XQ-169"_s << 3;
    QTest::newRow("cut at the model's dash, found") << u"AXQ-109"_s << u"XQ-6109"_s << 6;
    QTest::newRow("cut beyond the device's end") << u"LONGXQ-1610"_s << u"XQ-9"_s << 3;
    QTest::newRow("model without a dash") << u"XQ"_s << u"XQ-2010"_s << 5;
    QTest::newRow("nothing before the dash") << u"XQ-2010"_s << u"-2011"_s << 0;
    QTest::newRow("not after a slash") << u"XQ-A161"_s << u"XQ-161"_s << 3;
    QTest::newRow("where it stands first") << u"XQ-A161/161"_s << u"XQ-161"_s << 3;
}

void TestModelMatch::score()
{
    QFETCH(QString, model);
    QFETCH(QString, device);
    QTEST(int(ModelMatch::score(model, device)), "score");
    QCOMPARE(ModelMatch::score(model, device), plainScore(model, device));
}

void TestModelMatch::sameAsTheRuleWordByWord()
{
    std::mt19937 random(1);
    int matches = 0;
    for (int i = 0; i < 20'000; ++i) {
        const QString model = randomText(random);
        const QString device = randomText(random);
        const qsizetype expected = plainScore(model, device);
        matches += expected > 0;
        if (ModelMatch::score(model, device) != expected)
            QCOMPARE(u"%1 | %2: %3"_s.arg(model, device).arg(ModelMatch::score(model, device)),
                     QString::number(expected));
    }
    QVERIFY(matches > 1'000);
}

void TestModelMatch::longTextsTakeLittleTime_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("device");
    const QString many = QString(1'000'000, u'A');
    QTest::newRow("long model") << many << QString(1000, u'A') + u"-B"_s;
    QTest::newRow("long device") << u"AAA-AAA"_s << many + u"-B"_s;
    QTest::newRow("both") << u"X-"_s + many << u"X-"_s + many + u'B';
    QTest::newRow("slashes") << u"X-"_s + u"/A"_s.repeated(500'000) << u"X-"_s + many;
}

/** Of texts this long, a search for every part of one in the other would take hours. */
void TestModelMatch::longTextsTakeLittleTime()
{
    QFETCH(QString, model);
    QFETCH(QString, device);
    QElapsedTimer timer;
    timer.start();
    ModelMatch::score(model, device);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestModelMatch)
#include "tst_modelmatch.moc"
