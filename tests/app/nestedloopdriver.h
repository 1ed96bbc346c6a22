#ifndef NESTEDLOOPDRIVER_H
#define NESTEDLOOPDRIVER_H

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include <functional>

// Answers what comes up inside a nested event loop: modal dialogs and
// popup menus. Each answer is handed the widget and acts on it. Every
// widget met is recorded in `seen` by its window title or, for a menu, the
// texts of its entries; each dialog also by its title in `titles` and its
// message box text (or nothing) in `texts`.
class NestedLoopDriver : public QObject
{
public:
    using Answer = std::function<void(QWidget *)>;

    explicit NestedLoopDriver(QList<Answer> answers = {})
        : pending(std::move(answers))
    {
        timer.setInterval(10);
        QObject::connect(&timer, &QTimer::timeout, this, [this] { poll(); });
        timer.start();
    }

    // Picks a row of the New chooser and confirms it.
    static Answer chooseRow(int row)
    {
        return [row](QWidget *w) {
            auto *list = w->findChild<QListWidget *>();
            auto *box = w->findChild<QDialogButtonBox *>();
            if (list && box && box->button(QDialogButtonBox::Ok)) {
                list->setCurrentRow(row);
                box->button(QDialogButtonBox::Ok)->click();
            } else if (auto *dialog = qobject_cast<QDialog *>(w)) {
                dialog->done(row);
            }
        };
    }

    static Answer clickButton(QMessageBox::StandardButton which)
    {
        return [which](QWidget *w) {
            auto *box = qobject_cast<QMessageBox *>(w);
            if (box && box->button(which))
                box->button(which)->click();
            else if (auto *dialog = qobject_cast<QDialog *>(w))
                dialog->reject();
        };
    }

    // Chooses the menu entry with this text.
    static Answer chooseEntry(const QString &text)
    {
        return [text](QWidget *w) {
            auto *menu = qobject_cast<QMenu *>(w);
            if (!menu)
                return;
            for (QAction *a : menu->actions()) {
                if (a->text() == text) {
                    menu->setActiveAction(a);
                    QTest::keyClick(menu, Qt::Key_Return);
                    return;
                }
            }
            menu->close();
        };
    }

    QStringList seen;
    QStringList titles;
    QStringList texts;
    int left() const { return int(pending.size()); }

private:
    void poll()
    {
        QWidget *w = QApplication::activePopupWidget();
        if (!w)
            w = QApplication::activeModalWidget();
        if (!w || w == last)
            return;
        last = w;
        if (auto *menu = qobject_cast<QMenu *>(w)) {
            QStringList entries;
            for (QAction *a : menu->actions())
                entries << a->text();
            seen << QStringLiteral("menu:") + entries.join(QLatin1Char('|'));
        } else if (auto *box = qobject_cast<QMessageBox *>(w)) {
            seen << box->windowTitle() + QLatin1Char('|') + box->text();
            titles << box->windowTitle();
            texts << box->text();
        } else {
            seen << w->windowTitle();
            titles << w->windowTitle();
            texts << QString();
        }
        if (pending.isEmpty()) {
            // Nothing was expected: close it so that the test goes on.
            if (auto *menu = qobject_cast<QMenu *>(w))
                menu->close();
            else if (auto *dialog = qobject_cast<QDialog *>(w))
                dialog->reject();
            return;
        }
        pending.takeFirst()(w);
    }

    QTimer timer;
    QList<Answer> pending;
    QPointer<QWidget> last;
};

#endif // NESTEDLOOPDRIVER_H
