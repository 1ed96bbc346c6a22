#include "scriptlinter.h"

#include "devsettings.h"
#include "headlesslayout.h"
#include "reportkind.h"
#include "msltextedit.h"
#include "reportstore.h"
#include "scriptfile.h"
#include "singlepassload.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <memory>

namespace {

// A fresh view sorts its list on the first column, descending; the ids do
// not depend on it, but the store keeps the lists as the dock would.
constexpr int ViewSortColumn = 0;
constexpr Qt::SortOrder ViewSortOrder = Qt::DescendingOrder;

// Why a file cannot be checked, or an empty string.
QString unreadableReason(const QFileInfo &info)
{
    if (!info.exists())
        return QStringLiteral("no such file");
    if (info.isDir())
        return QStringLiteral("is a directory");
    QFile file(info.absoluteFilePath());
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    return QString();
}

} // namespace

ScriptLinter::ScriptLinter(QObject *parent)
    : QObject(parent)
    , debug(0, ReportStore::DebugColumns)
    , messages(0, ReportStore::MessagesColumns)
{
    store = new ReportStore(&debug, &messages, this);
}

ScriptLinter::~ScriptLinter() = default;

void ScriptLinter::onUpdateError(int lineNum, int linePos, QString fname, QString block,
                                 QString, int type, QString err, int &errId)
{
    errId = store->addReport(lineNum, linePos, fname, block, type, err, ViewSortColumn,
                             ViewSortOrder);
    current.insert(errId);
    // The dock's rows show the type only as the list and the icon.
    typeOf.insert(errId, type);
}

void ScriptLinter::onRemoveError(QVector<int> &errIds)
{
    store->removeReports(errIds);
    for (int id : errIds)
        current.remove(id);
}

LintReport ScriptLinter::reportFor(int id) const
{
    ReportStore::List list = ReportStore::DebugList;
    const int row = store->rowOf(id, &list);
    const QStandardItemModel *m = store->model(list);
    auto cell = [&](int column) { return m->data(m->index(row, column), Qt::EditRole); };

    LintReport r;
    r.id = id;
    r.file = cell(ReportStore::FileColumn).toString();
    r.line = cell(ReportStore::LineColumn).toInt();
    r.col = cell(ReportStore::ColColumn).toInt();
    if (list == ReportStore::DebugList)
        r.block = cell(ReportStore::BlockColumn).toString();
    r.message = cell(ReportStore::textColumn(list)).toString();
    r.type = typeOf.value(id);
    return r;
}

LintedFile ScriptLinter::lint(const QString &fileName, bool *alreadyChecked)
{
    const QFileInfo info(fileName);
    LintedFile result;
    result.path = info.absoluteFilePath();
    if (alreadyChecked)
        *alreadyChecked = false;

    result.error = unreadableReason(info);
    if (!result.error.isEmpty()) {
        result.readable = false;
        return result;
    }
    if (checked.contains(info)) {
        if (alreadyChecked)
            *alreadyChecked = true;
        return result;
    }
    checked.append(info);

    // As a tab: the document has its layout before the highlighter is
    // attached, and the highlighter is attached while it is empty.
    auto doc = std::make_unique<QTextDocument>();
    HeadlessLayout::install(doc.get());
    auto *hl = new MslSyntaxHighlighter(doc.get());
    connect(hl, &MslSyntaxHighlighter::updateError, this, &ScriptLinter::onUpdateError,
            Qt::DirectConnection);
    connect(hl, &MslSyntaxHighlighter::removeError, this, &ScriptLinter::onRemoveError,
            Qt::DirectConnection);

    current.clear();
    {
        const UnanalysedLoad load(hl);
        doc->setPlainText(loadScriptText(info));
    }
    hl->setFn(result.path);
    hl->rehighlight();
    if (const int shift = settleSinglePassIds(doc.get(), store)) {
        QSet<int> moved;
        QHash<int, int> types;
        for (int id : std::as_const(current)) {
            moved.insert(id + shift);
            types.insert(id + shift, typeOf.value(id));
        }
        current = moved;
        typeOf.insert(types);
    }
    // Anything the editor's event loop would still run.
    QCoreApplication::processEvents();

    QVector<int> ids(current.begin(), current.end());
    std::sort(ids.begin(), ids.end());
    for (int id : ids)
        result.reports.append(reportFor(id));
    if (dumpLines)
        result.lines = linesJson(*doc);

    // The document's lines take their ids with them when it goes; the
    // dock keeps them for as long as the run lasts, so disconnect first.
    disconnect(hl, nullptr, this, nullptr);
    current.clear();
    return result;
}

QString ScriptLinter::textLine(const LintReport &r)
{
    QString line = QStringLiteral("%1:%2:%3: %4: %5")
                       .arg(r.file)
                       .arg(r.line)
                       .arg(r.col)
                       .arg(reportKindName(r.type), r.message);
    if (!r.block.isEmpty())
        line += QStringLiteral(" [") + r.block + QLatin1Char(']');
    return line;
}

QJsonObject ScriptLinter::reportJson(const LintReport &r)
{
    QJsonObject o;
    o.insert(QStringLiteral("id"), r.id);
    o.insert(QStringLiteral("line"), r.line);
    o.insert(QStringLiteral("col"), r.col);
    o.insert(QStringLiteral("type"), r.type);
    o.insert(QStringLiteral("block"), r.block);
    o.insert(QStringLiteral("message"), r.message);
    return o;
}

QJsonObject ScriptLinter::fileJson(const LintedFile &file)
{
    QJsonObject o;
    o.insert(QStringLiteral("path"), file.path);
    if (!file.readable)
        o.insert(QStringLiteral("error"), file.error);
    QJsonArray reports;
    for (const LintReport &r : file.reports)
        reports.append(reportJson(r));
    o.insert(QStringLiteral("reports"), reports);
    if (!file.lines.isEmpty())
        o.insert(QStringLiteral("lines"), file.lines);
    return o;
}

QString ScriptLinter::formatName(const QTextCharFormat &format)
{
    return DevSettings::formatName(format);
}

namespace {

QJsonObject identJson(const Identifier &ident)
{
    QJsonObject o;
    o.insert(QStringLiteral("name"), ident.name);
    o.insert(QStringLiteral("start"), ident.start);
    o.insert(QStringLiteral("end"), ident.end);
    o.insert(QStringLiteral("proppos"), ident.proppos);
    o.insert(QStringLiteral("hasPayload"), ident.hasPayload);
    QJsonArray args;
    for (int pos : ident.argsPos)
        args.append(pos);
    o.insert(QStringLiteral("argsPos"), args);
    o.insert(QStringLiteral("possibleIdent"), ident.possibleIdent);
    return o;
}

QJsonValue recordJson(const QTextBlock &block)
{
    const auto *data = recordOf(block);
    if (!data)
        return QJsonValue(QJsonValue::Null);
    QJsonObject o;
    o.insert(QStringLiteral("blockType"), data->blockType);
    o.insert(QStringLiteral("isLocal"), data->isLocal);
    o.insert(QStringLiteral("containedBlock"), data->containedBlock);
    o.insert(QStringLiteral("blockPos"), data->blockPos);
    o.insert(QStringLiteral("isMultiLine"), data->isMultiLine);
    o.insert(QStringLiteral("isGroup"), data->isGroup);
    o.insert(QStringLiteral("groupState"), data->groupState);
    o.insert(QStringLiteral("matchtext"), data->matchtext);
    QJsonArray idents;
    for (const Identifier &ident : data->idents)
        idents.append(identJson(ident));
    o.insert(QStringLiteral("idents"), idents);
    // The ids of the reports this line caused, to tie lines to reports.
    QJsonArray ids;
    for (int id : data->remId.err)
        ids.append(id);
    o.insert(QStringLiteral("ids"), ids);
    return o;
}

} // namespace

QJsonArray ScriptLinter::linesJson(const QTextDocument &document)
{
    QJsonArray lines;
    int number = 1;
    for (QTextBlock block = document.firstBlock(); block.isValid();
         block = block.next(), ++number) {
        QJsonObject o;
        o.insert(QStringLiteral("line"), number);
        o.insert(QStringLiteral("text"), block.text());
        o.insert(QStringLiteral("state"), block.userState());
        QJsonArray formats;
        if (const QTextLayout *layout = block.layout()) {
            const auto ranges = layout->formats();
            for (const QTextLayout::FormatRange &range : ranges) {
                QJsonObject f;
                f.insert(QStringLiteral("start"), range.start);
                f.insert(QStringLiteral("length"), range.length);
                f.insert(QStringLiteral("format"), formatName(range.format));
                formats.append(f);
            }
        }
        o.insert(QStringLiteral("formats"), formats);
        o.insert(QStringLiteral("record"), recordJson(block));
        lines.append(o);
    }
    return lines;
}
