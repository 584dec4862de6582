#include "PictureBytes.h"
#include "PixmapManager.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>
#include <random>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

using namespace PictureBytes;
using namespace Qt::StringLiterals;

static_assert(std::has_virtual_destructor_v<PixmapManager>);

class TestPixmapManager : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();

    void lookUp_data();
    void lookUp();
    void noIndex_data();
    void noIndex();
    void nullName();
    void ownTablePerKind();
    void pictureIsAlwaysReplaced();
    void indexIsReadOnce();
    void unsafeNames_data();
    void unsafeNames();
    void linksInTheFolder();
    void hostileIndex_data();
    void hostileIndex();
    void mutatedIndex();
    void manySections();

private:
    QString path(const QString &name) const { return m_pictures + name; }
    void write(const QString &name, const QByteArray &content) const;
    QString shown(const PixmapManager &catalogue, const char *name, int flags = 1,
                  bool scanner = false) const;

    QTemporaryDir m_folder;
    QString m_pictures;
};

namespace
{
// Each picture has a width of its own.
const QMap<int, QString> namesByWidth{{5, u"a"_s}, {6, u"b"_s},     {7, u"c"_s},
                                      {8, u"d"_s}, {9, u"above"_s}, {48, u"generic"_s}};

QByteArray pictureOfWidth(int width)
{
    return encoded(filled(width, 2, qRgba(255, 0, 0, 128)), "png");
}

/** Far more than is needed, also under a sanitizer; a search that is not linear takes hours. */
constexpr double LongSeconds = 30;

/** What this process has used; how busy the machine is does not count. */
double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

QString indexText(int sections)
{
    QString text;
    for (int i = 0; i < sections; ++i)
        text += u"[Printer_%1]\nSmallPicture=small%1.png\nBigPicture=big%1.png\n"
                "Model=XQ-%1 Series\n"_s.arg(i);
    return text;
}
} // namespace

void TestPixmapManager::initTestCase()
{
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s);
    m_pictures = m_folder.path() + u"/pictures/"_s;
    QVERIFY(QDir().mkpath(m_pictures + u"more"_s));
    for (auto name = namesByWidth.cbegin(); name != namesByWidth.cend(); ++name)
        write(*name + u".png"_s, pictureOfWidth(name.key()));
    QVERIFY(QFile::rename(path(u"above.png"_s), path(u"../above.png"_s)));
    QVERIFY(QFile::remove(path(u"generic.png"_s)));
    write(u"bad.png"_s, "no picture");
    write(u"more/d.png"_s, pictureOfWidth(8));
}

void TestPixmapManager::init()
{
    QFile::remove(path(u"pictures.ini"_s));
}

void TestPixmapManager::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
}

/** The name of the picture that is given, with "!" where it is the one of the name asked for. */
QString TestPixmapManager::shown(const PixmapManager &catalogue, const char *name, int flags,
                                 bool scanner) const
{
    QPixmap picture(1, 1);
    const bool own = scanner ? catalogue.scannerPicture(picture, name, flags)
                             : catalogue.printerPicture(picture, name, flags);
    return namesByWidth.value(picture.width(), u"other"_s) + (own ? u"!"_s : QString());
}

void TestPixmapManager::lookUp_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("picture");
    const QByteArray own = "[Printer_1]\nModel=XQ-2010\nBigPicture=a.png\nSmallPicture=b.png\n"_ba;
    const QByteArray both = own + "[Printer_]\nBigPicture=c.png\nSmallPicture=d.png\n"_ba;

    QTest::newRow("equal key, big") << own << "Tarvel xq-2010 Series"_ba << 1 << u"a!"_s;
    QTest::newRow("equal key, small") << own << "XQ-2010"_ba << 0 << u"b!"_s;
    QTest::newRow("equal key, other flags") << own << "XQ-2010"_ba << 6 << u"b!"_s;
    QTest::newRow("equal key, all flags") << own << "XQ-2010"_ba << -1 << u"a!"_s;
    QTest::newRow("no big name") << "[Printer_1]\nModel=XQ-2010\nSmallPicture=b.png\n"_ba
                                 << "XQ-2010"_ba << 1 << u"b!"_s;
    QTest::newRow("no small name, small asked for")
        << "[Printer_1]\nModel=XQ-2010\nBigPicture=a.png\n"_ba
        << "XQ-2010"_ba << 0 << u"generic"_s;
    QTest::newRow("no names") << "[Printer_1]\nModel=XQ-2010\n"_ba
                              << "XQ-2010"_ba << 1 << u"generic"_s;
    QTest::newRow("no names, default entry") << "[Printer_1]\nModel=XQ-2010\n[Printer_2]\n"
                                                "BigPicture=c.png"_ba
                                             << "XQ-2010"_ba << 1 << u"c"_s;
    QTest::newRow("big file missing: the small one is not tried")
        << "[Printer_1]\nModel=XQ-2010\nBigPicture=no.png\nSmallPicture=b.png\n"_ba
        << "XQ-2010"_ba << 1 << u"generic"_s;
    QTest::newRow("file is no picture, default entry")
        << "[Printer_1]\nModel=XQ-2010\nBigPicture=bad.png\n[Printer_2]\nBigPicture=c.png\n"_ba
        << "XQ-2010"_ba << 1 << u"c"_s;
    QTest::newRow("default entry, big") << both << "Something else"_ba << 1 << u"c"_s;
    QTest::newRow("default entry, small") << both << "Something else"_ba << 0 << u"d"_s;
    QTest::newRow("default entry without a file") << "[Printer_]\nBigPicture=no.png\n"_ba
                                                  << "Something else"_ba << 1 << u"generic"_s;
    QTest::newRow("default entry by an empty model") << "[Printer_9]\nModel=\nBigPicture=c.png\n"_ba
                                                     << "Something else"_ba << 1 << u"c"_s;
    QTest::newRow("empty name is the default entry's own") << both << ""_ba << 1 << u"c!"_s;
    QTest::newRow("empty name, no default entry") << own << ""_ba << 1 << u"generic"_s;
    QTest::newRow("nothing fits, no default entry")
        << own << "Something else"_ba << 1 << u"generic"_s;
    QTest::newRow("later section of the same model wins")
        << own + "[Printer_2]\nModel=New xq-2010\nBigPicture=c.png\n"_ba
        << "XQ-2010"_ba << 1 << u"c!"_s;
    QTest::newRow("later section of the same model, whatever its name")
        << "[Printer_2]\nModel=XQ-2010\nBigPicture=a.png\n"
           "[Printer_1]\nModel=XQ-2010\nBigPicture=c.png\n"_ba
        << "XQ-2010"_ba << 1 << u"c!"_s;
    QTest::newRow("best score") << own + "[Printer_2]\nModel=XQ-1610/1615\nBigPicture=c.png\n"_ba
                                << "Tarvel XQ-1615"_ba << 1 << u"c!"_s;
    QTest::newRow("equal scores: the first key")
        << "[Printer_1]\nModel=XQ-22\nBigPicture=a.png\n"
           "[Printer_2]\nModel=XQ-21\nBigPicture=b.png\n"_ba
        << "XQ-29"_ba << 1 << u"b!"_s;
    QTest::newRow("equal key before a better one")
        << "[Printer_1]\nModel=XQ-2\nBigPicture=a.png\n"
           "[Printer_2]\nModel=AXQ-2\nBigPicture=b.png\n"_ba
        << "XQ-2"_ba << 1 << u"a!"_s;
    QTest::newRow("score of two") << "[Printer_1]\nModel=AZ\nBigPicture=a.png\n"_ba
                                  << "Z-9"_ba << 1 << u"generic"_s;
    QTest::newRow("contained text of one letter") << "[Printer_1]\nModel=AZ\nBigPicture=a.png\n"_ba
                                                  << "z"_ba << 1 << u"a!"_s;
    QTest::newRow("prefix by case") << "[printer_1]\nModel=XQ-2010\nBigPicture=a.png\n"_ba
                                    << "XQ-2010"_ba << 1 << u"generic"_s;
    QTest::newRow("prefix not at the start")
        << "[A Printer_1]\nModel=XQ-2010\nBigPicture=a.png\n"_ba
        << "XQ-2010"_ba << 1 << u"generic"_s;
    QTest::newRow("other sections are not looked up") << "[XQ-2010]\nBigPicture=a.png\n"_ba
                                                      << "XQ-2010"_ba << 1 << u"generic"_s;
    QTest::newRow("folder below") << "[Printer_1]\nModel=XQ-2010\nBigPicture=more/d.png\n"_ba
                                  << "XQ-2010"_ba << 1 << u"d!"_s;
    QTest::newRow("UTF-8") << "[Printer_1]\nModel=gr\xc3\xb6\xc3\x9f"
                              "er\nBigPicture=a.png\n"_ba
                           << "GR\xc3\x96SSER"_ba << 1 << u"a!"_s;
}

void TestPixmapManager::lookUp()
{
    QFETCH(QByteArray, index);
    QFETCH(QByteArray, name);
    QFETCH(int, flags);
    write(u"pictures.ini"_s, index);
    QTEST(shown(PixmapManager(m_pictures), name.constData(), flags), "picture");

    // The same with the sections of scanners.
    index.replace("Printer_", "Scanner_");
    index.replace("printer_", "scanner_");
    write(u"pictures.ini"_s, index);
    const PixmapManager scanners(m_pictures);
    QTEST(shown(scanners, name.constData(), flags, true), "picture");
    QCOMPARE(shown(scanners, name.constData(), flags, false), u"generic"_s);
}

void TestPixmapManager::noIndex_data()
{
    QTest::addColumn<QString>("directory");
    const auto add = [this](const char *row, const QString &name) {
        const QString folder = m_folder.filePath(name) + u'/';
        QVERIFY(QDir().mkpath(folder));
        QTest::newRow(row) << folder;
    };
    QTest::newRow("no folder") << u"/nonexistent/"_s;
    QTest::newRow("no name") << QString();
    add("empty folder", u"empty"_s);
    add("empty index", u"void"_s);
    write(u"../void/pictures.ini"_s, {});
    add("no sections", u"sectionless"_s);
    write(u"../sectionless/pictures.ini"_s, "BigPicture=a.png\n");
    add("folder instead of an index", u"folder"_s);
    QDir().mkpath(m_folder.filePath(u"folder/pictures.ini"_s));
    add("pipe instead of an index", u"pipe"_s);
    mkfifo(qPrintable(m_folder.filePath(u"pipe/pictures.ini"_s)), 0600);
    add("device instead of an index", u"device"_s);
    QFile::link(u"/dev/zero"_s, m_folder.filePath(u"device/pictures.ini"_s));
    add("index too large", u"large"_s);
    write(u"../large/pictures.ini"_s, "[Printer_]\nBigPicture=a.png\n");
    QFile::copy(path(u"a.png"_s), m_folder.filePath(u"large/a.png"_s));
    QVERIFY(
        QFile::resize(m_folder.filePath(u"large/pictures.ini"_s), PixmapManager::MaxIndexSize + 1));
}

void TestPixmapManager::noIndex()
{
    QFETCH(QString, directory);
    const PixmapManager catalogue(directory);
    QCOMPARE(shown(catalogue, "XQ-2010"), u"generic"_s);
    QCOMPARE(shown(catalogue, ""), u"generic"_s);
    QCOMPARE(shown(catalogue, "XQ-2010", 1, true), u"generic"_s);
}

void TestPixmapManager::nullName()
{
    write(u"pictures.ini"_s, "[Printer_]\nBigPicture=c.png\n");
    const PixmapManager catalogue(m_pictures);
    QCOMPARE(shown(catalogue, nullptr), u"c!"_s);
    QCOMPARE(shown(catalogue, nullptr, 1, true), u"generic"_s);
}

void TestPixmapManager::ownTablePerKind()
{
    write(u"pictures.ini"_s, "[Scanner_1]\nModel=XQ-1\nBigPicture=a.png\n"
                             "[Printer_1]\nModel=XQ-1\nBigPicture=b.png\n");
    const PixmapManager catalogue(m_pictures);
    QCOMPARE(shown(catalogue, "XQ-1"), u"b!"_s);
    QCOMPARE(shown(catalogue, "XQ-1", 1, true), u"a!"_s);
}

void TestPixmapManager::pictureIsAlwaysReplaced()
{
    write(u"pictures.ini"_s, "[Printer_1]\nModel=XQ-1\nBigPicture=bad.png\n");
    const PixmapManager catalogue(m_pictures);
    QPixmap picture(5, 5);
    QVERIFY(!catalogue.printerPicture(picture, "XQ-1", 1));
    QCOMPARE(picture.deviceIndependentSize(), QSizeF(48, 48));
    const QPixmap printer = picture;
    QVERIFY(!catalogue.scannerPicture(picture, "XQ-1", 1));
    QCOMPARE(picture.deviceIndependentSize(), QSizeF(48, 48));
    QVERIFY(picture.toImage() != printer.toImage());
}

void TestPixmapManager::indexIsReadOnce()
{
    write(u"pictures.ini"_s, "[Printer_1]\nModel=XQ-1\nBigPicture=a.png\n");
    const PixmapManager catalogue(m_pictures);
    write(u"pictures.ini"_s, "[Printer_1]\nModel=XQ-1\nBigPicture=b.png\n");
    QCOMPARE(shown(catalogue, "XQ-1"), u"a!"_s);
    QCOMPARE(shown(PixmapManager(m_pictures), "XQ-1"), u"b!"_s);
}

void TestPixmapManager::unsafeNames_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray above = QFile::encodeName(m_folder.filePath(u"above.png"_s));
    mkfifo(qPrintable(path(u"pipe.png"_s)), 0600);
    QFile::link(u"/dev/zero"_s, path(u"zero.png"_s));
    QTest::newRow("folder above") << "../above.png"_ba;
    QTest::newRow("folder above, on a way round") << "more/../../above.png"_ba;
    QTest::newRow("nothing but the folder above") << ".."_ba;
    QTest::newRow("the folder itself") << "."_ba;
    QTest::newRow("folder") << "more"_ba;
    QTest::newRow("absolute name is below the folder") << above;
    QTest::newRow("pipe") << "pipe.png"_ba;
    QTest::newRow("device") << "zero.png"_ba;
    QTest::newRow("index") << "pictures.ini"_ba;
    QTest::newRow("null character") << QByteArray("../above.png\0x.png", 18);
    QTest::newRow("null character behind a good name") << QByteArray("b.png\0x.png", 11);
    QTest::newRow("long name") << "b"_ba.repeated(100'000);
    QTest::newRow("resource") << ":/widgets/images/generic_printer@2x.png"_ba;
    QTest::newRow("address") << "file:///"_ba + above;
}

void TestPixmapManager::unsafeNames()
{
    QFETCH(QByteArray, file);
    write(u"pictures.ini"_s, "[Printer_1]\nModel=XQ-1\nBigPicture=" + file +
                                 "\nSmallPicture=b.png\n[Printer_]\nBigPicture=c.png\n");
    const PixmapManager catalogue(m_pictures);
    QCOMPARE(shown(catalogue, "XQ-1", 1), u"c"_s);
    QCOMPARE(shown(catalogue, "XQ-1", 0), u"b!"_s);
}

/** Who installs the folder may link to a picture elsewhere. */
void TestPixmapManager::linksInTheFolder()
{
    QVERIFY(QFile::link(m_folder.filePath(u"above.png"_s), path(u"link.png"_s)));
    write(u"pictures.ini"_s, "[Printer_1]\nModel=XQ-1\nBigPicture=link.png\n");
    QCOMPARE(shown(PixmapManager(m_pictures), "XQ-1"), u"above!"_s);
}

void TestPixmapManager::hostileIndex_data()
{
    QTest::addColumn<QByteArray>("text");
    constexpr qsizetype full = PixmapManager::MaxIndexSize;
    const auto fill = [](const QByteArray &part) { return part.repeated(full / part.size()); };
    QByteArray names;
    for (int i = 0; names.size() < full - 20; ++i)
        names += "[" + QByteArray::number(i, 36) + "]\n";
    QTest::newRow("sections") << names;
    QByteArray models;
    for (int i = 0; models.size() < full - 50; ++i)
        models +=
            "[Printer_" + QByteArray::number(i, 36) + "]\nModel=X-" + QByteArray::number(i) + '\n';
    QTest::newRow("models") << models;
    QTest::newRow("the same section") << fill("[Printer_1]\nModel=X-1\n");
    QTest::newRow("values") << "[Printer_1]\n" + fill("k=v\n").first(full - 20);
    QTest::newRow("lines") << fill("\n");
    QTest::newRow("brackets") << fill("[");
    QTest::newRow("one long model") << "[Printer_1]\nModel=" + fill("A").first(full - 20);
    QTest::newRow("one long model of slashes")
        << "[Printer_1]\nModel=X-" + fill("/A").first(full - 30);
    QTest::newRow("nulls") << QByteArray(full, '\0');
    QTest::newRow("bytes") << QByteArray(full, '\xff');
}

/** Whatever an index of the largest size holds, neither reading it nor looking up takes long. */
void TestPixmapManager::hostileIndex()
{
    QFETCH(QByteArray, text);
    write(u"pictures.ini"_s, text);
    const QByteArray name = "X-" + QByteArray(1000, 'A') + "-B";
    const double start = processorSeconds();
    const PixmapManager catalogue(m_pictures);
    const double built = processorSeconds();
    QCOMPARE(shown(catalogue, name.constData()), u"generic"_s);
    const double found = processorSeconds();
    qInfo("%.3f s to build, %.3f s to look up", built - start, found - built);
    QVERIFY(built - start < LongSeconds);
    QVERIFY(found - built < LongSeconds);
}

/** Always a usable picture, whatever a slip or a fault of a disk makes of an index. */
void TestPixmapManager::mutatedIndex()
{
    const QByteArray good = "\xef\xbb\xbf# devices\r\n[Printer_1]\r\nModel=\"XQ-2010/15\"\r\n"
                            "BigPicture = a.png\nSmallPicture=b.png\n[Printer_]\nBigPicture=c.png\n"
                            "[Scanner_1]\nModel=XQ-2010\nSmallPicture=../b.png\n[Other]\nk=v";
    constexpr std::string_view special = "[]=\"\n\r;#/.-_ \0\xff";
    std::mt19937 random(1);
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        QByteArray text = good;
        for (auto changes = 1 + random() % 6; changes > 0; --changes) {
            const auto at = static_cast<qsizetype>(random() % static_cast<quint32>(text.size()));
            const auto length = static_cast<qsizetype>(random() % 20);
            switch (random() % 4) {
            case 0:
                text[at] = special[random() % special.size()];
                break;
            case 1:
                text.remove(at, length);
                break;
            case 2:
                text.insert(at, text.mid(at, length));
                break;
            default:
                text[at] = static_cast<char>(random());
            }
            if (text.isEmpty())
                text = good;
        }
        write(u"pictures.ini"_s, text);
        const PixmapManager catalogue(m_pictures);
        found += shown(catalogue, "Tarvel XQ-2010") == u"a!"_s;
        const QString scanner = shown(catalogue, "Tarvel XQ-2010", 0, true);
        QVERIFY2(scanner != u"other"_s && !scanner.startsWith(u"above"), text.constData());
    }
    QVERIFY(found > 40);
    QVERIFY(found < 380);
}

/** That it is quick enough is for the benchmarks to find: here other programs run beside it. */
void TestPixmapManager::manySections()
{
    write(u"pictures.ini"_s, indexText(5000).toUtf8() + "[Printer_]\nBigPicture=c.png\n"
                                                        "[Printer_4999]\nBigPicture=a.png\n");
    QElapsedTimer timer;
    timer.start();
    const PixmapManager catalogue(m_pictures);
    qInfo("%lld ms", timer.elapsed());
    QCOMPARE(shown(catalogue, "Tarvel XQ-4999"), u"a!"_s);
    QCOMPARE(shown(catalogue, "Tarvel XQ-4998"), u"c"_s);
    QCOMPARE(shown(catalogue, "Nothing"), u"c"_s);
}

QTEST_MAIN(TestPixmapManager)
#include "tst_pixmapmanager.moc"
