#include "diagnostics.h"

#include "lspdocument.h"
#include "lspjson.h"
#include "reportkind.h"

#include <QJsonObject>
#include <QTextBlock>

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

} // namespace

QJsonArray Diagnostics::of(const LspDocument &document)
{
    QJsonArray list;
    // The reports come by line: one walk down the document finds them all.
    QTextBlock block = document.textDocument()->firstBlock();
    int line = 0;
    for (const DocumentReport &r : document.reports()) {
        for (; line < r.line && block.next().isValid(); ++line)
            block = block.next();
        const QString text = block.text();
        const int start = qBound(0, r.column, int(text.size()));
        int end = start;
        while (end < text.size() && !text.at(end).isSpace())
            ++end;

        const Severity severity = severityOf(r.type);
        QJsonObject d;
        d.insert(QStringLiteral("range"), LspJson::range(r.line, start, end));
        d.insert(QStringLiteral("severity"), severity);
        d.insert(QStringLiteral("source"), QStringLiteral("tarnwick"));
        d.insert(QStringLiteral("message"), severity == Hint
                     ? reportKindName(r.type) + QStringLiteral(": ") + r.message
                     : r.message);
        if (!r.block.isEmpty())
            d.insert(QStringLiteral("data"), QJsonObject{{QStringLiteral("block"), r.block}});
        list.append(d);
    }
    return list;
}
