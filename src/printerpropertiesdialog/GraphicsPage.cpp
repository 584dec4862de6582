#include "GraphicsPage.h"

#include "ColorTransform.h"
#include "ImagePosition.h"
#include "Picture.h"
#include "PrinterOptions.h"
#include "PropertyOptions.h"
#include "ui_PrinterPropertiesDialogBase.h"

#include <QButtonGroup>
#include <QSignalBlocker>

#include <algorithm>

namespace Option = PropertyOptions;

namespace
{
/** Where the numbers lie in their table; the colours come first. */
enum Index { Brightness, Gamma, Hue, Saturation, Resolution, Scaling };

bool hasDriverOption(const PrinterOptions &options, QLatin1StringView name)
{
    return options.ppd() && ppdFindOption(options.ppd(), name.data());
}
} // namespace

GraphicsPage::GraphicsPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog)
    : ui(form)
    , m_numbers{{{Option::brightness, PrinterOptions::defaultBrightness, ui.BrightnessLabel,
                  ui.BrightnessSlider, ui.BrightnessSpinBox},
                 {Option::gamma, PrinterOptions::defaultGamma, ui.GammaLabel, ui.GammaSlider,
                  ui.GammaSpinBox},
                 {Option::hue, PrinterOptions::defaultHue, ui.HueLabel, ui.HueSlider,
                  ui.HueSpinBox},
                 {Option::saturation, PrinterOptions::defaultSaturation, ui.SaturationLabel,
                  ui.SaturationSlider, ui.SaturationSpinBox},
                 {Option::ppi, PrinterOptions::defaultResolution, ui.PpiLabel, ui.ResolutionSlider,
                  ui.ResolutionSpinBox},
                 {Option::scaling, PrinterOptions::defaultScaling, ui.PercentLabel,
                  ui.ScalingSlider, ui.ScalingSpinBox}}}
    , m_sampleImage(picture(QStringLiteral("sample.png"), ui.SampleImagePixmap).toImage())
{
    showPicture(ui.frameImagePosition, QStringLiteral("position_page.png"));
    showPicture(ui.framePositionedImage, QStringLiteral("positioned_image.png"));
    auto group = new QButtonGroup(dialog);
    group->setObjectName(QStringLiteral("imageSizeButtons"));
    group->addButton(ui.ResolutionCheckBox);
    group->addButton(ui.ScalingCheckBox);
}

void GraphicsPage::load(const PrinterOptions &options)
{
    m_areColorsLocked =
        hasDriverOption(options, Option::brightness) || hasDriverOption(options, Option::gamma);
    loadColors(options);
    loadSize(options);
    const auto position = ImagePosition::fromOption(options.value(Option::position, QString()));
    ui.HorPositionSlider->setValue(position.horizontal);
    ui.VerPositionSlider->setValue(position.vertical);
    copySlidersToSpinBoxes();
    refreshColorOptions();
    refreshSampleImage();
    refreshImageSize();
    refreshImagePosition();
}

void GraphicsPage::loadColors(const PrinterOptions &options)
{
    bool isAnySet = false;
    for (const Number &color : colors()) {
        isAnySet = isAnySet || options.contains(color.option);
        color.slider->setValue(options.intValue(color.option, color.defaultValue));
    }
    ui.DefColorsCheckBox->setChecked(!isAnySet);
}

void GraphicsPage::loadSize(const PrinterOptions &options)
{
    for (const Index index : {Resolution, Scaling}) {
        const Number &number = m_numbers[index];
        number.slider->setValue(options.intValue(number.option, number.defaultValue));
    }
    const bool byResolution = options.hasOption(Option::ppi);
    (byResolution ? ui.ResolutionCheckBox : ui.ScalingCheckBox)->setChecked(true);
}

void GraphicsPage::write(PrinterOptions &options) const
{
    writeColors(options);
    writeSize(options);
    const QString position =
        ImagePosition::fromSliders(ui.HorPositionSlider->value(), ui.VerPositionSlider->value())
            .toOption();
    if (position.isEmpty())
        options.removeOption(Option::position);
    else
        options.setOption(Option::position, position);
}

void GraphicsPage::writeColors(PrinterOptions &options) const
{
    for (const Number &color : colors()) {
        if (ui.DefColorsCheckBox->isChecked())
            options.removeOption(color.option);
        else
            options.setOption(color.option, QString::number(color.slider->value()));
    }
}

void GraphicsPage::writeSize(PrinterOptions &options) const
{
    const auto writeIf = [&options](bool isChosen, const Number &number) {
        if (isChosen)
            options.setOption(number.option, QString::number(number.spinBox->value()));
        else
            options.removeOption(number.option);
    };
    writeIf(ui.ResolutionCheckBox->isChecked(), m_numbers[Resolution]);
    writeIf(ui.ScalingCheckBox->isChecked(), m_numbers[Scaling]);
}

void GraphicsPage::copySlidersToSpinBoxes()
{
    for (const Number &number : m_numbers) {
        const QSignalBlocker blocker(number.spinBox);
        number.spinBox->setValue(number.slider->value());
    }
}

void GraphicsPage::copySpinBoxesToSliders()
{
    for (const Number &number : m_numbers) {
        const QSignalBlocker blocker(number.slider);
        number.slider->setValue(number.spinBox->value());
    }
}

void GraphicsPage::refreshColorOptions()
{
    const bool areChosen = !ui.DefColorsCheckBox->isChecked();
    for (const Number &color : colors()) {
        const bool isLocked = m_areColorsLocked &&
                              (color.option == Option::brightness || color.option == Option::gamma);
        for (QWidget *widget :
             std::initializer_list<QWidget *>{color.label, color.slider, color.spinBox})
            widget->setEnabled(areChosen && !isLocked);
    }
    if (!areChosen)
        resetColors();
}

void GraphicsPage::resetColors()
{
    for (const Number &color : colors()) {
        const QSignalBlocker slider(color.slider);
        const QSignalBlocker spinBox(color.spinBox);
        color.slider->setValue(color.defaultValue);
        color.spinBox->setValue(color.defaultValue);
    }
}

void GraphicsPage::refreshSampleImage()
{
    const ColorAdjustment adjustment{.brightness = ui.BrightnessSlider->value(),
                                     .gamma = ui.GammaSlider->value(),
                                     .hue = ui.HueSlider->value(),
                                     .saturation = ui.SaturationSlider->value()};
    ui.SampleImagePixmap->setPixmap(
        QPixmap::fromImage(ColorTransform::adjusted(m_sampleImage, adjustment)));
}

void GraphicsPage::refreshImageSize()
{
    const bool byResolution = ui.ResolutionCheckBox->isChecked();
    ui.ResolutionSlider->setEnabled(byResolution);
    ui.ResolutionSpinBox->setEnabled(byResolution);
    const bool byScaling = ui.ScalingCheckBox->isChecked();
    ui.ScalingSlider->setEnabled(byScaling);
    ui.ScalingSpinBox->setEnabled(byScaling);
    ui.FitToPageButton->setEnabled(byScaling);
}

void GraphicsPage::refreshImagePosition()
{
    const auto position =
        ImagePosition::fromSliders(ui.HorPositionSlider->value(), ui.VerPositionSlider->value());
    ui.framePositionedImage->move(
        position.offset(ui.frameImagePosition->size(), ui.framePositionedImage->size()));
    ui.framePositionedImage->repaint();
}
