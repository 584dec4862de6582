#pragma once

#include "Report.h"
#include "TreeCheck.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class PPDOptionView;

/** A number's way through a field: three decimals or none, and the limits of the PPD. */
class FieldNumbers
{
public:
    /** The limits in either order. */
    FieldNumbers(double first, double second, int decimals);

    double least() const { return m_least; }
    double most() const { return m_most; }
    /** What a field shows when it is given `value`. */
    double shown(double value) const;
    /** Middle, minimum and maximum: whichever a field begins with, the limits come up. */
    std::vector<double> toSet() const;
    /** As it is written into a choice. */
    QString text(double value) const;

private:
    double rounded(double value) const;

    int m_decimals;
    double m_least;
    double m_most;
};

/**
 * The fields of one option's custom value in the pane, and what they are expected to hold. They are
 * found in the pane when this is made, and are to be left when another row is selected.
 */
class CustomFields
{
public:
    /** The fields of the option that is selected. All arguments outlive the result. */
    static std::unique_ptr<CustomFields> of(const Twins &ppds, const ppd_option_t &plain,
                                            const PPDOptionView &pane, Report &report);
    virtual ~CustomFields() = default;

    /** Compares fields that nobody has worked yet with the PPD. */
    virtual void compare() = 0;
    /**
     * Sets each field to its middle, minimum and maximum. `changed` is called after each step, and
     * marks the plain copy with `value()`.
     */
    virtual void change(const std::function<void()> &changed) = 0;
    /** The choice that stands for what was set. */
    virtual QByteArray value() const = 0;

protected:
    /** A parameter in both copies of the PPD. */
    struct Parameter {
        const ppd_cparam_t *shown;
        const ppd_cparam_t *plain;
    };

    CustomFields(const Twins &ppds, const ppd_option_t &plain, Report &report);

    const std::vector<Parameter> &parameters() const { return m_parameters; }
    /** All parameters have the same value in both copies. */
    void compareParameters();
    void fail(const QString &what);

private:
    const ppd_option_t &m_option;
    Report &m_report;
    std::vector<Parameter> m_parameters;
};

/** The number that a parameter has; none if it is a text. */
double currentNumber(const ppd_cparam_t &parameter);
/** The text that a parameter has; empty if it is a number. */
QString currentText(const ppd_cparam_t &parameter);
bool isText(const ppd_cparam_t &parameter);
/** The limits of a parameter's number, or of its text's length, the smaller one first. */
std::pair<double, double> limitsOf(const ppd_cparam_t &parameter);
/** Whether `read` is `set` as three decimals and single precision keep it. */
bool isSame(double read, double set);
