#pragma once

#include "IsolatedText.h"

/** Shows the choices of an option with as much room between them as the rows of the tree have. */
class ChoiceDelegate : public IsolatedTextDelegate
{
public:
    using IsolatedTextDelegate::IsolatedTextDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return IsolatedTextDelegate::sizeHint(option, index).grownBy({0, room, 0, room});
    }

private:
    static constexpr int room = 3;
};
