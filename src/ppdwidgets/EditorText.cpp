#include "EditorText.h"

namespace
{
QLocale ungrouped(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    return locale;
}

QString withPoint(QString text, const QLocale &locale)
{
    return text.trimmed().replace(locale.decimalPoint(), QLatin1String("."));
}
} // namespace

namespace EditorText
{
std::optional<double> toInteger(const QString &text, const QLocale &locale)
{
    bool read = false;
    int value = text.toInt(&read);
    if (!read)
        value = ungrouped(locale).toInt(text, &read);
    return read ? std::optional<double>(value) : std::nullopt;
}

std::optional<double> toReal(const QString &text, const QLocale &locale)
{
    bool read = false;
    double value = ungrouped(QLocale::c()).toDouble(withPoint(text, locale), &read);
    if (!read)
        value = ungrouped(locale).toDouble(text, &read);
    return read && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

bool isUnfinishedNumber(const QString &text, const QLocale &locale)
{
    QString rest = withPoint(text, locale);
    if (rest.startsWith(QLatin1Char('-')) || rest.startsWith(QLatin1Char('+')))
        rest.remove(0, 1);
    return !text.isEmpty() && (rest.isEmpty() || rest == QLatin1String("."));
}

QString shown(QLocale locale, double value, int digits)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    const bool isNothing = QString::number(value, 'f', digits).toDouble() == 0;
    return locale.toString(isNothing ? 0.0 : value, 'f', digits);
}

QString escapedForList(const QString &text)
{
    QString escaped;
    for (const QChar character : text) {
        if (character.isSpace() || QStringView(u"\\'\"{}[]").contains(character))
            escaped += QLatin1Char('\\');
        escaped += character;
    }
    return escaped;
}
} // namespace EditorText
