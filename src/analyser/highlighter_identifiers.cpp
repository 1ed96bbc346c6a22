// Identifier expressions: $word, $word(args) and $word(args).prop
//
// parseIdent is the one parser that knows where it stands. The fourth
// argument, inIdent, tells what ends an identifier:
//   0  a word of a command line: only white space;
//   1  an argument of an identifier or of var: a comma or a ')';
//   2  a condition: a ')', while a comma is plain text.
// Two names are special: inside $calc arithmetic operators separate words,
// and the first argument of $iif is a condition.

#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"
#include "mslinfo.h"

// The locals of one identifier being read.
struct MslSyntaxHighlighter::IdentScan
{
    int start = 0;          // the '$'; the column of several reports
    int identStart = 0;     // the same index; what the record gets
    QString ident;          // the name with its '$', as typed
    QVector<int> argsv;     // every comma at parenthesis depth 1
    int args = 1;           // so that $a() counts one argument
    int bracket = 1;        // parenthesis depth, the opening '(' included
    bool space = true;      // the next character begins a word
    bool justIn = true;     // nothing stepped over since the '('
    QString prop;           // the property with its dot
    int propPos = -1;       // the dot, or -1
    bool preCalc = false;   // inCalc on entry
    bool isThisCalc = false;
    bool isThisIif = false;
};

namespace {

bool isArithmetic(QChar ch)
{
    return ch == QLatin1Char('+') || ch == QLatin1Char('-') || ch == QLatin1Char('*')
        || ch == QLatin1Char('/') || ch == QLatin1Char('(');
}

bool isCalc(const QString &ident)
{
    return lowersTo(ident, QLatin1String("$calc"));
}

} // namespace

void MslSyntaxHighlighter::parseIdent(const QString &str, int &pos, int &brackets, int inIdent)
{
    const NestingGuard guard(this, pos);
    if (guard.stopped())
        return;

    // A lone '$' is noted, uncoloured, so that completion can offer names.
    if (pos + 1 >= str.size() || str.at(pos + 1) == QLatin1Char(' ')) {
        saveStatePossibleIdent(pos);
        return;
    }
    if (str.at(pos + 1) == QLatin1Char('!')) {
        skipDeferredIdent(str, pos, inIdent);
        return;
    }

    IdentScan id;
    id.start = pos;
    id.identStart = pos;

    // The name runs up to the first stop character of this context.
    bool bailed = false;
    while (pos < str.size()) {
        const QChar ch = str.at(pos);
        if (ch == QLatin1Char('(') || ch.isSpace() || (inIdent == 1 && ch == QLatin1Char(',')))
            break;
        if (inIdent != 0 && ch == QLatin1Char(')')) {
            bailed = true;
            break;
        }
        ++pos;
    }
    id.ident = str.mid(id.start, pos - id.start);

    const bool payload = isCharAt(str, pos, '(');
    if (payload)
        pos += 1;

    if (id.ident == QLatin1String("$") && !payload) {
        saveStatePossibleIdent(pos - 1);
        pos -= 1;
        return;
    }

    // The opening parenthesis is painted with the name.
    setFormat(id.start, pos - id.start, DevSettings::identFmt);

    if (!payload) {
        // A bare name is not looked up: $nosuchthing passes, and its record
        // says proppos 0.
        saveStateIdent(id.ident, id.identStart, pos, 0, false, id.argsv);
        if (bailed)
            pos -= 1;
        return;
    }

    parseIdentArgs(str, pos, brackets, inIdent, id);
}

void MslSyntaxHighlighter::skipDeferredIdent(const QString &str, int &pos, int inIdent)
{
    // A $! word is evaluated later by the script itself: it is neither
    // coloured, nor checked, nor recorded. Only its end is found.
    int depth = 0;
    for (;;) {
        const QChar ch = charAt(str, pos);
        if (ch == QLatin1Char(' ')) {
            if (depth == 0 || inIdent == 0)
                return;
        } else if (ch == QLatin1Char('(')) {
            ++depth;
        } else if (ch == QLatin1Char(')')) {
            if (inIdent != 0 && depth == 0) {
                pos -= 1;
                return;
            }
            --depth;
            if (inIdent != 0 && depth == 0)
                return;
        } else if (inIdent == 1 && ch == QLatin1Char(',') && depth == 0) {
            pos -= 1;
            return;
        }
        pos += 1;
        if (pos >= str.size())
            return;
    }
}

void MslSyntaxHighlighter::parseIdentArgs(const QString &str, int &pos, int &brackets,
                                          int inIdent, IdentScan &id)
{
    id.preCalc = inCalc;
    if (isCalc(id.ident)) {
        id.isThisCalc = true;
        inCalc = true;
    } else {
        id.isThisIif = lowersTo(id.ident, QLatin1String("$iif"));
    }

    while (pos < str.size()) {
        // The line's analysis has been stopped: leave without a trace.
        if (mlineInEffect)
            return;

        const QChar ch = str.at(pos);
        if (ch == QLatin1Char('$') && id.space) {
            if (id.isThisCalc) {
                parseIdent(str, pos, brackets, 1);
            } else {
                // Arithmetic separates words only for the identifiers that
                // stand directly inside a $calc.
                const bool calc = inCalc;
                inCalc = false;
                parseIdent(str, pos, brackets, 1);
                inCalc = calc;
            }
        } else if (ch == QLatin1Char('%') && id.space) {
            parseVarInId(str, pos);
        } else if (ch == QLatin1Char('|') && !id.justIn && id.space
                   && isCharAt(str, pos + 1, ' ')) {
            // A command separator inside an identifier: the rest of the line
            // is lost to it. The report carries the bare name as its block,
            // and the scan then runs out as an unclosed identifier.
            setFormat(pos, str.size() - pos, DevSettings::errFmt);
            throwError(ErrorReport, id.start, id.ident,
                       QStringLiteral("Invalid format: ") + id.ident
                           + QStringLiteral(". Unexpected command separated found."));
            pos = str.size();
        } else if (ch == QLatin1Char('(')) {
            // Every '(' before the first comma of an $iif opens its
            // condition, whether or not it starts the argument.
            if (id.isThisIif && id.argsv.isEmpty()) {
                if (!parseIifCondition(str, pos))
                    break;
                continue;
            }
            ++id.bracket;
        } else if (ch == QLatin1Char(')')) {
            --id.bracket;
            if (id.bracket == 0) {
                closeIdent(str, pos, inIdent, id);
                checkIdent(pos, id);
                saveIdent(str, pos, id);
                return;
            }
        }
        stepIdentArg(str, pos, id);
    }

    // Unclosed: everything from the '$' on is marked, and reported once.
    if (inCalc && isCalc(id.ident))
        inCalc = id.preCalc;
    setFormat(id.identStart, pos - id.identStart, DevSettings::errFmt);
    if (id.start != pos)
        throwError(ErrorReport, id.identStart, QStringLiteral("Ident: ") + id.ident,
                   QStringLiteral("No closing brace found on identifier `") + id.ident
                       + QStringLiteral("'"));
    saveIdent(str, pos, id);
}

void MslSyntaxHighlighter::stepIdentArg(const QString &str, int &pos, IdentScan &id)
{
    // A nested parser may have left pos at or past the end of the line;
    // stepping on from there ends the loop as unclosed.
    if (pos >= str.size()) {
        pos += 1;
        id.justIn = false;
        return;
    }

    const QChar ch = str.at(pos);
    if (ch == QLatin1Char(' ')) {
        id.space = true;
    } else if (ch == QLatin1Char(',') && id.bracket == 1) {
        id.argsv.append(pos);
        id.args += 1;
        id.space = true;
    } else if (ch == QLatin1Char('!') && id.isThisIif && id.space) {
        // Keeps `space`, so that !$x and !%x in an $iif are seen.
    } else if (inCalc) {
        id.space = isArithmetic(ch);
    } else {
        id.space = false;
    }
    pos += 1;
    id.justIn = false;
}

bool MslSyntaxHighlighter::parseIifCondition(const QString &str, int &pos)
{
    // The condition's own parentheses do not touch the identifier's depth.
    int b = 0;
    parseIfCond(str, pos, b, false);
    if (pos >= str.size())
        return false;

    const QChar ch = str.at(pos);
    if (ch == QLatin1Char(' ') || ch == QLatin1Char(','))
        return true;

    // Text glued to the condition is reported, and deliberately not painted:
    // the scan goes on from the same character.
    throwError(ErrorReport, pos, QStringLiteral("condition"),
               QStringLiteral("Trailing Characters after closing bracket."));
    return true;
}

void MslSyntaxHighlighter::closeIdent(const QString &str, int &pos, int inIdent, IdentScan &id)
{
    setFormat(pos, 1, DevSettings::identFmt);
    id.propPos = -1;
    if (pos + 1 >= str.size())
        return;

    const int p = pos + 1;
    const bool isProperty = str.at(p) == QLatin1Char('.');
    if (isProperty)
        id.propPos = p;
    pos = p;

    // The suffix runs to a blank, or, inside an argument or a condition, to
    // the ')' or ',' that belongs to the caller.
    int depth = 0;
    bool goBack = false;
    while (pos < str.size()) {
        const QChar ch = str.at(pos);
        if (ch == QLatin1Char('(')) {
            ++depth;
        } else if (ch == QLatin1Char(')') && depth > 0) {
            --depth;
        } else if (ch == QLatin1Char(' ')) {
            break;
        } else if (depth == 0 && inIdent != 0
                   && (ch == QLatin1Char(')') || (ch == QLatin1Char(',') && inIdent != 2))) {
            goBack = true;
            break;
        }
        pos += 1;
    }

    if (isProperty) {
        setFormat(p, pos - p, DevSettings::identPropFmt);
        id.prop = str.mid(p, pos - p);
    } else if (inCalc && id.preCalc && isArithmetic(str.at(p))) {
        // Inside a $calc an operator may follow the parenthesis directly.
        pos = p;
    } else {
        setFormat(p, pos - p, DevSettings::errFmt);
        if (p != pos)
            throwError(ErrorReport, p, QStringLiteral("block"),
                       QStringLiteral("Illegal characters after identifier `") + id.ident
                           + QStringLiteral("' closing bracket"));
    }
    // Applies after an operator in a $calc too: the caller then steps over
    // the ')' once more before it meets the operator.
    if (goBack)
        pos -= 1;
}

void MslSyntaxHighlighter::checkIdent(int pos, IdentScan &id)
{
    if (inCalc && isCalc(id.ident))
        inCalc = id.preCalc;

    const int hadProp = id.prop.size();
    const QString prop = id.prop.mid(1);
    const MslInfo::IdentCheck result =
        MslInfo::isProperIdentArgs(id.ident, static_cast<unsigned int>(id.args), prop);
    // Made only for a report: most identifiers pass.
    auto block = [&id] { return QStringLiteral("Ident: ") + id.ident; };

    QString countError;
    switch (result) {
    case MslInfo::TooFewArgs:
        countError = QStringLiteral("Too few parameters");
        break;
    case MslInfo::TooManyArgs:
        countError = QStringLiteral("Too many parameters");
        break;
    case MslInfo::WrongArgParity:
        countError = QStringLiteral("Invalid format - invalid number of parameters");
        break;
    case MslInfo::NoSuchProperty:
        setFormat(id.propPos, prop.size() + 1, DevSettings::wrnFmt);
        throwError(WarningReport, pos - prop.size(), block(),
                   QStringLiteral("Invalid property - Ident possess no such property"));
        return;
    default:
        // Known or not, a lone dot is worth a word.
        if (prop.isEmpty() && hadProp != 0) {
            setFormat(id.propPos, 1, DevSettings::infFmt);
            throwError(InformationReport, pos - 1, block(),
                       QStringLiteral("Empty property does nothing"));
        }
        return;
    }
    setFormat(id.identStart, pos + 1 - id.identStart, DevSettings::errFmt);
    throwError(ErrorReport, id.identStart, block(), countError);
}

void MslSyntaxHighlighter::saveIdent(const QString &str, int &pos, IdentScan &id)
{
    if (isWhiteAt(str, pos))
        pos -= 1;
    // Nested identifiers were saved when they finished, before this one.
    saveStateIdent(id.ident, id.identStart, pos, id.propPos, true, id.argsv);
}
