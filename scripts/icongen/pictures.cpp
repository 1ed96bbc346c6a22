// The pictures themselves, grouped by where the program shows them.

#include "pictures.h"

#include "shapes.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QPolygonF>
#include <QtMath>

#include <functional>

// ---------------------------------------------------------------- main menu and toolbars

void drawSave(QPainter &p) { floppy(p, QRectF(1.5, 1.5, 13, 13), QColor(52, 101, 164)); }

void drawSaveAll(QPainter &p)
{
    floppy(p, QRectF(1.5, 1.5, 9.5, 9.5), QColor(52, 101, 164));
    floppy(p, QRectF(5.5, 5.5, 9.5, 9.5), QColor(70, 130, 190));
}

void drawExit(QPainter &p)
{
    p.setPen(line(QColor(100, 60, 25), 1.0));
    p.setBrush(QColor(160, 105, 55));
    p.drawRect(QRectF(1.5, 1.5, 8, 13));
    p.setBrush(QColor(130, 82, 40));
    p.drawRect(QRectF(3, 3, 5, 10));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(250, 210, 60));
    p.drawEllipse(QPointF(7, 8.5), 0.9, 0.9);
    arrow(p, QPointF(6.5, 8), QPointF(15.3, 8), QColor(50, 170, 60), 2.6, 7.5, 4.5);
}

void drawUndo(QPainter &p)
{
    const QColor c(45, 110, 200);
    QPainterPath path;
    path.moveTo(13.5, 13.5);
    path.cubicTo(14.5, 6.5, 10.5, 5.0, 6.0, 5.0);
    p.setPen(line(c.darker(140), 3.2));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
    p.setPen(line(c, 1.8));
    p.drawPath(path);
    triangle(p, QPointF(1.0, 5.0), QPointF(6.8, 0.8), QPointF(6.8, 9.2), c);
}

void drawRedo(QPainter &p)
{
    p.translate(16, 0);
    p.scale(-1, 1);
    drawUndo(p);
}

void drawCut(QPainter &p)
{
    p.setPen(line(QColor(110, 115, 125), 2.0));
    p.drawLine(QPointF(5.3, 10.2), QPointF(11.2, 1.2));
    p.setPen(line(QColor(160, 165, 175), 2.0));
    p.drawLine(QPointF(10.7, 10.2), QPointF(4.8, 1.2));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(70, 70, 70));
    p.drawEllipse(QPointF(8, 6.1), 0.9, 0.9);
    p.setPen(line(QColor(205, 40, 40), 1.7));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(4.3, 12.3), 2.4, 2.4);
    p.drawEllipse(QPointF(11.7, 12.3), 2.4, 2.4);
}

void drawCopy(QPainter &p)
{
    sheet(p, QRectF(1.5, 1.5, 8.5, 10.5));
    textLines(p, QRectF(3, 5, 5, 5), kTextGrey, 3);
    sheet(p, QRectF(6, 4.5, 8.5, 10.5));
    textLines(p, QRectF(7.5, 8, 5, 5), QColor(80, 120, 190), 3);
}

void drawPaste(QPainter &p)
{
    p.setPen(line(QColor(120, 80, 40), 1.0));
    p.setBrush(QColor(195, 145, 85));
    p.drawRoundedRect(QRectF(2.5, 2.5, 11, 12.5), 1.2, 1.2);
    sheet(p, QRectF(4.5, 5.0, 7, 8.5));
    textLines(p, QRectF(5.7, 8, 3.8, 4), kTextGrey, 3);
    p.setPen(line(QColor(100, 100, 100), 0.8));
    p.setBrush(QColor(175, 180, 188));
    p.drawRoundedRect(QRectF(5.5, 1.0, 5, 3), 1, 1);
}

void drawMenuDelete(QPainter &p)
{
    crossMark(p, QPointF(8, 8), 5, QColor(150, 20, 20), 3.8);
    crossMark(p, QPointF(8, 8), 5, QColor(225, 55, 55), 2.2);
}

namespace {

void infoSign(QPainter &p, const QColor &c, bool ring)
{
    badge(p, QPointF(8, 8), 6.8, c);
    if (ring) {
        p.setPen(line(QColor(255, 255, 255, 150), 0.8));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(8, 8), 5.6, 5.6);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(8, 4.7), 1.25, 1.25);
    p.drawRoundedRect(QRectF(7.0, 6.7, 2.0, 5.8), 0.5, 0.5);
}

} // namespace

void drawInfo(QPainter &p) { infoSign(p, QColor(45, 115, 205), true); }

void drawPageAdd(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 10, 13));
    textLines(p, QRectF(4.5, 5.5, 5, 4), kTextGrey, 3);
    badge(p, QPointF(11.5, 11.5), 4.0, QColor(50, 165, 60));
    plusMark(p, QPointF(11.5, 11.5), 2.2, Qt::white, 1.6);
}

void drawPageDelete(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 10, 13));
    textLines(p, QRectF(4.5, 5.5, 5, 4), kTextGrey, 3);
    badge(p, QPointF(11.5, 11.5), 4.0, QColor(215, 50, 45));
    crossMark(p, QPointF(11.5, 11.5), 1.7, Qt::white, 1.5);
}

void drawFolderPage(QPainter &p)
{
    sheet(p, QRectF(5.5, 1.0, 8, 10));
    textLines(p, QRectF(7, 4.5, 4, 3), kTextGrey, 2);
    folder(p, QRectF(1.0, 5.0, 14, 9.5));
}

void drawShare(QPainter &p)
{
    const QColor c(60, 150, 215);
    p.setPen(line(c.darker(140), 1.6));
    p.drawLine(QPointF(4, 8), QPointF(12, 3.5));
    p.drawLine(QPointF(4, 8), QPointF(12, 12.5));
    badge(p, QPointF(4, 8), 2.6, c);
    badge(p, QPointF(12, 3.5), 2.4, c);
    badge(p, QPointF(12, 12.5), 2.4, c);
}

// ---------------------------------------------------------------- tabs

void drawTabFile(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 10, 13));
    textLines(p, QRectF(4.5, 5.5, 6, 6), QColor(95, 125, 180), 4);
}

void drawTabFileReadOnly(QPainter &p)
{
    sheet(p, QRectF(1.5, 1.5, 10, 13));
    textLines(p, QRectF(3.5, 5.5, 6, 6), kTextGrey, 4);
    padlock(p, QRectF(9.0, 7.5, 6.2, 7.8));
}

void drawTabDialog(QPainter &p)
{
    const QRectF body = window(p, QRectF(1.5, 2.5, 13, 11), QColor(70, 120, 200));
    p.setPen(line(QColor(120, 120, 120), 0.7));
    p.setBrush(QColor(250, 250, 250));
    p.drawRect(QRectF(body.left() + 1, body.top() + 1, body.width() - 2, 2));
    p.setBrush(QColor(215, 215, 215));
    p.drawRect(QRectF(body.right() - 5.5, body.bottom() - 2.6, 4.5, 2.2));
}

// ---------------------------------------------------------------- report icons

void drawInformation(QPainter &p) { infoSign(p, QColor(30, 95, 195), false); }

void drawWarning(QPainter &p)
{
    QPainterPath tri;
    tri.moveTo(8, 1.2);
    tri.lineTo(15.2, 14.5);
    tri.lineTo(0.8, 14.5);
    tri.closeSubpath();
    p.setPen(line(QColor(170, 120, 0), 1.0));
    p.setBrush(QColor(250, 200, 30));
    p.drawPath(tri);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 40, 40));
    p.drawRoundedRect(QRectF(7.1, 5.0, 1.8, 5.6), 0.5, 0.5);
    p.drawEllipse(QPointF(8, 12.3), 1.1, 1.1);
}

void drawError(QPainter &p)
{
    badge(p, QPointF(8, 8), 6.9, QColor(215, 45, 45));
    crossMark(p, QPointF(8, 8), 3.1, Qt::white, 2.0);
}

// ---------------------------------------------------------------- DDE setup

void drawDdeAdd(QPainter &p) { boldPlus(p, QPointF(8, 8), 5, QColor(50, 170, 60)); }
void drawDdeDelete(QPainter &p) { boldMinus(p, QPointF(8, 8), 5, QColor(215, 50, 45)); }

// ---------------------------------------------------------------- new document chooser

void drawNewBlank(QPainter &p) { sheet(p, QRectF(3, 1, 10, 14)); }

void drawNewDialog(QPainter &p)
{
    const QRectF body = window(p, QRectF(1, 2, 14, 12), QColor(70, 120, 200));
    field(p, QRectF(body.left() + 1, body.top() + 1, body.width() - 2, 2));
    p.setPen(line(QColor(110, 110, 110), 0.5));
    p.setBrush(QColor(215, 215, 215));
    p.drawRect(QRectF(body.right() - 9.5, body.bottom() - 3, 4, 2.2));
    p.drawRect(QRectF(body.right() - 5, body.bottom() - 3, 4, 2.2));
}

void drawNewDialogCode(QPainter &p)
{
    window(p, QRectF(1, 1, 11, 9.5), QColor(70, 120, 200));
    p.setPen(line(QColor(110, 110, 110), 0.6));
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(6.5, 7.5, 8.8, 7.5), 1.2, 1.2);
    fitText(p, QRectF(7.6, 8.5, 6.6, 5.5), QStringLiteral("{ }"), QColor(230, 120, 20));
}

void drawNewPicWin(QPainter &p) { picture(p, QRectF(1, 2.5, 14, 11), QColor(120, 80, 40)); }

void drawNewScript(QPainter &p)
{
    sheet(p, QRectF(3, 1, 10, 14));
    p.setPen(flatLine(QColor(40, 90, 200), 0.9));
    p.drawLine(QPointF(4.5, 5), QPointF(9.5, 5));
    p.setPen(flatLine(QColor(200, 50, 50), 0.9));
    p.drawLine(QPointF(6, 7), QPointF(11, 7));
    p.setPen(flatLine(QColor(40, 150, 60), 0.9));
    p.drawLine(QPointF(6, 9), QPointF(10, 9));
    p.setPen(flatLine(QColor(40, 90, 200), 0.9));
    p.drawLine(QPointF(4.5, 11), QPointF(6.5, 11));
    p.setPen(line(QColor(240, 140, 30), 1.0));
    p.setBrush(Qt::NoBrush);
    QPainterPath brace;
    brace.moveTo(11.8, 9.3);
    brace.quadTo(11.0, 9.3, 11.0, 10.5);
    brace.quadTo(11.0, 11.5, 10.4, 11.5);
    brace.quadTo(11.0, 11.5, 11.0, 12.5);
    brace.quadTo(11.0, 13.7, 11.8, 13.7);
    p.drawPath(brace);
}

void drawNewText(QPainter &p)
{
    sheet(p, QRectF(3, 1, 10, 14));
    textLines(p, QRectF(4.5, 5, 6.5, 8), QColor(60, 60, 60), 5, 0.8);
}

// ---------------------------------------------------------------- completion lists

void drawProperty(QPainter &p)
{
    const QColor c(150, 90, 200);
    p.setPen(line(c.darker(150), 0.9));
    p.setBrush(c);
    p.drawPolygon(QPolygonF() << QPointF(8, 1.5) << QPointF(14.5, 8) << QPointF(8, 14.5)
                              << QPointF(1.5, 8));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(8, 8), 1.8, 1.8);
}

namespace {

void identTile(QPainter &p, const QColor &fill, const QColor &border, const QColor &sign,
               qreal borderWidth)
{
    roundedTile(p, fill, border, borderWidth);
    fitText(p, QRectF(4.5, 3.0, 7, 10), QStringLiteral("$"), sign);
}

} // namespace

void drawBuiltIdent(QPainter &p)
{
    identTile(p, QColor(45, 105, 200), QColor(30, 70, 140), Qt::white, 1.0);
}

void drawCustomIdent(QPainter &p)
{
    identTile(p, QColor(45, 150, 65), QColor(25, 100, 40), Qt::white, 1.0);
}

void drawCustomLocalIdent(QPainter &p)
{
    identTile(p, Qt::white, QColor(45, 150, 65), QColor(35, 130, 55), 1.6);
}

// ---------------------------------------------------------------- COM objects

void drawComGeneric(QPainter &p) { cube(p, QPointF(8, 8), 13, QColor(120, 135, 160)); }

void drawComShell(QPainter &p)
{
    p.setPen(line(QColor(60, 60, 60), 1.0));
    p.setBrush(QColor(25, 25, 30));
    p.drawRoundedRect(QRectF(1.5, 2.5, 13, 11), 1.2, 1.2);
    p.setPen(line(QColor(80, 230, 90), 1.3));
    p.drawPolyline(QPolygonF() << QPointF(4, 5.5) << QPointF(6.5, 8) << QPointF(4, 10.5));
    p.setPen(flatLine(QColor(80, 230, 90), 1.3));
    p.drawLine(QPointF(8, 10.8), QPointF(11.5, 10.8));
}

void drawComExplorer(QPainter &p)
{
    folder(p, QRectF(1.0, 2.0, 12.5, 10));
    magnifier(p, QPointF(10.3, 10.3), 2.6, QColor(40, 80, 160), QColor(210, 230, 250),
              QColor(40, 80, 160));
}

void drawComWin(QPainter &p)
{
    window(p, QRectF(1.5, 1.5, 13, 11), QColor(40, 100, 180));
    gear(p, QPointF(10.5, 11), 4.2, QColor(130, 140, 150));
}

void drawComXml(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 11, 13));
    const QColor c(235, 120, 20);
    p.setPen(line(c, 1.3));
    p.drawPolyline(QPolygonF() << QPointF(6.5, 6.5) << QPointF(4.5, 9) << QPointF(6.5, 11.5));
    p.drawPolyline(QPolygonF() << QPointF(9.5, 6.5) << QPointF(11.5, 9) << QPointF(9.5, 11.5));
    p.setPen(line(c.darker(130), 1.0));
    p.drawLine(QPointF(8.8, 6), QPointF(7.2, 12));
}

void drawComSkype(QPainter &p)
{
    badge(p, QPointF(8, 8), 6.9, QColor(30, 160, 225));
    // A telephone handset: a curved grip with an ear and a mouth piece.
    QPainterPath grip;
    grip.moveTo(4.5, 6.0);
    grip.quadTo(5.0, 11.5, 10.8, 11.8);
    p.setPen(line(Qt::white, 1.8));
    p.setBrush(Qt::NoBrush);
    p.drawPath(grip);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(3.3, 3.8, 2.6, 3.0), 0.8, 0.8);
    p.drawRoundedRect(QRectF(9.8, 10.3, 3.0, 2.6), 0.8, 0.8);
}

void drawComItunes(QPainter &p)
{
    p.setPen(line(QColor(210, 60, 150), 1.3));
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(8, 8), 6.6, 6.6);
    const QColor note(170, 50, 190);
    p.setPen(flatLine(note, 1.2));
    p.drawLine(QPointF(7.4, 10.8), QPointF(7.4, 4.2));
    p.drawLine(QPointF(11.0, 10.0), QPointF(11.0, 3.6));
    p.setPen(flatLine(note, 1.6));
    p.drawLine(QPointF(7.4, 4.4), QPointF(11.0, 3.8));
    p.setPen(Qt::NoPen);
    p.setBrush(note);
    p.drawEllipse(QPointF(6.1, 10.9), 1.5, 1.2);
    p.drawEllipse(QPointF(9.7, 10.1), 1.5, 1.2);
}

void drawComApp(QPainter &p)
{
    const QRectF body = window(p, QRectF(1.5, 1.5, 13, 13), QColor(90, 140, 210));
    p.setPen(line(QColor(40, 80, 150), 0.8));
    p.setBrush(QColor(90, 150, 230));
    const QPointF c = body.center();
    p.drawPolygon(QPolygonF() << c + QPointF(0, -3.2) << c + QPointF(3.2, 0)
                              << c + QPointF(0, 3.2) << c + QPointF(-3.2, 0));
}

void drawComSnagit(QPainter &p)
{
    const QColor c(215, 45, 45);
    p.setPen(flatLine(c, 1.6));
    p.drawPolyline(QPolygonF() << QPointF(1.5, 5.5) << QPointF(1.5, 1.5) << QPointF(5.5, 1.5));
    p.drawPolyline(QPolygonF() << QPointF(10.5, 1.5) << QPointF(14.5, 1.5) << QPointF(14.5, 5.5));
    p.drawPolyline(QPolygonF() << QPointF(14.5, 10.5) << QPointF(14.5, 14.5) << QPointF(10.5, 14.5));
    p.drawPolyline(QPolygonF() << QPointF(5.5, 14.5) << QPointF(1.5, 14.5) << QPointF(1.5, 10.5));
    badge(p, QPointF(8, 8), 3.4, QColor(60, 60, 70));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 180, 240));
    p.drawEllipse(QPointF(8, 8), 1.8, 1.8);
}

void drawComWord(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 11, 13));
    p.setPen(flatLine(QColor(40, 85, 170), 2.0));
    p.drawLine(QPointF(4.5, 5), QPointF(9, 5));
    textLines(p, QRectF(4.5, 8, 7, 4.5), QColor(40, 85, 170), 4);
}

void drawComExcel(QPainter &p)
{
    const QColor c(30, 125, 60);
    p.setPen(line(c.darker(130), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(1.5, 1.5, 13, 13));
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawRect(QRectF(1.5, 1.5, 13, 3));
    p.setPen(flatLine(c, 0.8));
    for (qreal y : { 7.5, 10.5 })
        p.drawLine(QPointF(1.5, y), QPointF(14.5, y));
    for (qreal x : { 5.5, 10.0 })
        p.drawLine(QPointF(x, 4.5), QPointF(x, 14.5));
}

void drawComPowerPoint(QPainter &p)
{
    const QColor c(215, 90, 40);
    p.setPen(line(c.darker(140), 1.0));
    p.setBrush(QColor(255, 240, 230));
    p.drawRect(QRectF(1.5, 2.5, 13, 10));
    p.setPen(line(c.darker(140), 0.7));
    p.setBrush(c);
    p.drawPie(QRectF(3, 4, 7, 7), 90 * 16, 270 * 16);
    p.setBrush(QColor(250, 190, 60));
    p.drawPie(QRectF(3.6, 3.4, 7, 7), 0, 90 * 16);
    p.setPen(flatLine(c, 1.0));
    p.drawLine(QPointF(11.5, 6), QPointF(13.5, 6));
    p.drawLine(QPointF(11.5, 8.5), QPointF(13.5, 8.5));
    p.setPen(line(kOutline, 1.0));
    p.drawLine(QPointF(8, 12.5), QPointF(8, 14.5));
    p.drawLine(QPointF(5.5, 14.5), QPointF(10.5, 14.5));
}

void drawComAccess(QPainter &p)
{
    const QColor c(160, 30, 50);
    p.setPen(line(c.darker(130), 1.8));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(5, 5), 3.0, 3.0);
    p.drawLine(QPointF(7.2, 7.2), QPointF(14, 14));
    p.drawLine(QPointF(11.0, 11.0), QPointF(12.8, 9.2));
    p.drawLine(QPointF(12.8, 12.8), QPointF(14.6, 11.0));
}

void drawComIe(QPainter &p)
{
    const QRectF body = window(p, QRectF(1.5, 1.5, 13, 13), QColor(60, 120, 200));
    const QPointF c = body.center();
    badge(p, c, 3.6, QColor(70, 150, 230));
    p.setPen(line(Qt::white, 0.7));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c, 1.5, 3.6);
    p.drawLine(c - QPointF(3.6, 0), c + QPointF(3.6, 0));
}

void drawComFrontPage(QPainter &p)
{
    const QRectF body = window(p, QRectF(1.5, 1.5, 12, 12), QColor(30, 110, 140));
    textLines(p, QRectF(body.left() + 1, body.top() + 1.5, 6, 4), kTextGrey, 3);
    // A pencil across the page.
    p.setPen(line(QColor(90, 60, 20), 0.7));
    p.setBrush(QColor(245, 190, 50));
    p.drawPolygon(QPolygonF() << QPointF(9.0, 13.5) << QPointF(14.5, 8.0) << QPointF(15.8, 9.3)
                              << QPointF(10.3, 14.8));
    p.setBrush(QColor(240, 210, 170));
    p.drawPolygon(QPolygonF() << QPointF(9.0, 13.5) << QPointF(10.3, 14.8) << QPointF(8.2, 15.6));
}

void drawComOutlook(QPainter &p)
{
    const QColor c(0, 100, 190);
    p.setPen(line(c.darker(140), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(1.5, 2.5, 13, 12));
    p.setBrush(c);
    p.drawRect(QRectF(1.5, 2.5, 13, 3.5));
    p.setPen(line(QColor(80, 80, 80), 1.2));
    p.drawLine(QPointF(5, 1), QPointF(5, 3.5));
    p.drawLine(QPointF(11, 1), QPointF(11, 3.5));
    p.setPen(Qt::NoPen);
    p.setBrush(c.lighter(130));
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 4; ++col)
            p.drawRect(QRectF(3 + col * 2.7, 7.5 + row * 2.3, 1.6, 1.4));
}

void drawComPhotoshop(QPainter &p)
{
    p.setPen(line(QColor(40, 120, 210), 2.2));
    p.setBrush(Qt::NoBrush);
    QPainterPath stroke;
    stroke.moveTo(1.8, 13.8);
    stroke.cubicTo(4.0, 10.0, 6.0, 15.0, 8.0, 11.0);
    p.drawPath(stroke);
    p.setPen(line(QColor(90, 55, 25), 0.7));
    p.setBrush(QColor(150, 95, 45));
    p.drawPolygon(QPolygonF() << QPointF(8.8, 8.0) << QPointF(14.0, 1.2) << QPointF(15.2, 2.2)
                              << QPointF(10.2, 9.2));
    p.setBrush(QColor(180, 185, 195));
    p.drawPolygon(QPolygonF() << QPointF(7.8, 7.4) << QPointF(9.4, 6.6) << QPointF(11.0, 8.4)
                              << QPointF(10.0, 9.8));
    p.setBrush(QColor(40, 120, 210));
    p.drawEllipse(QPointF(8.2, 10.2), 1.9, 1.9);
}

void drawComAdobe(QPainter &p)
{
    sheet(p, QRectF(2.5, 1.5, 11, 13));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 25, 30));
    p.drawRect(QRectF(3, 9, 10, 5));
    textLines(p, QRectF(4.5, 4.5, 6, 2.5), kTextGrey, 2);
    fitText(p, QRectF(4.0, 10.0, 8, 3), QStringLiteral("PDF"), Qt::white);
}

void drawComEmail(QPainter &p)
{
    p.setPen(line(QColor(120, 110, 80), 1.0));
    p.setBrush(QColor(252, 244, 210));
    p.drawRect(QRectF(1.5, 3.5, 13, 9));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(QPolygonF() << QPointF(1.5, 3.5) << QPointF(8, 8.8) << QPointF(14.5, 3.5));
    p.setPen(line(QColor(120, 110, 80), 0.7));
    p.drawLine(QPointF(1.5, 12.5), QPointF(6.0, 8.0));
    p.drawLine(QPointF(14.5, 12.5), QPointF(10.0, 8.0));
}

void drawComDatabase(QPainter &p) { cylinder(p, QRectF(2.5, 1.5, 11, 13), QColor(110, 140, 180)); }

void drawComLotus(QPainter &p)
{
    const QColor petal(245, 200, 40);
    p.setPen(line(petal.darker(150), 0.6));
    p.setBrush(petal);
    for (int i = 0; i < 5; ++i) {
        p.save();
        p.translate(8, 8);
        p.rotate(i * 72);
        p.drawEllipse(QPointF(0, -3.8), 2.3, 3.6);
        p.restore();
    }
    badge(p, QPointF(8, 8), 2.3, QColor(230, 110, 30));
}

void drawComJava(QPainter &p)
{
    const QColor cup(150, 85, 40);
    p.setPen(line(QColor(160, 160, 160), 1.0));
    p.setBrush(Qt::NoBrush);
    QPainterPath steam;
    steam.moveTo(6, 6.0);
    steam.cubicTo(4.5, 4.5, 7.5, 3.0, 6, 1.0);
    steam.moveTo(9, 6.0);
    steam.cubicTo(7.5, 4.5, 10.5, 3.0, 9, 1.0);
    p.drawPath(steam);
    p.setPen(line(cup.darker(140), 1.3));
    p.drawArc(QRectF(10.0, 8.0, 4.4, 4.0), -90 * 16, 180 * 16);
    p.setPen(line(cup.darker(140), 0.8));
    p.setBrush(cup);
    QPainterPath body;
    body.moveTo(2.5, 7.5);
    body.lineTo(12.0, 7.5);
    body.lineTo(11.0, 13.0);
    body.quadTo(10.6, 14.5, 9.0, 14.5);
    body.lineTo(5.5, 14.5);
    body.quadTo(3.9, 14.5, 3.5, 13.0);
    body.closeSubpath();
    p.drawPath(body);
}

void drawComGlobe(QPainter &p)
{
    badge(p, QPointF(8, 8), 6.8, QColor(60, 140, 220));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(70, 170, 70));
    p.drawEllipse(QRectF(3.0, 4.0, 4.5, 4.0));
    p.drawEllipse(QRectF(8.5, 8.0, 4.5, 4.5));
    p.setPen(line(QColor(255, 255, 255, 170), 0.6));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(8, 8), 3.0, 6.8);
    p.drawLine(QPointF(1.2, 8), QPointF(14.8, 8));
}

void drawComDll(QPainter &p)
{
    const QColor c(130, 80, 190);
    QPainterPath piece;
    piece.addRect(QRectF(2, 4, 10, 10));
    QPainterPath knob;
    knob.addEllipse(QPointF(7, 3.2), 2.2, 2.2);
    knob.addEllipse(QPointF(12.8, 9), 2.2, 2.2);
    QPainterPath socket;
    socket.addEllipse(QPointF(2, 9), 1.8, 1.8);
    p.setPen(line(c.darker(150), 0.9));
    p.setBrush(c);
    p.drawPath(piece.united(knob).subtracted(socket));
}

void drawComImageMagick(QPainter &p)
{
    p.setPen(line(QColor(30, 30, 30), 2.0));
    p.drawLine(QPointF(2.2, 13.8), QPointF(9.0, 7.0));
    p.setPen(line(Qt::white, 2.0));
    p.drawLine(QPointF(8.0, 8.0), QPointF(9.0, 7.0));
    QPolygonF star;
    for (int i = 0; i < 10; ++i) {
        const qreal a = i * M_PI / 5 - M_PI / 2;
        const qreal r = (i % 2 == 0) ? 4.6 : 1.9;
        star << QPointF(11.0 + r * qCos(a), 5.0 + r * qSin(a));
    }
    p.setPen(line(QColor(200, 140, 0), 0.7));
    p.setBrush(QColor(250, 215, 40));
    p.drawPolygon(star);
}

void drawComOracle(QPainter &p) { cylinder(p, QRectF(3.5, 1.5, 9, 13), QColor(200, 40, 40)); }

void drawComSql(QPainter &p)
{
    const QColor c(110, 70, 170);
    p.setPen(line(c.darker(130), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(1.5, 2.5, 13, 11));
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawRect(QRectF(1.5, 2.5, 13, 3));
    p.setBrush(QColor(240, 200, 60));
    p.drawRect(QRectF(2, 6, 3, 7));
    p.setPen(flatLine(c.lighter(130), 0.8));
    p.drawLine(QPointF(1.5, 8.5), QPointF(14.5, 8.5));
    p.drawLine(QPointF(1.5, 11), QPointF(14.5, 11));
    p.drawLine(QPointF(9.5, 5.5), QPointF(9.5, 13.5));
}

void drawComVirtualBox(QPainter &p)
{
    p.setPen(line(QColor(60, 60, 80), 1.0));
    p.setBrush(QColor(40, 50, 80));
    p.drawRoundedRect(QRectF(1.5, 1.5, 13, 9.5), 1, 1);
    p.setPen(line(QColor(60, 60, 80), 1.2));
    p.drawLine(QPointF(8, 11), QPointF(8, 13.5));
    p.drawLine(QPointF(4.5, 14.2), QPointF(11.5, 14.2));
    cube(p, QPointF(8, 6.3), 7.2, QColor(120, 90, 200));
}

void drawComUnity(QPainter &p)
{
    cube(p, QPointF(8, 8), 13.5, QColor(235, 235, 235));
    p.setPen(line(QColor(30, 30, 30), 1.1));
    p.setBrush(Qt::NoBrush);
    const qreal s = 6.75;
    p.drawPolygon(QPolygonF() << QPointF(8, 8 - s) << QPointF(8 + s * 0.87, 8 - s / 2)
                              << QPointF(8 + s * 0.87, 8 + s / 2) << QPointF(8, 8 + s)
                              << QPointF(8 - s * 0.87, 8 + s / 2) << QPointF(8 - s * 0.87, 8 - s / 2));
    p.drawLine(QPointF(8, 8), QPointF(8, 8 + s));
    p.drawLine(QPointF(8, 8), QPointF(8 - s * 0.87, 8 - s / 2));
    p.drawLine(QPointF(8, 8), QPointF(8 + s * 0.87, 8 - s / 2));
}

// ---------------------------------------------------------------- gutter

const QColor kFoldBlock(85, 95, 115);
const QColor kFoldGroup(50, 140, 70);

void drawFoldExpanded(QPainter &p)
{
    triangle(p, QPointF(3.5, 5.5), QPointF(12.5, 5.5), QPointF(8, 11.5), kFoldBlock);
}

void drawFoldRight(QPainter &p)
{
    triangle(p, QPointF(5.5, 3.5), QPointF(5.5, 12.5), QPointF(11.5, 8), kFoldBlock);
}

namespace {

// The frame is kept pale so that the arrow inside carries the picture.
void groupBox(QPainter &p)
{
    p.setPen(line(QColor(165, 205, 170), 1.0));
    p.setBrush(QColor(232, 245, 232));
    p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 2, 2);
}

} // namespace

void drawFoldExpanded2(QPainter &p)
{
    groupBox(p);
    triangle(p, QPointF(4.0, 5.5), QPointF(12.0, 5.5), QPointF(8, 10.8), kFoldGroup);
}

void drawFoldRight2(QPainter &p)
{
    groupBox(p);
    triangle(p, QPointF(5.5, 4.0), QPointF(5.5, 12.0), QPointF(10.8, 8), kFoldGroup);
}

// ---------------------------------------------------------------- find bar

namespace {

void searchGlass(QPainter &p, const QColor &c)
{
    magnifier(p, QPointF(6.5, 6.5), 4.6, c.darker(125), c.lighter(140), c.darker(150));
}

} // namespace

void drawMagnify(QPainter &p)
{
    magnifier(p, QPointF(6.5, 6.5), 4.6, QColor(95, 95, 105), QColor(205, 228, 250),
              QColor(95, 70, 55));
}

void drawSearchGreen(QPainter &p) { searchGlass(p, kGreen); }
void drawSearchRed(QPainter &p) { searchGlass(p, kRed); }
void drawSearchBlue(QPainter &p) { searchGlass(p, kBlue); }
void drawSearchOrange(QPainter &p) { searchGlass(p, kOrange); }

void drawPrevious(QPainter &p)
{
    arrow(p, QPointF(14.5, 8), QPointF(1.5, 8), QColor(50, 120, 205), 3.2, 10, 6);
}

void drawNext(QPainter &p)
{
    arrow(p, QPointF(1.5, 8), QPointF(14.5, 8), QColor(50, 120, 205), 3.2, 10, 6);
}

void drawClose(QPainter &p) { crossMark(p, QPointF(8, 8), 4, QColor(105, 105, 110), 2.0); }

// ---------------------------------------------------------------- dialog builder

void drawFrmIcon(QPainter &p)
{
    const QRectF body = window(p, QRectF(1, 1.5, 14, 13), QColor(50, 100, 170));
    field(p, QRectF(body.left() + 1, body.top() + 1.2, body.width() - 2, 2.2));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(60, 60, 60));
    p.drawRect(QRectF(body.left() + 1.8, body.top() + 1.8, 0.5, 1.0));
    p.setPen(line(QColor(110, 110, 110), 0.6));
    p.setBrush(QColor(214, 214, 214));
    p.drawRoundedRect(QRectF(body.right() - 5.5, body.bottom() - 3.2, 4.5, 2.4), 0.5, 0.5);
}

namespace {

void gridDots(QPainter &p, const QColor &c)
{
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            p.drawRect(QRectF(1.5 + i * 4, 1.5 + j * 4, 1.2, 1.2));
}

} // namespace

void drawAlignToGrid(QPainter &p)
{
    gridDots(p, QColor(120, 120, 120));
    p.setPen(line(QColor(40, 90, 170), 1.0));
    p.setBrush(QColor(130, 175, 235));
    p.drawRect(QRectF(6.1, 6.1, 8, 8));
    arrow(p, QPointF(1.5, 1.5), QPointF(5.6, 5.6), QColor(230, 120, 20), 1.4, 4.2, 2.6);
}

void drawGrid(QPainter &p) { gridDots(p, QColor(50, 50, 50)); }

void drawGridPlus(QPainter &p)
{
    gridDots(p, QColor(140, 140, 140));
    badge(p, QPointF(11.3, 11.3), 4.2, QColor(50, 165, 60));
    plusMark(p, QPointF(11.3, 11.3), 2.3, Qt::white, 1.6);
}

void drawGridMinus(QPainter &p)
{
    gridDots(p, QColor(140, 140, 140));
    badge(p, QPointF(11.3, 11.3), 4.2, QColor(215, 50, 45));
    minusMark(p, QPointF(11.3, 11.3), 2.3, Qt::white, 1.6);
}

void drawSelectable(QPainter &p)
{
    QPen dashed(QColor(40, 100, 200), 1.0);
    dashed.setDashPattern({ 2, 1.5 });
    p.setPen(dashed);
    p.setBrush(QColor(40, 100, 200, 40));
    p.drawRect(QRectF(1.5, 1.5, 10, 10));
    QPolygonF pointer;
    pointer << QPointF(7, 6) << QPointF(7, 15.3) << QPointF(9.2, 13.2) << QPointF(10.8, 16)
            << QPointF(12.4, 15.2) << QPointF(11, 12.4) << QPointF(14, 12.2);
    p.setPen(line(Qt::black, 0.9));
    p.setBrush(Qt::white);
    p.drawPolygon(pointer);
}

void drawGenerate(QPainter &p)
{
    sheet(p, QRectF(1.5, 1.5, 9.5, 12.5));
    textLines(p, QRectF(3, 5, 5, 5), QColor(80, 110, 180), 4);
    badge(p, QPointF(11.3, 11.3), 4.3, QColor(50, 165, 60));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF() << QPointF(9.9, 9.0) << QPointF(9.9, 13.6) << QPointF(13.6, 11.3));
}

// ---------------------------------------------------------------- builder toolbox

void drawTbButton(QPainter &p)
{
    QLinearGradient g(0, 4, 0, 12);
    g.setColorAt(0, Qt::white);
    g.setColorAt(1, QColor(200, 200, 205));
    p.setPen(line(QColor(100, 100, 105), 1.0));
    p.setBrush(g);
    p.drawRoundedRect(QRectF(1.5, 4.5, 13, 7), 1.5, 1.5);
    p.setPen(flatLine(QColor(40, 40, 40), 1.2));
    p.drawLine(QPointF(5, 8), QPointF(11, 8));
}

void drawTbEdit(QPainter &p)
{
    field(p, QRectF(1.5, 4.5, 13, 7));
    p.setPen(flatLine(Qt::black, 1.0));
    p.drawLine(QPointF(4.5, 6), QPointF(4.5, 10));
    p.drawLine(QPointF(3.5, 6), QPointF(5.5, 6));
    p.drawLine(QPointF(3.5, 10), QPointF(5.5, 10));
}

void drawTbPass(QPainter &p)
{
    field(p, QRectF(1.5, 4.5, 13, 7));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    for (int i = 0; i < 4; ++i)
        p.drawEllipse(QPointF(4.2 + i * 2.5, 8), 0.95, 0.95);
}

void drawTbRich(QPainter &p)
{
    field(p, QRectF(1.5, 1.5, 13, 13));
    const struct { QColor c; qreal y; qreal x2; } rows[] = {
        { QColor(210, 40, 40), 4.5, 12 }, { QColor(40, 90, 210), 7.5, 10 },
        { QColor(40, 150, 60), 10.5, 12.5 }, { Qt::black, 12.8, 8 } };
    for (const auto &row : rows) {
        p.setPen(flatLine(row.c, 1.4));
        p.drawLine(QPointF(3.5, row.y), QPointF(row.x2, row.y));
    }
}

void drawTbText(QPainter &p) { fitText(p, QRectF(2.5, 2.5, 11, 11), QStringLiteral("A"), QColor(30, 30, 30)); }

void drawTbLink(QPainter &p)
{
    fitText(p, QRectF(1.5, 3.0, 13, 8), QStringLiteral("ab"), QColor(0, 0, 220), false);
    p.setPen(flatLine(QColor(0, 0, 220), 1.0));
    p.drawLine(QPointF(1.5, 12.5), QPointF(14.5, 12.5));
}

void drawTbCombo(QPainter &p)
{
    field(p, QRectF(1.5, 4.5, 13, 7));
    p.setPen(flatLine(QColor(120, 120, 120), 1.0));
    p.setBrush(QColor(215, 215, 220));
    p.drawRect(QRectF(9.5, 4.5, 5, 7));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawPolygon(QPolygonF() << QPointF(10.5, 7) << QPointF(13.5, 7) << QPointF(12, 9.2));
    p.setPen(flatLine(QColor(60, 60, 60), 1.0));
    p.drawLine(QPointF(3.5, 8), QPointF(7.5, 8));
}

void drawTbList(QPainter &p)
{
    field(p, QRectF(1.5, 1.5, 13, 13));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(50, 110, 210));
    p.drawRect(QRectF(2, 6, 12, 3));
    p.setPen(flatLine(QColor(90, 90, 90), 1.0));
    p.drawLine(QPointF(3, 3.5), QPointF(11, 3.5));
    p.drawLine(QPointF(3, 10.5), QPointF(10, 10.5));
    p.drawLine(QPointF(3, 12.5), QPointF(12, 12.5));
    p.setPen(flatLine(Qt::white, 1.0));
    p.drawLine(QPointF(3, 7.5), QPointF(12, 7.5));
}

namespace {

// Markers of list rows are only four pixels across: kept on whole pixels,
// so that they stay sharp.
void smallCheck(QPainter &p, qreal y, bool ticked)
{
    p.setPen(flatLine(QColor(80, 80, 80), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(3.5, y - 1.5, 3, 3));
    if (ticked) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(30, 140, 40));
        p.drawRect(QRectF(4, y - 1, 2, 2));
    }
}

void smallRadio(QPainter &p, qreal y, bool on)
{
    p.setPen(line(QColor(80, 80, 80), 0.8));
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(5, y), 1.4, 1.4);
    if (on) {
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::black);
        p.drawEllipse(QPointF(5, y), 0.8, 0.8);
    }
}

void listRows(QPainter &p, const std::function<void(int row, qreal y)> &marker)
{
    field(p, QRectF(1.5, 0.5, 13, 15));
    for (int row = 0; row < 3; ++row) {
        const qreal y = 3 + row * 5;
        marker(row, y);
        p.setPen(flatLine(QColor(90, 90, 90), 1.0));
        p.drawLine(QPointF(8, y + 0.5), QPointF(row == 1 ? 11 : 13, y + 0.5));
    }
}

} // namespace

void drawTbCheckList(QPainter &p)
{
    listRows(p, [&p](int row, qreal y) { smallCheck(p, y, row != 1); });
}

void drawTbRadioList(QPainter &p)
{
    listRows(p, [&p](int row, qreal y) { smallRadio(p, y + 0.5, row == 0); });
}

void drawTbCheck(QPainter &p)
{
    p.setPen(flatLine(QColor(70, 70, 70), 1.0));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(2.5, 2.5, 11, 11));
    p.setPen(line(QColor(30, 120, 40), 1.8));
    p.drawPolyline(QPolygonF() << QPointF(4.8, 8.2) << QPointF(7.2, 10.8) << QPointF(11.4, 5.0));
}

void drawTbRadio(QPainter &p)
{
    p.setPen(line(QColor(70, 70, 70), 1.0));
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(8, 8), 5.5, 5.5);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 30, 30));
    p.drawEllipse(QPointF(8, 8), 2.5, 2.5);
}

void drawTbIcon(QPainter &p) { picture(p, QRectF(1.5, 2.5, 13, 11), QColor(90, 90, 90)); }

void drawTbBox(QPainter &p)
{
    p.setPen(flatLine(QColor(130, 130, 130), 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(1.5, 4.5, 13, 10));
    p.setPen(Qt::NoPen);
    p.setBrush(kToolbarGrey);
    p.drawRect(QRectF(3, 3.5, 7, 2));
    p.setPen(flatLine(QColor(30, 30, 30), 1.2));
    p.drawLine(QPointF(3.5, 4.5), QPointF(9.5, 4.5));
}

void drawTbTab(QPainter &p)
{
    p.setPen(flatLine(QColor(110, 110, 110), 1.0));
    p.setBrush(QColor(175, 175, 182));
    p.drawRect(QRectF(7.5, 3.5, 5, 3));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(1.5, 5.5, 13, 9));
    p.drawRect(QRectF(1.5, 1.5, 6, 4));
    p.setPen(Qt::NoPen);
    p.drawRect(QRectF(2, 5, 5, 1.1));
    p.setPen(flatLine(QColor(130, 130, 140), 1.0));
    p.drawLine(QPointF(3.5, 3.5), QPointF(5.5, 3.5));
    p.drawLine(QPointF(3.5, 9.5), QPointF(12.5, 9.5));
    p.drawLine(QPointF(3.5, 11.5), QPointF(9.5, 11.5));
}

void drawTbTabPage(QPainter &p)
{
    p.setPen(flatLine(QColor(110, 110, 110), 1.0));
    p.setBrush(QColor(255, 252, 235));
    QPainterPath page;
    page.moveTo(2.5, 14.5);
    page.lineTo(2.5, 1.5);
    page.lineTo(7.5, 1.5);
    page.lineTo(7.5, 4.5);
    page.lineTo(13.5, 4.5);
    page.lineTo(13.5, 14.5);
    page.closeSubpath();
    p.drawPath(page);
    textLines(p, QRectF(4.5, 7.5, 7, 5), QColor(120, 120, 130), 3);
}

void drawTbVScroll(QPainter &p)
{
    p.setPen(flatLine(QColor(130, 130, 130), 1.0));
    p.setBrush(QColor(222, 222, 222));
    p.drawRect(QRectF(4.5, 0.5, 7, 15));
    p.setBrush(QColor(200, 200, 205));
    p.drawRect(QRectF(4.5, 0.5, 7, 4));
    p.drawRect(QRectF(4.5, 11.5, 7, 4));
    p.setBrush(QColor(150, 150, 155));
    p.drawRect(QRectF(5.5, 6, 5, 3.5));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawPolygon(QPolygonF() << QPointF(8, 1.6) << QPointF(10, 3.6) << QPointF(6, 3.6));
    p.drawPolygon(QPolygonF() << QPointF(8, 14.4) << QPointF(10, 12.4) << QPointF(6, 12.4));
}

void drawTbHScroll(QPainter &p)
{
    // The same bar, lying down.
    p.translate(8, 8);
    p.rotate(-90);
    p.translate(-8, -8);
    drawTbVScroll(p);
}

// ---------------------------------------------------------------- status bar

void drawRuler(QPainter &p)
{
    p.setPen(line(QColor(150, 110, 40), 1.0));
    p.setBrush(QColor(240, 200, 95));
    p.drawRect(QRectF(0.5, 4.5, 15, 7));
    p.setPen(flatLine(QColor(90, 60, 20), 1.0));
    for (int i = 0; i < 7; ++i) {
        const qreal x = 2.5 + i * 2;
        p.drawLine(QPointF(x, 4.5), QPointF(x, 4.5 + (i % 2 == 0 ? 4 : 2)));
    }
}

void drawWindowSize(QPainter &p)
{
    const QRectF body = window(p, QRectF(1.5, 1.5, 13, 13), QColor(70, 120, 200));
    const QColor c(40, 40, 40);
    const QPointF a = body.bottomLeft() + QPointF(1.5, -1.5);
    const QPointF b = body.topRight() + QPointF(-1.5, 1.5);
    p.setPen(line(c, 1.0));
    p.drawLine(a, b);
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawPolygon(QPolygonF() << a << a + QPointF(3, 0) << a + QPointF(0, -3));
    p.drawPolygon(QPolygonF() << b << b + QPointF(-3, 0) << b + QPointF(0, 3));
}

// ---------------------------------------------------------------- desktop icon

void drawAppIcon(QPainter &p)
{
    QLinearGradient g(0, 0, 16, 16);
    g.setColorAt(0, QColor(42, 111, 158));
    g.setColorAt(1, QColor(23, 62, 99));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawRoundedRect(QRectF(0.5, 0.5, 15, 15), 3.2, 3.2);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(2.6, 3.0, 8.0, 2.5));
    p.drawRect(QRectF(5.35, 3.0, 2.5, 10.0));
    QPainterPath brace;
    brace.moveTo(10.4, 3.0);
    brace.quadTo(12.2, 3.0, 12.2, 5.0);
    brace.lineTo(12.2, 6.6);
    brace.quadTo(12.2, 8.0, 13.8, 8.0);
    brace.quadTo(12.2, 8.0, 12.2, 9.4);
    brace.lineTo(12.2, 11.0);
    brace.quadTo(12.2, 13.0, 10.4, 13.0);
    p.setPen(line(QColor(247, 160, 40), 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(brace);
}
