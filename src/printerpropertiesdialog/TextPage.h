#pragma once

#include "MarginSlots.h"

#include <QSize>
#include <QString>

class MultiUnitSpinBox;
class PrinterOptions;
class QObject;
class SpinBoxPair;

namespace Ui
{
class PrinterPropertiesDialogBase;
}

/** Margins and the options of plain text: the tab "Text". */
class TextPage
{
public:
    /** The pairs of margins become children of `dialog`. */
    TextPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog);

    /** Fills the lists of the form with what there is to choose from. */
    void fill();
    /** Shows the options on a page that lies so; what is shown counts as unchanged. */
    void load(const PrinterOptions &options, PageOrientation orientation);
    /** Takes the margins that the boxes show, and writes all options of the page. */
    void write(PrinterOptions &options);
    /** Whether `control` shows another choice than when it was asked or loaded last. */
    bool changed(const QObject *control);

    /** The name of the paper's size, a text of the list of sizes. */
    void setPaper(const QString &sizeText);
    /** To be followed by refreshMargins, as is the next one. */
    void setOrientation(PageOrientation orientation);
    void resetMargins();
    /** Takes the margins that the boxes show. */
    void storeMargins();
    /** Shows the margins in the boxes, within what the paper allows. */
    void refreshMargins();
    /** Has the margins' boxes use the unit chosen in the list. */
    void applyUnit();
    void refreshPictures();

    SpinBoxPair *leftRight() const { return m_leftRight; }
    SpinBoxPair *topBottom() const { return m_topBottom; }

private:
    void loadMargins(const PrinterOptions &options);
    void writeMargins(PrinterOptions &options) const;

    Ui::PrinterPropertiesDialogBase &ui;
    SpinBoxPair *m_leftRight;
    SpinBoxPair *m_topBottom;
    MarginSlots m_margins;
    PageOrientation m_orientation;
    /** In points. */
    QSize m_paper;
    QString m_rememberedUnit;
};
