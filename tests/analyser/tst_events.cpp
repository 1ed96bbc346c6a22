// Event headers through the real driver: families, their parameters, the
// variable test, the target walks and the dialog checks.

#include "analyserharness.h"
#include "devsettings.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

const QString matchVars = QStringLiteral(
    "matchtext contains variables and text must be enclosed by the $() identifier");
const QString targetVars = QStringLiteral(
    "target contains variables and text must be enclosed by the $() identifier");
const QString windowVars = QStringLiteral(
    "window parameter contains variables and text must be enclosed by the $() identifier");
const QString starWarning =
    QStringLiteral("Wildcard * overrules all other targets, making them pointless.");
const QString queryWarning =
    QStringLiteral("Wildcard ? overrules all other query targets, making them pointless.");
const QString chanWarning =
    QStringLiteral("Wildcard # overrules all other channels targets, making them pointless.");
const QString badChannel = QStringLiteral("Invalid channel name in target.");
const QString badWindow = QStringLiteral(
    "Invalid target parameter, must be one of the following: *, #, ?, =, !, @.");
const QString badDcc = QStringLiteral(
    "Invalid DCC type parameter, must be one of the following: chat, send, or fserve.");

QString rep(int col, int type, const QString &event, const QString &msg)
{
    return QStringLiteral("1:%1 %2 on %3|%4").arg(col).arg(type).arg(event, msg);
}

// "event|matchtext|blockPos" of a line's record, or "-" when it holds no
// event.
QString recordOf(const AnalyserHarness &h, int block)
{
    const CBlockData *rec = h.record(block);
    if (!rec || rec->blockType != CBlockData::Event)
        return QStringLiteral("-");
    return QStringLiteral("%1|%2|%3").arg(rec->containedBlock, rec->matchtext).arg(rec->blockPos);
}

} // namespace

class TestEvents : public QObject
{
    Q_OBJECT

private slots:
    void header_data();
    void header();
    void missingParameter_data();
    void missingParameter();
    void allEventNamesAreKnown();
    void identifierParsedAtBlockColumns();
    void colonInsideIdentifierEndsParameter();
    void bodyAfterHeader_data();
    void bodyAfterHeader();
    void randomHeadersNeverBreakTheLine();
};

void TestEvents::header_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("runs");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<QString>("record");

    const QString textWord = QStringLiteral("onEventFmt@5+4");

    // Opening.
    QTest::newRow("upper-case word") << "on *:TEXT:hello:#:" << textWord << QStringList()
                                     << "text|hello|10";
    QTest::newRow("bare without closing colon")
        << "on *:connect" << "errFmt@0+12" << QStringList() << "-";
    QTest::newRow("bare with closing colon")
        << "on *:connect:" << "onEventFmt@5+7" << QStringList() << "connect||13";
    QTest::newRow("bare ignores what follows")
        << "on *:start:x:y:" << "onEventFmt@5+5" << QStringList() << "start||11";
    QTest::newRow("unknown word") << "on *:nosuch:*:#:" << "errFmt@0+16" << QStringList() << "-";
    QTest::newRow("word is not trimmed") << "on *: text:hi:#:" << "errFmt@0+16" << QStringList()
                                         << "-";
    QTest::newRow("raw is no event") << "on *:raw:*:" << "errFmt@0+11" << QStringList() << "-";

    // Message family.
    QTest::newRow("empty matchtext") << "on *:text::#:" << textWord << QStringList()
                                     << "text||10";
    QTest::newRow("variable with a blank")
        << "on *:text:%a b:#:" << "onEventFmt@5+4 errFmt@10+4"
        << QStringList{rep(10, 3, "text", matchVars)} << "text|%a b|10";
    QTest::newRow("lone variable") << "on *:text:%a:#:" << "onEventFmt@5+4 varFmt@10+2"
                                   << QStringList() << "text|%a|10";
    QTest::newRow("variable further in is text")
        << "on *:text:x%a:#:" << textWord << QStringList() << "text|x%a|10";
    QTest::newRow("dollar without bracket is text")
        << "on *:text:$nick x:#:" << textWord << QStringList() << "text|$nick x|10";
    QTest::newRow("target variable with blank, matchtext sentence")
        << "on *:notice:x:%t y:" << "onEventFmt@5+6 errFmt@14+4"
        << QStringList{rep(14, 3, "notice", matchVars)} << "notice|x|12";
    QTest::newRow("lone variable target skips the walk")
        << "on *:text:x:%t,*:" << "onEventFmt@5+4 varFmt@12+4" << QStringList() << "text|x|10";
    QTest::newRow("star then channel")
        << "on *:text:x:*,#a:" << "onEventFmt@5+4 wrnFmt@14+2"
        << QStringList{rep(12, 2, "text", starWarning)} << "text|x|10";
    QTest::newRow("second star") << "on *:text:x:*,*:" << "onEventFmt@5+4 wrnFmt@14+1"
                                 << QStringList{rep(12, 2, "text", starWarning)} << "text|x|10";
    QTest::newRow("star skips the other checks")
        << "on *:action:x:#a,*,?,#,n:" << "onEventFmt@5+6 wrnFmt@14+2 wrnFmt@19+1 wrnFmt@21+1 "
                                          "wrnFmt@23+1"
        << QStringList{rep(17, 2, "action", starWarning)} << "action|x|12";
    QTest::newRow("star alone") << "on *:text:x:*:" << textWord << QStringList() << "text|x|10";
    QTest::newRow("query and nick") << "on *:text:x:?,nick:" << "onEventFmt@5+4 wrnFmt@14+4"
                                    << QStringList{rep(12, 2, "text", queryWarning)}
                                    << "text|x|10";
    QTest::newRow("query and channel") << "on *:text:x:?,#a:" << textWord << QStringList()
                                       << "text|x|10";
    QTest::newRow("query, hash, channel, nick")
        << "on *:text:x:?,#,#a,nick:" << "onEventFmt@5+4 wrnFmt@16+2 wrnFmt@19+4"
        << QStringList{rep(12, 2, "text", queryWarning), rep(14, 2, "text", chanWarning)}
        << "text|x|10";
    QTest::newRow("query, hash, nick: query warning only")
        << "on *:text:x:?,#,nick:" << "onEventFmt@5+4 wrnFmt@16+4"
        << QStringList{rep(12, 2, "text", queryWarning)} << "text|x|10";
    QTest::newRow("second query is warned")
        << "on *:text:x:?,?:" << "onEventFmt@5+4 wrnFmt@14+1"
        << QStringList{rep(12, 2, "text", queryWarning)} << "text|x|10";
    QTest::newRow("hash and channels")
        << "on *:text:x:#a,#,#b:" << "onEventFmt@5+4 wrnFmt@12+2 wrnFmt@17+2"
        << QStringList{rep(15, 2, "text", chanWarning)} << "text|x|10";
    QTest::newRow("nicknames and odd words pass")
        << "on *:text:x:nick,@w,=c,:" << textWord << QStringList() << "text|x|10";

    // Channel family.
    QTest::newRow("channel star is invalid")
        << "on *:join:*:" << "onEventFmt@5+4 errFmt@10+1"
        << QStringList{rep(10, 3, "join", badChannel)} << "join||10";
    QTest::newRow("channel hash overrules, star sentence")
        << "on *:join:#,#a:" << "onEventFmt@5+4 wrnFmt@12+2"
        << QStringList{rep(10, 2, "join", starWarning)} << "join||10";
    QTest::newRow("channel hash overrules a nick too")
        << "on *:join:#,x:" << "onEventFmt@5+4 wrnFmt@12+1"
        << QStringList{rep(10, 2, "join", starWarning)} << "join||10";
    QTest::newRow("one report per bad token")
        << "on *:join:#a,,x:" << "onEventFmt@5+4 errFmt@14+1"
        << QStringList{rep(13, 3, "join", badChannel), rep(14, 3, "join", badChannel)}
        << "join||10";
    QTest::newRow("hash alone") << "on *:op:#:" << "onEventFmt@5+2" << QStringList() << "op||8";
    QTest::newRow("channel list") << "on *:rawmode:#a,#b:" << "onEventFmt@5+7" << QStringList()
                                  << "rawmode||13";
    QTest::newRow("channel variable with blank, matchtext sentence")
        << "on *:kick:%c x:" << "onEventFmt@5+4 errFmt@10+4"
        << QStringList{rep(10, 3, "kick", matchVars)} << "kick||10";

    // Match family.
    QTest::newRow("wallops takes match text")
        << "on *:WALLOPS:*x*:" << "onEventFmt@5+7" << QStringList() << "wallops|*x*|13";
    QTest::newRow("sockread variable")
        << "on *:sockread:%s x:" << "onEventFmt@5+8 errFmt@14+4"
        << QStringList{rep(14, 3, "sockread", matchVars)} << "sockread|%s x|14";

    // Window target family.
    QTest::newRow("window target nick")
        << "on *:input:nick:" << "onEventFmt@5+5 errFmt@11+4"
        << QStringList{rep(11, 3, "input", badWindow)} << "input||11";
    QTest::newRow("window target first character counts")
        << "on *:input:?x:" << "onEventFmt@5+5" << QStringList() << "input||11";
    QTest::newRow("window target empty")
        << "on *:tabcomp::" << "onEventFmt@5+7" << QStringList{rep(13, 3, "tabcomp", badWindow)}
        << "tabcomp||13";
    QTest::newRow("window target each allowed start")
        << "on *:active:=x:" << "onEventFmt@5+6" << QStringList() << "active||12";
    QTest::newRow("window target variable")
        << "on *:appactive:%w x:" << "onEventFmt@5+9 errFmt@15+4"
        << QStringList{rep(15, 3, "appactive", targetVars)} << "appactive||15";

    // File family.
    QTest::newRow("file names not examined")
        << "on *:filercvd:%x y*.txt:" << "onEventFmt@5+8" << QStringList() << "filercvd||14";

    // DCC server.
    QTest::newRow("dcc type lowercased") << "on *:dccserver:SEND:" << "onEventFmt@5+9"
                                         << QStringList() << "dccserver||15";
    QTest::newRow("dcc type bad")
        << "on *:dccserver:get:" << "onEventFmt@5+9 errFmt@15+3"
        << QStringList{rep(15, 3, "dccserver", badDcc)} << "dccserver||15";

    // Open family.
    QTest::newRow("open without matchtext")
        << "on *:open:?:" << "onEventFmt@5+4" << QStringList() << "open||12";
    QTest::newRow("open with matchtext")
        << "on *:open:?:hi:" << "onEventFmt@5+4" << QStringList() << "open|hi|15";
    QTest::newRow("open matchtext lowercased")
        << "on *:close:=:HeLLo:" << "onEventFmt@5+5" << QStringList() << "close|hello|19";
    QTest::newRow("open target not examined")
        << "on *:open:%x y:" << "onEventFmt@5+4" << QStringList() << "open||15";
    QTest::newRow("open matchtext variable")
        << "on *:open:?:%a b:" << "onEventFmt@5+4 errFmt@12+4"
        << QStringList{rep(12, 3, "open", matchVars)} << "open|%a b|17";
    // The body starts right behind the target's colon.
    QTest::newRow("open text after target without colon")
        << "on *:open:?:echo hi" << "onEventFmt@5+4 cmdFmt@12+4" << QStringList() << "open||12";

    // Voice command family.
    QTest::newRow("vcmd") << "on *:vcmd:Hello:#:" << "onEventFmt@5+4" << QStringList()
                          << "vcmd|Hello|10";
    QTest::newRow("vcmd target variable")
        << "on *:hotlink:x:%t y:" << "onEventFmt@5+7 errFmt@15+4"
        << QStringList{rep(15, 3, "hotlink", targetVars)} << "hotlink|x|13";

    // Key family.
    QTest::newRow("keys with a bad key")
        << "on *:keydown:@w:65,x:" << "onEventFmt@5+7 errFmt@19+1"
        << QStringList{rep(16, 3, "keydown", "Invalid key type")} << "keydown|@w|13";
    QTest::newRow("keys, each bad key reported at the list")
        << "on *:keyup:*:a,66,b:" << "onEventFmt@5+5 errFmt@13+1 errFmt@18+1"
        << QStringList{rep(13, 3, "keyup", "Invalid key type"),
                       rep(13, 3, "keyup", "Invalid key type")}
        << "keyup|*|11";
    QTest::newRow("empty key passes") << "on *:keydown:@w:65,,66:" << "onEventFmt@5+7"
                                      << QStringList() << "keydown|@w|13";
    QTest::newRow("window lowercased") << "on *:keydown:@Win:65:" << "onEventFmt@5+7"
                                       << QStringList() << "keydown|@win|13";
    QTest::newRow("keys variable, window sentence")
        << "on *:keydown:@w:%k x:" << "onEventFmt@5+7 errFmt@16+4"
        << QStringList{rep(16, 3, "keydown", windowVars)} << "keydown|@w|13";
    QTest::newRow("window variable")
        << "on *:keydown:%w x:1:" << "onEventFmt@5+7 errFmt@13+4"
        << QStringList{rep(13, 3, "keydown", windowVars)} << "keydown|%w x|13";

    // Logon.
    QTest::newRow("logon not saved")
        << "on *:logon:%x y:" << "onEventFmt@5+5" << QStringList() << "logon||11";

    // Dialog family.
    QTest::newRow("dialog ids and ranges")
        << "on *:dialog:d:sclick:1,2-5:" << "onEventFmt@5+6" << QStringList() << "dialog|d|12";
    QTest::newRow("dialog open range") << "on *:dialog:d:sclick:2-:" << "onEventFmt@5+6"
                                       << QStringList() << "dialog|d|12";
    QTest::newRow("dialog star id and type")
        << "on *:dialog:D:*:*:" << "onEventFmt@5+6" << QStringList() << "dialog|d|12";
    QTest::newRow("dialog bad ids")
        << "on *:dialog:d:sclick:a,b:" << "onEventFmt@5+6 errFmt@21+1 errFmt@23+1"
        << QStringList{rep(5, 3, "dialog", "Invalid dialog ID")} << "dialog|d|12";
    QTest::newRow("dialog bad range pieces")
        << "on *:dialog:d:edit:1-x,y-2-:" << "onEventFmt@5+6 errFmt@21+1 errFmt@23+1"
        << QStringList{rep(5, 3, "dialog", "Invalid dialog ID")} << "dialog|d|12";
    QTest::newRow("dialog bad event type")
        << "on *:dialog:d:nope:1:" << "onEventFmt@5+6 errFmt@14+4"
        << QStringList{rep(5, 3, "dialog", "Invalid event type")} << "dialog|d|12";
    QTest::newRow("dialog bad type and id")
        << "on *:dialog:d:nope:x:" << "onEventFmt@5+6 errFmt@14+4 errFmt@19+1"
        << QStringList{rep(5, 3, "dialog", "Invalid event type"),
                       rep(5, 3, "dialog", "Invalid dialog ID")}
        << "dialog|d|12";
    QTest::newRow("dialog event types lowercased")
        << "on *:dialog:d:RCLICK:3:" << "onEventFmt@5+6" << QStringList() << "dialog|d|12";
}

void TestEvents::header()
{
    QFETCH(QString, line);
    QFETCH(QString, runs);
    QFETCH(QStringList, reports);
    QFETCH(QString, record);

    AnalyserHarness h;
    h.setText(line);
    QCOMPARE(h.formatRuns(0), runs);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(recordOf(h, 0), record);
    QCOMPARE(h.state(0), 1);
}

void TestEvents::missingParameter_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("record");

    // One row per family and parameter; the event word starts at column 5.
    QTest::newRow("message matchtext") << "on *:text:*" << "matchtext parameter is missing"
                                       << "-";
    QTest::newRow("message target") << "on *:text:*:#" << "target parameter is missing"
                                    << "text|*|10";
    QTest::newRow("message target, action") << "on *:action:hi:" << "target parameter is missing"
                                            << "action|hi|12";
    QTest::newRow("channel target") << "on *:join:#chan" << "target parameter is missing" << "-";
    QTest::newRow("match matchtext") << "on *:sockopen:x" << "matchtext parameter is missing"
                                     << "-";
    QTest::newRow("window target saved first")
        << "on *:input:" << "target parameter is missing" << "input||11";
    QTest::newRow("file filenames") << "on *:filesent:*.txt" << "filename parameter is missing"
                                    << "filesent||14";
    QTest::newRow("dcc type") << "on *:dccserver:chat" << "DCC type parameter is missing"
                              << "dccserver||15";
    QTest::newRow("open target") << "on *:open:?" << "target parameter is missing" << "-";
    QTest::newRow("vcmd matchtext") << "on *:vcmd:hi" << "matchtext parameter is missing" << "-";
    QTest::newRow("vcmd target") << "on *:vcmd:hi:#" << "target parameter is missing"
                                 << "vcmd|hi|10";
    QTest::newRow("key window") << "on *:keyup:@w" << "window parameter is missing" << "-";
    QTest::newRow("key keys") << "on *:keyup:@w:65" << "key types parameter is missing"
                              << "keyup|@w|11";
    QTest::newRow("logon matchtext") << "on *:logon:*" << "matchtext parameter is missing"
                                     << "logon||11";
    QTest::newRow("dialog name") << "on *:dialog:d" << "name parameter is missing" << "-";
    QTest::newRow("dialog event type") << "on *:dialog:d:init" << "event parameter is missing"
                                       << "dialog|d|12";
    QTest::newRow("dialog id") << "on *:dialog:d:init:0" << "dialog ID parameter is missing"
                               << "dialog|d|12";
}

void TestEvents::missingParameter()
{
    QFETCH(QString, line);
    QFETCH(QString, message);
    QFETCH(QString, record);

    AnalyserHarness h;
    // A body that would be read if the header had ended well.
    h.setText(line + QStringLiteral(" { echo"));

    const QString event = line.mid(5, line.indexOf(QLatin1Char(':'), 5) - 5).toLower();
    QCOMPARE(h.briefs(), QStringList{rep(5, 3, event, message)});
    // Shown on the event word, in place of its own colour.
    QVERIFY(h.hasFormat(0, 5, event.size(), DevSettings::errFmt));
    QCOMPARE(recordOf(h, 0), record);
    // The header ends at the end of the line: no bracket is taken.
    QCOMPARE(h.state(0), 1);
    QVERIFY(!h.hasFormat(0, line.size() + 1, 1, DevSettings::ctrlFmt));
}

void TestEvents::allEventNamesAreKnown()
{
    const QStringList names = {
        "action",    "notice",     "text",     "load",     "start",     "midiend",
        "waveend",   "mp3end",     "agent",    "exit",     "connect",   "disconnect",
        "connectfail", "dns",      "nick",     "nosound",  "ping",      "playend",
        "quit",      "notify",     "unload",   "usermode", "help",      "dehelp",
        "op",        "deop",       "voice",    "devoice",  "ban",       "unban",
        "invite",    "join",       "kick",     "mode",     "servermode", "serverop",
        "rawmode",   "topic",      "wallops",  "chat",     "serv",      "ctcpreply",
        "error",     "signal",     "snotice",  "sockclose", "socklisten", "sockopen",
        "sockread",  "sockwrite",  "udpread",  "active",   "appactive", "input",
        "tabcomp",   "filercvd",   "filesent", "sendfail", "getfail",   "dccserver",
        "open",      "close",      "vcmd",     "hotlink",  "keydown",   "keyup",
        "logon",     "dialog",
    };
    QCOMPARE(names.size(), 68);

    QStringList lines;
    for (const QString &name : names)
        lines << QStringLiteral("on *:%1:#:chat:1:").arg(name.toUpper());
    AnalyserHarness h;
    h.setLines(lines);
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(recordOf(h, i).section(QLatin1Char('|'), 0, 0), names.at(i));
        QVERIFY2(h.hasFormat(i, 5, names.at(i).size(), DevSettings::onEventFmt),
                 qPrintable(names.at(i)));
    }

    // Near misses are no events.
    h.setLines({"on *:texts:x:#:", "on *:ctcp:*:x:", "on *:raw:*:", "on *:sockets:x:"});
    for (int i = 0; i < 4; ++i)
        QCOMPARE(recordOf(h, i), QStringLiteral("-"));
}

void TestEvents::identifierParsedAtBlockColumns()
{
    AnalyserHarness h;
    h.setText(QStringLiteral("on *:text:$(%a b):#:"));
    // The identifier parser runs on a padded copy, so what it colours and
    // records lands on the columns of the block.
    QVERIFY(h.hasFormat(0, 10, 2, DevSettings::identFmt));
    QVERIFY(h.hasFormat(0, 12, 2, DevSettings::varFmt));
    const CBlockData *rec = h.record(0);
    QVERIFY(rec && !rec->idents.isEmpty());
    QCOMPARE(rec->idents.first().start, 10);
    QCOMPARE(rec->matchtext, QStringLiteral("$(%a b)"));
    // No variable-test message for the wrapped form.
    for (const QString &b : h.briefs())
        QVERIFY2(!b.contains(matchVars), qPrintable(b));
}

void TestEvents::colonInsideIdentifierEndsParameter()
{
    AnalyserHarness h;
    h.setText(QStringLiteral("on *:text:$(a:b):#:"));
    const CBlockData *rec = h.record(0);
    QVERIFY(rec);
    QCOMPARE(rec->matchtext, QStringLiteral("$(a"));
    QCOMPARE(rec->blockPos, 10);
}

void TestEvents::bodyAfterHeader_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QList<int>>("states");

    QTest::newRow("single-line body") << QStringList{"on *:text:hi:#:echo hi"} << QList<int>{1};
    QTest::newRow("open bracket")
        << QStringList{"on *:connect: {", "  echo hi", "}", "x"}
        << QList<int>{0x24001, 0x24001, 1, 1};
    QTest::newRow("open bracket after target")
        << QStringList{"on 1:join:#a,#b:{", "}"} << QList<int>{0x24001, 1};
    QTest::newRow("missing parameter has no body")
        << QStringList{"on *:text:hi {", "echo"} << QList<int>{1, 1};
    QTest::newRow("in a group")
        << QStringList{"#g on", "on *:open:?: {", "}", "#g end"}
        << QList<int>{0x75000, 0x99001, 0x75000, 1};
}

void TestEvents::bodyAfterHeader()
{
    QFETCH(QStringList, lines);
    QFETCH(QList<int>, states);

    AnalyserHarness h;
    h.setLines(lines);
    QList<int> got;
    for (int i = 0; i < lines.size(); ++i)
        got << h.state(i);
    QCOMPARE(got, states);
}

void TestEvents::randomHeadersNeverBreakTheLine()
{
    // Parameters made of the characters the walks care about. Whatever
    // they hold, a known event stays an event header (unless a parameter
    // is missing, which leaves state 1), and the saved name is the word.
    const QStringList events = {"text", "join", "input", "open", "keydown", "dialog",
                                "dccserver", "sockread", "connect", "vcmd", "logon"};
    const QString alphabet = QStringLiteral(":::,,,*#?%$() a1-@=!{}");
    QRandomGenerator rng(7);
    AnalyserHarness h;
    for (int round = 0; round < 400; ++round) {
        const QString event = events.at(rng.bounded(events.size()));
        QString line = QStringLiteral("on *:") + event + QLatin1Char(':');
        const int n = rng.bounded(30);
        for (int i = 0; i < n; ++i)
            line += alphabet.at(rng.bounded(alphabet.size()));
        h.setText(line);
        const int state = h.state(0);
        QVERIFY2(state == 1 || (state > 0x23000 && state < 0x25000), qPrintable(line));
        const CBlockData *rec = h.record(0);
        if (rec->blockType == CBlockData::Event)
            QCOMPARE(rec->containedBlock, event);
        for (const HarnessReport &r : h.reports())
            QVERIFY2(r.block == QLatin1String("on ") + event || r.block != QLatin1String("Dialog"),
                     qPrintable(line));
    }
}

QTEST_MAIN(TestEvents)
#include "tst_events.moc"
