#include "sariflog.h"

#include "reportkind.h"

#include <QUrl>

#include <algorithm>

SarifLog::SarifLog(const QString &toolVersion)
    : version(toolVersion)
{
}

QString SarifLog::level(int kind)
{
    switch (kind) {
    case ErrorReport:
        return QStringLiteral("error");
    case WarningReport:
        return QStringLiteral("warning");
    default:
        // Information and developer notes alike: worth a look, never a
        // failure.
        return QStringLiteral("note");
    }
}

QString SarifLog::ruleId(int kind)
{
    return QStringLiteral("tarnwick/") + reportKindName(kind);
}

void SarifLog::addFile(const LintedFile &file)
{
    if (!file.readable) {
        QJsonObject message{{QStringLiteral("text"),
                             QStringLiteral("cannot read %1: %2").arg(file.path, file.error)}};
        notifications.append(QJsonObject{{QStringLiteral("level"), QStringLiteral("error")},
                                         {QStringLiteral("message"), message}});
        return;
    }
    for (const LintReport &r : file.reports) {
        results.append(result(r));
        if (!kindsSeen.contains(r.type))
            kindsSeen.append(r.type);
    }
}

QJsonObject SarifLog::result(const LintReport &r) const
{
    // Lines count from 1 in both; SARIF's columns count UTF-16 code units
    // from 1, the reports' from 0.
    const QJsonObject region{{QStringLiteral("startLine"), qMax(1, r.line)},
                             {QStringLiteral("startColumn"), r.col + 1}};
    const QJsonObject artifact{
        {QStringLiteral("uri"), QUrl::fromLocalFile(r.file).toString(QUrl::FullyEncoded)}};
    const QJsonObject physical{{QStringLiteral("artifactLocation"), artifact},
                               {QStringLiteral("region"), region}};
    QJsonObject o;
    o.insert(QStringLiteral("ruleId"), ruleId(r.type));
    o.insert(QStringLiteral("level"), level(r.type));
    o.insert(QStringLiteral("message"), QJsonObject{{QStringLiteral("text"), r.message}});
    o.insert(QStringLiteral("locations"),
             QJsonArray{QJsonObject{{QStringLiteral("physicalLocation"), physical}}});
    QJsonObject properties{{QStringLiteral("id"), r.id}};
    if (!r.block.isEmpty())
        properties.insert(QStringLiteral("block"), r.block);
    o.insert(QStringLiteral("properties"), properties);
    return o;
}

QJsonObject SarifLog::toJson() const
{
    QList<int> kinds = kindsSeen;
    std::sort(kinds.begin(), kinds.end());
    QJsonArray rules;
    for (int kind : std::as_const(kinds)) {
        const QJsonObject config{{QStringLiteral("level"), level(kind)}};
        rules.append(QJsonObject{
            {QStringLiteral("id"), ruleId(kind)},
            {QStringLiteral("name"), reportKindName(kind)},
            {QStringLiteral("defaultConfiguration"), config}});
    }
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("tarnwick-lint")},
                             {QStringLiteral("version"), version},
                             {QStringLiteral("rules"), rules}};
    QJsonObject invocation{{QStringLiteral("executionSuccessful"), notifications.isEmpty()}};
    if (!notifications.isEmpty())
        invocation.insert(QStringLiteral("toolExecutionNotifications"), notifications);
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("invocations"), QJsonArray{invocation}},
                          {QStringLiteral("columnKind"), QStringLiteral("utf16CodeUnits")},
                          {QStringLiteral("results"), results}};
    return QJsonObject{
        {QStringLiteral("$schema"),
         QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
        {QStringLiteral("version"), QStringLiteral("2.1.0")},
        {QStringLiteral("runs"), QJsonArray{run}}};
}
