// The work budget of one line.
//
// The parsers recurse at every `|`, nested identifier and nested condition,
// and a leading bar doubles the work of the rest of the line. A generated or
// pasted line can therefore ask for more stack or time than any machine
// has, and the analysis runs on the GUI thread at every keystroke. Each line
// gets a budget of steps (painted characters, parser entries, scanned
// characters, reports), of reports and of nesting depth, all far above
// what a real script needs. A line that exceeds one stops the way a
// never-terminated inlined comment stops it: every parser returns at its
// next step. The rest of the line is then painted as an error and one
// warning says so. The block state is still written, so the lines below
// are analysed as usual.

#include "msltextedit.h"

#include "devsettings.h"

namespace {

// A file can hold any number of absurd lines, so what one line may spend
// must stay in proportion to its length, or a few hundred kilobytes of
// short exploding lines freeze the editor for minutes. The fixed part is
// room for short lines beyond their per-character share; no line of the
// tests or of a realistic script needs any of it.
constexpr qint64 BaseSteps = 16384;
constexpr qint64 StepsPerCharacter = 64;
constexpr int MaxNesting = 200;

// Reports are counted apart from steps. Text behind a closing bracket is
// reported character by character, so a one-line if/elseif/else chain
// files a report for most of its characters: a line may file one per
// character and a few dozen more. Doubled passes behind leading bars file
// the same reports again and again; they stop there, and no line, however
// long, files more than the dock can show.
constexpr qint64 BaseReports = 64;
constexpr qint64 MaxReports = 4096;

} // namespace

MslSyntaxHighlighter::NestingGuard::NestingGuard(MslSyntaxHighlighter *highlighter, int pos)
    : hl(highlighter)
{
    ++hl->budgetDepth;
    if (hl->budgetDepth > MaxNesting)
        hl->stopAnalysis(pos);
    else
        hl->spend(1, pos);
}

MslSyntaxHighlighter::NestingGuard::~NestingGuard()
{
    --hl->budgetDepth;
}

bool MslSyntaxHighlighter::NestingGuard::stopped() const
{
    return hl->budgetStopped;
}

void MslSyntaxHighlighter::startBudget(const QString &str)
{
    budgetLeft = BaseSteps + StepsPerCharacter * qint64(str.size());
    reportsLeft = qMin(BaseReports + qint64(str.size()), MaxReports);
    budgetDepth = 0;
    budgetStopPos = -1;
    budgetStopped = false;
    budgetReporting = false;
}

bool MslSyntaxHighlighter::reportAllowed(int pos)
{
    if (budgetReporting)
        return true;
    if (--reportsLeft < 0)
        stopAnalysis(pos);
    return !spend(1, pos);
}

void MslSyntaxHighlighter::stopAnalysis(int pos)
{
    if (budgetStopped)
        return;
    budgetStopped = true;
    budgetStopPos = pos;
    mlineInEffect = true;
}

void MslSyntaxHighlighter::setFormat(int start, int count, const QTextCharFormat &format)
{
    if (spend(qMax(1, count), start))
        return;
    QSyntaxHighlighter::setFormat(start, count, format);
}

void MslSyntaxHighlighter::finishBudget(const QString &str)
{
    if (!budgetStopped)
        return;
    const int column = qBound(0, budgetStopPos, int(str.size()));
    QSyntaxHighlighter::setFormat(column, int(str.size()) - column, DevSettings::errFmt);
    budgetReporting = true;
    throwError(WarningReport, column, QStringLiteral("block"),
               QStringLiteral("Line too complex to analyse; analysis stopped here"));
    budgetReporting = false;
}
