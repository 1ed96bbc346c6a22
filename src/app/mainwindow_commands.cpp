// The document commands of the main window: Edit, close and save, and the
// bookkeeping of the open documents.

#include "mainwindow.h"

#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"

#include <QTabWidget>

MdiChildEditor *MainWindow::currentEditorDocument() const
{
    return dynamic_cast<MdiChildEditor *>(curWindow);
}

void MainWindow::editorClosed(MdiChildEditor *win)
{
    for (int i = 0; i < edtWindows.size(); ++i) {
        if (edtWindows.at(i) == win)
            edtWindows.remove(i);
    }
}

// Filled in with the Edit menu.
void MainWindow::editMenuAboutToShow()
{
}

void MainWindow::tabCloseRequested(int index)
{
    QWidget *widget = mdiContainer->widget(index);
    if (auto *doc = dynamic_cast<MdiChildEditor *>(widget)) {
        if (!doc->close())
            return;
        edtWindows.removeAll(doc);
        mdiContainer->removeTab(index);
    } else if (auto *builder = dynamic_cast<MdiChildBuilder *>(widget)) {
        if (!builder->close())
            return;
        bldWindows.removeAll(builder);
        mdiContainer->removeTab(index);
    }
}

void MainWindow::editorTitleChange(MdiChildEditor *win, QString title)
{
    mdiContainer->setTabText(mdiContainer->indexOf(win), title);
}

// Filled in with the Edit menu.
void MainWindow::editMenuUndoUpdate(bool available)
{
    Q_UNUSED(available);
}

// Filled in with the Edit menu.
void MainWindow::editMenuRedoUpdate(bool available)
{
    Q_UNUSED(available);
}

// Filled in with the Edit menu.
void MainWindow::editMenuSelectionUpdate()
{
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

// Filled in with the Edit menu.
void MainWindow::deleteClicked()
{
}

void MainWindow::selectAllClicked()
{
    if (MdiChildEditor *doc = currentEditorDocument())
        doc->getEditor()->selectAll();
}

// Filled in with the Edit menu.
void MainWindow::findReplaceClicked()
{
}

void MainWindow::closeFile()
{
    if (curWindow)
        curWindow->close();
}

// Filled in with the File menu.
void MainWindow::closeAllFiles()
{
}

// Filled in with the File menu.
void MainWindow::closeAllButActive()
{
}

// Filled in with the File menu.
void MainWindow::saveAll()
{
}

// Filled in with the sync dock.
void MainWindow::openAllFiles(QString ddeIndex)
{
    Q_UNUSED(ddeIndex);
}
