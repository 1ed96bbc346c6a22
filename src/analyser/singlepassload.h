#ifndef SINGLEPASSLOAD_H
#define SINGLEPASSLOAD_H

class MslSyntaxHighlighter;
class QTextDocument;
class ReportStore;

// Opening a script passes the analyser over it twice: once while the text
// goes into the document, when the highlighter does not know the file's
// path yet, and once more in the rehighlight() that follows, which
// withdraws every report of the first pass and files it again under the
// full path. What the first pass leaves behind is overwritten by the
// second, with one exception: the second pass's reports take ids above the
// first pass's, which were still standing when they were filed.
//
// These two pieces give that end state at the cost of one pass.
// UnanalysedLoad keeps the highlighter off its document while the text
// goes in, so nothing is analysed or reported; after the rehighlight,
// settleSinglePassIds() moves the ids to where the skipped pass would have
// pushed them.

// While it lives, the highlighter is detached from its document.
// Reattaching leaves Qt a deferred rehighlight, which the caller's own
// rehighlight() makes void.
class UnanalysedLoad
{
public:
    explicit UnanalysedLoad(MslSyntaxHighlighter *highlighter);
    ~UnanalysedLoad();

    UnanalysedLoad(const UnanalysedLoad &) = delete;
    UnanalysedLoad &operator=(const UnanalysedLoad &) = delete;

private:
    MslSyntaxHighlighter *highlighter;
    QTextDocument *document;
};

// Call right after the one real pass over `document`, whose reports went
// to `store`. With N reports on at least two lines, the skipped pass would
// have filed N reports first and the real pass's ids would each be N
// higher: a report takes the greatest standing id plus one, and the
// skipped pass's report on a later line was still standing. With all
// reports on one line the real pass withdrew them all before filing its
// own, so the ids stand as they are. Records and store change together.
// Returns the shift applied.
int settleSinglePassIds(QTextDocument *document, ReportStore *store);

#endif // SINGLEPASSLOAD_H
