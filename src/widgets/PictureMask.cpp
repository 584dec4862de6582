#include "PictureMask.h"

#include <QColor>
#include <QPoint>

#include <vector>

namespace
{
QRgb colour(const QImage &picture, int x, int y)
{
    return picture.pixel(x, y) & RGB_MASK;
}

/** The colour of two corners, or of the top left one when no two are alike. */
QRgb backgroundOf(const QImage &picture)
{
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    const QRgb topLeft = colour(picture, 0, 0);
    const QRgb topRight = colour(picture, right, 0);
    const QRgb bottomLeft = colour(picture, 0, bottom);
    const QRgb bottomRight = colour(picture, right, bottom);
    if (topLeft == topRight || topLeft == bottomLeft || topLeft == bottomRight)
        return topLeft;
    return bottomLeft == bottomRight ? bottomRight : topRight;
}

/** Takes the background out of a full mask, from the edge inwards. */
class BackgroundFill
{
public:
    BackgroundFill(const QImage &picture, QImage &mask)
        : m_picture(picture)
        , m_mask(mask)
        , m_background(backgroundOf(picture))
    {
    }

    void run()
    {
        for (int x = 0; x < m_picture.width(); ++x) {
            visit(x, 0);
            visit(x, m_picture.height() - 1);
        }
        for (int y = 0; y < m_picture.height(); ++y) {
            visit(0, y);
            visit(m_picture.width() - 1, y);
        }
        while (!m_open.empty()) {
            const QPoint point = m_open.back();
            m_open.pop_back();
            visit(point.x() - 1, point.y());
            visit(point.x() + 1, point.y());
            visit(point.x(), point.y() - 1);
            visit(point.x(), point.y() + 1);
        }
    }

private:
    void visit(int x, int y)
    {
        if (!m_picture.valid(x, y) || m_mask.pixelIndex(x, y) == 0 ||
            colour(m_picture, x, y) != m_background)
            return;
        m_mask.setPixel(x, y, 0);
        m_open.emplace_back(x, y);
    }

    const QImage &m_picture;
    QImage &m_mask;
    QRgb m_background;
    std::vector<QPoint> m_open;
};
} // namespace

QImage PictureMask::heuristic(const QImage &picture)
{
    if (picture.isNull())
        return {};
    QImage mask(picture.size(), QImage::Format_MonoLSB);
    mask.setColor(0, QColor(Qt::color0).rgba());
    mask.setColor(1, QColor(Qt::color1).rgba());
    mask.fill(1);
    BackgroundFill(picture, mask).run();
    return mask;
}
