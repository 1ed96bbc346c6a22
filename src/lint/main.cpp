// tarnwick-lint: the editor's analyser over script files, headless.
//
//   tarnwick-lint [--json | --sarif] [--dump] [--] FILE...
//
// Prints the reports the report dock would hold for the files, one line
// each (or one JSON document, or a SARIF log for code-scanning services),
// and a summary on standard error. Exit
// status: 0 without error reports, 1 with some, 2 on a usage error or a
// file that cannot be read.

#include "devsettings.h"
#include "reportkind.h"
#include "sariflog.h"
#include "scriptlinter.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cstdio>

#ifndef TARNWICK_VERSION
#define TARNWICK_VERSION "unknown"
#endif

namespace {

enum ExitCode { Clean = 0, ErrorsFound = 1, UsageOrReadFailure = 2 };

struct Counts
{
    int errors = 0;
    int warnings = 0;
    int infos = 0;
    int notes = 0;
    int files = 0;
    int unreadable = 0;

    void add(const LintReport &r)
    {
        if (r.type == ErrorReport)
            ++errors;
        else if (r.type == WarningReport)
            ++warnings;
        else if (r.type == InformationReport)
            ++infos;
        else if (isNote(r.type))
            ++notes;
    }
};

QString counted(int n, const char *one, const char *many)
{
    return QString::number(n) + QLatin1Char(' ') + QLatin1String(n == 1 ? one : many);
}

QString summary(const Counts &c)
{
    QString s = counted(c.errors, "error", "errors") + QStringLiteral(", ")
        + counted(c.warnings, "warning", "warnings") + QStringLiteral(", ")
        + counted(c.infos, "info", "infos") + QStringLiteral(", ")
        + counted(c.notes, "note", "notes") + QStringLiteral(" in ")
        + counted(c.files, "file", "files");
    if (c.unreadable)
        s += QStringLiteral(" (") + counted(c.unreadable, "file", "files")
            + QStringLiteral(" could not be read)");
    return s;
}

// Standard error carries the lint's own messages only; Qt's chatter about
// the platform (no runtime directory and the like) would drown them.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(quietMessages);
    // No display is needed: the documents are laid out off screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarnwick-lint"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARNWICK_VERSION));

    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setEncoding(QStringConverter::Utf8);
    err.setEncoding(QStringConverter::Utf8);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Checks mIRC scripts with the analyser of the Tarnwick editor and prints what its "
        "report dock would hold."));
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();
    const QCommandLineOption jsonOption(QStringLiteral("json"),
                                        QStringLiteral("Print one JSON document."));
    const QCommandLineOption dumpOption(
        QStringLiteral("dump"),
        QStringLiteral("With the JSON output, also every line: its text, state, formats and "
                       "record. Implies --json."));
    const QCommandLineOption sarifOption(
        QStringLiteral("sarif"),
        QStringLiteral("Print the reports as one SARIF 2.1.0 log, for code-scanning services."));
    parser.addOption(jsonOption);
    parser.addOption(dumpOption);
    parser.addOption(sarifOption);
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("Script files to check."),
                                 QStringLiteral("[--] FILE..."));

    if (!parser.parse(QCoreApplication::arguments())) {
        err << "tarnwick-lint: " << parser.errorText() << "\n"
            << "Try 'tarnwick-lint --help' for more information.\n";
        return UsageOrReadFailure;
    }
    if (parser.isSet(helpOption)) {
        out << parser.helpText();
        return Clean;
    }
    if (parser.isSet(versionOption)) {
        out << "tarnwick-lint " << TARNWICK_VERSION << "\n";
        return Clean;
    }
    const QStringList fileNames = parser.positionalArguments();
    if (fileNames.isEmpty()) {
        err << "tarnwick-lint: no script file given\n"
            << "Try 'tarnwick-lint --help' for more information.\n";
        return UsageOrReadFailure;
    }
    const bool dump = parser.isSet(dumpOption);
    const bool json = parser.isSet(jsonOption) || dump;
    const bool sarif = parser.isSet(sarifOption);
    if (sarif && json) {
        err << "tarnwick-lint: --sarif cannot be combined with --json or --dump\n"
            << "Try 'tarnwick-lint --help' for more information.\n";
        return UsageOrReadFailure;
    }

    DevSettings::InitializeAllSettings();
    ScriptLinter linter;
    linter.setDumpLines(dump);

    Counts counts;
    QJsonArray jsonFiles;
    SarifLog sarifLog(QStringLiteral(TARNWICK_VERSION));
    for (const QString &name : fileNames) {
        bool again = false;
        const LintedFile file = linter.lint(name, &again);
        if (again)
            continue;
        if (!file.readable) {
            ++counts.unreadable;
            err << "tarnwick-lint: cannot read " << name << ": " << file.error << "\n";
            err.flush();
        } else {
            ++counts.files;
        }
        for (const LintReport &r : file.reports) {
            counts.add(r);
            if (!json && !sarif)
                out << ScriptLinter::textLine(r) << "\n";
        }
        if (json)
            jsonFiles.append(ScriptLinter::fileJson(file));
        if (sarif)
            sarifLog.addFile(file);
    }
    if (json) {
        QJsonObject root;
        root.insert(QStringLiteral("files"), jsonFiles);
        out << QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Indented));
    }
    if (sarif)
        out << QString::fromUtf8(QJsonDocument(sarifLog.toJson()).toJson(QJsonDocument::Indented));
    out.flush();
    err << summary(counts) << "\n";
    err.flush();

    if (counts.unreadable)
        return UsageOrReadFailure;
    return counts.errors ? ErrorsFound : Clean;
}
