#include "outline.h"

#include "lspdocument.h"
#include "lspjson.h"
#include "msltextedit.h"

#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocument>

namespace {

// SymbolKind values.
enum SymbolKind { NamespaceKind = 3, FunctionKind = 12, ObjectKind = 19, EventKind = 24 };

// The state the analyser was in before `block`; the first line starts at
// top level.
int stateBefore(const QTextBlock &block)
{
    constexpr int TopLevel = 1;
    const QTextBlock previous = block.previous();
    return previous.isValid() ? previous.userState() : TopLevel;
}

bool opensGroup(const CBlockData *data)
{
    return data && data->isGroup && data->groupState == 1;
}

// Whether the line opens a block or group that goes on below it: what the
// gutter marks for aliases, events and groups. A dialog table the gutter
// does not mark is counted too, when its header leaves the analyser inside
// the table.
bool opensFold(const QTextBlock &block, const CBlockData *data)
{
    if (!data)
        return false;
    if (opensGroup(data))
        return true;
    if (data->containedBlock.isEmpty())
        return false;
    if (data->blockType == CBlockData::Dialog)
        return block.userState() != stateBefore(block) && block.next().isValid();
    return data->isMultiLine;
}

// The last line of what `header` opens: the first line after which the
// analyser is back in the state it was in before the header. The gutter
// stops at top level only, which inside a group would take an alias down
// to the group's end. The last line of the document ends every fold.
int foldEnd(const QTextBlock &header)
{
    const int before = stateBefore(header);
    int line = header.blockNumber();
    for (QTextBlock block = header.next(); block.isValid(); block = block.next()) {
        ++line;
        if (block.userState() == before || block.userState() == 1)
            break;
    }
    return line;
}

QString groupName(const QTextBlock &block)
{
    const QString text = block.text().trimmed();
    const int blank = text.indexOf(QLatin1Char(' '));
    return blank < 0 ? text : text.left(blank);
}

QJsonObject range(const LspDocument &document, int line, int character, int endLine,
                  int endCharacter)
{
    const TextPosition start = document.toClient({line, character});
    const TextPosition end = document.toClient({endLine, endCharacter});
    return LspJson::range(start.line, start.character, end.line, end.character);
}

QJsonObject symbol(const LspDocument &document, const QString &name, const QString &detail,
                   SymbolKind kind, int line, int endLine, int endCharacter, int nameStart,
                   int nameEnd)
{
    QJsonObject o;
    o.insert(QStringLiteral("name"), name.isEmpty() ? QStringLiteral("?") : name);
    o.insert(QStringLiteral("detail"), detail);
    o.insert(QStringLiteral("kind"), kind);
    o.insert(QStringLiteral("range"), range(document, line, 0, endLine, endCharacter));
    o.insert(QStringLiteral("selectionRange"), range(document, line, nameStart, line, nameEnd));
    return o;
}

} // namespace

QJsonArray Outline::foldingRanges(const LspDocument &lspDocument)
{
    const QTextDocument &document = *lspDocument.textDocument();
    QJsonArray ranges;
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
        if (!opensFold(block, recordOf(block)))
            continue;
        const int start = block.blockNumber();
        const int end = foldEnd(block);
        if (end <= start)
            continue;
        QJsonObject range;
        range.insert(QStringLiteral("startLine"), lspDocument.toClient({start, 0}).line);
        range.insert(QStringLiteral("endLine"), lspDocument.toClient({end, 0}).line);
        range.insert(QStringLiteral("kind"), QStringLiteral("region"));
        ranges.append(range);
    }
    return ranges;
}

QJsonArray Outline::symbols(const LspDocument &lspDocument)
{
    const QTextDocument &document = *lspDocument.textDocument();
    QJsonArray top;
    QJsonObject group;
    QJsonArray members;
    int groupEnd = -1;
    auto closeGroup = [&] {
        if (group.isEmpty())
            return;
        group.insert(QStringLiteral("children"), members);
        top.append(group);
        group = QJsonObject();
        members = QJsonArray();
        groupEnd = -1;
    };

    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
        const int line = block.blockNumber();
        if (line > groupEnd)
            closeGroup();
        const CBlockData *data = recordOf(block);
        if (!data)
            continue;
        if (opensGroup(data)) {
            closeGroup();
            groupEnd = foldEnd(block);
            const QString name = groupName(block);
            const QTextBlock last = document.findBlockByNumber(groupEnd);
            group = symbol(lspDocument, name, QStringLiteral("group"), NamespaceKind, line,
                           groupEnd, last.length() - 1, block.text().indexOf(name),
                           block.text().indexOf(name) + name.size());
            continue;
        }
        if (data->containedBlock.isEmpty())
            continue;

        QString name = data->containedBlock;
        QString detail;
        SymbolKind kind = FunctionKind;
        switch (data->blockType) {
        case CBlockData::Alias:
            detail = data->isLocal ? QStringLiteral("local alias") : QStringLiteral("alias");
            break;
        case CBlockData::Dialog:
            detail = data->isLocal ? QStringLiteral("local dialog") : QStringLiteral("dialog");
            kind = ObjectKind;
            break;
        case CBlockData::Event:
            detail = QStringLiteral("event");
            kind = EventKind;
            if (!data->matchtext.isEmpty())
                name += QStringLiteral(" : ") + data->matchtext;
            break;
        default:
            continue; // the object tree lists no other kind
        }
        const int end = opensFold(block, data) ? foldEnd(block) : line;
        const QTextBlock last = document.findBlockByNumber(end);
        // An event's recorded place is that of its match text.
        const int at = data->blockType == CBlockData::Event
            ? int(block.text().indexOf(data->containedBlock, 0, Qt::CaseInsensitive))
            : data->blockPos;
        const int nameStart = qBound(0, at, block.length() - 1);
        const int nameEnd = qBound(nameStart, nameStart + int(data->containedBlock.size()),
                                   block.length() - 1);
        const QJsonObject entry =
            symbol(lspDocument, name, detail, kind, line, end, last.length() - 1, nameStart,
                   nameEnd);
        if (!group.isEmpty() && line <= groupEnd)
            members.append(entry);
        else
            top.append(entry);
    }
    closeGroup();
    return top;
}
