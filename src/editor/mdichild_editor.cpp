#include "mdichild_editor.h"

#include "msltexteditor.h"
#include "msltextedit.h"

#include <QFile>
#include <QLabel>
#include <QStatusBar>
#include <QTextBlock>
#include <QTextStream>
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
    docStatus = new QLabel();
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
    // rehighlights afterwards so that the reports carry the full name.
    editor->setPlainText(loadScriptText(fileName));
    syntaxHighlighter->setFn(fileName.absoluteFilePath());
    editor->document()->setModified(false);
    editor->setReadOnly(isReadOnly);
}

QString MdiChildEditor::loadScriptText(const QFileInfo &fileName)
{
    QFile file(fileName.absoluteFilePath());
    file.open(QIODevice::ReadWrite);
    QTextStream stream(&file);
    stream.setEncoding(QStringConverter::Utf8);

    if (!isIniName(fileName.fileName()))
        return stream.readAll();

    QString doc;
    while (!stream.atEnd()) {
        QString line = stream.readLine();
        if (!line.isEmpty() && line.at(0) == QLatin1Char('['))
            continue;
        const int eq = line.indexOf(QLatin1Char('='));
        if (eq >= 0)
            line.remove(0, eq + 1);
        doc += line;
        doc += QLatin1Char('\n');
    }
    return doc;
}

bool MdiChildEditor::isIniName(const QString &fileName)
{
    return fileName.size() >= 4 && fileName.right(4).toLower() == QLatin1String(".ini");
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
