// The frame of the main window: menus, toolbar, settings, the View and
// Window commands, and the ways out.

#include "mainwindow.h"

#include "mdichild_editor.h"
#include "msltexteditor.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>

// Filled in with the menus and settings.
void MainWindow::exitProgram()
{
    saveSettings();
    QCoreApplication::exit(0);
}

// Filled in with the about box.
void MainWindow::showAbout()
{
}

void MainWindow::resizeBar()
{
    reportContainer->setMaximumHeight(500);
}

// Filled in with the menus and settings.
void MainWindow::setOnTop(bool ontop)
{
    Q_UNUSED(ontop);
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

// Filled in with the menus and settings.
void MainWindow::builToolBar()
{
}

// Filled in with the menus and settings: for now a File menu that makes
// and opens documents.
void MainWindow::buildMenuBar()
{
    QMenuBar *bar = new QMenuBar(this);
    QMenu *fileMenu = bar->addMenu(tr("&File"));
    QAction *newAction = fileMenu->addAction(tr("&New"));
    newAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
    connect(newAction, &QAction::triggered, this, &MainWindow::newFile);
    QAction *openAction = fileMenu->addAction(tr("&Open..."));
    openAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    connect(openAction, &QAction::triggered, this, &MainWindow::openFromFile);
    QAction *openRoAction = fileMenu->addAction(tr("Open As &Read-Only"));
    openRoAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+O")));
    connect(openRoAction, &QAction::triggered, this, &MainWindow::openFromFileRO);
    fileMenu->addSeparator();
    QAction *exitAction = fileMenu->addAction(tr("E&xit"));
    exitAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(exitAction, &QAction::triggered, this, &MainWindow::exitProgram);
    setMenuBar(bar);
}

// Filled in with the menus and settings.
void MainWindow::loadSettings()
{
}

// Filled in with the menus and settings.
void MainWindow::saveSettings()
{
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    saveSettings();
    const QVector<MdiChildEditor *> open = edtWindows;
    for (MdiChildEditor *doc : open) {
        if (!doc->close()) {
            event->ignore();
            return;
        }
    }
    QMainWindow::closeEvent(event);
}
