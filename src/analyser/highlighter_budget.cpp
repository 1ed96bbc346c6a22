// The work budget of one line.
//
// The parsers recurse at every `|`, nested identifier and nested condition,
// and a leading bar doubles the work of the rest of the line. A generated or
// pasted line can therefore ask for more stack or time than any machine
// has, and the analysis runs on the GUI thread at every keystroke. Each line
// gets a budget of steps (painted characters, parser entries, scanned
// characters, reports) and of nesting depth, both far above what a real
// script needs. A line that exceeds either stops the way a never-terminated
// inlined comment stops it: every parser returns at its next step. The rest
// of the line is then painted as an error and one warning says so. The
// block state is still written, so the lines below are analysed as usual.

#include "msltextedit.h"

#include "devsettings.h"

namespace {

// A file can hold any number of absurd lines, so what one line may spend
// must stay in proportion to its length, or a few hundred kilobytes of
// short exploding lines freeze the editor for minutes. The fixed part is
// ten times what the busiest line of the test suite uses beyond its
// per-character share; a report costs a few hundred steps, so a line can
// still file dozens but cannot flood the dock.
constexpr qint64 BaseSteps = 16384;
constexpr qint64 StepsPerCharacter = 64;
constexpr qint64 ReportSteps = 256;
constexpr int MaxNesting = 200;

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
    budgetDepth = 0;
    budgetStopPos = -1;
    budgetStopped = false;
    budgetReporting = false;
}

bool MslSyntaxHighlighter::reportAllowed(int pos)
{
    // A report costs far more than a step, so a line cannot flood the dock.
    return budgetReporting || !spend(ReportSteps, pos);
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
    throwError(2, column, QStringLiteral("block"),
               QStringLiteral("Line too complex to analyse; analysis stopped here"));
    budgetReporting = false;
}
