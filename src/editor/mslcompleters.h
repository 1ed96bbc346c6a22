#ifndef MSLCOMPLETERS_H
#define MSLCOMPLETERS_H

class QCompleter;
class QObject;

// The editor's completion popups over the knowledge base's lists. The
// lists themselves (MslInfo's models) stay with the analysis library, so
// that a headless client can offer the same ones.
namespace MslCompleters {

QCompleter *getComCompleter(QObject *parent);
// Without a model: the editor gives it one identifier's properties.
QCompleter *getIdentPropCompleter(QObject *parent);
// Without a model: the editor gives it the identifiers of the moment.
QCompleter *getIdentCompleter(QObject *parent);
QCompleter *getColorCompleter(QObject *parent);

} // namespace MslCompleters

#endif // MSLCOMPLETERS_H
