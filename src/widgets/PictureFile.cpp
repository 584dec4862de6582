#include "PictureFile.h"

#include "BoundedFile.h"
#include "MeteredDevice.h"
#include "PictureMask.h"

#include <QBitmap>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <array>

using namespace std::chrono_literals;

namespace
{
/** Processor time for one picture. The largest good ones take a tenth of it. */
constexpr auto patience = 500ms;
constexpr int MaxDecodedMegabytes = 16;

// The plug-ins of other formats are not asked: vector pictures, say, can name files of their own.
constexpr std::array<QByteArrayView, 9> formats{"png", "jpeg", "gif", "bmp", "xpm",
                                                "xbm", "ppm",  "pgm", "pbm"};

constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1a\n");
constexpr QByteArrayView bitmapStart("BM");
constexpr QByteArrayView jpegStart("\xff\xd8");
constexpr QByteArrayView jpegScan("\xff\xda");

/** The toolkit's limit to the memory of a picture, for as long as it lives. */
class AllocationLimit
{
public:
    explicit AllocationLimit(int megabytes)
        : m_before(QImageReader::allocationLimit())
    {
        QImageReader::setAllocationLimit(megabytes);
    }
    ~AllocationLimit() { QImageReader::setAllocationLimit(m_before); }
    AllocationLimit(const AllocationLimit &) = delete;
    AllocationLimit &operator=(const AllocationLimit &) = delete;

private:
    int m_before;
};

/** Whether pixels depend on a chunk of that type: a critical one, or the transparent colours. */
bool isEssential(QByteArrayView chunkType)
{
    return (chunkType.front() >= 'A' && chunkType.front() <= 'Z') || chunkType == "tRNS";
}

/**
 * A PNG picture without what only describes it. The decoder would unpack every text: a file of some
 * megabytes can hold gigabytes.
 */
QByteArray essentialPng(const QByteArray &png)
{
    constexpr qsizetype lengthSize = 4;
    constexpr qsizetype typeSize = 4;
    constexpr qsizetype frameSize = lengthSize + typeSize + 4;
    QByteArray result = pngSignature.toByteArray();
    QByteArrayView rest = QByteArrayView(png).sliced(pngSignature.size());
    while (rest.size() >= frameSize) {
        const qsizetype length = qFromBigEndian<quint32>(rest.data());
        if (length > rest.size() - frameSize)
            break;
        if (isEssential(rest.sliced(lengthSize, typeSize)))
            result.append(rest.first(length + frameSize));
        rest = rest.sliced(length + frameSize);
    }
    return result;
}

/** The decoder does not say when rows of a bitmap are missing; its file tells how long it is. */
bool isCutBitmap(const QByteArray &content)
{
    constexpr qsizetype sizeAt = bitmapStart.size();
    constexpr qsizetype headerSize = sizeAt + 4;
    return content.startsWith(bitmapStart) && content.size() >= headerSize &&
           qFromLittleEndian<quint32>(content.constData() + sizeAt) > content.size();
}

bool drawsTooOften(const QByteArray &content)
{
    return content.startsWith(jpegStart) && content.count(jpegScan) > PictureFile::MaxJpegScans;
}

bool hasSafeFormat(const QImageReader &reader)
{
    return std::ranges::find(formats, QByteArrayView(reader.format())) != formats.end();
}

bool isSafe(QSize size)
{
    return !size.isEmpty() && size.width() <= PictureFile::MaxSide &&
           size.height() <= PictureFile::MaxSide;
}

QBitmap maskOf(const QImage &image)
{
    return QBitmap::fromImage(image.hasAlphaChannel() ? image.createAlphaMask()
                                                      : PictureMask::heuristic(image));
}
} // namespace

QImage PictureFile::decode(const QByteArray &content)
{
    if (isCutBitmap(content) || drawsTooOften(content))
        return {};
    MeteredDevice device(content.startsWith(pngSignature) ? essentialPng(content) : content,
                         patience);
    const AllocationLimit limit(MaxDecodedMegabytes);
    QImageReader reader(&device);
    if (!hasSafeFormat(reader) || !isSafe(reader.size()))
        return {};
    device.expectMore();
    const QImage image = reader.read();
    // Some decoders make up what is missing, and some files hold another size than they tell.
    return device.hasRunDry() || !isSafe(image.size()) ? QImage() : image;
}

QPixmap PictureFile::load(const QString &path)
{
    const QImage image = decode(BoundedFile::read(path, MaxFileSize));
    QPixmap pixmap = QPixmap::fromImage(image);
    if (!pixmap.isNull() && !pixmap.hasAlphaChannel())
        pixmap.setMask(maskOf(image));
    return pixmap;
}
