// The design surface: snapping, moves, the top left resize, selection
// through the event filter, and the typed menu tree.
#include "buildersupport.h"
#include "mdichild_dialog_dummy.h"
#include "testsuite.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QWidgetAction>

// Constructed drag events carry no source, so the surface is told it.
class ReplaySurface : public MdiChildDialogDummy
{
public:
    QWidget *replaySource = nullptr;

protected:
    QWidget *dragSource(const QDropEvent *) const override { return replaySource; }
};

class TestDialogDummy : public QObject
{
    Q_OBJECT

private:
    static QWidget *place(ReplaySurface &s, const QString &kind, const QPoint &pos)
    {
        replayDrag(&s, QStringLiteral("gui/") + kind, QByteArray(), pos);
        const QList<Component> placed = s.placedComponents();
        return placed.isEmpty() ? nullptr : placed.last().object;
    }

    // The line that every menu of the typed tree ends in.
    static QLineEdit *entryLine(QMenu *menu)
    {
        const QList<QAction *> items = menu->actions();
        auto *last = qobject_cast<QWidgetAction *>(items.isEmpty() ? nullptr : items.last());
        return last ? qobject_cast<QLineEdit *>(last->defaultWidget()) : nullptr;
    }

    static void drag(ReplaySurface &s, QWidget *source, const char *format, const QByteArray &data,
                     const QPoint &pos)
    {
        s.replaySource = source;
        replayDrag(&s, QLatin1String(format), data, pos);
        s.replaySource = nullptr;
    }

private slots:
    // Drops land on the grid square they fall in, whatever the grid size.
    void snapping()
    {
        const struct
        {
            int steps;
            bool snap;
            QPoint dropAt, expected;
        } cases[] = {
            {0, true, {13, 13}, {8, 8}},    {0, true, {16, 31}, {16, 24}},
            {-2, true, {13, 13}, {12, 12}}, {-1, true, {13, 17}, {12, 12}},
            {1, true, {13, 29}, {10, 20}},  {11, true, {59, 61}, {30, 60}},
            {0, false, {13, 17}, {13, 17}},
        };
        for (const auto &c : cases) {
            ReplaySurface s;
            for (int i = 0; i < c.steps; ++i)
                s.incGridSize();
            for (int i = 0; i > c.steps; --i)
                s.decGridSize();
            QCOMPARE(s.getGridSize(), 8 + 2 * c.steps);
            s.setSnapIn(c.snap);
            QCOMPARE(place(s, QStringLiteral("button"), c.dropAt)->pos(), c.expected);
        }
    }

    void moveKeepsPressOffset()
    {
        for (bool snap : {true, false}) {
            ReplaySurface s;
            QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
            QWidget *edit = place(s, QStringLiteral("edit"), QPoint(100, 100));
            s.setSnapIn(snap);
            drag(s, button, "gui.moved", "5 7", QPoint(53, 40));
            QCOMPARE(button->pos(), snap ? QPoint(48, 32) : QPoint(48, 33));
            QCOMPARE(button->size(), QSize(75, 23));
            QCOMPARE(s.selectedControl(), button);
            // Dropping a moved control adds nothing, and the others stay.
            QCOMPARE(s.placedComponents().size(), 2);
            QCOMPARE(edit->pos(), QPoint(96, 96));

            // A drag from outside the surface moves nothing.
            QWidget stranger;
            drag(s, &stranger, "gui.moved", "1 1", QPoint(200, 200));
            QCOMPARE(button->pos(), snap ? QPoint(48, 32) : QPoint(48, 33));
            QCOMPARE(s.placedComponents().size(), 2);
        }
    }

    // Only the top left handle resizes, snapped, down to 10 by 10; the other
    // three handles leave the control as it is.
    void resizeHandles()
    {
        const struct
        {
            const char *handle;
            QPoint to;
            QRect expected;
        } cases[] = {
            {"5", {33, 27}, {32, 24, 83, 39}},     {"5", {100, 50}, {96, 48, 19, 15}},
            {"5", {203, 205}, {200, 200, 10, 10}}, {"5", {40, 10}, {40, 40, 75, 23}},
            {"4", {8, 8}, {40, 40, 75, 23}},       {"6", {200, 200}, {40, 40, 75, 23}},
            {"7", {8, 200}, {40, 40, 75, 23}},
        };
        for (const auto &c : cases) {
            ReplaySurface s;
            QWidget *button = place(s, QStringLiteral("button"), QPoint(40, 40));
            QCOMPARE(button->geometry(), QRect(40, 40, 75, 23)); // right edge 114, bottom 62
            drag(s, button, "gui.resize", c.handle, c.to);
            QCOMPARE(button->geometry(), c.expected);
            QCOMPARE(s.placedComponents().size(), 1);
        }
    }

    void selection()
    {
        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
        QWidget *edit = place(s, QStringLiteral("edit"), QPoint(120, 16));
        // Presses on a list or rich edit land on its viewport.
        for (const char *kind : {"rich", "list", "checkList", "radioList"}) {
            auto *area = qobject_cast<QAbstractScrollArea *>(
                place(s, QLatin1String(kind), QPoint(24, 120)));
            QVERIFY2(area, kind);
            press(&s, QPoint(290, 240)); // the bare surface: nothing selected
            QVERIFY2(!s.selectedControl(), kind);
            press(area->viewport(), QPoint(5, 5), Qt::RightButton);
            QVERIFY2(s.selectedControl() == area, kind);
        }

        // The right button selects without starting a move; the selection
        // reported is the control dragged last, not the one pressed.
        drag(s, button, "gui.moved", "0 0", QPoint(16, 80));
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        press(edit, QPoint(3, 3), Qt::RightButton);
        QCOMPARE(s.selectedControl(), edit);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(0).value<QWidget *>(), button);
    }

    void sizeLabelAndClose()
    {
        ReplaySurface s;
        QLabel size;
        s.setWinSizeLabel(&size);
        s.resize(400, 300);
        s.show();
        QVERIFY(QTest::qWaitForWindowExposed(&s));
        QCOMPARE(size.text(), QStringLiteral("  400, 300"));
        // The surface lives as long as its builder tab.
        QVERIFY(!s.close());
        QVERIFY(s.isVisible());
    }

    void typedMenuTree()
    {
        ReplaySurface s;
        QMenu *root = s.menuBar()->actions().first()->menu();
        QLineEdit *rootEntry = entryLine(root);
        rootEntry->setText(QStringLiteral("File"));
        QTest::keyClick(rootEntry, Qt::Key_Return);
        QCOMPARE(rootEntry->text(), QString());
        const QList<QAction *> items = root->actions();
        QCOMPARE(items.size(), 2);
        QCOMPARE(entryLine(root), rootEntry); // the entry line stays last
        QMenu *file = items.first()->menu();
        QCOMPARE(file->title(), QStringLiteral("File"));

        // The submenu has an entry line of its own.
        QCOMPARE(file->actions().size(), 1);
        QLineEdit *entry = entryLine(file);
        entry->setText(QStringLiteral("Open"));
        QTest::keyClick(entry, Qt::Key_Return);
        QCOMPARE(file->actions().size(), 2);
        QCOMPARE(file->actions().first()->menu()->title(), QStringLiteral("Open"));
    }
};

TARNWICK_TEST(TestDialogDummy);
#include "tst_dialogdummy.moc"
