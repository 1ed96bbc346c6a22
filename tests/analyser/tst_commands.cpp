// Command lines and the var command through a real document, and the
// command lookup against the walk over the command patterns.

#include "analyserharness.h"
#include "devsettings.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtTest>

namespace {

const QString openingMiddle =
    QStringLiteral("Unexpected opening bracket in the middle of expression");
const QString closingMiddle =
    QStringLiteral("Unexpected closing bracket in the middle of expression");
const QString strayChars = QStringLiteral("Unexpected characters after closing bracket");
const QString badSwitch = QStringLiteral("none-existing switches are used in /var.");
const QString openingVar = QStringLiteral("Unexpected opening bracket in expression");
const QString closingVar = QStringLiteral("Unexpected closing bracket in expression");

QString brief(int line, int col, int type, const QString &block, const QString &msg)
{
    return QStringLiteral("%1:%2 %3 %4|%5").arg(line).arg(col).arg(type).arg(block, msg);
}

// A report of the body line in body().
QString err(int col, const QString &msg)
{
    return brief(2, col, 3, QStringLiteral("block"), msg);
}

// An alias body with one open bracket, the line under test second.
QStringList body(const QString &line)
{
    return {QStringLiteral("alias x {"), line};
}

// The state a body line leaves with `count` open brackets.
int bodyState(int count)
{
    return count == 0 ? 1 : 0x20000 + count;
}

} // namespace

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void commandLine_data();
    void commandLine();
    void varCommand_data();
    void varCommand();
    void closingBracketOnHeaderLine();
    void patternsAreBuiltOncePerName();
    void commandLookupMatchesPatternWalk();
    void commandLookupOverAllCharacters();
    void scannersOnLineEnds();

private:
    void addRow(const char *name, const QString &line, int count, const QStringList &reports,
                const QString &runs);
};

void TestCommands::addRow(const char *name, const QString &line, int count,
                          const QStringList &reports, const QString &runs)
{
    QTest::newRow(name) << body(line) << bodyState(count) << reports << runs;
}

void TestCommands::commandLine_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    // First word.
    addRow("plain command", "echo hi", 1, {}, "cmdFmt@0+4");
    addRow("four prefix characters", "..!/echo hi", 1, {}, "cmdFmt@0+8");
    addRow("five prefix characters", "/.!./echo hi", 1, {}, "");
    addRow("blanks before the prefix", "  !echo hi", 1, {}, "cmdFmt@2+5");
    addRow("word boundary after the name", "echo-x y", 1, {}, "cmdFmt@0+4");
    addRow("dot after the name", "echo. y", 1, {}, "cmdFmt@0+4");
    addRow("any case", "EcHo x", 1, {}, "cmdFmt@0+4");
    addRow("longer word", "echoes x", 1, {}, "");
    addRow("underscore continues the word", "echo_x y", 1, {}, "");
    addRow("digit continues the word", "echo2 y", 1, {}, "");
    addRow("non-ASCII letter continues the word", QStringLiteral("echo\u00e9 y"), 1, {}, "");
    addRow("only the first word is a command", "x echo", 1, {}, "");
    addRow("prefix of a longer name", "dcc-server", 1, {}, "cmdFmt@0+3");

    // Variables.
    addRow("variable up to the blank", "echo %a%b c", 1, {}, "cmdFmt@0+4 varFmt@5+4");
    addRow("a tab does not end a variable", "echo %a\tb c", 1, {}, "cmdFmt@0+4 varFmt@5+4");
    addRow("lone percent", "echo % x", 1, {}, "cmdFmt@0+4");
    addRow("percent at the end", "echo %", 1, {}, "cmdFmt@0+4");
    addRow("variable glued to a word", "echo x%a", 1, {}, "cmdFmt@0+4");
    addRow("variable as first word", "%a = 1", 1, {}, "varFmt@0+2");

    // Brackets.
    addRow("glued closing bracket", "echo }x", 1, {}, "cmdFmt@0+4");
    addRow("closing bracket ends the line", "echo }", 0, {}, "cmdFmt@0+4 ctrlFmt@5+1");
    addRow("stray character after bracket", "echo } x", 0, {err(7, strayChars)},
           "cmdFmt@0+4 ctrlFmt@5+2 errFmt@7+1");
    addRow("one report per stray character", "echo } xy", 0,
           {err(7, strayChars), err(8, strayChars)}, "cmdFmt@0+4 ctrlFmt@5+2 errFmt@7+2");
    addRow("count below zero", "echo } }", -1, {err(8, closingMiddle)},
           "cmdFmt@0+4 ctrlFmt@5+2 errFmt@7+1");
    addRow("count below zero in the trailing loop", "echo } } x", -1, {err(10, closingMiddle)},
           "cmdFmt@0+4 ctrlFmt@5+2 errFmt@7+3");
    addRow("trailing bracket below zero paints to the end", "echo a } } }", -1,
           {err(12, closingMiddle)}, "cmdFmt@0+4 ctrlFmt@7+2 errFmt@9+3");
    addRow("opening bracket at the end", "echo {", 2, {err(6, openingMiddle)},
           "cmdFmt@0+4 errFmt@5+1");
    addRow("opening bracket paints up to a bar", "echo { a b | echo c", 2,
           {err(6, openingMiddle)}, "cmdFmt@0+4 errFmt@5+1 errFmt@7+4 cmdFmt@13+4");
    addRow("glued opening bracket", "echo {x", 1, {}, "cmdFmt@0+4");
    addRow("closing bracket as first word", "} else {", 0, {}, "ctrlFmt@0+1");
    addRow("nothing is read behind a first-word bracket", "} | echo x", 0, {}, "ctrlFmt@0+1");
    addRow("bar behind a bracket is left to the caller", "echo a } | echo x", 0, {},
           "cmdFmt@0+4 ctrlFmt@7+2");
    addRow("nested command picks up the bar", "echo a | echo b } | echo c", 0, {},
           "cmdFmt@0+4 cmdFmt@9+4 ctrlFmt@16+2 cmdFmt@20+4");
    // Behind a closing bracket a bar counts only after white space: glued on
    // its left it is one more stray character, and so is all that follows.
    addRow("bar glued on its left behind a bracket", "echo x } a| echo b", 0,
           {err(9, strayChars), err(10, strayChars), err(12, strayChars), err(13, strayChars),
            err(14, strayChars), err(15, strayChars), err(17, strayChars)},
           "cmdFmt@0+4 ctrlFmt@7+2 errFmt@9+2 errFmt@12+4 errFmt@17+1");

    // Separators.
    addRow("two commands", "echo a | echo b", 1, {}, "cmdFmt@0+4 cmdFmt@9+4");
    addRow("glued bar", "echo a|echo b", 1, {}, "cmdFmt@0+4");
    addRow("bar at the end", "echo a |", 1, {}, "cmdFmt@0+4");
    addRow("leading bar doubles everything", "| echo a {", 3,
           {err(10, openingMiddle), err(10, openingMiddle)}, "cmdFmt@2+4 errFmt@9+1");
    addRow("two leading bars give four copies", "| | echo a {", 5,
           {err(12, openingMiddle), err(12, openingMiddle), err(12, openingMiddle),
            err(12, openingMiddle)},
           "cmdFmt@4+4 errFmt@11+1");
    addRow("empty command doubles the rest", "echo a | | echo b {", 3,
           {err(19, openingMiddle), err(19, openingMiddle)},
           "cmdFmt@0+4 cmdFmt@11+4 errFmt@18+1");
    addRow("doubled closing bracket", "| echo } x", -1,
           {err(9, strayChars), err(8, closingMiddle), err(9, strayChars)},
           "cmdFmt@2+4 ctrlFmt@7+1 errFmt@8+2");
    addRow("bar alone", "|", 1, {}, "");
}

void TestCommands::commandLine()
{
    QFETCH(QStringList, lines);
    QFETCH(int, state);
    QFETCH(QStringList, reports);
    QFETCH(QString, runs);

    AnalyserHarness h;
    h.setLines(lines);
    const int last = lines.size() - 1;
    QCOMPARE(h.state(last), state);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.formatRuns(last), runs);
}

void TestCommands::varCommand_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("runs");

    addRow("names and values", "var %a = 1, %b = 2", 1, {},
           "cmdFmt@0+3 varFmt@4+2 varFmt@12+2");
    // The scan of %a stops on the comma with the word start still set, so
    // the comma step does not fire and %b stays plain.
    addRow("comma right behind a name", "var %a,%b", 1, {}, "cmdFmt@0+3 varFmt@4+2");
    addRow("comma behind a value", "var %a 1,%b", 1, {},
           "cmdFmt@0+3 varFmt@4+2 varFmt@9+2");
    addRow("comma standing alone", "var %a , %b", 1, {},
           "cmdFmt@0+3 varFmt@4+2 varFmt@9+2");
    addRow("known switch", "var -s %a 1", 1, {}, "cmdFmt@0+3 varFmt@7+2");
    addRow("both known switches", "var -sg %a", 1, {}, "cmdFmt@0+3 varFmt@8+2");
    addRow("unknown switches", "var -xy %a 1", 1,
           {brief(2, 4, 2, "block", badSwitch)}, "cmdFmt@0+3 wrnFmt@5+2 varFmt@8+2");
    addRow("switches are case-sensitive", "var -S %a", 1,
           {brief(2, 4, 2, "block", badSwitch)}, "cmdFmt@0+3 wrnFmt@5+1 varFmt@7+2");
    addRow("one bad letter among good ones", "var -sx %a", 1,
           {brief(2, 4, 2, "block", badSwitch)}, "cmdFmt@0+3 wrnFmt@6+1 varFmt@8+2");
    addRow("prefixed var", "/var %a", 1, {}, "cmdFmt@0+4 varFmt@5+2");
    addRow("dotted var", ".var %a", 1, {}, "cmdFmt@0+4 varFmt@5+2");
    // Not the var command: the command lookup and the plain variable scan.
    addRow("capitalised Var", "Var %a,%b", 1, {}, "cmdFmt@0+3 varFmt@4+5");
    addRow("upper-case VAR", "VAR %x,y", 1, {}, "cmdFmt@0+3 varFmt@4+4");
    addRow("var alone", "var", 1, {}, "cmdFmt@0+3");
    addRow("bar starts a command", "var %a | echo b", 1, {},
           "cmdFmt@0+3 varFmt@4+2 cmdFmt@9+4");
    addRow("stray characters give one report", "var %x } y z", 0, {err(12, strayChars)},
           "cmdFmt@0+3 varFmt@4+2 ctrlFmt@7+1 errFmt@9+1 errFmt@11+1");
    addRow("the same in a command line", "echo %x } y z", 0,
           {err(10, strayChars), err(12, strayChars)},
           "cmdFmt@0+4 varFmt@5+2 ctrlFmt@8+2 errFmt@10+1 errFmt@12+1");
    addRow("opening bracket", "var %x { y | echo b", 2, {err(7, openingVar)},
           "cmdFmt@0+3 varFmt@4+2 errFmt@7+4");
    addRow("closing bracket below zero", "var %x } }", -1, {err(10, closingVar)},
           "cmdFmt@0+3 varFmt@4+2 ctrlFmt@7+1 errFmt@9+1");
    addRow("bar behind the closing bracket", "var %x } | echo b", 0, {},
           "cmdFmt@0+3 varFmt@4+2 ctrlFmt@7+1 cmdFmt@11+4");
    addRow("glued closing bracket", "var %x }y", 1, {}, "cmdFmt@0+3 varFmt@4+2");
    // var's trailing scan stops at any bar with white space behind it, but
    // the argument loop then steps past the bar: what follows is not a command.
    addRow("bar glued on its left behind a bracket in var", "var %x } a| echo b", 0,
           {err(9, strayChars)}, "cmdFmt@0+3 varFmt@4+2 ctrlFmt@7+1 errFmt@9+1");
}

void TestCommands::varCommand()
{
    commandLine();
}

void TestCommands::closingBracketOnHeaderLine()
{
    // The header's count starts at 0, so the first bracket in var goes
    // below zero and the report stands at the bracket itself.
    AnalyserHarness h;
    h.setLines({"alias x var %a }", "echo"});
    QCOMPARE(h.briefs(), QStringList{brief(1, 15, 3, "block", closingVar)});
    QCOMPARE(h.state(0), 0x1FFFF);
    QVERIFY(h.record(0)->isMultiLine);
    QCOMPARE(h.columnFormats(0).at(15), QStringLiteral("errFmt"));
    QCOMPARE(h.formatRuns(1), QStringLiteral("errFmt@0+4"));
}

void TestCommands::patternsAreBuiltOncePerName()
{
    AnalyserHarness::ensureSettings();
    QCOMPARE(DevSettings::cmdRgx.size(), 228);
    QCOMPARE(DevSettings::cmdRgx.first().pattern(), QStringLiteral("^ *[.!/]{0,4}(abook)\\b"));
    QCOMPARE(DevSettings::cmdRgx.last().pattern(), QStringLiteral("^ *[.!/]{0,4}(xyzzy)\\b"));
    for (const QRegularExpression &rx : DevSettings::cmdRgx) {
        QVERIFY(rx.isValid());
        QVERIFY(rx.patternOptions() & QRegularExpression::CaseInsensitiveOption);
    }
}

static QString nameOf(const QRegularExpression &rx)
{
    const QString p = rx.pattern();
    const int open = p.indexOf(QLatin1Char('('));
    return p.mid(open + 1, p.indexOf(QLatin1Char(')')) - open - 1);
}

void TestCommands::commandLookupMatchesPatternWalk()
{
    AnalyserHarness::ensureSettings();
    QStringList names;
    for (const QRegularExpression &rx : DevSettings::cmdRgx)
        names << nameOf(rx);

    const QStringList prefixes = {"", ".", "!", "/", "..!/", "/./.", "./!./", "  ", " /!",
                                  "!!!!!"};
    const QStringList suffixes = {
        "", "-x", ".", "(", "x", "1", "_", ":", "$", "%", "'", "|", "}",
        QStringLiteral("\u00e9"),           // letter
        QStringLiteral("\u0301"),           // combining mark
        QStringLiteral("\u203f"),           // connector punctuation
        QStringLiteral("\u00a0"),           // no-break space
        QStringLiteral("\u0660"),           // Arabic-Indic digit
        QStringLiteral("\u00df"),           // sharp s
        QStringLiteral("\u212a"),           // Kelvin sign
        QStringLiteral("\u017f"),           // long s
        QStringLiteral("\ufffd"),
        QString::fromUcs4(U"\U0001D400"),   // letter outside the BMP
        QString::fromUcs4(U"\U0001F600"),   // symbol outside the BMP
        QString(QChar(0xD800)),             // lone high surrogate
        QString(QChar(0xDC00)) + QStringLiteral("x"), // lone low surrogate
    };

    QStringList words;
    for (const QString &name : names) {
        QString odd = name;
        odd.replace(QLatin1Char('s'), QChar(0x017F)).replace(QLatin1Char('k'), QChar(0x212A));
        QString capital = name;
        capital[0] = capital[0].toUpper();
        const QStringList forms = {name, name.toUpper(), capital, odd, name.chopped(1),
                                   name + QStringLiteral("s")};
        for (const QString &form : forms) {
            for (const QString &prefix : prefixes)
                words << prefix + form;
            for (const QString &suffix : suffixes)
                words << form + suffix;
        }
        words << QStringLiteral("..") + name + suffixes.at(int(names.indexOf(name)) % suffixes.size());
    }

    // A few hundred generated words around the names.
    const QString alphabet = QStringLiteral("aeiklmnorsty_./!-9 \u00e9\u0301\u212a\u017f");
    QRandomGenerator rng(4711);
    for (int i = 0; i < 600; ++i) {
        QString w;
        const int before = int(rng.bounded(4));
        for (int k = 0; k < before; ++k)
            w += QStringLiteral("./! ").at(int(rng.bounded(4)));
        if (rng.bounded(3) != 0)
            w += names.at(int(rng.bounded(names.size())));
        const int after = int(rng.bounded(5));
        for (int k = 0; k < after; ++k)
            w += alphabet.at(int(rng.bounded(alphabet.size())));
        if (rng.bounded(2))
            w = w.toUpper();
        words << w;
    }

    QStringList mismatches;
    int matched = 0;
    for (const QString &w : std::as_const(words)) {
        const int walk = DevSettings::commandPatternMatchLength(w);
        const int fast = DevSettings::commandMatchLength(w);
        if (walk != fast)
            mismatches << QStringLiteral("%1: walk %2, lookup %3").arg(w).arg(walk).arg(fast);
        if (walk >= 0)
            ++matched;
    }
    QCOMPARE(mismatches, QStringList());
    // Both answers occur in plenty.
    QVERIFY2(matched > 3000, qPrintable(QString::number(matched)));
    QVERIFY2(words.size() - matched > 3000, qPrintable(QString::number(words.size() - matched)));
}

void TestCommands::commandLookupOverAllCharacters()
{
    AnalyserHarness::ensureSettings();

    // Every character behind a name: the word boundary.
    QStringList mismatches;
    for (uint c = 1; c < 0x10000; ++c) {
        if (QChar::isSurrogate(c))
            continue;
        const QString w = QStringLiteral("echo") + QChar(char16_t(c));
        if (DevSettings::commandPatternMatchLength(w) != DevSettings::commandMatchLength(w))
            mismatches << QString::number(c, 16);
    }
    QCOMPARE(mismatches, QStringList());

    // Every character that the patterns take for an ASCII letter, in place
    // of that letter in a name that has it.
    const QRegularExpression anyLetter(QStringLiteral("^[a-z]$"),
                                       QRegularExpression::CaseInsensitiveOption
                                           | QRegularExpression::UseUnicodePropertiesOption);
    QList<QChar> letterLike;
    for (uint c = 1; c < 0x10000; ++c) {
        if (!QChar::isSurrogate(c) && anyLetter.match(QString(QChar(char16_t(c)))).hasMatch())
            letterLike << QChar(char16_t(c));
    }
    QVERIFY(letterLike.size() >= 52);
    QStringList names;
    for (const QRegularExpression &rx : DevSettings::cmdRgx)
        names << nameOf(rx);
    int tried = 0;
    for (const QString &name : std::as_const(names)) {
        for (int i = 0; i < name.size(); ++i) {
            for (const QChar c : std::as_const(letterLike)) {
                QString w = name;
                w[i] = c;
                ++tried;
                if (DevSettings::commandPatternMatchLength(w) != DevSettings::commandMatchLength(w))
                    mismatches << w;
            }
        }
    }
    QCOMPARE(mismatches, QStringList());
    QVERIFY(tried > 10000);
}

void TestCommands::scannersOnLineEnds()
{
    // Lines that end inside every construct: nothing may read past them.
    const QStringList lines = {"alias x {", "echo %", "echo $", "echo {", "echo }", "var -",
                               "var %", "var %a,", "var %a }", "var {", "| |", "; {",
                               "echo a | /* x |", "echo a | ; }", "var -s", "/*", "}"};
    AnalyserHarness h;
    h.setLines(lines);
    QCOMPARE(h.document()->blockCount(), lines.size());
    for (int b = 0; b < lines.size(); ++b)
        QVERIFY(h.record(b));
}

QTEST_MAIN(TestCommands)
#include "tst_commands.moc"
