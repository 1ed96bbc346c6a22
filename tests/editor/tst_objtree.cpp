// The object tree of a script document. The document makes no panel of
// its own yet, so each test builds one the way a panel would be, and
// looks at what the document puts into it.

#include "editorsupport.h"
#include "testsuite.h"

#include <QTest>
#include <QTreeWidget>

class ObjTreeTest : public QObject
{
    Q_OBJECT

    MdiChildEditorTestAccess makeDocument(const QString &text, bool panel = true)
    {
        doc = new MdiChildEditor(nullptr);
        MdiChildEditorTestAccess a(doc);
        doc->getEditor()->setPlainText(text);
        doc->getHighlighter()->rehighlight();
        if (!panel)
            return a;
        auto *box = new QDockWidget(QStringLiteral("Objects"), doc);
        box->setWidget(tree = new QTreeWidget());
        doc->addDockWidget(Qt::LeftDockWidgetArea, box);
        auto *aliases = new QTreeWidgetItem(tree, {QStringLiteral("Aliases")});
        auto *dialogs = new QTreeWidgetItem(tree, {QStringLiteral("Dialogs")});
        branches = {new QTreeWidgetItem(aliases, {QStringLiteral("aliases local")}),
                    new QTreeWidgetItem(aliases, {QStringLiteral("aliases global")}),
                    new QTreeWidgetItem(dialogs, {QStringLiteral("dialogs local")}),
                    new QTreeWidgetItem(dialogs, {QStringLiteral("dialogs global")}),
                    new QTreeWidgetItem(tree, {QStringLiteral("events")})};
        a.setObjectPanel(box, tree, branches);
        doc->show();
        return a;
    }

    // "branch|label|line|row;row" for every entry, branches in order.
    QStringList dump() const
    {
        QStringList out;
        for (QTreeWidgetItem *branch : branches) {
            for (int i = 0; i < branch->childCount(); ++i) {
                const QTreeWidgetItem *entry = branch->child(i);
                QStringList rows;
                for (int j = 0; j < entry->childCount(); ++j)
                    rows << entry->child(j)->text(0)
                            + (entry->child(j)->data(0, 1).isNull() ? "" : "<numbered>");
                out << QStringList{branch->text(0), entry->text(0), entry->data(0, 1).toString(),
                                   rows.join(';')}
                           .join('|');
            }
        }
        return out;
    }

    QPointer<MdiChildEditor> doc;
    QTreeWidget *tree = nullptr;
    QList<QTreeWidgetItem *> branches;

private slots:
    void initTestCase() { AnalyserHarness::ensureSettings(); }
    void cleanup() { delete doc; }

    // Entries of a real script, and a click on one jumps to its line.
    void entriesFollowTheScript()
    {
        MdiChildEditorTestAccess a = makeDocument(QStringLiteral(
            "; a script\non *:TEXT:hello:#:{\n  echo -a hi\n}\ndialog -l dlg {\n  title \"x\"\n}\n"
            "alias -l foo {\n  echo -a $1\n}\nalias bar echo -a bar\non *:START: echo -a "
            "start\ndialog dg {\n}\n"));
        new QTreeWidgetItem(branches[1], {QStringLiteral("stale")});
        a.updateObjTree();
        QCOMPARE(dump(),
                 (QStringList{"aliases local|foo|8|Line: 8;Multi-Line: true",
                              "aliases global|bar|11|Line: 11;Multi-Line: false",
                              "dialogs local|dlg|5|Line: 5", "dialogs global|dg|13|Line: 13",
                              "events|text : hello|2|Line: 2;Multi-Line: true",
                              "events|start|12|Line: 12;Multi-Line: false"}));
        tree->setCurrentItem(branches[1]->child(0));
        a.compClicked();
        QCOMPARE(doc->getEditor()->textCursor().blockNumber(), 10);
        // A child row has no line, and with nothing selected nothing moves.
        doc->getEditor()->moveCursor(QTextCursor::Start);
        tree->setCurrentItem(branches[1]->child(0)->child(0));
        a.compClicked();
        tree->clearSelection();
        a.compClicked();
        QCOMPARE(doc->getEditor()->textCursor().blockNumber(), 0);
    }

    void withoutShownPanelNothingChanges()
    {
        // The finished program has no panel at all.
        makeDocument(QStringLiteral("alias x {\n}\n"), false).updateObjTree();
        delete doc;
        // A hidden panel keeps what it shows.
        MdiChildEditorTestAccess a = makeDocument(QStringLiteral("alias fresh {\n}\n"));
        new QTreeWidgetItem(branches[1], {QStringLiteral("stale")});
        tree->parentWidget()->hide();
        a.updateObjTree();
        QCOMPARE(dump(), QStringList{"aliases global|stale||"});
    }
};

TARNWICK_TEST(ObjTreeTest);
#include "tst_objtree.moc"
