#pragma once

#include "CustomFields.h"

#include <array>

class QComboBox;
class QDoubleSpinBox;
class QLabel;

/** Width, height and unit of a custom page size. */
class PageSizeFields : public CustomFields
{
public:
    PageSizeFields(const Twins &ppds, const ppd_option_t &plain, const PPDOptionView &pane,
                   Report &report);

    void compare() override;
    void change(const std::function<void()> &changed) override;
    QByteArray value() const override;

private:
    struct Dimension {
        const char *name;
        const ppd_cparam_t *parameter;
        QDoubleSpinBox *box;
        QLabel *label;
        double points;
        /** What the field is expected to hold, in the unit that is chosen. */
        double number;
    };

    Dimension dimension(const char *name, const char *box, const char *label) const;
    FieldNumbers numbersOf(const Dimension &dimension) const;
    void chooseUnit(size_t unit);
    void compareUnits();
    void compareDimension(const Dimension &dimension);
    void compareLabel(const Dimension &dimension);
    void changeDimension(Dimension &dimension, const std::function<void()> &changed);
    void comparePageSize();

    const Twins &m_ppds;
    const PPDOptionView &m_pane;
    /** The mark is a custom size already: the fields begin with it. */
    bool m_marked;
    QComboBox *m_units;
    size_t m_unit = 0;
    std::array<Dimension, 2> m_dimensions;
};
