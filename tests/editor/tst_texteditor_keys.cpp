// Typing in the script editor: indentation, block expansion, pairs,
// control codes, completion popups and call tips, with real key events on
// a shown editor whose document carries the real analyser.

#include "texteditortestsupport.h"

#include <QAbstractItemModel>
#include <QtTest>

namespace {

const QString colourCode(QChar(0x03));

QString tipText()
{
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

int rows(QCompleter *c)
{
    return c->completionModel()->rowCount();
}

bool shown(QCompleter *c)
{
    return c->popup()->isVisible();
}

QString syntaxTip(const QString &body)
{
    return QStringLiteral("<p style='white-space:pre'>") + body + QStringLiteral("</p>");
}

} // namespace

class TestTextEditorKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void returnKeepsIndentation_data();
    void returnKeepsIndentation();
    void shiftBraceThenReturnExpandsBlock_data();
    void shiftBraceThenReturnExpandsBlock();
    void expansionNeedsReturnRightAfterBrace_data();
    void expansionNeedsReturnRightAfterBrace();
    void keypadEnterIsPlainNewline();

    void parenAfterIdentifierMakesPairAndTip();
    void closingParenIsSwallowedUntilAnotherKey();
    void openPairSurvivesReturn();
    void parenAfterUntippedIdentifierPairsSilently();
    void parenInsideArgumentsIsPlain();
    void parenWithoutIdentifierIsPlain();
    void commaShowsTipForCurrentArgument();
    void customAliasHasNoTip();

    void backspaceRemovesEmptyPairInTwoUndoSteps();
    void backspaceElsewhereDeletesOneCharacter_data();
    void backspaceElsewhereDeletesOneCharacter();

    void controlCodes_data();
    void controlCodes();
    void colourListOpensAndFilters();
    void colourListAcceptsRowWithReturn();

    void dollarOpensIdentifierList();
    void identifierListNarrowsAndCapitalCloses();
    void identifierListListsScriptAliases();
    void identifierListAcceptsRowWithReturn();
    void dollarOutsideCodeOpensNothing();

    void periodAfterIdentifierListsProperties();
    void propertyListNarrowsAndAccepts();
    void periodOpensNothing_data();
    void periodOpensNothing();

    void progIdList_data();
    void progIdList();
    void progIdListAcceptsRowAndArrowsClose();

    void tabWithoutSelectionInsertsTwoBlanks_data();
    void tabWithoutSelectionInsertsTwoBlanks();
    void tabIndentsSelectedLines();
    void backtabUnindentsSelection();
    void tabWithPopupOpenInsertsBlanks();

    void functionKeyTips();

    void readOnlyEditorTakesNoText_data();
    void readOnlyEditorTakesNoText();
    void keysWithoutAnalysis();
    void construction();

private:
    std::unique_ptr<EditorFixture> f;
};

void TestTextEditorKeys::init()
{
    f = std::make_unique<EditorFixture>();
    QVERIFY(f->ready());
    QToolTip::hideText();
    // A lone key clears what an earlier test may have left in the shared
    // pairing and expansion state.
    f->key(Qt::Key_Shift);
}

void TestTextEditorKeys::cleanup()
{
    f.reset();
}

void TestTextEditorKeys::returnKeepsIndentation_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("newLine");

    QTest::newRow("none") << "echo" << "";
    QTest::newRow("two blanks") << "  echo" << "  ";
    QTest::newRow("tab counts one") << "\t echo" << "  ";
    QTest::newRow("blanks only") << "    " << "    ";
    QTest::newRow("empty") << "" << "";
}

void TestTextEditorKeys::returnKeepsIndentation()
{
    QFETCH(QString, line);
    QFETCH(QString, newLine);

    f->setScript({ line });
    f->key(Qt::Key_Return);

    QCOMPARE(f->text(), line + "\n" + newLine);
    QCOMPARE(f->cursorLine(), 1);
    QCOMPARE(f->column(), newLine.size());
}

void TestTextEditorKeys::shiftBraceThenReturnExpandsBlock_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("indent");

    QTest::newRow("top level") << "alias x " << 0;
    QTest::newRow("four blanks") << "    if (1) " << 4;
    QTest::newRow("one blank") << " while (1) " << 1;
}

void TestTextEditorKeys::shiftBraceThenReturnExpandsBlock()
{
    QFETCH(QString, line);
    QFETCH(int, indent);

    f->setScript({ line });
    f->type("{");
    QCOMPARE(f->text(), line + "{");
    f->key(Qt::Key_Return);

    const QString middle(indent + 2, ' ');
    const QString closing = QString(indent, ' ') + "}";
    QCOMPARE(f->text(), line + "{\n" + middle + "\n" + closing);
    QCOMPARE(f->cursorLine(), 1);
    QCOMPARE(f->column(), indent + 2);

    // The expansion is used up.
    f->key(Qt::Key_Return);
    QCOMPARE(f->line(2), middle);
    QCOMPARE(f->line(3), closing);
}

void TestTextEditorKeys::expansionNeedsReturnRightAfterBrace_data()
{
    QTest::addColumn<int>("braceModifiers");
    QTest::addColumn<int>("between");

    QTest::newRow("other key between") << int(Qt::ShiftModifier) << int(Qt::Key_Space);
    QTest::newRow("shift pressed again") << int(Qt::ShiftModifier) << int(Qt::Key_Shift);
    QTest::newRow("brace without shift") << int(Qt::NoModifier) << 0;
    QTest::newRow("brace with ctrl and shift")
        << int(Qt::ShiftModifier | Qt::ControlModifier) << 0;
}

void TestTextEditorKeys::expansionNeedsReturnRightAfterBrace()
{
    QFETCH(int, braceModifiers);
    QFETCH(int, between);

    f->setScript({ "  alias x " });
    f->key(Qt::Key_BraceLeft, Qt::KeyboardModifiers(braceModifiers), "{");
    if (between)
        f->key(Qt::Key(between), Qt::NoModifier, between == Qt::Key_Space ? " " : "");
    const QString before = f->line(0);
    f->key(Qt::Key_Return);

    QCOMPARE(f->editor->blockCount(), 2);
    QCOMPARE(f->line(0), before);
    QCOMPARE(f->line(1), QString("  "));
}

void TestTextEditorKeys::keypadEnterIsPlainNewline()
{
    f->setScript({ "    alias x " });
    f->type("{");
    f->key(Qt::Key_Enter, Qt::KeypadModifier, "\r");

    QCOMPARE(f->text(), QString("    alias x {\n"));
    QCOMPARE(f->cursorLine(), 1);
    QCOMPARE(f->column(), 0);
}

void TestTextEditorKeys::parenAfterIdentifierMakesPairAndTip()
{
    f->setScript({ "alias x {", "  echo -a $asc", "}" }, 1);
    f->type("(");

    QCOMPARE(f->line(1), QString("  echo -a $asc()"));
    QCOMPARE(f->column(), 15);
    QCOMPARE(tipText(), syntaxTip("$asc(<b>&lt;character&gt;</b>)"));
}

void TestTextEditorKeys::closingParenIsSwallowedUntilAnotherKey()
{
    f->setScript({ "alias x {", "  echo -a $asc", "}" }, 1);
    f->type("(");
    f->type(")");
    QCOMPARE(f->line(1), QString("  echo -a $asc()"));
    QCOMPARE(f->column(), 15);

    // Still swallowed: the pair stays open until some other key comes.
    f->type(")");
    QCOMPARE(f->line(1), QString("  echo -a $asc()"));

    f->type("a)");
    QCOMPARE(f->line(1), QString("  echo -a $asc(a))"));
}

void TestTextEditorKeys::openPairSurvivesReturn()
{
    f->setScript({ "alias x {", "  echo -a $asc", "}" }, 1);
    f->type("(");
    f->key(Qt::Key_Return);
    f->type(")");

    QCOMPARE(f->line(1), QString("  echo -a $asc("));
    QCOMPARE(f->line(2), QString("  )"));
}

void TestTextEditorKeys::parenAfterUntippedIdentifierPairsSilently()
{
    f->setScript({ "alias x {", "  echo -a $left", "}" }, 1);
    f->type("(");

    QCOMPARE(f->line(1), QString("  echo -a $left()"));
    QCOMPARE(f->column(), 16);
    QCOMPARE(tipText(), QString());
}

void TestTextEditorKeys::parenInsideArgumentsIsPlain()
{
    f->setScript({ "alias x {", "  echo -a $chan(#x", "}" }, 1);
    f->type("(");

    QCOMPARE(f->line(1), QString("  echo -a $chan(#x("));
    f->type(")");
    QCOMPARE(f->line(1), QString("  echo -a $chan(#x()"));
}

void TestTextEditorKeys::parenWithoutIdentifierIsPlain()
{
    f->setScript({ "alias x {", "  echo -a x", "}" }, 1);
    f->type("(");
    QCOMPARE(f->line(1), QString("  echo -a x("));
    QCOMPARE(tipText(), QString());
}

void TestTextEditorKeys::commaShowsTipForCurrentArgument()
{
    f->setScript({ "alias x {", "  echo -a $addtok(a", "}" }, 1);
    f->type(",");
    QCOMPARE(f->line(1), QString("  echo -a $addtok(a,"));
    QCOMPARE(tipText(), syntaxTip("$addtok(&lt;string&gt;, <b>&lt;token&gt;</b>, &lt;delimiter&gt;)"));

    f->type("b,");
    QCOMPARE(f->line(1), QString("  echo -a $addtok(a,b,"));
    QCOMPARE(tipText(), syntaxTip("$addtok(&lt;string&gt;, &lt;token&gt;, <b>&lt;delimiter&gt;</b>)"));
}

void TestTextEditorKeys::customAliasHasNoTip()
{
    f->setScript({ "alias x {", "  echo -a $myalias(a", "}" }, 1);
    f->type(",");
    QCOMPARE(f->line(1), QString("  echo -a $myalias(a,"));
    QCOMPARE(tipText(), QString());
}

void TestTextEditorKeys::backspaceRemovesEmptyPairInTwoUndoSteps()
{
    f->setScript({ "alias x {", "  echo -a $asc()", "}" }, 1, 15);
    f->key(Qt::Key_Backspace);
    QCOMPARE(f->line(1), QString("  echo -a $asc"));
    QCOMPARE(f->column(), 14);

    f->editor->undo();
    QCOMPARE(f->line(1), QString("  echo -a $asc)"));
    f->editor->undo();
    QCOMPARE(f->line(1), QString("  echo -a $asc()"));
}

void TestTextEditorKeys::backspaceElsewhereDeletesOneCharacter_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("after");

    QTest::newRow("after the pair") << "a()" << 3 << "a(";
    QTest::newRow("not empty") << "a(b)" << 2 << "ab)";
    QTest::newRow("reversed") << "a)(" << 2 << "a(";
    QTest::newRow("open at end") << "a(" << 2 << "a";
    QTest::newRow("line start") << "()" << 0 << "()";
}

void TestTextEditorKeys::backspaceElsewhereDeletesOneCharacter()
{
    QFETCH(QString, line);
    QFETCH(int, col);
    QFETCH(QString, after);

    f->setScript({ line }, 0, col);
    f->key(Qt::Key_Backspace);
    QCOMPARE(f->line(0), after);
}

void TestTextEditorKeys::controlCodes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("inserted");

    QTest::newRow("bold") << int(Qt::Key_B) << int(Qt::ControlModifier) << QString(QChar(0x02));
    QTest::newRow("italic") << int(Qt::Key_I) << int(Qt::ControlModifier) << QString(QChar(0x1D));
    QTest::newRow("underline") << int(Qt::Key_U) << int(Qt::ControlModifier) << QString(QChar(0x1F));
    QTest::newRow("reverse") << int(Qt::Key_R) << int(Qt::ControlModifier) << QString(QChar(0x16));
    QTest::newRow("plain") << int(Qt::Key_O) << int(Qt::ControlModifier | Qt::ShiftModifier)
                           << QString(QChar(0x0F));
    QTest::newRow("ctrl shift b is nothing") << int(Qt::Key_B)
                                             << int(Qt::ControlModifier | Qt::ShiftModifier) << "";
    QTest::newRow("ctrl o is nothing") << int(Qt::Key_O) << int(Qt::ControlModifier) << "";
}

void TestTextEditorKeys::controlCodes()
{
    QFETCH(int, code);
    QFETCH(int, modifiers);
    QFETCH(QString, inserted);

    f->setScript({ "ab" }, 0, 1);
    f->key(Qt::Key(code), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(f->line(0), "a" + inserted + "b");
    QCOMPARE(f->column(), 1 + inserted.size());
}

void TestTextEditorKeys::colourListOpensAndFilters()
{
    QCompleter *colours = f->access().colorCompleter();
    f->setScript({ "alias x {", "  echo -a ", "}" }, 1);

    f->key(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(f->line(1), "  echo -a " + colourCode);
    QVERIFY(shown(colours));
    QCOMPARE(colours->completionPrefix(), colourCode);
    QCOMPARE(rows(colours), 702);

    f->type("4");
    QCOMPARE(colours->completionPrefix(), colourCode + "4");
    QCOMPARE(rows(colours), 27);

    // The comma is taken by the call tip step, which comes before the
    // popups; the next key through the popup catches up.
    f->type(",");
    QCOMPARE(f->line(1), "  echo -a " + colourCode + "4,");
    f->key(Qt::Key_End);
    QCOMPARE(colours->completionPrefix(), colourCode + "4,");
    QCOMPARE(rows(colours), 26);
    QCOMPARE(colours->completionModel()->index(0, 0).data().toString(), colourCode + "4,00");

    f->key(Qt::Key_Escape);
    QVERIFY(!shown(colours));
    QCOMPARE(f->line(1), "  echo -a " + colourCode + "4,");
}

void TestTextEditorKeys::colourListAcceptsRowWithReturn()
{
    QCompleter *colours = f->access().colorCompleter();
    f->setScript({ "x" });
    f->key(Qt::Key_K, Qt::ControlModifier);
    f->type("12");
    QVERIFY(shown(colours));
    QCOMPARE(rows(colours), 27); // 12, then 12,00 to 12,15 and 12,0 to 12,9
    f->key(Qt::Key_Down);
    f->key(Qt::Key_Return);

    QVERIFY(!shown(colours));
    QCOMPARE(f->line(0), "x" + colourCode + "12,00");
    QCOMPARE(f->editor->blockCount(), 1);
}

void TestTextEditorKeys::dollarOpensIdentifierList()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "alias x {", "  echo -a ", "}" }, 1);
    f->type("$");

    QCOMPARE(f->line(1), QString("  echo -a $"));
    QVERIFY(shown(idents));
    QCOMPARE(idents->completionPrefix(), QString("$"));
    // The 207 table rows and the alias of this script.
    QCOMPARE(rows(idents), 208);
    QCOMPARE(idents->completionModel()->index(0, 0).data().toString(), QString("$"));
}

void TestTextEditorKeys::identifierListNarrowsAndCapitalCloses()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "alias x {", "  echo -a ", "}" }, 1);
    f->type("$a");
    QVERIFY(shown(idents));
    QCOMPARE(idents->completionPrefix(), QString("$a"));
    QCOMPARE(rows(idents), 15);

    f->type("sc");
    QCOMPARE(idents->completionPrefix(), QString("$asc"));
    QCOMPARE(rows(idents), 2);

    f->key(Qt::Key_Backspace);
    QCOMPARE(idents->completionPrefix(), QString("$as"));
    QVERIFY(shown(idents));

    f->type("C");
    QVERIFY(!shown(idents));
    QCOMPARE(f->line(1), QString("  echo -a $asC"));
}

void TestTextEditorKeys::identifierListListsScriptAliases()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "alias -l zeta {", "  echo -a ", "}", "alias zeta { return 1 }",
                   "alias zz { return 1 }" },
                 1);
    f->type("$z");

    QVERIFY(shown(idents));
    QStringList names;
    for (int r = 0; r < rows(idents); ++r)
        names << idents->completionModel()->index(r, 0).data().toString();
    QCOMPARE(names, QStringList({ "$zeta", "$zz" }));
}

void TestTextEditorKeys::identifierListAcceptsRowWithReturn()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "alias x {", "  echo -a ", "}" }, 1);
    f->type("$asct");
    QCOMPARE(rows(idents), 1);
    f->key(Qt::Key_Return);

    QVERIFY(!shown(idents));
    QCOMPARE(f->line(1), QString("  echo -a $asctime"));
    QCOMPARE(f->editor->blockCount(), 3);
}

void TestTextEditorKeys::dollarOutsideCodeOpensNothing()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "; a comment " });
    f->type("$");
    QCOMPARE(f->line(0), QString("; a comment $"));
    QVERIFY(!shown(idents));
}

void TestTextEditorKeys::periodAfterIdentifierListsProperties()
{
    QCompleter *props = f->access().propCompleter();
    f->setScript({ "alias x {", "  echo -a $chan(#x)", "}" }, 1);
    f->type(".");

    QCOMPARE(f->line(1), QString("  echo -a $chan(#x)."));
    QVERIFY(shown(props));
    QCOMPARE(rows(props), 16);
    QCOMPARE(props->completionModel()->index(0, 0).data().toString(), QString("topic"));
}

void TestTextEditorKeys::propertyListNarrowsAndAccepts()
{
    QCompleter *props = f->access().propCompleter();
    f->setScript({ "alias x {", "  echo -a $chan(#x)", "}" }, 1);
    f->type(".i");
    QVERIFY(shown(props));
    QCOMPARE(props->completionPrefix(), QString("i"));
    QCOMPARE(rows(props), 6); // ial inwho ibl iel iil idle

    f->type("n");
    QCOMPARE(rows(props), 1);
    f->key(Qt::Key_Return);
    QVERIFY(!shown(props));
    QCOMPARE(f->line(1), QString("  echo -a $chan(#x).inwho"));
}

void TestTextEditorKeys::periodOpensNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("col");

    QTest::newRow("property already there") << "  echo -a $chan(#x).topic" << 19;
    QTest::newRow("no properties") << "  echo -a $asc(a)" << 17;
    QTest::newRow("unknown identifier") << "  echo -a $foo(a)" << 17;
    QTest::newRow("inside the arguments") << "  echo -a $chan(#x)" << 17;
    QTest::newRow("no identifier") << "  echo -a x" << 11;
}

void TestTextEditorKeys::periodOpensNothing()
{
    QFETCH(QString, line);
    QFETCH(int, col);

    f->setScript({ "alias x {", line, "}" }, 1, col);
    f->type(".");
    QCOMPARE(f->line(1), line.left(col) + "." + line.mid(col));
    QVERIFY(!shown(f->access().propCompleter()));
}

void TestTextEditorKeys::progIdList_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("col"); // where the last character is typed
    QTest::addColumn<int>("expectedRows"); // -1: no list

    QTest::newRow("plain") << "comopen name Word" << 17 << 1;
    QTest::newRow("lower case") << "comopen name word" << 17 << 1;
    QTest::newRow("capital keyword") << "  COMOPEN name Word" << 19 << 1;
    QTest::newRow("slash") << "/comopen name Word" << 18 << 1;
    QTest::newRow("dot") << ".comopen name Word" << 18 << 1;
    QTest::newRow("four prefixes") << "!./.comopen name Word" << 21 << 1;
    QTest::newRow("five prefixes") << "!./..comopen name Word" << 22 << -1;
    QTest::newRow("behind a bar") << "echo -a x | comopen name Word" << 29 << 1;
    QTest::newRow("before a bar") << "comopen name Word | echo -a x" << 17 << 1;
    QTest::newRow("bar without blanks") << "echo -a x|comopen name Word" << 27 << -1;
    QTest::newRow("other command") << "comclose name Word" << 18 << -1;
    QTest::newRow("no third word") << "comopen name" << 12 << -1;
    QTest::newRow("in the name") << "comopen Wo" << 10 << -1;
    QTest::newRow("prefix w") << "comopen name w" << 14 << 9;
    QTest::newRow("capital typed") << "comopen name W" << 14 << -1;
    QTest::newRow("no match") << "comopen name Zq" << 15 << -1;
    QTest::newRow("word runs on right") << "comopen name Wordy" << 15 << -1;
    QTest::newRow("mid word") << "comopen name Word.App" << 15 << 1;
}

void TestTextEditorKeys::progIdList()
{
    QFETCH(QString, line);
    QFETCH(int, col);
    QFETCH(int, expectedRows);

    QCompleter *com = f->access().comCompleter();
    // The last character of the line before `col` is typed for real.
    const QString typed = line.mid(col - 1, 1);
    f->setScript({ line.left(col - 1) + line.mid(col) }, 0, col - 1);
    f->type(typed);
    QCOMPARE(f->line(0), line);

    QCOMPARE(shown(com), expectedRows >= 0);
    if (expectedRows >= 0) {
        QCOMPARE(rows(com), expectedRows);
        const QString first = com->completionModel()->index(0, 0).data().toString();
        QVERIFY2(first.startsWith(com->completionPrefix(), Qt::CaseInsensitive), qPrintable(first));
    }
}

void TestTextEditorKeys::progIdListAcceptsRowAndArrowsClose()
{
    QCompleter *com = f->access().comCompleter();
    f->setScript({ "comopen name Wor" });
    f->type("d");
    QVERIFY(shown(com));
    QCOMPARE(com->completionPrefix(), QString("Word"));
    f->key(Qt::Key_Return);
    QVERIFY(!shown(com));
    QCOMPARE(f->line(0), QString("comopen name Word.Application"));

    f->setScript({ "comopen name Exce" });
    f->type("l");
    QVERIFY(shown(com));
    QCOMPARE(f->column(), 18);
    f->key(Qt::Key_Left);
    QVERIFY(!shown(com));
    QCOMPARE(f->column(), 17);
}

void TestTextEditorKeys::tabWithoutSelectionInsertsTwoBlanks_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("tab") << int(Qt::Key_Tab);
    QTest::newRow("backtab") << int(Qt::Key_Backtab);
}

void TestTextEditorKeys::tabWithoutSelectionInsertsTwoBlanks()
{
    QFETCH(int, code);
    f->setScript({ "    ab" }, 0, 5);
    f->key(Qt::Key(code), code == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(f->line(0), QString("    a  b"));
    QCOMPARE(f->column(), 7);
    QVERIFY(f->editor->hasFocus());
}

void TestTextEditorKeys::tabIndentsSelectedLines()
{
    f->setScript({ "alias x {", "echo 1", "  echo 2", "echo 3", "}" });
    QTextCursor cursor(f->editor->document()->findBlockByNumber(1));
    const int start = cursor.position();
    cursor.setPosition(f->editor->document()->findBlockByNumber(3).position() + 6,
                       QTextCursor::KeepAnchor);
    const int end = cursor.position();
    f->editor->setTextCursor(cursor);

    f->key(Qt::Key_Tab);

    QCOMPARE(f->line(1), QString("  echo 1"));
    QCOMPARE(f->line(2), QString("    echo 2"));
    QCOMPARE(f->line(3), QString("  echo 3"));
    QCOMPARE(f->line(4), QString("}"));
    const QTextCursor after = f->editor->textCursor();
    QCOMPARE(after.selectionStart(), start);
    QCOMPARE(after.selectionEnd(), end + 6);

    // One undo step takes it all back.
    f->editor->undo();
    QCOMPARE(f->line(1), QString("echo 1"));
    QCOMPARE(f->line(3), QString("echo 3"));
}

void TestTextEditorKeys::backtabUnindentsSelection()
{
    f->setScript({ "    echo 1" });
    QTextCursor cursor(f->editor->document()->firstBlock());
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    f->editor->setTextCursor(cursor);

    f->key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(f->line(0), QString("  echo 1"));
    QCOMPARE(f->editor->textCursor().selectionStart(), 0);
    QCOMPARE(f->editor->textCursor().selectionEnd(), 2);
}

void TestTextEditorKeys::tabWithPopupOpenInsertsBlanks()
{
    QCompleter *idents = f->access().identCompleter();
    f->setScript({ "alias x {", "  echo -a ", "}" }, 1);
    f->type("$as");
    QVERIFY(shown(idents));
    f->key(Qt::Key_Tab);

    QCOMPARE(f->line(1), QString("  echo -a $as  "));
    QVERIFY(shown(idents));
}

void TestTextEditorKeys::functionKeyTips()
{
    f->setScript({ "alias x {", "  echo -a $chan($asc(a))", "}" }, 1, 21);
    f->key(Qt::Key_F1);
    QCOMPARE(tipText(), QString("$asc"));

    f->placeCursor(1, 13);
    f->key(Qt::Key_F1);
    QCOMPARE(tipText(), QString("$chan"));

    f->key(Qt::Key_F2);
    QCOMPARE(tipText(), syntaxTip("$left(<b>&lt;string&gt;</b>, &lt;N&gt;)"));
    QCOMPARE(f->line(1), QString("  echo -a $chan($asc(a))"));
}

void TestTextEditorKeys::readOnlyEditorTakesNoText_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");

    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier) << "\r";
    QTest::newRow("tab") << int(Qt::Key_Tab) << int(Qt::NoModifier) << "\t";
    QTest::newRow("brace") << int(Qt::Key_BraceLeft) << int(Qt::ShiftModifier) << "{";
    QTest::newRow("paren") << int(Qt::Key_ParenLeft) << int(Qt::ShiftModifier) << "(";
    QTest::newRow("ctrl b") << int(Qt::Key_B) << int(Qt::ControlModifier) << "";
    QTest::newRow("ctrl k") << int(Qt::Key_K) << int(Qt::ControlModifier) << "";
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << int(Qt::NoModifier) << "";
    QTest::newRow("dollar") << int(Qt::Key_Dollar) << int(Qt::ShiftModifier) << "$";
}

void TestTextEditorKeys::readOnlyEditorTakesNoText()
{
    QFETCH(int, code);
    QFETCH(int, modifiers);
    QFETCH(QString, text);

    const QString script = "alias x {\n  echo -a $asc()\n}";
    f->setScript(script.split('\n'), 1, 15);
    f->editor->setReadOnly(true);
    f->key(Qt::Key(code), Qt::KeyboardModifiers(modifiers), text);

    QCOMPARE(f->text(), script);
    for (QCompleter *c : f->access().completers())
        QVERIFY(!shown(c));
}

void TestTextEditorKeys::keysWithoutAnalysis()
{
    // No analyser on the document: no line has a record.
    MslTextEditor plain;
    plain.show();
    plain.activateWindow();
    plain.setFocus(Qt::OtherFocusReason);
    QVERIFY(QTest::qWaitForWindowActive(&plain));
    plain.setPlainText("  echo $asc");
    plain.moveCursor(QTextCursor::End);

    for (const QString &k : { QString("$"), QString("("), QString(","), QString(".") })
        QTest::keyClick(&plain, k.at(0).toLatin1());
    QTest::keyClick(&plain, Qt::Key_F1);
    QTest::keyClick(&plain, Qt::Key_Return);
    QCOMPARE(plain.toPlainText(), QString("  echo $asc$(,.\n  "));
}

void TestTextEditorKeys::construction()
{
    MslTextEditorTestAccess a(f->editor.get());
    const QFont font = f->editor->font();
    QCOMPARE(font.family(), QString("Courier"));
    QVERIFY(font.fixedPitch());
    QCOMPARE(font.pointSize(), 10);

    QCOMPARE(a.comCompleter()->caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(a.propCompleter()->caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(a.identCompleter()->caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(a.colorCompleter()->caseSensitivity(), Qt::CaseSensitive);
    for (QCompleter *c : a.completers()) {
        QCOMPARE(c->completionMode(), QCompleter::PopupCompletion);
        QCOMPARE(c->widget(), static_cast<QWidget *>(f->editor.get()));
        QCOMPARE(c->parent(), static_cast<QObject *>(f->editor.get()));
    }
    // The property list starts out as a second ProgID list; its model is
    // replaced when it is first used.
    QCOMPARE(a.propCompleter()->model()->rowCount(), 91);
    QCOMPARE(a.comCompleter()->model()->rowCount(), 91);
    QCOMPARE(a.colorCompleter()->model()->rowCount(), 702);

    QVERIFY(f->editor->viewport()->testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(f->editor->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(!a.timerHover());
    QCOMPARE(a.hoverPoint(), QPoint(0, 0));
    QCOMPARE(a.prevVerticalScrollBar(), 0);
    QCOMPARE(a.lineNumber()->parent(), static_cast<QObject *>(f->editor.get()));
}

QTEST_MAIN(TestTextEditorKeys)
#include "tst_texteditor_keys.moc"
