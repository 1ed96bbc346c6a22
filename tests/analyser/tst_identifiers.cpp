// Identifier expressions through a real document: colours, reports and the
// records left in the line's idents, in command lines, arguments, var and
// conditions.

#include "analyserharness.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

namespace {

const QString tooFew = QStringLiteral("Too few parameters");
const QString tooMany = QStringLiteral("Too many parameters");
const QString badCount = QStringLiteral("Invalid format - invalid number of parameters");
const QString badProp = QStringLiteral("Invalid property - Ident possess no such property");
const QString emptyProp = QStringLiteral("Empty property does nothing");
const QString trailing = QStringLiteral("Trailing Characters after closing bracket.");

QString brief(int col, int type, const QString &block, const QString &msg)
{
    return QStringLiteral("2:%1 %2 %3|%4").arg(col).arg(type).arg(block, msg);
}

QString unclosed(int col, const QString &ident)
{
    return brief(col, 3, QStringLiteral("Ident: ") + ident,
                 QStringLiteral("No closing brace found on identifier `") + ident
                     + QStringLiteral("'"));
}

QString illegal(int col, const QString &ident)
{
    return brief(col, 3, QStringLiteral("block"),
                 QStringLiteral("Illegal characters after identifier `") + ident
                     + QStringLiteral("' closing bracket"));
}

QString separator(int col, const QString &ident)
{
    return brief(col, 3, ident,
                 QStringLiteral("Invalid format: ") + ident
                     + QStringLiteral(". Unexpected command separated found."));
}

QString identReport(int col, int type, const QString &ident, const QString &msg)
{
    return brief(col, type, QStringLiteral("Ident: ") + ident, msg);
}

// An alias body with one open bracket; the line under test is the second.
QStringList body(const QString &line)
{
    return {QStringLiteral("alias x {"), line};
}

// name|start|end|proppos|hasPayload|argsPos|possibleIdent
QStringList describe(const CBlockData *rec)
{
    QStringList out;
    if (!rec)
        return out;
    for (const Identifier &id : rec->idents) {
        QStringList args;
        for (int a : id.argsPos)
            args << QString::number(a);
        out << QStringLiteral("%1|%2|%3|%4|%5|%6|%7")
                   .arg(id.name)
                   .arg(id.start)
                   .arg(id.end)
                   .arg(id.proppos)
                   .arg(int(id.hasPayload))
                   .arg(args.join(QLatin1Char(',')))
                   .arg(int(id.possibleIdent));
    }
    return out;
}

} // namespace

class TestIdentifiers : public QObject
{
    Q_OBJECT

private slots:
    void expressions_data();
    void expressions();
    void records_data();
    void records();
    void reportsGoWithTheLine();
};

void TestIdentifiers::expressions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    // Bare names are coloured and never looked up.
    QTest::newRow("bare name") << "echo $nick" << QStringList() << "cmdFmt@0+4 identFmt@5+5";
    QTest::newRow("unknown bare name") << "echo $nosuchthing x" << QStringList()
                                       << "cmdFmt@0+4 identFmt@5+12";
    QTest::newRow("comma is part of a name in a command") << "echo $nick, x" << QStringList()
                                                          << "cmdFmt@0+4 identFmt@5+6";
    QTest::newRow("comma ends a name in an argument")
        << "echo $a($nick,x)" << QStringList() << "cmdFmt@0+4 identFmt@5+8 identFmt@15+1";
    QTest::newRow("name at the start of a line") << "$a(b)" << QStringList()
                                                 << "identFmt@0+3 identFmt@4+1";
    QTest::newRow("glued dollar is plain text") << "echo x$nick" << QStringList() << "cmdFmt@0+4";
    QTest::newRow("lone dollar") << "echo $ x" << QStringList() << "cmdFmt@0+4";
    QTest::newRow("dollar at the end") << "echo $" << QStringList() << "cmdFmt@0+4";

    // Unclosed.
    QTest::newRow("unclosed at the end") << "echo $a(" << QStringList{unclosed(5, "$a")}
                                         << "cmdFmt@0+4 errFmt@5+3";
    QTest::newRow("unclosed with arguments")
        << "echo $a(b, $c(d)" << QStringList{unclosed(5, "$a")} << "cmdFmt@0+4 errFmt@5+11";
    QTest::newRow("both unclosed, inner first")
        << "echo $a($b(" << QStringList{unclosed(8, "$b"), unclosed(5, "$a")}
        << "cmdFmt@0+4 errFmt@5+6";

    // Argument counts against the table.
    QTest::newRow("empty parentheses are one argument") << "echo $len()" << QStringList()
                                                        << "cmdFmt@0+4 identFmt@5+6";
    QTest::newRow("two arguments where one is allowed")
        << "echo $len(a,b)" << QStringList{identReport(5, 3, "$len", tooMany)}
        << "cmdFmt@0+4 errFmt@5+9";
    QTest::newRow("comma in nested parentheses does not count")
        << "echo $len((a,b))" << QStringList()
        << "cmdFmt@0+4 identFmt@5+5 identFmt@15+1";
    QTest::newRow("comma in a nested identifier does not count")
        << "echo $len($a(b,c))" << QStringList()
        << "cmdFmt@0+4 identFmt@5+8 identFmt@16+2";
    QTest::newRow("too few") << "echo $left(a) x" << QStringList{identReport(5, 3, "$left", tooFew)}
                             << "cmdFmt@0+4 errFmt@5+9";
    QTest::newRow("count of the wrong parity")
        << "echo $inpoly(1,2,3)" << QStringList{identReport(5, 3, "$inpoly", badCount)}
        << "cmdFmt@0+4 errFmt@5+14";
    QTest::newRow("names are looked up in any case") << "echo $LeN(a)" << QStringList()
                                                     << "cmdFmt@0+4 identFmt@5+5 identFmt@11+1";
    QTest::newRow("unknown name with any count") << "echo $a(1,2,3,4)" << QStringList()
                                                 << "cmdFmt@0+4 identFmt@5+3 identFmt@15+1";

    // Properties.
    QTest::newRow("known property") << "echo $file(x).size" << QStringList()
                                    << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 identPropFmt@13+5";
    QTest::newRow("unknown property")
        << "echo $file(x).foo bar" << QStringList{identReport(14, 2, "$file", badProp)}
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 wrnFmt@13+4";
    QTest::newRow("property of an unknown name") << "echo $a(b).foo" << QStringList()
                                                 << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1 "
                                                    "identPropFmt@10+4";
    QTest::newRow("empty property")
        << "echo $a(b)." << QStringList{identReport(10, 1, "$a", emptyProp)}
        << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1 infFmt@10+1";
    QTest::newRow("empty property before a blank")
        << "echo $len(b). x" << QStringList{identReport(12, 1, "$len", emptyProp)}
        << "cmdFmt@0+4 identFmt@5+5 identFmt@11+1 infFmt@12+1";
    // In an argument the scan backs off the comma, so the note lands one
    // before the dot, on the parenthesis.
    QTest::newRow("empty property in an argument")
        << "echo $a($b(c).,d)" << QStringList{identReport(12, 1, "$b", emptyProp)}
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 infFmt@13+1 identFmt@16+1";
    QTest::newRow("wrong count hides the empty property")
        << "echo $len(a,b)." << QStringList{identReport(5, 3, "$len", tooMany)}
        << "cmdFmt@0+4 errFmt@5+10";

    // What follows the closing parenthesis.
    QTest::newRow("illegal characters") << "echo $a(b)x" << QStringList{illegal(10, "$a")}
                                        << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1 errFmt@10+1";
    QTest::newRow("illegal characters up to a blank")
        << "echo $a(b)x(y z) w" << QStringList{illegal(10, "$a")}
        << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1 errFmt@10+3";
    QTest::newRow("blank after the parenthesis") << "echo $a(b) x" << QStringList()
                                                 << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1";
    // Only a blank ends what follows the parenthesis; a tab is part of it.
    QTest::newRow("tab after the parenthesis") << "echo $a(b)\tx" << QStringList{illegal(10, "$a")}
                                               << "cmdFmt@0+4 identFmt@5+3 identFmt@9+1 errFmt@10+2";
    QTest::newRow("illegal characters in an argument")
        << "echo $b($a(2)*3)" << QStringList{illegal(13, "$a")}
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 errFmt@13+2 identFmt@15+1";
    QTest::newRow("closing parenthesis of the caller is no suffix")
        << "echo $b($a(2))" << QStringList()
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+2";

    // Arithmetic in $calc.
    QTest::newRow("identifier behind an operator in calc")
        << "echo $calc(1+$a(2)*3)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+6 identFmt@13+3 identFmt@17+1 identFmt@20+1";
    QTest::newRow("letters behind an identifier in calc")
        << "echo $calc($a(2)x)" << QStringList{illegal(16, "$a")}
        << "cmdFmt@0+4 identFmt@5+9 identFmt@15+1 errFmt@16+1 identFmt@17+1";
    QTest::newRow("identifier glued to a digit in calc is plain")
        << "echo $calc(1$a(2))" << QStringList() << "cmdFmt@0+4 identFmt@5+6 identFmt@17+1";
    QTest::newRow("arithmetic context stops one level down")
        << "echo $calc($b(1+$a(2)*3))" << QStringList{illegal(21, "$a")}
        << "cmdFmt@0+4 identFmt@5+9 identFmt@16+3 identFmt@20+1 errFmt@21+2 identFmt@23+2";
    QTest::newRow("nested calc keeps the outer context")
        << "echo $calc($calc(1)*2+$a(3)*4)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+12 identFmt@18+1 identFmt@22+3 identFmt@26+1 identFmt@29+1";
    QTest::newRow("calc context ends with its parenthesis")
        << "echo $calc(1) $a(2)*3" << QStringList{illegal(19, "$a")}
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 identFmt@14+3 identFmt@18+1 errFmt@19+2";
    QTest::newRow("calc with glued characters")
        << "echo $calc(1)+2" << QStringList{illegal(13, "$calc")}
        << "cmdFmt@0+4 identFmt@5+6 identFmt@12+1 errFmt@13+2";

    // $iif and its condition.
    QTest::newRow("iif with a bracketed condition")
        << "echo $iif((%a == 1), x, y)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+5 ctrlFmt@10+1 varFmt@11+2 ctrlFmt@18+1 identFmt@25+1";
    QTest::newRow("iif without brackets is only scanned")
        << "echo $iif(%a == 1, x, y)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+5 varFmt@10+2 identFmt@23+1";
    QTest::newRow("iif condition with trailing text")
        << "echo $iif((%a == 1)x, y)"
        << QStringList{brief(19, 3, QStringLiteral("condition"), trailing)}
        << "cmdFmt@0+4 identFmt@5+5 ctrlFmt@10+1 varFmt@11+2 ctrlFmt@18+1 identFmt@23+1";
    QTest::newRow("iif with too few arguments")
        << "echo $iif((1))"
        << QStringList{brief(13, 3, QStringLiteral("condition"), trailing),
                       identReport(5, 3, "$iif", tooFew)}
        << "cmdFmt@0+4 errFmt@5+9";
    QTest::newRow("parenthesis after the first comma of iif is no condition")
        << "echo $iif(1, (x), y)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+5 identFmt@19+1";
    QTest::newRow("unclosed iif condition")
        << "echo $iif((%a x"
        << QStringList{brief(15, 3, QStringLiteral("condition"),
                             QStringLiteral("Excess characters or incomplete condition")),
                       unclosed(5, "$iif")}
        << "cmdFmt@0+4 errFmt@5+10";

    // A command separator inside the parentheses.
    QTest::newRow("separator between blanks")
        << "echo $a(b | c)" << QStringList{separator(5, "$a"), unclosed(5, "$a")}
        << "cmdFmt@0+4 errFmt@5+9";
    QTest::newRow("separator right behind the parenthesis")
        << "echo $a(| c)" << QStringList() << "cmdFmt@0+4 identFmt@5+3 identFmt@11+1";
    QTest::newRow("separator glued to the next word")
        << "echo $a(b |c)" << QStringList() << "cmdFmt@0+4 identFmt@5+3 identFmt@12+1";
    QTest::newRow("separator swallows the next command")
        << "echo $a(b | echo c) | echo d"
        << QStringList{separator(5, "$a"), unclosed(5, "$a")} << "cmdFmt@0+4 errFmt@5+23";

    // Deferred identifiers.
    QTest::newRow("deferred name") << "echo $!nick x" << QStringList() << "cmdFmt@0+4";
    QTest::newRow("deferred with arguments in a command")
        << "echo $!a(b c) $d" << QStringList() << "cmdFmt@0+4 identFmt@14+2";
    QTest::newRow("deferred in an argument")
        << "echo $a($!b(c,d),e)" << QStringList() << "cmdFmt@0+4 identFmt@5+3 identFmt@18+1";

    // Variables in arguments.
    QTest::newRow("variable with its own parentheses")
        << "echo $a(%b(1),2)" << QStringList()
        << "cmdFmt@0+4 identFmt@5+3 varFmt@8+5 identFmt@15+1";
    QTest::newRow("variable in var arguments")
        << "var %a = $len(%b)" << QStringList()
        << "cmdFmt@0+3 varFmt@4+2 identFmt@9+5 varFmt@14+2 identFmt@16+1";
}

void TestIdentifiers::expressions()
{
    QFETCH(QString, line);
    QFETCH(QStringList, reports);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines(body(line));
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(1), runs);
    // Identifiers never change the count of the block's brackets.
    QCOMPARE(h.state(1), 0x20001);
}

void TestIdentifiers::records_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("records");

    QTest::newRow("bare name ends at its stop character")
        << "echo $nick x" << QStringList{"$nick|5|10|0|0||0"};
    QTest::newRow("bare name at the end") << "echo $nick" << QStringList{"$nick|5|10|0|0||0"};
    QTest::newRow("comma kept in a command") << "echo $nick, x"
                                             << QStringList{"$nick,|5|11|0|0||0"};
    QTest::newRow("comma ends it in var") << "var %a = $nick,x"
                                          << QStringList{"$nick|9|14|0|0||0"};
    QTest::newRow("lone dollar") << "echo $ x" << QStringList{"|5|0|-1|0||1"};
    QTest::newRow("dollar at the end") << "echo $" << QStringList{"|5|0|-1|0||1"};
    QTest::newRow("dollar before a comma in an argument")
        << "echo $a($,x)" << QStringList{"|8|0|-1|0||1", "$a|5|11|-1|1|9|0"};
    QTest::newRow("dollar before a parenthesis in an argument")
        << "echo $a($)" << QStringList{"|8|0|-1|0||1", "$a|5|9|-1|1||0"};
    QTest::newRow("closed, blank behind") << "echo $a(b) x" << QStringList{"$a|5|9|-1|1||0"};
    QTest::newRow("closed at the end") << "echo $a(b,c)" << QStringList{"$a|5|11|-1|1|9|0"};
    QTest::newRow("property") << "echo $file(x).size" << QStringList{"$file|5|18|13|1||0"};
    QTest::newRow("property before a blank") << "echo $file(x).foo bar"
                                             << QStringList{"$file|5|16|13|1||0"};
    QTest::newRow("illegal suffix") << "echo $a(b)xy z" << QStringList{"$a|5|11|-1|1||0"};
    QTest::newRow("unclosed keeps no property")
        << "echo $a(b,c" << QStringList{"$a|5|11|-1|1|9|0"};
    QTest::newRow("inner unclosed runs the outer one past the line")
        << "echo $a($b(" << QStringList{"$b|8|11|-1|1||0", "$a|5|12|-1|1||0"};
    QTest::newRow("nested expression")
        << "echo $mid($a(b, c).x, 2, $len(%s)) done"
        << QStringList{"$a|10|19|18|1|14|0", "$len|25|32|-1|1||0", "$mid|5|33|-1|1|20,23|0"};
    QTest::newRow("name bailing at the caller's parenthesis")
        << "echo $a($b)" << QStringList{"$b|8|10|0|0||0", "$a|5|10|-1|1||0"};
    QTest::newRow("deferred identifiers leave no record")
        << "echo $!a $b($!c,d)" << QStringList{"$b|9|17|-1|1|15|0"};
    QTest::newRow("calc arguments")
        << "echo $calc(1+$a(2)*3)" << QStringList{"$a|13|17|-1|1||0", "$calc|5|20|-1|1||0"};
    QTest::newRow("iif commas after its condition")
        << "echo $iif((%a == 1), x, y)" << QStringList{"$iif|5|25|-1|1|19,22|0"};
    QTest::newRow("iif sees a negated identifier")
        << "echo $iif(!$a, x, y)" << QStringList{"$a|11|13|0|0||0", "$iif|5|19|-1|1|13,16|0"};
    QTest::newRow("separator ends the line")
        << "echo $a(b | c)" << QStringList{"$a|5|15|-1|1||0"};
    QTest::newRow("identifiers in a condition")
        << "if ($len(%a) > 3 && $b) {" << QStringList{"$len|4|11|-1|1||0", "$b|20|22|0|0||0"};
    QTest::newRow("comma is plain text in a condition")
        << "if ($a,b == 1) {" << QStringList{"$a,b|4|8|0|0||0"};
}

void TestIdentifiers::records()
{
    QFETCH(QString, line);
    QFETCH(QStringList, records);

    AnalyserHarness h;
    h.setLines(body(line));
    QCOMPARE(describe(h.record(1)), records);
}

void TestIdentifiers::reportsGoWithTheLine()
{
    AnalyserHarness h;
    h.setLines(body(QStringLiteral("echo $len(a,b) $a(")));
    QCOMPARE(h.briefs(), (QStringList{identReport(5, 3, "$len", tooMany), unclosed(15, "$a")}));

    // Mending the line withdraws both reports and the records follow.
    QTextCursor c(h.document()->findBlockByNumber(1));
    c.movePosition(QTextCursor::EndOfBlock);
    c.insertText(QStringLiteral(")"));
    QCOMPARE(h.briefs(), QStringList{identReport(5, 3, "$len", tooMany)});
    QCOMPARE(describe(h.record(1)),
             (QStringList{"$len|5|13|-1|1|11|0", "$a|15|18|-1|1||0"}));
}

QTEST_MAIN(TestIdentifiers)
#include "tst_identifiers.moc"
