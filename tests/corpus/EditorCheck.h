#pragma once

#include "TreeCheck.h"

#include <memory>

class CustomFields;
class PPDCustomView;
class PPDOptionView;
class QListWidget;
class QStackedWidget;

/**
 * Selects rows and works their editors. Each editor is compared with the plain copy of the PPD when
 * it comes up: page, title, texts, what is current, the limits of fields. After each step `rows` is
 * told what the plain copy is to be marked with.
 */
class EditorCheck
{
public:
    /** All arguments outlive this. */
    EditorCheck(const Twins &ppds, PPDTreeView &tree, PPDOptionView &pane, TreeCheck &rows,
                Report &report);

    void selectRows();
    /** Makes every choice of every option, and sets the custom values. */
    void changeRows();

private:
    using Row = TreeCheck::Row;

    void select(const Row &row);
    void leave();
    void compareEditor(const Row &row);
    void compareButtons(const Row &row);
    void compareList(const Row &row, const QListWidget &list, int current);
    void compareCustomPage(const Row &row);
    void compareCustomBox(const Row &row, bool enabled);

    void changeRow(Row &row);
    void changeBoolean(Row &row);
    void changeList(Row &row);
    void changeCustom(Row &row);
    void changeFields(Row &row, CustomFields &fields);
    void choose(Row &row, QListWidget &list, int index, const QByteArray &value);

    QListWidget &customList() const;
    std::unique_ptr<CustomFields> fieldsOf(const Row &row);
    void fail(const Row &row, const QString &what);

    const Twins &m_ppds;
    PPDTreeView &m_tree;
    PPDOptionView &m_pane;
    TreeCheck &m_rows;
    Report &m_report;
    QStackedWidget *m_stack;
    PPDCustomView *m_customView;
};
