#ifndef DIAGNOSTICS_H
#define DIAGNOSTICS_H

#include "lspdocument.h"

#include <QByteArray>
#include <QHash>

// The analyser's reports as a client's diagnostics: every standing report
// of a document, by line and column. A report marks the token it starts
// at, up to the next white space; errors, warnings and information keep
// their severity, developer notes are hints whose message starts with
// their kind ("todo: ", ...).
//
// A document is published whole after every change, but an edit changes
// few of its reports: each diagnostic is kept as JSON text and made again
// only for a new report or one whose line has moved, in the analysed text
// or in the client's.
class DiagnosticList
{
public:
    // The JSON array of the document's diagnostics.
    QByteArray json(const LspDocument &document);

private:
    struct Entry
    {
        int line = -1;
        TextPosition origin; // where the line starts in the client's text
        QByteArray json;
    };
    QHash<int, Entry> entries; // by report id
};

#endif // DIAGNOSTICS_H
