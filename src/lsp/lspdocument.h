#ifndef LSPDOCUMENT_H
#define LSPDOCUMENT_H

#include "scriptfile.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QTextBlock>
#include <QVector>

#include <memory>
#include <optional>
#include <utility>

class MslSyntaxHighlighter;
class QTextDocument;

// A place in the client's text: zero-based line, and UTF-16 code units
// into the line, which are QString indices.
struct TextPosition
{
    int line = 0;
    int character = 0;
};

struct TextRange
{
    TextPosition start;
    TextPosition end;
};

// One report of the analyser as it stands now.
struct DocumentReport
{
    int id = 0;
    int line = 0;   // zero-based, where the line is now
    int column = 0; // zero-based, in the line
    int type = 0;
    QString block;
    QString message;
};

// One document a client has opened: a QTextDocument with the editor's
// analyser on it, as a tab has, fed with the client's edits.
//
// The text goes in after the highlighter is attached, so it is analysed
// once, and every edit goes through a QTextCursor, so that only the lines
// it touches (and those whose state it changes) are analysed again.
//
// A script stored as INI ("*.ini", any case) is analysed in the form the
// editor shows: its section headers dropped and its "key=" heads cut off.
// Its edits are applied to the client's text and the whole converted text
// is read again; only the stretch of it that differs goes into the
// analysed document. The client knows only its own text, so every place the
// features answer with goes through toClient(), and every place they are
// asked about through toAnalysed(); for any other script both keep the
// place as it is.
class LspDocument : public QObject
{
    Q_OBJECT

public:
    LspDocument(const QString &uri, const QString &path, const QString &text, int version,
                QObject *parent = nullptr);
    ~LspDocument() override;

    QString uri() const { return documentUri; }
    int version() const { return documentVersion; }
    void setVersion(int version) { documentVersion = version; }
    bool isIni() const { return iniSource != nullptr; }

    void replaceAll(const QString &text);
    // Positions outside the text are moved to its nearest place.
    void replaceRange(const TextRange &range, const QString &text);

    QTextDocument *textDocument() const { return document.get(); }
    // The block of a line, the last one for a line past the end.
    QTextBlock blockAt(int line) const;
    // The document position of a text position, clamped into the text.
    static int positionIn(const QTextDocument *doc, const TextPosition &at);

    // Where a place in the analysed text stands in the client's text.
    TextPosition toClient(const TextPosition &analysed) const;
    // Where a place in the client's text stands in the analysed text;
    // nothing for a place the analysis never sees: a section line, a key.
    std::optional<TextPosition> toAnalysed(const TextPosition &client) const;
    // The analysed lines within the client's lines `first` to `last`, both
    // included; the first is past the second when there are none.
    std::pair<int, int> analysedLines(int first, int last) const;

    // Every standing report, by line and column, in the analysed text.
    QVector<DocumentReport> reports() const;
    int reportCount() const { return int(standing.size()); }

private:
    void onUpdateError(int lineNum, int linePos, QString fname, QString block, QString id,
                       int type, QString err, int &errId);
    void onRemoveError(QVector<int> &errIds);
    void setAnalysedText(const QString &text);
    void readIniSource();

    QString documentUri;
    int documentVersion = 0;
    std::unique_ptr<QTextDocument> document;
    MslSyntaxHighlighter *highlighter = nullptr;
    // The client's own text of an INI script; null for any other.
    std::unique_ptr<QTextDocument> iniSource;
    // For an INI script, the origin of each analysed line, the last too.
    QVector<IniLineOrigin> origins;
    QHash<int, DocumentReport> standing;
    int lastId = 0;
};

#endif // LSPDOCUMENT_H
