// The gutter of the script editor: the width of its margin, the fold
// icons it paints, and folding and unfolding by clicks on them.

#include "editorsupport.h"
#include "testsuite.h"

#include <QScrollBar>
#include <QtTest>

class GutterTest : public QObject
{
    Q_OBJECT

    QWidget *bar() const { return f->parts().lineNumber(); }

    std::unique_ptr<EditorFixture> f;

private slots:
    void init()
    {
        f = std::make_unique<EditorFixture>();
        QVERIFY(f->ready());
    }
    void cleanup() { f.reset(); }

    void marginFollowsDigits()
    {
        const int digit = f->editor->fontMetrics().horizontalAdvance(QLatin1Char('9'));
        QCOMPARE(f->parts().leftMargin(), digit + 3 + 18);
        QStringList script;
        for (int i = 0; i < 99; ++i)
            script << QString("; line %1").arg(i);
        f->setScript(script, 98);
        QCOMPARE(f->parts().leftMargin(), 2 * digit + 3 + 18);
        // Typing the line that crosses into the next digit widens the margin.
        f->key(Qt::Key_Return);
        QCOMPARE(f->parts().leftMargin(), 3 * digit + 3 + 18);
        QCOMPARE(bar()->width(), 3 * digit + 3 + 18);
        f->editor->undo();
        f->editor->resize(500, 300);
        const QRect cr = f->editor->contentsRect();
        QCOMPARE(bar()->geometry(), QRect(cr.left(), cr.top(), 2 * digit + 3 + 18, cr.height()));
    }

    void scrollingPassesFold()
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
        f->setScript(script);
        f->clickGutter(10);
        QVERIFY(!f->editor->document()->findBlockByNumber(21).isVisible());

        // The folded lines take no room: one step past the header shows the
        // first line behind the fold, and one back the header again.
        QScrollBar *scroll = f->editor->verticalScrollBar();
        for (const auto &[value, line] : QList<QPair<int, int>>{{5, 5}, {11, 22}, {10, 10}}) {
            scroll->setValue(value);
            QCOMPARE(f->editor->cursorForPosition(QPoint(1, 1)).blockNumber(), line);
        }
    }

    // A document that no analyser has touched has no line records at all:
    // the gutter paints and takes clicks, and the keys that read the
    // records type plainly.
    void withoutAnalysis()
    {
        MslTextEditor plain;
        plain.setPlainText("alias x {\n  echo 1\n}\n#g on\n#g end\n  echo $asc");
        plain.show();
        plain.activateWindow();
        plain.setFocus(Qt::OtherFocusReason);
        QVERIFY(QTest::qWaitForWindowActive(&plain));
        QWidget *gutter = EditorParts(&plain).lineNumber();
        QVERIFY(!gutter->grab().isNull());
        QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, QPoint(gutter->width() - 12, 4));
        QVERIFY(plain.document()->findBlockByNumber(1).isVisible());
        plain.moveCursor(QTextCursor::End);
        for (const char k : {'$', '(', ',', '.'})
            QTest::keyClick(&plain, k);
        QTest::keyClick(&plain, Qt::Key_F1);
        QTest::keyClick(&plain, Qt::Key_Return);
        QVERIFY(plain.toPlainText().endsWith(QStringLiteral("\n  echo $asc$(,.\n  ")));
    }
};

TARNWICK_TEST(GutterTest);
#include "tst_gutter.moc"
