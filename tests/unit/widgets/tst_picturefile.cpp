#include "PictureBytes.h"
#include "PictureFile.h"

#include <QBitmap>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

#include <random>
#include <sys/stat.h>

using namespace PictureBytes;
using namespace Qt::StringLiterals;

class TestPictureFile : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void formats_data();
    void formats();
    void noPicture_data();
    void noPicture();
    void size_data();
    void size();
    void truncated_data();
    void truncated();
    void costly_data();
    void costly();
    void textsDoNotCountAsPixels();
    void limitIsPutBack();
    void mutated_data();
    void mutated();

    void maskOfItsOwn();
    void opaqueAlphaChannel();
    void backgroundIsTakenOut();
    void fileThatCannotBeLoaded_data();
    void fileThatCannotBeLoaded();

private:
    QString write(const QByteArray &content);

    QTemporaryDir m_folder;
};

namespace
{
/** The most memory that the process has had since it began to count, in megabytes. */
class Memory
{
public:
    Memory()
    {
        QFile counter(u"/proc/self/clear_refs"_s);
        if (!counter.open(QIODevice::WriteOnly) || counter.write("5") != 1)
            qFatal("the kernel does not count the memory");
        counter.close();
        m_before = most();
    }
    long more() const { return most() - m_before; }

private:
    static long most()
    {
        QFile status(u"/proc/self/status"_s);
        if (!status.open(QIODevice::ReadOnly))
            qFatal("the kernel does not tell the memory");
        const QByteArray text = status.readAll();
        return text.sliced(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLong() / 1024;
    }

    long m_before;
};

QByteArray smallPicture(const char *format)
{
    QImage image = filled(20, 10, qRgb(255, 0, 0));
    for (int x = 0; x < 20; ++x)
        image.setPixel(x, x / 2, qRgb(0, 0, 255));
    return encoded(image.convertToFormat(QImage::Format_RGB32), format);
}

QByteArray gif()
{
    return QByteArray::fromBase64("R0lGODlhAgABAIAAAP8AAAAA/ywAAAAAAgABAAACAkQKADs=");
}
} // namespace

QString TestPictureFile::write(const QByteArray &content)
{
    const QString path = m_folder.filePath(u"picture"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the picture");
    return path;
}

/** The toolkit's decoders have much to say about what follows. */
void TestPictureFile::initTestCase()
{
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s);
}

void TestPictureFile::formats_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QSize>("size");
    for (const char *format : {"png", "jpeg", "bmp", "xpm", "xbm", "ppm"})
        QTest::newRow(format) << smallPicture(format) << QSize(20, 10);
    QTest::newRow("gif") << gif() << QSize(2, 1);
    QTest::newRow("ppm as text") << "P3 1 1 255 255 0 0\n"_ba << QSize(1, 1);
    QTest::newRow("pgm") << "P5 1 2 255\n\x01\x02"_ba << QSize(1, 2);
    QTest::newRow("pgm as text") << "P2 1 2 255 1 2\n"_ba << QSize(1, 2);
    QTest::newRow("pbm") << "P4 8 1\n\x01"_ba << QSize(8, 1);
    QTest::newRow("pbm as text") << "P1 2 1\n1 0\n"_ba << QSize(2, 1);
}

void TestPictureFile::formats()
{
    QFETCH(QByteArray, content);
    const QImage picture = PictureFile::decode(content);
    QTEST(picture.size(), "size");
    QCOMPARE(picture, QImage::fromData(content));
}

void TestPictureFile::noPicture_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << "no picture"_ba;
    QTest::newRow("zeros") << QByteArray(10'000, '\0');
    QTest::newRow("vectors")
        << R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)"_ba;
    QTest::newRow("png without anything") << "\x89PNG\r\n\x1a\n"_ba;
    QTest::newRow("png chunk that goes beyond the end")
        << "\x89PNG\r\n\x1a\n"_ba + QByteArray("\xff\xff\xff\xffIHDRaaaaaaaaaaaaaaa");
    QTest::newRow("png with an unknown need") << pngWith(pngChunk("NEED", "x"), redRows());
}

void TestPictureFile::noPicture()
{
    QFETCH(QByteArray, content);
    QVERIFY(PictureFile::decode(content).isNull());
}

void TestPictureFile::size_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("good");
    const int most = PictureFile::MaxSide;
    QTest::newRow("largest") << encoded(filled(most, most, 0xff00ff00), "png") << true;
    QTest::newRow("largest, 16 bits a channel")
        << encoded(filled(most, most, 0xff00ff00).convertToFormat(QImage::Format_RGBA64), "png")
        << true;
    QTest::newRow("largest bmp") << encoded(filled(most, most, 0xff00ff00), "bmp") << true;
    QTest::newRow("largest gray jpeg")
        << encoded(filled(most, most, 0).convertToFormat(QImage::Format_Grayscale8), "jpeg")
        << true;
    QTest::newRow("too wide") << encoded(filled(most + 1, 1, 0xff00ff00), "png") << false;
    QTest::newRow("too high") << encoded(filled(1, most + 1, 0xff00ff00), "png") << false;
    QTest::newRow("huge ppm") << "P6 1000000 100000 255\n"_ba << false;
    QTest::newRow("huge xbm") << "#define a_width 99999\n#define a_height 99999\n"
                                 "static char a_bits[] = {\n0x00 };\n"_ba
                              << false;
    QTest::newRow("huge xpm")
        << "/* XPM */\nstatic char *a[] = {\n\"32767 32767 1 1\",\n\". c red\",\n};\n"_ba << false;
    QTest::newRow("huge gif") << gifBomb(65535, 5000) << false;
    QByteArray bmp = smallPicture("bmp");
    bmp.replace(18, 8, QByteArray("\xff\xff\xff\x7f\xff\xff\xff\x7f", 8));
    QTest::newRow("huge bmp") << bmp << false;
    QByteArray png = smallPicture("png");
    const QByteArray header =
        bigEndian(0x7fffffff) + bigEndian(0x7fffffff) + QByteArray("\x08\x02\0\0\0", 5);
    png.replace(8, 25, pngChunk("IHDR", header));
    QTest::newRow("huge png") << png << false;
    QByteArray jpeg = smallPicture("jpeg");
    jpeg.replace(jpeg.indexOf("\xff\xc0") + 5, 4, "\xff\xff\xff\xff");
    QTest::newRow("huge jpeg") << jpeg << false;
    QTest::newRow("no size") << "P6 0 0 255\n"_ba << false;
}

void TestPictureFile::size()
{
    QFETCH(QByteArray, content);
    const Memory memory;
    QElapsedTimer timer;
    timer.start();
    QTEST(!PictureFile::decode(content).isNull(), "good");
    QVERIFY(timer.elapsed() < 5000);
    QVERIFY2(memory.more() < 100, qPrintable(QString::number(memory.more())));
}

void TestPictureFile::truncated_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const char *format : {"png", "jpeg", "bmp", "xpm", "xbm", "ppm"})
        QTest::newRow(format) << smallPicture(format);
    QTest::newRow("gif") << gif();
}

/** Nothing is made up. The last two bytes of a file may be no part of the picture. */
void TestPictureFile::truncated()
{
    QFETCH(QByteArray, content);
    QVERIFY(!PictureFile::decode(content).isNull());
    for (qsizetype length = 0; length < content.size() - 2; ++length)
        QVERIFY2(PictureFile::decode(content.first(length)).isNull(),
                 qPrintable(QString::number(length)));
}

void TestPictureFile::costly_data()
{
    QTest::addColumn<QByteArray>("content");
    constexpr qsizetype full = PictureFile::MaxFileSize;
    const QByteArray text = deflated(QByteArray(7'900'000, 'a'));
    const QByteArray texts = pngChunk("zTXt", QByteArray("Comment\0\0", 9) + text);
    QTest::newRow("png texts") << pngWith(texts.repeated((full - 1000) / texts.size()), redRows());
    const QByteArray unicode = pngChunk("iTXt", QByteArray("Comment\0\1\0\0\0", 12) + text);
    QTest::newRow("png international texts")
        << pngWith(unicode.repeated((full - 1000) / unicode.size()), redRows());
    const QByteArray profile = pngChunk("iCCP", QByteArray("p\0\0", 3) + text);
    QTest::newRow("png profiles") << pngWith(profile.repeated((full - 1000) / profile.size()),
                                             redRows());
    QTest::newRow("png pixels beyond its size") << pngWith({}, QByteArray(400'000'000, '\0'));
    QTest::newRow("small gif") << gifBomb(64, full - 100'000);
    QTest::newRow("large gif") << gifBomb(1024, full - 100'000);
    QTest::newRow("jpeg turns") << jpegBomb(1024, full / 10 - 1000);
    QTest::newRow("jpeg turns, as many as are drawn") << jpegBomb(1024, PictureFile::MaxJpegScans);
    QTest::newRow("xpm colours") << "/* XPM */\nstatic char *a[] = {\n\"10 10 16777215 15\",\n"_ba +
                                        "\"a c red\",\n"_ba.repeated(300'000);
}

void TestPictureFile::costly()
{
    QFETCH(QByteArray, content);
    QVERIFY(content.size() <= PictureFile::MaxFileSize);
    const Memory memory;
    QElapsedTimer timer;
    timer.start();
    PictureFile::decode(content);
    const qint64 took = timer.elapsed();
    qInfo("%lld ms, %ld MB more", took, memory.more());
    QVERIFY2(took < 10'000, qPrintable(QString::number(took)));
    QVERIFY2(memory.more() < 100, qPrintable(QString::number(memory.more())));
}

void TestPictureFile::textsDoNotCountAsPixels()
{
    const QByteArray text = pngChunk("tEXt", QByteArray("Title\0Printer", 13));
    const QImage picture = PictureFile::decode(pngWith(text, redRows()));
    QVERIFY(picture.textKeys().isEmpty());
    QCOMPARE(picture.size(), QSize(16, 16));
    QCOMPARE(picture.pixel(15, 15), qRgb(255, 0, 0));
    const QByteArray clear = pngChunk("tRNS", QByteArray("\0\xff\0\0\0\0", 6));
    QCOMPARE(qAlpha(PictureFile::decode(pngWith(clear, redRows())).pixel(15, 15)), 0);
}

void TestPictureFile::limitIsPutBack()
{
    const int before = QImageReader::allocationLimit();
    QVERIFY(!PictureFile::decode(gif()).isNull());
    QCOMPARE(QImageReader::allocationLimit(), before);
}

void TestPictureFile::mutated_data()
{
    truncated_data();
}

void TestPictureFile::mutated()
{
    QFETCH(QByteArray, content);
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        QByteArray bytes = content;
        for (auto changes = 1 + random() % 4; changes > 0; --changes)
            bytes[static_cast<qsizetype>(random() % static_cast<quint32>(bytes.size()))] =
                static_cast<char>(random());
        QElapsedTimer timer;
        timer.start();
        const QImage picture = PictureFile::decode(bytes);
        QVERIFY(picture.width() <= PictureFile::MaxSide);
        QVERIFY(picture.height() <= PictureFile::MaxSide);
        QVERIFY2(timer.elapsed() < 10'000, bytes.toHex().constData());
    }
}

void TestPictureFile::maskOfItsOwn()
{
    QImage image = filled(4, 4, qRgba(255, 0, 0, 128));
    image.setPixel(1, 1, qRgba(0, 0, 0, 0));
    const QPixmap picture = PictureFile::load(write(encoded(image, "png")));
    QCOMPARE(picture.toImage().convertToFormat(QImage::Format_ARGB32), image);
}

/** It says where the picture is transparent: nowhere. Nothing is guessed. */
void TestPictureFile::opaqueAlphaChannel()
{
    const QImage image = filled(4, 4, qRgba(255, 0, 0, 255));
    const QByteArray content = encoded(image, "png");
    QVERIFY(PictureFile::decode(content).hasAlphaChannel());
    const QPixmap picture = PictureFile::load(write(content));
    QCOMPARE(picture.toImage().convertToFormat(QImage::Format_ARGB32), image);
}

void TestPictureFile::backgroundIsTakenOut()
{
    QImage image = filled(5, 5, qRgb(255, 255, 255)).convertToFormat(QImage::Format_RGB32);
    image.setPixel(2, 2, qRgb(255, 0, 0));
    const QPixmap picture = PictureFile::load(write(encoded(image, "png")));
    QVERIFY(picture.hasAlphaChannel());
    QCOMPARE(picture.mask().toImage(),
             QBitmap::fromImage(image.createHeuristicMask(true)).toImage());
    const QImage shown = picture.toImage();
    QCOMPARE(qAlpha(shown.pixel(0, 0)), 0);
    QCOMPARE(shown.pixel(2, 2), qRgb(255, 0, 0));
}

void TestPictureFile::fileThatCannotBeLoaded_data()
{
    QTest::addColumn<QString>("path");
    QCOMPARE(mkfifo(qPrintable(m_folder.filePath(u"pipe"_s)), 0600), 0);
    const QString large = m_folder.filePath(u"large"_s);
    QFile file(large);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray picture = smallPicture("png");
    QCOMPARE(file.write(picture), picture.size());
    QVERIFY(file.resize(PictureFile::MaxFileSize + 1));
    QTest::newRow("missing") << m_folder.filePath(u"missing"_s);
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("pipe") << m_folder.filePath(u"pipe"_s);
    QTest::newRow("device") << u"/dev/zero"_s;
    QTest::newRow("too large") << large;
    QTest::newRow("no picture") << m_folder.filePath(u"picture"_s);
    write("no picture");
}

void TestPictureFile::fileThatCannotBeLoaded()
{
    QFETCH(QString, path);
    QVERIFY(PictureFile::load(path).isNull());
}

QTEST_MAIN(TestPictureFile)
#include "tst_picturefile.moc"
