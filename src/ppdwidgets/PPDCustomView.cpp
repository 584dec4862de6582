#include "PPDCustomView.h"

#include "ChoiceDelegate.h"
#include "CustomPageSizeView.h"
#include "EditorText.h"
#include "Param.h"
#include "ui_PPDCustomView.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{
constexpr char customChoice[] = "Custom";
constexpr char pageSize[] = "PageSize";
/** The weight of the empty space below the editors. */
constexpr int stretchFactor = 10;
/** In characters; a PPD's texts have up to 80. */
constexpr int widestLabel = 20;
/** Sizes that differ by less are sent alike. */
constexpr double samePoints = 0.01;

bool isCustom(const QListWidgetItem *item)
{
    return item && item->data(Qt::UserRole).toString() == QLatin1StringView(customChoice);
}

bool isCustomMarked(const ppd_option_t &option)
{
    return std::any_of(option.choices, option.choices + option.num_choices,
                       [](const ppd_choice_t &choice) {
                           return choice.marked && std::strcmp(choice.choice, customChoice) == 0;
                       });
}

/** A newer library may know more types than the enumeration that this is built with. */
int typeNumber(const ppd_cparam_t &param)
{
    static_assert(sizeof param.type == sizeof(int));
    int number = 0;
    std::memcpy(&number, &param.type, sizeof number);
    return number;
}

QSizeF currentPoints(ppd_coption_t *coption)
{
    return {static_cast<double>(ppdFindCustomParam(coption, "Width")->current.custom_points),
            static_cast<double>(ppdFindCustomParam(coption, "Height")->current.custom_points)};
}

bool isSame(QSizeF one, QSizeF other)
{
    return std::abs(one.width() - other.width()) < samePoints &&
           std::abs(one.height() - other.height()) < samePoints;
}
} // namespace

const QMap<int, QString> PPDCustomView::m_typeNames{
    {PPD_CUSTOM_CURVE, u"PPD_CUSTOM_CURVE"_s},
    {PPD_CUSTOM_INT, u"PPD_CUSTOM_INT"_s},
    {PPD_CUSTOM_INVCURVE, u"PPD_CUSTOM_INVCURVE"_s},
    {PPD_CUSTOM_PASSCODE, u"PPD_CUSTOM_PASSCODE"_s},
    {PPD_CUSTOM_PASSWORD, u"PPD_CUSTOM_PASSWORD"_s},
    {PPD_CUSTOM_POINTS, u"PPD_CUSTOM_POINTS"_s},
    {PPD_CUSTOM_REAL, u"PPD_CUSTOM_REAL"_s},
    {PPD_CUSTOM_STRING, u"PPD_CUSTOM_STRING"_s},
};

PPDCustomView::PPDCustomView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PPDCustomForm>())
{
    m_ui->setupUi(this);
    m_ui->m_valuesListWidget->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_ui->m_valuesListWidget->setItemDelegate(new ChoiceDelegate(m_ui->m_valuesListWidget));
    connect(m_ui->m_valuesListWidget, &QListWidget::currentItemChanged, this,
            &PPDCustomView::currentChanged);
}

PPDCustomView::~PPDCustomView() = default;

void PPDCustomView::setup(ppd_option_t *option, ppd_coption_t *coption)
{
    removeEditors();
    if (!option)
        return;
    m_keyword = QString::fromUtf8(option->keyword);
    delete m_ui->m_customBox->layout();
    auto *layout = new QVBoxLayout;
    m_ui->m_customBox->setLayout(layout);
    if (coption && std::strcmp(coption->keyword, pageSize) == 0)
        addPageSizeEditor(*option, coption);
    else if (coption)
        addParamEditors(coption);
    layout->addStretch(stretchFactor);
    fillChoices(*option);
}

bool PPDCustomView::isCustomSelected() const
{
    return isCustom(m_ui->m_valuesListWidget->currentItem());
}

QString PPDCustomView::customValue() const
{
    if (m_pageSizeView)
        return m_pageSizeView->value();
    if (m_paramViews.isEmpty())
        return {};
    if (m_paramViews.size() == 1)
        return u"Custom."_s + m_paramViews.first()->value();
    QStringList values;
    for (const ParamViewInterface *param : m_paramViews)
        values.append(param->name() + u'=' + EditorText::escapedForList(param->value()));
    return u'{' + values.join(u' ') + u'}';
}

int PPDCustomView::currentRow() const
{
    return m_ui->m_valuesListWidget->currentRow();
}

void PPDCustomView::scrollToCurrent()
{
    if (const QListWidgetItem *current = m_ui->m_valuesListWidget->currentItem())
        m_ui->m_valuesListWidget->scrollToItem(current, QAbstractItemView::PositionAtCenter);
}

void PPDCustomView::currentChanged(QListWidgetItem *current)
{
    if (!current)
        return;
    m_ui->m_customBox->setEnabled(isCustom(current));
    emit choiceChanged();
}

void PPDCustomView::removeEditors()
{
    for (ParamViewInterface *param : m_paramViews)
        retire(dynamic_cast<QWidget *>(param));
    m_paramViews.clear();
    if (m_pageSizeView)
        retire(m_pageSizeView);
    m_pageSizeView = nullptr;
}

void PPDCustomView::retire(QWidget *editor)
{
    editor->disconnect(this);
    for (QWidget *child : editor->findChildren<QWidget *>())
        child->disconnect(this);
    editor->setParent(nullptr);
    if (m_retired.empty())
        QMetaObject::invokeMethod(
            this, [this] { m_retired.clear(); }, Qt::QueuedConnection);
    m_retired.emplace_back(editor);
}

void PPDCustomView::addPageSizeEditor(const ppd_option_t &option, ppd_coption_t *coption)
{
    m_pageSizeView = new CustomPageSizeView(this);
    m_ui->m_customBox->layout()->addWidget(m_pageSizeView);
    m_pageSizeView->show();
    m_pageSizeView->setCustomOption(coption);
    m_pageSizeView->setValue(QString::fromUtf8(option.defchoice));
    // A size that was chosen before stands in the PPD, not in its default.
    const QSizeF chosen = currentPoints(coption);
    if (isCustomMarked(option) && !isSame(chosen, m_pageSizeView->sizeInPoints()))
        m_pageSizeView->setValue(u"Custom.%1x%2pt"_s.arg(EditorText::fixed(chosen.width()),
                                                         EditorText::fixed(chosen.height())));
}

void PPDCustomView::addParamEditors(ppd_coption_t *coption)
{
    for (ppd_cparam_t *param = ppdFirstCustomParam(coption); param;
         param = ppdNextCustomParam(coption))
        addParamEditor(param);
    alignLabels();
}

void PPDCustomView::addParamEditor(ppd_cparam_t *param)
{
    switch (typeNumber(*param)) {
    case PPD_CUSTOM_CURVE:
        return addEditor<PPD_CUSTOM_CURVE>(param);
    case PPD_CUSTOM_INT:
        return addEditor<PPD_CUSTOM_INT>(param);
    case PPD_CUSTOM_INVCURVE:
        return addEditor<PPD_CUSTOM_INVCURVE>(param);
    case PPD_CUSTOM_PASSCODE:
        return addEditor<PPD_CUSTOM_PASSCODE>(param);
    case PPD_CUSTOM_PASSWORD:
        return addEditor<PPD_CUSTOM_PASSWORD>(param);
    case PPD_CUSTOM_POINTS:
        return addEditor<PPD_CUSTOM_POINTS>(param);
    case PPD_CUSTOM_REAL:
        return addEditor<PPD_CUSTOM_REAL>(param);
    case PPD_CUSTOM_STRING:
        return addEditor<PPD_CUSTOM_STRING>(param);
    }
    std::fprintf(stderr, "Unsupported type %d\n", typeNumber(*param));
}

template <ppd_cptype_e T> void PPDCustomView::addEditor(ppd_cparam_t *param)
{
    auto *editor = new Param<T>(this, param);
    m_ui->m_customBox->layout()->addWidget(editor);
    m_paramViews.append(editor);
    // Now, not when the layout gets to it: the pane would show an empty box until then.
    editor->setVisible(!editor->isHidden());
}

/** Gives the labels of all parameters one width, and more than one line where they are long. */
void PPDCustomView::alignLabels() const
{
    QList<QLabel *> labels;
    for (ParamViewInterface *param : m_paramViews) {
        if (!param->isHidden())
            labels += dynamic_cast<QWidget *>(param)->findChildren<QLabel *>();
    }
    int width = 0;
    for (const QLabel *label : labels)
        width = std::max(width, label->sizeHint().width());
    width = std::min(width, widestLabel * fontMetrics().averageCharWidth());
    for (QLabel *label : labels) {
        label->setWordWrap(label->sizeHint().width() > width);
        label->setFixedWidth(width);
    }
}

void PPDCustomView::fillChoices(const ppd_option_t &option)
{
    QListWidget &list = *m_ui->m_valuesListWidget;
    const QSignalBlocker blocker(&list);
    list.setAccessibleName(QString::fromUtf8(option.text));
    list.clear();
    QListWidgetItem *marked = nullptr;
    for (int i = 0; i < option.num_choices; ++i) {
        const ppd_choice_t &choice = option.choices[i];
        auto *item = new QListWidgetItem(QString::fromUtf8(choice.text), &list);
        item->setData(Qt::UserRole, QString::fromUtf8(choice.choice));
        if (choice.marked)
            marked = item;
    }
    list.setCurrentItem(marked ? marked : list.item(0));
    m_ui->m_customBox->setEnabled(isCustom(marked));
}
