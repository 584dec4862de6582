#include "PrintDialog.h"

#include "CUPSManager.h"
#include "DestinationList.h"
#include "DestinationState.h"
#include "PageList.h"
#include "PrintDialogOptions.h"
#include "ProcessEx.h"
#include "ServerConnection.h"
#include "ui_PrintDialogBase.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QDebug>
#include <QIcon>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

/** Outside of any namespace, as the macro wants it. */
static void registerPictures()
{
    Q_INIT_RESOURCE(printdialog);
}

using namespace PrintDialogOptions;
using ServerConnection::Patience;
using namespace std::chrono_literals;

namespace
{
constexpr char helpTopic[] = "VESK.htm#GuiLPRDialog";
constexpr auto pauseBetweenTries = 50ms;
/** For how long the list may keep the dialog from opening; the regular tries fit in well. */
constexpr auto listPatience = 2s;

DestinationState lookUp(const QString &queue)
{
    if (queue.isEmpty())
        return {};
    CUPSPrinter printer;
    if (_CUPS->findPrinter(queue, printer, false))
        return DestinationState(printer.attributes);
    ClassInfo printerClass;
    if (_CUPS->findClass(queue, printerClass))
        return DestinationState(printerClass);
    return {};
}

/** The queue of a destination: its name without the instance. */
QString queueOf(const QString &destination)
{
    return destination.section(u'/', 0, 0);
}

DestinationList::Entries listDestinations()
{
    return DestinationList::listPatiently(
        Destinations::listWithoutDiscovery, [] { std::this_thread::sleep_for(pauseBetweenTries); },
        QDeadlineTimer(listPatience));
}

bool isYes(const QString &value)
{
    static constexpr std::array words{"true", "on", "yes"};
    return std::any_of(words.begin(), words.end(), [&value](const char *word) {
        return value.compare(QLatin1StringView(word), Qt::CaseInsensitive) == 0;
    });
}

/** A picture of the program, as sharp as the screen of `widget`. */
QPixmap picture(const QString &fileName, const QWidget *widget)
{
    const QString path =
        QStringLiteral(":/%1/%2").arg(QStringLiteral("printdialog/images"), fileName);
    const QPixmap plain(path);
    const qreal ratio = widget->devicePixelRatio();
    return ratio > 1 ? QIcon(path).pixmap(plain.size(), ratio) : plain;
}

/**
 * Shows a text of any length in a label that may be too narrow for it. Who hears the label instead
 * of seeing it is told its caption, too.
 */
void showText(QLabel *label, const QLabel *caption, const QString &text)
{
    label->setAccessibleName(QStringLiteral("%1 %2").arg(caption->text(), text).trimmed());
    label->setText(text);
    label->setToolTip(text.isEmpty() ? QString()
                                     : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
}

/**
 * Keeps the text of a label at the side where the layout begins. By itself a label goes by its
 * text, and a description in English would move away from its caption in a right-to-left dialog.
 */
void alignWithLayout(QLabel *label)
{
    const Qt::Alignment start = QStyle::visualAlignment(label->layoutDirection(), Qt::AlignLeft);
    label->setAlignment(start | Qt::AlignAbsolute | Qt::AlignTop);
}

/**
 * Whether the PPD of `options` collates by default; nothing when it has no such option. The PPD is
 * closed afterwards.
 */
std::optional<bool> collatesByDefault(PrinterOptions &options)
{
    const Patience patience;
    std::optional<bool> result;
    if (options.openPPD() && options.ppd()) {
        if (const ppd_option_t *option = ppdFindOption(options.ppd(), collate.data()))
            result = isYes(QString::fromLatin1(option->defchoice));
    }
    options.closePPD();
    return result;
}
} // namespace

PrintDialog::PrintDialog(const QString &printer, const PrinterOptions &options,
                         PrintDialogServices services)
    : ui(std::make_unique<Ui::PrintDialogBase>())
    , m_initialOptions(options)
    , m_pageSelection(new QButtonGroup(this))
    , m_services(std::move(services))
    , m_printer(printer)
{
    registerPictures();
    ui->setupUi(this);
    if (!m_services.createPropertiesDialog)
        ui->PropertiesButton->setToolTip(tr("This version has no properties dialog."));
    m_pageSelection->addButton(ui->AllPagesRadio, PageAndCopies::AllPages);
    m_pageSelection->addButton(ui->EvenPagesRadio, PageAndCopies::EvenPages);
    m_pageSelection->addButton(ui->OddPagesRadio, PageAndCopies::OddPages);
    m_pageSelection->addButton(ui->SomePagesRadio, PageAndCopies::SomePages);
    connectControls();
    for (QLabel *label : {ui->LocationText, ui->StatusText, ui->DescriptionText, ui->PagesComments})
        alignWithLayout(label);
    ui->PagesComments->setMinimumHeight(ui->PagesComments->sizeHint().height());
    updatePageSelectionControls();
    updateCopiesControls();

    const Patience patience;
    fillDestinations();
    SelectPrinter(destinationAskedFor());
    m_userChooses = ui->PrintersCombo->findText(destinationAskedFor()) >= 0;
    connectFirstInput();
}

PrintDialog::~PrintDialog() = default;

void PrintDialog::connectControls()
{
    connect(ui->PropertiesButton, &QPushButton::clicked, this, &PrintDialog::EditProperties);
    connect(ui->StartButton, &QPushButton::clicked, this, &PrintDialog::StartPrinter);
    connect(ui->SetAsDefButton, &QPushButton::clicked, this, &PrintDialog::SetAsDefault);
    connect(ui->CopiesSpinBox, &QSpinBox::valueChanged, this, &PrintDialog::updateCopiesControls);
    connect(ui->CollateCheckBox, &QCheckBox::clicked, this, &PrintDialog::updateCopiesControls);
    connect(ui->ReverseCheckBox, &QCheckBox::clicked, this, &PrintDialog::updateCopiesControls);
    connect(ui->PrintersCombo, &QComboBox::textActivated, this, &PrintDialog::SelectPrinter);
    connect(m_pageSelection, &QButtonGroup::idClicked, this,
            &PrintDialog::updatePageSelectionControls);
    connect(ui->buttonHelp, &QPushButton::clicked, this, &PrintDialog::ShowHelp);
}

/** From the first input on, the selection is the user's. */
void PrintDialog::connectFirstInput()
{
    const auto userChooses = [this] { m_userChooses = true; };
    // A press comes before the click, which may open a dialog with an event loop of its own.
    const QList<QAbstractButton *> buttons = findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        connect(button, &QAbstractButton::pressed, this, userChooses);
    connect(m_pageSelection, &QButtonGroup::idClicked, this, userChooses);
    connect(ui->PrintersCombo, &QComboBox::textActivated, this, userChooses);
    connect(ui->PagesEdit, &QLineEdit::textEdited, this, userChooses);
    connect(ui->CopiesSpinBox, &QSpinBox::valueChanged, this, userChooses);
}

void PrintDialog::fillDestinations()
{
    m_entries = listDestinations();
    for (const Destinations::Entry &entry : std::as_const(m_entries)) {
        const QString text = DestinationList::entryText(entry);
        ui->PrintersCombo->addItem(text);
        if (entry.isDefault)
            m_defaultDestination = text;
    }
}

QString PrintDialog::destinationAskedFor() const
{
    return m_printer.isEmpty() ? m_defaultDestination : m_printer;
}

void PrintDialog::startDiscovery()
{
    m_discovery = std::make_unique<Destinations::Discovery>();
    connect(m_discovery.get(), &Destinations::Discovery::finished, this,
            &PrintDialog::joinDestinations);
    QTimer::singleShot(0, m_discovery.get(), &Destinations::Discovery::start);
}

void PrintDialog::joinDestinations(const QList<Destinations::Entry> &entries)
{
    QAbstractItemView *list = ui->PrintersCombo->view();
    if (list->isVisible()) {
        // Rows must not move under the user's pointer.
        m_lateEntries = entries;
        list->installEventFilter(this);
        return;
    }
    const bool defaultBecameKnown = insertDestinations(entries);
    if (!m_userChooses && ui->PrintersCombo->findText(destinationAskedFor()) >= 0) {
        m_userChooses = true;
        SelectPrinter(destinationAskedFor());
    } else if (defaultBecameKnown) {
        updatePrinterControls();
    }
}

/** Returns whether the default destination, unknown so far, is among the inserted ones. */
bool PrintDialog::insertDestinations(const QList<Destinations::Entry> &entries)
{
    const bool hadDefault = !m_defaultDestination.isEmpty();
    const bool hadSelection = ui->PrintersCombo->currentIndex() >= 0;
    const QList<DestinationList::Addition> additions =
        DestinationList::additions(m_entries, entries);
    for (const DestinationList::Addition &addition : additions) {
        const QString text = DestinationList::entryText(addition.entry);
        m_entries.insert(addition.index, addition.entry);
        ui->PrintersCombo->insertItem(static_cast<int>(addition.index), text);
        if (addition.entry.isDefault && !hadDefault)
            m_defaultDestination = text;
    }
    // The first entry of an empty list becomes current by itself; nobody has selected it.
    if (!hadSelection)
        ui->PrintersCombo->setCurrentIndex(-1);
    return !hadDefault && !m_defaultDestination.isEmpty();
}

bool PrintDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && watched == ui->PrintersCombo->view()) {
        watched->removeEventFilter(this);
        // The choice that closes the list is reported after this event.
        QTimer::singleShot(0, this, [this] { joinDestinations(std::exchange(m_lateEntries, {})); });
    }
    return QDialog::eventFilter(watched, event);
}

void PrintDialog::loadOptions(const QString &destination)
{
    m_options.clearCupsOptions();
    m_options.setDestination(destination);
    m_options.load(destination);
}

void PrintDialog::SelectPrinter(const QString &name)
{
    const Patience patience;
    if (name != m_destination) {
        const int index = ui->PrintersCombo->findText(name);
        if (index >= 0)
            ui->PrintersCombo->setCurrentIndex(index);
        loadOptions(name);
        m_options.copyMediaOptions(m_initialOptions);
        setOptions(m_options);
        m_destination = ui->PrintersCombo->currentText();
    }
    updatePrinterControls();
}

void PrintDialog::updatePrinterControls()
{
    const Patience patience;
    const DestinationState state = lookUp(queueOf(m_destination));
    showText(ui->StatusText, ui->StatusLabel, CUPSManager::stateText(state.state, state.accepting));
    showText(ui->LocationText, ui->LocationLabel, state.location);
    showText(ui->DescriptionText, ui->DescriptionLabel, state.description);
    ui->PrinterImage->setPixmap(devicePicture(state.makeAndModel));

    ui->PropertiesButton->setEnabled(state.found && m_services.createPropertiesDialog);
    ui->OkButton->setEnabled(state.found);
    ui->StartButton->setEnabled(state.needsStart());
    ui->SetAsDefButton->setEnabled(state.found && m_destination != m_defaultDestination);

    ui->CopiesSpinBox->setRange(state.copiesMin, state.copiesMax);
    ui->CopiesLabel->setText(QStringLiteral("Copies [%1~%2]")
                                 .arg(ui->CopiesSpinBox->minimum())
                                 .arg(ui->CopiesSpinBox->maximum()));
}

QPixmap PrintDialog::devicePicture(const QString &makeAndModel) const
{
    return m_services.devicePicture ? m_services.devicePicture(makeAndModel) : QPixmap();
}

void PrintDialog::EditProperties()
{
    if (!m_services.createPropertiesDialog)
        return;
    const bool collated = ui->CollateCheckBox->isChecked();
    const std::optional<bool> collatedByDefault = collatesByDefault(m_options);
    if (collatedByDefault)
        m_options.setOption(collate, collated ? on : off);

    std::unique_ptr<QDialog> properties(
        m_services.createPropertiesDialog(m_destination, m_options, this));
    const bool accepted = properties && properties->exec() == QDialog::Accepted;
    properties.reset();

    loadOptions(m_destination);
    if (!accepted || !collatedByDefault)
        return;
    const QString value = m_options.value(collate, QString());
    ui->CollateCheckBox->setChecked(value.isEmpty() ? *collatedByDefault : isYes(value));
    updateCopiesControls();
}

void PrintDialog::StartPrinter()
{
    Patience patience;
    const QString uri = lookUp(queueOf(m_destination)).uri;
    if (!uri.isEmpty()) {
        _CUPS->startPrinter(uri.toUtf8().constData());
        // Who has cancelled the question for the password is to see the state, too.
        patience.goOn();
    }
    updatePrinterControls();
}

void PrintDialog::SetAsDefault()
{
    if (m_destination == m_defaultDestination) {
        qWarning("Destination is already default");
        return;
    }
    // It asks the server without a limit of its own.
    const std::chrono::milliseconds limit(ServerConnection::limits().totalMs);
    const int status = ProcessEx::execute(QStringLiteral("lpoptions"),
                                          {QStringLiteral("-d"), m_destination}, limit);
    ui->SetAsDefButton->setEnabled(false);
    if (status != 0)
        //: Title of a message: something could not be done.
        refuse(tr("Error!"),
               //: %1 is the name of a printer.
               tr("\"%1\" could not be made the default.").arg(m_destination));
}

void PrintDialog::ShowHelp()
{
    if (m_services.showHelp)
        m_services.showHelp(QString::fromLatin1(helpTopic));
}

void PrintDialog::setOptions(PrinterOptions options)
{
    PageAndCopies asked = PageAndCopies::fromOptions(options.cupsOptions());
    if (m_initialOptions.hasOption(multipleDocumentHandling)) {
        const QString handling = m_options.value(multipleDocumentHandling, QString());
        asked.collate = PageAndCopies::collates(handling).value_or(asked.collate);
    }
    showChoice(asked);
}

void PrintDialog::showChoice(const PageAndCopies &choice)
{
    m_pageSelection->button(choice.pages)->setChecked(true);
    ui->PagesEdit->setText(choice.pageText);
    ui->CopiesSpinBox->setValue(choice.copies);
    ui->CollateCheckBox->setChecked(choice.collate);
    ui->ReverseCheckBox->setChecked(choice.reverse);
    updatePageSelectionControls();
    updateCopiesControls();
}

PageAndCopies PrintDialog::choice() const
{
    PageAndCopies choice;
    choice.pages = static_cast<PageAndCopies::Pages>(m_pageSelection->checkedId());
    choice.pageText = ui->PagesEdit->text();
    choice.copies = ui->CopiesSpinBox->value();
    choice.collate = ui->CollateCheckBox->isChecked();
    choice.reverse = ui->ReverseCheckBox->isChecked();
    return choice;
}

void PrintDialog::updatePageSelectionControls()
{
    ui->PagesEdit->setEnabled(ui->SomePagesRadio->isChecked());
    // Tab leads to the chosen one of the radio buttons, whoever has chosen it.
    const QList<QAbstractButton *> radios = m_pageSelection->buttons();
    for (QAbstractButton *radio : radios)
        radio->setFocusPolicy(radio->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void PrintDialog::updateCopiesControls()
{
    ui->CollateCheckBox->setEnabled(ui->CopiesSpinBox->value() > 1);
    const QString file = PageAndCopies::pictureFile(ui->CollateCheckBox->isChecked(),
                                                    ui->ReverseCheckBox->isChecked());
    ui->CopiesImage->setPixmap(picture(file, this));
}

void PrintDialog::accept()
{
    if (ui->StartButton->isEnabled()) {
        //: Title of a message: what is asked for cannot be done now.
        refuse(tr("Warning!"), tr("You can't print anything while printer is stopped. Please, "
                                  "start the selected printer."));
        return;
    }
    const PageAndCopies asked = choice();
    if (!acceptsPages(asked))
        return;
    const auto options = asked.toOptions();
    for (const auto &[name, value] : options)
        m_options.setOption(name, value);
    if (!m_options.hasOption(scaling) && !m_initialOptions.hasOption(scaling))
        m_options.setOption(scaling, QString::number(PrinterOptions::defaultScaling));
    QDialog::accept();
}

bool PrintDialog::acceptsPages(const PageAndCopies &choice)
{
    if (choice.pages != PageAndCopies::SomePages)
        return true;
    const PageList::Check check = PageList::check(choice.pageText);
    if (check.valid)
        return true;
    // Each placeholder is %1, so the page text fills all three of them. Only a translation that
    // numbers them shows the position and the item.
    //: Title of a message: something could not be done.
    refuse(tr("Error!"),
           //: Number the placeholders in a translation: %1 is all that was typed, %2 the position
           //: of the error in it, %3 what stands there.
           tr("Invalid page ranges \"%1\"\n"
              "Error at position %1: invalid range value \"%1\"")
               .arg(choice.pageText)
               .arg(check.position)
               .arg(check.item));
    ui->PagesEdit->setFocus();
    ui->PagesEdit->setSelection(static_cast<int>(check.position),
                                static_cast<int>(check.item.size()));
    return false;
}

void PrintDialog::refuse(const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
    // What the user has typed is shown as it is, tags included.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void PrintDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1)
        ShowHelp();
    QDialog::keyPressEvent(event);
}

void PrintDialog::paintEvent(QPaintEvent *event)
{
    // Set only when it differs: each change causes another paint event.
    const int height = sizeHint().height();
    if (minimumHeight() != height)
        setMinimumHeight(height);
    QDialog::paintEvent(event);
    if (!m_discovery)
        startDiscovery();
}
