// Event headers: on <level>:<event>:<parameters>:
#include "msltextedit.h"

// Placeholder until the event parser lands.
bool MslSyntaxHighlighter::parseEvent(const QString &, int &, int &)
{
    return false;
}
