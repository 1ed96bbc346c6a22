// Dialog table statements through the real driver: every statement line
// stands behind a real `dialog d {` header.

#include "analyserharness.h"
#include "devsettings.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

QString rep(int col, int type, const QString &block, const QString &msg)
{
    return QStringLiteral("2:%1 %2 %3|%4").arg(col).arg(type).arg(block, msg);
}

QString dlg(int col, const QString &msg)
{
    return rep(col, 3, QStringLiteral("Dialog"), msg);
}

const QString premature =
    QStringLiteral("Unexpected closing bracket ending dialog block prematurely");
const QString invalidStyle = QStringLiteral("Invalid style type");

} // namespace

class TestDialogTables : public QObject
{
    Q_OBJECT

private slots:
    void statement_data();
    void statement();
    void keywordMessages_data();
    void keywordMessages();
    void styleWords_data();
    void styleWords();
    void identifierWithCommas_data();
    void identifierWithCommas();
    void tableStates_data();
    void tableStates();
    void randomStatementsEndInAKnownState();
};

void TestDialogTables::statement_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    // dialogCmdFmt shares ctrlFmt's look and prints as such.
    QTest::newRow("empty") << "" << 256 << QStringList() << "";
    QTest::newRow("blanks") << "   " << 256 << QStringList() << "";

    // option
    QTest::newRow("option alone")
        << "option" << 256
        << QStringList{dlg(6, "Dialog option requires at least one type: dbu, pixels, notheme, "
                              "disable")}
        << "ctrlFmt@0+6";
    QTest::newRow("option bad word") << "option foo" << 256
                                     << QStringList{dlg(10, "Invalid option type")}
                                     << "ctrlFmt@0+6 errFmt@7+3";
    QTest::newRow("option two bad words")
        << "option x y" << 256
        << QStringList{dlg(8, "Invalid option type"), dlg(10, "Invalid option type")}
        << "ctrlFmt@0+6 errFmt@7+1 errFmt@9+1";
    QTest::newRow("option all words, any case")
        << "OPTION DBU pixels notheme disable" << 256 << QStringList() << "ctrlFmt@0+6";
    QTest::newRow("option variable counts") << "option %o" << 256 << QStringList()
                                            << "ctrlFmt@0+6 varFmt@7+2";
    QTest::newRow("option bracket") << "option dbu }" << 1 << QStringList{dlg(12, premature)}
                                    << "ctrlFmt@0+6 errFmt@11+1";
    QTest::newRow("option bracket marks the rest")
        << "option dbu } x" << 1 << QStringList{dlg(12, premature)} << "ctrlFmt@0+6 errFmt@11+3";

    // size
    QTest::newRow("size three") << "size 1 2 3" << 256
                                << QStringList{dlg(0, "Dialog size missing parameters")}
                                << "errFmt@0+4";
    QTest::newRow("size five") << "size 1 2 3 4 5" << 256
                               << QStringList{dlg(0, "Dialog size too many parameters")}
                               << "errFmt@0+4";
    QTest::newRow("size alone") << "size" << 256
                                << QStringList{dlg(0, "Dialog size missing parameters")}
                                << "errFmt@0+4";
    QTest::newRow("size with variable, short") << "size 1 2 %x" << 256 << QStringList()
                                               << "ctrlFmt@0+4 varFmt@9+2";
    QTest::newRow("size with variable, long") << "size 1 2 3 4 %x" << 256 << QStringList()
                                              << "ctrlFmt@0+4 varFmt@13+2";
    QTest::newRow("size words only counted") << "size a b c d" << 256 << QStringList()
                                             << "ctrlFmt@0+4";
    QTest::newRow("size four") << "size -1 -1 200 100" << 256 << QStringList() << "ctrlFmt@0+4";
    QTest::newRow("size bracket") << "size 1 2 }" << 1 << QStringList{dlg(10, premature)}
                                  << "ctrlFmt@0+4 errFmt@9+1";

    // title
    QTest::newRow("title trailing") << "title \"x\" y" << 256
                                    << QStringList{dlg(10, "Trailing text after end of title "
                                                           "string")}
                                    << "ctrlFmt@0+5 dialogStrFmt@7+1 errFmt@10+1";
    QTest::newRow("title unclosed") << "title \"x" << 256 << QStringList()
                                    << "ctrlFmt@0+5 dialogStrFmt@7+1";
    QTest::newRow("title empty string") << "title \"\"" << 256 << QStringList() << "ctrlFmt@0+5";
    QTest::newRow("title alone") << "title" << 256
                                 << QStringList{dlg(0, "Dialog title requires a string title")}
                                 << "errFmt@0+5";
    QTest::newRow("title unquoted") << "title hello world" << 256 << QStringList()
                                    << "ctrlFmt@0+5";
    QTest::newRow("title bracket marks one character")
        << "title a } b" << 1 << QStringList{dlg(9, premature)} << "ctrlFmt@0+5 errFmt@8+1";

    // Controls with a text field.
    QTest::newRow("text alone")
        << "text" << 256 << QStringList{dlg(0, "Dialog `text' missing parameters")}
        << "errFmt@0+4";
    QTest::newRow("missing parameters drift with trailing blanks")
        << "Text   " << 256 << QStringList{dlg(3, "Dialog `text' missing parameters")}
        << "ctrlFmt@0+3 errFmt@3+4";
    QTest::newRow("text missing id") << "text \"a\"" << 256
                                     << QStringList{dlg(5, "Dialog `text' missing ID")}
                                     << "ctrlFmt@0+4 errFmt@5+3";
    QTest::newRow("text missing size")
        << "text \"a\", 1" << 256
        << QStringList{dlg(8, "Dialog `text' missing size parameters: <x> <y> <w> <h>")}
        << "ctrlFmt@0+4 dialogStrFmt@6+1 errFmt@8+3";
    QTest::newRow("tab needs no size") << "tab \"a\", 1" << 256 << QStringList()
                                       << "ctrlFmt@0+3 dialogStrFmt@5+1";
    QTest::newRow("menu needs no size") << "menu \"a\", 1" << 256 << QStringList()
                                        << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("item needs no size") << "item \"a\", 1" << 256 << QStringList()
                                        << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("no comma behind the quote")
        << "text \"a\" 1, 2 3 4 5" << 256 << QStringList() << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("text styles pass")
        << "text \"a\", 1, 2 3 4 5, right tab3 disable" << 256 << QStringList()
        << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("text left is invalid")
        << "text \"a\", 1, 2 3 4 5, left" << 256 << QStringList{dlg(26, invalidStyle)}
        << "ctrlFmt@0+4 dialogStrFmt@6+1 errFmt@22+4";
    QTest::newRow("check left passes") << "check \"a\", 1, 2 3 4 5, left" << 256 << QStringList()
                                       << "ctrlFmt@0+5 dialogStrFmt@7+1";
    QTest::newRow("radio has no 3state")
        << "radio \"a\", 1, 2 3 4 5, 3state" << 256 << QStringList{dlg(29, invalidStyle)}
        << "ctrlFmt@0+5 dialogStrFmt@7+1 errFmt@23+6";
    QTest::newRow("tabx is no tab number")
        << "button \"a\", 1, 2 3 4 5, tabx" << 256 << QStringList{dlg(28, invalidStyle)}
        << "ctrlFmt@0+6 dialogStrFmt@8+1 errFmt@24+4";
    QTest::newRow("bare tab word") << "button \"a\", 1, 2 3 4 5, tab" << 256 << QStringList()
                                   << "ctrlFmt@0+6 dialogStrFmt@8+1";
    QTest::newRow("link has no check") << "link \"a\", 1, 2 3 4 5, nonsense" << 256
                                       << QStringList() << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("box group") << "box \"a\", 1, 2 3 4 5, group" << 256 << QStringList()
                               << "ctrlFmt@0+3 dialogStrFmt@5+1";
    QTest::newRow("comma ends the styles")
        << "text \"a\", 1, 2 3 4 5, right, nonsense" << 256 << QStringList()
        << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("variable style accepted")
        << "text \"a\", 1, 2 3 4 5, %style" << 256 << QStringList()
        << "ctrlFmt@0+4 dialogStrFmt@6+1 varFmt@22+6";
    QTest::newRow("bracket among the styles")
        << "text \"a\", 1, 2 3 4 5, right }" << 1 << QStringList{dlg(29, premature)}
        << "ctrlFmt@0+4 dialogStrFmt@6+1 errFmt@28+1";
    QTest::newRow("variable in the id field")
        << "text \"a\", %id, 2 3 4 5" << 256 << QStringList()
        << "ctrlFmt@0+4 dialogStrFmt@6+1 varFmt@10+3";
    QTest::newRow("variable mid-word in the size field is text")
        << "text \"a\", 1, 10%x 2 3 4" << 256 << QStringList() << "ctrlFmt@0+4 dialogStrFmt@6+1";
    QTest::newRow("variable mid-word in the text field")
        << "text a%b, 1, 2 3 4 5" << 256 << QStringList() << "ctrlFmt@0+4 varFmt@6+2";

    // Controls without a text field.
    QTest::newRow("list alone") << "list" << 256
                                << QStringList{dlg(0, "Dialog `list' missing ID")}
                                << "errFmt@0+4";
    QTest::newRow("list missing size marks the keyword")
        << "list 1" << 256
        << QStringList{dlg(4, "Dialog `list' missing size parameters: <x> <y> <w> <h>")}
        << "errFmt@0+4";
    QTest::newRow("list comma then nothing")
        << "list 1," << 256
        << QStringList{dlg(4, "Dialog `list' missing size parameters: <x> <y> <w> <h>")}
        << "errFmt@0+4";
    QTest::newRow("list without styles") << "list 1, 2 3 4 5" << 256 << QStringList()
                                         << "ctrlFmt@0+4";
    QTest::newRow("list styles") << "list 1, 2 3 4 5, extsel check" << 256 << QStringList()
                                 << "ctrlFmt@0+4";
    QTest::newRow("bracket in a field ends nothing") << "list 1, }" << 256 << QStringList()
                                                     << "ctrlFmt@0+4";
    QTest::newRow("combo styles") << "combo 1, 2 3 4 5, sort edit drop" << 256 << QStringList()
                                  << "ctrlFmt@0+5";
    QTest::newRow("combo multsel") << "combo 1, 2 3 4 5, multsel" << 256
                                   << QStringList{dlg(25, invalidStyle)}
                                   << "ctrlFmt@0+5 errFmt@18+7";

    // icon and the end of the table.
    QTest::newRow("icon reads nothing") << "icon 1, nonsense" << 256 << QStringList()
                                        << "ctrlFmt@0+4";
    QTest::newRow("closing bracket") << "}" << 1 << QStringList() << "ctrlFmt@0+1";
    QTest::newRow("closing bracket with blanks") << "  }  " << 1 << QStringList()
                                                 << "ctrlFmt@2+1";
    QTest::newRow("closing bracket and text")
        << "} x" << 1 << QStringList{dlg(2, "Unexpected characters after closing bracket")}
        << "ctrlFmt@0+1 errFmt@2+1";
    QTest::newRow("glued bracket is a statement")
        << "}x" << 256 << QStringList{rep(2, 1, "Dialog", "Invalid dialog statement")}
        << "errFmt@0+2";

    // Comments and the rest.
    QTest::newRow("rem") << "rem old" << 256
                         << QStringList{rep(3, 1, "alias",
                                            "Old-style rem comments are deprecated, consider "
                                            "using `;' comments.")}
                         << "commentFmt@0+7";
    QTest::newRow("REM alone") << "REM" << 256
                               << QStringList{rep(3, 1, "alias",
                                                  "Old-style rem comments are deprecated, "
                                                  "consider using `;' comments.")}
                               << "commentFmt@0+3";
    QTest::newRow("tag behind ; is skipped") << "; todo later" << 256 << QStringList()
                                             << "commentFmt@0+12";
    QTest::newRow("tag one character further")
        << "; Xtodo later" << 256 << QStringList{rep(3, 11, "", "later")}
        << "commentFmt@0+3 todoFmt@3+4 commentFmt@7+6";
    QTest::newRow("tag in a comment start") << "/* todo x" << 257
                                            << QStringList{rep(3, 11, "", "x")}
                                            << "commentFmt@0+3 todoFmt@3+4 commentFmt@7+2";
    QTest::newRow("comment start alone") << "/*" << 257 << QStringList() << "commentFmt@0+2";
    QTest::newRow("one-line comment stays open") << "/* note */" << 257 << QStringList()
                                                 << "commentFmt@0+10";
    QTest::newRow("invalid statement") << "foo bar" << 256
                                       << QStringList{rep(3, 1, "Dialog",
                                                          "Invalid dialog statement")}
                                       << "errFmt@0+7";
    QTest::newRow("invalid statement indented")
        << "  foo bar" << 256 << QStringList{rep(5, 1, "Dialog", "Invalid dialog statement")}
        << "errFmt@2+7";
    QTest::newRow("keyword glued to its text")
        << "text\"a\",1" << 256 << QStringList{rep(9, 1, "Dialog", "Invalid dialog statement")}
        << "errFmt@0+9";
    // U+0130 lowers to two characters; the line is still measured as written.
    QTest::newRow("statement longer when lowered")
        << QString::fromUtf8("\u0130\u0130\u0130 foo") << 256
        << QStringList{rep(3, 1, "Dialog", "Invalid dialog statement")} << "errFmt@0+7";
    QTest::newRow("comment longer when lowered")
        << QString::fromUtf8(";\u0130\u0130\u0130\u0130 todo x") << 256 << QStringList()
        << "commentFmt@0+12";
}

void TestDialogTables::statement()
{
    QFETCH(QString, line);
    QFETCH(int, state);
    QFETCH(QStringList, reports);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines({QStringLiteral("dialog d {"), line});
    QCOMPARE(h.state(0), 256);
    QCOMPARE(h.state(1), state);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(1), runs);
    // A table leaves nothing in the record.
    QCOMPARE(h.record(1)->blockType, int(CBlockData::NoBlock));
}

void TestDialogTables::keywordMessages_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("report"); // empty: none

    // The stretch marked for a missing ID or size is the one that ends at
    // the scan position, so its column does not depend on the keyword.
    const QStringList textControls = {"tab",   "text", "button", "edit", "check", "radio",
                                      "box",   "scroll", "link", "menu", "item"};
    for (const QString &kw : textControls) {
        const QString upper = kw.toUpper();
        QTest::addRow("%s alone", qPrintable(kw))
            << upper << dlg(0, QStringLiteral("Dialog `%1' missing parameters").arg(kw));
        QTest::addRow("%s no id", qPrintable(kw))
            << upper + QStringLiteral(" \"a\",")
            << dlg(5, QStringLiteral("Dialog `%1' missing ID").arg(kw));
        const bool needsSize = kw != QLatin1String("tab") && kw != QLatin1String("menu")
                               && kw != QLatin1String("item");
        QTest::addRow("%s no size", qPrintable(kw))
            << upper + QStringLiteral(" \"a\", 1,")
            << (needsSize ? dlg(8,
                                QStringLiteral("Dialog `%1' missing size parameters: <x> <y> "
                                               "<w> <h>")
                                    .arg(kw))
                          : QString());
        QTest::addRow("%s complete", qPrintable(kw))
            << upper + QStringLiteral(" \"a\", 1, 2 3 4 5") << QString();
    }
    for (const QString &kw : {QStringLiteral("list"), QStringLiteral("combo")}) {
        QTest::addRow("%s alone", qPrintable(kw))
            << kw.toUpper() << dlg(0, QStringLiteral("Dialog `%1' missing ID").arg(kw));
        QTest::addRow("%s no size", qPrintable(kw))
            << kw.toUpper() + QStringLiteral(" 1")
            << dlg(kw.size(),
                   QStringLiteral("Dialog `%1' missing size parameters: <x> <y> <w> <h>").arg(kw));
        QTest::addRow("%s complete", qPrintable(kw))
            << kw.toUpper() + QStringLiteral(" 1, 2 3 4 5") << QString();
    }
}

void TestDialogTables::keywordMessages()
{
    QFETCH(QString, line);
    QFETCH(QString, report);

    AnalyserHarness h;
    h.setLines({QStringLiteral("dialog d {"), line});
    QCOMPARE(h.briefs(), report.isEmpty() ? QStringList() : QStringList{report});
    QCOMPARE(h.state(1), 256);
    const QString keyword = line.section(QLatin1Char(' '), 0, 0);
    if (report.isEmpty())
        QVERIFY(h.hasFormat(1, 0, keyword.size(), DevSettings::dialogCmdFmt));
    else
        QVERIFY(h.columnFormats(1).contains(QStringLiteral("errFmt")));
}

void TestDialogTables::styleWords_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("rejected");

    const QString common = QStringLiteral(" disable hide group result 12 tab tab7");
    QTest::newRow("text") << "text" << "right center nowrap" + common << "left";
    QTest::newRow("button") << "button" << "default ok cancel flat multi" + common << "right";
    QTest::newRow("edit")
        << "edit"
        << "right center multi pass read return hsbar vsbar autohs autovs limit rich" + common
        << "sort";
    QTest::newRow("check") << "check" << "left push 3state" + common << "flat";
    QTest::newRow("radio") << "radio" << "left push" + common << "3state";
    QTest::newRow("box") << "box" << common.trimmed() << "right";
    QTest::newRow("scroll") << "scroll" << "top left bottom right horizontal range" + common
                            << "vsbar";
    QTest::newRow("list") << "list" << "sort extsel multsel size vsbar hsbar check radio" + common
                          << "drop";
    QTest::newRow("combo") << "combo" << "sort edit drop size vsbar hsbar" + common << "check";
    QTest::newRow("tab") << "tab" << "anything at all" + common << "";
    QTest::newRow("link") << "link" << "anything at all" << "";
    QTest::newRow("menu") << "menu" << "anything at all" << "";
    QTest::newRow("item") << "item" << "anything at all" << "";
}

void TestDialogTables::styleWords()
{
    QFETCH(QString, keyword);
    QFETCH(QString, accepted);
    QFETCH(QString, rejected);

    const bool noText = keyword == QLatin1String("list") || keyword == QLatin1String("combo");
    const QString head = keyword + (noText ? QStringLiteral(" 1, 2 3 4 5, ")
                                           : QStringLiteral(" \"a\", 1, 2 3 4 5, "));
    AnalyserHarness h;
    h.setLines({QStringLiteral("dialog d {"), head + accepted.toUpper(), head + accepted,
                head + rejected + QStringLiteral(" ") + accepted});
    QVERIFY(h.reportsOn(2).isEmpty());
    QVERIFY(h.reportsOn(3).isEmpty());
    if (rejected.isEmpty())
        return;
    const QList<HarnessReport> bad = h.reportsOn(4);
    QCOMPARE(bad.size(), 1);
    QCOMPARE(bad.first().message, invalidStyle);
    QCOMPARE(bad.first().col, head.size() + rejected.size());
    QVERIFY(h.hasFormat(3, head.size(), rejected.size(), DevSettings::errFmt));
}

void TestDialogTables::identifierWithCommas_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("marked"); // "start+length,start+length"

    QTest::newRow("text field")
        << "text $foo(a,b), 1, 2 3 4 5"
        << QStringList{dlg(5, "Identifier cannot contain commas")} << "1+4,5+8";
    QTest::newRow("text field, wider gap")
        << "text   $foo(a,b), 1, 2 3 4 5"
        << QStringList{dlg(7, "Identifier cannot contain commas")} << "3+4,7+8";
    QTest::newRow("id field")
        << "text \"a\", $foo(a,b), 2 3 4 5"
        << QStringList{dlg(10, "Identifier cannot contain commas")} << "0+4,10+8";
    QTest::newRow("size field of a list")
        << "list 1, 1 $foo(a,b) 3 4"
        << QStringList{dlg(10, "Identifier cannot contain commas")} << "0+4,10+8";
    QTest::newRow("identifier without commas")
        << "text \"a\", $id, 2 3 4 5" << QStringList() << "";
}

void TestDialogTables::identifierWithCommas()
{
    QFETCH(QString, line);
    QFETCH(QStringList, reports);
    QFETCH(QString, marked);

    AnalyserHarness h;
    h.setLines({QStringLiteral("dialog d {"), line});
    QCOMPARE(h.briefs(), reports);
    for (const QString &range : marked.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const int start = range.section(QLatin1Char('+'), 0, 0).toInt();
        const int length = range.section(QLatin1Char('+'), 1, 1).toInt();
        QVERIFY2(h.hasFormat(1, start, length, DevSettings::errFmt), qPrintable(range));
    }
    QCOMPARE(h.state(1), 256);
}

void TestDialogTables::tableStates_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<QStringList>("reports");

    QTest::newRow("whole table")
        << QStringList{"dialog d {", "title \"t\"", "size -1 -1 100 50", "option dbu",
                       "button \"OK\", 1, 10 10 30 12, ok", "}", "alias x"}
        << QList<int>{256, 256, 256, 256, 256, 1, 1} << QStringList();
    QTest::newRow("bracket ends the table early")
        << QStringList{"dialog d {", "option dbu }", "size 1 2 3 4", "}"}
        << QList<int>{256, 1, 1, 1} << QStringList{dlg(12, premature)};
    QTest::newRow("comment inside the table")
        << QStringList{"dialog d {", "/* note", "size 1 2", "*/ tail", "}"}
        << QList<int>{256, 257, 257, 256, 1}
        << QStringList{"4:3 3 Dialog|Trailing text after end of a multi-line comment."};
    QTest::newRow("table inside a group")
        << QStringList{"#g on", "dialog d {", "text \"a\", 1, 2 3 4 5", "}", "", "#g end"}
        << QList<int>{0x75000, 0x75100, 0x75100, 0x75001, 0x75000, 1} << QStringList();
}

void TestDialogTables::tableStates()
{
    QFETCH(QStringList, lines);
    QFETCH(QList<int>, states);
    QFETCH(QStringList, reports);

    AnalyserHarness h;
    h.setLines(lines);
    QList<int> got;
    for (int i = 0; i < lines.size(); ++i)
        got << h.state(i);
    QCOMPARE(got, states);
    QCOMPARE(h.briefs(), reports);
}

void TestDialogTables::randomStatementsEndInAKnownState()
{
    // Statements made of the characters the scanners care about, behind
    // every keyword: whatever they hold, the line ends in one of the three
    // table states and nothing is read outside the line.
    const QStringList keywords = {"option", "size", "title", "tab",  "text", "button", "edit",
                                  "check",  "radio", "box",  "scroll", "link", "menu", "item",
                                  "list",   "combo", "icon", "}",    ";",    "rem",  "/*", "x"};
    const QString alphabet = QStringLiteral(" ,,\"$%()}{a1-:;/*\t");
    QRandomGenerator rng(20240611);
    AnalyserHarness h;
    for (int round = 0; round < 400; ++round) {
        QString line = keywords.at(rng.bounded(keywords.size()));
        const int n = rng.bounded(24);
        for (int i = 0; i < n; ++i)
            line += alphabet.at(rng.bounded(alphabet.size()));
        h.setLines({QStringLiteral("dialog d {"), line});
        const int state = h.state(1);
        QVERIFY2(state == 1 || state == 256 || state == 257, qPrintable(line));
    }
}

QTEST_MAIN(TestDialogTables)
#include "tst_dialogtables.moc"
