#ifndef DEVSETTINGS_H
#define DEVSETTINGS_H

#include <QRegularExpression>
#include <QSet>
#include <QTextCharFormat>
#include <QVector>

// The patterns and text formats every parser reads. Filled once, by
// InitializeAllSettings(), after the application object exists and
// before the first document is made; read-only from then on.
class DevSettings
{
public:
    DevSettings() {}

    static void InitializeAllSettings();

    // Length of the match of the first command pattern that matches `word`
    // (prefix characters included), or -1. Answered from the set of names,
    // with the same result as walking cmdRgx.
    static int commandMatchLength(QStringView word);
    // The name of the format member `format` looks like ("cmdFmt" and so
    // on), the first of several alike; "other" for none of them.
    static QString formatName(const QTextCharFormat &format);

    // Patterns.
    static QRegularExpression commentStartRgx;
    static QRegularExpression commentEndRgx;
    static QRegularExpression singleLCommentRgx;
    static QRegularExpression singleLRCommentRgx;
    static QRegularExpression openBracketRgx;   // built, applied by nothing
    static QRegularExpression closeBracketRgx;  // built, applied by nothing
    static QRegularExpression ctrlRgx;
    static QRegularExpression ctrlElseRgx;
    static QRegularExpression varRgx;
    static QRegularExpression pipeRgx;          // built, applied by nothing
    static QVector<QRegularExpression> cmdRgx;  // one per command, in list order

    // Formats.
    static QTextCharFormat commentFmt;
    static QTextCharFormat rcommentFmt;
    static QTextCharFormat commentNoEndFmt;
    static QTextCharFormat errFmt;
    static QTextCharFormat wrnFmt;
    static QTextCharFormat infFmt;
    static QTextCharFormat aliasFmt;
    static QTextCharFormat aliasSwitchFmt;
    static QTextCharFormat aliasNameFmt;
    static QTextCharFormat dialogFmt;
    static QTextCharFormat dialogSwitchFmt;
    static QTextCharFormat dialogNameFmt;
    static QTextCharFormat dialogCmdFmt;
    static QTextCharFormat dialogStrFmt;
    static QTextCharFormat openBracketFmt;
    static QTextCharFormat closeBracketFmt;
    static QTextCharFormat cmdFmt;
    static QTextCharFormat ctrlFmt;
    static QTextCharFormat pipeFmt;
    static QTextCharFormat identFmt;
    static QTextCharFormat identPropFmt;
    static QTextCharFormat varFmt;
    static QTextCharFormat groupFmt;
    static QTextCharFormat groupCtrlFmt;
    static QTextCharFormat todoFmt;
    static QTextCharFormat onFmt;
    static QTextCharFormat onEventFmt;
    static QTextCharFormat onChannelsFmt;
    static QTextCharFormat onMePreFmt;

private:
    static QSet<QString> commandNames;
    static int longestCommandName;

    static void buildPatterns();
    static void buildCommandPatterns();
    static void buildFormats();
};

#endif // DEVSETTINGS_H
