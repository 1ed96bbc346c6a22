#include "mslinfo.h"

#include <QByteArray>
#include <QLatin1String>

#include <string>
#include <unordered_map>

namespace {
constexpr unsigned int unbounded = 4294967295u;
}

// The built-in identifiers that take arguments: their argument counts,
// parity demands and properties. Rows stand alphabetically, with one
// exception kept on purpose: after $editbox comes a second $decode row
// where $encode would sort. Look-ups take the first row of a name, so the
// repeat only shows in the completion list.
const identifier *MslInfo::getIdentsList()
{
    static const identifier idents[] = {
        { "$", 1, 2, false, false, {} },
        { "$abook", 1, 2, false, false, {
              "nick", "info", "email", "website", "picture", "noteN"
          } },
        { "$abs", 1, 1, false, false, {} },
        { "$address", 2, 2, false, false, {} },
        { "$addtok", 3, 3, false, false, {} },
        { "$addtokcs", 3, 3, false, false, {} },
        { "$agent", 1, 2, false, false, {
              "name", "fname", "visible", "x", "y", "w", "h", "ow", "oh", "speed", "pitch",
              "idle", "effects", "active", "langid", "balloon", "hide", "char"
          } },
        { "$alias", 1, 1, false, false, {} },
        { "$and", 2, 2, false, false, {} },
        { "$ansi2mirc", 1, 1, false, false, {} },
        { "$aop", 1, 1, false, false, { "type", "network" } },
        { "$asc", 1, 1, false, false, {} },
        { "$asctime", 1, 2, false, false, {} },
        { "$asin", 1, 1, false, false, { "deg" } },
        { "$atan", 1, 1, false, false, { "deg" } },
        { "$avoice", 1, 1, false, false, { "type" } },
        { "$base", 3, 5, false, false, {} },
        { "$bfind", 3, 3, false, false, { "text" } },
        { "$bindip", 1, 1, false, false, { "name", "ip", "loopback" } },
        { "$bitoff", 1, 2, false, false, {} },
        { "$biton", 1, 2, false, false, {} },
        { "$bvar", 2, 3, false, false, { "text", "word", "nword", "long", "nlong" } },
        { "$bytes", 1, 2, false, false, { "suf" } },
        { "$calc", 1, 1, false, false, {} },
        { "$ceil", 1, 1, false, false, {} },
        { "$chan", 1, 1, false, false, {
              "topic", "mode", "key", "limit", "ial", "logfile", "stamp", "status", "inwho",
              "wid", "cid", "hwnd", "ibl", "iel", "iil", "idle"
          } },
        { "$chat", 1, 2, false, false, {
              "ip", "status", "logfile", "stamp", "wid", "cid", "hwnd", "idle"
          } },
        { "$chr", 1, 1, false, false, {} },
        { "$click", 2, 2, false, false, { "x", "y" } },
        { "$cnick", 1, 2, false, false, {
              "color", "modes", "levels", "method", "anymode", "nomode", "ignore", "op",
              "voice", "protect", "notify", "idle"
          } },
        { "$color", 1, 1, false, false, { "dd" } },
        { "$com", 1, unbounded, false, false, {
              "progid", "dispatch", "unknown", "result", "error", "errortext", "argerr"
          } },
        { "$comcall", 4, unbounded, false, false, {} },
        { "$comchan", 2, 2, false, false, { "op", "help", "voice" } },
        { "$compress", 1, 2, false, false, {} },
        { "$comval", 2, 3, false, false, {} },
        { "$cos", 1, 1, false, false, { "deg" } },
        { "$count", 2, unbounded, false, false, {} },
        { "$countcs", 2, unbounded, false, false, {} },
        { "$crc", 1, 2, false, false, {} },
        { "$ctime", 1, 1, false, false, {} },
        { "$date", 1, 2, false, false, {} },
        { "$dde", 2, 4, false, false, {} },
        { "$decode", 1, 3, false, false, {} },
        { "$decompress", 1, 2, false, false, {} },
        { "$deltok", 3, 3, false, false, {} },
        { "$dialog", 1, 3, false, false, {
              "x", "y", "w", "h", "cw", "ch", "title", "modal", "table", "ok", "cancel",
              "result", "focus", "tab", "active", "hwnd"
          } },
        { "$did", 1, 3, false, false, {
              "text", "len", "lines", "sel", "seltext", "selstart", "selend", "edited", "state",
              "next", "prev", "visible", "enabled", "isid", "csel", "cstate"
          } },
        { "$didreg", 3, 4, false, false, {} },
        { "$didtok", 3, 3, false, false, {} },
        { "$didwm", 3, 4, false, false, {} },
        { "$disk", 1, 1, false, false, { "type", "free", "label", "size", "unc", "path" } },
        { "$dll", 3, 3, false, false, {} },
        { "$dllcall", 4, 4, false, false, {} },
        { "$dns", 1, 1, false, false, { "nick", "addr", "ip" } },
        { "$duration", 1, 2, false, false, {} },
        { "$editbox", 1, 1, false, false, { "selstart", "selend" } },
        { "$decode", 1, 3, false, false, {} },
        { "$eval", 1, unbounded, false, false, {} },
        { "$exists", 1, 1, false, false, {} },
        { "$fgetc", 1, 1, false, false, {} },
        { "$file", 1, 1, false, false, {
              "size", "ctime", "mtime", "atime", "shortfn", "longfn", "attr", "sig"
          } },
        { "$finddir", 3, 5, false, false, { "shortfn" } },
        { "$findfile", 3, 5, false, false, { "shortfn" } },
        { "$findtok", 3, 4, false, false, {} },
        { "$findtokcs", 3, 4, false, false, {} },
        { "$fline", 2, 4, false, false, { "text" } },
        { "$floor", 1, 1, false, false, {} },
        { "$fopen", 1, 1, false, false, { "fname", "pos", "eof", "err" } },
        { "$fread", 1, 3, false, false, {} },
        { "$fserve", 1, 3, false, false, { "ip", "status", "cd" } },
        { "$get", 1, 2, false, false, {
              "ip", "status", "file", "path", "size", "rcvd", "cps", "pc", "secs", "done",
              "resume", "wid", "cid", "hwnd", "idle"
          } },
        { "$getdir", 1, 1, false, false, {} },
        { "$getdot", 3, 3, false, false, {} },
        { "$gettok", 3, 3, false, false, {} },
        { "$gmt", 1, 2, false, false, {} },
        { "$group", 1, 1, false, false, { "status", "name", "fname" } },
        { "$hash", 2, 2, false, false, {} },
        { "$height", 3, 3, false, false, {} },
        { "$hfind", 2, 4, false, false, { "data" } },
        { "$hget", 1, 3, false, false, { "size", "unset", "item", "data" } },
        { "$highlight", 1, 1, false, false, {
              "text", "color", "sound", "flash", "message", "nicks", "regex", "cs"
          } },
        { "$ial", 1, 2, false, false, {} },
        { "$ialchan", 1, 3, false, false, { "pnick" } },
        { "$ibl", 2, 2, false, false, { "by", "date", "ctime" } },
        { "$iel", 2, 2, false, false, { "by", "date", "ctime" } },
        { "$ignore", 1, 1, false, false, { "type", "secs" } },
        { "$iif", 2, 3, false, false, {} },
        { "$iil", 2, 2, false, false, { "by", "date", "ctime" } },
        { "$inellipse", 6, 6, false, false, {} },
        { "$ini", 2, 3, false, false, {} },
        { "$inpoly", 2, unbounded, true, false, {} },
        { "$input", 1, 6, false, false, {} },
        { "$inrect", 6, 6, false, false, {} },
        { "$inroundrect", 8, 8, false, false, {} },
        { "$instok", 4, 4, false, false, {} },
        { "$int", 1, 1, false, false, {} },
        { "$iptype", 1, 1, false, false, { "compress", "expand" } },
        { "$isalias", 1, 1, false, false, { "fname", "alias" } },
        { "$isbit", 2, 2, false, false, {} },
        { "$isdde", 1, 1, false, false, {} },
        { "$isdir", 1, 1, false, false, {} },
        { "$isfile", 1, 1, false, false, {} },
        { "$islower", 1, 1, false, false, {} },
        { "$istok", 3, 3, false, false, {} },
        { "$istokcs", 3, 3, false, false, {} },
        { "$isupper", 1, 1, false, false, {} },
        { "$left", 2, 2, false, false, {} },
        { "$len", 1, 1, false, false, {} },
        { "$level", 1, 1, false, false, {} },
        { "$line", 2, 2, false, false, {} },
        { "$lines", 1, 1, false, false, {} },
        { "$link", 1, 1, false, false, { "addr", "ip", "level", "info" } },
        { "$lock", 1, 1, false, false, {
              "send", "get", "chat", "query", "fserve", "channels", "com", "decode", "dll",
              "run"
          } },
        { "$log", 1, 1, false, false, {} },
        { "$longfn", 1, 1, false, false, {} },
        { "$longip", 1, 1, false, false, {} },
        { "$lower", 1, 1, false, false, {} },
        { "$mask", 2, 2, false, false, {} },
        { "$matchtok", 4, 4, false, false, {} },
        { "$matchtokcs", 4, 4, false, false, {} },
        { "$md5", 1, 2, false, false, {} },
        { "$mid", 2, 3, false, false, {} },
        { "$mkfn", 1, 1, false, false, {} },
        { "$mklogfn", 1, 1, false, false, {} },
        { "$mknickfn", 1, 1, false, false, {} },
        { "$mode", 1, 1, false, false, {
              "op", "deop", "ban", "unban", "voice", "devoice", "help", "dehelp"
          } },
        { "$msfile", 1, 3, false, false, {} },
        { "$nick", 2, 4, false, false, { "color", "pnick", "idle" } },
        { "$nofile", 1, 1, false, false, {} },
        { "$nopath", 1, 1, false, false, {} },
        { "$noqt", 1, 1, false, false, {} },
        { "$not", 1, 1, false, false, {} },
        { "$notags", 1, 1, false, false, {} },
        { "$notify", 1, 1, false, false, { "ison", "note", "sound", "whois", "addr", "network" } },
        { "$numtok", 2, 2, false, false, {} },
        { "$onpoly", 6, unbounded, false, false, {} },
        { "$or", 1, 2, false, false, {} },
        { "$ord", 1, 1, false, false, {} },
        { "$pic", 1, 1, false, false, { "size", "width", "height" } },
        { "$play", 1, 2, false, false, {
              "type", "fname", "topic", "pos", "lines", "delay", "status"
          } },
        { "$portfree", 1, 2, false, false, {} },
        { "$pos", 2, 3, false, false, {} },
        { "$poscs", 2, 3, false, false, {} },
        { "$protect", 1, 1, false, false, { "type", "network" } },
        { "$puttok", 4, 4, false, false, {} },
        { "$qt", 1, 1, false, false, {} },
        { "$query", 1, 1, false, false, {
              "addr", "logfile", "stamp", "wid", "cid", "hwnd", "idle"
          } },
        { "$rand", 1, 2, false, false, {} },
        { "$read", 1, 4, false, false, {} },
        { "$readini", 3, 4, false, false, {} },
        { "$regex", 2, 3, false, false, {} },
        { "$regml", 1, 2, false, false, {} },
        { "$regsub", 4, 5, false, false, {} },
        { "$regsubex", 3, 4, false, false, {} },
        { "$remove", 2, unbounded, false, false, {} },
        { "$removecs", 2, unbounded, false, false, {} },
        { "$remtok", 3, 4, false, false, {} },
        { "$remtokcs", 3, 4, false, false, {} },
        { "$replace", 3, unbounded, false, true, {} },
        { "$replacecs", 3, unbounded, false, true, {} },
        { "$replacex", 3, unbounded, false, true, {} },
        { "$replacexcs", 3, unbounded, false, true, {} },
        { "$reptok", 4, 5, false, false, {} },
        { "$reptokcs", 4, 5, false, false, {} },
        { "$rgb", 1, 3, false, false, {} },
        { "$right", 2, 2, false, false, {} },
        { "$round", 1, 2, false, false, {} },
        { "$script", 1, 1, false, false, {} },
        { "$sdir", 1, 2, false, false, {} },
        { "$send", 1, 2, false, false, {
              "ip", "status", "file", "path", "size", "sent", "lra", "cps", "pc", "secs",
              "done", "resume", "wid", "cid", "hwnd", "idle"
          } },
        { "$server", 1, 1, false, false, { "desc", "port", "group", "pass" } },
        { "$sfile", 1, 3, false, false, {} },
        { "$sha1", 1, 2, false, false, {} },
        { "$shortfn", 1, 1, false, false, {} },
        { "$sin", 1, 1, false, false, { "deg" } },
        { "$sline", 1, 1, false, false, { "ln" } },
        { "$snick", 1, 2, false, false, {} },
        { "$sock", 1, 2, false, false, {
              "name", "ip", "addr", "port", "status", "sent", "rcvd", "sq", "rq", "ls", "lr",
              "mark", "type", "saddr", "sport", "to", "wserr", "wsmsg", "bindip", "bindport",
              "ssl", "pause"
          } },
        { "$sorttok", 2, 3, false, false, {} },
        { "$sorttokcs", 2, 3, false, false, {} },
        { "$sound", 1, 1, false, false, {} },
        { "$speak", 1, 1, false, false, {} },
        { "$sqrt", 1, 1, false, false, {} },
        { "$str", 2, 2, false, false, {} },
        { "$strip", 1, 2, false, false, {} },
        { "$style", 1, 1, false, false, {} },
        { "$submenu", 1, 1, false, false, {} },
        { "$tan", 1, 1, false, false, { "deg" } },
        { "$time", 1, 2, false, false, {} },
        { "$timer", 1, 1, false, false, {
              "com", "time", "reps", "delay", "type", "secs", "mmt", "anysc", "wid", "cid",
              "hwnd", "pause"
          } },
        { "$tip", 1, 8, false, false, {
              "name", "title", "text", "delay", "iconfn", "iconpos", "alias", "wid"
          } },
        { "$toolbar", 1, 1, false, false, {
              "name", "type", "tip", "alias", "popup", "width", "height", "wide", "enabled",
              "visible", "checked", "alpha"
          } },
        { "$trust", 1, 1, false, false, {} },
        { "$ulist", 1, 3, false, false, { "info" } },
        { "$upper", 1, 1, false, false, {} },
        { "$uptime", 1, 2, false, false, {} },
        { "$url", 1, 1, false, false, { "desc", "group" } },
        { "$var", 1, 2, false, false, { "value", "local", "secs" } },
        { "$vcmd", 1, 1, false, false, {} },
        { "$vol", 1, 1, false, false, { "mute" } },
        { "$width", 3, 5, false, false, {} },
        { "$wildtok", 4, 5, false, false, {} },
        { "$wildtokcs", 4, 5, false, false, {} },
        { "$window", 1, 1, false, false, {
              "x", "y", "w", "h", "dx", "dy", "dw", "dh", "bw", "bh", "mdi", "title", "state",
              "font", "fontsize", "fontbold", "fontitalic", "fontcs", "logfile", "stamp",
              "icon", "ontop", "type", "anysc", "wid", "cid", "hwnd", "sbtext", "sbcolor",
              "sbstate", "tbtext", "tbstate"
          } },
        { "$wrap", 5, 6, false, false, {} },
        { "$xor", 2, 2, false, false, {} },
        // The terminator keeps the unbounded maximum rather than 0.
        { nullptr, 0, unbounded, false, false, {} }
    };
    return idents;
}

// Returns 0 for an unknown name, 1 when everything fits, 2 for too few
// arguments, 3 for too many, 4 for a broken even/odd demand and 5 for an
// unknown property. The count is judged before the property.
// The analyser asks for every identifier of every line, so the rows are
// found in a hash of the case-folded names rather than by a walk over the
// table. The asked name is folded char by char, which is what the
// case-insensitive comparison with a Latin-1 name does, so `$ſhort` (long
// s) still finds `$short`, as it always did; the first row of a name wins.
namespace {

const identifier *findIdent(const QString &ident)
{
    static const std::unordered_map<std::string, const identifier *> index = [] {
        std::unordered_map<std::string, const identifier *> rows;
        for (const identifier *row = MslInfo::getIdentsList(); row->name; ++row) {
            const QByteArray folded = QString::fromLatin1(row->name).toCaseFolded().toLatin1();
            rows.emplace(folded.toStdString(), row); // keeps the first row of a name
        }
        return rows;
    }();

    // Every name of the table folds to ASCII, so a character that does not
    // can match none of them.
    std::string folded(size_t(ident.size()), '\0');
    for (qsizetype i = 0; i < ident.size(); ++i) {
        char16_t c = ident.at(i).unicode();
        if (c >= u'A' && c <= u'Z')
            c += u'a' - u'A';
        else if (c >= 0x80 && (c = QChar(c).toCaseFolded().unicode()) >= 0x80)
            return nullptr;
        folded[size_t(i)] = char(c);
    }
    const auto it = index.find(folded);
    return it == index.end() ? nullptr : it->second;
}

} // namespace

MslInfo::IdentCheck MslInfo::isProperIdentArgs(QString &ident, unsigned int args, QString prop)
{
    const identifier *row = findIdent(ident);
    if (!row)
        return UnknownIdent;

    if (row->min > args)
        return TooFewArgs;
    if (args > row->max)
        return TooManyArgs;
    if (row->needsEven && args % 2 != 0)
        return WrongArgParity;
    if (row->needsOdd && args % 2 == 0)
        return WrongArgParity;

    if (prop.isEmpty())
        return IdentFits;
    for (const char *const *p = row->props; *p; ++p) {
        if (prop.compare(QLatin1String(*p), Qt::CaseInsensitive) == 0)
            return IdentFits;
    }
    return NoSuchProperty;
}
