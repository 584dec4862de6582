#include "PPDNumericView.h"

#include "EditorText.h"
#include "ui_PPDNumericView.h"

#include <QApplication>
#include <QSignalBlocker>

namespace
{
/** A slider is crossed in this many page steps. */
constexpr qint64 pagesOfSlider = 20;

int pageStep(int lower, int upper)
{
    const qint64 step = (qint64{upper} - lower) / pagesOfSlider;
    return step >= 2 ? static_cast<int>(step) : 1;
}
} // namespace

PPDNumericView::PPDNumericView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PPDNumericView>())
{
    m_ui->setupUi(this);
    connect(m_ui->sliderValue, &QSlider::valueChanged, this, &PPDNumericView::sliderChanged);
    connect(m_ui->editValue, &QLineEdit::textChanged, this, &PPDNumericView::editChanged);
    connect(m_ui->editValue, &QLineEdit::editingFinished, this, &PPDNumericView::restoreEntry);
}

PPDNumericView::~PPDNumericView() = default;

void PPDNumericView::setRange(double min, double max)
{
    const auto [lowest, highest] = EditorText::finiteRange(min, max);
    const int lower = toPosition(lowest);
    const int upper = toPosition(highest);
    {
        const QSignalBlocker blocker(m_ui->sliderValue);
        m_ui->sliderValue->setRange(lower, upper);
        m_ui->sliderValue->setSingleStep(1);
        m_ui->sliderValue->setPageStep(pageStep(lower, upper));
    }
    m_ui->labelMin->setText(limitText(lowest));
    m_ui->labelMax->setText(limitText(highest));
    //: The smallest and the greatest number that may be chosen.
    const QString range = tr("From %1 to %2").arg(limitText(lowest), limitText(highest));
    m_ui->editValue->setToolTip(range);
    m_ui->sliderValue->setToolTip(range);
}

void PPDNumericView::setValue(double value)
{
    QSlider *slider = m_ui->sliderValue;
    slider->setValue(toPosition(value));
    // A slider that stays where it is says nothing, but the entry may show another option's number.
    if (!slider->signalsBlocked())
        showInEntry(slider->value());
}

void PPDNumericView::sliderChanged(int position)
{
    showInEntry(position);
    emit valueChanged(toValue(position));
}

void PPDNumericView::editChanged(const QString &text)
{
    if (EditorText::isUnfinishedNumber(text, locale()))
        return;
    const std::optional<double> value = parsed(text);
    if (!value) {
        QApplication::beep();
        m_ui->editValue->selectAll();
        return;
    }
    {
        const QSignalBlocker blocker(m_ui->sliderValue);
        setValue(*value);
    }
    emit valueChanged(*value);
}

int PPDNumericView::toPosition(double value) const
{
    return EditorText::truncated(m_scale * value);
}

double PPDNumericView::toValue(int position) const
{
    return static_cast<double>(position) / m_scale;
}

QString PPDNumericView::limitText(double limit) const
{
    return m_scale == 1 ? EditorText::shown(locale(), std::trunc(limit), 0)
                        : EditorText::shown(locale(), limit, EditorText::decimals);
}

std::optional<double> PPDNumericView::parsed(const QString &text) const
{
    return m_scale == 1 ? EditorText::toInteger(text, locale())
                        : EditorText::toReal(text, locale());
}

void PPDNumericView::showInEntry(int position)
{
    const QSignalBlocker blocker(m_ui->editValue);
    m_ui->editValue->setText(limitText(toValue(position)));
}

/** Text that is no number does not stay when the user goes on. */
void PPDNumericView::restoreEntry()
{
    if (!parsed(m_ui->editValue->text()))
        showInEntry(m_ui->sliderValue->value());
}
