#include "reportkind.h"

QString reportKindName(int kind)
{
    switch (kind) {
    case InformationReport:
        return QStringLiteral("info");
    case WarningReport:
        return QStringLiteral("warning");
    case ErrorReport:
        return QStringLiteral("error");
    case BlueNote:
    case GreyNote:
        return QStringLiteral("note");
    case TodoNote:
        return QStringLiteral("todo");
    case HackNote:
        return QStringLiteral("hack");
    case XxxNote:
        return QStringLiteral("xxx");
    case FixmeNote:
        return QStringLiteral("fixme");
    }
    return QStringLiteral("type") + QString::number(kind);
}
