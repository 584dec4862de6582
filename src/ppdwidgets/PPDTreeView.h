#pragma once

#include "PPDTreeItems.h"

#include <QTimer>
#include <QTreeWidget>

#include <vector>

/**
 * Shows the options of a driver as a tree, with their choices and conflicts. The PPD is borrowed:
 * it must stay open until setPPD is called again, or the view dies.
 */
class PPDTreeView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit PPDTreeView(QWidget *parent = nullptr);
    /** Says that nothing is selected before the rows die. */
    ~PPDTreeView() override;

    /**
     * Shows the options of `ppd`; a null `ppd` empties the view. All earlier rows die. An option
     * without a mark shows its default, and that is marked unless the library unmarks an option
     * for it that was marked before.
     */
    void setPPD(ppd_file_t *ppd);
    /** Has all rows read what is marked in `ppd`, and checks for conflicts. */
    void reloadFromPPD(ppd_file_t *ppd);

    /** The width of the widest row, be it in sight or not, and at least that of the view. */
    int sizeHintForColumn(int column) const override;

    ppd_file_t *m_ppd = nullptr;
    PPDTree::BaseItem *m_root = nullptr;
    PPDTree::Dict m_dict;
    /** The result of the last check. */
    bool m_hasConflicts = false;
    /** As last received by updateCustomPageSize. */
    QString m_customPageSize;

public slots:
    /** Marks the rows in conflict, and warns of the conflicts in a modal box. */
    virtual void checkConstraints();
    virtual void updateCustomPageSize(QString value);

signals:
    /** The row that is selected now, null for none. */
    void selectionChanged(QTreeWidgetItem *item);

protected:
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles) override;
    void initViewItemOption(QStyleOptionViewItem *option) const override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Mark;

    void removeRows();
    std::vector<Mark> marks() const;
    void restore(const Mark &mark);
    void refreshConflicts();
    void fitColumn();

    QTimer m_fitTimer;
};
