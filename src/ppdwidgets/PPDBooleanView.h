#pragma once

#include <QWidget>

#include <memory>

class QButtonGroup;

namespace Ui
{
class PPDBooleanView;
}

/** Two radio buttons, with the ids 0 and 1. */
class PPDBooleanView : public QWidget
{
    Q_OBJECT
public:
    explicit PPDBooleanView(QWidget *parent = nullptr);
    ~PPDBooleanView() override;

    /** Shows `text` as it is, '&' included. An unknown id does nothing. */
    void setChoiceText(int id, const QString &text);
    /** An unknown id does nothing. */
    void setChecked(int id);

signals:
    /** The user clicked the button with that id. */
    void valueChanged(int id);

private:
    std::unique_ptr<Ui::PPDBooleanView> m_ui;
    QButtonGroup *m_buttons;
};
