#include "commandwords.h"

// The first word of a command holds no white space, so each keyword
// pattern of the settings (`^ *[.!/]{0,4}(if|elseif|while)( |$)` and its
// kin) comes down to: at most four of `.!/`, then the keyword, then the end
// of the word. Every command of every line is put to these tests, which is
// why they are spelled out rather than matched. A case-insensitive keyword
// compares by simple case folding, as the patterns' caseless matching does
// (so `elſe`, with a long s, is an else).
bool isPrefixedKeyword(QStringView word, std::initializer_list<QLatin1String> keywords,
                       Qt::CaseSensitivity cs)
{
    int start = 0;
    while (start < word.size() && start < 5
           && (word.at(start) == QLatin1Char('.') || word.at(start) == QLatin1Char('!')
               || word.at(start) == QLatin1Char('/')))
        ++start;
    if (start > 4)
        return false;
    const int length = int(word.size()) - start;
    for (const QLatin1String keyword : keywords) {
        if (keyword.size() != length)
            continue;
        bool same = true;
        for (int i = 0; i < length && same; ++i) {
            const QChar c = word.at(start + i);
            const QChar k = QLatin1Char(keyword.at(i));
            same = c == k || (cs == Qt::CaseInsensitive && c.toCaseFolded() == k);
        }
        if (same)
            return true;
    }
    return false;
}

bool isVarKeyword(QStringView word)
{
    return isPrefixedKeyword(word, {QLatin1String("var")}, Qt::CaseSensitive);
}

bool isElseKeyword(QStringView word)
{
    return isPrefixedKeyword(word, {QLatin1String("else")}, Qt::CaseInsensitive);
}

bool isCtrlKeyword(QStringView word)
{
    return isPrefixedKeyword(word, {QLatin1String("if"), QLatin1String("elseif"),
                                    QLatin1String("while")},
                             Qt::CaseInsensitive);
}
