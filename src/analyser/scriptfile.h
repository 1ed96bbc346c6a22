#ifndef SCRIPTFILE_H
#define SCRIPTFILE_H

#include <QFileInfo>
#include <QIODevice>
#include <QString>

// Reading a script file as an editor tab shows it: UTF-8, and for a name
// ending in ".ini" (any case) the INI form, whose section headers are
// dropped and whose "key=" heads are cut off. The analyser's command-line
// front end reads files through the same road.

// True for a name of at least 4 characters whose last 4, lowered, are ".ini".
bool isIniScriptName(const QString &fileName);

// The text of the script, as it goes into the document. A file that
// cannot be opened gives an empty text.
QString loadScriptText(const QFileInfo &fileName);

// The same decoding over an open device, in the INI form when `ini`.
QString readScriptText(QIODevice &device, bool ini);

#endif // SCRIPTFILE_H
