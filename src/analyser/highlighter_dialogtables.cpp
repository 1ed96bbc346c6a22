// Statements of a dialog table: one line, one statement.
//
// The result is the state of the next line: 256 the table goes on, 257 a
// multi-line comment was opened, 1 the table has ended.
#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"

#include <QStringList>

#include <functional>

namespace {

constexpr int TableGoesOn = 256;
constexpr int CommentInTable = 257;
constexpr int TableEnded = 1;

QString dialogBlock()
{
    return QStringLiteral("Dialog");
}

bool isOneOf(const QString &word, std::initializer_list<const char *> words)
{
    for (const char *w : words) {
        if (word == QLatin1String(w))
            return true;
    }
    return false;
}

bool isTextFieldControl(const QString &keyword)
{
    return isOneOf(keyword, {"tab", "text", "button", "edit", "check", "radio", "box", "scroll",
                             "link", "menu", "item"});
}

// Style words of each checked control; `tab`, `link`, `menu` and `item`
// accept every word and are not listed.
QStringList stylesOf(const QString &keyword)
{
    if (keyword == QLatin1String("text"))
        return {QStringLiteral("right"), QStringLiteral("center"), QStringLiteral("nowrap")};
    if (keyword == QLatin1String("button"))
        return {QStringLiteral("default"), QStringLiteral("ok"), QStringLiteral("cancel"),
                QStringLiteral("flat"), QStringLiteral("multi")};
    if (keyword == QLatin1String("edit"))
        return {QStringLiteral("right"),  QStringLiteral("center"), QStringLiteral("multi"),
                QStringLiteral("pass"),   QStringLiteral("read"),   QStringLiteral("return"),
                QStringLiteral("hsbar"),  QStringLiteral("vsbar"),  QStringLiteral("autohs"),
                QStringLiteral("autovs"), QStringLiteral("limit"),  QStringLiteral("rich")};
    if (keyword == QLatin1String("check"))
        return {QStringLiteral("left"), QStringLiteral("push"), QStringLiteral("3state")};
    if (keyword == QLatin1String("radio"))
        return {QStringLiteral("left"), QStringLiteral("push")};
    if (keyword == QLatin1String("box"))
        return {};
    if (keyword == QLatin1String("scroll"))
        return {QStringLiteral("top"),    QStringLiteral("left"),       QStringLiteral("bottom"),
                QStringLiteral("right"),  QStringLiteral("horizontal"), QStringLiteral("range")};
    if (keyword == QLatin1String("list"))
        return {QStringLiteral("sort"),  QStringLiteral("extsel"), QStringLiteral("multsel"),
                QStringLiteral("size"),  QStringLiteral("vsbar"),  QStringLiteral("hsbar"),
                QStringLiteral("check"), QStringLiteral("radio")};
    if (keyword == QLatin1String("combo"))
        return {QStringLiteral("sort"),  QStringLiteral("edit"),  QStringLiteral("drop"),
                QStringLiteral("size"),  QStringLiteral("vsbar"), QStringLiteral("hsbar")};
    return {};
}

bool hasStyleCheck(const QString &keyword)
{
    return isOneOf(keyword, {"text", "button", "edit", "check", "radio", "box", "scroll", "list",
                             "combo"});
}

QString keywordMessage(const char *text, const QString &keyword)
{
    return QString::fromLatin1(text).arg(keyword);
}

} // namespace

int MslSyntaxHighlighter::parseDialogStatement(const QString &str)
{
    int pos = 0;
    const QString raw = getToken(str, pos, false);
    const QString token = raw.toLower();
    if (token.trimmed().isEmpty())
        return TableGoesOn;

    if (token == QLatin1String("option"))
        return parseDialogOption(str, pos);
    if (token == QLatin1String("size"))
        return parseDialogSize(str, pos);
    if (token == QLatin1String("title"))
        return parseDialogTitle(str, pos);
    if (isTextFieldControl(token))
        return parseDialogControl(str, pos, token, raw.length());
    if (token == QLatin1String("list") || token == QLatin1String("combo"))
        return parseDialogListControl(str, pos, token, raw.length());
    if (token == QLatin1String("icon")) {
        // Its parameters are not read.
        setFormat(pos - 4, 4, DevSettings::dialogCmdFmt);
        eatSpaces(str, pos);
        return TableGoesOn;
    }
    if (token == QLatin1String("}")) {
        setFormat(pos - 1, 1, DevSettings::ctrlFmt);
        eatSpaces(str, pos);
        if (pos < str.size()) {
            setFormat(pos, str.length() - pos, DevSettings::errFmt);
            throwError(ErrorReport, pos, dialogBlock(),
                       QStringLiteral("Unexpected characters after closing bracket"));
        }
        return TableEnded;
    }
    // Measured by the text as written: a lowered token can be longer
    // (U+0130 lowers to two characters), and would reach before the line.
    return parseDialogCommentOrRest(str, pos, token, raw.length());
}

int MslSyntaxHighlighter::parseDialogCommentOrRest(const QString &str, int pos,
                                                   const QString &token, int tokenLength)
{
    if (token.startsWith(QLatin1Char(';'))) {
        // The start handed on lies one past the marker's own, so a tag
        // right behind the `;` is not found; that is how this form reads.
        setFormat(pos - tokenLength, str.length(), DevSettings::commentFmt);
        doMessageCheck(str, pos + 1 - tokenLength, SingleLine);
        return TableGoesOn;
    }
    if (token == QLatin1String("rem")) {
        // Filed under "alias" and not searched for tags.
        setFormat(pos - 3, str.length(), DevSettings::commentFmt);
        throwError(InformationReport, pos, QStringLiteral("alias"),
                   QStringLiteral("Old-style rem comments are deprecated, consider using `;' "
                                  "comments."));
        return TableGoesOn;
    }
    if (token.startsWith(QLatin1String("/*"))) {
        setFormat(pos - tokenLength, str.length(), DevSettings::commentFmt);
        doMessageCheck(str, pos + 2 - tokenLength, InMultiLine);
        return CommentInTable;
    }

    // Graded as information although it is painted as an error; the table
    // goes on.
    setFormat(pos - tokenLength, str.length(), DevSettings::errFmt);
    throwError(InformationReport, pos, dialogBlock(), QStringLiteral("Invalid dialog statement"));
    return TableGoesOn;
}

MslSyntaxHighlighter::DialogToken
MslSyntaxHighlighter::treatDialogToken(const QString &str, int &pos, const QString &token,
                                       bool markBracketOnly)
{
    if (token == QLatin1String("}")) {
        // The table ends here, in spite of the error.
        if (markBracketOnly)
            setFormat(pos - 1, 1, DevSettings::errFmt);
        else
            setFormat(pos - 1, str.length() + 1 - pos, DevSettings::errFmt);
        throwError(ErrorReport, pos, dialogBlock(),
                   QStringLiteral("Unexpected closing bracket ending dialog block prematurely"));
        return ClosingDialogToken;
    }

    // Identifiers and variables are read from the line itself, so one that
    // holds spaces or commas is consumed whole.
    const bool isIdent = token.startsWith(QLatin1Char('$'));
    if (!isIdent && !token.startsWith(QLatin1Char('%')))
        return PlainDialogToken;

    const int tokenStart = pos - token.length();
    pos = tokenStart;
    if (isIdent) {
        int b = 0;
        parseIdent(str, pos, b, 0);
    } else {
        parseVar(str, pos);
    }
    // Never step back behind the token: the loops must move on.
    pos = qMax(pos, tokenStart) + 1;
    return ExpressionDialogToken;
}

bool MslSyntaxHighlighter::walkDialogTokens(const QString &str, int &pos, DialogTokenWalk walk,
                                            const std::function<void(const QString &, DialogToken)> &visit)
{
    const bool styles = walk == StyleTokens;
    for (;;) {
        QString token = getToken(str, pos, styles);
        if (styles)
            token = token.toLower();
        if (token.isEmpty())
            return true;
        const DialogToken kind = treatDialogToken(str, pos, token, walk == TitleTokens);
        if (kind == ClosingDialogToken)
            return false;
        visit(token, kind);
    }
}

int MslSyntaxHighlighter::parseDialogOption(const QString &str, int &pos)
{
    setFormat(pos - 6, 6, DevSettings::dialogCmdFmt);
    int arg = 0;
    const bool goesOn = walkDialogTokens(str, pos, PlainTokens, [&](const QString &token,
                                                                    DialogToken kind) {
        ++arg;
        if (kind == ExpressionDialogToken)
            return;
        if (!isOneOf(token.toLower(), {"dbu", "pixels", "notheme", "disable"})) {
            setFormat(pos - token.length(), token.length(), DevSettings::errFmt);
            throwError(ErrorReport, pos, dialogBlock(), QStringLiteral("Invalid option type"));
        }
    });
    if (!goesOn)
        return TableEnded;
    if (arg == 0) {
        throwError(ErrorReport, pos, dialogBlock(),
                   QStringLiteral("Dialog option requires at least one type: dbu, pixels, "
                                  "notheme, disable"));
    }
    return TableGoesOn;
}

int MslSyntaxHighlighter::parseDialogSize(const QString &str, int &pos)
{
    setFormat(pos - 4, 4, DevSettings::dialogCmdFmt);
    const int start = pos;
    int arg = 0;
    int literal = 0;
    const bool goesOn = walkDialogTokens(str, pos, PlainTokens, [&](const QString &,
                                                                    DialogToken kind) {
        // Plain tokens are counted, not tested for being numbers.
        if (kind == PlainDialogToken)
            ++literal;
        ++arg;
    });
    if (!goesOn)
        return TableEnded;

    // A variable or identifier may stand for several numbers, so then the
    // count is not judged at all.
    if (arg == 0 || (arg == literal && literal < 4)) {
        setFormat(start - 4, 4, DevSettings::errFmt);
        throwError(ErrorReport, start - 4, dialogBlock(),
                   QStringLiteral("Dialog size missing parameters"));
    } else if (arg == literal && literal > 4) {
        setFormat(start - 4, 4, DevSettings::errFmt);
        throwError(ErrorReport, start - 4, dialogBlock(),
                   QStringLiteral("Dialog size too many parameters"));
    }
    return TableGoesOn;
}

bool MslSyntaxHighlighter::takeDialogQuotedString(const QString &str, int &pos)
{
    if (!isCharAt(str, pos, '"'))
        return false;
    ++pos;
    const int textStart = pos;
    while (pos < str.size() && str.at(pos) != QLatin1Char('"'))
        ++pos;
    setFormat(textStart, pos - textStart, DevSettings::dialogStrFmt);
    // An unclosed string simply runs to the end of the line.
    if (pos < str.size())
        ++pos;
    return true;
}

int MslSyntaxHighlighter::parseDialogTitle(const QString &str, int &pos)
{
    setFormat(pos - 5, 5, DevSettings::dialogCmdFmt);
    const int start = pos;
    eatSpaces(str, pos);

    if (takeDialogQuotedString(str, pos)) {
        eatSpaces(str, pos);
        if (pos < str.size()) {
            setFormat(pos, str.length() - pos, DevSettings::errFmt);
            throwError(ErrorReport, pos, dialogBlock(),
                       QStringLiteral("Trailing text after end of title string"));
        }
        return TableGoesOn;
    }

    // An unquoted title is allowed as long as there is one.
    int arg = 0;
    if (!walkDialogTokens(str, pos, TitleTokens, [&](const QString &, DialogToken) { ++arg; }))
        return TableEnded;
    if (arg == 0) {
        setFormat(start - 5, 5, DevSettings::errFmt);
        throwError(ErrorReport, start - 5, dialogBlock(),
                   QStringLiteral("Dialog title requires a string title"));
    }
    return TableGoesOn;
}

int MslSyntaxHighlighter::parseDialogControl(const QString &str, int &pos, const QString &keyword,
                                             int keywordLength)
{
    // keyword "text", ID, size, styles. The stretch marked for a missing
    // part is the one ending at `pos`, so it drifts off the keyword when
    // more text stands before.
    const int start = pos;
    setFormat(start - keywordLength, keywordLength, DevSettings::dialogCmdFmt);
    eatSpaces(str, pos);
    if (pos >= str.size())
        return missingDialogField(pos - keywordLength, pos - keywordLength, keywordLength,
                                  "Dialog `%1' missing parameters", keyword);

    // Text field. A closing quote need not be followed by a comma: what
    // follows it starts the next field.
    if (takeDialogQuotedString(str, pos)) {
        eatSpaces(str, pos);
        if (pos < str.size() && str.at(pos) != QLatin1Char(','))
            --pos;
    } else {
        scanDialogField(str, pos, pos, keywordLength, true);
    }

    ++pos;
    if (pos >= str.size())
        return missingDialogField(pos - keywordLength, pos - keywordLength, keywordLength,
                                  "Dialog `%1' missing ID", keyword);

    scanDialogField(str, pos, start, keywordLength, false);
    ++pos;
    if (pos >= str.size()) {
        // These three need no position.
        if (isOneOf(keyword, {"tab", "menu", "item"}))
            return TableGoesOn;
        return missingDialogField(pos - keywordLength, pos - keywordLength, keywordLength,
                                  "Dialog `%1' missing size parameters: <x> <y> <w> <h>", keyword);
    }

    scanDialogField(str, pos, start, keywordLength, false);
    ++pos;
    eatSpaces(str, pos);
    return parseDialogStyles(str, pos, keyword);
}

int MslSyntaxHighlighter::parseDialogListControl(const QString &str, int &pos,
                                                 const QString &keyword, int keywordLength)
{
    const int start = pos;
    setFormat(start - keywordLength, keywordLength, DevSettings::dialogCmdFmt);
    eatSpaces(str, pos);
    if (pos >= str.size())
        return missingDialogField(pos - keywordLength, pos - keywordLength, keywordLength,
                                  "Dialog `%1' missing ID", keyword);

    scanDialogField(str, pos, start, keywordLength, false);
    ++pos;
    if (pos >= str.size()) {
        // Unlike the controls with a text field, the keyword itself is
        // marked here.
        return missingDialogField(start - keywordLength, start, keywordLength,
                                  "Dialog `%1' missing size parameters: <x> <y> <w> <h>", keyword);
    }

    scanDialogField(str, pos, start, keywordLength, false);
    ++pos;
    if (pos >= str.length())
        return TableGoesOn;
    return parseDialogStyles(str, pos, keyword);
}

// A control line that ends before a required field: the keyword is
// marked, the report goes to `column`, and the table goes on.
int MslSyntaxHighlighter::missingDialogField(int markStart, int column, int keywordLength,
                                             const char *message, const QString &keyword)
{
    setFormat(markStart, keywordLength, DevSettings::errFmt);
    throwError(ErrorReport, column, dialogBlock(), keywordMessage(message, keyword));
    return TableGoesOn;
}

void MslSyntaxHighlighter::scanDialogField(const QString &str, int &pos, int k, int keywordLength,
                                           bool textField)
{
    // In the ID and size fields an identifier or variable begins only at a
    // word start; in the text field at any character.
    bool wasSpace = true;
    for (;;) {
        if (isCharAt(str, pos, ','))
            return;
        if (wasSpace || textField) {
            if (isCharAt(str, pos, '$')) {
                // Fields are comma-separated, so an identifier with several
                // arguments cannot stand in one.
                const int s = pos;
                int b = 0;
                parseIdent(str, pos, b, 1);
                if (pos - s >= 2 && str.mid(s, pos - s).contains(QLatin1Char(','))) {
                    setFormat(k - keywordLength, keywordLength, DevSettings::errFmt);
                    setFormat(s, pos - s, DevSettings::errFmt);
                    throwError(ErrorReport, s, dialogBlock(),
                               QStringLiteral("Identifier cannot contain commas"));
                }
                // Never step back behind the identifier's start.
                if (pos < s)
                    pos = s;
            } else if (isCharAt(str, pos, '%')) {
                parseVarInId(str, pos);
            }
        }
        wasSpace = isWhiteAt(str, pos);
        if (isCharAt(str, pos, ','))
            return;
        ++pos;
        if (pos >= str.size())
            return;
    }
}

int MslSyntaxHighlighter::parseDialogStyles(const QString &str, int &pos, const QString &obj)
{
    const bool checked = hasStyleCheck(obj);
    const QStringList own = stylesOf(obj);
    // A comma ends the styles; whatever follows it is not read.
    const bool goesOn = walkDialogTokens(str, pos, StyleTokens, [&](const QString &token,
                                                                    DialogToken kind) {
        if (kind == ExpressionDialogToken || isNumeric(token) || !checked)
            return;
        const bool tabWord = token.startsWith(QLatin1String("tab")) && isNumeric(token.mid(3));
        const bool common = isOneOf(token, {"disable", "hide", "group", "result"});
        if (!own.contains(token) && !tabWord && !common) {
            setFormat(pos - token.length(), token.length(), DevSettings::errFmt);
            throwError(ErrorReport, pos, dialogBlock(), QStringLiteral("Invalid style type"));
        }
    });
    return goesOn ? TableGoesOn : TableEnded;
}
