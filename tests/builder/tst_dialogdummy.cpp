// The design surface: drops from the toolbox, moves, the top left resize,
// snapping, selection through the event filter, and the typed menu tree.
#include "mdichild_dialog_dummy.h"

#include <QAbstractScrollArea>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWidgetAction>

// Drags are replayed with constructed events; there is no drag manager to
// tell their source, so the surface is told directly.
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
    static QMimeData *mime(const QString &format, const QByteArray &data = QByteArray())
    {
        auto *m = new QMimeData;
        m->setData(format, data);
        return m;
    }

    // Enter, move to pos and drop, as a real drag would deliver them.
    static bool drag(ReplaySurface &s, QWidget *source, const QString &format,
                     const QByteArray &data, const QPoint &pos, bool drop = true)
    {
        QScopedPointer<QMimeData> m(mime(format, data));
        s.replaySource = source;
        QDragEnterEvent enter(pos, Qt::CopyAction | Qt::MoveAction, m.data(),
                              Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&s, &enter);
        const bool accepted = enter.isAccepted();
        QDragMoveEvent move(pos, Qt::CopyAction | Qt::MoveAction, m.data(),
                            Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&s, &move);
        if (drop) {
            QDropEvent dropEvent(QPointF(pos), Qt::CopyAction | Qt::MoveAction, m.data(),
                                 Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&s, &dropEvent);
        }
        s.replaySource = nullptr;
        return accepted;
    }

    static QWidget *place(ReplaySurface &s, const QString &kind, const QPoint &pos)
    {
        drag(s, nullptr, QStringLiteral("gui/") + kind, QByteArray(), pos);
        return s.components.isEmpty() ? nullptr : s.components.last()->object;
    }

    static void press(QWidget *target, const QPoint &pos, Qt::MouseButton button)
    {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(pos), target->mapToGlobal(QPointF(pos)),
                          button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
    }

private slots:
    void startState()
    {
        ReplaySurface s;
        QCOMPARE(s.windowTitle(), QStringLiteral("Input Request"));
        QCOMPARE(s.minimumSize(), QSize(300, 250));
        QVERIFY(s.acceptDrops());
        QVERIFY(s.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(s.getGridSize(), 8);
        QVERIFY(s.showGrid);
        QVERIFY(s.snapIn);
        QVERIFY(s.acceptSelection);
        QVERIFY(!s.focusedObject);
        QVERIFY(!s.draggableObject);
        QVERIFY(s.components.isEmpty());
        QVERIFY(s.p1->isHidden());
        QVERIFY(s.p18->isHidden());
        QCOMPARE(s.p13->size(), QSize(150, 150));
    }

    void toolboxDrop_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QSize>("size");
        QTest::newRow("button") << "button" << "QPushButton" << QSize(75, 23);
        QTest::newRow("edit") << "edit" << "QLineEdit" << QSize(100, 20);
        QTest::newRow("pass") << "pass" << "QLineEdit" << QSize(100, 20);
        QTest::newRow("rich") << "rich" << "QTextEdit" << QSize(104, 84);
        QTest::newRow("text") << "text" << "QLabel" << QSize(56, 14);
        QTest::newRow("link") << "link" << "QLabel" << QSize(56, 14);
        QTest::newRow("combo") << "combo" << "QComboBox" << QSize(131, 24);
        QTest::newRow("list") << "list" << "QListWidget" << QSize(100, 80);
        QTest::newRow("checkList") << "checkList" << "QListWidget" << QSize(100, 80);
        QTest::newRow("check") << "check" << "QCheckBox" << QSize(88, 19);
        QTest::newRow("radioList") << "radioList" << "QListWidget" << QSize(100, 80);
        QTest::newRow("radio") << "radio" << "QRadioButton" << QSize(99, 19);
        QTest::newRow("icon") << "icon" << "QLabel" << QSize(150, 150);
        QTest::newRow("box") << "box" << "QGroupBox" << QSize(100, 80);
        QTest::newRow("tab") << "tab" << "QTabWidget" << QSize(150, 120);
        QTest::newRow("vscroll") << "vscroll" << "QScrollBar" << QSize(16, 160);
        QTest::newRow("hscroll") << "hscroll" << "QScrollBar" << QSize(160, 16);
    }

    void toolboxDrop()
    {
        QFETCH(QString, kind);
        QFETCH(QString, className);
        QFETCH(QSize, size);

        ReplaySurface s;
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        QVERIFY(drag(s, nullptr, QStringLiteral("gui/") + kind, QByteArray(), QPoint(13, 45)));

        QCOMPARE(s.components.size(), 1);
        Component *c = s.components.first();
        QCOMPARE(c->type, kind);
        QCOMPARE(QString::fromLatin1(c->object->metaObject()->className()), className);
        QCOMPARE(c->object->parentWidget(), &s);
        QCOMPARE(c->object->geometry(), QRect(QPoint(8, 40), size));
        QVERIFY(!c->object->isHidden());
        QCOMPARE(s.focusedObject, c->object);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(0).value<QWidget *>(), c->object);
        QCOMPARE(spy.first().at(1).toString(), kind);

        if (kind == QLatin1String("pass"))
            QCOMPARE(qobject_cast<QLineEdit *>(c->object)->echoMode(), QLineEdit::Password);
        if (kind == QLatin1String("edit"))
            QCOMPARE(qobject_cast<QLineEdit *>(c->object)->echoMode(), QLineEdit::Normal);
        if (kind == QLatin1String("vscroll"))
            QCOMPARE(qobject_cast<QScrollBar *>(c->object)->orientation(), Qt::Vertical);
        if (kind == QLatin1String("hscroll"))
            QCOMPARE(qobject_cast<QScrollBar *>(c->object)->orientation(), Qt::Horizontal);

        // The prototype stays under the new control until the next drag enters.
        QCOMPARE(s.draggableObject->isHidden(), false);
        QWidget *prototype = s.draggableObject;
        QScopedPointer<QMimeData> none(new QMimeData);
        QDragEnterEvent refused(QPoint(1, 1), Qt::CopyAction, none.data(), Qt::LeftButton,
                                Qt::NoModifier);
        QCoreApplication::sendEvent(&s, &refused);
        QVERIFY(prototype->isHidden());
        QVERIFY(!s.draggableObject);
    }

    void tabPageRefused()
    {
        ReplaySurface s;
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        QVERIFY(!drag(s, nullptr, QStringLiteral("gui/tabPage"), QByteArray(), QPoint(40, 40)));
        QVERIFY(s.components.isEmpty());
        QVERIFY(!s.draggableObject);
        QCOMPARE(spy.count(), 0);
    }

    void snapping_data()
    {
        QTest::addColumn<int>("steps");
        QTest::addColumn<bool>("snap");
        QTest::addColumn<QPoint>("dropAt");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("grid 8") << 0 << true << QPoint(13, 13) << QPoint(8, 8);
        QTest::newRow("grid 8 exact") << 0 << true << QPoint(16, 31) << QPoint(16, 24);
        QTest::newRow("grid 4") << -2 << true << QPoint(13, 13) << QPoint(12, 12);
        QTest::newRow("grid 6") << -1 << true << QPoint(13, 17) << QPoint(12, 12);
        QTest::newRow("grid 10") << 1 << true << QPoint(13, 29) << QPoint(10, 20);
        QTest::newRow("grid 30") << 11 << true << QPoint(59, 61) << QPoint(30, 60);
        QTest::newRow("snap off") << 0 << false << QPoint(13, 17) << QPoint(13, 17);
    }

    void snapping()
    {
        QFETCH(int, steps);
        QFETCH(bool, snap);
        QFETCH(QPoint, dropAt);
        QFETCH(QPoint, expected);

        ReplaySurface s;
        for (int i = 0; i < steps; ++i)
            s.incGridSize();
        for (int i = 0; i > steps; --i)
            s.decGridSize();
        QCOMPARE(s.getGridSize(), 8 + 2 * steps);
        s.setSnapIn(snap);
        QWidget *w = place(s, QStringLiteral("button"), dropAt);
        QVERIFY(w);
        QCOMPARE(w->pos(), expected);
    }

    void moveWithPressOffset_data()
    {
        QTest::addColumn<bool>("snap");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("snapped") << true << QPoint(48, 32);
        QTest::newRow("free") << false << QPoint(48, 33);
    }

    void moveWithPressOffset()
    {
        QFETCH(bool, snap);
        QFETCH(QPoint, expected);

        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
        QWidget *edit = place(s, QStringLiteral("edit"), QPoint(100, 100));
        QCOMPARE(s.focusedObject, edit);
        s.setSnapIn(snap);

        drag(s, button, QStringLiteral("gui.moved"),
             QString::asprintf("%d %d", 5, 7).toLatin1(), QPoint(53, 40));
        QCOMPARE(button->pos(), expected);
        QCOMPARE(button->size(), QSize(75, 23));
        QCOMPARE(s.focusedObject, button);
        QCOMPARE(s.draggableObject, button);
        // Dropping a moved control adds nothing.
        QCOMPARE(s.components.size(), 2);
        QCOMPARE(edit->pos(), QPoint(96, 96));
    }

    void unknownSourceIgnored()
    {
        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
        QWidget stranger;
        drag(s, &stranger, QStringLiteral("gui.moved"), "1 1", QPoint(80, 80));
        QCOMPARE(button->pos(), QPoint(16, 16));
        QCOMPARE(s.components.size(), 1);
    }

    void resizeTopLeft_data()
    {
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected");
        // The button stands at 40, 40 with 75 by 23: right edge 114, bottom 62.
        QTest::newRow("grow") << QPoint(33, 27) << QRect(32, 24, 83, 39);
        QTest::newRow("shrink") << QPoint(100, 50) << QRect(96, 48, 19, 15);
        QTest::newRow("past the corner") << QPoint(203, 205) << QRect(200, 200, 10, 10);
        QTest::newRow("same left") << QPoint(40, 10) << QRect(40, 40, 75, 23);
    }

    void resizeTopLeft()
    {
        QFETCH(QPoint, to);
        QFETCH(QRect, expected);

        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(40, 40));
        QCOMPARE(button->geometry(), QRect(40, 40, 75, 23));
        drag(s, button, QStringLiteral("gui.resize"), "5", to);
        QCOMPARE(button->geometry(), expected);
        QCOMPARE(s.components.size(), 1);
    }

    void otherHandlesKeepSize_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::newRow("top right") << QByteArray("4");
        QTest::newRow("bottom right") << QByteArray("6");
        QTest::newRow("bottom left") << QByteArray("7");
    }

    void otherHandlesKeepSize()
    {
        QFETCH(QByteArray, code);
        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(40, 40));
        drag(s, button, QStringLiteral("gui.resize"), code, QPoint(200, 200));
        QCOMPARE(button->geometry(), QRect(40, 40, 75, 23));
        drag(s, button, QStringLiteral("gui.resize"), code, QPoint(8, 8));
        QCOMPARE(button->geometry(), QRect(40, 40, 75, 23));
    }

    void pressSelectsControl()
    {
        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
        QWidget *edit = place(s, QStringLiteral("edit"), QPoint(120, 16));
        // Move the button so that it is the control dragged last.
        drag(s, button, QStringLiteral("gui.moved"), "0 0", QPoint(16, 80));
        QCOMPARE(s.draggableObject, button);

        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        // The right button selects without starting a move.
        press(edit, QPoint(3, 3), Qt::RightButton);
        QCOMPARE(s.focusedObject, edit);
        // The selection reported is the control dragged last, not the one pressed.
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(0).value<QWidget *>(), button);
        QCOMPARE(spy.first().at(1).toString(), QStringLiteral("button"));
    }

    void pressRightAfterDropReportsNothing()
    {
        ReplaySurface s;
        QWidget *button = place(s, QStringLiteral("button"), QPoint(16, 16));
        s.focusedObject = nullptr;
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        press(button, QPoint(3, 3), Qt::RightButton);
        QCOMPARE(s.focusedObject, button);
        QCOMPARE(spy.count(), 0);
    }

    void viewportPressSelectsControl_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("rich") << "rich";
        QTest::newRow("list") << "list";
        QTest::newRow("checkList") << "checkList";
        QTest::newRow("radioList") << "radioList";
    }

    void viewportPressSelectsControl()
    {
        QFETCH(QString, kind);
        ReplaySurface s;
        QWidget *control = place(s, kind, QPoint(24, 24));
        place(s, QStringLiteral("button"), QPoint(200, 200));
        auto *area = qobject_cast<QAbstractScrollArea *>(control);
        QVERIFY(area);
        press(area->viewport(), QPoint(5, 5), Qt::RightButton);
        QCOMPARE(s.focusedObject, control);
    }

    void bareSurfacePressSelectsWindow()
    {
        ReplaySurface s;
        place(s, QStringLiteral("button"), QPoint(16, 16));
        QVERIFY(s.focusedObject);
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        press(&s, QPoint(250, 200), Qt::LeftButton);
        QVERIFY(!s.focusedObject);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(0).value<QWidget *>(), &s);
        QCOMPARE(spy.first().at(1).toString(), QStringLiteral("window"));
    }

    void selectionOffReachesControl()
    {
        ReplaySurface s;
        auto *button = qobject_cast<QPushButton *>(place(s, QStringLiteral("button"), QPoint(16, 16)));
        QVERIFY(button);
        QSignalSpy spy(&s, &MdiChildDialogDummy::newSelection);
        s.objSelect(false);
        QVERIFY(!s.acceptSelection);
        QVERIFY(!s.focusedObject);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(1).toString(), QStringLiteral("window"));

        press(button, QPoint(5, 5), Qt::LeftButton);
        QVERIFY(button->isDown());
        QVERIFY(!s.focusedObject);

        // A drop with selection off places without selecting.
        QWidget *edit = place(s, QStringLiteral("edit"), QPoint(100, 100));
        QVERIFY(edit);
        QVERIFY(!s.focusedObject);

        s.objSelect(true);
        QCOMPARE(spy.count(), 2);
    }

    void gridSteps()
    {
        ReplaySurface s;
        s.incGridSize();
        QCOMPARE(s.getGridSize(), 10);
        s.decGridSize();
        s.decGridSize();
        QCOMPARE(s.getGridSize(), 6);
        s.setGridVisible(false);
        QVERIFY(!s.showGrid);
    }

    void statusLabels()
    {
        ReplaySurface s;
        QLabel pos, size;
        s.setCurPosLabel(&pos);
        s.setWinSizeLabel(&size);
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 40), s.mapToGlobal(QPointF(30, 40)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&s, &move);
        QCOMPARE(pos.text(), QStringLiteral("  30, 40"));

        s.resize(400, 300);
        s.show();
        QVERIFY(QTest::qWaitForWindowExposed(&s));
        QCOMPARE(size.text(), QStringLiteral("  400, 300"));

        // Far from any handle nothing else happens.
        place(s, QStringLiteral("button"), QPoint(40, 40));
        QMouseEvent away(QEvent::MouseMove, QPointF(300, 250), s.mapToGlobal(QPointF(300, 250)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&s, &away);
        QCOMPARE(pos.text(), QStringLiteral("  300, 250"));
        QCOMPARE(s.cursor().shape(), Qt::ArrowCursor);
    }

    void closeIsRefused()
    {
        ReplaySurface s;
        s.show();
        QVERIFY(!s.close());
        QVERIFY(s.isVisible());
    }

    void typedMenuTree()
    {
        ReplaySurface s;
        Mnu *root = s.menu;
        QCOMPARE(root->parentBar, s.menubar);
        QCOMPARE(root->menuEntry->title(), QStringLiteral("Add Menu"));
        QCOMPARE(s.menubar->actions().size(), 1);
        QCOMPARE(root->menuEntry->actions(), QList<QAction *>{root->dummyAction});
        QCOMPARE(root->dummyAction->defaultWidget(), root->textEntry);

        root->textEntry->setText(QStringLiteral("File"));
        QTest::keyClick(root->textEntry, Qt::Key_Return);
        QCOMPARE(root->textEntry->text(), QString());
        const QList<QAction *> items = root->menuEntry->actions();
        QCOMPARE(items.size(), 2);
        QCOMPARE(items.last(), root->dummyAction);
        QMenu *file = items.first()->menu();
        QVERIFY(file);
        QCOMPARE(file->title(), QStringLiteral("File"));

        // The submenu has an entry line of its own.
        QCOMPARE(file->actions().size(), 1);
        auto *entryAction = qobject_cast<QWidgetAction *>(file->actions().first());
        QVERIFY(entryAction);
        auto *entry = qobject_cast<QLineEdit *>(entryAction->defaultWidget());
        QVERIFY(entry);
        Mnu *child = nullptr;
        for (Mnu *m : s.findChildren<Mnu *>())
            if (m->menuEntry == file)
                child = m;
        QVERIFY(child);
        QVERIFY(!child->parentBar);

        entry->setText(QStringLiteral("Open"));
        QTest::keyClick(entry, Qt::Key_Return);
        QCOMPARE(file->actions().size(), 2);
        QCOMPARE(file->actions().first()->menu()->title(), QStringLiteral("Open"));
    }
};

QTEST_MAIN(TestDialogDummy)
#include "tst_dialogdummy.moc"
