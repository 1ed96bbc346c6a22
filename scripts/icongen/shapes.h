// The palette and the plain shapes every picture is built from: pens, text
// fitted into a box, arrows, sheets, folders, badges, a magnifier and so on.
// All of them draw on the 16-unit grid the pictures share.

#pragma once

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QString>

// ---------------------------------------------------------------- palette

inline const QColor kOutline(90, 90, 90);
inline const QColor kPaperShade(222, 226, 232);
inline const QColor kTextGrey(150, 156, 166);
inline const QColor kToolbarGrey(240, 240, 240);

inline const QColor kBlue(41, 110, 220);
inline const QColor kGreen(46, 160, 60);
inline const QColor kGrey(140, 140, 140);
inline const QColor kOrange(245, 140, 30);
inline const QColor kRed(220, 40, 40);
inline const QColor kYellow(245, 215, 30);

// ---------------------------------------------------------------- shapes

QPen line(const QColor &c, qreal width = 1.0);
QPen flatLine(const QColor &c, qreal width = 1.0);

// Text as a filled outline, fitted into a box: independent of the screen
// resolution, so every run draws the same pixels.
void fitText(QPainter &p, const QRectF &box, const QString &text, const QColor &c,
             bool bold = true);

// A solid arrow from `from` to `to`, the head ending at `to`.
void arrow(QPainter &p, QPointF from, QPointF to, const QColor &c, qreal shaft = 2.6,
           qreal headWidth = 8.0, qreal headLength = 5.0);

void triangle(QPainter &p, QPointF a, QPointF b, QPointF c, const QColor &fill);

// A sheet of paper with a folded corner.
void sheet(QPainter &p, const QRectF &r, const QColor &fill = Qt::white);

// Lines of text of varying length, evenly spread over `r`.
void textLines(QPainter &p, const QRectF &r, const QColor &c, int count, qreal width = 1.0);

void badge(QPainter &p, QPointF c, qreal radius, const QColor &fill);

void plusMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width);
void minusMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width);
void crossMark(QPainter &p, QPointF c, qreal half, const QColor &color, qreal width);

// A plus or minus of two strokes: a dark rim under a bright core.
void boldPlus(QPainter &p, QPointF c, qreal half, const QColor &color);
void boldMinus(QPainter &p, QPointF c, qreal half, const QColor &color);

void floppy(QPainter &p, const QRectF &r, const QColor &body);
void folder(QPainter &p, const QRectF &r, const QColor &c = QColor(240, 190, 60));
void magnifier(QPainter &p, QPointF c, qreal radius, const QColor &rim, const QColor &glass,
               const QColor &handle);

// A little application window: title bar, close box, grey body.
QRectF window(QPainter &p, const QRectF &r, const QColor &title);

void padlock(QPainter &p, const QRectF &r);

void picture(QPainter &p, const QRectF &r, const QColor &frame);

// A message bubble in one colour, its tail at the lower left.
void bubble(QPainter &p, const QColor &c);

void roundedTile(QPainter &p, const QColor &fill, const QColor &border, qreal borderWidth = 1.0);

void cylinder(QPainter &p, const QRectF &r, const QColor &c);
void cube(QPainter &p, QPointF centre, qreal size, const QColor &c);
void gear(QPainter &p, QPointF c, qreal outer, const QColor &color, int teeth = 8);

// A white field of a form, as edit boxes and lists are drawn.
void field(QPainter &p, const QRectF &r);
