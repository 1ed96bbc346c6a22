#ifndef LANGUAGEHELP_H
#define LANGUAGEHELP_H

#include <QJsonValue>

class LspDocument;
struct TextPosition;

// What the editor shows about the identifier under the cursor: its syntax
// as a hover, and as a call tip with the argument being typed. `at` is a
// place in the analysed text.
namespace LanguageHelp {

// A Hover for the `$ident(` at `at`, or null.
QJsonValue hover(const LspDocument &document, const TextPosition &at);

// A SignatureHelp for the call `at` stands in, or null.
QJsonValue signatureHelp(const LspDocument &document, const TextPosition &at);

} // namespace LanguageHelp

#endif // LANGUAGEHELP_H
