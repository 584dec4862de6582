#include "ImagePosition.h"

#include <QStringList>

namespace
{
/** What the ends of one direction are called. */
struct Ends {
    QLatin1String start;
    QLatin1String end;
};

constexpr Ends horizontalEnds{QLatin1String("left"), QLatin1String("right")};
constexpr Ends verticalEnds{QLatin1String("top"), QLatin1String("bottom")};

ImagePosition::Place placeOfSlider(int value)
{
    const bool isPlace = value >= ImagePosition::Start && value <= ImagePosition::End;
    return isPlace ? static_cast<ImagePosition::Place>(value) : ImagePosition::Centre;
}

ImagePosition::Place readPlace(const QString &text, const Ends &ends)
{
    if (text.contains(ends.start))
        return ImagePosition::Start;
    return text.contains(ends.end) ? ImagePosition::End : ImagePosition::Centre;
}

void appendPlace(QStringList &words, ImagePosition::Place place, const Ends &ends)
{
    if (place != ImagePosition::Centre)
        words.append(place == ImagePosition::Start ? ends.start : ends.end);
}

int offsetAlong(int page, int image, ImagePosition::Place place)
{
    return (page - image) * place / 2;
}
} // namespace

ImagePosition ImagePosition::fromSliders(int horizontal, int vertical)
{
    return {placeOfSlider(horizontal), placeOfSlider(vertical)};
}

ImagePosition ImagePosition::fromOption(const QString &text)
{
    return {readPlace(text, horizontalEnds), readPlace(text, verticalEnds)};
}

QString ImagePosition::toOption() const
{
    QStringList words;
    appendPlace(words, vertical, verticalEnds);
    appendPlace(words, horizontal, horizontalEnds);
    return words.join(QLatin1Char('-'));
}

QPoint ImagePosition::offset(QSize page, QSize image) const
{
    return {offsetAlong(page.width(), image.width(), horizontal),
            offsetAlong(page.height(), image.height(), vertical)};
}
