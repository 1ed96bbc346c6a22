#include "diagnostics.h"

#include "lspdocument.h"
#include "lspjson.h"
#include "reportkind.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocument>

namespace {

// DiagnosticSeverity values.
enum Severity { Error = 1, Warning = 2, Information = 3, Hint = 4 };

Severity severityOf(int kind)
{
    if (isNote(kind))
        return Hint;
    switch (kind) {
    case ErrorReport:
        return Error;
    case WarningReport:
        return Warning;
    default:
        return Information;
    }
}

QByteArray diagnostic(const DocumentReport &r, const QString &text, const TextPosition &origin)
{
    const int start = qBound(0, r.column, int(text.size()));
    int end = start;
    while (end < text.size() && !text.at(end).isSpace())
        ++end;

    const Severity severity = severityOf(r.type);
    QJsonObject d;
    d.insert(QStringLiteral("range"), LspJson::range(origin.line, origin.character + start,
                                                     origin.character + end));
    d.insert(QStringLiteral("severity"), severity);
    d.insert(QStringLiteral("source"), QStringLiteral("tarnwick"));
    d.insert(QStringLiteral("message"), severity == Hint
                 ? reportKindName(r.type) + QStringLiteral(": ") + r.message
                 : r.message);
    if (!r.block.isEmpty())
        d.insert(QStringLiteral("data"), QJsonObject{{QStringLiteral("block"), r.block}});
    return QJsonDocument(d).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray DiagnosticList::json(const LspDocument &document)
{
    QHash<int, Entry> kept;
    QByteArray out("[");
    // The reports come by line: one walk down the document finds them all.
    QTextBlock block = document.textDocument()->firstBlock();
    int line = 0;
    for (const DocumentReport &r : document.reports()) {
        for (; line < r.line && block.next().isValid(); ++line)
            block = block.next();
        Entry entry = entries.take(r.id);
        const TextPosition origin = document.toClient({r.line, 0});
        if (entry.line != r.line || entry.origin.line != origin.line
            || entry.origin.character != origin.character) {
            entry.line = r.line;
            entry.origin = origin;
            entry.json = diagnostic(r, block.text(), origin);
        }
        if (out.size() > 1)
            out += ',';
        out += entry.json;
        kept.insert(r.id, std::move(entry));
    }
    out += ']';
    entries.swap(kept);
    return out;
}
