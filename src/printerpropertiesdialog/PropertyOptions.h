#pragma once

#include <QLatin1StringView>

/** The job options that the properties dialog reads and writes, with their values. */
namespace PropertyOptions
{
constexpr QLatin1StringView pageSize("PageSize");
constexpr QLatin1StringView mediaType("MediaType");
constexpr QLatin1StringView resolution("Resolution");

constexpr QLatin1StringView orientationRequested("orientation-requested");
constexpr QLatin1StringView landscape("landscape");

/** The driver's option and its values. */
constexpr QLatin1StringView duplex("Duplex");
constexpr QLatin1StringView duplexNoTumble("DuplexNoTumble");
constexpr QLatin1StringView duplexTumble("DuplexTumble");
constexpr QLatin1StringView duplexNone("None");

/** The server's option and its values. */
constexpr QLatin1StringView sides("sides");
constexpr QLatin1StringView oneSided("one-sided");
constexpr QLatin1StringView twoSidedLongEdge("two-sided-long-edge");
constexpr QLatin1StringView twoSidedShortEdge("two-sided-short-edge");

constexpr QLatin1StringView jobSheets("job-sheets");
constexpr QLatin1StringView numberUp("number-up");

constexpr QLatin1StringView pageLeft("page-left");
constexpr QLatin1StringView pageRight("page-right");
constexpr QLatin1StringView pageTop("page-top");
constexpr QLatin1StringView pageBottom("page-bottom");
constexpr QLatin1StringView cpi("cpi");
constexpr QLatin1StringView lpi("lpi");
constexpr QLatin1StringView columns("columns");
constexpr QLatin1StringView prettyPrint("prettyprint");

constexpr QLatin1StringView brightness("brightness");
constexpr QLatin1StringView gamma("gamma");
constexpr QLatin1StringView hue("hue");
constexpr QLatin1StringView saturation("saturation");
constexpr QLatin1StringView ppi("ppi");
constexpr QLatin1StringView scaling("scaling");
constexpr QLatin1StringView position("position");
} // namespace PropertyOptions
