#include "Looks.h"
#include "PPDTreeColors.h"
#include "TreeTest.h"

#include <QApplication>
#include <QScrollBar>
#include <QStyleFactory>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace TreeTest;
using namespace PPDTree;
using PPDTreeColors::Role;

/** The rows as they are painted: what colour is where. */
class TestPPDTreePainting : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();

    void optionRow_data() { looks(); }
    void optionRow();
    void optionInConflict_data() { looks(); }
    void optionInConflict();
    void undefined_data() { looks(); }
    void undefined();
    void undefinedInConflict_data() { looks(); }
    void undefinedInConflict();
    void selected_data() { looks(); }
    void selected();
    void undefinedSelected_data() { looks(); }
    void undefinedSelected();
    void openGroupInConflict();
    void closedGroupInConflict();
    void leafGroupInConflict();
    void closedRoot();
    void numerical_data() { looks(); }
    void numerical();
    void numericalInConflict_data() { looks(); }
    void numericalInConflict();
    void numericalSelected_data() { looks(); }
    void numericalSelected();
    void pieces_data() { looks(); }
    void pieces();
    void wordsKeepTheirOrder();
    void openingMarkIsThePalettes_data();
    void openingMarkIsThePalettes();
    void pictureComesFirst_data() { looks(); }
    void pictureComesFirst();
    void missingPicture();
    void disabled();
    void longTextIsNotElided();

private:
    void looks();
    QImage imageOf(const QTreeWidgetItem *row);
    bool paints(const QTreeWidgetItem *row, Role role);
    NumericalItem *addNumber();
    QImage valueOf(BaseItem *row);
    void checkWhiteValue(BaseItem *row);
    QColor color(Role role) const;

    Cups::PpdPtr m_ppd;
    std::unique_ptr<PPDTreeView> m_view;
};

namespace
{
/** From where to where a colour is to be found; an invalid range has its first behind its last. */
struct Range {
    int first;
    int last;
    bool isValid() const { return first <= last; }
};

Range columnsOf(const QImage &image, const QColor &color)
{
    Range range{image.width(), -1};
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).rgb() != color.rgb())
                continue;
            range = {std::min(range.first, x), x};
            break;
        }
    }
    return range;
}
/** Its text is not white, as a selected row's is. */
QPalette darkPalette()
{
    QPalette palette = Looks::darkPalette();
    palette.setColor(QPalette::Text, QColor(0xd0, 0xd0, 0xd0));
    return palette;
}
} // namespace

void TestPPDTreePainting::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
}

void TestPPDTreePainting::init()
{
    m_ppd = openMarked(officeDriver());
    m_view = std::make_unique<PPDTreeView>();
    // Strokes so thick that they have pixels of the pen's own colour.
    QFont font = m_view->font();
    font.setPixelSize(28);
    font.setBold(true);
    m_view->setFont(font);
    if (QTest::currentDataTag() && QByteArray(QTest::currentDataTag()).startsWith("dark"))
        m_view->setPalette(darkPalette());
    if (QTest::currentDataTag() && QByteArray(QTest::currentDataTag()).endsWith("mirrored"))
        m_view->setLayoutDirection(Qt::RightToLeft);
    m_view->setPPD(m_ppd.get());
    m_view->resize(600, 700);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestPPDTreePainting::cleanup()
{
    m_view.reset();
    m_ppd.reset();
}

void TestPPDTreePainting::looks()
{
    QTest::addColumn<bool>("mirrored");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << false;
    QTest::newRow("light mirrored") << true;
    QTest::newRow("dark mirrored") << true;
}

/** The cell of the row, without what the tree draws beside it. */
QImage TestPPDTreePainting::imageOf(const QTreeWidgetItem *row)
{
    return m_view->viewport()->grab(m_view->visualItemRect(row)).toImage();
}

QColor TestPPDTreePainting::color(Role role) const
{
    return PPDTreeColors::textColor(m_view->palette(), role);
}

bool TestPPDTreePainting::paints(const QTreeWidgetItem *row, Role role)
{
    return columnsOf(imageOf(row), color(role)).isValid();
}

NumericalItem *TestPPDTreePainting::addNumber()
{
    return new NumericalItem(m_ppd.get(), TreeTest::optionRow(*m_view, "Media")->m_option,
                             groupRow(m_view->m_root, 2));
}

/** What is between the brackets of a row whose text begins in white. */
QImage TestPPDTreePainting::valueOf(BaseItem *row)
{
    QFETCH(bool, mirrored);
    row->setPixmap(QPixmap());
    const QImage image = imageOf(row).mirrored(mirrored, false);
    const QString text = row->text(0);
    const QString name = text.left(text.indexOf(u'<') + 1);
    const QString value = text.mid(name.size()).chopped(1);
    const auto ratio = image.devicePixelRatio();
    const QFontMetrics metrics = m_view->fontMetrics();
    return image.copy(columnsOf(image, Qt::white).first +
                          qRound(metrics.horizontalAdvance(name) * ratio),
                      0, qRound(metrics.horizontalAdvance(value) * ratio), image.height());
}

void TestPPDTreePainting::checkWhiteValue(BaseItem *row)
{
    m_view->setCurrentItem(row);
    const QImage value = valueOf(row);
    QVERIFY(columnsOf(value, Qt::white).isValid());
    for (const Role role : {Role::Text, Role::Choice, Role::Conflict}) {
        QVERIFY(color(role) != QColor(Qt::white));
        QVERIFY(!paints(row, role));
    }
    QCOMPARE(imageOf(row).pixelColor(0, 0).rgb(),
             PPDTreeColors::selectionColor(m_view->palette()).rgb());
}

void TestPPDTreePainting::optionRow()
{
    const OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    QVERIFY(paints(row, Role::Text));
    QVERIFY(paints(row, Role::Choice));
    QVERIFY(!paints(row, Role::Conflict));
    const QImage image = imageOf(row);
    QCOMPARE(image.pixelColor(image.width() - 1, 0).rgb(),
             m_view->palette().color(QPalette::Base).rgb());
}

void TestPPDTreePainting::optionInConflict()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setConflict(true);
    QVERIFY(paints(row, Role::Text));
    QVERIFY(paints(row, Role::Conflict));
    QVERIFY(!paints(row, Role::Choice));
    row->setConflict(false);
    QVERIFY(paints(row, Role::Choice));
    QVERIFY(!paints(row, Role::Conflict));
}

void TestPPDTreePainting::undefined()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setChoice(nullptr);
    QVERIFY(paints(row, Role::Text));
    QVERIFY(!paints(row, Role::Choice));
}

void TestPPDTreePainting::undefinedInConflict()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setChoice(nullptr);
    row->setConflict(true);
    QVERIFY(!paints(row, Role::Choice));
    QVERIFY(!paints(row, Role::Conflict));
}

void TestPPDTreePainting::selected()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setConflict(true);
    m_view->setCurrentItem(row);
    const QImage image = imageOf(row);
    QVERIFY(columnsOf(image, Qt::white).isValid());
    QVERIFY(!paints(row, Role::Conflict));
    QVERIFY(!paints(row, Role::Choice));
    const QColor background = image.pixelColor(image.width() - 1, image.height() / 2);
    QCOMPARE(background.rgb(), PPDTreeColors::selectionColor(m_view->palette()).rgb());
    QVERIFY(PPDTreeColors::contrast(Qt::white, background) >= PPDTreeColors::ReadableContrast);
}

void TestPPDTreePainting::undefinedSelected()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setChoice(nullptr);
    QCOMPARE(row->text(0), u"Kind: <Undefined>"_s);
    checkWhiteValue(row);
    row->setConflict(true);
    checkWhiteValue(row);
}

void TestPPDTreePainting::openGroupInConflict()
{
    TreeTest::optionRow(*m_view, "Media")->setConflict(true);
    const GroupItem *group = groupRow(m_view->m_root, 2);
    QVERIFY(group->m_conflict);
    QVERIFY(!paints(group, Role::Conflict));
    QVERIFY(paints(group, Role::Text));
}

void TestPPDTreePainting::closedGroupInConflict()
{
    TreeTest::optionRow(*m_view, "Media")->setConflict(true);
    GroupItem *group = groupRow(m_view->m_root, 2);
    group->setExpanded(false);
    QVERIFY(paints(group, Role::Conflict));
    QVERIFY(!paints(group, Role::Text));
    m_view->setCurrentItem(group);
    QVERIFY(!paints(group, Role::Conflict));
    QVERIFY(columnsOf(imageOf(group), Qt::white).isValid());
}

/** Below a group, a row without rows of its own is red. Right below the root it is not. */
void TestPPDTreePainting::leafGroupInConflict()
{
    ppd_group_t nothing = {};
    qstrncpy(nothing.text, "Nothing", sizeof nothing.text);
    auto *deep = new GroupItem(m_ppd.get(), &nothing, groupRow(m_view->m_root, 2));
    auto *high = new GroupItem(m_ppd.get(), &nothing, m_view->m_root);
    deep->setConflict(true);
    high->setConflict(true);
    QVERIFY(paints(deep, Role::Conflict));
    QVERIFY(!paints(high, Role::Conflict));
}

void TestPPDTreePainting::closedRoot()
{
    TreeTest::optionRow(*m_view, "Media")->setConflict(true);
    m_view->m_root->setExpanded(false);
    QVERIFY(!paints(m_view->m_root, Role::Conflict));
}

void TestPPDTreePainting::numerical()
{
    NumericalItem *row = addNumber();
    QVERIFY(paints(row, Role::Text));
    QVERIFY(paints(row, Role::Choice));
}

void TestPPDTreePainting::numericalInConflict()
{
    NumericalItem *row = addNumber();
    row->setConflict(true);
    QVERIFY(paints(row, Role::Text));
    QVERIFY(paints(row, Role::Conflict));
    QVERIFY(!paints(row, Role::Choice));
}

void TestPPDTreePainting::numericalSelected()
{
    NumericalItem *row = addNumber();
    row->m_isReal = true;
    row->setValue(88.888);
    checkWhiteValue(row);
    row->setConflict(true);
    checkWhiteValue(row);
}

/** The name, the choice, the bracket: from the side where reading begins. */
void TestPPDTreePainting::pieces()
{
    QFETCH(bool, mirrored);
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setPixmap(QPixmap());
    QImage image = imageOf(row);
    if (mirrored)
        image = image.mirrored(true, false);
    const Range text = columnsOf(image, color(Role::Text));
    const Range choice = columnsOf(image, color(Role::Choice));
    QVERIFY(text.first < choice.first);
    QVERIFY(text.last > choice.last);
    const QFontMetrics metrics = m_view->fontMetrics();
    const auto ratio = image.devicePixelRatio();
    const int opening = qRound(metrics.horizontalAdvance(u"Kind: <"_s) * ratio);
    const int value = qRound(metrics.tightBoundingRect(u"Plain"_s).width() * ratio);
    const int closing = qRound(metrics.horizontalAdvance(u">"_s) * ratio);
    const int width = choice.last - choice.first + 1;
    QVERIFY2(std::abs(width - value) <= 4 * ratio, qPrintable(QString::number(width - value)));
    QVERIFY(std::abs(choice.first - text.first - opening) <= 8 * ratio);
    QVERIFY(text.last - choice.last <= closing + 5 * ratio);
}

/** A choice like "600 DPI" does not become "DPI 600" from right to left. */
void TestPPDTreePainting::wordsKeepTheirOrder()
{
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/One", "a", {"a/1 WWW"})));
    m_view->setPPD(ppd.get());
    m_view->setLayoutDirection(Qt::RightToLeft);
    const QImage image = imageOf(TreeTest::optionRow(*m_view, "One"));
    const Range choice = columnsOf(image, color(Role::Choice));
    QVERIFY(choice.isValid());
    // The space is on the side of the digit, left of the middle.
    int empty = choice.first;
    while (columnsOf(image.copy(empty, 0, 1, image.height()), color(Role::Choice)).isValid())
        ++empty;
    int gapEnd = empty;
    while (!columnsOf(image.copy(gapEnd, 0, 1, image.height()), color(Role::Choice)).isValid())
        ++gapEnd;
    QVERIFY(gapEnd < (choice.first + choice.last) / 2);
    m_view->setPPD(nullptr);
}

void TestPPDTreePainting::openingMarkIsThePalettes_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::newRow("enabled") << true;
    QTest::newRow("disabled") << false;
}

/** The mark that opens and closes a group is as strong as the view is enabled. */
void TestPPDTreePainting::openingMarkIsThePalettes()
{
    QFETCH(bool, enabled);
    QPalette palette = m_view->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Base));
    palette.setColor(QPalette::Disabled, QPalette::Text, palette.color(QPalette::Base));
    m_view->setPalette(palette);
    m_view->setEnabled(enabled);
    const QRect row = m_view->visualItemRect(m_view->m_root);
    const QImage mark =
        m_view->viewport()->grab({0, row.top(), row.left(), row.height()}).toImage();
    bool marked = false;
    for (int x = 0; x < mark.width(); ++x) {
        for (int y = 0; y < mark.height(); ++y)
            marked |= mark.pixelColor(x, y).lightness() < 0x80;
    }
    QCOMPARE(marked, enabled);
}

void TestPPDTreePainting::pictureComesFirst()
{
    QFETCH(bool, mirrored);
    QPixmap picture(16, 16);
    picture.fill(Qt::magenta);
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    row->setPixmap(picture);
    QImage image = imageOf(row);
    if (mirrored)
        image = image.mirrored(true, false);
    const Range pixmap = columnsOf(image, Qt::magenta);
    const Range text = columnsOf(image, color(Role::Text));
    const auto ratio = image.devicePixelRatio();
    QCOMPARE(pixmap.last - pixmap.first + 1, qRound(16 * ratio));
    QVERIFY(pixmap.first > 0);
    QVERIFY(text.first > pixmap.last);
    QVERIFY(text.first - pixmap.last < 12 * ratio);
    // In the middle of the row's height.
    int above = 0;
    while (image.pixelColor(pixmap.first, above).rgb() != QColor(Qt::magenta).rgb())
        ++above;
    QVERIFY(std::abs(2 * above + 16 * ratio - image.height()) <= 2 * ratio);
}

void TestPPDTreePainting::missingPicture()
{
    OptionItem *row = TreeTest::optionRow(*m_view, "Media");
    const int with = columnsOf(imageOf(row), color(Role::Text)).first;
    row->setPixmap(QPixmap());
    const int without = columnsOf(imageOf(row), color(Role::Text)).first;
    QVERIFY(without >= 0);
    QVERIFY(without < with);
}

void TestPPDTreePainting::disabled()
{
    m_view->setEnabled(false);
    const QColor text = m_view->palette().color(QPalette::Disabled, QPalette::Text);
    QVERIFY(columnsOf(imageOf(m_view->m_root), text).isValid());
}

void TestPPDTreePainting::longTextIsNotElided()
{
    const QByteArray longText(75, 'W');
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/One", "a", {"a/" + longText})));
    m_view->setPPD(ppd.get());
    const OptionItem *row = TreeTest::optionRow(*m_view, "One");
    QScrollBar *bar = m_view->horizontalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    bar->setValue(bar->maximum());
    const QRect end(m_view->viewport()->width() - 60, m_view->visualItemRect(row).top(), 60,
                    m_view->visualItemRect(row).height());
    const QImage image = m_view->viewport()->grab(end).toImage();
    const Range choice = columnsOf(image, color(Role::Choice));
    const Range bracket = columnsOf(image, color(Role::Text));
    QVERIFY(choice.isValid());
    QVERIFY(bracket.isValid());
    QVERIFY(bracket.last > choice.last);
    m_view->setPPD(nullptr);
}

QTEST_MAIN(TestPPDTreePainting)
#include "tst_ppdtreepainting.moc"
