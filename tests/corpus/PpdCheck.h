#pragma once

#include "CupsHandles.h"
#include "PPDOptionView.h"
#include "PPDTreeItems.h"
#include "PPDTreeView.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

class QAbstractSpinBox;
class QLineEdit;
class QListWidget;

/** What was looked at in all PPDs of a run. */
struct Counts {
    int ppds = 0;
    int options = 0;
    int choices = 0;
    int customValues = 0;
    int conflicts = 0;
    int differingTexts = 0;
    int failures = 0;
};

/**
 * Shows one PPD in a tree and its editors, works every editor, and compares each state with a
 * second copy of the PPD that `ppdMarkOption` changes directly.
 */
class PpdCheck : public QObject
{
public:
    /** Adds to `counts`; prints failures and differing texts on standard output. */
    PpdCheck(const QString &path, Counts &counts);
    void run();

protected:
    /** Answers the conflict warning and takes its text. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Row {
        QTreeWidgetItem *item;
        /** The option in the plain copy. */
        ppd_option_t *plain;
        /** The option's group asks for no editing. */
        bool fixed;
    };

    struct GroupRow {
        QTreeWidgetItem *item;
        /** The group in the plain copy. */
        const ppd_group_t *plain;
    };

    bool open();
    void compareTree();
    void compareGroup(const ppd_group_t &group, QTreeWidgetItem *item);
    void compareOption(ppd_option_t &option, bool fixed, QTreeWidgetItem *item);
    void compareState(const QString &what);
    void compareConflicts(const QString &what);
    void compareWarning(const QString &what, bool conflicts);

    void selectRows();
    void changeOption(const Row &row);
    void changeBoolean(const Row &row);
    void changeList(const Row &row, QListWidget *list);
    void changeCustom(const Row &row, QListWidget *list);
    void changeParameters(const Row &row);
    void changeParameter(const Row &row, QWidget *editor, const ppd_cparam_t &shown);
    void changeNumber(const Row &row, QAbstractSpinBox *box, const ppd_cparam_t &shown);
    void changeText(const Row &row, QLineEdit *edit, const ppd_cparam_t &shown);
    void changePageSize(const Row &row);
    /** Marks the plain copy as the editor is expected to have marked the shown one. */
    void follow(const Row &row, const QByteArray &value);

    int expectedPage(const ppd_option_t &option) const;
    QString nameOf(const Row &row) const;
    void fail(const QString &what);

    QString m_path;
    Counts &m_counts;
    Cups::PpdPtr m_shown;
    Cups::PpdPtr m_plain;
    PPDTreeView m_tree;
    PPDOptionView m_pane;
    std::vector<Row> m_rows;
    std::vector<GroupRow> m_groupRows;
    std::vector<ppd_option_t *> m_shownOptions;
    std::vector<ppd_option_t *> m_plainOptions;
    QStringList m_warnings;
    /** The pane has told of a change since the last comparison. */
    bool m_edited = false;
};
