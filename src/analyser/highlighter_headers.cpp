// Alias and dialog headers, and the access level of an event header.
#include "msltextedit.h"

#include "devsettings.h"
#include "linescan.h"

void MslSyntaxHighlighter::parseAlias(const QString &str, int &cPos)
{
    bool isLocal = false;
    setFormat(cPos, 5, DevSettings::aliasFmt);
    cPos += 6;
    eatSpaces(str, cPos);

    // Only -l is a switch. Nothing has to follow it, so `-lfoo` is the
    // switch and the name `foo`; any other switch is taken as the name.
    if (cPos + 2 < str.length()
        && str.mid(cPos, 2).compare(QLatin1String("-l"), Qt::CaseInsensitive) == 0) {
        isLocal = true;
        setFormat(cPos, 2, DevSettings::aliasSwitchFmt);
        cPos += 2;
    }

    eatSpaces(str, cPos);
    const int start = cPos;
    // The name is not validated; it is coloured character by character.
    while (cPos < str.size() && !str.at(cPos).isSpace()) {
        setFormat(cPos, 1, DevSettings::aliasNameFmt);
        ++cPos;
    }
    saveStateAlias(str.mid(start, cPos - start), start, isLocal);
    eatSpaces(str, cPos);
}

void MslSyntaxHighlighter::parseDialog(const QString &str, int &cPos)
{
    bool isLocal = false;
    // Five letters coloured, as for `alias`: the closing `g` stays plain.
    setFormat(cPos, 5, DevSettings::dialogFmt);
    cPos += 6;
    eatSpaces(str, cPos);

    const bool hasSwitch = cPos + 2 < str.length() && isCharAt(str, cPos, '-')
                           && !isCharAt(str, cPos + 1, ' ');
    if (hasSwitch) {
        if (str.at(cPos + 1).toLower() == QLatin1Char('l')) {
            isLocal = true;
            setFormat(cPos, 2, DevSettings::dialogSwitchFmt);
            cPos += 2;
        } else {
            // The `-` itself stays uncoloured.
            cPos += 1;
        }

        // Whatever letters remain of the switch word are illegal, also
        // behind an -l (`-lx`). The message speaks of alias switches and
        // never closes its quote; it is read that way.
        const int start = cPos;
        while (cPos < str.size() && !str.at(cPos).isSpace()) {
            setFormat(cPos, 1, DevSettings::errFmt);
            ++cPos;
        }
        if (cPos > start) {
            throwError(WarningReport, start, QStringLiteral("dialog"),
                       QStringLiteral("Illegal alias switches: `") + str.mid(start, cPos - start));
        }
    }

    eatSpaces(str, cPos);
    const int start = cPos;
    while (cPos < str.size() && !str.at(cPos).isSpace()) {
        setFormat(cPos, 1, DevSettings::dialogNameFmt);
        ++cPos;
    }
    saveStateDialog(str.mid(start, cPos - start), start, isLocal);
    eatSpaces(str, cPos);
}

// Text from `pos` up to `colon`, or the rest of the line when there is no
// colon at or behind `pos`.
static QString textUpTo(const QString &str, int pos, int colon)
{
    if (colon < pos)
        return str.mid(pos);
    return str.mid(pos, colon - pos);
}

bool MslSyntaxHighlighter::parsedAccessLevel(const QString &str, int &pos)
{
    // The first colon of the whole line ends the level; the search does not
    // start at `pos`.
    QString accessLevel = textUpTo(str, pos, str.indexOf(QLatin1Char(':')));
    pos += accessLevel.length() + 1;

    // The prefix form on me:<level>:<event>:
    if (accessLevel.toLower() == QLatin1String("me")) {
        setFormat(pos - accessLevel.length() - 1, 2, DevSettings::onMePreFmt);
        accessLevel = textUpTo(str, pos, str.indexOf(QLatin1Char(':'), pos));
        pos += accessLevel.length() + 1;
    }

    // The level itself is never examined: any text up to the colon will do.
    return true;
}
