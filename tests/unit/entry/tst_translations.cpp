#include "InstallationSettings.h"
#include "Translations.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QtEndian>

/** Runs with LC_ALL=de_AT.UTF-8. */

namespace
{
const QStringList Catalogues = {QStringLiteral("vesk"), QStringLiteral("CupsInt"),
                                QStringLiteral("ppdwidgets"), QStringLiteral("printdialog")};

QByteArray number32(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray part(char tag, const QByteArray &bytes)
{
    return tag + number32(static_cast<quint32>(bytes.size())) + bytes;
}

/** The hash by which a catalogue is searched, that of ELF symbols. */
quint32 hashOf(const QByteArray &text)
{
    quint32 hash = 0;
    for (const char sign : text) {
        hash = (hash << 4) + static_cast<unsigned char>(sign);
        hash ^= (hash & 0xf0000000) >> 24;
        hash &= 0x0fffffff;
    }
    return hash ? hash : 1;
}

/** A compiled catalogue with one text, of any context, in its binary form. */
QByteArray catalogue(const QByteArray &source, const QString &translation,
                     const QByteArray &language = {})
{
    constexpr char Language = '\xa7';
    constexpr char Hashes = 0x42;
    constexpr char Messages = 0x69;
    constexpr char Translation = 3;
    constexpr char SourceText = 6;
    constexpr char End = 1;
    QByteArray text(translation.size() * 2, '\0');
    qToBigEndian<char16_t>(translation.utf16(), translation.size(), text.data());
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") +
           (language.isEmpty() ? QByteArray() : part(Language, language)) +
           part(Hashes, number32(hashOf(source)) + number32(0)) +
           part(Messages, part(Translation, text) + part(SourceText, source) + End);
}

void write(const QString &path, const QByteArray &bytes)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QString translated(const char *source)
{
    return QCoreApplication::translate("main", source);
}
} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void directoriesInOrder();
    void loadsEachCatalogue_data();
    void loadsEachCatalogue();
    void loadsAllTogether();
    void takesTheFirstDirectory();
    void fallsBackToALaterDirectory();
    void prefersTheCountrysOwn();
    void leavesOtherLanguagesAlone();
    void doesWithoutCatalogues();
    void doesWithoutAReadableCatalogue();
    void saysTheLanguage();
    void toolkitSpeaksThatLanguage();
    void toolkitSpeaksEnglishOtherwise();

private:
    QString path(const QString &name) const { return m_root->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_root;
};

void TestTranslations::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(m_root->isValid());
    InstallationSettings::load(QFile::encodeName(path(QStringLiteral("bin/vesk"))).constData());
    QCOMPARE(translated("Paper"), QStringLiteral("Paper"));
}

void TestTranslations::cleanup()
{
    for (QTranslator *translator : QCoreApplication::instance()->findChildren<QTranslator *>())
        delete translator;
}

void TestTranslations::directoriesInOrder()
{
    const QStringList own = {path(QStringLiteral("share/tr")),
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)};
    QCOMPARE(Translations::directories({}), own);
    const QStringList extra = {QStringLiteral("/first"), QStringLiteral("/second")};
    QCOMPARE(Translations::directories(extra), extra + own);
}

void TestTranslations::loadsEachCatalogue_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : Catalogues)
        QTest::newRow(qPrintable(name)) << name;
}

void TestTranslations::loadsEachCatalogue()
{
    QFETCH(QString, name);
    write(path(QStringLiteral("share/tr/%1_de.qm").arg(name)),
          catalogue("Paper", QStringLiteral("Papier")));
    Translations::install(Catalogues, {});
    QCOMPARE(translated("Paper"), QStringLiteral("Papier"));
    QCOMPARE(translated("Ink"), QStringLiteral("Ink"));
}

void TestTranslations::loadsAllTogether()
{
    for (const QString &name : Catalogues)
        write(path(QStringLiteral("share/tr/%1_de.qm").arg(name)),
              catalogue(name.toLatin1(), name.toUpper()));
    Translations::install(Catalogues, {});
    for (const QString &name : Catalogues)
        QCOMPARE(translated(name.toLatin1().constData()), name.toUpper());
}

void TestTranslations::takesTheFirstDirectory()
{
    write(path(QStringLiteral("share/tr/vesk_de.qm")),
          catalogue("Paper", QStringLiteral("Shared")));
    write(path(QStringLiteral("one/vesk_de.qm")), catalogue("Paper", QStringLiteral("One")));
    write(path(QStringLiteral("two/vesk_de.qm")), catalogue("Paper", QStringLiteral("Two")));
    Translations::install(Catalogues, {path(QStringLiteral("one")), path(QStringLiteral("two"))});
    QCOMPARE(translated("Paper"), QStringLiteral("One"));
}

void TestTranslations::fallsBackToALaterDirectory()
{
    write(path(QStringLiteral("one/CupsInt_de.qm")), catalogue("Ink", QStringLiteral("Tinte")));
    write(path(QStringLiteral("share/tr/vesk_de.qm")),
          catalogue("Paper", QStringLiteral("Papier")));
    Translations::install(Catalogues, {path(QStringLiteral("one")), path(QStringLiteral("none"))});
    QCOMPARE(translated("Paper"), QStringLiteral("Papier"));
    QCOMPARE(translated("Ink"), QStringLiteral("Tinte"));
}

void TestTranslations::prefersTheCountrysOwn()
{
    write(path(QStringLiteral("share/tr/vesk_de.qm")), catalogue("Paper", QStringLiteral("de")));
    write(path(QStringLiteral("share/tr/vesk_de_AT.qm")), catalogue("Paper", QStringLiteral("AT")));
    Translations::install(Catalogues, {});
    QCOMPARE(translated("Paper"), QStringLiteral("AT"));
}

void TestTranslations::leavesOtherLanguagesAlone()
{
    for (const char *name : {"vesk_fr.qm", "vesk_en.qm", "vesk-de.qm", "other_de.qm"})
        write(path(QStringLiteral("share/tr/") + QLatin1String(name)),
              catalogue("Paper", QStringLiteral("Papier")));
    Translations::install(Catalogues, {});
    QCOMPARE(translated("Paper"), QStringLiteral("Paper"));
}

void TestTranslations::doesWithoutCatalogues()
{
    QVERIFY(!QDir(path(QStringLiteral("share"))).exists());
    Translations::install(Catalogues, {path(QStringLiteral("none"))});
    QCOMPARE(translated("Paper"), QStringLiteral("Paper"));
}

void TestTranslations::doesWithoutAReadableCatalogue()
{
    write(path(QStringLiteral("one/vesk_de.qm")), "not a catalogue");
    write(path(QStringLiteral("share/tr/vesk_de.qm")),
          catalogue("Paper", QStringLiteral("Papier")));
    Translations::install(Catalogues, {path(QStringLiteral("one"))});
    QCOMPARE(translated("Paper"), QStringLiteral("Papier"));
}

void TestTranslations::saysTheLanguage()
{
    QCOMPARE(Translations::install(Catalogues, {}), QString());
    write(path(QStringLiteral("share/tr/printdialog_de.qm")),
          catalogue("Ink", QStringLiteral("Tinte"), "de"));
    QCOMPARE(Translations::install(Catalogues, {}), QStringLiteral("de"));
}

void TestTranslations::toolkitSpeaksThatLanguage()
{
    write(path(QStringLiteral("share/tr/qtbase_fr.qm")),
          catalogue("Paper", QStringLiteral("Papier fr"), "fr"));
    write(path(QStringLiteral("share/tr/qtbase_de.qm")),
          catalogue("Paper", QStringLiteral("Papier de"), "de"));
    Translations::installToolkit(QStringLiteral("fr"), {});
    QCOMPARE(translated("Paper"), QStringLiteral("Papier fr"));
}

void TestTranslations::toolkitSpeaksEnglishOtherwise()
{
    write(path(QStringLiteral("share/tr/qtbase_de.qm")),
          catalogue("Paper", QStringLiteral("Papier"), "de"));
    Translations::installToolkit(Translations::install(Catalogues, {}), {});
    QCOMPARE(translated("Paper"), QStringLiteral("Paper"));
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
