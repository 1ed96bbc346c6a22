// Feeds arbitrary bytes through the real analyser on a real document: the
// bytes are decoded as the loader decodes a script, analysed in full, then a
// few lines are edited and re-analysed, as typing would.

#include "devsettings.h"
#include "msltextedit.h"

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cstdint>
#include <cstdlib>

namespace {

// Hands out ids like the report dock and forgets them again, so that the
// analyser's out-argument and withdrawal paths run as in the editor.
class Sink : public QObject
{
public:
    explicit Sink(MslSyntaxHighlighter *hl)
    {
        connect(hl, &MslSyntaxHighlighter::updateError, this,
                [this](int, int, QString, QString, QString, int, QString, int &errId) {
                    errId = ++next;
                    ++standing;
                },
                Qt::DirectConnection);
        connect(hl, &MslSyntaxHighlighter::removeError, this,
                [this](QVector<int> &ids) { standing -= ids.size(); }, Qt::DirectConnection);
    }
    int next = 1;
    long standing = 0;
};

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
    // The first two bytes steer the edits; the rest is the script.
    const uint8_t steer = size > 0 ? data[0] : 0;
    const uint8_t where = size > 1 ? data[1] : 0;
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));

    QTextDocument doc;
    auto *hl = new MslSyntaxHighlighter(&doc);
    Sink sink(hl);
    doc.setPlainText(text);
    hl->setFn(QStringLiteral("/fuzz/input.mrc"));
    hl->rehighlight();

    const int blocks = doc.blockCount();
    if (blocks > 0) {
        QTextCursor cursor(doc.findBlockByNumber(where % blocks));
        switch (steer % 4) {
        case 0: cursor.insertText(QStringLiteral(" | echo $a( {")); break;
        case 1: cursor.insertText(QStringLiteral("}\n")); break;
        case 2:
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
            break;
        default: cursor.insertText(QStringLiteral("alias x {\n")); break;
        }
    }
    return 0;
}
