#include "mdichild_editor.h"

#include "msltexteditor.h"
#include "msltextedit.h"
#include "scriptfile.h"
#include "singlepassload.h"

#include <QLabel>
#include <QStatusBar>
#include <QTextBlock>
#include <QTimerEvent>

// The parent is not used: the tab container adopts the document in addTab.
MdiChildEditor::MdiChildEditor(QWidget *)
    : QMainWindow(nullptr)
{
    setAttribute(Qt::WA_DeleteOnClose);
    builToolBars();

    editor = new MslTextEditor();
    editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    syntaxHighlighter = new MslSyntaxHighlighter(editor->document());
    setCentralWidget(editor);

    QStatusBar *status = new QStatusBar();
    curStatus = new QLabel();
    curStatus->setObjectName(QStringLiteral("cursorStatus"));
    docStatus = new QLabel();
    docStatus->setObjectName(QStringLiteral("sizeStatus"));
    status->addWidget(curStatus, 0);
    status->addWidget(docStatus, 0);
    setStatusBar(status);

    connect(editor, &QPlainTextEdit::cursorPositionChanged, this,
            &MdiChildEditor::updateCursorStatus);
    editor->document()->setModified(false);
    didChange = false;
    connect(editor, &QPlainTextEdit::modificationChanged, this,
            &MdiChildEditor::documentedModified);
    updateCursorStatus();
    editor->setWordWrapMode(QTextOption::NoWrap);
    connect(editor, &QPlainTextEdit::blockCountChanged, this, &MdiChildEditor::blocksChange);

    buildSearchDock();
}

MdiChildEditor::~MdiChildEditor()
{
    // The report dock drops this file's rows, the main window its entry.
    emit fclosing(fName);
    emit closing(this);
}

MslSyntaxHighlighter *MdiChildEditor::getHighlighter()
{
    return syntaxHighlighter;
}

MslTextEditor *MdiChildEditor::getEditor()
{
    return editor;
}

bool MdiChildEditor::hasUnsavedChanges() const
{
    return didChange;
}

bool MdiChildEditor::isUntitled() const
{
    return noFile;
}

QFileInfo MdiChildEditor::file()
{
    return fName;
}

void MdiChildEditor::setFile(QFileInfo fileName, bool nofile, bool isReadOnly)
{
    fName = fileName;
    setWindowTitle(fileName.fileName());
    noFile = nofile;

    if (nofile) {
        editor->document()->setModified(false);
        syntaxHighlighter->setFn(fileName.absoluteFilePath());
        return;
    }

    // The text goes in before the highlighter learns the path; the caller
    // rehighlights afterwards so that the reports carry the full name. The
    // pass the load itself would make is skipped; the caller settles the
    // ids after its rehighlight as though it had run.
    {
        const UnanalysedLoad load(syntaxHighlighter);
        editor->setPlainText(loadScriptText(fileName));
    }
    syntaxHighlighter->setFn(fileName.absoluteFilePath());
    editor->document()->setModified(false);
    // Loading an empty text, Qt reports a modification and then clears the
    // document's flag without a word; without this an untouched empty file
    // would carry the changed mark and be asked about on closing.
    if (didChange)
        documentedModified(false);
    editor->setReadOnly(isReadOnly);
}

QString MdiChildEditor::loadScriptText(const QFileInfo &fileName)
{
    return ::loadScriptText(fileName);
}

bool MdiChildEditor::isIniName(const QString &fileName)
{
    return isIniScriptName(fileName);
}

// Armed by nothing: analysis runs through the highlighter on each edit.
void MdiChildEditor::resetSyntaxTimer()
{
    if (syntaxTimer)
        killTimer(syntaxTimer);
    syntaxTimer = startTimer(500);
}

void MdiChildEditor::timerEvent(QTimerEvent *)
{
    QTextDocument *doc = editor->document();
    for (QTextBlock block = doc->begin(); block != doc->end(); block = block.next()) {
    }
}

void MdiChildEditor::blocksChange(int)
{
    emit blocksChanged(fName, this);
}
