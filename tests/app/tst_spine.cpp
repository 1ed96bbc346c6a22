// The main window's spine on a real window with real tabs and real files:
// its construction, New, opening a file (again, read-only, INI, broken),
// and the road from a document's analyser to the report dock.

#include "spinetestsupport.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

class TestSpine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void construction();
    void startupReadsServerNames();
    void newTwiceNumbersUntitled();
    void newCancelMakesNothing();
    void newDialogTakesANumber();
    void newUnsupportedToolsOnlyInform_data();
    void newUnsupportedToolsOnlyInform();
    void newDocumentReportsUnderWorkingDirectory();
    void openFileMakesTab();
    void openOpenFileSwitchesWithoutReload();
    void openReadOnly();
    void readOnlyOfWritableKeepsWritable();
    void iniScripts_data();
    void iniScripts();
    void brokenFilesOpen_data();
    void brokenFilesOpen();
    void reportsCarryFullPath();
    void wordWrapFromAction();
    void tabChangeTracksCurrent();
    void closingWindowWithDocuments();

private:
    QString path(const QString &name) const { return files.filePath(name); }
    QTemporaryDir files;
    QTemporaryDir settings;
};

void TestSpine::initTestCase()
{
    QVERIFY(files.isValid());
    QVERIFY(settings.isValid());
    QStandardPaths::setTestModeEnabled(true);
    redirectSettings(settings.path());
    initialiseAnalyser();
}

void TestSpine::init()
{
    QDir(settings.path()).removeRecursively();
    QDir().mkpath(settings.path());
}

void TestSpine::construction()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(w.windowTitle(), QStringLiteral("Tarnwick"));
    QCOMPARE(w.centralWidget(), a.tabs());
    QVERIFY(a.tabs()->tabsClosable());
    QCOMPARE(a.tabs()->tabShape(), QTabWidget::Rounded);
    QCOMPARE(a.tCount(), 0u);
    QCOMPARE(a.current(), nullptr);
    QVERIFY(a.editors().isEmpty());
    // The dock comes up short and is let taller a moment later.
    QCOMPARE(a.reportDock()->maximumHeight(), 150);
    QTRY_COMPARE(a.reportDock()->maximumHeight(), 500);
}

void TestSpine::startupReadsServerNames()
{
    {
        QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                    QStringLiteral("general"));
        s.setValue(QStringLiteral("dde_keys"), 3);
        s.setValue(QStringLiteral("dde_0"), QString());
        s.setValue(QStringLiteral("dde_1"), QStringLiteral("mirc"));
        s.setValue(QStringLiteral("dde_2"), QStringLiteral("other"));
        s.setValue(QStringLiteral("dde_3"), QStringLiteral("beyond the count"));
    }
    MainWindow w;
    MainWindowTestAccess a(&w);
    // An empty entry is skipped without ending the list.
    QCOMPARE(a.ddeServers(), QVector<QString>({QStringLiteral("mirc"), QStringLiteral("other")}));
}

void TestSpine::newTwiceNumbersUntitled()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    {
        NestedLoopDriver driver({NestedLoopDriver::chooseRow(4), NestedLoopDriver::chooseRow(4)});
        a.newFile();
        a.newFile();
        QCOMPARE(a.tabs()->count(), 2);
        QCOMPARE(a.tabs()->tabText(0), QStringLiteral("Untitled1"));
        QCOMPARE(a.tabs()->tabText(1), QStringLiteral("Untitled2"));
        QCOMPARE(a.editors().size(), 2);
        QCOMPARE(a.editors().at(1)->file(), QFileInfo(QStringLiteral("Untitled2")));
        QCOMPARE(a.tabs()->currentWidget(), a.editors().at(1));
        QCOMPARE(a.tCount(), 2u);
        QCOMPARE(driver.left(), 0);
    }

    // A closed number is not handed out again.
    MdiChildEditor *first = a.editors().at(0);
    QVERIFY(first->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(a.editors().size(), 1);
    NestedLoopDriver again({NestedLoopDriver::chooseRow(4)});
    a.newFile();
    QCOMPARE(a.tabs()->tabText(a.tabs()->currentIndex()), QStringLiteral("Untitled3"));
}

void TestSpine::newCancelMakesNothing()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver driver({[](QWidget *dlg) {
        auto *box = dlg->findChild<QDialogButtonBox *>();
        QVERIFY(box);
        box->button(QDialogButtonBox::Cancel)->click();
    }});
    a.newFile();
    QCOMPARE(driver.left(), 0);
    QCOMPARE(a.tabs()->count(), 0);
    QCOMPARE(a.tCount(), 0u);
}

void TestSpine::newDialogTakesANumber()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver driver({NestedLoopDriver::chooseRow(4), NestedLoopDriver::chooseRow(1),
                             NestedLoopDriver::clickButton(QMessageBox::Ok),
                             NestedLoopDriver::chooseRow(4)});
    a.newFile();
    a.newFile();
    a.newFile();
    QCOMPARE(driver.left(), 0);
    QVERIFY2(driver.seen.at(2).contains(QLatin1String("pre-alpha")), qPrintable(driver.seen.at(2)));
    QCOMPARE(a.tabs()->count(), 3);
    QCOMPARE(a.tabs()->tabText(1), QStringLiteral("Untitled2"));
    QCOMPARE(a.builders().size(), 1);
    QCOMPARE(a.tabs()->widget(1), a.builders().at(0));
    QCOMPARE(a.tabs()->tabText(2), QStringLiteral("Untitled3"));
}

void TestSpine::newUnsupportedToolsOnlyInform_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("Blank") << 0;
    QTest::newRow("Dialog Script") << 2;
    QTest::newRow("Picture Window") << 3;
    QTest::newRow("Text File") << 5;
}

void TestSpine::newUnsupportedToolsOnlyInform()
{
    QFETCH(int, row);
    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver driver(
        {NestedLoopDriver::chooseRow(row), NestedLoopDriver::clickButton(QMessageBox::Ok)});
    a.newFile();
    QCOMPARE(driver.left(), 0);
    QCOMPARE(driver.seen.at(1),
             QStringLiteral("Unsupported Feature|This feature is currently unsupported."));
    QCOMPARE(a.tabs()->count(), 0);
    QCOMPARE(a.tCount(), 0u);
}

// An Untitled document files its reports under the working directory.
void TestSpine::newDocumentReportsUnderWorkingDirectory()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver driver({NestedLoopDriver::chooseRow(4)});
    a.newFile();
    MdiChildEditor *doc = a.editors().at(0);
    doc->getEditor()->setPlainText(QStringLiteral("alias x {\n  echo $calc(1 +\n}\n"));
    QVERIFY(a.debug()->rowCount() > 0);
    for (int r = 0; r < a.debug()->rowCount(); ++r)
        QCOMPARE(a.debug()->data(a.debug()->index(r, 0)).toString(),
                 QDir::current().absoluteFilePath(QStringLiteral("Untitled1")));
}

void TestSpine::openFileMakesTab()
{
    const QString file = writeFile(path(QStringLiteral("open.mrc")), "alias a {\n  echo hi\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    QCOMPARE(a.tabs()->count(), 1);
    QCOMPARE(a.tabs()->tabText(0), QStringLiteral("open.mrc"));
    MdiChildEditor *doc = a.editors().at(0);
    QCOMPARE(a.tabs()->currentWidget(), doc);
    QCOMPARE(a.current(), doc);
    QCOMPARE(doc->getEditor()->toPlainText(), QStringLiteral("alias a {\n  echo hi\n}\n"));
    QVERIFY(!doc->getEditor()->isReadOnly());
    QVERIFY(!doc->getEditor()->document()->isModified());
    QCOMPARE(doc->file(), QFileInfo(file));
    // The analyser ran: the header line carries its record.
    auto *rec = static_cast<CBlockData *>(doc->getEditor()->document()->firstBlock().userData());
    QVERIFY(rec);
    QCOMPARE(rec->containedBlock, QStringLiteral("a"));
    QCOMPARE(a.tCount(), 0u);
}

void TestSpine::openOpenFileSwitchesWithoutReload()
{
    const QString first = writeFile(path(QStringLiteral("one.mrc")), "alias one { }\n");
    const QString second = writeFile(path(QStringLiteral("two.mrc")), "alias two { }\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(first, false);
    a.openFile(second, false);
    MdiChildEditor *one = a.editors().at(0);
    QCOMPARE(a.tabs()->currentIndex(), 1);

    writeFile(first, "changed on disk\n");
    a.openFile(first, false);
    QCOMPARE(a.tabs()->count(), 2);
    QCOMPARE(a.tabs()->currentWidget(), one);
    QCOMPARE(one->getEditor()->toPlainText(), QStringLiteral("alias one { }\n"));
    // The read-only wish is not looked at either.
    a.openFile(first, true);
    QCOMPARE(a.tabs()->count(), 2);
    QVERIFY(!one->getEditor()->isReadOnly());
}

void TestSpine::openReadOnly()
{
    const QString file = writeFile(path(QStringLiteral("ro.mrc")), "alias ro { }\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, true);
    MdiChildEditor *doc = a.editors().at(0);
    QVERIFY(doc->getEditor()->isReadOnly());
    const QIcon icon = a.tabs()->tabIcon(0);
    const QIcon expected(
        QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file-read-only.png"));
    QVERIFY(!expected.isNull());
    QCOMPARE(icon.pixmap(16, 16).toImage(), expected.pixmap(16, 16).toImage());
    const QIcon writable(QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file.png"));
    QVERIFY(icon.pixmap(16, 16).toImage() != writable.pixmap(16, 16).toImage());
}

void TestSpine::readOnlyOfWritableKeepsWritable()
{
    const QString file = writeFile(path(QStringLiteral("rw.mrc")), "alias rw { }\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    a.openFile(file, true);
    QCOMPARE(a.tabs()->count(), 1);
    QVERIFY(!a.editors().at(0)->getEditor()->isReadOnly());
    const QIcon writable(QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file.png"));
    QCOMPARE(a.tabs()->tabIcon(0).pixmap(16, 16).toImage(), writable.pixmap(16, 16).toImage());
}

void TestSpine::iniScripts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("iniForm");
    QTest::newRow(".ini") << QStringLiteral("s.ini") << true;
    QTest::newRow(".INI") << QStringLiteral("S.INI") << true;
    QTest::newRow(".Ini") << QStringLiteral("s2.Ini") << true;
    QTest::newRow("exactly .ini") << QStringLiteral(".ini") << true;
    QTest::newRow(".ini.bak") << QStringLiteral("x.ini.bak") << false;
}

void TestSpine::iniScripts()
{
    QFETCH(QString, name);
    QFETCH(bool, iniForm);
    const QByteArray content = "[script]\nn0=alias x\n\nplain\nn1=a=b\n";
    const QString file = writeFile(path(name), content);
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    const QString text = a.editors().at(0)->getEditor()->toPlainText();
    if (iniForm)
        QCOMPARE(text, QStringLiteral("alias x\n\nplain\na=b\n"));
    else
        QCOMPARE(text, QString::fromUtf8(content));
    QCOMPARE(a.tabs()->tabText(0), name);
}

void TestSpine::brokenFilesOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("create");
    QTest::addColumn<QString>("expected");
    static const char withNul[] = "alias a {\n  echo \0x\n}\n";
    QTest::newRow("missing") << QStringLiteral("missing.mrc") << QByteArray() << false
                             << QString();
    QTest::newRow("empty") << QStringLiteral("empty.mrc") << QByteArray() << true << QString();
    QTest::newRow("invalid UTF-8") << QStringLiteral("latin1.mrc")
                                   << QByteArray("echo caf\xe9\n") << true
                                   << QStringLiteral("echo caf\uFFFD\n");
    QTest::newRow("NUL") << QStringLiteral("nul.mrc")
                         << QByteArray(withNul, sizeof(withNul) - 1) << true << QStringLiteral("*");
    QTest::newRow("CR only") << QStringLiteral("cr.mrc") << QByteArray("alias a {\r  echo\r}\r")
                             << true << QStringLiteral("*");
    QTest::newRow("binary") << QStringLiteral("bin.mrc")
                            << QByteArray::fromHex("00ff10fe7b7b7d0a2428282828").repeated(500)
                            << true << QStringLiteral("*");
}

// Files that cannot be read, or hold odd bytes, still give a tab, with no
// message and no crash.
void TestSpine::brokenFilesOpen()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(bool, create);
    QFETCH(QString, expected);
    const QString file = path(name);
    if (create)
        writeFile(file, content);
    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver watch;
    a.openFile(file, false);
    QCoreApplication::processEvents();
    QCOMPARE(watch.seen, QStringList());
    QCOMPARE(a.tabs()->count(), 1);
    QCOMPARE(a.tabs()->tabText(0), name);
    const QString text = a.editors().at(0)->getEditor()->toPlainText();
    if (expected != QLatin1String("*"))
        QCOMPARE(text, expected);
    else
        QVERIFY(!text.isEmpty());
}

// The second pass withdraws the reports of the first, which had no file
// name, and files them again under the absolute path.
void TestSpine::reportsCarryFullPath()
{
    const QString file = writeFile(path(QStringLiteral("full.mrc")),
                                   "alias a {\n  echo $calc(1 +\n  ; todo: x\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    QVERIFY(a.debug()->rowCount() > 0);
    QVERIFY(a.messages()->rowCount() > 0);
    for (QStandardItemModel *m : {a.debug(), a.messages()}) {
        for (int r = 0; r < m->rowCount(); ++r)
            QCOMPARE(m->data(m->index(r, 0)).toString(), QFileInfo(file).absoluteFilePath());
    }
    // The ids went into the lines through the direct connection.
    MdiChildEditor *doc = a.editors().at(0);
    const int id = a.debug()->data(a.debug()->index(0, 4)).toInt();
    auto *rec = static_cast<CBlockData *>(
        doc->getEditor()->document()->findBlockByNumber(1).userData());
    QVERIFY(rec);
    QVERIFY(rec->remId.containsErr(id));
}

void TestSpine::wordWrapFromAction()
{
    const QString file = writeFile(path(QStringLiteral("wrap.mrc")), "alias w { }\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    QVERIFY(a.wordWrap());
    a.wordWrap()->setChecked(true);
    a.openFile(file, false);
    QCOMPARE(a.editors().at(0)->getEditor()->wordWrapMode(), QTextOption::WordWrap);
    a.wordWrap()->setChecked(false);
    NestedLoopDriver driver({NestedLoopDriver::chooseRow(4)});
    a.newFile();
    QCOMPARE(a.editors().at(1)->getEditor()->wordWrapMode(), QTextOption::NoWrap);
}

void TestSpine::tabChangeTracksCurrent()
{
    const QString one = writeFile(path(QStringLiteral("t1.mrc")), "alias t1 { }\n");
    const QString two = writeFile(path(QStringLiteral("t2.mrc")), "alias t2 { }\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(one, false);
    a.openFile(two, false);
    QCOMPARE(a.current(), a.editors().at(1));
    a.tabs()->setCurrentIndex(0);
    QCOMPARE(a.current(), a.editors().at(0));
    QVERIFY(a.closeMenu()->isEnabled());

    // With no tab left, nothing is current and the close entries go grey.
    for (MdiChildEditor *doc : a.editors())
        QVERIFY(doc->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(a.tabs()->count(), 0);
    QCOMPARE(a.current(), nullptr);
    QVERIFY(!a.closeMenu()->isEnabled());
    QVERIFY(a.editors().isEmpty());
}

// Documents that outlive the window's own members must not reach it.
void TestSpine::closingWindowWithDocuments()
{
    const QString file = writeFile(path(QStringLiteral("end.mrc")),
                                   "alias a {\n  echo $calc(1 +\n  ; todo: x\n}\n");
    auto *w = new MainWindow;
    MainWindowTestAccess a(w);
    a.openFile(file, false);
    NestedLoopDriver driver({NestedLoopDriver::chooseRow(4)});
    a.newFile();
    a.editors().at(1)->getEditor()->setPlainText(QStringLiteral("echo $calc(\n"));
    QVERIFY(a.debug()->rowCount() > 0);
    delete w;
}

QTEST_MAIN(TestSpine)
#include "tst_spine.moc"
