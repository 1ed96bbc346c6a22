// The resting mouse's syntax tip, the tint of the current line, indenting
// and unindenting a selection, the context menu and focus handling of the
// script editor.

#include "texteditortestsupport.h"

#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

namespace {

QString tipText()
{
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

struct Span
{
    int line;
    int col;
};

} // namespace

Q_DECLARE_METATYPE(Span)

class TestHover : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void restingMouseShowsTipAndMarksName_data();
    void restingMouseShowsTipAndMarksName();
    void restingMouseShowsNothing_data();
    void restingMouseShowsNothing();
    void movingCursorRestoresLineTint();
    void readOnlyEditorHasNoTint();
    void focusLossDropsPendingTip();
    void dragStillSelects();
    void focusReattachesProgIdList();
    void contextMenuIsTheStandardOne();

    void indentSelection_data();
    void indentSelection();
    void unIndentSelection_data();
    void unIndentSelection();
    void unIndentIsOneUndoStep();

    void gotoLineAndPos_data();
    void gotoLineAndPos();

private:
    QPoint pointOf(int line, int col) const;
    void rest(int line, int col);
    void select(Span from, Span to);
    int position(Span at) const;

    std::unique_ptr<EditorFixture> f;
};

void TestHover::init()
{
    f = std::make_unique<EditorFixture>();
    QVERIFY(f->ready());
    QToolTip::hideText();
}

void TestHover::cleanup()
{
    f.reset();
}

QPoint TestHover::pointOf(int line, int col) const
{
    QTextCursor cursor(f->editor->document()->findBlockByNumber(line));
    cursor.setPosition(cursor.position() + col);
    const QRect r = f->editor->cursorRect(cursor);
    // Just right of the character's left edge, so the nearest cursor
    // position is the one behind that character's start.
    return QPoint(r.left() + 3, r.center().y());
}

// Moves the mouse over the text and lets it rest there.
void TestHover::rest(int line, int col)
{
    // From somewhere else first: a move to where the mouse already is
    // is no move.
    QTest::mouseMove(f->editor->viewport(), QPoint(1, 1));
    QTest::mouseMove(f->editor->viewport(), pointOf(line, col));
    QTRY_VERIFY(f->access().timerHover() && f->access().timerHover()->isActive());
    QTRY_VERIFY(!f->access().timerHover()->isActive());
}

int TestHover::position(Span at) const
{
    return f->editor->document()->findBlockByNumber(at.line).position() + at.col;
}

void TestHover::select(Span from, Span to)
{
    QTextCursor cursor(f->editor->document());
    cursor.setPosition(position(from));
    cursor.setPosition(position(to), QTextCursor::KeepAnchor);
    f->editor->setTextCursor(cursor);
}

void TestHover::restingMouseShowsTipAndMarksName_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<int>("markStart");
    QTest::addColumn<int>("markLength");

    QTest::newRow("name") << "  echo -a $addtok(a,b,32)" << 12
                          << "$addtok(&lt;string&gt;, &lt;token&gt;, &lt;delimiter&gt;)" << 10 << 7;
    QTest::newRow("arguments") << "  echo -a $addtok(a,b,32)" << 20
                               << "$addtok(&lt;string&gt;, &lt;token&gt;, &lt;delimiter&gt;)" << 10 << 7;
    QTest::newRow("inner identifier") << "  echo -a $chan($asc(a))" << 18
                                      << "$asc(&lt;character&gt;)" << 16 << 4;
    QTest::newRow("outer identifier") << "  echo -a $chan($asc(a))" << 12
                                      << "$chan(&lt;Nth/#chan&gt;)" << 10 << 5;
    QTest::newRow("typed in capitals") << "  echo -a $ABS(-1)" << 11 << "$abs(&lt;number&gt;)" << 10 << 4;
}

void TestHover::restingMouseShowsTipAndMarksName()
{
    QFETCH(QString, line);
    QFETCH(int, col);
    QFETCH(QString, tip);
    QFETCH(int, markStart);
    QFETCH(int, markLength);

    f->setScript({ "alias x {", line, "}" });
    rest(1, col);

    QTRY_COMPARE(tipText(), "<p style='white-space:pre'>" + tip + "</p>");
    const QList<QTextEdit::ExtraSelection> marks = f->editor->extraSelections();
    QCOMPARE(marks.size(), 1);
    const QTextCursor mark = marks.first().cursor;
    const int lineStart = f->editor->document()->findBlockByNumber(1).position();
    QCOMPARE(mark.selectionStart(), lineStart + markStart);
    QCOMPARE(mark.selectionEnd(), lineStart + markStart + markLength);
    QCOMPARE(marks.first().format.underlineStyle(), QTextCharFormat::DashUnderline);
    QCOMPARE(marks.first().format.background().color(), QColor(204, 255, 255));
    QVERIFY(!marks.first().format.boolProperty(QTextFormat::FullWidthSelection));
}

void TestHover::restingMouseShowsNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("col");

    QTest::newRow("no parentheses") << "  echo -a $asc a" << 12;
    QTest::newRow("custom alias") << "  echo -a $myalias(1)" << 12;
    QTest::newRow("beyond the tip table") << "  echo -a $left(abc,1)" << 12;
    QTest::newRow("plain text") << "  echo -a $asc(a) text" << 19;
    QTest::newRow("command") << "  echo -a $asc(a)" << 3;
}

void TestHover::restingMouseShowsNothing()
{
    QFETCH(QString, line);
    QFETCH(int, col);

    f->setScript({ "alias x {", line, "}" }, 0);
    rest(1, col);

    QCOMPARE(tipText(), QString());
    const QList<QTextEdit::ExtraSelection> marks = f->editor->extraSelections();
    QCOMPARE(marks.size(), 1);
    QVERIFY(marks.first().format.boolProperty(QTextFormat::FullWidthSelection));
}

void TestHover::movingCursorRestoresLineTint()
{
    f->setScript({ "alias x {", "  echo -a $asc(a)", "}" }, 2);
    QList<QTextEdit::ExtraSelection> marks = f->editor->extraSelections();
    QCOMPARE(marks.size(), 1);
    QCOMPARE(marks.first().format.background().color(), QColor(Qt::green).lighter(170));
    QVERIFY(marks.first().format.boolProperty(QTextFormat::FullWidthSelection));
    QCOMPARE(marks.first().cursor.block().blockNumber(), 2);

    rest(1, 11);
    QTRY_VERIFY(!tipText().isEmpty());
    QVERIFY(!f->editor->extraSelections().first().format.boolProperty(QTextFormat::FullWidthSelection));

    f->key(Qt::Key_Up);
    marks = f->editor->extraSelections();
    QCOMPARE(marks.size(), 1);
    QVERIFY(marks.first().format.boolProperty(QTextFormat::FullWidthSelection));
    QCOMPARE(marks.first().cursor.block().blockNumber(), 1);
    QVERIFY(!marks.first().cursor.hasSelection());
}

void TestHover::readOnlyEditorHasNoTint()
{
    f->setScript({ "a", "b" });
    f->editor->setReadOnly(true);
    f->placeCursor(1);
    f->placeCursor(0);
    QVERIFY(f->editor->extraSelections().isEmpty());

    f->editor->setReadOnly(false);
    f->placeCursor(1);
    QCOMPARE(f->editor->extraSelections().size(), 1);
}

void TestHover::focusLossDropsPendingTip()
{
    f->setScript({ "alias x {", "  echo -a $asc(a)", "}" });
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    f->editor->activateWindow();
    f->editor->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(f->editor->hasFocus());

    QTest::mouseMove(f->editor->viewport(), QPoint(1, 1));
    QTest::mouseMove(f->editor->viewport(), pointOf(1, 11));
    QTRY_VERIFY(f->access().timerHover() && f->access().timerHover()->isActive());
    QCOMPARE(f->access().timerHover()->interval(), 800);
    QCOMPARE(f->access().hoverPoint(), pointOf(1, 11));

    other.activateWindow();
    other.setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(!f->editor->hasFocus());
    QVERIFY(!f->access().timerHover()->isActive());
    QTest::qWait(900);
    QCOMPARE(tipText(), QString());
}

void TestHover::dragStillSelects()
{
    // Moves go on to the text control, so a drag with the button held
    // still selects.
    f->setScript({ "alias x { echo 1 }" });
    QTest::mousePress(f->editor->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(0, 0) - QPoint(3, 0));
    QTest::mouseMove(f->editor->viewport(), pointOf(0, 5) - QPoint(3, 0));
    QTest::mouseRelease(f->editor->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(0, 5) - QPoint(3, 0));
    QCOMPARE(f->editor->textCursor().selectedText(), QString("alias"));
}

void TestHover::focusReattachesProgIdList()
{
    QCompleter *com = f->access().comCompleter();
    QWidget other;
    com->setWidget(&other);
    f->editor->clearFocus();
    f->editor->setFocus(Qt::OtherFocusReason);
    QTRY_COMPARE(com->widget(), static_cast<QWidget *>(f->editor.get()));
}

void TestHover::contextMenuIsTheStandardOne()
{
    f->setScript({ "alias x { echo 1 }" });
    QStringList names;
    bool seen = false;
    QTimer::singleShot(0, [&] {
        QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        seen = true;
        for (QAction *a : menu->actions()) {
            if (!a->objectName().isEmpty())
                names << a->objectName();
        }
        menu->close();
    });
    emit f->editor->customContextMenuRequested(QPoint(10, 10));

    QVERIFY(seen);
    for (const char *name : { "edit-undo", "edit-redo", "edit-cut", "edit-copy", "edit-paste",
                              "edit-delete", "select-all" })
        QVERIFY2(names.contains(name), name);
    QCOMPARE(f->text(), QString("alias x { echo 1 }"));
}

void TestHover::indentSelection_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<Span>("from");
    QTest::addColumn<Span>("to");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("grownBy");

    const QStringList four = { "a", "bb", "cc", "dd" };
    QTest::newRow("three lines") << four << Span{ 1, 0 } << Span{ 3, 1 }
                                 << QStringList({ "a", "  bb", "  cc", "  dd" }) << 6;
    QTest::newRow("end at column 0 takes that line") << four << Span{ 1, 0 } << Span{ 3, 0 }
                                                     << QStringList({ "a", "  bb", "  cc", "  dd" }) << 6;
    QTest::newRow("backwards selection") << four << Span{ 2, 1 } << Span{ 0, 1 }
                                         << QStringList({ "a  ", "  bb", "  cc", "dd" }) << 6;
    QTest::newRow("mid-line start") << QStringList({ "abcd", "ef" }) << Span{ 0, 2 } << Span{ 1, 1 }
                                    << QStringList({ "ab  cd", "  ef" }) << 4;
    QTest::newRow("inside one line") << QStringList({ "abcd" }) << Span{ 0, 1 } << Span{ 0, 3 }
                                     << QStringList({ "a  bcd" }) << 2;
}

void TestHover::indentSelection()
{
    QFETCH(QStringList, lines);
    QFETCH(Span, from);
    QFETCH(Span, to);
    QFETCH(QStringList, expected);
    QFETCH(int, grownBy);

    f->setScript(lines);
    select(from, to);
    const int start = qMin(position(from), position(to));
    const int end = qMax(position(from), position(to));
    f->editor->indentSelection();

    QCOMPARE(f->text(), expected.join('\n'));
    const QTextCursor cursor = f->editor->textCursor();
    QCOMPARE(cursor.anchor(), start);
    QCOMPARE(cursor.position(), end + grownBy);
}

void TestHover::unIndentSelection_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<Span>("from");
    QTest::addColumn<Span>("to");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");

    QTest::newRow("two blanks or more") << QStringList({ "    x" }) << Span{ 0, 0 } << Span{ 0, 5 }
                                        << QStringList({ "  x" }) << 0 << 3;
    QTest::newRow("one blank") << QStringList({ " abcd" }) << Span{ 0, 2 } << Span{ 0, 3 }
                               << QStringList({ " acd" }) << 2 << 2;
    QTest::newRow("no blank") << QStringList({ "abcd" }) << Span{ 0, 1 } << Span{ 0, 2 }
                              << QStringList({ "abcd" }) << 1 << 2;
    // What goes are the characters at the selection's start, wherever it is.
    QTest::newRow("mid-line start") << QStringList({ "    abcd" }) << Span{ 0, 5 } << Span{ 0, 6 }
                                    << QStringList({ "    ad" }) << 5 << 4;
    QTest::newRow("lines without blanks stay") << QStringList({ "  a", "b", "c" }) << Span{ 0, 0 }
                                               << Span{ 2, 1 } << QStringList({ "a", "b", "c" }) << 0 << 5;
    // Later lines are measured from the selection's start: a line right
    // behind removes one blank only...
    QTest::newRow("second line") << QStringList({ "  a", "  b", "c" }) << Span{ 0, 0 } << Span{ 1, 3 }
                                 << QStringList({ "a", " b", "c" }) << 0 << 3;
    // ...and a longer first line is merged with the next indented one.
    QTest::newRow("lines merge") << QStringList({ "    abc", "    def" }) << Span{ 0, 0 } << Span{ 1, 7 }
                                 << QStringList({ "      def" }) << 0 << 9;
}

void TestHover::unIndentSelection()
{
    QFETCH(QStringList, lines);
    QFETCH(Span, from);
    QFETCH(Span, to);
    QFETCH(QStringList, expected);
    QFETCH(int, anchor);
    QFETCH(int, position);

    f->setScript(lines);
    select(from, to);
    f->editor->unIndentSelection();

    QCOMPARE(f->text(), expected.join('\n'));
    const QTextCursor cursor = f->editor->textCursor();
    QCOMPARE(cursor.anchor(), anchor);
    QCOMPARE(cursor.position(), position);
}

void TestHover::unIndentIsOneUndoStep()
{
    const QStringList lines = { "    abc", "    def", "  ghi" };
    f->setScript(lines);
    select(Span{ 0, 0 }, Span{ 2, 5 });
    f->key(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(f->text() != lines.join('\n'));

    f->editor->undo();
    QCOMPARE(f->text(), lines.join('\n'));
}

void TestHover::gotoLineAndPos_data()
{
    QTest::addColumn<int>("fromLine");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("pos");

    QTest::newRow("down") << 0 << 4 << 3;
    QTest::newRow("up") << 5 << 2 << 0;
    QTest::newRow("same line") << 3 << 4 << 5;
    QTest::newRow("last line") << 0 << 6 << 1;
}

void TestHover::gotoLineAndPos()
{
    QFETCH(int, fromLine);
    QFETCH(int, line);
    QFETCH(int, pos);

    f->setScript({ "line one", "line two", "line three", "line four", "line five", "line six", "line 7" },
                 fromLine, 2);
    f->editor->gotoLine(line);
    QCOMPARE(f->cursorLine(), line - 1);
    f->editor->gotoPos(pos);
    QCOMPARE(f->cursorLine(), line - 1);
    QCOMPARE(f->column(), pos);
    QVERIFY(!f->editor->textCursor().hasSelection());
}

QTEST_MAIN(TestHover)
#include "tst_hover.moc"
