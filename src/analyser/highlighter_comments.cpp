// Inlined comments and developer notes.
#include "msltextedit.h"

// Placeholders until the comment parsers land.
void MslSyntaxHighlighter::parseSingLineComment(const QString &str, int &pos, int &)
{
    pos = str.size();
}
void MslSyntaxHighlighter::parseMultiLineComment(const QString &str, int &pos, int &)
{
    pos = str.size();
}
void MslSyntaxHighlighter::doMessageCheck(const QString &, int, Comment) {}
