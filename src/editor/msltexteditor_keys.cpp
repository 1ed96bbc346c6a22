#include "msltexteditor.h"

#include "msltextedit.h"
#include "mslinfo.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>

namespace {

// IRC control codes typed with Ctrl.
constexpr QChar boldCode(0x02);
constexpr QChar colourCode(0x03);
constexpr QChar plainCode(0x0F);
constexpr QChar reverseCode(0x16);
constexpr QChar italicCode(0x1D);
constexpr QChar underlineCode(0x1F);

const QString indentStep = QStringLiteral("  ");

bool isAcceptOrCancelKey(int key)
{
    return key == Qt::Key_Escape || key == Qt::Key_Tab || key == Qt::Key_Backtab
        || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

// The order of the steps matters: Return comes before the reset of the
// pairing and expansion flags, so an open pair survives a new line, and
// Tab comes before the popups, so Tab never accepts a completion.
void MslTextEditor::keyPressEvent(QKeyEvent *event)
{
    // Shared by all editors, like the keyboard they come from.
    static bool bracket = false;
    static bool autofill = false;

    const int key = event->key();
    const Qt::KeyboardModifiers modifiers = event->modifiers();

    // A read-only view moves, selects and copies, and shows the tips of
    // F1 and F2; everything that would write is left to the base, which
    // refuses it.
    if (isReadOnly() && key != Qt::Key_F1 && key != Qt::Key_F2) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }

    if (key == Qt::Key_Return) {
        handleReturn(event, autofill);
        return;
    }

    if (modifiers == Qt::ShiftModifier && key == Qt::Key_ParenRight && bracket) {
        // The pair is already there: the ) is swallowed.
        event->ignore();
        return;
    }

    autofill = false;
    bracket = false;

    if (modifiers == Qt::ShiftModifier && key == Qt::Key_BraceLeft) {
        autofill = true;
        insertPlainText(QStringLiteral("{"));
        event->ignore();
        return;
    }

    if (key == Qt::Key_Backspace && !anyPopupVisible()) {
        QTextCursor cursor = textCursor();
        const QString text = cursor.block().text();
        const int pos = cursor.positionInBlock();
        if (!cursor.hasSelection() && pos > 0 && pos < cursor.block().length()
            && pos < text.size() && text.at(pos - 1) == QLatin1Char('(')
            && text.at(pos) == QLatin1Char(')')) {
            // Each half of the pair is its own undo step.
            cursor.movePosition(QTextCursor::PreviousCharacter);
            cursor.beginEditBlock();
            cursor.deleteChar();
            cursor.endEditBlock();
            cursor.beginEditBlock();
            cursor.deleteChar();
            cursor.endEditBlock();
        } else {
            QPlainTextEdit::keyPressEvent(event);
        }
        return;
    }

    if (modifiers == Qt::ControlModifier) {
        switch (key) {
        case Qt::Key_B:
            insertPlainText(QString(boldCode));
            return;
        case Qt::Key_I:
            insertPlainText(QString(italicCode));
            return;
        case Qt::Key_U:
            insertPlainText(QString(underlineCode));
            return;
        case Qt::Key_R:
            insertPlainText(QString(reverseCode));
            return;
        case Qt::Key_K:
            insertPlainText(QString(colourCode));
            colorCompleter->setCompletionPrefix(QString(colourCode));
            openCompleter(colorCompleter, colorCompleter->completionModel()->index(0, 0));
            return;
        default:
            break;
        }
    }

    if (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && key == Qt::Key_O) {
        insertPlainText(QString(plainCode));
        return;
    }

    if (key == Qt::Key_Dollar) {
        // Typed first, so that the line has been analysed with the '$'.
        QPlainTextEdit::keyPressEvent(event);
        const QTextCursor cursor = textCursor();
        const CBlockData *data = recordOf(cursor.block());
        if (!data)
            return;
        for (const Identifier &id : data->idents) {
            if (id.possibleIdent && id.start + 1 == cursor.positionInBlock()) {
                // The models hang on propCompleter and live as long as it:
                // identCompleter's setModel would not delete a foreign child.
                QAbstractItemModel *model = MslInfo::getIdentIds(propCompleter, document()->begin());
                model->sort(0, Qt::AscendingOrder);
                identCompleter->setModel(model);
                identCompleter->setCompletionPrefix(QStringLiteral("$"));
                openCompleter(identCompleter, identCompleter->completionModel()->index(0, 0));
                break;
            }
        }
        return;
    }

    if (key == Qt::Key_Period) {
        const QTextCursor cursor = textCursor();
        if (const CBlockData *data = recordOf(cursor.block())) {
            for (const Identifier &id : data->idents) {
                if (id.hasPayload && id.end + 1 == cursor.positionInBlock() && id.proppos == -1) {
                    if (QAbstractItemModel *model = MslInfo::getIdentPropProIds(id.name, propCompleter)) {
                        propCompleter->setModel(model);
                        propCompleter->setCompletionPrefix(QString());
                        openCompleter(propCompleter, propCompleter->completionModel()->index(0, 0));
                    }
                    break;
                }
            }
        }
        QPlainTextEdit::keyPressEvent(event);
        return;
    }

    if (key == Qt::Key_Comma || key == Qt::Key_ParenLeft) {
        handleCallTip(event, bracket);
        return;
    }

    if (key == Qt::Key_F2) {
        QToolTip::showText(QPoint(200, 200),
                           QStringLiteral("<p style='white-space:pre'>$left(<b>&lt;string&gt;</b>, &lt;N&gt;)</p>"));
        return;
    }

    if (key == Qt::Key_F1) {
        const QTextCursor cursor = textCursor();
        if (const Identifier *id = innermostIdent(cursor.block(), cursor.positionInBlock()))
            QToolTip::showText(viewport()->mapToGlobal(cursorRect().topLeft()), id->name);
        return;
    }

    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        if (!textCursor().hasSelection())
            insertPlainText(indentStep);
        else if (key == Qt::Key_Backtab)
            unIndentSelection();
        else
            indentSelection();
        return;
    }

    if (colorCompleter->popup()->isVisible()) {
        servePopup(colorCompleter, colourCode, event);
        return;
    }
    if (identCompleter->popup()->isVisible()) {
        servePopup(identCompleter, QLatin1Char('$'), event);
        return;
    }
    if (propCompleter->popup()->isVisible()) {
        servePopup(propCompleter, QLatin1Char('.'), event);
        return;
    }
    serveProgIdPopup(event);
}

void MslTextEditor::handleReturn(QKeyEvent *event, bool &autofill)
{
    if (anyPopupVisible()) {
        // Left to the completer, which accepts the current row.
        event->ignore();
        return;
    }

    if (autofill) {
        const int s = prevLineSpaceCount();
        insertPlainText(QLatin1Char('\n') + QString(s + 2, QLatin1Char(' ')) + QLatin1Char('\n')
                        + QString(s, QLatin1Char(' ')) + QLatin1Char('}'));
        QTextCursor cursor = textCursor();
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::MoveAnchor, s + 2);
        setTextCursor(cursor);
        event->ignore();
        autofill = false;
        return;
    }

    insertPlainText(QLatin1Char('\n') + QString(prevLineSpaceCount(), QLatin1Char(' ')));
    event->ignore();
}

// Shows the syntax of the identifier the cursor stands in, with the
// argument being typed in bold, and pairs a ( typed right after a name.
void MslTextEditor::handleCallTip(QKeyEvent *event, bool &bracket)
{
    const int key = event->key();
    const QTextCursor cursor = textCursor();
    const int pos = cursor.positionInBlock();
    const Identifier *id = innermostIdent(cursor.block(), pos);
    if (!id || (key == Qt::Key_ParenLeft && id->hasPayload)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }

    int args = id->hasPayload ? 1 : 0;
    for (int comma : id->argsPos) {
        ++args;
        if (pos <= comma)
            break;
    }

    QString name = id->name;
    const QString tip = MslInfo::getIdentSyntaxAt(name, args);
    if (MslInfo::isProperIdentArgs(name, args, QString()) != MslInfo::UnknownIdent)
        QToolTip::showText(viewport()->mapToGlobal(cursorRect().topLeft()), tip);

    if (key == Qt::Key_ParenLeft) {
        insertPlainText(QStringLiteral("()"));
        QTextCursor inside = textCursor();
        inside.movePosition(QTextCursor::Left);
        setTextCursor(inside);
        event->ignore();
        bracket = true;
        return;
    }

    QPlainTextEdit::keyPressEvent(event);
}

// Keeps an open colour, identifier or property list in step with what is
// typed: its prefix runs from the last marker left of the cursor.
void MslTextEditor::servePopup(QCompleter *completer, QChar marker, QKeyEvent *event)
{
    const int key = event->key();
    if (isAcceptOrCancelKey(key)) {
        event->ignore();
        return;
    }

    QPlainTextEdit::keyPressEvent(event);

    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        completer->popup()->hide();
        QToolTip::hideText();
        return;
    }
    if (event->modifiers() != Qt::NoModifier) {
        completer->popup()->hide();
        return;
    }

    const QTextCursor cursor = textCursor();
    const QString left = document()->findBlockByLineNumber(cursor.blockNumber()).text()
                             .left(cursor.positionInBlock());
    const int m = left.lastIndexOf(marker);
    const QString taken = m == -1 ? left : left.mid(m);
    if (taken.isEmpty()) {
        if (completer->popup()->isVisible())
            completer->popup()->hide();
        return;
    }

    if (completer == propCompleter) {
        completer->setCompletionPrefix(taken.mid(1));
        // The first row is taken from the ProgID list's model; row 0 is
        // row 0, and this has always been so.
        openCompleter(completer, comCompleter->completionModel()->index(0, 0));
    } else {
        completer->setCompletionPrefix(taken);
        openCompleter(completer, completer->completionModel()->index(0, 0));
    }
}

// The ProgID list belongs to the third word of a comopen command, also
// one that stands behind a " | " separator.
void MslTextEditor::serveProgIdPopup(QKeyEvent *event)
{
    static const QRegularExpression reg(QStringLiteral(" \\|( |$)"));
    static const QRegularExpression checkCom(QStringLiteral("^ *[.!/]{0,4}comopen \\S+ .+$"),
                                             QRegularExpression::CaseInsensitiveOption
                                                 | QRegularExpression::UseUnicodePropertiesOption);

    const int key = event->key();
    QAbstractItemView *popup = comCompleter->popup();
    if (popup->isVisible() && isAcceptOrCancelKey(key)) {
        event->ignore();
        return;
    }

    QPlainTextEdit::keyPressEvent(event);

    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        popup->hide();
        QToolTip::hideText();
        return;
    }
    if (event->modifiers() != Qt::NoModifier) {
        popup->hide();
        propCompleter->popup()->hide();
        return;
    }

    const QTextCursor cursor = textCursor();
    const int cpos = cursor.positionInBlock();
    const QString fullLine = document()->findBlockByLineNumber(cursor.blockNumber()).text();
    QString line = fullLine;

    // Start of the command the cursor stands in.
    int index = 0;
    for (;;) {
        const int m = int(line.indexOf(reg, index));
        if (m == -1 || m >= cpos)
            break;
        index = m + 1;
    }
    if (index < line.size() && line.at(index) == QLatin1Char('|'))
        ++index;
    const int next = int(line.indexOf(reg, index));
    if (next != -1)
        line = line.left(next);
    line = line.mid(index);

    if (!checkCom.match(line).hasMatch()) {
        if (popup->isVisible())
            popup->hide();
        return;
    }

    // The word around the cursor, up to the cursor's right.
    int x = cpos;
    while (x < fullLine.size() && !fullLine.at(x).isSpace())
        ++x;
    QString prefix = fullLine.left(x);
    int y = int(prefix.size());
    while (y >= 0 && !(y < prefix.size() && prefix.at(y).isSpace()))
        --y;
    prefix = prefix.mid(y + 1);

    if (prefix.isEmpty()) {
        if (popup->isVisible())
            popup->hide();
        return;
    }

    if (comCompleter->completionPrefix() != prefix) {
        comCompleter->setCompletionPrefix(prefix);
        popup->setCurrentIndex(comCompleter->completionModel()->index(0, 0));
    }
    QRect rect = cursorRect();
    rect.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width());
    comCompleter->complete(rect);
}

void MslTextEditor::openCompleter(QCompleter *completer, const QModelIndex &first)
{
    QAbstractItemView *popup = completer->popup();
    popup->setCurrentIndex(first);
    QRect rect = cursorRect();
    rect.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width());
    completer->complete(rect);
}

bool MslTextEditor::anyPopupVisible() const
{
    return comCompleter->popup()->isVisible() || propCompleter->popup()->isVisible()
        || identCompleter->popup()->isVisible() || colorCompleter->popup()->isVisible();
}

const Identifier *MslTextEditor::innermostIdent(const QTextBlock &block, int pos)
{
    const CBlockData *data = recordOf(block);
    if (!data)
        return nullptr;
    const Identifier *found = nullptr;
    for (const Identifier &id : data->idents) {
        if (pos > id.start && pos <= id.end && (!found || id.start > found->start))
            found = &id;
    }
    return found;
}

void MslTextEditor::insertComCompletion(const QString &completion)
{
    const int extra = int(completion.size() - comCompleter->completionPrefix().size());
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::Left);
    cursor.movePosition(QTextCursor::EndOfWord);
    cursor.insertText(completion.right(extra));
    setTextCursor(cursor);
}

void MslTextEditor::insertIdentPropCompletion(const QString &completion)
{
    const int extra = int(completion.size() - propCompleter->completionPrefix().size());
    QTextCursor cursor = textCursor();
    cursor.insertText(completion.right(extra));
    setTextCursor(cursor);
}

void MslTextEditor::insertIdentCompletion(const QString &completion)
{
    const int extra = int(completion.size() - identCompleter->completionPrefix().size());
    QTextCursor cursor = textCursor();
    cursor.insertText(completion.right(extra));
    setTextCursor(cursor);
}

void MslTextEditor::insertColorCompletion(const QString &completion)
{
    const int extra = int(completion.size() - colorCompleter->completionPrefix().size());
    QTextCursor cursor = textCursor();
    cursor.insertText(completion.right(extra));
    setTextCursor(cursor);
}

// The last word of the cursor's line, after its last blank.
QString MslTextEditor::textUnderCursor() const
{
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::BlockUnderCursor);
    return cursor.selectedText().mid(qMax(0, textCurPos()));
}

// Where that last word starts in the selected block text.
int MslTextEditor::textCurPos() const
{
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::BlockUnderCursor);
    const QString text = cursor.selectedText();
    int start = int(text.size()) - 1;
    while (start > 0) {
        if (text.at(start - 1) == QLatin1Char(' '))
            break;
        --start;
    }
    return start;
}

// Leading white space of the line the cursor is on; a tab counts as one.
int MslTextEditor::prevLineSpaceCount()
{
    const QString text = document()->findBlockByLineNumber(textCursor().blockNumber()).text();
    int count = 0;
    while (count < text.size() && text.at(count).isSpace())
        ++count;
    return count;
}
