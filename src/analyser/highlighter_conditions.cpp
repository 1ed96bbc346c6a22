// if / elseif / while / else and their conditions.
//
// A condition comes in two forms. The bracketed form, `(...)`, is only
// scanned for identifiers, variables, sub-conditions and the balance of its
// parentheses. The plain form has its operator checked: it is the second
// word. `within` marks a sub-condition, behind || or && or behind a second
// opening parenthesis.

#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"

#include <QStringList>

namespace {

QString conditionBlock()
{
    return QStringLiteral("condition");
}

QString trailingMessage()
{
    return QStringLiteral("Trailing Characters after closing bracket.");
}

// || or && at pos.
bool isLogicalAt(const QString &str, int pos)
{
    return isPairAt(str, pos, '|', '|') || isPairAt(str, pos, '&', '&');
}

// There is no `=` among the operators, so `!=` is invalid while `!==` is
// valid: the negation works on any entry. The list stays as it is.
const QStringList &operators()
{
    static const QStringList list =
        QStringLiteral("== === < > >= <= // \\ & isin isincs iswm iswmcs isnum isletter "
                       "isalnum isalpha islower isupper ison isop ishop isvoice isreg ischan "
                       "isban isaop isavoice isignore isprotect isnotify")
            .split(QLatin1Char(' '));
    return list;
}

} // namespace

bool MslSyntaxHighlighter::isValidOper(const QString &oper)
{
    const QString word = oper.startsWith(QLatin1Char('!')) ? oper.mid(1) : oper;
    return operators().contains(word, Qt::CaseInsensitive);
}

void MslSyntaxHighlighter::parseElse(const QString &str, int &pos, int &brackets)
{
    const int start = pos;
    eatNSpaces(str, pos);
    setFormat(start, pos - start, DevSettings::ctrlFmt);
    eatSpaces(str, pos);

    if (isCharAt(str, pos, '{') && standsAsWord(str, pos)) {
        setFormat(pos, 1, DevSettings::ctrlFmt);
        brackets += 1;
        pos += 1;
    }
    parseCmdLine(str, pos, brackets);
}

void MslSyntaxHighlighter::parseIf(const QString &str, int &pos, int &brackets)
{
    eatSpaces(str, pos);
    const int cmdStart = pos;
    eatNSpaces(str, pos);
    setFormat(cmdStart, pos - cmdStart, DevSettings::ctrlFmt);
    eatSpaces(str, pos);
    // A keyword without a condition is not reported.
    if (pos >= str.size())
        return;

    for (;;) {
        if (mlineInEffect)
            return;
        parseIfCond(str, pos, brackets, false);
        if (pos >= str.size())
            return;
        if (str.at(pos) != QLatin1Char(' ') && str.at(pos) != QLatin1Char('{')) {
            // Reported, and the scan goes on all the same.
            setFormat(pos, str.size() - pos, DevSettings::errFmt);
            throwError(ErrorReport, pos, conditionBlock(), trailingMessage());
        }
        if (pos >= str.size())
            return;
        eatSpaces(str, pos);
        if (pos + 2 >= str.size())
            break;
        if (!isLogicalAt(str, pos))
            break;
        pos += 3;
        if (pos >= str.size())
            return;
    }

    if (pos >= str.size())
        return;
    // A blank only, where else takes any white space.
    if (isCharAt(str, pos, '{') && (pos + 1 >= str.size() || str.at(pos + 1) == QLatin1Char(' '))) {
        setFormat(pos, 1, DevSettings::ctrlFmt);
        brackets += 1;
        pos += 1;
    }
    if (pos < str.size())
        parseCmdLine(str, pos, brackets);
}

void MslSyntaxHighlighter::parseIfCond(const QString &str, int &pos, int &brackets, bool within)
{
    const NestingGuard guard(this, pos);
    if (guard.stopped())
        return;

    bool startBracket = false;

    eatSpaces(str, pos);
    if (isCharAt(str, pos, '(')) {
        setFormat(pos, 1, DevSettings::ctrlFmt);
        startBracket = true;
        pos += 1;
    }

    if (pos >= str.size()) {
        // The text is what users have always seen; keep it letter for letter.
        setFormat(pos - 1, 1, DevSettings::errFmt);
        throwError(ErrorReport, pos, conditionBlock(), QStringLiteral("Trailing 33/3/3/3/3?33?33?33?33"));
    } else {
        eatSpaces(str, pos);
        if (isCharAt(str, pos, '(')) {
            parseIfCond(str, pos, brackets, true);
        } else {
            bool left;
            if (startBracket)
                left = scanBracketedCond(str, pos, brackets, within, startBracket, 1);
            else if (within)
                left = scanBracketedCond(str, pos, brackets, within, startBracket, 0);
            else
                left = scanPlainCond(str, pos, brackets);
            if (left)
                return;
        }
    }

    chainConds(str, pos, brackets);
    closeCond(str, pos, within, startBracket);
}

bool MslSyntaxHighlighter::scanBracketedCond(const QString &str, int &pos, int &brackets,
                                             bool within, bool startBracket, int braces)
{
    bool wasSpace = true;
    while (pos < str.size()) {
        if (mlineInEffect)
            return true;

        bool countBraces = true;
        if (wasSpace) {
            const bool bang = isCharAt(str, pos, '!');
            if (isCharAt(str, pos, '$') || (bang && isCharAt(str, pos + 1, '$'))) {
                if (bang)
                    pos += 1;
                parseIdent(str, pos, brackets, 2);
                countBraces = false;
            } else if (isCharAt(str, pos, '%') || (bang && isCharAt(str, pos + 1, '%'))) {
                if (bang)
                    pos += 1;
                parseVarInCond(str, pos);
                countBraces = false;
            } else if (pos + 2 < str.size() && isLogicalAt(str, pos)) {
                if (pos + 3 < str.size() && str.at(pos + 2) == QLatin1Char(' '))
                    parseSubCond(str, pos, brackets);
                countBraces = false;
            }
        }

        // Parentheses count at every character, not only at word starts.
        if (countBraces && isCharAt(str, pos, '(')) {
            braces += 1;
        } else if (countBraces && isCharAt(str, pos, ')')) {
            braces -= 1;
            if (braces == 0) {
                // The bracket closed: no chain, no closing step.
                setFormat(pos, 1, DevSettings::ctrlFmt);
                if (!(within && !startBracket))
                    pos += 1;
                return true;
            }
            // One too many: it belongs to the caller.
            if (braces == -1)
                return true;
        }

        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
    }
    return false;
}

void MslSyntaxHighlighter::parseSubCond(const QString &str, int &pos, int &brackets)
{
    pos += 3;
    parseIfCond(str, pos, brackets, true);
    const int s = pos;

    // The scan's next round meets what stops the sub-condition.
    if (pos >= str.size() || str.at(pos).isSpace() || str.at(pos) == QLatin1Char(')')) {
        pos -= 1;
        return;
    }

    while (pos < str.size() && !str.at(pos).isSpace() && str.at(pos) != QLatin1Char(')'))
        pos += 1;
    int length = pos - s;
    if (pos < str.size()) {
        pos -= 1;
        length = pos - s + 1;
    }
    setFormat(s, length, DevSettings::errFmt);
    throwError(ErrorReport, s, conditionBlock(), trailingMessage());
}

void MslSyntaxHighlighter::parseVarInCond(const QString &str, int &pos)
{
    // Unlike the variables of a command line, a comma does not end it; a
    // ')' with no '(' of the variable's own does.
    const int s = pos;
    int bcount = 0;
    bool goBack = false;
    while (pos < str.size()) {
        const QChar ch = str.at(pos);
        if (ch == QLatin1Char('(')) {
            bcount += 1;
        } else if (ch == QLatin1Char(')')) {
            if (bcount == 0) {
                goBack = true;
                break;
            }
            bcount -= 1;
        } else if (ch == QLatin1Char(' ')) {
            break;
        }
        pos += 1;
    }
    if (pos != s)
        setFormat(s, pos - s, DevSettings::varFmt);
    if (goBack)
        pos -= 1;
}

bool MslSyntaxHighlighter::scanPlainCond(const QString &str, int &pos, int &brackets)
{
    bool wasSpace = true;
    int numofToks = 1;
    while (pos < str.size()) {
        if (mlineInEffect)
            return true;

        if (numofToks == 2) {
            // The second word is the operator.
            eatSpaces(str, pos);
            int end = pos;
            while (end < str.size() && str.at(end) != QLatin1Char(' '))
                end += 1;
            const QString oper = str.mid(pos, end - pos);
            if (isCharAt(str, pos, '{'))
                return true;
            if (isValidOper(oper)) {
                pos += oper.size();
            } else {
                // Painted without a report. The count of words only moves
                // when the step below passes a blank, so every later tail
                // of the line is tried as an operator until one fits.
                setFormat(pos, str.size() - pos, DevSettings::errFmt);
            }
        } else if (wasSpace) {
            if (isCharAt(str, pos, '{')
                && (pos + 1 >= str.size() || str.at(pos + 1) == QLatin1Char(' '))) {
                return true;
            } else if (isCharAt(str, pos, '$')) {
                parseIdent(str, pos, brackets, 2);
            } else if (isCharAt(str, pos, '%')) {
                parseVarInCond(str, pos);
            } else if (pos + 2 < str.size() && isLogicalAt(str, pos)) {
                if (pos + 3 < str.size() && str.at(pos + 2) == QLatin1Char(' ')) {
                    pos += 3;
                    parseIfCond(str, pos, brackets, true);
                    pos -= 1;
                }
            } else if (isCharAt(str, pos, ')')) {
                setFormat(pos, 1, DevSettings::errFmt);
                throwError(ErrorReport, pos, conditionBlock(),
                           QStringLiteral("Invalid closing brace, no opening brace found"));
                pos += 1;
                return true;
            }
        }

        if (pos < str.size()) {
            if (str.at(pos) == QLatin1Char(' '))
                numofToks += 1;
            wasSpace = str.at(pos).isSpace();
        }
        pos += 1;
    }
    return false;
}

void MslSyntaxHighlighter::chainConds(const QString &str, int &pos, int &brackets)
{
    for (;;) {
        if (mlineInEffect)
            return;
        eatSpaces(str, pos);
        if (pos + 3 < str.size() && isLogicalAt(str, pos) && str.at(pos + 2) == QLatin1Char(' ')) {
            pos += 3;
            parseIfCond(str, pos, brackets, true);
        } else {
            return;
        }
    }
}

void MslSyntaxHighlighter::closeCond(const QString &str, int &pos, bool within, bool startBracket)
{
    eatSpaces(str, pos);
    if (!startBracket)
        return;

    if (!isCharAt(str, pos, ')')) {
        setFormat(pos, str.size() - pos, DevSettings::errFmt);
        throwError(ErrorReport, pos, conditionBlock(),
                   QStringLiteral("Excess characters or incomplete condition"));
        pos = str.size();
        return;
    }

    setFormat(pos, 1, DevSettings::ctrlFmt);
    pos += 1;
    // Only a sub-condition checks what is glued to its parenthesis; the
    // outermost one leaves that to parseIf.
    if (pos >= str.size() || str.at(pos).isSpace() || !within)
        return;
    if (str.at(pos) == QLatin1Char(')'))
        return;

    const int s = pos;
    eatNSpaces(str, pos);
    setFormat(s, pos - s, DevSettings::errFmt);
    throwError(ErrorReport, s, conditionBlock(), trailingMessage());
}
