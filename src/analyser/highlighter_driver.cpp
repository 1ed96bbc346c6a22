// The line driver: classifies each line by the state of the line before.
#include "msltextedit.h"

void MslSyntaxHighlighter::highlightBlock(const QString &str)
{
    Q_UNUSED(str);
    setCurrentBlockState(1);
    clearCurrentBlockUserData();
}
