#ifndef SEMANTICTOKENS_H
#define SEMANTICTOKENS_H

#include <QJsonArray>
#include <QJsonObject>

class LspDocument;

// The analyser's colours as semantic tokens: each format range the
// highlighter left on a line becomes a token of the type its format
// stands for. The squiggles of errors, warnings and information are left
// to the diagnostics.
namespace SemanticTokens {

// The SemanticTokensLegend the tokens refer to.
QJsonObject legend();

// The encoded tokens of the analysed lines `firstLine` to `lastLine`, both
// included, at their places in the client's text.
QJsonArray encode(const LspDocument &document, int firstLine, int lastLine);

} // namespace SemanticTokens

#endif // SEMANTICTOKENS_H
