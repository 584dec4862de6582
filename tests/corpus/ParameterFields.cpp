#include "ParameterFields.h"

#include "PPDCustomView.h"
#include "ParamViewInterface.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>

#include <algorithm>

namespace
{
/** As many characters as a field takes that has no limit. */
constexpr int endless = 32767;
constexpr int decimals = 3;

FieldNumbers numbersOf(const ppd_cparam_t &parameter)
{
    const auto [least, most] = limitsOf(parameter);
    return {least, most, parameter.type == PPD_CUSTOM_INT ? 0 : decimals};
}

/** The greatest length of a parameter's text; a PPD that allows none sets no limit. */
int longest(const ppd_cparam_t &parameter)
{
    const int most = std::clamp(static_cast<int>(limitsOf(parameter).second), 0, endless);
    return most == 0 ? endless : most;
}

QString initialText(const ppd_cparam_t &parameter)
{
    if (isText(parameter))
        return currentText(parameter).left(longest(parameter));
    const FieldNumbers numbers = numbersOf(parameter);
    return numbers.text(numbers.shown(currentNumber(parameter)));
}

/** In quotation marks, which lists of parameters may have around any text. */
QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/** A number's field: of the kind that fits the type, and with its limits. */
struct Box {
    explicit Box(const QWidget &editor)
        : whole(editor.findChild<QSpinBox *>())
        , real(editor.findChild<QDoubleSpinBox *>())
    {
    }

    bool fits(const ppd_cparam_t &parameter) const
    {
        const QString suffix =
            parameter.type == PPD_CUSTOM_POINTS ? QStringLiteral(" pt") : QString();
        return parameter.type == PPD_CUSTOM_INT
                   ? whole != nullptr
                   : real && real->decimals() == decimals && real->suffix() == suffix;
    }
    double least() const { return real ? real->minimum() : whole->minimum(); }
    double most() const { return real ? real->maximum() : whole->maximum(); }
    double value() const { return real ? real->value() : whole->value(); }
    void set(double value) const
    {
        if (real)
            real->setValue(value);
        else
            whole->setValue(static_cast<int>(value));
    }

    QSpinBox *whole;
    QDoubleSpinBox *real;
};
} // namespace

ParameterFields::ParameterFields(const Twins &ppds, const ppd_option_t &plain,
                                 const PPDCustomView &view, Report &report)
    : CustomFields(ppds, plain, report)
{
    for (QWidget *widget : view.findChildren<QWidget *>()) {
        if (!dynamic_cast<ParamViewInterface *>(widget) || m_fields.size() == parameters().size())
            continue;
        const Parameter &parameter = parameters()[m_fields.size()];
        m_fields.push_back({parameter, widget, initialText(*parameter.plain)});
    }
    if (m_fields.size() != parameters().size())
        fail(QStringLiteral("%1 fields for %2 parameters")
                 .arg(m_fields.size())
                 .arg(parameters().size()));
}

void ParameterFields::compare()
{
    for (const Field &field : m_fields) {
        if (isText(*field.parameter.plain))
            compareText(field);
        else
            compareNumber(field);
    }
}

void ParameterFields::compareNumber(const Field &field)
{
    const ppd_cparam_t &parameter = *field.parameter.plain;
    const QString name = QString::fromUtf8(parameter.name);
    const Box box(*field.editor);
    if (!box.fits(parameter))
        return fail(QStringLiteral("the kind of field of %1").arg(name));
    const FieldNumbers numbers = numbersOf(parameter);
    if (!isSame(box.least(), numbers.least()) || !isSame(box.most(), numbers.most()))
        fail(QStringLiteral("the field of %1 takes %2 to %3 instead of %4 to %5")
                 .arg(name)
                 .arg(box.least())
                 .arg(box.most())
                 .arg(numbers.least())
                 .arg(numbers.most()));
    if (numbers.text(box.value()) != field.text)
        fail(QStringLiteral("the field of %1 begins with %2 instead of %3")
                 .arg(name)
                 .arg(box.value())
                 .arg(field.text));
    const auto [least, most] = limitsOf(parameter);
    if (field.editor->isHidden() != (parameter.type != PPD_CUSTOM_POINTS && least == most))
        fail(QStringLiteral("whether the field of %1 is hidden").arg(name));
}

void ParameterFields::compareText(const Field &field)
{
    const ppd_cparam_t &parameter = *field.parameter.plain;
    const QString name = QString::fromUtf8(parameter.name);
    const auto *edit = field.editor->findChild<QLineEdit *>();
    if (!edit)
        return fail(QStringLiteral("the kind of field of %1").arg(name));
    if (edit->maxLength() != longest(parameter))
        fail(QStringLiteral("the field of %1 takes %2 characters instead of %3")
                 .arg(name)
                 .arg(edit->maxLength())
                 .arg(longest(parameter)));
    if (edit->text() != field.text)
        fail(QStringLiteral("the field of %1 begins with \"%2\" instead of \"%3\"")
                 .arg(name, edit->text(), field.text));
    const auto echo = parameter.type == PPD_CUSTOM_STRING ? QLineEdit::Normal : QLineEdit::Password;
    if (edit->echoMode() != echo || field.editor->isHidden())
        fail(QStringLiteral("how the field of %1 is shown").arg(name));
}

void ParameterFields::change(const std::function<void()> &changed)
{
    for (Field &field : m_fields) {
        if (isText(*field.parameter.plain))
            changeText(field, changed);
        else
            changeNumber(field, changed);
    }
}

void ParameterFields::changeNumber(Field &field, const std::function<void()> &changed)
{
    const Box box(*field.editor);
    if (!box.fits(*field.parameter.plain))
        return;
    const FieldNumbers numbers = numbersOf(*field.parameter.plain);
    for (const double value : numbers.toSet()) {
        if (field.text == numbers.text(value))
            continue;
        box.set(value);
        field.text = numbers.text(value);
        changed();
        compareParameters();
        if (!isSame(currentNumber(*field.parameter.shown), value))
            fail(QStringLiteral("%1 became %2 instead of %3")
                     .arg(QString::fromUtf8(field.parameter.plain->name))
                     .arg(currentNumber(*field.parameter.shown))
                     .arg(value));
    }
}

void ParameterFields::changeText(Field &field, const std::function<void()> &changed)
{
    auto *edit = field.editor->findChild<QLineEdit *>();
    if (!edit)
        return;
    const auto limits = limitsOf(*field.parameter.plain);
    const int least = std::max(1, static_cast<int>(limits.first));
    const int most = std::max(least, static_cast<int>(limits.second));
    for (const int length : {least, (least + most) / 2, most}) {
        field.text = QString(length, QLatin1Char('7'));
        edit->selectAll();
        QTest::keyClicks(edit, field.text);
        changed();
        compareParameters();
        if (currentText(*field.parameter.shown) != field.text)
            fail(QStringLiteral("%1 became \"%2\" instead of \"%3\"")
                     .arg(QString::fromUtf8(field.parameter.plain->name),
                          currentText(*field.parameter.shown), field.text));
    }
}

QByteArray ParameterFields::value() const
{
    if (m_fields.empty())
        return {};
    if (m_fields.size() == 1)
        return "Custom." + m_fields.front().text.toUtf8();
    QStringList texts;
    for (const Field &field : m_fields)
        texts.append(QString::fromUtf8(field.parameter.plain->name) + QLatin1Char('=') +
                     quoted(field.text));
    return '{' + texts.join(QLatin1Char(' ')).toUtf8() + '}';
}
