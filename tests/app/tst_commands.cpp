// The document commands of the main window on real tabs: the Edit menu's
// state, closing and saving several documents.

#include "mainwindow.h"
#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"
#include "shelltestsupport.h"

#include <QAction>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>

class MainWindowTestAccess
{
public:
    explicit MainWindowTestAccess(MainWindow *w) : w(w) {}
    MainWindow *w;

    void openFile(const QString &path, bool readOnly) { w->openFile(QFileInfo(path), readOnly); }
    QTabWidget *tabs() const { return w->mdiContainer; }
    QVector<MdiChildEditor *> editors() const { return w->edtWindows; }
    QVector<MdiChildBuilder *> builders() const { return w->bldWindows; }
    QWidget *current() const { return w->curWindow; }
    QList<QAction *> editActions() const
    {
        return {w->undo, w->redo, w->cut, w->copy, w->paste, w->deleteB, w->selectAll,
                w->findReplace};
    }
    void editMenuAboutToShow() { w->editMenuAboutToShow(); }
    void closeAllFiles() { w->closeAllFiles(); }
    void closeAllButActive() { w->closeAllButActive(); }
    void closeFile() { w->closeFile(); }
    void saveAll() { w->saveAll(); }
    void tabCloseRequested(int i) { w->tabCloseRequested(i); }
    void deleteClicked() { w->deleteClicked(); }
    void undoClicked() { w->undoClicked(); }
    void selectAllClicked() { w->selectAllClicked(); }
    void copyClicked() { w->copyClicked(); }
    void addBuilder()
    {
        auto *builder = new MdiChildBuilder(w->mdiContainer);
        w->bldWindows.append(builder);
        w->mdiContainer->addTab(builder, QStringLiteral("Untitled9"));
        w->mdiContainer->setCurrentWidget(builder);
    }
    QMenu *editMenu() const
    {
        for (QAction *a : w->menuBar()->actions())
            if (a->text() == QStringLiteral("&Edit"))
                return a->menu();
        return nullptr;
    }
};

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void editMenuStartsDisabled();
    void editMenuStates_data();
    void editMenuStates();
    void editMenuOpensThroughAboutToShow();
    void editCommandsWithoutScriptTab();
    void deleteCommand_data();
    void deleteCommand();
    void closeAllCancelOnSecond();
    void closeAllButActiveKeepsCurrent();
    void closeAllButActiveOnBuilderClosesScripts();
    void saveAllSkipsReadOnly();
    void tabButtonCancelKeepsTab();
    void tabButtonClosesBuilder();
    void titleChangeFollowsModification();

private:
    QString writeFile(const QString &name, const QByteArray &bytes);
    static QByteArray readFile(const QString &path);
    QTemporaryDir dir;
    QTemporaryDir settingsDir;
};

QString TestCommands::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = dir.filePath(name);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return QString();
    f.write(bytes);
    return path;
}

QByteArray TestCommands::readFile(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

void TestCommands::initTestCase()
{
    QVERIFY(dir.isValid());
    QVERIFY(settingsDir.isValid());
    redirectSettings(settingsDir.path());
}

void TestCommands::cleanup()
{
    QApplication::clipboard()->clear();
}

void TestCommands::editMenuStartsDisabled()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    const QList<QAction *> actions = a.editActions();
    QCOMPARE(actions.size(), 8);
    for (QAction *action : actions) {
        QVERIFY(action);
        QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
    }
}

// Tab kinds: 0 none, 1 script, 2 read-only script, 3 builder.
// Expected string: one letter per action, undo redo cut copy paste delete
// selectAll findReplace; E enabled, - disabled.
void TestCommands::editMenuStates_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("typed");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("clipboard");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no tab") << 0 << false << false << true << "--------";
    QTest::newRow("fresh script") << 1 << false << false << false << "-----EEE";
    QTest::newRow("typed") << 1 << true << false << false << "E----EEE";
    QTest::newRow("typed, selection") << 1 << true << true << false << "E-EE-EEE";
    QTest::newRow("clipboard text") << 1 << false << false << true << "----EEEE";
    QTest::newRow("everything") << 1 << true << true << true << "E-EEEEEE";
    QTest::newRow("read-only with selection") << 2 << false << true << true << "--------";
    QTest::newRow("builder") << 3 << false << false << true << "--------";
}

void TestCommands::editMenuStates()
{
    QFETCH(int, kind);
    QFETCH(bool, typed);
    QFETCH(bool, selected);
    QFETCH(bool, clipboard);
    QFETCH(QString, expected);

    MainWindow w;
    MainWindowTestAccess a(&w);
    if (kind == 1 || kind == 2) {
        const QString path = writeFile(QStringLiteral("state%1.mrc").arg(kind),
                                       "alias hello {\r\n  echo -a hi\r\n}\r\n");
        a.openFile(path, kind == 2);
        MslTextEditor *editor = a.editors().first()->getEditor();
        QCOMPARE(editor->isReadOnly(), kind == 2);
        if (typed) {
            QTextCursor c = editor->textCursor();
            c.insertText(QStringLiteral("; note\n"));
            editor->setTextCursor(c);
        }
        if (selected) {
            QTextCursor c = editor->textCursor();
            c.movePosition(QTextCursor::Start);
            c.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            editor->setTextCursor(c);
        }
    } else if (kind == 3) {
        a.addBuilder();
    }
    if (clipboard)
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
    else
        QApplication::clipboard()->clear();

    // Everything on first, so a missed branch shows.
    for (QAction *action : a.editActions())
        action->setEnabled(true);
    a.editMenuAboutToShow();

    QString got;
    for (QAction *action : a.editActions())
        got += action->isEnabled() ? QLatin1Char('E') : QLatin1Char('-');
    QCOMPARE(got, expected);
}

void TestCommands::editMenuOpensThroughAboutToShow()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(writeFile(QStringLiteral("menu.mrc"), "alias x {\r\n}\r\n"), false);
    QMenu *menu = a.editMenu();
    QVERIFY(menu);
    QVERIFY(!a.editActions().at(6)->isEnabled());
    emit menu->aboutToShow();
    QVERIFY(a.editActions().at(6)->isEnabled());
    QVERIFY(a.editActions().at(7)->isEnabled());
}

void TestCommands::editCommandsWithoutScriptTab()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.undoClicked();
    a.deleteClicked();
    a.selectAllClicked();
    a.closeFile();
    a.closeAllFiles();
    a.closeAllButActive();
    a.saveAll();
    a.addBuilder();
    QCOMPARE(a.current(), static_cast<QWidget *>(a.builders().first()));
    a.deleteClicked();
    a.copyClicked();
    a.selectAllClicked();
    QCOMPARE(a.tabs()->count(), 1);
}

void TestCommands::deleteCommand_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("after");
    QTest::newRow("no selection takes the next character") << 2 << 2 << "abdef";
    QTest::newRow("selection goes") << 1 << 4 << "aef";
    QTest::newRow("at the end nothing") << 6 << 6 << "abcdef";
}

void TestCommands::deleteCommand()
{
    QFETCH(int, anchor);
    QFETCH(int, position);
    QFETCH(QString, after);

    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(writeFile(QStringLiteral("delete.mrc"), "abcdef"), false);
    MslTextEditor *editor = a.editors().first()->getEditor();
    QTextCursor c = editor->textCursor();
    c.setPosition(anchor);
    c.setPosition(position, QTextCursor::KeepAnchor);
    editor->setTextCursor(c);
    a.deleteClicked();
    QCOMPARE(editor->toPlainText(), after);
}

void TestCommands::closeAllCancelOnSecond()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QStringList paths;
    for (int i = 0; i < 3; ++i) {
        paths << writeFile(QStringLiteral("close%1.mrc").arg(i), "alias a {\r\n}\r\n");
        a.openFile(paths.last(), false);
        a.editors().last()->getEditor()->textCursor().insertText(QStringLiteral("x"));
    }
    QCOMPARE(a.editors().size(), 3);
    MdiChildEditor *second = a.editors().at(1);

    NestedLoopDriver driver({NestedLoopDriver::clickButton(QMessageBox::Discard),
                        NestedLoopDriver::clickButton(QMessageBox::Cancel),
                        NestedLoopDriver::clickButton(QMessageBox::Discard)});
    a.closeAllFiles();
    QCOMPARE(driver.left(), 0);
    QCOMPARE(driver.titles.size(), 3);
    QVERIFY(driver.texts.at(0).contains(QStringLiteral("close0.mrc")));
    QVERIFY(driver.texts.at(1).contains(QStringLiteral("close1.mrc")));
    QVERIFY(driver.texts.at(2).contains(QStringLiteral("close2.mrc")));

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(a.editors().size(), 1);
    QCOMPARE(a.editors().first(), second);
    QCOMPARE(a.tabs()->count(), 1);
    QCOMPARE(a.tabs()->widget(0), static_cast<QWidget *>(second));
    // Discarded, not written.
    QCOMPARE(readFile(paths.at(0)), QByteArray("alias a {\r\n}\r\n"));
}

void TestCommands::closeAllButActiveKeepsCurrent()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    for (int i = 0; i < 3; ++i)
        a.openFile(writeFile(QStringLiteral("keep%1.mrc").arg(i), "x"), false);
    a.tabs()->setCurrentIndex(1);
    MdiChildEditor *middle = a.editors().at(1);
    QCOMPARE(a.current(), static_cast<QWidget *>(middle));
    a.closeAllButActive();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(a.editors(), QVector<MdiChildEditor *>{middle});
    QCOMPARE(a.tabs()->count(), 1);
}

void TestCommands::closeAllButActiveOnBuilderClosesScripts()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(writeFile(QStringLiteral("b1.mrc"), "x"), false);
    a.openFile(writeFile(QStringLiteral("b2.mrc"), "y"), false);
    a.addBuilder();
    a.closeAllButActive();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(a.editors().isEmpty());
    QCOMPARE(a.builders().size(), 1);
    QCOMPARE(a.tabs()->count(), 1);
}

void TestCommands::saveAllSkipsReadOnly()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    const QString writable = writeFile(QStringLiteral("rw.mrc"), "alias a {\r\n}\r\n");
    const QString readOnly = writeFile(QStringLiteral("ro.mrc"), "alias b {\r\n}\r\n");
    const QString unchanged = writeFile(QStringLiteral("same.mrc"), "alias c {\n}");
    a.openFile(writable, false);
    a.openFile(readOnly, true);
    a.openFile(unchanged, false);
    QTextCursor c = a.editors().at(0)->getEditor()->textCursor();
    c.movePosition(QTextCursor::End);
    c.insertText(QStringLiteral("; added"));
    // A read-only editor refuses typing; change its document directly.
    QTextCursor ro(a.editors().at(1)->getEditor()->document());
    ro.insertText(QStringLiteral("; sneaked in\n"));

    NestedLoopDriver driver;
    a.saveAll();
    QCOMPARE(driver.titles, QStringList());
    QCOMPARE(readFile(writable), QByteArray("alias a {\r\n}\r\n; added"));
    QCOMPARE(readFile(readOnly), QByteArray("alias b {\r\n}\r\n"));
    // Written although unchanged: line ends come back as CR LF.
    QCOMPARE(readFile(unchanged), QByteArray("alias c {\r\n}"));
}

void TestCommands::tabButtonCancelKeepsTab()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(writeFile(QStringLiteral("tab.mrc"), "x"), false);
    a.editors().first()->getEditor()->textCursor().insertText(QStringLiteral("y"));
    {
        NestedLoopDriver driver({NestedLoopDriver::clickButton(QMessageBox::Cancel)});
        a.tabCloseRequested(0);
        QCOMPARE(driver.titles.size(), 1);
    }
    QCOMPARE(a.tabs()->count(), 1);
    QCOMPARE(a.editors().size(), 1);
    {
        NestedLoopDriver driver({NestedLoopDriver::clickButton(QMessageBox::Discard)});
        a.tabCloseRequested(0);
        QCOMPARE(driver.titles.size(), 1);
    }
    QCOMPARE(a.tabs()->count(), 0);
    QVERIFY(a.editors().isEmpty());
    QCOMPARE(a.current(), nullptr);
}

void TestCommands::tabButtonClosesBuilder()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.addBuilder();
    QPointer<MdiChildBuilder> builder = a.builders().first();
    a.tabCloseRequested(0);
    QCOMPARE(a.tabs()->count(), 0);
    QVERIFY(a.builders().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Not deleted on close: it stays a hidden child.
    QVERIFY(builder);
    QVERIFY(builder->isHidden());
}

void TestCommands::titleChangeFollowsModification()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(writeFile(QStringLiteral("title.mrc"), "x"), false);
    QCOMPARE(a.tabs()->tabText(0), QStringLiteral("title.mrc"));
    a.editors().first()->getEditor()->textCursor().insertText(QStringLiteral("y"));
    QCOMPARE(a.tabs()->tabText(0), QStringLiteral("title.mrc*"));
}

QTEST_MAIN(TestCommands)
#include "tst_commands.moc"
