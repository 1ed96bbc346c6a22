// The object tree of a script document. The document makes no panel of
// its own, so each test builds one the way a future panel would, and
// looks at what the two slots do with it.

#include "documenttestsupport.h"

#include "analyserharness.h"
#include "msltextedit.h"

#include <QDockWidget>
#include <QPointer>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <QTreeWidgetItem>

namespace {

// One hand-made record for a line.
struct Record {
    int line; // 1-based
    int type;
    QString name;
    QString matchtext;
    bool local;
    bool multiLine;
};

} // namespace

Q_DECLARE_METATYPE(QList<Record>)

class TestObjTree : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void entriesFromRecords_data();
    void entriesFromRecords();
    void updateRebuilds();
    void hiddenPanelLeavesTree();
    void noPanelDoesNothing();
    void branchesOutsideTheFiveStay();
    void entriesFromRealScript();
    void clickJumpsToLine();

private:
    MdiChildEditor *makeDocument(const QString &text);
    void buildPanel(bool show = true);
    void setRecords(const QList<Record> &records);
    // "branch|label|line|child;child" for every entry, branches in order.
    QStringList dump();

    QPointer<MdiChildEditor> doc;
};

void TestObjTree::initTestCase()
{
    AnalyserHarness::ensureSettings();
}

void TestObjTree::cleanup()
{
    delete doc;
}

MdiChildEditor *TestObjTree::makeDocument(const QString &text)
{
    doc = new MdiChildEditor(nullptr);
    MdiChildEditorTestAccess a(doc);
    a.editor()->setPlainText(text);
    a.highlighter()->rehighlight();
    return doc;
}

void TestObjTree::buildPanel(bool show)
{
    MdiChildEditorTestAccess a(doc);
    QDockWidget *box = new QDockWidget(QStringLiteral("Objects"), doc);
    QTreeWidget *tree = new QTreeWidget();
    box->setWidget(tree);
    doc->addDockWidget(Qt::LeftDockWidgetArea, box);
    a.compBox() = box;
    a.compTree() = tree;

    a.aliases() = new QTreeWidgetItem(tree, QStringList(QStringLiteral("Aliases")));
    a.aliasesLocal() = new QTreeWidgetItem(a.aliases(), QStringList(QStringLiteral("Local")));
    a.aliasesGlobal() = new QTreeWidgetItem(a.aliases(), QStringList(QStringLiteral("Global")));
    a.dialogs() = new QTreeWidgetItem(tree, QStringList(QStringLiteral("Dialogs")));
    a.dialogLocal() = new QTreeWidgetItem(a.dialogs(), QStringList(QStringLiteral("Local")));
    a.dialogGlobal() = new QTreeWidgetItem(a.dialogs(), QStringList(QStringLiteral("Global")));
    a.events() = new QTreeWidgetItem(tree, QStringList(QStringLiteral("Events")));
    a.onEvents() = new QTreeWidgetItem(tree, QStringList(QStringLiteral("On")));

    if (show) {
        doc->show();
        QVERIFY(QTest::qWaitForWindowExposed(doc));
    } else {
        box->hide();
    }
}

void TestObjTree::setRecords(const QList<Record> &records)
{
    QTextDocument *text = MdiChildEditorTestAccess(doc).editor()->document();
    for (const Record &r : records) {
        CBlockData *data = dynamic_cast<CBlockData *>(text->findBlockByNumber(r.line - 1).userData());
        QVERIFY(data);
        data->blockType = r.type;
        data->containedBlock = r.name;
        data->matchtext = r.matchtext;
        data->isLocal = r.local;
        data->isMultiLine = r.multiLine;
    }
}

QStringList TestObjTree::dump()
{
    MdiChildEditorTestAccess a(doc);
    const QList<QPair<QString, QTreeWidgetItem *>> branches = {
        {QStringLiteral("aliases_local"), a.aliasesLocal()},
        {QStringLiteral("aliases_global"), a.aliasesGlobal()},
        {QStringLiteral("dialog_local"), a.dialogLocal()},
        {QStringLiteral("dialog_global"), a.dialogGlobal()},
        {QStringLiteral("events"), a.events()},
    };
    QStringList out;
    for (const auto &branch : branches) {
        for (int i = 0; i < branch.second->childCount(); ++i) {
            const QTreeWidgetItem *entry = branch.second->child(i);
            QStringList children;
            for (int j = 0; j < entry->childCount(); ++j) {
                const QTreeWidgetItem *row = entry->child(j);
                // Child rows carry no line number.
                if (!row->data(0, 1).isNull())
                    children << QStringLiteral("<numbered>");
                children << row->text(0);
            }
            out << QStringLiteral("%1|%2|%3|%4")
                       .arg(branch.first, entry->data(0, Qt::DisplayRole).toString(),
                            entry->data(0, Qt::DecorationRole).toString(),
                            children.join(QLatin1Char(';')));
        }
    }
    return out;
}

void TestObjTree::entriesFromRecords_data()
{
    QTest::addColumn<QList<Record>>("records");
    QTest::addColumn<QStringList>("tree");

    QTest::newRow("local multi-line alias on line 7")
        << QList<Record>{{7, CBlockData::Alias, "foo", "", true, true}}
        << QStringList{"aliases_local|foo|7|Line: 7;Multi-Line: true"};
    QTest::newRow("global one-line alias")
        << QList<Record>{{2, CBlockData::Alias, "bar", "", false, false}}
        << QStringList{"aliases_global|bar|2|Line: 2;Multi-Line: false"};
    QTest::newRow("dialogs have no multi-line row")
        << QList<Record>{{1, CBlockData::Dialog, "dl", "", true, true},
                         {3, CBlockData::Dialog, "dg", "", false, false}}
        << QStringList{"dialog_local|dl|1|Line: 1", "dialog_global|dg|3|Line: 3"};
    QTest::newRow("event with match text")
        << QList<Record>{{4, CBlockData::Event, "text", "hello", false, true}}
        << QStringList{"events|text : hello|4|Line: 4;Multi-Line: true"};
    QTest::newRow("event without match text")
        << QList<Record>{{5, CBlockData::Event, "start", "", false, false}}
        << QStringList{"events|start|5|Line: 5;Multi-Line: false"};
    QTest::newRow("an alias shows no match text, a stale one neither")
        << QList<Record>{{6, CBlockData::Alias, "x", "", false, false}}
        << QStringList{"aliases_global|x|6|Line: 6;Multi-Line: false"};
    QTest::newRow("no name, no entry")
        << QList<Record>{{1, CBlockData::Alias, "", "", false, false}} << QStringList();
    QTest::newRow("a name without a block type is not listed")
        << QList<Record>{{1, CBlockData::NoBlock, "odd", "", false, false}} << QStringList();
    QTest::newRow("entries in line order within a branch")
        << QList<Record>{{8, CBlockData::Alias, "b", "", true, false},
                         {2, CBlockData::Alias, "a", "", true, false},
                         {5, CBlockData::Event, "join", "#c", false, false}}
        << QStringList{"aliases_local|a|2|Line: 2;Multi-Line: false",
                       "aliases_local|b|8|Line: 8;Multi-Line: false",
                       "events|join : #c|5|Line: 5;Multi-Line: false"};
}

void TestObjTree::entriesFromRecords()
{
    QFETCH(QList<Record>, records);
    QFETCH(QStringList, tree);

    // Ten lines that the analyser leaves without any block of their own.
    makeDocument(QStringLiteral(";1\n;2\n;3\n;4\n;5\n;6\n;7\n;8\n;9\n;10"));
    buildPanel();
    setRecords(records);

    MdiChildEditorTestAccess(doc).updateObjTree();
    QCOMPARE(dump(), tree);
    // The line number is an integer in role 1.
    for (QTreeWidgetItem *branch : {MdiChildEditorTestAccess(doc).aliasesLocal(),
                                    MdiChildEditorTestAccess(doc).events()}) {
        for (int i = 0; i < branch->childCount(); ++i)
            QCOMPARE(branch->child(i)->data(0, 1).typeId(), QMetaType::Int);
    }
}

void TestObjTree::updateRebuilds()
{
    makeDocument(QStringLiteral(";1\n;2\n;3"));
    buildPanel();
    MdiChildEditorTestAccess a(doc);
    setRecords({{1, CBlockData::Alias, "one", "", false, false}});
    a.updateObjTree();
    a.updateObjTree();
    QCOMPARE(dump(), QStringList{"aliases_global|one|1|Line: 1;Multi-Line: false"});

    setRecords({{1, CBlockData::Alias, "", "", false, false},
                {3, CBlockData::Dialog, "d", "", true, false}});
    a.updateObjTree();
    QCOMPARE(dump(), QStringList{"dialog_local|d|3|Line: 3"});
}

void TestObjTree::hiddenPanelLeavesTree()
{
    makeDocument(QStringLiteral(";1\n;2"));
    buildPanel(false);
    MdiChildEditorTestAccess a(doc);
    new QTreeWidgetItem(a.aliasesLocal(), QStringList(QStringLiteral("stale")));
    setRecords({{1, CBlockData::Alias, "fresh", "", true, false}});

    a.updateObjTree();
    QCOMPARE(a.aliasesLocal()->childCount(), 1);
    QCOMPARE(a.aliasesLocal()->child(0)->text(0), QStringLiteral("stale"));
}

void TestObjTree::noPanelDoesNothing()
{
    makeDocument(QStringLiteral("alias x {\n}\n"));
    MdiChildEditorTestAccess a(doc);
    QCOMPARE(a.compBox(), nullptr);
    a.updateObjTree(); // the finished program has no panel: nothing happens
    QCOMPARE(a.compTree(), nullptr);
}

void TestObjTree::branchesOutsideTheFiveStay()
{
    makeDocument(QStringLiteral(";1\n;2"));
    buildPanel();
    MdiChildEditorTestAccess a(doc);
    new QTreeWidgetItem(a.onEvents(), QStringList(QStringLiteral("kept")));
    new QTreeWidgetItem(a.events(), QStringList(QStringLiteral("dropped")));
    setRecords({{2, CBlockData::Event, "input", "", false, false}});

    a.updateObjTree();
    QCOMPARE(a.onEvents()->childCount(), 1);
    QCOMPARE(a.onEvents()->child(0)->text(0), QStringLiteral("kept"));
    QCOMPARE(dump(), QStringList{"events|input|2|Line: 2;Multi-Line: false"});
    // Local and global branches stay under their parents.
    QCOMPARE(a.aliases()->childCount(), 2);
    QCOMPARE(a.dialogs()->childCount(), 2);
}

void TestObjTree::entriesFromRealScript()
{
    makeDocument(QStringLiteral("; a script\n"
                                "on *:TEXT:hello:#:{\n"
                                "  echo -a hi\n"
                                "}\n"
                                "dialog -l dlg {\n"
                                "  title \"x\"\n"
                                "}\n"
                                "alias -l foo {\n"
                                "  echo -a $1\n"
                                "}\n"
                                "alias bar echo -a bar\n"));
    buildPanel();
    MdiChildEditorTestAccess(doc).updateObjTree();
    QCOMPARE(dump(), (QStringList{"aliases_local|foo|8|Line: 8;Multi-Line: true",
                                  "aliases_global|bar|11|Line: 11;Multi-Line: false",
                                  "dialog_local|dlg|5|Line: 5",
                                  "events|text : hello|2|Line: 2;Multi-Line: true"}));
}

void TestObjTree::clickJumpsToLine()
{
    makeDocument(QStringLiteral(";1\n;2\n;3\n;4\n;5\n;6"));
    buildPanel();
    MdiChildEditorTestAccess a(doc);
    setRecords({{5, CBlockData::Alias, "five", "", false, true}});
    a.updateObjTree();

    QTreeWidgetItem *entry = a.aliasesGlobal()->child(0);
    QVERIFY(entry);
    a.compTree()->setCurrentItem(entry);
    a.compClicked();
    QCOMPARE(a.editor()->textCursor().blockNumber(), 4);

    // A child row has no line: nothing moves.
    a.editor()->moveCursor(QTextCursor::Start);
    a.compTree()->setCurrentItem(entry->child(0));
    a.compClicked();
    QCOMPARE(a.editor()->textCursor().blockNumber(), 0);

    // Nothing selected: nothing moves, nothing breaks.
    a.compTree()->clearSelection();
    a.compClicked();
    QCOMPARE(a.editor()->textCursor().blockNumber(), 0);
}

QTEST_MAIN(TestObjTree)
#include "tst_objtree.moc"
