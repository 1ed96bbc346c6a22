// The main window's frame: what lasts to the next run in the INI files,
// the View and Window commands, and the ways out.

#include "appsupport.h"

class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(settingsDir.isValid() && dir.isValid()); }
    // Every test starts as a first run.
    void init()
    {
        QDir(settingsDir.path()).removeRecursively();
        redirectSettings(settingsDir.path());
    }

    void settingsLastToTheNextStart()
    {
        QRect geometry;
        {
            MainWindowTestAccess a;
            QVERIFY(!a.reportDock()->isHidden() && a.syncDock()->isHidden()
                    && !a.entry("&View", "Word wrap")->isChecked());
            QVERIFY(!QFile::exists(settingsDir.filePath("Tarnwick/settings.ini")));
            a.window().setGeometry(100, 100, 640, 480);
            a.window().show();
            a.entry("&Window", "Debug Window")->setChecked(false);
            QVERIFY(a.reportDock()->isHidden());
            a.entry("&View", "Word wrap")->setChecked(true);
            a.syncDock()->show();
            geometry = a.window().geometry();
            QVERIFY(a.window().close());
        }
        QSettings settings = openSettings("settings"), general = openSettings("general");
        QCOMPARE(
            QStringList({settings.value("msgBar").toString(), settings.value("wordWrap").toString(),
                         settings.value("syncBar").toString()}),
            QStringList({"false", "true", "false"}));
        QVERIFY(!general.value("initGeo").toByteArray().isEmpty()
                && !general.value("initState").toByteArray().isEmpty());
        MainWindowTestAccess b;
        QCOMPARE(b.window().geometry(), geometry);
        QVERIFY(!b.entry("&Window", "Debug Window")->isChecked() && b.reportDock()->isHidden()
                && b.syncDock()->isHidden());
        QVERIFY(b.entry("&View", "Word wrap")->isChecked());
        b.openFile(writeFile(dir.filePath("wrap.mrc"), ""), false);
        MslTextEditor *editor = b.editors().first()->getEditor();
        QCOMPARE(editor->wordWrapMode(), QTextOption::WordWrap);
        b.entry("&View", "Word wrap")->setChecked(false);
        QCOMPARE(editor->wordWrapMode(), QTextOption::NoWrap);
        b.entry("&Window", "Debug Window")->setChecked(true);
        QVERIFY(!b.reportDock()->isHidden());
        b.entry("&View", "Always on Top")->setChecked(true);
        QVERIFY(b.window().windowFlags() & Qt::WindowStaysOnTopHint && b.window().isVisible());
    }

    // Close asks about changes, settings written first; Exit just leaves.
    void waysOut()
    {
        MainWindowTestAccess a;
        a.window().show();
        const QString file = writeFile(dir.filePath("changed.mrc"), "on disk");
        a.openFile(file, false);
        a.editors().first()->getEditor()->insertPlainText("x");
        a.entry("&View", "Word wrap")->setChecked(true);
        {
            NestedLoopDriver driver({NestedLoopDriver::press(QMessageBox::Cancel)});
            QVERIFY(!a.window().close());
            QVERIFY(driver.seen.value(0).startsWith("Save Changes?|"));
        }
        QVERIFY(a.window().isVisible());
        QCOMPARE(openSettings("settings").value("wordWrap").toString(), QStringLiteral("true"));
        a.entry("&View", "Word wrap")->setChecked(false);
        NestedLoopDriver driver;
        QTimer::singleShot(0, a.entry("&File", "E&xit"), &QAction::trigger);
        QTimer::singleShot(5000, [] { QCoreApplication::exit(7); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QCOMPARE(driver.seen, QStringList());
        QCOMPARE(readFile(file), QByteArray("on disk"));
        QCOMPARE(openSettings("settings").value("wordWrap").toString(), QStringLiteral("false"));
    }

private:
    QTemporaryDir settingsDir, dir;
};

TARNWICK_TEST(TestFrame);
#include "tst_frame.moc"
