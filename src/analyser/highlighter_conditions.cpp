// if / elseif / while / else and their conditions.
#include "msltextedit.h"

// Placeholders until the condition parser lands.
void MslSyntaxHighlighter::parseIf(const QString &str, int &pos, int &)
{
    pos = str.size();
}
void MslSyntaxHighlighter::parseElse(const QString &str, int &pos, int &)
{
    pos = str.size();
}
void MslSyntaxHighlighter::parseIfCond(const QString &str, int &pos, int &, bool)
{
    pos = str.size();
}
bool MslSyntaxHighlighter::isValidOper(const QString &)
{
    return false;
}
