#include "mslinfo.h"

#include <QLatin1String>

// Call tips: the display text of each argument of an identifier, with the
// argument being typed in bold. This table is kept apart from the argument
// table on purpose and does not agree with it: it ends at $isbit, knows
// $cb, $dccignore and $encode, lacks $color, and repeats $ialchan (the
// second, misplaced row is never reached).
QString MslInfo::getIdentSyntaxAt(QString name, int arg)
{
    struct ident_synax
    {
        const char *name;      // with the '$'; null ends the table
        const char *argv[10];  // packed from the front, null-terminated
    };

    static const ident_synax syntax[] = {
        { "$", { "<Statement>", "[Nth]" } },
        { "$abook", { "<nickname>", "[Nth]" } },
        { "$abs", { "<number>" } },
        { "$address", { "<nickname>", "<mask type>" } },
        { "$addtok", { "<string>", "<token>", "<delimiter>" } },
        { "$addtokcs", { "<string>", "<token>", "<delimiter>" } },
        { "$agent", { "<Nth/name>" } },
        { "$alias", { "<Nth/filename>" } },
        { "$and", { "<A>", "<B>" } },
        { "$ansi2mirc", { "<string>" } },
        { "$aop", { "<Nth/address>" } },
        { "$asc", { "<character>" } },
        { "$asctime", { "<unix time/format>", "[format]" } },
        { "$asin", { "<number>" } },
        { "$atan", { "<number>" } },
        { "$avoice", { "<Nth/address>" } },
        { "$base", { "<number>", "<inbase>", "<outbase>", "[zeropad]", "[precision]" } },
        { "$bfind", { "<&bvar>", "<starting_pos>", "<ASCII/string>" } },
        { "$bindip", { "<Nth/ip_address>" } },
        { "$bitoff", { "<number>", "<Nth>" } },
        { "$biton", { "<number>", "<Nth>" } },
        { "$bvar", { "<&bvar>", "<starting_pos>", "[length]" } },
        { "$bytes", { "<number>", "[bkmgt3d]" } },
        { "$calc", { "<operations>" } },
        { "$cb", { "<Nth>" } },
        { "$ceil", { "<number>" } },
        { "$chan", { "<Nth/#chan>" } },
        { "$chat", { "<Nth/nick>", "[Nth]" } },
        { "$chr", { "<ASCII>" } },
        { "$click", { "<@window>", "[Nth]" } },
        { "$cnick", { "<Nth/nick>", "[Nth]" } },
        { "$com", {
              "<name>", "<member>", "<method>", "<type>", "<value>", "<typeN..>", "<valueN..>"
          } },
        { "$comcall", {
              "<name>", "<alias>", "<member>", "<method>", "<type>", "<value>", "<typeN..>",
              "<valueN..>"
          } },
        { "$comchan", { "<nick>", "<blN>" } },
        { "$compress", { "<file/&bvar>", "[Nth]" } },
        { "$comval", { "<name>", "[Nth]", "<member>" } },
        { "$cos", { "<number>" } },
        { "$count", { "<string>", "<substring>", "<substring2>", "<substringN>" } },
        { "$countcs", { "<string>", "<substring>", "<substring2>", "<substringN>" } },
        { "$crc", { "<string|&bvar|filename>", "[N]" } },
        { "$ctime", { "<string>" } },
        { "$date", { "<unix time/format>", "[format]" } },
        { "$dccignore", { "<Nth/filename>" } },
        { "$dde", { "<service>", "<topic>", "[item]", "[delay]" } },
        { "$decode", { "<%var/&binvar>", "[mubt]", "[N]" } },
        { "$decompress", { "<file/&bvar>" } },
        { "$deltok", { "<string>", "<N[-[N2]]>", "<delimiter>" } },
        { "$dialog", { "<name>", "<table>", "[parent]" } },
        { "$did", { "[name]", "<id>", "[N]" } },
        { "$didreg", { "[name]", "<id>", "<regex>", "[N]" } },
        { "$didtok", { "[name]", "<id>", "<delimiter>", "[N]" } },
        { "$didwm", { "[name]", "<id>", "<wildtext>", "[N]" } },
        { "$disk", { "<Nth/path>" } },
        { "$dll", { "<filename>", "<procname>", "<data>" } },
        { "$dllcall", { "<filename>", "<alias>", "<procname>", "<data>" } },
        { "$dns", { "<Nth>" } },
        { "$duration", { "<seconds>", "<N>" } },
        { "$editbox", { "<window>", "<N>" } },
        { "$encode", { "<%var/&binvar>", "[mubt]", "[N]" } },
        { "$eval", { "<expression>", "<Nth>" } },
        { "$exists", { "<file/dir>" } },
        { "$fgetc", { "<name/Nth>" } },
        { "$file", { "<filename>" } },
        { "$finddir", { "<dir>", "<wildcard>", "<Nth>", "<depth>", "<@window/command>" } },
        { "$findfile", { "<dir>", "<wildcard>", "<Nth>", "<depth>", "<@window/command>" } },
        { "$findtok", { "<string>", "<token>", "[Nth]", "<delimiter>" } },
        { "$findtokcs", { "<string>", "<token>", "[Nth]", "<delimiter>" } },
        { "$fline", { "<@window>", "<wildtext>", "<Nth>", "<T>" } },
        { "$floor", { "<number>" } },
        { "$fopen", { "<Nth/name>" } },
        { "$fread", { "<Nth/name>", "[M]", "[&binvar]" } },
        { "$fserve", { "<Nth/nick>", "[Nth]" } },
        { "$get", { "<Nth/nick>", "[Nth]" } },
        { "$getdir", { "<filespec>" } },
        { "$getdot", { "<@window>", "<x>", "<y>" } },
        { "$gettok", { "<string>", "<N[-[N2]]>", "<delimiter>" } },
        { "$gmt", { "<unix time/format>", "[format]" } },
        { "$group", { "<Nth/#group>" } },
        { "$hash", { "<string>", "<bits>" } },
        { "$height", { "<string>", "<font>", "<size>" } },
        { "$hfind", { "<Nth/name>", "<string>", "[Nth]", "<M>" } },
        { "$hget", { "<Nth/name>", "[item]", "[&bvar]" } },
        { "$highlight", { "<Nth/string>" } },
        { "$ial", { "<nick/mask>", "<Nth>" } },
        { "$ialchan", { "<nick/mask>", "[#channel]", "<Nth>" } },
        { "$ibl", { "<#channel>", "<Nth>" } },
        { "$iel", { "<#channel>", "<Nth>" } },
        { "$ignore", { "<Nth/address>" } },
        { "$iif", { "<condition>", "<true clause>", "[false clause]" } },
        { "$iil", { "<#channel>", "<Nth>" } },
        { "$inellipse", { "<x>", "<y>", "<x1>", "<y1>", "<w>", "<h>" } },
        { "$ini", { "<filename>", "<Nth/topic>", "[Nth/item]" } },
        { "$inpoly", {
              "<x>", "<y>", "[point1_x]", "[point1_y]", "[point2_x]", "[point2_y]", "[...]"
          } },
        { "$ialchan", { "<nick/mask>", "[#channel]", "[Nth]" } },
        { "$input", { "<message>", "[options], [window]", "[title]", "[input_text]" } },
        { "$inrect", { "<x>", "<y>", "<x>", "<y>", "<w>", "<h>" } },
        { "$inroundrect", { "<x>", "<y>", "<x>", "<y>", "<w>", "<h>", "<w>", "<h>" } },
        { "$instok", { "<string>", "<token>", "<N>", "<delimiter>" } },
        { "$int", { "<number>" } },
        { "$iptype", { "<string>" } },
        { "$isalias", { "<name>" } },
        { "$isbit", { "<number>", "[Nth]" } },
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
