#include "PluginPages.h"
#include "PrinterOptions.h"

#include <vesk/plugin.h>

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
/** What was called, by all plug-ins and pages. */
QStringList calls;

class Page : public QLabel, public Vesk::PluginPage
{
    Q_OBJECT
public:
    Page(const QString &name, QWidget *parent)
        : QLabel(name, parent)
    {
    }

    QStringList handledOptions() const override
    {
        calls += text() + u" handled"_s;
        return {text() + u"-own"_s};
    }
    void setOptions(const Vesk::OptionValues &values) override
    {
        calls += text() + u" set"_s;
        given = values;
    }
    void collectOptions(Vesk::OptionValues &values, QStringList &removed) const override
    {
        calls += text() + u" collect"_s;
        values.insert(wanted);
        removed += unwanted;
    }
    QStringList volatileOptions() const override
    {
        calls += text() + u" volatile"_s;
        return {u"qfax-"_s + text()};
    }

    Vesk::OptionValues given;
    Vesk::OptionValues wanted;
    QStringList unwanted;

signals:
    void optionChanged();
};

class Plugin : public Vesk::Plugin
{
public:
    explicit Plugin(const QString &name)
        : m_name(name)
    {
    }

    bool applies(const Vesk::PluginHost *host) override
    {
        calls += m_name + u" applies"_s;
        hostSaid = {host->destination(), host->makeAndModel(), host->value(u"known"_s)};
        return hasPage;
    }
    QWidget *createPage(QWidget *parent) override
    {
        calls += m_name + u" create"_s;
        page = makesPage ? new Page(m_name, parent) : nullptr;
        return page;
    }
    QString title() const override
    {
        calls += m_name + u" title"_s;
        return u"Tab "_s + m_name;
    }
    Vesk::PluginPage *pageInterface(QWidget *widget) override
    {
        calls += m_name + u" interface"_s;
        return hasInterface ? dynamic_cast<Page *>(widget) : nullptr;
    }

    bool hasPage = true;
    bool makesPage = true;
    bool hasInterface = true;
    Page *page = nullptr;
    QStringList hostSaid;

private:
    QString m_name;
};
} // namespace

class TestPluginPages : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void addsTabsInOrder();
    void asksTheHost();
    void withoutPlugins();
    void leavesOutWhatHasNoPage_data();
    void leavesOutWhatHasNoPage();
    void firstHandsOverAllOptions();
    void laterHandsOverTheOthersOptions();
    void paperSizeAndResolutionGoToTheirOwnPageToo();
    void collectsInOrder();
    void forwardsChanges();
    void pagesGoWithTheirTabs();

private:
    void add() { m_pages->addTo(m_tabs.get(), *m_options, {m_first.get(), m_second.get()}); }

    std::unique_ptr<PrinterOptions> m_options;
    std::unique_ptr<Plugin> m_first;
    std::unique_ptr<Plugin> m_second;
    std::unique_ptr<QTabWidget> m_tabs;
    std::unique_ptr<PluginPages> m_pages;
};

void TestPluginPages::init()
{
    m_options = std::make_unique<PrinterOptions>();
    m_options->setDestination(u"Fax/draft"_s);
    m_options->setOption(u"known"_s, u"yes"_s);
    m_first = std::make_unique<Plugin>(u"one"_s);
    m_second = std::make_unique<Plugin>(u"two"_s);
    m_tabs = std::make_unique<QTabWidget>();
    m_tabs->addTab(new QLabel, u"General"_s);
    m_pages = std::make_unique<PluginPages>();
    calls.clear();
}

void TestPluginPages::addsTabsInOrder()
{
    add();
    QCOMPARE(calls,
             (QStringList{u"one applies"_s, u"one create"_s, u"one title"_s, u"one interface"_s,
                          u"one set"_s, u"one volatile"_s, u"two applies"_s, u"two create"_s,
                          u"two title"_s, u"two interface"_s, u"two set"_s, u"two volatile"_s}));
    QCOMPARE(m_tabs->count(), 3);
    QCOMPARE(m_tabs->tabText(1), u"Tab one"_s);
    QCOMPARE(m_tabs->widget(1), m_first->page);
    QCOMPARE(m_tabs->tabText(2), u"Tab two"_s);
    QCOMPARE(m_tabs->currentIndex(), 0);
    QCOMPARE(m_options->volatileOptions(), (QStringList{u"qfax-one"_s, u"qfax-two"_s}));
}

void TestPluginPages::asksTheHost()
{
    add();
    QCOMPARE(m_first->hostSaid, (QStringList{u"Fax/draft"_s, QString(), u"yes"_s}));
}

void TestPluginPages::withoutPlugins()
{
    m_pages->addTo(m_tabs.get(), *m_options, {});
    m_pages->update(*m_options);
    m_pages->apply(*m_options);
    QCOMPARE(m_tabs->count(), 1);
    QCOMPARE(m_options->volatileOptions(), QStringList());
}

void TestPluginPages::leavesOutWhatHasNoPage_data()
{
    QTest::addColumn<bool Plugin::*>("lacks");
    QTest::newRow("does not apply") << &Plugin::hasPage;
    QTest::newRow("null page") << &Plugin::makesPage;
    QTest::newRow("null interface") << &Plugin::hasInterface;
}

void TestPluginPages::leavesOutWhatHasNoPage()
{
    QFETCH(bool Plugin::*, lacks);
    (*m_first).*lacks = false;
    if (lacks == &Plugin::hasInterface)
        QTest::ignoreMessage(QtWarningMsg, "The plug-in page Tab one has no interface");
    add();
    QCOMPARE(m_tabs->count(), 2);
    QCOMPARE(m_tabs->widget(1), m_second->page);
    QVERIFY(m_tabs->findChildren<Page *>() == QList<Page *>{m_second->page});
    m_pages->update(*m_options);
    m_pages->apply(*m_options);
    QCOMPARE(m_options->volatileOptions(), QStringList{u"qfax-two"_s});
}

void TestPluginPages::firstHandsOverAllOptions()
{
    m_options->setOption(u"one-own"_s, u"1"_s);
    m_options->setOption(u"PageSize"_s, u"A4"_s);
    m_options->setOption(u"gone"_s, u"x"_s);
    m_options->removeOption(u"gone"_s);
    add();
    const Vesk::OptionValues expected{{u"known"_s, u"yes"_s},
                                      {u"one-own"_s, u"1"_s},
                                      {u"PageSize"_s, u"A4"_s},
                                      {u"Resolution"_s, QString()}};
    QCOMPARE(m_first->page->given, expected);
    QCOMPARE(m_second->page->given, expected);
}

void TestPluginPages::laterHandsOverTheOthersOptions()
{
    add();
    m_options->setOption(u"one-own"_s, u"1"_s);
    m_options->setOption(u"two-own"_s, u"2"_s);
    m_options->setOption(u"Resolution"_s, u"600dpi"_s);
    calls.clear();
    m_pages->update(*m_options);
    QCOMPARE(calls, (QStringList{u"one handled"_s, u"one set"_s, u"two handled"_s, u"two set"_s}));
    QCOMPARE(m_first->page->given, (Vesk::OptionValues{{u"known"_s, u"yes"_s},
                                                       {u"two-own"_s, u"2"_s},
                                                       {u"PageSize"_s, QString()},
                                                       {u"Resolution"_s, u"600dpi"_s}}));
    QCOMPARE(m_second->page->given.value(u"one-own"_s), u"1"_s);
    QVERIFY(!m_second->page->given.contains(u"two-own"_s));
}

void TestPluginPages::paperSizeAndResolutionGoToTheirOwnPageToo()
{
    struct PaperPlugin : Plugin {
        using Plugin::Plugin;
        struct PaperPage : Page {
            using Page::Page;
            QStringList handledOptions() const override { return {u"PageSize"_s, u"known"_s}; }
        };
        QWidget *createPage(QWidget *parent) override
        {
            page = new PaperPage(u"paper"_s, parent);
            return page;
        }
    } plugin(u"paper"_s);
    m_options->setOption(u"PageSize"_s, u"A5"_s);
    m_pages->addTo(m_tabs.get(), *m_options, {&plugin});
    m_pages->update(*m_options);
    QCOMPARE(plugin.page->given,
             (Vesk::OptionValues{{u"PageSize"_s, u"A5"_s}, {u"Resolution"_s, QString()}}));
}

void TestPluginPages::collectsInOrder()
{
    add();
    m_first->page->wanted = {{u"a"_s, u"1"_s}, {u"b"_s, u"1"_s}, {u"c"_s, u"1"_s}};
    m_second->page->wanted = {{u"b"_s, u"2"_s}};
    m_second->page->unwanted = QStringList{u"c"_s, u"known"_s};
    calls.clear();
    m_pages->apply(*m_options);
    QCOMPARE(calls, (QStringList{u"one collect"_s, u"two collect"_s}));
    QCOMPARE(m_options->value(u"a"_s, {}), u"1"_s);
    QCOMPARE(m_options->value(u"b"_s, {}), u"2"_s);
    QVERIFY(m_options->value(u"c"_s, {}).isNull());
    QVERIFY(m_options->value(u"known"_s, {}).isNull());
}

void TestPluginPages::forwardsChanges()
{
    add();
    const QSignalSpy changed(m_pages.get(), &PluginPages::optionChanged);
    emit m_second->page->optionChanged();
    emit m_first->page->optionChanged();
    QCOMPARE(changed.size(), 2);
}

void TestPluginPages::pagesGoWithTheirTabs()
{
    add();
    const QPointer<Page> page = m_first->page;
    m_pages.reset();
    QVERIFY(page);
    m_tabs.reset();
    QVERIFY(!page);
}

QTEST_MAIN(TestPluginPages)
#include "tst_pluginpages.moc"
