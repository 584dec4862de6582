#include "CustomPageSizeView.h"

#include "EditorText.h"
#include "PPDCustomView.h"
#include "PageSizeChoice.h"
#include "ui_CustomPageSizeView.h"

#include <QSignalBlocker>

#include <algorithm>

namespace
{
/** The units that the user can choose: the first ones of UnitNames. */
constexpr int offeredUnits = 4;
/** The digits of the limits in the labels. */
constexpr int limitDecimals = 2;

const ppd_cparam_t &required(ppd_coption_t *option, const char *name)
{
    const ppd_cparam_t *param = ppdFindCustomParam(option, name);
    if (!param)
        qFatal("%s not found!", name);
    return *param;
}

std::pair<double, double> pointRange(const ppd_cparam_t &param)
{
    return EditorText::finiteRange(static_cast<double>(param.minimum.custom_points),
                                   static_cast<double>(param.maximum.custom_points));
}
} // namespace

CustomPageSizeView::CustomPageSizeView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CustomPageSizeForm>())
{
    m_ui->setupUi(this);
    const std::array<QString, offeredUnits> texts{
        //: Unit of the size of a page: points, 1/72 inch.
        tr("pt"),
        //: Unit of the size of a page: millimeters.
        tr("mm"),
        //: Unit of the size of a page: centimeters.
        tr("cm"),
        //: Unit of the size of a page: inches.
        tr("in"),
    };
    for (int i = 0; i < offeredUnits; ++i)
        m_ui->m_unitsComboBox->addItem(texts[static_cast<size_t>(i)], i);

    for (const QDoubleSpinBox *box : {m_ui->m_widthSpinBox, m_ui->m_heightSpinBox})
        connect(box, &QDoubleSpinBox::valueChanged, this, &CustomPageSizeView::updateSize);
    connect(m_ui->m_unitsComboBox, &QComboBox::currentIndexChanged, this,
            &CustomPageSizeView::unitChanged);
    if (auto *view = qobject_cast<PPDCustomView *>(parent))
        connect(this, &CustomPageSizeView::sizeChanged, view, &PPDCustomView::choiceChanged);
}

CustomPageSizeView::~CustomPageSizeView() = default;

void CustomPageSizeView::setCustomOption(ppd_coption_t *coption)
{
    if (!coption)
        qFatal("coption = NULL!");
    const auto [minimumWidth, maximumWidth] = pointRange(required(coption, "Width"));
    const auto [minimumHeight, maximumHeight] = pointRange(required(coption, "Height"));
    for (size_t i = 0; i < m_limits.size(); ++i) {
        const double points = PointsInUnit[i];
        m_limits[i] = {minimumWidth / points, minimumHeight / points, maximumWidth / points,
                       maximumHeight / points};
    }
    setSizeInPoints(minimumWidth, minimumHeight);
    unitChanged();
    emit sizeChanged();
}

void CustomPageSizeView::setValue(const QString &choice)
{
    const std::optional<PageSizeChoice> size =
        PageSizeChoice::parse(choice.toLocal8Bit().toStdString());
    if (!size)
        return;
    const auto found = std::find(UnitNames.begin(), UnitNames.end(), size->unit);
    if (found != UnitNames.end())
        m_ui->m_unitsComboBox->setCurrentIndex(static_cast<int>(found - UnitNames.begin()));
    m_ui->m_widthSpinBox->setValue(static_cast<double>(size->width));
    m_ui->m_heightSpinBox->setValue(static_cast<double>(size->height));
    updateSize();
    unitChanged();
}

QString CustomPageSizeView::value() const
{
    if (unit() < 0)
        return {};
    const auto index = static_cast<size_t>(unit());
    const Size &size = m_sizes[index];
    return QStringLiteral("Custom.%1x%2%3")
        .arg(EditorText::fixed(size.width), EditorText::fixed(size.height),
             QLatin1StringView(UnitNames[index]));
}

QSizeF CustomPageSizeView::sizeInPoints() const
{
    return {m_sizes.front().width, m_sizes.front().height};
}

void CustomPageSizeView::updateSize()
{
    if (unit() < 0)
        return;
    const double points = PointsInUnit[static_cast<size_t>(unit())];
    setSizeInPoints(m_ui->m_widthSpinBox->value() * points,
                    m_ui->m_heightSpinBox->value() * points);
    emit sizeChanged();
}

void CustomPageSizeView::unitChanged()
{
    if (unit() < 0)
        return;
    const auto index = static_cast<size_t>(unit());
    const QSignalBlocker widthBlocker(m_ui->m_widthSpinBox);
    const QSignalBlocker heightBlocker(m_ui->m_heightSpinBox);
    const Limits &limits = m_limits[index];
    m_ui->m_widthSpinBox->setRange(limits.minimumWidth, limits.maximumWidth);
    m_ui->m_heightSpinBox->setRange(limits.minimumHeight, limits.maximumHeight);
    m_ui->m_widthSpinBox->setValue(m_sizes[index].width);
    m_ui->m_heightSpinBox->setValue(m_sizes[index].height);
    showLimits(limits);
}

/** The unit's place in UnitNames, or -1. */
int CustomPageSizeView::unit() const
{
    const QVariant selected = m_ui->m_unitsComboBox->currentData();
    return selected.isValid() ? selected.toInt() : -1;
}

void CustomPageSizeView::setSizeInPoints(double width, double height)
{
    for (size_t i = 0; i < m_sizes.size(); ++i)
        m_sizes[i] = {width / PointsInUnit[i], height / PointsInUnit[i]};
}

void CustomPageSizeView::showLimits(const Limits &limits)
{
    const auto text = [this](double limit) {
        return EditorText::shown(locale(), limit, limitDecimals);
    };
    const QString unitText = m_ui->m_unitsComboBox->currentText();
    m_ui->m_widthLabel->setText(
        //: The width of a page: the smallest, the greatest, the unit.
        tr("Width [%1-%2] %3:")
            .arg(text(limits.minimumWidth), text(limits.maximumWidth), unitText));
    m_ui->m_heightLabel->setText(
        //: The height of a page: the smallest, the greatest, the unit.
        tr("Height [%1-%2] %3:")
            .arg(text(limits.minimumHeight), text(limits.maximumHeight), unitText));
}
