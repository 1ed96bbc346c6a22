#ifndef DOCUMENTTESTSUPPORT_H
#define DOCUMENTTESTSUPPORT_H

// Shared by the editor document tests: a reach into the document's
// private parts, and a driver for the modal dialogs and popup menus that
// the document opens with exec().

#include "mdichild_editor.h"
#include "lineeditbtn.h"
#include "msltexteditor.h"

#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

class MdiChildEditorTestAccess
{
public:
    explicit MdiChildEditorTestAccess(MdiChildEditor *doc) : d(doc) {}

    MslTextEditor *editor() const { return d->editor; }
    MslSyntaxHighlighter *highlighter() const { return d->syntaxHighlighter; }
    bool didChange() const { return d->didChange; }
    bool noFile() const { return d->noFile; }
    QLabel *curStatus() const { return d->curStatus; }
    QLabel *docStatus() const { return d->docStatus; }
    int syntaxTimer() const { return d->syntaxTimer; }

    LineEditBtn *searchLine() const { return d->searchLine; }
    QLineEdit *replacement() const { return d->replacement; }
    QDockWidget *searchBox() const { return d->searchBox; }
    int searchType() const { return d->searchType; }
    void setSearchType(int mode) { d->searchType = mode; }

    bool save() { return d->saveFileClicked(); }
    void resetSyntaxTimer() { d->resetSyntaxTimer(); }
    void searchChange() { d->search_change(); }
    void searchNext() { d->search_next(); }
    void searchPrev() { d->search_prev(); }
    void searchEnter() { d->search_enter(); }
    void searchReplace() { d->search_replace(); }
    void searchReplaceAll() { d->search_replaceAll(); }
    void openSearchBox() { d->openSearchBox(); }

    // The object tree panel is not built by the document; tests make one.
    QDockWidget *&compBox() { return d->compBox; }
    QTreeWidget *&compTree() { return d->compTree; }
    QTreeWidgetItem *&aliases() { return d->aliases; }
    QTreeWidgetItem *&dialogs() { return d->dialogs; }
    QTreeWidgetItem *&events() { return d->events; }
    QTreeWidgetItem *&aliasesLocal() { return d->aliases_local; }
    QTreeWidgetItem *&aliasesGlobal() { return d->aliases_global; }
    QTreeWidgetItem *&dialogLocal() { return d->dialog_local; }
    QTreeWidgetItem *&dialogGlobal() { return d->dialog_global; }
    QTreeWidgetItem *&onEvents() { return d->on_events; }
    void updateObjTree() { d->updateObjTree(); }
    void compClicked() { d->compClicked(QModelIndex()); }

private:
    MdiChildEditor *d;
};

// Acts on widgets that come up inside a nested event loop: each step
// waits (polling) for the widget that `find` names, then runs `act` on
// it once. Steps run in the order they were queued.
class UiDriver : public QObject
{
public:
    using Finder = std::function<QWidget *()>;
    using Action = std::function<void(QWidget *)>;

    UiDriver()
    {
        timer.setInterval(5);
        connect(&timer, &QTimer::timeout, this, &UiDriver::poll);
    }

    void then(Finder find, Action act)
    {
        steps.append({find, act});
        timer.start();
    }

    // The next modal widget of type T (a message box, a file dialog).
    template<typename T>
    void onModal(std::function<void(T *)> act)
    {
        then([]() -> QWidget * { return qobject_cast<T *>(QApplication::activeModalWidget()); },
             [act](QWidget *w) { act(qobject_cast<T *>(w)); });
    }

    template<typename T>
    void onPopup(std::function<void(T *)> act)
    {
        then([]() -> QWidget * { return qobject_cast<T *>(QApplication::activePopupWidget()); },
             [act](QWidget *w) { act(qobject_cast<T *>(w)); });
    }

    int pending() const { return steps.size(); }
    int done() const { return finished; }

private:
    struct Step {
        Finder find;
        Action act;
    };

    void poll()
    {
        if (steps.isEmpty()) {
            timer.stop();
            return;
        }
        QWidget *w = steps.first().find();
        // The widget of the previous step may still be closing.
        if (!w || !w->isVisible() || w == last)
            return;
        last = w;
        const Step step = steps.takeFirst();
        ++finished;
        step.act(w);
    }

    QTimer timer;
    QList<Step> steps;
    QPointer<QWidget> last;
    int finished = 0;
};

#endif // DOCUMENTTESTSUPPORT_H
