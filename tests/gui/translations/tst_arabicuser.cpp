#include "InstallationSettings.h"
#include "Translations.h"

#include <QApplication>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

/**
 * An Arabic user, with the catalogues of the build: runs several times, each time with another of
 * the variables by which the user's language is known.
 */
class TestArabicUser : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void windowsRunFromRightToLeft();
    void buttonsAreTheToolkits();
};

void TestArabicUser::initTestCase()
{
    InstallationSettings::load(VESK_PROGRAM);
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    const QString language = Translations::install(Translations::catalogues(), {});
    QCOMPARE(language, QStringLiteral("ar"));
    // Without the toolkit's catalogue, too, which may not be installed.
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    Translations::installToolkit(language, {});
}

void TestArabicUser::windowsRunFromRightToLeft()
{
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    QVERIFY(QFileDialog().isRightToLeft());
}

void TestArabicUser::buttonsAreTheToolkits()
{
    QTranslator toolkit;
    QVERIFY(toolkit.load(QStringLiteral("qtbase_ar"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    const QString expected = toolkit.translate("QPlatformTheme", "Cancel");
    QVERIFY(!expected.isEmpty());
    const QMessageBox box(QMessageBox::Warning, QString(), QString(), QMessageBox::Cancel);
    QCOMPARE(box.button(QMessageBox::Cancel)->text(), expected);
}

QTEST_MAIN(TestArabicUser)
#include "tst_arabicuser.moc"
