#include "PpdCheck.h"

#include "PPDConflicts.h"
#include "PPDCustomView.h"
#include "ParamViewInterface.h"
#include "Walk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTest>

#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{
enum Page { EmptyPage, BooleanPage, ListPage, NumericPage, CustomPage };

bool isFixed(const ppd_group_t &group)
{
    return QString::fromUtf8(group.text).contains(QLatin1String("install"), Qt::CaseInsensitive);
}

/** The choice that a row shows: the last marked one, else the last default one. */
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

QString rowText(const ppd_option_t &option)
{
    const ppd_choice_t *choice = shownChoice(option);
    return QString::fromUtf8(option.text) + QLatin1String(": <") +
           (choice ? QString::fromUtf8(choice->text) : QStringLiteral("Undefined")) +
           QLatin1Char('>');
}

double currentNumber(const ppd_cparam_t &parameter)
{
    switch (parameter.type) {
    case PPD_CUSTOM_CURVE:
        return static_cast<double>(parameter.current.custom_curve);
    case PPD_CUSTOM_INT:
        return parameter.current.custom_int;
    case PPD_CUSTOM_INVCURVE:
        return static_cast<double>(parameter.current.custom_invcurve);
    case PPD_CUSTOM_POINTS:
        return static_cast<double>(parameter.current.custom_points);
    case PPD_CUSTOM_REAL:
        return static_cast<double>(parameter.current.custom_real);
    default:
        return std::nan("");
    }
}

/** All parameters at once: marking a value moves the library's own place in the list. */
std::vector<const ppd_cparam_t *> parametersOf(ppd_coption_t *option)
{
    std::vector<const ppd_cparam_t *> parameters;
    for (const ppd_cparam_t *each = ppdFirstCustomParam(option); each;
         each = ppdNextCustomParam(option))
        parameters.push_back(each);
    return parameters;
}

QString currentText(const ppd_cparam_t &parameter)
{
    return QString::fromUtf8(parameter.type == PPD_CUSTOM_STRING ? parameter.current.custom_string
                             : parameter.type == PPD_CUSTOM_PASSCODE
                                 ? parameter.current.custom_passcode
                                 : parameter.current.custom_password);
}

/** Whether `read` is `set` as three decimals and single precision keep it. */
bool isSame(double read, double set)
{
    return std::abs(read - set) <= 0.0006 + std::abs(set) * 1e-6;
}

void setNumber(QAbstractSpinBox *box, double value)
{
    if (auto *real = qobject_cast<QDoubleSpinBox *>(box))
        real->setValue(value);
    else if (auto *whole = qobject_cast<QSpinBox *>(box))
        whole->setValue(static_cast<int>(value));
}

double number(const QAbstractSpinBox *box)
{
    const auto *real = qobject_cast<const QDoubleSpinBox *>(box);
    return real ? real->value() : qobject_cast<const QSpinBox *>(box)->value();
}

/** Minimum, middle and maximum of what a box takes, the value that it already has left out. */
std::vector<double> valuesToSet(const QAbstractSpinBox *box)
{
    const auto *real = qobject_cast<const QDoubleSpinBox *>(box);
    const auto *whole = qobject_cast<const QSpinBox *>(box);
    const double least = real ? real->minimum() : whole->minimum();
    const double most = real ? real->maximum() : whole->maximum();
    return {least, std::floor((least + most) / 2), most};
}

bool isInConflict(const QTreeWidgetItem *item)
{
    return static_cast<const PPDTree::BaseItem *>(item)->m_conflict;
}

QString describe(const QStringList &left, const QStringList &right)
{
    QStringList missing;
    for (const QString &each : right) {
        if (!left.contains(each))
            missing.append(QLatin1Char('-') + each);
    }
    for (const QString &each : left) {
        if (!right.contains(each))
            missing.append(QLatin1Char('+') + each);
    }
    return missing.join(QLatin1Char(' '));
}

/**
 * Marks every shown choice in the order in which the rows are made. A mark can take another one
 * away: that of `InputSlot` takes that of `ManualFeed`.
 */
void markShownChoices(ppd_file_t &ppd, const ppd_group_t &group)
{
    const auto options = Walk::options(group);
    for (auto option = options.rbegin(); option != options.rend(); ++option) {
        const ppd_choice_t *choice = shownChoice(*option);
        const bool custom = ppdFindCustomOption(&ppd, option->keyword) && choice &&
                            std::strncmp(choice->choice, "Custom", 6) == 0;
        if (choice && !custom && std::strcmp(option->keyword, "PageRegion") != 0)
            ppdMarkOption(&ppd, option->keyword, choice->choice);
    }
    const auto subgroups = Walk::subgroups(group);
    for (auto subgroup = subgroups.rbegin(); subgroup != subgroups.rend(); ++subgroup)
        markShownChoices(ppd, *subgroup);
}

/** Marks what the tree shows when it is opened. What was marked before stays so. */
void showChoices(ppd_file_t &ppd, const std::vector<ppd_option_t *> &options)
{
    const QByteArray before = Walk::marks(options);
    for (const ppd_group_t &group : Walk::groups(ppd))
        markShownChoices(ppd, group);
    qsizetype index = 0;
    for (const ppd_option_t *option : options) {
        for (const ppd_choice_t &choice : Walk::choices(*option)) {
            if (before.at(index++) == '1' && !choice.marked &&
                std::strcmp(option->keyword, "PageRegion") != 0)
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
    : m_path(path)
    , m_counts(counts)
    , m_tree(nullptr)
    , m_pane(nullptr)
{
    m_tree.setColumnCount(1);
    connect(&m_tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &m_pane,
            &PPDOptionView::setOption);
    connect(&m_pane, &PPDOptionView::optionChanged, &m_tree, &PPDTreeView::checkConstraints);
    connect(&m_pane, &PPDOptionView::optionChanged, this, [this] { m_edited = true; });
    qApp->installEventFilter(this);
}

void PpdCheck::run()
{
    if (!open())
        return;
    ++m_counts.ppds;
    for (const QString &text : Walk::differingTexts(*m_plain)) {
        std::printf("TEXT %s: %s\n", qUtf8Printable(m_path), qUtf8Printable(text));
    }
    m_counts.differingTexts += Walk::differingTexts(*m_plain).isEmpty() ? 0 : 1;
    m_tree.setPPD(m_shown.get());
    compareTree();
    showChoices(*m_plain, m_plainOptions);
    compareState(QStringLiteral("just opened"));
    selectRows();
    for (const Row &row : m_rows)
        changeOption(row);
    m_tree.setPPD(nullptr);
}

bool PpdCheck::open()
{
    m_shown = opened(m_path);
    m_plain = opened(m_path);
    if (!m_shown || !m_plain) {
        fail(QStringLiteral("cannot be opened"));
        return false;
    }
    m_shownOptions = Walk::allOptions(*m_shown);
    m_plainOptions = Walk::allOptions(*m_plain);
    return true;
}

bool PpdCheck::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QMessageBox *>(watched);
    if (box && event->type() == QEvent::Show) {
        m_warnings.append(box->text());
        QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void PpdCheck::compareTree()
{
    const QTreeWidgetItem *root = m_tree.topLevelItem(0);
    if (m_tree.topLevelItemCount() != 1 || root->childCount() != m_plain->num_groups) {
        fail(QStringLiteral("the root does not hold one row a group"));
        return;
    }
    int row = root->childCount();
    for (const ppd_group_t &group : Walk::groups(*m_plain))
        compareGroup(group, root->child(--row));
}

void PpdCheck::compareGroup(const ppd_group_t &group, QTreeWidgetItem *item)
{
    std::vector<ppd_option_t *> options;
    for (ppd_option_t &option : Walk::options(group)) {
        if (std::strcmp(option.keyword, "PageRegion") != 0)
            options.push_back(&option);
    }
    m_groupRows.push_back({item, &group});
    if (item->text(0) != QString::fromLatin1(group.text))
        fail(QStringLiteral("group row %1").arg(item->text(0)));
    if (item->childCount() != group.num_subgroups + static_cast<int>(options.size())) {
        fail(QStringLiteral("number of rows of the group %1").arg(item->text(0)));
        return;
    }
    int row = 0;
    for (const ppd_group_t &subgroup : Walk::subgroups(group))
        compareGroup(subgroup, item->child(row++));
    for (ppd_option_t *option : options)
        compareOption(*option, isFixed(group), item->child(row++));
}

void PpdCheck::compareOption(ppd_option_t &option, bool fixed, QTreeWidgetItem *item)
{
    if (item->text(0) != rowText(option))
        fail(QStringLiteral("row \"%1\" instead of \"%2\"").arg(item->text(0), rowText(option)));
    m_rows.push_back({item, &option, fixed});
    ++m_counts.options;
}

void PpdCheck::compareState(const QString &what)
{
    if (Walk::marks(m_shownOptions) != Walk::marks(m_plainOptions))
        fail(QStringLiteral("%1: marks differ: %2")
                 .arg(what, describe(Walk::markedChoices(m_shownOptions),
                                     Walk::markedChoices(m_plainOptions))));
    compareConflicts(what);
}

void PpdCheck::compareConflicts(const QString &what)
{
    const bool conflicts = ppdConflicts(m_plain.get()) > 0;
    m_counts.conflicts += conflicts ? 1 : 0;
    for (const Row &row : m_rows) {
        if (isInConflict(row.item) != (row.plain->conflicted != 0))
            fail(QStringLiteral("%1: conflict mark of %2").arg(what, nameOf(row)));
    }
    for (const GroupRow &row : m_groupRows) {
        if (isInConflict(row.item) != Walk::hasConflict(*row.plain))
            fail(QStringLiteral("%1: conflict mark of %2").arg(what, row.item->text(0)));
    }
    if (isInConflict(m_tree.topLevelItem(0)))
        fail(QStringLiteral("%1: conflict mark of the root").arg(what));
    compareWarning(what, conflicts);
}

void PpdCheck::compareWarning(const QString &what, bool conflicts)
{
    const QString expected = conflicts ? conflictMessage(m_plain.get()) : QString();
    const bool warned = !m_warnings.isEmpty();
    if (warned && m_warnings.last() != expected)
        fail(QStringLiteral("%1: the warning is \"%2\"").arg(what, m_warnings.last()));
    if (m_edited && !warned && !expected.isEmpty())
        fail(QStringLiteral("%1: no warning").arg(what));
    m_warnings.clear();
    m_edited = false;
}

void PpdCheck::selectRows()
{
    const auto *stack = m_pane.findChild<QStackedWidget *>();
    for (const Row &row : m_rows) {
        m_tree.setCurrentItem(row.item);
        if (stack->currentIndex() != expectedPage(*row.plain))
            fail(QStringLiteral("page %1 for %2").arg(stack->currentIndex()).arg(nameOf(row)));
        if (stack->isEnabled() == row.fixed)
            fail(QStringLiteral("the editor's state for %1").arg(nameOf(row)));
    }
    m_tree.setCurrentItem(m_tree.topLevelItem(0));
    if (stack->currentIndex() != EmptyPage)
        fail(QStringLiteral("page for the root"));
    compareState(QStringLiteral("after selecting every row"));
}

void PpdCheck::changeOption(const Row &row)
{
    m_counts.choices += row.plain->num_choices;
    if (row.fixed)
        return;
    m_tree.setCurrentItem(row.item);
    auto *stack = m_pane.findChild<QStackedWidget *>();
    switch (stack->currentIndex()) {
    case BooleanPage:
        return changeBoolean(row);
    case ListPage:
        return changeList(row, qobject_cast<QListWidget *>(stack->widget(ListPage)));
    case CustomPage:
        return changeCustom(row,
                            stack->widget(CustomPage)
                                ->findChild<QListWidget *>(QStringLiteral("m_valuesListWidget")));
    default:
        return;
    }
}

void PpdCheck::changeBoolean(const Row &row)
{
    const auto *stack = m_pane.findChild<QStackedWidget *>();
    for (const int id : {1, 0, 1}) {
        auto *button = stack->widget(BooleanPage)
                           ->findChild<QAbstractButton *>(QStringLiteral("button%1").arg(id + 1));
        if (id >= row.plain->num_choices)
            continue;
        button->click();
        follow(row, row.plain->choices[id].choice);
    }
}

void PpdCheck::changeList(const Row &row, QListWidget *list)
{
    const int original = list->currentRow();
    for (int i = 0; i < row.plain->num_choices; ++i) {
        if (i == list->currentRow())
            continue;
        list->setCurrentRow(i);
        follow(row, row.plain->choices[i].choice);
    }
    if (original < 0 || original == list->currentRow())
        return;
    list->setCurrentRow(original);
    follow(row, row.plain->choices[original].choice);
}

void PpdCheck::changeCustom(const Row &row, QListWidget *list)
{
    const int original = list->currentRow();
    const auto *view = m_pane.findChild<PPDCustomView *>();
    for (int i = 0; i < row.plain->num_choices; ++i) {
        if (i != list->currentRow()) {
            list->setCurrentRow(i);
            follow(row, view->isCustomSelected() ? view->customValue().toLocal8Bit()
                                                 : QByteArray(row.plain->choices[i].choice));
        }
        if (view->isCustomSelected())
            changeParameters(row);
    }
    if (original < 0 || original == list->currentRow())
        return;
    list->setCurrentRow(original);
    follow(row, row.plain->choices[original].choice);
}

void PpdCheck::changeParameters(const Row &row)
{
    if (std::strcmp(row.plain->keyword, "PageSize") == 0)
        return changePageSize(row);
    const auto parameters = parametersOf(ppdFindCustomOption(m_shown.get(), row.plain->keyword));
    size_t index = 0;
    for (QWidget *widget : m_pane.findChild<PPDCustomView *>()->findChildren<QWidget *>()) {
        if (!dynamic_cast<ParamViewInterface *>(widget))
            continue;
        if (index < parameters.size())
            changeParameter(row, widget, *parameters[index]);
        ++index;
    }
    if (index != parameters.size())
        fail(QStringLiteral("%1: %2 editors of %3 parameters")
                 .arg(nameOf(row))
                 .arg(index)
                 .arg(parameters.size()));
}

void PpdCheck::changeParameter(const Row &row, QWidget *editor, const ppd_cparam_t &shown)
{
    if (auto *box = editor->findChild<QAbstractSpinBox *>())
        changeNumber(row, box, shown);
    else if (auto *edit = editor->findChild<QLineEdit *>())
        changeText(row, edit, shown);
    else
        fail(QStringLiteral("%1: an editor without a field").arg(nameOf(row)));
}

void PpdCheck::changeNumber(const Row &row, QAbstractSpinBox *box, const ppd_cparam_t &shown)
{
    for (const double value : valuesToSet(box)) {
        setNumber(box, value);
        follow(row, m_pane.findChild<PPDCustomView *>()->customValue().toLocal8Bit());
        ++m_counts.customValues;
        if (!isSame(number(box), value) || !isSame(currentNumber(shown), value))
            fail(QStringLiteral("%1: %2 became %3 instead of %4")
                     .arg(nameOf(row), QString::fromUtf8(shown.name))
                     .arg(currentNumber(shown))
                     .arg(value));
    }
}

void PpdCheck::changeText(const Row &row, QLineEdit *edit, const ppd_cparam_t &shown)
{
    const int least = std::max(1, shown.minimum.custom_string);
    const int most = std::min(edit->maxLength(), std::max(least, shown.maximum.custom_string));
    for (const int length : {least, (least + most) / 2, most}) {
        const QString text(length, QLatin1Char('7'));
        edit->selectAll();
        QTest::keyClicks(edit, text);
        follow(row, m_pane.findChild<PPDCustomView *>()->customValue().toLocal8Bit());
        ++m_counts.customValues;
        if (currentText(shown) != text)
            fail(QStringLiteral("%1: %2 became \"%3\" instead of \"%4\"")
                     .arg(nameOf(row), QString::fromUtf8(shown.name), currentText(shown), text));
    }
}

void PpdCheck::changePageSize(const Row &row)
{
    const auto *view = m_pane.findChild<PPDCustomView *>();
    auto *units = view->findChild<QComboBox *>(QStringLiteral("m_unitsComboBox"));
    for (int unit = 0; unit < units->count(); ++unit) {
        units->setCurrentIndex(unit);
        for (const char *name : {"m_widthSpinBox", "m_heightSpinBox"}) {
            auto *box = view->findChild<QDoubleSpinBox *>(QLatin1String(name));
            for (const double value : valuesToSet(box)) {
                setNumber(box, value);
                follow(row, view->customValue().toLocal8Bit());
                ++m_counts.customValues;
            }
        }
    }
    const ppd_size_t *shown = ppdPageSize(m_shown.get(), "Custom");
    const ppd_size_t *plain = ppdPageSize(m_plain.get(), "Custom");
    if (!shown || !plain || shown->width != plain->width || shown->length != plain->length)
        fail(QStringLiteral("the custom page size"));
}

void PpdCheck::follow(const Row &row, const QByteArray &value)
{
    ppdMarkOption(m_plain.get(), row.plain->keyword, value.constData());
    compareState(nameOf(row) + QLatin1Char('=') + QString::fromUtf8(value));
}

int PpdCheck::expectedPage(const ppd_option_t &option) const
{
    switch (option.ui) {
    case PPD_UI_BOOLEAN:
        return BooleanPage;
    case PPD_UI_PICKONE:
        return ppdFindCustomOption(m_plain.get(), option.keyword) ? CustomPage : ListPage;
    default:
        return EmptyPage;
    }
}

QString PpdCheck::nameOf(const Row &row) const
{
    return QString::fromUtf8(row.plain->keyword);
}

void PpdCheck::fail(const QString &what)
{
    ++m_counts.failures;
    std::printf("FAILURE %s: %s\n", qUtf8Printable(m_path), qUtf8Printable(what));
}
