#ifndef MDICHILD_DIALOG_DUMMY_H
#define MDICHILD_DIALOG_DUMMY_H

#include <QMainWindow>
#include <QObject>
#include <QList>
#include <QString>
#include <QVector>

class QCheckBox;
class QDropEvent;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QMenuBar;
class QMimeData;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabWidget;
class QTextEdit;
class QWidgetAction;

// One control placed on the design surface.
class Component
{
public:
    QString type;
    QWidget *object = nullptr;
};

// Lets the author grow the dialog's menu tree by typing: every menu ends in
// an entry line, and Return there adds a submenu with the typed text.
class Mnu : public QObject
{
    Q_OBJECT

public:
    Mnu(QObject *parent, QMenuBar *bar);
    Mnu(QObject *parent, QMenu *menu);

    QMenuBar *parentBar = nullptr;
    QLineEdit *textEntry = nullptr;
    QMenu *menuEntry = nullptr;
    QWidgetAction *dummyAction = nullptr;

public slots:
    void enterPressed();

private:
    void setupEntry();
};

// The mock dialog on which controls are dropped, selected, moved and resized.
class MdiChildDialogDummy : public QMainWindow
{
    Q_OBJECT

public:
    explicit MdiChildDialogDummy(QWidget *parent = nullptr);
    ~MdiChildDialogDummy() override;

    void setCurPosLabel(QLabel *label);
    void setWinSizeLabel(QLabel *label);
    void incGridSize();
    void decGridSize();
    int getGridSize();
    bool isGridVisible() const;

    // The controls dropped so far, oldest first.
    QList<Component> placedComponents() const;
    // The control that carries the selection handles, if any.
    QWidget *selectedControl() const;
    // The hidden control that a toolbox kind is copied from, sized as the
    // copy will be; none for a kind that cannot be placed.
    QWidget *prototypeFor(const QString &kind) const;

signals:
    void newSelection(QWidget *obj, QString str);

public slots:
    void setGridVisible(bool visible);
    void setSnapIn(bool snap);
    void objSelect(bool select);
    void menuAdd();

protected:
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

    // Where a drag came from; a seam so that drags can be replayed without
    // a running drag manager.
    virtual QWidget *dragSource(const QDropEvent *event) const;

private:
    void setUpDraggables();
    bool isValidDraggableGUI(const QMimeData *data);
    Component *isValidDraggableComp(const QWidget *data);
    QWidget *makeControl(const QString &kind);
    int snap(int value) const;
    bool isPlaced(const QWidget *widget) const;
    static bool hasFilteredViewport(const QString &kind);

    QPushButton *p1 = nullptr;
    QLineEdit *p2 = nullptr;
    QLineEdit *p3 = nullptr;
    QTextEdit *p4 = nullptr;
    QLabel *p5 = nullptr;
    QLabel *p6 = nullptr;
    QComboBox *p7 = nullptr;
    QListWidget *p8 = nullptr;
    QListWidget *p9 = nullptr;
    QCheckBox *p10 = nullptr;
    QListWidget *p11 = nullptr;
    QRadioButton *p12 = nullptr;
    QLabel *p13 = nullptr;
    QGroupBox *p14 = nullptr;
    QTabWidget *p15 = nullptr;
    QScrollBar *p17 = nullptr;
    QScrollBar *p18 = nullptr;

    QWidget *draggableObject = nullptr;
    QString draggableObjectType;
    QLabel *curPos = nullptr;
    QLabel *winSize = nullptr;
    QWidget *focusedObject = nullptr;
    bool showGrid = true;
    bool snapIn = true;
    bool acceptSelection = true;
    int gridSize = 8;
    QVector<Component *> components;
    QMenuBar *menubar = nullptr;
    Mnu *menu = nullptr;
};

#endif // MDICHILD_DIALOG_DUMMY_H
