// Alias and dialog headers and the access level of an event header, read
// through the real driver on a real document.

#include "analyserharness.h"
#include "devsettings.h"

#include <QtTest>

namespace {

const QString noBracket =
    QStringLiteral("1:%1 3 Dialog|No opening bracket found, will result in `creation error'");

} // namespace

class TestHeaders : public QObject
{
    Q_OBJECT

private slots:
    void aliasHeader_data();
    void aliasHeader();
    void dialogHeader_data();
    void dialogHeader();
    void accessLevel_data();
    void accessLevel();
    void meOnlyAsWholeLevel();
    void headerRecordGoesWhenLineChanges();
};

void TestHeaders::aliasHeader_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("runs");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isLocal");
    QTest::addColumn<int>("blockPos");

    QTest::newRow("global, cursor on brace")
        << "alias foo { echo" << 11 << "aliasFmt@0+5 aliasNameFmt@6+3 ctrlFmt@10+1"
        << "foo" << false << 6;
    QTest::newRow("upper-case word and switch")
        << "ALIAS -L foo" << 12 << "aliasFmt@0+5 aliasSwitchFmt@6+2 aliasNameFmt@9+3" << "foo"
        << true << 9;
    QTest::newRow("-l with no room behind is the name")
        << "alias -l" << 8 << "aliasFmt@0+5 aliasNameFmt@6+2" << "-l" << false << 6;
    QTest::newRow("-L with no room behind is the name")
        << "alias -L" << 8 << "aliasFmt@0+5 aliasNameFmt@6+2" << "-L" << false << 6;
    QTest::newRow("-l and one blank: local, empty name")
        << "alias -l " << 9 << "aliasFmt@0+5 aliasSwitchFmt@6+2" << "" << true << 9;
    QTest::newRow("other switch is the name")
        << "alias -x foo" << 12 << "aliasFmt@0+5 aliasNameFmt@6+2" << "-x" << false << 6;
    QTest::newRow("switch glued to the name")
        << "alias -lfoo" << 11 << "aliasFmt@0+5 aliasSwitchFmt@6+2 aliasNameFmt@8+3" << "foo"
        << true << 8;
    QTest::newRow("leading and inner blanks")
        << "  alias   x1" << 12 << "aliasFmt@2+5 aliasNameFmt@10+2" << "x1" << false << 10;
    QTest::newRow("tab ends the name")
        << "alias a\tb" << 9 << "aliasFmt@0+5 aliasNameFmt@6+1" << "a" << false << 6;
    QTest::newRow("no name at all")
        << "alias  " << 7 << "aliasFmt@0+5" << "" << false << 7;
    QTest::newRow("name not validated")
        << "alias $%&{x} {" << 13 << "aliasFmt@0+5 aliasNameFmt@6+6 ctrlFmt@13+1" << "$%&{x}"
        << false << 6;
}

void TestHeaders::aliasHeader()
{
    QFETCH(QString, line);
    QFETCH(int, end);
    QFETCH(QString, runs);
    QFETCH(QString, name);
    QFETCH(bool, isLocal);
    QFETCH(int, blockPos);

    AnalyserHarness h;
    h.setText(line);

    QCOMPARE(h.formatRuns(0, 0, end + 1), runs);
    CBlockData *rec = h.record(0);
    QVERIFY(rec);
    QCOMPARE(rec->blockType, int(CBlockData::Alias));
    QCOMPARE(rec->containedBlock, name);
    QCOMPARE(rec->isLocal, isLocal);
    QCOMPARE(rec->blockPos, blockPos);
    QCOMPARE(h.briefs(), QStringList());
}

void TestHeaders::dialogHeader_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("runs");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isLocal");
    QTest::addColumn<int>("blockPos");
    QTest::addColumn<QStringList>("reports");
    QTest::addColumn<int>("state");

    // dialogFmt prints as aliasFmt, the switch and name formats as the
    // alias ones: they share their looks.
    QTest::newRow("plain")
        << "dialog x {" << "aliasFmt@0+5 aliasNameFmt@7+1 ctrlFmt@9+1" << "x" << false << 7
        << QStringList() << 256;
    QTest::newRow("local")
        << "dialog -l name {" << "aliasFmt@0+5 aliasSwitchFmt@7+2 aliasNameFmt@10+4 ctrlFmt@15+1"
        << "name" << true << 10 << QStringList() << 256;
    QTest::newRow("upper-case local")
        << "DIALOG -L Big {" << "aliasFmt@0+5 aliasSwitchFmt@7+2 aliasNameFmt@10+3 ctrlFmt@14+1"
        << "Big" << true << 10 << QStringList() << 256;
    QTest::newRow("-lx: x is illegal, still local")
        << "dialog -lx name {"
        << "aliasFmt@0+5 aliasSwitchFmt@7+2 errFmt@9+1 aliasNameFmt@11+4 ctrlFmt@16+1" << "name"
        << true << 11 << QStringList{"1:9 2 dialog|Illegal alias switches: `x"} << 256;
    QTest::newRow("-x: dash plain, global")
        << "dialog -x name {" << "aliasFmt@0+5 errFmt@8+1 aliasNameFmt@10+4 ctrlFmt@15+1"
        << "name" << false << 10 << QStringList{"1:8 2 dialog|Illegal alias switches: `x"} << 256;
    QTest::newRow("several illegal letters")
        << "dialog -xyz name {" << "aliasFmt@0+5 errFmt@8+3 aliasNameFmt@12+4 ctrlFmt@17+1"
        << "name" << false << 12 << QStringList{"1:8 2 dialog|Illegal alias switches: `xyz"}
        << 256;
    QTest::newRow("dash and blank is the name")
        << "dialog - name {" << "aliasFmt@0+5 aliasNameFmt@7+1 errFmt@9+6" << "-" << false << 7
        << QStringList{noBracket.arg(9)} << 1;
    QTest::newRow("-l with no room behind is the name")
        << "dialog -l" << "aliasFmt@0+5 aliasNameFmt@7+2" << "-l" << false << 7
        << QStringList{noBracket.arg(9)} << 1;
    QTest::newRow("brace glued to the switch")
        << "dialog -l{" << "aliasFmt@0+5 aliasSwitchFmt@7+2 errFmt@9+1" << "" << true << 10
        << QStringList{"1:9 2 dialog|Illegal alias switches: `{", noBracket.arg(10)} << 1;
}

void TestHeaders::dialogHeader()
{
    QFETCH(QString, line);
    QFETCH(QString, runs);
    QFETCH(QString, name);
    QFETCH(bool, isLocal);
    QFETCH(int, blockPos);
    QFETCH(QStringList, reports);
    QFETCH(int, state);

    AnalyserHarness h;
    h.setText(line);

    QCOMPARE(h.formatRuns(0), runs);
    // The closing `g` of the word stays plain.
    QCOMPARE(h.columnFormats(0).value(5), QStringLiteral("none"));
    CBlockData *rec = h.record(0);
    QVERIFY(rec);
    QCOMPARE(rec->blockType, int(CBlockData::Dialog));
    QCOMPARE(rec->containedBlock, name);
    QCOMPARE(rec->isLocal, isLocal);
    QCOMPARE(rec->blockPos, blockPos);
    QCOMPARE(h.briefs(), reports);
    QCOMPARE(h.state(0), state);
}

void TestHeaders::accessLevel_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("mePos"); // -1: no prefix coloured
    QTest::addColumn<QString>("event"); // empty: no event header
    QTest::addColumn<QString>("matchtext");
    QTest::addColumn<int>("blockPos");

    QTest::newRow("me prefix") << "on me:*:text:hi:#:" << 3 << "text" << "hi" << 13;
    QTest::newRow("ME prefix") << "on ME:*:text:hi:#:" << 3 << "text" << "hi" << 13;
    QTest::newRow("me with a numeric level") << "on me:1:connect:" << 3 << "connect" << "" << 16;
    QTest::newRow("me takes the next word as level")
        << "on me:text:hi:#:" << 3 << "" << "" << -1;
    QTest::newRow("star") << "on *:text:hi:#:" << -1 << "text" << "hi" << 10;
    QTest::newRow("number") << "on 100:text:hi:#:" << -1 << "text" << "hi" << 12;
    QTest::newRow("at-star") << "on @*:join:#:" << -1 << "join" << "" << 11;
    QTest::newRow("bang") << "on !1:text:hi:#:" << -1 << "text" << "hi" << 11;
    QTest::newRow("any text") << "on no such level:text:hi:#:" << -1 << "text" << "hi" << 22;
    QTest::newRow("empty level") << "on :text:hi:#:" << -1 << "text" << "hi" << 9;
    QTest::newRow("blanks behind on") << "on   *:connect:" << -1 << "connect" << "" << 15;
    QTest::newRow("no colon at all") << "on *" << -1 << "" << "" << -1;
    QTest::newRow("me and nothing else") << "on me" << 3 << "" << "" << -1;
}

void TestHeaders::accessLevel()
{
    QFETCH(QString, line);
    QFETCH(int, mePos);
    QFETCH(QString, event);
    QFETCH(QString, matchtext);
    QFETCH(int, blockPos);

    AnalyserHarness h;
    h.setText(line);
    CBlockData *rec = h.record(0);
    QVERIFY(rec);
    QCOMPARE(h.briefs(), QStringList());

    if (event.isEmpty()) {
        // No header: the driver marks the whole line, over the prefix too.
        QCOMPARE(rec->blockType, int(CBlockData::NoBlock));
        QCOMPARE(h.formatRuns(0), QStringLiteral("errFmt@0+%1").arg(line.size()));
        return;
    }

    QCOMPARE(rec->blockType, int(CBlockData::Event));
    QCOMPARE(rec->containedBlock, event);
    QCOMPARE(rec->matchtext, matchtext);
    QCOMPARE(rec->blockPos, blockPos);
    if (mePos >= 0)
        QVERIFY(h.hasFormat(0, mePos, 2, DevSettings::onMePreFmt));
    // The level itself gets no colour; outside a group neither does `on`.
    const int eventStart = line.indexOf(event, 0, Qt::CaseInsensitive);
    for (int c = 0; c < eventStart; ++c) {
        if (mePos >= 0 && (c == mePos || c == mePos + 1))
            continue;
        QCOMPARE(h.columnFormats(0).at(c), QStringLiteral("none"));
    }
    QVERIFY(h.hasFormat(0, eventStart, event.size(), DevSettings::onEventFmt));
}

void TestHeaders::meOnlyAsWholeLevel()
{
    // `me` counts only as the whole text before the first colon.
    AnalyserHarness h;
    h.setLines({"on meh:text:hi:#:", "on  me:*:text:hi:#:"});
    QVERIFY(!h.hasFormat(0, 3, 2, DevSettings::onMePreFmt));
    QCOMPARE(h.record(0)->containedBlock, QStringLiteral("text"));
    // Blanks behind `on` are eaten before the level is read.
    QVERIFY(h.hasFormat(1, 4, 2, DevSettings::onMePreFmt));
    QCOMPARE(h.record(1)->containedBlock, QStringLiteral("text"));
    QCOMPARE(h.record(1)->blockPos, 14);
}

void TestHeaders::headerRecordGoesWhenLineChanges()
{
    AnalyserHarness h;
    h.setLines({"dialog -x name {", "}"});
    QCOMPARE(h.briefs().size(), 1);
    QCOMPARE(h.record(0)->blockType, int(CBlockData::Dialog));

    QTextCursor cur(h.document()->findBlockByNumber(0));
    cur.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cur.insertText(QStringLiteral("alias -l name"));

    QCOMPARE(h.briefs(), QStringList());
    QCOMPARE(h.record(0)->blockType, int(CBlockData::Alias));
    QCOMPARE(h.record(0)->containedBlock, QStringLiteral("name"));
    QVERIFY(h.record(0)->isLocal);
}

QTEST_MAIN(TestHeaders)
#include "tst_headers.moc"
