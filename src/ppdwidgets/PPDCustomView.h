#pragma once

#include "CupsHandles.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class CustomPageSizeView;
class ParamViewInterface;
class QListWidgetItem;

namespace Ui
{
class PPDCustomForm;
}

/** The choices of an option and, for its choice "Custom", a box with the editors of its value. */
class PPDCustomView : public QWidget
{
    Q_OBJECT
public:
    /** The names of the types of parameters, by the library's numbers. */
    static const QMap<int, QString> m_typeNames;

    explicit PPDCustomView(QWidget *parent = nullptr);
    ~PPDCustomView() override;

    /**
     * Shows the choices of `option` and the parameters of `coption`. A null option only takes the
     * parameters away. Both are only read, and only here.
     */
    void setup(ppd_option_t *option, ppd_coption_t *coption);
    bool isCustomSelected() const;
    /** The complete choice that stands for what the custom box shows. */
    QString customValue() const;
    int currentRow() const;
    /** Brings the current choice to the middle of its list. */
    void scrollToCurrent();

signals:
    /** Another choice became the current one, or the custom value was edited. */
    void choiceChanged();

private slots:
    virtual void currentChanged(QListWidgetItem *current);

private:
    void removeEditors();
    void retire(QWidget *editor);
    void addPageSizeEditor(const ppd_option_t &option, ppd_coption_t *coption);
    void addParamEditors(ppd_coption_t *coption);
    void addParamEditor(ppd_cparam_t *param);
    template <ppd_cptype_e T> void addEditor(ppd_cparam_t *param);
    void alignLabels() const;
    void fillChoices(const ppd_option_t &option);

    QString m_keyword;
    QList<ParamViewInterface *> m_paramViews;
    CustomPageSizeView *m_pageSizeView = nullptr;
    /** Former editors, kept until no signal of theirs can be under way. */
    std::vector<std::unique_ptr<QWidget>> m_retired;
    std::unique_ptr<Ui::PPDCustomForm> m_ui;
};
