// if, elseif, while and else with their conditions, through a real document:
// colours, reports and the bracket count that the line passes on.

#include "analyserharness.h"

#include <QtTest>

namespace {

const QString trailing = QStringLiteral("Trailing Characters after closing bracket.");
const QString excess = QStringLiteral("Excess characters or incomplete condition");
const QString strayClosing = QStringLiteral("Invalid closing brace, no opening brace found");
const QString nothingBehind = QStringLiteral("Trailing 33/3/3/3/3?33?33?33?33");

QString cond(int col, const QString &msg)
{
    return QStringLiteral("2:%1 3 condition|%2").arg(col).arg(msg);
}

QStringList body(const QString &line)
{
    return {QStringLiteral("alias x {"), line};
}

// The state of a body line with `count` open brackets, the alias's own
// included.
int bodyState(int count)
{
    return count == 0 ? 1 : 0x20000 + count;
}

const QStringList &allOperators()
{
    static const QStringList ops = {
        "==",    "===",      "<",       ">",       ">=",      "<=",      "//",     "\\",
        "&",     "isin",     "isincs",  "iswm",    "iswmcs",  "isnum",   "isletter",
        "isalnum", "isalpha", "islower", "isupper", "ison",    "isop",    "ishop",
        "isvoice", "isreg",   "ischan",  "isban",   "isaop",   "isavoice", "isignore",
        "isprotect", "isnotify"};
    return ops;
}

} // namespace

class TestConditions : public QObject
{
    Q_OBJECT

private slots:
    void conditions_data();
    void conditions();
    void operators_data();
    void operators();
    void blockOpenedByACondition();

private:
    void addRow(const char *name, const QString &line, int count, const QStringList &reports,
                const QString &runs);
};

void TestConditions::addRow(const char *name, const QString &line, int count,
                            const QStringList &reports, const QString &runs)
{
    QTest::newRow(name) << line << bodyState(count) << reports << runs;
}

void TestConditions::conditions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    // Keywords.
    addRow("if alone", "if", 1, {}, "ctrlFmt@0+2");
    addRow("if with blanks only", "if   ", 1, {}, "ctrlFmt@0+2");
    addRow("prefixed keyword", "!if (%a) echo x", 1, {},
           "ctrlFmt@0+3 ctrlFmt@4+1 varFmt@5+2 ctrlFmt@7+1 cmdFmt@9+4");
    addRow("while", "while (%i < 3) inc %i", 1, {},
           "ctrlFmt@0+5 ctrlFmt@6+1 varFmt@7+2 ctrlFmt@13+1 cmdFmt@15+3 varFmt@19+2");
    addRow("elseif", "elseif (x) y", 1, {}, "ctrlFmt@0+6 ctrlFmt@7+1 ctrlFmt@9+1");
    addRow("upper-case IF", "IF (x) {", 2, {}, "ctrlFmt@0+2 ctrlFmt@3+1 ctrlFmt@5+1 ctrlFmt@7+1");

    // Bracketed form.
    addRow("open parenthesis alone", "if (", 1, {cond(4, nothingBehind), cond(4, excess)},
           "ctrlFmt@0+2 errFmt@3+1");
    addRow("block bracket is counted", "if (%a == 1) { echo x", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@11+1 ctrlFmt@13+1 cmdFmt@15+4");
    addRow("command behind the condition", "if (%a == 1) echo x", 1, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@11+1 cmdFmt@13+4");
    addRow("text glued to the parenthesis", "if (%a == 1)x", 1, {cond(12, trailing)},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@11+1 errFmt@12+1");
    addRow("no operator check in brackets", "if (%a foo 1) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@12+1 ctrlFmt@14+1");
    addRow("parentheses count anywhere", "if (x(y) == 1) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 ctrlFmt@13+1 ctrlFmt@15+1");
    addRow("condition never closed", "if (%a == 1", 1, {cond(11, excess)},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2");
    addRow("bracket inside an unclosed condition", "if ($a(b) {", 1, {cond(11, excess)},
           "ctrlFmt@0+2 ctrlFmt@3+1 identFmt@4+3 identFmt@8+1");
    addRow("negated identifier and variable", "if (!$a && !%b) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 identFmt@5+2 varFmt@12+2 ctrlFmt@14+1 ctrlFmt@16+1");
    addRow("deferred identifier ends at its parenthesis", "if ($!a(b) == 1) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 ctrlFmt@15+1 ctrlFmt@17+1");
    addRow("identifier with arguments", "if ($len(%a) > 3) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 identFmt@4+5 varFmt@9+2 identFmt@11+1 ctrlFmt@16+1 "
           "ctrlFmt@18+1");

    // Sub-conditions.
    addRow("chained bracketed conditions", "if ((%a == 1) && (%b == 2)) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+2 varFmt@5+2 ctrlFmt@12+1 ctrlFmt@17+1 varFmt@18+2 "
           "ctrlFmt@25+2 ctrlFmt@28+1");
    addRow("sub-condition leaves the parenthesis to the outer one",
           "if (%a == 1 || %b == 2) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 varFmt@15+2 ctrlFmt@22+1 ctrlFmt@24+1");
    addRow("sub-condition reads its own words", "if (%a == 1 || %b == 2 x) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 varFmt@15+2 ctrlFmt@24+1 ctrlFmt@26+1");
    addRow("text glued to a sub-condition", "if (%a || (%b)x) {", 2, {cond(14, trailing)},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@10+1 varFmt@11+2 ctrlFmt@13+1 "
           "errFmt@14+1 ctrlFmt@15+1 ctrlFmt@17+1");
    addRow("text glued to a nested parenthesis", "if (((%a))x) {", 1,
           {cond(10, trailing), cond(13, excess)},
           "ctrlFmt@0+2 ctrlFmt@3+3 varFmt@6+2 ctrlFmt@8+2 errFmt@10+2 errFmt@13+1");
    addRow("nested parentheses close together", "if (((%a)))", 1, {},
           "ctrlFmt@0+2 ctrlFmt@3+3 varFmt@6+2 ctrlFmt@8+3");
    addRow("conditions joined outside the parentheses", "if (%a) || (%b) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@6+1 ctrlFmt@11+1 varFmt@12+2 "
           "ctrlFmt@14+1 ctrlFmt@16+1");
    addRow("bar without a blank is no join", "if (%a ||%b) {", 2, {},
           "ctrlFmt@0+2 ctrlFmt@3+1 varFmt@4+2 ctrlFmt@11+1 ctrlFmt@13+1");

    // Plain form: the second word is the operator.
    addRow("plain condition with a block", "if %a == 1 { echo x", 2, {},
           "ctrlFmt@0+2 varFmt@3+2 ctrlFmt@11+1 cmdFmt@13+4");
    addRow("plain condition reads to the end", "if %a == 1 echo x", 1, {},
           "ctrlFmt@0+2 varFmt@3+2");
    addRow("unknown operator is painted, not reported", "if %a foo 1", 1, {},
           "ctrlFmt@0+2 varFmt@3+2 errFmt@6+5");
    addRow("!= is no operator", "if %a != 1", 1, {}, "ctrlFmt@0+2 varFmt@3+2 errFmt@6+4");
    addRow("!== is an operator", "if %a !== 1 {", 2, {}, "ctrlFmt@0+2 varFmt@3+2 ctrlFmt@12+1");
    addRow("negated word operator", "if %a !isin b", 1, {}, "ctrlFmt@0+2 varFmt@3+2");
    addRow("stray closing parenthesis", "if %a == 1 ) x", 1, {cond(11, strayClosing)},
           "ctrlFmt@0+2 varFmt@3+2 errFmt@11+1");
    addRow("identifiers in a plain condition", "if $a(1) == $b {", 2, {},
           "ctrlFmt@0+2 identFmt@3+3 identFmt@7+1 identFmt@12+2 ctrlFmt@15+1");
    addRow("glued bracket is not the block's", "if %a == 1 {x", 1, {},
           "ctrlFmt@0+2 varFmt@3+2");
    // The sub-condition is scanned like a bracketed one: its operator is not
    // checked, and it reads the bracket as a word of its own.
    addRow("plain sub-condition has no operator check", "if %a == 1 && %b foo 2", 1, {},
           "ctrlFmt@0+2 varFmt@3+2 varFmt@14+2");
    addRow("plain sub-condition swallows the bracket", "if %a == 1 || %b == 2 {", 1, {},
           "ctrlFmt@0+2 varFmt@3+2 varFmt@14+2");

    // The block's bracket behind if wants a blank; else takes any white space.
    addRow("tab behind the bracket of if", "if (x) {\techo x", 2,
           {QStringLiteral("2:8 3 block|Unexpected opening bracket in the middle of expression")},
           "ctrlFmt@0+2 ctrlFmt@3+1 ctrlFmt@5+1 errFmt@7+1 errFmt@9+6");
    addRow("tab behind the bracket of else", "else {\techo x", 2, {},
           "ctrlFmt@0+4 ctrlFmt@5+1 cmdFmt@7+4");

    // else.
    addRow("else with a block", "else { echo x", 2, {}, "ctrlFmt@0+4 ctrlFmt@5+1 cmdFmt@7+4");
    addRow("else with a command", "else echo x", 1, {}, "ctrlFmt@0+4 cmdFmt@5+4");
    addRow("else alone", "else", 1, {}, "ctrlFmt@0+4");
    addRow("else with a block and a closing bracket", "else { echo x }", 1, {},
           "ctrlFmt@0+4 ctrlFmt@5+1 cmdFmt@7+4 ctrlFmt@14+1");
    addRow("if behind else", "else if (%a) {", 2, {},
           "ctrlFmt@0+4 ctrlFmt@5+2 ctrlFmt@8+1 varFmt@9+2 ctrlFmt@11+1 ctrlFmt@13+1");
}

void TestConditions::conditions()
{
    QFETCH(QString, line);
    QFETCH(int, state);
    QFETCH(QStringList, reports);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines(body(line));
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(1), runs);
    QCOMPARE(h.state(1), state);
}

void TestConditions::operators_data()
{
    QTest::addColumn<QString>("oper");
    QTest::addColumn<bool>("valid");

    for (const QString &op : allOperators()) {
        QTest::newRow(qPrintable(op)) << op << true;
        QTest::newRow(qPrintable(QLatin1Char('!') + op)) << QLatin1Char('!') + op << true;
        if (op.toUpper() != op)
            QTest::newRow(qPrintable(op.toUpper())) << op.toUpper() << true;
    }
    QTest::newRow("=") << "=" << false;
    QTest::newRow("!=") << "!=" << false;
    QTest::newRow("!") << "!" << false;
    QTest::newRow("!!==") << "!!==" << false;
    QTest::newRow("isinx") << "isinx" << false;
    QTest::newRow("=<") << "=<" << false;
    QTest::newRow("isin,") << "isin," << false;
}

void TestConditions::operators()
{
    QFETCH(QString, oper);
    QFETCH(bool, valid);

    const QString line = QStringLiteral("if %a ") + oper + QStringLiteral(" b {");
    AnalyserHarness h;
    h.setLines(body(line));
    QVERIFY(h.briefs().isEmpty());
    const int brace = line.size() - 1;
    if (valid) {
        QCOMPARE(h.formatRuns(1), QStringLiteral("ctrlFmt@0+2 varFmt@3+2 ctrlFmt@%1+1").arg(brace));
    } else {
        // Painted from the operator on, with no report. Every later tail is
        // tried as an operator, and the bracket still ends the scan.
        QCOMPARE(h.formatRuns(1), QStringLiteral("ctrlFmt@0+2 varFmt@3+2 errFmt@6+%1 ctrlFmt@%2+1")
                                      .arg(brace - 6)
                                      .arg(brace));
    }
    QCOMPARE(h.state(1), bodyState(2));
}

void TestConditions::blockOpenedByACondition()
{
    AnalyserHarness h;
    h.setLines({"alias x {", "  if (%a == 1) {", "    echo a", "  }", "  elseif %a == 2 {",
                "    echo b", "  }", "  else {", "    while ($true) { inc %i }", "  }", "}",
                "echo c"});
    const QList<int> expected = {0x20001, 0x20002, 0x20002, 0x20001, 0x20002, 0x20002,
                                 0x20001, 0x20002, 0x20002, 0x20001, 1, 1};
    for (int line = 0; line < expected.size(); ++line)
        QCOMPARE(h.state(line), expected.at(line));
    QVERIFY(h.briefs().isEmpty());
    // The last line stands outside the alias: it is no command line.
    QCOMPARE(h.formatRuns(11), QStringLiteral("errFmt@0+6"));
}

QTEST_MAIN(TestConditions)
#include "tst_conditions.moc"
