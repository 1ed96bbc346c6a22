#include "mdichild_editor.h"

#include "lineeditbtn.h"
#include "msltextedit.h"
#include "msltexteditor.h"

#include <QAction>
#include <QBrush>
#include <QColor>
#include <QDockWidget>
#include <QGridLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLinearGradient>
#include <QLineEdit>
#include <QList>
#include <QMenu>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBlock>
#include <QTextEdit>

namespace {

enum SearchMode { PlainSearch = 0, CaseSearch = 1, PatternSearch = 2, WordSearch = 3,
                  IdentSearch = 4 };

const int markLimit = 5000;
const int replaceLimit = 100000;

QString findIcon(const char *file)
{
    return QStringLiteral(":/find/resources/img_assets/editor/find/") + QLatin1String(file);
}

QString modeIcon(int mode)
{
    switch (mode) {
    case CaseSearch:
        return findIcon("search_green.png");
    case PatternSearch:
        return findIcon("search_red.png");
    case WordSearch:
        return findIcon("search_blue.png");
    case IdentSearch:
        return findIcon("search_orange.png");
    default:
        return findIcon("magnify.png");
    }
}

QTextDocument::FindFlags modeFlags(int mode, bool backward)
{
    QTextDocument::FindFlags flags;
    if (backward)
        flags |= QTextDocument::FindBackward;
    switch (mode) {
    case CaseSearch:
        flags |= QTextDocument::FindCaseSensitively;
        break;
    case PatternSearch: // whole words go with every pattern search
    case WordSearch:
        flags |= QTextDocument::FindWholeWords;
        break;
    default:
        break;
    }
    return flags;
}

bool isWholeWord(const QString &text, int start, int end)
{
    return (start == 0 || !text.at(start - 1).isLetterOrNumber())
        && (end == text.size() || !text.at(end).isLetterOrNumber());
}

// One line searched for a pattern, forward from `offset` or backward
// from it (a hit may start at `offset` at the latest). Hits of no width
// are stepped over: the callers search on from the end of their last hit
// and would stand still on one. Returns the start, or -1; `length` gets
// the hit's length.
int findPatternInLine(const QString &text, const QRegularExpression &pattern, int offset,
                      bool backward, bool wholeWords, int &length)
{
    const int step = backward ? -1 : 1;
    for (int at = offset; at >= 0 && at <= text.size(); at += step) {
        const QRegularExpressionMatch match =
            backward ? pattern.match(text, at, QRegularExpression::NormalMatch,
                                     QRegularExpression::AnchorAtOffsetMatchOption)
                     : pattern.match(text, at);
        if (!match.hasMatch()) {
            if (backward)
                continue;
            return -1;
        }
        const int start = match.capturedStart();
        const int end = match.capturedEnd();
        if (!backward)
            at = start;
        if (end == start)
            continue;
        if (wholeWords && !isWholeWord(text, start, end))
            continue;
        length = end - start;
        return start;
    }
    return -1;
}

// A pattern search over the document that takes its case sensitivity from
// the pattern itself (the "i" modifier) rather than from the find flags.
QTextCursor findPattern(QTextDocument *doc, const QRegularExpression &pattern,
                        const QTextCursor &from, QTextDocument::FindFlags flags)
{
    if (pattern.pattern().isEmpty() || !pattern.isValid())
        return QTextCursor();

    const bool backward = flags & QTextDocument::FindBackward;
    const bool wholeWords = flags & QTextDocument::FindWholeWords;

    int pos = 0;
    if (!from.isNull())
        pos = backward ? from.selectionStart() : from.selectionEnd();
    // A cursor stands between characters: backward, the one behind it is
    // not part of the search.
    if (backward && --pos < 0)
        return QTextCursor();

    QTextBlock block = doc->findBlock(pos);
    int offset = pos - block.position();
    while (block.isValid()) {
        QString text = block.text();
        text.replace(QChar::Nbsp, QLatin1Char(' '));
        int length = 0;
        const int start =
            findPatternInLine(text, pattern, qMax(0, offset), backward, wholeWords, length);
        if (start >= 0) {
            QTextCursor hit(doc);
            hit.setPosition(block.position() + start);
            hit.setPosition(block.position() + start + length, QTextCursor::KeepAnchor);
            return hit;
        }
        if (backward) {
            block = block.previous();
            offset = block.length() - 1;
        } else {
            block = block.next();
            offset = 0;
        }
    }
    return QTextCursor();
}

QLabel *whiteLabel(const QString &text)
{
    QLabel *label = new QLabel(text);
    QPalette palette = label->palette();
    palette.setColor(QPalette::All, QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    return label;
}

} // namespace

void MdiChildEditor::buildSearchDock()
{
    searchBox = new QDockWidget(tr("Search"), this);
    searchBox->setObjectName(QStringLiteral("searchBox"));
    searchBox->setTitleBarWidget(new QWidget());
    searchBox->setFeatures(QDockWidget::NoDockWidgetFeatures);
    searchBox->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);

    findShortcut = new QShortcut(QKeySequence(tr("Ctrl+F", "Find")), this);
    findShortcut->setContext(Qt::WindowShortcut);
    connect(findShortcut, &QShortcut::activated, this, &MdiChildEditor::openSearchBox);
    findCloseShortcut = new QShortcut(QKeySequence(tr("Esc", "Close Find")), this);
    connect(findCloseShortcut, &QShortcut::activated, this, &MdiChildEditor::closeSearchBox);

    QWidget *panel = new QWidget();
    QGridLayout *grid = new QGridLayout(panel);

    QLabel *findLabel = whiteLabel(tr("Find:"));
    grid->addWidget(findLabel, 0, 0);

    searchLine = new LineEditBtn();
    searchLine->setObjectName(QStringLiteral("searchLine"));
    searchLine->setBtnIcon(QIcon(modeIcon(PlainSearch)), 16, 16);
    searchLine->setHideOnEmpty(false);
    connect(searchLine, &LineEditBtn::sideBtnCustomContext, this,
            &MdiChildEditor::searchSelectionClicked);
    connect(searchLine, &QLineEdit::textChanged, this, &MdiChildEditor::search_change);
    connect(searchLine, &QLineEdit::returnPressed, this, &MdiChildEditor::search_enter);
    grid->addWidget(searchLine, 0, 1);

    QPushButton *previous = new QPushButton(QIcon(findIcon("previous.png")), tr("previous"));
    connect(previous, &QPushButton::clicked, this, &MdiChildEditor::search_prev);
    grid->addWidget(previous, 0, 2);

    QPushButton *next = new QPushButton(QIcon(findIcon("next.png")), tr("next"));
    connect(next, &QPushButton::clicked, this, &MdiChildEditor::search_next);
    grid->addWidget(next, 0, 3);

    QPushButton *close = new QPushButton(QIcon(findIcon("close.png")), QString());
    close->setFlat(true);
    close->setMaximumWidth(17);
    connect(close, &QPushButton::clicked, this, &MdiChildEditor::closeSearchBox);
    grid->addWidget(close, 0, 6);

    QLabel *replaceLabel = whiteLabel(tr("Replace with:"));
    grid->addWidget(replaceLabel, 1, 0);

    replacement = new QLineEdit();
    replacement->setObjectName(QStringLiteral("replacement"));
    grid->addWidget(replacement, 1, 1);

    QPushButton *replace = new QPushButton(tr("replace"));
    connect(replace, &QPushButton::clicked, this, &MdiChildEditor::search_replace);
    grid->addWidget(replace, 1, 2);

    QPushButton *replaceAll = new QPushButton(tr("replace all"));
    connect(replaceAll, &QPushButton::clicked, this, &MdiChildEditor::search_replaceAll);
    grid->addWidget(replaceAll, 1, 3);

    QLinearGradient gradient(0, 0, 0, 10);
    gradient.setColorAt(0.0, QColor(217, 217, 217));
    gradient.setColorAt(1.0, QColor(92, 92, 92));
    QPalette palette = panel->palette();
    palette.setBrush(QPalette::Window, QBrush(gradient));
    panel->setPalette(palette);
    panel->setAutoFillBackground(true);

    searchBox->setWidget(panel);
    addDockWidget(Qt::BottomDockWidgetArea, searchBox);
    searchType = PlainSearch;
    searchBox->hide();
}

void MdiChildEditor::openSearchBox()
{
    searchBox->setVisible(true);
    searchLine->setFocus(Qt::OtherFocusReason);
}

// The marks of the last search stay in the editor.
void MdiChildEditor::closeSearchBox()
{
    searchBox->setVisible(false);
}

// "/pattern/modifiers" or a bare pattern; "i" ignores case, "U" makes
// the quantifiers lazy.
QRegularExpression MdiChildEditor::readSearchPattern() const
{
    QString text = searchLine->text();
    QString modifiers;
    if (text.startsWith(QLatin1Char('/'))) {
        text.remove(0, 1);
        const int slash = text.lastIndexOf(QLatin1Char('/'));
        if (slash >= 0) {
            modifiers = text.mid(slash);
            text.truncate(slash);
        }
    }

    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (modifiers.contains(QLatin1Char('i')))
        options |= QRegularExpression::CaseInsensitiveOption;
    if (modifiers.contains(QLatin1Char('U')))
        options |= QRegularExpression::InvertedGreedinessOption;
    return QRegularExpression(text, options);
}

QRegularExpression MdiChildEditor::modePattern() const
{
    return searchType == PatternSearch ? readSearchPattern() : QRegularExpression();
}

void MdiChildEditor::selectNextHit(bool backward)
{
    const QTextCursor cursor = searchInMode(editor->textCursor(), backward, modePattern());
    if (!cursor.isNull())
        editor->setTextCursor(cursor);
}

QTextCursor MdiChildEditor::searchInMode(const QTextCursor &from, bool backward,
                                         const QRegularExpression &pattern)
{
    const QTextDocument::FindFlags flags = modeFlags(searchType, backward);
    switch (searchType) {
    case PatternSearch:
        return findPattern(editor->document(), pattern, from, flags);
    case IdentSearch:
        return findNextIdent(searchLine->text(), from, flags);
    default:
        return editor->document()->find(searchLine->text(), from, flags);
    }
}

QTextCursor MdiChildEditor::findNextIdent(const QString &identifier, const QTextCursor &cursor,
                                          QTextDocument::FindFlags options)
{
    QString cident = identifier;
    if (!cident.startsWith(QLatin1Char('$')))
        cident.prepend(QLatin1Char('$'));

    QTextDocument *doc = editor->document();
    QTextCursor cc = doc->find(cident, cursor, options);
    while (!cc.isNull()) {
        // Only forward of the start counts, so a backward search finds
        // nothing here.
        if (cc.position() > cursor.position()) {
            if (const CBlockData *data = recordOf(cc.block())) {
                const int column = cc.selectionStart() + cc.positionInBlock() - cc.selectionEnd();
                const int length = cc.selectionEnd() - cc.selectionStart();
                for (const Identifier &ident : data->idents) {
                    if (ident.start == column && ident.name.size() == length)
                        return cc;
                }
            }
        }
        cc = doc->find(cident, cc, options);
    }
    return QTextCursor();
}

void MdiChildEditor::search_change()
{
    const QRegularExpression pattern = modePattern();

    QList<QTextEdit::ExtraSelection> selections;
    QTextCursor cursor = searchInMode(QTextCursor(), false, pattern);
    int safty = 0;
    while (!cursor.isNull() && safty != markLimit) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = cursor;
        mark.format.setProperty(QTextFormat::BackgroundBrush, QBrush(Qt::yellow));
        selections.append(mark);
        cursor = searchInMode(cursor, false, pattern);
        ++safty;
    }
    editor->setExtraSelections(selections);
}

void MdiChildEditor::search_next()
{
    selectNextHit(false);
    editor->setFocus(Qt::OtherFocusReason);
}

// Like next, but the focus stays in the search line so that Return
// walks through the hits.
void MdiChildEditor::search_enter()
{
    selectNextHit(false);
}

void MdiChildEditor::search_prev()
{
    selectNextHit(true);
    editor->setFocus(Qt::OtherFocusReason);
}

// Whatever is selected is replaced, hit or not; then on to the next hit.
void MdiChildEditor::search_replace()
{
    const QTextCursor replaceCursor = editor->textCursor();
    if (replaceCursor.hasSelection())
        editor->insertPlainText(replacement->text());

    const QRegularExpression pattern = modePattern();
    const QTextCursor from = searchType == IdentSearch ? editor->textCursor() : replaceCursor;
    const QTextCursor cursor = searchInMode(from, false, pattern);
    if (!cursor.isNull())
        editor->setTextCursor(cursor);
    editor->setFocus(Qt::OtherFocusReason);
}

// Each replacement is an undo step of its own.
void MdiChildEditor::search_replaceAll()
{
    const QRegularExpression pattern = modePattern();

    QTextCursor start;
    if (searchType == CaseSearch || searchType == PatternSearch || searchType == WordSearch)
        start = QTextCursor(editor->document());

    QTextCursor cursor = searchInMode(start, false, pattern);
    int safty = 0;
    while (!cursor.isNull() && safty != replaceLimit) {
        cursor.insertText(replacement->text());
        editor->setTextCursor(cursor);
        cursor = searchInMode(cursor, false, pattern);
        ++safty;
    }
}

void MdiChildEditor::searchSelectionClicked(QPoint p)
{
    struct Entry {
        const char *text;
        int mode;
    };
    static const Entry entries[] = {
        {QT_TR_NOOP("Case Sensitive"), CaseSearch},
        {QT_TR_NOOP("Regular Expression"), PatternSearch},
        {QT_TR_NOOP("Whole words"), WordSearch},
        {QT_TR_NOOP("Identifier search"), IdentSearch},
    };

    QMenu menu(this);
    for (const Entry &entry : entries) {
        QAction *action = menu.addAction(QIcon(modeIcon(entry.mode)), tr(entry.text));
        action->setData(entry.mode);
        // The identifier entry never shows a check mark.
        action->setCheckable(entry.mode != IdentSearch);
        action->setChecked(entry.mode == searchType);
    }

    QPoint q = searchLine->mapToGlobal(p);
    q.setX(q.x() + searchLine->width());
    const QAction *chosen = menu.exec(q);
    if (!chosen)
        return;

    // Choosing the current mode again turns it off.
    const int mode = chosen->data().toInt();
    searchType = mode != searchType ? mode : int(PlainSearch);
    searchLine->setBtnIcon(QIcon(modeIcon(searchType)), 16, 16);
}
