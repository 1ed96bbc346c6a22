#ifndef SCRIPTFILE_H
#define SCRIPTFILE_H

#include <QFileInfo>
#include <QIODevice>
#include <QString>
#include <QVector>

// Reading a script file as an editor tab shows it: UTF-8, and for a name
// ending in ".ini" (any case) the INI form, whose section headers are
// dropped and whose "key=" heads are cut off. The analyser's command-line
// front end reads files through the same road.

// True for a name of at least 4 characters whose last 4, lowered, are ".ini".
bool isIniScriptName(const QString &fileName);

// The text of the script, as it goes into the document. A file that
// cannot be opened gives an empty text.
QString loadScriptText(const QFileInfo &fileName);

// Where a line of the INI form comes from: the file's line (zero-based),
// and how many characters were cut from its front.
struct IniLineOrigin
{
    int line = 0;
    int cut = 0;
};

// The same decoding over an open device, in the INI form when `ini`. For
// the INI form, `origins` (when given) receives one entry per line of the
// text but its last, empty one; it is left empty for the plain form.
QString readScriptText(QIODevice &device, bool ini, QVector<IniLineOrigin> *origins = nullptr);

#endif // SCRIPTFILE_H
