#include "IsolatedText.h"

QString isolated(const QString &text, Qt::LayoutDirection direction)
{
    constexpr QChar firstStrongIsolate(0x2068), popDirectionalIsolate(0x2069);
    return direction == Qt::RightToLeft ? firstStrongIsolate + text + popDirectionalIsolate : text;
}

void IsolatedTextDelegate::initStyleOption(QStyleOptionViewItem *option,
                                           const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = isolated(option->text, option->direction);
}
