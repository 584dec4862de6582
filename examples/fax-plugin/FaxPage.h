#pragma once

#include <vesk/plugin.h>

#include <QWidget>

#include <memory>

namespace Ui
{
class FaxPage;
}

/** The number that a fax is sent to, and its cover sheet. */
class FaxPage : public QWidget, public Vesk::PluginPage
{
    Q_OBJECT
public:
    explicit FaxPage(QWidget *parent);
    ~FaxPage() override;

    QStringList handledOptions() const override;
    void setOptions(const Vesk::OptionValues &values) override;
    void collectOptions(Vesk::OptionValues &values, QStringList &removed) const override;
    QStringList volatileOptions() const override;

signals:
    void optionChanged();

private:
    std::unique_ptr<Ui::FaxPage> ui;
};
