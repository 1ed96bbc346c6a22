// Inlined comments and developer notes.
//
// An inlined comment starts behind a command separator or as the first word
// of a command. It ends at a `|` standing as a word or at the end of the
// line, never spans lines, and brackets in it still count.

#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"

static QString openingInCommentMessage()
{
    return QStringLiteral("Unexpected opening bracket in inlined-comment");
}

static QString closingInCommentMessage()
{
    return QStringLiteral("Unexpected closing bracket in inlined-comment");
}

void MslSyntaxHighlighter::parseSingLineComment(const QString &str, int &pos, int &brackets)
{
    int start = pos;
    bool wasSpace = true;
    while (pos < str.size()) {
        if (wasSpace) {
            if (isWordAt(str, pos, '|')) {
                // The caller meets the bar with its next step.
                setFormat(start, pos - start, DevSettings::commentFmt);
                pos -= 1;
                return;
            }
            if (isWordAt(str, pos, '{')) {
                ++brackets;
                setFormat(start, pos - start, DevSettings::commentFmt);
                setFormat(pos, 1, DevSettings::errFmt);
                start = pos + 1;
                throwError(ErrorReport, pos, QStringLiteral("block"), openingInCommentMessage());
            } else if (isWordAt(str, pos, '}')) {
                // Counted without a report; the final paint covers the mark
                // again, so it leaves no trace.
                --brackets;
                setFormat(pos, 1, DevSettings::errFmt);
            }
        }
        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
    }
    setFormat(start, pos - start, DevSettings::commentFmt);
}

void MslSyntaxHighlighter::parseMultiLineComment(const QString &str, int &pos, int &brackets)
{
    int start = pos;
    if (pos >= str.size()) {
        parseUnterminatedComment(str, pos, start);
        return;
    }

    // Only a bar and the closing mark together, `| */`, end the comment.
    bool wasSpace = true;
    for (;;) {
        if (wasSpace && pos < str.size()) {
            if (isWordAt(str, pos, '|')) {
                pos += 1;
                eatSpaces(str, pos);
                if (isPairAt(str, pos, '*', '/')) {
                    parseTerminatedComment(str, pos, brackets, start);
                    return;
                }
                // An ordinary word of the comment. The round goes on, so the
                // character after the blanks is not tested as a word start.
            } else if (isWordAt(str, pos, '{') || isWordAt(str, pos, '}')) {
                const bool opening = str.at(pos) == QLatin1Char('{');
                brackets += opening ? 1 : -1;
                // One short of the bracket: the character before it stays
                // unpainted.
                setFormat(start, pos - start - 1, DevSettings::commentFmt);
                setFormat(pos, 1, DevSettings::errFmt);
                throwError(ErrorReport, pos, QStringLiteral("block"),
                           opening ? openingInCommentMessage() : closingInCommentMessage());
                start = pos + 1;
            }
        }
        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
        if (pos >= str.size()) {
            parseUnterminatedComment(str, pos, start);
            return;
        }
    }
}

void MslSyntaxHighlighter::parseTerminatedComment(const QString &str, int &pos, int &brackets,
                                                  int start)
{
    pos += 2;
    setFormat(start, pos - start, DevSettings::commentFmt);
    int s = pos;

    bool wasSpace = false;
    while (pos < str.size()) {
        if (wasSpace) {
            if (isWordAt(str, pos, '|')) {
                // Trailing text in front of a separator is painted but not
                // reported.
                if (!str.mid(s, pos - s).trimmed().isEmpty())
                    setFormat(s, pos - s, DevSettings::errFmt);
                pos -= 1;
                return;
            }
            if (isWordAt(str, pos, '{') || isWordAt(str, pos, '}')) {
                const bool opening = str.at(pos) == QLatin1Char('{');
                brackets += opening ? 1 : -1;
                setFormat(s, pos - s - 1, DevSettings::commentFmt);
                setFormat(pos, 1, DevSettings::errFmt);
                throwError(ErrorReport, pos, QStringLiteral("block"),
                           opening ? openingInCommentMessage() : closingInCommentMessage());
                s = pos + 1;
            }
        }
        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
    }

    if (!str.mid(s).trimmed().isEmpty()) {
        setFormat(s, pos - s, DevSettings::errFmt);
        throwError(ErrorReport, s, QStringLiteral("block"),
                   QStringLiteral("Trailing text after end of a multi-line comment."));
    }
    pos -= 1;
}

void MslSyntaxHighlighter::parseUnterminatedComment(const QString &str, int &pos, int start)
{
    Q_UNUSED(str);
    setFormat(start, pos - start, DevSettings::commentNoEndFmt);
    // The column of this report is the comment's length, taken over as it is.
    throwError(ErrorReport, pos - start, QStringLiteral("block"),
               QStringLiteral("Inlined multi-line comment was never terminated - missing a "
                              "`| */'"));
    // Every scanning loop of the line stops at its next step.
    mlineInEffect = true;
}

void MslSyntaxHighlighter::doMessageCheck(const QString &str, int pos, Comment comment)
{
    if (comment == SingleLine) {
        eatSpaces(str, pos);
        pos += 1; // past the `;`
    } else if (comment == MultiLine) {
        eatSpaces(str, pos);
        pos += 2; // past the `/*`
    }

    eatSpaces(str, pos);
    const int s = pos;
    eatNSpaces(str, pos);

    // Only the first word is looked at, and it must equal a tag.
    const QString todo = str.mid(s, pos - s);
    QString msg = str.mid(pos + 1);

    struct Tag {
        const char *word;
        ReportKind kind;
    };
    static const Tag tags[] = {
        {"todo", TodoNote}, {"fixme", FixmeNote}, {"hack", HackNote}, {"xxx", XxxNote}};

    const QString word = todo.toLower();
    for (const Tag &tag : tags) {
        const QLatin1String bare(tag.word);
        if (word == bare || (word.endsWith(QLatin1Char(':')) && word.chopped(1) == bare)) {
            setFormat(s, todo.size(), DevSettings::todoFmt);
            throwMsg(tag.kind, s, msg);
            return;
        }
    }
}
