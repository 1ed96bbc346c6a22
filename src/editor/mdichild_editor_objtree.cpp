#include "mdichild_editor.h"

#include "msltextedit.h"
#include "msltexteditor.h"

#include <QDockWidget>
#include <QList>
#include <QStringList>
#include <QTextBlock>
#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <QVariant>

// The panel is not made: nothing shows the tree yet.
void MdiChildEditor::buildSideTree() {}

void MdiChildEditor::updateObjTree()
{
    // A hidden panel costs nothing.
    if (!compBox || !compBox->isVisible())
        return;

    for (QTreeWidgetItem *branch :
         {aliases_local, aliases_global, dialog_local, dialog_global, events})
        qDeleteAll(branch->takeChildren());

    for (QTextBlock block = editor->document()->firstBlock(); block.isValid();
         block = block.next()) {
        const CBlockData *data = recordOf(block);
        if (!data || data->containedBlock.isEmpty())
            continue;

        const int line = block.blockNumber() + 1;
        QString label = data->containedBlock;
        if (!data->matchtext.isEmpty())
            label += QStringLiteral(" : ") + data->matchtext;

        QTreeWidgetItem *item = new QTreeWidgetItem();
        item->setData(0, Qt::DisplayRole, label);
        item->setData(0, Qt::DecorationRole, line);

        const QString lineRow = QStringLiteral("Line: %1").arg(line);
        const QString multiLineRow = QStringLiteral("Multi-Line: ")
            + (data->isMultiLine ? QStringLiteral("true") : QStringLiteral("false"));

        switch (data->blockType) {
        case CBlockData::Alias:
            new QTreeWidgetItem(item, QStringList(lineRow));
            new QTreeWidgetItem(item, QStringList(multiLineRow));
            (data->isLocal ? aliases_local : aliases_global)->addChild(item);
            break;
        case CBlockData::Dialog:
            new QTreeWidgetItem(item, QStringList(lineRow));
            (data->isLocal ? dialog_local : dialog_global)->addChild(item);
            break;
        case CBlockData::Event:
            new QTreeWidgetItem(item, QStringList(lineRow));
            new QTreeWidgetItem(item, QStringList(multiLineRow));
            events->addChild(item);
            break;
        default:
            // Not listed anywhere.
            delete item;
            break;
        }
    }
}

// A click on an entry jumps to its line; a click on a child row does not.
void MdiChildEditor::compClicked(QModelIndex)
{
    const QTreeWidgetItem *item = compTree->selectedItems().value(0);
    if (item && !item->data(0, 1).isNull())
        editor->gotoLine(item->data(0, 1).toInt());
}
