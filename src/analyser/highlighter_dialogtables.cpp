// Statements of a dialog table.
#include "msltextedit.h"

// Placeholder until the dialog statement parser lands.
int MslSyntaxHighlighter::parseDialogStatement(const QString &str)
{
    return str.trimmed() == QLatin1String("}") ? 1 : 256;
}
