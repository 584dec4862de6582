#pragma once

#include <QStyledItemDelegate>

/** Texts of somebody else, a driver or a server, among texts that may run from right to left. */

/** The text, so that it keeps its own direction and order where all around it runs so. */
QString isolated(const QString &text, Qt::LayoutDirection direction);

/** Shows the texts of a list isolated; the list's data stay as they are. */
class IsolatedTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
