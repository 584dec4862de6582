#pragma once

#include "CupsHandles.h"
#include "PPDTreeView.h"
#include "Report.h"

#include <QObject>
#include <QStringList>

#include <vector>

class PPDOptionView;

/** A PPD twice: the copy that is shown, and the plain one that only `ppdMarkOption` changes. */
struct Twins {
    Cups::PpdPtr shown;
    Cups::PpdPtr plain;
};

/**
 * Compares a tree with the plain copy of its PPD: rows, texts, pictures, and after every change the
 * marks, the texts of all rows, the conflicts and the warning.
 */
class TreeCheck : public QObject
{
public:
    struct Row {
        QTreeWidgetItem *item;
        /** The option in the plain copy. */
        ppd_option_t *plain;
        /** The option's group asks for no editing. */
        bool fixed;
        /** The choice of the plain copy that the row is expected to show, or null. */
        const ppd_choice_t *choice;
        /** The text that the row is expected to have. */
        QString text;

        void expect(const ppd_choice_t *shown);
    };

    /** All arguments outlive this. The tree shows the one copy already, and `pane` its rows. */
    TreeCheck(const Twins &ppds, PPDTreeView &tree, const PPDOptionView &pane, Report &report);

    std::vector<Row> &rows() { return m_rows; }
    /** To be called once, while the plain copy has the marks that it was opened with. */
    void compareRows();
    void compareState(const QString &what);
    /**
     * Marks the plain copy as the row's editor is expected to have marked the shown one, and
     * compares. The row is expected to show `choice`, and the mark to be `value`.
     */
    void follow(Row &row, const ppd_choice_t &choice, const QByteArray &value);

protected:
    /** Answers the conflict warning and takes its text. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct GroupRow {
        QTreeWidgetItem *item;
        /** The group in the plain copy. */
        const ppd_group_t *plain;
    };

    void compareGroup(const ppd_group_t &group, QTreeWidgetItem *item);
    void compareOption(ppd_option_t &option, bool fixed, QTreeWidgetItem *item);
    void comparePicture(const QTreeWidgetItem *item, const QString &path);
    void compareTexts(const QString &what);
    void compareConflicts(const QString &what);
    void compareWarning(const QString &what, bool conflicts);

    const Twins &m_ppds;
    PPDTreeView &m_tree;
    Report &m_report;
    std::vector<Row> m_rows;
    std::vector<GroupRow> m_groupRows;
    std::vector<ppd_option_t *> m_shownOptions;
    std::vector<ppd_option_t *> m_plainOptions;
    QStringList m_warnings;
    /** The pane has told of a change since the last comparison. */
    bool m_edited = false;
};
