#pragma once

#include "CupsHandles.h"
#include "ParamViewInterface.h"

#include <QWidget>

#include <type_traits>

class DecimalSpinBox;
class PPDCustomView;
class QLineEdit;
class QSpinBox;

/** The kind of field that a custom parameter of a type is edited in. */
template <ppd_cptype_e T>
using ParamEditor =
    std::conditional_t<T == PPD_CUSTOM_INT, QSpinBox,
                       std::conditional_t<T == PPD_CUSTOM_PASSCODE || T == PPD_CUSTOM_PASSWORD ||
                                              T == PPD_CUSTOM_STRING,
                                          QLineEdit, DecimalSpinBox>>;

/** A label and the editor of one custom parameter of type `T`. */
template <ppd_cptype_e T> class Param : public QWidget, public ParamViewInterface
{
public:
    /**
     * Starts with the parameter's current value. `view` is told of every edit by its
     * choiceChanged(), becomes the parent and outlives this. `param` is read here only.
     */
    Param(PPDCustomView *view, ppd_cparam_t *param);

    bool isHidden() const override { return m_hidden; }
    QString name() const override { return m_name; }
    QString value() const override;

private:
    void layOut(const QString &text);

    ParamEditor<T> *m_editor;
    bool m_hidden = false;
    PPDCustomView *m_view;
    QString m_name;
};

extern template class Param<PPD_CUSTOM_CURVE>;
extern template class Param<PPD_CUSTOM_INT>;
extern template class Param<PPD_CUSTOM_INVCURVE>;
extern template class Param<PPD_CUSTOM_PASSCODE>;
extern template class Param<PPD_CUSTOM_PASSWORD>;
extern template class Param<PPD_CUSTOM_POINTS>;
extern template class Param<PPD_CUSTOM_REAL>;
extern template class Param<PPD_CUSTOM_STRING>;
