#pragma once

#include <QObject>

class QSpinBox;

/**
 * Keeps two spin boxes within a shared total: what one takes, the other cannot have. A value set
 * through the pair comes first, and the other box gives way; what the user types or steps in one
 * box ends where the other's value begins. The boxes are not owned and must outlive the pair.
 */
class SpinBoxPair : public QObject
{
    Q_OBJECT
public:
    /** Until it is set, the total is all that the two boxes can hold. */
    SpinBoxPair(QSpinBox *first, QSpinBox *second, QObject *parent = nullptr);

    int total() const { return m_total; }
    /** Where the values exceed the new total, the second gives way. */
    void setTotal(int total);
    /** Enables or disables both. */
    void setEnabled(bool enabled);

public slots:
    void setValue1(int value);
    void setValue2(int value);

signals:
    void value1Changed(int value);
    void value2Changed(int value);

private:
    void setValue(QSpinBox *box, QSpinBox *other, int value);

    int m_total;
    QSpinBox *m_first;
    QSpinBox *m_second;
};
