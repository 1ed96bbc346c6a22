// The report dock of a real main window: ids, lists and icons, the order
// kept while reports come and go and the user sorts, rows held back during
// a pass; rows following the edited text, and the jumps and copies.

#include "appsupport.h"

const QString fileA = QStringLiteral("/scripts/a.mrc"), fileB = QStringLiteral("/scripts/b.mrc");

static QString cell(const QStandardItemModel *m, int row, int column)
{
    return m->data(m->index(row, column)).toString();
}

static QVector<int> idsOf(const QStandardItemModel *m)
{
    QVector<int> ids;
    for (int r = 0; r < m->rowCount(); ++r)
        ids << cell(m, r,
                    m->columnCount() == ReportStore::DebugColumns ? ReportStore::DebugIdColumn
                                                                  : ReportStore::MessagesIdColumn)
                   .toInt();
    return ids;
}

// File and line of each row, Debug list | Messages list.
static QString places(const MainWindowTestAccess &a)
{
    QStringList out;
    for (QStandardItemModel *m : {a.debug(), a.messages()}) {
        for (int r = 0; r < m->rowCount(); ++r)
            out << QFileInfo(cell(m, r, 0)).fileName() + ':' + cell(m, r, 1);
        out << "|";
    }
    return out.join(' ');
}

// The rows are a stable sort of `before` and `id` on the view's column.
static bool placedAsStableSort(const QStandardItemModel *m, const QVector<int> &before, int id,
                               const QHeaderView *header)
{
    const QVector<int> after = idsOf(m);
    const int column = header->sortIndicatorSection();
    if (column >= m->columnCount())
        return after == before + QVector<int>{id};
    const bool ascending = header->sortIndicatorOrder() == Qt::AscendingOrder;
    auto less = [&](int r1, int r2) {
        return *m->item(ascending ? r1 : r2, column) < *m->item(ascending ? r2 : r1, column);
    };
    auto oldPlace = [&](int row) {
        return before.contains(after.at(row)) ? before.indexOf(after.at(row)) : before.size();
    };
    for (int r = 1; r < m->rowCount(); ++r)
        if (less(r, r - 1) || (!less(r - 1, r) && oldPlace(r - 1) > oldPlace(r)))
            return false;
    return after.size() == before.size() + 1 && after.contains(id);
}

class TestReportDock : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(files.isValid());
        redirectSettings(files.path());
        initialiseAnalyser();
    }

    // A new report takes the greatest standing id plus one, 2 in empty lists;
    // its cells sort as numbers where they are numbers.
    void idsAndCells()
    {
        MainWindowTestAccess a;
        a.debugView()->sortByColumn(1, Qt::AscendingOrder);
        QCOMPARE(a.report(10, 3, fileA, "Ident: $calc", 3, "Too many parameters"), 2);
        QCOMPARE(a.report(9, 0, fileA, QString(), 13, "hack"), 3);
        QCOMPARE(a.report(9, 1, fileB, "root", 2, "later"), 4);
        QCOMPARE(modelRows(a.debug()) + modelRows(a.messages()),
                 QStringList({fileB + "|9|1|root|4|later",
                              fileA + "|10|3|Ident: $calc|2|Too many parameters",
                              fileA + "|9|0|3|hack"}));
        a.removeError({4, 99});
        QCOMPARE(a.report(3, 0, fileA, "root", 1, "i"), 4);
        a.removeError({2});
        QCOMPARE(a.report(3, 0, fileA, "root", 1, "i"), 5);
        QCOMPARE(a.report(3, 0, fileB, "root", 14, "xxx"), 6);
        a.editorFclosed(fileB);
        QCOMPARE(a.report(1, 0, fileA, "root", 3, "e"), 6);
        a.debug()->removeRows(0, a.debug()->rowCount());
        QCOMPARE(a.report(1, 0, fileA, "root", 3, "e"), 4);
        a.removeError({3, 4});
        QCOMPARE(a.report(1, 0, fileA, QString(), 14, "xxx"), 2);
    }

    // Types above 9 are notes, in the Messages list; each type its picture.
    void listsAndIcons()
    {
        const QStringList icons = {"",          "information",
                                   "warning",   "error",
                                   "",          "",
                                   "",          "",
                                   "",          "",
                                   "msgs/blue", "msgs/green",
                                   "msgs/grey", "msgs/orange",
                                   "msgs/red",  "msgs/yellow",
                                   ""};
        for (int type = 0; type <= 16; ++type) {
            MainWindowTestAccess a;
            a.report(4, 2, fileA, "root", type, "m");
            QStandardItemModel *m = type > 9 ? a.messages() : a.debug();
            const QIcon icon(
                QStringLiteral(":/messages/syntax%1/resources/img_assets/messages/syntax/%2.png")
                    .arg(icons[type].contains('/') ? "/msgs" : "", icons[type]));
            QVERIFY2(a.debug()->rowCount() + a.messages()->rowCount() == 1
                         && m->item(0, m->columnCount() - 1)->icon().pixmap(16).toImage()
                             == icon.pixmap(16).toImage(),
                     qPrintable(QString::number(type)));
        }
    }

    // Random reports, withdrawals and sorts: ids stand once, rows in order.
    void randomRunKeepsStableOrder()
    {
        for (quint32 seed : {3u, 99u, 4242u, 123456u}) {
            QRandomGenerator rng(seed);
            MainWindowTestAccess a;
            const QStringList names = {fileA, fileB, "/scripts/A.mrc"},
                              words = {"root", "alias", "", "Ident: $x"};
            for (int step = 0; step < 300; ++step) {
                const QByteArray where
                    = QByteArray::number(seed) + " step " + QByteArray::number(step);
                const int op = rng.bounded(100);
                if (op < 60) {
                    const int type = rng.bounded(0, 17);
                    QStandardItemModel *m = type > 9 ? a.messages() : a.debug();
                    const QVector<int> before = idsOf(m);
                    const int id
                        = a.report(rng.bounded(1, 12), rng.bounded(0, 4), names.at(rng.bounded(3)),
                                   words.at(rng.bounded(4)), type, rng.bounded(2) ? "Bad" : "bad");
                    QVERIFY2(
                        placedAsStableSort(m, before, id,
                                           (type > 9 ? a.messagesView() : a.debugView())->header()),
                        where.constData());
                } else if (op < 85) {
                    QVector<int> ids = a.store()->ids(),
                                 expected = idsOf(a.debug()) + idsOf(a.messages());
                    std::shuffle(ids.begin(), ids.end(), rng);
                    ids.resize(std::min<int>(ids.size(), rng.bounded(1, 4)));
                    expected.removeIf([&](int id) { return ids.contains(id); });
                    a.removeError(ids);
                    QVERIFY2(idsOf(a.debug()) + idsOf(a.messages()) == expected, where.constData());
                } else {
                    QTreeView *view = rng.bounded(2) ? a.messagesView() : a.debugView();
                    view->header()->setSortIndicator(rng.bounded(0, 6),
                                                     rng.bounded(2) ? Qt::AscendingOrder
                                                                    : Qt::DescendingOrder);
                }
                QVector<int> all = idsOf(a.debug()) + idsOf(a.messages());
                std::sort(all.begin(), all.end());
                QVERIFY2(all == a.store()->ids(), where.constData());
            }
        }
    }

    // Rows held during a rippling pass end up as a store fed row by row has them.
    void heldPassGivesTheSameRows()
    {
        QByteArray script = "alias big {\n";
        for (int i = 0; i < 12; ++i)
            script += "  echo $calc(1 +\n  ; todo: n" + QByteArray::number(i)
                + "\n  if (x) {\n    echo $calc(2 +\n  }\n";
        script += "}\nalias after {\n  echo $calc(3 +\n}\n";
        for (const auto &[column, order] : {std::pair(0, Qt::DescendingOrder),
                                            {1, Qt::AscendingOrder},
                                            {2, Qt::DescendingOrder},
                                            {5, Qt::AscendingOrder}}) {
            MainWindowTestAccess a;
            a.debugView()->sortByColumn(column, order);
            a.messagesView()->sortByColumn(std::min(column, 4), order);
            a.openFile(writeFile(files.filePath("ripple.mrc"), ""), false);
            MdiChildEditor *doc = a.editors().at(0);
            QTextDocument *text = doc->getEditor()->document();
            QStandardItemModel debug(0, ReportStore::DebugColumns),
                messages(0, ReportStore::MessagesColumns);
            ReportStore plain(&debug, &messages);
            int calls = 0, sameId = 0, held = 0, withdrawn = 0;
            connect(
                doc->getHighlighter(), &MslSyntaxHighlighter::updateError, this,
                [&](int line, int col, QString file, QString block, QString, int type, QString err,
                    int &errId) {
                    const QHeaderView *h = (type > 9 ? a.messagesView() : a.debugView())->header();
                    ++calls;
                    sameId += plain.addReport(line, col, file, block, type, err,
                                              h->sortIndicatorSection(), h->sortIndicatorOrder())
                        == errId;
                    held += a.store()->holdingRows();
                },
                Qt::DirectConnection);
            connect(doc->getHighlighter(), &MslSyntaxHighlighter::removeError, this,
                    [&](QVector<int> &ids) {
                        plain.removeReports(ids);
                        withdrawn += ids.size();
                    });
            connect(doc, &MdiChildEditor::blocksChanged, this,
                    [&](QFileInfo info, MdiChildEditor *) {
                        plain.updateLines(info.absoluteFilePath(), text);
                    });
            MslTextEditor *editor = doc->getEditor();
            QStringList differ;
            const auto same = [&](const char *step) {
                if (a.store()->holdingRows() || modelRows(a.debug()) != modelRows(&debug)
                    || modelRows(a.messages()) != modelRows(&messages))
                    differ << step;
            };
            const auto typeAtEndOf = [editor](int line, const QString &keys) {
                editor->gotoLine(line);
                editor->moveCursor(QTextCursor::EndOfBlock);
                QTest::keyClicks(editor, keys);
            };
            QTextCursor(text).insertText(QString::fromLatin1(script));
            same("loaded");
            typeAtEndOf(1, "x"); // "{x" opens no block
            same("typed");
            QTextCursor c(text->findBlockByNumber(10));
            c.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, 3);
            c.removeSelectedText();
            same("lines removed");
            QVERIFY(calls >= 48 && withdrawn >= 24);
            QCOMPARE(differ, QStringList());
            QCOMPARE(QVector<int>({sameId, held}), QVector<int>({calls, calls}));
            text->setModified(false);
        }
    }

    // Edits withdraw and refile a line's rows; lines moved keep ids, unsorted.
    void rowsFollowTheText()
    {
        const QString file = writeFile(
            files.filePath("edit.mrc"),
            "alias a {\n  echo hi\n  echo $calc(1 + | echo $calc(2 +\n  ; todo: x\n}\n");
        MainWindowTestAccess a;
        a.debugView()->sortByColumn(ReportStore::LineColumn, Qt::DescendingOrder);
        a.report(4, 0, fileB, "root", 3, "b");
        a.openFile(file, false);
        QCOMPARE(places(a), QStringLiteral("b.mrc:4 edit.mrc:3 edit.mrc:3 | edit.mrc:4 |"));
        QTextDocument *text = a.editors().at(0)->getEditor()->document();
        QTextCursor c(text->findBlockByNumber(2));
        c.movePosition(QTextCursor::EndOfBlock);
        c.insertText(")");
        auto *rec = recordOf(text->findBlockByNumber(2));
        const QVector<int> shown = idsOf(a.debug()).mid(1);
        QVERIFY(rec
                && std::is_permutation(shown.begin(), shown.end(), rec->remId.err.begin(),
                                       rec->remId.err.end()));
        for (const char *line : {"  echo fine", "  echo $calc(1 +"}) {
            c.movePosition(QTextCursor::StartOfBlock);
            c.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            c.insertText(line);
            QCOMPARE(a.debug()->rowCount(), line[7] == '$' ? 2 : 1);
        }
        const QVector<int> kept = idsOf(a.debug()).mid(1) + idsOf(a.messages());
        QTextCursor(text).insertText("\n\n");
        QCOMPARE(places(a), QStringLiteral("b.mrc:4 edit.mrc:5 | edit.mrc:6 |"));
        QCOMPARE(idsOf(a.debug()).mid(1) + idsOf(a.messages()), kept);
        a.report(1, 0, fileB, "root", 3, "c");
        QCOMPARE(places(a), QStringLiteral("edit.mrc:5 b.mrc:4 b.mrc:1 | edit.mrc:6 |"));
        c = QTextCursor(text->findBlockByNumber(4));
        c.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
        c.removeSelectedText();
        QCOMPARE(places(a), QStringLiteral("b.mrc:4 b.mrc:1 | edit.mrc:5 |"));
        // A closed document's rows go, and only those (here the top one).
        a.openFile(writeFile(files.filePath("aaa.mrc"), "alias b {\n  ; fixme: b\n}\n"), false);
        QCOMPARE(places(a), QStringLiteral("b.mrc:4 b.mrc:1 | edit.mrc:5 aaa.mrc:2 |"));
        text->setModified(false);
        QVERIFY(a.editors().at(0)->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(places(a), QStringLiteral("b.mrc:4 b.mrc:1 | aaa.mrc:2 |"));
    }

    // A double click goes to the row's line and column; a closed file nowhere.
    void doubleClickJumps()
    {
        MainWindowTestAccess a;
        a.window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&a.window()));
        a.openFile(
            writeFile(files.filePath("jump1.mrc"), "alias a {\n  echo hi\n  echo $calc(1 +\n}\n"),
            false);
        a.openFile(
            writeFile(files.filePath("jump2.mrc"), "alias b {\n  echo hi\n\n  ; todo: later\n}\n"),
            false);
        auto where = [&a] {
            const QTextCursor c = static_cast<MdiChildEditor *>(a.tabs()->currentWidget())
                                      ->getEditor()
                                      ->textCursor();
            return QStringLiteral("%1 %2:%3")
                .arg(a.tabs()->currentIndex())
                .arg(c.blockNumber() + 1)
                .arg(c.positionInBlock());
        };
        const QPoint at = a.debugView()->visualRect(a.debug()->index(0, 1)).center();
        QTest::mouseClick(a.debugView()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(a.debugView()->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(where(), "0 3:" + cell(a.debug(), 0, 2));
        QVERIFY(cell(a.debug(), 0, 2).toInt() > 0);
        a.doubleClick(false, a.messages()->index(0, 0));
        QCOMPARE(where(), "1 4:" + cell(a.messages(), 0, 2));
        QTRY_VERIFY(a.editors().at(1)->getEditor()->hasFocus());
        a.report(2, 1, files.filePath("notopen.mrc"), "root", 3, "x");
        a.doubleClick(true, a.debug()->findItems(files.filePath("notopen.mrc")).at(0)->index());
        QCOMPARE(where(), "1 4:" + cell(a.messages(), 0, 2));
    }

    // The menus copy the current row; Messages' only while Debug has rows.
    void copyFromTheMenus()
    {
        MainWindowTestAccess a;
        a.window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&a.window()));
        auto copy = [&](bool debug) {
            QGuiApplication::clipboard()->clear();
            NestedLoopDriver driver({NestedLoopDriver::firstEntry()});
            a.reportMenu(debug);
            return driver.seen.join(',') + ' ' + QGuiApplication::clipboard()->text();
        };
        QCOMPARE(copy(true), QStringLiteral(" "));
        a.report(4, 1, fileA, QString(), 11, "later");
        a.messagesView()->setCurrentIndex(a.messages()->index(0, 0));
        QCOMPARE(copy(false), QStringLiteral(" "));
        a.report(3, 7, fileA, "Ident: $calc", 3, "No closing brace");
        a.report(5, 2, fileB, "root", 2, "Suspicious");
        a.debugView()->setCurrentIndex(a.debug()->findItems(fileB).at(0)->index());
        QCOMPARE(copy(true), "menu:Copy Error " + fileB + " 5:2 root Suspicious");
        QCOMPARE(copy(false), "menu:Copy Message " + fileA + " 4:1 later");
        a.debugView()->setCurrentIndex(QModelIndex());
        QCOMPARE(copy(true), QStringLiteral("menu:Copy Error  :  "));
    }

private:
    QTemporaryDir files;
};

TARNWICK_TEST(TestReportDock);
#include "tst_reportdock.moc"
