#include "BoundedFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestBoundedFile : public QObject
{
    Q_OBJECT
private slots:
    void sizes_data();
    void sizes();
    void otherThings_data();
    void otherThings();
    void linkToAFile();
    void fileThatClaimsToBeEmpty();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &content);

    QTemporaryDir m_folder;
};

namespace
{
constexpr qsizetype Limit = 1000;
}

void TestBoundedFile::write(const QString &name, const QByteArray &content)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void TestBoundedFile::sizes_data()
{
    QTest::addColumn<qsizetype>("size");
    QTest::addColumn<bool>("read");
    QTest::newRow("empty") << qsizetype(0) << true;
    QTest::newRow("small") << qsizetype(1) << true;
    QTest::newRow("largest") << Limit << true;
    QTest::newRow("too large") << Limit + 1 << false;
    QTest::newRow("much too large") << (qsizetype(1) << 33) << false;
}

void TestBoundedFile::sizes()
{
    QFETCH(qsizetype, size);
    QFETCH(bool, read);
    write(u"file"_s, {});
    QVERIFY(QFile::resize(path(u"file"_s), size));
    QCOMPARE(BoundedFile::read(path(u"file"_s), Limit).size(), read ? size : 0);
}

void TestBoundedFile::otherThings_data()
{
    QTest::addColumn<QString>("name");
    write(u"file"_s, "text");
    QCOMPARE(mkfifo(qPrintable(path(u"pipe"_s)), 0600), 0);
    QCOMPARE(symlink("/dev/zero", qPrintable(path(u"zero"_s))), 0);
    QCOMPARE(symlink("loop", qPrintable(path(u"loop"_s))), 0);
    QCOMPARE(symlink("nowhere", qPrintable(path(u"dangling"_s))), 0);
    QTest::newRow("missing") << path(u"missing"_s);
    QTest::newRow("no name") << QString();
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("pipe without a writer") << path(u"pipe"_s);
    QTest::newRow("endless device") << u"/dev/zero"_s;
    QTest::newRow("link to an endless device") << path(u"zero"_s);
    QTest::newRow("terminal") << u"/dev/ptmx"_s;
    QTest::newRow("link to itself") << path(u"loop"_s);
    QTest::newRow("link to nothing") << path(u"dangling"_s);
    QTest::newRow("below a file") << path(u"file/more"_s);
    QTest::newRow("name too long") << path(QString(5000, u'a'));
    QTest::newRow("null character") << path(u"file"_s) + QChar::Null + u".png"_s;
}

void TestBoundedFile::otherThings()
{
    QFETCH(QString, name);
    QVERIFY(BoundedFile::read(name, Limit).isNull());
}

void TestBoundedFile::linkToAFile()
{
    write(u"file"_s, "text");
    QCOMPARE(symlink("file", qPrintable(path(u"link"_s))), 0);
    QCOMPARE(BoundedFile::read(path(u"link"_s), Limit), "text"_ba);
}

/** The kernel's own files are regular and say that they are empty. */
void TestBoundedFile::fileThatClaimsToBeEmpty()
{
    QVERIFY(BoundedFile::read(u"/proc/self/maps"_s, Limit).isEmpty());
}

QTEST_GUILESS_MAIN(TestBoundedFile)
#include "tst_boundedfile.moc"
