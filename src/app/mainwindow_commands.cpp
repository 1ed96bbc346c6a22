// The document commands of the main window: Edit, close and save, and the
// bookkeeping of the open documents.

#include "mainwindow.h"

#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMetaObject>
#include <QMimeData>
#include <QProgressDialog>
#include <QTabWidget>
#include <QTextCursor>

MdiChildEditor *MainWindow::currentEditorDocument() const
{
    // The current tab may be a builder.
    return dynamic_cast<MdiChildEditor *>(curWindow);
}

void MainWindow::editorClosed(MdiChildEditor *win)
{
    for (int i = 0; i < edtWindows.size(); ++i) {
        if (edtWindows.at(i) == win)
            edtWindows.remove(i);
    }
}

void MainWindow::editMenuAboutToShow()
{
    const QList<QAction *> actions = {undo, redo, cut, copy, paste, deleteB, selectAll, findReplace};
    MdiChildEditor *doc = currentEditorDocument();
    if (!doc || doc->getEditor()->isReadOnly()) {
        // A read-only document offers not even Copy through the menu.
        for (QAction *action : actions)
            action->setEnabled(false);
        return;
    }
    MslTextEditor *editor = doc->getEditor();
    const bool selected = editor->textCursor().hasSelection();
    const QMimeData *clip = QApplication::clipboard()->mimeData();
    undo->setEnabled(editor->document()->availableUndoSteps() != 0);
    redo->setEnabled(editor->document()->availableRedoSteps() != 0);
    cut->setEnabled(selected);
    copy->setEnabled(selected);
    paste->setEnabled(clip && clip->hasText() && !clip->text().isEmpty());
    deleteB->setEnabled(true);
    selectAll->setEnabled(true);
    findReplace->setEnabled(true);
}

void MainWindow::tabCloseRequested(int index)
{
    QWidget *widget = mdiContainer->widget(index);
    if (auto *doc = dynamic_cast<MdiChildEditor *>(widget)) {
        if (!doc->close())
            return;
        for (int i = 0; i < edtWindows.size(); ++i) {
            if (edtWindows.at(i) == doc)
                edtWindows.remove(i);
        }
        mdiContainer->removeTab(index);
    } else if (auto *builder = dynamic_cast<MdiChildBuilder *>(widget)) {
        if (!builder->close())
            return;
        for (int i = 0; i < bldWindows.size(); ++i) {
            if (bldWindows.at(i) == builder)
                bldWindows.remove(i);
        }
        mdiContainer->removeTab(index);
    }
}

void MainWindow::editorTitleChange(MdiChildEditor *win, QString title)
{
    // A document without a tab yet gives -1, which setTabText ignores.
    mdiContainer->setTabText(mdiContainer->indexOf(win), title);
}

// The three update slots below are kept for a live Edit menu; nothing is
// connected to them, as the menu works its state out when it opens.
void MainWindow::editMenuUndoUpdate(bool available)
{
    undo->setEnabled(available);
}

void MainWindow::editMenuRedoUpdate(bool available)
{
    redo->setEnabled(available);
}

void MainWindow::editMenuSelectionUpdate()
{
    if (MdiChildEditor *doc = currentEditorDocument()) {
        MslTextEditor *editor = doc->getEditor();
        const bool selected = editor->textCursor().hasSelection();
        cut->setEnabled(selected);
        copy->setEnabled(selected);
        paste->setEnabled(true);
        deleteB->setEnabled(true);
        selectAll->setEnabled(editor->document()->blockCount() != 0);
        findReplace->setEnabled(true);
        return;
    }
    paste->setEnabled(true);
    for (QAction *action : {cut, copy, deleteB, selectAll, findReplace})
        action->setEnabled(false);
}

void MainWindow::undoClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->undo();
}

void MainWindow::redoClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->redo();
}

void MainWindow::cutClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->cut();
}

void MainWindow::copyClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->copy();
}

void MainWindow::pasteClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->paste();
}

void MainWindow::deleteClicked()
{
    MdiChildEditor *doc = currentEditorDocument();
    if (!doc)
        return;
    MslTextEditor *editor = doc->getEditor();
    QTextCursor cursor = editor->textCursor();
    if (cursor.selectionEnd() == cursor.selectionStart())
        cursor.deleteChar();
    else
        cursor.removeSelectedText();
    editor->setTextCursor(cursor);
}

void MainWindow::selectAllClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument()) {
        doc->getEditor()->selectAll();
        doc->getEditor()->setFocus(Qt::OtherFocusReason);
    }
}

void MainWindow::findReplaceClicked()
{
    // The find bar's opener is a slot of the document, reached through its
    // meta-object.
    if (MdiChildEditor *doc = currentEditorDocument())
        QMetaObject::invokeMethod(doc, "openSearchBox", Qt::DirectConnection);
}

void MainWindow::closeFile()
{
    // The tab goes with the deferred deletion of the document.
    if (curWindow)
        curWindow->close();
}

void MainWindow::closeAllFiles()
{
    // A Cancel stops only its own document; the others are still asked.
    const QVector<MdiChildEditor *> editors = edtWindows;
    for (MdiChildEditor *doc : editors)
        doc->close();
    const QVector<MdiChildBuilder *> builders = bldWindows;
    for (MdiChildBuilder *builder : builders)
        builder->close();
}

void MainWindow::closeAllButActive()
{
    const QVector<MdiChildEditor *> editors = edtWindows;
    for (MdiChildEditor *doc : editors) {
        if (doc != curWindow)
            doc->close();
    }
    const QVector<MdiChildBuilder *> builders = bldWindows;
    for (MdiChildBuilder *builder : builders) {
        if (builder != curWindow)
            builder->close();
    }
}

void MainWindow::saveAll()
{
    // Every writable document is written, changed or not; a failure or a
    // cancel does not stop the walk.
    const QVector<MdiChildEditor *> editors = edtWindows;
    for (MdiChildEditor *doc : editors) {
        if (doc->getEditor()->isReadOnly())
            continue;
        bool saved = false;
        QMetaObject::invokeMethod(doc, "saveFileClicked", Qt::DirectConnection,
                                  Q_RETURN_ARG(bool, saved));
    }
}

void MainWindow::openAllFiles(QString ddeIndex)
{
    // operator[] makes an empty entry for an unknown server.
    const QVector<QFileInfo> serverFiles = files[ddeIndex];
    QProgressDialog progress(tr("Opening files..."), tr("Abort"), 0, serverFiles.size(), this);
    progress.setWindowFlags(progress.windowFlags() & ~Qt::WindowContextHelpButtonHint);
    progress.setWindowModality(Qt::WindowModal);
    int nfile = 0;
    for (const QFileInfo &file : serverFiles) {
        progress.setValue(nfile);
        ++nfile;
        progress.show();
        openFile(file, false);
        progress.show();
        if (progress.wasCanceled())
            break;
    }
    progress.setValue(nfile);
}
