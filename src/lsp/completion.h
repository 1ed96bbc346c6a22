#ifndef COMPLETION_H
#define COMPLETION_H

#include <QJsonArray>

class LspDocument;
struct TextPosition;

// The lists the editor offers while typing, by what stands left of the
// cursor: the colour codes after Ctrl+K's character, the properties of
// `$ident(...).`, the identifiers (the document's own aliases included)
// after `$`, and the COM ProgIDs in the third word of `comopen`.
namespace Completion {

// CompletionItems for `at`, a place in the analysed text; empty where the
// editor offers nothing.
QJsonArray items(const LspDocument &document, const TextPosition &at);

} // namespace Completion

#endif // COMPLETION_H
