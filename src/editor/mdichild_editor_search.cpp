#include "mdichild_editor.h"

void MdiChildEditor::buildSearchDock() {}
void MdiChildEditor::searchSelectionClicked(QPoint) {}
void MdiChildEditor::closeSearchBox() {}
void MdiChildEditor::openSearchBox() {}
void MdiChildEditor::search_prev() {}
void MdiChildEditor::search_next() {}
void MdiChildEditor::search_enter() {}
void MdiChildEditor::search_change() {}
void MdiChildEditor::search_replace() {}
void MdiChildEditor::search_replaceAll() {}
QTextCursor MdiChildEditor::findNextIdent(const QString &, const QTextCursor &,
                                          QTextDocument::FindFlags)
{
    return QTextCursor();
}
