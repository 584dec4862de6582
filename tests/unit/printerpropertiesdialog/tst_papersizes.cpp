#include "PaperSizes.h"

#include <QTest>

namespace
{
struct Row {
    const char *name;
    QSize size;
};

const Row rows[] = {
    {"Letter", {612, 792}}, {"Legal", {612, 1008}},  {"A4", {595, 842}}, {"Executive", {522, 756}},
    {"Folio", {612, 936}},  {"JB5", {516, 729}},     {"B5", {499, 709}}, {"A5", {420, 595}},
    {"COM10", {297, 684}},  {"Monarch", {279, 540}}, {"DL", {312, 624}}, {"C5", {459, 649}},
    {"C6", {323, 459}},
};

const QSize letter(612, 792);

/** Every second letter in the other case. */
QString mixedCase(QString text)
{
    for (qsizetype at = 0; at < text.size(); at += 2)
        text[at] = text[at].isUpper() ? text[at].toLower() : text[at].toUpper();
    return text;
}

void addRow(const char *kind, const QString &name, QSize size)
{
    QTest::addRow("%s: %s", kind, qPrintable(name)) << name << size;
}
} // namespace

class TestPaperSizes : public QObject
{
    Q_OBJECT

private slots:
    void knowsPapers_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");

        for (const Row &row : rows) {
            const QString name = QLatin1String(row.name);
            addRow("as named", name, row.size);
            addRow("lower case", name.toLower(), row.size);
            addRow("upper case", name.toUpper(), row.size);
            addRow("mixed case", mixedCase(name), row.size);
        }
    }

    void knowsPapers()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);

        QCOMPARE(PaperSizes::inPoints(name), size);
    }

    void takesOtherNamesForLetter_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("null") << QString();
        QTest::newRow("empty") << QStringLiteral("");
        QTest::newRow("unknown") << QStringLiteral("Tabloid");
        QTest::newRow("custom") << QStringLiteral("Custom.300x400");
        QTest::newRow("start of a name") << QStringLiteral("A");
        QTest::newRow("a name and more") << QStringLiteral("A4.Transverse");
        QTest::newRow("a blank before") << QStringLiteral(" A4");
        QTest::newRow("a blank after") << QStringLiteral("A4 ");
        QTest::newRow("other digits") << QStringLiteral("A\u0664");
        QTest::newRow("long") << QString(100000, QLatin1Char('A'));
    }

    void takesOtherNamesForLetter()
    {
        QFETCH(QString, name);

        QCOMPARE(PaperSizes::inPoints(name), letter);
    }

    void swapsSidesInLandscape_data()
    {
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<bool>("reversed");
        QTest::addColumn<QSize>("visible");

        QTest::newRow("portrait") << false << false << QSize(595, 842);
        QTest::newRow("portrait, reversed") << false << true << QSize(595, 842);
        QTest::newRow("landscape") << true << false << QSize(842, 595);
        QTest::newRow("landscape, reversed") << true << true << QSize(842, 595);
    }

    void swapsSidesInLandscape()
    {
        QFETCH(bool, landscape);
        QFETCH(bool, reversed);
        QFETCH(QSize, visible);

        QCOMPARE(PaperSizes::visible(QSize(595, 842), {landscape, reversed}), visible);
    }
};

QTEST_APPLESS_MAIN(TestPaperSizes)
#include "tst_papersizes.moc"
