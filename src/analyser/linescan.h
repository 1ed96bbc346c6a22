#ifndef LINESCAN_H
#define LINESCAN_H

#include <QChar>
#include <QLatin1String>
#include <QString>
#include <QStringView>

// Small character tests shared by the line parsers. They work on raw
// positions that may run past the end of the line: a position outside the
// line holds no character, so no test matches there.

// The character at `pos`, or a null character outside the line.
inline QChar charAt(const QString &str, int pos)
{
    return (pos >= 0 && pos < str.size()) ? str.at(pos) : QChar();
}

inline bool isCharAt(const QString &str, int pos, char c)
{
    return pos >= 0 && pos < str.size() && str.at(pos) == QLatin1Char(c);
}

inline bool isWhiteAt(const QString &str, int pos)
{
    return pos >= 0 && pos < str.size() && str.at(pos).isSpace();
}

// Brackets and bars count only when white space or the end of the line
// follows them; the left side is the caller's business.
inline bool standsAsWord(const QString &str, int pos)
{
    return pos + 1 >= str.size() || (pos + 1 >= 0 && str.at(pos + 1).isSpace());
}

// `c` at `pos`, standing as a word on its right.
inline bool isWordAt(const QString &str, int pos, char c)
{
    return isCharAt(str, pos, c) && standsAsWord(str, pos);
}

// True if the two characters at `pos` are `a` and `b`.
inline bool isPairAt(const QString &str, int pos, char a, char b)
{
    return isCharAt(str, pos, a) && isCharAt(str, pos + 1, b);
}

// True if `word`, lower-cased as QString::toLower() does it, is `lower`.
// Plain ASCII, by far the common case, is compared in place; anything else
// takes the full lower-casing, which may change a word's length.
inline bool lowersTo(QStringView word, QLatin1String lower)
{
    for (const QChar c : word) {
        if (c.unicode() >= 0x80)
            return word.toString().toLower() == lower;
    }
    if (word.size() != lower.size())
        return false;
    for (qsizetype i = 0; i < word.size(); ++i) {
        char16_t c = word[i].unicode();
        if (c >= u'A' && c <= u'Z')
            c += u'a' - u'A';
        if (c != lower[i].unicode())
            return false;
    }
    return true;
}

#endif // LINESCAN_H
