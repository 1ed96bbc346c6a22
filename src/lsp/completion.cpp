#include "completion.h"

#include "lspdocument.h"
#include "lspjson.h"
#include "mslinfo.h"
#include "msltextedit.h"

#include <QAbstractItemModel>
#include <QBrush>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>

namespace {

// CompletionItemKind values.
enum Kind { FunctionKind = 3, ClassKind = 7, PropertyKind = 10, ColorKind = 16 };

constexpr QChar colourCode(0x03);

// Where the text an item replaces starts and ends.
struct Span
{
    int line;
    int from;
    int to;
};

QJsonObject item(const QString &text, Kind kind, const Span &span, const QString &detail)
{
    QJsonObject edit;
    edit.insert(QStringLiteral("range"), LspJson::range(span.line, span.from, span.to));
    edit.insert(QStringLiteral("newText"), text);
    QJsonObject o;
    o.insert(QStringLiteral("label"), text);
    o.insert(QStringLiteral("kind"), kind);
    o.insert(QStringLiteral("textEdit"), edit);
    if (!detail.isEmpty())
        o.insert(QStringLiteral("detail"), detail);
    return o;
}

// Every row of a model built for the editor's completers, first `builtIn`
// rows with one detail and the rest with another.
QJsonArray fromModel(const QAbstractItemModel *model, Kind kind, const Span &span,
                     const QString &detail, int builtIn = -1,
                     const QString &laterDetail = QString())
{
    QJsonArray items;
    if (!model)
        return items;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const QString text = index.data(Qt::DisplayRole).toString();
        QJsonObject o = item(text, kind, span,
                             builtIn >= 0 && row >= builtIn ? laterDetail : detail);
        if (kind == ColorKind) {
            // The code's own look: a client shows a colour it can read.
            const QBrush fg = index.data(Qt::ForegroundRole).value<QBrush>();
            o.insert(QStringLiteral("label"), text.mid(1));
            o.insert(QStringLiteral("filterText"), text);
            o.insert(QStringLiteral("documentation"), fg.color().name());
        }
        items.append(o);
    }
    return items;
}

int tableSize()
{
    static const int size = [] {
        int n = 0;
        for (const identifier *row = MslInfo::getIdentsList(); row->name; ++row)
            ++n;
        return n;
    }();
    return size;
}

QJsonArray colourCodes(const Span &span)
{
    std::unique_ptr<QAbstractItemModel> model(MslInfo::getColorCodes(nullptr));
    return fromModel(model.get(), ColorKind, span, QStringLiteral("colour"));
}

QJsonArray identifiers(const LspDocument &document, const Span &span)
{
    std::unique_ptr<QAbstractItemModel> model(
        MslInfo::getIdentIds(nullptr, document.textDocument()->firstBlock()));
    return fromModel(model.get(), FunctionKind, span, QStringLiteral("identifier"), tableSize(),
                     QStringLiteral("alias of this script"));
}

// The properties of the call whose '.' stands at `dot`.
QJsonArray properties(const QTextBlock &block, int dot, const Span &span)
{
    const CBlockData *data = recordOf(block);
    if (!data)
        return {};
    for (const Identifier &id : data->idents) {
        if (id.hasPayload && id.proppos == dot) {
            std::unique_ptr<QAbstractItemModel> model(
                MslInfo::getIdentPropProIds(id.name, nullptr));
            return fromModel(model.get(), PropertyKind, span,
                             QStringLiteral("property of ") + id.name);
        }
    }
    return {};
}

// The start of the word being typed as the third word of a comopen
// command, or -1. The command may stand behind a " | " separator.
int progIdWordStart(const QString &left)
{
    static const QRegularExpression separator(QStringLiteral(" \\|( |$)"));
    static const QRegularExpression comopen(
        QStringLiteral("^ *[.!/]{0,4}comopen \\S+ (\\S*)$"),
        QRegularExpression::CaseInsensitiveOption
            | QRegularExpression::UseUnicodePropertiesOption);
    int start = 0;
    for (QRegularExpressionMatchIterator it = separator.globalMatch(left); it.hasNext();)
        start = int(it.next().capturedEnd(0));
    const QRegularExpressionMatch m = comopen.match(QStringView(left).mid(start));
    return m.hasMatch() ? start + int(m.capturedStart(1)) : -1;
}

} // namespace

QJsonArray Completion::items(const LspDocument &document, const TextPosition &at)
{
    static const QRegularExpression colourTail(QStringLiteral("\\x03[0-9,]*$"));
    static const QRegularExpression propertyTail(QStringLiteral("\\)\\.(\\w*)$"));
    static const QRegularExpression identTail(QStringLiteral("\\$[\\w~]*$"));

    const QTextBlock block = document.blockAt(at.line);
    const QString text = block.text();
    const int pos = qBound(0, at.character, int(text.size()));
    const QString left = text.left(pos);
    // The text from `from` to the cursor, in the client's text.
    const TextPosition origin = document.toClient({block.blockNumber(), 0});
    const auto replacing = [&](int from) {
        return Span{origin.line, origin.character + from, origin.character + pos};
    };

    QRegularExpressionMatch m = colourTail.match(left);
    if (m.hasMatch())
        return colourCodes(replacing(int(m.capturedStart(0))));
    m = propertyTail.match(left);
    if (m.hasMatch())
        return properties(block, int(m.capturedStart(1)) - 1,
                          replacing(int(m.capturedStart(1))));
    m = identTail.match(left);
    if (m.hasMatch())
        return identifiers(document, replacing(int(m.capturedStart(0))));
    const int word = progIdWordStart(left);
    if (word >= 0) {
        std::unique_ptr<QAbstractItemModel> model(MslInfo::getComProIds(nullptr));
        return fromModel(model.get(), ClassKind, replacing(word), QStringLiteral("COM ProgID"));
    }
    return {};
}
