// A script document's loading, saving, closing, title and status texts,
// on real files in a temporary directory.

#include "editorsupport.h"
#include "testsuite.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray readBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<unreadable>");
}

bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

} // namespace

class DocumentSaveTest : public QObject
{
    Q_OBJECT

    // A document on the file `name` of the temporary folder, written with
    // `bytes` first unless they are null; an Untitled name has no file.
    DocumentParts open(const QString &name, const QByteArray &bytes = QByteArray())
    {
        doc = new MdiChildEditor(nullptr);
        if (!bytes.isNull())
            writeBytes(path(name), bytes);
        const bool untitled = name.startsWith(QLatin1String("Untitled"));
        doc->setFile(QFileInfo(untitled ? name : path(name)), untitled, false);
        return DocumentParts(doc);
    }
    // Answers the next file dialog with `target`, or cancels it.
    void answerFileDialog(const QString &target)
    {
        driver->on<QFileDialog>([target](QFileDialog *dlg) {
            QCOMPARE(dlg->windowTitle(), QStringLiteral("Save File"));
            if (target.isEmpty())
                return dlg->reject();
            dlg->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(target);
            QMetaObject::invokeMethod(dlg, "accept"); // as the Save button does
        });
    }
    // Clicks `button` on the next message box and keeps its title and text.
    void answerBox(QMessageBox::StandardButton button, QString *text = nullptr)
    {
        driver->on<QMessageBox>([button, text](QMessageBox *box) {
            if (text)
                *text = box->windowTitle() + QLatin1Char('|') + box->text();
            box->button(button)->click();
        });
    }
    QString path(const QString &name) const { return dir.filePath(name); }
    QString failure(const QString &name) const
    {
        return "Error saving file|Error accessing file `" + QFileInfo(path(name)).absoluteFilePath()
            + "'";
    }

    QTemporaryDir dir;
    QPointer<MdiChildEditor> doc;
    UiDriver *driver = nullptr;

private slots:
    void initTestCase() { AnalyserHarness::ensureSettings(); }
    void init() { driver = new UiDriver(); }
    void cleanup()
    {
        const int pending = driver->pending();
        delete driver;
        delete doc;
        QCOMPARE(pending, 0); // every dialog a test expected did come up
    }

    void loadAndSave_data() { addCases({QStringLiteral("save.txt")}); }

    // The cases of data/save.txt.
    void loadAndSave()
    {
        QFETCH(QStringList, lines);
        const QMap<QString, QString> c = keyedLines(lines);
        const QString name = c.value(QStringLiteral("name"));
        const QByteArray disk = c.value(QStringLiteral("disk")).toUtf8();
        writeBytes(path(name), disk);
        DocumentParts a = open(name);
        QCOMPARE(a.editor()->toPlainText(), c.value(QStringLiteral("loaded")));
        QCOMPARE(doc->windowTitle(), name);
        QVERIFY(!a.didChange());
        QCOMPARE(readBytes(path(name)), disk); // loading leaves the file alone
        if (c.contains(QStringLiteral("typed"))) {
            a.editor()->selectAll();
            a.editor()->textCursor().insertText(c.value(QStringLiteral("typed")));
        }
        QVERIFY(a.save());
        QCOMPARE(readBytes(path(name)), c.value(QStringLiteral("saved")).toUtf8());
        QVERIFY(!a.didChange());

        // An unchanged document is written all the same.
        writeBytes(path(name), "changed behind the editor's back");
        QVERIFY(a.save());
        QCOMPARE(readBytes(path(name)), c.value(QStringLiteral("saved")).toUtf8());
    }

    void untitledAsksForName()
    {
        DocumentParts a = open(QStringLiteral("Untitled1"));
        a.editor()->textCursor().insertText(QStringLiteral("echo 1\necho 2"));
        QSignalSpy titles(doc.data(), &MdiChildEditor::titleChanged);
        const QString chosen = path(QStringLiteral("chosen.ini"));
        answerFileDialog(chosen);
        QVERIFY(a.save());
        QCOMPARE(readBytes(chosen), QByteArray("[script]\r\nn0=echo 1\r\nn1=echo 2\r\n"));
        QCOMPARE(doc->file(), QFileInfo(chosen));
        QCOMPARE(titles.count(), 1);
        QCOMPARE(titles.at(0).at(1).toString(), QStringLiteral("chosen.ini"));
        // The next save goes to the same file without asking.
        a.editor()->appendPlainText(QStringLiteral("echo 3"));
        QVERIFY(a.save());
        QCOMPARE(readBytes(chosen),
                 QByteArray("[script]\r\nn0=echo 1\r\nn1=echo 2\r\nn2=echo 3\r\n"));
    }

    // A cancelled dialog and a folder that is not there: the text stays,
    // marked as changed, and a close that wanted the save is refused.
    void failedSavesLoseNothing()
    {
        DocumentParts a = open(QStringLiteral("Untitled2"));
        doc->show();
        a.editor()->textCursor().insertText(QStringLiteral("precious"));
        answerFileDialog(QString());
        QVERIFY(!a.save());
        QVERIFY(a.noFile());

        const QString target = QStringLiteral("missing/sub/x.mrc");
        QString warning;
        answerFileDialog(path(target));
        answerBox(QMessageBox::Ok, &warning);
        QVERIFY(!a.save());
        QCOMPARE(warning, failure(target));
        QVERIFY(!QFile::exists(path(target)));
        // The name stays, so the next save tries the same path without asking.
        QCOMPARE(doc->file(), QFileInfo(path(target)));

        QString question;
        answerBox(QMessageBox::Save, &question);
        answerBox(QMessageBox::Ok, &warning);
        QVERIFY(!doc->close());
        QCOMPARE(
            question,
            QStringLiteral("Save Changes?|Do you want to save changes you have made to x.mrc?"));
        QCOMPARE(warning, failure(target));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!doc.isNull());
        QCOMPARE(a.editor()->toPlainText(), QStringLiteral("precious"));
        QVERIFY(a.didChange());
    }

    void failedWriteKeepsOriginal()
    {
        const QByteArray original("alias keep { echo the original text }\r\n");
        DocumentParts a = open(QStringLiteral("keep.mrc"), original);
        a.editor()->textCursor().insertText(QString(4096, QLatin1Char('x')));
        QString warning;
        answerBox(QMessageBox::Ok, &warning);

        // A file size limit makes the write fail half way, whoever runs this.
        struct rlimit old;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
        void (*oldHandler)(int) = std::signal(SIGXFSZ, SIG_IGN);
        struct rlimit tight = old;
        tight.rlim_cur = 64;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const bool saved = a.save();
        setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, oldHandler);

        QVERIFY(!saved);
        QCOMPARE(warning, failure(QStringLiteral("keep.mrc")));
        QCOMPARE(readBytes(path(QStringLiteral("keep.mrc"))), original);
        QVERIFY(a.didChange());
        // No temporary file is left behind.
        QCOMPARE(QDir(dir.path()).entryList({QStringLiteral("keep*")}, QDir::Files),
                 QStringList{"keep.mrc"});
    }

    // The folder takes no new files, so there is no room for a temporary
    // file beside the script; the script itself is writable and is saved.
    void writableFileInReadOnlyFolder()
    {
        QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("locked")));
        DocumentParts a = open(QStringLiteral("locked/x.mrc"), "old");
        a.editor()->setPlainText(QStringLiteral("new\ntext"));
        const auto mode = [this](const char *name, mode_t m) {
            return chmod(QFile::encodeName(path(QString::fromLatin1(name))).constData(), m) == 0;
        };
        QVERIFY(mode("", 0755) && mode("locked/x.mrc", 0666) && mode("locked", 0555));
        // Permissions do not stop root: the save then runs as nobody.
        const bool root = geteuid() == 0;
        if (root && seteuid(65534) != 0)
            QSKIP("running as root, and unable to act as an ordinary user");
        QString warning;
        answerBox(QMessageBox::Ok, &warning);
        const bool saved = a.save();
        QVERIFY(!root || seteuid(0) == 0);
        mode("locked", 0755);
        QVERIFY2(saved, qPrintable(warning));
        QCOMPARE(readBytes(path(QStringLiteral("locked/x.mrc"))), QByteArray("new\r\ntext"));
        QVERIFY(!a.didChange());
        delete driver; // with the warning that did not come
        driver = new UiDriver();
    }

    // Typing marks the tab's title once; Ctrl+S saves and clears the mark,
    // as does undoing back to the saved text; read-only ignores Ctrl+S.
    void saveKeysAndTitle()
    {
        DocumentParts a = open(QStringLiteral("title.mrc"), "x");
        QSignalSpy titles(doc.data(), &MdiChildEditor::titleChanged);
        const auto last = [&] {
            return titles.isEmpty() ? QString() : titles.last().at(1).toString();
        };
        doc->show();
        QVERIFY(QTest::qWaitForWindowActive(doc));
        a.editor()->setFocus();
        QTest::keyClicks(a.editor(), QStringLiteral("ab"));
        QCOMPARE(titles.count(), 1);
        QCOMPARE(titles.at(0).at(0).value<MdiChildEditor *>(), doc.data());
        QCOMPARE(last(), QStringLiteral("title.mrc*"));
        QTest::keyClick(a.editor(), Qt::Key_Return);
        QTest::keyClick(a.editor(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(readBytes(path(QStringLiteral("title.mrc"))), QByteArray("ab\r\nx"));
        QCOMPARE(last(), QStringLiteral("title.mrc"));
        QVERIFY(a.save());
        QCOMPARE(titles.count(), 2);
        QTest::keyClicks(a.editor(), QStringLiteral("w"));
        QCOMPARE(last(), QStringLiteral("title.mrc*"));
        a.editor()->undo();
        QCOMPARE(last(), QStringLiteral("title.mrc"));
        QVERIFY(!a.didChange());

        doc->setFile(QFileInfo(path(QStringLiteral("title.mrc"))), false, true);
        a.editor()->document()->setPlainText(QStringLiteral("in memory"));
        QTest::keyClick(a.editor(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!a.save());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        QCOMPARE(readBytes(path(QStringLiteral("title.mrc"))), QByteArray("ab\r\nx"));
    }

    void close_data()
    {
        QTest::addColumn<int>("answer"); // 0: unchanged, nothing asked
        QTest::newRow("unchanged") << 0;
        QTest::newRow("save") << int(QMessageBox::Save);
        QTest::newRow("discard") << int(QMessageBox::Discard);
        QTest::newRow("cancel") << int(QMessageBox::Cancel);
    }

    void close()
    {
        QFETCH(int, answer);
        DocumentParts a = open(QStringLiteral("close.mrc"), "old");
        doc->show();
        if (answer) {
            a.editor()->appendPlainText(QStringLiteral("new"));
            driver->on<QMessageBox>([answer](QMessageBox *box) {
                QCOMPARE(box->standardButtons(),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
                box->button(QMessageBox::StandardButton(answer))->click();
            });
        }
        QStringList signalled;
        QObject listener; // gone with this function, before the document
        connect(doc, &MdiChildEditor::fclosing, &listener,
                [&](QFileInfo f) { signalled << f.fileName(); });
        connect(doc, &MdiChildEditor::closing, &listener,
                [&](MdiChildEditor *) { signalled << "closing"; });
        const bool closed = answer != QMessageBox::Cancel;
        QCOMPARE(doc->close(), closed);
        QCOMPARE(readBytes(path(QStringLiteral("close.mrc"))),
                 QByteArray(answer == QMessageBox::Save ? "old\r\nnew" : "old"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(doc.isNull(), closed);
        QCOMPARE(signalled, (closed ? QStringList{"close.mrc", "closing"} : QStringList()));
        if (!closed)
            QCOMPARE(a.editor()->toPlainText(), QStringLiteral("old\nnew"));
    }

    void statusTexts()
    {
        DocumentParts a = open(QStringLiteral("Untitled3"));
        QCOMPARE(a.cursorStatus() + a.sizeStatus(), QStringLiteral("Ln 1, Col 1  Size: 0 B"));
        // Characters are counted, line ends among them; a tab is one column.
        a.editor()->setPlainText(QStringLiteral("first\n\tx\u00e9z\nlast"));
        QTextCursor c = a.editor()->textCursor();
        c.setPosition(9);
        a.editor()->setTextCursor(c);
        QCOMPARE(a.cursorStatus(), QStringLiteral("Ln 2, Col 4"));
        a.editor()->moveCursor(QTextCursor::End);
        QCOMPARE(a.cursorStatus() + a.sizeStatus(), QStringLiteral("Ln 3, Col 5  Size: 15 B"));
        const QList<QPair<int, QString>> sizes{{1023, "1023 B"},
                                               {1024, "1.00 KB"},
                                               {1536, "1.50 KB"},
                                               {1048575, "1024.00 KB"},
                                               {1048576, "1.00 MB"}};
        for (const auto &[characters, shown] : sizes) {
            a.editor()->setPlainText(QString(characters - 1, QLatin1Char('a')) + QLatin1Char('\n'));
            a.editor()->moveCursor(QTextCursor::End);
            QCOMPARE(a.sizeStatus(), QStringLiteral("  Size: ") + shown);
        }
        // Whatever the text holds, the count is that of its plain text.
        a.editor()->setPlainText(QStringLiteral("a\r\nb\u2028c\u2029\ufdd0x\U0001F600"));
        a.editor()->moveCursor(QTextCursor::End);
        QCOMPARE(a.sizeStatus(),
                 QStringLiteral("  Size: %1 B").arg(a.editor()->toPlainText().size()));
    }
};

TARNWICK_TEST(DocumentSaveTest);
#include "tst_document_save.moc"
