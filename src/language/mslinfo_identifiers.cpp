#include "mslinfo.h"

#include <QByteArray>
#include <QLatin1String>

#include <string>
#include <unordered_map>

namespace {
constexpr unsigned int unbounded = 4294967295u;
}

// The built-in identifiers that take arguments (identifiers.inc), ended
// by a row without a name.
const identifier *MslInfo::getIdentsList()
{
    static const identifier idents[] = {
#include "identifiers.inc"
        // The terminator keeps the unbounded maximum rather than 0.
        { nullptr, 0, unbounded, false, false, {} }
    };
    return idents;
}

// The count is judged before the property.
// The analyser asks for every identifier of every line, so the rows are
// found in a hash of the case-folded names rather than by a walk over the
// table. The asked name is folded char by char, which is what the
// case-insensitive comparison with a Latin-1 name does, so `$ſhort` (long
// s) still finds `$short`, as it always did; the first row of a name wins.
namespace {

const identifier *findIdent(const QString &ident)
{
    static const std::unordered_map<std::string, const identifier *> index = [] {
        std::unordered_map<std::string, const identifier *> rows;
        for (const identifier *row = MslInfo::getIdentsList(); row->name; ++row) {
            const QByteArray folded = QString::fromLatin1(row->name).toCaseFolded().toLatin1();
            rows.emplace(folded.toStdString(), row); // keeps the first row of a name
        }
        return rows;
    }();

    // Every name of the table folds to ASCII, so a character that does not
    // can match none of them.
    std::string folded(size_t(ident.size()), '\0');
    for (qsizetype i = 0; i < ident.size(); ++i) {
        char16_t c = ident.at(i).unicode();
        if (c >= u'A' && c <= u'Z')
            c += u'a' - u'A';
        else if (c >= 0x80 && (c = QChar(c).toCaseFolded().unicode()) >= 0x80)
            return nullptr;
        folded[size_t(i)] = char(c);
    }
    const auto it = index.find(folded);
    return it == index.end() ? nullptr : it->second;
}

} // namespace

MslInfo::IdentCheck MslInfo::isProperIdentArgs(QString &ident, unsigned int args, QString prop)
{
    const identifier *row = findIdent(ident);
    if (!row)
        return UnknownIdent;

    if (row->min > args)
        return TooFewArgs;
    if (args > row->max)
        return TooManyArgs;
    if (row->needsEven && args % 2 != 0)
        return WrongArgParity;
    if (row->needsOdd && args % 2 == 0)
        return WrongArgParity;

    if (prop.isEmpty())
        return IdentFits;
    for (const char *const *p = row->props; *p; ++p) {
        if (prop.compare(QLatin1String(*p), Qt::CaseInsensitive) == 0)
            return IdentFits;
    }
    return NoSuchProperty;
}
