#pragma once

#include <QImage>
#include <QLatin1StringView>

#include <array>
#include <span>

class PrinterOptions;
class QButtonGroup;
class QLabel;
class QObject;
class QSlider;
class QSpinBox;

namespace Ui
{
class PrinterPropertiesDialogBase;
}

/** Colours, size and position of images: the tab "Graphics". */
class GraphicsPage
{
public:
    /** A number that can be set with a slider and with a spin box. */
    struct Number {
        QLatin1StringView option;
        int defaultValue;
        QLabel *label;
        QSlider *slider;
        QSpinBox *spinBox;
    };

    /** The button group becomes a child of `dialog`. */
    GraphicsPage(Ui::PrinterPropertiesDialogBase &form, QObject *dialog);

    /** Shows the options. */
    void load(const PrinterOptions &options);
    void write(PrinterOptions &options) const;

    /** Brightness, gamma, hue, saturation, resolution and scaling. */
    const std::array<Number, 6> &numbers() const { return m_numbers; }
    void copySlidersToSpinBoxes();
    void copySpinBoxesToSliders();

    void refreshColorOptions();
    void refreshSampleImage();
    void refreshImageSize();
    void refreshImagePosition();

private:
    void loadColors(const PrinterOptions &options);
    void loadSize(const PrinterOptions &options);
    void writeColors(PrinterOptions &options) const;
    void writeSize(PrinterOptions &options) const;
    void resetColors();
    std::span<const Number, 4> colors() const { return std::span(m_numbers).first<4>(); }

    Ui::PrinterPropertiesDialogBase &ui;
    std::array<Number, 6> m_numbers;
    QImage m_sampleImage;
    /**
     * Whether brightness and gamma cannot be chosen: the driver has options of these names, and
     * those are on the tab "Advanced".
     */
    bool m_areColorsLocked = false;
};
