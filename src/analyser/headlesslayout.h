#ifndef HEADLESSLAYOUT_H
#define HEADLESSLAYOUT_H

#include <QAbstractTextDocumentLayout>

class QTextDocument;

// The layout of a document that is analysed but never shown: the lint,
// the language server and the analyser's tests. A QTextDocument tells its
// highlighter about edits only once it has a layout, and the rich-text
// layout Qt would otherwise make lays every line out with fonts; this one
// lays out nothing.
class HeadlessLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit HeadlessLayout(QTextDocument *document);

    // Gives `document` a HeadlessLayout; call it before a highlighter is
    // attached, as an editor has its layout before it has a highlighter.
    static void install(QTextDocument *document);

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override;
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;
};

#endif // HEADLESSLAYOUT_H
