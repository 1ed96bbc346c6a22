#ifndef MSLTEXTEDIT_H
#define MSLTEXTEDIT_H

#include "reportkind.h"

#include <QObject>
#include <QString>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <QTextBlockUserData>
#include <QVector>

#include <functional>

// One `$word` occurrence in a line, as the analyser saw it.
struct Identifier
{
    QString name;             // from the '$' to the first stop character, as typed
    int start = 0;            // index of the '$'
    int end = 0;              // where the parser stopped
    int proppos = -1;         // index of a property's '.'; -1 none; 0 without parentheses
    bool hasPayload = false;  // followed by '('
    QVector<int> argsPos;     // index of each top-level comma
    bool possibleIdent = false; // a bare '$' where a name may be typed next
};

// The report ids of one line, with the signal that withdraws them.
// The parameters an event family takes behind its word, and what
// examines each (highlighter_events.cpp).
struct EventGrammar;
enum class EventExamination {
    None,
    MixedTargets,
    ChannelTargets,
    WindowTarget,
    DccType,
    Keys,
    DialogEventType,
    DialogEventId,
};

class DumErr : public QObject
{
    Q_OBJECT

public:
    DumErr();
    ~DumErr() override;

    void pushErr(int id);
    void clearErrs();
    bool containsErr(int id) const;
    QVector<int> getErrs() const;

    QVector<int> err;

signals:
    void doRemErr(QVector<int> &errs);
};

// The analyser's record of one text block.
class CBlockData : public QTextBlockUserData
{
public:
    enum BlockType { NoBlock = 0, Alias = 1, Dialog = 2, Event = 3 };

    DumErr remId;
    int blockType = NoBlock;
    bool isLocal = false;
    QString matchtext;
    QString containedBlock;
    int blockPos = -1;
    bool isMultiLine = false;
    bool isHidden = false;     // reserved for folding; reset on every pass
    int hiddenLines = 0;       // reserved for folding; reset on every pass
    bool isConnected = false;
    bool isGroup = false;
    int groupState = 0;        // 1 opens a group, 2 closes one
    QVector<Identifier> idents;
};

// The analyser's record of a block: the one way to it. Null where the
// analyser has not been (no highlighter on the document, or a block it has
// not reached yet); the analyser is the only one to put data on blocks.
inline CBlockData *recordOf(const QTextBlock &block)
{
    return static_cast<CBlockData *>(block.userData());
}

// The line-by-line parser, linter and colouriser of mSL. Qt calls
// highlightBlock() for each changed line; the block state carries the
// only memory from one line to the next.
class MslSyntaxHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    enum Comment { SingleLine = 0, MultiLine = 1, InMultiLine = 2 };

    explicit MslSyntaxHighlighter(QTextDocument *parent);
    ~MslSyntaxHighlighter() override;

    void setFn(QString fn);

signals:
    void updateError(int lineNum, int linePos, QString fname, QString block,
                     QString id, int type, QString err, int &errId);
    void removeError(QVector<int> &errIds);

protected:
    // Line driver (highlighter_driver.cpp).
    void highlightBlock(const QString &str) override;

    // Foundations (highlighter_core.cpp).
    int currentLineNumber();
    void throwError(ReportKind kind, int pos, QString block, const QString &error);
    void throwMsg(ReportKind kind, int pos, QString &msg);
    void saveStateAlias(QString name, int pos, bool isLocal);
    void saveStateDialog(QString name, int pos, bool isLocal);
    void saveStateEvent(QString name, QString matchtext, int pos);
    void saveStateGroup(int state);
    void saveStateIdent(QString &name, int start, int end, int proppos,
                        bool hasPayload, QVector<int> &args);
    void saveStatePossibleIdent(int pos);
    void clearCurrentBlockUserData();
    bool checkDependencies(); // declared for a dependency check that does not exist

    // Shared scanners, command lines and variables (highlighter_commands.cpp).
    void eatSpaces(const QString &str, int &pos);
    void eatNSpaces(const QString &str, int &pos);
    QString getToken(const QString &str, int &pos, bool orComma);
    bool isNumeric(const QString &str);
    void parseVar(const QString &str, int &pos);
    void parseVarInId(const QString &str, int &pos);
    void parseVarInVCmd(const QString &str, int &pos);
    void parseCmdLine(const QString &str, int &pos, int &brackets);
    void parseVarCmd(const QString &str, int &pos, int &brackets);

    // Inlined comments and developer notes (highlighter_comments.cpp).
    void parseSingLineComment(const QString &str, int &pos, int &brackets);
    void parseMultiLineComment(const QString &str, int &pos, int &brackets);
    void doMessageCheck(const QString &str, int pos, Comment comment);

    // Identifier expressions (highlighter_identifiers.cpp).
    void parseIdent(const QString &str, int &pos, int &brackets, int inIdent);

    // Conditions (highlighter_conditions.cpp).
    void parseIf(const QString &str, int &pos, int &brackets);
    void parseElse(const QString &str, int &pos, int &brackets);
    void parseIfCond(const QString &str, int &pos, int &brackets, bool within);
    bool isValidOper(const QString &oper);

    // Alias and dialog headers, access levels (highlighter_headers.cpp).
    void parseAlias(const QString &str, int &cPos);
    void parseDialog(const QString &str, int &cPos);
    bool parsedAccessLevel(const QString &str, int &pos);

    // Event headers (highlighter_events.cpp).
    bool parseEvent(const QString &str, int &pos, int &brackets);

    // Dialog table statements (highlighter_dialogtables.cpp).
    int parseDialogStatement(const QString &str);

private slots:
    void remError(QVector<int> &errs);

    // Paints like QSyntaxHighlighter::setFormat, and charges the line's
    // work budget; once the budget is spent nothing more is painted.
    void setFormat(int start, int count, const QTextCharFormat &format);

private:
    CBlockData *currentRecord();

    // Work budget of one line (highlighter_budget.cpp). A line that would
    // take absurd time or stack is stopped, painted and reported once.
    class NestingGuard
    {
    public:
        NestingGuard(MslSyntaxHighlighter *hl, int pos);
        ~NestingGuard();
        bool stopped() const;

    private:
        MslSyntaxHighlighter *hl;
    };
    void startBudget(const QString &str);
    // Every scan step passes here, hence inline.
    bool spend(qint64 steps, int pos)
    {
        if (budgetStopped)
            return true;
        budgetLeft -= steps;
        if (budgetLeft < 0)
            stopAnalysis(pos);
        return budgetStopped;
    }
    bool reportAllowed(int pos);
    void stopAnalysis(int pos);
    void finishBudget(const QString &str);
    qint64 budgetLeft = 0;
    qint64 reportsLeft = 0;
    int budgetDepth = 0;
    int budgetStopPos = -1;
    bool budgetStopped = false;
    bool budgetReporting = false;

    // Line driver steps (highlighter_driver.cpp).
    void parseTopLevelLine(const QString &str, bool inGroup);
    void parseGroupLine(const QString &str, bool inGroup);
    void parseAliasHeader(const QString &str, int &cPos, bool inGroup);
    void parseDialogHeader(const QString &str, int &cPos, bool inGroup);
    void parseEventHeader(const QString &str, int &cPos, bool inGroup);
    bool takeOpeningBracket(const QString &str, int &cPos, int &brackets);
    void endSingleLineBlock(const QString &str, int &cPos, bool inGroup);
    void markUnknownLine(const QString &str);
    void closeTopLevelComment(const QString &str, int stay, int after);
    void dispatchBody(const QString &str, int c, bool inOn);
    void parseBodyLine(const QString &str, int c, int brackets, bool isEvent, int groupAdd);
    void parseCommentInBody(const QString &str, int c, int groupAdd);
    void parseCommentInDialog(const QString &str);
    void setMultiLine(bool multiLine);

    // Command line steps (highlighter_commands.cpp).
    void parseClosingBracketInCmdLine(const QString &str, int &pos, int &brackets);
    void parseOpeningBracketInCmdLine(const QString &str, int &pos, int &brackets);
    void parseOpeningBracketInVarCmd(const QString &str, int &pos, int &brackets);
    void parseClosingBracketInVarCmd(const QString &str, int &pos, int &brackets);

    // Identifier expression steps (highlighter_identifiers.cpp). The locals
    // of one identifier being read travel between the steps in IdentScan.
    struct IdentScan;
    void skipDeferredIdent(const QString &str, int &pos, int inIdent);
    void parseIdentArgs(const QString &str, int &pos, int &brackets, int inIdent,
                        IdentScan &id);
    void stepIdentArg(const QString &str, int &pos, IdentScan &id);
    bool parseIifCondition(const QString &str, int &pos);
    void closeIdent(const QString &str, int &pos, int inIdent, IdentScan &id);
    void checkIdent(int pos, IdentScan &id);
    void saveIdent(const QString &str, int &pos, IdentScan &id);

    // Condition steps (highlighter_conditions.cpp). The scans return true
    // when they left the condition altogether, false at the end of the line.
    bool scanBracketedCond(const QString &str, int &pos, int &brackets, bool within,
                           bool startBracket, int braces);
    bool scanPlainCond(const QString &str, int &pos, int &brackets);
    void parseSubCond(const QString &str, int &pos, int &brackets);
    void parseVarInCond(const QString &str, int &pos);
    void chainConds(const QString &str, int &pos, int &brackets);
    void closeCond(const QString &str, int &pos, bool within, bool startBracket);

    // Inlined multi-line comment steps (highlighter_comments.cpp).
    void parseTerminatedComment(const QString &str, int &pos, int &brackets, int start);
    void parseUnterminatedComment(const QString &str, int &pos, int start);

    // Event header steps (highlighter_events.cpp). The event word of the
    // header being read: its lowercased text, where it starts, the block
    // name its reports carry.
    struct EventWord
    {
        QString event;
        int start = 0;
        int length = 0;
        QString block;
    };
    void parseEventParameters(const QString &str, int &pos, const EventWord &ev,
                              const EventGrammar &grammar);
    void examineEventParameter(EventExamination examination, int pos, const QString &text,
                               const EventWord &ev);
    bool takeEventParameter(const QString &str, int &pos, const EventWord &ev,
                            const QString &missing, QString &param);
    bool eventVariableTest(int pos, const QString &token,
                           const QString &block, const QString &message);
    void walkMixedTargets(int pos, const QString &target,
                          const QString &block);
    void walkChannelTargets(int pos, const QString &target,
                            const QString &block);
    void checkWindowTarget(int pos, const QString &target,
                           const QString &block);
    void checkDccType(int pos, const QString &type, const QString &block);
    void walkKeys(int pos, const QString &keys, const QString &block);
    void checkDialogEventType(int pos, const QString &eventType, const EventWord &ev);
    void checkDialogEventId(int pos, const QString &id, const EventWord &ev);

    // Dialog table steps (highlighter_dialogtables.cpp).
    enum DialogToken { PlainDialogToken, ClosingDialogToken, ExpressionDialogToken };
    // How a statement's tokens are read: plain, as a title (a stray
    // closing bracket marked alone), or as styles (lowered, up to a comma).
    enum DialogTokenWalk { PlainTokens, TitleTokens, StyleTokens };
    // Hands each token of the rest of the line to `visit`; false when a
    // closing bracket ended the table.
    bool walkDialogTokens(const QString &str, int &pos, DialogTokenWalk walk,
                          const std::function<void(const QString &, DialogToken)> &visit);
    DialogToken treatDialogToken(const QString &str, int &pos, const QString &token,
                                 bool markBracketOnly);
    int parseDialogOption(const QString &str, int &pos);
    int parseDialogSize(const QString &str, int &pos);
    int parseDialogTitle(const QString &str, int &pos);
    int parseDialogControl(const QString &str, int &pos, const QString &keyword, int keywordLength);
    int parseDialogListControl(const QString &str, int &pos, const QString &keyword,
                               int keywordLength);
    int missingDialogField(int markStart, int column, int keywordLength, const char *message,
                           const QString &keyword);
    bool takeDialogQuotedString(const QString &str, int &pos);
    void scanDialogField(const QString &str, int &pos, int k, int keywordLength, bool textField);
    int parseDialogStyles(const QString &str, int &pos, const QString &obj);
    int parseDialogCommentOrRest(const QString &str, int pos, const QString &token, int tokenLength);

    QString fname;
    bool mlineInEffect = false;
    bool parseNoMore = false; // declared, never read or written
    bool inCalc = false;
};

#endif // MSLTEXTEDIT_H
