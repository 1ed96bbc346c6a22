// Command lines, variables and the small scanners every parser shares.
#include "msltextedit.h"

void MslSyntaxHighlighter::eatSpaces(const QString &str, int &pos)
{
    while (pos < str.size() && str[pos].isSpace())
        ++pos;
}

void MslSyntaxHighlighter::eatNSpaces(const QString &str, int &pos)
{
    while (pos < str.size() && !str[pos].isSpace())
        ++pos;
}

QString MslSyntaxHighlighter::getToken(const QString &str, int &pos, bool orComma)
{
    eatSpaces(str, pos);
    const int start = pos;
    while (pos < str.size() && !str[pos].isSpace() && !(orComma && str[pos] == QLatin1Char(',')))
        ++pos;
    return str.mid(start, pos - start);
}

bool MslSyntaxHighlighter::isNumeric(const QString &str)
{
    for (const QChar c : str) {
        if (!c.isDigit())
            return false;
    }
    return true;
}

// Placeholders until the command-line parser lands.
void MslSyntaxHighlighter::parseVar(const QString &, int &) {}
void MslSyntaxHighlighter::parseVarInId(const QString &, int &) {}
void MslSyntaxHighlighter::parseVarInVCmd(const QString &, int &) {}
void MslSyntaxHighlighter::parseCmdLine(const QString &, int &, int &) {}
void MslSyntaxHighlighter::parseVarCmd(const QString &, int &, int &) {}
