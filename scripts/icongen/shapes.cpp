// The plain shapes the pictures are built from.

#include "shapes.h"

#include <QFont>
#include <QLineF>
#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>
#include <QtMath>

QPen line(const QColor &c, qreal width)
{
    QPen pen(c, width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QPen flatLine(const QColor &c, qreal width)
{
    QPen pen(c, width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

void fitText(QPainter &p, const QRectF &box, const QString &text, const QColor &c,
             bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(100);
    font.setBold(bold);
    QPainterPath path;
    path.addText(0, 0, font, text);
    const QRectF b = path.boundingRect();
    const qreal scale = qMin(box.width() / b.width(), box.height() / b.height());
    QTransform t;
    t.translate(box.center().x(), box.center().y());
    t.scale(scale, scale);
    t.translate(-b.center().x(), -b.center().y());
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawPath(t.map(path));
    p.restore();
}

void arrow(QPainter &p, QPointF from, QPointF to, const QColor &c, qreal shaft,
           qreal headWidth, qreal headLength)
{
    const QLineF l(from, to);
    const qreal len = l.length();
    const QPointF d = (to - from) / len;
    const QPointF n(-d.y(), d.x());
    const QPointF neck = to - d * headLength;
    QPolygonF poly;
    poly << from + n * shaft / 2 << neck + n * shaft / 2 << neck + n * headWidth / 2 << to
         << neck - n * headWidth / 2 << neck - n * shaft / 2 << from - n * shaft / 2;
    p.setPen(line(c.darker(150), 0.8));
    p.setBrush(c);
    p.drawPolygon(poly);
}

void triangle(QPainter &p, QPointF a, QPointF b, QPointF c, const QColor &fill)
{
    p.setPen(line(fill.darker(140), 0.8));
    p.setBrush(fill);
    p.drawPolygon(QPolygonF() << a << b << c);
}

void sheet(QPainter &p, const QRectF &r, const QColor &fill)
{
    const qreal ear = qMin(r.width(), r.height()) * 0.35;
    QPainterPath body;
    body.moveTo(r.topLeft());
    body.lineTo(r.right() - ear, r.top());
    body.lineTo(r.right(), r.top() + ear);
    body.lineTo(r.bottomRight());
    body.lineTo(r.bottomLeft());
    body.closeSubpath();
    p.setPen(line(kOutline, 1.0));
    p.setBrush(fill);
    p.drawPath(body);
    QPainterPath fold;
    fold.moveTo(r.right() - ear, r.top());
    fold.lineTo(r.right() - ear, r.top() + ear);
    fold.lineTo(r.right(), r.top() + ear);
    fold.closeSubpath();
    p.setBrush(kPaperShade);
    p.drawPath(fold);
}

void textLines(QPainter &p, const QRectF &r, const QColor &c, int count, qreal width)
{
    p.setPen(flatLine(c, width));
    const qreal step = count > 1 ? r.height() / (count - 1) : 0;
    for (int i = 0; i < count; ++i) {
        const qreal y = r.top() + i * step;
        const qreal shorten = (i % 3 == 1) ? r.width() * 0.3 : (i % 3 == 2 ? r.width() * 0.12 : 0);
        p.drawLine(QPointF(r.left(), y), QPointF(r.right() - shorten, y));
    }
}

void badge(QPainter &p, QPointF c, qreal radius, const QColor &fill)
{
    p.setPen(line(fill.darker(150), 0.8));
    p.setBrush(fill);
    p.drawEllipse(c, radius, radius);
}

void plusMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width)
{
    p.setPen(flatLine(color, width));
    p.drawLine(c - QPointF(half, 0), c + QPointF(half, 0));
    p.drawLine(c - QPointF(0, half), c + QPointF(0, half));
}

void minusMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width)
{
    p.setPen(flatLine(color, width));
    p.drawLine(c - QPointF(half, 0), c + QPointF(half, 0));
}

void crossMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width)
{
    p.setPen(line(color, width));
    p.drawLine(c + QPointF(-half, -half), c + QPointF(half, half));
    p.drawLine(c + QPointF(-half, half), c + QPointF(half, -half));
}

void boldPlus(QPainter &p, QPointF c, qreal half, const QColor &color)
{
    plusMark(p, c, half + 0.6, color.darker(150), 4.0);
    plusMark(p, c, half, color, 2.6);
}

void boldMinus(QPainter &p, QPointF c, qreal half, const QColor &color)
{
    minusMark(p, c, half + 0.6, color.darker(150), 4.0);
    minusMark(p, c, half, color, 2.6);
}

void floppy(QPainter &p, const QRectF &r, const QColor &body)
{
    const qreal w = r.width(), h = r.height();
    QPainterPath shell;
    shell.moveTo(r.topLeft());
    shell.lineTo(r.right() - w * 0.15, r.top());
    shell.lineTo(r.right(), r.top() + h * 0.15);
    shell.lineTo(r.bottomRight());
    shell.lineTo(r.bottomLeft());
    shell.closeSubpath();
    p.setPen(line(body.darker(160), 1.0));
    p.setBrush(body);
    p.drawPath(shell);
    // Metal shutter with its slot.
    p.setPen(line(QColor(120, 125, 130), 0.6));
    p.setBrush(QColor(208, 212, 218));
    p.drawRect(QRectF(r.left() + w * 0.24, r.top(), w * 0.5, h * 0.36));
    p.setPen(Qt::NoPen);
    p.setBrush(body.darker(130));
    p.drawRect(QRectF(r.left() + w * 0.54, r.top() + h * 0.06, w * 0.12, h * 0.22));
    // Label.
    p.setBrush(Qt::white);
    const QRectF label(r.left() + w * 0.14, r.top() + h * 0.52, w * 0.72, h * 0.48 - 0.6);
    p.drawRect(label);
    textLines(p, label.adjusted(w * 0.1, h * 0.12, -w * 0.1, -h * 0.14), QColor(170, 170, 180),
              2, 0.8);
}

void folder(QPainter &p, const QRectF &r, const QColor &c)
{
    p.setPen(line(c.darker(160), 0.9));
    p.setBrush(c.darker(115));
    QPainterPath back;
    back.moveTo(r.left(), r.bottom());
    back.lineTo(r.left(), r.top());
    back.lineTo(r.left() + r.width() * 0.38, r.top());
    back.lineTo(r.left() + r.width() * 0.48, r.top() + 1.6);
    back.lineTo(r.right() - 0.5, r.top() + 1.6);
    back.lineTo(r.right() - 0.5, r.bottom());
    back.closeSubpath();
    p.drawPath(back);
    p.setBrush(c);
    QPolygonF front;
    front << QPointF(r.left() + 1.6, r.top() + r.height() * 0.38)
          << QPointF(r.right(), r.top() + r.height() * 0.38) << QPointF(r.right() - 1.6, r.bottom())
          << QPointF(r.left(), r.bottom());
    p.drawPolygon(front);
}

void magnifier(QPainter &p, QPointF c, qreal radius, const QColor &rim, const QColor &glass,
               const QColor &handle)
{
    const QPointF start = c + QPointF(radius, radius) * 0.72;
    p.setPen(line(handle, 2.8));
    p.drawLine(start, start + QPointF(4.0, 4.0));
    p.setPen(line(rim, 1.7));
    p.setBrush(glass);
    p.drawEllipse(c, radius, radius);
    p.setPen(line(QColor(255, 255, 255, 200), 0.9));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(c.x() - radius * 0.6, c.y() - radius * 0.6, radius * 1.2, radius * 1.2),
              100 * 16, 70 * 16);
}

QRectF window(QPainter &p, const QRectF &r, const QColor &title)
{
    p.setPen(line(kOutline, 1.0));
    p.setBrush(QColor(236, 236, 236));
    p.drawRect(r);
    const qreal bar = qMax<qreal>(2.6, r.height() * 0.24);
    p.setBrush(title);
    p.drawRect(QRectF(r.left(), r.top(), r.width(), bar));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(235, 80, 70));
    p.drawRect(QRectF(r.right() - 2.4, r.top() + 0.8, 1.6, bar - 1.6));
    return QRectF(r.left() + 1, r.top() + bar + 1, r.width() - 2, r.height() - bar - 2);
}

void padlock(QPainter &p, const QRectF &r)
{
    p.setPen(line(QColor(110, 110, 110), 1.2));
    p.setBrush(Qt::NoBrush);
    const QRectF shackle(r.left() + r.width() * 0.2, r.top(), r.width() * 0.6, r.height() * 0.8);
    p.drawArc(shackle, 0, 180 * 16);
    p.drawLine(QPointF(shackle.left(), shackle.center().y()),
               QPointF(shackle.left(), r.top() + r.height() * 0.5));
    p.drawLine(QPointF(shackle.right(), shackle.center().y()),
               QPointF(shackle.right(), r.top() + r.height() * 0.5));
    p.setPen(line(QColor(150, 110, 20), 0.8));
    p.setBrush(QColor(232, 182, 40));
    p.drawRoundedRect(QRectF(r.left(), r.top() + r.height() * 0.42, r.width(), r.height() * 0.58),
                      0.8, 0.8);
}

void picture(QPainter &p, const QRectF &r, const QColor &frame)
{
    p.setPen(line(frame, 1.2));
    p.setBrush(QColor(160, 205, 245));
    p.drawRect(r);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(250, 210, 40));
    p.drawEllipse(QPointF(r.right() - r.width() * 0.27, r.top() + r.height() * 0.3),
                  r.width() * 0.11, r.width() * 0.11);
    p.setBrush(QColor(60, 150, 70));
    QPolygonF hills;
    hills << QPointF(r.left() + 0.6, r.bottom() - 0.6)
          << QPointF(r.left() + r.width() * 0.35, r.top() + r.height() * 0.4)
          << QPointF(r.left() + r.width() * 0.6, r.top() + r.height() * 0.72)
          << QPointF(r.left() + r.width() * 0.75, r.top() + r.height() * 0.56)
          << QPointF(r.right() - 0.6, r.bottom() - 0.6);
    p.drawPolygon(hills);
}

void bubble(QPainter &p, const QColor &c)
{
    QPainterPath body;
    body.addRoundedRect(QRectF(1.5, 2.0, 13.0, 9.5), 3.0, 3.0);
    QPainterPath tail;
    tail.addPolygon(QPolygonF() << QPointF(4.0, 10.5) << QPointF(3.2, 14.8) << QPointF(8.6, 10.5));
    tail.closeSubpath();
    p.setPen(line(c.darker(150), 1.0));
    p.setBrush(c);
    p.drawPath(body.united(tail));
    p.setPen(flatLine(c.lighter(150), 1.0));
    p.drawLine(QPointF(4.5, 5.5), QPointF(11.5, 5.5));
    p.drawLine(QPointF(4.5, 8.0), QPointF(9.5, 8.0));
}

void roundedTile(QPainter &p, const QColor &fill, const QColor &border, qreal borderWidth)
{
    p.setPen(line(border, borderWidth));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
}

void cylinder(QPainter &p, const QRectF &r, const QColor &c)
{
    const qreal cap = r.height() * 0.28;
    QPainterPath body;
    body.moveTo(r.left(), r.top() + cap / 2);
    body.lineTo(r.left(), r.bottom() - cap / 2);
    body.arcTo(QRectF(r.left(), r.bottom() - cap, r.width(), cap), 180, 180);
    body.lineTo(r.right(), r.top() + cap / 2);
    body.closeSubpath();
    p.setPen(line(c.darker(160), 0.9));
    p.setBrush(c);
    p.drawPath(body);
    p.setBrush(c.lighter(135));
    p.drawEllipse(QRectF(r.left(), r.top(), r.width(), cap));
    p.setBrush(Qt::NoBrush);
    p.setPen(line(c.darker(130), 0.7));
    p.drawArc(QRectF(r.left(), r.top() + r.height() * 0.33, r.width(), cap), 180 * 16, 180 * 16);
    p.drawArc(QRectF(r.left(), r.top() + r.height() * 0.56, r.width(), cap), 180 * 16, 180 * 16);
}

void cube(QPainter &p, QPointF centre, qreal size, const QColor &c)
{
    const qreal s = size / 2;
    const QPointF top(centre.x(), centre.y() - s);
    const QPointF left(centre.x() - s * 0.87, centre.y() - s / 2);
    const QPointF right(centre.x() + s * 0.87, centre.y() - s / 2);
    const QPointF mid = centre;
    const QPointF bl(left.x(), left.y() + s);
    const QPointF br(right.x(), right.y() + s);
    const QPointF bottom(centre.x(), centre.y() + s);
    p.setPen(line(c.darker(170), 0.8));
    p.setBrush(c.lighter(140));
    p.drawPolygon(QPolygonF() << top << right << mid << left);
    p.setBrush(c);
    p.drawPolygon(QPolygonF() << left << mid << bottom << bl);
    p.setBrush(c.darker(125));
    p.drawPolygon(QPolygonF() << mid << right << br << bottom);
}

void gear(QPainter &p, QPointF c, qreal outer, const QColor &color, int teeth)
{
    QPainterPath path;
    const qreal inner = outer * 0.74;
    for (int i = 0; i < teeth * 4; ++i) {
        const qreal a = (i * 2 * M_PI) / (teeth * 4) - M_PI / 2;
        const qreal r = ((i / 2) % 2 == 0) ? outer : inner;
        const QPointF pt = c + QPointF(qCos(a), qSin(a)) * r;
        if (i == 0)
            path.moveTo(pt);
        else
            path.lineTo(pt);
    }
    path.closeSubpath();
    QPainterPath hole;
    hole.addEllipse(c, outer * 0.32, outer * 0.32);
    p.setPen(line(color.darker(160), 0.7));
    p.setBrush(color);
    p.drawPath(path.subtracted(hole));
}

void field(QPainter &p, const QRectF &r)
{
    p.setPen(flatLine(QColor(120, 120, 120), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(r);
}
