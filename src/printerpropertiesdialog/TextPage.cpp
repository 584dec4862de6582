#include "TextPage.h"

#include "LengthUnits.h"
#include "PaperSizes.h"
#include "Picture.h"
#include "PrinterOptions.h"
#include "PropertyOptions.h"
#include "SpinBoxPair.h"
#include "ui_PrinterPropertiesDialogBase.h"

#include <QCoreApplication>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <utility>

namespace Option = PropertyOptions;

namespace
{
struct Margin {
    QLatin1StringView option;
    int PageMargins::*side;
};

constexpr std::array margins{
    Margin{Option::pageLeft, &PageMargins::left}, Margin{Option::pageRight, &PageMargins::right},
    Margin{Option::pageTop, &PageMargins::top}, Margin{Option::pageBottom, &PageMargins::bottom}};

/** Two margins that share a length of the page. */
struct MarginPair {
    SpinBoxPair *boxes;
    QSpinBox *first;
    QSpinBox *second;
    int length;
    int value1;
    int value2;
};

void show(const MarginPair &pair)
{
    const int total = MarginSlots::sharedTotal(pair.length);
    const int most = total - MarginSlots::minimum;
    pair.boxes->setTotal(total);
    // A box gives up its minimum where the other one takes the whole total.
    pair.first->setMinimum(MarginSlots::minimum);
    pair.second->setMinimum(MarginSlots::minimum);
    pair.boxes->setValue2(std::min(pair.value2, most));
    pair.boxes->setValue1(std::min(pair.value1, most));
}
} // namespace

TextPage::TextPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog)
    : ui(form)
    , m_leftRight(new SpinBoxPair(ui.LeftSpinBox, ui.RightSpinBox, dialog))
    , m_topBottom(new SpinBoxPair(ui.TopSpinBox, ui.BottomSpinBox, dialog))
    , m_paper(PaperSizes::inPoints(QString()))
{
}

void TextPage::fill()
{
    for (const LengthUnit &unit : LengthUnits::all)
        ui.UnitsCombo->addItem(
            QCoreApplication::translate(LengthUnits::translationContext, unit.name));
}

void TextPage::load(const PrinterOptions &options, PageOrientation orientation)
{
    m_orientation = orientation;
    loadMargins(options);
    ui.CpiSpinBox->setValue(options.intValue(Option::cpi, PrinterOptions::defaultCpi));
    ui.LpiSpinBox->setValue(options.intValue(Option::lpi, PrinterOptions::defaultLpi));
    const int columns = options.intValue(Option::columns, PrinterOptions::defaultColumns);
    const bool isOffered =
        columns >= ui.ColumnsSpinBox->minimum() && columns <= ui.ColumnsSpinBox->maximum();
    ui.ColumnsSpinBox->setValue(isOffered ? columns : PrinterOptions::defaultColumns);
    ui.PrettyCheckBox->setChecked(options.hasOption(Option::prettyPrint));
    m_rememberedUnit = ui.UnitsCombo->currentText();
    refreshMargins();
    refreshPictures();
}

void TextPage::loadMargins(const PrinterOptions &options)
{
    const bool isAnySet =
        std::any_of(margins.begin(), margins.end(),
                    [&options](const Margin &margin) { return options.hasOption(margin.option); });
    ui.DefaultMarginsCheckBox->setChecked(!isAnySet);
    PageMargins shown{};
    for (const Margin &margin : margins)
        shown.*margin.side = options.intValue(margin.option, MarginSlots::deviceDefault);
    m_margins.take(shown, m_orientation);
}

void TextPage::write(PrinterOptions &options)
{
    storeMargins();
    writeMargins(options);
    options.setOption(Option::columns, QString::number(ui.ColumnsSpinBox->value()));
    options.setOption(Option::cpi, QString::number(ui.CpiSpinBox->value()));
    options.setOption(Option::lpi, QString::number(ui.LpiSpinBox->value()));
    if (ui.PrettyCheckBox->isChecked())
        options.setOption(Option::prettyPrint, QString());
    else
        options.removeOption(Option::prettyPrint);
}

void TextPage::writeMargins(PrinterOptions &options) const
{
    const bool byDefault = ui.DefaultMarginsCheckBox->isChecked();
    const PageMargins shown = m_margins.shown(m_orientation);
    for (const Margin &margin : margins) {
        if (byDefault)
            options.removeOption(margin.option);
        else
            options.setOption(margin.option, QString::number(shown.*margin.side));
    }
}

bool TextPage::changed(const QObject *control)
{
    if (control != ui.UnitsCombo)
        return false;
    const QString unit = ui.UnitsCombo->currentText();
    return std::exchange(m_rememberedUnit, unit) != unit;
}

void TextPage::setPaper(const QString &sizeText)
{
    m_paper = PaperSizes::inPoints(sizeText);
}

void TextPage::setOrientation(PageOrientation orientation)
{
    m_orientation = orientation;
}

void TextPage::resetMargins()
{
    m_margins.resetToDefaults();
}

void TextPage::storeMargins()
{
    m_margins.take({ui.LeftSpinBox->value(), ui.RightSpinBox->value(), ui.TopSpinBox->value(),
                    ui.BottomSpinBox->value()},
                   m_orientation);
}

void TextPage::refreshMargins()
{
    const std::array blockers{QSignalBlocker(m_leftRight), QSignalBlocker(m_topBottom)};
    const QSize visible = PaperSizes::visible(m_paper, m_orientation);
    const PageMargins shown = m_margins.shown(m_orientation);
    for (const MarginPair &pair : {MarginPair{m_leftRight, ui.LeftSpinBox, ui.RightSpinBox,
                                              visible.width(), shown.left, shown.right},
                                   MarginPair{m_topBottom, ui.TopSpinBox, ui.BottomSpinBox,
                                              visible.height(), shown.top, shown.bottom}})
        show(pair);
    const bool areChosen = !ui.DefaultMarginsCheckBox->isChecked();
    m_leftRight->setEnabled(areChosen);
    m_topBottom->setEnabled(areChosen);
}

void TextPage::applyUnit()
{
    const LengthUnit &unit = LengthUnits::at(ui.UnitsCombo->currentIndex());
    for (MultiUnitSpinBox *box : {ui.LeftSpinBox, ui.RightSpinBox, ui.TopSpinBox, ui.BottomSpinBox})
        box->setConversion(unit.points, unit.units, unit.decimals);
}

void TextPage::refreshPictures()
{
    const QString columns = QStringLiteral("columns%1.png");
    showPicture(ui.ColumnsPixmap, columns.arg(ui.ColumnsSpinBox->value()));
    showPicture(ui.PrettyPixmap,
                ui.PrettyCheckBox->isChecked() ? QStringLiteral("pretty.png") : columns.arg(1));
}
