// The mIRC sync dock. The transport does not exist; what stands is the
// dock, the stored server names and the opening of a file from the tree.

#include "mainwindow.h"

// Filled in with the sync dock.
void MainWindow::openFromDDE(QModelIndex index)
{
    Q_UNUSED(index);
}

// Filled in with the sync dock.
void MainWindow::startUpDDE()
{
}

// Filled in with the sync dock.
void MainWindow::updateDDE()
{
}

// Filled in with the sync dock.
void MainWindow::mircRightclickMenu(QPoint point)
{
    Q_UNUSED(point);
}

// Filled in with the sync dock.
void MainWindow::buildSyncDock()
{
}

// Filled in with the sync dock.
void MainWindow::checkFirstTime()
{
}
