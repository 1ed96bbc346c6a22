// The analyser's fast lookups against what they stand for: the keyword
// tests on a command's first word against the settings' patterns, and the
// identifier index against a walk over the identifier table. Both sides
// see every BMP character in every place of the words that matter.

#include "commandwords.h"
#include "devsettings.h"
#include "linescan.h"
#include "mslinfo.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

bool matchesAtStart(const QRegularExpression &rx, const QString &word)
{
    const QRegularExpressionMatch m = rx.match(word);
    return m.hasMatch() && m.capturedStart() == 0;
}

// The first rule a command's first word can meet: no white space inside.
bool canBeFirstWord(const QString &word)
{
    for (const QChar c : word) {
        if (c.isSpace())
            return false;
    }
    return !word.isEmpty();
}

// Every BMP character that can stand in a word, without lone surrogates,
// and a few surrogate pairs whose case folds.
QStringList everyCharacter()
{
    QStringList chars;
    for (uint u = 1; u <= 0xFFFF; ++u) {
        if (u >= 0xD800 && u <= 0xDFFF)
            continue;
        const QChar c{char16_t(u)};
        if (!c.isSpace())
            chars.append(QString(c));
    }
    for (char32_t u : {U'\U00010400', U'\U00010428', U'\U0001E900', U'\U0001F600'})
        chars.append(QString::fromUcs4(&u, 1));
    return chars;
}

// Hands `visit` the words the keyword tests are tried on: each base, and
// the base with every character put in place of each of its characters,
// in front of each, and at its end.
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

// The identifier row a case-insensitive walk over the table finds.
const identifier *walkTable(const QString &name)
{
    const identifier *row = MslInfo::getIdentsList();
    while (row->name && name.compare(QLatin1String(row->name), Qt::CaseInsensitive) != 0)
        ++row;
    return row->name ? row : nullptr;
}

// isProperIdentArgs as it reads on a walk over the table.
int properArgsByWalk(const QString &name, unsigned int args, const QString &prop)
{
    const identifier *row = walkTable(name);
    if (!row)
        return 0;
    if (row->min > args)
        return 2;
    if (args > row->max)
        return 3;
    if ((row->needsEven && args % 2 != 0) || (row->needsOdd && args % 2 == 0))
        return 4;
    if (prop.isEmpty())
        return 1;
    for (const char *const *p = row->props; *p; ++p) {
        if (prop.compare(QLatin1String(*p), Qt::CaseInsensitive) == 0)
            return 1;
    }
    return 5;
}

} // namespace

class TestLookups : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void keywordWords_data();
    void keywordWords();
    void keywordsAgainstPatterns();
    void lowersToAgainstToLower();
    void identIndexAgainstWalk_data();
    void identIndexAgainstWalk();
    void identIndexEveryCharacter();

private:
    QStringList chars;
};

void TestLookups::initTestCase()
{
    DevSettings::InitializeAllSettings();
    chars = everyCharacter();
}

void TestLookups::keywordWords_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("var");
    QTest::addColumn<bool>("elseWord");
    QTest::addColumn<bool>("ctrl");

    QTest::newRow("var") << "var" << true << false << false;
    QTest::newRow("VAR is no var") << "VAR" << false << false << false;
    QTest::newRow("four prefixes") << "./!.var" << true << false << false;
    QTest::newRow("five prefixes") << "./!./var" << false << false << false;
    QTest::newRow("variable") << "variable" << false << false << false;
    QTest::newRow("Else") << "Else" << false << true << false;
    QTest::newRow("long s") << QString::fromUtf8("el\u017Fe") << false << true << false;
    QTest::newRow("ElseIf") << "!ElseIf" << false << false << true;
    QTest::newRow("while") << "WHILE" << false << false << true;
    QTest::newRow("iff") << "iff" << false << false << false;
    QTest::newRow("empty after prefix") << "!!" << false << false << false;
}

void TestLookups::keywordWords()
{
    QFETCH(QString, word);
    QFETCH(bool, var);
    QFETCH(bool, elseWord);
    QFETCH(bool, ctrl);
    QCOMPARE(isVarKeyword(word), var);
    QCOMPARE(isElseKeyword(word), elseWord);
    QCOMPARE(isCtrlKeyword(word), ctrl);
}

void TestLookups::keywordsAgainstPatterns()
{
    const QStringList bases = {
        QStringLiteral("var"), QStringLiteral("else"), QStringLiteral("if"),
        QStringLiteral("elseif"), QStringLiteral("while"), QStringLiteral("/.!.var"),
        QStringLiteral("..else"), QStringLiteral("!!!!if"), QStringLiteral("!!!!!if"),
    };
    int checked = 0;
    int keywords = 0;
    QString mismatch;
    forEachVariant(bases, chars, [&](const QString &word) {
        if (!mismatch.isEmpty() || !canBeFirstWord(word))
            return;
        ++checked;
        const bool var = matchesAtStart(DevSettings::varRgx, word);
        const bool elseWord = matchesAtStart(DevSettings::ctrlElseRgx, word);
        const bool ctrl = matchesAtStart(DevSettings::ctrlRgx, word);
        keywords += var + elseWord + ctrl;
        if (isVarKeyword(word) != var || isElseKeyword(word) != elseWord
            || isCtrlKeyword(word) != ctrl) {
            mismatch = QStringLiteral("\"%1\" (%2): patterns say var %3 else %4 ctrl %5")
                           .arg(word, QString::fromLatin1(word.toUtf8().toHex(' ')))
                           .arg(var)
                           .arg(elseWord)
                           .arg(ctrl);
        }
    });
    QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    QVERIFY(checked > 1000000);
    // Case variants of each keyword, plus the bases themselves.
    QVERIFY(keywords > 100);
}

void TestLookups::lowersToAgainstToLower()
{
    const QStringList words = {QStringLiteral("$calc"), QStringLiteral("$iif"),
                               QStringLiteral("rem")};
    int equal = 0;
    QString mismatch;
    forEachVariant(words, chars, [&](const QString &word) {
        for (const QString &lower : words) {
            const bool expected = word.toLower() == lower;
            equal += expected;
            if (mismatch.isEmpty() && lowersTo(word, QLatin1String(lower.toLatin1())) != expected)
                mismatch = word + QStringLiteral(" against ") + lower;
        }
    });
    QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    QVERIFY(equal > 20);
}

void TestLookups::identIndexAgainstWalk_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("prop");

    for (const identifier *row = MslInfo::getIdentsList(); row->name; ++row) {
        const QString name = QString::fromLatin1(row->name);
        const QString prop = row->props[0] ? QString::fromLatin1(row->props[0]) : QString();
        QTest::addRow("%s", row->name) << name << prop;
        QTest::addRow("%s upper", row->name) << name.toUpper() << prop.toUpper();
        QTest::addRow("%s unknown prop", row->name) << name << QStringLiteral("nosuch");
    }
    QTest::newRow("unknown") << "$nosuchident" << "";
    QTest::newRow("without dollar") << "len" << "";
    QTest::newRow("empty") << "" << "";
    QTest::newRow("long s") << QString::fromUtf8("$\u017Fock") << "mark";
    QTest::newRow("kelvin") << QString::fromUtf8("$tic\u212As") << "";
    QTest::newRow("dotted capital I") << QString::fromUtf8("$\u0130if") << "";
}

void TestLookups::identIndexAgainstWalk()
{
    QFETCH(QString, name);
    QFETCH(QString, prop);
    for (unsigned int args = 0; args <= 8; ++args) {
        QString asked = name;
        QCOMPARE(MslInfo::isProperIdentArgs(asked, args, prop),
                 properArgsByWalk(name, args, prop));
        QCOMPARE(asked, name);
    }
    QString asked = name;
    QCOMPARE(MslInfo::isProperIdentArgs(asked, 4294967295u, QString()),
             properArgsByWalk(name, 4294967295u, QString()));
}

void TestLookups::identIndexEveryCharacter()
{
    // Names with the letters whose case has relatives outside ASCII.
    const QStringList names = {QStringLiteral("$sock"), QStringLiteral("$ticks"),
                               QStringLiteral("$iif")};
    int found = 0;
    for (const QString &base : names) {
        for (const QString &c : chars) {
            for (int i = 0; i < base.size(); ++i) {
                const QString name = base.left(i) + c + base.mid(i + 1);
                QString asked = name;
                const int byIndex = MslInfo::isProperIdentArgs(asked, 1, QString());
                if (byIndex != properArgsByWalk(name, 1, QString()))
                    QFAIL(qPrintable(QStringLiteral("%1 (%2)").arg(name).arg(c.at(0).unicode())));
                found += byIndex != 0;
            }
        }
    }
    QVERIFY(found > 20);
}

QTEST_MAIN(TestLookups)
#include "tst_lookups.moc"
