#include "headlesslayout.h"

#include <QTextDocument>

HeadlessLayout::HeadlessLayout(QTextDocument *document)
    : QAbstractTextDocumentLayout(document)
{
}

void HeadlessLayout::install(QTextDocument *document)
{
    document->setDocumentLayout(new HeadlessLayout(document));
}

void HeadlessLayout::draw(QPainter *, const PaintContext &) { }

int HeadlessLayout::hitTest(const QPointF &, Qt::HitTestAccuracy) const
{
    return -1;
}

int HeadlessLayout::pageCount() const
{
    return 1;
}

QSizeF HeadlessLayout::documentSize() const
{
    return QSizeF();
}

QRectF HeadlessLayout::frameBoundingRect(QTextFrame *) const
{
    return QRectF();
}

QRectF HeadlessLayout::blockBoundingRect(const QTextBlock &) const
{
    return QRectF();
}

// Nothing to lay out; the document only needs a layout to announce edits.
void HeadlessLayout::documentChanged(int, int, int) { }
