// The find and replace bar of a script document, driven through its real
// widgets, keys and mode menu.

#include "editorsupport.h"
#include "testsuite.h"

#include <QContextMenuEvent>
#include <QGridLayout>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

class FindBarTest : public QObject
{
    Q_OBJECT

    DocumentParts makeDocument(const QString &text)
    {
        doc = new MdiChildEditor(nullptr);
        DocumentParts a(doc);
        a.editor()->setPlainText(text);
        a.highlighter()->rehighlight();
        doc->show();
        if (!QTest::qWaitForWindowActive(doc))
            qWarning("the document did not become active");
        return a;
    }

    // The yellow marks of the editor as "start:length", in order.
    QStringList marks() const
    {
        QStringList out;
        for (const QTextEdit::ExtraSelection &s :
             DocumentParts(doc).editor()->extraSelections()) {
            if (s.format.background() == QBrush(Qt::yellow))
                out << QStringLiteral("%1:%2")
                           .arg(s.cursor.selectionStart())
                           .arg(s.cursor.selectionEnd() - s.cursor.selectionStart());
        }
        return out;
    }

    QString selection() const
    {
        const QTextCursor c = DocumentParts(doc).editor()->textCursor();
        return QStringLiteral("%1:%2")
            .arg(c.selectionStart())
            .arg(c.selectionEnd() - c.selectionStart());
    }

    QPushButton *button(const QString &text) const
    {
        for (QPushButton *b :
             DocumentParts(doc).searchBox()->findChildren<QPushButton *>()) {
            if (b->text() == text)
                return b;
        }
        return nullptr;
    }

    // Chooses an entry of the mode button's menu (0 case, 1 pattern, 2
    // whole words, 3 identifiers; -1 closes it) and returns the check marks
    // it showed.
    QString chooseFromModeMenu(int entry)
    {
        QString checked;
        driver->on<QMenu>(
            [&](QMenu *menu) {
                for (QAction *act : menu->actions())
                    checked += act->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
                if (entry >= 0)
                    menu->setActiveAction(menu->actions().at(entry));
                QTest::keyClick(menu, entry >= 0 ? Qt::Key_Return : Qt::Key_Escape);
            },
            true);
        QToolButton *btn = DocumentParts(doc).searchLine()->findChild<QToolButton *>();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2),
                                btn->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(btn, &event);
        return checked;
    }

    // From mode `from` to `to` (0 plain, then the entries' order) by the
    // menu, which shows `from` checked unless it is plain or identifiers;
    // choosing the current mode again turns it off.
    void switchMode(int from, int to)
    {
        if (to != from)
            QCOMPARE(chooseFromModeMenu(to ? to - 1 : from - 1).indexOf(QLatin1Char('1')),
                     from == 4 ? -1 : from - 1);
    }

    QPointer<MdiChildEditor> doc;
    UiDriver *driver = nullptr;

private slots:
    void initTestCase() { AnalyserHarness::ensureSettings(); }
    void init() { driver = new UiDriver(); }

    void cleanup()
    {
        const int pending = driver->pending();
        delete driver;
        delete doc;
        QCOMPARE(pending, 0);
    }

    // Ctrl+F, typing, Return, the buttons and Escape, as a user works the bar.
    void keysAndButtons()
    {
        DocumentParts a = makeDocument(QStringLiteral("ab xab\nabab\nba"));
        a.editor()->setFocus();
        QTextCursor c = a.editor()->textCursor();
        c.setPosition(5);
        a.editor()->setTextCursor(c);
        QTest::keyClick(a.editor(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(a.searchBox()->isVisible());
        // The marks follow every key; the text cursor stays where it was.
        QTest::keyClicks(a.searchLine(), QStringLiteral("a"));
        QCOMPARE(marks(), (QStringList{"0:1", "4:1", "7:1", "9:1", "13:1"}));
        QTest::keyClicks(a.searchLine(), QStringLiteral("bq"));
        QCOMPARE(marks(), QStringList());
        QTest::keyClick(a.searchLine(), Qt::Key_Backspace);
        QCOMPARE(marks(), (QStringList{"0:2", "4:2", "7:2", "9:2"}));
        QCOMPARE(selection(), QStringLiteral("5:0"));
        // Escape hides the bar; the marks and the search text stay.
        QTest::keyClick(a.searchLine(), Qt::Key_Escape);
        QVERIFY(a.searchBox()->isHidden());
        QCOMPARE(marks().size(), 4);
        a.editor()->setFocus();
        QTest::keyClick(a.editor(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(a.searchLine()->text(), QStringLiteral("ab"));

        // Return walks on from the cursor and keeps the focus in the line;
        // the buttons hand it to the text, and nothing wraps around.
        const QStringList walk{"",    "7:2",      "",    "9:2",      "next", "9:2",      "previous",
                               "7:2", "previous", "4:2", "previous", "0:2",  "previous", "0:2"};
        for (int i = 0; i < walk.size(); i += 2) {
            a.searchLine()->setFocus();
            if (walk.at(i).isEmpty())
                QTest::keyClick(a.searchLine(), Qt::Key_Return);
            else
                QTest::mouseClick(button(walk.at(i)), Qt::LeftButton);
            QCOMPARE(selection(), walk.at(i + 1));
            QCOMPARE(QApplication::focusWidget(),
                     walk.at(i).isEmpty() ? static_cast<QWidget *>(a.searchLine())
                                          : static_cast<QWidget *>(a.editor()));
        }

        // The close button hides it too; the mode button stands on an empty line.
        a.searchLine()->clear();
        QVERIFY(a.searchLine()->findChild<QToolButton *>()->isVisible());
        QTest::mouseClick(qobject_cast<QGridLayout *>(a.searchBox()->widget()->layout())
                              ->itemAtPosition(0, 6)
                              ->widget(),
                          Qt::LeftButton);
        QVERIFY(a.searchBox()->isHidden());
    }

    void markCap()
    {
        QString text;
        for (int i = 0; i < 6000; ++i)
            text += (i % 100 == 99) ? QStringLiteral("x\n") : QStringLiteral("x ");
        DocumentParts a = makeDocument(text);
        a.searchLine()->setText(QStringLiteral("x"));
        const QStringList m = marks();
        QCOMPARE(m.size(), 5000);
        QCOMPARE(m.last(), QStringLiteral("%1:1").arg(2 * 4999));
    }

    void modes_data() { addCases({QStringLiteral("find.txt")}); }

    // The cases of data/find.txt: a mode and a search, a text, its marks, and
    // what replace all makes of it.
    void modes()
    {
        QFETCH(QStringList, lines);
        const QMap<QString, QString> c = keyedLines(lines);
        const QStringList modes{"plain", "case", "pattern", "words", "ident", "", "", "7"};
        const int mode = modes.indexOf(lines.value(0).section(QLatin1Char(' '), 0, 0));
        QVERIFY(mode >= 0);

        DocumentParts a = makeDocument(c.value(QStringLiteral("text")));
        mode > 4 ? MdiChildEditorTestAccess(doc).setSearchType(mode) : switchMode(0, mode);
        a.searchLine()->setText(c.value(modes.at(mode)));
        if (c.contains(QStringLiteral("marks"))) {
            const QStringList expected
                = c.value(QStringLiteral("marks")).split(' ', Qt::SkipEmptyParts);
            QCOMPARE(marks(), expected);
            // Walking with "next" visits the same hits, then stays on the last.
            QStringList walked;
            for (int i = 0; i <= expected.size(); ++i) {
                button(QStringLiteral("next"))->click();
                if (!a.editor()->textCursor().hasSelection()
                    || walked.value(walked.size() - 1) == selection())
                    break;
                walked << selection();
            }
            QCOMPARE(walked, expected);
        }
        if (c.contains(QStringLiteral("select"))) {
            QTextCursor cursor = a.editor()->textCursor();
            cursor.setPosition(c.value("select").section(' ', 0, 0).toInt());
            cursor.setPosition(c.value("select").section(' ', 1, 1).toInt(),
                               QTextCursor::KeepAnchor);
            a.editor()->setTextCursor(cursor);
            a.replacement()->setText(c.value(QStringLiteral("replace")));
            a.searchLine()->setFocus();
            QTest::mouseClick(button(QStringLiteral("replace")), Qt::LeftButton);
            QCOMPARE(a.editor()->toPlainText(), c.value(QStringLiteral("result")));
            QCOMPARE(selection(), c.value(QStringLiteral("selected")));
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.editor()));
        }
        if (c.contains(QStringLiteral("with"))) {
            a.replacement()->setText(c.value(QStringLiteral("with")));
            a.editor()->moveCursor(QTextCursor::End);
            QTest::mouseClick(button(QStringLiteral("replace all")), Qt::LeftButton);
            QCOMPARE(a.editor()->toPlainText(), c.value(QStringLiteral("result")));
            QCOMPARE(a.editor()->document()->isModified(), c.value("text") != c.value("result"));
            // Each replacement is an undo step of its own.
            if (c.contains(QStringLiteral("undone"))) {
                a.editor()->undo();
                QCOMPARE(a.editor()->toPlainText(), c.value(QStringLiteral("undone")));
            }
        }
    }

    void backward()
    {
        DocumentParts a = makeDocument(QStringLiteral("foo x foo x Foo\naa b aa"));
        switchMode(0, 2);
        // From the end: over the line end into the line before, then to the
        // first hit and no further; hits of no width are stepped over.
        const QList<QPair<QString, QStringList>> walks{{"/foo/i", {"12:3", "6:3", "0:3", "0:3"}},
                                                       {"/a*/", {"21:2", "16:2"}}};
        for (const auto &[pattern, hits] : walks) {
            a.searchLine()->setText(pattern);
            a.editor()->moveCursor(QTextCursor::End);
            for (const QString &hit : hits) {
                button(QStringLiteral("previous"))->click();
                QCOMPARE(selection(), hit);
            }
        }
        // Backward, the identifier search finds nothing and the cursor stays.
        a.editor()->setPlainText(QStringLiteral("alias x {\n  echo $nick $nick\n}\n"));
        a.highlighter()->rehighlight();
        switchMode(2, 4);
        a.searchLine()->setText(QStringLiteral("nick"));
        QCOMPARE(marks().size(), 2);
        a.editor()->moveCursor(QTextCursor::End);
        button(QStringLiteral("previous"))->click();
        QCOMPARE(selection(), QStringLiteral("31:0"));
    }

    // The mode menu on a right click of the mode button: the check marks it
    // shows, the mode and icon it leaves, and no new search by itself.
    void modeMenu()
    {
        struct Row
        {
            int start, choose;
            const char *checked;
            int mode;
            const char *icon;
        };
        const Row rows[] = {{0, 0, "0000", 1, "search_green"},  {1, 0, "1000", 0, "magnify"},
                            {1, 1, "1000", 2, "search_red"},    {0, 2, "0000", 3, "search_blue"},
                            {0, 3, "0000", 4, "search_orange"}, {4, 3, "0000", 0, "magnify"},
                            {3, 1, "0010", 2, "search_red"},    {2, -1, "0100", 2, "close"}};
        DocumentParts a = makeDocument(QStringLiteral("foo"));
        a.editor()->setFocus();
        QTest::keyClick(a.editor(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(a.searchBox()->isVisible());
        int mode = 0; // each row's start is reached by the menu too
        for (const Row &row : rows) {
            switchMode(mode, row.start);
            a.searchLine()->setBtnIcon(QIcon(":/find/resources/img_assets/editor/find/close.png"),
                                       16, 16);
            QCOMPARE(chooseFromModeMenu(row.choose), QString::fromLatin1(row.checked));
            mode = row.mode;
            QCOMPARE(a.searchLine()->btnIcon().pixmap(16, 16).toImage(),
                     QIcon(":/find/resources/img_assets/editor/find/"
                           + QString::fromLatin1(row.icon) + ".png")
                         .pixmap(16, 16)
                         .toImage());
            QCOMPARE(marks(), QStringList());
        }
        QCOMPARE(chooseFromModeMenu(-1), QStringLiteral("0100")); // still pattern
    }
};

TARNWICK_TEST(FindBarTest);
#include "tst_findbar.moc"
