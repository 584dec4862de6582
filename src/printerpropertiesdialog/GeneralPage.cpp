#include "GeneralPage.h"

#include "Picture.h"
#include "PrinterOptions.h"
#include "PropertyOptions.h"
#include "ui_PrinterPropertiesDialogBase.h"

#include <QButtonGroup>

#include <utility>

namespace Option = PropertyOptions;

namespace
{
QButtonGroup *makeGroup(const QString &name, QObject *dialog)
{
    auto group = new QButtonGroup(dialog);
    group->setObjectName(name);
    return group;
}

void fillCombo(QComboBox *combo, const QStringList &texts)
{
    combo->clear();
    combo->addItems(texts);
    combo->setEnabled(!texts.isEmpty());
}

/** Makes the entry with that very text current, or none. */
void select(QComboBox *combo, const QString &text)
{
    combo->setCurrentIndex(combo->findText(text));
}

/** The list's choice; `other` while it shows none. */
QString chosen(const QComboBox *combo, const QString &other)
{
    return combo->currentIndex() < 0 ? other : combo->currentText();
}

/** Remembers `now`; returns whether that is something else than before. */
template <typename T> bool takeOver(T &remembered, const T &now)
{
    return std::exchange(remembered, now) != now;
}
} // namespace

GeneralPage::GeneralPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog)
    : ui(form)
    , m_orientationButtons(makeGroup(QStringLiteral("orientationButtons"), dialog))
    , m_duplexButtons(makeGroup(QStringLiteral("duplexButtons"), dialog))
    , m_nupButtons(makeGroup(QStringLiteral("nupButtons"), dialog))
{
    m_orientationButtons->addButton(ui.PortraitRadio);
    m_orientationButtons->addButton(ui.LandscapeRadio);
    m_duplexButtons->addButton(ui.DuplexOffRadio, PaperLayout::DuplexOff);
    m_duplexButtons->addButton(ui.DuplexLongRadio, PaperLayout::DuplexLongEdge);
    m_duplexButtons->addButton(ui.DuplexShortRadio, PaperLayout::DuplexShortEdge);
    for (QRadioButton *button : {ui.OnePageRadio, ui.TwoPagesRadio, ui.FourPagesRadio})
        m_nupButtons->addButton(button, button->property("buttonGroupId").toInt());
}

void GeneralPage::fill(const PrinterOptions &options)
{
    fillCombo(ui.SizeCombo, options.choices(Option::pageSize));
    fillCombo(ui.MediaCombo, options.choices(Option::mediaType));
    fillCombo(ui.StartBannerCombo, PaperLayout::banners());
    fillCombo(ui.EndBannerCombo, PaperLayout::banners());
}

void GeneralPage::load(const PrinterOptions &options)
{
    loadPaper(options);
    loadOrientation(options);
    loadDuplex(options);
    loadBanners(options);
    loadNumberUp(options);
    m_remembered = choices();
    refreshPictures();
}

void GeneralPage::loadPaper(const PrinterOptions &options)
{
    if (ui.SizeCombo->count() > 0)
        select(ui.SizeCombo, options.valueAsText(Option::pageSize));
    if (ui.MediaCombo->count() > 0)
        select(ui.MediaCombo, options.valueAsText(Option::mediaType));
}

void GeneralPage::loadOrientation(const PrinterOptions &options)
{
    const PageOrientation orientation =
        PaperLayout::orientation(options.intValue(Option::orientationRequested, 0),
                                 options.hasCupsOption(Option::landscape));
    (orientation.landscape ? ui.LandscapeRadio : ui.PortraitRadio)->setChecked(true);
    ui.OrientationReverseCheck->setChecked(orientation.reversed);
}

void GeneralPage::loadDuplex(const PrinterOptions &options)
{
    if (options.hasOption(Option::duplex)) {
        const QString value = options.value(Option::duplex, QString());
        if (const auto duplex = PaperLayout::duplexOfDriver(value))
            m_duplexButtons->button(*duplex)->setChecked(true);
        return;
    }
    ui.DuplexGroup->setEnabled(!options.ppd());
    const QString sides = options.value(Option::sides, QString());
    m_duplexButtons->button(PaperLayout::duplexOfSides(sides))->setChecked(true);
}

void GeneralPage::loadBanners(const PrinterOptions &options)
{
    const QString value = options.value(Option::jobSheets, QString());
    if (value.isEmpty())
        return;
    m_loadedSheets = PaperLayout::JobSheets::fromOption(value);
    select(ui.StartBannerCombo, m_loadedSheets.start);
    if (!m_loadedSheets.end.isNull())
        select(ui.EndBannerCombo, m_loadedSheets.end);
}

void GeneralPage::loadNumberUp(const PrinterOptions &options)
{
    const int number = options.intValue(Option::numberUp, PrinterOptions::defaultNumberUp);
    if (PaperLayout::isNumberUp(number))
        m_nupButtons->button(number)->setChecked(true);
}

void GeneralPage::write(PrinterOptions &options) const
{
    options.setOption(Option::orientationRequested,
                      QString::number(PaperLayout::orientationRequested(orientation())));
    // It would turn the page again, whatever has been chosen.
    if (options.hasCupsOption(Option::landscape))
        options.removeOption(Option::landscape);
    options.removeOption(Option::duplex);
    if (m_duplexButtons->checkedId() == PaperLayout::DuplexOff)
        options.removeOption(Option::sides);
    else
        writeSides(options);
    writeNumberUp(options);
    options.setOption(Option::jobSheets, jobSheets().toOption());
}

void GeneralPage::writeSides(PrinterOptions &options) const
{
    options.setOption(Option::sides, PaperLayout::sides(m_duplexButtons->checkedId()));
}

void GeneralPage::writeNumberUp(PrinterOptions &options) const
{
    const int number = m_nupButtons->checkedId();
    if (number == PrinterOptions::defaultNumberUp)
        options.removeOption(Option::numberUp);
    else
        options.setOption(Option::numberUp, QString::number(number));
}

PaperLayout::JobSheets GeneralPage::jobSheets() const
{
    return {chosen(ui.StartBannerCombo, m_loadedSheets.start),
            chosen(ui.EndBannerCombo, m_loadedSheets.end)};
}

bool GeneralPage::changed(const QObject *control)
{
    const Choices now = choices();
    if (control == ui.SizeCombo)
        return takeOver(m_remembered.size, now.size);
    if (control == ui.MediaCombo)
        return takeOver(m_remembered.media, now.media);
    if (control == ui.StartBannerCombo)
        return takeOver(m_remembered.startBanner, now.startBanner);
    if (control == ui.EndBannerCombo)
        return takeOver(m_remembered.endBanner, now.endBanner);
    if (control == m_orientationButtons || control == ui.OrientationReverseCheck)
        return takeOver(m_remembered.orientation, now.orientation);
    if (control == m_duplexButtons)
        return takeOver(m_remembered.duplex, now.duplex);
    return control == m_nupButtons && takeOver(m_remembered.numberUp, now.numberUp);
}

GeneralPage::Choices GeneralPage::choices() const
{
    return {ui.SizeCombo->currentText(),
            ui.MediaCombo->currentText(),
            ui.StartBannerCombo->currentText(),
            ui.EndBannerCombo->currentText(),
            orientation(),
            m_duplexButtons->checkedId(),
            m_nupButtons->checkedId()};
}

PageOrientation GeneralPage::orientation() const
{
    return {.landscape = ui.LandscapeRadio->isChecked(),
            .reversed = ui.OrientationReverseCheck->isChecked()};
}

void GeneralPage::followDriver(const PrinterOptions &options)
{
    loadPaper(options);
    const auto duplex = PaperLayout::duplexOfDriver(options.value(Option::duplex, QString()));
    m_duplexButtons->button(duplex.value_or(PaperLayout::DuplexOff))->setChecked(true);
    const Choices now = choices();
    m_remembered.size = now.size;
    m_remembered.media = now.media;
    m_remembered.duplex = now.duplex;
    refreshPictures();
}

void GeneralPage::refreshPictures()
{
    showPicture(ui.OrientationPixmap, PaperLayout::orientationPicture(orientation()));
    showPicture(ui.DuplexPixmap, PaperLayout::duplexPicture(m_duplexButtons->checkedId()));
    showPicture(ui.NUpPixmap, PaperLayout::numberUpPicture(m_nupButtons->checkedId()));
}
