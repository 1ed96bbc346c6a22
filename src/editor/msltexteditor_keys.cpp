#include "msltexteditor.h"

#include <QCompleter>
#include <QKeyEvent>

void MslTextEditor::keyPressEvent(QKeyEvent *event)
{
    QPlainTextEdit::keyPressEvent(event);
}

void MslTextEditor::insertComCompletion(const QString &) {}
void MslTextEditor::insertIdentPropCompletion(const QString &) {}
void MslTextEditor::insertIdentCompletion(const QString &) {}
void MslTextEditor::insertColorCompletion(const QString &) {}
QString MslTextEditor::textUnderCursor() const { return QString(); }
int MslTextEditor::textCurPos() const { return 0; }
int MslTextEditor::prevLineSpaceCount() { return 0; }
