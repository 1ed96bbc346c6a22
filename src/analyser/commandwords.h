#ifndef COMMANDWORDS_H
#define COMMANDWORDS_H

#include <QString>

#include <initializer_list>

// Tests on the first word of a command: is it one of the keywords that
// start a variable, a condition or an else? The word holds no white space.

// At most four of `.!/`, then one of `keywords`, then the end of the word.
bool isPrefixedKeyword(QStringView word, std::initializer_list<QLatin1String> keywords,
                       Qt::CaseSensitivity cs);

// `var`, case-sensitive.
bool isVarKeyword(QStringView word);
// `else`, in any case.
bool isElseKeyword(QStringView word);
// `if`, `elseif` or `while`, in any case.
bool isCtrlKeyword(QStringView word);

#endif // COMMANDWORDS_H
