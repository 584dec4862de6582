#include "PageAndCopies.h"

#include "PrintDialogOptions.h"

#include <QMap>

#include <array>

using namespace PrintDialogOptions;

namespace
{
/** An option value and what it stands for. */
template <typename Meaning> struct Word {
    QLatin1StringView value;
    Meaning meaning;
};

constexpr std::array pageSets{
    Word<PageAndCopies::Pages>{evenPages, PageAndCopies::EvenPages},
    Word<PageAndCopies::Pages>{oddPages, PageAndCopies::OddPages},
    Word<PageAndCopies::Pages>{allPages, PageAndCopies::AllPages},
};

constexpr std::array documentHandlings{
    Word<bool>{singleDocument, true},
    Word<bool>{collatedCopies, true},
    Word<bool>{singleDocumentNewSheet, true},
    Word<bool>{uncollatedCopies, false},
};

template <typename Meaning, size_t count>
std::optional<Meaning> meaningOf(const QString &value,
                                 const std::array<Word<Meaning>, count> &words)
{
    for (const Word<Meaning> &word : words) {
        if (value == word.value)
            return word.meaning;
    }
    return std::nullopt;
}

QMap<QString, QString> sorted(const Cups::OptionArray &options)
{
    QMap<QString, QString> map;
    for (const cups_option_t &option : options)
        map.insert(QString::fromLatin1(option.name), QString::fromLocal8Bit(option.value));
    return map;
}

void take(PageAndCopies &choice, const QString &name, const QString &value)
{
    if (name == copies) {
        choice.copies = value.toInt();
    } else if (name == pageSet) {
        choice.pages = meaningOf(value, pageSets).value_or(choice.pages);
    } else if (name == pageRanges) {
        choice.pages = PageAndCopies::SomePages;
        choice.pageText = value;
    } else if (name == collate) {
        choice.collate = value.contains(on, Qt::CaseInsensitive);
    } else if (name == outputOrder) {
        choice.reverse = value == reverseOrder;
    }
}
} // namespace

PageAndCopies PageAndCopies::fromOptions(const Cups::OptionArray &options)
{
    PageAndCopies choice;
    const QMap<QString, QString> inOrder = sorted(options);
    for (auto option = inOrder.begin(); option != inOrder.end(); ++option)
        take(choice, option.key(), option.value());
    return choice;
}

QList<std::pair<QString, QString>> PageAndCopies::toOptions() const
{
    QList<std::pair<QString, QString>> options;
    if (pages == EvenPages)
        options.append({pageSet, evenPages});
    else if (pages == OddPages)
        options.append({pageSet, oddPages});
    else if (pages == SomePages)
        options.append({pageRanges, pageText});

    if (copies > 1) {
        options.append({PrintDialogOptions::copies, QString::number(copies)});
        options.append({PrintDialogOptions::collate, collate ? on : off});
        options.append({multipleDocumentHandling, collate ? collatedCopies : uncollatedCopies});
    }
    if (reverse)
        options.append({outputOrder, reverseOrder});
    return options;
}

std::optional<bool> PageAndCopies::collates(const QString &documentHandling)
{
    return meaningOf(documentHandling, documentHandlings);
}

QString PageAndCopies::pictureFile(bool collate, bool reverse)
{
    return QLatin1StringView(collate ? "collate" : "uncollate") +
           QLatin1StringView(reverse ? "_rev.png" : ".png");
}
