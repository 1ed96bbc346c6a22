// Identifier expressions: $word(args).prop
#include "msltextedit.h"

// Placeholder until the identifier parser lands.
void MslSyntaxHighlighter::parseIdent(const QString &, int &, int &, int) {}
