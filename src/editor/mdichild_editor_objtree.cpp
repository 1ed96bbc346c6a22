#include "mdichild_editor.h"

void MdiChildEditor::buildSideTree() {}
void MdiChildEditor::updateObjTree() {}
void MdiChildEditor::compClicked(QModelIndex) {}
