// The vocabulary of the knowledge base, checked row for row against copies
// kept here in the layout of the reference tables, and the argument checks
// and call tips built on it.

#include "mslinfo.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

// The built-in commands, in their order of appending.
const char commandText[] = R"(
abook, action, ajinvite, aline, alias, ame, amsg, anick, aop, auto, auser, autojoin,
avoice, away, background, ban, bcopy, beep, bindip, bread, break, breplace, bset, btrunc,
bunset, bwrite, channel, clear, clearall, cline, clipboard, close, cnick, color, comclose,
comopen, comreg, continue, copy, creq, ctcpreply, ctcps, dcc, dccserver, dde, ddeserver,
debug, dec, describe, dialog, did, didtok, disable, disconnect, dlevel, dline, dll, dns,
dqwindow, drawcopy, drawdot, drawfill, drawline, drawpic, drawrect, drawreplace, drawrot,
drawsave, drawscroll, drawtext, ebeeps, echo, editbox, emailaddr, enable, events, exit,
fclose, filter, findtext, finger, firewall, flash, flist, flood, flush, flushini, fnord,
font, fopen, fseek, fsend, fserve, fullname, fwrite, ghide, gload, gmove, gopts, gplay,
gpoint, gqreq, groups, gshow, gsize, gstop, gtalk, gunload, guser, hadd, halt, haltdef,
hdec, hdel, help, hfree, hinc, hload, hmake, hop, hsave, ial, ialclear, ialmark, identd,
ignore, iline, inc, iuser, join, linesep, links, list, load, loadbuf, localinfo, log, mdi,
me, menubar, mkdir, mnick, mode, msg, noop, notify, notice, omsg, onotice, partall, pdcc,
perform, play, playctrl, pop, protect, pvoice, qme, qmsg, query, queryrn, raw, reload,
remini, remote, remove, rename, renwin, reseterror, resetidle, return, rlevel, rline,
rmdir, run, ruser, save, savebuf, saveini, say, scid, scon, server, set, showmirc, signal,
sline, sockaccept, sockclose, socklist, socklisten, sockmark, sockopen, sockread,
sockrename, sockudp, sockwrite, sound, speak, splay, sreq, strip, switchbar, timer,
timestamp, titlebar, tnick, tokenize, toolbar, tray, treebar, ulist, unload, unset,
unsetall, updatenl, url, uwho, var, vcadd, vcmd, vcrem, vol, window, winhelp, write,
writeini, xyzzy
)";

// The identifier table: name | min | max | parity | properties. A line
// starting with "+" continues the properties of the row above.
const char identText[] = R"(
| $ | 1 | 2 | - |  |
| $abook | 1 | 2 | - | nick info email website picture noteN |
| $abs | 1 | 1 | - |  |
| $address | 2 | 2 | - |  |
| $addtok | 3 | 3 | - |  |
| $addtokcs | 3 | 3 | - |  |
| $agent | 1 | 2 | - | name fname visible x y w h ow oh speed pitch idle effects active langid |
+ balloon hide char
| $alias | 1 | 1 | - |  |
| $and | 2 | 2 | - |  |
| $ansi2mirc | 1 | 1 | - |  |
| $aop | 1 | 1 | - | type network |
| $asc | 1 | 1 | - |  |
| $asctime | 1 | 2 | - |  |
| $asin | 1 | 1 | - | deg |
| $atan | 1 | 1 | - | deg |
| $avoice | 1 | 1 | - | type |
| $base | 3 | 5 | - |  |
| $bfind | 3 | 3 | - | text |
| $bindip | 1 | 1 | - | name ip loopback |
| $bitoff | 1 | 2 | - |  |
| $biton | 1 | 2 | - |  |
| $bvar | 2 | 3 | - | text word nword long nlong |
| $bytes | 1 | 2 | - | suf |
| $calc | 1 | 1 | - |  |
| $ceil | 1 | 1 | - |  |
| $chan | 1 | 1 | - | topic mode key limit ial logfile stamp status inwho wid cid hwnd ibl iel |
+ iil idle
| $chat | 1 | 2 | - | ip status logfile stamp wid cid hwnd idle |
| $chr | 1 | 1 | - |  |
| $click | 2 | 2 | - | x y |
| $cnick | 1 | 2 | - | color modes levels method anymode nomode ignore op voice protect notify |
+ idle
| $color | 1 | 1 | - | dd |
| $com | 1 | 4294967295 | - | progid dispatch unknown result error errortext argerr |
| $comcall | 4 | 4294967295 | - |  |
| $comchan | 2 | 2 | - | op help voice |
| $compress | 1 | 2 | - |  |
| $comval | 2 | 3 | - |  |
| $cos | 1 | 1 | - | deg |
| $count | 2 | 4294967295 | - |  |
| $countcs | 2 | 4294967295 | - |  |
| $crc | 1 | 2 | - |  |
| $ctime | 1 | 1 | - |  |
| $date | 1 | 2 | - |  |
| $dde | 2 | 4 | - |  |
| $decode | 1 | 3 | - |  |
| $decompress | 1 | 2 | - |  |
| $deltok | 3 | 3 | - |  |
| $dialog | 1 | 3 | - | x y w h cw ch title modal table ok cancel result focus tab active hwnd |
| $did | 1 | 3 | - | text len lines sel seltext selstart selend edited state next prev visible |
+ enabled isid csel cstate
| $didreg | 3 | 4 | - |  |
| $didtok | 3 | 3 | - |  |
| $didwm | 3 | 4 | - |  |
| $disk | 1 | 1 | - | type free label size unc path |
| $dll | 3 | 3 | - |  |
| $dllcall | 4 | 4 | - |  |
| $dns | 1 | 1 | - | nick addr ip |
| $duration | 1 | 2 | - |  |
| $editbox | 1 | 1 | - | selstart selend |
| $decode | 1 | 3 | - |  |
| $eval | 1 | 4294967295 | - |  |
| $exists | 1 | 1 | - |  |
| $fgetc | 1 | 1 | - |  |
| $file | 1 | 1 | - | size ctime mtime atime shortfn longfn attr sig |
| $finddir | 3 | 5 | - | shortfn |
| $findfile | 3 | 5 | - | shortfn |
| $findtok | 3 | 4 | - |  |
| $findtokcs | 3 | 4 | - |  |
| $fline | 2 | 4 | - | text |
| $floor | 1 | 1 | - |  |
| $fopen | 1 | 1 | - | fname pos eof err |
| $fread | 1 | 3 | - |  |
| $fserve | 1 | 3 | - | ip status cd |
| $get | 1 | 2 | - | ip status file path size rcvd cps pc secs done resume wid cid hwnd idle |
| $getdir | 1 | 1 | - |  |
| $getdot | 3 | 3 | - |  |
| $gettok | 3 | 3 | - |  |
| $gmt | 1 | 2 | - |  |
| $group | 1 | 1 | - | status name fname |
| $hash | 2 | 2 | - |  |
| $height | 3 | 3 | - |  |
| $hfind | 2 | 4 | - | data |
| $hget | 1 | 3 | - | size unset item data |
| $highlight | 1 | 1 | - | text color sound flash message nicks regex cs |
| $ial | 1 | 2 | - |  |
| $ialchan | 1 | 3 | - | pnick |
| $ibl | 2 | 2 | - | by date ctime |
| $iel | 2 | 2 | - | by date ctime |
| $ignore | 1 | 1 | - | type secs |
| $iif | 2 | 3 | - |  |
| $iil | 2 | 2 | - | by date ctime |
| $inellipse | 6 | 6 | - |  |
| $ini | 2 | 3 | - |  |
| $inpoly | 2 | 4294967295 | even |  |
| $input | 1 | 6 | - |  |
| $inrect | 6 | 6 | - |  |
| $inroundrect | 8 | 8 | - |  |
| $instok | 4 | 4 | - |  |
| $int | 1 | 1 | - |  |
| $iptype | 1 | 1 | - | compress expand |
| $isalias | 1 | 1 | - | fname alias |
| $isbit | 2 | 2 | - |  |
| $isdde | 1 | 1 | - |  |
| $isdir | 1 | 1 | - |  |
| $isfile | 1 | 1 | - |  |
| $islower | 1 | 1 | - |  |
| $istok | 3 | 3 | - |  |
| $istokcs | 3 | 3 | - |  |
| $isupper | 1 | 1 | - |  |
| $left | 2 | 2 | - |  |
| $len | 1 | 1 | - |  |
| $level | 1 | 1 | - |  |
| $line | 2 | 2 | - |  |
| $lines | 1 | 1 | - |  |
| $link | 1 | 1 | - | addr ip level info |
| $lock | 1 | 1 | - | send get chat query fserve channels com decode dll run |
| $log | 1 | 1 | - |  |
| $longfn | 1 | 1 | - |  |
| $longip | 1 | 1 | - |  |
| $lower | 1 | 1 | - |  |
| $mask | 2 | 2 | - |  |
| $matchtok | 4 | 4 | - |  |
| $matchtokcs | 4 | 4 | - |  |
| $md5 | 1 | 2 | - |  |
| $mid | 2 | 3 | - |  |
| $mkfn | 1 | 1 | - |  |
| $mklogfn | 1 | 1 | - |  |
| $mknickfn | 1 | 1 | - |  |
| $mode | 1 | 1 | - | op deop ban unban voice devoice help dehelp |
| $msfile | 1 | 3 | - |  |
| $nick | 2 | 4 | - | color pnick idle |
| $nofile | 1 | 1 | - |  |
| $nopath | 1 | 1 | - |  |
| $noqt | 1 | 1 | - |  |
| $not | 1 | 1 | - |  |
| $notags | 1 | 1 | - |  |
| $notify | 1 | 1 | - | ison note sound whois addr network |
| $numtok | 2 | 2 | - |  |
| $onpoly | 6 | 4294967295 | - |  |
| $or | 1 | 2 | - |  |
| $ord | 1 | 1 | - |  |
| $pic | 1 | 1 | - | size width height |
| $play | 1 | 2 | - | type fname topic pos lines delay status |
| $portfree | 1 | 2 | - |  |
| $pos | 2 | 3 | - |  |
| $poscs | 2 | 3 | - |  |
| $protect | 1 | 1 | - | type network |
| $puttok | 4 | 4 | - |  |
| $qt | 1 | 1 | - |  |
| $query | 1 | 1 | - | addr logfile stamp wid cid hwnd idle |
| $rand | 1 | 2 | - |  |
| $read | 1 | 4 | - |  |
| $readini | 3 | 4 | - |  |
| $regex | 2 | 3 | - |  |
| $regml | 1 | 2 | - |  |
| $regsub | 4 | 5 | - |  |
| $regsubex | 3 | 4 | - |  |
| $remove | 2 | 4294967295 | - |  |
| $removecs | 2 | 4294967295 | - |  |
| $remtok | 3 | 4 | - |  |
| $remtokcs | 3 | 4 | - |  |
| $replace | 3 | 4294967295 | odd |  |
| $replacecs | 3 | 4294967295 | odd |  |
| $replacex | 3 | 4294967295 | odd |  |
| $replacexcs | 3 | 4294967295 | odd |  |
| $reptok | 4 | 5 | - |  |
| $reptokcs | 4 | 5 | - |  |
| $rgb | 1 | 3 | - |  |
| $right | 2 | 2 | - |  |
| $round | 1 | 2 | - |  |
| $script | 1 | 1 | - |  |
| $sdir | 1 | 2 | - |  |
| $send | 1 | 2 | - | ip status file path size sent lra cps pc secs done resume wid cid hwnd |
+ idle
| $server | 1 | 1 | - | desc port group pass |
| $sfile | 1 | 3 | - |  |
| $sha1 | 1 | 2 | - |  |
| $shortfn | 1 | 1 | - |  |
| $sin | 1 | 1 | - | deg |
| $sline | 1 | 1 | - | ln |
| $snick | 1 | 2 | - |  |
| $sock | 1 | 2 | - | name ip addr port status sent rcvd sq rq ls lr mark type saddr sport to |
+ wserr wsmsg bindip bindport ssl pause
| $sorttok | 2 | 3 | - |  |
| $sorttokcs | 2 | 3 | - |  |
| $sound | 1 | 1 | - |  |
| $speak | 1 | 1 | - |  |
| $sqrt | 1 | 1 | - |  |
| $str | 2 | 2 | - |  |
| $strip | 1 | 2 | - |  |
| $style | 1 | 1 | - |  |
| $submenu | 1 | 1 | - |  |
| $tan | 1 | 1 | - | deg |
| $time | 1 | 2 | - |  |
| $timer | 1 | 1 | - | com time reps delay type secs mmt anysc wid cid hwnd pause |
| $tip | 1 | 8 | - | name title text delay iconfn iconpos alias wid |
| $toolbar | 1 | 1 | - | name type tip alias popup width height wide enabled visible checked |
+ alpha
| $trust | 1 | 1 | - |  |
| $ulist | 1 | 3 | - | info |
| $upper | 1 | 1 | - |  |
| $uptime | 1 | 2 | - |  |
| $url | 1 | 1 | - | desc group |
| $var | 1 | 2 | - | value local secs |
| $vcmd | 1 | 1 | - |  |
| $vol | 1 | 1 | - | mute |
| $width | 3 | 5 | - |  |
| $wildtok | 4 | 5 | - |  |
| $wildtokcs | 4 | 5 | - |  |
| $window | 1 | 1 | - | x y w h dx dy dw dh bw bh mdi title state font fontsize fontbold |
+ fontitalic fontcs logfile stamp icon ontop type anysc wid cid hwnd sbtext sbcolor sbstate
+ tbtext tbstate
| $wrap | 5 | 6 | - |  |
| $xor | 2 | 2 | - |  |
)";

// The call tip table: name, then each argument text in backticks. A line
// starting with "+" continues the arguments of the row above.
const char syntaxText[] = R"(
- `$`: `<Statement>` `[Nth]`
- `$abook`: `<nickname>` `[Nth]`
- `$abs`: `<number>`
- `$address`: `<nickname>` `<mask type>`
- `$addtok`: `<string>` `<token>` `<delimiter>`
- `$addtokcs`: `<string>` `<token>` `<delimiter>`
- `$agent`: `<Nth/name>`
- `$alias`: `<Nth/filename>`
- `$and`: `<A>` `<B>`
- `$ansi2mirc`: `<string>`
- `$aop`: `<Nth/address>`
- `$asc`: `<character>`
- `$asctime`: `<unix time/format>` `[format]`
- `$asin`: `<number>`
- `$atan`: `<number>`
- `$avoice`: `<Nth/address>`
- `$base`: `<number>` `<inbase>` `<outbase>` `[zeropad]` `[precision]`
- `$bfind`: `<&bvar>` `<starting_pos>` `<ASCII/string>`
- `$bindip`: `<Nth/ip_address>`
- `$bitoff`: `<number>` `<Nth>`
- `$biton`: `<number>` `<Nth>`
- `$bvar`: `<&bvar>` `<starting_pos>` `[length]`
- `$bytes`: `<number>` `[bkmgt3d]`
- `$calc`: `<operations>`
- `$cb`: `<Nth>`
- `$ceil`: `<number>`
- `$chan`: `<Nth/#chan>`
- `$chat`: `<Nth/nick>` `[Nth]`
- `$chr`: `<ASCII>`
- `$click`: `<@window>` `[Nth]`
- `$cnick`: `<Nth/nick>` `[Nth]`
- `$com`: `<name>` `<member>` `<method>` `<type>` `<value>` `<typeN..>` `<valueN..>`
- `$comcall`: `<name>` `<alias>` `<member>` `<method>` `<type>` `<value>` `<typeN..>`
+ `<valueN..>`
- `$comchan`: `<nick>` `<blN>`
- `$compress`: `<file/&bvar>` `[Nth]`
- `$comval`: `<name>` `[Nth]` `<member>`
- `$cos`: `<number>`
- `$count`: `<string>` `<substring>` `<substring2>` `<substringN>`
- `$countcs`: `<string>` `<substring>` `<substring2>` `<substringN>`
- `$crc`: `<string|&bvar|filename>` `[N]`
- `$ctime`: `<string>`
- `$date`: `<unix time/format>` `[format]`
- `$dccignore`: `<Nth/filename>`
- `$dde`: `<service>` `<topic>` `[item]` `[delay]`
- `$decode`: `<%var/&binvar>` `[mubt]` `[N]`
- `$decompress`: `<file/&bvar>`
- `$deltok`: `<string>` `<N[-[N2]]>` `<delimiter>`
- `$dialog`: `<name>` `<table>` `[parent]`
- `$did`: `[name]` `<id>` `[N]`
- `$didreg`: `[name]` `<id>` `<regex>` `[N]`
- `$didtok`: `[name]` `<id>` `<delimiter>` `[N]`
- `$didwm`: `[name]` `<id>` `<wildtext>` `[N]`
- `$disk`: `<Nth/path>`
- `$dll`: `<filename>` `<procname>` `<data>`
- `$dllcall`: `<filename>` `<alias>` `<procname>` `<data>`
- `$dns`: `<Nth>`
- `$duration`: `<seconds>` `<N>`
- `$editbox`: `<window>` `<N>`
- `$encode`: `<%var/&binvar>` `[mubt]` `[N]`
- `$eval`: `<expression>` `<Nth>`
- `$exists`: `<file/dir>`
- `$fgetc`: `<name/Nth>`
- `$file`: `<filename>`
- `$finddir`: `<dir>` `<wildcard>` `<Nth>` `<depth>` `<@window/command>`
- `$findfile`: `<dir>` `<wildcard>` `<Nth>` `<depth>` `<@window/command>`
- `$findtok`: `<string>` `<token>` `[Nth]` `<delimiter>`
- `$findtokcs`: `<string>` `<token>` `[Nth]` `<delimiter>`
- `$fline`: `<@window>` `<wildtext>` `<Nth>` `<T>`
- `$floor`: `<number>`
- `$fopen`: `<Nth/name>`
- `$fread`: `<Nth/name>` `[M]` `[&binvar]`
- `$fserve`: `<Nth/nick>` `[Nth]`
- `$get`: `<Nth/nick>` `[Nth]`
- `$getdir`: `<filespec>`
- `$getdot`: `<@window>` `<x>` `<y>`
- `$gettok`: `<string>` `<N[-[N2]]>` `<delimiter>`
- `$gmt`: `<unix time/format>` `[format]`
- `$group`: `<Nth/#group>`
- `$hash`: `<string>` `<bits>`
- `$height`: `<string>` `<font>` `<size>`
- `$hfind`: `<Nth/name>` `<string>` `[Nth]` `<M>`
- `$hget`: `<Nth/name>` `[item]` `[&bvar]`
- `$highlight`: `<Nth/string>`
- `$ial`: `<nick/mask>` `<Nth>`
- `$ialchan`: `<nick/mask>` `[#channel]` `<Nth>`
- `$ibl`: `<#channel>` `<Nth>`
- `$iel`: `<#channel>` `<Nth>`
- `$ignore`: `<Nth/address>`
- `$iif`: `<condition>` `<true clause>` `[false clause]`
- `$iil`: `<#channel>` `<Nth>`
- `$inellipse`: `<x>` `<y>` `<x1>` `<y1>` `<w>` `<h>`
- `$ini`: `<filename>` `<Nth/topic>` `[Nth/item]`
- `$inpoly`: `<x>` `<y>` `[point1_x]` `[point1_y]` `[point2_x]` `[point2_y]` `[...]`
- `$ialchan`: `<nick/mask>` `[#channel]` `[Nth]`
- `$input`: `<message>` `[options], [window]` `[title]` `[input_text]`
- `$inrect`: `<x>` `<y>` `<x>` `<y>` `<w>` `<h>`
- `$inroundrect`: `<x>` `<y>` `<x>` `<y>` `<w>` `<h>` `<w>` `<h>`
- `$instok`: `<string>` `<token>` `<N>` `<delimiter>`
- `$int`: `<number>`
- `$iptype`: `<string>`
- `$isalias`: `<name>`
- `$isbit`: `<number>` `[Nth]`
)";

constexpr unsigned int unbounded = 4294967295u;

struct IdentRow
{
    QString name;
    unsigned int min = 0;
    unsigned int max = 0;
    bool even = false;
    bool odd = false;
    QStringList props;
};

struct SyntaxRow
{
    QString name;
    QStringList args;
};

QStringList expectedCommands()
{
    QStringList names;
    const QStringList parts = QString::fromLatin1(commandText).split(QLatin1Char(','));
    for (const QString &part : parts)
        names << part.trimmed();
    return names;
}

QVector<IdentRow> expectedIdents()
{
    QVector<IdentRow> rows;
    const QStringList lines =
        QString::fromLatin1(identText).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1Char('+'))) {
            rows.last().props << line.mid(1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
            continue;
        }
        const QStringList cells = line.split(QLatin1Char('|'));
        IdentRow row;
        row.name = cells.at(1).trimmed();
        row.min = cells.at(2).trimmed().toUInt();
        row.max = cells.at(3).trimmed().toUInt();
        row.even = cells.at(4).trimmed() == QLatin1String("even");
        row.odd = cells.at(4).trimmed() == QLatin1String("odd");
        row.props = cells.at(5).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        rows << row;
    }
    return rows;
}

QVector<SyntaxRow> expectedSyntax()
{
    static const QRegularExpression quoted(QStringLiteral("`([^`]*)`"));
    QVector<SyntaxRow> rows;
    const QStringList lines =
        QString::fromLatin1(syntaxText).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        QStringList texts;
        for (auto it = quoted.globalMatch(line); it.hasNext();)
            texts << it.next().captured(1);
        if (line.startsWith(QLatin1Char('+'))) {
            rows.last().args << texts;
            continue;
        }
        rows << SyntaxRow{ texts.takeFirst(), texts };
    }
    return rows;
}

// The tip as a reader of the table would write it by hand.
QString expectedTip(const SyntaxRow &row, int bold)
{
    QStringList shown;
    for (int i = 0; i < row.args.size(); ++i) {
        const QString text = row.args.at(i).toHtmlEscaped();
        shown << (i == bold ? QStringLiteral("<b>%1</b>").arg(text) : text);
    }
    return QStringLiteral("<p style='white-space:pre'>%1(%2)</p>")
        .arg(row.name, shown.join(QStringLiteral(", ")));
}

QStringList propsOf(const identifier &row)
{
    QStringList props;
    for (int i = 0; i < 35 && row.props[i]; ++i)
        props << QString::fromLatin1(row.props[i]);
    return props;
}

int check(const QString &ident, unsigned int args, const QString &prop = QString())
{
    QString name = ident;
    return MslInfo::isProperIdentArgs(name, args, prop);
}

} // namespace

class TestMslInfoTables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void commandList();
    void commandsAppendOnEveryCall();
    void commandMembership_data();
    void commandMembership();
    void controlStructures();

    void identTableRows();
    void identTableTerminator();
    void identTableInvariants();
    void identArgs_data();
    void identArgs();
    void identArgsAgainstEveryRow();
    void identArgsLeavesNameAlone();

    void syntaxTipExample();
    void syntaxTips_data();
    void syntaxTips();
    void syntaxTableEveryRow();
    void syntaxTableCoverage();

private:
    QStringList firstCommands;
};

void TestMslInfoTables::initTestCase()
{
    // The only call before the append test: the list starts empty.
    firstCommands = MslInfo::getAllMslCmds();
}

void TestMslInfoTables::commandList()
{
    const QStringList expected = expectedCommands();
    QCOMPARE(expected.size(), 228);
    QCOMPARE(firstCommands.size(), 228);
    QCOMPARE(firstCommands.first(), QStringLiteral("abook"));
    QCOMPARE(firstCommands.last(), QStringLiteral("xyzzy"));
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(firstCommands.at(i), expected.at(i));
    QCOMPARE(QSet<QString>(firstCommands.cbegin(), firstCommands.cend()).size(), 228);

    // A few of the places where the order departs from the alphabet.
    QVERIFY(firstCommands.indexOf(QStringLiteral("aline"))
            < firstCommands.indexOf(QStringLiteral("alias")));
    QVERIFY(firstCommands.indexOf(QStringLiteral("notify"))
            < firstCommands.indexOf(QStringLiteral("notice")));
    QVERIFY(firstCommands.indexOf(QStringLiteral("links"))
            < firstCommands.indexOf(QStringLiteral("list")));
}

void TestMslInfoTables::commandsAppendOnEveryCall()
{
    const QStringList expected = expectedCommands();

    const QStringList second = MslInfo::getAllMslCmds();
    QCOMPARE(second.size(), 2 * 228);
    QCOMPARE(second.mid(0, 228), expected);
    QCOMPARE(second.mid(228), expected);

    const QStringList third = MslInfo::getAllMslCmds();
    QCOMPARE(third.size(), 3 * 228);
    QCOMPARE(third.mid(456), expected);

    // What was handed out before is a copy, untouched by later calls.
    QCOMPARE(firstCommands.size(), 228);
}

void TestMslInfoTables::commandMembership_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("isCommand");

    for (const char *word : { "if", "while", "else", "elseif", "goto" })
        QTest::newRow(word) << QString::fromLatin1(word) << false;
    for (const char *word : { "halt", "haltdef", "return", "break", "continue", "var", "set" })
        QTest::newRow(word) << QString::fromLatin1(word) << true;
    // Names only: no slash, no capitals.
    QTest::newRow("/echo") << QStringLiteral("/echo") << false;
    QTest::newRow("ECHO") << QStringLiteral("ECHO") << false;
}

void TestMslInfoTables::commandMembership()
{
    QFETCH(QString, word);
    QFETCH(bool, isCommand);
    QCOMPARE(firstCommands.contains(word), isCommand);
}

void TestMslInfoTables::controlStructures()
{
    QCOMPARE(MslInfo::getAllMslCtrlStruc(),
             QStringList({ "while", "if", "elseif", "else", "goto" }));
    QCOMPARE(MslInfo::getAllMslCtrlStrucWithExp(), QStringList({ "while", "if", "elseif" }));
    // No state: a second call gives the same, not a longer list.
    QCOMPARE(MslInfo::getAllMslCtrlStruc().size(), 5);
    QCOMPARE(MslInfo::getAllMslCtrlStrucWithExp().size(), 3);
}

void TestMslInfoTables::identTableRows()
{
    const QVector<IdentRow> expected = expectedIdents();
    QCOMPARE(expected.size(), 207);

    const identifier *table = MslInfo::getIdentsList();
    QVERIFY(table);
    QCOMPARE(MslInfo::getIdentsList(), table);

    for (int i = 0; i < expected.size(); ++i) {
        const identifier &row = table[i];
        const IdentRow &want = expected.at(i);
        QVERIFY2(row.name, qPrintable(QStringLiteral("table ends early at row %1").arg(i)));
        const QString where = QStringLiteral("row %1 (%2)").arg(i).arg(want.name);
        QVERIFY2(QString::fromLatin1(row.name) == want.name, qPrintable(where));
        QVERIFY2(row.min == want.min, qPrintable(where + QStringLiteral(" min")));
        QVERIFY2(row.max == want.max, qPrintable(where + QStringLiteral(" max")));
        QVERIFY2(row.needsEven == want.even, qPrintable(where + QStringLiteral(" even")));
        QVERIFY2(row.needsOdd == want.odd, qPrintable(where + QStringLiteral(" odd")));
        QCOMPARE(propsOf(row), want.props);
        for (int p = want.props.size(); p < 35; ++p)
            QVERIFY2(!row.props[p], qPrintable(where + QStringLiteral(" props not packed")));
    }
}

void TestMslInfoTables::identTableTerminator()
{
    const identifier *table = MslInfo::getIdentsList();
    int named = 0;
    while (table[named].name)
        ++named;
    QCOMPARE(named, 207);

    const identifier &end = table[207];
    QVERIFY(!end.name);
    QCOMPARE(end.min, 0u);
    QCOMPARE(end.max, unbounded);
    QVERIFY(!end.needsEven);
    QVERIFY(!end.needsOdd);
    for (int p = 0; p < 35; ++p)
        QVERIFY(!end.props[p]);
}

void TestMslInfoTables::identTableInvariants()
{
    const identifier *table = MslInfo::getIdentsList();
    int longest = 0;
    QString longestName;
    int decodes = 0;
    for (const identifier *row = table; row->name; ++row) {
        const QString name = QString::fromLatin1(row->name);
        QVERIFY2(row->min >= 1, qPrintable(name));
        QVERIFY2(row->max >= row->min, qPrintable(name));
        QVERIFY2(!(row->needsEven && row->needsOdd), qPrintable(name));
        QVERIFY2(name.startsWith(QLatin1Char('$')), qPrintable(name));
        QCOMPARE(name, name.toLower());
        if (propsOf(*row).size() > longest) {
            longest = propsOf(*row).size();
            longestName = name;
        }
        if (name == QLatin1String("$decode"))
            ++decodes;
    }
    QCOMPARE(longest, 32);
    QCOMPARE(longestName, QStringLiteral("$window"));
    // The repeated row stands where $encode would sort, and $encode is absent.
    QCOMPARE(decodes, 2);
    QCOMPARE(QString::fromLatin1(table[56].name), QStringLiteral("$editbox"));
    QCOMPARE(QString::fromLatin1(table[57].name), QStringLiteral("$decode"));
}

void TestMslInfoTables::identArgs_data()
{
    QTest::addColumn<QString>("ident");
    QTest::addColumn<uint>("args");
    QTest::addColumn<QString>("prop");
    QTest::addColumn<int>("code");

    const QString none;
    QTest::newRow("caps name") << "$LEFT" << 2u << none << 1;
    QTest::newRow("mixed case name") << "$LeFt" << 2u << none << 1;
    QTest::newRow("left too few") << "$left" << 1u << none << 2;
    QTest::newRow("left too many") << "$left" << 3u << none << 3;
    QTest::newRow("encode unknown") << "$encode" << 1u << none << 0;
    QTest::newRow("encode unknown with prop") << "$encode" << 9u << "bogus" << 0;
    QTest::newRow("empty name") << "" << 1u << none << 0;
    QTest::newRow("empty name no args") << "" << 0u << none << 0;
    QTest::newRow("name without dollar") << "abs" << 1u << none << 0;
    QTest::newRow("name with trailing blank") << "$abs " << 1u << none << 0;
    QTest::newRow("unknown with prop") << "$nosuchident" << 1u << "len" << 0;
    QTest::newRow("bare dollar") << "$" << 1u << none << 1;
    QTest::newRow("bare dollar no args") << "$" << 0u << none << 2;
    QTest::newRow("bare dollar too many") << "$" << 3u << none << 3;
    QTest::newRow("abs no args") << "$abs" << 0u << none << 2;
    QTest::newRow("window no args") << "$window" << 0u << none << 2;
    QTest::newRow("com no args") << "$com" << 0u << none << 2;
    QTest::newRow("inpoly 1") << "$inpoly" << 1u << none << 2;
    QTest::newRow("inpoly 2") << "$inpoly" << 2u << none << 1;
    QTest::newRow("inpoly 3") << "$inpoly" << 3u << none << 4;
    QTest::newRow("inpoly 4") << "$inpoly" << 4u << none << 1;
    QTest::newRow("inpoly 5") << "$inpoly" << 5u << none << 4;
    QTest::newRow("onpoly 7") << "$onpoly" << 7u << none << 1;
    QTest::newRow("onpoly 5") << "$onpoly" << 5u << none << 2;
    for (const char *name : { "$replace", "$replacecs", "$replacex", "$replacexcs" }) {
        const QString n = QString::fromLatin1(name);
        QTest::addRow("%s 2", name) << n << 2u << none << 2;
        QTest::addRow("%s 3", name) << n << 3u << none << 1;
        QTest::addRow("%s 4", name) << n << 4u << none << 4;
        QTest::addRow("%s 5", name) << n << 5u << none << 1;
        QTest::addRow("%s 6", name) << n << 6u << none << 4;
    }
    QTest::newRow("window count before prop") << "$window" << 2u << "bogus" << 3;
    QTest::newRow("inpoly parity before prop") << "$inpoly" << 3u << "bogus" << 4;
    QTest::newRow("window good prop") << "$window" << 1u << "tbstate" << 1;
    QTest::newRow("window caps prop") << "$WINDOW" << 1u << "TbState" << 1;
    QTest::newRow("window bad prop") << "$window" << 1u << "bogus" << 5;
    QTest::newRow("window prop prefix") << "$window" << 1u << "tb" << 5;
    QTest::newRow("abs any prop") << "$abs" << 1u << "x" << 5;
    QTest::newRow("abs no prop") << "$abs" << 1u << none << 1;
    QTest::newRow("abook noten") << "$abook" << 1u << "noten" << 1;
    QTest::newRow("abook NOTEN") << "$abook" << 2u << "NOTEN" << 1;
    QTest::newRow("abook note") << "$abook" << 1u << "note" << 5;
    QTest::newRow("decode caps first row") << "$DECODE" << 3u << none << 1;
    QTest::newRow("decode too many") << "$decode" << 4u << none << 3;
    QTest::newRow("decode no props") << "$decode" << 1u << "x" << 5;
    QTest::newRow("com unbounded") << "$com" << 1000000u << "progid" << 1;
    QTest::newRow("com at the limit") << "$com" << unbounded << none << 1;
    QTest::newRow("or one") << "$or" << 1u << none << 1;
    QTest::newRow("and one") << "$and" << 1u << none << 2;
    QTest::newRow("xor one") << "$xor" << 1u << none << 2;
    QTest::newRow("bitoff one") << "$bitoff" << 1u << none << 1;
    QTest::newRow("biton one") << "$biton" << 1u << none << 1;
    QTest::newRow("isbit one") << "$isbit" << 1u << none << 2;
    QTest::newRow("tip eight") << "$tip" << 8u << "wid" << 1;
    QTest::newRow("tip nine") << "$tip" << 9u << "wid" << 3;
}

void TestMslInfoTables::identArgs()
{
    QFETCH(QString, ident);
    QFETCH(uint, args);
    QFETCH(QString, prop);
    QFETCH(int, code);
    QCOMPARE(MslInfo::isProperIdentArgs(ident, args, prop), code);
}

void TestMslInfoTables::identArgsAgainstEveryRow()
{
    QSet<QString> seen;
    for (const IdentRow &row : expectedIdents()) {
        if (seen.contains(row.name))
            continue; // a later row of the same name is never reached
        seen.insert(row.name);
        const QString upper = row.name.toUpper();

        QVERIFY2(check(row.name, row.min) == 1, qPrintable(row.name));
        QVERIFY2(check(upper, row.min) == 1, qPrintable(upper));
        QVERIFY2(check(row.name, row.min - 1) == 2, qPrintable(row.name));
        // The largest count that also meets the parity demand.
        unsigned int top = row.max;
        if ((row.even && top % 2 != 0) || (row.odd && top % 2 == 0))
            --top;
        QVERIFY2(check(row.name, top) == 1, qPrintable(row.name));
        if (row.max != unbounded)
            QVERIFY2(check(row.name, row.max + 1) == 3, qPrintable(row.name));
        if (row.even || row.odd)
            QVERIFY2(check(row.name, row.min + 1) == 4, qPrintable(row.name));
        for (const QString &prop : row.props) {
            QVERIFY2(check(row.name, row.min, prop) == 1, qPrintable(row.name + '.' + prop));
            QVERIFY2(check(row.name, row.min, prop.toUpper()) == 1,
                     qPrintable(row.name + '.' + prop.toUpper()));
        }
        QVERIFY2(check(row.name, row.min, QStringLiteral("nosuchprop")) == 5,
                 qPrintable(row.name));
    }
    QCOMPARE(seen.size(), 206);
}

void TestMslInfoTables::identArgsLeavesNameAlone()
{
    QString name = QStringLiteral("$WiNdOw");
    QCOMPARE(MslInfo::isProperIdentArgs(name, 1, QStringLiteral("x")), 1);
    QCOMPARE(name, QStringLiteral("$WiNdOw"));
}

void TestMslInfoTables::syntaxTipExample()
{
    QCOMPARE(MslInfo::getIdentSyntaxAt(QStringLiteral("$addtok"), 1),
             QStringLiteral("<p style='white-space:pre'>$addtok(&lt;string&gt;, "
                            "<b>&lt;token&gt;</b>, &lt;delimiter&gt;)</p>"));
}

void TestMslInfoTables::syntaxTips_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("arg");
    QTest::addColumn<QString>("tip");

    const QString p = QStringLiteral("<p style='white-space:pre'>");
    QTest::newRow("left has no tip") << "$left" << 0 << QString();
    QTest::newRow("len has no tip") << "$len" << -1 << QString();
    QTest::newRow("color has no tip") << "$color" << 0 << QString();
    QTest::newRow("empty name") << "" << 0 << QString();
    QTest::newRow("abs in capitals") << "$ABS" << 0
                                     << p + "$abs(<b>&lt;number&gt;</b>)</p>";
    QTest::newRow("no bold") << "$abs" << -1 << p + "$abs(&lt;number&gt;)</p>";
    QTest::newRow("bold beyond") << "$abs" << 2 << p + "$abs(&lt;number&gt;)</p>";
    QTest::newRow("bold just beyond") << "$addtok" << 3
        << p + "$addtok(&lt;string&gt;, &lt;token&gt;, &lt;delimiter&gt;)</p>";
    QTest::newRow("bold last") << "$addtok" << 2
        << p + "$addtok(&lt;string&gt;, &lt;token&gt;, <b>&lt;delimiter&gt;</b>)</p>";
    QTest::newRow("ampersand escaped once") << "$crc" << 0
        << p + "$crc(<b>&lt;string|&amp;bvar|filename&gt;</b>, [N])</p>";
    QTest::newRow("bare dollar") << "$" << 1
        << p + "$(&lt;Statement&gt;, <b>[Nth]</b>)</p>";
    QTest::newRow("one slot with a comma") << "$input" << 1
        << p + "$input(&lt;message&gt;, <b>[options], [window]</b>, [title], [input_text])</p>";
    QTest::newRow("first ialchan row") << "$ialchan" << 2
        << p + "$ialchan(&lt;nick/mask&gt;, [#channel], <b>&lt;Nth&gt;</b>)</p>";
    QTest::newRow("encode") << "$Encode" << 0
        << p + "$encode(<b>&lt;%var/&amp;binvar&gt;</b>, [mubt], [N])</p>";
    QTest::newRow("last row") << "$isbit" << 1
        << p + "$isbit(&lt;number&gt;, <b>[Nth]</b>)</p>";
}

void TestMslInfoTables::syntaxTips()
{
    QFETCH(QString, name);
    QFETCH(int, arg);
    QFETCH(QString, tip);
    QCOMPARE(MslInfo::getIdentSyntaxAt(name, arg), tip);
}

void TestMslInfoTables::syntaxTableEveryRow()
{
    const QVector<SyntaxRow> rows = expectedSyntax();
    QCOMPARE(rows.size(), 102);

    QSet<QString> seen;
    for (const SyntaxRow &row : rows) {
        QVERIFY(row.args.size() <= 8);
        if (seen.contains(row.name)) {
            // Only $ialchan repeats, and its second row is out of reach.
            QCOMPARE(row.name, QStringLiteral("$ialchan"));
            QVERIFY(MslInfo::getIdentSyntaxAt(row.name, -1) != expectedTip(row, -1));
            continue;
        }
        seen.insert(row.name);
        for (int arg = -1; arg <= row.args.size(); ++arg) {
            QCOMPARE(MslInfo::getIdentSyntaxAt(row.name, arg), expectedTip(row, arg));
            QCOMPARE(MslInfo::getIdentSyntaxAt(row.name.toUpper(), arg), expectedTip(row, arg));
        }
    }
    QCOMPARE(seen.size(), 101);
}

void TestMslInfoTables::syntaxTableCoverage()
{
    // Every checked identifier that sorts behind $isbit has no tip, and
    // neither has $color; $cb, $dccignore and $encode have one though the
    // argument table does not know them.
    int behind = 0;
    for (const IdentRow &row : expectedIdents()) {
        const QString tip = MslInfo::getIdentSyntaxAt(row.name, -1);
        if (row.name > QLatin1String("$isbit") || row.name == QLatin1String("$color")) {
            QVERIFY2(tip.isEmpty(), qPrintable(row.name));
            ++behind;
        } else {
            QVERIFY2(!tip.isEmpty(), qPrintable(row.name));
        }
    }
    QVERIFY(behind > 90);
    for (const char *name : { "$cb", "$dccignore", "$encode" }) {
        QString n = QString::fromLatin1(name);
        QVERIFY(!MslInfo::getIdentSyntaxAt(n, -1).isEmpty());
        QCOMPARE(MslInfo::isProperIdentArgs(n, 1, QString()), 0);
    }
}

QTEST_APPLESS_MAIN(TestMslInfoTables)
#include "tst_mslinfo_tables.moc"
