#pragma once

#include <QGroupBox>
#include <QPointer>
#include <QString>

class PPDBooleanView;
class PPDCustomView;
class PPDNumericView;
class QListWidget;
class QStackedWidget;
class QTreeWidgetItem;

namespace PPDTree
{
class BaseItem;
class NumericalItem;
class OptionItem;
} // namespace PPDTree

/**
 * The pane that edits the option selected in the driver's option tree. What the user does is
 * written at once into the row, which marks the PPD.
 */
class PPDOptionView : public QGroupBox
{
    Q_OBJECT
public:
    explicit PPDOptionView(QWidget *parent = nullptr);

    /** The text that the user sees. */
    QString title() const;
    /** The last custom page size that was chosen here. */
    QString customPageSize() const { return m_customPageSize; }
    /** Has Tab lead from `widget`, in the same window, to the editors of the option. */
    void setTabPredecessor(QWidget *widget);
    QSize sizeHint() const override { return {200, 120}; }
    /** Of the editors alone: a long title is cut short rather than the rest of the window. */
    QSize minimumSizeHint() const override;

signals:
    /** The user changed the choice of the option. */
    void optionChanged();

public slots:
    /**
     * Shows the editor of a row; nothing for null, a group or the root. Changes neither the row nor
     * the PPD. The row must live until the next call.
     */
    virtual void setOption(QTreeWidgetItem *item);
    virtual void customChanged();
    virtual void selectionChanged(int index);
    virtual void valueChanged(double value);

protected:
    void initStyleOption(QStyleOptionGroupBox *option) const override;
    void showEvent(QShowEvent *event) override;

private:
    enum Page { EmptyPage, BooleanPage, ChoicePage, NumericPage, CustomPage };

    /** A page and the option text over it. */
    struct Shown {
        Page page;
        QString title;
    };

    void addPages();
    Shown showRow();
    Shown showNumber(const PPDTree::NumericalItem &row);
    Page showOption(const PPDTree::OptionItem &row);
    Page showBoolean(const PPDTree::OptionItem &row);
    Page showPickOne(const PPDTree::OptionItem &row);
    Page showChoices(const PPDTree::OptionItem &row);
    void centreChoices();
    void orderTabs();

    QStackedWidget *m_stack;
    QWidget *m_emptyPage;
    PPDBooleanView *m_booleanView;
    QListWidget *m_choiceList;
    PPDNumericView *m_numericView;
    PPDCustomView *m_customView;
    QPointer<QWidget> m_tabPredecessor;
    PPDTree::BaseItem *m_item = nullptr;
    bool m_installEnabled = false;
    QString m_customPageSize;
};
