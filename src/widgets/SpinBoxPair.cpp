#include "SpinBoxPair.h"

#include <QSpinBox>

SpinBoxPair::SpinBoxPair(QSpinBox *first, QSpinBox *second, QObject *parent)
    : QObject(parent)
    , m_total(first->maximum() + second->maximum())
    , m_first(first)
    , m_second(second)
{
    connect(first, &QSpinBox::valueChanged, this, &SpinBoxPair::value1Changed);
    connect(second, &QSpinBox::valueChanged, this, &SpinBoxPair::value2Changed);
    connect(this, &SpinBoxPair::value1Changed, this, &SpinBoxPair::setValue1);
    connect(this, &SpinBoxPair::value2Changed, this, &SpinBoxPair::setValue2);
}

void SpinBoxPair::setTotal(int total)
{
    m_total = total;
    const int first = m_first->value();
    setValue2(m_second->value());
    setValue1(first);
}

void SpinBoxPair::setEnabled(bool enabled)
{
    m_first->setEnabled(enabled);
    m_second->setEnabled(enabled);
}

void SpinBoxPair::setValue1(int value)
{
    setValue(m_first, m_second, value);
}

void SpinBoxPair::setValue2(int value)
{
    setValue(m_second, m_first, value);
}

void SpinBoxPair::setValue(QSpinBox *box, QSpinBox *other, int value)
{
    box->setMaximum(m_total);
    // Set once more, a value would replace what the user is still typing.
    if (box->value() != value)
        box->setValue(value);
    other->setMaximum(m_total - box->value());
    box->setMaximum(m_total - other->value());
}
