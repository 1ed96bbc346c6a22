#include "devsettings.h"

#include "mslinfo.h"

#include <QBrush>
#include <QColor>
#include <QFont>

QRegularExpression DevSettings::commentStartRgx;
QRegularExpression DevSettings::commentEndRgx;
QRegularExpression DevSettings::singleLCommentRgx;
QRegularExpression DevSettings::singleLRCommentRgx;
QRegularExpression DevSettings::openBracketRgx;
QRegularExpression DevSettings::closeBracketRgx;
QRegularExpression DevSettings::ctrlRgx;
QRegularExpression DevSettings::ctrlElseRgx;
QRegularExpression DevSettings::varRgx;
QRegularExpression DevSettings::pipeRgx;
QVector<QRegularExpression> DevSettings::cmdRgx;

QTextCharFormat DevSettings::commentFmt;
QTextCharFormat DevSettings::rcommentFmt;
QTextCharFormat DevSettings::commentNoEndFmt;
QTextCharFormat DevSettings::errFmt;
QTextCharFormat DevSettings::wrnFmt;
QTextCharFormat DevSettings::infFmt;
QTextCharFormat DevSettings::aliasFmt;
QTextCharFormat DevSettings::aliasSwitchFmt;
QTextCharFormat DevSettings::aliasNameFmt;
QTextCharFormat DevSettings::dialogFmt;
QTextCharFormat DevSettings::dialogSwitchFmt;
QTextCharFormat DevSettings::dialogNameFmt;
QTextCharFormat DevSettings::dialogCmdFmt;
QTextCharFormat DevSettings::dialogStrFmt;
QTextCharFormat DevSettings::openBracketFmt;
QTextCharFormat DevSettings::closeBracketFmt;
QTextCharFormat DevSettings::cmdFmt;
QTextCharFormat DevSettings::ctrlFmt;
QTextCharFormat DevSettings::pipeFmt;
QTextCharFormat DevSettings::identFmt;
QTextCharFormat DevSettings::identPropFmt;
QTextCharFormat DevSettings::varFmt;
QTextCharFormat DevSettings::groupFmt;
QTextCharFormat DevSettings::groupCtrlFmt;
QTextCharFormat DevSettings::todoFmt;
QTextCharFormat DevSettings::onFmt;
QTextCharFormat DevSettings::onEventFmt;
QTextCharFormat DevSettings::onChannelsFmt;
QTextCharFormat DevSettings::onMePreFmt;

namespace {

QTextCharFormat foreground(const QColor &colour)
{
    QTextCharFormat fmt;
    fmt.setForeground(QBrush(colour, Qt::SolidPattern));
    return fmt;
}

QTextCharFormat boldForeground(const QColor &colour)
{
    QTextCharFormat fmt = foreground(colour);
    fmt.setFontWeight(QFont::Bold);
    return fmt;
}

QTextCharFormat squiggle(const QColor &colour)
{
    QTextCharFormat fmt;
    fmt.setUnderlineColor(colour);
    fmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    return fmt;
}

} // namespace

void DevSettings::InitializeAllSettings()
{
    buildPatterns();
    buildCommandPatterns();
    buildFormats();
}

void DevSettings::buildPatterns()
{
    const auto insensitive = QRegularExpression::CaseInsensitiveOption;

    commentStartRgx = QRegularExpression(QStringLiteral("^ */\\*"));
    commentEndRgx = QRegularExpression(QStringLiteral("^ *\\*/ *"));
    singleLCommentRgx = QRegularExpression(QStringLiteral("^ *;"));
    singleLRCommentRgx = QRegularExpression(QStringLiteral("^ *rem($| .+?)"), insensitive);
    openBracketRgx = QRegularExpression(QStringLiteral("( |^)\\{( |$)"));
    closeBracketRgx = QRegularExpression(QStringLiteral("( |^)\\}( |$)"));
    ctrlRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(if|elseif|while)( |$)"), insensitive);
    ctrlElseRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(else)( |$)"), insensitive);
    // Case sensitive on purpose: `VAR` is not the variable command.
    varRgx = QRegularExpression(QStringLiteral("^ *[.!/]{0,4}(var)( |$)"));
    pipeRgx = QRegularExpression(QStringLiteral(" [|{] "));
}

void DevSettings::buildCommandPatterns()
{
    // Appends, so this must run exactly once per process.
    const QStringList commands = MslInfo::getAllMslCmds();
    cmdRgx.reserve(cmdRgx.size() + commands.size());
    for (const QString &name : commands) {
        cmdRgx.append(QRegularExpression(
            QStringLiteral("^ *[.!/]{0,4}(") + name + QStringLiteral(")\\b"),
            QRegularExpression::CaseInsensitiveOption
                | QRegularExpression::UseUnicodePropertiesOption));
    }
}

void DevSettings::buildFormats()
{
    const QColor commentGreen(102, 153, 51);
    const QColor olive(128, 128, 0);
    const QColor blue(0, 51, 204);

    commentFmt = foreground(commentGreen);

    rcommentFmt = foreground(commentGreen);
    rcommentFmt.setUnderlineColor(olive);
    rcommentFmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);

    commentNoEndFmt = foreground(commentGreen);
    commentNoEndFmt.setUnderlineColor(Qt::red);
    commentNoEndFmt.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);

    errFmt = squiggle(Qt::red);
    wrnFmt = squiggle(olive);
    infFmt = squiggle(QColor(255, 153, 51));

    aliasFmt = boldForeground(QColor(0, 0, 0));
    aliasSwitchFmt = QTextCharFormat();
    aliasSwitchFmt.setFontItalic(true);
    aliasNameFmt = QTextCharFormat();
    aliasNameFmt.setFontWeight(QFont::Bold);

    dialogFmt = boldForeground(QColor(0, 0, 0));
    dialogSwitchFmt = QTextCharFormat();
    dialogSwitchFmt.setFontItalic(true);
    dialogNameFmt = QTextCharFormat();
    dialogNameFmt.setFontWeight(QFont::Bold);
    dialogCmdFmt = boldForeground(blue);
    dialogStrFmt = foreground(QColor(0, 51, 153));

    openBracketFmt = boldForeground(blue);
    closeBracketFmt = boldForeground(blue);
    cmdFmt = foreground(QColor(153, 102, 204));
    ctrlFmt = boldForeground(blue);
    pipeFmt = QTextCharFormat();

    identFmt = foreground(QColor(83, 83, 142));
    identPropFmt = foreground(QColor(Qt::gray));
    varFmt = foreground(QColor(197, 113, 0));
    groupFmt = foreground(QColor(102, 153, 153));
    groupCtrlFmt = boldForeground(blue);
    todoFmt = foreground(QColor(0, 0, 153));
    onFmt = boldForeground(QColor(0, 0, 0));
    onEventFmt = foreground(QColor(0, 153, 153));
    onChannelsFmt = foreground(QColor(0, 0, 0));
    onMePreFmt = foreground(QColor(0, 0, 153));
}
