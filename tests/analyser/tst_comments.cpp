// Inlined comments behind command separators, and the developer notes of
// whole-line comments, through a real document.

#include "analyserharness.h"

#include <QtTest>

namespace {

const QString openingComment = QStringLiteral("Unexpected opening bracket in inlined-comment");
const QString closingComment = QStringLiteral("Unexpected closing bracket in inlined-comment");
const QString trailing = QStringLiteral("Trailing text after end of a multi-line comment.");
const QString neverTerminated =
    QStringLiteral("Inlined multi-line comment was never terminated - missing a `| */'");

QString err(int col, const QString &msg)
{
    return QStringLiteral("2:%1 3 block|%2").arg(col).arg(msg);
}

QString note(int line, int col, int type, const QString &text)
{
    return QStringLiteral("%1:%2 %3 |%4").arg(line).arg(col).arg(type).arg(text);
}

} // namespace

class TestComments : public QObject
{
    Q_OBJECT

private slots:
    void inlined_data();
    void inlined();
    void unterminatedStopsTheLine();
    void tags_data();
    void tags();
    void tagsFollowEdits();
};

void TestComments::inlined_data()
{
    // One body line of an alias with one open bracket.
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    QTest::newRow("comment to the end") << "echo a | ; note" << 1 << QStringList{}
                                        << "cmdFmt@0+4 commentFmt@9+6";
    QTest::newRow("comment up to a bar")
        << "echo a | ; note | echo b" << 1 << QStringList{}
        << "cmdFmt@0+4 commentFmt@9+7 cmdFmt@18+4";
    QTest::newRow("glued semicolon") << "echo a | ;x | echo b" << 1 << QStringList{}
                                     << "cmdFmt@0+4 commentFmt@9+3 cmdFmt@14+4";
    QTest::newRow("opening bracket in a comment")
        << "echo a | ; note { x" << 2 << QStringList{err(16, openingComment)}
        << "cmdFmt@0+4 commentFmt@9+7 errFmt@16+1 commentFmt@17+2";
    // Counted without a report; the last paint covers the mark again.
    QTest::newRow("closing bracket in a comment")
        << "echo a | ; note } x" << 0 << QStringList{} << "cmdFmt@0+4 commentFmt@9+10";
    QTest::newRow("glued brackets in a comment")
        << "echo a | ; {x} }y" << 1 << QStringList{} << "cmdFmt@0+4 commentFmt@9+8";
    QTest::newRow("rem behind a bar") << "echo a | rem note" << 1 << QStringList{}
                                      << "cmdFmt@0+4 commentFmt@9+8";
    QTest::newRow("REM alone behind a bar") << "echo a | REM" << 1 << QStringList{}
                                            << "cmdFmt@0+4 commentFmt@9+3";

    QTest::newRow("unterminated") << "echo a | /* note" << 1
                                  << QStringList{err(7, neverTerminated)}
                                  << "cmdFmt@0+4 commentNoEndFmt@9+7";
    QTest::newRow("terminated by bar and mark")
        << "echo a | /* note | */" << 1 << QStringList{} << "cmdFmt@0+4 commentFmt@9+12";
    QTest::newRow("mark alone does not terminate")
        << "echo a | /* note */" << 1 << QStringList{err(10, neverTerminated)}
        << "cmdFmt@0+4 commentNoEndFmt@9+10";
    QTest::newRow("trailing text at the end")
        << "echo a | /* note | */ tail" << 1 << QStringList{err(21, trailing)}
        << "cmdFmt@0+4 commentFmt@9+12 errFmt@21+5";
    QTest::newRow("trailing text before a bar")
        << "echo a | /* note | */ tail | echo b" << 1 << QStringList{}
        << "cmdFmt@0+4 commentFmt@9+12 errFmt@21+6 cmdFmt@29+4";
    QTest::newRow("bar right behind the mark")
        << "echo a | /* note | */ | echo b" << 1 << QStringList{}
        << "cmdFmt@0+4 commentFmt@9+12 cmdFmt@24+4";
    // The bracket's paint stops one short, leaving the blank before it.
    QTest::newRow("opening bracket in the comment")
        << "echo a | /* x { y | */" << 2 << QStringList{err(14, openingComment)}
        << "cmdFmt@0+4 commentFmt@9+4 errFmt@14+1 commentFmt@15+7";
    QTest::newRow("closing bracket in an unterminated comment")
        << "echo a | /* x } y" << 0
        << QStringList{err(14, closingComment), err(2, neverTerminated)}
        << "cmdFmt@0+4 commentFmt@9+4 errFmt@14+1 commentNoEndFmt@15+2";
    QTest::newRow("a bar that is no terminator is a word")
        << "echo a | /* x | y | */" << 1 << QStringList{} << "cmdFmt@0+4 commentFmt@9+13";
    // The word behind such a bar is not tested as a word start.
    QTest::newRow("bracket behind a lone bar is not counted")
        << "echo a | /* x | { | */" << 1 << QStringList{} << "cmdFmt@0+4 commentFmt@9+13";
    // The position runs one past the line before the report is made.
    QTest::newRow("bar at the end of an unterminated comment")
        << "echo a | /* x |" << 1 << QStringList{err(7, neverTerminated)}
        << "cmdFmt@0+4 commentNoEndFmt@9+6";
    QTest::newRow("opening bracket after the mark")
        << "echo a | /* x | */ { y" << 2 << QStringList{err(19, openingComment), err(20, trailing)}
        << "cmdFmt@0+4 commentFmt@9+9 errFmt@19+3";
    QTest::newRow("closing bracket after the mark")
        << "echo a | /* x | */ }" << 0 << QStringList{err(19, closingComment)}
        << "cmdFmt@0+4 commentFmt@9+9 errFmt@19+1";
    QTest::newRow("glued mark after the bar")
        << "echo a | /* x |*/" << 1 << QStringList{err(8, neverTerminated)}
        << "cmdFmt@0+4 commentNoEndFmt@9+8";
    QTest::newRow("comment word glued is a word")
        << "echo a | /*x" << 1 << QStringList{} << "cmdFmt@0+4";
}

void TestComments::inlined()
{
    QFETCH(QString, line);
    QFETCH(int, count);
    QFETCH(QStringList, reports);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines({QStringLiteral("alias x {"), line});
    QCOMPARE(h.state(1), count == 0 ? 1 : 0x20000 + count);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(1), runs);
}

void TestComments::unterminatedStopsTheLine()
{
    AnalyserHarness h;
    // Nothing behind the comment is analysed, and a leading bar does not
    // double a line that stopped.
    h.setLines({"alias x {", "echo a | /* x | echo b {x", "| /* y", "}"});
    QCOMPARE(h.briefs(), (QStringList{err(16, neverTerminated),
                                      QStringLiteral("3:4 3 block|") + neverTerminated}));
    QCOMPARE(h.formatRuns(1), QStringLiteral("cmdFmt@0+4 commentNoEndFmt@9+16"));
    QCOMPARE(h.formatRuns(2), QStringLiteral("commentNoEndFmt@2+4"));
    QCOMPARE(h.state(1), 0x20001);
    QCOMPARE(h.state(2), 0x20001);
    QCOMPARE(h.state(3), 1);
}

void TestComments::tags_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<int>("block");
    QTest::addColumn<QString>("runs");

    QTest::newRow("todo with colon")
        << QStringList{"; TODO: write this"} << QStringList{note(1, 2, 11, "write this")} << 0
        << "commentFmt@0+2 todoFmt@2+5 commentFmt@7+11";
    QTest::newRow("todo glued to the marker")
        << QStringList{";todo"} << QStringList{note(1, 1, 11, "")} << 0
        << "commentFmt@0+1 todoFmt@1+4";
    QTest::newRow("fixme") << QStringList{"; fixme x"} << QStringList{note(1, 2, 15, "x")} << 0
                           << "commentFmt@0+2 todoFmt@2+5 commentFmt@7+2";
    QTest::newRow("hack with colon")
        << QStringList{"; hack: y"} << QStringList{note(1, 2, 13, "y")} << 0
        << "commentFmt@0+2 todoFmt@2+5 commentFmt@7+2";
    QTest::newRow("xxx upper-case") << QStringList{"; XXX z"} << QStringList{note(1, 2, 14, "z")}
                                    << 0 << "commentFmt@0+2 todoFmt@2+3 commentFmt@5+2";
    QTest::newRow("xxx with colon alone")
        << QStringList{"; xxx:"} << QStringList{note(1, 2, 14, "")} << 0
        << "commentFmt@0+2 todoFmt@2+4";
    QTest::newRow("split word") << QStringList{"; to do"} << QStringList{} << 0
                                << "commentFmt@0+7";
    QTest::newRow("word with a dot") << QStringList{"; todo."} << QStringList{} << 0
                                     << "commentFmt@0+7";
    QTest::newRow("word glued to text") << QStringList{"; todo:x"} << QStringList{} << 0
                                        << "commentFmt@0+8";
    QTest::newRow("marker alone") << QStringList{";"} << QStringList{} << 0 << "commentFmt@0+1";
    QTest::newRow("two tags give one note")
        << QStringList{"; todo fixme x"} << QStringList{note(1, 2, 11, "fixme x")} << 0
        << "commentFmt@0+2 todoFmt@2+4 commentFmt@6+8";
    QTest::newRow("text keeps its blanks")
        << QStringList{"; todo  two spaces"} << QStringList{note(1, 2, 11, " two spaces")} << 0
        << "commentFmt@0+2 todoFmt@2+4 commentFmt@6+12";
    QTest::newRow("blanks around the marker")
        << QStringList{"   ;   todo   x"} << QStringList{note(1, 7, 11, "  x")} << 0
        << "commentFmt@0+7 todoFmt@7+4 commentFmt@11+4";
    QTest::newRow("first and later lines of a comment")
        << QStringList{"/* fixme x", "fixme y", "*/"}
        << QStringList{note(1, 3, 15, "x"), note(2, 0, 15, "y")} << 0
        << "commentFmt@0+3 todoFmt@3+5 commentFmt@8+2";
    QTest::newRow("glued to the comment opener")
        << QStringList{"  /*todo"} << QStringList{note(1, 4, 11, "")} << 0
        << "commentFmt@0+4 todoFmt@4+4";
    QTest::newRow("terminator line is not checked")
        << QStringList{"/* a", "*/ todo x"}
        << QStringList{QStringLiteral("2:3 3 root|") + trailing} << 1
        << "commentFmt@0+3 errFmt@3+6";
    QTest::newRow("comment line in a body")
        << QStringList{"alias x {", "  ; hack: z", "}"} << QStringList{note(2, 4, 13, "z")} << 1
        << "commentFmt@0+4 todoFmt@4+5 commentFmt@9+2";
    QTest::newRow("comment block in a body")
        << QStringList{"alias x {", "/* a", "  xxx: boom", "*/", "}"}
        << QStringList{note(3, 2, 14, "boom")} << 2
        << "commentFmt@0+2 todoFmt@2+4 commentFmt@6+5";
    QTest::newRow("no notes in rem lines")
        << QStringList{"rem todo x"}
        << QStringList{QStringLiteral(
               "1:0 1 root|Old-style rem comments are deprecated, consider using `;' comments.")}
        << 0 << "commentFmt@0+10";
    QTest::newRow("no notes in inlined comments")
        << QStringList{"alias x {", "echo a | ; todo x", "}"} << QStringList{} << 1
        << "cmdFmt@0+4 commentFmt@9+8";
}

void TestComments::tags()
{
    QFETCH(QStringList, lines);
    QFETCH(QStringList, reports);
    QFETCH(int, block);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines(lines);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(block), runs);
}

void TestComments::tagsFollowEdits()
{
    AnalyserHarness h;
    h.setLines({"; todo first", "; fixme second"});
    QCOMPARE(h.briefs(), (QStringList{note(1, 2, 11, "first"), note(2, 2, 15, "second")}));

    // Editing the text of a note replaces it; the other stays.
    QTextCursor cur(h.document()->findBlockByNumber(0));
    cur.movePosition(QTextCursor::EndOfBlock);
    cur.insertText(QStringLiteral(" draft"));
    QCOMPARE(h.briefs(), (QStringList{note(2, 2, 15, "second"), note(1, 2, 11, "first draft")}));

    // Breaking the tag word removes the note.
    cur.setPosition(h.document()->findBlockByNumber(1).position() + 3);
    cur.insertText(QStringLiteral(" "));
    QCOMPARE(h.briefs(), QStringList{note(1, 2, 11, "first draft")});
}

QTEST_MAIN(TestComments)
#include "tst_comments.moc"
