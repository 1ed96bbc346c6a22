// Typing in the script editor, run from the cases of data/keys.txt with
// real key events on a shown editor whose document carries the analyser.

#include "editorsupport.h"
#include "testsuite.h"

#include <QAbstractItemModel>
#include <QMetaEnum>
#include <QtTest>

class KeysTest : public QObject
{
    Q_OBJECT

    // Characters are typed; <Name> or <Mods-Name> is one key, with Mods of
    // C (Ctrl), S (Shift), K (keypad), N (none).
    void press(EditorFixture &f, const QString &keys)
    {
        for (int i = 0; i < keys.size(); ++i) {
            const int close = keys.indexOf(QLatin1Char('>'), i + 2);
            if (keys.at(i) != QLatin1Char('<') || close < 0) {
                f.type(
                    unescape(keys.at(i) == QLatin1Char('\\') ? keys.mid(i++, 2) : keys.mid(i, 1)));
                continue;
            }
            QString name = keys.mid(i + 1, close - i - 1);
            i = close;
            if (name == QLatin1String("Rest")) {
                // From elsewhere first: a move to where the mouse is, is none.
                const QRect r = f.editor->cursorRect();
                QTest::mouseMove(f.editor->viewport(), QPoint(1, 1));
                QTest::mouseMove(f.editor->viewport(), QPoint(r.left() + 3, r.center().y()));
                QTRY_VERIFY(f.parts().timerHover() && f.parts().timerHover()->isActive());
                QTRY_VERIFY(!f.parts().timerHover()->isActive());
                continue;
            }
            if (name.startsWith(QLatin1String("Click "))) {
                const QString at = name.mid(6);
                f.clickGutter(at.section('@', 0, 0).toInt(),
                              at.contains('@') ? at.section('@', 1).toInt() : 4);
                continue;
            }
            if (name == QLatin1String("Undo") || name == QLatin1String("ReadOnly")) {
                name == QLatin1String("Undo") ? f.editor->undo() : f.editor->setReadOnly(true);
                continue;
            }
            Qt::KeyboardModifiers mods;
            const int dash = name.indexOf(QLatin1Char('-'), 1);
            for (const QChar m : name.left(qMax(dash, 0)))
                mods |= m == QLatin1Char('C') ? Qt::ControlModifier
                    : m == QLatin1Char('S')   ? Qt::ShiftModifier
                    : m == QLatin1Char('K')   ? Qt::KeypadModifier
                                              : Qt::NoModifier;
            name = name.mid(dash + 1);
            QString text
                = name.size() == 1 && !(mods & Qt::ControlModifier && name.at(0).isLetter()) ? name
                                                                                             : "";
            int code = name.at(0).isLetter() ? Qt::Key_A + (name.at(0).toUpper().unicode() - 'A')
                                             : name.at(0).unicode();
            if (name.size() > 1) {
                bool ok = false;
                code = QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).toLatin1(), &ok);
                QVERIFY2(ok, qPrintable(name));
                text = name == "Return" || name == "Enter" ? "\r" : name == "Tab" ? "\t" : "";
            }
            f.key(Qt::Key(code), mods, text);
        }
    }

    void check(EditorFixture &f, const QString &check)
    {
        const QString what = check.section(QLatin1Char(' '), 0, 0);
        const QString rest = unescape(check.section(QLatin1Char(' '), 1));
        if (what == QLatin1String("tip")) {
            QCOMPARE(tipText(), rest == QLatin1String("none") ? QString() : rest);
            return;
        }
        if (what == QLatin1String("gutter")) {
            QCOMPARE(f.gutter(), rest);
            return;
        }
        if (what == QLatin1String("mark") || what == QLatin1String("tint")) {
            const QList<QTextEdit::ExtraSelection> marks = f.editor->extraSelections();
            QCOMPARE(marks.size(), 1);
            const QTextEdit::ExtraSelection &m = marks.first();
            const bool tint = what == QLatin1String("tint");
            QCOMPARE(m.format.boolProperty(QTextFormat::FullWidthSelection), tint);
            QCOMPARE(m.format.background().color(),
                     tint ? QColor(Qt::green).lighter(170) : QColor(204, 255, 255));
            QCOMPARE(m.cursor.selectedText(), rest);
            if (tint)
                QCOMPARE(m.cursor.blockNumber(), f.editor->textCursor().blockNumber());
            else
                QCOMPARE(m.format.underlineStyle(), QTextCharFormat::DashUnderline);
            return;
        }
        QCompleter *shown = nullptr;
        const QStringList names{"com", "prop", "ident", "color"};
        const QList<QCompleter *> completers = f.parts().completers();
        QStringList open;
        for (int i = 0; i < completers.size(); ++i) {
            if (completers.at(i)->popup()->isVisible())
                open << names.at(i), shown = completers.at(i);
        }
        if (what == QLatin1String("popup")) {
            QCOMPARE(open.join(' '), rest.section(QLatin1Char(' '), 0, 0).replace("none", ""));
            if (rest.contains(QLatin1Char(' ')))
                QCOMPARE(shown->completionModel()->rowCount(),
                         rest.section(QLatin1Char(' '), 1).toInt());
            return;
        }
        QVERIFY2(shown, "no list open");
        QStringList rows;
        for (int r = 0; r < shown->completionModel()->rowCount(); ++r)
            rows << shown->completionModel()->index(r, 0).data().toString();
        if (what == QLatin1String("prefix"))
            QCOMPARE(shown->completionPrefix(), rest);
        else if (what == QLatin1String("first"))
            QCOMPARE(rows.value(0), rest);
        else if (what == QLatin1String("list"))
            QCOMPARE(rows.join(QLatin1Char(' ')), rest);
        else
            QFAIL(qPrintable("unknown check " + what));
    }

private slots:
    void typing_data()
    {
        addCases(
            {QStringLiteral("keys.txt"), QStringLiteral("hover.txt"), QStringLiteral("folds.txt")});
    }

    // The script up to the first ">> keys"; after each, the text that
    // follows them (with | the cursor and ^ the selection's other end) and
    // "~~" checks.
    void typing()
    {
        QFETCH(QStringList, lines);
        EditorFixture f;
        QVERIFY(f.ready());
        // A lone key clears the pairing and block offer that an earlier case
        // may have left; they are shared by all editors.
        f.key(Qt::Key_Shift);
        QToolTip::hideText();

        lines << QStringLiteral(">> ");
        QStringList text;
        bool first = true;
        for (const QString &line : lines) {
            if (!line.startsWith(QLatin1String(">> ")) && !line.startsWith(QLatin1String("~~ "))) {
                text << line;
                continue;
            }
            while (!text.isEmpty() && text.last().isEmpty())
                text.removeLast();
            QPair<int, int> marks;
            const QString plain = unescape(text.join(QLatin1Char('\n')), &marks);
            const int anchor = marks.second < 0 ? marks.first : marks.second;
            if (first) {
                QVERIFY2(marks.first >= 0, "the script has no cursor");
                f.editor->setPlainText(plain);
                f.highlighter->rehighlight();
                QTextCursor cursor(f.editor->document());
                cursor.setPosition(anchor);
                cursor.setPosition(marks.first, QTextCursor::KeepAnchor);
                f.editor->setTextCursor(cursor);
                first = false;
            } else if (!text.isEmpty()) {
                QCOMPARE(f.editor->toPlainText(), plain);
                if (marks.first >= 0) {
                    QCOMPARE(f.editor->textCursor().position(), marks.first);
                    QCOMPARE(f.editor->textCursor().anchor(), anchor);
                }
            }
            text.clear();
            if (line.startsWith(QLatin1String(">> ")))
                press(f, line.mid(3));
            else
                check(f, line.mid(3));
            if (QTest::currentTestFailed())
                return;
        }
    }
};

TARNWICK_TEST(KeysTest);
#include "tst_keys.moc"
