#include "msltexteditor.h"

#include "msltextedit.h"
#include "mslinfo.h"

#include <QCompleter>
#include <QCursor>
#include <QFocusEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTimer>
#include <QToolTip>

namespace {

constexpr int hoverDelay = 800;
const QString indentStep = QStringLiteral("  ");

} // namespace

void MslTextEditor::mouseMoveEvent(QMouseEvent *e)
{
    hoverPoint = e->position().toPoint();
    if (!timerHover) {
        timerHover = new QTimer(this);
        timerHover->setObjectName(QStringLiteral("hoverTimer"));
        connect(timerHover, &QTimer::timeout, this, &MslTextEditor::processMouseHover);
        timerHover->start(hoverDelay);
    } else {
        timerHover->start();
    }
    // Handed to the press handler on purpose: the text control dispatches
    // on the event's type, and this keeps a drag from auto-scrolling.
    QPlainTextEdit::mousePressEvent(e);
}

void MslTextEditor::processMouseHover()
{
    const QTextCursor cursor = cursorForPosition(hoverPoint);
    const Identifier *cident = innermostIdent(cursor.block(), cursor.positionInBlock());

    if (cident && cident->hasPayload) {
        const QString syntax = MslInfo::getIdentSyntaxAt(cident->name, -1);
        if (!syntax.isEmpty()) {
            QTextEdit::ExtraSelection highlight;
            highlight.cursor = textCursor();
            highlight.cursor.setPosition(cursor.position());
            highlight.cursor.movePosition(QTextCursor::StartOfBlock);
            highlight.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor,
                                          cident->start);
            highlight.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor,
                                          cident->name.size());
            highlight.format.setUnderlineStyle(QTextCharFormat::DashUnderline);
            highlight.format.setBackground(QColor(204, 255, 255, 255));
            highlight.format.setProperty(QTextFormat::FrameBorder, 5);
            setExtraSelections({ highlight });
            QToolTip::showText(QCursor::pos(), syntax);
        }
    }

    if (timerHover)
        timerHover->stop();
}

void MslTextEditor::highlightCurrentLine()
{
    QList<QTextEdit::ExtraSelection> selections;
    if (!isReadOnly()) {
        QTextEdit::ExtraSelection line;
        line.format.setBackground(QColor(Qt::green).lighter(170));
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = textCursor();
        line.cursor.clearSelection();
        selections.append(line);
    }
    setExtraSelections(selections);
}

void MslTextEditor::showContextMenu(QPoint p)
{
    // The menu is the editor's child and goes with it.
    QMenu *menu = createStandardContextMenu();
    menu->exec(mapToGlobal(p));
}

void MslTextEditor::focusInEvent(QFocusEvent *e)
{
    if (comCompleter)
        comCompleter->setWidget(this);
    QPlainTextEdit::focusInEvent(e);
}

void MslTextEditor::focusOutEvent(QFocusEvent *e)
{
    if (timerHover)
        timerHover->stop();
    QPlainTextEdit::focusOutEvent(e);
}

// Two blanks at the selection's start, which may lie in mid-line, and at
// the start of every further line the selection touches.
void MslTextEditor::indentSelection()
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();

    const int selStart = cursor.selectionStart();
    const int selEnd = cursor.selectionEnd();
    cursor.setPosition(selEnd);
    const int blockEnd = cursor.blockNumber();
    cursor.setPosition(selStart);

    cursor.insertText(indentStep);
    int end = selEnd + indentStep.size();
    while (cursor.blockNumber() < blockEnd) {
        cursor.movePosition(QTextCursor::NextBlock);
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.insertText(indentStep);
        end += indentStep.size();
    }

    cursor.setPosition(selStart);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.endEditBlock();
    setTextCursor(cursor);
}

// The characters removed are always counted from the selection's start,
// also for the later lines: a later indented line is pulled up behind the
// first line's remaining text. This merging is the established behaviour
// of Backtab over several lines.
void MslTextEditor::unIndentSelection()
{
    static const QRegularExpression spacesPattern(QStringLiteral("^ +"));

    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();

    const int selStart = cursor.selectionStart();
    int selEnd = cursor.selectionEnd();
    cursor.setPosition(selEnd);
    const int blockEnd = cursor.blockNumber();
    cursor.setPosition(selStart);

    auto removeLeading = [&] {
        const QRegularExpressionMatch m = spacesPattern.match(cursor.block().text());
        if (!m.hasMatch())
            return;
        const int n = qMin(2, int(m.capturedLength()));
        cursor.setPosition(selStart + n, QTextCursor::KeepAnchor);
        selEnd -= n;
        cursor.deleteChar();
    };

    removeLeading();
    // Merged lines can leave blockEnd behind the document's last line:
    // stop there instead of circling on it.
    while (cursor.blockNumber() < blockEnd) {
        if (!cursor.movePosition(QTextCursor::NextBlock))
            break;
        cursor.movePosition(QTextCursor::StartOfBlock);
        removeLeading();
    }

    // A merge removes more than the count says; keep the end inside.
    selEnd = qBound(0, selEnd, document()->characterCount() - 1);
    cursor.setPosition(selStart);
    cursor.setPosition(selEnd, QTextCursor::KeepAnchor);
    cursor.endEditBlock();
    setTextCursor(cursor);
}
