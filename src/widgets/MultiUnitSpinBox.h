#pragma once

#include <QLocale>
#include <QSpinBox>

class QDoubleValidator;
class QValidator;

/**
 * An integer spin box whose value counts fine steps (points, say), while the user sees and types it
 * in another unit with decimals. `steps` integer steps make `units` display units. A change of the
 * unit never changes the value, only how it is shown.
 *
 * A conversion is active while `steps` and `units` differ; without one this is a QSpinBox. The text
 * has the decimal sign of the widget's locale and no digit groups. Point and comma are both read as
 * the decimal sign, except where the text may mean a group of digits ("1,234"). Prefix, suffix and
 * special value text are for boxes without a conversion.
 */
class MultiUnitSpinBox : public QSpinBox
{
    Q_OBJECT
    Q_PROPERTY(int steps READ steps WRITE setSteps)
    Q_PROPERTY(int units READ units WRITE setUnits)
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
public:
    explicit MultiUnitSpinBox(QWidget *parent = nullptr);
    ~MultiUnitSpinBox() override;

    int steps() const { return m_steps; }
    int units() const { return m_units; }
    int decimals() const { return m_decimals; }
    void setSteps(int steps) { setConversion(steps, m_units, m_decimals); }
    void setUnits(int units) { setConversion(m_steps, units, m_decimals); }
    void setDecimals(int decimals) { setConversion(m_steps, m_units, decimals); }

    /** What is typed so far is taken over in the old unit first. */
    void setConversion(int steps, int units, int decimals);

    /** The state of the box as text, for a developer. */
    QString dump() const;

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;

private:
    class UnitValidator;

    bool hasUnitConversion() const { return m_steps != m_units; }
    double toUnit(int value) const;
    int fromUnit(double value) const;
    /** The locale that the text is written in. */
    QLocale textLocale() const;
    void takePendingText();
    void showValue();

    int m_steps = 1;
    int m_units = 1;
    int m_decimals = 0;
    QDoubleValidator *m_unitValidator;
    const QValidator *m_defaultValidator;
};
