// Whole scripts through the real analyser: the block state of every line of
// a script that mixes all top-level forms, and the complete report list of
// the shipped sample script against a reviewed expectation.

#include "analyserharness.h"

#include <QFile>
#include <algorithm>
#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

namespace {

struct ScriptLine
{
    const char *text;
    int state;
    const char *record; // "alias local name", "event name", "dialog name", "group n" or ""
};

// What the record of one line says, in the words of ScriptLine::record.
QString describeRecord(const CBlockData *rec)
{
    if (!rec)
        return QString();
    switch (rec->blockType) {
    case CBlockData::Alias:
        return QStringLiteral("alias %1%2").arg(rec->isLocal ? "local " : "", rec->containedBlock);
    case CBlockData::Event:
        return QStringLiteral("event %1").arg(rec->containedBlock);
    case CBlockData::Dialog:
        return QStringLiteral("dialog %1%2").arg(rec->isLocal ? "local " : "", rec->containedBlock);
    default:
        break;
    }
    if (rec->isGroup)
        return QStringLiteral("group %1").arg(rec->groupState);
    return QString();
}

QStringList readLines(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace

class TestWholeScript : public QObject
{
    Q_OBJECT

private slots:
    void statesOfEveryLine();
    void editingTheMiddleRipplesDown();
    void sampleScriptReports();
};

void TestWholeScript::statesOfEveryLine()
{
    const ScriptLine script[] = {
        {"; mixed script", 1, ""},
        {"/* block comment", 2, ""},
        {"   still comment", 2, ""},
        {"*/", 1, ""},
        {"alias -l one { echo a }", 1, "alias local one"},
        {"alias two {", 0x20001, "alias two"},
        {"  echo b", 0x20001, ""},
        {"  ; a comment with { inside", 0x20001, ""},
        {"  /* body comment", 0x21001, ""},
        {"  */", 0x20001, ""},
        {"  var %x = 1 | echo %x", 0x20001, ""},
        {"}", 1, ""},
        {"", 1, ""},
        {"#grp on", 0x75000, "group 1"},
        {"on *:text:*:#: {", 0x99001, "event text"},
        {"  echo c", 0x99001, ""},
        {"}", 0x75000, ""},
        {"on *:connect:echo d", 0x75000, "event connect"},
        {"dialog d {", 0x75100, "dialog d"},
        {"  title \"x\"", 0x75100, ""},
        {"  size -1 -1 10 10", 0x75100, ""},
        {"}", 0x75001, ""},
        // The line after a table's end inside a group is read as a body
        // line that fits nothing; blank, it shows nothing.
        {"", 0x75000, ""},
        {"alias three { echo e }", 0x75000, "alias three"},
        {"#grp end", 1, "group 2"},
        {"on me:*:dialog:d:init:0: {", 0x24001, "event dialog"},
        {"  echo f", 0x24001, ""},
        {"}", 1, ""},
        {"dialog -l e {", 256, "dialog local e"},
        {"  /* comment", 257, ""},
        {"  */", 256, ""},
        {"  } x", 1, ""},
        {"on *:nosuch:x:", 1, ""},
    };

    QStringList lines;
    for (const ScriptLine &l : script)
        lines << QString::fromLatin1(l.text);
    AnalyserHarness h;
    h.setLines(lines);

    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray where = QByteArray::number(i + 1) + ": " + script[i].text;
        QVERIFY2(h.state(i) == script[i].state,
                 (where + " state 0x" + QByteArray::number(h.state(i), 16)).constData());
        QCOMPARE(describeRecord(h.record(i)), QString::fromLatin1(script[i].record));
    }
    QCOMPARE(h.briefs(),
             QStringList{"32:4 3 Dialog|Unexpected characters after closing bracket"});
    // An unknown event is marked in the text alone.
    QCOMPARE(h.formatRuns(32), QStringLiteral("errFmt@0+14"));
}

void TestWholeScript::editingTheMiddleRipplesDown()
{
    AnalyserHarness h;
    h.setLines({"alias a {", "  echo x", "}", "dialog d {", "  text \"a\", 1, 2 3 4 5", "}",
                "on *:start:{", "}"});
    const QList<int> before = {0x20001, 0x20001, 1, 256, 256, 1, 0x24001, 1};
    for (int i = 0; i < before.size(); ++i)
        QCOMPARE(h.state(i), before.at(i));
    QCOMPARE(h.briefs(), QStringList());

    // Without the alias's closing bracket everything below is its body: the
    // dialog header and the event are command lines now.
    QTextCursor cur(h.document()->findBlockByNumber(2));
    cur.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cur.insertText(QStringLiteral("  echo y"));
    for (int i = 2; i < 7; ++i)
        QVERIFY2(h.state(i) > 0x20000 && h.state(i) < 0x21000, qPrintable(QString::number(i)));
    QCOMPARE(h.state(7), 1);
    QCOMPARE(h.record(3)->blockType, int(CBlockData::NoBlock));
    QCOMPARE(h.record(6)->blockType, int(CBlockData::NoBlock));

    // Putting it back restores the table and the event, and withdraws what
    // the body reading had reported.
    cur = QTextCursor(h.document()->findBlockByNumber(2));
    cur.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cur.insertText(QStringLiteral("}"));
    for (int i = 0; i < before.size(); ++i)
        QCOMPARE(h.state(i), before.at(i));
    QCOMPARE(h.record(3)->blockType, int(CBlockData::Dialog));
    QCOMPARE(h.record(6)->blockType, int(CBlockData::Event));
    QCOMPARE(h.briefs(), QStringList());
}

void TestWholeScript::sampleScriptReports()
{
    // Every report of the shipped sample, one line each, in line order; the
    // expectation is reviewed by hand, so any change of behaviour shows up
    // as a difference here.
    const QStringList script =
        readLines(QStringLiteral(TARNWICK_SOURCE_DIR "/examples/awaykit.mrc"));
    const QStringList expected =
        readLines(QStringLiteral(TARNWICK_TEST_DATA_DIR "/awaykit.reports"));
    QVERIFY(script.size() > 200);
    QVERIFY(!expected.isEmpty());

    AnalyserHarness h;
    h.setLines(script);
    QList<HarnessReport> reports = h.reports();
    std::stable_sort(reports.begin(), reports.end(),
                     [](const HarnessReport &a, const HarnessReport &b) { return a.line < b.line; });
    QStringList got;
    for (const HarnessReport &r : reports)
        got << r.brief();

    for (const QString &line : got) {
        if (!expected.contains(line))
            qWarning("unexpected: %s", qPrintable(line));
    }
    for (const QString &line : expected) {
        if (!got.contains(line))
            qWarning("missing: %s", qPrintable(line));
    }
    QCOMPARE(got, expected);
}

QTEST_MAIN(TestWholeScript)
#include "tst_wholescript.moc"
