#pragma once

#include "PageOrientation.h"
#include "PaperLayout.h"

#include <QString>

class PrinterOptions;
class QButtonGroup;
class QComboBox;
class QObject;

namespace Ui
{
class PrinterPropertiesDialogBase;
}

/** Paper, orientation, duplex, pages per side and banners: the tab "General". */
class GeneralPage
{
public:
    /** The button groups become children of `dialog`. */
    GeneralPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog);

    /** Fills the lists of the form with what there is to choose from. */
    void fill(const PrinterOptions &options);
    /** Shows the options; what is shown counts as unchanged. */
    void load(const PrinterOptions &options);
    void write(PrinterOptions &options) const;
    /** Whether `control` shows another choice than when it was asked or loaded last. */
    bool changed(const QObject *control);

    /** Shows what the driver's own options say about paper and duplex. */
    void followDriver(const PrinterOptions &options);
    /** Writes `sides` as the duplex buttons say. */
    void writeSides(PrinterOptions &options) const;
    void refreshPictures();

    PageOrientation orientation() const;
    QButtonGroup *orientationButtons() const { return m_orientationButtons; }
    QButtonGroup *duplexButtons() const { return m_duplexButtons; }
    QButtonGroup *nupButtons() const { return m_nupButtons; }

private:
    struct Choices {
        QString size;
        QString media;
        QString startBanner;
        QString endBanner;
        PageOrientation orientation;
        int duplex = PaperLayout::DuplexOff;
        int numberUp = 1;
    };

    Choices choices() const;
    void loadPaper(const PrinterOptions &options);
    void loadOrientation(const PrinterOptions &options);
    void loadDuplex(const PrinterOptions &options);
    void loadBanners(const PrinterOptions &options);
    void loadNumberUp(const PrinterOptions &options);
    void writeNumberUp(PrinterOptions &options) const;
    PaperLayout::JobSheets jobSheets() const;

    Ui::PrinterPropertiesDialogBase &ui;
    QButtonGroup *m_orientationButtons;
    QButtonGroup *m_duplexButtons;
    QButtonGroup *m_nupButtons;
    Choices m_remembered;
    /** Kept where a list has no such banner. */
    PaperLayout::JobSheets m_loadedSheets;
};
