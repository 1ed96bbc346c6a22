#include "msltexteditor.h"

#include "msltextedit.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>

namespace {

// Width of the gutter beyond the digits: room for the fold icons.
constexpr int foldStrip = 18;
// Fold icons are drawn this far from the bar's right edge.
constexpr int iconOffset = 16;
constexpr int iconSize = 16;

const QString aliasOpenIcon = QStringLiteral(":/block/resources/img_assets/editor/block/expanded.png");
const QString aliasFoldedIcon = QStringLiteral(":/block/resources/img_assets/editor/block/right.png");
const QString groupOpenIcon = QStringLiteral(":/block/resources/img_assets/editor/block/expanded2.png");
const QString groupFoldedIcon = QStringLiteral(":/block/resources/img_assets/editor/block/right2.png");

bool opensMultiLineBlock(const CBlockData *data)
{
    return data && !data->containedBlock.isEmpty() && data->isMultiLine;
}

bool opensGroup(const CBlockData *data)
{
    return data && data->isGroup && data->groupState == 1;
}

} // namespace

LineNumberBar::LineNumberBar(MslTextEditor *editor)
    : QWidget(editor)
    , mainTxt(editor)
{
}

QSize LineNumberBar::sizeHint() const
{
    return QSize(mainTxt->lineNumberWidth(), 0);
}

void LineNumberBar::mousePressEvent(QMouseEvent *event)
{
    mainTxt->lineNumberClicked(event);
}

void LineNumberBar::paintEvent(QPaintEvent *event)
{
    mainTxt->lineNumberPaintEvent(event);
}

int MslTextEditor::lineNumberWidth()
{
    int max = qMax(1, blockCount());
    int digits = 1;
    while (max > 9) {
        max /= 10;
        ++digits;
    }
    return digits * fontMetrics().horizontalAdvance(QLatin1Char('9')) + 3;
}

void MslTextEditor::updatelineNumberWidth(int /* newBlockCount */)
{
    // Asked on every repaint request that covers the view, which a pass of
    // the analyser makes once per line; laying out the scroll area again
    // for an unchanged margin would cost more than the analysis.
    const int left = lineNumberWidth() + foldStrip;
    if (viewportMargins() == QMargins(left, 0, 0, 0))
        return;
    setViewportMargins(left, 0, 0, 0);
}

void MslTextEditor::updatelineNumber(const QRect &rect, int dy)
{
    if (dy)
        lineNumber->scroll(0, dy);
    else
        lineNumber->update(0, rect.y(), lineNumber->width(), rect.height());

    if (rect.contains(viewport()->rect()))
        updatelineNumberWidth(0);
}

void MslTextEditor::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);

    const QRect cr = contentsRect();
    lineNumber->setGeometry(QRect(cr.left(), cr.top(), lineNumberWidth() + foldStrip, cr.height()));
}

void MslTextEditor::lineNumberPaintEvent(QPaintEvent *event)
{
    QPainter painter(lineNumber);
    painter.fillRect(event->rect(), Qt::white);

    const int barWidth = lineNumber->width();
    QTextBlock block = firstVisibleBlock();
    int blockNumber = block.blockNumber();
    int top = int(blockBoundingGeometry(block).translated(contentOffset()).top());
    int bottom = top + int(blockBoundingRect(block).height());
    const QString lastNum = QString::number(blockCount());

    while (block.isValid() && top <= event->rect().bottom()) {
        if (block.isVisible() && bottom >= event->rect().top()) {
            const QString number = QString::number(blockNumber + 1)
                                       .rightJustified(lastNum.size(), QLatin1Char('0'));
            painter.setPen(QColor(160, 160, 160, 255));
            painter.drawText(0, top, barWidth - foldStrip, fontMetrics().height(),
                             Qt::AlignRight, number);

            const CBlockData *data = recordOf(block);
            const bool open = block.next().isVisible();
            QString icon;
            if (opensMultiLineBlock(data))
                icon = open ? aliasOpenIcon : aliasFoldedIcon;
            else if (opensGroup(data))
                icon = open ? groupOpenIcon : groupFoldedIcon;
            if (!icon.isEmpty()) {
                const QImage image(icon);
                if (!image.isNull())
                    painter.drawImage(barWidth - iconOffset, top, image);
            }
        }

        block = block.next();
        top = bottom;
        bottom = top + int(blockBoundingRect(block).height());
        ++blockNumber;
    }
}

// Hides the lines below a header up to the one that returns to top
// level (state 1). The document's last block always stays visible.
static QTextBlock foldBelow(QTextBlock block, const QTextBlock &last)
{
    block = block.next();
    while (block.position() < last.position()) {
        block.setVisible(false);
        if (block.userState() == 1)
            break;
        block = block.next();
    }
    return block;
}

// Shows every hidden line up to the next visible one, so a fold nested
// inside opens together with the fold around it.
static void unfoldBelow(QTextBlock block, bool clearHiddenMarks)
{
    if (CBlockData *data = recordOf(block))
        data->isHidden = false;
    block = block.next();
    while (block.isValid() && !block.isVisible()) {
        block.setVisible(true);
        if (clearHiddenMarks) {
            if (CBlockData *data = recordOf(block))
                data->isHidden = false;
        }
        block = block.next();
    }
}

void MslTextEditor::lineNumberClicked(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    const int barWidth = lineNumber->width();
    const QTextBlock last = document()->lastBlock();
    QTextBlock block = firstVisibleBlock();
    int top = int(blockBoundingGeometry(block).translated(contentOffset()).top());
    int bottom = top + int(blockBoundingRect(block).height());

    // The click box is taller than a line, so after a fold the line now
    // below the header may take the same click; lines whose top lies
    // below the click cannot, and the walk ends there.
    while (block.isValid() && top <= at.y()) {
        const QRect clickBox(barWidth - foldStrip, top, iconSize, iconSize);
        if (block.isVisible() && bottom >= 0 && clickBox.contains(at)) {
            const CBlockData *data = recordOf(block);
            const bool multiLine = opensMultiLineBlock(data);
            if (multiLine || opensGroup(data)) {
                if (block.next().isVisible()) {
                    block = foldBelow(block, last);
                } else {
                    unfoldBelow(block, !multiLine);
                    break;
                }
            }
        }

        block = block.next();
        top = bottom;
        bottom = top + int(blockBoundingRect(block).height());
    }

    // A visibility change alone does not make the view lay itself out
    // again; a change of size does. Once per click is enough: doing it
    // per line froze the editor on long scripts.
    const QRect g = geometry();
    setGeometry(g.x(), g.y(), g.width(), g.height() - 1);
    setGeometry(g);

    resize(size());
    update();
    viewport()->update();
}

// The view scrolls by blocks and a hidden block would swallow a step, so
// hidden blocks are skipped in the direction of the movement.
void MslTextEditor::scrollBarValueChanged(int y)
{
    QTextBlock block = firstVisibleBlock();
    while (block.isValid() && !block.isVisible() && block.lineCount() != 0) {
        if (prevVerticalScrollBar < y) {
            ++y;
            block = block.next();
        } else {
            --y;
            block = block.previous();
        }
    }

    verticalScrollBar()->setValue(y);
    viewport()->update();
    update();
    prevVerticalScrollBar = y;
}
