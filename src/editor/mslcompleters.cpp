#include "mslcompleters.h"

#include "mslinfo.h"

#include <QCompleter>

namespace {

// The completers never sort: every list keeps the order in which its
// model was filled.
QCompleter *buildCompleter(QObject *parent)
{
    QCompleter *completer = new QCompleter(parent);
    completer->setModelSorting(QCompleter::UnsortedModel);
    completer->setWrapAround(false);
    return completer;
}

} // namespace

QCompleter *MslCompleters::getComCompleter(QObject *parent)
{
    QCompleter *completer = buildCompleter(parent);
    completer->setModel(MslInfo::getComProIds(completer));
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    return completer;
}

QCompleter *MslCompleters::getIdentPropCompleter(QObject *parent)
{
    QCompleter *completer = buildCompleter(parent);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    return completer;
}

QCompleter *MslCompleters::getIdentCompleter(QObject *parent)
{
    QCompleter *completer = buildCompleter(parent);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    return completer;
}

// Case-sensitive, the default: every code starts with the control
// character, so a bare one lists them all.
QCompleter *MslCompleters::getColorCompleter(QObject *parent)
{
    QCompleter *completer = buildCompleter(parent);
    completer->setModel(MslInfo::getColorCodes(completer));
    return completer;
}
