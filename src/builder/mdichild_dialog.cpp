#include "mdichild_dialog.h"
#include "mdichild_dialog_dummy.h"

#include <QAbstractButton>
#include <QAction>
#include <QDebug>
#include <QDockWidget>
#include <QDrag>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolBar>
#include <QVBoxLayout>

// ---------------------------------------------------------------- TQPushButton

TQPushButton::TQPushButton(QString type)
    : QPushButton()
    , type(std::move(type))
{
}

TQPushButton::TQPushButton(QString type, QString text)
    : QPushButton(std::move(text))
    , type(std::move(type))
{
}

void TQPushButton::mousePressEvent(QMouseEvent *event)
{
    // The base handler is left out on purpose: the button starts a drag and
    // never looks pressed.
    if (event->button() != Qt::LeftButton)
        return;
    auto *drag = new QDrag(this);
    auto *data = new QMimeData;
    data->setData(type, QByteArray());
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
}

// ---------------------------------------------------------------- MdiChildBuilder

MdiChildBuilder::MdiChildBuilder(QWidget *parent)
    : QMainWindow(nullptr)
{
    // The tab container adopts the builder; it starts without a parent.
    Q_UNUSED(parent);
    buildMDIArea();
    dummyWindow = new MdiChildDialogDummy(dummyWindowContainer);
    dummyWindowContainer->addSubWindow(dummyWindow);
    buildToolBar();
    buildToolBox();
    buildPropBox();
    buildStatBar();
    connect(dummyWindow, &MdiChildDialogDummy::newSelection, this,
            &MdiChildBuilder::newSelection);
    newSelection(dummyWindow, QStringLiteral("window"));
}

void MdiChildBuilder::buildMDIArea()
{
    dummyWindowContainer = new QMdiArea;
    dummyWindowContainer->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    dummyWindowContainer->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    dummyWindowContainer->setViewMode(QMdiArea::SubWindowView);
    dummyWindowContainer->setBackground(QBrush(QColor(140, 181, 255, 255)));
    setCentralWidget(dummyWindowContainer);
}

void MdiChildBuilder::buildToolBar()
{
    const QString icons = QStringLiteral(":/guiToolbar/resources/img_assets/controls/");
    auto *toolBar = new QToolBar(QStringLiteral("Object Toolbar"), this);
    toolBar->setIconSize(QSize(16, 16));

    auto *align = toolBar->addAction(QIcon(icons + QStringLiteral("alignToGrid.bmp")),
                                     QStringLiteral("Align To Grid"));
    align->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    align->setStatusTip(QStringLiteral("Toggle to turn on or off auto-align."));
    align->setCheckable(true);
    align->setChecked(true);
    connect(align, &QAction::toggled, dummyWindow, &MdiChildDialogDummy::setSnapIn);

    auto *grid = toolBar->addAction(QIcon(icons + QStringLiteral("grid.bmp")),
                                    QStringLiteral("Show Grid"));
    grid->setShortcut(QKeySequence(QStringLiteral("Ctrl+G")));
    grid->setStatusTip(QStringLiteral("Toggle to show or hide the snap-in grid."));
    grid->setCheckable(true);
    grid->setChecked(true);
    connect(grid, &QAction::toggled, this, &MdiChildBuilder::showGridTriggered);

    gridP = toolBar->addAction(QIcon(icons + QStringLiteral("grid_plus.bmp")),
                               QStringLiteral("Increase Grid Size"));
    gridP->setShortcut(QKeySequence(QStringLiteral("Ctrl+=")));
    gridP->setStatusTip(QStringLiteral("Increase the grid size."));
    connect(gridP, &QAction::triggered, this, &MdiChildBuilder::incGridSize);

    gridM = toolBar->addAction(QIcon(icons + QStringLiteral("grid_minus.bmp")),
                               QStringLiteral("Decrease Grid Size"));
    gridM->setShortcut(QKeySequence(QStringLiteral("Ctrl+-")));
    gridM->setStatusTip(QStringLiteral("Decrease the grid size."));
    connect(gridM, &QAction::triggered, this, &MdiChildBuilder::decGridSize);

    objSlct = toolBar->addAction(QIcon(icons + QStringLiteral("selectable.png")),
                                 QStringLiteral("Object Selection"));
    objSlct->setStatusTip(QStringLiteral("Disable object selection."));
    objSlct->setCheckable(true);
    objSlct->setChecked(true);
    connect(objSlct, &QAction::triggered, dummyWindow, &MdiChildDialogDummy::objSelect);

    auto *generate = toolBar->addAction(QIcon(icons + QStringLiteral("generate.png")),
                                        QStringLiteral("Generate Code"));
    generate->setShortcut(QKeySequence(QStringLiteral("F5")));
    generate->setStatusTip(QStringLiteral("Generate mSL code for this dialog."));
    connect(generate, &QAction::triggered, this, &MdiChildBuilder::generateCode);

    addToolBar(toolBar);
}

void MdiChildBuilder::buildToolBox()
{
    toolBoxContainer = setupToolBoxNoPages();
    toolBoxContainer->setMaximumHeight(280);
    addDockWidget(Qt::LeftDockWidgetArea, toolBoxContainer);
}

QDockWidget *MdiChildBuilder::setupToolBoxNoPages()
{
    struct Entry {
        const char *format;
        const char *icon;
        const char *tip;
    };
    static const Entry entries[] = {
        {"gui/button", "button.bmp", "Button"},
        {"gui/edit", "edit.bmp", "Edit Box"},
        {"gui/pass", "pass.bmp", "Password Edit Box"},
        {"gui/rich", "rich.bmp", "Rich Edit Box"},
        {"gui/text", "text.bmp", "Label"},
        {"gui/link", "link.bmp", "Hyperlink Label"},
        {"gui/combo", "combo.bmp", "Combo Box"},
        {"gui/list", "list.bmp", "List Box"},
        {"gui/checkList", "checkList.bmp", "Check List Box"},
        {"gui/check", "check.bmp", "Check Box"},
        {"gui/radioList", "radioList.bmp", "Radio List Box"},
        {"gui/radio", "radio.bmp", "Radio Button"},
        {"gui/icon", "icon.bmp", "Image Icon"},
        {"gui/box", "box.bmp", "Group Box"},
        {"gui/tab", "tab.bmp", "Tab Control"},
        {"gui/tabPage", "tabPage.bmp", "Tab Page"},
        {"gui/vscroll", "vscroll.bmp", "Vertical Scroll Bar"},
        {"gui/hscroll", "hscroll.bmp", "Horizontal Scroll Bar"},
    };
    const QString icons = QStringLiteral(":/toolbox/resources/img_assets/toolbox/");

    auto *dock = new QDockWidget(QStringLiteral("  ToolBox"), this);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea
                          | Qt::BottomDockWidgetArea);
    dock->setFeatures(QDockWidget::DockWidgetMovable);

    auto *box = new QWidget(dock);
    auto *layout = new QGridLayout(box);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    int index = 0;
    for (const Entry &entry : entries) {
        auto *button = new TQPushButton(QLatin1String(entry.format));
        button->setIcon(QIcon(icons + QLatin1String(entry.icon)));
        button->setFlat(true);
        button->setCursor(Qt::OpenHandCursor);
        button->setToolTip(QLatin1String(entry.tip));
        layout->addWidget(button, index / 2, index % 2);
        ++index;
    }
    dock->setWidget(box);
    return dock;
}

void MdiChildBuilder::buildPropBox()
{
    propBoxContainer = setupPropBox();
    addDockWidget(Qt::RightDockWidgetArea, propBoxContainer);
}

QDockWidget *MdiChildBuilder::setupPropBox()
{
    auto *dock = new QDockWidget(QStringLiteral("Properties"), this);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea
                          | Qt::BottomDockWidgetArea);
    dock->setFeatures(QDockWidget::DockWidgetMovable);

    auto *box = new QWidget(dock);
    auto *layout = new QVBoxLayout(box);
    label = new QLabel(QStringLiteral("Main Dialog"), box);
    label->setObjectName(QStringLiteral("selectionLabel"));
    table = new QTableWidget(box);
    table->verticalHeader()->hide();
    // The header clamps to its font-derived minimum, which is taller than
    // the compact rows wanted here.
    table->verticalHeader()->setMinimumSectionSize(15);
    table->verticalHeader()->setDefaultSectionSize(15);
    table->setColumnCount(2);
    table->setHorizontalHeaderLabels({QStringLiteral("Property"), QStringLiteral("Value")});
    table->setRowCount(20);
    table->setContentsMargins(0, 0, 0, 0);
    table->setCellWidget(0, 0, new QLabel(QStringLiteral("Text")));
    textValue = new QLineEdit;
    textValue->setObjectName(QStringLiteral("textValue"));
    table->setCellWidget(0, 1, textValue);
    connect(textValue, &QLineEdit::textChanged, this, &MdiChildBuilder::textValueChanged);
    layout->addWidget(label);
    layout->addWidget(table);
    dock->setWidget(box);
    return dock;
}

void MdiChildBuilder::buildStatBar()
{
    auto *bar = new QStatusBar(this);
    bar->addWidget(new QLabel);

    auto makeField = [bar](const QString &image, QLabel *text) {
        auto *field = new QWidget;
        auto *layout = new QHBoxLayout(field);
        layout->setSpacing(0);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *icon = new QLabel;
        const QPixmap pixmap(image);
        if (!pixmap.isNull())
            icon->setPixmap(pixmap.scaled(16, 16));
        layout->addWidget(icon);
        layout->addWidget(text);
        bar->addWidget(field);
    };

    mosPos = new QLabel(QStringLiteral("  0, 0"));
    mosPos->setObjectName(QStringLiteral("cursorPosition"));
    makeField(QStringLiteral(":/statusbar/resources/img_assets/status/ruler.png"), mosPos);
    dummyWindow->setCurPosLabel(mosPos);

    auto *sizeLabel = new QLabel(QStringLiteral("  0, 0"));
    makeField(QStringLiteral(":/statusbar/resources/img_assets/window.png"), sizeLabel);
    dummyWindow->setWinSizeLabel(sizeLabel);

    setStatusBar(bar);
}

// ---------------------------------------------------------------- slots

void MdiChildBuilder::newSelection(QWidget *obj, QString str)
{
    activeObj = obj;
    activeObjType = str;
    if (!obj)
        return;
    if (str == QLatin1String("window")) {
        label->setText(QStringLiteral("Object: Dialog Object"));
        textValue->setText(obj->windowTitle());
    } else if (str == QLatin1String("button")) {
        label->setText(QStringLiteral("Object: Button Object"));
        if (auto *button = qobject_cast<QAbstractButton *>(obj))
            textValue->setText(button->text());
    } else if (str == QLatin1String("edit")) {
        label->setText(QStringLiteral("Object: Edit Object"));
        if (auto *edit = qobject_cast<QLineEdit *>(obj))
            textValue->setText(edit->text());
    }
    // Other kinds have no editable properties yet: the box keeps showing the
    // previous selection.
}

void MdiChildBuilder::mousePressEvent(QMouseEvent *)
{
    qDebug("@@@@@@@@@@@@@@@@@\n");
}

void MdiChildBuilder::showGridTriggered(bool checked)
{
    // Re-enabling ignores the size limits; the next step restores them.
    gridP->setEnabled(checked);
    gridM->setEnabled(checked);
    dummyWindow->setGridVisible(checked);
}

void MdiChildBuilder::incGridSize()
{
    dummyWindow->incGridSize();
    if (dummyWindow->getGridSize() > 29)
        gridP->setEnabled(false);
    gridM->setEnabled(true);
}

void MdiChildBuilder::decGridSize()
{
    dummyWindow->decGridSize();
    if (dummyWindow->getGridSize() < 5)
        gridM->setEnabled(false);
    gridP->setEnabled(true);
}

void MdiChildBuilder::generateCode()
{
    qDebug("Code Generation goes here...\n");
}

void MdiChildBuilder::textValueChanged()
{
    if (!activeObj)
        return;
    const QString text = textValue->text();
    if (activeObjType == QLatin1String("window")) {
        activeObj->setWindowTitle(text);
    } else if (activeObjType == QLatin1String("button")) {
        if (auto *button = qobject_cast<QAbstractButton *>(activeObj))
            button->setText(text);
    } else if (activeObjType == QLatin1String("edit")) {
        if (auto *edit = qobject_cast<QLineEdit *>(activeObj))
            edit->setText(text);
    }
}
