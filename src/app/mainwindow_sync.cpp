// The mIRC sync dock. The transport does not exist; what stands is the
// dock, the stored server names and the opening of a file from the tree.

#include "mainwindow.h"

#include <QDockWidget>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Role 100 of column 0 tells a file row from a server row.
constexpr int FileRowRole = 100;

} // namespace

void MainWindow::openFromDDE(QModelIndex index)
{
    Q_UNUSED(index);
    QTreeWidgetItem *item = syncFiles->currentItem();
    if (!item)
        return;
    if (!item->data(0, FileRowRole).toBool())
        return;
    const QString name = item->data(0, Qt::DisplayRole).toString();
    const QString dde =
        item->parent() ? item->parent()->data(0, Qt::DisplayRole).toString() : QString();
    // Matched by bare file name: of two equal names the first wins.
    const QVector<QFileInfo> serverFiles = files[dde];
    for (const QFileInfo &file : serverFiles) {
        if (file.fileName() == name) {
            openFile(file, false);
            return;
        }
    }
}

// The transport to a running mIRC does not exist: these stay empty.
void MainWindow::startUpDDE()
{
}

void MainWindow::updateDDE()
{
}

void MainWindow::mircRightclickMenu(QPoint point)
{
    Q_UNUSED(point);
}

void MainWindow::buildSyncDock()
{
    fileSyncing = new QDockWidget(tr("mIRC Sync"), this);
    fileSyncing->setObjectName(QStringLiteral("mIRCSync"));
    fileSyncing->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    fileSyncing->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable
                             | QDockWidget::DockWidgetFloatable);
    addDockWidget(Qt::LeftDockWidgetArea, fileSyncing);

    QWidget *content = new QWidget(fileSyncing);
    QVBoxLayout *box = new QVBoxLayout(content);
    fileSyncing->setWidget(content);

    syncFiles = new QTreeWidget(content);
    box->addWidget(syncFiles);
    syncFiles->setHeaderHidden(true);
    syncFiles->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    syncFiles->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(syncFiles, &QTreeWidget::doubleClicked, this, &MainWindow::openFromDDE);
    connect(syncFiles, &QTreeWidget::customContextMenuRequested, this,
            &MainWindow::mircRightclickMenu);
}

void MainWindow::checkFirstTime()
{
    QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                QStringLiteral("general"));
    if (s.value(QStringLiteral("dde_keys")).isNull()) {
        // The first-run question about DDE servers (SelectDDE) is not asked
        // while there is no transport to use the answer.
    }
}
