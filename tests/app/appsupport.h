#ifndef APPSUPPORT_H
#define APPSUPPORT_H

// Shared by the shell's tests: a reach into the main window's private
// parts, settings and files in private folders, and a driver that answers
// the dialogs and popup menus which come up in nested event loops.

#include "devsettings.h"
#include "mainwindow.h"
#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltextedit.h"
#include "msltexteditor.h"
#include "reportstore.h"
#include "testsuite.h"

#include <QtTest>
#include <QtWidgets>

class MainWindowTestAccess
{
public:
    // With no window given, it makes one of its own.
    explicit MainWindowTestAccess(MainWindow *window = nullptr)
        : own(window ? nullptr : new MainWindow), w(window ? window : own.get())
    { }
    MainWindow &window() const { return *w; }

    // What a user sees is found by name, or as the window's central widget.
    QTabWidget *tabs() const { return qobject_cast<QTabWidget *>(w->centralWidget()); }
    QDockWidget *reportDock() const { return w->findChild<QDockWidget *>("msgArea"); }
    QDockWidget *syncDock() const { return w->findChild<QDockWidget *>("mIRCSync"); }
    QTreeView *debugView() const { return w->findChild<QTreeView *>("debugView"); }
    QTreeView *messagesView() const { return w->findChild<QTreeView *>("messagesView"); }
    QStandardItemModel *debug() const { return model(debugView()); }
    QStandardItemModel *messages() const { return model(messagesView()); }
    ReportStore *store() const { return w->findChild<ReportStore *>(); }
    void newFile() { entry("&File", "&New")->trigger(); }

    // A right click on a report list, and a double click on one of its rows.
    void reportMenu(bool debug)
    {
        QWidget *at = (debug ? debugView() : messagesView())->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2),
                                at->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(at, &event);
    }
    void doubleClick(bool debug, const QModelIndex &index)
    {
        QTreeView *view = debug ? debugView() : messagesView();
        qobject_cast<QTabWidget *>(reportDock()->widget())->setCurrentWidget(view);
        const QPoint at = view->visualRect(index).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    }

    // The rest has no way in from outside: files are opened through a file
    // dialog or the sync dock, reports come from a document's analyser, and
    // the window keeps its documents, current tab and servers to itself.
    QVector<MdiChildEditor *> editors() const { return w->edtWindows; }
    QVector<MdiChildBuilder *> builders() const { return w->bldWindows; }
    QWidget *current() const { return w->curWindow; }
    QVector<QString> ddeServers() const { return w->ddeServers; }

    void openFile(const QString &path, bool readOnly) { w->openFile(QFileInfo(path), readOnly); }
    int report(int line, int col, const QString &file, const QString &block, int type,
               const QString &message)
    {
        int id = 0;
        w->updateError(line, col, file, block, "???", type, message, id);
        return id;
    }
    void removeError(QVector<int> ids) { w->removeError(ids); }
    void editorFclosed(const QString &path) { w->editorFclosed(QFileInfo(path)); }
    // A dialog builder, as File > New makes one after its warning.
    void addBuilder();
    // An entry of the menu bar, by its menu's text and its own.
    QAction *entry(const QString &menu, const QString &text) const
    {
        for (QAction *top : w->menuBar()->actions())
            for (QAction *a : top->menu()->actions())
                if (top->text() == menu && a->text() == text)
                    return a;
        return nullptr;
    }

private:
    static QStandardItemModel *model(QTreeView *view)
    {
        return qobject_cast<QStandardItemModel *>(view->model());
    }

    std::unique_ptr<MainWindow> own;
    MainWindow *w;
};

inline void redirectSettings(const QString &dir)
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir);
}
inline QSettings openSettings(const QString &name)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, "Tarnwick", name);
}
inline void initialiseAnalyser()
{
    static const bool done = (DevSettings::InitializeAllSettings(), true);
    Q_UNUSED(done);
}

inline QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size()
        ? path
        : QString();
}

inline QByteArray readFile(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Rows of a report list as "file|line|col|...|text", in view order.
inline QStringList modelRows(const QStandardItemModel *m)
{
    QStringList rows;
    for (int r = 0; r < m->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < m->columnCount(); ++c)
            cells << m->data(m->index(r, c)).toString();
        rows << cells.join('|');
    }
    return rows;
}

// Answers, one by one, what comes up in a nested event loop. Records each
// dialog as "title|text" and each popup menu as "menu:entry|entry"; what
// comes up with no answer left is closed, so that a test never hangs.
class NestedLoopDriver : public QObject
{
public:
    using Answer = std::function<void(QWidget *)>;

    explicit NestedLoopDriver(QList<Answer> answers = {}) : pending(std::move(answers))
    {
        QObject::connect(&timer, &QTimer::timeout, this, [this] { poll(); });
        timer.start(10);
    }
    // A button of the box (a message box's have the same values), after a row.
    static Answer press(int which, int row = -1)
    {
        return [which, row](QWidget *w) {
            if (row >= 0)
                w->findChild<QListWidget *>()->setCurrentRow(row);
            w->findChild<QDialogButtonBox *>()
                ->button(QDialogButtonBox::StandardButton(which))
                ->click();
        };
    }
    static Answer firstEntry()
    {
        return [](QWidget *menu) {
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        };
    }

    QStringList seen;

private:
    void poll()
    {
        QWidget *w = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                       : QApplication::activeModalWidget();
        if (!w || w == last)
            return;
        last = w;
        QStringList entries;
        for (QAction *a : w->actions())
            entries << a->text();
        auto *box = qobject_cast<QMessageBox *>(w);
        seen << (qobject_cast<QMenu *>(w) ? "menu:" + entries.join('|')
                                          : w->windowTitle() + '|' + (box ? box->text() : ""));
        if (!pending.isEmpty())
            pending.takeFirst()(w);
        else
            w->close();
    }

    QTimer timer;
    QList<Answer> pending;
    QPointer<QWidget> last;
};

inline void MainWindowTestAccess::addBuilder()
{
    NestedLoopDriver driver({NestedLoopDriver::press(QDialogButtonBox::Ok, 1),
                             NestedLoopDriver::press(QMessageBox::Ok)});
    newFile();
}

#endif // APPSUPPORT_H
