#ifndef OUTLINE_H
#define OUTLINE_H

#include <QJsonArray>

class LspDocument;

// The script's blocks as the editor knows them from the analyser's
// records: the aliases, events and dialog tables, and the script groups
// around them, at their places in the client's text.
namespace Outline {

// FoldingRanges: each block or group that goes on over several lines,
// from its header to its last line.
QJsonArray foldingRanges(const LspDocument &document);

// DocumentSymbols: the aliases, events and dialogs as the object tree
// lists them, inside the script group they stand in.
QJsonArray symbols(const LspDocument &document);

} // namespace Outline

#endif // OUTLINE_H
