#ifndef MSLINFO_H
#define MSLINFO_H

#include <QString>
#include <QStringList>
#include <QTextBlock>

class QAbstractItemModel;
class QObject;

// One row of the built-in identifier table: how many arguments an
// identifier takes and which properties it has.
struct identifier
{
    const char *name;        // with the '$', lower case; null ends the table
    unsigned int min;
    unsigned int max;        // 4294967295 means unbounded
    bool needsEven;
    bool needsOdd;
    const char *props[35];   // packed from the front, null-terminated
};

// The static vocabulary of mSL and the completion lists made from it.
// All operations are class-level; an MslInfo value carries no state.
class MslInfo
{
public:
    // Commands and control structures.
    static QStringList getAllMslCmds();
    static QStringList getAllMslCtrlStruc();
    static QStringList getAllMslCtrlStrucWithExp();

    // Identifier table and argument checking.
    enum IdentCheck {
        UnknownIdent = 0,   // not in the table: nothing to check
        IdentFits = 1,
        TooFewArgs = 2,
        TooManyArgs = 3,
        WrongArgParity = 4, // an odd count where an even one is needed, or the reverse
        NoSuchProperty = 5,
    };
    static const identifier *getIdentsList();
    static IdentCheck isProperIdentArgs(QString &ident, unsigned int args, QString prop);

    // Syntax tips.
    static QString getIdentSyntaxAt(QString name, int arg);

    // The completion lists, as models owned by `parent`; the editor's
    // popups over them are in MslCompleters.
    static QAbstractItemModel *getComProIds(QObject *parent);
    static QAbstractItemModel *getColorCodes(QObject *parent);
    static QAbstractItemModel *getIdentIds(QObject *parent, QTextBlock block);
    static QAbstractItemModel *getIdentPropProIds(QString ident, QObject *parent);
};

#endif // MSLINFO_H
