#include "EditorCheck.h"

#include "CustomFields.h"
#include "Expected.h"
#include "PPDCustomView.h"
#include "PPDOptionView.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QListWidget>
#include <QStackedWidget>

#include <cstring>

namespace
{
QAbstractButton &button(const QStackedWidget &stack, int id)
{
    return *stack.widget(Expected::BooleanPage)
                ->findChild<QAbstractButton *>(QStringLiteral("button%1").arg(id + 1));
}

/** As a button shows it, which takes a single '&' for the mark of a key. */
QString buttonText(const char *text)
{
    return QString::fromUtf8(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

int indexOf(const ppd_option_t &option, const ppd_choice_t *choice)
{
    return choice ? static_cast<int>(choice - option.choices) : -1;
}
} // namespace

EditorCheck::EditorCheck(const Twins &ppds, PPDTreeView &tree, PPDOptionView &pane, TreeCheck &rows,
                         Report &report)
    : m_ppds(ppds)
    , m_tree(tree)
    , m_pane(pane)
    , m_rows(rows)
    , m_report(report)
    , m_stack(pane.findChild<QStackedWidget *>())
    , m_customView(pane.findChild<PPDCustomView *>())
{
}

void EditorCheck::selectRows()
{
    for (const Row &row : m_rows.rows())
        select(row);
    leave();
    m_rows.compareState(QStringLiteral("after selecting every row"));
}

void EditorCheck::changeRows()
{
    for (Row &row : m_rows.rows())
        changeRow(row);
}

void EditorCheck::select(const Row &row)
{
    m_tree.setCurrentItem(row.item);
    compareEditor(row);
}

void EditorCheck::leave()
{
    m_tree.setCurrentItem(m_tree.topLevelItem(0));
    if (m_stack->currentIndex() != Expected::EmptyPage)
        m_report.fail(QStringLiteral("page for the root"));
    if (m_pane.title() != QLatin1String("No option selected"))
        m_report.fail(QStringLiteral("title \"%1\" for the root").arg(m_pane.title()));
}

void EditorCheck::compareEditor(const Row &row)
{
    const Expected::Page page = Expected::page(m_ppds.plain.get(), *row.plain);
    if (m_stack->currentIndex() != page)
        return fail(row, QStringLiteral("page %1").arg(m_stack->currentIndex()));
    if (m_stack->isEnabled() == row.fixed)
        fail(row, QStringLiteral("whether the editor is enabled"));
    if (m_pane.title() != QString::fromUtf8(row.plain->text))
        fail(row, QStringLiteral("title \"%1\"").arg(m_pane.title()));
    if (page == Expected::BooleanPage)
        compareButtons(row);
    else if (page == Expected::ListPage)
        compareList(row, *qobject_cast<QListWidget *>(m_stack->widget(page)),
                    indexOf(*row.plain, row.choice));
    else if (page == Expected::CustomPage)
        compareCustomPage(row);
}

void EditorCheck::compareButtons(const Row &row)
{
    if (row.plain->num_choices != 2)
        return;
    const int checked = row.choice == &row.plain->choices[0] ? 0 : 1;
    for (const int id : {0, 1}) {
        const QAbstractButton &shown = button(*m_stack, id);
        if (shown.text() != buttonText(row.plain->choices[id].text))
            fail(row, QStringLiteral("text \"%1\" of button %2").arg(shown.text()).arg(id));
        if (shown.isChecked() != (id == checked))
            fail(row,
                 QStringLiteral("button %1 is %2")
                     .arg(id)
                     .arg(id == checked ? QLatin1String("not checked") : QLatin1String("checked")));
    }
}

void EditorCheck::compareList(const Row &row, const QListWidget &list, int current)
{
    if (list.count() != row.plain->num_choices)
        return fail(row, QStringLiteral("%1 entries in the list").arg(list.count()));
    for (int i = 0; i < list.count(); ++i) {
        const QString text = QString::fromUtf8(row.plain->choices[i].text);
        if (list.item(i)->text() != text)
            fail(row,
                 QStringLiteral("entry \"%1\" instead of \"%2\"").arg(list.item(i)->text(), text));
    }
    if (list.currentRow() != current)
        fail(row, QStringLiteral("entry %1 is current instead of %2")
                      .arg(list.currentRow())
                      .arg(current));
}

void EditorCheck::compareCustomPage(const Row &row)
{
    const int current = Expected::customListRow(*row.plain);
    compareList(row, customList(), current);
    compareCustomBox(row, current >= 0 && row.plain->choices[current].marked &&
                              Expected::isCustom(row.plain->choices[current]));
    fieldsOf(row)->compare();
}

void EditorCheck::compareCustomBox(const Row &row, bool enabled)
{
    const auto *box = m_customView->findChild<QGroupBox *>(QStringLiteral("m_customBox"));
    if (box->isEnabledTo(m_customView) != enabled)
        fail(row, QStringLiteral("the custom fields are %1")
                      .arg(enabled ? QLatin1String("disabled") : QLatin1String("enabled")));
}

void EditorCheck::changeRow(Row &row)
{
    if (row.fixed)
        return;
    select(row);
    switch (Expected::page(m_ppds.plain.get(), *row.plain)) {
    case Expected::BooleanPage:
        return changeBoolean(row);
    case Expected::ListPage:
        return changeList(row);
    case Expected::CustomPage:
        return changeCustom(row);
    default:
        return;
    }
}

void EditorCheck::changeBoolean(Row &row)
{
    for (const int id : {1, 0, 1}) {
        if (id >= row.plain->num_choices)
            continue;
        const ppd_choice_t &choice = row.plain->choices[id];
        button(*m_stack, id).click();
        ++m_report.counts.choices;
        m_rows.follow(row, choice, choice.choice);
    }
    leave();
    select(row);
}

void EditorCheck::changeList(Row &row)
{
    auto &list = *qobject_cast<QListWidget *>(m_stack->widget(Expected::ListPage));
    const int original = list.currentRow();
    for (int i = 0; i < row.plain->num_choices; ++i) {
        if (i != list.currentRow())
            choose(row, list, i, row.plain->choices[i].choice);
    }
    leave();
    select(row);
    if (original >= 0 && original != list.currentRow())
        choose(row, list, original, row.plain->choices[original].choice);
}

void EditorCheck::changeCustom(Row &row)
{
    QListWidget &list = customList();
    const int original = list.currentRow();
    auto fields = fieldsOf(row);
    const auto valueOf = [&](int i) {
        const ppd_choice_t &choice = row.plain->choices[i];
        return Expected::isCustom(choice) ? fields->value() : QByteArray(choice.choice);
    };
    for (int i = 0; i < row.plain->num_choices; ++i) {
        const bool custom = Expected::isCustom(row.plain->choices[i]);
        if (i != list.currentRow())
            choose(row, list, i, valueOf(i));
        compareCustomBox(row, custom);
        if (custom)
            changeFields(row, *fields);
    }
    leave();
    select(row);
    fields = fieldsOf(row);
    if (original >= 0 && original != list.currentRow())
        choose(row, list, original, valueOf(original));
}

void EditorCheck::changeFields(Row &row, CustomFields &fields)
{
    const ppd_choice_t &choice = *row.choice;
    fields.change([&] {
        ++m_report.counts.customValues;
        m_rows.follow(row, choice, fields.value());
    });
}

void EditorCheck::choose(Row &row, QListWidget &list, int index, const QByteArray &value)
{
    list.setCurrentRow(index);
    ++m_report.counts.choices;
    m_rows.follow(row, row.plain->choices[index], value);
}

QListWidget &EditorCheck::customList() const
{
    return *m_customView->findChild<QListWidget *>(QStringLiteral("m_valuesListWidget"));
}

std::unique_ptr<CustomFields> EditorCheck::fieldsOf(const Row &row)
{
    return CustomFields::of(m_ppds, *row.plain, m_pane, m_report);
}

void EditorCheck::fail(const Row &row, const QString &what)
{
    m_report.fail(QString::fromUtf8(row.plain->keyword) + QLatin1String(": ") + what);
}
