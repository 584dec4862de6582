#pragma once

#include "GeneralPage.h"
#include "GraphicsPage.h"
#include "OptionChanges.h"
#include "PrinterOptions.h"
#include "TextPage.h"

#include <QDialog>
#include <QSizeF>

#include <functional>
#include <memory>
#include <optional>

class PluginPages;

namespace Ui
{
class PrinterPropertiesDialogBase;
}

/**
 * Edits the options of one destination: paper and layout, text, images, those of the driver, and
 * what plug-ins add.
 *
 * It works on a copy of the options, over a PPD of its own. Apply and OK save them as the user's
 * options of the destination; the caller has nothing to take from the dialog but its result.
 */
class PrinterPropertiesDialog : public QDialog
{
    Q_OBJECT
public:
    /** Opens a help topic. */
    using ShowTopic = std::function<void(const QString &topic)>;

    /** `options` may hold an open PPD, whose marks are then shared with the caller. */
    PrinterPropertiesDialog(const QString &destination, const PrinterOptions &options,
                            QWidget *parent = nullptr, ShowTopic showTopic = {});
    ~PrinterPropertiesDialog() override;

    /** The options as they are now, applied or not. */
    const PrinterOptions &options() const { return m_options; }

public slots:
    virtual void FitToPage();
    virtual void OnSliderChanged();
    virtual void OnSpinChanged();
    /** Follows the control that has sent the signal. */
    virtual void UpdateControls();
    /** Writes what the controls show and saves it, unless options of the driver are in conflict. */
    virtual void ApplyChanges();
    virtual void ShowHelp();
    virtual void OnComboItemActivated(const QString &text);
    virtual void OnButtonGroupClicked(int id);
    virtual void setUseDefaultMargins(bool use);
    virtual void setReversePageOrientation(bool reverse);
    virtual void RefreshMargins();
    virtual void RefreshUnits();
    virtual void RefreshColorOptions();
    virtual void RefreshSampleImage();
    virtual void RefreshImageSize();
    virtual void RefreshImagePosition();
    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void orderButtons();
    void loadControls();
    void connectGeneral();
    void connectText();
    void connectGraphics();
    void connectAdvanced();
    void choosePaper(const QString &sizeText);
    void chooseCustomPaper(QSizeF before);
    void chooseUnit();
    void turnPage();
    void chooseDuplex();
    void followDriver();
    void driverOptionsSet();
    void applyIfChanged(bool changed);
    bool refusesConflict();
    void writeOptions();
    void save();
    void tell(const QString &title, const QString &text, const QString &details = {});

    std::unique_ptr<Ui::PrinterPropertiesDialogBase> ui;
    QString m_destination;
    PrinterOptions m_options;
    ShowTopic m_showTopic;
    /** They need the form's widgets. */
    std::optional<GeneralPage> m_general;
    std::optional<TextPage> m_text;
    std::optional<GraphicsPage> m_graphics;
    PluginPages *m_pluginPages;
    /** What the saved options are, as far as is known here. */
    OptionChanges::Values m_savedValues;
};
