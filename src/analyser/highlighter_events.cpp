// Event headers: on <level>:<event>:<parameters>:<body>
//
// The access level has been stepped over already; what is read here is the
// event word and the colon-separated parameters its family takes.
#include "msltextedit.h"

#include "devsettings.h"

#include <QStringList>

namespace {

// The grammar families of the event words.
enum EventFamily {
    NoFamily,
    MessageFamily,      // matchtext, target
    BareFamily,         // nothing
    ChannelFamily,      // target
    MatchFamily,        // matchtext
    WindowTargetFamily, // target
    FileFamily,         // filenames
    DccServerFamily,    // type
    OpenFamily,         // target, then an optional matchtext
    VoiceCommandFamily, // matchtext, target
    KeyFamily,          // window, keys
    LogonFamily,        // matchtext
    DialogFamily,       // name, eventType, id
};

struct EventName
{
    const char *name;
    EventFamily family;
};

// In comparison order; the first equal name decides. Some placings look odd
// and are meant: `wallops` takes match text, `nick`, `quit` and `notify`
// take nothing, `rawmode` takes a channel target only.
const EventName eventNames[] = {
    {"action", MessageFamily},      {"notice", MessageFamily},
    {"text", MessageFamily},

    {"load", BareFamily},           {"start", BareFamily},
    {"midiend", BareFamily},        {"waveend", BareFamily},
    {"mp3end", BareFamily},         {"agent", BareFamily},
    {"exit", BareFamily},           {"connect", BareFamily},
    {"disconnect", BareFamily},     {"connectfail", BareFamily},
    {"dns", BareFamily},            {"nick", BareFamily},
    {"nosound", BareFamily},        {"ping", BareFamily},
    {"playend", BareFamily},        {"quit", BareFamily},
    {"notify", BareFamily},         {"unload", BareFamily},
    {"usermode", BareFamily},

    {"help", ChannelFamily},        {"dehelp", ChannelFamily},
    {"op", ChannelFamily},          {"deop", ChannelFamily},
    {"voice", ChannelFamily},       {"devoice", ChannelFamily},
    {"ban", ChannelFamily},         {"unban", ChannelFamily},
    {"invite", ChannelFamily},      {"join", ChannelFamily},
    {"kick", ChannelFamily},        {"mode", ChannelFamily},
    {"servermode", ChannelFamily},  {"serverop", ChannelFamily},
    {"rawmode", ChannelFamily},     {"topic", ChannelFamily},

    {"wallops", MatchFamily},       {"chat", MatchFamily},
    {"serv", MatchFamily},          {"ctcpreply", MatchFamily},
    {"error", MatchFamily},         {"signal", MatchFamily},
    {"snotice", MatchFamily},       {"sockclose", MatchFamily},
    {"socklisten", MatchFamily},    {"sockopen", MatchFamily},
    {"sockread", MatchFamily},      {"sockwrite", MatchFamily},
    {"udpread", MatchFamily},

    {"active", WindowTargetFamily}, {"appactive", WindowTargetFamily},
    {"input", WindowTargetFamily},  {"tabcomp", WindowTargetFamily},

    {"filercvd", FileFamily},       {"filesent", FileFamily},
    {"sendfail", FileFamily},       {"getfail", FileFamily},

    {"dccserver", DccServerFamily},

    {"open", OpenFamily},           {"close", OpenFamily},

    {"vcmd", VoiceCommandFamily},   {"hotlink", VoiceCommandFamily},

    {"keydown", KeyFamily},         {"keyup", KeyFamily},

    {"logon", LogonFamily},

    {"dialog", DialogFamily},
};

EventFamily familyOf(const QString &event)
{
    for (const EventName &entry : eventNames) {
        if (event == QLatin1String(entry.name))
            return entry.family;
    }
    return NoFamily;
}

} // namespace

// Where a parameter saves the line's record: once it is found (at its
// start), or once it has been stepped over (behind it).
enum SavePoint { NoSave, SaveFound, SaveStepped };

// The sentence of the variable test a parameter undergoes, if any.
enum VariableSentence { NoVariableTest, MatchtextSentence, TargetSentence, WindowSentence };

// One colon-separated parameter of an event header.
struct EventParameter
{
    const char *missing;       // the report when it is left out; null: optional
    SavePoint save;
    bool savesText;            // the record keeps this text, or an empty one
    bool lowered;              // tested, examined and saved in lower case
    VariableSentence variables;
    EventExamination examine;  // when it is no variable
};

// What an event family takes behind its word.
struct EventGrammar
{
    bool savesFirst;           // the record is saved before any parameter is looked for
    int count;
    EventParameter params[3];
};

namespace {

using Ex = EventExamination;

// One grammar per family, in the order of EventFamily. Which parameter is
// lowered, which saves and which is tested varies from family to family
// without a rule; the table keeps each as it is.
const EventGrammar grammars[] = {
    // NoFamily
    {false, 0, {}},
    // MessageFamily
    {false, 2,
     {{"matchtext parameter is missing", SaveFound, true, false, MatchtextSentence, Ex::None},
      // The target is told the matchtext sentence; it stays so.
      {"target parameter is missing", NoSave, false, false, MatchtextSentence, Ex::MixedTargets}}},
    // BareFamily: the body follows the event's own colon at once.
    {true, 0, {}},
    // ChannelFamily
    {false, 1,
     {{"target parameter is missing", SaveFound, false, false, MatchtextSentence,
       Ex::ChannelTargets}}},
    // MatchFamily
    {false, 1,
     {{"matchtext parameter is missing", SaveFound, true, false, MatchtextSentence,
       Ex::None}}},
    // WindowTargetFamily: saved first, so the record exists even when the
    // target is missing.
    {true, 1,
     {{"target parameter is missing", NoSave, false, false, TargetSentence, Ex::WindowTarget}}},
    // FileFamily
    {true, 1, {{"filename parameter is missing", NoSave, false, false, NoVariableTest,
                Ex::None}}},
    // DccServerFamily
    {true, 1, {{"DCC type parameter is missing", NoSave, false, false, NoVariableTest,
                Ex::DccType}}},
    // OpenFamily: the target is not examined at all; the match text may be
    // left out, colon and all, and its record is saved behind it.
    {false, 2,
     {{"target parameter is missing", NoSave, false, false, NoVariableTest, Ex::None},
      {nullptr, SaveStepped, true, true, MatchtextSentence, Ex::None}}},
    // VoiceCommandFamily
    {false, 2,
     {{"matchtext parameter is missing", SaveFound, true, false, MatchtextSentence,
       Ex::None},
      {"target parameter is missing", NoSave, false, true, TargetSentence, Ex::None}}},
    // KeyFamily: the keys are told the window's sentence; it stays so.
    {false, 2,
     {{"window parameter is missing", SaveFound, true, true, WindowSentence, Ex::None},
      {"key types parameter is missing", NoSave, false, true, WindowSentence, Ex::Keys}}},
    // LogonFamily: the match text is neither examined nor saved.
    {true, 1, {{"matchtext parameter is missing", NoSave, false, false, NoVariableTest,
                Ex::None}}},
    // DialogFamily
    {false, 3,
     {{"name parameter is missing", SaveFound, true, true, NoVariableTest, Ex::None},
      {"event parameter is missing", NoSave, false, false, NoVariableTest, Ex::DialogEventType},
      {"dialog ID parameter is missing", NoSave, false, false, NoVariableTest,
       Ex::DialogEventId}}},
};
static_assert(sizeof(grammars) / sizeof(grammars[0]) == DialogFamily + 1,
              "one grammar per event family");

// The text from `pos` up to the next colon at or behind it; false when no
// colon follows.
bool textToColon(const QString &str, int pos, QString &text)
{
    const int colon = str.indexOf(QLatin1Char(':'), pos);
    if (colon < 0)
        return false;
    text = str.mid(pos, colon - pos);
    return true;
}

// Messages of the variable test, shared by several parameters. The matchtext
// sentence is also what a target or the keys are told: it stays so.
QString matchtextVariables()
{
    return QStringLiteral(
        "matchtext contains variables and text must be enclosed by the $() identifier");
}

QString targetVariables()
{
    return QStringLiteral(
        "target contains variables and text must be enclosed by the $() identifier");
}

QString windowVariables()
{
    return QStringLiteral("window parameter contains variables and text must be enclosed by "
                          "the $() identifier");
}

QString variableSentence(VariableSentence sentence)
{
    switch (sentence) {
    case MatchtextSentence:
        return matchtextVariables();
    case TargetSentence:
        return targetVariables();
    case WindowSentence:
        return windowVariables();
    case NoVariableTest:
        break;
    }
    return QString();
}

QStringList splitKeepingEmpty(const QString &text, QChar sep)
{
    return text.split(sep, Qt::KeepEmptyParts);
}

} // namespace

bool MslSyntaxHighlighter::parseEvent(const QString &str, int &pos, int &brackets)
{
    // The caller's count is its own business: nothing here opens a block.
    Q_UNUSED(brackets);

    QString raw;
    if (!textToColon(str, pos, raw))
        raw = str.mid(pos);
    const QString event = raw.toLower();
    pos += raw.length() + 1;
    // A colon as the last character of the line still makes a header.
    if (pos > str.length())
        return false;

    const EventFamily family = familyOf(event);
    if (family == NoFamily)
        return false;

    EventWord ev;
    ev.event = event;
    ev.length = raw.length();
    ev.start = pos - ev.length - 1;
    ev.block = QStringLiteral("on ") + event;
    setFormat(ev.start, ev.length, DevSettings::onEventFmt);

    parseEventParameters(str, pos, ev, grammars[family]);
    return true;
}

void MslSyntaxHighlighter::parseEventParameters(const QString &str, int &pos,
                                                const EventWord &ev, const EventGrammar &grammar)
{
    if (grammar.savesFirst)
        saveStateEvent(ev.event, QString(), pos);

    for (int i = 0; i < grammar.count; ++i) {
        const EventParameter &param = grammar.params[i];
        QString raw;
        if (!param.missing) {
            if (!textToColon(str, pos, raw)) {
                if (param.save != NoSave)
                    saveStateEvent(ev.event, QString(), pos);
                return;
            }
        } else if (!takeEventParameter(str, pos, ev, QLatin1String(param.missing), raw)) {
            return;
        }

        const QString text = param.lowered ? raw.toLower() : raw;
        const QString saved = param.savesText ? text : QString();
        if (param.save == SaveFound)
            saveStateEvent(ev.event, saved, pos);
        const bool variable = param.variables != NoVariableTest
            && eventVariableTest(pos, text, ev.block, variableSentence(param.variables));
        if (!variable)
            examineEventParameter(param.examine, pos, text, ev);
        pos += raw.length() + 1;
        if (param.save == SaveStepped)
            saveStateEvent(ev.event, saved, pos);
    }
}

void MslSyntaxHighlighter::examineEventParameter(EventExamination examination, int pos,
                                                 const QString &text, const EventWord &ev)
{
    switch (examination) {
    case EventExamination::MixedTargets:
        walkMixedTargets(pos, text, ev.block);
        break;
    case EventExamination::ChannelTargets:
        walkChannelTargets(pos, text, ev.block);
        break;
    case EventExamination::WindowTarget:
        checkWindowTarget(pos, text, ev.block);
        break;
    case EventExamination::DccType:
        checkDccType(pos, text, ev.block);
        break;
    case EventExamination::Keys:
        walkKeys(pos, text, ev.block);
        break;
    case EventExamination::DialogEventType:
        checkDialogEventType(pos, text, ev);
        break;
    case EventExamination::DialogEventId:
        checkDialogEventId(pos, text, ev);
        break;
    case EventExamination::None:
        break;
    }
}

bool MslSyntaxHighlighter::takeEventParameter(const QString &str, int &pos, const EventWord &ev,
                                              const QString &missing, QString &param)
{
    // Every parameter, the last one included, is closed by a colon. The
    // search knows nothing of brackets.
    if (textToColon(str, pos, param))
        return true;

    // A missing parameter is always shown on the event word; the header
    // ends here with no body.
    setFormat(ev.start, ev.length, DevSettings::errFmt);
    throwError(ErrorReport, ev.start, ev.block, missing);
    pos = str.length();
    return false;
}

bool MslSyntaxHighlighter::eventVariableTest(int pos, const QString &token,
                                             const QString &block, const QString &message)
{
    // Only the start of the token counts. A lone variable is coloured whole;
    // a variable followed by more words must be wrapped in $().
    if (token.startsWith(QLatin1Char('%'))) {
        if (token.contains(QLatin1Char(' '))) {
            setFormat(pos, token.length(), DevSettings::errFmt);
            throwError(ErrorReport, pos, block, message);
        } else {
            setFormat(pos, token.length(), DevSettings::varFmt);
        }
        return true;
    }

    if (token.startsWith(QLatin1String("$("))) {
        // Padded so that the identifier parser's columns are the block's.
        const QString t = QString(pos, QLatin1Char(' ')) + token;
        int identPos = pos;
        int b = 0;
        parseIdent(t, identPos, b, 0);
        return true;
    }

    return false;
}

void MslSyntaxHighlighter::walkMixedTargets(int pos, const QString &target,
                                            const QString &block)
{
    const QStringList l = splitKeepingEmpty(target, QLatin1Char(','));
    bool both = false, chan = false, query = false;
    int bothPos = 0, chanPos = 0, queryPos = 0;

    int tpos = pos;
    for (const QString &token : l) {
        if (token == QLatin1String("*") && !both) {
            both = true;
            bothPos = tpos;
        } else if (token == QLatin1String("#") && !chan) {
            chan = true;
            chanPos = tpos;
        } else if (token == QLatin1String("?") && !query) {
            query = true;
            queryPos = tpos;
        }
        tpos += token.length() + 1;
    }

    if (l.size() <= 1)
        return;

    if (both) {
        // Every other target is pointless beside `*`, a second `*` too.
        bool reached = false;
        int p = pos;
        for (const QString &token : l) {
            if (token == QLatin1String("*") && !reached)
                reached = true;
            else
                setFormat(p, token.length(), DevSettings::wrnFmt);
            p += token.length() + 1;
        }
        throwError(WarningReport, bothPos, block,
                   QStringLiteral("Wildcard * overrules all other targets, making them pointless."));
        return;
    }

    if (query) {
        // `?` covers every query; channel names are left alone here.
        bool reached = false;
        bool found = false;
        int p = pos;
        for (const QString &token : l) {
            if (token == QLatin1String("?") && !reached) {
                reached = true;
            } else if (!token.startsWith(QLatin1Char('#'))) {
                setFormat(p, token.length(), DevSettings::wrnFmt);
                found = true;
            }
            p += token.length() + 1;
        }
        if (found) {
            throwError(WarningReport, queryPos, block,
                       QStringLiteral("Wildcard ? overrules all other query targets, making them "
                                      "pointless."));
        }
    }

    if (chan) {
        bool reached = false;
        bool found = false;
        int p = pos;
        for (const QString &token : l) {
            if (token == QLatin1String("#") && !reached) {
                reached = true;
            } else if (token.startsWith(QLatin1Char('#'))) {
                setFormat(p, token.length(), DevSettings::wrnFmt);
                found = true;
            }
            p += token.length() + 1;
        }
        if (found) {
            throwError(WarningReport, chanPos, block,
                       QStringLiteral("Wildcard # overrules all other channels targets, making "
                                      "them pointless."));
        }
    }
}

void MslSyntaxHighlighter::walkChannelTargets(int pos, const QString &target,
                                              const QString &block)
{
    const QStringList l = splitKeepingEmpty(target, QLatin1Char(','));
    bool chan = false;
    int chanPos = 0;

    int tpos = pos;
    for (const QString &token : l) {
        if (token == QLatin1String("#") && !chan) {
            chan = true;
            chanPos = tpos;
        }
        tpos += token.length() + 1;
    }

    int p = pos;
    if (chan && l.size() > 1) {
        // The wildcard of the channel events is `#`, but the sentence is the
        // one with `*`: it stays so.
        bool reached = false;
        for (const QString &token : l) {
            if (token == QLatin1String("#") && !reached)
                reached = true;
            else
                setFormat(p, token.length(), DevSettings::wrnFmt);
            p += token.length() + 1;
        }
        throwError(WarningReport, chanPos, block,
                   QStringLiteral("Wildcard * overrules all other targets, making them pointless."));
        return;
    }

    // One report per bad token; `*` means nothing here and is one of them.
    for (const QString &token : l) {
        if (!token.startsWith(QLatin1Char('#'))) {
            setFormat(p, token.length(), DevSettings::errFmt);
            throwError(ErrorReport, p, block, QStringLiteral("Invalid channel name in target."));
        }
        p += token.length() + 1;
    }
}

void MslSyntaxHighlighter::checkWindowTarget(int pos, const QString &target,
                                             const QString &block)
{
    // Only the first character counts; an empty target has none and is
    // reported with nothing to paint.
    static const QString allowed = QStringLiteral("*#?=!@");
    if (!target.isEmpty() && allowed.contains(target.at(0)))
        return;
    setFormat(pos, target.length(), DevSettings::errFmt);
    throwError(ErrorReport, pos, block,
               QStringLiteral("Invalid target parameter, must be one of the following: "
                              "*, #, ?, =, !, @."));
}

void MslSyntaxHighlighter::checkDccType(int pos, const QString &type, const QString &block)
{
    if (type.toLower() != QLatin1String("chat") && type.toLower() != QLatin1String("send")
        && type.toLower() != QLatin1String("fserve")) {
        setFormat(pos, type.length(), DevSettings::errFmt);
        throwError(ErrorReport, pos, block,
                   QStringLiteral("Invalid DCC type parameter, must be one of the following: "
                                  "chat, send, or fserve."));
    }
}

void MslSyntaxHighlighter::walkKeys(int pos, const QString &keys,
                                    const QString &block)
{
    // Each bad key is coloured where it stands, but reported at the start
    // of the list.
    int tpos = pos;
    for (const QString &key : splitKeepingEmpty(keys, QLatin1Char(','))) {
        if (!isNumeric(key)) {
            setFormat(tpos, key.length(), DevSettings::errFmt);
            throwError(ErrorReport, pos, block, QStringLiteral("Invalid key type"));
        }
        tpos += key.length() + 1;
    }
}

void MslSyntaxHighlighter::checkDialogEventType(int pos, const QString &eventType,
                                                const EventWord &ev)
{
    static const QStringList types = {
        QStringLiteral("init"),   QStringLiteral("close"),  QStringLiteral("edit"),
        QStringLiteral("sclick"), QStringLiteral("dclick"), QStringLiteral("menu"),
        QStringLiteral("scroll"), QStringLiteral("mouse"),  QStringLiteral("uclick"),
        QStringLiteral("rclick"), QStringLiteral("drop"),   QStringLiteral("*"),
    };
    if (types.contains(eventType.toLower()))
        return;
    // Coloured where it stands, reported at the event word.
    setFormat(pos, eventType.length(), DevSettings::errFmt);
    throwError(ErrorReport, ev.start, ev.block, QStringLiteral("Invalid event type"));
}

void MslSyntaxHighlighter::checkDialogEventId(int pos, const QString &id, const EventWord &ev)
{
    if (isNumeric(id) || id == QLatin1String("*"))
        return;

    // A list of IDs and ranges; every bad piece is coloured, one report at
    // the event word says so.
    bool error = false;
    int ttpos = pos;
    for (const QString &idNum : splitKeepingEmpty(id, QLatin1Char(','))) {
        if (idNum.contains(QLatin1Char('-'))) {
            int tpos = ttpos;
            for (const QString &tok : splitKeepingEmpty(idNum, QLatin1Char('-'))) {
                if (!isNumeric(tok)) {
                    setFormat(tpos, tok.length(), DevSettings::errFmt);
                    error = true;
                }
                tpos += tok.length() + 1;
            }
        } else if (!isNumeric(idNum)) {
            setFormat(ttpos, idNum.length(), DevSettings::errFmt);
            error = true;
        }
        ttpos += idNum.length() + 1;
    }
    if (error)
        throwError(ErrorReport, ev.start, ev.block, QStringLiteral("Invalid dialog ID"));
}
