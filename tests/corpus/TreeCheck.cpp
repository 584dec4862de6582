#include "TreeCheck.h"

#include "Expected.h"
#include "PPDOptionView.h"
#include "PPDTreeItems.h"
#include "Walk.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

namespace
{
const PPDTree::BaseItem *rowOf(const QTreeWidgetItem *item)
{
    return static_cast<const PPDTree::BaseItem *>(item);
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
} // namespace

void TreeCheck::Row::expect(const ppd_choice_t *shown)
{
    choice = shown;
    text = Expected::rowText(*plain, shown);
}

TreeCheck::TreeCheck(const Twins &ppds, PPDTreeView &tree, const PPDOptionView &pane,
                     Report &report)
    : m_ppds(ppds)
    , m_tree(tree)
    , m_report(report)
    , m_shownOptions(Walk::allOptions(*ppds.shown))
    , m_plainOptions(Walk::allOptions(*ppds.plain))
{
    connect(&pane, &PPDOptionView::optionChanged, this, [this] { m_edited = true; });
    qApp->installEventFilter(this);
}

void TreeCheck::compareRows()
{
    const QTreeWidgetItem *root = m_tree.topLevelItem(0);
    if (m_tree.topLevelItemCount() != 1 || root->childCount() != m_ppds.plain->num_groups) {
        m_report.fail(QStringLiteral("the root does not hold one row a group"));
        return;
    }
    const QString name = QString::fromLatin1(m_ppds.plain->nickname);
    if (root->text(0) != name)
        m_report.fail(QStringLiteral("root \"%1\" instead of \"%2\"").arg(root->text(0), name));
    comparePicture(root, Expected::rootPicture());
    int row = root->childCount();
    for (const ppd_group_t &group : Walk::groups(*m_ppds.plain))
        compareGroup(group, root->child(--row));
}

void TreeCheck::compareGroup(const ppd_group_t &group, QTreeWidgetItem *item)
{
    std::vector<ppd_option_t *> options;
    for (ppd_option_t &option : Walk::options(group)) {
        if (Expected::hasRow(option))
            options.push_back(&option);
    }
    m_groupRows.push_back({item, &group});
    if (item->text(0) != QString::fromLatin1(group.text))
        m_report.fail(QStringLiteral("group row %1").arg(item->text(0)));
    comparePicture(item, Expected::groupPicture(group));
    if (item->childCount() != group.num_subgroups + static_cast<int>(options.size())) {
        m_report.fail(QStringLiteral("number of rows of the group %1").arg(item->text(0)));
        return;
    }
    int row = 0;
    for (const ppd_group_t &subgroup : Walk::subgroups(group))
        compareGroup(subgroup, item->child(row++));
    for (ppd_option_t *option : options)
        compareOption(*option, Expected::isFixed(group), item->child(row++));
}

void TreeCheck::compareOption(ppd_option_t &option, bool fixed, QTreeWidgetItem *item)
{
    Row row{item, &option, fixed, nullptr, {}};
    row.expect(Expected::shownChoice(option));
    comparePicture(item, Expected::rowPicture(option, row.choice));
    m_rows.push_back(row);
    ++m_report.counts.options;
}

void TreeCheck::comparePicture(const QTreeWidgetItem *item, const QString &path)
{
    if (!Expected::isPicture(rowOf(item)->pixmap(), path))
        m_report.fail(
            QStringLiteral("the picture of the row \"%1\" is not \"%2\"").arg(item->text(0), path));
}

void TreeCheck::compareState(const QString &what)
{
    if (Walk::marks(m_shownOptions) != Walk::marks(m_plainOptions))
        m_report.fail(QStringLiteral("%1: marks differ: %2")
                          .arg(what, describe(Walk::markedChoices(m_shownOptions),
                                              Walk::markedChoices(m_plainOptions))));
    compareTexts(what);
    compareConflicts(what);
}

void TreeCheck::compareTexts(const QString &what)
{
    for (const Row &row : m_rows) {
        const QString text = row.item->text(0);
        if (text != row.text)
            m_report.fail(
                QStringLiteral("%1: row \"%2\" instead of \"%3\"").arg(what, text, row.text));
    }
}

void TreeCheck::compareConflicts(const QString &what)
{
    const bool conflicts = ppdConflicts(m_ppds.plain.get()) > 0;
    m_report.counts.conflicts += conflicts ? 1 : 0;
    for (const Row &row : m_rows) {
        if (rowOf(row.item)->m_conflict != (row.plain->conflicted != 0))
            m_report.fail(QStringLiteral("%1: conflict mark of \"%2\"").arg(what, row.text));
    }
    for (const GroupRow &row : m_groupRows) {
        if (rowOf(row.item)->m_conflict != Walk::hasConflict(*row.plain))
            m_report.fail(
                QStringLiteral("%1: conflict mark of \"%2\"").arg(what, row.item->text(0)));
    }
    if (rowOf(m_tree.topLevelItem(0))->m_conflict)
        m_report.fail(QStringLiteral("%1: conflict mark of the root").arg(what));
    compareWarning(what, conflicts);
}

void TreeCheck::compareWarning(const QString &what, bool conflicts)
{
    const QString expected = conflicts ? Expected::conflictText(*m_ppds.plain) : QString();
    const bool warned = !m_warnings.isEmpty();
    if (warned && m_warnings.last() != expected)
        m_report.fail(QStringLiteral("%1: the warning is \"%2\" instead of \"%3\"")
                          .arg(what, m_warnings.last(), expected));
    if (m_edited && !warned && !expected.isEmpty())
        m_report.fail(QStringLiteral("%1: no warning").arg(what));
    m_warnings.clear();
    m_edited = false;
}

void TreeCheck::follow(Row &row, const ppd_choice_t &choice, const QByteArray &value)
{
    ppdMarkOption(m_ppds.plain.get(), row.plain->keyword, value.constData());
    row.expect(&choice);
    comparePicture(row.item, Expected::rowPicture(*row.plain, row.choice));
    compareState(QString::fromUtf8(row.plain->keyword) + QLatin1Char('=') +
                 QString::fromUtf8(value));
}

bool TreeCheck::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QMessageBox *>(watched);
    if (box && event->type() == QEvent::Show) {
        m_warnings.append(box->text());
        QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
