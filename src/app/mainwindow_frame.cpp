// The frame of the main window: menus, toolbar, settings, the View and
// Window commands, and the ways out.

#include "mainwindow.h"

#include "aboutdialog.h"
#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltexteditor.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>

namespace {

QIcon frameIcon(const char *file)
{
    return QIcon(QStringLiteral(":/general/toolbar/resources/img_assets/options/main/")
                 + QLatin1String(file));
}

// No application name is set globally, so every use names its file.
QSettings openSettings(const QString &application)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                     application);
}

QAction *addEntry(QMenu *menu, const QString &text, const char *icon, const char *shortcut)
{
    QAction *action = icon ? menu->addAction(frameIcon(icon), text) : menu->addAction(text);
    if (shortcut)
        action->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
    return action;
}

} // namespace

void MainWindow::exitProgram()
{
    // Leaves at once: no document is asked about its changes.
    saveSettings();
    QCoreApplication::exit(0);
}

void MainWindow::showAbout()
{
    // Made once and kept for the life of the window.
    static AboutDialog *about = nullptr;
    if (!about)
        about = new AboutDialog(this);
    about->exec();
}

void MainWindow::resizeBar()
{
    // Raising the limit alone lets the dock grow to its size hint at once;
    // it is meant to stay as short as it came up until the user drags it.
    const int height = reportContainer->height();
    reportContainer->setMaximumHeight(500);
    resizeDocks({ reportContainer }, { height }, Qt::Vertical);
}

void MainWindow::setOnTop(bool ontop)
{
    Qt::WindowFlags flags = windowFlags();
    if (ontop)
        flags |= Qt::WindowStaysOnTopHint;
    else
        flags &= ~Qt::WindowStaysOnTopHint;
    // setWindowFlags hides the window.
    setWindowFlags(flags);
    show();
}

void MainWindow::setWordWrap(bool wordWrap)
{
    const QVector<MdiChildEditor *> open = edtWindows;
    for (MdiChildEditor *doc : open)
        doc->getEditor()->setWordWrapMode(wordWrap ? QTextOption::WordWrap : QTextOption::NoWrap);
}

void MainWindow::showSyncBar(bool show)
{
    if (fileSyncing)
        fileSyncing->setVisible(show);
}

void MainWindow::showMessageBar(bool show)
{
    reportContainer->setVisible(show);
}

void MainWindow::builToolBar()
{
    QToolBar *bar = new QToolBar(tr("Main Menubar"), this);
    bar->setObjectName(QStringLiteral("mainToolbar"));
    bar->setIconSize(QSize(16, 16));

    QAction *newAction = new QAction(frameIcon("page_white_add.png"), tr("New"), bar);
    connect(newAction, &QAction::triggered, this, &MainWindow::newFile);
    bar->addAction(newAction);
    QAction *openAction = new QAction(frameIcon("folder_page.png"), tr("Open"), bar);
    connect(openAction, &QAction::triggered, this, &MainWindow::openFromFile);
    bar->addAction(openAction);
    QAction *saveAllAction = new QAction(frameIcon("save_all.png"), tr("Save All"), bar);
    connect(saveAllAction, &QAction::triggered, this, &MainWindow::saveAll);
    bar->addAction(saveAllAction);
    QAction *closeAction = new QAction(frameIcon("page_white_delete.png"), tr("Close"), bar);
    connect(closeAction, &QAction::triggered, this, &MainWindow::closeFile);
    bar->addAction(closeAction);

    addToolBar(bar);
}

void MainWindow::buildMenuBar()
{
    QMenuBar *bar = new QMenuBar(this);
    QMenu *fileMenu = bar->addMenu(tr("&File"));
    QMenu *editMenu = bar->addMenu(tr("&Edit"));
    QMenu *viewMenu = bar->addMenu(tr("&View"));
    QMenu *windowMenu = bar->addMenu(tr("&Window"));
    QMenu *helpMenu = bar->addMenu(tr("&Help"));

    QAction *action = addEntry(fileMenu, tr("&New"), nullptr, "Ctrl+N");
    connect(action, &QAction::triggered, this, &MainWindow::newFile);
    action = addEntry(fileMenu, tr("&Open..."), nullptr, "Ctrl+O");
    connect(action, &QAction::triggered, this, &MainWindow::openFromFile);
    action = addEntry(fileMenu, tr("Open As &Read-Only"), nullptr, "Ctrl+Alt+O");
    connect(action, &QAction::triggered, this, &MainWindow::openFromFileRO);
    fileMenu->addSeparator();
    action = addEntry(fileMenu, tr("Save A&ll"), "save_all.png", "Ctrl+Shift+S");
    connect(action, &QAction::triggered, this, &MainWindow::saveAll);
    fileMenu->addSeparator();
    closeMenu = addEntry(fileMenu, tr("&Close"), nullptr, "Ctrl+W");
    connect(closeMenu, &QAction::triggered, this, &MainWindow::closeFile);
    closeAllMenu = addEntry(fileMenu, tr("Clos&e All"), nullptr, "Ctrl+Shift+W");
    connect(closeAllMenu, &QAction::triggered, this, &MainWindow::closeAllFiles);
    closeAllButMenu = addEntry(fileMenu, tr("Close &All But Active"), nullptr, "Ctrl+Alt+Shift+W");
    connect(closeAllButMenu, &QAction::triggered, this, &MainWindow::closeAllButActive);
    fileMenu->addSeparator();
    action = addEntry(fileMenu, tr("E&xit"), "exit.png", "Ctrl+Q");
    connect(action, &QAction::triggered, this, &MainWindow::exitProgram);

    // The Edit entries are dead until the menu has been opened once: their
    // state is worked out only then.
    undo = addEntry(editMenu, tr("&Undo"), "undo.png", "Ctrl+Z");
    connect(undo, &QAction::triggered, this, &MainWindow::undoClicked);
    redo = addEntry(editMenu, tr("&Redo"), "redo.png", "Ctrl+Y");
    connect(redo, &QAction::triggered, this, &MainWindow::redoClicked);
    editMenu->addSeparator();
    cut = addEntry(editMenu, tr("Cu&t"), "cut.png", "Ctrl+X");
    connect(cut, &QAction::triggered, this, &MainWindow::cutClicked);
    copy = addEntry(editMenu, tr("&Copy"), "copy.png", "Ctrl+C");
    connect(copy, &QAction::triggered, this, &MainWindow::copyClicked);
    paste = addEntry(editMenu, tr("&Paste"), "paste.png", "Ctrl+V");
    connect(paste, &QAction::triggered, this, &MainWindow::pasteClicked);
    deleteB = addEntry(editMenu, tr("&Delete"), "delete.png", "Del");
    connect(deleteB, &QAction::triggered, this, &MainWindow::deleteClicked);
    selectAll = addEntry(editMenu, tr("Select &All"), nullptr, "Ctrl+A");
    connect(selectAll, &QAction::triggered, this, &MainWindow::selectAllClicked);
    editMenu->addSeparator();
    findReplace = addEntry(editMenu, tr("Find/Replace"), nullptr, nullptr);
    connect(findReplace, &QAction::triggered, this, &MainWindow::findReplaceClicked);
    for (QAction *edit : {undo, redo, cut, copy, paste, deleteB, selectAll, findReplace})
        edit->setEnabled(false);
    connect(editMenu, &QMenu::aboutToShow, this, &MainWindow::editMenuAboutToShow);

    onTop = addEntry(viewMenu, tr("Always on Top"), nullptr, nullptr);
    onTop->setCheckable(true);
    connect(onTop, &QAction::toggled, this, &MainWindow::setOnTop);
    viewMenu->addSeparator();
    wordWrap = addEntry(viewMenu, tr("Word wrap"), nullptr, nullptr);
    wordWrap->setCheckable(true);
    connect(wordWrap, &QAction::toggled, this, &MainWindow::setWordWrap);

    messageBarMenu = addEntry(windowMenu, tr("Debug Window"), nullptr, nullptr);
    messageBarMenu->setCheckable(true);
    connect(messageBarMenu, &QAction::toggled, this, &MainWindow::showMessageBar);

    action = addEntry(helpMenu, tr("&About"), "info.png", nullptr);
    connect(action, &QAction::triggered, this, &MainWindow::showAbout);

    setMenuBar(bar);
}

void MainWindow::loadSettings()
{
    QSettings s1 = openSettings(QStringLiteral("settings"));
    QSettings s = openSettings(QStringLiteral("general"));

    const QVariant wrap = s1.value(QStringLiteral("wordWrap"));
    if (!wrap.isNull())
        wordWrap->setChecked(wrap.toBool());
    restoreGeometry(s.value(QStringLiteral("initGeo")).toByteArray());
    restoreState(s.value(QStringLiteral("initState")).toByteArray());
    // The sync dock starts hidden whatever the saved layout says.
    if (fileSyncing)
        fileSyncing->setVisible(false);
    const QVariant msgBar = s1.value(QStringLiteral("msgBar"));
    const bool showReports = msgBar.isNull() ? true : msgBar.toBool();
    messageBarMenu->setChecked(showReports);
    reportContainer->setVisible(showReports);
}

void MainWindow::saveSettings()
{
    QSettings s = openSettings(QStringLiteral("general"));
    QSettings s2 = openSettings(QStringLiteral("settings"));
    s.setValue(QStringLiteral("initGeo"), saveGeometry());
    s.setValue(QStringLiteral("initState"), saveState());
    s2.setValue(QStringLiteral("wordWrap"), wordWrap && wordWrap->isChecked());
    // No action shows the sync dock, so this stays false.
    s2.setValue(QStringLiteral("syncBar"), syncBarMenu && syncBarMenu->isChecked());
    s2.setValue(QStringLiteral("msgBar"), messageBarMenu && messageBarMenu->isChecked());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // The settings are written even if a document then refuses to close;
    // documents closed before the refusal stay closed.
    saveSettings();
    const QVector<MdiChildEditor *> editors = edtWindows;
    for (MdiChildEditor *doc : editors) {
        if (!doc->close()) {
            event->ignore();
            return;
        }
    }
    const QVector<MdiChildBuilder *> builders = bldWindows;
    for (MdiChildBuilder *builder : builders) {
        if (!builder->close()) {
            event->ignore();
            return;
        }
    }
    QMainWindow::closeEvent(event);
}
