#include "lspdocument.h"

#include "headlesslayout.h"
#include "msltextedit.h"
#include "scriptfile.h"

#include <QBuffer>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

QTextDocument *newDocument()
{
    auto *doc = new QTextDocument;
    // The client keeps the history; an undo stack here would only grow.
    doc->setUndoRedoEnabled(false);
    HeadlessLayout::install(doc);
    return doc;
}

void applyEdit(QTextDocument *doc, int from, int to, const QString &text)
{
    QTextCursor cursor(doc);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

} // namespace

LspDocument::LspDocument(const QString &uri, const QString &path, const QString &text,
                         int version, QObject *parent)
    : QObject(parent)
    , documentUri(uri)
    , documentVersion(version)
    , document(newDocument())
{
    // As a tab: the highlighter goes on while the document is empty.
    highlighter = new MslSyntaxHighlighter(document.get());
    connect(highlighter, &MslSyntaxHighlighter::updateError, this,
            &LspDocument::onUpdateError, Qt::DirectConnection);
    connect(highlighter, &MslSyntaxHighlighter::removeError, this,
            &LspDocument::onRemoveError, Qt::DirectConnection);
    highlighter->setFn(path);
    if (isIniScriptName(path))
        iniSource.reset(newDocument());
    replaceAll(text);
}

LspDocument::~LspDocument()
{
    // The lines withdraw their reports as they go; nobody listens now.
    disconnect(highlighter, nullptr, this, nullptr);
}

void LspDocument::replaceAll(const QString &text)
{
    if (iniSource) {
        iniSource->setPlainText(text);
        readIniSource();
    } else {
        setAnalysedText(text);
    }
}

void LspDocument::setAnalysedText(const QString &text)
{
    // Only the stretch that differs goes in: an INI script is read again
    // whole after every change, and must still be analysed again only
    // where it changed.
    QString old = document->toRawText();
    old.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    const int shorter = int(qMin(old.size(), text.size()));
    int head = 0;
    while (head < shorter && old.at(head) == text.at(head))
        ++head;
    int tail = 0;
    while (tail < shorter - head
           && old.at(old.size() - 1 - tail) == text.at(text.size() - 1 - tail))
        ++tail;
    // A surrogate pair is never cut in two.
    if (head > 0 && text.at(head - 1).isHighSurrogate())
        --head;
    if (tail > 0 && text.at(text.size() - tail).isLowSurrogate())
        --tail;
    applyEdit(document.get(), head, int(old.size()) - tail,
              text.mid(head, text.size() - head - tail));
}

void LspDocument::replaceRange(const TextRange &range, const QString &text)
{
    // An INI script is read again whole: a change to a "[section]" line
    // or a "key=" head moves text in and out of the analysed form.
    QTextDocument *target = iniSource ? iniSource.get() : document.get();
    int from = positionIn(target, range.start);
    int to = positionIn(target, range.end);
    if (from > to)
        std::swap(from, to);
    applyEdit(target, from, to, text);
    if (iniSource)
        readIniSource();
}

void LspDocument::readIniSource()
{
    QString raw = iniSource->toRawText();
    raw.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    QByteArray bytes = raw.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QString text = readScriptText(buffer, true, &origins);
    // The reading takes a byte order mark for no character of the line.
    if (raw.startsWith(QChar(0xfeff)) && !origins.isEmpty() && origins.first().line == 0)
        ++origins.first().cut;
    // The empty line the form ends with stands for the end of the text.
    const QTextBlock last = iniSource->lastBlock();
    origins.append({last.blockNumber(), last.length() - 1});
    setAnalysedText(text);
}

TextPosition LspDocument::toClient(const TextPosition &analysed) const
{
    if (!iniSource || origins.isEmpty())
        return analysed;
    const IniLineOrigin &origin = origins.at(qBound(0, analysed.line, int(origins.size()) - 1));
    return {origin.line, analysed.character + origin.cut};
}

std::optional<TextPosition> LspDocument::toAnalysed(const TextPosition &client) const
{
    if (!iniSource)
        return client;
    const auto it = std::lower_bound(
        origins.cbegin(), origins.cend(), client.line,
        [](const IniLineOrigin &origin, int line) { return origin.line < line; });
    if (it == origins.cend() || it->line != client.line || client.character < it->cut)
        return std::nullopt;
    return TextPosition{int(it - origins.cbegin()), client.character - it->cut};
}

std::pair<int, int> LspDocument::analysedLines(int first, int last) const
{
    if (!iniSource)
        return {first, last};
    const auto from = std::lower_bound(
        origins.cbegin(), origins.cend(), first,
        [](const IniLineOrigin &origin, int line) { return origin.line < line; });
    const auto to = std::upper_bound(
        origins.cbegin(), origins.cend(), last,
        [](int line, const IniLineOrigin &origin) { return line < origin.line; });
    return {int(from - origins.cbegin()), int(to - origins.cbegin()) - 1};
}

QTextBlock LspDocument::blockAt(int line) const
{
    if (line < 0)
        return document->firstBlock();
    if (line >= document->blockCount())
        return document->lastBlock();
    return document->findBlockByNumber(line);
}

int LspDocument::positionIn(const QTextDocument *doc, const TextPosition &at)
{
    if (at.line < 0)
        return 0;
    if (at.line >= doc->blockCount())
        return doc->characterCount() - 1;
    const QTextBlock block = doc->findBlockByNumber(at.line);
    return block.position() + qBound(0, at.character, block.length() - 1);
}

void LspDocument::onUpdateError(int lineNum, int linePos, QString, QString block, QString,
                                int type, QString err, int &errId)
{
    errId = ++lastId;
    DocumentReport report;
    report.id = errId;
    report.line = lineNum - 1;
    report.column = linePos;
    report.type = type;
    report.block = block;
    report.message = err;
    standing.insert(errId, report);
}

void LspDocument::onRemoveError(QVector<int> &errIds)
{
    for (int id : std::as_const(errIds))
        standing.remove(id);
}

QVector<DocumentReport> LspDocument::reports() const
{
    QVector<DocumentReport> all;
    all.reserve(standing.size());
    if (!standing.isEmpty()) {
        // A report keeps the line number it was filed with, but lines
        // inserted or removed above move it; the line that holds its id in
        // its record is where it stands now.
        int line = 0;
        for (QTextBlock block = document->firstBlock(); block.isValid();
             block = block.next(), ++line) {
            const CBlockData *data = recordOf(block);
            if (!data)
                continue;
            for (int id : data->remId.err) {
                auto it = standing.constFind(id);
                if (it == standing.constEnd())
                    continue;
                all.append(*it);
                all.last().line = line;
            }
        }
    }
    std::sort(all.begin(), all.end(), [](const DocumentReport &a, const DocumentReport &b) {
        if (a.line != b.line)
            return a.line < b.line;
        if (a.column != b.column)
            return a.column < b.column;
        return a.id < b.id;
    });
    return all;
}
