#pragma once

#include "CustomFields.h"

class PPDCustomView;
class QAbstractSpinBox;
class QLineEdit;
class QWidget;

/** One field a parameter. */
class ParameterFields : public CustomFields
{
public:
    ParameterFields(const Twins &ppds, const ppd_option_t &plain, const PPDCustomView &view,
                    Report &report);

    void compare() override;
    void change(const std::function<void()> &changed) override;
    QByteArray value() const override;

private:
    struct Field {
        Parameter parameter;
        /** The label and the field itself. */
        QWidget *editor;
        /** What the field is expected to hold, as it is written into a choice. */
        QString text;
    };

    void compareNumber(const Field &field);
    void compareText(const Field &field);
    void changeNumber(Field &field, const std::function<void()> &changed);
    void changeText(Field &field, const std::function<void()> &changed);

    std::vector<Field> m_fields;
};
