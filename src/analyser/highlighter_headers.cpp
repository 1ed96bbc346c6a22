// Alias and dialog headers, and the access level of an event header.
#include "msltextedit.h"

// Placeholders until the header parsers land.
void MslSyntaxHighlighter::parseAlias(const QString &str, int &cPos)
{
    cPos += 6;
    eatSpaces(str, cPos);
    eatNSpaces(str, cPos);
    eatSpaces(str, cPos);
}
void MslSyntaxHighlighter::parseDialog(const QString &str, int &cPos)
{
    cPos += 7;
    eatSpaces(str, cPos);
    eatNSpaces(str, cPos);
    eatSpaces(str, cPos);
}
bool MslSyntaxHighlighter::parsedAccessLevel(const QString &str, int &pos)
{
    const int colon = str.indexOf(QLatin1Char(':'));
    pos += (colon < 0 ? str.size() : colon) - pos + 1;
    return true;
}
