// A script document's loading, saving, closing, title and status texts,
// on real files in a temporary directory.

#include "documenttestsupport.h"

#include "analyserharness.h"
#include "msltextedit.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <csignal>
#include <sys/resource.h>

namespace {

QByteArray readBytes(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable>");
    return f.readAll();
}

bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

// As a user types a full path into the name line of the dialog.
void typeFileName(QFileDialog *dlg, const QString &name)
{
    QLineEdit *edit = dlg->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    QVERIFY(edit);
    edit->setText(name);
}

struct BoxSeen {
    QString title;
    QString text;
};

} // namespace

class TestDocumentSave : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void construction();
    void untitledDocument();
    void loadFile_data();
    void loadFile();
    void loadReadOnly();
    void saveBytes_data();
    void saveBytes();
    void loadThenSaveRoundTrip_data();
    void loadThenSaveRoundTrip();
    void saveTwiceWritesTwice();
    void saveUntitledAsksForName();
    void saveUntitledCancelled();
    void saveIntoMissingDirectory();
    void failedWriteKeepsOriginal();
    void readOnlyIgnoresCtrlS();
    void ctrlSSaves();
    void titleFollowsModification();
    void firstSaveRenamesOnlyChangedTab();
    void closeAnswers_data();
    void closeAnswers();
    void closeUnchangedAsksNothing();
    void closeRefusedWhenSaveFails();
    void destructorSignals();
    void blocksChanged();
    void statusSize_data();
    void statusSize();
    void statusSizeCountsPlainText_data();
    void statusSizeCountsPlainText();
    void statusCursor();
    void toolbar();
    void syntaxTimerIsInert();

private:
    MdiChildEditor *makeDocument();
    QString path(const QString &name) const { return dir.filePath(name); }

    QTemporaryDir dir;
    QPointer<MdiChildEditor> doc;
    UiDriver *driver = nullptr;
};

void TestDocumentSave::initTestCase()
{
    AnalyserHarness::ensureSettings();
    QVERIFY(dir.isValid());
}

void TestDocumentSave::init()
{
    driver = new UiDriver();
}

void TestDocumentSave::cleanup()
{
    const int pending = driver->pending();
    delete driver;
    driver = nullptr;
    delete doc;
    QCOMPARE(pending, 0); // every dialog a test expected did come up
}

MdiChildEditor *TestDocumentSave::makeDocument()
{
    doc = new MdiChildEditor(nullptr);
    return doc;
}

void TestDocumentSave::construction()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);

    QVERIFY(d->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(d->parentWidget() == nullptr);
    QCOMPARE(d->getEditor(), a.editor());
    QCOMPARE(d->centralWidget(), static_cast<QWidget *>(a.editor()));
    QCOMPARE(a.editor()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(a.editor()->wordWrapMode(), QTextOption::NoWrap);
    QVERIFY(d->getHighlighter() != nullptr);
    QCOMPARE(d->getHighlighter()->document(), a.editor()->document());
    QVERIFY(!a.didChange());
    QVERIFY(!a.editor()->document()->isModified());

    // The labels are filled from the first moment, in the document's own
    // status bar.
    QCOMPARE(a.curStatus()->text(), QStringLiteral("Ln 1, Col 1"));
    QCOMPARE(a.docStatus()->text(), QStringLiteral("  Size: 0 B"));
    QVERIFY(d->statusBar()->isAncestorOf(a.curStatus()));
    QVERIFY(d->statusBar()->isAncestorOf(a.docStatus()));

    // The find bar exists from the start, hidden.
    QVERIFY(a.searchBox() != nullptr);
    QVERIFY(a.searchBox()->isHidden());
}

void TestDocumentSave::untitledDocument()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    a.editor()->setPlainText(QStringLiteral("kept"));

    d->setFile(QFileInfo(QStringLiteral("Untitled3")), true, false);

    QCOMPARE(d->file(), QFileInfo(QStringLiteral("Untitled3")));
    QCOMPARE(d->windowTitle(), QStringLiteral("Untitled3"));
    QVERIFY(a.noFile());
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("kept"));
    QVERIFY(!a.editor()->document()->isModified());
    QVERIFY(!QFile::exists(QStringLiteral("Untitled3")));
}

void TestDocumentSave::loadFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("plain, CR LF") << "a.mrc" << QByteArray("alias x {\r\n  echo hi\r\n}")
                                  << "alias x {\n  echo hi\n}";
    QTest::newRow("plain, UTF-8") << "u.mrc" << QByteArray("; caf\xc3\xa9\r\n")
                                  << QString::fromUtf8("; caf\xc3\xa9\n");
    QTest::newRow("ini, keys dropped up to the first =")
        << "s.ini" << QByteArray("[script]\r\nn0=alias x\r\n\r\nplain\r\nn1=a=b\r\n")
        << "alias x\n\nplain\na=b\n";
    QTest::newRow("ini, capitals") << "S.INI" << QByteArray("[script]\nn0=x\n") << "x\n";
    QTest::newRow("ini, mixed case") << "m.Ini" << QByteArray("[script]\nn0=x\n") << "x\n";
    QTest::newRow("ini, named .ini") << ".ini" << QByteArray("[s]\nn0=y\n") << "y\n";
    QTest::newRow("not ini: .ini.bak") << "x.ini.bak" << QByteArray("[script]\nn0=x\n")
                                       << "[script]\nn0=x\n";
}

void TestDocumentSave::loadFile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);

    const QString file = path(name);
    QVERIFY(writeBytes(file, bytes));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);

    QCOMPARE(a.editor()->toPlainText(), text);
    QCOMPARE(d->file(), QFileInfo(file));
    QCOMPARE(d->windowTitle(), name);
    QVERIFY(!a.noFile());
    QVERIFY(!a.didChange());
    QVERIFY(!a.editor()->document()->isModified());
    QVERIFY(!a.editor()->isReadOnly());
    // Loading leaves the file alone.
    QCOMPARE(readBytes(file), bytes);
}

void TestDocumentSave::loadReadOnly()
{
    const QString file = path(QStringLiteral("ro.mrc"));
    QVERIFY(writeBytes(file, "echo x\r\n"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, true);
    QVERIFY(a.editor()->isReadOnly());
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("echo x\n"));
}

void TestDocumentSave::saveBytes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray ini("[script]\r\nn0=a\r\nn1=\r\nn2=b\r\n");
    QTest::newRow("ini, last line end") << "x.ini" << "a\n\nb\n" << ini;
    QTest::newRow("ini, no last line end") << "x2.ini" << "a\n\nb" << ini;
    QTest::newRow("ini, capitals") << "X.INI" << "a\n\nb" << ini;
    QTest::newRow("ini, empty document") << "e.ini" << "" << QByteArray("[script]\r\n");
    QTest::newRow("ini, one empty line") << "n.ini" << "\n" << QByteArray("[script]\r\nn0=\r\n");
    QTest::newRow("ini, UTF-8 no BOM") << "u.ini" << QString::fromUtf8("caf\xc3\xa9")
                                       << QByteArray("[script]\r\nn0=caf\xc3\xa9\r\n");
    QTest::newRow("ini, twelve lines numbered without gaps")
        << "t.ini" << "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11"
        << QByteArray("[script]\r\nn0=0\r\nn1=1\r\nn2=2\r\nn3=3\r\nn4=4\r\nn5=5\r\nn6=6\r\n"
                      "n7=7\r\nn8=8\r\nn9=9\r\nn10=10\r\nn11=11\r\n");
    QTest::newRow("plain, no last line end") << "x.mrc" << "a\n\nb" << QByteArray("a\r\n\r\nb");
    QTest::newRow("plain, last line end") << "y.mrc" << "a\n\nb\n"
                                          << QByteArray("a\r\n\r\nb\r\n");
    QTest::newRow("plain, empty document") << "e.mrc" << "" << QByteArray();
    QTest::newRow("plain, UTF-8 no BOM") << "u.mrc" << QString::fromUtf8("\xe2\x82\xac x")
                                         << QByteArray("\xe2\x82\xac x");
    QTest::newRow("plain, ini.bak is plain") << "k.ini.bak" << "a\nb" << QByteArray("a\r\nb");
}

void TestDocumentSave::saveBytes()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);

    const QString file = path(name);
    QVERIFY(writeBytes(file, "old content that is longer than any of the new ones"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    a.editor()->selectAll();
    a.editor()->textCursor().insertText(text);
    QCOMPARE(a.editor()->toPlainText(), text);
    QVERIFY(a.didChange());

    QVERIFY(a.save());
    QCOMPARE(readBytes(file), bytes);
    QVERIFY(!a.editor()->document()->isModified());
    QVERIFY(!a.didChange());
}

void TestDocumentSave::loadThenSaveRoundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("plain") << "r.mrc" << QByteArray("alias a {\r\n  echo $1\r\n}\r\n")
                           << QByteArray("alias a {\r\n  echo $1\r\n}\r\n");
    // Same entries, renumbered from 0.
    QTest::newRow("ini") << "r.ini" << QByteArray("[script]\r\nn3=alias a {\r\nn7=}\r\n")
                         << QByteArray("[script]\r\nn0=alias a {\r\nn1=}\r\n");
}

void TestDocumentSave::loadThenSaveRoundTrip()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);

    const QString file = path(name);
    QVERIFY(writeBytes(file, before));
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    QVERIFY(a.save());
    QCOMPARE(readBytes(file), after);
}

void TestDocumentSave::saveTwiceWritesTwice()
{
    const QString file = path(QStringLiteral("twice.mrc"));
    QVERIFY(writeBytes(file, "one"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    QSignalSpy titles(d, &MdiChildEditor::titleChanged);

    QVERIFY(a.save());
    // Unchanged, yet written: the file is replaced by the document's text.
    QVERIFY(writeBytes(file, "changed behind our back"));
    QVERIFY(a.save());
    QCOMPARE(readBytes(file), QByteArray("one"));
    QCOMPARE(titles.count(), 0);
}

void TestDocumentSave::saveUntitledAsksForName()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(QStringLiteral("Untitled1")), true, false);
    a.editor()->textCursor().insertText(QStringLiteral("echo 1\necho 2"));

    const QString target = path(QStringLiteral("chosen.ini"));
    QString caption;
    QString offered;
    QStringList filters;
    driver->onModal<QFileDialog>([&](QFileDialog *dlg) {
        caption = dlg->windowTitle();
        offered = QFileInfo(dlg->selectedFiles().value(0)).fileName();
        filters = dlg->nameFilters();
        typeFileName(dlg, target);
        QMetaObject::invokeMethod(dlg, "accept"); // as the Save button does
    });

    QSignalSpy titles(d, &MdiChildEditor::titleChanged);
    QVERIFY(a.save());

    QCOMPARE(caption, QStringLiteral("Save File"));
    QCOMPARE(offered, QStringLiteral("Untitled1"));
    QCOMPARE(filters, (QStringList{QStringLiteral("mIRC Scripts File (*.mRC)"),
                                   QStringLiteral("mIRC INI Script File (*.ini)")}));
    QCOMPARE(readBytes(target), QByteArray("[script]\r\nn0=echo 1\r\nn1=echo 2\r\n"));
    QCOMPARE(d->file(), QFileInfo(target));
    QVERIFY(!a.noFile());

    // The tab follows the new name through the modification change.
    QCOMPARE(titles.count(), 1);
    QCOMPARE(titles.at(0).at(1).toString(), QStringLiteral("chosen.ini"));

    // The next save goes to the same file without asking.
    a.editor()->appendPlainText(QStringLiteral("echo 3"));
    QVERIFY(a.save());
    QCOMPARE(readBytes(target),
             QByteArray("[script]\r\nn0=echo 1\r\nn1=echo 2\r\nn2=echo 3\r\n"));
}

void TestDocumentSave::saveUntitledCancelled()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(QStringLiteral("Untitled2")), true, false);
    a.editor()->textCursor().insertText(QStringLiteral("x"));

    driver->onModal<QFileDialog>([](QFileDialog *dlg) { dlg->reject(); });
    QVERIFY(!a.save());
    QVERIFY(a.noFile());
    QCOMPARE(d->file(), QFileInfo(QStringLiteral("Untitled2")));
    QVERIFY(a.didChange());
    QVERIFY(a.editor()->document()->isModified());
}

void TestDocumentSave::saveIntoMissingDirectory()
{
    const QString target = path(QStringLiteral("missing/sub/x.mrc"));
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(QStringLiteral("Untitled1")), true, false);
    a.editor()->textCursor().insertText(QStringLiteral("echo lost?"));

    BoxSeen seen;
    driver->onModal<QFileDialog>([&](QFileDialog *dlg) {
        typeFileName(dlg, target);
        QMetaObject::invokeMethod(dlg, "accept"); // as the Save button does
    });
    driver->onModal<QMessageBox>([&](QMessageBox *box) {
        seen = {box->windowTitle(), box->text()};
        QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        box->button(QMessageBox::Ok)->click();
    });

    QVERIFY(!a.save());
    QCOMPARE(seen.title, QStringLiteral("Error saving file"));
    QCOMPARE(seen.text, QStringLiteral("Error accessing file `%1'").arg(QFileInfo(target).absoluteFilePath()));
    QVERIFY(a.didChange());
    QVERIFY(a.editor()->document()->isModified());
    // The name stays, so the next save tries the same path without asking.
    QVERIFY(!a.noFile());
    QCOMPARE(d->file(), QFileInfo(target));
    QVERIFY(!QFile::exists(target));
}

void TestDocumentSave::failedWriteKeepsOriginal()
{
    const QString file = path(QStringLiteral("keep.mrc"));
    const QByteArray original("alias keep { echo the original text }\r\n");
    QVERIFY(writeBytes(file, original));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    a.editor()->textCursor().insertText(QString(4096, QLatin1Char('x')));

    BoxSeen seen;
    driver->onModal<QMessageBox>([&](QMessageBox *box) {
        seen = {box->windowTitle(), box->text()};
        box->button(QMessageBox::Ok)->click();
    });

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
    QCOMPARE(seen.title, QStringLiteral("Error saving file"));
    QCOMPARE(seen.text, QStringLiteral("Error accessing file `%1'").arg(file));
    QCOMPARE(readBytes(file), original);
    QVERIFY(a.didChange());
    QVERIFY(a.editor()->document()->isModified());
    // No temporary file is left behind.
    QCOMPARE(QDir(dir.path()).entryList(QStringList{QStringLiteral("keep*")}, QDir::Files),
             QStringList{QStringLiteral("keep.mrc")});
}

void TestDocumentSave::readOnlyIgnoresCtrlS()
{
    const QString file = path(QStringLiteral("readonly.mrc"));
    QVERIFY(writeBytes(file, "on disk"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, true);
    // A change that a read-only view can still get from code.
    a.editor()->document()->setPlainText(QStringLiteral("in memory"));
    d->show();
    QVERIFY(QTest::qWaitForWindowActive(d));

    QTest::keyClick(a.editor(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!a.save());
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(readBytes(file), QByteArray("on disk"));
}

void TestDocumentSave::ctrlSSaves()
{
    const QString file = path(QStringLiteral("keys.mrc"));
    QVERIFY(writeBytes(file, ""));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    d->show();
    QVERIFY(QTest::qWaitForWindowActive(d));
    a.editor()->setFocus();

    a.editor()->textCursor().insertText(QStringLiteral("ab\nc"));
    QVERIFY(a.didChange());
    QTest::keyClick(a.editor(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!a.didChange());
    QCOMPARE(readBytes(file), QByteArray("ab\r\nc"));
}

void TestDocumentSave::titleFollowsModification()
{
    const QString file = path(QStringLiteral("title.mrc"));
    QVERIFY(writeBytes(file, "x"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    QSignalSpy titles(d, &MdiChildEditor::titleChanged);

    QTextCursor c = a.editor()->textCursor();
    c.insertText(QStringLiteral("y"));
    QCOMPARE(titles.count(), 1);
    QCOMPARE(titles.at(0).at(0).value<MdiChildEditor *>(), d);
    QCOMPARE(titles.at(0).at(1).toString(), QStringLiteral("title.mrc*"));
    QVERIFY(a.didChange());

    // Further edits do not repeat it.
    c.insertText(QStringLiteral("z"));
    QCOMPARE(titles.count(), 1);

    QVERIFY(a.save());
    QCOMPARE(titles.count(), 2);
    QCOMPARE(titles.at(1).at(1).toString(), QStringLiteral("title.mrc"));
    QVERIFY(!a.didChange());

    // Undoing back to the saved text clears the mark as well.
    c.insertText(QStringLiteral("w"));
    QCOMPARE(titles.last().at(1).toString(), QStringLiteral("title.mrc*"));
    a.editor()->undo();
    QCOMPARE(titles.last().at(1).toString(), QStringLiteral("title.mrc"));
    QVERIFY(!a.didChange());
}

void TestDocumentSave::firstSaveRenamesOnlyChangedTab()
{
    // Saved without an edit, an Untitled document keeps its old tab text.
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(QStringLiteral("Untitled4")), true, false);
    QSignalSpy titles(d, &MdiChildEditor::titleChanged);

    const QString target = path(QStringLiteral("unedited.mrc"));
    driver->onModal<QFileDialog>([&](QFileDialog *dlg) {
        typeFileName(dlg, target);
        QMetaObject::invokeMethod(dlg, "accept"); // as the Save button does
    });
    QVERIFY(a.save());
    QVERIFY(QFile::exists(target));
    QCOMPARE(readBytes(target), QByteArray());
    QCOMPARE(titles.count(), 0);
    QCOMPARE(d->windowTitle(), QStringLiteral("Untitled4"));
}

void TestDocumentSave::closeAnswers_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QByteArray>("onDisk");

    QTest::newRow("save") << int(QMessageBox::Save) << true << QByteArray("old\r\nnew");
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << QByteArray("old");
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << QByteArray("old");
}

void TestDocumentSave::closeAnswers()
{
    QFETCH(int, answer);
    QFETCH(bool, closed);
    QFETCH(QByteArray, onDisk);

    const QString file = path(QStringLiteral("close.mrc"));
    QVERIFY(writeBytes(file, "old"));

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);
    d->show();
    a.editor()->appendPlainText(QStringLiteral("new"));

    BoxSeen seen;
    QMessageBox::StandardButtons buttons;
    driver->onModal<QMessageBox>([&](QMessageBox *box) {
        seen = {box->windowTitle(), box->text()};
        buttons = box->standardButtons();
        box->button(QMessageBox::StandardButton(answer))->click();
    });

    QSignalSpy gone(d, &MdiChildEditor::closing);
    QCOMPARE(d->close(), closed);
    QCOMPARE(seen.title, QStringLiteral("Save Changes?"));
    QCOMPARE(seen.text, QStringLiteral("Do you want to save changes you have made to close.mrc?"));
    QCOMPARE(buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(readBytes(file), onDisk);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(doc.isNull(), closed);
    QCOMPARE(gone.count(), closed ? 1 : 0);
    if (!closed) {
        QVERIFY(a.didChange());
        QCOMPARE(a.editor()->toPlainText(), QStringLiteral("old\nnew"));
    }
}

void TestDocumentSave::closeUnchangedAsksNothing()
{
    MdiChildEditor *d = makeDocument();
    d->setFile(QFileInfo(QStringLiteral("Untitled9")), true, false);
    d->show();
    QVERIFY(d->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(doc.isNull());
}

void TestDocumentSave::closeRefusedWhenSaveFails()
{
    // Loading a file in a missing folder gives an empty document under its
    // name; saving it there fails, so a close that wanted the save stays.
    const QString target = path(QStringLiteral("nowhere/x.mrc"));
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(target), false, false);
    QCOMPARE(a.editor()->toPlainText(), QString());
    d->show();
    a.editor()->appendPlainText(QStringLiteral("precious"));

    QString warning;
    driver->onModal<QMessageBox>([](QMessageBox *box) {
        box->button(QMessageBox::Save)->click();
    });
    driver->onModal<QMessageBox>([&](QMessageBox *box) {
        warning = box->windowTitle();
        box->button(QMessageBox::Ok)->click();
    });

    QVERIFY(!d->close());
    QCOMPARE(warning, QStringLiteral("Error saving file"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!doc.isNull());
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("precious"));
    QVERIFY(a.didChange());
}

void TestDocumentSave::destructorSignals()
{
    const QString file = path(QStringLiteral("gone.mrc"));
    QVERIFY(writeBytes(file, "x"));

    MdiChildEditor *d = makeDocument();
    d->setFile(QFileInfo(file), false, false);

    QStringList order;
    QFileInfo closedFile;
    MdiChildEditor *closedDoc = nullptr;
    connect(d, &MdiChildEditor::fclosing, this, [&](QFileInfo f) {
        order << QStringLiteral("fclosing");
        closedFile = f;
    });
    connect(d, &MdiChildEditor::closing, this, [&](MdiChildEditor *w) {
        order << QStringLiteral("closing");
        closedDoc = w;
    });
    delete d;

    QCOMPARE(order, (QStringList{QStringLiteral("fclosing"), QStringLiteral("closing")}));
    QCOMPARE(closedFile, QFileInfo(file));
    QCOMPARE(closedDoc, d);
}

void TestDocumentSave::blocksChanged()
{
    const QString file = path(QStringLiteral("blocks.mrc"));
    QVERIFY(writeBytes(file, "a"));
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(file), false, false);

    QSignalSpy spy(d, &MdiChildEditor::blocksChanged);
    a.editor()->moveCursor(QTextCursor::End);
    a.editor()->textCursor().insertText(QStringLiteral("b"));
    QCOMPARE(spy.count(), 0);
    a.editor()->textCursor().insertText(QStringLiteral("\nc"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QFileInfo>(), QFileInfo(file));
    QCOMPARE(spy.at(0).at(1).value<MdiChildEditor *>(), d);
}

void TestDocumentSave::statusSize_data()
{
    QTest::addColumn<int>("characters");
    QTest::addColumn<QString>("status");

    QTest::newRow("0") << 0 << "  Size: 0 B";
    QTest::newRow("1") << 1 << "  Size: 1 B";
    QTest::newRow("1023") << 1023 << "  Size: 1023 B";
    QTest::newRow("1024") << 1024 << "  Size: 1.00 KB";
    QTest::newRow("1536") << 1536 << "  Size: 1.50 KB";
    QTest::newRow("1048575") << 1048575 << "  Size: 1024.00 KB";
    QTest::newRow("1048576") << 1048576 << "  Size: 1.00 MB";
}

void TestDocumentSave::statusSize()
{
    QFETCH(int, characters);
    QFETCH(QString, status);

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    // Lines of 64 characters with their line feed; line feeds count too.
    QString text;
    text.reserve(characters);
    while (text.size() + 64 <= characters)
        text += QStringLiteral(";") + QString(62, QLatin1Char('a')) + QLatin1Char('\n');
    text += QString(characters - text.size(), QLatin1Char('b'));
    QCOMPARE(text.size(), characters);

    a.editor()->setPlainText(text);
    a.editor()->moveCursor(QTextCursor::End);
    a.editor()->moveCursor(QTextCursor::Start);
    QCOMPARE(a.docStatus()->text(), status);
}

void TestDocumentSave::statusSizeCountsPlainText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("line feeds") << QStringLiteral("a\n\nb\n");
    QTest::newRow("carriage returns") << QStringLiteral("a\r\nb\rc");
    QTest::newRow("line separator") << QStringLiteral("a\u2028b");
    QTest::newRow("paragraph separator") << QStringLiteral("a\u2029b");
    QTest::newRow("no-break space and tab") << QStringLiteral("\u00a0x\ty");
    QTest::newRow("frame marks") << QStringLiteral("a\ufdd0b\ufdd1c");
    QTest::newRow("surrogate pair") << QStringLiteral("on text:*:#: { echo \U0001F600 }");
}

// The size shown is that of the document's plain text, whatever the text
// holds and however it got there.
void TestDocumentSave::statusSizeCountsPlainText()
{
    QFETCH(QString, text);

    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    const auto shown = [&] {
        return QStringLiteral("  Size: %1 B").arg(a.editor()->document()->toPlainText().size());
    };

    a.editor()->setPlainText(text);
    a.editor()->moveCursor(QTextCursor::End);
    QCOMPARE(a.docStatus()->text(), shown());
    const qsizetype loaded = a.editor()->document()->toPlainText().size();

    QTest::keyClicks(a.editor(), QStringLiteral("xy"));
    QTest::keyClick(a.editor(), Qt::Key_Return);
    QCOMPARE(a.docStatus()->text(), shown());
    QVERIFY(a.editor()->document()->toPlainText().size() >= loaded + 3);

    a.editor()->moveCursor(QTextCursor::Start);
    QTest::keyClick(a.editor(), Qt::Key_Delete);
    a.editor()->moveCursor(QTextCursor::End);
    QCOMPARE(a.docStatus()->text(), shown());

    a.editor()->document()->undo();
    a.editor()->moveCursor(QTextCursor::End);
    QCOMPARE(a.docStatus()->text(), shown());
}

void TestDocumentSave::statusCursor()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    a.editor()->setPlainText(QStringLiteral("first\n\tx\u00e9z\nlast"));

    QTextCursor c = a.editor()->textCursor();
    c.setPosition(9); // behind the tab, the x and the accented letter
    a.editor()->setTextCursor(c);
    QCOMPARE(a.curStatus()->text(), QStringLiteral("Ln 2, Col 4"));

    a.editor()->moveCursor(QTextCursor::End);
    QCOMPARE(a.curStatus()->text(), QStringLiteral("Ln 3, Col 5"));
    QCOMPARE(a.docStatus()->text(), QStringLiteral("  Size: 15 B"));
}

void TestDocumentSave::toolbar()
{
    MdiChildEditor *d = makeDocument();
    const QList<QToolBar *> bars = d->findChildren<QToolBar *>();
    QCOMPARE(bars.size(), 1);
    QToolBar *bar = bars.first();
    QCOMPARE(bar->windowTitle(), QStringLiteral("Editor Menubar"));
    QCOMPARE(bar->iconSize(), QSize(16, 16));
    QCOMPARE(d->toolBarArea(bar), Qt::TopToolBarArea);

    const QList<QAction *> actions = bar->actions();
    QCOMPARE(actions.size(), 2);
    QCOMPARE(actions.at(0)->text(), QStringLiteral("Save"));
    QCOMPARE(actions.at(0)->shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
    QCOMPARE(actions.at(1)->text(), QStringLiteral("Pastebin"));
    QVERIFY(actions.at(1)->shortcut().isEmpty());
    QVERIFY(actions.at(1)->isEnabled());

    // Pastebin is clickable and does nothing: no dialog, no change.
    MdiChildEditorTestAccess a(d);
    d->setFile(QFileInfo(QStringLiteral("Untitled5")), true, false);
    a.editor()->textCursor().insertText(QStringLiteral("text"));
    actions.at(1)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(a.didChange());
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("text"));
}

void TestDocumentSave::syntaxTimerIsInert()
{
    MdiChildEditor *d = makeDocument();
    MdiChildEditorTestAccess a(d);
    QCOMPARE(a.syntaxTimer(), 0);
    a.editor()->setPlainText(QStringLiteral("alias x {\n}"));
    a.editor()->textCursor().insertText(QStringLiteral("y"));
    // No edit arms it.
    QCOMPARE(a.syntaxTimer(), 0);

    a.resetSyntaxTimer();
    const int first = a.syntaxTimer();
    QVERIFY(first > 0);
    a.resetSyntaxTimer();
    QVERIFY(a.syntaxTimer() > 0);
    // Its firing changes nothing in the text or its state.
    QTest::qWait(600);
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("yalias x {\n}"));
}

QTEST_MAIN(TestDocumentSave)
#include "tst_document_save.moc"
