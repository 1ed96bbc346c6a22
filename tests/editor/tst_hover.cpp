// What the script editor does besides typing: a pending hover tip dropped
// with the focus, no line tint when read-only, and the jumps to a line and
// column. Resting the mouse on the text is run from data/hover.txt.

#include "editorsupport.h"
#include "testsuite.h"

#include <QtTest>

class HoverTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<EditorFixture> f;

private slots:
    void init()
    {
        f = std::make_unique<EditorFixture>();
        QVERIFY(f->ready());
        QToolTip::hideText();
    }
    void cleanup() { f.reset(); }

    void focusLossDropsPendingTip()
    {
        f->setScript({"alias x {", "  echo -a $asc(a)", "}"}, 1, 11);
        QWidget other;
        other.setFocusPolicy(Qt::StrongFocus);
        other.show();
        f->editor->activateWindow();
        f->editor->setFocus(Qt::OtherFocusReason);
        QTRY_VERIFY(f->editor->hasFocus());
        QTest::mouseMove(f->editor->viewport(), QPoint(1, 1));
        QTest::mouseMove(f->editor->viewport(), f->editor->cursorRect().center());
        QTRY_VERIFY(f->parts().timerHover() && f->parts().timerHover()->isActive());
        other.activateWindow();
        other.setFocus(Qt::OtherFocusReason);
        QTRY_VERIFY(!f->editor->hasFocus());
        QVERIFY(!f->parts().timerHover()->isActive());
    }

    void readOnlyHasNoLineTint()
    {
        f->setScript({"a", "b"});
        QCOMPARE(f->editor->extraSelections().size(), 1);
        f->editor->setReadOnly(true);
        f->editor->moveCursor(QTextCursor::Down);
        QVERIFY(f->editor->extraSelections().isEmpty());
    }

    // Line and column, as the report dock and the object tree jump.
    void jumps()
    {
        f->setScript(
            {"line one", "line two", "line three", "line four", "line five", "line six", "line 7"},
            0, 2);
        for (const auto &[line, pos] :
             QList<QPair<int, int>>{{5, 3}, {3, 0}, {3, 5}, {7, 1}, {1, 4}}) {
            f->editor->gotoLine(line);
            QCOMPARE(f->editor->textCursor().blockNumber(), line - 1);
            f->editor->gotoPos(pos);
            QCOMPARE(f->editor->textCursor().blockNumber(), line - 1);
            QCOMPARE(f->editor->textCursor().positionInBlock(), pos);
            QVERIFY(!f->editor->textCursor().hasSelection());
        }
    }
};

TARNWICK_TEST(HoverTest);
#include "tst_hover.moc"
