#include "Expected.h"

#include "Walk.h"

#include <QHash>
#include <QImage>
#include <QSet>

#include <algorithm>
#include <cstring>
#include <utility>

namespace
{
QString optionPath(const QString &file)
{
    return QLatin1String(":/option/images/") + file;
}

QString groupPath(const char *file)
{
    return QLatin1String(":/group/images/") + QLatin1String(file);
}

/** By keyword in lower case. */
QString keywordFile(const QString &keyword)
{
    static const QHash<QString, QString> files{
        {QStringLiteral("pagesize"), QStringLiteral("pagesize.png")},
        {QStringLiteral("mediatype"), QStringLiteral("pagesize.png")},
        {QStringLiteral("quality"), QStringLiteral("pagesize.png")},
        {QStringLiteral("inputslot"), QStringLiteral("inputslot.png")},
        {QStringLiteral("brightness"), QStringLiteral("brightness.png")},
        {QStringLiteral("colormodel"), QStringLiteral("color_opt.png")},
        {QStringLiteral("grayscale"), QStringLiteral("color_opt.png")},
        {QStringLiteral("yellow"), QStringLiteral("yellow.png")},
        {QStringLiteral("cyan"), QStringLiteral("cyan.png")},
        {QStringLiteral("magenta"), QStringLiteral("magenta.png")},
        {QStringLiteral("gamma"), QStringLiteral("gamma.png")},
        {QStringLiteral("duplex"), QStringLiteral("duplex.png")},
        {QStringLiteral("gsresolution"), QStringLiteral("gsresol.png")},
        {QStringLiteral("resolution"), QStringLiteral("resol.png")},
        {QStringLiteral("saturation"), QStringLiteral("saturation.png")},
        {QStringLiteral("contrast"), QStringLiteral("contrast.png")},
        {QStringLiteral("dither"), QStringLiteral("dither.png")},
        {QStringLiteral("dithering"), QStringLiteral("dither.png")},
        {QStringLiteral("imagetype"), QStringLiteral("imagetype.png")},
    };
    const qsizetype prefix = keyword.startsWith(QLatin1String("stp")) ? 3 : 0;
    return files.value(keyword.mid(prefix), QStringLiteral("list.png"));
}

QStringList markedTexts(const ppd_option_t &option)
{
    QStringList texts;
    for (const ppd_choice_t &choice : Walk::choices(option)) {
        if (choice.marked)
            texts.append(QString::fromUtf8(choice.text));
    }
    return texts;
}

void appendConflicts(const ppd_group_t &group, QString &lines)
{
    for (const ppd_group_t &subgroup : Walk::subgroups(group))
        appendConflicts(subgroup, lines);
    for (const ppd_option_t &option : Walk::options(group)) {
        const QStringList texts = option.conflicted ? markedTexts(option) : QStringList();
        if (!texts.isEmpty())
            lines += QLatin1String("\n  ") + QString::fromLatin1(option.text) +
                     QLatin1String(" = ") + texts.join(QLatin1Char(','));
    }
}
} // namespace

namespace Expected
{
bool hasRow(const ppd_option_t &option)
{
    return std::strcmp(option.keyword, "PageRegion") != 0;
}

bool isFixed(const ppd_group_t &group)
{
    return QString::fromUtf8(group.text).contains(QLatin1String("install"), Qt::CaseInsensitive);
}

const ppd_choice_t *shownChoice(const ppd_option_t &option)
{
    const ppd_choice_t *marked = nullptr;
    const ppd_choice_t *defaultChoice = nullptr;
    for (const ppd_choice_t &choice : Walk::choices(option)) {
        if (choice.marked)
            marked = &choice;
        if (std::strcmp(choice.choice, option.defchoice) == 0)
            defaultChoice = &choice;
    }
    return marked ? marked : defaultChoice;
}

int customListRow(const ppd_option_t &option)
{
    int row = std::min(option.num_choices, 1) - 1;
    for (int i = 0; i < option.num_choices; ++i) {
        if (option.choices[i].marked)
            row = i;
    }
    return row;
}

bool isCustom(const ppd_choice_t &choice)
{
    return std::strcmp(choice.choice, "Custom") == 0;
}

Page page(ppd_file_t *ppd, const ppd_option_t &option)
{
    switch (option.ui) {
    case PPD_UI_BOOLEAN:
        return BooleanPage;
    case PPD_UI_PICKONE:
        return ppdFindCustomOption(ppd, option.keyword) ? CustomPage : ListPage;
    default:
        return EmptyPage;
    }
}

QString rowText(const ppd_option_t &option, const ppd_choice_t *choice)
{
    return QString::fromUtf8(option.text) + QLatin1String(": <") +
           (choice ? QString::fromUtf8(choice->text) : QStringLiteral("Undefined")) +
           QLatin1Char('>');
}

QString rowPicture(const ppd_option_t &option, const ppd_choice_t *choice)
{
    if (option.ui != PPD_UI_BOOLEAN)
        return optionPath(keywordFile(QString::fromLatin1(option.keyword).toLower()));
    if (!choice)
        return {};
    return optionPath(std::strcmp(choice->choice, "True") == 0 ? QStringLiteral("bool_on.png")
                                                               : QStringLiteral("bool_off.png"));
}

QString groupPicture(const ppd_group_t &group)
{
    if (std::strcmp(group.text, "Extra") == 0)
        return groupPath("printer_extra.png");
    if (std::strcmp(group.text, "JCL") == 0)
        return groupPath("printer_jcl.png");
    return groupPath(isFixed(group) ? "printer_install.png" : "printer_general.png");
}

QString rootPicture()
{
    return groupPath("printer.png");
}

bool isPicture(const QPixmap &pixmap, const QString &path)
{
    if (path.isEmpty() || pixmap.isNull())
        return path.isEmpty() && pixmap.isNull();
    // No two pictures of a run have the same key: each is compared with its resource once.
    static QSet<std::pair<qint64, QString>> compared;
    if (compared.contains({pixmap.cacheKey(), path}))
        return true;
    const QPixmap resource(path);
    const bool same = !resource.isNull() && pixmap.toImage() == resource.toImage();
    if (same)
        compared.insert({pixmap.cacheKey(), path});
    return same;
}

QString conflictText(const ppd_file_t &ppd)
{
    QString lines;
    for (const ppd_group_t &group : Walk::groups(ppd))
        appendConflicts(group, lines);
    if (lines.isEmpty())
        return {};
    return QLatin1String("You selected options that are in conflict. Try to resolve the\n"
                         "problem before continuing:\n") +
           lines;
}
} // namespace Expected
