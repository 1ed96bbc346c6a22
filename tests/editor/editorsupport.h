#ifndef EDITORSUPPORT_H
#define EDITORSUPPORT_H

// Shared by the editor tests: the parts of the document and the text
// widget they look at, a driver for the dialogs and menus they open with exec(), and a
// shown editor with the real analyser that takes keys as a keyboard sends
// them.

#include "analyserharness.h"
#include "lineeditbtn.h"
#include "mdichild_editor.h"
#include "msltextedit.h"
#include "msltexteditor.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDockWidget>
#include <QLabel>
#include <QMap>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolTip>
#include <functional>
#include <memory>

// A script document as a user or the main window reaches it: the public
// getters, the widgets by name.
class DocumentParts
{
public:
    explicit DocumentParts(MdiChildEditor *doc) : d(doc) { }
    MslTextEditor *editor() const { return d->getEditor(); }
    MslSyntaxHighlighter *highlighter() const { return d->getHighlighter(); }
    bool didChange() const { return d->hasUnsavedChanges(); }
    bool noFile() const { return d->isUntitled(); }
    QString cursorStatus() const { return d->findChild<QLabel *>("cursorStatus")->text(); }
    QString sizeStatus() const { return d->findChild<QLabel *>("sizeStatus")->text(); }
    LineEditBtn *searchLine() const { return d->findChild<LineEditBtn *>("searchLine"); }
    QLineEdit *replacement() const { return d->findChild<QLineEdit *>("replacement"); }
    QDockWidget *searchBox() const { return d->findChild<QDockWidget *>("searchBox"); }
    // Saves as the main window's Save All does, which wants the outcome too.
    bool save()
    {
        bool saved = false;
        QMetaObject::invokeMethod(d, "saveFileClicked", Qt::DirectConnection,
                                  Q_RETURN_ARG(bool, saved));
        return saved;
    }

private:
    MdiChildEditor *d;
};

// What only a reach inside the document gets at: the object tree panel,
// which the document never builds nor updates, and a search mode that no
// menu entry leads to.
class MdiChildEditorTestAccess
{
public:
    explicit MdiChildEditorTestAccess(MdiChildEditor *doc) : d(doc) { }
    void setSearchType(int mode) { d->searchType = mode; }

    // The branches for local and global aliases and dialogs, and events.
    void setObjectPanel(QDockWidget *box, QTreeWidget *tree, const QList<QTreeWidgetItem *> &b)
    {
        d->compBox = box, d->compTree = tree, d->aliases_local = b[0], d->aliases_global = b[1];
        d->dialog_local = b[2], d->dialog_global = b[3], d->events = b[4];
    }
    void updateObjTree() { d->updateObjTree(); }
    void compClicked() { d->compClicked(QModelIndex()); }

private:
    MdiChildEditor *d;
};

// The parts of a script editor the tests look at, found by name.
class EditorParts
{
public:
    explicit EditorParts(MslTextEditor *editor) : e(editor) { }
    QWidget *lineNumber() const { return e->findChild<LineNumberBar *>(); }
    QTimer *timerHover() const { return e->findChild<QTimer *>("hoverTimer"); }
    int leftMargin() const { return e->viewport()->geometry().left() - e->contentsRect().left(); }
    QList<QCompleter *> completers() const
    {
        QList<QCompleter *> list;
        for (const char *name : {"comCompleter", "propCompleter", "identCompleter",
                                 "colorCompleter"})
            list << e->findChild<QCompleter *>(QLatin1String(name));
        return list;
    }

private:
    MslTextEditor *e;
};

inline QString tipText()
{
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

// The rows of a table-driven test from a data file: a case is "== title"
// and the lines up to the next one (a column "lines", without the empty
// lines at the end). Lines before the first case are notes.
inline void addCases(const QStringList &names)
{
    QTest::addColumn<QStringList>("lines");
    QList<QPair<QString, QStringList>> cases;
    for (const QString &name : names) {
        QFile file(QStringLiteral(TARNWICK_TEST_DATA_DIR "/") + name);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        const qsizetype before = cases.size();
        for (const QString &line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1String("== ")))
                cases.append({line.mid(3), {}});
            else if (cases.size() > before)
                cases.last().second << line;
        }
    }
    for (auto &c : cases) {
        while (!c.second.isEmpty() && c.second.last().isEmpty())
            c.second.removeLast();
        QTest::newRow(qPrintable(c.first)) << c.second;
    }
}

// The escapes of the data files: \n, \r, \xNN, and \ before any other
// character for that character. With `marks`, | and ^ are not text but
// give their positions (-1 when absent).
inline QString unescape(const QString &s, QPair<int, int> *marks = nullptr)
{
    QString out;
    if (marks)
        *marks = {-1, -1};
    for (int i = 0; i < s.size(); ++i) {
        QChar c = s.at(i);
        if (c == QLatin1Char('\\') && i + 1 < s.size()) {
            c = s.at(++i);
            if (c == QLatin1Char('n') || c == QLatin1Char('r'))
                c = QLatin1Char(c == QLatin1Char('n') ? '\n' : '\r');
            else if (c == QLatin1Char('x'))
                c = QChar(s.mid(i + 1, 2).toUShort(nullptr, 16)), i += 2;
        } else if (marks && (c == QLatin1Char('|') || c == QLatin1Char('^'))) {
            (c == QLatin1Char('|') ? marks->first : marks->second) = out.size();
            continue;
        }
        out += c;
    }
    return out;
}

// A case whose lines are "key value": the values by key, unescaped.
inline QMap<QString, QString> keyedLines(const QStringList &lines)
{
    QMap<QString, QString> values;
    for (const QString &line : lines)
        values.insert(line.section(QLatin1Char(' '), 0, 0),
                      unescape(line.section(QLatin1Char(' '), 1)));
    return values;
}

// Acts on the modal dialogs (or popups) that come up inside a nested event
// loop, one step per dialog, in the order queued. pending() tells whether
// every dialog a test expected did come up.
class UiDriver : public QObject
{
public:
    UiDriver()
    {
        timer.setInterval(5);
        connect(&timer, &QTimer::timeout, this, [this] {
            QWidget *w = steps.isEmpty() ? nullptr
                : steps.first().first    ? QApplication::activePopupWidget()
                                         : QApplication::activeModalWidget();
            // The widget of the previous step may still be closing.
            if (!w || !w->isVisible() || w == last)
                return;
            last = w;
            steps.takeFirst().second(w);
            if (steps.isEmpty())
                timer.stop();
        });
    }
    template<typename T> void on(std::function<void(T *)> act, bool popup = false)
    {
        steps.append({popup, [act](QWidget *w) {
                          act(qobject_cast<T *>(w));
                      }});
        timer.start();
    }
    int pending() const { return steps.size(); }

private:
    QTimer timer;
    QList<QPair<bool, std::function<void(QWidget *)>>> steps; // popup or modal, action
    QPointer<QWidget> last;
};

// A script editor as a document tab holds it: shown, focused, with the
// analyser attached to its document.
class EditorFixture
{
public:
    EditorFixture()
    {
        AnalyserHarness::ensureSettings();
        editor = std::make_unique<MslTextEditor>();
        highlighter = new MslSyntaxHighlighter(editor->document());
        editor->resize(640, 480);
        editor->show();
        editor->activateWindow();
        editor->setFocus(Qt::OtherFocusReason);
    }
    ~EditorFixture()
    {
        for (QCompleter *c : parts().completers())
            c->popup()->hide();
        QToolTip::hideText();
    }
    bool ready()
    {
        return QTest::qWaitForWindowExposed(editor.get())
            && QTest::qWaitForWindowActive(editor.get());
    }
    EditorParts parts() const { return EditorParts(editor.get()); }

    // Replaces the text, analyses it and puts the cursor at `line`, `col`
    // (-1: the end of the line).
    void setScript(const QStringList &lines, int line = 0, int col = -1)
    {
        editor->setPlainText(lines.join(QLatin1Char('\n')));
        highlighter->rehighlight();
        QTextBlock block = editor->document()->findBlockByNumber(line);
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + (col < 0 ? block.length() - 1 : col));
        editor->setTextCursor(cursor);
    }
    int lineTop(int line) const
    {
        return editor->cursorRect(QTextCursor(editor->document()->findBlockByNumber(line))).top();
    }
    // A click on the gutter, `x` pixels right of the fold icon's left edge.
    void clickGutter(int line, int x = 4)
    {
        QWidget *bar = parts().lineNumber();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                          QPoint(bar->width() - 16 + x, lineTop(line) + 2));
    }
    // The lines as the gutter shows them: . hidden, - no icon, e and r an
    // alias or event open and folded, E and R a group open and folded.
    QString gutter() const
    {
        static const QMap<QChar, QString> files{
            {'e', "expanded"}, {'r', "right"}, {'E', "expanded2"}, {'R', "right2"}, {'-', ""}};
        QWidget *bar = parts().lineNumber();
        const QImage shot
            = bar->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QString out;
        for (QTextBlock b = editor->document()->begin(); b.isValid(); b = b.next()) {
            const QImage icon = shot.copy(bar->width() - 16, lineTop(b.blockNumber()), 16, 16);
            QChar seen = b.isVisible() ? '?' : '.';
            for (auto it = files.begin(); b.isVisible() && it != files.end(); ++it) {
                // An icon is drawn unscaled over white.
                QImage expected(16, 16, QImage::Format_ARGB32_Premultiplied);
                expected.fill(Qt::white);
                QPainter(&expected).drawImage(
                    0, 0,
                    QImage(":/block/resources/img_assets/editor/block/" + it.value() + ".png"));
                if (icon == expected)
                    seen = it.key();
            }
            out += seen;
        }
        return out;
    }

    // One key press and release as a keyboard sends it, to an open popup
    // first if there is one.
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             const QString &text = QString())
    {
        for (bool press : {true, false}) {
            QWidget *target = QApplication::activePopupWidget();
            if (target && target->focusWidget())
                target = target->focusWidget();
            QTest::simulateEvent(target ? target : editor.get(), press, code, modifiers, text,
                                 false);
        }
    }
    // Printable text; capitals and the shifted symbols carry Shift.
    void type(const QString &s)
    {
        for (const QChar ch : s) {
            const bool shifted = ch.isUpper()
                || QByteArrayLiteral("${}()!|%#&*_+:\"<>?~^@").contains(ch.toLatin1());
            const Qt::Key code = ch.isLetter() ? Qt::Key(Qt::Key_A + (ch.toUpper().unicode() - 'A'))
                                               : Qt::Key(ch.unicode());
            key(code, shifted ? Qt::ShiftModifier : Qt::NoModifier, QString(ch));
        }
    }

    std::unique_ptr<MslTextEditor> editor;
    MslSyntaxHighlighter *highlighter = nullptr;
};

#endif // EDITORSUPPORT_H
