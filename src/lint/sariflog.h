#ifndef SARIFLOG_H
#define SARIFLOG_H

#include "scriptlinter.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

// The reports of a lint run as a SARIF 2.1.0 log, the format code-scanning
// services read: one run of the tool, one result per report, and a
// notification for each file that could not be read.
class SarifLog
{
public:
    explicit SarifLog(const QString &toolVersion);

    void addFile(const LintedFile &file);
    QJsonObject toJson() const;

    // "error", "warning" or "note": SARIF's level for a report kind.
    static QString level(int kind);
    // The rule a report falls under: "tarnwick/" and the kind's word.
    static QString ruleId(int kind);

private:
    QJsonObject result(const LintReport &report) const;

    QString version;
    QJsonArray results;
    QJsonArray notifications;
    QList<int> kindsSeen;
};

#endif // SARIFLOG_H
