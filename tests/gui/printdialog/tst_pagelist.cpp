#include "PageList.h"

#include <QTest>

class TestPageList : public QObject
{
    Q_OBJECT
private slots:
    void valid_data();
    void valid();
    void invalid_data();
    void invalid();
    void findsTheFirstOfManyItems();
};

void TestPageList::valid_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("pages and groups") << "1,2-5,10-12,17";
    QTest::newRow("one page") << "7";
    QTest::newRow("page 0") << "0";
    QTest::newRow("group from 0") << "0-0";
    QTest::newRow("group of one page") << "3-3";
    QTest::newRow("rising group") << "2-10";
    QTest::newRow("leading zeros") << "007,010-0011";
    QTest::newRow("zeros") << "000-00";
    QTest::newRow("the same page twice") << "4,4,1-9,4";
    QTest::newRow("falling order of items") << "9,1-2";
    QTest::newRow("32 bits and more") << "4294967295-4294967296";
    QTest::newRow("64 bits and more") << "18446744073709551615-18446744073709551616";
    QTest::newRow("huge page") << QString(5000, u'9');
    QTest::newRow("huge group") << QString(5000, u'8') + u'-' + QString(5000, u'9');
}

void TestPageList::valid()
{
    QFETCH(QString, text);
    const PageList::Check check = PageList::check(text);
    QVERIFY(check.valid);
    QCOMPARE(check.item, QString());
    QCOMPARE(check.position, -1);
}

void TestPageList::invalid_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("item");
    QTest::addColumn<qsizetype>("position");
    QTest::newRow("empty") << ""
                           << "" << qsizetype(0);
    QTest::newRow("null") << QString() << "" << qsizetype(0);
    QTest::newRow("blank after the comma") << "1, 2"
                                           << " 2" << qsizetype(2);
    QTest::newRow("blank before the comma") << "1 ,2"
                                            << "1 " << qsizetype(0);
    QTest::newRow("blank alone") << " "
                                 << " " << qsizetype(0);
    QTest::newRow("blank in a group") << "1 - 2"
                                      << "1 - 2" << qsizetype(0);
    QTest::newRow("tab") << "1,\t2"
                         << "\t2" << qsizetype(2);
    QTest::newRow("no end") << "2-"
                            << "2-" << qsizetype(0);
    QTest::newRow("no start") << "-2"
                              << "-2" << qsizetype(0);
    QTest::newRow("dash") << "-"
                          << "-" << qsizetype(0);
    QTest::newRow("two dashes") << "1--2"
                                << "1--2" << qsizetype(0);
    QTest::newRow("group of three") << "1-2-3"
                                    << "1-2-3" << qsizetype(0);
    QTest::newRow("falling group") << "5-3"
                                   << "5-3" << qsizetype(0);
    QTest::newRow("falling group, more digits") << "10-9"
                                                << "10-9" << qsizetype(0);
    QTest::newRow("falling group, zeros") << "0010-9"
                                          << "0010-9" << qsizetype(0);
    QTest::newRow("falling group, 32 bits and more") << "4294967296-1"
                                                     << "4294967296-1" << qsizetype(0);
    QTest::newRow("two commas") << "1,,2"
                                << "" << qsizetype(2);
    QTest::newRow("leading comma") << ",1"
                                   << "" << qsizetype(0);
    QTest::newRow("trailing comma") << "1,2,"
                                    << "" << qsizetype(4);
    QTest::newRow("comma") << ","
                           << "" << qsizetype(0);
    QTest::newRow("last item") << "1,2-5,x"
                               << "x" << qsizetype(6);
    QTest::newRow("first of two") << "1,a,b"
                                  << "a" << qsizetype(2);
    QTest::newRow("letter") << "one"
                            << "one" << qsizetype(0);
    QTest::newRow("sign") << "+1"
                          << "+1" << qsizetype(0);
    QTest::newRow("fraction") << "1.5"
                              << "1.5" << qsizetype(0);
    QTest::newRow("hexadecimal") << "0x10"
                                 << "0x10" << qsizetype(0);
    QTest::newRow("semicolon") << "1;2"
                               << "1;2" << qsizetype(0);
    QTest::newRow("Arabic digits")
        << QStringLiteral("\u0661") << QStringLiteral("\u0661") << qsizetype(0);
    QTest::newRow("fullwidth digits")
        << QStringLiteral("\uff11") << QStringLiteral("\uff11") << qsizetype(0);
    QTest::newRow("en dash") << QStringLiteral("1\u20132") << QStringLiteral("1\u20132")
                             << qsizetype(0);
    QTest::newRow("line end") << "1\n"
                              << "1\n"
                              << qsizetype(0);
    QTest::newRow("line end in between") << "1\n,2"
                                         << "1\n"
                                         << qsizetype(0);
    const QString withNul = QStringLiteral("1,2") + QChar(u'\0') + u'3';
    QTest::newRow("NUL") << withNul << withNul.mid(2) << qsizetype(2);
    QTest::newRow("placeholder") << "%1"
                                 << "%1" << qsizetype(0);
}

void TestPageList::invalid()
{
    QFETCH(QString, text);
    const PageList::Check check = PageList::check(text);
    QVERIFY(!check.valid);
    QTEST(check.item, "item");
    QTEST(check.position, "position");
}

void TestPageList::findsTheFirstOfManyItems()
{
    const QString good = QStringLiteral("1-2,").repeated(100000);
    const PageList::Check check = PageList::check(good + u'x');
    QVERIFY(!check.valid);
    QCOMPARE(check.item, QStringLiteral("x"));
    QCOMPARE(check.position, good.size());
}

QTEST_APPLESS_MAIN(TestPageList)
#include "tst_pagelist.moc"
