#include "devsettings.h"

#include "mslinfo.h"

#include <QBrush>
#include <QColor>
#include <QFont>

QRegularExpression DevSettings::commentStartRgx;
QRegularExpression DevSettings::commentEndRgx;
QRegularExpression DevSettings::singleLCommentRgx;
QRegularExpression DevSettings::singleLRCommentRgx;
QRegularExpression DevSettings::openBracketRgx;
QRegularExpression DevSettings::closeBracketRgx;
QRegularExpression DevSettings::ctrlRgx;
QRegularExpression DevSettings::ctrlElseRgx;
QRegularExpression DevSettings::varRgx;
QRegularExpression DevSettings::pipeRgx;
QVector<QRegularExpression> DevSettings::cmdRgx;
QSet<QString> DevSettings::commandNames;
int DevSettings::longestCommandName = 0;

QTextCharFormat DevSettings::commentFmt;
QTextCharFormat DevSettings::rcommentFmt;
QTextCharFormat DevSettings::commentNoEndFmt;
QTextCharFormat DevSettings::errFmt;
QTextCharFormat DevSettings::wrnFmt;
QTextCharFormat DevSettings::infFmt;
QTextCharFormat DevSettings::aliasFmt;
QTextCharFormat DevSettings::aliasSwitchFmt;
QTextCharFormat DevSettings::aliasNameFmt;
QTextCharFormat DevSettings::dialogFmt;
QTextCharFormat DevSettings::dialogSwitchFmt;
QTextCharFormat DevSettings::dialogNameFmt;
QTextCharFormat DevSettings::dialogCmdFmt;
QTextCharFormat DevSettings::dialogStrFmt;
QTextCharFormat DevSettings::openBracketFmt;
QTextCharFormat DevSettings::closeBracketFmt;
QTextCharFormat DevSettings::cmdFmt;
QTextCharFormat DevSettings::ctrlFmt;
QTextCharFormat DevSettings::pipeFmt;
QTextCharFormat DevSettings::identFmt;
QTextCharFormat DevSettings::identPropFmt;
QTextCharFormat DevSettings::varFmt;
QTextCharFormat DevSettings::groupFmt;
QTextCharFormat DevSettings::groupCtrlFmt;
QTextCharFormat DevSettings::todoFmt;
QTextCharFormat DevSettings::onFmt;
QTextCharFormat DevSettings::onEventFmt;
QTextCharFormat DevSettings::onChannelsFmt;
QTextCharFormat DevSettings::onMePreFmt;

static QTextCharFormat foreground(const QColor &colour)
{
    QTextCharFormat fmt;
    fmt.setForeground(QBrush(colour, Qt::SolidPattern));
    return fmt;
}

static QTextCharFormat boldForeground(const QColor &colour)
{
    QTextCharFormat fmt = foreground(colour);
    fmt.setFontWeight(QFont::Bold);
    return fmt;
}

static QTextCharFormat squiggle(const QColor &colour)
{
    QTextCharFormat fmt;
    fmt.setUnderlineColor(colour);
    fmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    return fmt;
}

void DevSettings::InitializeAllSettings()
{
    buildPatterns();
    buildCommandPatterns();
    buildFormats();
}

void DevSettings::buildPatterns()
{
    const auto insensitive = QRegularExpression::CaseInsensitiveOption;

    commentStartRgx = QRegularExpression(QStringLiteral("^ */\\*"));
    commentEndRgx = QRegularExpression(QStringLiteral("^ *\\*/ *"));
    singleLCommentRgx = QRegularExpression(QStringLiteral("^ *;"));
    singleLRCommentRgx = QRegularExpression(QStringLiteral("^ *rem($| .+?)"), insensitive);
    openBracketRgx = QRegularExpression(QStringLiteral("( |^)\\{( |$)"));
    closeBracketRgx = QRegularExpression(QStringLiteral("( |^)\\}( |$)"));
    ctrlRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(if|elseif|while)( |$)"), insensitive);
    ctrlElseRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(else)( |$)"), insensitive);
    // Case sensitive on purpose: `VAR` is not the variable command.
    varRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(var)( |$)"));
    pipeRgx = QRegularExpression(QStringLiteral(" [|{] "));
}

void DevSettings::buildCommandPatterns()
{
    // Appends, so this must run exactly once per process.
    const QStringList commands = MslInfo::getAllMslCmds();
    cmdRgx.reserve(cmdRgx.size() + commands.size());
    for (const QString &name : commands) {
        cmdRgx.append(QRegularExpression(
            QStringLiteral("^ *[.!/]{0,4}(") + name + QStringLiteral(")\\b"),
            QRegularExpression::CaseInsensitiveOption
                | QRegularExpression::UseUnicodePropertiesOption));
        commandNames.insert(name.toLower());
        longestCommandName = qMax(longestCommandName, int(name.size()));
    }
}

// The command patterns are `^ *[.!/]{0,4}(name)\b`, caseless, and every name
// is plain ASCII letters. Such a pattern matches exactly when, behind the
// blanks and at most four prefix characters, the run of characters that
// fold to ASCII letters equals the name and is not followed by a word
// character. At most one name can do that, so the first match of the walk
// is the only one, and a set lookup gives the same answer.

static bool hasUnpairedSurrogate(QStringView word)
{
    const int size = word.size();
    for (int i = 0; i < size; ++i) {
        const QChar c = word.at(i);
        if (c.isHighSurrogate()) {
            if (i + 1 >= size || !word.at(i + 1).isLowSurrogate())
                return true;
            ++i;
        } else if (c.isLowSurrogate()) {
            return true;
        }
    }
    return false;
}

// The ASCII letter that `c` matches without regard to case, or 0.
static char caselessAsciiLetter(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'a' && u <= u'z')
        return char(u);
    if (u >= u'A' && u <= u'Z')
        return char(u - u'A' + u'a');
    if (u == 0x017F) // LATIN SMALL LETTER LONG S
        return 's';
    if (u == 0x212A) // KELVIN SIGN
        return 'k';
    return 0;
}

// Whether a word boundary test sees a word character at `pos`.
static bool isPatternWordChar(QStringView word, int pos)
{
    const char16_t u = word.at(pos).unicode();
    if (u < 0x80) {
        return (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9')
            || u == u'_';
    }
    // Outside ASCII, ask the pattern engine itself, so that its Unicode
    // tables decide exactly as they do in the command patterns.
    static const QRegularExpression wordChar(QStringLiteral("\\w"),
                                             QRegularExpression::UseUnicodePropertiesOption);
    return wordChar
        .match(word, pos, QRegularExpression::NormalMatch,
               QRegularExpression::AnchorAtOffsetMatchOption)
        .hasMatch();
}

int DevSettings::commandMatchLength(QStringView word)
{
    // The pattern engine refuses a subject that is not valid UTF-16.
    if (hasUnpairedSurrogate(word))
        return -1;

    const int size = word.size();
    int pos = 0;
    while (pos < size && word.at(pos) == QLatin1Char(' '))
        ++pos;
    const int prefixStart = pos;
    while (pos < size
           && (word.at(pos) == QLatin1Char('.') || word.at(pos) == QLatin1Char('!')
               || word.at(pos) == QLatin1Char('/')))
        ++pos;
    if (pos - prefixStart > 4)
        return -1;

    // Every command's first word comes here: the folded name is looked up
    // from a buffer on the stack rather than a new string.
    constexpr int capacity = 64;
    QChar name[capacity];
    int length = 0;
    while (pos < size && length <= longestCommandName && length < capacity) {
        const char letter = caselessAsciiLetter(word.at(pos));
        if (!letter)
            break;
        name[length++] = QLatin1Char(letter);
        ++pos;
    }
    if (length == 0 || length > longestCommandName)
        return -1;
    if (pos < size && isPatternWordChar(word, pos))
        return -1;
    if (!commandNames.contains(QString::fromRawData(name, length)))
        return -1;
    return pos;
}

void DevSettings::buildFormats()
{
    const QColor commentGreen(102, 153, 51);
    const QColor olive(128, 128, 0);
    const QColor blue(0, 51, 204);

    commentFmt = foreground(commentGreen);

    rcommentFmt = foreground(commentGreen);
    rcommentFmt.setUnderlineColor(olive);
    rcommentFmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);

    commentNoEndFmt = foreground(commentGreen);
    commentNoEndFmt.setUnderlineColor(Qt::red);
    commentNoEndFmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);

    errFmt = squiggle(Qt::red);
    wrnFmt = squiggle(olive);
    infFmt = squiggle(QColor(255, 153, 51));

    aliasFmt = boldForeground(QColor(0, 0, 0));
    aliasSwitchFmt = QTextCharFormat();
    aliasSwitchFmt.setFontItalic(true);
    aliasNameFmt = QTextCharFormat();
    aliasNameFmt.setFontWeight(QFont::Bold);

    dialogFmt = boldForeground(QColor(0, 0, 0));
    dialogSwitchFmt = QTextCharFormat();
    dialogSwitchFmt.setFontItalic(true);
    dialogNameFmt = QTextCharFormat();
    dialogNameFmt.setFontWeight(QFont::Bold);
    dialogCmdFmt = boldForeground(blue);
    dialogStrFmt = foreground(QColor(0, 51, 153));

    openBracketFmt = boldForeground(blue);
    closeBracketFmt = boldForeground(blue);
    cmdFmt = foreground(QColor(153, 102, 204));
    ctrlFmt = boldForeground(blue);
    pipeFmt = QTextCharFormat();

    identFmt = foreground(QColor(83, 83, 142));
    identPropFmt = foreground(QColor(Qt::gray));
    varFmt = foreground(QColor(197, 113, 0));
    groupFmt = foreground(QColor(102, 153, 153));
    groupCtrlFmt = boldForeground(blue);
    todoFmt = foreground(QColor(0, 0, 153));
    onFmt = boldForeground(QColor(0, 0, 0));
    onEventFmt = foreground(QColor(0, 153, 153));
    onChannelsFmt = foreground(QColor(0, 0, 0));
    onMePreFmt = foreground(QColor(0, 0, 153));
}

QString DevSettings::formatName(const QTextCharFormat &format)
{
    // Several formats look alike; the first of this list names them.
    const std::pair<const char *, const QTextCharFormat *> named[] = {
        {"ctrlFmt", &DevSettings::ctrlFmt},
        {"commentFmt", &DevSettings::commentFmt},
        {"rcommentFmt", &DevSettings::rcommentFmt},
        {"commentNoEndFmt", &DevSettings::commentNoEndFmt},
        {"errFmt", &DevSettings::errFmt},
        {"wrnFmt", &DevSettings::wrnFmt},
        {"infFmt", &DevSettings::infFmt},
        {"aliasFmt", &DevSettings::aliasFmt},
        {"aliasSwitchFmt", &DevSettings::aliasSwitchFmt},
        {"aliasNameFmt", &DevSettings::aliasNameFmt},
        {"dialogStrFmt", &DevSettings::dialogStrFmt},
        {"cmdFmt", &DevSettings::cmdFmt},
        {"identFmt", &DevSettings::identFmt},
        {"identPropFmt", &DevSettings::identPropFmt},
        {"varFmt", &DevSettings::varFmt},
        {"groupFmt", &DevSettings::groupFmt},
        {"todoFmt", &DevSettings::todoFmt},
        {"onEventFmt", &DevSettings::onEventFmt},
        {"onChannelsFmt", &DevSettings::onChannelsFmt},
        {"pipeFmt", &DevSettings::pipeFmt},
    };
    for (const auto &entry : named) {
        if (*entry.second == format)
            return QString::fromLatin1(entry.first);
    }
    return QStringLiteral("other");
}
