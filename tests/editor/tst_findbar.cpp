// The find and replace bar of a script document and its line edit with
// the mode button, driven through real widgets and key events.

#include "documenttestsupport.h"

#include "analyserharness.h"

#include <QAction>
#include <QBrush>
#include <QContextMenuEvent>
#include <QFile>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QLinearGradient>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

namespace {

const char *const iconDir = ":/find/resources/img_assets/editor/find/";

QString icon(const char *file)
{
    return QLatin1String(iconDir) + QLatin1String(file);
}

QImage iconImage(const QIcon &i)
{
    return i.pixmap(16, 16).toImage();
}

} // namespace

class TestFindBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // The line edit with the side button.
    void sideButtonVisibility_data();
    void sideButtonVisibility();
    void sideButtonIconAndRoom();
    void sideButtonPlacement();
    void sideButtonSignals();

    // The bar.
    void barLayout_data();
    void barLayout();
    void barLook();
    void openAndCloseByKeys();
    void liveMarks();
    void markCap();
    void modes_data();
    void modes();
    void identifierSearch_data();
    void identifierSearch();
    void identifierSearchBackwardFindsNothing();
    void nextPrevEnter();
    void patternBackward();
    void replace_data();
    void replace();
    void replaceAll_data();
    void replaceAll();
    void replaceAllOneUndoStepEach();
    void replaceAllEmptySearchDoesNothing_data();
    void replaceAllEmptySearchDoesNothing();
    void modeMenu_data();
    void modeMenu();
    void modeIconsExist();

private:
    MdiChildEditor *makeDocument(const QString &text);
    QStringList marks() const;
    QPushButton *button(const QString &text) const;
    QToolButton *sideButton() const;
    void setMode(int mode) { MdiChildEditorTestAccess(doc).setSearchType(mode); }
    QString selection() const;

    QPointer<MdiChildEditor> doc;
    UiDriver *driver = nullptr;
};

void TestFindBar::initTestCase()
{
    AnalyserHarness::ensureSettings();
}

void TestFindBar::init()
{
    driver = new UiDriver();
}

void TestFindBar::cleanup()
{
    const int pending = driver->pending();
    delete driver;
    driver = nullptr;
    delete doc;
    QCOMPARE(pending, 0);
}

MdiChildEditor *TestFindBar::makeDocument(const QString &text)
{
    doc = new MdiChildEditor(nullptr);
    MdiChildEditorTestAccess a(doc);
    a.editor()->setPlainText(text);
    a.highlighter()->rehighlight();
    return doc;
}

// The yellow marks of the editor as "start:length", in order.
QStringList TestFindBar::marks() const
{
    QStringList out;
    const auto selections = MdiChildEditorTestAccess(doc).editor()->extraSelections();
    for (const QTextEdit::ExtraSelection &s : selections) {
        if (s.format.background() != QBrush(Qt::yellow))
            continue;
        out << QStringLiteral("%1:%2").arg(s.cursor.selectionStart())
                   .arg(s.cursor.selectionEnd() - s.cursor.selectionStart());
    }
    return out;
}

QString TestFindBar::selection() const
{
    const QTextCursor c = MdiChildEditorTestAccess(doc).editor()->textCursor();
    return QStringLiteral("%1:%2").arg(c.selectionStart()).arg(c.selectionEnd() - c.selectionStart());
}

QPushButton *TestFindBar::button(const QString &text) const
{
    const auto buttons = MdiChildEditorTestAccess(doc).searchBox()->findChildren<QPushButton *>();
    for (QPushButton *b : buttons) {
        if (b->text() == text)
            return b;
    }
    return nullptr;
}

QToolButton *TestFindBar::sideButton() const
{
    return MdiChildEditorTestAccess(doc).searchLine()->findChild<QToolButton *>();
}

// ---- LineEditBtn ----

void TestFindBar::sideButtonVisibility_data()
{
    QTest::addColumn<bool>("hideOnEmpty");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("visible");

    QTest::newRow("hide, empty") << true << "" << false;
    QTest::newRow("hide, text") << true << "x" << true;
    QTest::newRow("keep, empty") << false << "" << true;
    QTest::newRow("keep, text") << false << "x" << true;
}

void TestFindBar::sideButtonVisibility()
{
    QFETCH(bool, hideOnEmpty);
    QFETCH(QString, text);
    QFETCH(bool, visible);

    QWidget window;
    LineEditBtn *line = new LineEditBtn(&window);
    QToolButton *btn = line->findChild<QToolButton *>();
    QVERIFY(btn);
    window.show();

    // Hidden on empty by default.
    QVERIFY(line->hideOnEmpty());
    QVERIFY(!btn->isVisible());

    line->setHideOnEmpty(hideOnEmpty);
    QCOMPARE(line->hideOnEmpty(), hideOnEmpty);
    QTest::keyClicks(line, text);
    QCOMPARE(btn->isVisible(), visible);

    // Emptying the line again applies the rule again.
    line->clear();
    QCOMPARE(btn->isVisible(), !hideOnEmpty);
}

void TestFindBar::sideButtonIconAndRoom()
{
    LineEditBtn line;
    QToolButton *btn = line.findChild<QToolButton *>();
    QCOMPARE(btn->styleSheet(), QStringLiteral("QToolButton { border: none; padding: 0px; }"));

    QPixmap pixmap(20, 12);
    pixmap.fill(Qt::red);
    line.setBtnIcon(pixmap);
    QCOMPARE(btn->iconSize(), QSize(20, 12));
    QCOMPARE(iconImage(line.btnIcon()), iconImage(QIcon(pixmap)));

    const int frame = line.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const QSize hint = btn->sizeHint();
    QCOMPARE(line.styleSheet(), QStringLiteral("LineEditBtn { padding-right: %1px; } ")
                                    .arg(hint.width() + frame + 1));
    // Room for the button in both directions, measured by its height.
    const int least = hint.height() + 2 * frame + 2;
    QVERIFY(line.minimumWidth() >= least);
    QVERIFY(line.minimumHeight() >= least);

    line.setBtnIcon(QIcon(pixmap), 40, 40);
    QCOMPARE(btn->iconSize(), QSize(40, 40));
    QVERIFY(line.minimumHeight() >= btn->sizeHint().height() + 2 * frame + 2);

    line.setBtnCursor(QCursor(Qt::PointingHandCursor));
    QCOMPARE(btn->cursor().shape(), Qt::PointingHandCursor);
}

void TestFindBar::sideButtonPlacement()
{
    QWidget window;
    LineEditBtn *line = new LineEditBtn(&window);
    line->setHideOnEmpty(false);
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    line->setBtnIcon(pixmap);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    for (const QSize size : {QSize(200, 30), QSize(321, 47)}) {
        line->resize(size);
        QCoreApplication::processEvents();
        QToolButton *btn = line->findChild<QToolButton *>();
        const int frame = line->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
        const QSize hint = btn->sizeHint();
        // At the right edge, inside the frame, and centred in height.
        QCOMPARE(line->width() - (btn->x() + hint.width()), frame + 1);
        const int above = btn->y();
        const int below = line->height() - (btn->y() + hint.height());
        QVERIFY2(qAbs(above - below) <= 1, qPrintable(QStringLiteral("%1 %2").arg(above).arg(below)));
    }
}

void TestFindBar::sideButtonSignals()
{
    QWidget window;
    LineEditBtn *line = new LineEditBtn(&window);
    line->setHideOnEmpty(false);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QToolButton *btn = line->findChild<QToolButton *>();

    QSignalSpy clicked(line, &LineEditBtn::sideBtnClicked);
    QSignalSpy context(line, &LineEditBtn::sideBtnCustomContext);
    QTest::mouseClick(btn, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(context.count(), 0);

    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), btn->mapToGlobal(QPoint(3, 4)));
    QApplication::sendEvent(btn, &event);
    QCOMPARE(context.count(), 1);
    QCOMPARE(context.at(0).at(0).toPoint(), QPoint(3, 4));
    QCOMPARE(clicked.count(), 1);
}

// ---- the bar ----

void TestFindBar::barLayout_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");

    QTest::newRow("find label") << 0 << 0 << "QLabel" << "Find:";
    QTest::newRow("search line") << 0 << 1 << "LineEditBtn" << "";
    QTest::newRow("previous") << 0 << 2 << "QPushButton" << "previous";
    QTest::newRow("next") << 0 << 3 << "QPushButton" << "next";
    QTest::newRow("close") << 0 << 6 << "QPushButton" << "";
    QTest::newRow("replace label") << 1 << 0 << "QLabel" << "Replace with:";
    QTest::newRow("replacement") << 1 << 1 << "QLineEdit" << "";
    QTest::newRow("replace") << 1 << 2 << "QPushButton" << "replace";
    QTest::newRow("replace all") << 1 << 3 << "QPushButton" << "replace all";
}

void TestFindBar::barLayout()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, kind);
    QFETCH(QString, text);

    makeDocument(QString());
    MdiChildEditorTestAccess a(doc);
    QWidget *panel = a.searchBox()->widget();
    QVERIFY(panel);
    QGridLayout *grid = qobject_cast<QGridLayout *>(panel->layout());
    QVERIFY(grid);
    QLayoutItem *item = grid->itemAtPosition(row, column);
    QVERIFY(item && item->widget());
    QWidget *w = item->widget();
    QCOMPARE(QString::fromLatin1(w->metaObject()->className()), kind);
    if (auto *label = qobject_cast<QLabel *>(w))
        QCOMPARE(label->text(), text);
    if (auto *push = qobject_cast<QPushButton *>(w))
        QCOMPARE(push->text(), text);
    if (kind == QLatin1String("LineEditBtn"))
        QCOMPARE(w, static_cast<QWidget *>(a.searchLine()));
    if (kind == QLatin1String("QLineEdit"))
        QCOMPARE(w, static_cast<QWidget *>(a.replacement()));
}

void TestFindBar::barLook()
{
    makeDocument(QString());
    MdiChildEditorTestAccess a(doc);
    QDockWidget *box = a.searchBox();

    QCOMPARE(box->windowTitle(), QStringLiteral("Search"));
    QCOMPARE(box->features(), QDockWidget::NoDockWidgetFeatures);
    QCOMPARE(box->allowedAreas(), Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    QCOMPARE(doc->dockWidgetArea(box), Qt::BottomDockWidgetArea);
    QVERIFY(box->titleBarWidget() != nullptr);
    QCOMPARE(a.searchType(), 0);

    QWidget *panel = box->widget();
    QVERIFY(panel->autoFillBackground());
    const QBrush window = panel->palette().brush(QPalette::Window);
    QVERIFY(window.gradient());
    QCOMPARE(window.gradient()->type(), QGradient::LinearGradient);
    const auto *linear = static_cast<const QLinearGradient *>(window.gradient());
    QCOMPARE(linear->start(), QPointF(0, 0));
    QCOMPARE(linear->finalStop(), QPointF(0, 10));
    QCOMPARE(linear->stops(), (QGradientStops{{0.0, QColor(217, 217, 217)},
                                              {1.0, QColor(92, 92, 92)}}));

    for (QLabel *label : panel->findChildren<QLabel *>()) {
        for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(label->palette().color(group, QPalette::WindowText), QColor(Qt::white));
    }

    QPushButton *close = qobject_cast<QPushButton *>(
        qobject_cast<QGridLayout *>(panel->layout())->itemAtPosition(0, 6)->widget());
    QVERIFY(close->isFlat());
    QCOMPARE(close->maximumWidth(), 17);

    // The mode button stands even on an empty line.
    QVERIFY(!a.searchLine()->hideOnEmpty());
    QCOMPARE(sideButton()->iconSize(), QSize(16, 16));
}

void TestFindBar::openAndCloseByKeys()
{
    makeDocument(QStringLiteral("foo bar foo"));
    MdiChildEditorTestAccess a(doc);
    doc->show();
    QVERIFY(QTest::qWaitForWindowActive(doc));
    a.editor()->setFocus();
    QVERIFY(a.searchBox()->isHidden());

    QTest::keyClick(a.editor(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(a.searchBox()->isVisible());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.searchLine()));

    QTest::keyClicks(a.searchLine(), QStringLiteral("foo"));
    QCOMPARE(marks(), (QStringList{"0:3", "8:3"}));

    QTest::keyClick(a.searchLine(), Qt::Key_Escape);
    QVERIFY(a.searchBox()->isHidden());
    // The marks of the last search stay; the text stays for next time.
    QCOMPARE(marks(), (QStringList{"0:3", "8:3"}));

    a.editor()->setFocus();
    QTest::keyClick(a.editor(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(a.searchBox()->isVisible());
    QCOMPARE(a.searchLine()->text(), QStringLiteral("foo"));

    // The close button hides it as well.
    QTest::mouseClick(qobject_cast<QGridLayout *>(a.searchBox()->widget()->layout())
                          ->itemAtPosition(0, 6)->widget(),
                      Qt::LeftButton);
    QVERIFY(a.searchBox()->isHidden());
}

void TestFindBar::liveMarks()
{
    makeDocument(QStringLiteral("ab xab\nabab\nba"));
    MdiChildEditorTestAccess a(doc);
    QTextCursor c = a.editor()->textCursor();
    c.setPosition(5);
    a.editor()->setTextCursor(c);

    QTest::keyClicks(a.searchLine(), QStringLiteral("a"));
    QCOMPARE(marks(), (QStringList{"0:1", "4:1", "7:1", "9:1", "13:1"}));
    QTest::keyClicks(a.searchLine(), QStringLiteral("b"));
    QCOMPARE(marks(), (QStringList{"0:2", "4:2", "7:2", "9:2"}));
    // The editor's cursor stays where it was.
    QCOMPARE(a.editor()->textCursor().position(), 5);
    QVERIFY(!a.editor()->textCursor().hasSelection());

    QTest::keyClicks(a.searchLine(), QStringLiteral("q"));
    QCOMPARE(marks(), QStringList());
    QTest::keyClick(a.searchLine(), Qt::Key_Backspace);
    QCOMPARE(marks().size(), 4);
    a.searchLine()->clear();
    QCOMPARE(marks(), QStringList());
}

void TestFindBar::markCap()
{
    QString text;
    for (int i = 0; i < 6000; ++i)
        text += (i % 100 == 99) ? QStringLiteral("x\n") : QStringLiteral("x ");
    makeDocument(text);
    MdiChildEditorTestAccess a(doc);

    a.searchLine()->setText(QStringLiteral("x"));
    const QStringList m = marks();
    QCOMPARE(m.size(), 5000);
    QCOMPARE(m.first(), QStringLiteral("0:1"));
    QCOMPARE(m.last(), QStringLiteral("%1:1").arg(2 * 4999));
}

void TestFindBar::modes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");

    const QString foos = QStringLiteral("foo Foo FOO food");
    QTest::newRow("plain ignores case") << 0 << "foo" << foos
                                        << QStringList{"0:3", "4:3", "8:3", "12:3"};
    QTest::newRow("case sensitive") << 1 << "Foo" << foos << QStringList{"4:3"};
    QTest::newRow("whole words") << 3 << "foo" << QStringLiteral("foo food xfoo foo")
                                 << QStringList{"0:3", "14:3"};
    QTest::newRow("unknown mode is plain") << 7 << "foo" << foos
                                           << QStringList{"0:3", "4:3", "8:3", "12:3"};

    // Patterns: whole words always; case by the "i" modifier alone.
    QTest::newRow("pattern /fo+/i") << 2 << "/fo+/i" << QStringLiteral("Foo fooo food")
                                    << QStringList{"0:3", "4:4"};
    QTest::newRow("pattern fo+ keeps case") << 2 << "fo+" << QStringLiteral("Foo fooo food")
                                            << QStringList{"4:4"};
    QTest::newRow("pattern /a.+b/U lazy") << 2 << "/a.+b/U" << QStringLiteral("axb ayb")
                                          << QStringList{"0:3", "4:3"};
    QTest::newRow("pattern /a.+b/ greedy") << 2 << "/a.+b/" << QStringLiteral("axb ayb")
                                           << QStringList{"0:7"};
    QTest::newRow("pattern foo/i is all pattern") << 2 << "foo/i" << QStringLiteral("foo/i FOO/I foo")
                                                  << QStringList{"0:5"};
    QTest::newRow("pattern /foo without modifiers") << 2 << "/foo" << QStringLiteral("FOO foo")
                                                    << QStringList{"4:3"};
    QTest::newRow("pattern other modifiers ignored") << 2 << "/foo/Ix" << QStringLiteral("FOO foo")
                                                     << QStringList{"4:3"};
    QTest::newRow("pattern over lines") << 2 << "/b+/" << QStringLiteral("a\nbb\nb")
                                        << QStringList{"2:2", "5:1"};
    QTest::newRow("pattern letters beyond ASCII") << 2 << "\\w+" << QString::fromUtf8("d\xc3\xa9j\xc3\xa0 vu")
                                                  << QStringList{"0:4", "5:2"};
    QTest::newRow("pattern matching nothing wide") << 2 << "/a*/" << QStringLiteral("baaa b aa")
                                                   << QStringList{"7:2"};
    QTest::newRow("pattern malformed") << 2 << "/[/" << QStringLiteral("[ [/ /") << QStringList();
    QTest::newRow("pattern empty") << 2 << "//" << QStringLiteral("abc") << QStringList();
}

void TestFindBar::modes()
{
    QFETCH(int, mode);
    QFETCH(QString, search);
    QFETCH(QString, text);
    QFETCH(QStringList, expected);

    makeDocument(text);
    MdiChildEditorTestAccess a(doc);
    setMode(mode);
    a.searchLine()->setText(search);
    QCOMPARE(marks(), expected);

    // Walking with "next" visits the same hits, then stays on the last.
    QStringList walked;
    for (int i = 0; i <= expected.size(); ++i) {
        a.searchNext();
        if (!a.editor()->textCursor().hasSelection())
            break;
        if (walked.value(walked.size() - 1) == selection())
            break;
        walked << selection();
    }
    QCOMPARE(walked, expected);
}

void TestFindBar::identifierSearch_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("hits");

    QTest::newRow("identifier nick") << "nick" << 4 << 2;
    QTest::newRow("identifier $nick") << "$nick" << 4 << 2;
    QTest::newRow("identifier ignores case") << "NICK" << 4 << 2;
    QTest::newRow("plain nick for contrast") << "nick" << 0 << 5;
}

void TestFindBar::identifierSearch()
{
    QFETCH(QString, search);
    QFETCH(int, mode);
    QFETCH(int, hits);

    const QString text = QStringLiteral("alias x {\n"
                                        "  echo $nick $nickname\n"
                                        "  ; $nick in a comment\n"
                                        "  echo nick $nick\n"
                                        "}\n");
    makeDocument(text);
    MdiChildEditorTestAccess a(doc);
    setMode(mode);
    a.searchLine()->setText(search);

    const QStringList m = marks();
    QCOMPARE(m.size(), hits);
    if (mode == 4) {
        // The identifiers as parsed, not the comment, not $nickname's head.
        const int first = text.indexOf(QStringLiteral("$nick $nickname"));
        const int last = text.lastIndexOf(QStringLiteral("$nick"));
        QCOMPARE(m, (QStringList{QStringLiteral("%1:5").arg(first),
                                 QStringLiteral("%1:5").arg(last)}));

        a.searchNext();
        QCOMPARE(selection(), QStringLiteral("%1:5").arg(first));
        a.searchNext();
        QCOMPARE(selection(), QStringLiteral("%1:5").arg(last));
    }
}

void TestFindBar::identifierSearchBackwardFindsNothing()
{
    makeDocument(QStringLiteral("alias x {\n  echo $nick $nick\n}\n"));
    MdiChildEditorTestAccess a(doc);
    setMode(4);
    a.searchLine()->setText(QStringLiteral("nick"));
    QCOMPARE(marks().size(), 2); // the identifiers are there to be found

    a.editor()->moveCursor(QTextCursor::End);
    const int end = a.editor()->textCursor().position();
    a.searchPrev();
    QCOMPARE(a.editor()->textCursor().position(), end);
    QVERIFY(!a.editor()->textCursor().hasSelection());
}

void TestFindBar::nextPrevEnter()
{
    makeDocument(QStringLiteral("foo bar\nfoo bar\nfoo"));
    MdiChildEditorTestAccess a(doc);
    doc->show();
    QVERIFY(QTest::qWaitForWindowActive(doc));
    a.openSearchBox();
    QTest::keyClicks(a.searchLine(), QStringLiteral("foo"));
    QCOMPARE(marks(), (QStringList{"0:3", "8:3", "16:3"}));

    // Return walks through the hits and keeps the focus in the line.
    QTest::keyClick(a.searchLine(), Qt::Key_Return);
    QCOMPARE(selection(), QStringLiteral("0:3"));
    QTest::keyClick(a.searchLine(), Qt::Key_Return);
    QCOMPARE(selection(), QStringLiteral("8:3"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.searchLine()));

    // "next" moves on and hands the focus to the text.
    QTest::mouseClick(button(QStringLiteral("next")), Qt::LeftButton);
    QCOMPARE(selection(), QStringLiteral("16:3"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.editor()));

    // At the last hit nothing moves; no wrap-around.
    a.searchLine()->setFocus();
    QTest::mouseClick(button(QStringLiteral("next")), Qt::LeftButton);
    QCOMPARE(selection(), QStringLiteral("16:3"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.editor()));

    QTest::mouseClick(button(QStringLiteral("previous")), Qt::LeftButton);
    QCOMPARE(selection(), QStringLiteral("8:3"));
    QTest::mouseClick(button(QStringLiteral("previous")), Qt::LeftButton);
    QCOMPARE(selection(), QStringLiteral("0:3"));
    QTest::mouseClick(button(QStringLiteral("previous")), Qt::LeftButton);
    QCOMPARE(selection(), QStringLiteral("0:3"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.editor()));
}

void TestFindBar::patternBackward()
{
    makeDocument(QStringLiteral("foo x foo x Foo\naa b aa"));
    MdiChildEditorTestAccess a(doc);
    setMode(2);

    a.searchLine()->setText(QStringLiteral("/foo/i"));
    QTextCursor c = a.editor()->textCursor();
    c.setPosition(15);
    a.editor()->setTextCursor(c);
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("12:3"));
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("6:3"));
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("0:3"));
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("0:3"));

    // Hits of no width are stepped over backward too.
    a.searchLine()->setText(QStringLiteral("/a*/"));
    a.editor()->moveCursor(QTextCursor::End);
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("21:2"));
    a.searchPrev();
    QCOMPARE(selection(), QStringLiteral("16:2"));
}

void TestFindBar::replace_data()
{
    QTest::addColumn<int>("selStart");
    QTest::addColumn<int>("selEnd");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("selected");

    // "foo zzz foo foo", search "foo", replace with "Q".
    QTest::newRow("no selection only moves") << 2 << 2 << "foo zzz foo foo" << "8:3";
    QTest::newRow("a hit is replaced") << 0 << 3 << "Q zzz foo foo" << "6:3";
    QTest::newRow("a selection that is no hit is replaced too") << 4 << 7 << "foo Q foo foo" << "6:3";
    QTest::newRow("the last hit, nothing behind") << 12 << 15 << "foo zzz foo Q" << "12:1";
}

void TestFindBar::replace()
{
    QFETCH(int, selStart);
    QFETCH(int, selEnd);
    QFETCH(QString, text);
    QFETCH(QString, selected);

    makeDocument(QStringLiteral("foo zzz foo foo"));
    MdiChildEditorTestAccess a(doc);
    doc->show();
    QVERIFY(QTest::qWaitForWindowActive(doc));
    a.openSearchBox();
    a.searchLine()->setText(QStringLiteral("foo"));
    a.replacement()->setText(QStringLiteral("Q"));

    QTextCursor c = a.editor()->textCursor();
    c.setPosition(selStart);
    c.setPosition(selEnd, QTextCursor::KeepAnchor);
    a.editor()->setTextCursor(c);

    QTest::mouseClick(button(QStringLiteral("replace")), Qt::LeftButton);
    QCOMPARE(a.editor()->toPlainText(), text);
    // With nothing found the cursor stays behind the inserted text.
    if (selected != QLatin1String("12:1"))
        QCOMPARE(selection(), selected);
    else
        QCOMPARE(a.editor()->textCursor().position(), 13);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(a.editor()));
}

void TestFindBar::replaceAll_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("with");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");

    QTest::newRow("plain") << 0 << "foo" << "bar" << "Foo foo food" << "bar bar bard";
    QTest::newRow("case sensitive") << 1 << "foo" << "bar" << "Foo foo\nfoo" << "Foo bar\nbar";
    QTest::newRow("whole words") << 3 << "foo" << "bar" << "foo food foo" << "bar food bar";
    QTest::newRow("pattern") << 2 << "/o+/" << "0" << "foo oo\nooo" << "foo 0\n0";
    QTest::newRow("pattern with i") << 2 << "/x+/i" << "-" << "X xx Xy" << "- - Xy";
    QTest::newRow("replacement holding the search text") << 0 << "a" << "aa" << "a a" << "aa aa";
    QTest::newRow("to nothing") << 0 << "ab" << "" << "abcab ab" << "c ";
    QTest::newRow("no hit") << 0 << "q" << "z" << "abc" << "abc";
}

void TestFindBar::replaceAll()
{
    QFETCH(int, mode);
    QFETCH(QString, search);
    QFETCH(QString, with);
    QFETCH(QString, text);
    QFETCH(QString, result);

    makeDocument(text);
    MdiChildEditorTestAccess a(doc);
    setMode(mode);
    a.searchLine()->setText(search);
    a.replacement()->setText(with);
    // From the start of the document, wherever the cursor is.
    a.editor()->moveCursor(QTextCursor::End);
    a.searchReplaceAll();
    QCOMPARE(a.editor()->toPlainText(), result);
}

void TestFindBar::replaceAllOneUndoStepEach()
{
    makeDocument(QStringLiteral("x1 x2 x3"));
    MdiChildEditorTestAccess a(doc);
    a.searchLine()->setText(QStringLiteral("x"));
    a.replacement()->setText(QStringLiteral("yy"));
    QTest::mouseClick(button(QStringLiteral("replace all")), Qt::LeftButton);
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("yy1 yy2 yy3"));

    a.editor()->undo();
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("yy1 yy2 x3"));
    a.editor()->undo();
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("yy1 x2 x3"));
    a.editor()->undo();
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("x1 x2 x3"));
}

void TestFindBar::replaceAllEmptySearchDoesNothing_data()
{
    QTest::addColumn<int>("mode");
    for (int mode = 0; mode <= 3; ++mode)
        QTest::newRow(qPrintable(QStringLiteral("mode %1").arg(mode))) << mode;
}

void TestFindBar::replaceAllEmptySearchDoesNothing()
{
    QFETCH(int, mode);
    makeDocument(QStringLiteral("abc\ndef\n"));
    MdiChildEditorTestAccess a(doc);
    setMode(mode);
    a.replacement()->setText(QStringLiteral("Z"));
    a.searchReplaceAll();
    QCOMPARE(a.editor()->toPlainText(), QStringLiteral("abc\ndef\n"));
    QVERIFY(!a.editor()->document()->isUndoAvailable());
    QVERIFY(!a.editor()->document()->isModified());
}

void TestFindBar::modeMenu_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("choose"); // entry index, -1 dismisses the menu
    QTest::addColumn<QString>("checked");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("iconFile");

    QTest::newRow("case sensitive") << 0 << 0 << "0000" << 1 << "search_green.png";
    QTest::newRow("case sensitive twice turns it off") << 1 << 0 << "1000" << 0 << "magnify.png";
    QTest::newRow("pattern from case") << 1 << 1 << "1000" << 2 << "search_red.png";
    QTest::newRow("whole words") << 0 << 2 << "0000" << 3 << "search_blue.png";
    QTest::newRow("identifier") << 0 << 3 << "0000" << 4 << "search_orange.png";
    QTest::newRow("identifier shows no mark, twice turns it off")
        << 4 << 3 << "0000" << 0 << "magnify.png";
    QTest::newRow("whole words checked, then pattern") << 3 << 1 << "0010" << 2 << "search_red.png";
    QTest::newRow("dismissed") << 2 << -1 << "0100" << 2 << "";
}

void TestFindBar::modeMenu()
{
    QFETCH(int, start);
    QFETCH(int, choose);
    QFETCH(QString, checked);
    QFETCH(int, mode);
    QFETCH(QString, iconFile);

    makeDocument(QStringLiteral("foo"));
    MdiChildEditorTestAccess a(doc);
    doc->show();
    QVERIFY(QTest::qWaitForWindowActive(doc));
    a.openSearchBox();
    setMode(start);
    const QImage iconBefore = iconImage(a.searchLine()->btnIcon());

    QStringList texts;
    QString checkable;
    QString checkedSeen;
    driver->onPopup<QMenu>([&](QMenu *menu) {
        const QList<QAction *> actions = menu->actions();
        for (QAction *act : actions) {
            texts << act->text();
            checkable += act->isCheckable() ? QLatin1Char('1') : QLatin1Char('0');
            checkedSeen += act->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
        }
        if (choose >= 0 && choose < actions.size()) {
            menu->setActiveAction(actions.at(choose));
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            QTest::keyClick(menu, Qt::Key_Escape);
        }
    });

    // A right click on the mode button opens the menu.
    QToolButton *btn = sideButton();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), btn->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(btn, &event);

    QCOMPARE(texts, (QStringList{"Case Sensitive", "Regular Expression", "Whole words",
                                 "Identifier search"}));
    QCOMPARE(checkable, QStringLiteral("1110"));
    QCOMPARE(checkedSeen, checked);
    QCOMPARE(a.searchType(), mode);
    if (iconFile.isEmpty())
        QCOMPARE(iconImage(a.searchLine()->btnIcon()), iconBefore);
    else
        QCOMPARE(iconImage(a.searchLine()->btnIcon()),
                 iconImage(QIcon(icon(iconFile.toLatin1().constData()))));
    QCOMPARE(sideButton()->iconSize(), QSize(16, 16));

    // A change of mode does not search again by itself.
    QCOMPARE(marks(), QStringList());
}

void TestFindBar::modeIconsExist()
{
    for (const char *file : {"magnify.png", "search_green.png", "search_red.png",
                             "search_blue.png", "search_orange.png", "previous.png", "next.png",
                             "close.png"}) {
        const QString path = icon(file);
        QVERIFY2(QFile::exists(path), qPrintable(path));
        QVERIFY2(!QIcon(path).pixmap(16, 16).isNull(), qPrintable(path));
    }
}

QTEST_MAIN(TestFindBar)
#include "tst_findbar.moc"
