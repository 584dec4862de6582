#pragma once

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui
{
class PPDNumericView;
}

/**
 * A number, as an entry field and a slider. The slider counts in units of 1/scale: with a scale of
 * 1 the number is whole, with any other it has three decimals.
 */
class PPDNumericView : public QWidget
{
    Q_OBJECT
public:
    explicit PPDNumericView(QWidget *parent = nullptr);
    ~PPDNumericView() override;

    int scale() const { return m_scale; }
    /** Takes effect with the next setRange() and setValue(). */
    void setScale(int scale) { m_scale = scale; }
    /** Limits in either order; what a slider cannot hold is cut off. */
    void setRange(double min, double max);
    /** The slider keeps to its range. */
    void setValue(double value);

signals:
    void valueChanged(double value);

private slots:
    virtual void sliderChanged(int position);
    virtual void editChanged(const QString &text);

private:
    int toPosition(double value) const;
    double toValue(int position) const;
    QString limitText(double limit) const;
    std::optional<double> parsed(const QString &text) const;
    void showInEntry(int position);
    void restoreEntry();

    int m_scale = 1;
    std::unique_ptr<Ui::PPDNumericView> m_ui;
};
