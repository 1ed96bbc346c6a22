// The report dock of a real main window: ids, lists, icons and order, the
// rows following the text as it is edited, jumps, copies, and agreement
// with the plain algorithm and with tarnwick-lint.

#include "plainreportlists.h"
#include "spinetestsupport.h"

#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

#include <algorithm>

namespace {

const QString fileA = QStringLiteral("/scripts/a.mrc");
const QString fileB = QStringLiteral("/scripts/b.mrc");

QString cell(const QStandardItemModel *m, int row, int column)
{
    return m->data(m->index(row, column), Qt::EditRole).toString();
}

int rowOfId(const QStandardItemModel *m, int idColumn, int id)
{
    for (int r = 0; r < m->rowCount(); ++r) {
        if (m->data(m->index(r, idColumn)).toInt() == id)
            return r;
    }
    return -1;
}

QVector<int> idsIn(const QStandardItemModel *m, int idColumn)
{
    QVector<int> ids;
    for (int r = 0; r < m->rowCount(); ++r)
        ids << m->data(m->index(r, idColumn)).toInt();
    return ids;
}

// Every cell and icon of `from` into the empty `to`, row by row.
void copyRows(const QStandardItemModel &from, QStandardItemModel &to)
{
    for (int row = 0; row < from.rowCount(); ++row) {
        to.insertRows(row, 1);
        for (int column = 0; column < from.columnCount(); ++column) {
            const QModelIndex source = from.index(row, column);
            const QModelIndex target = to.index(row, column);
            to.setData(target, from.data(source, Qt::EditRole), Qt::EditRole);
            const QVariant icon = from.data(source, Qt::DecorationRole);
            if (icon.isValid())
                to.setData(target, icon, Qt::DecorationRole);
        }
    }
}

} // namespace

class TestReportDock : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void dockStructure();
    void idsFirstSharedAndReused();
    void listsAndIcons_data();
    void listsAndIcons();
    void rowCells();
    void sortingKeptOnInsert();
    void headerClickSortsAndIsKept();
    void randomAgreesWithPlainAlgorithm_data();
    void randomAgreesWithPlainAlgorithm();
    void editingWithdrawsAndRefiles();
    void ripplingEditAgreesWithPlainAlgorithm_data();
    void ripplingEditAgreesWithPlainAlgorithm();
    void deletingALineRemovesItsRows();
    void lineNumbersFollowInsertedLines();
    void lineShiftDoesNotSortAgain();
    void doubleClickJumps();
    void doubleClickOnClosedFileDoesNothing();
    void closingOneOfTwoRemovesOnlyItsRows();
    void copyError();
    void copyWithoutCurrentRowGivesSeparators();
    void messagesMenuKeyedOnDebugList();
    void lintPrintsWhatTheDockHolds();

private:
    QString path(const QString &name) const { return files.filePath(name); }
    QTemporaryDir files;
    QTemporaryDir settings;
};

void TestReportDock::initTestCase()
{
    QVERIFY(files.isValid());
    QVERIFY(settings.isValid());
    QStandardPaths::setTestModeEnabled(true);
    redirectSettings(settings.path());
    initialiseAnalyser();
}

void TestReportDock::cleanup()
{
    QGuiApplication::clipboard()->clear();
}

void TestReportDock::dockStructure()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QDockWidget *dock = a.reportDock();
    QCOMPARE(dock->windowTitle(), QStringLiteral("Message Area"));
    QCOMPARE(dock->objectName(), QStringLiteral("msgArea"));
    QCOMPARE(dock->allowedAreas(), Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    QCOMPARE(dock->features(), QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable
                                   | QDockWidget::DockWidgetFloatable);
    QCOMPARE(w.dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    QCOMPARE(dock->widget(), a.reportTabs());
    QCOMPARE(a.reportTabs()->count(), 2);
    QCOMPARE(a.reportTabs()->tabText(0), QStringLiteral("Debug"));
    QCOMPARE(a.reportTabs()->tabText(1), QStringLiteral("Messages"));
    QCOMPARE(a.reportTabs()->widget(0), a.debugView());
    QCOMPARE(a.reportTabs()->widget(1), a.messagesView());

    auto headers = [](QStandardItemModel *m) {
        QStringList h;
        for (int c = 0; c < m->columnCount(); ++c)
            h << m->headerData(c, Qt::Horizontal).toString();
        return h;
    };
    QCOMPARE(headers(a.debug()), QStringList({"File", "Line", "Col", "Block", "ID", "Error"}));
    QCOMPARE(headers(a.messages()), QStringList({"File", "Line", "Col", "ID", "Message"}));
    QCOMPARE(a.debugView()->model(), a.debug());
    QCOMPARE(a.messagesView()->model(), a.messages());
    for (int c = 0; c < 6; ++c)
        QCOMPARE(a.debugView()->isColumnHidden(c), c == 4);
    for (int c = 0; c < 5; ++c)
        QCOMPARE(a.messagesView()->isColumnHidden(c), c == 3);
    for (QTreeView *v : {a.debugView(), a.messagesView()}) {
        QVERIFY(v->isSortingEnabled());
        QCOMPARE(v->editTriggers(), QAbstractItemView::NoEditTriggers);
        QCOMPARE(v->contextMenuPolicy(), Qt::CustomContextMenu);
        // What a fresh header starts with, and so what every report is
        // sorted on until the user clicks.
        QCOMPARE(v->header()->sortIndicatorSection(), 0);
        QCOMPARE(v->header()->sortIndicatorOrder(), Qt::DescendingOrder);
    }
}

void TestReportDock::idsFirstSharedAndReused()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QCOMPARE(a.report(1, 0, fileA, "root", 3, "e"), 2);
    // Shared between the lists.
    QCOMPARE(a.report(1, 0, fileA, QString(), 11, "todo"), 3);
    QCOMPARE(a.report(2, 0, fileA, "root", 2, "w"), 4);
    // With 2, 3 and 4 standing: 4 withdrawn comes back as 4; 2 withdrawn
    // does not come back, the next is 5.
    a.removeError({4});
    QCOMPARE(a.report(3, 0, fileA, "root", 1, "i"), 4);
    a.removeError({2});
    QCOMPARE(a.report(3, 0, fileA, "root", 1, "i"), 5);
    a.removeError({3, 4, 5});
    QCOMPARE(a.debug()->rowCount() + a.messages()->rowCount(), 0);
    QCOMPARE(a.report(1, 0, fileA, QString(), 14, "xxx"), 2);
    // The first message of all also gets 2.
    QCOMPARE(a.messages()->rowCount(), 1);
    QCOMPARE(a.messages()->data(a.messages()->index(0, 3)).toInt(), 2);
}

void TestReportDock::listsAndIcons_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("messages");
    QTest::addColumn<QString>("icon");
    const QString syntax = QStringLiteral(":/messages/syntax/resources/img_assets/messages/syntax/");
    const QString notes =
        QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/");
    QTest::newRow("1 information") << 1 << false << syntax + "information.png";
    QTest::newRow("2 warning") << 2 << false << syntax + "warning.png";
    QTest::newRow("3 error") << 3 << false << syntax + "error.png";
    QTest::newRow("10 blue") << 10 << true << notes + "blue.png";
    QTest::newRow("11 todo") << 11 << true << notes + "green.png";
    QTest::newRow("12 grey") << 12 << true << notes + "grey.png";
    QTest::newRow("13 hack") << 13 << true << notes + "orange.png";
    QTest::newRow("14 xxx") << 14 << true << notes + "red.png";
    QTest::newRow("15 fixme") << 15 << true << notes + "yellow.png";
    QTest::newRow("0 unknown") << 0 << false << QString();
    QTest::newRow("9 unknown") << 9 << false << QString();
    QTest::newRow("16 unknown") << 16 << true << QString();
}

void TestReportDock::listsAndIcons()
{
    QFETCH(int, type);
    QFETCH(bool, messages);
    QFETCH(QString, icon);
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.report(4, 2, fileA, "root", type, "m");
    QStandardItemModel *m = messages ? a.messages() : a.debug();
    QStandardItemModel *other = messages ? a.debug() : a.messages();
    QCOMPARE(m->rowCount(), 1);
    QCOMPARE(other->rowCount(), 0);
    const int textColumn = messages ? 4 : 5;
    const QIcon shown = qvariant_cast<QIcon>(m->data(m->index(0, textColumn), Qt::DecorationRole));
    if (icon.isEmpty()) {
        QVERIFY(shown.isNull());
    } else {
        QVERIFY2(QFile::exists(icon), qPrintable(icon));
        QVERIFY(!shown.isNull());
        QCOMPARE(shown.pixmap(16, 16).toImage(), QIcon(icon).pixmap(16, 16).toImage());
    }
}

void TestReportDock::rowCells()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.report(7, 3, fileA, "Ident: $calc", 3, "Too many parameters");
    a.report(9, 1, fileB, QString(), 13, "later");
    QCOMPARE(modelRows(a.debug()),
             QStringList({fileA + "|7|3|Ident: $calc|2|Too many parameters"}));
    QCOMPARE(modelRows(a.messages()), QStringList({fileB + "|9|1|3|later"}));
    // Numbers are numbers, so that they sort as numbers.
    QCOMPARE(a.debug()->data(a.debug()->index(0, 1)).userType(), QMetaType::Int);
    QCOMPARE(a.debug()->data(a.debug()->index(0, 2)).userType(), QMetaType::Int);
    QCOMPARE(a.debug()->data(a.debug()->index(0, 4)).userType(), QMetaType::Int);
    QCOMPARE(a.messages()->data(a.messages()->index(0, 3)).userType(), QMetaType::Int);
}

void TestReportDock::sortingKeptOnInsert()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.debugView()->sortByColumn(1, Qt::AscendingOrder);
    QRandomGenerator rng(5);
    for (int i = 0; i < 60; ++i)
        a.report(rng.bounded(1, 10), rng.bounded(0, 4), i % 2 ? fileA : fileB, "root", 3, "m");
    QVector<int> lines;
    for (int r = 0; r < a.debug()->rowCount(); ++r)
        lines << a.debug()->data(a.debug()->index(r, 1)).toInt();
    QVERIFY(std::is_sorted(lines.begin(), lines.end()));
    // Equal lines keep the order in which they came, so ids rise in a run.
    for (int r = 1; r < a.debug()->rowCount(); ++r) {
        if (lines.at(r) == lines.at(r - 1))
            QVERIFY(a.debug()->data(a.debug()->index(r, 4)).toInt()
                    > a.debug()->data(a.debug()->index(r - 1, 4)).toInt());
    }
}

// A click on a header sorts through the view; later reports keep that
// order, as the plain lists sorted on the same state would have it.
void TestReportDock::headerClickSortsAndIsKept()
{
    MainWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    MainWindowTestAccess a(&w);
    PlainLists plain;
    QRandomGenerator rng(11);
    auto report = [&](int type) {
        const int line = rng.bounded(1, 6);
        const int col = rng.bounded(0, 3);
        const QString &f = rng.bounded(2) ? fileA : fileB;
        QHeaderView *h = (type > 9 ? a.messagesView() : a.debugView())->header();
        const int id = a.report(line, col, f, "root", type, "m");
        QCOMPARE(plain.add(line, col, f, "root", type, "m", h->sortIndicatorSection(),
                           h->sortIndicatorOrder()),
                 id);
    };
    for (int i = 0; i < 10; ++i)
        report(i % 3 ? 3 : 11);

    QHeaderView *header = a.debugView()->header();
    const QPoint lineHeader(header->sectionViewportPosition(1) + header->sectionSize(1) / 2,
                            header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, lineHeader);
    QCOMPARE(header->sortIndicatorSection(), 1);
    plain.debug.sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    QCOMPARE(rowsOf(*a.debug()), rowsOf(plain.debug));
    for (int i = 0; i < 10; ++i)
        report(3);
    QCOMPARE(rowsOf(*a.debug()), rowsOf(plain.debug));

    // A second click turns the order round.
    const Qt::SortOrder before = header->sortIndicatorOrder();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, lineHeader);
    QVERIFY(header->sortIndicatorOrder() != before);
    plain.debug.sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    for (int i = 0; i < 10; ++i)
        report(i % 2 ? 3 : 12);
    QCOMPARE(rowsOf(*a.debug()), rowsOf(plain.debug));
    QCOMPARE(rowsOf(*a.messages()), rowsOf(plain.messages));
}

void TestReportDock::randomAgreesWithPlainAlgorithm_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed : {3u, 99u, 4242u, 123456u})
        QTest::addRow("seed %u", seed) << seed;
}

// Random runs through the window's own slots and views: reports,
// withdrawals, closed files and the user's sort changes on either list.
void TestReportDock::randomAgreesWithPlainAlgorithm()
{
    QFETCH(quint32, seed);
    QRandomGenerator rng(seed);
    MainWindow w;
    MainWindowTestAccess a(&w);
    PlainLists plain;
    const QStringList names = {fileA, fileB, QStringLiteral("/scripts/A.mrc")};
    const QStringList words = {"root", "alias", "", "block", "Ident: $x"};
    const int types[] = {1, 2, 3, 3, 11, 13, 14, 15, 10, 12};

    for (int step = 0; step < 300; ++step) {
        const int op = rng.bounded(100);
        if (op < 60) {
            const int type = types[rng.bounded(10)];
            const int line = rng.bounded(1, 8);
            const int col = rng.bounded(0, 4);
            const QString f = names.at(rng.bounded(names.size()));
            const QString block = words.at(rng.bounded(words.size()));
            const QString msg = rng.bounded(2) ? QStringLiteral("Bad") : QStringLiteral("bad");
            QHeaderView *h = (type > 9 ? a.messagesView() : a.debugView())->header();
            const int expected = plain.add(line, col, f, block, type, msg,
                                           h->sortIndicatorSection(), h->sortIndicatorOrder());
            QCOMPARE(a.report(line, col, f, block, type, msg), expected);
        } else if (op < 85) {
            QVector<int> ids = a.store()->ids();
            std::shuffle(ids.begin(), ids.end(), rng);
            ids.resize(std::min<int>(ids.size(), rng.bounded(1, 4)));
            a.removeError(ids);
            plain.remove(ids);
        } else if (op < 88) {
            const QString f = names.at(rng.bounded(names.size()));
            a.editorFclosed(f);
            plain.removeFile(f);
        } else {
            const bool messages = rng.bounded(2);
            QTreeView *view = messages ? a.messagesView() : a.debugView();
            const int column = rng.bounded(messages ? 5 : 6);
            const Qt::SortOrder order = rng.bounded(2) ? Qt::AscendingOrder : Qt::DescendingOrder;
            view->header()->setSortIndicator(column, order);
            (messages ? plain.messages : plain.debug).sort(column, order);
        }
        QVERIFY2(rowsOf(*a.debug()) == rowsOf(plain.debug), qPrintable(QString::number(step)));
        QVERIFY2(rowsOf(*a.messages()) == rowsOf(plain.messages),
                 qPrintable(QString::number(step)));
    }
}

// Typing in a line with reports withdraws them all; the ones that still
// apply come back.
void TestReportDock::editingWithdrawsAndRefiles()
{
    const QString file = writeFile(path("edit.mrc"),
                                   "alias a {\n  echo $calc(1 + | echo $calc(2 +\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    const int before = a.debug()->rowCount();
    QVERIFY(before >= 1);
    MdiChildEditor *doc = a.editors().at(0);
    QTextCursor c(doc->getEditor()->document()->findBlockByNumber(1));
    c.movePosition(QTextCursor::EndOfBlock);
    c.insertText(QStringLiteral(")"));
    // One fewer open bracket: the line is analysed again.
    auto *rec = static_cast<CBlockData *>(
        doc->getEditor()->document()->findBlockByNumber(1).userData());
    QVERIFY(rec);
    QCOMPARE(a.debug()->rowCount(), rec->remId.err.size());
    for (int id : rec->remId.err)
        QVERIFY(rowOfId(a.debug(), 4, id) >= 0);

    // Mended, the line's rows are gone; spoiled again, they come back
    // and are withdrawn again on the next edit.
    QTextCursor whole(doc->getEditor()->document()->findBlockByNumber(1));
    whole.select(QTextCursor::BlockUnderCursor);
    whole.movePosition(QTextCursor::StartOfBlock);
    whole.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    whole.insertText(QStringLiteral("  echo fine"));
    QCOMPARE(a.debug()->rowCount(), 0);
    whole.movePosition(QTextCursor::StartOfBlock);
    whole.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    whole.insertText(QStringLiteral("  echo $calc(1 +"));
    QCOMPARE(a.debug()->rowCount(), 1);
    whole.movePosition(QTextCursor::StartOfBlock);
    whole.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    whole.insertText(QStringLiteral("  echo fine"));
    QCOMPARE(a.debug()->rowCount(), 0);
}

void TestReportDock::ripplingEditAgreesWithPlainAlgorithm_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addRow("as a view starts: file, descending") << -1 << Qt::DescendingOrder;
    QTest::addRow("line ascending") << 1 << Qt::AscendingOrder;
    QTest::addRow("line descending") << 1 << Qt::DescendingOrder;
    QTest::addRow("column descending") << 2 << Qt::DescendingOrder;
    QTest::addRow("message ascending") << 5 << Qt::AscendingOrder;
}

// A key that changes whether a block is open makes the analyser go over
// every later line, withdrawing and filing reports as it goes. However
// the window gathers those rows, when the key has been handled the lists
// hold what the plain algorithm makes of the same withdrawals and reports.
void TestReportDock::ripplingEditAgreesWithPlainAlgorithm()
{
    QFETCH(int, column);
    QFETCH(Qt::SortOrder, order);
    QByteArray script = "alias big {\n";
    for (int i = 0; i < 12; ++i) {
        script += "  echo $calc(1 +\n  ; todo: n" + QByteArray::number(i)
            + "\n  if (x) {\n    echo $calc(2 +\n  }\n";
    }
    script += "}\nalias after {\n  echo $calc(3 +\n}\n";
    const QString file = writeFile(path(QStringLiteral("ripple%1%2.mrc").arg(column).arg(order)),
                                   script);
    MainWindow w;
    MainWindowTestAccess a(&w);
    if (column >= 0) {
        a.debugView()->sortByColumn(column, order);
        a.messagesView()->sortByColumn(std::min(column, 4), order);
    }
    a.openFile(file, false);
    MdiChildEditor *doc = a.editors().at(0);
    MslTextEditor *editor = doc->getEditor();
    QTextDocument *text = editor->document();

    PlainLists plain;
    copyRows(*a.debug(), plain.debug);
    copyRows(*a.messages(), plain.messages);
    QVERIFY(plain.debug.rowCount() >= 24);
    int withdrawn = 0;
    int filed = 0;
    int heldWhileFiling = 0;
    // Connected after the window, so these see each report after it did.
    MslSyntaxHighlighter *hl = doc->getHighlighter();
    connect(hl, &MslSyntaxHighlighter::updateError, this,
            [&](int line, int col, QString fname, QString block, QString, int type, QString err,
                int &errId) {
                const QHeaderView *h = (type > 9 ? a.messagesView() : a.debugView())->header();
                const int expected = plain.add(line, col, fname, block, type, err,
                                               h->sortIndicatorSection(), h->sortIndicatorOrder());
                QCOMPARE(errId, expected);
                ++filed;
                heldWhileFiling += a.store()->holdingRows();
            },
            Qt::DirectConnection);
    connect(hl, &MslSyntaxHighlighter::removeError, this, [&](QVector<int> &ids) {
        plain.remove(ids);
        withdrawn += ids.size();
    });
    connect(doc, &MdiChildEditor::blocksChanged, this,
            [&](QFileInfo info, MdiChildEditor *) { plain.updateLines(info.absoluteFilePath(), *text); });

    const auto agree = [&](const char *step) {
        QVERIFY2(!a.store()->holdingRows(), step);
        QVERIFY2(rowsOf(*a.debug()) == rowsOf(plain.debug), step);
        QVERIFY2(rowsOf(*a.messages()) == rowsOf(plain.messages), step);
    };
    // "{x" no longer opens the big alias's block.
    QTextCursor c(text->firstBlock());
    c.movePosition(QTextCursor::EndOfBlock);
    editor->setTextCursor(c);
    QTest::keyClicks(editor, QStringLiteral("x"));
    QVERIFY(withdrawn >= 24);
    agree("typed");
    text->undo();
    agree("undone");
    // A brace that closes the big alias early.
    c = QTextCursor(text->findBlockByNumber(2));
    c.movePosition(QTextCursor::EndOfBlock);
    editor->setTextCursor(c);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::keyClicks(editor, QStringLiteral("}"));
    agree("closed early");
    // Lines taken out move the rest of the script up.
    c = QTextCursor(text->findBlockByNumber(10));
    c.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, 3);
    c.removeSelectedText();
    agree("lines removed");
    QVERIFY(filed >= 48);
    QCOMPARE(heldWhileFiling, filed);
}

void TestReportDock::deletingALineRemovesItsRows()
{
    const QString file = writeFile(path("del.mrc"),
                                   "alias a {\n  echo hi\n  echo $calc(1 +\n  ; todo: x\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    QCOMPARE(a.debug()->rowCount(), 1);
    QCOMPARE(a.messages()->rowCount(), 1);
    MdiChildEditor *doc = a.editors().at(0);
    QTextCursor c(doc->getEditor()->document()->findBlockByNumber(2));
    c.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    c.removeSelectedText();
    QCOMPARE(a.debug()->rowCount(), 0);
    QCOMPARE(a.messages()->rowCount(), 1);
    // The note moved up a line.
    QCOMPARE(a.messages()->data(a.messages()->index(0, 1)).toInt(), 3);
}

// Lines added above a report move its number at once, with no new
// analysis of the reported line: the id stays.
void TestReportDock::lineNumbersFollowInsertedLines()
{
    const QString file = writeFile(path("shift.mrc"),
                                   "alias a {\n  echo hi\n  echo $calc(1 +\n  ; todo: x\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);
    QCOMPARE(a.debug()->rowCount(), 1);
    const int errorId = a.debug()->data(a.debug()->index(0, 4)).toInt();
    const int noteId = a.messages()->data(a.messages()->index(0, 3)).toInt();
    QCOMPARE(a.debug()->data(a.debug()->index(0, 1)).toInt(), 3);

    MdiChildEditor *doc = a.editors().at(0);
    QTextCursor c(doc->getEditor()->document());
    c.insertText(QStringLiteral("\n\n"));
    QCOMPARE(a.debug()->data(a.debug()->index(0, 4)).toInt(), errorId);
    QCOMPARE(a.debug()->data(a.debug()->index(0, 1)).toInt(), 5);
    QCOMPARE(a.messages()->data(a.messages()->index(0, 3)).toInt(), noteId);
    QCOMPARE(a.messages()->data(a.messages()->index(0, 1)).toInt(), 6);

    // Lines of another file keep their numbers.
    a.report(3, 0, fileB, "root", 3, "elsewhere");
    c.insertText(QStringLiteral("\n"));
    const int other = rowOfId(a.debug(), 4, a.store()->ids().last());
    QCOMPARE(a.debug()->data(a.debug()->index(other, 1)).toInt(), 3);
}

// New numbers do not re-sort the list; the next report does.
void TestReportDock::lineShiftDoesNotSortAgain()
{
    const QString file = writeFile(path("order.mrc"), "alias a {\n  echo hi\n  echo $calc(1 +\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.debugView()->sortByColumn(1, Qt::DescendingOrder);
    a.report(4, 0, fileB, "root", 3, "b");
    a.openFile(file, false);
    // Sorted on Line, descending: fileB's 4 above the script's 3.
    QCOMPARE(a.debug()->rowCount(), 2);
    QCOMPARE(cell(a.debug(), 0, 0), fileB);
    QCOMPARE(cell(a.debug(), 1, 1), QStringLiteral("3"));

    QTextCursor c(a.editors().at(0)->getEditor()->document());
    c.insertText(QStringLiteral("\n\n"));
    QCOMPARE(cell(a.debug(), 1, 1), QStringLiteral("5"));
    QCOMPARE(cell(a.debug(), 0, 0), fileB);

    a.report(1, 0, fileB, "root", 3, "c");
    QCOMPARE(cell(a.debug(), 0, 1), QStringLiteral("5"));
    QCOMPARE(cell(a.debug(), 1, 1), QStringLiteral("4"));
    QCOMPARE(cell(a.debug(), 2, 1), QStringLiteral("1"));
}

void TestReportDock::doubleClickJumps()
{
    const QString one = writeFile(path("jump1.mrc"),
                                  "alias a {\n  echo hi\n  echo $calc(1 +\n}\n");
    const QString two = writeFile(path("jump2.mrc"),
                                  "alias b {\n  echo hi\n\n  ; todo: later\n}\n");
    MainWindow w;
    w.resize(900, 700);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    MainWindowTestAccess a(&w);
    a.openFile(one, false);
    a.openFile(two, false);
    MdiChildEditor *first = a.editors().at(0);
    MdiChildEditor *second = a.editors().at(1);
    QCOMPARE(a.tabs()->currentWidget(), second);

    // A real double click on the Debug row.
    QTreeView *view = a.debugView();
    a.reportTabs()->setCurrentWidget(view);
    const int line = a.debug()->data(a.debug()->index(0, 1)).toInt();
    const int col = a.debug()->data(a.debug()->index(0, 2)).toInt();
    QCOMPARE(line, 3);
    const QRect rect = view->visualRect(a.debug()->index(0, 1));
    QVERIFY(rect.isValid());
    // A double click is a press, a release and then the double click.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, rect.center());
    QCOMPARE(a.tabs()->currentWidget(), first);
    QTextCursor cur = first->getEditor()->textCursor();
    QCOMPARE(cur.blockNumber() + 1, line);
    QCOMPARE(cur.positionInBlock(), col);

    // The Messages row leads to the other document.
    const QModelIndex note = a.messages()->index(0, 0);
    a.statusDClick(note);
    QCOMPARE(a.tabs()->currentWidget(), second);
    cur = second->getEditor()->textCursor();
    QCOMPARE(cur.blockNumber() + 1, a.messages()->data(a.messages()->index(0, 1)).toInt());
    QCOMPARE(cur.positionInBlock(), a.messages()->data(a.messages()->index(0, 2)).toInt());
    QTRY_VERIFY(second->getEditor()->hasFocus());
}

void TestReportDock::doubleClickOnClosedFileDoesNothing()
{
    const QString one = writeFile(path("open1.mrc"), "alias a {\n  echo hi\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(one, false);
    a.report(2, 1, path("notopen.mrc"), "root", 3, "x");
    const int before = a.editors().at(0)->getEditor()->textCursor().position();
    a.debugDClick(a.debug()->index(0, 0));
    QCOMPARE(a.tabs()->count(), 1);
    QCOMPARE(a.editors().at(0)->getEditor()->textCursor().position(), before);
}

void TestReportDock::closingOneOfTwoRemovesOnlyItsRows()
{
    const QString one = writeFile(path("close1.mrc"),
                                  "alias a {\n  echo $calc(1 +\n  ; todo: a\n}\n");
    const QString two = writeFile(path("close2.mrc"),
                                  "alias b {\n  echo $calc(1 +\n  ; fixme: b\n}\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(one, false);
    a.openFile(two, false);
    auto filesIn = [](QStandardItemModel *m) {
        QSet<QString> f;
        for (int r = 0; r < m->rowCount(); ++r)
            f << m->data(m->index(r, 0)).toString();
        return f;
    };
    QCOMPARE(filesIn(a.debug()), QSet<QString>({one, two}));
    QCOMPARE(filesIn(a.messages()), QSet<QString>({one, two}));
    const QVector<int> keptDebug = idsIn(a.debug(), 4);

    QVERIFY(a.editors().at(0)->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(a.editors().size(), 1);
    QCOMPARE(filesIn(a.debug()), QSet<QString>({two}));
    QCOMPARE(filesIn(a.messages()), QSet<QString>({two}));
    QVERIFY(keptDebug.contains(a.debug()->data(a.debug()->index(0, 4)).toInt()));
}

void TestReportDock::copyError()
{
    MainWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    MainWindowTestAccess a(&w);
    a.reportTabs()->setCurrentWidget(a.debugView());
    a.report(3, 7, fileA, "Ident: $calc", 3, "No closing brace");
    a.report(5, 2, fileB, "root", 2, "Suspicious");
    // The current row counts, not the one under the mouse.
    const int row = rowOfId(a.debug(), 4, 3);
    a.debugView()->setCurrentIndex(a.debug()->index(row, 0));
    NestedLoopDriver driver({NestedLoopDriver::chooseEntry(QStringLiteral("Copy Error"))});
    a.customDebugMenu(QPoint(2, 2));
    QCOMPARE(driver.seen, QStringList({QStringLiteral("menu:Copy Error")}));
    QCOMPARE(QGuiApplication::clipboard()->text(), fileB + QStringLiteral(" 5:2 root Suspicious"));
}

void TestReportDock::copyWithoutCurrentRowGivesSeparators()
{
    MainWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    MainWindowTestAccess a(&w);
    a.report(3, 7, fileA, "root", 3, "x");
    a.debugView()->setCurrentIndex(QModelIndex());
    NestedLoopDriver driver({NestedLoopDriver::chooseEntry(QStringLiteral("Copy Error"))});
    a.customDebugMenu(QPoint(2, 2));
    QCOMPARE(driver.left(), 0);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral(" :  "));
}

// The Messages menu asks the Debug list whether to show.
void TestReportDock::messagesMenuKeyedOnDebugList()
{
    MainWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    MainWindowTestAccess a(&w);
    a.reportTabs()->setCurrentWidget(a.messagesView());

    {
        // Nothing anywhere: neither menu.
        NestedLoopDriver watch;
        a.customDebugMenu(QPoint(2, 2));
        a.customMessageMenu(QPoint(2, 2));
        QTest::qWait(50);
        QCOMPARE(watch.seen, QStringList());
    }
    {
        // A full Messages list and an empty Debug list: still no menu.
        a.report(4, 1, fileA, QString(), 11, "later");
        a.messagesView()->setCurrentIndex(a.messages()->index(0, 0));
        NestedLoopDriver watch;
        a.customMessageMenu(QPoint(2, 2));
        QTest::qWait(50);
        QCOMPARE(watch.seen, QStringList());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString());
    }
    {
        // One Debug row: the menu shows and copies the current message.
        a.report(1, 0, fileB, "root", 3, "e");
        NestedLoopDriver driver({NestedLoopDriver::chooseEntry(QStringLiteral("Copy Message"))});
        a.customMessageMenu(QPoint(2, 2));
        QCOMPARE(driver.seen, QStringList({QStringLiteral("menu:Copy Message")}));
        QCOMPARE(QGuiApplication::clipboard()->text(), fileA + QStringLiteral(" 4:1 later"));
    }
    {
        // And over an empty Messages list, with only the separators.
        a.removeError({a.messages()->data(a.messages()->index(0, 3)).toInt()});
        QCOMPARE(a.messages()->rowCount(), 0);
        QCOMPARE(a.debug()->rowCount(), 1);
        NestedLoopDriver driver({NestedLoopDriver::chooseEntry(QStringLiteral("Copy Message"))});
        a.customMessageMenu(QPoint(2, 2));
        QCOMPARE(driver.left(), 0);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral(" : "));
    }
}

// tarnwick-lint prints the reports that the dock holds for the same file,
// with the same ids.
void TestReportDock::lintPrintsWhatTheDockHolds()
{
#ifndef TARNWICK_LINT_PATH
    QSKIP("tarnwick-lint is not built");
#else
    const QString file = writeFile(
        path("same.mrc"),
        "rem old\nalias a {\n  echo $calc(1 + | echo $len(a,b)\n  ; todo: one\n  ; hack two\n}\n"
        "on *:TEXT:*:#:{ echo $nick(#,1 }\nalias\n");
    MainWindow w;
    MainWindowTestAccess a(&w);
    a.openFile(file, false);

    QStringList dock;
    for (const auto &[m, idColumn] :
         {std::pair<QStandardItemModel *, int>{a.debug(), 4}, {a.messages(), 3}}) {
        for (int r = 0; r < m->rowCount(); ++r) {
            const bool isDebug = idColumn == 4;
            dock << QStringLiteral("%1 %2:%3 [%4] %5")
                        .arg(m->data(m->index(r, idColumn)).toInt(), 4, 10, QLatin1Char('0'))
                        .arg(cell(m, r, 1), cell(m, r, 2), isDebug ? cell(m, r, 3) : QString(),
                             cell(m, r, isDebug ? 5 : 4));
        }
    }
    dock.sort();
    QVERIFY(dock.size() >= 4);

    QProcess lint;
    lint.start(QStringLiteral(TARNWICK_LINT_PATH), {QStringLiteral("--json"), file});
    QVERIFY(lint.waitForFinished(60000));
    const QJsonArray reports = QJsonDocument::fromJson(lint.readAllStandardOutput())
                                   .object().value(QLatin1String("files")).toArray().at(0)
                                   .toObject().value(QLatin1String("reports")).toArray();
    QStringList printed;
    for (const QJsonValue &v : reports) {
        const QJsonObject r = v.toObject();
        printed << QStringLiteral("%1 %2:%3 [%4] %5")
                       .arg(r.value(QLatin1String("id")).toInt(), 4, 10, QLatin1Char('0'))
                       .arg(r.value(QLatin1String("line")).toInt())
                       .arg(r.value(QLatin1String("col")).toInt())
                       .arg(r.value(QLatin1String("block")).toString(),
                            r.value(QLatin1String("message")).toString());
    }
    QCOMPARE(printed, dock);
#endif
}

QTEST_MAIN(TestReportDock)
#include "tst_reportdock.moc"
