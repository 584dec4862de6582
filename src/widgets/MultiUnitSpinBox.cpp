#include "MultiUnitSpinBox.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
Q_LOGGING_CATEGORY(spinBoxLog, "vesk.widgets.spinbox", QtWarningMsg)

constexpr int groupLength = 3;

bool isDecimalSign(QChar c)
{
    return c == QLatin1Char('.') || c == QLatin1Char(',');
}

/** Where the only point or comma of `text` stands; -1 where there is none or more than one. */
qsizetype onlyDecimalSign(const QString &text)
{
    const auto first = std::find_if(text.begin(), text.end(), isDecimalSign);
    if (first == text.end() || std::find_if(first + 1, text.end(), isDecimalSign) != text.end())
        return -1;
    return first - text.begin();
}

/** `text` with a foreign decimal sign replaced by that of `locale`. */
QString withOwnDecimalSign(const QString &text, const QLocale &locale)
{
    const qsizetype sign = onlyDecimalSign(text);
    if (sign < 0 || text.contains(locale.decimalPoint()))
        return text;
    const bool mayBeGroup =
        locale.groupSeparator() == text[sign] && text.size() - sign - 1 == groupLength;
    return mayBeGroup ? text : QString(text).replace(sign, 1, locale.decimalPoint());
}

/** The product in 32 bits: what does not fit is cut off. */
int product(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}

int integerPart(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp<double>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}
} // namespace

/** Accepts whatever the box can show within the limits that it has now. */
class MultiUnitSpinBox::UnitValidator : public QDoubleValidator
{
public:
    explicit UnitValidator(MultiUnitSpinBox *box)
        : QDoubleValidator(box)
        , m_box(*box)
    {
    }

    State validate(QString &text, int &position) const override
    {
        text = withOwnDecimalSign(text, m_box.textLocale());
        // A limit may be shown rounded, and then lies outside of the range.
        if (text == m_box.textFromValue(m_box.minimum()) ||
            text == m_box.textFromValue(m_box.maximum()))
            return Acceptable;
        return CurrentRange(m_box).validate(text, position);
    }

    void fixup(QString &text) const override { CurrentRange(m_box).fixup(text); }

private:
    /** The limits and the locale of the box may have changed since its conversion was set. */
    struct CurrentRange : QDoubleValidator {
        explicit CurrentRange(const MultiUnitSpinBox &box)
            : QDoubleValidator(box.toUnit(box.minimum()), box.toUnit(box.maximum()), box.m_decimals)
        {
            setNotation(StandardNotation);
            setLocale(box.textLocale());
        }
    };

    const MultiUnitSpinBox &m_box;
};

MultiUnitSpinBox::MultiUnitSpinBox(QWidget *parent)
    : QSpinBox(parent)
    , m_unitValidator(new UnitValidator(this))
    , m_defaultValidator(lineEdit() ? lineEdit()->validator() : nullptr)
{
    setConversion(1, 1, 0);
}

MultiUnitSpinBox::~MultiUnitSpinBox()
{
    if (hasUnitConversion() && lineEdit())
        lineEdit()->setValidator(m_defaultValidator);
}

void MultiUnitSpinBox::setConversion(int steps, int units, int decimals)
{
    takePendingText();
    const bool hadConversion = hasUnitConversion();
    m_steps = steps;
    m_units = units;
    m_decimals = decimals;
    if (lineEdit()) {
        if (hasUnitConversion())
            m_unitValidator->setRange(toUnit(minimum()), toUnit(maximum()), m_decimals);
        if (hasUnitConversion() != hadConversion)
            lineEdit()->setValidator(hasUnitConversion() ? m_unitValidator : m_defaultValidator);
    }
    showValue();
    update();
    qCDebug(spinBoxLog).noquote() << dump();
}

QString MultiUnitSpinBox::dump() const
{
    const QLineEdit *edit = lineEdit();
    const QValidator *validator = edit ? edit->validator() : nullptr;
    const char *validatorName = validator ? validator->metaObject()->className()
                                : edit    ? "missed validator"
                                          : "missed lineEdit";
    const double low = toUnit(minimum());
    const double current = toUnit(value());
    const double step = toUnit(singleStep());
    const double high = toUnit(maximum());
    return QString::asprintf(
        "\n\thasUnitConversion=%d m_steps=%d m_units=%d m_decimals=%d"
        "\n\tvalue: %d < %d(+%d) < %d"
        "\n\tunit: %f < %f(+%f) < %f"
        "\n\tunit(fixed): %.*f < %.*f(+%.*f) < %.*f"
        "\n\tvalidator: %p(%s)"
        "\n\tunitValidator: %p(%s): [%.*f(%f); %.*f(%f)]",
        hasUnitConversion() ? 1 : 0, m_steps, m_units, m_decimals, minimum(), value(), singleStep(),
        maximum(), low, current, step, high, m_decimals, low, m_decimals, current, m_decimals, step,
        m_decimals, high, static_cast<const void *>(validator), validatorName,
        static_cast<const void *>(m_unitValidator), m_unitValidator->metaObject()->className(),
        m_decimals, m_unitValidator->bottom(), m_unitValidator->bottom(), m_decimals,
        m_unitValidator->top(), m_unitValidator->top());
}

QString MultiUnitSpinBox::textFromValue(int value) const
{
    return hasUnitConversion() ? textLocale().toString(toUnit(value), 'f', m_decimals)
                               : QSpinBox::textFromValue(value);
}

int MultiUnitSpinBox::valueFromText(const QString &text) const
{
    if (!hasUnitConversion())
        return QSpinBox::valueFromText(text);
    const QLocale locale = textLocale();
    return fromUnit(locale.toDouble(withOwnDecimalSign(text, locale)));
}

QValidator::State MultiUnitSpinBox::validate(QString &text, int &position) const
{
    return hasUnitConversion() ? m_unitValidator->validate(text, position)
                               : QSpinBox::validate(text, position);
}

void MultiUnitSpinBox::fixup(QString &text) const
{
    if (hasUnitConversion())
        m_unitValidator->fixup(text);
    else
        QSpinBox::fixup(text);
}

double MultiUnitSpinBox::toUnit(int value) const
{
    return m_steps == 0 ? 0 : static_cast<double>(product(value, m_units)) / m_steps;
}

int MultiUnitSpinBox::fromUnit(double value) const
{
    return m_units == 0 ? 0 : integerPart(value * m_steps / m_units + 0.5);
}

QLocale MultiUnitSpinBox::textLocale() const
{
    QLocale result = locale();
    result.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return result;
}

void MultiUnitSpinBox::takePendingText()
{
    if (text() != prefix() + textFromValue(value()) + suffix())
        interpretText();
}

void MultiUnitSpinBox::showValue()
{
    // The range drops the remembered width of the text, the value writes the text.
    setRange(minimum(), maximum());
    setValue(value());
}
