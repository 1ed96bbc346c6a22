#include "mslinfo.h"

// The built-in commands, in the order in which the analyser builds its
// command patterns. The order is not alphabetical everywhere (aline before
// alias, notify before notice, ...) and must stay as it is, since the
// pattern list inherits it.
QStringList MslInfo::getAllMslCmds()
{
    static QStringList mSLCommands;

    // No guard against a second call: every call appends the whole list
    // again. The analyser calls this exactly once per process.
    mSLCommands
        << QStringLiteral("abook") << QStringLiteral("action") << QStringLiteral("ajinvite")
        << QStringLiteral("aline") << QStringLiteral("alias") << QStringLiteral("ame")
        << QStringLiteral("amsg") << QStringLiteral("anick") << QStringLiteral("aop")
        << QStringLiteral("auto") << QStringLiteral("auser") << QStringLiteral("autojoin")
        << QStringLiteral("avoice") << QStringLiteral("away") << QStringLiteral("background")
        << QStringLiteral("ban") << QStringLiteral("bcopy") << QStringLiteral("beep")
        << QStringLiteral("bindip") << QStringLiteral("bread") << QStringLiteral("break")
        << QStringLiteral("breplace") << QStringLiteral("bset") << QStringLiteral("btrunc")
        << QStringLiteral("bunset") << QStringLiteral("bwrite") << QStringLiteral("channel")
        << QStringLiteral("clear") << QStringLiteral("clearall") << QStringLiteral("cline")
        << QStringLiteral("clipboard") << QStringLiteral("close") << QStringLiteral("cnick")
        << QStringLiteral("color") << QStringLiteral("comclose") << QStringLiteral("comopen")
        << QStringLiteral("comreg") << QStringLiteral("continue") << QStringLiteral("copy")
        << QStringLiteral("creq") << QStringLiteral("ctcpreply") << QStringLiteral("ctcps")
        << QStringLiteral("dcc") << QStringLiteral("dccserver") << QStringLiteral("dde")
        << QStringLiteral("ddeserver") << QStringLiteral("debug") << QStringLiteral("dec")
        << QStringLiteral("describe") << QStringLiteral("dialog") << QStringLiteral("did")
        << QStringLiteral("didtok") << QStringLiteral("disable") << QStringLiteral("disconnect")
        << QStringLiteral("dlevel") << QStringLiteral("dline") << QStringLiteral("dll")
        << QStringLiteral("dns") << QStringLiteral("dqwindow") << QStringLiteral("drawcopy")
        << QStringLiteral("drawdot") << QStringLiteral("drawfill") << QStringLiteral("drawline")
        << QStringLiteral("drawpic") << QStringLiteral("drawrect") << QStringLiteral("drawreplace")
        << QStringLiteral("drawrot") << QStringLiteral("drawsave") << QStringLiteral("drawscroll")
        << QStringLiteral("drawtext") << QStringLiteral("ebeeps") << QStringLiteral("echo")
        << QStringLiteral("editbox") << QStringLiteral("emailaddr") << QStringLiteral("enable")
        << QStringLiteral("events") << QStringLiteral("exit") << QStringLiteral("fclose")
        << QStringLiteral("filter") << QStringLiteral("findtext") << QStringLiteral("finger")
        << QStringLiteral("firewall") << QStringLiteral("flash") << QStringLiteral("flist")
        << QStringLiteral("flood") << QStringLiteral("flush") << QStringLiteral("flushini")
        << QStringLiteral("fnord") << QStringLiteral("font") << QStringLiteral("fopen")
        << QStringLiteral("fseek") << QStringLiteral("fsend") << QStringLiteral("fserve")
        << QStringLiteral("fullname") << QStringLiteral("fwrite") << QStringLiteral("ghide")
        << QStringLiteral("gload") << QStringLiteral("gmove") << QStringLiteral("gopts")
        << QStringLiteral("gplay") << QStringLiteral("gpoint") << QStringLiteral("gqreq")
        << QStringLiteral("groups") << QStringLiteral("gshow") << QStringLiteral("gsize")
        << QStringLiteral("gstop") << QStringLiteral("gtalk") << QStringLiteral("gunload")
        << QStringLiteral("guser") << QStringLiteral("hadd") << QStringLiteral("halt")
        << QStringLiteral("haltdef") << QStringLiteral("hdec") << QStringLiteral("hdel")
        << QStringLiteral("help") << QStringLiteral("hfree") << QStringLiteral("hinc")
        << QStringLiteral("hload") << QStringLiteral("hmake") << QStringLiteral("hop")
        << QStringLiteral("hsave") << QStringLiteral("ial") << QStringLiteral("ialclear")
        << QStringLiteral("ialmark") << QStringLiteral("identd") << QStringLiteral("ignore")
        << QStringLiteral("iline") << QStringLiteral("inc") << QStringLiteral("iuser")
        << QStringLiteral("join") << QStringLiteral("linesep") << QStringLiteral("links")
        << QStringLiteral("list") << QStringLiteral("load") << QStringLiteral("loadbuf")
        << QStringLiteral("localinfo") << QStringLiteral("log") << QStringLiteral("mdi")
        << QStringLiteral("me") << QStringLiteral("menubar") << QStringLiteral("mkdir")
        << QStringLiteral("mnick") << QStringLiteral("mode") << QStringLiteral("msg")
        << QStringLiteral("noop") << QStringLiteral("notify") << QStringLiteral("notice")
        << QStringLiteral("omsg") << QStringLiteral("onotice") << QStringLiteral("partall")
        << QStringLiteral("pdcc") << QStringLiteral("perform") << QStringLiteral("play")
        << QStringLiteral("playctrl") << QStringLiteral("pop") << QStringLiteral("protect")
        << QStringLiteral("pvoice") << QStringLiteral("qme") << QStringLiteral("qmsg")
        << QStringLiteral("query") << QStringLiteral("queryrn") << QStringLiteral("raw")
        << QStringLiteral("reload") << QStringLiteral("remini") << QStringLiteral("remote")
        << QStringLiteral("remove") << QStringLiteral("rename") << QStringLiteral("renwin")
        << QStringLiteral("reseterror") << QStringLiteral("resetidle") << QStringLiteral("return")
        << QStringLiteral("rlevel") << QStringLiteral("rline") << QStringLiteral("rmdir")
        << QStringLiteral("run") << QStringLiteral("ruser") << QStringLiteral("save")
        << QStringLiteral("savebuf") << QStringLiteral("saveini") << QStringLiteral("say")
        << QStringLiteral("scid") << QStringLiteral("scon") << QStringLiteral("server")
        << QStringLiteral("set") << QStringLiteral("showmirc") << QStringLiteral("signal")
        << QStringLiteral("sline") << QStringLiteral("sockaccept") << QStringLiteral("sockclose")
        << QStringLiteral("socklist") << QStringLiteral("socklisten") << QStringLiteral("sockmark")
        << QStringLiteral("sockopen") << QStringLiteral("sockread") << QStringLiteral("sockrename")
        << QStringLiteral("sockudp") << QStringLiteral("sockwrite") << QStringLiteral("sound")
        << QStringLiteral("speak") << QStringLiteral("splay") << QStringLiteral("sreq")
        << QStringLiteral("strip") << QStringLiteral("switchbar") << QStringLiteral("timer")
        << QStringLiteral("timestamp") << QStringLiteral("titlebar") << QStringLiteral("tnick")
        << QStringLiteral("tokenize") << QStringLiteral("toolbar") << QStringLiteral("tray")
        << QStringLiteral("treebar") << QStringLiteral("ulist") << QStringLiteral("unload")
        << QStringLiteral("unset") << QStringLiteral("unsetall") << QStringLiteral("updatenl")
        << QStringLiteral("url") << QStringLiteral("uwho") << QStringLiteral("var")
        << QStringLiteral("vcadd") << QStringLiteral("vcmd") << QStringLiteral("vcrem")
        << QStringLiteral("vol") << QStringLiteral("window") << QStringLiteral("winhelp")
        << QStringLiteral("write") << QStringLiteral("writeini") << QStringLiteral("xyzzy");

    return mSLCommands;
}

QStringList MslInfo::getAllMslCtrlStruc()
{
    return { QStringLiteral("while"), QStringLiteral("if"), QStringLiteral("elseif"),
             QStringLiteral("else"), QStringLiteral("goto") };
}

// The structures whose keyword is followed by an expression.
QStringList MslInfo::getAllMslCtrlStrucWithExp()
{
    return { QStringLiteral("while"), QStringLiteral("if"), QStringLiteral("elseif") };
}
