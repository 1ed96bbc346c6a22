#include "semantictokens.h"

#include "devsettings.h"
#include "lspdocument.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

// Indices into the legend below.
enum TokenType {
    Comment, Keyword, Function, Method, Variable, Property, String, Parameter, Namespace, Event,
    Modifier
};
enum TokenModifier { Declaration = 1, Deprecated = 2, Documentation = 4, DefaultLibrary = 8 };

struct FormatToken
{
    const QTextCharFormat *format;
    int type;
    int modifiers;
};

// Several of the analyser's formats look alike (the bold blue of control
// words, brackets and dialog keywords; the blue of developer notes and of
// an event's prefix); a format range is matched to the first entry equal
// to it, so alike formats give one token type.
const QVector<FormatToken> &formatTokens()
{
    static const QVector<FormatToken> table = {
        {&DevSettings::ctrlFmt, Keyword, 0},
        {&DevSettings::commentFmt, Comment, 0},
        {&DevSettings::rcommentFmt, Comment, Deprecated},
        {&DevSettings::commentNoEndFmt, Comment, 0},
        {&DevSettings::todoFmt, Comment, Documentation},
        {&DevSettings::aliasFmt, Keyword, 0},
        {&DevSettings::aliasSwitchFmt, Parameter, 0},
        {&DevSettings::aliasNameFmt, Function, Declaration},
        {&DevSettings::dialogStrFmt, String, 0},
        {&DevSettings::cmdFmt, Method, DefaultLibrary},
        {&DevSettings::identFmt, Function, DefaultLibrary},
        {&DevSettings::identPropFmt, Property, 0},
        {&DevSettings::varFmt, Variable, 0},
        {&DevSettings::groupFmt, Namespace, 0},
        {&DevSettings::onEventFmt, Event, 0},
        {&DevSettings::onChannelsFmt, Parameter, 0},
        {&DevSettings::onMePreFmt, Modifier, 0},
    };
    return table;
}

const FormatToken *tokenFor(const QTextCharFormat &format)
{
    for (const FormatToken &entry : formatTokens()) {
        if (*entry.format == format)
            return &entry;
    }
    return nullptr;
}

} // namespace

QJsonObject SemanticTokens::legend()
{
    QJsonObject o;
    o.insert(QStringLiteral("tokenTypes"),
             QJsonArray::fromStringList({QStringLiteral("comment"), QStringLiteral("keyword"),
                                         QStringLiteral("function"), QStringLiteral("method"),
                                         QStringLiteral("variable"), QStringLiteral("property"),
                                         QStringLiteral("string"), QStringLiteral("parameter"),
                                         QStringLiteral("namespace"), QStringLiteral("event"),
                                         QStringLiteral("modifier")}));
    o.insert(QStringLiteral("tokenModifiers"),
             QJsonArray::fromStringList({QStringLiteral("declaration"),
                                         QStringLiteral("deprecated"),
                                         QStringLiteral("documentation"),
                                         QStringLiteral("defaultLibrary")}));
    return o;
}

QJsonArray SemanticTokens::encode(const LspDocument &document, int firstLine, int lastLine)
{
    QJsonArray data;
    int previousLine = 0;
    int previousStart = 0;
    QTextBlock block = document.textDocument()->findBlockByNumber(qMax(0, firstLine));
    for (int line = block.blockNumber(); block.isValid() && line <= lastLine;
         block = block.next(), ++line) {
        const QTextLayout *layout = block.layout();
        if (!layout)
            continue;
        const auto ranges = layout->formats();
        for (const QTextLayout::FormatRange &range : ranges) {
            const FormatToken *token = tokenFor(range.format);
            // A line's ranges may leave its end; a token stays within it.
            const int length = qMin(range.length, block.length() - 1 - range.start);
            if (!token || range.start < 0 || length <= 0)
                continue;
            const TextPosition at = document.toClient({line, range.start});
            const int deltaLine = at.line - previousLine;
            data.append(deltaLine);
            data.append(deltaLine == 0 ? at.character - previousStart : at.character);
            data.append(length);
            data.append(token->type);
            data.append(token->modifiers);
            previousLine = at.line;
            previousStart = at.character;
        }
    }
    return data;
}
