#include "PageList.h"

#include <QRegularExpression>

namespace
{
QStringView withoutLeadingZeros(QStringView digits)
{
    while (digits.size() > 1 && digits.front() == u'0')
        digits = digits.sliced(1);
    return digits;
}

/** Compares decimal numbers of any length, so that no page number is too large to be read. */
bool isAtMost(QStringView first, QStringView second)
{
    first = withoutLeadingZeros(first);
    second = withoutLeadingZeros(second);
    return first.size() != second.size() ? first.size() < second.size() : first <= second;
}

bool isValid(QStringView item)
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(QStringLiteral("(\\d+)(?:-(\\d+))?")));
    const QRegularExpressionMatch match = pattern.match(item);
    if (!match.hasMatch())
        return false;
    return match.lastCapturedIndex() < 2 || isAtMost(match.capturedView(1), match.capturedView(2));
}
} // namespace

namespace PageList
{
Check check(const QString &text)
{
    qsizetype position = 0;
    const QList<QStringView> items = QStringView(text).split(u',');
    for (const QStringView item : items) {
        if (!isValid(item))
            return {false, item.toString(), position};
        position += item.size() + 1;
    }
    return {};
}
} // namespace PageList
