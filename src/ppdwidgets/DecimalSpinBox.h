#pragma once

#include <QDoubleSpinBox>

/**
 * Takes a typed point for the decimal separator of the user's locale, which its base class would
 * take for the mark of thousands where that is a point. It shows no such marks.
 */
class DecimalSpinBox : public QDoubleSpinBox
{
    Q_OBJECT
public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    QValidator::State validate(QString &input, int &position) const override;
};
