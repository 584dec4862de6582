#pragma once

#include <QLatin1StringView>

/** The job options that the print dialog reads and writes, with their values. */
namespace PrintDialogOptions
{
constexpr QLatin1StringView copies("copies");
constexpr QLatin1StringView scaling("scaling");

constexpr QLatin1StringView pageRanges("page-ranges");
constexpr QLatin1StringView pageSet("page-set");
constexpr QLatin1StringView evenPages("even");
constexpr QLatin1StringView oddPages("odd");
constexpr QLatin1StringView allPages("all");

constexpr QLatin1StringView collate("Collate");
constexpr QLatin1StringView on("True");
constexpr QLatin1StringView off("False");

constexpr QLatin1StringView multipleDocumentHandling("multiple-document-handling");
constexpr QLatin1StringView singleDocument("single-document");
constexpr QLatin1StringView singleDocumentNewSheet("single-document-new-sheet");
constexpr QLatin1StringView collatedCopies("separate-documents-collated-copies");
constexpr QLatin1StringView uncollatedCopies("separate-documents-uncollated-copies");

constexpr QLatin1StringView outputOrder("OutputOrder");
constexpr QLatin1StringView reverseOrder("Reverse");
} // namespace PrintDialogOptions
