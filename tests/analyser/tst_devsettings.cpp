// The shared patterns and formats, as every parser reads them.

#include "analyserharness.h"
#include "devsettings.h"

#include <QtTest>

class TestDevSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void formats_data();
    void formats();
    void patterns_data();
    void patterns();
};

void TestDevSettings::initTestCase()
{
    AnalyserHarness::ensureSettings();
}

void TestDevSettings::formats_data()
{
    QTest::addColumn<QTextCharFormat>("format");
    QTest::addColumn<QString>("foreground"); // "r,g,b" or empty: not set
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::addColumn<QString>("underline"); // "r,g,b" of a spell-check line, or empty

    const QString green = "102,153,51";
    const QString blue = "0,51,204";
    const QString olive = "128,128,0";
    const QString red = "255,0,0";
    auto row = [](const char *name, const QTextCharFormat &f, const QString &fg, bool bold,
                  bool italic, const QString &underline) {
        QTest::newRow(name) << f << fg << bold << italic << underline;
    };
    row("commentFmt", DevSettings::commentFmt, green, false, false, "");
    row("rcommentFmt", DevSettings::rcommentFmt, green, false, false, olive);
    row("commentNoEndFmt", DevSettings::commentNoEndFmt, green, false, false, red);
    row("errFmt", DevSettings::errFmt, "", false, false, red);
    row("wrnFmt", DevSettings::wrnFmt, "", false, false, olive);
    row("infFmt", DevSettings::infFmt, "", false, false, "255,153,51");
    row("aliasFmt", DevSettings::aliasFmt, "0,0,0", true, false, "");
    row("aliasSwitchFmt", DevSettings::aliasSwitchFmt, "", false, true, "");
    row("aliasNameFmt", DevSettings::aliasNameFmt, "", true, false, "");
    row("dialogFmt", DevSettings::dialogFmt, "0,0,0", true, false, "");
    row("dialogSwitchFmt", DevSettings::dialogSwitchFmt, "", false, true, "");
    row("dialogNameFmt", DevSettings::dialogNameFmt, "", true, false, "");
    row("dialogCmdFmt", DevSettings::dialogCmdFmt, blue, true, false, "");
    row("dialogStrFmt", DevSettings::dialogStrFmt, "0,51,153", false, false, "");
    row("openBracketFmt", DevSettings::openBracketFmt, blue, true, false, "");
    row("closeBracketFmt", DevSettings::closeBracketFmt, blue, true, false, "");
    row("cmdFmt", DevSettings::cmdFmt, "153,102,204", false, false, "");
    row("ctrlFmt", DevSettings::ctrlFmt, blue, true, false, "");
    row("pipeFmt", DevSettings::pipeFmt, "", false, false, "");
    row("identFmt", DevSettings::identFmt, "83,83,142", false, false, "");
    row("identPropFmt", DevSettings::identPropFmt, "160,160,164", false, false, "");
    row("varFmt", DevSettings::varFmt, "197,113,0", false, false, "");
    row("groupFmt", DevSettings::groupFmt, "102,153,153", false, false, "");
    row("groupCtrlFmt", DevSettings::groupCtrlFmt, blue, true, false, "");
    row("todoFmt", DevSettings::todoFmt, "0,0,153", false, false, "");
    row("onFmt", DevSettings::onFmt, "0,0,0", true, false, "");
    row("onEventFmt", DevSettings::onEventFmt, "0,153,153", false, false, "");
    row("onChannelsFmt", DevSettings::onChannelsFmt, "0,0,0", false, false, "");
    row("onMePreFmt", DevSettings::onMePreFmt, "0,0,153", false, false, "");
}

static QString rgb(const QColor &c)
{
    return QStringLiteral("%1,%2,%3").arg(c.red()).arg(c.green()).arg(c.blue());
}

void TestDevSettings::formats()
{
    QFETCH(QTextCharFormat, format);
    QFETCH(QString, foreground);
    QFETCH(bool, bold);
    QFETCH(bool, italic);
    QFETCH(QString, underline);

    // A property left out must stay unset, so the text keeps its own.
    QCOMPARE(format.hasProperty(QTextFormat::ForegroundBrush), !foreground.isEmpty());
    if (!foreground.isEmpty()) {
        QCOMPARE(rgb(format.foreground().color()), foreground);
        QCOMPARE(format.foreground().color().alpha(), 255);
        QCOMPARE(format.foreground().style(), Qt::SolidPattern);
    }
    QCOMPARE(format.hasProperty(QTextFormat::FontWeight), bold);
    if (bold)
        QCOMPARE(format.fontWeight(), int(QFont::Bold));
    QCOMPARE(format.hasProperty(QTextFormat::FontItalic), italic);
    QCOMPARE(format.hasProperty(QTextFormat::TextUnderlineStyle), !underline.isEmpty());
    QCOMPARE(format.hasProperty(QTextFormat::TextUnderlineColor), !underline.isEmpty());
    if (!underline.isEmpty()) {
        QCOMPARE(format.underlineStyle(), QTextCharFormat::SpellCheckUnderline);
        QCOMPARE(rgb(format.underlineColor()), underline);
    }
    QCOMPARE(format.hasProperty(QTextFormat::BackgroundBrush), false);
}

void TestDevSettings::patterns_data()
{
    QTest::addColumn<QRegularExpression>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");

    auto row = [](const char *name, const QRegularExpression &rx, const QString &text,
                  bool matches) { QTest::newRow(name) << rx << text << matches; };
    row("comment start behind blanks", DevSettings::commentStartRgx, "   /* x", true);
    row("comment start behind a tab", DevSettings::commentStartRgx, "\t/* x", false);
    row("comment end", DevSettings::commentEndRgx, "  */  ", true);
    row("comment end later in the line", DevSettings::commentEndRgx, "x */", false);
    row("semicolon", DevSettings::singleLCommentRgx, "  ;", true);
    row("rem alone", DevSettings::singleLRCommentRgx, "REM", true);
    row("rem and text", DevSettings::singleLRCommentRgx, " rem x", true);
    row("rem and a blank", DevSettings::singleLRCommentRgx, "rem ", false);
    row("remark", DevSettings::singleLRCommentRgx, "remark", false);
    row("if upper-case", DevSettings::ctrlRgx, "IF (x)", true);
    row("elseif prefixed", DevSettings::ctrlRgx, "..!/elseif", true);
    row("while five prefixes", DevSettings::ctrlRgx, "./!./while", false);
    row("iffy", DevSettings::ctrlRgx, "iffy", false);
    row("else upper-case", DevSettings::ctrlElseRgx, "ELSE {", true);
    row("var", DevSettings::varRgx, "/var %a", true);
    row("VAR is not var", DevSettings::varRgx, "VAR %a 1", false);
    row("Var is not var", DevSettings::varRgx, "Var", false);
    row("open bracket word", DevSettings::openBracketRgx, "x { y", true);
    row("close bracket word", DevSettings::closeBracketRgx, "}", true);
    row("pipe", DevSettings::pipeRgx, "a | b", true);
}

void TestDevSettings::patterns()
{
    QFETCH(QRegularExpression, pattern);
    QFETCH(QString, text);
    QFETCH(bool, matches);
    QVERIFY(pattern.isValid());
    QCOMPARE(pattern.match(text).hasMatch(), matches);
}

QTEST_MAIN(TestDevSettings)
#include "tst_devsettings.moc"
