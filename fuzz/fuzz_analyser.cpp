// Feeds arbitrary bytes through the real analyser on a real document: the
// bytes are decoded as the loader decodes a script file, split into lines by
// the document, analysed in full, then random lines are edited and
// re-analysed, as typing, pasting and undoing would.
//
// The reports go to two report stores: one files rows as they come, the
// other holds the rows of each edit's pass and puts them in place after
// it, as the report dock does. Their ids and lists must agree; a
// difference aborts, so that the fuzzer keeps the input.
//
// The edits are drawn from a generator seeded with a hash of the input, so
// a saved crash input replays exactly the same edits.

#include "devsettings.h"
#include "msltextedit.h"
#include "reportstore.h"
#include "scriptfile.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QStandardItemModel>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void disagree(const char *what)
{
    std::fprintf(stderr, "report stores disagree: %s\n", what);
    std::abort();
}

// Every cell of every row, as text.
QStringList rowsOf(const QStandardItemModel &m)
{
    QStringList rows;
    for (int row = 0; row < m.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < m.columnCount(); ++column)
            cells << m.data(m.index(row, column), Qt::EditRole).toString();
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

// One set of report lists, as the dock or tarnwick-lint keeps them.
struct Lists
{
    QStandardItemModel debug{0, ReportStore::DebugColumns};
    QStandardItemModel messages{0, ReportStore::MessagesColumns};
    ReportStore store{&debug, &messages};
};

// Hands the analyser's reports to both stores, sorted on the column the
// input chose, and answers with the ids the store gives.
class Sink : public QObject
{
public:
    Sink(MslSyntaxHighlighter *hl, int sortColumn, Qt::SortOrder order)
    {
        connect(hl, &MslSyntaxHighlighter::updateError, this,
                [=](int line, int col, QString file, QString block, QString, int type,
                    QString message, int &errId) {
                    held.store.holdRows();
                    errId = direct.store.addReport(line, col, file, block, type, message,
                                                   sortColumn, order);
                    if (held.store.addReport(line, col, file, block, type, message, sortColumn,
                                             order)
                        != errId)
                        disagree("ids");
                },
                Qt::DirectConnection);
        connect(hl, &MslSyntaxHighlighter::removeError, this,
                [this](QVector<int> &ids) {
                    held.store.holdRows();
                    direct.store.removeReports(ids);
                    held.store.removeReports(ids);
                },
                Qt::DirectConnection);
    }

    void checkAfterPass()
    {
        held.store.flushRows();
        if (held.store.count() != direct.store.count())
            disagree("count");
        if (rowsOf(held.debug) != rowsOf(direct.debug))
            disagree("Debug rows");
        if (rowsOf(held.messages) != rowsOf(direct.messages))
            disagree("Messages rows");
    }

    Lists direct;
    Lists held;
};

// Small and deterministic; quality hardly matters here.
class Dice
{
public:
    explicit Dice(const uint8_t *data, size_t size)
    {
        state = 1469598103934665603ULL;
        for (size_t i = 0; i < size; ++i)
            state = (state ^ data[i]) * 1099511628211ULL;
        state |= 1;
    }
    uint32_t next()
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return uint32_t(state >> 32);
    }
    int below(int n) { return n > 0 ? int(next() % uint32_t(n)) : 0; }

private:
    uint64_t state;
};

// Pieces that open and close the analyser's constructs, typed into lines.
const QStringList &pieces()
{
    static const QStringList list = {
        QStringLiteral("{"), QStringLiteral("}"), QStringLiteral(" | "), QStringLiteral("|"),
        QStringLiteral("$a("), QStringLiteral("("), QStringLiteral(")"), QStringLiteral(","),
        QStringLiteral("/*"), QStringLiteral("*/"), QStringLiteral(";"), QStringLiteral("$"),
        QStringLiteral("%var"), QStringLiteral("alias x {"), QStringLiteral("alias -l y"),
        QStringLiteral("on *:text:*:#:{"), QStringLiteral("on 1:dialog:d:init:0:{"),
        QStringLiteral("dialog d {"), QStringLiteral("button \"x\", 1, 2 3 4 5, ok"),
        QStringLiteral("if ("), QStringLiteral("elseif ("), QStringLiteral("else"),
        QStringLiteral("while ("), QStringLiteral(" == "), QStringLiteral(" && "),
        QStringLiteral("#g on"), QStringLiteral("#g end"), QStringLiteral("var %a = 1"),
        QStringLiteral("$iif("), QStringLiteral("$calc("), QStringLiteral(".prop"),
        QStringLiteral("echo -a x"), QStringLiteral("menu channel {"), QStringLiteral("raw 1:*:{"),
        QStringLiteral("\t"), QStringLiteral(" "), QStringLiteral("\n"), QStringLiteral("\r"),
        QString(QChar(0)), QString(QChar(0x3)), QString(QChar(0x2029)),
        QString(QChar(0xD800)), QString(QChar(0xDC00)), QString(QChar(0xFFFF)),
    };
    return list;
}

QTextCursor cursorInBlock(QTextDocument &doc, Dice &dice, QTextBlock &block)
{
    block = doc.findBlockByNumber(dice.below(doc.blockCount()));
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + dice.below(block.length()));
    return cursor;
}

void editOnce(QTextDocument &doc, Dice &dice)
{
    QTextBlock block;
    QTextCursor cursor = cursorInBlock(doc, dice, block);
    switch (dice.below(7)) {
    case 0: // type a piece
        cursor.insertText(pieces().at(dice.below(pieces().size())));
        break;
    case 1: // delete a stretch of the line
        cursor.setPosition(block.position() + dice.below(block.length()),
                           QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        break;
    case 2: // join with the next line
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.deleteChar();
        break;
    case 3: // split the line
        cursor.insertText(QStringLiteral("\n"));
        break;
    case 4: { // paste a copy of another line, perhaps many times over
        const QString copy = doc.findBlockByNumber(dice.below(doc.blockCount())).text();
        const int times = copy.size() > 4096 ? 1 : 1 + dice.below(4);
        cursor.insertText(copy.repeated(times));
        break;
    }
    case 5: // drop the whole line
        cursor.select(QTextCursor::BlockUnderCursor);
        cursor.removeSelectedText();
        break;
    default:
        doc.undo();
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(*argc, *argv);
    DevSettings::InitializeAllSettings();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Dice dice(data, size);

    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    const bool ini = dice.below(4) == 0;
    const QString text = readScriptText(device, ini);

    // The text goes in first and is analysed once in full, as a tab opening
    // a file does it (the highlighter's own first pass would wait for an
    // event loop that never runs here).
    QTextDocument doc;
    doc.setPlainText(text);
    auto *hl = new MslSyntaxHighlighter(&doc);
    // Column -1 leaves the order alone; 0 descending is a fresh view's.
    const int sortColumn = dice.below(7) - 1;
    Sink sink(hl, sortColumn, dice.below(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
    hl->setFn(ini ? QStringLiteral("/fuzz/input.ini") : QStringLiteral("/fuzz/input.mrc"));
    hl->rehighlight();
    sink.checkAfterPass();

    // Every edit is analysed at once, through the document's own signal.
    const int edits = 1 + dice.below(8);
    for (int i = 0; i < edits; ++i) {
        editOnce(doc, dice);
        sink.checkAfterPass();
    }
    if (dice.below(2) == 0) {
        hl->rehighlight();
        sink.checkAfterPass();
    }
    return 0;
}
