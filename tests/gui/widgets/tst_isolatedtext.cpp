#include "IsolatedText.h"

#include <QApplication>
#include <QListWidget>
#include <QStyleFactory>
#include <QTest>

using namespace Qt::StringLiterals;

/** Text that begins with a number and runs from left to right, in a window that does not. */
class TestIsolatedText : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void text();
    void list();
};

namespace
{
const QString paper = u"10 x 15 cm"_s;

/** What is drawn in the text's colour, cut out. */
QImage ink(const QPixmap &picture)
{
    const QImage image = picture.toImage();
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128)
                area |= QRect(x, y, 1, 1);
        }
    }
    if (area.isNull())
        qFatal("nothing is drawn");
    return image.copy(area);
}

/** The ink of the text in a list; `isIsolated`: with the delegate. */
QImage listed(Qt::LayoutDirection direction, bool isIsolated)
{
    QListWidget list;
    list.setFrameShape(QFrame::NoFrame);
    list.setLayoutDirection(direction);
    if (isIsolated)
        list.setItemDelegate(new IsolatedTextDelegate(&list));
    // The letters lie on whole points, on either side of the list.
    QFont font = list.font();
    font.setHintingPreference(QFont::PreferFullHinting);
    list.setFont(font);
    list.addItem(paper);
    list.show();
    return ink(list.viewport()->grab());
}
} // namespace

void TestIsolatedText::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
}

void TestIsolatedText::text()
{
    QCOMPARE(isolated(paper, Qt::LeftToRight), paper);
    QCOMPARE(isolated(paper, Qt::RightToLeft), u"\u2068"_s + paper + u"\u2069"_s);
}

void TestIsolatedText::list()
{
    const QImage usual = listed(Qt::LeftToRight, false);
    QVERIFY(listed(Qt::RightToLeft, false) != usual);
    QCOMPARE(listed(Qt::RightToLeft, true), usual);
    QCOMPARE(listed(Qt::LeftToRight, true), usual);
}

QTEST_MAIN(TestIsolatedText)
#include "tst_isolatedtext.moc"
