// The File and Edit menus' commands as a user triggers them on real tabs.

#include "appsupport.h"

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid());
        redirectSettings(dir.filePath("settings"));
        initialiseAnalyser();
    }

    // Edit entries Undo..Find by tab (none, script, read-only, builder), once opened.
    void editMenuState()
    {
        const QList<std::tuple<int, bool, bool, bool, QString>> cases
            = {{0, false, false, true, "--------"}, {1, false, false, false, "-----EEE"},
               {1, true, true, false, "E-EE-EEE"},  {1, false, false, true, "----EEEE"},
               {2, false, true, true, "--------"},  {3, false, false, true, "--------"}};
        for (const auto &[kind, typed, selected, clipboard, expected] : cases) {
            MainWindowTestAccess a;
            QMenu *menu = a.window().menuBar()->actions().at(1)->menu();
            auto state = [menu](QString got = {}) {
                for (QAction *action : menu->actions())
                    got += action->isSeparator() ? "" : action->isEnabled() ? "E" : "-";
                return got;
            };
            QCOMPARE(state(), QStringLiteral("--------"));
            if (kind == 3)
                a.addBuilder();
            if (kind == 1 || kind == 2) {
                a.openFile(
                    writeFile(dir.filePath("state.mrc"), "alias hello {\r\n  echo -a hi\r\n}\r\n"),
                    kind == 2);
                MslTextEditor *editor = a.editors().first()->getEditor();
                if (typed)
                    editor->insertPlainText("; note\n");
                editor->moveCursor(QTextCursor::Start);
                editor->moveCursor(QTextCursor::EndOfBlock,
                                   selected ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
            }
            QApplication::clipboard()->setText(clipboard ? "pasted" : "");
            for (QAction *action : menu->actions())
                action->setEnabled(true);
            emit menu->aboutToShow();
            QCOMPARE(state(), expected);
        }
    }

    // The entries as a user chooses them, the menu opened first.
    void editingCommands()
    {
        MainWindowTestAccess a;
        a.openFile(writeFile(dir.filePath("edit.mrc"), "abcdef"), false);
        MslTextEditor *editor = a.editors().first()->getEditor();
        QMenu *menu = a.window().menuBar()->actions().at(1)->menu();
        QApplication::clipboard()->clear();
        const QList<std::tuple<int, int, QString, QString, QString>> steps
            = {{2, 2, "&Delete", "abdef", ""}, {1, 3, "&Delete", "aef", ""},
               {3, 3, "&Delete", "aef", ""},   {-1, -1, "&Undo", "abdef", ""},
               {-1, -1, "&Redo", "aef", ""},   {0, 1, "Cu&t", "ef", "a"},
               {2, 2, "&Paste", "efa", "a"},   {-1, -1, "Select &All", "efa", "a"},
               {-1, -1, "&Copy", "efa", "efa"}};
        for (const auto &[anchor, position, entry, text, clipboard] : steps) {
            QTextCursor c = editor->textCursor();
            c.setPosition(anchor < 0 ? c.anchor() : anchor);
            c.setPosition(position < 0 ? editor->textCursor().position() : position,
                          QTextCursor::KeepAnchor);
            editor->setTextCursor(c);
            emit menu->aboutToShow();
            a.entry("&Edit", entry)->trigger();
            QCOMPARE(editor->toPlainText() + '|' + QApplication::clipboard()->text(),
                     text + '|' + clipboard);
        }
        // Without a script tab the commands do nothing, and do not crash.
        a.addBuilder();
        for (QAction *action : menu->actions())
            emit action->triggered();
        QCOMPARE(editor->toPlainText(), QStringLiteral("efa"));
    }

    // Close All asks each changed document, a Cancel keeps only its own; Close
    // All But Active keeps the tab in front; a tab's close button asks too.
    void closing()
    {
        MainWindowTestAccess a;
        for (int i = 0; i < 3; ++i) {
            a.openFile(writeFile(dir.filePath(QStringLiteral("close%1.mrc").arg(i)), "x"), false);
            a.editors().last()->getEditor()->insertPlainText("y");
        }
        { // the driver goes before the builder's dialogs come up
            MdiChildEditor *second = a.editors().at(1);
            const auto discard = NestedLoopDriver::press(QMessageBox::Discard),
                       cancel = NestedLoopDriver::press(QMessageBox::Cancel);
            NestedLoopDriver driver({discard, cancel, discard, cancel, discard});
            a.entry("&File", "Clos&e All")->trigger();
            const QRegularExpression asked("^Save Changes\\?\\|.*close[012]\\.mrc");
            QCOMPARE(driver.seen.filter(asked).size(), 3);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(a.editors(), QVector<MdiChildEditor *>{second});
            QCOMPARE(readFile(dir.filePath("close0.mrc")), QByteArray("x"));
            QCOMPARE(a.tabs()->tabText(0), QStringLiteral("close1.mrc*"));
            for (int left : {1, 0}) {
                emit a.tabs()->tabCloseRequested(0);
                QCOMPARE(a.editors().size(), left);
            }
            QCOMPARE(driver.seen.size(), 5);
        }
        a.openFile(writeFile(dir.filePath("keep.mrc"), "k"), false);
        a.openFile(writeFile(dir.filePath("other.mrc"), "o"), false);
        a.tabs()->setCurrentIndex(0);
        a.entry("&File", "Close &All But Active")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(a.editors().size(), 1);
        QCOMPARE(a.editors().first()->file().fileName(), QStringLiteral("keep.mrc"));
        a.addBuilder();
        a.entry("&File", "Close &All But Active")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(a.editors().isEmpty() && a.tabs()->count() == 1
                && !a.builders().first()->isHidden());
        emit a.tabs()->tabCloseRequested(0);
        QVERIFY(a.tabs()->count() == 0 && a.builders().isEmpty() && !a.current());
    }

    // Save All writes each writable document, changed or not, in CR LF.
    void saveAll()
    {
        MainWindowTestAccess a;
        const QStringList files = {writeFile(dir.filePath("rw.mrc"), "alias a {\r\n}\r\n"),
                                   writeFile(dir.filePath("ro.mrc"), "alias b {\r\n}\r\n"),
                                   writeFile(dir.filePath("same.mrc"), "alias c {\n}")};
        for (const QString &file : files)
            a.openFile(file, file == files[1]);
        a.editors().at(0)->getEditor()->moveCursor(QTextCursor::End);
        a.editors().at(0)->getEditor()->insertPlainText("; added");
        QTextCursor(a.editors().at(1)->getEditor()->document()).insertText("; sneaked in\n");
        NestedLoopDriver driver;
        a.entry("&File", "Save A&ll")->trigger();
        QCOMPARE(driver.seen, QStringList());
        QCOMPARE(readFile(files[0]) + readFile(files[1]) + readFile(files[2]),
                 QByteArray("alias a {\r\n}\r\n; added"
                            "alias b {\r\n}\r\n"
                            "alias c {\r\n}"));
    }

private:
    QTemporaryDir dir;
};

TARNWICK_TEST(TestCommands);
#include "tst_commands.moc"
