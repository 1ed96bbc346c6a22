// Loading a script with one analysis pass must leave what the two passes
// of a plain load leave: the same report ids in the line records, and the
// same rows, in the same order, in both report lists, whatever else the
// lists already hold.

#include "devsettings.h"
#include "headlesslayout.h"
#include "msltextedit.h"
#include "reportstore.h"
#include "singlepassload.h"
#include "testsuite.h"

#include <QStandardItemModel>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

namespace {

// A document with a pair of report lists, loaded in either fashion.
class Loader
{
public:
    explicit Loader(int sortColumn, int others = 0) : sortColumn(sortColumn)
    {
        HeadlessLayout::install(&doc);
        hl = new MslSyntaxHighlighter(&doc);
        QObject::connect(
            hl, &MslSyntaxHighlighter::updateError, &store,
            [this](int line, int col, QString file, QString block, QString, int type,
                   QString message, int &id) {
                id = store.addReport(line, col, file, block, type, message, this->sortColumn,
                                     Qt::DescendingOrder);
            },
            Qt::DirectConnection);
        QObject::connect(
            hl, &MslSyntaxHighlighter::removeError, &store,
            [this](QVector<int> &ids) { store.removeReports(ids); }, Qt::DirectConnection);
        // Reports standing before the load, as another tab's would.
        for (int i = 0; i < others; ++i)
            store.addReport(i + 1, 0, QStringLiteral("/scripts/other.mrc"), QStringLiteral("x"), 3,
                            QStringLiteral("other"), sortColumn, Qt::DescendingOrder);
    }

    // Loads as a tab does; one pass returns what settling shifted.
    int load(const QString &text, bool onePass)
    {
        if (onePass) {
            const UnanalysedLoad load(hl);
            doc.setPlainText(text);
        } else {
            doc.setPlainText(text);
        }
        hl->setFn(QStringLiteral("/scripts/loaded.mrc"));
        hl->rehighlight();
        return onePass ? settleSinglePassIds(&doc, &store) : 0;
    }

    // The ids of each line's record, then the rows of both lists.
    QStringList state() const
    {
        QStringList out;
        for (QTextBlock b = doc.firstBlock(); b.isValid(); b = b.next()) {
            QStringList ids;
            if (const auto *data = recordOf(b)) {
                for (int id : data->remId.err)
                    ids << QString::number(id);
            }
            out << ids.join(QLatin1Char(','));
        }
        for (const QStandardItemModel *m : {&debug, &messages}) {
            out << QStringLiteral("--");
            for (int r = 0; r < m->rowCount(); ++r) {
                QStringList cells;
                for (int c = 0; c < m->columnCount(); ++c)
                    cells << m->data(m->index(r, c), Qt::EditRole).toString();
                out << cells.join(QLatin1Char('|'));
            }
        }
        return out;
    }

    int sortColumn;
    QStandardItemModel debug{0, ReportStore::DebugColumns};
    QStandardItemModel messages{0, ReportStore::MessagesColumns};
    ReportStore store{&debug, &messages};
    QTextDocument doc;
    MslSyntaxHighlighter *hl = nullptr;
};

} // namespace

class AnalyserSinglePassLoad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { DevSettings::InitializeAllSettings(); }
    void sameEndState_data();
    void sameEndState();
    void laterEditsAgree();
};

void AnalyserSinglePassLoad::sameEndState_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("others");
    QTest::addColumn<int>("sortColumn");
    QTest::addColumn<int>("reports");
    QTest::addColumn<int>("shift");

    const QString manyLines = QStringLiteral(
        "alias a {\n  echo -a $len(a,b)\n  ; todo: one\n}\nalias b { echo $mid(x }\n"
        "rem old\non *:text:*:#: { echo $chan(#).nosuch }\n");
    QTest::newRow("empty") << QString() << 0 << 0 << 0 << 0;
    QTest::newRow("clean script") << QStringLiteral("alias a {\n  echo -a hi\n}\n") << 3 << 0 << 0
                                  << 0;
    QTest::newRow("one report") << QStringLiteral("alias a { echo $len(a,b) }") << 0 << 0 << 1 << 0;
    QTest::newRow("several on one line")
        << QStringLiteral("alias a { echo $len(a,b) $mid(x) $chan(#).nosuch } ; fixme: x") << 2 << 1
        << 11 << 0;
    QTest::newRow("one line among clean ones")
        << QStringLiteral("alias a {\n  echo ok\n  echo $len(a,b) $left(x)\n}\n") << 0 << 0 << 2
        << 0;
    QTest::newRow("many lines") << manyLines << 0 << 0 << 5 << 5;
    QTest::newRow("many lines, others standing") << manyLines << 4 << 0 << 5 << 5;
    QTest::newRow("many lines, sorted on line") << manyLines << 4 << 1 << 5 << 5;
    QTest::newRow("many lines, sorted on the id") << manyLines << 4 << 4 << 5 << 5;
    QTest::newRow("notes only") << QStringLiteral("; todo: a\n; fixme: b\n") << 1 << 2 << 2 << 2;
}

void AnalyserSinglePassLoad::sameEndState()
{
    QFETCH(QString, script);
    QFETCH(int, others);
    QFETCH(int, sortColumn);
    QFETCH(int, reports);
    QFETCH(int, shift);

    Loader two(sortColumn, others);
    two.load(script, false);
    Loader one(sortColumn, others);
    QCOMPARE(one.load(script, true), shift);
    QCOMPARE(two.store.count() - others, reports);
    QCOMPARE(one.state(), two.state());
    QCOMPARE(one.store.ids(), two.store.ids());
    QCOMPARE(one.store.nextId(), two.store.nextId());
}

void AnalyserSinglePassLoad::laterEditsAgree()
{
    // After the load both documents go on alike: an edit withdraws and files
    // the same ids.
    const QString script
        = QStringLiteral("alias a {\n  echo $len(a,b)\n}\nalias b { echo $mid(x }\n");
    Loader two(0);
    two.load(script, false);
    Loader one(0);
    one.load(script, true);
    for (Loader *l : {&two, &one}) {
        QTextCursor c(l->doc.findBlockByNumber(1));
        c.movePosition(QTextCursor::EndOfBlock);
        c.insertText(QStringLiteral(" $left(q)"));
        c = QTextCursor(l->doc.findBlockByNumber(3));
        c.select(QTextCursor::BlockUnderCursor);
        c.removeSelectedText();
    }
    QCOMPARE(one.state(), two.state());
}

TARNWICK_TEST(AnalyserSinglePassLoad);
#include "tst_singlepassload.moc"
