// The line driver seen through a real document: block states, reports,
// colours and the life of reports as lines are edited and deleted.

#include "analyserharness.h"

#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

namespace {

const QString remInfo =
    QStringLiteral("Old-style rem comments are deprecated, consider using `;' comments.");
const QString trailing = QStringLiteral("Trailing text after end of a multi-line comment.");
const QString illFormed = QStringLiteral("Ill-formed script group");
const QString illFormedEnd = QStringLiteral("Ill-formed script group, expecting `#<group> end'");
const QString excess = QStringLiteral(
    "Excess characters after opening bracket, will result in `creation error'");
const QString noBracket =
    QStringLiteral("No opening bracket found, will result in `creation error'");

// Format runs of a line; an expectation "from 8: ..." looks only at the
// columns from 8 on, so header words painted by the header parsers do not
// matter to it. "*" skips the line.
QString runsFor(const AnalyserHarness &h, int block, const QString &expected)
{
    if (!expected.startsWith(QLatin1String("from ")))
        return h.formatRuns(block);
    const int colon = expected.indexOf(QLatin1Char(':'));
    const int from = expected.mid(5, colon - 5).toInt();
    return QStringLiteral("from %1: %2").arg(from).arg(h.formatRuns(block, from, -1));
}

QString brief(int line, int col, int type, const QString &block, const QString &msg)
{
    return QStringLiteral("%1:%2 %3 %4|%5").arg(line).arg(col).arg(type).arg(block, msg);
}

} // namespace

class TestDriver : public QObject
{
    Q_OBJECT

private slots:
    void script_data();
    void script();
    void groupRecords();
    void headerEditedIntoCommentKeepsMatchText();
    void multiLineFlag();
    void eventBodies_data();
    void eventBodies();
    void editedLineWithdrawsItsReports();
    void deletedLineTakesItsReports();
    void clearedDocumentTakesAllReports();
    void connectionSurvivesReanalysis();
    void silentLineHasNoConnection();
    void reportsCarryFileAndLine();
    void closingBracketRipplesDown();
    void badInput_data();
    void badInput();
    void randomTextLeavesNoReportBehind();
};

void TestDriver::script_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QStringList>("runs");

    // --- comments at top level
    QTest::newRow("one-line comment stays open")
        << QStringList{"/* note */", "echo a", "*/"} << QList<int>{2, 2, 1} << QStringList{}
        << QStringList{"commentFmt@0+10", "commentFmt@0+6", "commentFmt@0+2"};
    QTest::newRow("terminator behind blanks hides trailing text")
        << QStringList{"/* x", "    */ x"} << QList<int>{2, 1} << QStringList{}
        << QStringList{"commentFmt@0+4", "commentFmt@0+7"};
    QTest::newRow("trailing text after terminator")
        << QStringList{"/* x", "*/ xyz"} << QList<int>{2, 1}
        << QStringList{brief(2, 3, 3, "root", trailing)}
        << QStringList{"commentFmt@0+4", "commentFmt@0+3 errFmt@3+3"};
    QTest::newRow("terminator later in a line does not count")
        << QStringList{"/* x", "a */", "*/"} << QList<int>{2, 2, 1} << QStringList{}
        << QStringList{"*", "commentFmt@0+4", "commentFmt@0+2"};
    QTest::newRow("semicolon comment")
        << QStringList{"  ; just words"} << QList<int>{1} << QStringList{}
        << QStringList{"commentFmt@0+14"};
    QTest::newRow("rem comment") << QStringList{"rem old"} << QList<int>{1}
                                 << QStringList{brief(1, 0, 1, "root", remInfo)}
                                 << QStringList{"commentFmt@0+7"};
    QTest::newRow("rem alone") << QStringList{"REM"} << QList<int>{1}
                               << QStringList{brief(1, 0, 1, "root", remInfo)}
                               << QStringList{"commentFmt@0+3"};
    QTest::newRow("rem and one blank is no comment")
        << QStringList{"rem "} << QList<int>{1} << QStringList{} << QStringList{"errFmt@0+4"};
    QTest::newRow("remark is an unknown line")
        << QStringList{"remark x"} << QList<int>{1} << QStringList{}
        << QStringList{"errFmt@0+8"};
    QTest::newRow("blank line") << QStringList{"   "} << QList<int>{1} << QStringList{}
                                << QStringList{""};

    // --- script groups
    QTest::newRow("group on and end")
        << QStringList{"#grp on", "echo x", "#grp end", "echo y"}
        << QList<int>{0x75000, 0x75000, 1, 1} << QStringList{}
        << QStringList{"groupFmt@0+4 ctrlFmt@5+2", "errFmt@0+6", "groupFmt@0+4 ctrlFmt@5+3",
                       "errFmt@0+6"};
    QTest::newRow("group word is lower-cased")
        << QStringList{"#grp ON", "#grp END"} << QList<int>{0x75000, 1} << QStringList{}
        << QStringList{"groupFmt@0+4 ctrlFmt@5+2", "groupFmt@0+4 ctrlFmt@5+3"};
    QTest::newRow("group line with blanks around")
        << QStringList{"  #grp   off  "} << QList<int>{0x75000} << QStringList{}
        << QStringList{"groupFmt@0+6 ctrlFmt@9+5"};
    QTest::newRow("group with more words")
        << QStringList{"#grp on x"} << QList<int>{1}
        << QStringList{brief(1, 5, 3, "root", illFormed)} << QStringList{"errFmt@0+9"};
    QTest::newRow("hash alone") << QStringList{"#"} << QList<int>{1}
                                << QStringList{brief(1, 1, 3, "root", illFormed)}
                                << QStringList{"errFmt@0+1"};
    QTest::newRow("off inside a group leaves it")
        << QStringList{"#grp on", "#grp off", "#grp end"} << QList<int>{0x75000, 1, 1}
        << QStringList{brief(2, 5, 3, "root", illFormedEnd), brief(3, 5, 3, "root", illFormed)}
        << QStringList{"*", "errFmt@0+8", "errFmt@0+8"};
    QTest::newRow("rem inside a group throws the group away")
        << QStringList{"#grp on", "rem x", "#grp end"} << QList<int>{0x75000, 1, 1}
        << QStringList{brief(2, 0, 1, "root", remInfo), brief(3, 5, 3, "root", illFormed)}
        << QStringList{"*", "commentFmt@0+5", "errFmt@0+8"};
    QTest::newRow("semicolon comment keeps the group")
        << QStringList{"#g on", "; x", "#g end"} << QList<int>{0x75000, 0x75000, 1}
        << QStringList{} << QStringList{"*", "commentFmt@0+3", "groupFmt@0+2 ctrlFmt@3+3"};
    QTest::newRow("comment inside a group")
        << QStringList{"#g on", "/* c", "still", "*/", "#g end"}
        << QList<int>{0x75000, 3, 3, 0x75000, 1} << QStringList{}
        << QStringList{"*", "commentFmt@0+4", "commentFmt@0+5", "commentFmt@0+2", "*"};
    QTest::newRow("trailing text after a comment inside a group")
        << QStringList{"#g on", "/* c", "*/ x"} << QList<int>{0x75000, 3, 0x75000}
        << QStringList{brief(3, 3, 3, "root", trailing)}
        << QStringList{"*", "*", "commentFmt@0+3 errFmt@3+1"};

    // --- alias headers and bodies
    QTest::newRow("single-line alias")
        << QStringList{"alias x { echo a }", "echo b"} << QList<int>{1, 1} << QStringList{}
        << QStringList{"from 8: ctrlFmt@8+1 cmdFmt@10+4 ctrlFmt@17+1", "errFmt@0+6"};
    QTest::newRow("alias without bracket")
        << QStringList{"alias x echo a"} << QList<int>{1} << QStringList{}
        << QStringList{"from 7: cmdFmt@8+4"};
    QTest::newRow("glued bracket is no opening bracket")
        << QStringList{"alias x {echo a"} << QList<int>{1} << QStringList{}
        << QStringList{"from 7: "};
    QTest::newRow("alias alone is an unknown line")
        << QStringList{"alias", "  ALIAS"} << QList<int>{1, 1} << QStringList{}
        << QStringList{"errFmt@0+5", "errFmt@0+7"};
    QTest::newRow("multi-line alias")
        << QStringList{"alias x {", "  echo a", "}", "echo b"}
        << QList<int>{0x20001, 0x20001, 1, 1} << QStringList{}
        << QStringList{"from 8: ctrlFmt@8+1", "cmdFmt@2+4", "ctrlFmt@0+1", "errFmt@0+6"};
    QTest::newRow("negative count")
        << QStringList{"alias x { echo a } }", "echo b", "echo c"}
        << QList<int>{0x1FFFF, 1, 1}
        << QStringList{brief(1, 20, 3, "block",
                             "Unexpected closing bracket in the middle of expression")}
        << QStringList{"from 8: ctrlFmt@8+1 cmdFmt@10+4 ctrlFmt@17+2 errFmt@19+1", "errFmt@0+6",
                       "errFmt@0+6"};
    QTest::newRow("blank body line keeps the count")
        << QStringList{"alias x {", "", "   ", "}"} << QList<int>{0x20001, 0x20001, 0x20001, 1}
        << QStringList{} << QStringList{"*", "", "", "ctrlFmt@0+1"};
    QTest::newRow("comment lines in a body")
        << QStringList{"alias x {", "  ; c { ", "  rem y", "  rEm", "  /* z", "  } still",
                       "*/ tail", "}"}
        << QList<int>{0x20001, 0x20001, 0x20001, 0x20001, 0x21001, 0x21001, 0x20001, 1}
        << QStringList{brief(3, 2, 1, "alias", remInfo), brief(4, 2, 1, "alias", remInfo),
                       brief(7, 3, 3, "alias", trailing)}
        << QStringList{"*", "commentFmt@0+8", "commentFmt@2+5", "commentFmt@2+3",
                       "commentFmt@0+6", "commentFmt@0+9", "commentFmt@0+3 errFmt@3+4",
                       "ctrlFmt@0+1"};
    QTest::newRow("remove is no rem in a body")
        << QStringList{"alias x {", "  remove a", "}"} << QList<int>{0x20001, 0x20001, 1}
        << QStringList{} << QStringList{"*", "cmdFmt@2+6", "ctrlFmt@0+1"};
    QTest::newRow("comment terminator behind blanks in a body")
        << QStringList{"alias x {", "/*", "   */   ", "}"}
        << QList<int>{0x20001, 0x21001, 0x20001, 1} << QStringList{}
        << QStringList{"*", "commentFmt@0+2", "commentFmt@0+8", "ctrlFmt@0+1"};
    QTest::newRow("alias inside a group")
        << QStringList{"#g on", "alias x {", "echo a", "}", "#g end"}
        << QList<int>{0x75000, 0x95001, 0x95001, 0x75000, 1} << QStringList{}
        << QStringList{"*", "from 8: ctrlFmt@8+1", "cmdFmt@0+4", "ctrlFmt@0+1", "*"};
    QTest::newRow("single-line alias inside a group")
        << QStringList{"#g on", "alias x echo", "#g end"} << QList<int>{0x75000, 0x75000, 1}
        << QStringList{} << QStringList{"*", "from 7: cmdFmt@8+4", "*"};
    QTest::newRow("comment in a body inside a group")
        << QStringList{"#g on", "alias x {", "/* c", "*/", "}", "#g end"}
        << QList<int>{0x75000, 0x95001, 0x75000 + 0x21001, 0x95001, 0x75000, 1}
        << QStringList{} << QStringList{"*", "*", "commentFmt@0+4", "commentFmt@0+2", "*", "*"};
    QTest::newRow("header words inside a body are commands")
        << QStringList{"alias x {", "alias y {", "}", "}"}
        << QList<int>{0x20001, 0x20002, 0x20001, 1}
        << QStringList{brief(2, 9, 3, "block",
                             "Unexpected opening bracket in the middle of expression")}
        << QStringList{"*", "cmdFmt@0+5 errFmt@8+1", "ctrlFmt@0+1", "ctrlFmt@0+1"};

    // --- dialog headers
    QTest::newRow("dialog table")
        << QStringList{"dialog x {", "}", "echo"} << QList<int>{0x100, 1, 1} << QStringList{}
        << QStringList{"from 9: ctrlFmt@9+1", "*", "errFmt@0+4"};
    QTest::newRow("dialog with excess characters")
        << QStringList{"dialog x { y", "}"} << QList<int>{1, 1}
        << QStringList{brief(1, 11, 3, "Dialog", excess)}
        << QStringList{"from 9: ctrlFmt@9+1 errFmt@11+1", "errFmt@0+1"};
    QTest::newRow("dialog without bracket")
        << QStringList{"dialog x"} << QList<int>{1}
        << QStringList{brief(1, 8, 3, "Dialog", noBracket)} << QStringList{"from 8: "};
    QTest::newRow("dialog with glued bracket")
        << QStringList{"dialog x {y"} << QList<int>{1}
        << QStringList{brief(1, 9, 3, "Dialog", noBracket)}
        << QStringList{"from 9: errFmt@9+2"};
    QTest::newRow("dialog alone is an unknown line")
        << QStringList{"dialog"} << QList<int>{1} << QStringList{} << QStringList{"errFmt@0+6"};
    QTest::newRow("dialog inside a group")
        << QStringList{"#g on", "dialog x {", "}", "echo", "echo"}
        << QList<int>{0x75000, 0x75100, 0x75001, 0x75000, 0x75000} << QStringList{}
        << QStringList{"*", "from 9: ctrlFmt@9+1", "*", "errFmt@0+4", "errFmt@0+4"};
    QTest::newRow("blank line after a dialog inside a group")
        << QStringList{"#g on", "dialog x {", "}", "", "#g end"}
        << QList<int>{0x75000, 0x75100, 0x75001, 0x75000, 1} << QStringList{}
        << QStringList{"*", "*", "*", "", "groupFmt@0+2 ctrlFmt@3+3"};
    QTest::newRow("bad dialog header leaves the group")
        << QStringList{"#g on", "dialog x", "#g end"} << QList<int>{0x75000, 1, 1}
        << QStringList{brief(2, 8, 3, "Dialog", noBracket), brief(3, 3, 3, "root", illFormed)}
        << QStringList{"*", "*", "errFmt@0+6"};

    QTest::newRow("comment inside a dialog")
        << QStringList{"dialog x {", "/* c", "more", "  */  t u ", "}", "echo"}
        << QList<int>{0x100, 0x101, 0x101, 0x100, 1, 1}
        << QStringList{brief(4, 6, 3, "Dialog", trailing)}
        << QStringList{"*", "*", "commentFmt@0+4", "commentFmt@0+6 errFmt@6+3 commentFmt@9+1",
                       "*", "errFmt@0+4"};
    // The lines inside a table's comment write their states without the
    // group.
    QTest::newRow("comment inside a dialog loses the group")
        << QStringList{"#g on", "dialog x {", "/* c", "*/", "}", "#g end"}
        << QList<int>{0x75000, 0x75100, 0x75101, 0x100, 1, 1}
        << QStringList{brief(6, 3, 3, "root", illFormed)}
        << QStringList{"*", "*", "*", "commentFmt@0+2", "*", "errFmt@0+6"};

    // --- event word
    QTest::newRow("on alone is an unknown line")
        << QStringList{"on", "ON"} << QList<int>{1, 1} << QStringList{}
        << QStringList{"errFmt@0+2", "errFmt@0+2"};
    QTest::newRow("unknown event is an unknown line")
        << QStringList{"on *:nosuchevent:{", "#g on", "on *:nosuchevent:{", "#g end"}
        << QList<int>{1, 0x75000, 0x75000, 1} << QStringList{}
        << QStringList{"errFmt@0+18", "*", "errFmt@0+18", "*"};
}

void TestDriver::script()
{
    QFETCH(QStringList, lines);
    QFETCH(QList<int>, states);
    QFETCH(QStringList, reports);
    QFETCH(QStringList, runs);

    AnalyserHarness h;
    h.setLines(lines);

    QList<int> gotStates;
    for (int b = 0; b < lines.size(); ++b)
        gotStates << h.state(b);
    QCOMPARE(gotStates, states);
    QCOMPARE(h.briefs(), reports);
    for (int b = 0; b < runs.size(); ++b) {
        if (runs.at(b) == QLatin1String("*"))
            continue;
        QCOMPARE(runsFor(h, b, runs.at(b)), runs.at(b));
    }
}

void TestDriver::groupRecords()
{
    AnalyserHarness h;
    h.setLines({"#g on", "echo", "#g end", "#h on x", "; c"});
    QVERIFY(h.record(0)->isGroup);
    QCOMPARE(h.record(0)->groupState, 1);
    QVERIFY(!h.record(1)->isGroup);
    QCOMPARE(h.record(1)->groupState, 0);
    QVERIFY(h.record(2)->isGroup);
    QCOMPARE(h.record(2)->groupState, 2);
    QVERIFY(!h.record(3)->isGroup);
    QCOMPARE(h.record(3)->groupState, 0);

    // A group line edited into something else loses its mark.
    QTextCursor cur(h.document()->findBlockByNumber(0));
    cur.insertText(QStringLiteral("; "));
    QVERIFY(!h.record(0)->isGroup);
    QCOMPARE(h.record(0)->groupState, 0);
}

void TestDriver::headerEditedIntoCommentKeepsMatchText()
{
    AnalyserHarness h;
    h.setLines({"on *:text:hello:#:{", "echo a", "}", "alias -l y {", "}"});
    QCOMPARE(h.record(0)->blockType, int(CBlockData::Event));
    QCOMPARE(h.record(0)->matchtext, QStringLiteral("hello"));
    QVERIFY(h.record(0)->isMultiLine);
    QCOMPARE(h.record(3)->blockType, int(CBlockData::Alias));
    QVERIFY(h.record(3)->isLocal);

    // A new pass resets the record, except for the match text: consumers
    // look at the block type first.
    QTextCursor cur(h.document()->findBlockByNumber(0));
    cur.insertText(QStringLiteral("; "));
    CBlockData *rec = h.record(0);
    QCOMPARE(rec->blockType, int(CBlockData::NoBlock));
    QCOMPARE(rec->containedBlock, QString());
    QCOMPARE(rec->blockPos, -1);
    QVERIFY(!rec->isMultiLine);
    QCOMPARE(rec->matchtext, QStringLiteral("hello"));

    cur.setPosition(h.document()->findBlockByNumber(3).position());
    cur.insertText(QStringLiteral("; "));
    rec = h.record(3);
    QCOMPARE(rec->blockType, int(CBlockData::NoBlock));
    QVERIFY(!rec->isLocal);
    QCOMPARE(rec->containedBlock, QString());
    QCOMPARE(rec->blockPos, -1);
}

void TestDriver::multiLineFlag()
{
    AnalyserHarness h;
    h.setLines({"alias a {", "echo", "}", "alias b { echo }", "alias c { echo } }",
                "dialog d {", "}"});
    QVERIFY(h.record(0)->isMultiLine);
    QVERIFY(!h.record(1)->isMultiLine);
    QVERIFY(!h.record(2)->isMultiLine);
    QVERIFY(!h.record(3)->isMultiLine);
    QVERIFY(h.record(4)->isMultiLine); // the count went negative, which is not 0
    QVERIFY(!h.record(5)->isMultiLine); // dialogs never set it
}

void TestDriver::eventBodies_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<QStringList>("reports");

    QTest::newRow("multi-line event")
        << QStringList{"on *:load:{", "echo a", "}", "echo"} << QList<int>{0x24001, 0x24001, 1, 1}
        << QStringList{};
    QTest::newRow("single-line event")
        << QStringList{"on *:load:echo a", "echo"} << QList<int>{1, 1} << QStringList{};
    QTest::newRow("comment lines in an event body")
        << QStringList{"on *:load:{", "rem x", "/* c", "*/ t", "}"}
        << QList<int>{0x24001, 0x24001, 0x25001, 0x24001, 1}
        << QStringList{brief(2, 0, 1, "event", remInfo), brief(4, 3, 3, "alias", trailing)};
    QTest::newRow("event inside a group")
        << QStringList{"#g on", "on *:load:{", "echo", "}", "#g end"}
        << QList<int>{0x75000, 0x99001, 0x99001, 0x75000, 1} << QStringList{};
    // A count of -1 leaves a state that reads as a comment inside an alias.
    QTest::newRow("event body ending below zero")
        << QStringList{"on *:load:{", "echo } }", "echo", "*/", "echo"}
        << QList<int>{0x24001, 0x23FFF, 0x23FFF, 0x22FFF, 0x22FFF}
        << QStringList{brief(2, 8, 3, "block",
                             "Unexpected closing bracket in the middle of expression")};
}

void TestDriver::eventBodies()
{
    QFETCH(QStringList, lines);
    QFETCH(QList<int>, states);
    QFETCH(QStringList, reports);

    AnalyserHarness h;
    h.setLines(lines);
    QList<int> gotStates;
    for (int b = 0; b < lines.size(); ++b)
        gotStates << h.state(b);
    QCOMPARE(gotStates, states);
    QCOMPARE(h.briefs(), reports);
}

void TestDriver::editedLineWithdrawsItsReports()
{
    AnalyserHarness h;
    h.setLines({"alias x {", "  echo } a b c", "}"});
    // Count 0 after the bracket, three stray characters.
    QCOMPARE(h.reportsOn(2).size(), 3);
    const int before = h.withdrawnCount();
    QList<int> oldIds;
    for (const HarnessReport &r : h.reportsOn(2))
        oldIds << r.id;

    // Typing in the line withdraws all three; the two that still apply
    // come back.
    QTextCursor cur(h.document()->findBlockByNumber(1));
    cur.movePosition(QTextCursor::EndOfBlock);
    cur.deletePreviousChar();
    cur.deletePreviousChar();
    QCOMPARE(h.withdrawnCount() - before, 3 + 2); // two passes over the line
    const QList<HarnessReport> now = h.reportsOn(2);
    QCOMPARE(now.size(), 2);
    QCOMPARE(now.at(0).col, 9);
    QCOMPARE(now.at(1).col, 11);
    for (const HarnessReport &r : now)
        QVERIFY(r.line == 2);
}

void TestDriver::deletedLineTakesItsReports()
{
    AnalyserHarness h;
    h.setLines({"rem one", "echo", "rem two", "echo b"});
    QCOMPARE(h.reports().size(), 2);
    const int emitted = h.emittedCount();
    const int withdrawn = h.withdrawnCount();

    // Delete the third line, line end included.
    QTextCursor cur(h.document()->findBlockByNumber(2));
    cur.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    cur.removeSelectedText();

    QCOMPARE(h.document()->blockCount(), 3);
    QCOMPARE(h.emittedCount(), emitted);
    QCOMPARE(h.withdrawnCount(), withdrawn + 1);
    QCOMPARE(h.briefs(), QStringList{brief(1, 0, 1, "root", remInfo)});
}

void TestDriver::clearedDocumentTakesAllReports()
{
    AnalyserHarness h;
    h.setLines({"rem one", "#", "alias x {", "echo } x"});
    QCOMPARE(h.reports().size(), 3);
    const int emitted = h.emittedCount();
    const int withdrawn = h.withdrawnCount();
    h.document()->clear();
    QCOMPARE(h.reports().size(), 0);
    QCOMPARE(h.withdrawnCount() - withdrawn, 3);
    QCOMPARE(h.emittedCount(), emitted);
}

void TestDriver::connectionSurvivesReanalysis()
{
    AnalyserHarness h;
    h.setLines({"#g on x"});
    QCOMPARE(h.reports().size(), 1);
    QVERIFY(h.record(0)->isConnected);

    QTextCursor cur(h.document()->findBlockByNumber(0));
    cur.movePosition(QTextCursor::EndOfBlock);
    cur.deletePreviousChar();
    cur.deletePreviousChar(); // "#g on": mended
    QCOMPARE(h.reports().size(), 0);
    QVERIFY(h.record(0)->isConnected);

    cur.insertText(QStringLiteral(" y")); // spoiled again
    QCOMPARE(h.reports().size(), 1);
    const int before = h.withdrawnCount();
    cur.deletePreviousChar();
    cur.deletePreviousChar(); // mended again: the new report goes as well
    QCOMPARE(h.reports().size(), 0);
    QCOMPARE(h.withdrawnCount() - before, 1);
}

void TestDriver::silentLineHasNoConnection()
{
    AnalyserHarness h;
    h.setLines({"; fine", "#g on x"});
    QVERIFY(h.record(0));
    QVERIFY(!h.record(0)->isConnected);
    QVERIFY(h.record(1)->isConnected);
}

void TestDriver::reportsCarryFileAndLine()
{
    AnalyserHarness h;
    h.highlighter()->setFn(QStringLiteral("/tmp/some script.mrc"));
    h.setLines({"echo", "", "#"});
    QCOMPARE(h.reports().size(), 1);
    QCOMPARE(h.reports().at(0).file, QStringLiteral("/tmp/some script.mrc"));
    QCOMPARE(h.reports().at(0).line, 3);
    QCOMPARE(h.reports().at(0).id, 2); // the sink's first id
}

void TestDriver::closingBracketRipplesDown()
{
    AnalyserHarness h;
    h.setLines({"alias x {", "echo a", "}", "alias y {", "echo b", "}"});
    QCOMPARE(h.state(3), 0x20001);

    // Deleting the first closing bracket pulls every later line into the
    // first body.
    QTextCursor cur(h.document()->findBlockByNumber(2));
    cur.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cur.removeSelectedText();
    QList<int> states;
    for (int b = 0; b < 6; ++b)
        states << h.state(b);
    QCOMPARE(states, (QList<int>{0x20001, 0x20001, 0x20001, 0x20002, 0x20002, 0x20001}));
    QCOMPARE(h.formatRuns(3), QStringLiteral("cmdFmt@0+5 errFmt@8+1"));

    // And typing it back releases them.
    cur.insertText(QStringLiteral("}"));
    states.clear();
    for (int b = 0; b < 6; ++b)
        states << h.state(b);
    QCOMPARE(states, (QList<int>{0x20001, 0x20001, 1, 0x20001, 0x20001, 1}));
}

void TestDriver::badInput_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("invalid UTF-8 bytes")
        << QString::fromUtf8("alias x {\n echo \xff\xfe \xc3( }\n\x80\x81 /* \xed\xa0\x80\n");
    QTest::newRow("NUL characters")
        << (QStringLiteral("alias x {") + QChar(0) + QStringLiteral(" echo ") + QChar(0)
            + QStringLiteral("\n") + QChar(0) + QStringLiteral("}\n#g") + QChar(0));
    QTest::newRow("CR-only line ends")
        << QStringLiteral("alias x {\r echo a\r}\r#g on\r/* x\r*/ y\r");
    QTest::newRow("lone surrogates")
        << (QStringLiteral("alias x {\n echo") + QChar(0xD800) + QStringLiteral(" ")
            + QChar(0xDC00) + QStringLiteral("echo | ") + QChar(0xDBFF) + QStringLiteral("\n}"));
    QTest::newRow("only separators")
        << QStringLiteral("alias x { | | | } } { {\n| } { | /* | */ } |\n}}}}\n");
}

void TestDriver::badInput()
{
    QFETCH(QString, text);
    AnalyserHarness h;
    h.setText(text);
    for (int b = 0; b < h.document()->blockCount(); ++b)
        QVERIFY(h.record(b));
    for (const HarnessReport &r : h.reports()) {
        QVERIFY(r.line >= 1 && r.line <= h.document()->blockCount());
        QVERIFY(r.col >= 0);
    }
    h.setText(QString());
    QCOMPARE(h.reports().size(), 0);
}

void TestDriver::randomTextLeavesNoReportBehind()
{
    // Text from the characters the analyser cares about, a fixed seed.
    const QString alphabet = QStringLiteral("   {}|$%;/*#:,()-aeclosrmnvigdx\t") + QChar(0xFFFD)
        + QChar(0x00E9);
    QRandomGenerator rng(20240611);
    AnalyserHarness h;
    for (int round = 0; round < 40; ++round) {
        QString text;
        const int length = int(rng.bounded(400));
        for (int i = 0; i < length; ++i)
            text += rng.bounded(12) == 0 ? QChar(QLatin1Char('\n'))
                                         : alphabet.at(int(rng.bounded(alphabet.size())));
        h.setText(text);
        // Every report belongs to a line that exists and has its id stored.
        for (const HarnessReport &r : h.reports()) {
            QVERIFY(r.line >= 1 && r.line <= h.document()->blockCount());
            QVERIFY(h.record(r.line - 1)->remId.containsErr(r.id));
        }
    }
    h.setText(QString());
    QCOMPARE(h.reports().size(), 0);
}

QTEST_MAIN(TestDriver)
#include "tst_driver.moc"
