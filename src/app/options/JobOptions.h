#pragma once

/** The job options that the program itself reads or writes, and the values that it knows by name.
 */
namespace JobOptions
{
constexpr char copies[] = "copies";
constexpr char jobSheets[] = "job-sheets";
constexpr char jobTitle[] = "job-title";
constexpr char media[] = "media";
constexpr char prettyPrint[] = "prettyprint";

/** PPD keywords that `media` can spell out. */
constexpr char pageSize[] = "PageSize";
constexpr char mediaType[] = "MediaType";
constexpr char inputSlot[] = "InputSlot";

/** No banner page. */
constexpr char noSheets[] = "none";
} // namespace JobOptions
