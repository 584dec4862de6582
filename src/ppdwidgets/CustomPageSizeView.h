#pragma once

#include "CupsHandles.h"

#include <QWidget>

#include <array>
#include <memory>

namespace Ui
{
class CustomPageSizeForm;
}

/** Width, height and unit of a custom page size. */
class CustomPageSizeView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int UnitCount = 6;
    static constexpr std::array<const char *, UnitCount> UnitNames{"pt", "mm", "cm",
                                                                   "in", "ft", "m"};
    /** As the printers' drivers of this kind have always counted them; they decide what is sent. */
    static constexpr std::array<double, UnitCount> PointsInUnit{1.0,  2.83446712, 28.3446712,
                                                                72.0, 864.0,      2834.46712};

    /** A `parent` that is a PPDCustomView is told of each new size by its choiceChanged(). */
    explicit CustomPageSizeView(QWidget *parent);
    ~CustomPageSizeView() override;

    /**
     * Takes the limits of the parameters "Width" and "Height" and starts with the smallest size.
     * Ends the program when they are missing, or `coption` is null.
     */
    void setCustomOption(ppd_coption_t *coption);
    /** Shows a choice of the form Custom.WIDTHxHEIGHTunit; any other leaves the size as it is. */
    void setValue(const QString &choice);
    /** The choice to mark, in the unit shown; empty while no unit is. */
    QString value() const;
    /** The size in points, in the precision that is sent. */
    QSizeF sizeInPoints() const;

signals:
    void sizeChanged();

public slots:
    virtual void updateSize();
    virtual void unitChanged();

private:
    struct Size {
        double width = 0;
        double height = 0;
    };
    struct Limits {
        double minimumWidth = 0;
        double minimumHeight = 0;
        double maximumWidth = 0;
        double maximumHeight = 0;
    };

    int unit() const;
    void setSizeInPoints(double width, double height);
    void showLimits(const Limits &limits);

    std::array<Size, UnitCount> m_sizes;
    std::array<Limits, UnitCount> m_limits;
    std::unique_ptr<Ui::CustomPageSizeForm> m_ui;
};
