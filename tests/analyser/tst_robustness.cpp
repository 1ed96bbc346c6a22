// Inputs no script author writes by hand, but a generator, a paste or a
// binary file can: each must analyse to the end without a crash and without
// a hang, and a line past the work budget says so once.

#include "analyserharness.h"
#include "scriptfile.h"
#include "testsuite.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString tooComplex = QStringLiteral("Line too complex to analyse; analysis stopped here");

// Budget reports on a line; one of the wrong kind counts a thousand.
int budgetReports(const AnalyserHarness &h, int line)
{
    int n = 0;
    for (const HarnessReport &r : h.reportsOn(line))
        n += r.message != tooComplex                           ? 0
            : r.type == 2 && r.block == QLatin1String("block") ? 1
                                                               : 1000;
    return n;
}

QString repeated(const QString &head, const QString &piece, int times, const QString &tail = {})
{
    QString s = head;
    for (int i = 0; i < times; ++i)
        s += piece;
    return s + tail;
}

// Every report points into an existing line, whose record holds it.
void checkReportsStand(AnalyserHarness &h, const QString &what)
{
    for (const HarnessReport &r : h.reports())
        QVERIFY2(r.line >= 1 && r.line <= h.document()->blockCount() && r.col >= 0,
                 qPrintable(what));
    QVERIFY2(h.bookkeepingFault().isEmpty(), qPrintable(what + h.bookkeepingFault()));
}

} // namespace

class AnalyserRobustness : public QObject
{
    Q_OBJECT

private slots:
    void budgetStopsALineOnce_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("reports"); // on the line; -1: not counted
        QTest::addColumn<bool>("closes"); // back at the top level below the `}' line
        // Each bar nests the command parser once more.
        QTest::newRow("many separated commands")
            << repeated("  echo a", " | echo a", 100000) << -1 << true;
        // A leading bar analyses the rest twice; forty would ask for 2^40
        // passes. Their reports are capped too: one per character and 64
        // more, then the one that says the line stopped.
        const QString bars = repeated("  ", "| ", 40, "echo x {");
        QTest::newRow("leading bars") << bars << int(64 + bars.size() + 1) << false;
        // A hundred thousand stray words file a few thousand reports.
        QTest::newRow("stray words") << repeated("  echo a }", " x", 100000) << 4096 + 1 << true;
        QTest::newRow("nested identifiers") << repeated("  echo ", "$a(", 50000) << -1 << true;
        QTest::newRow("nested conditions")
            << repeated("  if ", "(", 50000, "%a == 1) { echo x") << -1 << true;
    }

    void budgetStopsALineOnce()
    {
        QFETCH(QString, line);
        QFETCH(int, reports);
        QFETCH(bool, closes);
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}"),
                    QStringLiteral("alias y { echo b }")});
        QCOMPARE(budgetReports(h, 2), 1);
        if (reports >= 0)
            QCOMPARE(h.reportsOn(2).size(), reports);
        // From the stop column on, if the stop is not at the line's end, the
        // line is marked.
        for (const HarnessReport &r : h.reportsOn(2)) {
            if (r.message == tooComplex && r.col < line.size())
                QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, r.col)),
                         QLatin1String("errFmt"));
        }
        QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, line.size() - 1)),
                 QLatin1String("errFmt"));
        // Below the line the analysis goes on as usual.
        QCOMPARE(h.state(2) == 1, closes);
        QCOMPARE(h.record(3)->containedBlock, QString(closes ? "y" : ""));
        checkReportsStand(h, line.left(20));
    }

    void strayTextIsReportedInFull_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("400 stray words") << repeated("  echo a }", " x", 400);
        QTest::newRow("one-line if elseif else")
            << QStringLiteral("  if ($1 == hi) { msg $chan hi there, how are you today? }"
                              " elseif ($1 == bye) { msg $chan goodbye and have a nice day,"
                              " see you tomorrow at the usual place } else { msg $chan what"
                              " do you mean by that, I do not understand you at all, sorry }");
    }

    void strayTextIsReportedInFull()
    {
        QFETCH(QString, line);
        // Behind the first bracket every character is stray except blanks
        // and the brackets that follow a blank; under the budget all count.
        int expected = 0;
        for (int i = line.indexOf(QLatin1Char('}')) + 1; i < line.size(); ++i)
            expected += line[i] != QLatin1Char(' ') && line[i] != QLatin1Char('}');
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        int stray = 0;
        for (const HarnessReport &r : h.reportsOn(2))
            stray += r.message == QLatin1String("Unexpected characters after closing bracket");
        QCOMPARE(stray, expected);
    }

    void manyExplodingLinesStayInProportion()
    {
        // What a line may spend is in proportion to its length, so a file
        // of short exploding lines costs what its size says.
        QStringList lines{QStringLiteral("alias x {")};
        for (int i = 0; i < 1000; ++i)
            lines << repeated("  ", "| ", 40, "echo x");
        lines << QStringLiteral("}") << QStringLiteral("alias y { echo b }");
        AnalyserHarness h;
        h.setLines(lines);
        for (int n = 2; n <= 1001; ++n)
            QCOMPARE(budgetReports(h, n), 1);
        QCOMPARE(h.reports().size(), 1000);
        QCOMPARE(h.state(1001), 1);
        QCOMPARE(h.record(1002)->containedBlock, QStringLiteral("y"));
    }

    void hugeInputs()
    {
        const QString line = QStringLiteral("  echo ") + QString(10 * 1024 * 1024, QLatin1Char('a'))
            + QStringLiteral(" %var");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 0);
        QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, line.size() - 2)),
                 QLatin1String("varFmt"));
        QCOMPARE(h.state(2), 1);

        QStringList lines;
        for (int i = 0; i < 500000 / 4; ++i) {
            lines << QStringLiteral("alias a%1 {").arg(i) << QStringLiteral("  echo -a %x")
                  << QStringLiteral("}") << QString();
        }
        h.setLines(lines);
        QCOMPARE(h.document()->blockCount(), 500000);
        QCOMPARE(h.state(499997), 0x20001);
        QCOMPARE(h.state(499998), 1);
        QVERIFY(h.reports().isEmpty());
    }

    void binaryAndBrokenText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray random(200000, '\0');
        QRandomGenerator gen(42);
        for (char &c : random)
            c = char(gen.bounded(256));
        QTest::newRow("random bytes with NULs") << random;
        QTest::newRow("invalid UTF-8")
            << QByteArray("alias x {\n echo \xff\xfe \xc3( $a(\x80 }\n\x80\x81 /* \xed\xa0\x80\n");
        QTest::newRow("CR-only line ends")
            << QByteArray("alias x {\r echo $a(b)\r}\r#g on\r/* x\r*/ y\r on *:text:*:#:{\r");
        QTest::newRow("mixed line ends") << QByteArray(
            "alias x {\r\n echo a\n}\r#g on\r\n#g end\n\r\ndialog d {\r title \"x\"\n}");
        QTest::newRow("NULs in code")
            << QByteArrayLiteral("alias \0x {\n echo $a(\0,\0)\0\n\0}\n#g\0");
        QTest::newRow("only separators")
            << QByteArray("alias x { | | | } } { {\n| } { | /* | */ } |\n}}}}\n");
    }

    void binaryAndBrokenText()
    {
        QFETCH(QByteArray, bytes);
        // Through the loader, as a tab opens a file, in both of its forms.
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        for (const QString &name : {QStringLiteral("broken.mrc"), QStringLiteral("broken.ini")}) {
            QFile f(dir.filePath(name));
            QVERIFY(f.open(QIODevice::WriteOnly));
            QCOMPARE(f.write(bytes), bytes.size());
            f.close();
            const QString text = loadScriptText(QFileInfo(f.fileName()));
            QVERIFY2(!text.isEmpty(), qPrintable(name));

            AnalyserHarness h;
            h.setText(text);
            checkReportsStand(h, name);
            h.setText(QString());
            QCOMPARE(h.reports().size(), 0);
        }
    }

    void randomLines()
    {
        // Text of the characters the scanners care about, behind headers
        // that send it to each parser; fixed seeds.
        const QStringList heads[] = {
            {""},
            {"on *:text:", "on *:join:", "on *:input:", "on *:open:", "on *:keydown:",
             "on *:dialog:", "on *:dccserver:", "on *:sockread:", "on *:vcmd:", "on *:logon:"},
            {"dialog d {\noption", "dialog d {\nsize", "dialog d {\ntitle", "dialog d {\ntext",
             "dialog d {\nedit", "dialog d {\nlist", "dialog d {\ncombo", "dialog d {\n}",
             "dialog d {\n/*"},
        };
        const QString alphabets[] = {
            QStringLiteral("   {}|$%;/*#:,()-aeclosrmnvigdx\t\u00e9\ufffd\n\n\n") + QChar(0xD800)
                + QChar(0xDC00) + QChar(char16_t(0)),
            QStringLiteral(":::,,,*#?%$() a1-@=!{}"),
            QStringLiteral(" ,,\"$%()}{a1-:;/*\t"),
        };
        QRandomGenerator rng(20240611);
        AnalyserHarness h;
        for (int round = 0; round < 1200; ++round) {
            const int kind = round % 3;
            QString text = heads[kind].at(rng.bounded(heads[kind].size()));
            for (int n = rng.bounded(kind == 0 ? 400 : 30); n > 0; --n)
                text += alphabets[kind].at(rng.bounded(alphabets[kind].size()));
            h.setText(text);
            checkReportsStand(h, text);
            const int state = h.state(h.document()->blockCount() - 1);
            // A known event stays an event header with its name, unless a
            // parameter is missing; a table line stays in a table state.
            if (kind == 1 && h.record(0)->blockType == CBlockData::Event)
                QCOMPARE(h.record(0)->containedBlock, text.section(':', 1, 1));
            QVERIFY2(kind != 1 || state == 1 || (state > 0x23000 && state < 0x25000),
                     qPrintable(text));
            QVERIFY2(kind != 2 || state == 1 || state == 256 || state == 257, qPrintable(text));
        }
        h.setText(QString());
        QCOMPARE(h.reports().size(), 0);
    }
};

TARNWICK_TEST(AnalyserRobustness);
#include "tst_robustness.moc"
