#pragma once

#include "Destinations.h"
#include "PrinterOptions.h"

#include <QDialog>
#include <QPixmap>

#include <functional>
#include <memory>

class QButtonGroup;

namespace Ui
{
class PrintDialogBase;
}

/** What the print dialog needs of the rest of the program. Each may be empty. */
struct PrintDialogServices {
    /** Opens a help topic. */
    std::function<void(const QString &topic)> showHelp;
    /** The picture of a device by its make and model (may be empty); null: the generic one. */
    std::function<QPixmap(const QString &makeAndModel)> devicePicture;
    /**
     * Makes the properties dialog of `destination` over its options. The caller deletes it. While
     * this is empty there is no such dialog, and the Properties button says so by being disabled.
     */
    std::function<QDialog *(const QString &destination, const PrinterOptions &options,
                            QWidget *parent)>
        createPropertiesDialog;
};

/**
 * The dialog that is shown before files are sent: destination and its state, pages, copies.
 *
 * After exec() was accepted, `destination()` and `options()` are what the job is sent with.
 */
class PrintDialog : public QDialog
{
    Q_OBJECT
public:
    /**
     * `printer` is the destination asked for (empty: the default one), `options` the job options of
     * the command line.
     */
    PrintDialog(const QString &printer, const PrinterOptions &options,
                PrintDialogServices services = {});
    ~PrintDialog() override;

    const QString &destination() const { return m_destination; }
    const PrinterOptions &options() const { return m_options; }

public slots:
    virtual void EditProperties();
    virtual void StartPrinter();
    virtual void SetAsDefault();
    virtual void SelectPrinter(const QString &name);
    virtual void ShowHelp();
    void setOptions(PrinterOptions options);
    void accept() override;
    virtual void updatePrinterControls();
    virtual void updatePageSelectionControls();
    virtual void updateCopiesControls();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    std::unique_ptr<Ui::PrintDialogBase> ui;
    QString m_destination;
    QString m_defaultDestination;
    PrinterOptions m_options;
    PrinterOptions m_initialOptions;
    QButtonGroup *m_pageSelection;
    PrintDialogServices m_services;
};
