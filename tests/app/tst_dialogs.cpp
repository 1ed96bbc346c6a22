// The shell's small dialogs driven for real: the chooser behind New, the
// about box, the DDE server list and the settings it writes.

#include "aboutdialog.h"
#include "appsupport.h"
#include "newprojectdialog.h"
#include "selectdde.h"

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(settingsDir.isValid()); }
    void init()
    {
        QDir(settingsDir.path()).removeRecursively();
        redirectSettings(settingsDir.path());
    }

    // Ok needs a picked tool; a double click picks one.
    void chooser()
    {
        NewProjectDialog d(nullptr);
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        d.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        QVERIFY(d.isVisible());
        QListWidget *list = d.findChild<QListWidget *>();
        const QPoint script = list->visualItemRect(list->item(4)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, script);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, script);
        QVERIFY(!d.isVisible());
        QCOMPARE(d.result(), 4);
    }

    // One about box for the life of the window, closed by its Ok.
    void aboutBox()
    {
        MainWindowTestAccess a;
        QList<QWidget *> seen;
        for (int i = 0; i < 2; ++i) {
            NestedLoopDriver driver({[&seen](QWidget *box) {
                seen << box;
                box->findChild<QPushButton *>()->click();
            }});
            a.entry("&Help", "&About")->trigger();
        }
        QVERIFY(qobject_cast<AboutDialog *>(seen.value(0)) && seen.value(1) == seen.value(0));
        QVERIFY(seen.value(0)->parentWidget() == &a.window() && !seen.value(0)->isVisible());
    }

    // Delete, Add and Ok; the next start reads the stored list, skipping blanks.
    void ddeServersStored()
    {
        openSettings("general").setValue("dde_3", "old3");
        SelectDDE d;
        QListWidget *list = d.findChild<QListWidget *>();
        // Add and Delete, then the box's Ok.
        const QList<QPushButton *> buttons
            = d.findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly)
            << d.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        buttons[1]->click();
        list->setCurrentRow(0);
        buttons[1]->click();
        QVERIFY(list->count() == 0 && !buttons[1]->isEnabled());
        for (const char *name : {"mirc", "", "second", "mirc"}) {
            NestedLoopDriver driver({[name](QWidget *w) {
                auto *input = qobject_cast<QInputDialog *>(w);
                input->setTextValue(name);
                *name ? input->accept() : input->reject();
            }});
            buttons[0]->click();
            QVERIFY(driver.seen.value(0).startsWith("DDE Server Name|"));
        }
        QVERIFY(buttons[1]->isEnabled());
        d.show();
        buttons[2]->click();
        QVERIFY(!d.isVisible());
        QSettings s = openSettings("general");
        QStringList stored;
        for (const char *key : {"dde_keys", "dde_0", "dde_1", "dde_2", "dde_3"})
            stored << s.value(key).toString();
        QCOMPARE(stored, QStringList({"3", "mirc", "second", "mirc", "old3"}));
        s.setValue("dde_1", QString());
        s.sync();
        QCOMPARE(MainWindowTestAccess().ddeServers(), QVector<QString>({"mirc", "mirc"}));
    }

private:
    QTemporaryDir settingsDir;
};

TARNWICK_TEST(TestDialogs);
#include "tst_dialogs.moc"
