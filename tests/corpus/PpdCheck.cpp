#include "PpdCheck.h"

#include "EditorCheck.h"
#include "Expected.h"
#include "PPDOptionView.h"
#include "Walk.h"

#include <QFile>

#include <cstdio>
#include <cstring>

namespace
{
/**
 * Marks every shown choice in the order in which the rows are made. A mark can take another one
 * away: that of `InputSlot` takes that of `ManualFeed`.
 */
void markShownChoices(ppd_file_t &ppd, const ppd_group_t &group)
{
    const auto options = Walk::options(group);
    for (auto option = options.rbegin(); option != options.rend(); ++option) {
        const ppd_choice_t *choice = Expected::shownChoice(*option);
        const bool custom = ppdFindCustomOption(&ppd, option->keyword) && choice &&
                            std::strncmp(choice->choice, "Custom", 6) == 0;
        if (choice && !custom && Expected::hasRow(*option))
            ppdMarkOption(&ppd, option->keyword, choice->choice);
    }
    const auto subgroups = Walk::subgroups(group);
    for (auto subgroup = subgroups.rbegin(); subgroup != subgroups.rend(); ++subgroup)
        markShownChoices(ppd, *subgroup);
}

/** Marks what the tree shows when it is opened. What was marked before stays so. */
void showChoices(ppd_file_t &ppd)
{
    const std::vector<ppd_option_t *> options = Walk::allOptions(ppd);
    const QByteArray before = Walk::marks(options);
    for (const ppd_group_t &group : Walk::groups(ppd))
        markShownChoices(ppd, group);
    qsizetype index = 0;
    for (const ppd_option_t *option : options) {
        for (const ppd_choice_t &choice : Walk::choices(*option)) {
            if (before.at(index++) == '1' && !choice.marked && Expected::hasRow(*option))
                ppdMarkOption(&ppd, option->keyword, choice.choice);
        }
    }
}

Cups::PpdPtr opened(const QString &path)
{
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(QFile::encodeName(path).constData()));
    if (ppd)
        ppdMarkDefaults(ppd.get());
    return ppd;
}
} // namespace

PpdCheck::PpdCheck(const QString &path, Counts &counts)
    : m_report{path, counts}
{
}

void PpdCheck::run()
{
    if (!open())
        return;
    ++m_report.counts.ppds;
    reportDifferingTexts();

    PPDTreeView tree(nullptr);
    PPDOptionView pane(nullptr);
    tree.setColumnCount(1);
    QObject::connect(&tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &pane,
                     &PPDOptionView::setOption);
    QObject::connect(&pane, &PPDOptionView::optionChanged, &tree, &PPDTreeView::checkConstraints);
    tree.setPPD(m_ppds.shown.get());

    TreeCheck rows(m_ppds, tree, pane, m_report);
    rows.compareRows();
    showChoices(*m_ppds.plain);
    rows.compareState(QStringLiteral("just opened"));
    EditorCheck editors(m_ppds, tree, pane, rows, m_report);
    editors.selectRows();
    editors.changeRows();
    tree.setPPD(nullptr);
}

bool PpdCheck::open()
{
    m_ppds = {opened(m_report.path), opened(m_report.path)};
    if (m_ppds.shown && m_ppds.plain)
        return true;
    m_report.fail(QStringLiteral("cannot be opened"));
    return false;
}

void PpdCheck::reportDifferingTexts()
{
    const QStringList texts = Walk::differingTexts(*m_ppds.plain);
    for (const QString &text : texts)
        std::printf("TEXT %s: %s\n", qUtf8Printable(m_report.path), qUtf8Printable(text));
    m_report.counts.differingTexts += texts.isEmpty() ? 0 : 1;
}
