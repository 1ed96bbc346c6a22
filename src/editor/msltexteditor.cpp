#include "msltexteditor.h"

#include "mslcompleters.h"

#include <QCompleter>
#include <QFont>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>

MslTextEditor::MslTextEditor(QWidget *parent)
    : QPlainTextEdit(parent)
    , hoverPoint(0, 0)
{
    setupFont();
    prevVerticalScrollBar = 0;
    buildGutter();
    buildCompleters();
    connect(verticalScrollBar(), &QScrollBar::valueChanged,
            this, &MslTextEditor::scrollBarValueChanged);
    setupHover();
    setupContextMenu();
}

MslTextEditor::~MslTextEditor() = default;

void MslTextEditor::setupFont()
{
    QFont font(QStringLiteral("Courier"));
    font.setFixedPitch(true);
    font.setPointSize(10);
    setFont(font);
}

void MslTextEditor::buildGutter()
{
    lineNumber = new LineNumberBar(this);

    connect(this, &QPlainTextEdit::blockCountChanged,
            this, &MslTextEditor::updatelineNumberWidth);
    connect(this, &QPlainTextEdit::updateRequest,
            this, &MslTextEditor::updatelineNumber);
    connect(this, &QPlainTextEdit::cursorPositionChanged,
            this, &MslTextEditor::highlightCurrentLine);

    updatelineNumberWidth(0);
    highlightCurrentLine();
}

// propCompleter deliberately starts as a second ProgID completer: its
// model is replaced by an identifier's properties each time it is used.
void MslTextEditor::buildCompleters()
{
    comCompleter = MslCompleters::getComCompleter(this);
    comCompleter->setCaseSensitivity(Qt::CaseInsensitive);
    propCompleter = MslCompleters::getComCompleter(this);
    propCompleter->setCaseSensitivity(Qt::CaseInsensitive);
    identCompleter = MslCompleters::getIdentCompleter(this);
    identCompleter->setCaseSensitivity(Qt::CaseInsensitive);
    colorCompleter = MslCompleters::getColorCompleter(this);

    const struct {
        QCompleter *completer;
        const char *name;
        void (MslTextEditor::*slot)(const QString &);
    } wiring[] = {
        { comCompleter, "comCompleter", &MslTextEditor::insertComCompletion },
        { propCompleter, "propCompleter", &MslTextEditor::insertIdentPropCompletion },
        { identCompleter, "identCompleter", &MslTextEditor::insertIdentCompletion },
        { colorCompleter, "colorCompleter", &MslTextEditor::insertColorCompletion },
    };
    for (const auto &w : wiring) {
        w.completer->setObjectName(QLatin1String(w.name));
        w.completer->setWidget(this);
        w.completer->setCompletionMode(QCompleter::PopupCompletion);
        connect(w.completer, qOverload<const QString &>(&QCompleter::activated),
                this, w.slot);
    }
}

void MslTextEditor::setupHover()
{
    viewport()->setAttribute(Qt::WA_MouseTracking);
    timerHover = nullptr;
}

void MslTextEditor::setupContextMenu()
{
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested,
            this, &MslTextEditor::showContextMenu);
}

// Moves by visual lines, so a wrapped line or a fold shifts the landing
// line; callers accept that.
void MslTextEditor::gotoLine(int line)
{
    const QTextBlock current = textCursor().block();
    int cline = 0;
    for (QTextBlock b = document()->begin(); b != document()->end(); b = b.next()) {
        ++cline;
        if (b == current)
            break;
    }

    QTextCursor cursor = textCursor();
    const QTextCursor::MoveOperation op = cline < line ? QTextCursor::Down : QTextCursor::Up;
    cursor.movePosition(op, QTextCursor::MoveAnchor, qAbs(cline - line));
    setTextCursor(cursor);
}

void MslTextEditor::gotoPos(int pos)
{
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock);
    setTextCursor(cursor);
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, pos);
    setTextCursor(cursor);
}
