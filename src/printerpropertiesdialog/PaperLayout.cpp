#include "PaperLayout.h"

#include "PropertyOptions.h"

#include <algorithm>
#include <array>

namespace Option = PropertyOptions;

namespace
{
using namespace PaperLayout;

struct DuplexRow {
    Duplex id;
    QLatin1StringView driverValue;
    QLatin1StringView sides;
    QLatin1StringView picture;
};

/** By button id. */
constexpr std::array duplexTable{
    DuplexRow{DuplexOff, Option::duplexNone, Option::oneSided, QLatin1StringView("dupl_none.png")},
    DuplexRow{DuplexLongEdge, Option::duplexNoTumble, Option::twoSidedLongEdge,
              QLatin1StringView("dupl_long.png")},
    DuplexRow{DuplexShortEdge, Option::duplexTumble, Option::twoSidedShortEdge,
              QLatin1StringView("dupl_short.png")}};

const DuplexRow &rowOf(int id)
{
    const auto row = std::find_if(duplexTable.begin(), duplexTable.end(),
                                  [id](const DuplexRow &candidate) { return candidate.id == id; });
    return row == duplexTable.end() ? duplexTable.front() : *row;
}

constexpr std::array numbersUp{1, 2, 4};

/** The values of `orientation-requested`. */
enum Requested { Portrait = 3, Landscape = 4, ReverseLandscape = 5, ReversePortrait = 6 };
} // namespace

PageOrientation PaperLayout::orientation(int requested, bool landscape)
{
    const bool turned = requested == Landscape || requested == ReverseLandscape;
    return {.landscape = turned || landscape,
            .reversed = requested == ReverseLandscape || requested == ReversePortrait};
}

int PaperLayout::orientationRequested(PageOrientation orientation)
{
    if (orientation.landscape)
        return orientation.reversed ? ReverseLandscape : Landscape;
    return orientation.reversed ? ReversePortrait : Portrait;
}

QString PaperLayout::orientationPicture(PageOrientation orientation)
{
    return QStringLiteral("%1%2.png")
        .arg(orientation.landscape ? QStringLiteral("landscape") : QStringLiteral("portrait"),
             orientation.reversed ? QStringLiteral("_rev") : QString());
}

std::optional<Duplex> PaperLayout::duplexOfDriver(const QString &value)
{
    for (const DuplexRow &row : duplexTable) {
        if (value == row.driverValue)
            return row.id;
    }
    return std::nullopt;
}

Duplex PaperLayout::duplexOfSides(const QString &value)
{
    for (const DuplexRow &row : duplexTable) {
        if (value == row.sides)
            return row.id;
    }
    return DuplexOff;
}

QLatin1StringView PaperLayout::sides(int id)
{
    return rowOf(id).sides;
}

QString PaperLayout::duplexPicture(int id)
{
    return QString(rowOf(id).picture);
}

bool PaperLayout::isNumberUp(int number)
{
    return std::find(numbersUp.begin(), numbersUp.end(), number) != numbersUp.end();
}

QString PaperLayout::numberUpPicture(int number)
{
    return QStringLiteral("nup%1.png").arg(number);
}

QStringList PaperLayout::banners()
{
    return {QStringLiteral("none"),         QStringLiteral("classified"),
            QStringLiteral("confidential"), QStringLiteral("secret"),
            QStringLiteral("standard"),     QStringLiteral("topsecret"),
            QStringLiteral("unclassified")};
}

PaperLayout::JobSheets PaperLayout::JobSheets::fromOption(const QString &value)
{
    const QStringList names = value.split(u',');
    return {names.value(0), names.value(1)};
}

QString PaperLayout::JobSheets::toOption() const
{
    return start + u',' + end;
}
