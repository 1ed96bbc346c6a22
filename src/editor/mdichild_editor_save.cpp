#include "mdichild_editor.h"

#include "msltexteditor.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QSaveFile>
#include <QSize>
#include <QTextStream>
#include <QToolBar>

void MdiChildEditor::builToolBars()
{
    QToolBar *bar = new QToolBar(tr("Editor Menubar"), this);

    QAction *save = bar->addAction(
        QIcon(QStringLiteral(":/general/toolbar/resources/img_assets/options/main/save.png")),
        tr("Save"));
    save->setShortcut(QKeySequence(tr("Ctrl+S")));
    connect(save, &QAction::triggered, this, &MdiChildEditor::saveFileClicked);

    // Present and clickable; there is no sharing service behind it.
    bar->addAction(
        QIcon(QStringLiteral(":/general/toolbar/resources/img_assets/options/main/share.png")),
        tr("Pastebin"));

    bar->setIconSize(QSize(16, 16));
    addToolBar(bar);
}

static void warnSaveFailed(QWidget *parent, const QString &path)
{
    QMessageBox::warning(parent, MdiChildEditor::tr("Error saving file"),
                         MdiChildEditor::tr("Error accessing file `%1'").arg(path),
                         QMessageBox::Ok);
}

bool MdiChildEditor::saveFileClicked()
{
    if (editor->isReadOnly())
        return false;

    if (noFile) {
        const QString answer = QFileDialog::getSaveFileName(
            this, tr("Save File"), fName.fileName(),
            tr("mIRC Scripts File (*.mRC);;mIRC INI Script File (*.ini)"));
        if (answer.isEmpty())
            return false;
        fName.setFile(answer);
        noFile = false;
    }

    // Written to a temporary file and renamed over the old one on commit,
    // so a failed write leaves the file on disk as it was. A writable file
    // in a folder the user may not write to has no room for the temporary
    // file; it is then written in place, as a plain write would.
    QSaveFile file(fName.absoluteFilePath());
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        warnSaveFailed(this, fName.absoluteFilePath());
        return false;
    }

    if (isIniName(fName.fileName())) {
        QTextStream out(&file);
        out.setEncoding(QStringConverter::Utf8);
        QString text = editor->document()->toPlainText();
        QTextStream in(&text, QIODevice::ReadOnly);
        out << "[script]\r\n";
        for (int i = 0; !in.atEnd(); ++i)
            out << "n" << i << "=" << in.readLine() << "\r\n";
        out.flush();
    } else {
        QByteArray bytes = editor->document()->toPlainText().toUtf8();
        bytes.replace("\n", "\r\n");
        if (file.write(bytes) != bytes.size())
            file.cancelWriting();
    }

    // A short write of the buffered tail only shows when flushing here;
    // the commit alone would rename a truncated file over the old one.
    if (!file.flush())
        file.cancelWriting();
    if (!file.commit()) {
        warnSaveFailed(this, fName.absoluteFilePath());
        return false;
    }

    editor->document()->setModified(false);
    return true;
}

void MdiChildEditor::closeEvent(QCloseEvent *event)
{
    if (!didChange) {
        event->accept();
        return;
    }

    const int answer = QMessageBox::warning(
        this, tr("Save Changes?"),
        tr("Do you want to save changes you have made to %1?").arg(fName.fileName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);

    if (answer == QMessageBox::Cancel) {
        event->ignore();
    } else if (answer == QMessageBox::Save) {
        if (saveFileClicked())
            event->accept();
        else
            event->ignore();
    } else {
        event->accept();
    }
}

void MdiChildEditor::documentedModified(bool changed)
{
    didChange = changed;
    if (changed)
        emit titleChanged(this, fName.fileName() + QLatin1Char('*'));
    else
        emit titleChanged(this, fName.fileName());
}

void MdiChildEditor::updateCursorStatus()
{
    curStatus->clear();
    const QTextCursor cursor = editor->textCursor();
    curStatus->setText(QStringLiteral("Ln %1, Col %2")
                           .arg(cursor.blockNumber() + 1)
                           .arg(cursor.positionInBlock() + 1));

    // Characters, not bytes on disk, although the unit reads B. The plain
    // text is the document's characters without its final block end, so
    // it is counted without copying a large script on every cursor move.
    double size = editor->document()->characterCount() - 1;
    QString text;
    if (size < 1024) {
        text = QString::number(size, 'g', 6) + QStringLiteral(" B");
    } else if (size < 1048576) {
        size *= 1.0 / 1024;
        text = QString::number(size, 'f', 2) + QStringLiteral(" KB");
    } else {
        size *= 1.0 / 1048576;
        text = QString::number(size, 'f', 2) + QStringLiteral(" MB");
    }
    docStatus->setText(QStringLiteral("  Size: ") + text);
}
