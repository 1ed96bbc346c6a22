#ifndef MDICHILD_EDITOR_H
#define MDICHILD_EDITOR_H

#include <QFileInfo>
#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

class QCloseEvent;
class QDockWidget;
class QLabel;
class QLineEdit;
class QRegularExpression;
class QShortcut;
class QTimerEvent;
class QTreeWidget;
class QTreeWidgetItem;

class LineEditBtn;
class MslSyntaxHighlighter;
class MslTextEditor;

// One open script in a tab: the text widget, its analyser, a toolbar, a
// status bar and a find bar.
class MdiChildEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit MdiChildEditor(QWidget *parent = nullptr);
    ~MdiChildEditor() override;

    MslSyntaxHighlighter *getHighlighter();
    MslTextEditor *getEditor();
    // Whether the text differs from what was last loaded or saved.
    bool hasUnsavedChanges() const;
    // Whether the document has no file yet, so that saving asks for one.
    bool isUntitled() const;
    QFileInfo file();
    void setFile(QFileInfo fileName, bool nofile, bool isReadOnly);

    // Object tree panel; not built (mdichild_editor_objtree.cpp).
    void buildSideTree();
    // Find bar (mdichild_editor_search.cpp).
    void buildSearchDock();

    // Loads a script the way a tab does: UTF-8, the INI form by name.
    // Shared with tarnwick-lint so that both read a file alike.
    static QString loadScriptText(const QFileInfo &fileName);
    static bool isIniName(const QString &fileName);

protected:
    void timerEvent(QTimerEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

signals:
    void fclosing(QFileInfo file);
    void closing(MdiChildEditor *win);
    void blocksChanged(QFileInfo file, MdiChildEditor *win);
    void titleChanged(MdiChildEditor *win, QString title);

protected slots:
    void resetSyntaxTimer();
    // Saving, closing and status (mdichild_editor_save.cpp).
    void updateCursorStatus();
    bool saveFileClicked();
    void blocksChange(int count);
    void documentedModified(bool changed);
    // Find bar (mdichild_editor_search.cpp).
    void searchSelectionClicked(QPoint p);
    void closeSearchBox();
    void openSearchBox();
    void search_prev();
    void search_next();
    void search_enter();
    void search_change();
    void search_replace();
    void search_replaceAll();
    // Object tree (mdichild_editor_objtree.cpp).
    void updateObjTree();
    void compClicked(QModelIndex index);

private:
    // Saving (mdichild_editor_save.cpp).
    void builToolBars();
    // Find bar (mdichild_editor_search.cpp).
    QTextCursor findNextIdent(const QString &identifier, const QTextCursor &cursor,
                              QTextDocument::FindFlags options);
    QRegularExpression readSearchPattern() const;
    // The search line's pattern in pattern mode, no pattern in the others.
    QRegularExpression modePattern() const;
    // Selects the next hit from the text cursor on, when there is one.
    void selectNextHit(bool backward);
    QTextCursor searchInMode(const QTextCursor &from, bool backward,
                             const QRegularExpression &pattern);

    bool didChange = false;
    bool noFile = false;
    QDockWidget *toolBoxContainer = nullptr; // declared, never built
    MslTextEditor *editor = nullptr;
    MslSyntaxHighlighter *syntaxHighlighter = nullptr;
    QLabel *curStatus = nullptr;
    QLabel *docStatus = nullptr;
    QShortcut *findShortcut = nullptr;
    QShortcut *findCloseShortcut = nullptr;
    LineEditBtn *searchLine = nullptr;
    QLineEdit *replacement = nullptr;
    int searchType = 0;
    QDockWidget *searchBox = nullptr;
    QDockWidget *compBox = nullptr;
    QTreeWidgetItem *aliases = nullptr;
    QTreeWidgetItem *dialogs = nullptr;
    QTreeWidgetItem *events = nullptr;
    QTreeWidgetItem *aliases_local = nullptr;
    QTreeWidgetItem *aliases_global = nullptr;
    QTreeWidgetItem *dialog_local = nullptr;
    QTreeWidgetItem *dialog_global = nullptr;
    QTreeWidgetItem *on_events = nullptr;
    QTreeWidget *compTree = nullptr;
    int syntaxTimer = 0;
    QFileInfo fName;

    // Stays for what no user can reach: the object tree panel, never built
    // nor updated, and a search mode outside the mode menu's entries.
    friend class MdiChildEditorTestAccess;
};

#endif // MDICHILD_EDITOR_H
