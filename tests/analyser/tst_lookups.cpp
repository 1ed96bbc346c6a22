// The analyser's fast lookups against the patterns they stand for, with
// every BMP character in every place of the words that matter.

#include "analyserharness.h"
#include "commandwords.h"
#include "devsettings.h"
#include "linescan.h"
#include "testsuite.h"

#include <QtTest>

namespace {

// Every BMP character but lone surrogates and white space, and a few
// surrogate pairs whose case folds.
QStringList everyCharacter()
{
    QStringList chars;
    for (uint u = 1; u <= 0xFFFF; ++u) {
        if (!QChar::isSurrogate(u) && !QChar(char16_t(u)).isSpace())
            chars << QString(QChar(char16_t(u)));
    }
    for (char32_t u : {U'\U00010400', U'\U00010428', U'\U0001E900', U'\U0001F600'})
        chars << QString::fromUcs4(&u, 1);
    return chars;
}

// Each base, and the base with every character in place of each of its
// characters, in front of each, and at its end.
template<typename Visit>
void forEachVariant(const QStringList &bases, const QStringList &chars, Visit visit)
{
    for (const QString &base : bases) {
        visit(base);
        for (const QString &c : chars) {
            for (int i = 0; i < base.size(); ++i) {
                visit(base.left(i) + c + base.mid(i + 1));
                visit(base.left(i) + c + base.mid(i));
            }
            visit(base + c);
        }
    }
}

// The length of the first command pattern's match, walking the patterns in
// their order: what the fast lookup must answer.
int patternMatchLength(const QString &word)
{
    for (const QRegularExpression &rx : std::as_const(DevSettings::cmdRgx)) {
        const QRegularExpressionMatch m = rx.match(word);
        if (m.hasMatch())
            return m.capturedLength();
    }
    return -1;
}

bool matchesAtStart(const QRegularExpression &rx, const QString &word)
{
    const QRegularExpressionMatch m = rx.match(word);
    return m.hasMatch() && m.capturedStart() == 0;
}

} // namespace

class AnalyserLookups : public QObject
{
    Q_OBJECT

    QStringList chars;

private slots:
    void initTestCase()
    {
        AnalyserHarness::ensureSettings();
        chars = everyCharacter();
    }

    void commandNames()
    {
        QStringList names;
        for (const QRegularExpression &rx : DevSettings::cmdRgx) {
            const QString p = rx.pattern();
            names << p.mid(p.indexOf('(') + 1, p.indexOf(')') - p.indexOf('(') - 1);
        }
        // Every character behind a name, and each character the patterns
        // take for a letter in place of each letter of each name.
        QStringList words = {"..!/echo", "./!./echo", " /!echo"};
        for (const QString &c : std::as_const(chars))
            words << QStringLiteral("echo") + c;
        const QRegularExpression letter(QStringLiteral("^[a-z]$"),
                                        QRegularExpression::CaseInsensitiveOption
                                            | QRegularExpression::UseUnicodePropertiesOption);
        const QStringList letterLike = chars.filter(letter);
        QVERIFY(letterLike.size() >= 52);
        for (const QString &name : std::as_const(names)) {
            words << name.toUpper() << name.chopped(1) << name + QStringLiteral("s");
            for (int i = 0; i < name.size(); ++i) {
                for (const QString &c : letterLike)
                    words << name.left(i) + c + name.mid(i + 1);
            }
        }
        int matched = 0;
        QStringList wrong;
        for (const QString &w : std::as_const(words)) {
            const int walk = patternMatchLength(w);
            if (walk != DevSettings::commandMatchLength(w))
                wrong << QStringLiteral("%1: walk %2").arg(w).arg(walk);
            matched += walk >= 0;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY(matched > 1000 && words.size() - matched > 1000);
    }

    void keywordsAndLowerCasing()
    {
        int keywords = 0;
        QString wrong;
        forEachVariant(
            {"var", "else", "if", "elseif", "while", "/.!.var", "..else", "!!!!if", "!!!!!if"},
            chars, [&](const QString &word) {
                const bool var = matchesAtStart(DevSettings::varRgx, word);
                const bool elseWord = matchesAtStart(DevSettings::ctrlElseRgx, word);
                const bool ctrl = matchesAtStart(DevSettings::ctrlRgx, word);
                keywords += var + elseWord + ctrl;
                if (isVarKeyword(word) != var || isElseKeyword(word) != elseWord
                    || isCtrlKeyword(word) != ctrl)
                    wrong = word;
            });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY(keywords > 100);

        int equal = 0;
        const QStringList words = {"$calc", "$iif", "rem"};
        forEachVariant(words, chars, [&](const QString &word) {
            for (const QString &lower : words) {
                equal += word.toLower() == lower;
                if (lowersTo(word, QLatin1String(lower.toLatin1())) != (word.toLower() == lower))
                    wrong = word + QStringLiteral(" against ") + lower;
            }
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY(equal > 20);
    }
};

TARNWICK_TEST(AnalyserLookups);
#include "tst_lookups.moc"
