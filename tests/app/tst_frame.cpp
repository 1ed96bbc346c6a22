// The frame of the main window: its menus and toolbar, the settings that
// last from one run to the next, and the two ways out.

#include "mainwindow.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"
#include "shelltestsupport.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

class MainWindowTestAccess
{
public:
    explicit MainWindowTestAccess(MainWindow *w) : w(w) {}
    MainWindow *w;

    void openFile(const QString &path) { w->openFile(QFileInfo(path), false); }
    QVector<MdiChildEditor *> editors() const { return w->edtWindows; }
    QDockWidget *reportDock() const { return w->reportContainer; }
    QDockWidget *syncDock() const { return w->fileSyncing; }
    QTreeWidget *syncTree() const { return w->syncFiles; }
    QAction *wordWrap() const { return w->wordWrap; }
    QAction *messageBarMenu() const { return w->messageBarMenu; }
    QAction *onTop() const { return w->onTop; }
    QAction *syncBarMenu() const { return w->syncBarMenu; }
    QTabWidget *tabs() const { return w->mdiContainer; }
    QVector<QString> ddeServers() const { return w->ddeServers; }
    QHash<QString, QVector<QFileInfo>> &files() { return w->files; }
    void saveSettings() { w->saveSettings(); }
    void showSyncBar(bool show) { w->showSyncBar(show); }
    void openFromDDE() { w->openFromDDE(QModelIndex()); }
    void resizeBar() { w->resizeBar(); }
};

class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void menuEntries_data();
    void menuEntries();
    void menuOrderAndSeparators();
    void toolBar();
    void objectNames();
    void noMenuShowsSyncDock();
    void firstRunDefaults();
    void settingsWrittenOnCloseAndReadOnNextStart();
    void syncDockHiddenAtEveryStart();
    void wordWrapReachesOpenDocuments();
    void closeAsksAndCancelKeepsRunning();
    void exitAsksNothing();
    void onTopFlag();
    void resizeBarWidensDock();
    void raisedLimitKeepsDockShort();
    void ddeServersSkipEmptyNames();
    void openFromDdeTree();

private:
    QAction *findAction(MainWindow &w, const QString &menu, const QString &text);
    QString settingsFile(const QString &application) const;
    QTemporaryDir settingsDir;
    QTemporaryDir dir;
};

void TestFrame::initTestCase()
{
    QVERIFY(settingsDir.isValid());
    QVERIFY(dir.isValid());
    redirectSettings(settingsDir.path());
}

void TestFrame::init()
{
    // Every test starts as a first run.
    QDir(settingsDir.path()).removeRecursively();
    QDir().mkpath(settingsDir.path());
}

QString TestFrame::settingsFile(const QString &application) const
{
    return settingsDir.filePath(QStringLiteral("Tarnwick/") + application + QStringLiteral(".ini"));
}

QAction *TestFrame::findAction(MainWindow &w, const QString &menu, const QString &text)
{
    for (QAction *top : w.menuBar()->actions()) {
        if (top->text() != menu || !top->menu())
            continue;
        for (QAction *entry : top->menu()->actions())
            if (entry->text() == text)
                return entry;
    }
    return nullptr;
}

void TestFrame::menuEntries_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<bool>("hasIcon");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("checkable");

    QTest::newRow("new") << "&File" << "&New" << "Ctrl+N" << false << true << false;
    QTest::newRow("open") << "&File" << "&Open..." << "Ctrl+O" << false << true << false;
    QTest::newRow("open ro") << "&File" << "Open As &Read-Only" << "Ctrl+Alt+O" << false << true
                             << false;
    QTest::newRow("save all") << "&File" << "Save A&ll" << "Ctrl+Shift+S" << true << true << false;
    QTest::newRow("close") << "&File" << "&Close" << "Ctrl+W" << false << true << false;
    QTest::newRow("close all") << "&File" << "Clos&e All" << "Ctrl+Shift+W" << false << true
                               << false;
    QTest::newRow("close all but") << "&File" << "Close &All But Active" << "Ctrl+Alt+Shift+W"
                                   << false << true << false;
    QTest::newRow("exit") << "&File" << "E&xit" << "Ctrl+Q" << true << true << false;
    QTest::newRow("undo") << "&Edit" << "&Undo" << "Ctrl+Z" << true << false << false;
    QTest::newRow("redo") << "&Edit" << "&Redo" << "Ctrl+Y" << true << false << false;
    QTest::newRow("cut") << "&Edit" << "Cu&t" << "Ctrl+X" << true << false << false;
    QTest::newRow("copy") << "&Edit" << "&Copy" << "Ctrl+C" << true << false << false;
    QTest::newRow("paste") << "&Edit" << "&Paste" << "Ctrl+V" << true << false << false;
    QTest::newRow("delete") << "&Edit" << "&Delete" << "Del" << true << false << false;
    QTest::newRow("select all") << "&Edit" << "Select &All" << "Ctrl+A" << false << false << false;
    QTest::newRow("find") << "&Edit" << "Find/Replace" << "" << false << false << false;
    QTest::newRow("on top") << "&View" << "Always on Top" << "" << false << true << true;
    QTest::newRow("word wrap") << "&View" << "Word wrap" << "" << false << true << true;
    QTest::newRow("debug window") << "&Window" << "Debug Window" << "" << false << true << true;
    QTest::newRow("about") << "&Help" << "&About" << "" << true << true << false;
}

void TestFrame::menuEntries()
{
    QFETCH(QString, menu);
    QFETCH(QString, text);
    QFETCH(QString, shortcut);
    QFETCH(bool, hasIcon);
    QFETCH(bool, enabled);
    QFETCH(bool, checkable);

    MainWindow w;
    QAction *action = findAction(w, menu, text);
    QVERIFY(action);
    QCOMPARE(action->shortcut(), QKeySequence(shortcut));
    QCOMPARE(!action->icon().isNull(), hasIcon);
    if (hasIcon)
        QVERIFY(!action->icon().pixmap(16, 16).isNull());
    QCOMPARE(action->isEnabled(), enabled);
    QCOMPARE(action->isCheckable(), checkable);
}

void TestFrame::menuOrderAndSeparators()
{
    MainWindow w;
    QStringList tops;
    for (QAction *top : w.menuBar()->actions())
        tops << top->text();
    QCOMPARE(tops, (QStringList{"&File", "&Edit", "&View", "&Window", "&Help"}));

    QStringList file;
    for (QAction *entry : w.menuBar()->actions().first()->menu()->actions())
        file << (entry->isSeparator() ? QStringLiteral("---") : entry->text());
    QCOMPARE(file, (QStringList{"&New", "&Open...", "Open As &Read-Only", "---", "Save A&ll", "---",
                                "&Close", "Clos&e All", "Close &All But Active", "---", "E&xit"}));
}

void TestFrame::toolBar()
{
    MainWindow w;
    QToolBar *bar = w.findChild<QToolBar *>(QStringLiteral("mainToolbar"));
    QVERIFY(bar);
    QCOMPARE(bar->windowTitle(), QStringLiteral("Main Menubar"));
    QCOMPARE(bar->iconSize(), QSize(16, 16));
    QStringList texts;
    for (QAction *action : bar->actions()) {
        texts << action->text();
        QVERIFY(!action->icon().pixmap(16, 16).isNull());
    }
    QCOMPARE(texts, (QStringList{"New", "Open", "Save All", "Close"}));
}

void TestFrame::objectNames()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(a.reportDock()->objectName(), QStringLiteral("msgArea"));
    QCOMPARE(a.syncDock()->objectName(), QStringLiteral("mIRCSync"));
    QCOMPARE(a.syncDock()->windowTitle(), QStringLiteral("mIRC Sync"));
    QCOMPARE(w.dockWidgetArea(a.syncDock()), Qt::LeftDockWidgetArea);
    QVERIFY(a.syncTree()->isHeaderHidden());
    QCOMPARE(a.syncTree()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
}

void TestFrame::noMenuShowsSyncDock()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(a.syncBarMenu(), nullptr);
    QVERIFY(!a.syncDock()->toggleViewAction()->associatedObjects().contains(w.menuBar()));
    for (QAction *top : w.menuBar()->actions())
        for (QAction *entry : top->menu()->actions())
            QVERIFY(!entry->text().contains(QStringLiteral("Sync")));
    // The slot itself still works, though nothing calls it.
    a.showSyncBar(true);
    QVERIFY(!a.syncDock()->isHidden());
}

void TestFrame::firstRunDefaults()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QVERIFY(a.messageBarMenu()->isChecked());
    QVERIFY(!a.reportDock()->isHidden());
    QVERIFY(!a.wordWrap()->isChecked());
    QVERIFY(a.syncDock()->isHidden());
    QVERIFY(!a.onTop()->isChecked());
    // Nothing is written just by starting.
    QVERIFY(!QFile::exists(settingsFile(QStringLiteral("settings"))));
}

void TestFrame::settingsWrittenOnCloseAndReadOnNextStart()
{
    {
        MainWindow w;
        MainWindowTestAccess a(&w);
        w.show();
        a.messageBarMenu()->setChecked(false);
        QVERIFY(a.reportDock()->isHidden());
        a.wordWrap()->setChecked(true);
        QVERIFY(w.close());
    }
    QVERIFY(QFile::exists(settingsFile(QStringLiteral("settings"))));
    QVERIFY(QFile::exists(settingsFile(QStringLiteral("general"))));
    {
        QSettings s2 = openSettings(QStringLiteral("settings"));
        QCOMPARE(s2.value(QStringLiteral("msgBar")).toBool(), false);
        QCOMPARE(s2.value(QStringLiteral("wordWrap")).toBool(), true);
        QVERIFY(s2.contains(QStringLiteral("syncBar")));
        QCOMPARE(s2.value(QStringLiteral("syncBar")).toBool(), false);
        QSettings s = openSettings(QStringLiteral("general"));
        QVERIFY(!s.value(QStringLiteral("initGeo")).toByteArray().isEmpty());
        QVERIFY(!s.value(QStringLiteral("initState")).toByteArray().isEmpty());
    }

    MainWindow next;
    MainWindowTestAccess b(&next);
    QVERIFY(!b.messageBarMenu()->isChecked());
    QVERIFY(b.reportDock()->isHidden());
    QVERIFY(b.wordWrap()->isChecked());
    // A document opened now takes the wrap from the action.
    QFile f(dir.filePath(QStringLiteral("wrap.mrc")));
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    b.openFile(f.fileName());
    QCOMPARE(b.editors().first()->getEditor()->wordWrapMode(), QTextOption::WordWrap);
}

void TestFrame::syncDockHiddenAtEveryStart()
{
    {
        MainWindow w;
        MainWindowTestAccess a(&w);
        w.show();
        a.showSyncBar(true);
        QVERIFY(a.syncDock()->isVisible());
        a.saveSettings();
    }
    MainWindow next;
    MainWindowTestAccess b(&next);
    next.show();
    QVERIFY(!b.syncDock()->isVisible());
    QVERIFY(b.reportDock()->isVisible());
}

void TestFrame::wordWrapReachesOpenDocuments()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QFile f(dir.filePath(QStringLiteral("ww.mrc")));
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    a.openFile(f.fileName());
    MslTextEditor *editor = a.editors().first()->getEditor();
    QCOMPARE(editor->wordWrapMode(), QTextOption::NoWrap);
    a.wordWrap()->setChecked(true);
    QCOMPARE(editor->wordWrapMode(), QTextOption::WordWrap);
    a.wordWrap()->setChecked(false);
    QCOMPARE(editor->wordWrapMode(), QTextOption::NoWrap);
}

void TestFrame::closeAsksAndCancelKeepsRunning()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    w.show();
    QFile f(dir.filePath(QStringLiteral("changed.mrc")));
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("alias a {\r\n}\r\n");
    f.close();
    a.openFile(f.fileName());
    a.editors().first()->getEditor()->textCursor().insertText(QStringLiteral("x"));
    a.messageBarMenu()->setChecked(false);

    {
        NestedLoopDriver driver({NestedLoopDriver::clickButton(QMessageBox::Cancel)});
        QVERIFY(!w.close());
        QCOMPARE(driver.titles, QStringList{QStringLiteral("Save Changes?")});
    }
    QVERIFY(w.isVisible());
    QCOMPARE(a.tabs()->count(), 1);
    // Written before the documents were asked.
    QSettings s2 = openSettings(QStringLiteral("settings"));
    QCOMPARE(s2.value(QStringLiteral("msgBar")).toBool(), false);

    NestedLoopDriver driver({NestedLoopDriver::clickButton(QMessageBox::Discard)});
    QVERIFY(w.close());
    QCOMPARE(driver.titles.size(), 1);
}

void TestFrame::exitAsksNothing()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QFile f(dir.filePath(QStringLiteral("lost.mrc")));
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("on disk");
    f.close();
    a.openFile(f.fileName());
    a.editors().first()->getEditor()->textCursor().insertText(QStringLiteral("x"));
    a.wordWrap()->setChecked(true);

    QAction *exit = findAction(w, QStringLiteral("&File"), QStringLiteral("E&xit"));
    QVERIFY(exit);
    NestedLoopDriver driver;
    int code = -1;
    QTimer::singleShot(0, exit, &QAction::trigger);
    QTimer::singleShot(5000, [] { QCoreApplication::exit(7); });
    code = QCoreApplication::exec();
    QCOMPARE(code, 0);
    QCOMPARE(driver.titles, QStringList());
    QCOMPARE(a.tabs()->count(), 1);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("on disk"));
    QSettings s2 = openSettings(QStringLiteral("settings"));
    QCOMPARE(s2.value(QStringLiteral("wordWrap")).toBool(), true);
}

void TestFrame::onTopFlag()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    w.show();
    a.onTop()->setChecked(true);
    QVERIFY(w.windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(w.isVisible());
    a.onTop()->setChecked(false);
    QVERIFY(!(w.windowFlags() & Qt::WindowStaysOnTopHint));
    QVERIFY(w.isVisible());
}

void TestFrame::resizeBarWidensDock()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(a.reportDock()->maximumHeight(), 150);
    a.resizeBar();
    QCOMPARE(a.reportDock()->maximumHeight(), 500);
}

// The dock comes up short and stays so once the limit is raised: only the
// user makes it taller.
void TestFrame::raisedLimitKeepsDockShort()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    w.resize(1000, 700);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QCoreApplication::processEvents();
    const int shortHeight = a.reportDock()->height();
    QVERIFY(shortHeight <= 150);

    a.resizeBar();
    QCoreApplication::processEvents();
    QCOMPARE(a.reportDock()->height(), shortHeight);
    w.resize(1000, 900);
    QCoreApplication::processEvents();
    QCOMPARE(a.reportDock()->height(), shortHeight);

    w.resizeDocks({ a.reportDock() }, { 400 }, Qt::Vertical);
    QCoreApplication::processEvents();
    QCOMPARE(a.reportDock()->height(), 400);
}

void TestFrame::ddeServersSkipEmptyNames()
{
    {
        QSettings s = openSettings(QStringLiteral("general"));
        s.setValue(QStringLiteral("dde_keys"), 3);
        s.setValue(QStringLiteral("dde_0"), QString());
        s.setValue(QStringLiteral("dde_1"), QStringLiteral("mirc"));
        s.setValue(QStringLiteral("dde_2"), QStringLiteral("second"));
        s.setValue(QStringLiteral("dde_3"), QStringLiteral("beyond the count"));
    }
    NestedLoopDriver driver;
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(a.ddeServers(), (QVector<QString>{"mirc", "second"}));
    QCoreApplication::processEvents();
    QCOMPARE(driver.titles, QStringList());
}

void TestFrame::openFromDdeTree()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QDir().mkpath(dir.filePath(QStringLiteral("one")));
    QDir().mkpath(dir.filePath(QStringLiteral("two")));
    const QString first = dir.filePath(QStringLiteral("one/script.mrc"));
    const QString second = dir.filePath(QStringLiteral("two/script.mrc"));
    for (const QString &path : {first, second}) {
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(path.toUtf8());
    }
    a.files()[QStringLiteral("mirc")] = {QFileInfo(first), QFileInfo(second)};

    auto *server = new QTreeWidgetItem(a.syncTree(), QStringList{QStringLiteral("mirc")});
    auto *file = new QTreeWidgetItem(server, QStringList{QStringLiteral("script.mrc")});
    file->setData(0, 100, true);

    a.openFromDDE();
    QCOMPARE(a.tabs()->count(), 0);
    a.syncTree()->setCurrentItem(server);
    a.openFromDDE();
    QCOMPARE(a.tabs()->count(), 0);
    a.syncTree()->setCurrentItem(file);
    a.openFromDDE();
    QCOMPARE(a.tabs()->count(), 1);
    // Matched by bare name: the first of two wins.
    QCOMPARE(a.editors().first()->file(), QFileInfo(first));
}

QTEST_MAIN(TestFrame)
#include "tst_frame.moc"
