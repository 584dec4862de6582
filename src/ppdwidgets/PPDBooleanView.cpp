#include "PPDBooleanView.h"

#include "EditorText.h"
#include "ui_PPDBooleanView.h"

#include <QButtonGroup>

PPDBooleanView::PPDBooleanView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PPDBooleanView>())
    , m_buttons(new QButtonGroup(this))
{
    m_ui->setupUi(this);
    m_buttons->addButton(m_ui->button1, 0);
    m_buttons->addButton(m_ui->button2, 1);
    connect(m_buttons, &QButtonGroup::idClicked, this, &PPDBooleanView::valueChanged);
}

PPDBooleanView::~PPDBooleanView() = default;

void PPDBooleanView::setChoiceText(int id, const QString &text)
{
    if (QAbstractButton *button = m_buttons->button(id))
        button->setText(EditorText::withoutMnemonic(text));
}

void PPDBooleanView::setChecked(int id)
{
    if (QAbstractButton *button = m_buttons->button(id))
        button->setChecked(true);
}
