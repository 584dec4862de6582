#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

#include <array>

/** Picture files, good and hostile ones, as bytes. */
namespace PictureBytes
{
inline QImage filled(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

inline QByteArray encoded(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        qFatal("cannot write %s", format);
    return buffer.data();
}

inline quint32 crc(const QByteArray &bytes)
{
    quint32 rest = 0xffffffffU;
    for (const char byte : bytes) {
        rest ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest & 1U) ? (rest >> 1) ^ 0xedb88320U : rest >> 1;
    }
    return ~rest;
}

inline QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

inline QByteArray pngChunk(const QByteArray &type, const QByteArray &content)
{
    return bigEndian(static_cast<quint32>(content.size())) + type + content +
           bigEndian(crc(type + content));
}

/** A stream as zlib writes it; qCompress puts the length before it. */
inline QByteArray deflated(const QByteArray &bytes)
{
    return qCompress(bytes, 9).sliced(4);
}

/** A PNG of 16 by 16 with what `extra` gives before the pixels. */
inline QByteArray pngWith(const QByteArray &extra, const QByteArray &pixels)
{
    const QByteArray header = bigEndian(16) + bigEndian(16) + QByteArray("\x08\x02\0\0\0", 5);
    return QByteArray("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", header) + extra +
           pngChunk("IDAT", deflated(pixels)) + pngChunk("IEND", {});
}

/** The pixels of such a PNG, all red. */
inline QByteArray redRows()
{
    return (QByteArray(1, '\0') + QByteArray("\xff\0\0", 3).repeated(16)).repeated(16);
}

/** A GIF whose codes stand for four thousand pixels each, in about `size` bytes. */
inline QByteArray gifBomb(int side, qsizetype size)
{
    QByteArray codes;
    quint32 bits = 0;
    int count = 0;
    const auto put = [&](quint32 code, int width) {
        bits |= code << count;
        for (count += width; count >= 8; count -= 8) {
            codes.append(static_cast<char>(bits & 0xffU));
            bits >>= 8;
        }
    };
    constexpr quint32 lastCode = 4094;
    int width = 3;
    put(4, width);
    put(0, width);
    for (quint32 next = 6; next <= lastCode; ++next) {
        put(next, width);
        if (next + 1 == (1U << width) && width < 12)
            ++width;
    }
    while (codes.size() < size)
        put(lastCode, 12);

    std::array<quint16, 2> sizes{qToLittleEndian(static_cast<quint16>(side)),
                                 qToLittleEndian(static_cast<quint16>(side))};
    const QByteArray area(reinterpret_cast<const char *>(sizes.data()), 4);
    QByteArray gif = "GIF89a" + area + QByteArray("\x80\0\0\0\0\0\xff\xff\xff", 9) + ',' +
                     QByteArray(4, '\0') + area + QByteArray("\0\x02", 2);
    for (qsizetype i = 0; i < codes.size(); i += 255) {
        const QByteArray block = codes.mid(i, 255);
        gif += static_cast<char>(block.size()) + block;
    }
    return gif + '\0' + ';';
}

/** A JPEG picture that is drawn `turns` times. */
inline QByteArray jpegBomb(int side, qsizetype turns)
{
    QByteArray jpeg = encoded(
        filled(side, side, qRgb(255, 0, 0)).convertToFormat(QImage::Format_Grayscale8), "jpeg");
    // A progressive picture instead of a plain one: its first turn may be drawn any number of
    // times.
    jpeg[jpeg.indexOf("\xff\xc0") + 1] = '\xc2';
    const qsizetype start = jpeg.indexOf("\xff\xda");
    const QByteArray turn("\xff\xda\0\x08\x01\x01\0\0\0\0", 10);
    return jpeg.first(start) + turn.repeated(turns) + "\xff\xd9";
}
} // namespace PictureBytes
