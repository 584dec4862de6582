#include "PPDOptionView.h"

#include "ChoiceDelegate.h"
#include "EditorText.h"
#include "PPDBooleanView.h"
#include "PPDCustomView.h"
#include "PPDNumericView.h"
#include "PPDTreeItems.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStyleOptionGroupBox>
#include <QVBoxLayout>

#include <cstring>

namespace
{
constexpr int margin = 11;
/** The slider's steps for one in a number with decimals. */
constexpr int realScale = 1000;
/** The root and the groups are above the options. */
constexpr int optionDepth = 2;
constexpr char pageSize[] = "PageSize";
constexpr char customChoice[] = "Custom";

PPDTree::BaseItem *leaf(QTreeWidgetItem *item)
{
    return item && item->childCount() == 0 ? dynamic_cast<PPDTree::BaseItem *>(item) : nullptr;
}

bool isOptionLeaf(const PPDTree::BaseItem *item)
{
    return item && item->childCount() == 0 && item->depth() >= optionDepth;
}

/** The row as an option with choices, or null. */
PPDTree::OptionItem *choosable(PPDTree::BaseItem *item)
{
    if (!isOptionLeaf(item) || item->m_numeric)
        return nullptr;
    auto *row = dynamic_cast<PPDTree::OptionItem *>(item);
    return row && row->m_option->num_choices > 0 ? row : nullptr;
}

/** The row as a number, or null. */
PPDTree::NumericalItem *numerical(PPDTree::BaseItem *item)
{
    return isOptionLeaf(item) && item->m_numeric ? dynamic_cast<PPDTree::NumericalItem *>(item)
                                                 : nullptr;
}

/** Parts of a widget send Tab to it. */
bool isTabStop(const QWidget &widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy();
}

bool isPageSizeCustom(const PPDTree::OptionItem &row)
{
    return row.m_choice && std::strcmp(row.m_option->keyword, pageSize) == 0 &&
           std::strcmp(row.m_choice->choice, customChoice) == 0;
}
} // namespace

PPDOptionView::PPDOptionView(QWidget *parent)
    : QGroupBox(parent)
    , m_stack(new QStackedWidget(this))
    , m_emptyPage(new QWidget)
    , m_booleanView(new PPDBooleanView)
    , m_choiceList(new QListWidget)
    , m_numericView(new PPDNumericView)
    , m_customView(new PPDCustomView)
{
    addPages();
    m_choiceList->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_choiceList->setItemDelegate(new ChoiceDelegate(m_choiceList));
    connect(m_customView, &PPDCustomView::choiceChanged, this, &PPDOptionView::customChanged);
    connect(m_booleanView, &PPDBooleanView::valueChanged, this, &PPDOptionView::selectionChanged);
    connect(m_choiceList, &QListWidget::currentRowChanged, this, &PPDOptionView::selectionChanged);
    connect(m_numericView, &PPDNumericView::valueChanged, this, &PPDOptionView::valueChanged);
    setOption(nullptr);
}

QString PPDOptionView::title() const
{
    return EditorText::literalOf(QGroupBox::title());
}

void PPDOptionView::setTabPredecessor(QWidget *widget)
{
    m_tabPredecessor = widget;
    orderTabs();
}

QSize PPDOptionView::minimumSizeHint() const
{
    return {QWidget::minimumSizeHint().width(), QGroupBox::minimumSizeHint().height()};
}

void PPDOptionView::setOption(QTreeWidgetItem *item)
{
    const QSignalBlocker blocker(this);
    m_item = leaf(item);
    const Shown shown = showRow();
    setTitle(EditorText::withoutMnemonic(shown.title));
    m_choiceList->setAccessibleName(shown.title);
    m_stack->setCurrentIndex(shown.page);
    centreChoices();
    orderTabs();
}

void PPDOptionView::customChanged()
{
    auto *row = dynamic_cast<PPDTree::CustomOptionItem *>(m_item);
    if (!row || row->m_option->num_choices == 0)
        return;
    row->setChoiceIndex(m_customView->currentRow());
    if (m_customView->isCustomSelected())
        row->setCustomValue(m_customView->customValue());
    emit optionChanged();
    // Those who were told may have taken the row away.
    if (m_item == row && isPageSizeCustom(*row))
        m_customPageSize = m_customView->customValue();
}

void PPDOptionView::selectionChanged(int index)
{
    PPDTree::OptionItem *row = choosable(m_item);
    if (row && index != -1)
        row->setChoiceIndex(index);
    emit optionChanged();
}

void PPDOptionView::valueChanged(double value)
{
    if (PPDTree::NumericalItem *row = numerical(m_item))
        row->setValue(value);
}

void PPDOptionView::initStyleOption(QStyleOptionGroupBox *option) const
{
    QGroupBox::initStyleOption(option);
    option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight,
                                                  width() - 2 * margin, Qt::TextShowMnemonic);
}

void PPDOptionView::showEvent(QShowEvent *event)
{
    QGroupBox::showEvent(event);
    centreChoices();
    orderTabs();
}

void PPDOptionView::addPages()
{
    m_stack->insertWidget(EmptyPage, m_emptyPage);
    m_stack->insertWidget(ChoicePage, m_choiceList);
    m_stack->insertWidget(BooleanPage, m_booleanView);
    m_stack->insertWidget(NumericPage, m_numericView);
    m_stack->insertWidget(CustomPage, m_customView);
    m_stack->setCurrentIndex(EmptyPage);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(0);
    layout->addWidget(m_stack);
}

/** Fills the page of the current row. */
PPDOptionView::Shown PPDOptionView::showRow()
{
    if (const PPDTree::NumericalItem *row = numerical(m_item))
        return showNumber(*row);
    if (auto *row = dynamic_cast<PPDTree::OptionItem *>(m_item)) {
        m_stack->setEnabled(row->m_editable || m_installEnabled);
        return {showOption(*row), QString::fromUtf8(row->m_option->text)};
    }
    m_item = nullptr;
    //: In place of the editor of a driver option.
    return {EmptyPage, tr("No option selected")};
}

PPDOptionView::Shown PPDOptionView::showNumber(const PPDTree::NumericalItem &row)
{
    const QSignalBlocker blocker(m_numericView);
    m_stack->setEnabled(true);
    if (row.m_isReal)
        m_numericView->setScale(realScale);
    m_numericView->setRange(row.m_min, row.m_max);
    m_numericView->setValue(row.m_value);
    return {NumericPage, QString::fromUtf8(row.m_option->text)};
}

PPDOptionView::Page PPDOptionView::showOption(const PPDTree::OptionItem &row)
{
    switch (row.m_option->ui) {
    case PPD_UI_BOOLEAN:
        return showBoolean(row);
    case PPD_UI_PICKONE:
        return showPickOne(row);
    case PPD_UI_PICKMANY:
        break;
    }
    return EmptyPage;
}

PPDOptionView::Page PPDOptionView::showBoolean(const PPDTree::OptionItem &row)
{
    const ppd_option_t &option = *row.m_option;
    if (option.num_choices == 2) {
        for (int id = 0; id < option.num_choices; ++id)
            m_booleanView->setChoiceText(id, QString::fromUtf8(option.choices[id].text));
        m_booleanView->setChecked(row.m_choice != &option.choices[0] ? 1 : 0);
    }
    return BooleanPage;
}

PPDOptionView::Page PPDOptionView::showPickOne(const PPDTree::OptionItem &row)
{
    ppd_coption_t *custom =
        row.m_ppd ? ppdFindCustomOption(row.m_ppd, row.m_option->keyword) : nullptr;
    if (!custom)
        return showChoices(row);
    const QSignalBlocker blocker(m_customView);
    m_customView->setup(row.m_option, custom);
    return CustomPage;
}

PPDOptionView::Page PPDOptionView::showChoices(const PPDTree::OptionItem &row)
{
    const QSignalBlocker blocker(m_choiceList);
    const ppd_option_t &option = *row.m_option;
    // A row may show the choice of another option that has the same keyword.
    int shown = -1;
    m_choiceList->clear();
    for (int i = 0; i < option.num_choices; ++i) {
        m_choiceList->addItem(QString::fromUtf8(option.choices[i].text));
        if (&option.choices[i] == row.m_choice)
            shown = i;
    }
    // With no choice shown, the view is told so: it would else make one current on getting focus.
    m_choiceList->setCurrentIndex({});
    if (shown >= 0)
        m_choiceList->setCurrentRow(shown);
    return ChoicePage;
}

void PPDOptionView::centreChoices()
{
    if (QListWidgetItem *current = m_choiceList->currentItem())
        m_choiceList->scrollToItem(current, QAbstractItemView::PositionAtCenter);
    m_customView->scrollToCurrent();
}

/** Again and again, as some editors are made later than what follows in the window. */
void PPDOptionView::orderTabs()
{
    QWidget *previous = m_tabPredecessor;
    if (!previous || previous->window() != window())
        return;
    QWidget *page = m_stack->currentWidget();
    for (QWidget *editor : QList<QWidget *>{page} + page->findChildren<QWidget *>()) {
        if (!isTabStop(*editor) || editor->window() != window())
            continue;
        setTabOrder(previous, editor);
        previous = editor;
    }
}
