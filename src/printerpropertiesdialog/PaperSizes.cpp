#include "PaperSizes.h"

#include <QLatin1String>

#include <algorithm>
#include <iterator>

namespace
{
struct Paper {
    QLatin1String name;
    int width;
    int height;
};

constexpr Paper letter{QLatin1String("Letter"), 612, 792};

constexpr Paper papers[] = {
    letter,
    {QLatin1String("Legal"), 612, 1008},
    {QLatin1String("A4"), 595, 842},
    {QLatin1String("Executive"), 522, 756},
    {QLatin1String("Folio"), 612, 936},
    {QLatin1String("JB5"), 516, 729},
    {QLatin1String("B5"), 499, 709},
    {QLatin1String("A5"), 420, 595},
    {QLatin1String("COM10"), 297, 684},
    {QLatin1String("Monarch"), 279, 540},
    {QLatin1String("DL"), 312, 624},
    {QLatin1String("C5"), 459, 649},
    {QLatin1String("C6"), 323, 459},
};
} // namespace

QSize PaperSizes::inPoints(QStringView choiceText)
{
    const auto isNamed = [choiceText](const Paper &paper) {
        return choiceText.compare(paper.name, Qt::CaseInsensitive) == 0;
    };
    const Paper *found = std::find_if(std::begin(papers), std::end(papers), isNamed);
    const Paper &paper = found == std::end(papers) ? letter : *found;
    return {paper.width, paper.height};
}

QSize PaperSizes::visible(QSize paper, PageOrientation orientation)
{
    return orientation.landscape ? paper.transposed() : paper;
}
