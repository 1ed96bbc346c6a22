// The report store against the plain algorithm it must agree with: a full
// scan of both lists for each new id, an appended row and a full stable
// sort of the model after every report, a walk of every row per withdrawn
// id, and a walk of every block per row for the line numbers.

#include "plainreportlists.h"

#include <QGuiApplication>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

#include <algorithm>

namespace {

struct Report
{
    int line;
    int col;
    QString file;
    QString block;
    int type;
    QString message;
};

const QStringList files = {QStringLiteral("/w/b.mrc"), QStringLiteral("/w/a.mrc"),
                           QStringLiteral("/w/A.mrc"), QString()};
const QStringList blocks = {QStringLiteral("root"), QStringLiteral("alias"), QString(),
                            QStringLiteral("Ident: $calc"), QStringLiteral("Block"),
                            QStringLiteral("block")};
const QStringList messages = {QStringLiteral("Unknown command"), QStringLiteral("unknown command"),
                              QStringLiteral("todo: later"), QStringLiteral("10 args"),
                              QStringLiteral("9 args"), QString()};
const int types[] = {1, 2, 3, 3, 3, 0, 7, 9, 10, 11, 11, 12, 13, 14, 15, 42};

Report randomReport(QRandomGenerator &rng)
{
    Report r;
    // Few distinct values, so that equal keys are common.
    r.line = rng.bounded(1, 12);
    r.col = rng.bounded(0, 6);
    r.file = files.at(rng.bounded(files.size()));
    r.block = blocks.at(rng.bounded(blocks.size()));
    r.type = types[rng.bounded(int(sizeof(types) / sizeof(types[0])))];
    r.message = messages.at(rng.bounded(messages.size()));
    return r;
}

// The greatest id in the plain lists plus one; never below 2.
int nextIdOf(PlainLists &plain)
{
    int greatest = 1;
    for (int row = 0; row < plain.debug.rowCount(); ++row)
        greatest = std::max(greatest, plain.debug.item(row, 4)->data(Qt::EditRole).toInt());
    for (int row = 0; row < plain.messages.rowCount(); ++row)
        greatest = std::max(greatest, plain.messages.item(row, 3)->data(Qt::EditRole).toInt());
    return greatest + 1;
}

// A document whose lines hold the given ids, as the analyser leaves them.
void fillDocument(QTextDocument &doc, const QVector<QVector<int>> &idsPerLine)
{
    QStringList lines;
    for (int i = 0; i < idsPerLine.size(); ++i)
        lines << QStringLiteral("line %1").arg(i + 1);
    doc.setPlainText(lines.join(QLatin1Char('\n')));
    QTextBlock b = doc.firstBlock();
    for (const QVector<int> &ids : idsPerLine) {
        if (!ids.isEmpty()) {
            auto *data = new CBlockData;
            data->remId.err = ids;
            b.setUserData(data);
        }
        b = b.next();
    }
}

} // namespace

class TestReportStore : public QObject
{
    Q_OBJECT

private slots:
    void firstIdsAndReuse();
    void sortedInsertionKeepsModelOrder_data();
    void sortedInsertionKeepsModelOrder();
    void noFullSortWhileSorted();
    void lineNumbersFromOnePass();
    void removalFromOutsideIsNoticed();
    void randomAgreesWithPlainAlgorithm_data();
    void randomAgreesWithPlainAlgorithm();
};

void TestReportStore::firstIdsAndReuse()
{
    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    const QString f = QStringLiteral("/x.mrc");
    QCOMPARE(store.nextId(), 2);
    QCOMPARE(store.addReport(1, 0, f, QStringLiteral("root"), 3, QStringLiteral("e"), 0,
                             Qt::DescendingOrder),
             2);
    // Shared between the lists.
    QCOMPARE(store.addReport(1, 0, f, QString(), 11, QStringLiteral("todo"), 0,
                             Qt::DescendingOrder),
             3);
    QCOMPARE(store.addReport(2, 0, f, QStringLiteral("root"), 2, QStringLiteral("w"), 0,
                             Qt::DescendingOrder),
             4);
    QCOMPARE(debug.rowCount(), 2);
    QCOMPARE(msgs.rowCount(), 1);
    // The greatest id comes back; a gap below it does not.
    store.removeReports({4});
    QCOMPARE(store.addReport(3, 0, f, QStringLiteral("root"), 1, QStringLiteral("i"), 0,
                             Qt::DescendingOrder),
             4);
    store.removeReports({2});
    QCOMPARE(store.addReport(3, 1, f, QStringLiteral("root"), 1, QStringLiteral("i"), 0,
                             Qt::DescendingOrder),
             5);
    store.removeReports({3, 4, 5, 99});
    QCOMPARE(store.count(), 0);
    QCOMPARE(debug.rowCount() + msgs.rowCount(), 0);
    QCOMPARE(store.nextId(), 2);
}

void TestReportStore::sortedInsertionKeepsModelOrder_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    for (int column = -1; column <= 6; ++column) {
        for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            QTest::addRow("column %d %s", column,
                          order == Qt::AscendingOrder ? "ascending" : "descending")
                << column << order;
        }
    }
}

// With one fixed sort state, the rows always equal the plain lists' rows.
void TestReportStore::sortedInsertionKeepsModelOrder()
{
    QFETCH(int, column);
    QFETCH(Qt::SortOrder, order);
    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    PlainLists plain;
    QRandomGenerator rng(4711 + column);
    for (int i = 0; i < 150; ++i) {
        const Report r = randomReport(rng);
        const int id = store.addReport(r.line, r.col, r.file, r.block, r.type, r.message, column,
                                       order);
        QCOMPARE(id, plain.add(r.line, r.col, r.file, r.block, r.type, r.message, column, order));
    }
    QCOMPARE(rowsOf(debug), rowsOf(plain.debug));
    QCOMPARE(rowsOf(msgs), rowsOf(plain.messages));
}

// The cost: a list that is known sorted takes a new row in place; only the
// plain algorithm re-sorts the whole list for each report.
void TestReportStore::noFullSortWhileSorted()
{
    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    PlainLists plain;
    QSignalSpy storeSorts(&debug, &QAbstractItemModel::layoutChanged);
    QSignalSpy plainSorts(&plain.debug, &QAbstractItemModel::layoutChanged);
    QRandomGenerator rng(99);
    for (int i = 0; i < 100; ++i) {
        const int line = rng.bounded(1, 50);
        store.addReport(line, 0, QStringLiteral("/f"), QStringLiteral("root"), 3,
                        QStringLiteral("m"), 1, Qt::AscendingOrder);
        plain.add(line, 0, QStringLiteral("/f"), QStringLiteral("root"), 3, QStringLiteral("m"), 1,
                  Qt::AscendingOrder);
    }
    QCOMPARE(rowsOf(debug), rowsOf(plain.debug));
    QCOMPARE(plainSorts.count(), 100);
    QCOMPARE(storeSorts.count(), 0);

    // A sort from outside (a view's header) is noticed, checked once, and
    // the order it left is kept.
    debug.sort(0, Qt::DescendingOrder);
    plain.debug.sort(0, Qt::DescendingOrder);
    storeSorts.clear();
    store.addReport(7, 0, QStringLiteral("/g"), QStringLiteral("root"), 3, QStringLiteral("m"), 0,
                    Qt::DescendingOrder);
    plain.add(7, 0, QStringLiteral("/g"), QStringLiteral("root"), 3, QStringLiteral("m"), 0,
              Qt::DescendingOrder);
    QCOMPARE(rowsOf(debug), rowsOf(plain.debug));
    QCOMPARE(storeSorts.count(), 0);
}

void TestReportStore::lineNumbersFromOnePass()
{
    QTextDocument doc;
    // Id 5 stands on two lines: the first one counts.
    fillDocument(doc, {{}, {2, 5}, {}, {3}, {5}, {}});
    const QHash<int, int> lines = ReportStore::lineNumbersById(&doc);
    QCOMPARE(lines.value(2), 2);
    QCOMPARE(lines.value(5), 2);
    QCOMPARE(lines.value(3), 4);
    QCOMPARE(lines.size(), 3);

    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    const QString f = QStringLiteral("/f.mrc");
    store.addReport(9, 0, f, QStringLiteral("root"), 3, QStringLiteral("a"), 1,
                    Qt::AscendingOrder); // 2
    store.addReport(9, 0, f, QStringLiteral("root"), 11, QStringLiteral("b"), 1,
                    Qt::AscendingOrder); // 3
    store.addReport(9, 0, QStringLiteral("/other"), QStringLiteral("root"), 3,
                    QStringLiteral("c"), 1, Qt::AscendingOrder); // 4
    store.addReport(9, 0, f, QStringLiteral("root"), 3, QStringLiteral("d"), 1,
                    Qt::AscendingOrder); // 5
    store.updateLines(f, &doc);
    auto lineOf = [&](int id) {
        ReportStore::List list;
        const int row = store.rowOf(id, &list);
        QStandardItemModel *m = store.model(list);
        return m->data(m->index(row, 1)).toInt();
    };
    QCOMPARE(lineOf(2), 2);
    QCOMPARE(lineOf(3), 4);
    QCOMPARE(lineOf(4), 9); // another file
    QCOMPARE(lineOf(5), 2);
}

void TestReportStore::removalFromOutsideIsNoticed()
{
    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    for (int i = 0; i < 5; ++i)
        store.addReport(i + 1, 0, QStringLiteral("/f"), QString(), 3, QStringLiteral("m"), 1,
                        Qt::AscendingOrder);
    QCOMPARE(store.ids(), QVector<int>({2, 3, 4, 5, 6}));
    debug.removeRows(3, 2); // ids 5 and 6
    QCOMPARE(store.ids(), QVector<int>({2, 3, 4}));
    QCOMPARE(store.nextId(), 5);
    debug.clear();
    QCOMPARE(store.count(), 0);
    QCOMPARE(store.nextId(), 2);
}

void TestReportStore::randomAgreesWithPlainAlgorithm_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("steps");
    QTest::addColumn<bool>("hold");
    for (quint32 seed : {1u, 2u, 3u, 17u, 2024u, 31337u, 65521u, 777777u})
        QTest::addRow("seed %u", seed) << seed << 600 << false;
    // Rows held back for stretches of reports and withdrawals, as during
    // a pass of the analyser, then put in place.
    for (quint32 seed : {5u, 8u, 13u, 21u, 4099u, 99991u})
        QTest::addRow("held, seed %u", seed) << seed << 800 << true;
}

// Random runs of reports, withdrawals, closed files, line shifts and
// changes of the user's sort column and order. After every step the ids
// and both lists, row by row and cell by cell, equal the plain lists';
// with rows held, after every step that is not held.
void TestReportStore::randomAgreesWithPlainAlgorithm()
{
    QFETCH(quint32, seed);
    QFETCH(int, steps);
    QFETCH(bool, hold);
    QRandomGenerator rng(seed);

    QStandardItemModel debug(0, 6), msgs(0, 5);
    ReportStore store(&debug, &msgs);
    PlainLists plain;
    // The sort state of each list's view; a fresh view sorts on column 0,
    // descending.
    int sortColumn[2] = {0, 0};
    Qt::SortOrder sortOrder[2] = {Qt::DescendingOrder, Qt::DescendingOrder};

    int heldSteps = 0;
    for (int step = 0; step < steps; ++step) {
        if (hold) {
            if (!store.holdingRows() && rng.bounded(3) == 0)
                store.holdRows();
            else if (store.holdingRows() && rng.bounded(12) == 0)
                store.flushRows();
            heldSteps += store.holdingRows();
        }
        // A pass files and withdraws; closing, line shifts and sorting put
        // held rows in place, so they come seldom while rows are held.
        const int op = store.holdingRows() && rng.bounded(8) ? rng.bounded(75) : rng.bounded(100);
        QString what;
        if (op < 55) {
            const Report r = randomReport(rng);
            const int list = r.type > 9 ? 1 : 0;
            const int id = store.addReport(r.line, r.col, r.file, r.block, r.type, r.message,
                                           sortColumn[list], sortOrder[list]);
            const int expected = plain.add(r.line, r.col, r.file, r.block, r.type, r.message,
                                           sortColumn[list], sortOrder[list]);
            QCOMPARE(id, expected);
            what = QStringLiteral("add");
        } else if (op < 75) {
            // A line is analysed again: some of the standing ids, maybe one
            // that is gone already, in any order.
            QVector<int> ids = store.ids();
            std::shuffle(ids.begin(), ids.end(), rng);
            ids.resize(std::min<int>(ids.size(), rng.bounded(0, 5)));
            if (rng.bounded(4) == 0)
                ids << rng.bounded(0, 40);
            store.removeReports(ids);
            plain.remove(ids);
            what = QStringLiteral("remove");
        } else if (op < 78) {
            const QString f = files.at(rng.bounded(files.size()));
            store.removeFile(f);
            plain.removeFile(f);
            what = QStringLiteral("close");
        } else if (op < 90) {
            // Lines were added or removed: the ids stand on new lines, some
            // on none, some on two.
            const QString f = files.at(rng.bounded(files.size()));
            QVector<QVector<int>> perLine(rng.bounded(1, 15));
            const QVector<int> ids = store.ids();
            for (int id : ids) {
                const int r = rng.bounded(10);
                if (r < 7)
                    perLine[rng.bounded(perLine.size())] << id;
                if (r == 8) {
                    perLine[rng.bounded(perLine.size())] << id;
                    perLine[rng.bounded(perLine.size())] << id;
                }
            }
            QTextDocument doc;
            fillDocument(doc, perLine);
            store.updateLines(f, &doc);
            plain.updateLines(f, doc);
            what = QStringLiteral("lines");
        } else {
            // The user clicks a header: the view sorts its model.
            const int list = rng.bounded(2);
            const int columns = list == 0 ? 6 : 5;
            sortColumn[list] = rng.bounded(columns);
            sortOrder[list] = rng.bounded(2) ? Qt::AscendingOrder : Qt::DescendingOrder;
            QStandardItemModel *mine = list == 0 ? &debug : &msgs;
            // A view's sort comes from the user, never in the middle of a
            // pass: the rows are in place by then.
            store.flushRows();
            QStandardItemModel *theirs = list == 0 ? &plain.debug : &plain.messages;
            mine->sort(sortColumn[list], sortOrder[list]);
            theirs->sort(sortColumn[list], sortOrder[list]);
            what = QStringLiteral("sort");
        }
        const QByteArray where = QStringLiteral("step %1 (%2)").arg(step).arg(what).toUtf8();
        QVERIFY2(store.count() == plain.debug.rowCount() + plain.messages.rowCount(),
                 where.constData());
        QVERIFY2(store.nextId() == nextIdOf(plain), where.constData());
        if (store.holdingRows())
            continue;
        QVERIFY2(rowsOf(debug) == rowsOf(plain.debug), where.constData());
        QVERIFY2(rowsOf(msgs) == rowsOf(plain.messages), where.constData());
    }
    if (hold)
        QVERIFY2(heldSteps > steps / 2, "most steps ran with rows held");
    store.flushRows();
    QCOMPARE(rowsOf(debug), rowsOf(plain.debug));
    QCOMPARE(rowsOf(msgs), rowsOf(plain.messages));
}

QTEST_MAIN(TestReportStore)
#include "tst_reportstore.moc"
