#ifndef SPINETESTSUPPORT_H
#define SPINETESTSUPPORT_H

// Shared by the tests of the main window's spine and its report dock: a
// reach into the window's private parts, files in a temporary folder, and
// a driver for the chooser, message boxes and popup menus that come up in
// nested event loops.

#include "devsettings.h"
#include "mainwindow.h"
#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltextedit.h"
#include "msltexteditor.h"
#include "reportstore.h"

#include "shelltestsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFile>
#include <QHeaderView>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <functional>

class MainWindowTestAccess
{
public:
    explicit MainWindowTestAccess(MainWindow *window) : w(window) {}

    QTabWidget *tabs() const { return w->mdiContainer; }
    QDockWidget *reportDock() const { return w->reportContainer; }
    QTabWidget *reportTabs() const { return w->tabs; }
    QTreeView *debugView() const { return w->tree; }
    QTreeView *messagesView() const { return w->msgs; }
    QStandardItemModel *debug() const { return w->layout; }
    QStandardItemModel *messages() const { return w->msgsLayout; }
    QVector<MdiChildEditor *> editors() const { return w->edtWindows; }
    QVector<MdiChildBuilder *> builders() const { return w->bldWindows; }
    QWidget *current() const { return w->curWindow; }
    unsigned int tCount() const { return w->tCount; }
    QVector<QString> ddeServers() const { return w->ddeServers; }
    QAction *wordWrap() const { return w->wordWrap; }
    QAction *closeMenu() const { return w->closeMenu; }
    ReportStore *store() const { return w->reportStore; }

    void newFile() { w->newFile(); }
    void openFile(const QString &path, bool readOnly) { w->openFile(QFileInfo(path), readOnly); }
    void updateError(int line, int col, const QString &file, const QString &block, int type,
                     const QString &message, int &id)
    {
        w->updateError(line, col, file, block, QStringLiteral("???"), type, message, id);
    }
    int report(int line, int col, const QString &file, const QString &block, int type,
               const QString &message)
    {
        int id = 0;
        updateError(line, col, file, block, type, message, id);
        return id;
    }
    void removeError(QVector<int> ids) { w->removeError(ids); }
    void editorFclosed(const QString &path) { w->editorFclosed(QFileInfo(path)); }
    void editorErrUpdate(const QString &path, MdiChildEditor *doc)
    {
        w->editorErrUpdate(QFileInfo(path), doc);
    }
    void debugDClick(const QModelIndex &index) { w->debugDClick(index); }
    void statusDClick(const QModelIndex &index) { w->statusDClick(index); }
    void customDebugMenu(const QPoint &p) { w->customDebugMenu(p); }
    void customMessageMenu(const QPoint &p) { w->customMessageMenu(p); }
    void tabChangedRequested(int index) { w->tabChangedRequested(index); }

private:
    MainWindow *w;
};

inline void initialiseAnalyser()
{
    static bool done = false;
    if (!done) {
        DevSettings::InitializeAllSettings();
        done = true;
    }
}

inline QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    f.write(bytes);
    return path;
}

// Rows of a report model as "file|line|col|...|text", in view order.
inline QStringList modelRows(const QStandardItemModel *m)
{
    QStringList rows;
    for (int r = 0; r < m->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < m->columnCount(); ++c)
            cells << m->data(m->index(r, c), Qt::EditRole).toString();
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

#endif // SPINETESTSUPPORT_H
