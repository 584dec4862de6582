#include "PrinterPropertiesDialog.h"

#include "Destinations.h"
#include "PluginPages.h"
#include "Plugins.h"
#include "PropertyOptions.h"
#include "ServerConnection.h"
#include "SpinBoxPair.h"
#include "ui_PrinterPropertiesDialogBase.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QMessageBox>
#include <QResizeEvent>
#include <QTimer>

/** Outside of any namespace, as the macro wants it. */
static void registerPictures()
{
    Q_INIT_RESOURCE(printerpropertiesdialog);
}

namespace Option = PropertyOptions;
using ServerConnection::Patience;

namespace
{
constexpr char helpTopic[] = "VESKDestinationProperties.htm";
constexpr QLatin1StringView namePlaceholder("%s");

constexpr char customChoice[] = "Custom";

bool isCustomPaper(ppd_file_t *ppd)
{
    const ppd_choice_t *marked = ppd ? ppdFindMarkedChoice(ppd, Option::pageSize.data()) : nullptr;
    return marked && ppd->variable_sizes && qstrcmp(marked->choice, customChoice) == 0;
}

/** The marked paper's width and length in points; nothing without a driver. */
QSizeF markedPaper(ppd_file_t *ppd)
{
    const ppd_size_t *size = ppd ? ppdPageSize(ppd, nullptr) : nullptr;
    return size ? QSizeF(size->width, size->length) : QSizeF();
}

/** The choice of a custom paper of this size, as nearly as the driver allows. */
QString customPaper(const ppd_file_t *ppd, QSizeF size)
{
    const QSizeF least(ppd->custom_min[0], ppd->custom_min[1]);
    const QSizeF most(ppd->custom_max[0], ppd->custom_max[1]);
    const QSizeF allowed = size.expandedTo(least).boundedTo(most);
    return QStringLiteral("Custom.%1x%2pt").arg(allowed.width()).arg(allowed.height());
}

/** Puts the label's text where the layout begins; by itself it goes by the direction of the text.
 */
void alignWithLayout(QLabel *label)
{
    label->setAlignment(QStyle::visualAlignment(label->layoutDirection(), Qt::AlignLeft) |
                        Qt::AlignAbsolute | Qt::AlignVCenter);
}

/** Has the box show its details from the start. */
void showDetails(const QMessageBox &box)
{
    const QList<QAbstractButton *> buttons = box.buttons();
    for (QAbstractButton *button : buttons) {
        if (box.buttonRole(button) == QMessageBox::ActionRole)
            button->click();
    }
}

bool isKnown(const QString &destination)
{
    const QByteArray name = destination.section(u'/', 0, 0).toLocal8Bit();
    return Destinations::named(name.constData(), nullptr).count() > 0;
}
} // namespace

PrinterPropertiesDialog::PrinterPropertiesDialog(const QString &destination,
                                                 const PrinterOptions &options, QWidget *parent,
                                                 ShowTopic showTopic)
    : QDialog(parent)
    , ui(std::make_unique<Ui::PrinterPropertiesDialogBase>())
    , m_destination(destination)
    , m_options(options)
    , m_showTopic(std::move(showTopic))
{
    registerPictures();
    ui->setupUi(this);
    alignWithLayout(ui->TextLabel2_3);
    alignWithLayout(ui->TextLabel1_3);
    ui->ppdOptionView->setTabPredecessor(ui->ppdTreeView);
    m_general.emplace(*ui, this);
    m_text.emplace(*ui, this);
    m_graphics.emplace(*ui, this);
    m_text->fill();
    setWindowTitle(windowTitle().replace(namePlaceholder, destination));

    const Patience patience;
    m_options.setDestination(destination);
    if (!m_options.ppd())
        m_options.openPPD();
    loadControls();
    m_pluginPages = new PluginPages(ui->TabControl);
    m_pluginPages->addTo(ui->TabControl, m_options, *Plugins::plugins());
    orderButtons();
    m_savedValues = OptionChanges::values(m_options);

    connectGeneral();
    connectText();
    connectGraphics();
    connectAdvanced();
    ui->ApplyButton->setEnabled(false);
}

PrinterPropertiesDialog::~PrinterPropertiesDialog()
{
    // The rows point into the PPD, which goes before them.
    ui->ppdOptionView->setOption(nullptr);
    ui->ppdTreeView->setPPD(nullptr);
}

/** Has Tab come to the buttons last: the pages of plug-ins are made after them. */
void PrinterPropertiesDialog::orderButtons()
{
    QWidget *last = previousInFocusChain();
    while (last != this && !(last->focusPolicy() & Qt::TabFocus))
        last = last->previousInFocusChain();
    for (QPushButton *button : {ui->HelpButton, ui->ApplyButton, ui->OkButton, ui->CancelButton}) {
        setTabOrder(last, button);
        last = button;
    }
}

void PrinterPropertiesDialog::loadControls()
{
    m_general->fill(m_options);
    m_general->load(m_options);
    m_text->setPaper(ui->SizeCombo->currentText());
    m_text->load(m_options, m_general->orientation());
    m_graphics->load(m_options);
    ui->ppdTreeView->setPPD(m_options.ppd());
    const bool hasDriver = m_options.ppd();
    ui->ppdTreeView->setVisible(hasDriver);
    ui->ppdOptionView->setVisible(hasDriver);
    ui->noDriverLabel->setVisible(!hasDriver);
}

void PrinterPropertiesDialog::connectGeneral()
{
    for (const QComboBox *combo :
         {ui->SizeCombo, ui->MediaCombo, ui->StartBannerCombo, ui->EndBannerCombo, ui->UnitsCombo})
        connect(combo, &QComboBox::textActivated, this,
                &PrinterPropertiesDialog::OnComboItemActivated);
    for (const QButtonGroup *group :
         {m_general->orientationButtons(), m_general->duplexButtons(), m_general->nupButtons()})
        connect(group, &QButtonGroup::idClicked, this,
                &PrinterPropertiesDialog::OnButtonGroupClicked);
    connect(ui->OrientationReverseCheck, &QCheckBox::toggled, this,
            &PrinterPropertiesDialog::setReversePageOrientation);
}

void PrinterPropertiesDialog::connectText()
{
    connect(ui->DefaultMarginsCheckBox, &QCheckBox::toggled, this,
            &PrinterPropertiesDialog::setUseDefaultMargins);
    for (const SpinBoxPair *pair : {m_text->leftRight(), m_text->topBottom()}) {
        connect(pair, &SpinBoxPair::value1Changed, this, &PrinterPropertiesDialog::UpdateControls);
        connect(pair, &SpinBoxPair::value2Changed, this, &PrinterPropertiesDialog::UpdateControls);
    }
    for (const QSpinBox *box : {ui->CpiSpinBox, ui->LpiSpinBox, ui->ColumnsSpinBox})
        connect(box, &QSpinBox::valueChanged, this, &PrinterPropertiesDialog::UpdateControls);
    connect(ui->PrettyCheckBox, &QCheckBox::toggled, this,
            &PrinterPropertiesDialog::UpdateControls);
}

void PrinterPropertiesDialog::connectGraphics()
{
    for (const GraphicsPage::Number &number : m_graphics->numbers()) {
        connect(number.slider, &QSlider::valueChanged, this,
                &PrinterPropertiesDialog::OnSliderChanged);
        connect(number.spinBox, &QSpinBox::valueChanged, this,
                &PrinterPropertiesDialog::OnSpinChanged);
    }
    for (const QAbstractButton *button : std::initializer_list<QAbstractButton *>{
             ui->DefColorsCheckBox, ui->ResolutionCheckBox, ui->ScalingCheckBox})
        connect(button, &QAbstractButton::toggled, this, &PrinterPropertiesDialog::UpdateControls);
    connect(ui->FitToPageButton, &QPushButton::clicked, this, &PrinterPropertiesDialog::FitToPage);
    for (const QSlider *slider : {ui->HorPositionSlider, ui->VerPositionSlider})
        connect(slider, &QSlider::valueChanged, this, &PrinterPropertiesDialog::UpdateControls);
}

void PrinterPropertiesDialog::connectAdvanced()
{
    connect(ui->ppdTreeView, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged),
            ui->ppdOptionView, &PPDOptionView::setOption);
    ui->ppdTreeView->viewport()->installEventFilter(this);
    connect(ui->ppdOptionView, &PPDOptionView::optionChanged, ui->ppdTreeView,
            &PPDTreeView::checkConstraints);
    connect(ui->ppdOptionView, &PPDOptionView::optionChanged, this,
            &PrinterPropertiesDialog::UpdateControls);
    connect(m_pluginPages, &PluginPages::optionChanged, this,
            &PrinterPropertiesDialog::UpdateControls);
    connect(ui->HelpButton, &QPushButton::clicked, this, &PrinterPropertiesDialog::ShowHelp);
    connect(ui->ApplyButton, &QPushButton::clicked, this, &PrinterPropertiesDialog::ApplyChanges);
}

void PrinterPropertiesDialog::FitToPage()
{
    ui->ScalingSpinBox->setValue(PrinterOptions::defaultScaling);
    UpdateControls();
}

void PrinterPropertiesDialog::OnSliderChanged()
{
    m_graphics->copySlidersToSpinBoxes();
    RefreshSampleImage();
    UpdateControls();
}

void PrinterPropertiesDialog::OnSpinChanged()
{
    m_graphics->copySpinBoxesToSliders();
    RefreshSampleImage();
    UpdateControls();
}

void PrinterPropertiesDialog::UpdateControls()
{
    const QObject *control = sender();
    if (control == ui->ColumnsSpinBox || control == ui->PrettyCheckBox)
        m_text->refreshPictures();
    else if (control == ui->DefColorsCheckBox)
        RefreshColorOptions();
    else if (control == ui->ResolutionCheckBox || control == ui->ScalingCheckBox ||
             control == ui->FitToPageButton)
        RefreshImageSize();
    else if (control == ui->HorPositionSlider || control == ui->VerPositionSlider)
        RefreshImagePosition();
    else if (control == ui->ppdOptionView)
        followDriver();
    ui->ApplyButton->setEnabled(true);
}

void PrinterPropertiesDialog::OnComboItemActivated(const QString &text)
{
    const QObject *combo = sender();
    const bool changed = m_general->changed(combo) || m_text->changed(combo);
    if (combo == ui->SizeCombo) {
        choosePaper(text);
    } else if (combo == ui->MediaCombo) {
        m_options.setValueAsText(Option::mediaType, text);
        driverOptionsSet();
        m_pluginPages->update(m_options);
    } else if (combo == ui->UnitsCombo) {
        chooseUnit();
    }
    applyIfChanged(changed);
}

void PrinterPropertiesDialog::choosePaper(const QString &sizeText)
{
    m_text->storeMargins();
    m_text->setPaper(sizeText);
    RefreshMargins();
    const QSizeF before = markedPaper(m_options.ppd());
    m_options.setValueAsText(Option::pageSize, sizeText);
    if (isCustomPaper(m_options.ppd()))
        chooseCustomPaper(before);
    driverOptionsSet();
    m_pluginPages->update(m_options);
}

/** A custom paper has no size until one is given: the last one, or the paper's there was before. */
void PrinterPropertiesDialog::chooseCustomPaper(QSizeF before)
{
    const QString last = ui->ppdOptionView->customPageSize();
    m_options.setOption(Option::pageSize,
                        last.isEmpty() ? customPaper(m_options.ppd(), before) : last);
}

void PrinterPropertiesDialog::chooseUnit()
{
    m_text->storeMargins();
    m_text->applyUnit();
    RefreshUnits();
}

void PrinterPropertiesDialog::OnButtonGroupClicked(int)
{
    const QObject *group = sender();
    const bool changed = m_general->changed(group);
    m_general->refreshPictures();
    if (group == m_general->orientationButtons())
        turnPage();
    else if (group == m_general->duplexButtons())
        chooseDuplex();
    applyIfChanged(changed);
}

void PrinterPropertiesDialog::setReversePageOrientation(bool)
{
    const bool changed = m_general->changed(ui->OrientationReverseCheck);
    m_general->refreshPictures();
    turnPage();
    applyIfChanged(changed);
}

/** The margins stay where they are on the paper. */
void PrinterPropertiesDialog::turnPage()
{
    m_text->storeMargins();
    m_text->setOrientation(m_general->orientation());
    RefreshMargins();
}

void PrinterPropertiesDialog::chooseDuplex()
{
    m_general->writeSides(m_options);
    driverOptionsSet();
}

void PrinterPropertiesDialog::followDriver()
{
    m_general->followDriver(m_options);
    m_text->storeMargins();
    m_text->setPaper(ui->SizeCombo->currentText());
    RefreshMargins();
    m_pluginPages->update(m_options);
}

/** The editor of a row may take some of the tree's height: then the row stays in sight. */
bool PrinterPropertiesDialog::eventFilter(QObject *watched, QEvent *event)
{
    PPDTreeView *tree = ui->ppdTreeView;
    if (event->type() == QEvent::Resize && watched == tree->viewport() && tree->currentItem()) {
        const QRect before(QPoint(), static_cast<QResizeEvent *>(event)->oldSize());
        if (before.intersects(tree->visualItemRect(tree->currentItem())))
            QTimer::singleShot(0, tree, [tree] { tree->scrollToItem(tree->currentItem()); });
    }
    return QDialog::eventFilter(watched, event);
}

/** Has the tree show what the dialog has set in the PPD, and the pane what the tree shows. */
void PrinterPropertiesDialog::driverOptionsSet()
{
    if (!m_options.ppd())
        return;
    ui->ppdTreeView->reloadFromPPD(m_options.ppd());
    const QList<QTreeWidgetItem *> selected = ui->ppdTreeView->selectedItems();
    ui->ppdOptionView->setOption(selected.value(0));
}

void PrinterPropertiesDialog::applyIfChanged(bool changed)
{
    ui->ApplyButton->setEnabled(ui->ApplyButton->isEnabled() || changed);
}

void PrinterPropertiesDialog::setUseDefaultMargins(bool use)
{
    if (use) {
        m_text->storeMargins();
        m_text->resetMargins();
    }
    RefreshMargins();
    UpdateControls();
}

void PrinterPropertiesDialog::RefreshMargins()
{
    m_text->refreshMargins();
}

void PrinterPropertiesDialog::RefreshUnits()
{
    RefreshMargins();
}

void PrinterPropertiesDialog::RefreshColorOptions()
{
    m_graphics->refreshColorOptions();
    RefreshSampleImage();
}

void PrinterPropertiesDialog::RefreshSampleImage()
{
    m_graphics->refreshSampleImage();
}

void PrinterPropertiesDialog::RefreshImageSize()
{
    m_graphics->refreshImageSize();
    m_pluginPages->update(m_options);
}

void PrinterPropertiesDialog::RefreshImagePosition()
{
    m_graphics->refreshImagePosition();
}

void PrinterPropertiesDialog::ApplyChanges()
{
    if (refusesConflict())
        return;
    writeOptions();
    save();
    ui->ApplyButton->setEnabled(false);
}

bool PrinterPropertiesDialog::refusesConflict()
{
    if (!ui->ppdTreeView->m_hasConflicts)
        return false;
    //: Title of a message. Keep the name lpr.
    tell(tr("LPR GUI: Options Conflict"),
         //: "Advanced" is the tab of that name.
         tr("Some options selected are in conflict.\nResolve those conflicts before "
            "continuing.\nHint: click Advanced on Device tab.\nConflicting options will be shown "
            "in red color.\n"));
    return true;
}

void PrinterPropertiesDialog::writeOptions()
{
    m_general->write(m_options);
    m_text->write(m_options);
    m_graphics->write(m_options);
    m_pluginPages->apply(m_options);
}

void PrinterPropertiesDialog::save()
{
    const Patience patience;
    const OptionChanges::Values values = OptionChanges::values(m_options);
    if (!m_options.save(m_destination)) {
        tell(tr("Options Not Saved"),
             //: %1 is the name of a printer.
             tr("The options of \"%1\" could not be saved: the print server does not answer, or "
                "the file of the saved options cannot be written. The changes are listed below; "
                "they will not apply to what you print.")
                 .arg(m_destination),
             OptionChanges::describe(m_savedValues, values).join(u'\n'));
        return;
    }
    m_savedValues = values;
    if (!isKnown(m_destination))
        tell(tr("Unknown Printer"),
             //: %1 is the name of a printer.
             tr("The print server no longer knows \"%1\". Its options were saved on this computer "
                "for the case that it comes back.")
                 .arg(m_destination));
}

void PrinterPropertiesDialog::tell(const QString &title, const QString &text,
                                   const QString &details)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
    // The name of a destination is shown as it is.
    box.setTextFormat(Qt::PlainText);
    box.setDetailedText(details);
    showDetails(box);
    box.exec();
}

void PrinterPropertiesDialog::accept()
{
    ApplyChanges();
    if (!ui->ppdTreeView->m_hasConflicts)
        QDialog::accept();
}

void PrinterPropertiesDialog::ShowHelp()
{
    if (m_showTopic)
        m_showTopic(QString::fromLatin1(helpTopic));
}

void PrinterPropertiesDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1)
        ShowHelp();
    QDialog::keyPressEvent(event);
}
