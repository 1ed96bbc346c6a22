// The spine of the main window: its construction, the tab container, and
// the making of a document tab, new or from a file.

#include "mainwindow.h"

#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "msltextedit.h"
#include "msltexteditor.h"
#include "newprojectdialog.h"
#include "reportstore.h"
#include "singlepassload.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QIcon>
#include <QMessageBox>
#include <QSettings>
#include <QTabWidget>
#include <QTextDocument>
#include <QTimer>

namespace {

// The row of the tool that New makes (4 is a script file), -1 for Cancel.
int chooseNewDocumentKind(QWidget *parent)
{
    NewProjectDialog chooser(parent);
    return chooser.exec();
}

QString untitledName(unsigned int count)
{
    return QStringLiteral("Untitled") + QString::number(count);
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    // Each step builds on the ones before it; the settings come last, as
    // they are applied to the actions and docks made above.
    setWindowTitle(QStringLiteral("Tarnwick"));
    runStartupRoutines();
    builToolBar();
    buildMdiArea();
    buildReportDock();
    buildMenuBar();
    buildSyncDock();
    QTimer::singleShot(10000, this, &MainWindow::updateDDE);
    // The dock comes up short and may be dragged taller afterwards.
    reportContainer->setMaximumHeight(150);
    QTimer::singleShot(150, this, &MainWindow::resizeBar);
    tCount = 0;
    curWindow = nullptr;
    loadSettings();
}

MainWindow::~MainWindow()
{
    // The documents outlive this body, as children of the tab container;
    // their last signals (fclosing, closing, the withdrawals of their
    // lines) must not reach a window that is half gone.
    if (mdiContainer) {
        const auto documents = mdiContainer->findChildren<MdiChildEditor *>();
        for (MdiChildEditor *doc : documents) {
            disconnect(doc, nullptr, this, nullptr);
            if (MslSyntaxHighlighter *hl = doc->getHighlighter())
                disconnect(hl, nullptr, this, nullptr);
        }
    }
}

void MainWindow::runStartupRoutines()
{
    QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                QStringLiteral("general"));
    checkFirstTime();
    const int total = s.value(QStringLiteral("dde_keys")).toInt();
    for (int x = 0; x < total; ++x) {
        const QString name = s.value(QStringLiteral("dde_") + QString::number(x)).toString();
        // An empty entry is skipped; it does not end the list.
        if (!name.isEmpty())
            ddeServers.append(name);
    }
}

void MainWindow::buildMdiArea()
{
    mdiContainer = new QTabWidget(this);
    mdiContainer->setTabsClosable(true);
    mdiContainer->setTabShape(QTabWidget::Rounded);
    connect(mdiContainer, &QTabWidget::tabCloseRequested, this, &MainWindow::tabCloseRequested);
    connect(mdiContainer, &QTabWidget::currentChanged, this, &MainWindow::tabChangedRequested);
    setCentralWidget(mdiContainer);
}

void MainWindow::tabChangedRequested(int index)
{
    const bool any = mdiContainer->count() != 0;
    if (closeMenu)
        closeMenu->setEnabled(any);
    if (closeAllMenu)
        closeAllMenu->setEnabled(any);
    if (closeAllButMenu)
        closeAllButMenu->setEnabled(any);
    curWindow = any ? mdiContainer->widget(index) : nullptr;
}

void MainWindow::connectDocument(MdiChildEditor *doc)
{
    MslSyntaxHighlighter *hl = doc->getHighlighter();
    // The analyser reads the new report's id back through the reference:
    // only a direct call fills it in time.
    connect(hl, &MslSyntaxHighlighter::updateError, this, &MainWindow::updateError,
            Qt::DirectConnection);
    connect(hl, &MslSyntaxHighlighter::removeError, this, &MainWindow::removeError);
    // Every pass ends inside a change of the document, and the document
    // announces the change done after the pass.
    connect(doc->getEditor()->document(), &QTextDocument::contentsChanged, reportStore,
            &ReportStore::flushRows);
    connect(doc, &MdiChildEditor::fclosing, this, &MainWindow::editorFclosed);
    connect(doc, &MdiChildEditor::closing, this, &MainWindow::editorClosed);
    connect(doc, &MdiChildEditor::blocksChanged, this, &MainWindow::editorErrUpdate);
    connect(doc, &MdiChildEditor::titleChanged, this, &MainWindow::editorTitleChange);
}

void MainWindow::newFile()
{
    const int result = chooseNewDocumentKind(this);
    if (result < 0 || result > 5)
        return;

    switch (result) {
    case 1: {
        QMessageBox::information(this, tr("Unsupported Feature"),
                                 tr("This feature is currently in pre-alpha stage of development.\n"
                                    "(Please do not report any related bugs.)"),
                                 QMessageBox::Ok);
        auto *builder = new MdiChildBuilder(mdiContainer);
        bldWindows.append(builder);
        ++tCount;
        mdiContainer->addTab(builder,
                             QIcon(QStringLiteral(
                                 ":/tabbar/resources/img_assets/options/main/tabs/dialog.png")),
                             untitledName(tCount));
        mdiContainer->setCurrentWidget(builder);
        return;
    }
    case 4: {
        auto *doc = new MdiChildEditor();
        connectDocument(doc);
        edtWindows.append(doc);
        ++tCount;
        const QString title = untitledName(tCount);
        mdiContainer->addTab(
            doc, QIcon(QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file.png")),
            title);
        doc->setFile(QFileInfo(title), true, false);
        doc->getEditor()->setWordWrapMode(wordWrap && wordWrap->isChecked()
                                              ? QTextOption::WordWrap
                                              : QTextOption::NoWrap);
        mdiContainer->setCurrentWidget(doc);
        doc->getEditor()->setFocus(Qt::OtherFocusReason);
        return;
    }
    default:
        // Blank, Dialog Script, Picture Window and Text File make nothing.
        QMessageBox::information(this, tr("Unsupported Feature"),
                                 tr("This feature is currently unsupported."), QMessageBox::Ok);
        return;
    }
}

void MainWindow::openFromFile()
{
    const QString answer = QFileDialog::getOpenFileName(
        this, tr("Select File To Open"), QString(),
        tr("mIRC Scripts File (*.mRC);;mIRC INI Script File (*.ini)"));
    if (answer.isEmpty())
        return;
    openFile(QFileInfo(answer), false);
}

void MainWindow::openFromFileRO()
{
    const QString answer = QFileDialog::getOpenFileName(
        this, tr("Select File To Open (Read-Only)"), QString(),
        tr("mIRC Scripts File (*.mRC);;mIRC INI Script File (*.ini)"));
    if (answer.isEmpty())
        return;
    openFile(QFileInfo(answer), true);
}

void MainWindow::openFile(QFileInfo file, bool isReadOnly)
{
    // A file that is open already only gets its tab back: no reload, and
    // the read-only wish is not looked at.
    const QVector<MdiChildEditor *> open = edtWindows;
    for (MdiChildEditor *doc : open) {
        if (doc->file() == file) {
            mdiContainer->setCurrentWidget(doc);
            return;
        }
    }

    auto *doc = new MdiChildEditor(mdiContainer);
    connectDocument(doc);
    doc->setFile(file, false, isReadOnly);
    const QString icon = isReadOnly
        ? QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file-read-only.png")
        : QStringLiteral(":/tabbar/resources/img_assets/options/main/tabs/file.png");
    mdiContainer->addTab(doc, QIcon(icon), file.fileName());
    edtWindows.append(doc);
    doc->getEditor()->setWordWrapMode(wordWrap && wordWrap->isChecked() ? QTextOption::WordWrap
                                                                        : QTextOption::NoWrap);
    mdiContainer->setCurrentWidget(doc);
    doc->getEditor()->setFocus(Qt::OtherFocusReason);
    // The text went in before the highlighter knew the path, so the first
    // pass filed its reports under an empty name; this pass withdraws them
    // and files them again under the full path. The load skipped that
    // first pass, so the ids are settled where it would have left them.
    // Every line the pass colours makes the editor's layout ask for a
    // repaint of the whole view; one request when the pass is done has the
    // same effect at a fraction of the cost.
    QAbstractTextDocumentLayout *layout = doc->getEditor()->document()->documentLayout();
    {
        const QSignalBlocker quiet(layout);
        doc->getHighlighter()->rehighlight();
    }
    emit layout->update();
    settleSinglePassIds(doc->getEditor()->document(), reportStore);
}
