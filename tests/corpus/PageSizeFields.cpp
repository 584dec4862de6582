#include "PageSizeFields.h"

#include "Expected.h"
#include "PPDCustomView.h"
#include "PPDOptionView.h"
#include "Walk.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace
{
constexpr int decimals = 3;
/** A size that was marked comes back through single precision. */
constexpr double samePoints = 0.011;

struct Unit {
    const char *name;
    double points;
};

constexpr std::array units{Unit{"pt", 1.0}, Unit{"mm", 2.83446712}, Unit{"cm", 28.3446712},
                           Unit{"in", 72.0}};

bool isCustomMarked(const ppd_option_t &option)
{
    return std::ranges::any_of(Walk::choices(option), [](const ppd_choice_t &choice) {
        return choice.marked && Expected::isCustom(choice);
    });
}

const ppd_cparam_t *parameter(const Twins &ppds, const char *name)
{
    return ppdFindCustomParam(ppdFindCustomOption(ppds.plain.get(), "PageSize"), name);
}
} // namespace

PageSizeFields::PageSizeFields(const Twins &ppds, const ppd_option_t &plain,
                               const PPDOptionView &pane, Report &report)
    : CustomFields(ppds, plain, report)
    , m_ppds(ppds)
    , m_pane(pane)
    , m_marked(isCustomMarked(plain))
    , m_units(pane.findChild<QComboBox *>(QStringLiteral("m_unitsComboBox")))
    , m_dimensions{dimension("Width", "m_widthSpinBox", "m_widthLabel"),
                   dimension("Height", "m_heightSpinBox", "m_heightLabel")}
{
    if (!m_marked && std::strncmp(plain.defchoice, "Custom.", 7) == 0)
        fail(QStringLiteral("the default is a custom size, for which there is no check"));
}

PageSizeFields::Dimension PageSizeFields::dimension(const char *name, const char *box,
                                                    const char *label) const
{
    const auto *view = m_pane.findChild<PPDCustomView *>();
    const ppd_cparam_t *found = parameter(m_ppds, name);
    const auto [least, most] = limitsOf(*found);
    const double points = m_marked ? std::clamp(currentNumber(*found), least, most) : least;
    return {name,
            found,
            view->findChild<QDoubleSpinBox *>(QLatin1String(box)),
            view->findChild<QLabel *>(QLatin1String(label)),
            points,
            FieldNumbers(least, most, decimals).shown(points)};
}

FieldNumbers PageSizeFields::numbersOf(const Dimension &dimension) const
{
    const auto [least, most] = limitsOf(*dimension.parameter);
    return {least / units[m_unit].points, most / units[m_unit].points, decimals};
}

void PageSizeFields::compare()
{
    compareUnits();
    for (const Dimension &each : m_dimensions)
        compareDimension(each);
}

void PageSizeFields::compareUnits()
{
    QStringList shown;
    for (int i = 0; i < m_units->count(); ++i)
        shown.append(m_units->itemText(i));
    QStringList expected;
    for (const Unit &unit : units)
        expected.append(QLatin1String(unit.name));
    if (shown != expected || m_units->currentIndex() != 0)
        fail(QStringLiteral("the units %1, of which %2 is chosen")
                 .arg(shown.join(QLatin1Char(' ')), m_units->currentText()));
}

void PageSizeFields::compareDimension(const Dimension &dimension)
{
    const QString name = QLatin1String(dimension.name);
    const QString unit = QLatin1String(units[m_unit].name);
    const FieldNumbers numbers = numbersOf(dimension);
    const QDoubleSpinBox &box = *dimension.box;
    if (!isSame(box.minimum(), numbers.least()) || !isSame(box.maximum(), numbers.most()))
        fail(QStringLiteral("%1 takes %2 to %3 instead of %4 to %5 %6")
                 .arg(name)
                 .arg(box.minimum())
                 .arg(box.maximum())
                 .arg(numbers.least())
                 .arg(numbers.most())
                 .arg(unit));
    if (std::abs(box.value() - dimension.number) > (m_marked ? samePoints : 0.0))
        fail(QStringLiteral("%1 is %2 instead of %3 %4")
                 .arg(name)
                 .arg(box.value())
                 .arg(dimension.number)
                 .arg(unit));
    compareLabel(dimension);
}

void PageSizeFields::compareLabel(const Dimension &dimension)
{
    const auto [least, most] = limitsOf(*dimension.parameter);
    const double points = units[m_unit].points;
    const QString label =
        QStringLiteral("%1 [%2-%3] %4:")
            .arg(QLatin1String(dimension.name), QString::number(least / points, 'f', 2),
                 QString::number(most / points, 'f', 2), QLatin1String(units[m_unit].name));
    if (dimension.label->text() != label)
        fail(QStringLiteral("label \"%1\" instead of \"%2\"").arg(dimension.label->text(), label));
}

void PageSizeFields::change(const std::function<void()> &changed)
{
    for (size_t unit = 0; unit < units.size(); ++unit) {
        chooseUnit(unit);
        for (Dimension &each : m_dimensions)
            changeDimension(each, changed);
    }
}

void PageSizeFields::chooseUnit(size_t unit)
{
    m_units->setCurrentIndex(static_cast<int>(unit));
    m_unit = unit;
    for (Dimension &each : m_dimensions) {
        each.number = numbersOf(each).shown(each.points / units[unit].points);
        compareDimension(each);
    }
}

void PageSizeFields::changeDimension(Dimension &dimension, const std::function<void()> &changed)
{
    for (const double number : numbersOf(dimension).toSet()) {
        if (number == dimension.number)
            continue;
        dimension.box->setValue(number);
        dimension.number = number;
        for (Dimension &each : m_dimensions)
            each.points = each.number * units[m_unit].points;
        changed();
        compareParameters();
        comparePageSize();
    }
}

void PageSizeFields::comparePageSize()
{
    if (m_pane.customPageSize() != QString::fromLatin1(value()))
        fail(QStringLiteral("the size \"%1\" instead of \"%2\"")
                 .arg(m_pane.customPageSize(), QString::fromLatin1(value())));
    const ppd_size_t *shown = ppdPageSize(m_ppds.shown.get(), "Custom");
    const ppd_size_t *plain = ppdPageSize(m_ppds.plain.get(), "Custom");
    if (!shown || !plain || shown->width != plain->width || shown->length != plain->length)
        fail(QStringLiteral("the PPD's custom size after %1").arg(QString::fromLatin1(value())));
}

QByteArray PageSizeFields::value() const
{
    return QStringLiteral("Custom.%1x%2%3")
        .arg(QString::number(m_dimensions[0].number, 'f', decimals),
             QString::number(m_dimensions[1].number, 'f', decimals),
             QLatin1String(units[m_unit].name))
        .toLatin1();
}
