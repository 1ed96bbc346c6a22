#ifndef ANALYSERHARNESS_H
#define ANALYSERHARNESS_H

#include "msltextedit.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextLayout>
#include <QVector>

// One report as the dock would hold it.
struct HarnessReport
{
    int id = 0;
    int line = 0;
    int col = 0;
    QString file;
    QString block;
    int type = 0;
    QString message;

    // "line:col type block|message", handy for QCOMPARE on lists.
    QString brief() const;
};

// A real QTextDocument with the real MslSyntaxHighlighter attached, and a
// sink that hands out report ids as the dock does (greatest standing id
// plus one, first id 2) and withdraws them on request.
class AnalyserHarness : public QObject
{
    Q_OBJECT

public:
    explicit AnalyserHarness(QObject *parent = nullptr);
    ~AnalyserHarness() override;

    // Fills DevSettings once per process.
    static void ensureSettings();

    // Replaces the whole text and runs the analysis of every line.
    void setText(const QString &text);
    // Lines joined with '\n'.
    void setLines(const QStringList &lines);

    QTextDocument *document() { return &doc; }
    MslSyntaxHighlighter *highlighter() { return hl; }

    // Reports standing now, in id order.
    QList<HarnessReport> reports() const { return standing; }
    QStringList briefs() const;
    // Reports standing now whose line is `line` (1-based).
    QList<HarnessReport> reportsOn(int line) const;
    // Empty while every line has its record and the ids the records hold
    // are exactly the reports standing; else what is wrong.
    QString bookkeepingFault() const;
    int withdrawnCount() const { return withdrawn; }
    int emittedCount() const { return emitted; }

    // Per line (0-based block number).
    int state(int block) const;
    CBlockData *record(int block) const;
    QVector<QTextLayout::FormatRange> formats(int block) const;
    // The format the analyser left at one column, or an empty format.
    QTextCharFormat formatAt(int block, int col) const;

    // Name of the DevSettings format equal to `fmt`, "none" for an empty
    // one, "other" when no member matches.
    static QString formatName(const QTextCharFormat &fmt);
    // Per column of a line, the formatName of its format: "ctrlFmt" etc.
    QStringList columnFormats(int block) const;
    // Runs of equal formats on a line, plain text left out:
    // "cmdFmt@0+4 ctrlFmt@5+1".
    QString formatRuns(int block) const;
    // The same for the columns [from, end) only; end -1 is the line's end.
    QString formatRuns(int block, int from, int end) const;

private:
    void onUpdateError(int lineNum, int linePos, QString fname, QString block, QString id, int type,
                       QString err, int &errId);
    void onRemoveError(QVector<int> &errIds);

    QTextDocument doc;
    MslSyntaxHighlighter *hl = nullptr;
    QList<HarnessReport> standing;
    int withdrawn = 0;
    int emitted = 0;
};

#endif // ANALYSERHARNESS_H
