#include "PPDConflicts.h"

#include "PPDText.h"
#include "PpdMarks.h"

#include <QCoreApplication>

#include <span>

namespace
{
QStringList markedTexts(const ppd_option_t &option)
{
    QStringList texts;
    for (const ppd_choice_t &choice :
         std::span(option.choices, static_cast<size_t>(option.num_choices))) {
        if (choice.marked)
            texts.append(PPDText::utf8(choice.text));
    }
    return texts;
}

QStringList conflictLines(const ppd_file_t *ppd)
{
    QStringList lines;
    for (const ppd_option_t *option : PpdMarks::options(ppd)) {
        const QStringList choices = option->conflicted ? markedTexts(*option) : QStringList();
        if (!choices.isEmpty())
            lines.append(QStringLiteral("%1 = %2").arg(PPDText::ascii(option->text),
                                                       choices.join(QLatin1Char(','))));
    }
    return lines;
}
} // namespace

QString conflictMessage(const ppd_file_t *ppd)
{
    QStringList lines = ppd ? conflictLines(ppd) : QStringList();
    if (lines.isEmpty())
        return {};
    //: Followed by a list of the options.
    lines.prepend(QCoreApplication::translate(
        "PPDTreeView", "You selected options that are in conflict. Try to resolve the\n"
                       "problem before continuing:\n"));
    return lines.join(QLatin1StringView("\n  "));
}

QStringList markedOptionList(const ppd_file_t *ppd)
{
    return PpdMarks::list(ppd);
}
