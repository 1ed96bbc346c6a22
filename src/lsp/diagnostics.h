#ifndef DIAGNOSTICS_H
#define DIAGNOSTICS_H

#include <QJsonArray>
#include <QString>

class LspDocument;

// The analyser's reports as a client's diagnostics.
namespace Diagnostics {

// Every standing report of the document, by line and column. A report
// marks the token it starts at, up to the next white space; errors,
// warnings and information keep their severity, developer notes are
// hints whose message starts with their kind ("todo: ", ...).
QJsonArray of(const LspDocument &document);

} // namespace Diagnostics

#endif // DIAGNOSTICS_H
