#ifndef SHELLTESTSUPPORT_H
#define SHELLTESTSUPPORT_H

// Helpers for the shell's tests: settings kept in a private folder, and a
// driver that answers modal dialogs as they come up.

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QStringList>
#include <QTimer>
#include <functional>

// Answers modal dialogs in order. Each answer gets the dialog that came up
// and does something to it (click a button, pick a row, close it). The
// window title of each dialog met is recorded.
class ModalDriver : public QObject
{
public:
    using Answer = std::function<void(QWidget *)>;

    explicit ModalDriver(QList<Answer> answers)
        : pending(std::move(answers))
    {
        timer.setInterval(20);
        QObject::connect(&timer, &QTimer::timeout, [this] { poll(); });
        timer.start();
    }

    static Answer clickMessageButton(QMessageBox::StandardButton which)
    {
        return [which](QWidget *w) {
            auto *box = qobject_cast<QMessageBox *>(w);
            if (box && box->button(which))
                box->button(which)->click();
            else if (auto *dialog = qobject_cast<QDialog *>(w))
                dialog->reject();
        };
    }

    QStringList titles;
    QStringList texts;
    int left() const { return pending.size(); }

private:
    void poll()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal || modal == last)
            return;
        last = modal;
        titles << modal->windowTitle();
        if (auto *box = qobject_cast<QMessageBox *>(modal))
            texts << box->text();
        else
            texts << QString();
        if (pending.isEmpty()) {
            if (auto *dialog = qobject_cast<QDialog *>(modal))
                dialog->reject();
            return;
        }
        Answer answer = pending.takeFirst();
        answer(modal);
    }

    QTimer timer;
    QList<Answer> pending;
    QPointer<QWidget> last;
};

inline void redirectSettings(const QString &folder)
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
}

inline QSettings openSettings(const QString &application)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                     application);
}

#endif // SHELLTESTSUPPORT_H
