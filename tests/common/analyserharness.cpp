#include "analyserharness.h"

#include "devsettings.h"
#include "headlesslayout.h"

#include <QSet>
#include <QTextBlock>
#include <algorithm>

QString HarnessReport::brief() const
{
    return QStringLiteral("%1:%2 %3 %4|%5").arg(line).arg(col).arg(type).arg(block, message);
}

AnalyserHarness::AnalyserHarness(QObject *parent) : QObject(parent)
{
    ensureSettings();
    // A document reports its edits only once it has a layout; give it the
    // one the script editor uses, so that edits re-run the analysis.
    HeadlessLayout::install(&doc);
    hl = new MslSyntaxHighlighter(&doc);
    connect(hl, &MslSyntaxHighlighter::updateError, this, &AnalyserHarness::onUpdateError,
            Qt::DirectConnection);
    connect(hl, &MslSyntaxHighlighter::removeError, this, &AnalyserHarness::onRemoveError,
            Qt::DirectConnection);
}

AnalyserHarness::~AnalyserHarness()
{
    // The highlighter goes with the document; drop the connections first so
    // that late withdrawals do not reach a half-destroyed sink.
    disconnect(hl, nullptr, this, nullptr);
}

void AnalyserHarness::ensureSettings()
{
    static bool done = false;
    if (!done) {
        DevSettings::InitializeAllSettings();
        done = true;
    }
}

void AnalyserHarness::setText(const QString &text)
{
    doc.setPlainText(text);
    hl->rehighlight();
}

void AnalyserHarness::setLines(const QStringList &lines)
{
    setText(lines.join(QLatin1Char('\n')));
}

QStringList AnalyserHarness::briefs() const
{
    QStringList out;
    for (const HarnessReport &r : standing)
        out << r.brief();
    return out;
}

QList<HarnessReport> AnalyserHarness::reportsOn(int line) const
{
    QList<HarnessReport> out;
    for (const HarnessReport &r : standing) {
        if (r.line == line)
            out << r;
    }
    return out;
}

QString AnalyserHarness::bookkeepingFault() const
{
    QList<int> held, ids;
    for (QTextBlock b = doc.firstBlock(); b.isValid(); b = b.next()) {
        const auto *rec = recordOf(b);
        if (!rec)
            return QStringLiteral("line %1 has no record").arg(b.blockNumber() + 1);
        held << rec->remId.err;
    }
    for (const HarnessReport &r : standing)
        ids << r.id;
    std::sort(held.begin(), held.end());
    std::sort(ids.begin(), ids.end());
    if (held == ids)
        return {};
    return QStringLiteral("the records hold %1 report ids, not the %2 standing")
        .arg(held.size())
        .arg(ids.size());
}

int AnalyserHarness::state(int block) const
{
    return doc.findBlockByNumber(block).userState();
}

CBlockData *AnalyserHarness::record(int block) const
{
    return recordOf(doc.findBlockByNumber(block));
}

QVector<QTextLayout::FormatRange> AnalyserHarness::formats(int block) const
{
    const QTextBlock b = doc.findBlockByNumber(block);
    if (!b.isValid() || !b.layout())
        return {};
    return b.layout()->formats();
}

QTextCharFormat AnalyserHarness::formatAt(int block, int col) const
{
    const auto ranges = formats(block);
    for (const QTextLayout::FormatRange &r : ranges) {
        if (col >= r.start && col < r.start + r.length)
            return r.format;
    }
    return QTextCharFormat();
}

QString AnalyserHarness::formatName(const QTextCharFormat &fmt)
{
    if (fmt == QTextCharFormat())
        return QStringLiteral("none");
    return DevSettings::formatName(fmt);
}

QStringList AnalyserHarness::columnFormats(int block) const
{
    const QTextBlock b = doc.findBlockByNumber(block);
    QStringList out;
    for (int c = 0; c < b.length() - 1; ++c)
        out << formatName(formatAt(block, c));
    return out;
}

QString AnalyserHarness::formatRuns(int block) const
{
    return formatRuns(block, 0, -1);
}

QString AnalyserHarness::formatRuns(int block, int from, int end) const
{
    QStringList cols = columnFormats(block);
    if (end >= 0)
        cols = cols.mid(0, end);
    QStringList runs;
    int c = from;
    while (c < cols.size()) {
        int e = c + 1;
        while (e < cols.size() && cols.at(e) == cols.at(c))
            ++e;
        if (cols.at(c) != QLatin1String("none"))
            runs << QStringLiteral("%1@%2+%3").arg(cols.at(c)).arg(c).arg(e - c);
        c = e;
    }
    return runs.join(QLatin1Char(' '));
}

void AnalyserHarness::onUpdateError(int lineNum, int linePos, QString fname, QString block, QString,
                                    int type, QString err, int &errId)
{
    ++emitted;
    int id = 1;
    for (const HarnessReport &r : standing)
        id = std::max(id, r.id);
    errId = id + 1;

    HarnessReport r;
    r.id = errId;
    r.line = lineNum;
    r.col = linePos;
    r.file = fname;
    r.block = block;
    r.type = type;
    r.message = err;
    // The new id is above every standing one, so the list stays in id order.
    standing.append(r);
}

void AnalyserHarness::onRemoveError(QVector<int> &errIds)
{
    // One sweep per withdrawal: a line can withdraw thousands of reports.
    const QSet<int> ids(errIds.cbegin(), errIds.cend());
    const auto gone = std::remove_if(standing.begin(), standing.end(),
                                     [&](const HarnessReport &r) { return ids.contains(r.id); });
    withdrawn += int(standing.end() - gone);
    standing.erase(gone, standing.end());
}
