#include "diagnostics.h"

#include "lspdocument.h"
#include "lspjson.h"

#include <QJsonObject>
#include <QTextBlock>

namespace {

// DiagnosticSeverity values.
enum Severity { Error = 1, Warning = 2, Information = 3, Hint = 4 };

Severity severityOf(int type)
{
    switch (type) {
    case 3:
        return Error;
    case 2:
        return Warning;
    default:
        return type >= 10 ? Hint : Information;
    }
}

// The name a developer note goes by.
QString noteName(int type)
{
    switch (type) {
    case 11:
        return QStringLiteral("todo");
    case 13:
        return QStringLiteral("hack");
    case 14:
        return QStringLiteral("xxx");
    case 15:
        return QStringLiteral("fixme");
    default:
        return QStringLiteral("note");
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
        d.insert(QStringLiteral("message"), severity == Hint && r.type >= 10
                     ? noteName(r.type) + QStringLiteral(": ") + r.message
                     : r.message);
        if (!r.block.isEmpty())
            d.insert(QStringLiteral("data"), QJsonObject{{QStringLiteral("block"), r.block}});
        list.append(d);
    }
    return list;
}
