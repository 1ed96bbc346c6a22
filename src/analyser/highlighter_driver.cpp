// The line driver: classifies each line by the state of the line before.
//
// The block state is the only memory from one line to the next:
//   1            top level, outside a group
//   2, 3         inside a top-level multi-line comment (outside / inside a group)
//   0x100        inside a dialog table, 0x101 inside a comment there
//   0x20000 + n  inside an alias body with n open brackets, 0x21000 + n in a comment there
//   0x24000 + n  inside an event body, 0x25000 + n in a comment there
//   0x75000      added to any of the above while a script group is open
// States are read back by range tests, never by masks, so an extreme
// bracket count spills into the neighbouring range; nothing clamps it.

#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"

#include <QTextBlock>

static constexpr int TopLevel = 1;
static constexpr int InComment = 2;
static constexpr int InCommentInGroup = 3;
static constexpr int InDialog = 0x100;
static constexpr int InDialogComment = 0x101;
static constexpr int InAlias = 0x20000;
static constexpr int InAliasComment = 0x21000;
static constexpr int InEvent = 0x24000;
static constexpr int InEventComment = 0x25000;
static constexpr int GroupFlag = 0x75000;

static QString remMessage()
{
    return QStringLiteral("Old-style rem comments are deprecated, consider using `;' comments.");
}

static QString trailingMessage()
{
    return QStringLiteral("Trailing text after end of a multi-line comment.");
}

void MslSyntaxHighlighter::highlightBlock(const QString &str)
{
    // Whatever is not overwritten below stands, also inside a group.
    setCurrentBlockState(TopLevel);
    clearCurrentBlockUserData();

    int c = previousBlockState();
    if (c == -1)
        c = TopLevel;

    inCalc = false;
    mlineInEffect = false;
    startBudget(str);

    if (c == TopLevel) {
        parseTopLevelLine(str, false);
    } else if (c == InComment) {
        closeTopLevelComment(str, InComment, TopLevel);
    } else if (c == InCommentInGroup) {
        closeTopLevelComment(str, InCommentInGroup, GroupFlag);
    } else if (c == GroupFlag) {
        parseTopLevelLine(str, true);
    } else if (c > GroupFlag) {
        setCurrentBlockState(GroupFlag);
        dispatchBody(str, c - GroupFlag, true);
    } else {
        dispatchBody(str, c, false);
    }

    finishBudget(str);
}

void MslSyntaxHighlighter::parseTopLevelLine(const QString &str, bool inGroup)
{
    int cPos = 0;

    if (DevSettings::commentStartRgx.match(str).hasMatch()) {
        // The rest of the line is not searched for a terminator.
        setFormat(0, str.size(), DevSettings::commentFmt);
        doMessageCheck(str, cPos, MultiLine);
        setCurrentBlockState(inGroup ? InCommentInGroup : InComment);
        return;
    }
    if (DevSettings::singleLCommentRgx.match(str).hasMatch()) {
        setFormat(0, str.size(), DevSettings::commentFmt);
        doMessageCheck(str, cPos, SingleLine);
        if (inGroup)
            setCurrentBlockState(GroupFlag);
        return;
    }
    if (DevSettings::singleLRCommentRgx.match(str).hasMatch()) {
        // Leaves state 1 even inside a group: a rem line ends the group.
        setFormat(0, str.size(), DevSettings::commentFmt);
        throwError(InformationReport, 0, QStringLiteral("root"), remMessage());
        return;
    }
    if (str.trimmed().startsWith(QLatin1Char('#'))) {
        parseGroupLine(str, inGroup);
        return;
    }

    eatSpaces(str, cPos);
    // Each keyword includes one blank, so a keyword alone at the end of the
    // line is no header.
    if (cPos + 5 < str.size() && str.mid(cPos, 6).toLower() == QLatin1String("alias ")) {
        parseAliasHeader(str, cPos, inGroup);
    } else if (cPos + 6 < str.size() && str.mid(cPos, 7).toLower() == QLatin1String("dialog ")) {
        parseDialogHeader(str, cPos, inGroup);
    } else if (cPos + 2 < str.size() && str.mid(cPos, 3).toLower() == QLatin1String("on ")) {
        parseEventHeader(str, cPos, inGroup);
    } else {
        if (inGroup)
            setCurrentBlockState(GroupFlag);
        markUnknownLine(str);
    }
}

void MslSyntaxHighlighter::parseGroupLine(const QString &str, bool inGroup)
{
    int cPos = 0;
    eatSpaces(str, cPos);
    eatNSpaces(str, cPos);
    const int nameEnd = cPos;
    eatSpaces(str, cPos);

    const QString word = str.mid(cPos).trimmed().toLower();
    const bool wellFormed = inGroup ? word == QLatin1String("end")
                                    : (word == QLatin1String("on") || word == QLatin1String("off"));
    if (wellFormed) {
        setFormat(0, nameEnd, DevSettings::groupFmt);
        setFormat(cPos, str.size() - cPos, DevSettings::groupCtrlFmt);
        saveStateGroup(inGroup ? 2 : 1);
        setCurrentBlockState(inGroup ? TopLevel : GroupFlag);
        return;
    }

    // Any ill-formed group line leaves the group.
    setFormat(0, str.size(), DevSettings::errFmt);
    throwError(ErrorReport, cPos, QStringLiteral("root"),
               inGroup ? QStringLiteral("Ill-formed script group, expecting `#<group> end'")
                       : QStringLiteral("Ill-formed script group"));
    setCurrentBlockState(TopLevel);
}

void MslSyntaxHighlighter::parseAliasHeader(const QString &str, int &cPos, bool inGroup)
{
    int brackets = 0;
    parseAlias(str, cPos);
    eatSpaces(str, cPos);
    takeOpeningBracket(str, cPos, brackets);
    parseCmdLine(str, cPos, brackets);

    if (brackets != 0) {
        // A negative count is stored as it stands.
        setMultiLine(true);
        setCurrentBlockState((inGroup ? GroupFlag : 0) + InAlias + brackets);
    } else {
        endSingleLineBlock(str, cPos, inGroup);
    }
}

void MslSyntaxHighlighter::parseDialogHeader(const QString &str, int &cPos, bool inGroup)
{
    parseDialog(str, cPos);
    eatSpaces(str, cPos);

    // Both error paths leave state 1, also inside a group, so the table's
    // body is then read as top-level lines.
    int brackets = 0;
    if (takeOpeningBracket(str, cPos, brackets)) {
        eatSpaces(str, cPos);
        if (cPos >= str.size()) {
            setCurrentBlockState((inGroup ? GroupFlag : 0) + InDialog);
            return;
        }
        setFormat(cPos, str.size() - cPos, DevSettings::errFmt);
        throwError(ErrorReport, cPos, QStringLiteral("Dialog"),
                   QStringLiteral("Excess characters after opening bracket, will result in "
                                  "`creation error'"));
        return;
    }
    setFormat(cPos, str.size() - cPos, DevSettings::errFmt);
    throwError(ErrorReport, cPos, QStringLiteral("Dialog"),
               QStringLiteral("No opening bracket found, will result in `creation error'"));
}

void MslSyntaxHighlighter::parseEventHeader(const QString &str, int &cPos, bool inGroup)
{
    // Outside a group the word `on` keeps the default look.
    if (inGroup)
        setFormat(cPos, 2, DevSettings::onFmt);
    cPos += 3;
    eatSpaces(str, cPos);

    if (!parsedAccessLevel(str, cPos)) {
        setFormat(cPos, str.size() - cPos, DevSettings::errFmt);
        return;
    }

    int brackets = 0;
    if (!parseEvent(str, cPos, brackets)) {
        if (inGroup)
            setCurrentBlockState(GroupFlag);
        markUnknownLine(str);
        return;
    }

    eatSpaces(str, cPos);
    takeOpeningBracket(str, cPos, brackets);
    parseCmdLine(str, cPos, brackets);

    if (brackets != 0) {
        setMultiLine(true);
        setCurrentBlockState((inGroup ? GroupFlag : 0) + InEvent + brackets);
    } else {
        endSingleLineBlock(str, cPos, inGroup);
    }
}

bool MslSyntaxHighlighter::takeOpeningBracket(const QString &str, int &cPos, int &brackets)
{
    // A `{` glued to the next word is left to the command parser. Only a
    // blank counts behind it here, not other white space.
    if (!isCharAt(str, cPos, '{'))
        return false;
    if (cPos + 1 < str.size() && str.at(cPos + 1) != QLatin1Char(' '))
        return false;
    setFormat(cPos, 1, DevSettings::ctrlFmt);
    ++brackets;
    ++cPos;
    return true;
}

void MslSyntaxHighlighter::endSingleLineBlock(const QString &str, int &cPos, bool inGroup)
{
    eatSpaces(str, cPos);
    if (cPos >= str.size())
        setFormat(cPos, str.size() - cPos, DevSettings::errFmt); // paints nothing
    setMultiLine(false);
    if (inGroup)
        setCurrentBlockState(GroupFlag);
}

void MslSyntaxHighlighter::markUnknownLine(const QString &str)
{
    // Marked in the text alone; no report. This replaces whatever colours a
    // failed header had received.
    if (!str.trimmed().isEmpty())
        setFormat(0, str.size(), DevSettings::errFmt);
}

void MslSyntaxHighlighter::closeTopLevelComment(const QString &str, int stay, int after)
{
    const QRegularExpressionMatch m = DevSettings::commentEndRgx.match(str);
    if (!m.hasMatch()) {
        setFormat(0, str.size(), DevSettings::commentFmt);
        setCurrentBlockState(stay);
        doMessageCheck(str, 0, InMultiLine);
        return;
    }

    const int e = m.capturedStart() + m.capturedLength();
    setFormat(0, e, DevSettings::commentFmt);
    setCurrentBlockState(after);
    // A position in the untrimmed line against the length of the trimmed
    // one, on purpose: leading blanks can hide trailing text, as they
    // always have.
    if (e >= str.trimmed().size())
        return;
    setFormat(e, str.size(), DevSettings::errFmt);
    throwError(ErrorReport, e, QStringLiteral("root"), trailingMessage());
}

void MslSyntaxHighlighter::dispatchBody(const QString &str, int c, bool inOn)
{
    const int groupAdd = inOn ? GroupFlag : 0;

    if (c > InEventComment) {
        parseCommentInBody(str, c, groupAdd);
    } else if (c > InEvent) {
        parseBodyLine(str, c, c - InEvent, true, groupAdd);
    } else if (c > InAliasComment) {
        parseCommentInBody(str, c, groupAdd);
    } else if (c > InAlias) {
        parseBodyLine(str, c, c - InAlias, false, groupAdd);
    } else if (c == InDialog) {
        setCurrentBlockState(parseDialogStatement(str) + groupAdd);
    } else if (c == InDialogComment) {
        parseCommentInDialog(str);
    } else {
        markUnknownLine(str);
    }
}

void MslSyntaxHighlighter::parseBodyLine(const QString &str, int c, int brackets, bool isEvent,
                                         int groupAdd)
{
    int cPos = 0;
    eatSpaces(str, cPos);

    // Brackets inside whole-line comments do not count.
    if (cPos < str.size()) {
        if (str.at(cPos) == QLatin1Char(';')) {
            setFormat(0, str.size(), DevSettings::commentFmt);
            setCurrentBlockState(c + groupAdd);
            doMessageCheck(str, cPos, SingleLine);
            return;
        }
        if (cPos + 2 < str.size()
            && lowersTo(QStringView(str).mid(cPos, 3), QLatin1String("rem"))
            && (cPos + 3 >= str.size() || str.at(cPos + 3) == QLatin1Char(' '))) {
            setFormat(cPos, str.size(), DevSettings::commentFmt);
            throwError(InformationReport, cPos, isEvent ? QStringLiteral("event") : QStringLiteral("alias"),
                       remMessage());
            setCurrentBlockState(c + groupAdd);
            return;
        }
        if (isPairAt(str, cPos, '/', '*')) {
            setFormat(0, str.size(), DevSettings::commentFmt);
            setCurrentBlockState((isEvent ? InEventComment : InAliasComment) + brackets
                                 + groupAdd);
            doMessageCheck(str, cPos, MultiLine);
            return;
        }
    }

    parseCmdLine(str, cPos, brackets);
    if (brackets != 0) {
        setCurrentBlockState((isEvent ? InEvent : InAlias) + brackets + groupAdd);
        return;
    }
    // The block is over; the state stays as the entry put it.
    eatSpaces(str, cPos);
    if (cPos >= str.size())
        setFormat(cPos, str.size() - cPos, DevSettings::errFmt); // paints nothing
}

void MslSyntaxHighlighter::parseCommentInBody(const QString &str, int c, int groupAdd)
{
    int cPos = 0;
    eatSpaces(str, cPos);

    if (isPairAt(str, cPos, '*', '/')) {
        setFormat(0, str.size(), DevSettings::commentFmt);
        setCurrentBlockState(c - 0x1000 + groupAdd); // the body with the same count
        cPos += 2;
        eatSpaces(str, cPos);
        const QString rest = str.mid(cPos).trimmed();
        if (!rest.isEmpty()) {
            setFormat(cPos, rest.size(), DevSettings::errFmt);
            // "alias" in event bodies too.
            throwError(ErrorReport, cPos, QStringLiteral("alias"), trailingMessage());
        }
        return;
    }
    setCurrentBlockState(c + groupAdd);
    setFormat(0, str.size(), DevSettings::commentFmt);
    doMessageCheck(str, cPos, InMultiLine);
}

void MslSyntaxHighlighter::parseCommentInDialog(const QString &str)
{
    // Both paths write the plain value: a comment inside a dialog loses the
    // group.
    int cPos = 0;
    eatSpaces(str, cPos);

    if (isPairAt(str, cPos, '*', '/')) {
        setFormat(0, str.size(), DevSettings::commentFmt);
        setCurrentBlockState(InDialog);
        cPos += 2;
        eatSpaces(str, cPos);
        const QString rest = str.mid(cPos).trimmed();
        if (!rest.isEmpty()) {
            setFormat(cPos, rest.size(), DevSettings::errFmt);
            throwError(ErrorReport, cPos, QStringLiteral("Dialog"), trailingMessage());
        }
        return;
    }
    setCurrentBlockState(InDialogComment);
    setFormat(0, str.size(), DevSettings::commentFmt);
    doMessageCheck(str, cPos, InMultiLine);
}

void MslSyntaxHighlighter::setMultiLine(bool multiLine)
{
    // The record exists: every pass starts by resetting it. No connection is
    // made here; only reports and saved facts make one.
    if (auto *data = recordOf(currentBlock()))
        data->isMultiLine = multiLine;
}
