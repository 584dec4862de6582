#include "PPDTreeItems.h"

#include "IsolatedText.h"
#include "OptionPictures.h"
#include "PPDText.h"
#include "PPDTreeColors.h"

#include <QCoreApplication>
#include <QPainter>
#include <QStyle>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <ranges>
#include <span>

using PPDTreeColors::Role;
using PPDTreeColors::textColor;

namespace
{
constexpr int treeColumn = 0;
constexpr char pageRegion[] = "PageRegion";
constexpr QLatin1StringView customPrefix("Custom");
/** Around the value of an option. */
constexpr QLatin1StringView opening(": <");
constexpr QLatin1StringView closing(">");
/** The pictures' height; rows without a picture are as high as those that have one. */
constexpr int pictureHeight = 16;

template <typename T> std::span<T> spanOf(T *first, int count)
{
    return {first, static_cast<size_t>(count)};
}

std::span<ppd_choice_t> choicesOf(const ppd_option_t &option)
{
    return spanOf(option.choices, option.num_choices);
}

/** The last marked choice, else the last of the default's keyword, else null. */
ppd_choice_t *initialChoice(const ppd_option_t &option)
{
    const auto backwards = choicesOf(option) | std::views::reverse;
    auto found = std::ranges::find_if(backwards, [](const auto &choice) { return choice.marked; });
    if (found == backwards.end())
        found = std::ranges::find_if(backwards, [&option](const ppd_choice_t &choice) {
            return std::strcmp(choice.choice, option.defchoice) == 0;
        });
    return found == backwards.end() ? nullptr : &*found;
}

/** Whether `choice` is the option's mark, and its only one where there can be but one. */
bool isMarkedAlready(ppd_file_t *ppd, ppd_option_t *option, const ppd_choice_t *choice)
{
    const auto marks = std::ranges::count_if(choicesOf(*option),
                                             [](const auto &each) { return each.marked != 0; });
    return choice->marked && (marks == 1 || option->ui == PPD_UI_PICKMANY) &&
           ppdFindOption(ppd, option->keyword) == option &&
           ppdFindChoice(option, choice->choice) == choice;
}

/**
 * Marks a choice, unless it is marked: to mark it again could take other marks away, such as that
 * of ManualFeed for InputSlot. Besides, the library checks all constraints with every mark, which
 * would be most of the time that the tree of a large driver takes.
 */
void mark(ppd_file_t *ppd, ppd_option_t *option, const ppd_choice_t *choice)
{
    if (!isMarkedAlready(ppd, option, choice))
        ppdMarkOption(ppd, option->keyword, choice->choice);
}

QString rowText(const QString &name, const QString &value)
{
    return name + opening + value + closing;
}

/** `value` without its fraction, within the range of an integer. */
QString truncatedText(double value)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value))
        return QStringLiteral("0");
    return QString::number(
        static_cast<int>(std::clamp<double>(value, Limits::min(), Limits::max())));
}

double markedNumber(ppd_file_t *ppd, const ppd_option_t &option)
{
    const ppd_choice_t *choice = ppdFindMarkedChoice(ppd, option.keyword);
    return choice ? PPDText::utf8(choice->text).toDouble() : 0;
}

int margin(const QWidget &widget)
{
    return widget.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &widget) + 1;
}

int shownWidth(const QPixmap &pixmap)
{
    return static_cast<int>(std::ceil(pixmap.deviceIndependentSize().width()));
}

int shownHeight(const QPixmap &pixmap)
{
    return static_cast<int>(std::ceil(pixmap.deviceIndependentSize().height()));
}
} // namespace

namespace PPDTree
{
const int BaseItem::ms_drawTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip;

BaseItem::BaseItem(ppd_file_t *ppd, QTreeWidget *tree)
    : m_ppd(ppd)
{
    tree->insertTopLevelItem(0, this);
}

BaseItem::BaseItem(ppd_file_t *ppd, BaseItem *parent)
    : m_ppd(ppd)
{
    parent->insertChild(0, this);
    parent->m_children.append(this);
}

QVariant BaseItem::data(int column, int role) const
{
    if (role != Qt::AccessibleTextRole || column != treeColumn)
        return QTreeWidgetItem::data(column, role);
    if (!m_conflict)
        return text(treeColumn);
    //: Follows the name of a driver option, for screen readers: "Duplex: <On>, in conflict".
    return text(treeColumn) + QCoreApplication::translate("PPDTreeView", ", in conflict");
}

void BaseItem::setConflict(bool on)
{
    const bool changed = m_conflict != on;
    m_conflict = on;
    if (!on) {
        for (BaseItem *child : std::as_const(m_children))
            child->setConflict(false);
    } else if (depth() > 1) {
        parentRow()->setConflict(true);
    }
    if (changed)
        emitDataChanged();
}

void BaseItem::paintText(QPainter *painter, const QPalette &palette, int x)
{
    const bool isLeaf = childCount() == 0;
    const bool showsConflict = m_conflict && (isLeaf ? depth() > 1 && !m_numeric : !isExpanded());
    const Role role = isSelected() ? Role::Selected : showsConflict ? Role::Conflict : Role::Text;
    paintPiece(painter, x, isolated(text(treeColumn), treeWidget()->layoutDirection()),
               textColor(palette, role));
}

void BaseItem::addToDict(Dict &dict)
{
    for (BaseItem *child : std::as_const(m_children))
        child->addToDict(dict);
}

void BaseItem::checkConflict() {}

void BaseItem::updateFromPPD(ppd_file_t *ppd)
{
    for (BaseItem *child : std::as_const(m_children))
        child->updateFromPPD(ppd);
}

void BaseItem::paintCell(QPainter *painter, const QPalette &palette, int column, int width,
                         int /*alignment*/)
{
    if (column != treeColumn)
        return;
    const QTreeWidget &tree = *treeWidget();
    const QRect cell(0, 0, width, tree.visualItemRect(this).height());
    painter->fillRect(cell, palette.brush(QPalette::Base));
    const QPixmap picture = pixmap();
    if (!picture.isNull()) {
        const QRect place(margin(tree), (cell.height() - shownHeight(picture)) / 2,
                          shownWidth(picture), shownHeight(picture));
        painter->drawPixmap(QStyle::visualRect(tree.layoutDirection(), cell, place), picture);
    }
    paintText(painter, palette, textLeft());
}

int BaseItem::depth() const
{
    int depth = 0;
    for (const QTreeWidgetItem *above = parent(); above; above = above->parent())
        ++depth;
    return depth;
}

QPixmap BaseItem::pixmap() const
{
    return qvariant_cast<QPixmap>(data(treeColumn, Qt::DecorationRole));
}

void BaseItem::setPixmap(const QPixmap &pixmap)
{
    setData(treeColumn, Qt::DecorationRole, pixmap);
    forgetWidth();
}

QSize BaseItem::cellSizeHint() const
{
    const QTreeWidget &tree = *treeWidget();
    return {rowWidth(), std::max(tree.fontMetrics().height(), pictureHeight) + 2 * margin(tree)};
}

void BaseItem::forgetWidth()
{
    m_width = -1;
}

BaseItem *BaseItem::parentRow() const
{
    return static_cast<BaseItem *>(parent());
}

void BaseItem::setRowText(const QString &text)
{
    forgetWidth();
    setText(treeColumn, text);
}

QColor BaseItem::valueColor(const QPalette &palette) const
{
    return textColor(palette, m_conflict ? Role::Conflict : Role::Choice);
}

void BaseItem::paintPieces(QPainter *painter, const QPalette &palette, int x, const QString &name,
                           const QString &value, const QColor &valueColor) const
{
    const QColor white = textColor(palette, Role::Selected);
    const QColor plain = isSelected() ? white : textColor(palette, Role::Text);
    const Qt::LayoutDirection direction = treeWidget()->layoutDirection();
    x += paintPiece(painter, x, isolated(name, direction) + opening, plain);
    x += paintPiece(painter, x, isolated(value, direction), isSelected() ? white : valueColor);
    paintPiece(painter, x, closing, plain);
}

/** Returns the width of the piece, after which the next one begins. */
int BaseItem::paintPiece(QPainter *painter, int x, const QString &text, const QColor &color) const
{
    const QTreeWidget &tree = *treeWidget();
    const QRect cell(QPoint(), tree.visualItemRect(this).size());
    const int width = painter->fontMetrics().horizontalAdvance(text);
    painter->setPen(color);
    painter->setLayoutDirection(tree.layoutDirection());
    painter->drawText(
        QStyle::visualRect(tree.layoutDirection(), cell, QRect(x, 0, width, cell.height())),
        ms_drawTextFlags, text);
    return width;
}

/** Where the text begins: right of the picture. */
int BaseItem::textLeft() const
{
    const int gap = margin(*treeWidget());
    const QPixmap picture = pixmap();
    return picture.isNull() ? gap : gap + shownWidth(picture) + gap;
}

int BaseItem::rowWidth() const
{
    if (m_width < 0) {
        const QTreeWidget &tree = *treeWidget();
        m_width =
            textLeft() + tree.fontMetrics().horizontalAdvance(text(treeColumn)) + 2 * margin(tree);
    }
    return m_width;
}

GroupItem::GroupItem(ppd_file_t *ppd, ppd_group_t *group, BaseItem *parent)
    : BaseItem(ppd, parent)
    , m_group(group)
{
    const QString text = PPDText::ascii(group->text);
    setPixmap(OptionPictures::group(OptionPictures::groupFile(text)));
    setRowText(text);
    setExpanded(true);
    const bool editable = !OptionPictures::isInstallGroup(text);
    for (ppd_option_t &option : spanOf(group->options, group->num_options) | std::views::reverse) {
        if (std::strcmp(option.keyword, pageRegion) == 0)
            continue;
        if (ppd_coption_t *custom = ppdFindCustomOption(ppd, option.keyword))
            new CustomOptionItem(ppd, &option, custom, this, editable);
        else
            new OptionItem(ppd, &option, this, editable);
    }
    for (ppd_group_t &subgroup :
         spanOf(group->subgroups, group->num_subgroups) | std::views::reverse)
        new GroupItem(ppd, &subgroup, this);
}

OptionItem::OptionItem(ppd_file_t *ppd, ppd_option_t *option, BaseItem *parent, bool editable)
    : BaseItem(ppd, parent)
    , m_option(option)
    , m_editable(editable)
{
    setPixmap(OptionPictures::option(OptionPictures::optionFile(
        PPDText::ascii(option->keyword), QLatin1StringView(OptionPictures::ListPicture))));
    setChoice(initialChoice(*option));
}

void OptionItem::paintText(QPainter *painter, const QPalette &palette, int x)
{
    paintPieces(painter, palette, x, PPDText::utf8(m_option->text), valueText(),
                m_choice ? valueColor(palette) : textColor(palette, Role::Text));
}

void OptionItem::addToDict(Dict &dict)
{
    dict.insert(PPDText::ascii(m_option->keyword), this);
}

void OptionItem::checkConflict()
{
    if (m_option->conflicted)
        setConflict(true);
}

void OptionItem::updateFromPPD(ppd_file_t *ppd)
{
    setChoice(ppdFindMarkedChoice(ppd, m_option->keyword));
}

void OptionItem::setChoice(ppd_choice_t *choice)
{
    m_choice = choice;
    if (m_option->ui == PPD_UI_BOOLEAN)
        setPixmap(choice ? OptionPictures::option(
                               OptionPictures::booleanFile(PPDText::ascii(choice->choice)))
                         : QPixmap());
    if (choice && m_ppd && !isMarkedByValue())
        mark(m_ppd, m_option, choice);
    updateText();
}

void OptionItem::setChoiceIndex(int index)
{
    const std::span<ppd_choice_t> choices = choicesOf(*m_option);
    if (choices.empty()) {
        setChoice(nullptr);
        return;
    }
    const auto position = static_cast<size_t>(std::max(index, 0));
    setChoice(&choices[position < choices.size() ? position : 0]);
}

void OptionItem::updateText()
{
    setRowText(rowText(PPDText::utf8(m_option->text), valueText()));
}

QString OptionItem::valueText() const
{
    //: The value of a driver option of which nothing is chosen: "Duplex: <Undefined>".
    return m_choice ? PPDText::utf8(m_choice->text)
                    : QCoreApplication::translate("PPDTreeView", "Undefined");
}

/** Whether the choice is a custom one, which setCustomValue marks together with its value. */
bool OptionItem::isMarkedByValue() const
{
    const QString choice = PPDText::ascii(m_choice->choice);
    return ppdFindCustomOption(m_ppd, m_option->keyword) &&
           (choice.startsWith(customPrefix) || choice.startsWith(QLatin1Char('{')));
}

CustomOptionItem::CustomOptionItem(ppd_file_t *ppd, ppd_option_t *option,
                                   ppd_coption_t *customOption, BaseItem *parent, bool editable)
    : OptionItem(ppd, option, parent, editable)
    , m_customOption(customOption)
{
    updateText();
}

void CustomOptionItem::setCustomValue(const QString &value)
{
    if (m_ppd)
        ppdMarkOption(m_ppd, m_option->keyword, value.toLocal8Bit().constData());
}

/** A custom choice reads like any other: its value is to be seen in the editor. */
void CustomOptionItem::updateText()
{
    OptionItem::updateText();
}

NumericalItem::NumericalItem(ppd_file_t *ppd, ppd_option_t *option, BaseItem *parent)
    : BaseItem(ppd, parent)
    , m_option(option)
{
    m_numeric = true;
    setPixmap(OptionPictures::option(OptionPictures::optionFile(
        PPDText::ascii(option->keyword), QLatin1StringView(OptionPictures::NumericPicture))));
    updateFromPPD(ppd);
}

void NumericalItem::paintText(QPainter *painter, const QPalette &palette, int x)
{
    paintPieces(painter, palette, x, PPDText::utf8(m_option->text), valueText(),
                valueColor(palette));
}

void NumericalItem::updateFromPPD(ppd_file_t *ppd)
{
    setValue(markedNumber(ppd, *m_option));
}

void NumericalItem::setValue(double value)
{
    m_value = value;
    setRowText(rowText(PPDText::utf8(m_option->text), valueText()));
}

QString NumericalItem::valueText() const
{
    return m_isReal ? QString::number(m_value, 'f', 3) : truncatedText(m_value);
}
} // namespace PPDTree
