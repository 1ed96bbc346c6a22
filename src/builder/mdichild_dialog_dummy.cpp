#include "mdichild_dialog_dummy.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolTip>
#include <QWidgetAction>

namespace {

// The control kinds in the order in which a drag's formats are tested.
const char *const controlKinds[] = {
    "button", "edit", "pass", "rich", "text", "link", "combo", "list", "checkList",
    "check", "radioList", "radio", "icon", "box", "tab", "vscroll", "hscroll",
};

const char movedFormat[] = "gui.moved";
const char resizeFormat[] = "gui.resize";

// Handle codes carried by a resize drag.
enum HandleCode { TopRight = 4, TopLeft = 5, BottomRight = 6, BottomLeft = 7 };

} // namespace

// ---------------------------------------------------------------- Mnu

Mnu::Mnu(QObject *parent, QMenuBar *bar)
    : QObject(parent)
    , parentBar(bar)
{
    menuEntry = new QMenu(QStringLiteral("Add Menu"), bar);
    bar->addMenu(menuEntry);
    setupEntry();
}

Mnu::Mnu(QObject *parent, QMenu *menu)
    : QObject(parent)
    , menuEntry(menu)
{
    setupEntry();
}

void Mnu::setupEntry()
{
    textEntry = new QLineEdit(menuEntry);
    dummyAction = new QWidgetAction(menuEntry);
    dummyAction->setDefaultWidget(textEntry);
    menuEntry->addAction(dummyAction);
    connect(textEntry, &QLineEdit::returnPressed, this, &Mnu::enterPressed);
}

void Mnu::enterPressed()
{
    // The new submenu goes in front of the entry line, so that every menu
    // keeps its entry line as its last item.
    auto *submenu = new QMenu(textEntry->text(), menuEntry);
    menuEntry->insertMenu(dummyAction, submenu);
    new Mnu(parent(), submenu);
    textEntry->clear();
}

// ---------------------------------------------------------------- construction

MdiChildDialogDummy::MdiChildDialogDummy(QWidget *parent)
    : QMainWindow(parent, Qt::CustomizeWindowHint)
{
    setWindowTitle(QStringLiteral("Input Request"));
    setMinimumSize(300, 250);
    setAcceptDrops(true);
    setUpDraggables();
    setAttribute(Qt::WA_MouseTracking, true);
    setWindowIcon(QIcon(QStringLiteral(":/general/resources/img_assets/frmIcon.png")));

    menubar = new QMenuBar(this);
    menu = new Mnu(this, menubar);
    setMenuBar(menubar);
}

MdiChildDialogDummy::~MdiChildDialogDummy()
{
    // The controls themselves are children of the surface.
    qDeleteAll(components);
}

void MdiChildDialogDummy::setUpDraggables()
{
    p1 = new QPushButton(this);
    p1->resize(75, 23);
    p2 = new QLineEdit(this);
    p2->resize(100, 20);
    p3 = new QLineEdit(this);
    p3->setEchoMode(QLineEdit::Password);
    p3->resize(100, 20);
    p4 = new QTextEdit(this);
    p4->resize(104, 84);
    p5 = new QLabel(this);
    p5->resize(56, 14);
    p6 = new QLabel(this);
    p6->resize(56, 14);
    p7 = new QComboBox(this);
    p7->resize(131, 24);
    p8 = new QListWidget(this);
    p8->resize(100, 80);
    p9 = new QListWidget(this);
    p9->resize(100, 80);
    p10 = new QCheckBox(this);
    p10->resize(88, 19);
    p11 = new QListWidget(this);
    p11->resize(100, 80);
    p12 = new QRadioButton(this);
    p12->resize(99, 19);
    p13 = new QLabel(this);
    p13->resize(150, 150);
    p14 = new QGroupBox(this);
    p14->resize(100, 80);
    p15 = new QTabWidget(this);
    p15->resize(150, 120);
    p17 = new QScrollBar(Qt::Vertical, this);
    p17->resize(16, 160);
    p18 = new QScrollBar(Qt::Horizontal, this);
    p18->resize(160, 16);

    for (const char *kind : controlKinds)
        prototypeFor(QLatin1String(kind))->hide();
}

QWidget *MdiChildDialogDummy::prototypeFor(const QString &kind) const
{
    static const QStringList kinds = [] {
        QStringList list;
        for (const char *kind : controlKinds)
            list << QLatin1String(kind);
        return list;
    }();
    QWidget *const prototypes[] = {p1, p2, p3, p4, p5, p6, p7, p8, p9,
                                   p10, p11, p12, p13, p14, p15, p17, p18};
    const int index = kinds.indexOf(kind);
    return index < 0 ? nullptr : prototypes[index];
}

// A fresh control of the prototype's class; the size comes from the prototype
// at the drop, so none is set here.
QWidget *MdiChildDialogDummy::makeControl(const QString &kind)
{
    if (kind == QLatin1String("button"))
        return new QPushButton(this);
    if (kind == QLatin1String("edit"))
        return new QLineEdit(this);
    if (kind == QLatin1String("pass")) {
        auto *edit = new QLineEdit(this);
        edit->setEchoMode(QLineEdit::Password);
        return edit;
    }
    if (kind == QLatin1String("rich"))
        return new QTextEdit(this);
    if (kind == QLatin1String("text") || kind == QLatin1String("link")
        || kind == QLatin1String("icon"))
        return new QLabel(this);
    if (kind == QLatin1String("combo"))
        return new QComboBox(this);
    if (kind == QLatin1String("list") || kind == QLatin1String("checkList")
        || kind == QLatin1String("radioList"))
        return new QListWidget(this);
    if (kind == QLatin1String("check"))
        return new QCheckBox(this);
    if (kind == QLatin1String("radio"))
        return new QRadioButton(this);
    if (kind == QLatin1String("box"))
        return new QGroupBox(this);
    if (kind == QLatin1String("tab"))
        return new QTabWidget(this);
    if (kind == QLatin1String("vscroll"))
        return new QScrollBar(Qt::Vertical, this);
    if (kind == QLatin1String("hscroll"))
        return new QScrollBar(Qt::Horizontal, this);
    return nullptr;
}

bool MdiChildDialogDummy::hasFilteredViewport(const QString &kind)
{
    // Presses on these land on the viewport, not on the control itself.
    return kind == QLatin1String("rich") || kind == QLatin1String("list")
        || kind == QLatin1String("checkList") || kind == QLatin1String("radioList");
}

// ---------------------------------------------------------------- settings

void MdiChildDialogDummy::setCurPosLabel(QLabel *label)
{
    curPos = label;
}

void MdiChildDialogDummy::setWinSizeLabel(QLabel *label)
{
    winSize = label;
}

void MdiChildDialogDummy::incGridSize()
{
    gridSize += 2;
    repaint();
}

void MdiChildDialogDummy::decGridSize()
{
    gridSize -= 2;
    repaint();
}

int MdiChildDialogDummy::getGridSize()
{
    return gridSize;
}

bool MdiChildDialogDummy::isGridVisible() const
{
    return showGrid;
}

QList<Component> MdiChildDialogDummy::placedComponents() const
{
    QList<Component> placed;
    placed.reserve(components.size());
    for (const Component *c : components)
        placed.append(*c);
    return placed;
}

QWidget *MdiChildDialogDummy::selectedControl() const
{
    return focusedObject;
}

void MdiChildDialogDummy::setGridVisible(bool visible)
{
    showGrid = visible;
    repaint();
}

void MdiChildDialogDummy::setSnapIn(bool snap)
{
    snapIn = snap;
}

void MdiChildDialogDummy::objSelect(bool select)
{
    acceptSelection = select;
    if (!select) {
        focusedObject = nullptr;
        repaint();
        emit newSelection(this, QStringLiteral("window"));
    }
}

void MdiChildDialogDummy::menuAdd()
{
}

// ---------------------------------------------------------------- painting

void MdiChildDialogDummy::closeEvent(QCloseEvent *event)
{
    // The surface lives and dies with its builder tab.
    event->ignore();
}

void MdiChildDialogDummy::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (showGrid && gridSize > 0) {
        painter.setBackground(QBrush(Qt::blue));
        for (int y = 0; y <= height(); y += gridSize)
            for (int x = 0; x <= width(); x += gridSize)
                painter.drawPoint(x, y);
    }
    if (focusedObject) {
        const QRect r = focusedObject->geometry();
        const int x1 = r.left(), y1 = r.top(), x2 = r.right(), y2 = r.bottom();
        painter.setPen(Qt::blue);
        // The handles sit a little off the corners; they always have.
        painter.drawRoundedRect(QRectF(x1 - 2, y1 - 5, 5, 5), 2.0, 2.0);
        painter.drawRoundedRect(QRectF(x2 - 1, y1 - 5, 5, 5), 2.0, 2.0);
        painter.drawRoundedRect(QRectF(x1 - 2, y2, 5, 5), 2.0, 2.0);
        painter.drawRoundedRect(QRectF(x2 - 1, y2, 5, 5), 2.0, 2.0);
    }
}

void MdiChildDialogDummy::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    repaint();
    if (winSize)
        winSize->setText(QStringLiteral("  %1, %2").arg(event->size().width())
                             .arg(event->size().height()));
}

// ---------------------------------------------------------------- mouse

void MdiChildDialogDummy::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    if (curPos)
        curPos->setText(QStringLiteral("  %1, %2").arg(pos.x()).arg(pos.y()));
    setCursor(Qt::ArrowCursor);
    if (!focusedObject)
        return;

    const int mX = pos.x(), mY = pos.y();
    const QRect r = focusedObject->geometry();
    const int x1 = r.left(), y1 = r.top();
    const int x2 = r.left() + r.width(), y2 = r.top() + r.height();

    int location = 0;
    if (mY >= y1 - 6 && mY <= y1) {
        if (mX >= x1 - 6 && mX <= x1) {
            setCursor(Qt::SizeFDiagCursor);
            location = TopLeft;
        } else if (mX >= x2 && mX <= x2 + 6) {
            setCursor(Qt::SizeBDiagCursor);
            location = TopRight;
        } else {
            return;
        }
    } else if (mY >= y2 && mY <= y2 + 6) {
        // The bottom left zone is one pixel narrower than the others.
        if (mX >= x1 - 5 && mX <= x1) {
            setCursor(Qt::SizeBDiagCursor);
            location = BottomLeft;
        } else if (mX >= x2 && mX <= x2 + 6) {
            setCursor(Qt::SizeFDiagCursor);
            location = BottomRight;
        } else {
            return;
        }
    } else {
        return;
    }

    // Reaching a handle is enough to start a resize; no button is asked for.
    auto *drag = new QDrag(focusedObject);
    auto *data = new QMimeData;
    data->setData(QLatin1String(resizeFormat), QByteArray::number(location));
    drag->setMimeData(data);
    drag->exec(Qt::MoveAction);
    setCursor(Qt::SizeFDiagCursor);
}

void MdiChildDialogDummy::mousePressEvent(QMouseEvent *)
{
    focusedObject = nullptr;
    repaint();
    emit newSelection(this, QStringLiteral("window"));
}

bool MdiChildDialogDummy::eventFilter(QObject *object, QEvent *event)
{
    if (!acceptSelection || event->type() != QEvent::MouseButtonPress)
        return false;

    QWidget *target = qobject_cast<QWidget *>(object);
    for (Component *c : std::as_const(components)) {
        if (!hasFilteredViewport(c->type))
            continue;
        auto *area = qobject_cast<QAbstractScrollArea *>(c->object);
        if (area && area->viewport() == object) {
            target = c->object;
            break;
        }
    }
    if (!target)
        return false;

    focusedObject = target;
    // Reports the control dragged last rather than the one pressed; the
    // property box has always been fed this way.
    for (Component *c : std::as_const(components)) {
        if (c->object == draggableObject) {
            emit newSelection(c->object, c->type);
            break;
        }
    }
    repaint();

    auto *mouse = static_cast<QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return true;

    const QPoint pos = mouse->position().toPoint();
    auto *drag = new QDrag(target);
    auto *data = new QMimeData;
    data->setData(QLatin1String(movedFormat),
                  QString::asprintf("%d %d", pos.x(), pos.y()).toLatin1());
    drag->setMimeData(data);
    drag->exec(Qt::MoveAction);
    return true;
}

// ---------------------------------------------------------------- drag and drop

bool MdiChildDialogDummy::isValidDraggableGUI(const QMimeData *data)
{
    if (data) {
        for (const char *kind : controlKinds) {
            if (!data->hasFormat(QLatin1String("gui/") + QLatin1String(kind)))
                continue;
            if (!draggableObject) {
                draggableObject = prototypeFor(QLatin1String(kind));
                draggableObjectType = QLatin1String(kind);
            }
            return true;
        }
    }
    draggableObject = nullptr;
    return false;
}

Component *MdiChildDialogDummy::isValidDraggableComp(const QWidget *data)
{
    if (!data)
        return nullptr;
    for (Component *c : std::as_const(components))
        if (c->object == data)
            return c;
    return nullptr;
}

QWidget *MdiChildDialogDummy::dragSource(const QDropEvent *event) const
{
    return qobject_cast<QWidget *>(event->source());
}

bool MdiChildDialogDummy::isPlaced(const QWidget *widget) const
{
    for (const Component *c : components)
        if (c->object == widget)
            return true;
    return false;
}

int MdiChildDialogDummy::snap(int value) const
{
    const int g = gridSize;
    if (g <= 0)
        return value;
    const int q = value / g;
    return int((q + 0.5) * g - g / 2);
}

void MdiChildDialogDummy::dragEnterEvent(QDragEnterEvent *event)
{
    if (draggableObject && !isPlaced(draggableObject)) {
        draggableObject->hide();
        draggableObject = nullptr;
    }
    const bool gui = isValidDraggableGUI(event->mimeData());
    const bool comp = isValidDraggableComp(dragSource(event));
    if (!gui && !comp)
        return;
    event->acceptProposedAction();
}

void MdiChildDialogDummy::dragLeaveEvent(QDragLeaveEvent *)
{
    if (draggableObject && !isPlaced(draggableObject)) {
        draggableObject->hide();
        draggableObject = nullptr;
    }
}

void MdiChildDialogDummy::dragMoveEvent(QDragMoveEvent *event)
{
    const QMimeData *data = event->mimeData();
    QWidget *source = dragSource(event);
    if (!isValidDraggableGUI(data)) {
        Component *c = isValidDraggableComp(source);
        if (!c)
            return;
        draggableObject = c->object;
    }
    event->acceptProposedAction();
    if (!draggableObject)
        return;

    const QPoint pos = event->position().toPoint();

    if (data->hasFormat(QLatin1String(resizeFormat))) {
        const int direction = data->data(QLatin1String(resizeFormat)).toInt();
        // Only the top left handle resizes; the other three show a cursor and
        // start a drag, but leave the control as it is.
        if (direction == TopLeft) {
            setCursor(Qt::SizeFDiagCursor);
            const QRect old = draggableObject->geometry();
            if (pos.x() == old.left())
                return;
            const int xpos = snapIn ? snap(pos.x()) : pos.x();
            const int ypos = snapIn ? snap(pos.y()) : pos.y();
            const int newWidth = qMax(10, old.right() + 1 - xpos);
            const int newHeight = qMax(10, old.bottom() + 1 - ypos);
            draggableObject->setGeometry(xpos, ypos, newWidth, newHeight);
        }
        QTimer::singleShot(100, this, [this] { repaint(); });
        return;
    }

    int xOffset = 0;
    int yOffset = 0;
    if (data->hasFormat(QLatin1String(movedFormat))) {
        const QList<QByteArray> parts = data->data(QLatin1String(movedFormat)).split(' ');
        xOffset = parts.value(0).toInt();
        yOffset = parts.value(1).toInt();
        focusedObject = source;
    }

    int x = pos.x() - xOffset;
    int y = pos.y() - yOffset;
    if (snapIn) {
        x = snap(x);
        y = snap(y);
    }
    draggableObject->setGeometry(x, y, draggableObject->width(), draggableObject->height());

    QToolTip::showText(QPoint(0, 0), QString());
    QToolTip::showText(QCursor::pos() + QPoint(10, 10),
                       QStringLiteral("(%1,%2)").arg(draggableObject->x())
                           .arg(draggableObject->y()));
    if (curPos)
        curPos->setText(QStringLiteral("  %1, %2").arg(pos.x()).arg(pos.y()));
    draggableObject->setVisible(true);
    QTimer::singleShot(100, this, [this] { repaint(); });
}

void MdiChildDialogDummy::dropEvent(QDropEvent *event)
{
    // A moved control is already where it belongs.
    if (!draggableObject || isPlaced(draggableObject))
        return;

    auto *c = new Component;
    c->type = draggableObjectType;
    c->object = makeControl(c->type);
    if (!c->object) {
        delete c;
        return;
    }
    if (hasFilteredViewport(c->type))
        static_cast<QAbstractScrollArea *>(c->object)->viewport()->installEventFilter(this);

    emit newSelection(c->object, c->type);
    c->object->setGeometry(draggableObject->geometry());
    components.append(c);
    c->object->show();
    c->object->installEventFilter(this);
    event->acceptProposedAction();

    // The prototype stays under the new control until the next drag enters.
    if (acceptSelection) {
        focusedObject = c->object;
        repaint();
    }
}
