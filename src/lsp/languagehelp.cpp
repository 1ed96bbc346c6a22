#include "languagehelp.h"

#include "lspdocument.h"
#include "lspjson.h"
#include "mslinfo.h"
#include "msltextedit.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextBlock>

namespace {

// The identifier whose text holds `pos`, the innermost of nested ones.
// `after` takes `pos` as a cursor between characters (a call tip), else
// as the character under the mouse (a hover).
const Identifier *identAt(const QTextBlock &block, int pos, bool after)
{
    const CBlockData *data = recordOf(block);
    if (!data)
        return nullptr;
    const Identifier *found = nullptr;
    for (const Identifier &id : data->idents) {
        if (id.possibleIdent)
            continue;
        const bool inside = after ? (pos > id.start && pos <= id.end)
                                  : (pos >= id.start && pos <= id.end);
        if (inside && (!found || id.start > found->start))
            found = &id;
    }
    return found;
}

// The editor's call tips are rich text; a client wants them plain.
QString plainText(QString tip)
{
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    tip.remove(tags);
    tip.replace(QStringLiteral("&lt;"), QStringLiteral("<"));
    tip.replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    tip.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
    return tip;
}

// The syntax tip of `name` with each argument's place in it.
struct Signature
{
    QString label;
    QJsonArray parameters;
};

Signature signatureOf(const QString &name)
{
    Signature s;
    s.label = plainText(MslInfo::getIdentSyntaxAt(name, -1));
    // The tip puts argument `n` in bold; where the bold starts and ends,
    // in the plain text, is that argument's label.
    for (int n = 0;; ++n) {
        const QString tip = MslInfo::getIdentSyntaxAt(name, n);
        const int open = tip.indexOf(QStringLiteral("<b>"));
        const int close = tip.indexOf(QStringLiteral("</b>"));
        if (open < 0 || close < open)
            break;
        const int start = plainText(tip.left(open)).size();
        const int end = start + plainText(tip.mid(open, close - open)).size();
        QJsonObject parameter;
        parameter.insert(QStringLiteral("label"), QJsonArray{start, end});
        s.parameters.append(parameter);
    }
    return s;
}

} // namespace

QJsonValue LanguageHelp::hover(const LspDocument &document, const TextPosition &at)
{
    const QTextBlock block = document.blockAt(at.line);
    const Identifier *id = identAt(block, at.character, false);
    if (!id || !id->hasPayload)
        return QJsonValue::Null;
    const QString syntax = plainText(MslInfo::getIdentSyntaxAt(id->name, -1));
    if (syntax.isEmpty())
        return QJsonValue::Null;

    QJsonObject contents;
    contents.insert(QStringLiteral("kind"), QStringLiteral("markdown"));
    contents.insert(QStringLiteral("value"),
                    QStringLiteral("```\n") + syntax + QStringLiteral("\n```"));
    QJsonObject hover;
    hover.insert(QStringLiteral("contents"), contents);
    const TextPosition start = document.toClient({block.blockNumber(), id->start});
    hover.insert(QStringLiteral("range"),
                 LspJson::range(start.line, start.character,
                                start.character + int(id->name.size())));
    return hover;
}

QJsonValue LanguageHelp::signatureHelp(const LspDocument &document, const TextPosition &at)
{
    const QTextBlock block = document.blockAt(at.line);
    const int pos = qBound(0, at.character, block.length() - 1);
    const Identifier *id = identAt(block, pos, true);
    if (!id || !id->hasPayload || pos <= id->start + id->name.size())
        return QJsonValue::Null;
    const Signature signature = signatureOf(id->name);
    if (signature.label.isEmpty())
        return QJsonValue::Null;

    // The argument being typed: one more for every comma of this call
    // left of the cursor.
    int active = 0;
    for (int comma : id->argsPos) {
        if (comma < pos)
            ++active;
    }
    QJsonObject info;
    info.insert(QStringLiteral("label"), signature.label);
    info.insert(QStringLiteral("parameters"), signature.parameters);
    info.insert(QStringLiteral("activeParameter"), active);
    QJsonObject help;
    help.insert(QStringLiteral("signatures"), QJsonArray{info});
    help.insert(QStringLiteral("activeSignature"), 0);
    help.insert(QStringLiteral("activeParameter"), active);
    return help;
}
