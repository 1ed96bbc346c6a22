#ifndef TEXTEDITORTESTSUPPORT_H
#define TEXTEDITORTESTSUPPORT_H

// Shared by the text widget tests: a shown MslTextEditor with the real
// analyser on its document, a reach into its private parts, and keys sent
// the way a keyboard sends them (to an open popup first, if there is one).

#include "analyserharness.h"
#include "msltextedit.h"
#include "msltexteditor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringList>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolTip>

#include <memory>

class MslTextEditorTestAccess
{
public:
    explicit MslTextEditorTestAccess(MslTextEditor *editor) : e(editor) {}

    QWidget *lineNumber() const { return e->lineNumber; }
    QCompleter *comCompleter() const { return e->comCompleter; }
    QCompleter *propCompleter() const { return e->propCompleter; }
    QCompleter *identCompleter() const { return e->identCompleter; }
    QCompleter *colorCompleter() const { return e->colorCompleter; }
    QTimer *timerHover() const { return e->timerHover; }
    QPoint hoverPoint() const { return e->hoverPoint; }
    int prevVerticalScrollBar() const { return e->prevVerticalScrollBar; }
    int leftMargin() const { return e->viewportMargins().left(); }
    int prevLineSpaceCount() const { return e->prevLineSpaceCount(); }
    QString textUnderCursor() const { return e->textUnderCursor(); }
    int textCurPos() const { return e->textCurPos(); }
    void showContextMenu(QPoint p) { e->showContextMenu(p); }
    void scrollBarValueChanged(int y) { e->scrollBarValueChanged(y); }

    QList<QCompleter *> completers() const
    {
        return { e->comCompleter, e->propCompleter, e->identCompleter, e->colorCompleter };
    }

private:
    MslTextEditor *e;
};

// A script editor as a document tab holds it: shown, focused, with the
// analyser attached to its document.
class EditorFixture
{
public:
    EditorFixture()
    {
        AnalyserHarness::ensureSettings();
        editor = std::make_unique<MslTextEditor>();
        highlighter = new MslSyntaxHighlighter(editor->document());
        editor->resize(640, 480);
        editor->show();
        editor->activateWindow();
        editor->setFocus(Qt::OtherFocusReason);
    }

    ~EditorFixture()
    {
        for (QCompleter *c : access().completers())
            c->popup()->hide();
        QToolTip::hideText();
    }

    bool ready()
    {
        return QTest::qWaitForWindowExposed(editor.get()) && QTest::qWaitForWindowActive(editor.get());
    }

    MslTextEditorTestAccess access() const { return MslTextEditorTestAccess(editor.get()); }

    // Replaces the text, analyses it and puts the cursor at `line`, `col`.
    void setScript(const QStringList &lines, int line = 0, int col = -1)
    {
        editor->setPlainText(lines.join(QLatin1Char('\n')));
        highlighter->rehighlight();
        placeCursor(line, col);
    }

    // col -1 means the end of the line.
    void placeCursor(int line, int col = -1)
    {
        QTextBlock block = editor->document()->findBlockByNumber(line);
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + (col < 0 ? block.length() - 1 : col));
        editor->setTextCursor(cursor);
    }

    QString text() const { return editor->toPlainText(); }
    QString line(int n) const { return editor->document()->findBlockByNumber(n).text(); }
    int column() const { return editor->textCursor().positionInBlock(); }
    int cursorLine() const { return editor->textCursor().blockNumber(); }

    CBlockData *record(int line) const
    {
        return static_cast<CBlockData *>(editor->document()->findBlockByNumber(line).userData());
    }

    // Where the keyboard's events go now: an open popup takes them.
    QWidget *keyTarget() const
    {
        if (QWidget *popup = QApplication::activePopupWidget())
            return popup->focusWidget() ? popup->focusWidget() : popup;
        return editor.get();
    }

    // One key press and release, as a keyboard with the given modifiers
    // held sends it, without separate presses of the modifier keys.
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             const QString &text = QString())
    {
        QTest::simulateEvent(keyTarget(), true, code, modifiers, text, false);
        QTest::simulateEvent(keyTarget(), false, code, modifiers, text, false);
    }

    // Printable text; capitals and the shifted symbols carry Shift.
    void type(const QString &s)
    {
        for (const QChar ch : s) {
            const char c = ch.toLatin1();
            const bool shifted = ch.isUpper() || QByteArrayLiteral("${}()!|%#&*_+:\"<>?~^@").contains(c);
            key(keyFor(ch), shifted ? Qt::ShiftModifier : Qt::NoModifier, QString(ch));
        }
    }

    static Qt::Key keyFor(QChar ch)
    {
        if (ch.isLetter())
            return Qt::Key(Qt::Key_A + (ch.toUpper().unicode() - 'A'));
        return Qt::Key(ch.unicode()); // the printable keys carry their Latin-1 code
    }

    std::unique_ptr<MslTextEditor> editor;
    MslSyntaxHighlighter *highlighter = nullptr;
};

#endif // TEXTEDITORTESTSUPPORT_H
