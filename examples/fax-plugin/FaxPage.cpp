#include "FaxPage.h"

#include "ui_FaxPage.h"

#include <QRegularExpressionValidator>

namespace
{
// Of the volatile options, those that begin with qfax come back when the dialog is opened again.
const QString NumberOption = QStringLiteral("qfax-number");
const QString CoverOption = QStringLiteral("qfax-cover");
const QString NoCover = QStringLiteral("none");

const QRegularExpression NumberPattern(QStringLiteral("\\+?[0-9 ()*#/-]*"));

/** Sets `option`, or removes it where `value` says nothing. */
void collect(const QString &option, const QString &value, const QString &nothing,
             Vesk::OptionValues &values, QStringList &removed)
{
    if (value == nothing)
        removed.append(option);
    else
        values.insert(option, value);
}
} // namespace

FaxPage::FaxPage(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::FaxPage>())
{
    ui->setupUi(this);
    ui->NumberEdit->setValidator(new QRegularExpressionValidator(NumberPattern, this));
    ui->CoverCombo->addItem(tr("None"), NoCover);
    ui->CoverCombo->addItem(tr("Standard"), QStringLiteral("standard"));
    ui->CoverCombo->addItem(tr("Confidential"), QStringLiteral("confidential"));

    // What the user does, not what setOptions() does.
    connect(ui->NumberEdit, &QLineEdit::textEdited, this, &FaxPage::optionChanged);
    connect(ui->CoverCombo, &QComboBox::activated, this, &FaxPage::optionChanged);
}

FaxPage::~FaxPage() = default;

QStringList FaxPage::handledOptions() const
{
    return {NumberOption, CoverOption};
}

void FaxPage::setOptions(const Vesk::OptionValues &values)
{
    if (values.contains(NumberOption))
        ui->NumberEdit->setText(values.value(NumberOption));
    if (values.contains(CoverOption))
        ui->CoverCombo->setCurrentIndex(
            qMax(0, ui->CoverCombo->findData(values.value(CoverOption))));
}

void FaxPage::collectOptions(Vesk::OptionValues &values, QStringList &removed) const
{
    collect(NumberOption, ui->NumberEdit->text().trimmed(), QString(), values, removed);
    collect(CoverOption, ui->CoverCombo->currentData().toString(), NoCover, values, removed);
}

QStringList FaxPage::volatileOptions() const
{
    return handledOptions();
}
