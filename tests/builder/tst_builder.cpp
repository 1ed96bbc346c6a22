// The builder window: toolbar, toolbox, property box, status bar, the grid
// size limits and the live text property.
#include "mdichild_dialog.h"
#include "mdichild_dialog_dummy.h"

#include <QAction>
#include <QDockWidget>
#include <QDropEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>

class TestBuilder : public QObject
{
    Q_OBJECT

private:
    static QWidget *drop(MdiChildBuilder &b, const QString &kind, const QPoint &pos)
    {
        MdiChildDialogDummy *s = b.dummyWindow;
        QMimeData m;
        m.setData(QStringLiteral("gui/") + kind, QByteArray());
        QDragEnterEvent enter(pos, Qt::CopyAction, &m, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(s, &enter);
        QDragMoveEvent move(pos, Qt::CopyAction, &m, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(s, &move);
        QDropEvent dropEvent(QPointF(pos), Qt::CopyAction, &m, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(s, &dropEvent);
        return s->components.isEmpty() ? nullptr : s->components.last()->object;
    }

    static QAction *action(MdiChildBuilder &b, const QString &text)
    {
        auto *bar = b.findChild<QToolBar *>();
        for (QAction *a : bar->actions())
            if (a->text() == text)
                return a;
        return nullptr;
    }

private slots:
    void frame()
    {
        MdiChildBuilder b;
        QVERIFY(!b.parent());
        QCOMPARE(b.centralWidget(), b.dummyWindowContainer);
        QCOMPARE(b.dummyWindowContainer->background().color(), QColor(140, 181, 255, 255));
        QCOMPARE(b.dummyWindowContainer->viewMode(), QMdiArea::SubWindowView);
        QCOMPARE(b.dummyWindowContainer->subWindowList().size(), 1);
        QCOMPARE(b.dummyWindowContainer->subWindowList().first()->widget(),
                 static_cast<QWidget *>(b.dummyWindow));
        QCOMPARE(b.label->text(), QStringLiteral("Object: Dialog Object"));
        QCOMPARE(b.textValue->text(), QStringLiteral("Input Request"));
        QCOMPARE(b.activeObj, static_cast<QWidget *>(b.dummyWindow));
        QCOMPARE(b.activeObjType, QStringLiteral("window"));
    }

    void toolbar_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shortcut");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<bool>("checkable");
        QTest::newRow("align") << 0 << "Align To Grid" << "Ctrl+L"
                               << "Toggle to turn on or off auto-align." << true;
        QTest::newRow("grid") << 1 << "Show Grid" << "Ctrl+G"
                              << "Toggle to show or hide the snap-in grid." << true;
        QTest::newRow("plus") << 2 << "Increase Grid Size" << "Ctrl+="
                              << "Increase the grid size." << false;
        QTest::newRow("minus") << 3 << "Decrease Grid Size" << "Ctrl+-"
                               << "Decrease the grid size." << false;
        QTest::newRow("select") << 4 << "Object Selection" << ""
                                << "Disable object selection." << true;
        QTest::newRow("generate") << 5 << "Generate Code" << "F5"
                                  << "Generate mSL code for this dialog." << false;
    }

    void toolbar()
    {
        QFETCH(int, index);
        QFETCH(QString, text);
        QFETCH(QString, shortcut);
        QFETCH(QString, tip);
        QFETCH(bool, checkable);

        MdiChildBuilder b;
        auto *bar = b.findChild<QToolBar *>();
        QVERIFY(bar);
        QCOMPARE(bar->windowTitle(), QStringLiteral("Object Toolbar"));
        QCOMPARE(bar->iconSize(), QSize(16, 16));
        QCOMPARE(bar->actions().size(), 6);
        QAction *a = bar->actions().at(index);
        QCOMPARE(a->text(), text);
        QCOMPARE(a->shortcut(), QKeySequence(shortcut));
        QCOMPARE(a->statusTip(), tip);
        QCOMPARE(a->isCheckable(), checkable);
        QCOMPARE(a->isChecked(), checkable);
        QVERIFY(!a->isSeparator());
    }

    void toolbox()
    {
        static const char *const formats[] = {
            "gui/button", "gui/edit", "gui/pass", "gui/rich", "gui/text", "gui/link",
            "gui/combo", "gui/list", "gui/checkList", "gui/check", "gui/radioList",
            "gui/radio", "gui/icon", "gui/box", "gui/tab", "gui/tabPage",
            "gui/vscroll", "gui/hscroll",
        };
        static const char *const tips[] = {
            "Button", "Edit Box", "Password Edit Box", "Rich Edit Box", "Label",
            "Hyperlink Label", "Combo Box", "List Box", "Check List Box", "Check Box",
            "Radio List Box", "Radio Button", "Image Icon", "Group Box", "Tab Control",
            "Tab Page", "Vertical Scroll Bar", "Horizontal Scroll Bar",
        };
        MdiChildBuilder b;
        QDockWidget *dock = b.toolBoxContainer;
        QCOMPARE(dock->windowTitle(), QStringLiteral("  ToolBox"));
        QCOMPARE(dock->maximumHeight(), 280);
        QCOMPARE(dock->features(), QDockWidget::DockWidgetMovable);
        QCOMPARE(b.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
        auto *grid = qobject_cast<QGridLayout *>(dock->widget()->layout());
        QVERIFY(grid);
        QCOMPARE(grid->spacing(), 0);
        QCOMPARE(grid->count(), 18);
        for (int i = 0; i < 18; ++i) {
            auto *button = qobject_cast<TQPushButton *>(
                grid->itemAtPosition(i / 2, i % 2)->widget());
            QVERIFY(button);
            QCOMPARE(button->type, QLatin1String(formats[i]));
            QCOMPARE(button->toolTip(), QLatin1String(tips[i]));
            QVERIFY(button->isFlat());
            QCOMPARE(button->cursor().shape(), Qt::OpenHandCursor);
        }
    }

    void toolboxButtonRightPressDoesNothing()
    {
        TQPushButton button(QStringLiteral("gui/edit"), QStringLiteral("E"));
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, 3), QPointF(3, 3),
                          Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &press);
        QVERIFY(!button.isDown());
        QCOMPARE(button.text(), QStringLiteral("E"));
    }

    void propertyBox()
    {
        MdiChildBuilder b;
        QCOMPARE(b.propBoxContainer->windowTitle(), QStringLiteral("Properties"));
        QCOMPARE(b.dockWidgetArea(b.propBoxContainer), Qt::RightDockWidgetArea);
        QCOMPARE(b.table->rowCount(), 20);
        QCOMPARE(b.table->columnCount(), 2);
        QVERIFY(b.table->verticalHeader()->isHidden());
        QCOMPARE(b.table->verticalHeader()->defaultSectionSize(), 15);
        QCOMPARE(b.table->horizontalHeaderItem(0)->text(), QStringLiteral("Property"));
        QCOMPARE(b.table->horizontalHeaderItem(1)->text(), QStringLiteral("Value"));
        auto *name = qobject_cast<QLabel *>(b.table->cellWidget(0, 0));
        QVERIFY(name);
        QCOMPARE(name->text(), QStringLiteral("Text"));
        QCOMPARE(b.table->cellWidget(0, 1), static_cast<QWidget *>(b.textValue));
        for (int row = 1; row < 20; ++row)
            QVERIFY(!b.table->cellWidget(row, 1));
    }

    void statusBar()
    {
        MdiChildBuilder b;
        QCOMPARE(b.mosPos->text(), QStringLiteral("  0, 0"));
        QCOMPARE(b.dummyWindow->curPos, b.mosPos);
        QVERIFY(b.dummyWindow->winSize);
        QVERIFY(b.dummyWindow->winSize != b.mosPos);
        QCOMPARE(b.dummyWindow->winSize->text(), QStringLiteral("  0, 0"));

        QMouseEvent move(QEvent::MouseMove, QPointF(17, 23), QPointF(17, 23), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(b.dummyWindow, &move);
        QCOMPARE(b.mosPos->text(), QStringLiteral("  17, 23"));
    }

    void selection_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("live");
        QTest::newRow("button") << "button" << "Object: Button Object" << true;
        QTest::newRow("edit") << "edit" << "Object: Edit Object" << true;
        QTest::newRow("combo keeps the window") << "combo" << "Object: Dialog Object" << false;
        QTest::newRow("check keeps the window") << "check" << "Object: Dialog Object" << false;
    }

    void selection()
    {
        QFETCH(QString, kind);
        QFETCH(QString, label);
        QFETCH(bool, live);

        MdiChildBuilder b;
        QWidget *control = drop(b, kind, QPoint(40, 40));
        QVERIFY(control);
        QCOMPARE(b.activeObj, control);
        QCOMPARE(b.activeObjType, kind);
        QCOMPARE(b.label->text(), label);

        QTest::keyClicks(b.textValue, QStringLiteral("Ok"));
        if (live) {
            QCOMPARE(b.textValue->text(), QStringLiteral("Ok"));
            const QString shown = kind == QLatin1String("edit")
                ? qobject_cast<QLineEdit *>(control)->text()
                : qobject_cast<QAbstractButton *>(control)->text();
            QCOMPARE(shown, QStringLiteral("Ok"));
            QCOMPARE(b.dummyWindow->windowTitle(), QStringLiteral("Input Request"));
        } else {
            // The box still shows the surface, but typing reaches nobody.
            QCOMPARE(b.textValue->text(), QStringLiteral("Input RequestOk"));
            QCOMPARE(b.dummyWindow->windowTitle(), QStringLiteral("Input Request"));
        }
    }

    void comboAfterButtonKeepsButtonBox()
    {
        MdiChildBuilder b;
        auto *button = qobject_cast<QPushButton *>(drop(b, QStringLiteral("button"), QPoint(16, 16)));
        QTest::keyClicks(b.textValue, QStringLiteral("Go"));
        QCOMPARE(button->text(), QStringLiteral("Go"));

        drop(b, QStringLiteral("combo"), QPoint(100, 100));
        QCOMPARE(b.label->text(), QStringLiteral("Object: Button Object"));
        QCOMPARE(b.textValue->text(), QStringLiteral("Go"));
        QTest::keyClicks(b.textValue, QStringLiteral("!"));
        QCOMPARE(button->text(), QStringLiteral("Go"));
    }

    void windowSelectionRenamesSurface()
    {
        MdiChildBuilder b;
        drop(b, QStringLiteral("edit"), QPoint(16, 16));
        QCOMPARE(b.label->text(), QStringLiteral("Object: Edit Object"));

        // A press on the bare surface selects the window again.
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(250, 200), QPointF(250, 200),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(b.dummyWindow, &press);
        QCOMPARE(b.label->text(), QStringLiteral("Object: Dialog Object"));
        QCOMPARE(b.textValue->text(), QStringLiteral("Input Request"));

        b.textValue->selectAll();
        QTest::keyClicks(b.textValue, QStringLiteral("Login"));
        QCOMPARE(b.dummyWindow->windowTitle(), QStringLiteral("Login"));
        QTest::keyClick(b.textValue, Qt::Key_Backspace);
        QCOMPARE(b.dummyWindow->windowTitle(), QStringLiteral("Logi"));
    }

    void gridLimits()
    {
        MdiChildBuilder b;
        QVERIFY(b.gridP->isEnabled());
        QVERIFY(b.gridM->isEnabled());

        for (int i = 0; i < 10; ++i)
            b.gridP->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 28);
        QVERIFY(b.gridP->isEnabled());
        b.gridP->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 30);
        QVERIFY(!b.gridP->isEnabled());
        QVERIFY(b.gridM->isEnabled());
        b.gridP->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 30);

        b.gridM->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 28);
        QVERIFY(b.gridP->isEnabled());

        for (int i = 0; i < 11; ++i)
            b.gridM->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 6);
        QVERIFY(b.gridM->isEnabled());
        b.gridM->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 4);
        QVERIFY(!b.gridM->isEnabled());
        QVERIFY(b.gridP->isEnabled());
        b.gridM->trigger();
        QCOMPARE(b.dummyWindow->getGridSize(), 4);
    }

    void showGridOverridesLimits()
    {
        MdiChildBuilder b;
        QAction *grid = action(b, QStringLiteral("Show Grid"));
        QVERIFY(grid);
        for (int i = 0; i < 2; ++i)
            b.gridM->trigger();
        QVERIFY(!b.gridM->isEnabled());

        grid->trigger();
        QVERIFY(!grid->isChecked());
        QVERIFY(!b.dummyWindow->showGrid);
        QVERIFY(!b.gridP->isEnabled());
        QVERIFY(!b.gridM->isEnabled());

        grid->trigger();
        QVERIFY(b.dummyWindow->showGrid);
        QVERIFY(b.gridP->isEnabled());
        // Turning the grid on enables both, even at the lower limit.
        QVERIFY(b.gridM->isEnabled());
        QCOMPARE(b.dummyWindow->getGridSize(), 4);
    }

    void alignAndSelectionActions()
    {
        MdiChildBuilder b;
        QAction *align = action(b, QStringLiteral("Align To Grid"));
        align->trigger();
        QVERIFY(!b.dummyWindow->snapIn);
        align->trigger();
        QVERIFY(b.dummyWindow->snapIn);

        auto *button = qobject_cast<QPushButton *>(drop(b, QStringLiteral("button"), QPoint(16, 16)));
        QCOMPARE(b.label->text(), QStringLiteral("Object: Button Object"));
        b.objSlct->trigger();
        QVERIFY(!b.objSlct->isChecked());
        QVERIFY(!b.dummyWindow->acceptSelection);
        QVERIFY(!b.dummyWindow->focusedObject);
        QCOMPARE(b.label->text(), QStringLiteral("Object: Dialog Object"));

        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &press);
        QVERIFY(button->isDown());
        QVERIFY(!b.dummyWindow->focusedObject);
    }

    void debugLines()
    {
        MdiChildBuilder b;
        const QString before = b.dummyWindow->windowTitle();
        QTest::ignoreMessage(QtDebugMsg, "Code Generation goes here...\n");
        action(b, QStringLiteral("Generate Code"))->trigger();
        QCOMPARE(b.dummyWindow->windowTitle(), before);
        QCOMPARE(b.dummyWindow->components.size(), 0);

        QTest::ignoreMessage(QtDebugMsg, "@@@@@@@@@@@@@@@@@\n");
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b, &press);
        QCOMPARE(b.activeObjType, QStringLiteral("window"));
    }
};

QTEST_MAIN(TestBuilder)
#include "tst_builder.moc"
