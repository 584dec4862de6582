#pragma once

#include <QString>

/** What the custom-value box asks of the editor of one parameter. */
class ParamViewInterface
{
public:
    /** Whether there is nothing to choose; the value counts nevertheless. */
    virtual bool isHidden() const = 0;
    virtual QString name() const = 0;
    /** The current value, with a decimal point in every locale. */
    virtual QString value() const = 0;

protected:
    ~ParamViewInterface() = default;
};
