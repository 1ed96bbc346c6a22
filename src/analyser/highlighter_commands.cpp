// Command lines, variables and the small scanners every parser shares.
//
// A command line is one or more commands separated by a `|` standing as a
// word. Only the first word of each command is classified; later words are
// looked at for their first character alone ($ident, %var, brackets, bars).

#include "msltextedit.h"

#include "commandwords.h"
#include "devsettings.h"
#include "linescan.h"

static QString closingInCmdLineMessage()
{
    return QStringLiteral("Unexpected closing bracket in the middle of expression");
}

static QString charsAfterClosingMessage()
{
    return QStringLiteral("Unexpected characters after closing bracket");
}

static QString closingInVarMessage()
{
    return QStringLiteral("Unexpected closing bracket in expression");
}

void MslSyntaxHighlighter::eatSpaces(const QString &str, int &pos)
{
    while (pos < str.size() && str[pos].isSpace())
        ++pos;
}

void MslSyntaxHighlighter::eatNSpaces(const QString &str, int &pos)
{
    while (pos < str.size() && !str[pos].isSpace())
        ++pos;
}

QString MslSyntaxHighlighter::getToken(const QString &str, int &pos, bool orComma)
{
    eatSpaces(str, pos);
    const int start = pos;
    while (pos < str.size() && !str[pos].isSpace() && !(orComma && str[pos] == QLatin1Char(',')))
        ++pos;
    return str.mid(start, pos - start);
}

bool MslSyntaxHighlighter::isNumeric(const QString &str)
{
    for (const QChar c : str) {
        if (!c.isDigit())
            return false;
    }
    return true;
}

void MslSyntaxHighlighter::parseVar(const QString &str, int &pos)
{
    // A lone `%` is plain text. Only a blank ends the name.
    if (pos + 1 >= str.size() || str.at(pos + 1) == QLatin1Char(' '))
        return;
    const int start = pos;
    while (pos < str.size() && str.at(pos) != QLatin1Char(' '))
        ++pos;
    setFormat(start, pos - start, DevSettings::varFmt);
}

void MslSyntaxHighlighter::parseVarInVCmd(const QString &str, int &pos)
{
    // As parseVar, and a comma separates the names of `var`.
    if (pos + 1 >= str.size() || str.at(pos + 1) == QLatin1Char(' ')
        || str.at(pos + 1) == QLatin1Char(','))
        return;
    const int start = pos;
    while (pos < str.size() && str.at(pos) != QLatin1Char(' ') && str.at(pos) != QLatin1Char(','))
        ++pos;
    setFormat(start, pos - start, DevSettings::varFmt);
}

void MslSyntaxHighlighter::parseVarInId(const QString &str, int &pos)
{
    if (pos + 1 >= str.size())
        return;
    const QChar next = str.at(pos + 1);
    if (next == QLatin1Char(' ') || next == QLatin1Char(',') || next == QLatin1Char(')'))
        return;

    // A variable inside an identifier's arguments may carry balanced
    // parentheses of its own, as %a(1).
    const int start = pos;
    int depth = 0;
    for (;;) {
        const QChar ch = str.at(pos);
        if (ch == QLatin1Char('(')) {
            ++depth;
        } else if (ch == QLatin1Char(')')) {
            if (depth == 0) {
                // Leave the parenthesis for the caller's next step.
                setFormat(start, pos - start, DevSettings::varFmt);
                --pos;
                return;
            }
            --depth;
        }
        if ((ch == QLatin1Char(',') && depth == 0) || ch == QLatin1Char(' '))
            break;
        ++pos;
        if (pos >= str.size())
            break;
    }
    setFormat(start, pos - start, DevSettings::varFmt);
}

void MslSyntaxHighlighter::parseCmdLine(const QString &str, int &pos, int &brackets)
{
    const NestingGuard guard(this, pos);
    if (guard.stopped())
        return;

    eatSpaces(str, pos);
    const int cmdStart = pos;
    eatNSpaces(str, pos);
    const QStringView cmd = QStringView(str).mid(cmdStart, pos - cmdStart);

    if (cmd == QLatin1String("|")) {
        pos += 1;
        parseCmdLine(str, pos, brackets);
        if (mlineInEffect)
            return;
        // Deliberately falls through to the lookup, which restarts the scan
        // at this same bar: the rest of the line is analysed a second time,
        // so its reports and bracket changes happen twice.
    } else if (isVarKeyword(cmd)) {
        pos = cmdStart;
        parseVarCmd(str, pos, brackets);
        return;
    } else if (isElseKeyword(cmd)) {
        pos = cmdStart;
        parseElse(str, pos, brackets);
        return;
    } else if (isCtrlKeyword(cmd)) {
        pos = cmdStart;
        parseIf(str, pos, brackets);
        return;
    } else if (cmd.startsWith(QLatin1Char(';'))
               || lowersTo(cmd, QLatin1String("rem"))) {
        pos = cmdStart;
        parseSingLineComment(str, pos, brackets);
        return;
    } else if (cmd == QLatin1String("/*")) {
        pos = cmdStart;
        parseMultiLineComment(str, pos, brackets);
        return;
    } else if (cmd == QLatin1String("}")) {
        // Nothing behind this bracket is analysed: in `} else {` neither the
        // else nor its bracket is seen.
        --brackets;
        pos = cmdStart;
        setFormat(cmdStart, 1, DevSettings::ctrlFmt);
        return;
    }

    const int matched = DevSettings::commandMatchLength(cmd);
    if (matched >= 0) {
        setFormat(cmdStart, matched, DevSettings::cmdFmt);
    } else {
        // An unknown first word is no error; its first character still gets
        // a chance below, so a line may start with $ident or %var.
        pos = cmdStart;
    }

    eatSpaces(str, pos);
    if (pos >= str.size())
        return;

    bool wasSpace = true;
    for (;;) {
        if (wasSpace && pos < str.size()) {
            const QChar ch = str.at(pos);
            if (ch == QLatin1Char('}') && standsAsWord(str, pos)) {
                parseClosingBracketInCmdLine(str, pos, brackets);
                return;
            }
            if (ch == QLatin1Char('|') && standsAsWord(str, pos)) {
                pos += 1;
                parseCmdLine(str, pos, brackets);
            } else if (ch == QLatin1Char('{') && standsAsWord(str, pos)) {
                parseOpeningBracketInCmdLine(str, pos, brackets);
            } else if (ch == QLatin1Char('$')) {
                parseIdent(str, pos, brackets, 0);
            } else if (ch == QLatin1Char('%')) {
                parseVar(str, pos);
            }
        }

        if (mlineInEffect || spend(1, pos))
            return;
        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
        if (pos >= str.size())
            return;
    }
}

void MslSyntaxHighlighter::parseClosingBracketInCmdLine(const QString &str, int &pos,
                                                        int &brackets)
{
    --brackets;
    setFormat(pos, 1, DevSettings::ctrlFmt);
    pos += 1;

    // From here `pos` is the character behind the bracket, normally a blank:
    // that is what gets painted, and the report's column is one past the
    // bracket.
    if (brackets < 0) {
        setFormat(pos, 1, DevSettings::errFmt);
        throwError(ErrorReport, pos, QStringLiteral("block"), closingInCmdLineMessage());
    } else {
        setFormat(pos, 1, DevSettings::ctrlFmt);
    }
    pos += 1;

    bool wasSpace = true;
    while (pos < str.size()) {
        if (wasSpace && isWordAt(str, pos, '|')) {
            // Left for the caller, which picks it up only if it is a scan loop.
            pos -= 1;
            return;
        }
        if (wasSpace && isWordAt(str, pos, '}')) {
            --brackets;
            if (brackets < 0) {
                setFormat(pos, str.size() - pos, DevSettings::errFmt);
                pos = str.size();
                throwError(ErrorReport, pos, QStringLiteral("block"), closingInCmdLineMessage());
                return;
            }
            setFormat(pos, 1, DevSettings::ctrlFmt);
            pos += 1;
            continue;
        }
        wasSpace = str.at(pos).isSpace();
        if (!wasSpace) {
            // One report per character.
            setFormat(pos, 1, DevSettings::errFmt);
            throwError(ErrorReport, pos, QStringLiteral("block"), charsAfterClosingMessage());
        }
        pos += 1;
    }
}

void MslSyntaxHighlighter::parseOpeningBracketInCmdLine(const QString &str, int &pos,
                                                        int &brackets)
{
    ++brackets;
    setFormat(pos, 1, DevSettings::errFmt);
    pos += 1;
    throwError(ErrorReport, pos, QStringLiteral("block"),
               QStringLiteral("Unexpected opening bracket in the middle of expression"));
    pos += 1;
    if (pos >= str.size())
        return;

    // The character right behind the bracket is skipped; white space is
    // painted too.
    while (pos < str.size()) {
        if (isWordAt(str, pos, '|')) {
            pos -= 1;
            return;
        }
        setFormat(pos, 1, DevSettings::errFmt);
        pos += 1;
    }
}

void MslSyntaxHighlighter::parseVarCmd(const QString &str, int &pos, int &brackets)
{
    const int start = pos;
    eatNSpaces(str, pos);
    setFormat(start, pos - start, DevSettings::cmdFmt);
    eatSpaces(str, pos);

    if (isCharAt(str, pos, '-')) {
        // Switches are compared case-sensitively: -S is no switch.
        const int dash = pos;
        pos += 1;
        bool unknown = false;
        while (pos < str.size() && !str.at(pos).isSpace()) {
            if (str.at(pos) != QLatin1Char('s') && str.at(pos) != QLatin1Char('g')) {
                setFormat(pos, 1, DevSettings::wrnFmt);
                unknown = true;
            }
            pos += 1;
        }
        if (unknown)
            throwError(WarningReport, dash, QStringLiteral("block"),
                       QStringLiteral("none-existing switches are used in /var."));
    }

    bool wasSpace = true;
    while (pos < str.size()) {
        if (wasSpace && pos < str.size()) {
            const QChar ch = str.at(pos);
            if (ch == QLatin1Char('%')) {
                parseVarInVCmd(str, pos);
            } else if (ch == QLatin1Char('$')) {
                parseIdent(str, pos, brackets, 1);
            } else if (ch == QLatin1Char('|') && standsAsWord(str, pos)) {
                pos += 1;
                parseCmdLine(str, pos, brackets);
            } else if (ch == QLatin1Char('{') && standsAsWord(str, pos)) {
                parseOpeningBracketInVarCmd(str, pos, brackets);
            } else if (ch == QLatin1Char('}') && standsAsWord(str, pos)) {
                parseClosingBracketInVarCmd(str, pos, brackets);
            }
        }

        // A name right behind a comma starts a new argument. A variable
        // scan stops on the comma with wasSpace still set, so this does not
        // fire after one: in `%a,%b` the second name stays plain.
        if (!wasSpace && isCharAt(str, pos, ',')) {
            pos += 1;
            wasSpace = true;
            continue;
        }

        if (pos < str.size())
            wasSpace = str.at(pos).isSpace();
        pos += 1;
    }
}

void MslSyntaxHighlighter::parseOpeningBracketInVarCmd(const QString &str, int &pos,
                                                       int &brackets)
{
    ++brackets;
    setFormat(pos, 1, DevSettings::errFmt);
    throwError(ErrorReport, pos, QStringLiteral("block"),
               QStringLiteral("Unexpected opening bracket in expression"));
    pos += 1;
    // Stops on a bar, which the caller's step then moves past: what stands
    // behind it is read as further arguments of var.
    while (pos < str.size() && !isWordAt(str, pos, '|')) {
        setFormat(pos, 1, DevSettings::errFmt);
        pos += 1;
    }
}

void MslSyntaxHighlighter::parseClosingBracketInVarCmd(const QString &str, int &pos,
                                                       int &brackets)
{
    --brackets;
    if (brackets < 0) {
        setFormat(pos, 1, DevSettings::errFmt);
        throwError(ErrorReport, pos, QStringLiteral("block"), closingInVarMessage());
    } else {
        setFormat(pos, 1, DevSettings::ctrlFmt);
    }
    pos += 1;

    // Unlike the command line, stray characters get one report at the end.
    bool stray = false;
    while (pos < str.size()) {
        if (isWordAt(str, pos, '|')) {
            pos -= 1;
            break;
        }
        if (isWordAt(str, pos, '}')) {
            --brackets;
            if (brackets < 0) {
                setFormat(pos, str.size() - pos, DevSettings::errFmt);
                pos = str.size();
                throwError(ErrorReport, pos, QStringLiteral("block"), closingInVarMessage());
                break;
            }
            setFormat(pos, 1, DevSettings::ctrlFmt);
            pos += 1;
            continue;
        }
        if (!str.at(pos).isSpace()) {
            setFormat(pos, 1, DevSettings::errFmt);
            stray = true;
        }
        pos += 1;
    }
    if (stray)
        throwError(ErrorReport, pos, QStringLiteral("block"), charsAfterClosingMessage());
}
