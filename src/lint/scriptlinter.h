#ifndef SCRIPTLINTER_H
#define SCRIPTLINTER_H

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStandardItemModel>
#include <QString>
#include <QTextCharFormat>
#include <QVector>

class QTextDocument;
class ReportStore;

// One report as the dock holds it.
struct LintReport
{
    int id = 0;
    int line = 0;
    int col = 0;
    int type = 0;
    QString file;
    QString block;
    QString message;
};

// What checking one file gave.
struct LintedFile
{
    QString path;        // the absolute path, as the reports carry it
    bool readable = true;
    QString error;       // why it could not be read
    QList<LintReport> reports; // ascending id
    QJsonArray lines;    // one object per line, when dumping
};

// Runs the editor's analyser over script files with no editor around it.
// Each file goes through what a tab does on opening it: the highlighter
// sits on an empty plain-text document, the text goes in (the first pass,
// under an empty file name), the path is set and the whole text is
// analysed again. The reports land in the dock's own store, so ids are
// handed out as the dock would, shared by all files of one run.
class ScriptLinter : public QObject
{
    Q_OBJECT

public:
    explicit ScriptLinter(QObject *parent = nullptr);
    ~ScriptLinter() override;

    // Also record every line: text, state, formats and record.
    void setDumpLines(bool dump) { dumpLines = dump; }

    // Checks one file. A file given twice is checked once, as an open tab
    // is only brought back; `alreadyChecked` tells the caller.
    LintedFile lint(const QString &fileName, bool *alreadyChecked = nullptr);

    // Plain-text form of one report: PATH:LINE:COL: KIND: MESSAGE [BLOCK].
    static QString textLine(const LintReport &report);
    static QJsonObject reportJson(const LintReport &report);
    static QJsonObject fileJson(const LintedFile &file);
    // One object per text block, for the dump.
    static QJsonArray linesJson(const QTextDocument &document);
    // Name of the first analyser format equal to `format`, or "other".
    static QString formatName(const QTextCharFormat &format);

private:
    void onUpdateError(int lineNum, int linePos, QString fname, QString block, QString id,
                       int type, QString err, int &errId);
    void onRemoveError(QVector<int> &errIds);
    LintReport reportFor(int id) const;

    QStandardItemModel debug;
    QStandardItemModel messages;
    ReportStore *store = nullptr;
    // Ids of the reports of the file being checked that still stand.
    QSet<int> current;
    QHash<int, int> typeOf;
    QList<QFileInfo> checked;
    bool dumpLines = false;
};

#endif // SCRIPTLINTER_H
