#include "DecimalSpinBox.h"

QValidator::State DecimalSpinBox::validate(QString &input, int &position) const
{
    const QString point = locale().decimalPoint();
    if (point.size() == 1 && (suffix().isEmpty() || input.endsWith(suffix()))) {
        QString number = input.chopped(suffix().size());
        input = number.replace(QLatin1Char('.'), point) + suffix();
    }
    return QDoubleSpinBox::validate(input, position);
}
