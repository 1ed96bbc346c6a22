#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QFileInfo>
#include <QHash>
#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <QVector>

class QAction;
class QCloseEvent;
class QDockWidget;
class QStandardItemModel;
class QTabWidget;
class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

class MdiChildBuilder;
class MdiChildEditor;
class ReportStore;

// The top-level window: tabs of documents, the report dock, menus.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

protected:
    void closeEvent(QCloseEvent *event) override;

protected slots:
    // Report dock (mainwindow_reports.cpp).
    void updateError(int lineNum, int linePos, QString fname, QString block, QString id,
                     int type, QString err, int &errId);
    // Documents (mainwindow.cpp).
    void newFile();
    void openFromFile();
    void openFromFileRO();
    // Sync dock (mainwindow_sync.cpp).
    void openFromDDE(QModelIndex index);
    void startUpDDE();
    void updateDDE();
    void mircRightclickMenu(QPoint point);
    // Report dock (mainwindow_reports.cpp).
    void debugDClick(QModelIndex index);
    void statusDClick(QModelIndex index);

private slots:
    // Frame (mainwindow_frame.cpp).
    void exitProgram();
    void showAbout();
    // Report dock (mainwindow_reports.cpp).
    void removeError(QVector<int> &errIds);
    // Frame (mainwindow_frame.cpp).
    void resizeBar();
    // Sync dock (mainwindow_sync.cpp).
    void buildSyncDock();
    // Report dock (mainwindow_reports.cpp).
    void buildReportDock();
    // Documents (mainwindow.cpp).
    void buildMdiArea();
    // Document commands (mainwindow_commands.cpp).
    void editorClosed(MdiChildEditor *win);
    void editMenuAboutToShow();
    // Report dock (mainwindow_reports.cpp).
    void editorErrUpdate(QFileInfo filename, MdiChildEditor *win);
    void editorFclosed(QFileInfo fileName);
    // Document commands (mainwindow_commands.cpp).
    void tabCloseRequested(int index);
    // Documents (mainwindow.cpp).
    void tabChangedRequested(int index);
    // Document commands (mainwindow_commands.cpp).
    void editorTitleChange(MdiChildEditor *win, QString title);
    void editMenuUndoUpdate(bool available);
    void editMenuRedoUpdate(bool available);
    void editMenuSelectionUpdate();
    void undoClicked();
    void redoClicked();
    void cutClicked();
    void copyClicked();
    void pasteClicked();
    void deleteClicked();
    void selectAllClicked();
    void findReplaceClicked();
    void closeFile();
    void closeAllFiles();
    void closeAllButActive();
    // Frame (mainwindow_frame.cpp).
    void setOnTop(bool ontop);
    void setWordWrap(bool wordWrap);
    void showSyncBar(bool show);
    void showMessageBar(bool show);
    // Document commands (mainwindow_commands.cpp).
    void saveAll();
    // Report dock (mainwindow_reports.cpp).
    void customDebugMenu(QPoint point);
    void customMessageMenu(QPoint point);

private:
    // Documents (mainwindow.cpp).
    void openFile(QFileInfo file, bool isReadOnly);
    void connectDocument(MdiChildEditor *doc);
    // Document commands (mainwindow_commands.cpp).
    void openAllFiles(QString ddeIndex);
    MdiChildEditor *currentEditorDocument() const;
    // Report dock (mainwindow_reports.cpp).
    void jumpToReport(const QStandardItemModel *model, int row);
    void holdRowsDuringPass();
    // Frame (mainwindow_frame.cpp).
    void builToolBar();
    void buildMenuBar();
    void runStartupRoutines();
    // Sync dock (mainwindow_sync.cpp).
    void checkFirstTime();
    // Frame (mainwindow_frame.cpp).
    void loadSettings();
    void saveSettings();

    QVector<MdiChildBuilder *> bldWindows;
    QVector<MdiChildEditor *> edtWindows;
    QTabWidget *mdiContainer = nullptr;
    QDockWidget *reportContainer = nullptr;
    QDockWidget *fileSyncing = nullptr;
    QTreeView *tree = nullptr;
    QStandardItemModel *layout = nullptr;
    QTreeView *msgs = nullptr;
    QStandardItemModel *msgsLayout = nullptr;
    QTabWidget *tabs = nullptr;
    QTreeWidget *syncFiles = nullptr;
    QAction *undo = nullptr;
    QAction *redo = nullptr;
    QAction *cut = nullptr;
    QAction *copy = nullptr;
    QAction *paste = nullptr;
    QAction *deleteB = nullptr;
    QAction *selectAll = nullptr;
    QAction *findReplace = nullptr;
    QWidget *curWindow = nullptr;
    QAction *closeMenu = nullptr;
    QAction *closeAllMenu = nullptr;
    QAction *closeAllButMenu = nullptr;
    QAction *onTop = nullptr;
    QAction *wordWrap = nullptr;
    QAction *syncBarMenu = nullptr;    // never made: no menu entry shows the sync dock
    QAction *messageBarMenu = nullptr;
    QVector<QFileInfo> filesOpen;      // declared, never used
    unsigned int tCount = 0;
    QVector<QTreeWidgetItem *> ddeTree; // declared, never used
    QHash<QString, QVector<QFileInfo>> files;
    QVector<QString> ddeServers;

    // The rows of the two report lists live in the models above; the store
    // keeps the indexes that make ids and ordering cheap.
    ReportStore *reportStore = nullptr;

    // Stays for what no caller can reach: opening a file without its dialog,
    // filing reports without an analyser, the documents and current tab kept.
    friend class MainWindowTestAccess;
};

#endif // MAINWINDOW_H
