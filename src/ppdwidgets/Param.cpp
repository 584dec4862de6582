#include "Param.h"

#include "DecimalSpinBox.h"
#include "EditorText.h"
#include "PPDCustomView.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace
{
QString rangeText(const QLocale &locale, double minimum, double maximum, int digits)
{
    //: The smallest and the greatest number that may be typed.
    return QCoreApplication::translate("Param", "From %1 to %2")
        .arg(EditorText::shown(locale, minimum, digits),
             EditorText::shown(locale, maximum, digits));
}

/** A number with three decimals in the members of the library's unions. */
template <float ppd_cplimit_t::*limit, float ppd_cpvalue_t::*current> struct Fractional {
    static constexpr auto edited = &QDoubleSpinBox::valueChanged;

    static bool isHidden(const ppd_cparam_t &param)
    {
        return param.minimum.*limit == param.maximum.*limit;
    }
    static void fill(QDoubleSpinBox &editor, const ppd_cparam_t &param)
    {
        const auto [minimum, maximum] = EditorText::finiteRange(
            static_cast<double>(param.minimum.*limit), static_cast<double>(param.maximum.*limit));
        editor.setDecimals(EditorText::decimals);
        editor.setRange(minimum, maximum);
        editor.setValue(EditorText::finite(static_cast<double>(param.current.*current)));
        editor.setToolTip(
            rangeText(editor.locale(), editor.minimum(), editor.maximum(), EditorText::decimals));
    }
    static QString value(const QDoubleSpinBox &editor) { return EditorText::fixed(editor.value()); }
};

struct Integer {
    static constexpr auto edited = &QSpinBox::valueChanged;

    static bool isHidden(const ppd_cparam_t &param)
    {
        return param.minimum.custom_int == param.maximum.custom_int;
    }
    static void fill(QSpinBox &editor, const ppd_cparam_t &param)
    {
        const auto [minimum, maximum] =
            std::minmax(param.minimum.custom_int, param.maximum.custom_int);
        editor.setRange(minimum, maximum);
        editor.setValue(param.current.custom_int);
        editor.setToolTip(rangeText(editor.locale(), minimum, maximum, 0));
    }
    static QString value(const QSpinBox &editor) { return QString::number(editor.value()); }
};

struct Points : Fractional<&ppd_cplimit_t::custom_points, &ppd_cpvalue_t::custom_points> {
    static bool isHidden(const ppd_cparam_t &) { return false; }
    static void fill(QDoubleSpinBox &editor, const ppd_cparam_t &param)
    {
        //: Unit behind a number: points, 1/72 inch. Begins with a blank.
        editor.setSuffix(QCoreApplication::translate("Param", " pt"));
        Fractional::fill(editor, param);
    }
};

/** How long a text may be. A PPD that allows no character means that there is no limit. */
struct Lengths {
    /** More than a field takes, and what a pattern may still count to. */
    static constexpr int longest = 32767;

    Lengths(int first, int second)
        : minimum(std::clamp(std::min(first, second), 0, longest))
        , maximum(std::clamp(std::max(first, second), 0, longest))
    {
        if (maximum == 0)
            maximum = longest;
    }

    int minimum;
    int maximum;
};

struct Text {
    static constexpr auto edited = &QLineEdit::textEdited;

    static bool isHidden(const ppd_cparam_t &) { return false; }
    static QString value(const QLineEdit &editor) { return editor.text(); }
};

void describeLengths(QLineEdit &editor, const Lengths &lengths, const char *range, const char *most)
{
    if (lengths.maximum == Lengths::longest)
        return;
    editor.setToolTip(
        lengths.minimum > 0
            ? QCoreApplication::translate("Param", range).arg(lengths.minimum).arg(lengths.maximum)
            : QCoreApplication::translate("Param", most).arg(lengths.maximum));
}

void hideTyping(QLineEdit &editor, const QString &pattern, const Lengths &lengths)
{
    editor.setEchoMode(QLineEdit::Password);
    editor.setMaxLength(lengths.maximum);
    editor.setValidator(new QRegularExpressionValidator(
        QRegularExpression(pattern.arg(lengths.minimum).arg(lengths.maximum),
                           QRegularExpression::UseUnicodePropertiesOption),
        &editor));
}

struct Passcode : Text {
    static void fill(QLineEdit &editor, const ppd_cparam_t &param)
    {
        const Lengths lengths(param.minimum.custom_passcode, param.maximum.custom_passcode);
        hideTyping(editor, u"^[0-9]{%1,%2}$"_s, lengths);
        describeLengths(editor, lengths, QT_TRANSLATE_NOOP("Param", "%1 to %2 digits"),
                        QT_TRANSLATE_NOOP("Param", "At most %1 digits"));
        editor.setText(QString::fromLocal8Bit(param.current.custom_passcode));
    }
};

struct Password : Text {
    static void fill(QLineEdit &editor, const ppd_cparam_t &param)
    {
        const Lengths lengths(param.minimum.custom_password, param.maximum.custom_password);
        hideTyping(editor, u"^\\S{%1,%2}$"_s, lengths);
        describeLengths(editor, lengths,
                        QT_TRANSLATE_NOOP("Param", "%1 to %2 characters without blanks"),
                        QT_TRANSLATE_NOOP("Param", "At most %1 characters without blanks"));
        editor.setText(QString::fromUtf8(param.current.custom_password));
    }
};

struct String : Text {
    static void fill(QLineEdit &editor, const ppd_cparam_t &param)
    {
        const Lengths lengths(param.minimum.custom_string, param.maximum.custom_string);
        editor.setMaxLength(lengths.maximum);
        describeLengths(editor, lengths, QT_TRANSLATE_NOOP("Param", "%1 to %2 characters"),
                        QT_TRANSLATE_NOOP("Param", "At most %1 characters"));
        editor.setText(QString::fromUtf8(param.current.custom_string));
    }
};

template <ppd_cptype_e T> struct Traits;
template <>
struct Traits<PPD_CUSTOM_CURVE>
    : Fractional<&ppd_cplimit_t::custom_curve, &ppd_cpvalue_t::custom_curve> {
};
template <> struct Traits<PPD_CUSTOM_INT> : Integer {
};
template <>
struct Traits<PPD_CUSTOM_INVCURVE>
    : Fractional<&ppd_cplimit_t::custom_invcurve, &ppd_cpvalue_t::custom_invcurve> {
};
template <> struct Traits<PPD_CUSTOM_PASSCODE> : Passcode {
};
template <> struct Traits<PPD_CUSTOM_PASSWORD> : Password {
};
template <> struct Traits<PPD_CUSTOM_POINTS> : Points {
};
template <>
struct Traits<PPD_CUSTOM_REAL>
    : Fractional<&ppd_cplimit_t::custom_real, &ppd_cpvalue_t::custom_real> {
};
template <> struct Traits<PPD_CUSTOM_STRING> : String {
};
} // namespace

template <ppd_cptype_e T>
Param<T>::Param(PPDCustomView *view, ppd_cparam_t *param)
    : QWidget(view)
    , m_editor(new ParamEditor<T>(this))
    , m_hidden(Traits<T>::isHidden(*param))
    , m_view(view)
    , m_name(QString::fromUtf8(param->name))
{
    layOut(QString::fromLocal8Bit(param->text));
    Traits<T>::fill(*m_editor, *param);
    connect(m_editor, Traits<T>::edited, m_view, &PPDCustomView::choiceChanged);
}

template <ppd_cptype_e T> QString Param<T>::value() const
{
    return Traits<T>::value(*m_editor);
}

template <ppd_cptype_e T> void Param<T>::layOut(const QString &text)
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setText(EditorText::withoutMnemonic(text));
    label->setBuddy(m_editor);
    m_editor->setAccessibleName(text);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_editor, 1);
}

template class Param<PPD_CUSTOM_CURVE>;
template class Param<PPD_CUSTOM_INT>;
template class Param<PPD_CUSTOM_INVCURVE>;
template class Param<PPD_CUSTOM_PASSCODE>;
template class Param<PPD_CUSTOM_PASSWORD>;
template class Param<PPD_CUSTOM_POINTS>;
template class Param<PPD_CUSTOM_REAL>;
template class Param<PPD_CUSTOM_STRING>;
