// The main window's documents on real tabs and files: New through the
// chooser, opening (again, read-only, INI form, broken files), the current tab.

#include "appsupport.h"

class TestSpine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(files.isValid());
        redirectSettings(files.filePath("settings"));
        initialiseAnalyser();
    }

    // Scripts and builders take the next Untitled number, never twice.
    void newFromTheChooser()
    {
        MainWindowTestAccess a;
        a.entry("&View", "Word wrap")->setChecked(true);
        const auto ok = NestedLoopDriver::press(QMessageBox::Ok);
        const auto row = [](int row) {
            return NestedLoopDriver::press(QDialogButtonBox::Ok, row);
        };
        NestedLoopDriver driver({row(4), row(0), ok, row(1), ok, row(2), ok, row(3), ok, row(5), ok,
                                 NestedLoopDriver::press(QDialogButtonBox::Cancel),
                                 [](QWidget *chooser) { chooser->close(); }, ok, row(4)});
        for (int i = 0; i < 8; ++i)
            a.newFile();
        QCOMPARE(driver.seen.filter("Choose A Tool").size(), 8);
        QCOMPARE(
            driver.seen.filter("Unsupported Feature|This feature is currently unsupported.").size(),
            5);
        QVERIFY(driver.seen.at(4).contains("pre-alpha"));
        QVERIFY(a.tabs()->count() == 2 && a.tabs()->widget(1) == a.builders().value(0));
        QCOMPARE(a.tabs()->tabText(0) + a.tabs()->tabText(1), QStringLiteral("Untitled1Untitled2"));
        MdiChildEditor *doc = a.editors().value(0);
        QCOMPARE(doc->getEditor()->wordWrapMode(), QTextOption::WordWrap);
        // An Untitled document files its reports under the working directory.
        doc->getEditor()->setPlainText(QStringLiteral("alias x {\n  echo $calc(1 +\n}\n"));
        QCOMPARE(a.debug()->findItems(QDir::current().absoluteFilePath("Untitled1")).size(), 1);
        doc->getEditor()->document()->setModified(false);
        QVERIFY(doc->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(a.editors().isEmpty() && a.debug()->rowCount() == 0);
        a.newFile();
        QCOMPARE(a.tabs()->tabText(a.tabs()->currentIndex()), QStringLiteral("Untitled3"));
    }

    void openingFiles()
    {
        const QString file = writeFile(files.filePath("one.mrc"), "alias a {\n  echo hi\n}\n");
        const QString ro = writeFile(files.filePath("ro.mrc"), "alias ro { }\n");
        MainWindowTestAccess a;
        a.openFile(file, false);
        a.openFile(ro, true);
        MslTextEditor *one = a.editors().at(0)->getEditor();
        QCOMPARE(a.tabs()->tabText(0) + '|' + one->toPlainText(),
                 QStringLiteral("one.mrc|alias a {\n  echo hi\n}\n"));
        auto *rec = recordOf(one->document()->firstBlock());
        QVERIFY(!one->document()->isModified() && rec && rec->containedBlock == QLatin1String("a"));
        QVERIFY(a.editors().at(1)->getEditor()->isReadOnly() && a.current() == a.editors().at(1));
        const QString tabs = ":/tabbar/resources/img_assets/options/main/tabs/file";
        QCOMPARE(a.tabs()->tabIcon(0).pixmap(16).toImage(),
                 QIcon(tabs + ".png").pixmap(16).toImage());
        QCOMPARE(a.tabs()->tabIcon(1).pixmap(16).toImage(),
                 QIcon(tabs + "-read-only.png").pixmap(16).toImage());
        // Open already: its tab comes forward, with no reload and no change to read-only.
        writeFile(file, "changed on disk\n");
        a.openFile(file, true);
        QVERIFY(a.tabs()->count() == 2 && a.current() == a.editors().at(0) && !one->isReadOnly());
        QCOMPARE(one->toPlainText(), QStringLiteral("alias a {\n  echo hi\n}\n"));
    }

    // An INI script opens as plain lines; bad files still give a tab, silently.
    void iniAndBrokenFiles()
    {
        const QList<std::tuple<QString, QByteArray, QString>> cases
            = {{"s.INI", "[script]\nn0=alias x\n\nplain\nn1=a=b\n", "alias x\n\nplain\na=b\n"},
               {"missing.mrc", QByteArray(), QString()},
               {"empty.mrc", "", QString()},
               {"latin1.mrc", "echo caf\xe9\n", "echo caf\uFFFD\n"},
               {"nul.mrc", QByteArray("alias a {\n  echo \0x\n}\n", 22), "*"},
               {"cr.mrc", "alias a {\r  echo\r}\r", "*"},
               {"bin.mrc", QByteArray::fromHex("00ff10fe7b7b7d0a2428282828").repeated(500), "*"}};
        for (const auto &[name, content, expected] : cases) {
            if (!content.isNull())
                writeFile(files.filePath(name), content);
            MainWindowTestAccess a;
            NestedLoopDriver watch;
            a.openFile(files.filePath(name), false);
            QCoreApplication::processEvents();
            QCOMPARE(watch.seen, QStringList());
            QCOMPARE(a.tabs()->tabText(0), name);
            const QString text = a.editors().at(0)->getEditor()->toPlainText();
            QVERIFY2(expected == "*" ? !text.isEmpty() : text == expected, qPrintable(name));
        }
    }

    // The current tab and close entries follow; documents outlive the window.
    void currentTabAndTeardown()
    {
        auto *w = new MainWindow;
        MainWindowTestAccess a(w);
        a.openFile(writeFile(files.filePath("t1.mrc"), "alias t1 {\n  echo $calc(\n}\n"), false);
        a.openFile(writeFile(files.filePath("t2.mrc"), "alias t2 { }\n"), false);
        a.tabs()->setCurrentIndex(0);
        QVERIFY(a.current() == a.editors().at(0) && a.entry("&File", "&Close")->isEnabled());
        a.entry("&File", "&Close")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(a.editors().size() == 1 && a.current() == a.editors().at(0));
        a.entry("&File", "&Close")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(a.tabs()->count() == 0 && !a.current());
        for (const char *entry : {"&Close", "Clos&e All", "Close &All But Active"})
            QVERIFY(!a.entry("&File", entry)->isEnabled());
        a.openFile(files.filePath("t1.mrc"), false);
        QVERIFY(a.debug()->rowCount() > 0);
        delete w;
    }

private:
    QTemporaryDir files;
};

TARNWICK_TEST(TestSpine);
#include "tst_spine.moc"
