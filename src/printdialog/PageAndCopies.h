#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QString>

#include <optional>
#include <utility>

/** What the pages and copies half of the print dialog asks for. */
struct PageAndCopies {
    /** The values are the ids of the dialog's radio buttons. */
    enum Pages { AllPages, EvenPages, OddPages, SomePages };

    Pages pages = AllPages;
    /** A list of pages for SomePages, as typed. */
    QString pageText;
    int copies = 1;
    bool collate = true;
    bool reverse = false;

    friend bool operator==(const PageAndCopies &, const PageAndCopies &) = default;

    /**
     * Reads the job options. They are taken in the order of their names' code units, so
     * `page-set` has the last word over `page-ranges`. Copies that are no number become 0.
     */
    static PageAndCopies fromOptions(const Cups::OptionArray &options);
    /** The job options (name, value) to set for this choice, in that order; defaults set nothing.
     */
    QList<std::pair<QString, QString>> toOptions() const;

    /** Whether a `multiple-document-handling` collates; nothing when it does not say. */
    static std::optional<bool> collates(const QString &documentHandling);
    /** The picture file that shows how the pages of the copies come out. */
    static QString pictureFile(bool collate, bool reverse);
};
