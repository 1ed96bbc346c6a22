// The report dock: the Debug and Messages lists that receive what the
// analyser finds, and the jumps and copies made from them.

#include "mainwindow.h"

#include "mdichild_editor.h"
#include "msltextedit.h"
#include "msltexteditor.h"
#include "reportkind.h"
#include "reportstore.h"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QMenu>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTreeView>

namespace {

void setHeaders(QStandardItemModel *model, const QStringList &titles)
{
    for (int column = 0; column < titles.size(); ++column)
        model->setHeaderData(column, Qt::Horizontal, titles.at(column), Qt::EditRole);
}

QString cellText(const QStandardItemModel *model, int row, int column)
{
    return model->data(model->index(row, column), Qt::EditRole).toString();
}

QString kindIconPath(int kind)
{
    switch (kind) {
    case InformationReport:
        return QStringLiteral(":/messages/syntax/resources/img_assets/messages/syntax/information.png");
    case WarningReport:
        return QStringLiteral(":/messages/syntax/resources/img_assets/messages/syntax/warning.png");
    case ErrorReport:
        return QStringLiteral(":/messages/syntax/resources/img_assets/messages/syntax/error.png");
    case BlueNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/blue.png");
    case TodoNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/green.png");
    case GreyNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/grey.png");
    case HackNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/orange.png");
    case XxxNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/red.png");
    case FixmeNote:
        return QStringLiteral(":/messages/syntax/msgs/resources/img_assets/messages/syntax/msgs/yellow.png");
    }
    return QString();
}

// The dock's face of a report kind: one icon per kind, shared by all rows;
// a value that is no kind shows none.
QIcon kindIcon(int kind)
{
    static QHash<int, QIcon> cache;
    auto it = cache.find(kind);
    if (it == cache.end()) {
        const QString path = kindIconPath(kind);
        it = cache.insert(kind, path.isEmpty() ? QIcon() : QIcon(path));
    }
    return it.value();
}

} // namespace

void MainWindow::buildReportDock()
{
    reportContainer = new QDockWidget(tr("Message Area"), this);
    reportContainer->setObjectName(QStringLiteral("msgArea"));
    reportContainer->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    reportContainer->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable
                                 | QDockWidget::DockWidgetFloatable);

    tabs = new QTabWidget(reportContainer);
    reportContainer->setWidget(tabs);

    tree = new QTreeView(tabs);
    tree->setObjectName(QStringLiteral("debugView"));
    layout = new QStandardItemModel(0, ReportStore::DebugColumns, tree);
    setHeaders(layout, {QObject::tr("File"), QObject::tr("Line"), QObject::tr("Col"),
                        QObject::tr("Block"), QObject::tr("ID"), QObject::tr("Error")});
    tree->setModel(layout);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree->setSortingEnabled(true);
    tree->hideColumn(ReportStore::DebugIdColumn);
    tabs->addTab(tree, tr("Debug"));
    connect(tree, &QAbstractItemView::doubleClicked, this, &MainWindow::debugDClick);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tree, &QWidget::customContextMenuRequested, this, &MainWindow::customDebugMenu);

    msgs = new QTreeView(tabs);
    msgs->setObjectName(QStringLiteral("messagesView"));
    msgsLayout = new QStandardItemModel(0, ReportStore::MessagesColumns, msgs);
    setHeaders(msgsLayout, {QObject::tr("File"), QObject::tr("Line"), QObject::tr("Col"),
                            QObject::tr("ID"), QObject::tr("Message")});
    msgs->setModel(msgsLayout);
    msgs->setEditTriggers(QAbstractItemView::NoEditTriggers);
    msgs->setSortingEnabled(true);
    msgs->hideColumn(ReportStore::MessagesIdColumn);
    tabs->addTab(msgs, tr("Messages"));
    connect(msgs, &QAbstractItemView::doubleClicked, this, &MainWindow::statusDClick);
    msgs->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(msgs, &QWidget::customContextMenuRequested, this, &MainWindow::customMessageMenu);

    addDockWidget(Qt::BottomDockWidgetArea, reportContainer);

    reportStore = new ReportStore(layout, msgsLayout, this);
    reportStore->setKindIcon(&kindIcon);
}

void MainWindow::updateError(int lineNum, int linePos, QString fname, QString block, QString id,
                             int type, QString err, int &errId)
{
    Q_UNUSED(id);
    // Every report keeps its list in the order the user chose on the view.
    const QHeaderView *header =
        ReportStore::listFor(type) == ReportStore::MessagesList ? msgs->header() : tree->header();
    holdRowsDuringPass();
    errId = reportStore->addReport(lineNum, linePos, fname, block, type, err,
                                   header->sortIndicatorSection(), header->sortIndicatorOrder());
}

void MainWindow::removeError(QVector<int> &errIds)
{
    holdRowsDuringPass();
    reportStore->removeReports(errIds);
}

// A pass of an analyser withdraws and files reports line by line, and a
// pass that runs down a long script would take rows out of the top of the
// lists one by one. Its rows are held and put in place together when the
// document says the change is done (connectDocument). A report filed by
// a direct call goes in at once, behind whatever is still held.
void MainWindow::holdRowsDuringPass()
{
    if (qobject_cast<MslSyntaxHighlighter *>(sender()))
        reportStore->holdRows();
    else
        reportStore->flushRows();
}

void MainWindow::editorFclosed(QFileInfo fileName)
{
    reportStore->removeFile(fileName.absoluteFilePath());
}

void MainWindow::editorErrUpdate(QFileInfo filename, MdiChildEditor *win)
{
    if (!win)
        return;
    reportStore->updateLines(filename.absoluteFilePath(), win->getEditor()->document());
}

namespace {

// The row's file, line and column, for a jump from either list.
struct JumpTarget
{
    QString file;
    int line = 0;
    int pos = 0;
};

JumpTarget jumpTarget(const QStandardItemModel *model, int row)
{
    JumpTarget t;
    t.file = cellText(model, row, ReportStore::FileColumn);
    t.line = model->data(model->index(row, ReportStore::LineColumn), Qt::EditRole).toInt();
    t.pos = model->data(model->index(row, ReportStore::ColColumn), Qt::EditRole).toInt();
    return t;
}

} // namespace

void MainWindow::debugDClick(QModelIndex index)
{
    jumpToReport(layout, index.row());
}

void MainWindow::statusDClick(QModelIndex index)
{
    jumpToReport(msgsLayout, index.row());
}

// A row whose file is not open, or no longer under that name, goes nowhere.
void MainWindow::jumpToReport(const QStandardItemModel *model, int row)
{
    const JumpTarget t = jumpTarget(model, row);
    const QVector<MdiChildEditor *> open = edtWindows;
    for (MdiChildEditor *doc : open) {
        if (doc->file().absoluteFilePath() != t.file)
            continue;
        mdiContainer->setCurrentWidget(doc);
        MslTextEditor *editor = doc->getEditor();
        editor->gotoLine(t.line);
        editor->gotoPos(t.pos);
        editor->setFocus(Qt::OtherFocusReason);
        return;
    }
}

void MainWindow::customDebugMenu(QPoint point)
{
    if (layout->rowCount() < 1)
        return;
    QMenu menu;
    QAction *copyError = menu.addAction(tr("Copy Error"));
    if (menu.exec(tree->mapToGlobal(point)) != copyError)
        return;
    // The current row, not the one under the mouse.
    const int row = tree->currentIndex().row();
    const QString text = cellText(layout, row, ReportStore::FileColumn) + QLatin1Char(' ')
        + cellText(layout, row, ReportStore::LineColumn) + QLatin1Char(':')
        + cellText(layout, row, ReportStore::ColColumn) + QLatin1Char(' ')
        + cellText(layout, row, ReportStore::BlockColumn) + QLatin1Char(' ')
        + cellText(layout, row, ReportStore::DebugTextColumn);
    QGuiApplication::clipboard()->setText(text);
}

void MainWindow::customMessageMenu(QPoint point)
{
    // Keyed on the Debug list, not on this one: the Messages menu shows
    // only while the Debug list has a row.
    if (layout->rowCount() < 1)
        return;
    QMenu menu;
    QAction *copyMessage = menu.addAction(tr("Copy Message"));
    if (menu.exec(msgs->mapToGlobal(point)) != copyMessage)
        return;
    const int row = msgs->currentIndex().row();
    const QString text = cellText(msgsLayout, row, ReportStore::FileColumn) + QLatin1Char(' ')
        + cellText(msgsLayout, row, ReportStore::LineColumn) + QLatin1Char(':')
        + cellText(msgsLayout, row, ReportStore::ColColumn) + QLatin1Char(' ')
        + cellText(msgsLayout, row, ReportStore::MessagesTextColumn);
    QGuiApplication::clipboard()->setText(text);
}
