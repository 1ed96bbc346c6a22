#ifndef MSLINFO_H
#define MSLINFO_H

#include <QString>
#include <QStringList>
#include <QTextBlock>

class QAbstractItemModel;
class QCompleter;
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

// The static vocabulary of mSL and the completion models made from it.
// All operations are class-level; an MslInfo value carries no state.
class MslInfo
{
public:
    // Commands and control structures.
    static QStringList getAllMslCmds();
    static QStringList getAllMslCtrlStruc();
    static QStringList getAllMslCtrlStrucWithExp();

    // Identifier table and argument checking.
    static const identifier *getIdentsList();
    static int isProperIdentArgs(QString &ident, unsigned int args, QString prop);

    // Syntax tips.
    static QString getIdentSyntaxAt(QString name, int arg);

    // Completers and their models.
    static QCompleter *getComCompleter(QObject *parent);
    static QCompleter *getIdentPropCompleter(QObject *parent);
    static QCompleter *getIdentCompleter(QObject *parent);
    static QCompleter *getColorCompleter(QObject *parent);
    static QAbstractItemModel *getComProIds(QObject *parent);
    static QAbstractItemModel *getColorCodes(QObject *parent);
    static QAbstractItemModel *getIdentIds(QObject *parent, QTextBlock block);
    static QAbstractItemModel *getIdentPropProIds(QString ident, QObject *parent);
};

#endif // MSLINFO_H
