// The gutter of the script editor: the width of its margin, the fold
// icons it paints, and folding and unfolding by clicks on them.

#include "texteditortestsupport.h"

#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QtTest>

namespace {

const QString aliasOpen = QStringLiteral(":/block/resources/img_assets/editor/block/expanded.png");
const QString aliasFolded = QStringLiteral(":/block/resources/img_assets/editor/block/right.png");
const QString groupOpen = QStringLiteral(":/block/resources/img_assets/editor/block/expanded2.png");
const QString groupFolded = QStringLiteral(":/block/resources/img_assets/editor/block/right2.png");

const QStringList aliasScript = {
    "alias foo {",     // 0
    "  echo -a 1",     // 1
    "  echo -a 2",     // 2
    "}",               // 3
    "alias bar {",     // 4
    "  echo -a 3",     // 5
    "}",               // 6
    "alias one { echo -a 4 }", // 7
    "",                // 8
};

const QStringList groupScript = {
    "#grp on",                 // 0
    "alias a { echo -a 1 }",   // 1
    "alias b {",               // 2
    "  echo -a 2",             // 3
    "}",                       // 4
    "#grp end",                // 5
    "alias c { echo -a 3 }",   // 6
    "",                        // 7
};

// An icon as the gutter shows it: drawn unscaled over white.
QImage iconOnWhite(const QString &path)
{
    QImage out(16, 16, QImage::Format_ARGB32_Premultiplied);
    out.fill(Qt::white);
    QPainter p(&out);
    p.drawImage(0, 0, QImage(path));
    return out;
}

} // namespace

class TestGutter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyDocumentHasOneDigitMargin();
    void marginGrowsWithDigits_data();
    void marginGrowsWithDigits();
    void barFollowsEditorSize();

    void iconsMarkFoldableLines_data();
    void iconsMarkFoldableLines();
    void iconShowsFoldState();

    void foldAndUnfoldAlias();
    void clickBoxBounds_data();
    void clickBoxBounds();
    void linesWithoutIconDoNotReact_data();
    void linesWithoutIconDoNotReact();
    void foldNeverHidesLastLine_data();
    void foldNeverHidesLastLine();
    void foldAndUnfoldGroup();
    void unfoldOpensNestedFold();
    void foldSurvivesEditing();
    void scrollingPassesFold();
    void paintsWithoutAnalysis();

private:
    QWidget *bar() const { return f->access().lineNumber(); }
    int lineTop(int line) const;
    void clickGutter(int line, int x);
    void clickIcon(int line) { clickGutter(line, bar()->width() - 16 + 4); }
    QImage iconAt(int line) const;
    QList<bool> visibility() const;
    int topBlock() const;

    std::unique_ptr<EditorFixture> f;
};

void TestGutter::init()
{
    f = std::make_unique<EditorFixture>();
    QVERIFY(f->ready());
}

void TestGutter::cleanup()
{
    f.reset();
}

int TestGutter::lineTop(int line) const
{
    QTextCursor cursor(f->editor->document()->findBlockByNumber(line));
    return f->editor->cursorRect(cursor).top();
}

void TestGutter::clickGutter(int line, int x)
{
    QTest::mouseClick(bar(), Qt::LeftButton, Qt::NoModifier, QPoint(x, lineTop(line) + 2));
}

QImage TestGutter::iconAt(int line) const
{
    const QImage shot = bar()->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return shot.copy(bar()->width() - 16, lineTop(line), 16, 16);
}

QList<bool> TestGutter::visibility() const
{
    QList<bool> out;
    for (QTextBlock b = f->editor->document()->begin(); b.isValid(); b = b.next())
        out << b.isVisible();
    return out;
}

void TestGutter::emptyDocumentHasOneDigitMargin()
{
    const int digit = f->editor->fontMetrics().horizontalAdvance(QLatin1Char('9'));
    QCOMPARE(f->editor->blockCount(), 1);
    QCOMPARE(f->editor->lineNumberWidth(), digit + 3);
    QCOMPARE(f->access().leftMargin(), digit + 3 + 18);
    QCOMPARE(bar()->width(), digit + 3 + 18);
    QCOMPARE(bar()->sizeHint(), QSize(digit + 3, 0));
}

void TestGutter::marginGrowsWithDigits_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("digits");

    QTest::newRow("9") << 9 << 1;
    QTest::newRow("10") << 10 << 2;
    QTest::newRow("99") << 99 << 2;
    QTest::newRow("100") << 100 << 3;
    QTest::newRow("1000") << 1000 << 4;
}

void TestGutter::marginGrowsWithDigits()
{
    QFETCH(int, lines);
    QFETCH(int, digits);

    const int digit = f->editor->fontMetrics().horizontalAdvance(QLatin1Char('9'));
    QStringList script;
    for (int i = 0; i < lines; ++i)
        script << QString("; line %1").arg(i);
    f->setScript(script);

    QCOMPARE(f->editor->blockCount(), lines);
    QCOMPARE(f->editor->lineNumberWidth(), digits * digit + 3);
    QCOMPARE(f->access().leftMargin(), digits * digit + 3 + 18);

    // Typing the line that crosses into the next digit widens the margin.
    if (lines == 99) {
        f->placeCursor(98);
        f->key(Qt::Key_Return);
        QCOMPARE(f->access().leftMargin(), 3 * digit + 3 + 18);
        QCOMPARE(bar()->width(), 3 * digit + 3 + 18);
        f->editor->undo();
        QCOMPARE(f->access().leftMargin(), 2 * digit + 3 + 18);
    }
}

void TestGutter::barFollowsEditorSize()
{
    f->editor->resize(500, 300);
    const QRect cr = f->editor->contentsRect();
    QCOMPARE(bar()->geometry(), QRect(cr.left(), cr.top(), f->editor->lineNumberWidth() + 18, cr.height()));
}

void TestGutter::iconsMarkFoldableLines_data()
{
    QTest::addColumn<QStringList>("script");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("icon"); // empty: none

    QTest::newRow("multi-line alias") << aliasScript << 0 << aliasOpen;
    QTest::newRow("alias body") << aliasScript << 1 << QString();
    QTest::newRow("closing bracket") << aliasScript << 3 << QString();
    QTest::newRow("one-line alias") << aliasScript << 7 << QString();
    QTest::newRow("group opener") << groupScript << 0 << groupOpen;
    QTest::newRow("alias in group") << groupScript << 2 << aliasOpen;
    QTest::newRow("group end") << groupScript << 5 << QString();
    QTest::newRow("event") << QStringList({ "on *:text:*:#:{", "  echo -a 1", "}" }) << 0 << aliasOpen;
    QTest::newRow("dialog") << QStringList({ "dialog d {", "  size -1 -1 100 100", "}" }) << 0
                            << QString();
    QTest::newRow("group off") << QStringList({ "#g off", "#g end" }) << 0 << groupOpen;
}

void TestGutter::iconsMarkFoldableLines()
{
    QFETCH(QStringList, script);
    QFETCH(int, line);
    QFETCH(QString, icon);

    f->setScript(script);
    QImage expected(16, 16, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    if (!icon.isEmpty()) {
        QVERIFY2(!QImage(icon).isNull(), qPrintable(icon));
        expected = iconOnWhite(icon);
    }
    QCOMPARE(iconAt(line), expected);
}

void TestGutter::iconShowsFoldState()
{
    f->setScript(groupScript);
    clickIcon(2);
    QCOMPARE(iconAt(2), iconOnWhite(aliasFolded));
    QCOMPARE(iconAt(0), iconOnWhite(groupOpen));
    clickIcon(0);
    QCOMPARE(iconAt(0), iconOnWhite(groupFolded));
}

void TestGutter::foldAndUnfoldAlias()
{
    f->setScript(aliasScript);
    const QList<bool> all(aliasScript.size(), true);
    QCOMPARE(visibility(), all);

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>({ true, false, false, false, true, true, true, true, true }));
    // The line behind the fold moves up under the header.
    QCOMPARE(lineTop(4), lineTop(0) + (lineTop(5) - lineTop(4)));

    clickIcon(4);
    QCOMPARE(visibility(), QList<bool>({ true, false, false, false, true, false, false, true, true }));

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>({ true, true, true, true, true, false, false, true, true }));
    clickIcon(4);
    QCOMPARE(visibility(), all);
}

void TestGutter::clickBoxBounds_data()
{
    QTest::addColumn<int>("fromIcon"); // x relative to the icon's left edge
    QTest::addColumn<bool>("folds");

    QTest::newRow("on the numbers") << -4 << false;
    QTest::newRow("two left of the icon") << -2 << true;
    QTest::newRow("icon's first column") << 0 << true;
    QTest::newRow("icon's 14th column") << 13 << true;
    QTest::newRow("icon's 15th column") << 14 << false;
    QTest::newRow("icon's last column") << 15 << false;
}

void TestGutter::clickBoxBounds()
{
    QFETCH(int, fromIcon);
    QFETCH(bool, folds);

    f->setScript(aliasScript);
    clickGutter(0, bar()->width() - 16 + fromIcon);
    QCOMPARE(!f->editor->document()->findBlockByNumber(1).isVisible(), folds);
}

void TestGutter::linesWithoutIconDoNotReact_data()
{
    QTest::addColumn<QStringList>("script");
    QTest::addColumn<int>("line");

    QTest::newRow("one-line alias") << aliasScript << 7;
    QTest::newRow("body line") << aliasScript << 1;
    QTest::newRow("group end") << groupScript << 5;
    QTest::newRow("dialog") << QStringList({ "dialog d {", "  size -1 -1 100 100", "}", "" }) << 0;
    QTest::newRow("comment") << QStringList({ "; alias x {", "alias y {", "}" }) << 0;
}

void TestGutter::linesWithoutIconDoNotReact()
{
    QFETCH(QStringList, script);
    QFETCH(int, line);

    f->setScript(script);
    const QList<bool> before = visibility();
    clickIcon(line);
    QCOMPARE(visibility(), before);
}

void TestGutter::foldNeverHidesLastLine_data()
{
    QTest::addColumn<QStringList>("script");
    QTest::addColumn<QList<bool>>("folded");

    QTest::newRow("closing bracket last") << QStringList({ "alias x {", "  echo -a 1", "}" })
                                          << QList<bool>({ true, false, true });
    QTest::newRow("never closed") << QStringList({ "alias x {", "  echo 1", "  echo 2" })
                                  << QList<bool>({ true, false, true });
    QTest::newRow("group never closed") << QStringList({ "#g on", "alias y { echo 1 }", "alias z { echo 2 }" })
                                        << QList<bool>({ true, false, true });
}

void TestGutter::foldNeverHidesLastLine()
{
    QFETCH(QStringList, script);
    QFETCH(QList<bool>, folded);

    f->setScript(script);
    clickIcon(0);
    QCOMPARE(visibility(), folded);
    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>(script.size(), true));
}

void TestGutter::foldAndUnfoldGroup()
{
    f->setScript(groupScript);
    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>({ true, false, false, false, false, false, true, true }));

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>(groupScript.size(), true));
    for (int line = 0; line < groupScript.size(); ++line) {
        if (CBlockData *data = f->record(line))
            QVERIFY(!data->isHidden);
    }
}

void TestGutter::unfoldOpensNestedFold()
{
    f->setScript(groupScript);
    // Inside a group the closing bracket does not return to top level, so
    // the alias's fold runs on to the group's end.
    clickIcon(2);
    QCOMPARE(visibility(), QList<bool>({ true, true, true, false, false, false, true, true }));

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>({ true, false, false, false, false, false, true, true }));

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>(groupScript.size(), true));
}

void TestGutter::foldSurvivesEditing()
{
    f->setScript(aliasScript);
    clickIcon(0);

    QTextCursor cursor(f->editor->document()->findBlockByNumber(2));
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(" 3");
    QCOMPARE(f->line(2), QString("  echo -a 2 3"));
    QCOMPARE(visibility(), QList<bool>({ true, false, false, false, true, true, true, true, true }));

    clickIcon(0);
    QCOMPARE(visibility(), QList<bool>(aliasScript.size(), true));
}

namespace {

QStringList longScriptWithFold()
{
    QStringList script;
    for (int i = 0; i < 10; ++i)
        script << QString("; line %1").arg(i);
    script << "alias big {";
    for (int i = 0; i < 10; ++i)
        script << QString("  echo -a %1").arg(i);
    script << "}";
    for (int i = 0; i < 200; ++i)
        script << QString("; tail %1").arg(i);
    return script;
}

} // namespace

int TestGutter::topBlock() const
{
    return f->editor->cursorForPosition(QPoint(1, 1)).blockNumber();
}

void TestGutter::scrollingPassesFold()
{
    f->setScript(longScriptWithFold());
    clickIcon(10);
    QVERIFY(!f->editor->document()->findBlockByNumber(11).isVisible());
    QVERIFY(!f->editor->document()->findBlockByNumber(21).isVisible());
    QVERIFY(f->editor->document()->findBlockByNumber(22).isVisible());

    QScrollBar *bar = f->editor->verticalScrollBar();
    bar->setValue(5);
    QCOMPARE(topBlock(), 5);
    QCOMPARE(f->access().prevVerticalScrollBar(), 5);

    // The folded lines take no room: one step past the header shows the
    // first line behind the fold, and back again the header.
    bar->setValue(11);
    QCOMPARE(topBlock(), 22);
    QCOMPARE(f->access().prevVerticalScrollBar(), bar->value());
    bar->setValue(10);
    QCOMPARE(topBlock(), 10);
    QCOMPARE(f->access().prevVerticalScrollBar(), 10);
}

void TestGutter::paintsWithoutAnalysis()
{
    // A document that no analyser has touched has no records at all.
    MslTextEditor plain;
    plain.setPlainText("alias x {\n  echo 1\n}\n#g on\n#g end");
    plain.resize(300, 200);
    plain.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plain));
    QWidget *gutter = MslTextEditorTestAccess(&plain).lineNumber();
    QVERIFY(!gutter->grab().isNull());
    QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, QPoint(gutter->width() - 12, 4));
    for (QTextBlock b = plain.document()->begin(); b.isValid(); b = b.next())
        QVERIFY(b.isVisible());
}

QTEST_MAIN(TestGutter)
#include "tst_gutter.moc"
