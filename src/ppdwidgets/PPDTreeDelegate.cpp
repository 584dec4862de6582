#include "PPDTreeDelegate.h"

#include "PPDTreeView.h"

#include <QPainter>

namespace
{
/** The row of the tree's own column, else null. */
PPDTree::BaseItem *rowOf(const QWidget *view, const QModelIndex &index)
{
    const auto *tree = qobject_cast<const PPDTreeView *>(view);
    if (!tree || index.column() != 0)
        return nullptr;
    return dynamic_cast<PPDTree::BaseItem *>(tree->itemFromIndex(index));
}

QPalette::ColorGroup colorGroup(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

/** The palette of a cell, whose base is what the row has for background. */
QPalette cellPalette(const QStyleOptionViewItem &option)
{
    QPalette palette = option.palette;
    palette.setCurrentColorGroup(colorGroup(option.state));
    if (option.state & QStyle::State_Selected)
        palette.setBrush(QPalette::Base, palette.brush(QPalette::Highlight));
    return palette;
}

void paintFocus(QPainter *painter, const QStyleOptionViewItem &cell)
{
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(cell);
    focus.backgroundColor = cell.palette.color(QPalette::Base);
    cell.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, cell.widget);
}
} // namespace

void PPDTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    PPDTree::BaseItem *row = rowOf(option.widget, index);
    if (!row) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    painter->setFont(option.font);
    painter->translate(option.rect.topLeft());
    row->paintCell(painter, cellPalette(option), index.column(), option.rect.width(),
                   static_cast<int>(option.displayAlignment));
    painter->restore();
    if (option.state.testFlag(QStyle::State_HasFocus) &&
        !option.state.testFlag(QStyle::State_Selected))
        paintFocus(painter, option);
}

QSize PPDTreeDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const PPDTree::BaseItem *row = rowOf(option.widget, index);
    return row ? row->cellSizeHint() : QStyledItemDelegate::sizeHint(option, index);
}
