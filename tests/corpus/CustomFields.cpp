#include "CustomFields.h"

#include "PPDCustomView.h"
#include "PPDOptionView.h"
#include "PageSizeFields.h"
#include "ParameterFields.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{
/** All parameters at once: marking a value moves the library's own place in the list. */
std::vector<const ppd_cparam_t *> parametersOf(ppd_file_t *ppd, const char *keyword)
{
    ppd_coption_t *option = ppdFindCustomOption(ppd, keyword);
    std::vector<const ppd_cparam_t *> parameters;
    for (const ppd_cparam_t *each = ppdFirstCustomParam(option); each;
         each = ppdNextCustomParam(option))
        parameters.push_back(each);
    return parameters;
}

double limit(const ppd_cparam_t &parameter, const ppd_cplimit_t &value)
{
    switch (parameter.type) {
    case PPD_CUSTOM_CURVE:
        return static_cast<double>(value.custom_curve);
    case PPD_CUSTOM_INVCURVE:
        return static_cast<double>(value.custom_invcurve);
    case PPD_CUSTOM_POINTS:
        return static_cast<double>(value.custom_points);
    case PPD_CUSTOM_REAL:
        return static_cast<double>(value.custom_real);
    case PPD_CUSTOM_PASSCODE:
        return value.custom_passcode;
    case PPD_CUSTOM_PASSWORD:
        return value.custom_password;
    case PPD_CUSTOM_STRING:
        return value.custom_string;
    default:
        return value.custom_int;
    }
}
} // namespace

FieldNumbers::FieldNumbers(double first, double second, int decimals)
    : m_decimals(decimals)
    , m_least(rounded(std::min(first, second)))
    , m_most(rounded(std::max(first, second)))
{
}

double FieldNumbers::shown(double value) const
{
    return std::clamp(rounded(value), m_least, m_most);
}

std::vector<double> FieldNumbers::toSet() const
{
    const double middle = m_least / 2 + m_most / 2;
    return {m_decimals == 0 ? std::floor(middle) : rounded(middle), m_least, m_most};
}

QString FieldNumbers::text(double value) const
{
    return QString::number(value, 'f', m_decimals);
}

double FieldNumbers::rounded(double value) const
{
    return text(value).toDouble();
}

std::unique_ptr<CustomFields> CustomFields::of(const Twins &ppds, const ppd_option_t &plain,
                                               const PPDOptionView &pane, Report &report)
{
    if (std::strcmp(plain.keyword, "PageSize") == 0)
        return std::make_unique<PageSizeFields>(ppds, plain, pane, report);
    return std::make_unique<ParameterFields>(ppds, plain, *pane.findChild<PPDCustomView *>(),
                                             report);
}

CustomFields::CustomFields(const Twins &ppds, const ppd_option_t &plain, Report &report)
    : m_option(plain)
    , m_report(report)
{
    const auto inShown = parametersOf(ppds.shown.get(), plain.keyword);
    const auto inPlain = parametersOf(ppds.plain.get(), plain.keyword);
    for (size_t i = 0; i < inPlain.size(); ++i)
        m_parameters.push_back({inShown[i], inPlain[i]});
}

void CustomFields::compareParameters()
{
    for (const auto &[shown, plain] : m_parameters) {
        const bool same = isText(*plain) ? currentText(*shown) == currentText(*plain)
                                         : currentNumber(*shown) == currentNumber(*plain);
        if (!same)
            fail(QStringLiteral("the parameter %1 is \"%2\" instead of \"%3\"")
                     .arg(QString::fromUtf8(plain->name),
                          isText(*shown) ? currentText(*shown)
                                         : QString::number(currentNumber(*shown)),
                          isText(*plain) ? currentText(*plain)
                                         : QString::number(currentNumber(*plain))));
    }
}

void CustomFields::fail(const QString &what)
{
    m_report.fail(QString::fromUtf8(m_option.keyword) + QLatin1String(": ") + what);
}

double currentNumber(const ppd_cparam_t &parameter)
{
    switch (parameter.type) {
    case PPD_CUSTOM_CURVE:
        return static_cast<double>(parameter.current.custom_curve);
    case PPD_CUSTOM_INT:
        return parameter.current.custom_int;
    case PPD_CUSTOM_INVCURVE:
        return static_cast<double>(parameter.current.custom_invcurve);
    case PPD_CUSTOM_POINTS:
        return static_cast<double>(parameter.current.custom_points);
    case PPD_CUSTOM_REAL:
        return static_cast<double>(parameter.current.custom_real);
    default:
        return std::nan("");
    }
}

QString currentText(const ppd_cparam_t &parameter)
{
    switch (parameter.type) {
    case PPD_CUSTOM_PASSCODE:
        return QString::fromUtf8(parameter.current.custom_passcode);
    case PPD_CUSTOM_PASSWORD:
        return QString::fromUtf8(parameter.current.custom_password);
    case PPD_CUSTOM_STRING:
        return QString::fromUtf8(parameter.current.custom_string);
    default:
        return {};
    }
}

bool isText(const ppd_cparam_t &parameter)
{
    return parameter.type == PPD_CUSTOM_PASSCODE || parameter.type == PPD_CUSTOM_PASSWORD ||
           parameter.type == PPD_CUSTOM_STRING;
}

std::pair<double, double> limitsOf(const ppd_cparam_t &parameter)
{
    constexpr double largest = std::numeric_limits<float>::max();
    return std::minmax({std::clamp(limit(parameter, parameter.minimum), -largest, largest),
                        std::clamp(limit(parameter, parameter.maximum), -largest, largest)});
}

bool isSame(double read, double set)
{
    return std::abs(read - set) <= 0.0006 + std::abs(set) * 1e-6;
}
