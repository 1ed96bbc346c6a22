// The small dialogs of the shell: the chooser behind New, the about box
// and the DDE server list.

#include "aboutdialog.h"
#include "mainwindow.h"
#include "mdichild_dialog.h"
#include "mdichild_editor.h"
#include "newprojectdialog.h"
#include "selectdde.h"
#include "shelltestsupport.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

class NewProjectDialogTestAccess
{
public:
    explicit NewProjectDialogTestAccess(NewProjectDialog *d) : d(d) {}
    NewProjectDialog *d;
    QListWidget *list() const { return d->listWidget; }
    QDialogButtonBox *buttons() const { return d->buttonBox; }
};

class AboutDialogTestAccess
{
public:
    explicit AboutDialogTestAccess(AboutDialog *d) : d(d) {}
    AboutDialog *d;
    QPushButton *ok() const { return d->okButton; }
    QLabel *title() const { return d->label; }
    QLabel *version() const { return d->label_3; }
    QLabel *links() const { return d->label_4; }
};

class SelectDDETestAccess
{
public:
    explicit SelectDDETestAccess(SelectDDE *d) : d(d) {}
    SelectDDE *d;
    QListWidget *list() const { return d->listWidget; }
    QPushButton *add() const { return d->pushButton; }
    QPushButton *del() const { return d->pushButton_2; }
    QDialogButtonBox *buttons() const { return d->buttonBox; }
};

class MainWindowTestAccess
{
public:
    explicit MainWindowTestAccess(MainWindow *w) : w(w) {}
    MainWindow *w;
    QTabWidget *tabs() const { return w->mdiContainer; }
    QVector<MdiChildEditor *> editors() const { return w->edtWindows; }
    QVector<MdiChildBuilder *> builders() const { return w->bldWindows; }
    void newFile() { w->newFile(); }
    void showAbout() { w->showAbout(); }
};

namespace {

// Picks a row of the chooser, then presses Ok.
NestedLoopDriver::Answer chooseRow(int row)
{
    return [row](QWidget *w) {
        auto *chooser = qobject_cast<NewProjectDialog *>(w);
        if (!chooser) {
            qobject_cast<QDialog *>(w)->reject();
            return;
        }
        NewProjectDialogTestAccess a(chooser);
        a.list()->setCurrentRow(row);
        a.buttons()->button(QDialogButtonBox::Ok)->click();
    };
}

NestedLoopDriver::Answer pressCancel()
{
    return [](QWidget *w) {
        auto *box = w->findChild<QDialogButtonBox *>();
        box->button(QDialogButtonBox::Cancel)->click();
    };
}

NestedLoopDriver::Answer closeWindow()
{
    return [](QWidget *w) { w->close(); };
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void chooserItems_data();
    void chooserItems();
    void chooserLayout();
    void chooserOkPicksRow_data();
    void chooserOkPicksRow();
    void chooserOkWithoutRowStaysOpen();
    void chooserDoubleClick();
    void chooserCancelAndClose();
    void newFileActsOnChoice_data();
    void newFileActsOnChoice();
    void aboutBox();
    void aboutIsMadeOnce();
    void selectDdeStart();
    void selectDdeDeleteAllAndOk();
    void selectDdeAddBringsDeleteBack();
    void selectDdeAddCancelAddsNothing();
    void selectDdeWritesList();
    void selectDdeCancelAsks_data();
    void selectDdeCancelAsks();

private:
    QTemporaryDir settingsDir;
};

void TestDialogs::initTestCase()
{
    QVERIFY(settingsDir.isValid());
    redirectSettings(settingsDir.path());
}

void TestDialogs::init()
{
    QDir(settingsDir.path()).removeRecursively();
    QDir().mkpath(settingsDir.path());
}

void TestDialogs::chooserItems_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("description");
    QTest::newRow("blank") << 0 << "Blank" << "Opens a blank editor.";
    QTest::newRow("dialog") << 1 << "Dialog" << "Opens a new dialog builder window";
    QTest::newRow("dialog script") << 2 << "Dialog Script" << "This open does not yet exists.";
    QTest::newRow("picwin") << 3 << "Picture Window" << "Opens a picture window editor.";
    QTest::newRow("script") << 4 << "Script File" << "Opens an mSL script editor";
    QTest::newRow("text") << 5 << "Text File" << "Opens a plain text editor";
}

void TestDialogs::chooserItems()
{
    QFETCH(int, row);
    QFETCH(QString, text);
    QFETCH(QString, description);
    NewProjectDialog d(nullptr);
    NewProjectDialogTestAccess a(&d);
    QCOMPARE(a.list()->count(), 6);
    QListWidgetItem *item = a.list()->item(row);
    QCOMPARE(item->text(), text);
    QCOMPARE(item->data(Qt::WhatsThisRole).toString(), description);
    QVERIFY(!item->icon().pixmap(28, 25).isNull());
    QCOMPARE(item->data(Qt::SizeHintRole).toSize(), row == 2 ? QSize(200, 200) : QSize());
}

void TestDialogs::chooserLayout()
{
    NewProjectDialog d(nullptr);
    NewProjectDialogTestAccess a(&d);
    QCOMPARE(d.windowTitle(), QStringLiteral("Choose A Tool"));
    QCOMPARE(d.minimumSize(), QSize(340, 280));
    QCOMPARE(d.maximumSize(), QSize(340, 280));
    QCOMPARE(a.list()->objectName(), QStringLiteral("listWidget"));
    QCOMPARE(a.list()->viewMode(), QListView::IconMode);
    QCOMPARE(a.list()->gridSize(), QSize(130, 50));
    QCOMPARE(a.list()->geometry(), QRect(20, 30, 300, 200));
    QCOMPARE(a.list()->currentItem(), nullptr);
}

void TestDialogs::chooserOkPicksRow_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < 6; ++row)
        QTest::addRow("row %d", row) << row;
}

void TestDialogs::chooserOkPicksRow()
{
    QFETCH(int, row);
    NewProjectDialog d(nullptr);
    NestedLoopDriver driver({chooseRow(row)});
    QCOMPARE(d.exec(), row);
}

void TestDialogs::chooserOkWithoutRowStaysOpen()
{
    NewProjectDialog d(nullptr);
    NewProjectDialogTestAccess a(&d);
    d.show();
    a.buttons()->button(QDialogButtonBox::Ok)->click();
    QVERIFY(d.isVisible());
    a.list()->setCurrentRow(3);
    a.buttons()->button(QDialogButtonBox::Ok)->click();
    QVERIFY(!d.isVisible());
    QCOMPARE(d.result(), 3);
}

void TestDialogs::chooserDoubleClick()
{
    NewProjectDialog d(nullptr);
    NewProjectDialogTestAccess a(&d);
    d.show();
    QVERIFY(QTest::qWaitForWindowExposed(&d));
    QListWidget *list = a.list();
    // Empty space first: nothing happens.
    const QPoint empty(list->viewport()->width() - 3, list->viewport()->height() - 3);
    QVERIFY(!list->itemAt(empty));
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, empty);
    QVERIFY(d.isVisible());
    const QPoint script = list->visualItemRect(list->item(4)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, script);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, script);
    QVERIFY(!d.isVisible());
    QCOMPARE(d.result(), 4);
}

void TestDialogs::chooserCancelAndClose()
{
    {
        NewProjectDialog d(nullptr);
        NestedLoopDriver driver({pressCancel()});
        QCOMPARE(d.exec(), -1);
    }
    {
        // The window's own close goes through reject(): 0, not -1.
        NewProjectDialog d(nullptr);
        NestedLoopDriver driver({closeWindow()});
        QCOMPARE(d.exec(), 0);
    }
}

// What New makes for each answer of the chooser. Answers: a row, -1 for
// Cancel, -2 for the window's close button.
void TestDialogs::newFileActsOnChoice_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("editors");
    QTest::addColumn<int>("builders");
    QTest::addColumn<QString>("box");

    const QString unsupported = QStringLiteral("This feature is currently unsupported.");
    QTest::newRow("blank") << 0 << 0 << 0 << unsupported;
    QTest::newRow("dialog") << 1 << 0 << 1
                            << "This feature is currently in pre-alpha stage of development.\n"
                               "(Please do not report any related bugs.)";
    QTest::newRow("dialog script") << 2 << 0 << 0 << unsupported;
    QTest::newRow("picture window") << 3 << 0 << 0 << unsupported;
    QTest::newRow("script file") << 4 << 1 << 0 << QString();
    QTest::newRow("text file") << 5 << 0 << 0 << unsupported;
    QTest::newRow("cancel") << -1 << 0 << 0 << QString();
    QTest::newRow("window closed") << -2 << 0 << 0 << unsupported;
}

void TestDialogs::newFileActsOnChoice()
{
    QFETCH(int, answer);
    QFETCH(int, editors);
    QFETCH(int, builders);
    QFETCH(QString, box);

    MainWindow w;
    MainWindowTestAccess a(&w);
    NestedLoopDriver::Answer first = answer >= 0 ? chooseRow(answer)
                                            : answer == -1 ? pressCancel() : closeWindow();
    NestedLoopDriver driver({first, NestedLoopDriver::clickButton(QMessageBox::Ok)});
    a.newFile();
    QCOMPARE(driver.titles.first(), QStringLiteral("Choose A Tool"));
    if (box.isEmpty()) {
        QCOMPARE(driver.titles.size(), 1);
    } else {
        QCOMPARE(driver.titles.size(), 2);
        QCOMPARE(driver.titles.at(1), QStringLiteral("Unsupported Feature"));
        QCOMPARE(driver.texts.at(1), box);
    }
    QCOMPARE(a.editors().size(), editors);
    QCOMPARE(a.builders().size(), builders);
    QCOMPARE(a.tabs()->count(), editors + builders);
    if (editors)
        QCOMPARE(a.tabs()->tabText(0), QStringLiteral("Untitled1"));
}

void TestDialogs::aboutBox()
{
    AboutDialog d(nullptr);
    AboutDialogTestAccess a(&d);
    QVERIFY(d.isModal());
    QCOMPARE(d.minimumSize(), QSize(287, 148));
    QCOMPARE(d.maximumSize(), QSize(287, 148));
    QVERIFY(!(d.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(a.ok()->text(), QStringLiteral("&Ok"));
    QCOMPARE(a.title()->text(), QStringLiteral("Brombell - Tarnwick"));
    QCOMPARE(a.title()->font().family(), QStringLiteral("Monospace"));
    QCOMPARE(a.title()->font().pointSize(), 20);
    QCOMPARE(a.title()->font().weight(), QFont::Bold);
    QCOMPARE(a.version()->text(), QStringLiteral("0.1.1.19"));
    QVERIFY(a.links()->openExternalLinks());
    const QString links = a.links()->text();
    QVERIFY(links.contains(QStringLiteral("For support See: ")));
    QCOMPARE(links.count(QStringLiteral("href=\"irc://")), 2);
    QCOMPARE(links.count(QStringLiteral("#0000ff")), 2);

    NestedLoopDriver driver({[](QWidget *w) {
        AboutDialog *about = qobject_cast<AboutDialog *>(w);
        QVERIFY(about);
        AboutDialogTestAccess(about).ok()->click();
    }});
    d.setResult(5);
    QCOMPARE(d.exec(), 0);
}

void TestDialogs::aboutIsMadeOnce()
{
    MainWindow w;
    MainWindowTestAccess a(&w);
    QList<QWidget *> seen;
    auto record = [&seen](QWidget *dialog) {
        seen << dialog;
        qobject_cast<QDialog *>(dialog)->reject();
    };
    {
        NestedLoopDriver driver({record});
        a.showAbout();
    }
    {
        NestedLoopDriver driver({record});
        a.showAbout();
    }
    QCOMPARE(seen.size(), 2);
    QVERIFY(qobject_cast<AboutDialog *>(seen.at(0)));
    QCOMPARE(seen.at(0), seen.at(1));
    QCOMPARE(seen.at(0)->parentWidget(), static_cast<QWidget *>(&w));
}

void TestDialogs::selectDdeStart()
{
    SelectDDE d;
    SelectDDETestAccess a(&d);
    QCOMPARE(d.windowTitle(), QStringLiteral("DDE Server Setup"));
    QCOMPARE(d.minimumSize(), QSize(400, 315));
    QCOMPARE(d.maximumSize(), QSize(400, 315));
    QCOMPARE(a.list()->count(), 1);
    QCOMPARE(a.list()->item(0)->text(), QStringLiteral("mirc"));
    QVERIFY(!a.add()->icon().pixmap(16, 16).isNull());
    QVERIFY(!a.del()->icon().pixmap(16, 16).isNull());
    QVERIFY(a.del()->isEnabled());
}

void TestDialogs::selectDdeDeleteAllAndOk()
{
    SelectDDE d;
    SelectDDETestAccess a(&d);
    d.show();
    // Without a current item Delete removes nothing.
    a.del()->click();
    QCOMPARE(a.list()->count(), 1);
    a.list()->setCurrentRow(0);
    a.del()->click();
    QCOMPARE(a.list()->count(), 0);
    QVERIFY(!a.del()->isEnabled());
    a.buttons()->button(QDialogButtonBox::Ok)->click();
    QVERIFY(!d.isVisible());
    QSettings s = openSettings(QStringLiteral("general"));
    QVERIFY(s.contains(QStringLiteral("dde_keys")));
    QCOMPARE(s.value(QStringLiteral("dde_keys")).toInt(), 0);
}

void TestDialogs::selectDdeAddBringsDeleteBack()
{
    SelectDDE d;
    SelectDDETestAccess a(&d);
    a.list()->setCurrentRow(0);
    a.del()->click();
    QVERIFY(!a.del()->isEnabled());
    NestedLoopDriver driver({[](QWidget *w) {
        auto *input = qobject_cast<QInputDialog *>(w);
        QVERIFY(input);
        input->setTextValue(QStringLiteral("other"));
        input->accept();
    }});
    a.add()->click();
    QCOMPARE(driver.titles, QStringList{QStringLiteral("DDE Server Name")});
    QCOMPARE(a.list()->count(), 1);
    QCOMPARE(a.list()->item(0)->text(), QStringLiteral("other"));
    QVERIFY(a.del()->isEnabled());
}

void TestDialogs::selectDdeAddCancelAddsNothing()
{
    SelectDDE d;
    SelectDDETestAccess a(&d);
    NestedLoopDriver driver({[](QWidget *w) {
        auto *input = qobject_cast<QInputDialog *>(w);
        input->setTextValue(QStringLiteral("typed then cancelled"));
        input->reject();
    }});
    a.add()->click();
    QCOMPARE(driver.titles.size(), 1);
    QCOMPARE(a.list()->count(), 1);
}

void TestDialogs::selectDdeWritesList()
{
    {
        QSettings s = openSettings(QStringLiteral("general"));
        for (int i = 0; i < 4; ++i)
            s.setValue(QStringLiteral("dde_%1").arg(i), QStringLiteral("old%1").arg(i));
    }
    SelectDDE d;
    SelectDDETestAccess a(&d);
    a.list()->addItem(QStringLiteral("mirc"));
    a.list()->addItem(QStringLiteral("second"));
    d.show();
    a.buttons()->button(QDialogButtonBox::Ok)->click();
    QSettings s = openSettings(QStringLiteral("general"));
    QCOMPARE(s.value(QStringLiteral("dde_keys")).toInt(), 3);
    QCOMPARE(s.value(QStringLiteral("dde_0")).toString(), QStringLiteral("mirc"));
    QCOMPARE(s.value(QStringLiteral("dde_1")).toString(), QStringLiteral("mirc"));
    QCOMPARE(s.value(QStringLiteral("dde_2")).toString(), QStringLiteral("second"));
    // Keys of the longer old list stay.
    QCOMPARE(s.value(QStringLiteral("dde_3")).toString(), QStringLiteral("old3"));
}

void TestDialogs::selectDdeCancelAsks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("stays");
    QTest::newRow("no stays") << int(QMessageBox::No) << true;
    QTest::newRow("yes leaves") << int(QMessageBox::Yes) << false;
}

void TestDialogs::selectDdeCancelAsks()
{
    QFETCH(int, button);
    QFETCH(bool, stays);
    SelectDDE d;
    SelectDDETestAccess a(&d);
    d.show();
    NestedLoopDriver driver(
        {NestedLoopDriver::clickButton(QMessageBox::StandardButton(button))});
    a.buttons()->button(QDialogButtonBox::Cancel)->click();
    QCOMPARE(driver.titles, QStringList{QStringLiteral("Proceed?")});
    QVERIFY(driver.texts.first().startsWith(
        QStringLiteral("Not setting up even a single mIRC DDE server")));
    QCOMPARE(d.isVisible(), stays);
    QSettings s = openSettings(QStringLiteral("general"));
    QCOMPARE(s.contains(QStringLiteral("dde_keys")), !stays);
    if (!stays)
        QCOMPARE(s.value(QStringLiteral("dde_keys")).toInt(), 0);
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
