#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QMultiHash>
#include <QPixmap>
#include <QString>
#include <QTreeWidgetItem>

class QPainter;
class QPalette;

/**
 * The rows of the driver option tree. They point into the PPD that the tree borrows; the view owns
 * them. A new row goes in front of its siblings.
 */
namespace PPDTree
{
class BaseItem;

/** Option rows by option keyword, case-sensitive. Owns nothing, and keeps rows of equal keywords.
 */
using Dict = QMultiHash<QString, BaseItem *>;

/** A row. The root of the tree, which stands for the driver, is a plain one. */
class BaseItem : public QTreeWidgetItem
{
public:
    BaseItem(ppd_file_t *ppd, QTreeWidget *tree);
    BaseItem(ppd_file_t *ppd, BaseItem *parent);

    /** Adds the conflict to what a screen reader says. */
    QVariant data(int column, int role) const override;

    /**
     * Switches the row's part in a conflict on, and with it that of all rows above but the root;
     * or off, and with it that of all rows below.
     */
    virtual void setConflict(bool on);
    /** Paints the row's text from `x` on; the origin is the cell's left top corner. */
    virtual void paintText(QPainter *painter, const QPalette &palette, int x);
    /** Adds the option rows from here on down. */
    virtual void addToDict(Dict &dict);
    /** Switches the conflict on if the PPD says that the row's option is in one. */
    virtual void checkConflict();
    /** Has the option rows from here on down read what is marked in `ppd`. */
    virtual void updateFromPPD(ppd_file_t *ppd);

    /** Paints the whole cell, from the painter's origin on: background, picture, text. */
    void paintCell(QPainter *painter, const QPalette &palette, int column, int width,
                   int alignment);

    /** How many rows are above this one, up to the root, which has depth 0. */
    int depth() const;
    QPixmap pixmap() const;
    void setPixmap(const QPixmap &pixmap);
    /** The size of the cell that shows all of the row. */
    QSize cellSizeHint() const;
    /** The width of that cell, which is measured once a text. */
    int rowWidth() const;
    /** To be called when the view's font or style has changed. */
    void forgetWidth();

    bool m_conflict = false;
    /** Not owned; the newest is the last. */
    QList<BaseItem *> m_children;
    ppd_file_t *m_ppd;
    /** Only true of a NumericalItem. */
    bool m_numeric = false;
    static const int ms_drawTextFlags;

protected:
    BaseItem *parentRow() const;
    void setRowText(const QString &text);
    /** Paints `name`, the value in its colour and the bracket after it, one beside the other. */
    void paintPieces(QPainter *painter, const QPalette &palette, int x, const QString &name,
                     const QString &value, const QColor &valueColor) const;
    QColor valueColor(const QPalette &palette) const;

private:
    int paintPiece(QPainter *painter, int x, const QString &text, const QColor &color) const;
    int textLeft() const;

    mutable int m_width = -1;
};

/** A group or subgroup of options. Makes the rows below itself. */
class GroupItem : public BaseItem
{
public:
    GroupItem(ppd_file_t *ppd, ppd_group_t *group, BaseItem *parent);

    ppd_group_t *m_group;
};

/** An option with its choice. */
class OptionItem : public BaseItem
{
public:
    /**
     * Shows the last marked choice, else the last that is the option's default, else none, and
     * marks it.
     */
    OptionItem(ppd_file_t *ppd, ppd_option_t *option, BaseItem *parent, bool editable);

    void paintText(QPainter *painter, const QPalette &palette, int x) override;
    void addToDict(Dict &dict) override;
    void checkConflict() override;
    void updateFromPPD(ppd_file_t *ppd) override;

    /** Shows `choice`, which may be null, and marks it in the PPD unless it is a custom value. */
    void setChoice(ppd_choice_t *choice);
    /** As setChoice; an index out of range stands for the first choice. */
    void setChoiceIndex(int index);
    void updateText();

    /** Never null. */
    ppd_option_t *m_option;
    /** Null if no choice is shown. */
    ppd_choice_t *m_choice = nullptr;
    bool m_editable;

private:
    QString valueText() const;
    bool isMarkedByValue() const;
};

/** An option that takes custom values. */
class CustomOptionItem : public OptionItem
{
public:
    CustomOptionItem(ppd_file_t *ppd, ppd_option_t *option, ppd_coption_t *customOption,
                     BaseItem *parent, bool editable);

    /** Marks a complete choice: `Custom.VALUE` or `{NAME=VALUE NAME=VALUE}`. */
    void setCustomValue(const QString &value);
    void updateText();

    ppd_coption_t *m_customOption;
};

/** An option whose choices are numbers, to be edited as a number. */
class NumericalItem : public BaseItem
{
public:
    /** Shows the number that the marked choice's text is, 0 without a marked choice. */
    NumericalItem(ppd_file_t *ppd, ppd_option_t *option, BaseItem *parent);

    void paintText(QPainter *painter, const QPalette &palette, int x) override;
    void updateFromPPD(ppd_file_t *ppd) override;

    /** Shows `value`. The PPD is not marked. */
    void setValue(double value);

    ppd_option_t *m_option;
    /** Shown with three decimals, else as an integer. */
    bool m_isReal = false;
    double m_min = 0;
    double m_max = 0;
    double m_value = 0;

private:
    QString valueText() const;
};
} // namespace PPDTree
