#include "mslinfo.h"

#include <QLatin1String>

// Call tips: the display text of each argument of an identifier, from
// the table in syntaxtips.inc, with the argument being typed in bold.
QString MslInfo::getIdentSyntaxAt(QString name, int arg)
{
    struct ident_synax
    {
        const char *name;      // with the '$'; null ends the table
        const char *argv[10];  // packed from the front, null-terminated
    };

    static const ident_synax syntax[] = {
#include "syntaxtips.inc"
        { nullptr, {} }
    };

    const ident_synax *row = syntax;
    while (row->name && name.compare(QLatin1String(row->name), Qt::CaseInsensitive) != 0)
        ++row;
    if (!row->name)
        return QString();

    // The table's spelling of the name, whatever case was typed.
    QString tip = QStringLiteral("<p style='white-space:pre'>") + QLatin1String(row->name)
        + QLatin1Char('(');
    for (int argc = 0; argc < 10 && row->argv[argc]; ++argc) {
        // '&' first, or the entities made for '<' and '>' would be escaped again.
        QString text = QLatin1String(row->argv[argc]);
        text.replace(QLatin1Char('&'), QStringLiteral("&amp;"));
        text.replace(QLatin1Char('<'), QStringLiteral("&lt;"));
        text.replace(QLatin1Char('>'), QStringLiteral("&gt;"));

        if (argc == arg)
            tip += QStringLiteral("<b>") + text + QStringLiteral("</b>");
        else
            tip += text;

        if (argc + 1 < 10 && row->argv[argc + 1])
            tip += QStringLiteral(", ");
    }
    tip += QStringLiteral(")</p>");
    return tip;
}
