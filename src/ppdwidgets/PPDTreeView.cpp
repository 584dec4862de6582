#include "PPDTreeView.h"

#include "OptionPictures.h"
#include "PPDConflicts.h"
#include "PPDText.h"
#include "PPDTreeColors.h"
#include "PPDTreeDelegate.h"
#include "PpdMarks.h"

#include <QEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>

#include <algorithm>
#include <span>
#include <vector>

using PPDTree::BaseItem;

namespace
{
constexpr int treeColumn = 0;

/** How wide the column must be for `row` and the rows below it. */
int widest(const BaseItem &row, int left, int indentation)
{
    int width = left + row.rowWidth();
    for (const BaseItem *child : row.m_children)
        width = std::max(width, widest(*child, left + indentation, indentation));
    return width;
}

void forgetWidths(BaseItem &row)
{
    row.forgetWidth();
    for (BaseItem *child : row.m_children)
        forgetWidths(*child);
}
} // namespace

struct PPDTreeView::Mark {
    ppd_option_t *option;
    ppd_choice_t *choice;
};

PPDTreeView::PPDTreeView(QWidget *parent)
    : QTreeWidget(parent)
{
    setItemDelegate(new PPDTreeDelegate(this));
    setUniformRowHeights(true);
    setVerticalScrollMode(ScrollPerPixel);
    m_fitTimer.setSingleShot(true);
    connect(&m_fitTimer, &QTimer::timeout, this, &PPDTreeView::fitColumn);
}

PPDTreeView::~PPDTreeView()
{
    removeRows();
}

void PPDTreeView::setPPD(ppd_file_t *ppd)
{
    removeRows();
    if (!ppd)
        return;
    m_ppd = ppd;
    setSortingEnabled(false);
    m_root = new BaseItem(ppd, this);
    m_root->setText(treeColumn, PPDText::ascii(ppd->nickname));
    m_root->setPixmap(OptionPictures::root());
    m_root->setExpanded(true);
    const std::vector<Mark> marksBefore = marks();
    for (ppd_group_t &group : std::span(ppd->groups, static_cast<size_t>(ppd->num_groups)))
        new PPDTree::GroupItem(ppd, &group, m_root);
    m_root->addToDict(m_dict);
    for (const Mark &mark : marksBefore)
        restore(mark);
    refreshConflicts();
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(treeColumn, QHeaderView::ResizeToContents);
    fitColumn();
}

/** What is marked in the PPD. */
std::vector<PPDTreeView::Mark> PPDTreeView::marks() const
{
    std::vector<Mark> found;
    for (ppd_option_t *option : PpdMarks::options(m_ppd)) {
        for (ppd_choice_t &choice :
             std::span(option->choices, static_cast<size_t>(option->num_choices))) {
            if (choice.marked)
                found.push_back({option, &choice});
        }
    }
    return found;
}

void PPDTreeView::reloadFromPPD(ppd_file_t *ppd)
{
    if (m_root)
        m_root->updateFromPPD(ppd);
    checkConstraints();
}

int PPDTreeView::sizeHintForColumn(int column) const
{
    if (column != treeColumn || !m_root)
        return QTreeWidget::sizeHintForColumn(column);
    const int left = rootIsDecorated() ? indentation() : 0;
    return std::max(widest(*m_root, left, indentation()), viewport()->width());
}

void PPDTreeView::checkConstraints()
{
    refreshConflicts();
    const QString message = m_hasConflicts ? conflictMessage(m_ppd) : QString();
    if (message.isEmpty())
        return;
    // The view may die while the box is open, and takes the box with it.
    //: Title of a message about driver options that exclude each other.
    QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Warning, tr("Driver configuration"),
                                                message, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::Ok);
    box->exec();
    delete box;
}

void PPDTreeView::updateCustomPageSize(QString value)
{
    m_customPageSize = value;
}

void PPDTreeView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeWidget::selectionChanged(selected, deselected);
    emit selectionChanged(selectedItems().value(0));
}

void PPDTreeView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                              const QList<int> &roles)
{
    QTreeWidget::dataChanged(topLeft, bottomRight, roles);
    if (roles.contains(Qt::DisplayRole))
        m_fitTimer.start();
}

void PPDTreeView::initViewItemOption(QStyleOptionViewItem *option) const
{
    QTreeWidget::initViewItemOption(option);
    QPalette palette = option->palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setCurrentColorGroup(group);
        option->palette.setColor(group, QPalette::Highlight,
                                 PPDTreeColors::selectionColor(palette));
    }
}

void PPDTreeView::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    fitColumn();
}

void PPDTreeView::changeEvent(QEvent *event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    if (m_root)
        forgetWidths(*m_root);
    m_fitTimer.start();
}

/** Those who hold a row learn first that it is not selected any more. */
void PPDTreeView::removeRows()
{
    clearSelection();
    m_root = nullptr;
    m_ppd = nullptr;
    m_hasConflicts = false;
    m_dict.clear();
    clear();
}

void PPDTreeView::refreshConflicts()
{
    if (!m_root || !m_ppd)
        return;
    m_root->setConflict(false);
    m_hasConflicts = ppdConflicts(m_ppd) > 0;
    if (!m_hasConflicts)
        return;
    for (BaseItem *row : std::as_const(m_dict))
        row->checkConflict();
}

/**
 * A row whose option has no mark shows and marks its default, and that may have taken the mark of
 * another option away: InputSlot has none where ManualFeed has one.
 */
void PPDTreeView::restore(const Mark &mark)
{
    if (mark.choice->marked)
        return;
    const QList<BaseItem *> rows = m_dict.values(PPDText::ascii(mark.option->keyword));
    for (BaseItem *row : rows) {
        auto *const option = static_cast<PPDTree::OptionItem *>(row);
        if (option->m_option != mark.option)
            continue;
        ppdMarkOption(m_ppd, mark.option->keyword, mark.choice->choice);
        option->setChoice(mark.choice);
    }
}

void PPDTreeView::fitColumn()
{
    if (m_root)
        resizeColumnToContents(treeColumn);
}
