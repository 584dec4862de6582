#pragma once

#include "Destinations.h"
#include "PageAndCopies.h"
#include "PrinterOptions.h"

#include <QDialog>
#include <QList>
#include <QPixmap>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QButtonGroup;

namespace Ui
{
class PrintDialogBase;
}

/** What the print dialog needs of the rest of the program. Each may be empty. */
struct PrintDialogServices {
    /** Opens a help topic. */
    std::function<void(const QString &topic)> showHelp;
    /** The picture of a device by its make and model (may be empty). */
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

    /**
     * Adds those of `entries` (all destinations, sorted) that the list lacks, without moving the
     * user's selection; while the list is popped down, not before it is closed. A destination that
     * was asked for and was not known before is selected, unless the user has begun to choose.
     */
    void joinDestinations(const QList<Destinations::Entry> &entries);

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
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectControls();
    void connectFirstInput();
    void fillDestinations();
    void startDiscovery();
    bool insertDestinations(const QList<Destinations::Entry> &entries);
    QString destinationAskedFor() const;
    void loadOptions(const QString &destination);
    QPixmap devicePicture(const QString &makeAndModel) const;
    PageAndCopies choice() const;
    void showChoice(const PageAndCopies &choice);
    bool acceptsPages(const PageAndCopies &choice);
    void refuse(const QString &title, const QString &text);

    std::unique_ptr<Ui::PrintDialogBase> ui;
    QString m_destination;
    QString m_defaultDestination;
    PrinterOptions m_options;
    PrinterOptions m_initialOptions;
    QButtonGroup *m_pageSelection;

    PrintDialogServices m_services;
    QString m_printer;
    /** What PrintersCombo shows, entry by entry. */
    QList<Destinations::Entry> m_entries;
    /** What discovery has found while the list was popped down. */
    QList<Destinations::Entry> m_lateEntries;
    std::unique_ptr<Destinations::Discovery> m_discovery;
    /** Whether the user has touched a control; from then on only the user selects. */
    bool m_userChooses = false;
};
