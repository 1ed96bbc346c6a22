#ifndef BUILDERSUPPORT_H
#define BUILDERSUPPORT_H

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWidget>

// Enter, move to pos and drop, as a drag from the toolbox or from a control
// delivers them; returns whether the surface took the drag on entering.
inline bool replayDrag(QWidget *target, const QString &format, const QByteArray &data,
                       const QPoint &pos)
{
    QMimeData mime;
    mime.setData(format, data);
    QDragEnterEvent enter(pos, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                          Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(target, &enter);
    QDragMoveEvent move(pos, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(target, &move);
    QDropEvent drop(QPointF(pos), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    return enter.isAccepted();
}

inline void press(QWidget *target, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(pos), target->mapToGlobal(QPointF(pos)),
                      button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

#endif // BUILDERSUPPORT_H
