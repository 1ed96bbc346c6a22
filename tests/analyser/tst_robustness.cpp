// Inputs no script author writes by hand, but a generator, a paste or a
// binary file can: each must analyse to the end without a crash and without
// a hang, and a line past the work budget says so once.

#include "analyserharness.h"
#include "scriptfile.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString tooComplex = QStringLiteral("Line too complex to analyse; analysis stopped here");

int budgetReports(const AnalyserHarness &h, int line)
{
    int n = 0;
    for (const HarnessReport &r : h.reportsOn(line)) {
        if (r.message == tooComplex) {
            ++n;
            if (r.type != 2 || r.block != QLatin1String("block"))
                return -1;
        }
    }
    return n;
}

} // namespace

class TestRobustness : public QObject
{
    Q_OBJECT

private slots:
    void manySeparatedCommands()
    {
        // Each bar nests the command parser once more.
        QString line = QStringLiteral("  echo a");
        for (int i = 0; i < 100000; ++i)
            line += QStringLiteral(" | echo a");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}"),
                    QStringLiteral("alias y { echo b }")});
        QCOMPARE(budgetReports(h, 2), 1);
        const HarnessReport r = h.reportsOn(2).constLast();
        // From the stop column on, the line is marked.
        QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, r.col)), QStringLiteral("errFmt"));
        QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, line.size() - 1)),
                 QStringLiteral("errFmt"));
        // Below the line the analysis goes on as usual: the bracket closes.
        QCOMPARE(h.state(2), 1);
        QCOMPARE(h.state(3), 1);
        QCOMPARE(h.record(3)->containedBlock, QStringLiteral("y"));
    }

    void leadingBarsDoNotExplode()
    {
        // A leading bar analyses the rest of the line twice; forty of them
        // would ask for 2^40 passes.
        QString line = QStringLiteral("  ");
        for (int i = 0; i < 40; ++i)
            line += QStringLiteral("| ");
        line += QStringLiteral("echo x {");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 1);
        // Reports of the doubled passes are capped too: one per character
        // and a few dozen more, then the one that says the line stopped.
        QCOMPARE(h.reports().size(), 64 + line.size() + 1);
    }

    void strayTextIsReportedInFull_data()
    {
        QTest::addColumn<QString>("line");
        // Every character behind a closing bracket is reported, so these
        // file a report for most of their characters and must not stop.
        QString words = QStringLiteral("  echo a }");
        for (int i = 0; i < 400; ++i)
            words += QStringLiteral(" x");
        QTest::newRow("400 stray words") << words;
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
        // and the brackets that follow a blank.
        int expected = 0;
        for (int i = line.indexOf(QLatin1Char('}')) + 1; i < line.size(); ++i)
            expected += line[i] != QLatin1Char(' ') && line[i] != QLatin1Char('}');
        QVERIFY(expected > 100);
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 0);
        int stray = 0;
        for (const HarnessReport &r : h.reportsOn(2))
            stray += r.message == QLatin1String("Unexpected characters after closing bracket");
        QCOMPARE(stray, expected);
    }

    void strayTextCannotFloodTheDock()
    {
        // A generated line of a hundred thousand stray words files a few
        // thousand reports, not a row for each.
        QString line = QStringLiteral("  echo a }");
        for (int i = 0; i < 100000; ++i)
            line += QStringLiteral(" x");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("alias y { echo b }")});
        QCOMPARE(budgetReports(h, 2), 1);
        QCOMPARE(h.reports().size(), 4096 + 1);
        QCOMPARE(h.record(2)->containedBlock, QStringLiteral("y"));
    }

    void manyExplodingLinesStayInProportion()
    {
        // What a line may spend is in proportion to its length, so a file
        // of short exploding lines costs what its size says (these 89 kB
        // once took twenty seconds in a release build).
        QString line = QStringLiteral("  ");
        for (int i = 0; i < 40; ++i)
            line += QStringLiteral("| ");
        line += QStringLiteral("echo x");
        QStringList lines{QStringLiteral("alias x {")};
        for (int i = 0; i < 1000; ++i)
            lines << line;
        lines << QStringLiteral("}") << QStringLiteral("alias y { echo b }");
        AnalyserHarness h;
        h.setLines(lines);
        for (int n = 2; n <= 1001; ++n)
            QCOMPARE(budgetReports(h, n), 1);
        QCOMPARE(h.reports().size(), 1000);
        QCOMPARE(h.state(1001), 1);
        QCOMPARE(h.record(1002)->containedBlock, QStringLiteral("y"));
    }

    void fewLeadingBarsStayExact()
    {
        // Below the budget the doubling is the required behaviour.
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), QStringLiteral("  | | echo {"),
                    QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 0);
        QCOMPARE(h.reportsOn(2).size(), 4);
    }

    void deeplyNestedIdentifiers()
    {
        QString line = QStringLiteral("  echo ");
        for (int i = 0; i < 50000; ++i)
            line += QStringLiteral("$a(");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 1);
        QCOMPARE(h.state(2), 1);
    }

    void deeplyNestedConditions()
    {
        QString line = QStringLiteral("  if ");
        for (int i = 0; i < 50000; ++i)
            line += QLatin1Char('(');
        line += QStringLiteral("%a == 1) { echo x");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}"), QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 1);
    }

    void realisticScriptStaysUnderBudget()
    {
        QFile f(QStringLiteral(TARNWICK_SOURCE_DIR "/examples/awaykit.mrc"));
        if (!f.open(QIODevice::ReadOnly))
            QSKIP("no sample script");
        AnalyserHarness h;
        h.setText(QString::fromUtf8(f.readAll()));
        for (const HarnessReport &r : h.reports())
            QVERIFY2(r.message != tooComplex, qPrintable(r.brief()));
    }

    void hugeSingleLine()
    {
        QString line = QStringLiteral("  echo ");
        line += QString(10 * 1024 * 1024, QLatin1Char('a'));
        line += QStringLiteral(" %var");
        AnalyserHarness h;
        h.setLines({QStringLiteral("alias x {"), line, QStringLiteral("}")});
        QCOMPARE(budgetReports(h, 2), 0);
        QCOMPARE(AnalyserHarness::formatName(h.formatAt(1, line.size() - 2)),
                 QStringLiteral("varFmt"));
        QCOMPARE(h.state(2), 1);
    }

    void halfAMillionLines()
    {
        QStringList lines;
        lines.reserve(500000);
        for (int i = 0; i < 500000 / 4; ++i) {
            lines << QStringLiteral("alias a%1 {").arg(i) << QStringLiteral("  echo -a %x")
                  << QStringLiteral("}") << QString();
        }
        AnalyserHarness h;
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
        QTest::newRow("invalid UTF-8") << QByteArray("alias x {\n echo \xff\xfe\xc3 $a(\x80\n}\n");
        QTest::newRow("CR-only line ends") << QByteArray("alias x {\r echo $a(b)\r}\r on *:text:*:#:{\r");
        QTest::newRow("mixed line ends")
            << QByteArray("alias x {\r\n echo a\n}\r#g on\r\n#g end\n\r\ndialog d {\r title \"x\"\n}");
        // The literal's own size, NULs included.
        QTest::newRow("NULs in code") << QByteArrayLiteral("alias \0x {\n echo $a(\0,\0)\n}");
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
            QVERIFY(h.document()->blockCount() >= 1);
            // Whatever stands, every report points into its line.
            for (const HarnessReport &r : h.reports()) {
                QVERIFY(r.line >= 1 && r.line <= h.document()->blockCount());
                QVERIFY(r.col >= 0);
            }
        }
    }
};

QTEST_MAIN(TestRobustness)
#include "tst_robustness.moc"
