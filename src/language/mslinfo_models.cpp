#include "mslinfo.h"

#include "msltextedit.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QLatin1String>
#include <QStandardItem>
#include <QStandardItemModel>

namespace {

const char propertyIconPath[] = ":/completer/resources/img_assets/completer/property.png";
const char builtIconPath[] = ":/completer/resources/img_assets/completer/builtident.png";
const char customIconPath[] = ":/completer/resources/img_assets/completer/customident.png";
const char customLocalIconPath[] =
    ":/completer/resources/img_assets/completer/customlocalident.png";
const char comIconDir[] = ":/completer/com/resources/img_assets/com/";

// The sixteen mIRC colours, by colour number.
const QBrush *colorBrushes()
{
    static QBrush colors[16];
    static bool built = false;
    if (!built) {
        static const int rgb[16][3] = {
            { 255, 255, 255 }, { 0, 0, 0 },       { 0, 0, 127 },     { 0, 147, 0 },
            { 255, 0, 0 },     { 127, 0, 0 },     { 156, 0, 156 },   { 252, 127, 0 },
            { 255, 255, 0 },   { 0, 252, 0 },     { 0, 147, 147 },   { 0, 255, 255 },
            { 0, 0, 252 },     { 255, 0, 255 },   { 127, 127, 127 }, { 210, 210, 210 },
        };
        for (int i = 0; i < 16; ++i)
            colors[i] = QBrush(QColor(rgb[i][0], rgb[i][1], rgb[i][2]), Qt::SolidPattern);
        built = true;
    }
    return colors;
}

// One colour code row: the control character, the number part, and the
// colours themselves as a preview. A negative background means none.
void appendColorCode(QStandardItemModel *model, const QString &number, int fg, int bg = -1)
{
    const QBrush *colors = colorBrushes();
    QStandardItem *item = new QStandardItem(QChar(0x03) + number);
    item->setForeground(colors[fg]);
    if (bg >= 0)
        item->setBackground(colors[bg]);
    QFont font = item->font();
    font.setWeight(QFont::Bold);
    item->setFont(font);
    model->appendRow(item);
}

} // namespace

QAbstractItemModel *MslInfo::getComProIds(QObject *parent)
{
    struct progId
    {
        const char *name;
        const char *icon;
    };

    // Spellings stand as the objects register themselves, uneven case and
    // the blank in the Skype entry included.
    static const progId progIds[] = {
        { "WScript.Shell", "com.shell.png" },
        { "WScript.Network", "com.png" },
        { "Shell.UIHelper", "com.shell.png" },
        { "Shell.Explorer.1", "com.explorer.png" },
        { "Shell.Explorer.2", "com.explorer.png" },
        { "VBScript.Regexp", "com.png" },
        { "Scripting.Dictionary", "com.explorer.png" },
        { "Scripting.FileSystemObject", "com.explorer.png" },
        { "MSScriptControl.ScriptControl", "com.win.png" },
        { "WbemScripting.SwbemDateTime", "com.win.png" },
        { "WbemScripting.SWbemLocator", "com.win.png" },
        { "WbemScripting.SWbem.LastError", "com.win.png" },
        { "WbemScripting.SWbemObjectPath", "com.win.png" },
        { "WbemScripting.SWbemNamedValueSet", "com.win.png" },
        { "WbemScripting.SWbemRefresher", "com.win.png" },
        { "MSXML.DOMDocument", "com.xml.png" },
        { "Msxml2.DOMDocument", "com.xml.png" },
        { "Msxml2.DOMDocument.3.0", "com.xml.png" },
        { "Msxml2.DOMDocument.4.0", "com.xml.png" },
        { "Msxml2.DOMDocument.6.0", "com.xml.png" },
        { "Microsoft.XMLDOM", "com.xml.png" },
        { "MSXML2.XMLHTTP", "com.xml.png" },
        { "MSXML2.XMLHTTP.3.0", "com.xml.png" },
        { "Microsoft.XMLHTTP", "com.xml.png" },
        { "MSXML2.DSOControl", "com.xml.png" },
        { "MSXML2.DSOControl.3.0", "com.xml.png" },
        { "Skype Skype4COM.Skype", "com.skype.png" },
        { "iTunes.Application", "com.itunes.png" },
        { "TW4Win.Application", "com.app.png" },
        { "SnagIt.ImageCapture", "com.snagit.png" },
        { "Vim.Application", "com.app.png" },
        { "Mapviewer.Application", "com.app.png" },
        { "Word.Application", "com.word.png" },
        { "Excel.Application", "com.excel.png" },
        { "PowerPoint.Application", "com.pp.png" },
        { "Access.Application", "com.access.png" },
        { "InternetExplorer.Application", "com.ie.png" },
        { "FrontPage.Application", "com.frontpage.png" },
        { "Outlook.Application", "com.outlook.png" },
        { "Shell.Application", "com.shell.png" },
        { "Photoshop.Application", "com.photoshop.png" },
        { "Photoshop.Application.7", "com.photoshop.png" },
        { "AcroExch.App", "com.adobe.png" },
        { "AcroExch.PDDoc", "com.adobe.png" },
        { "AcroExch.AVDoc", "com.adobe.png" },
        { "SAPI.spVoice", "com.png" },
        { "CDO.Configuration", "com.email.png" },
        { "CDO.Message", "com.email.png" },
        { "CDO.DropDirectory", "com.email.png" },
        { "ADODB.Connection", "com.database.png" },
        { "ADODB.Stream", "com.database.png" },
        { "ADODB.Command", "com.database.png" },
        { "ADODB.Recordset", "com.database.png" },
        { "ADOX.Catalog", "com.database.png" },
        { "ADOX.Column", "com.database.png" },
        { "ADOX.Group", "com.database.png" },
        { "ADOX.Index", "com.database.png" },
        { "ADOX.Key", "com.database.png" },
        { "ADOX.Table", "com.database.png" },
        { "ADOX.User", "com.database.png" },
        { "RDS.DataControl", "com.database.png" },
        { "RDS.DataSpace", "com.database.png" },
        { "RDSServer.DataFactory", "com.database.png" },
        { "ADOMD.Catalog", "com.database.png" },
        { "ADOMD.CellSet", "com.database.png" },
        { "Notes.NotesSession", "com.lotus.png" },
        { "Notes.NotesUIWorkspace", "com.lotus.png" },
        { "JavaWebStart.isInstalled", "com.java.png" },
        { "JavaWebStart.isInstalled.1.5.0.0", "com.java.png" },
        { "JavaWebStart.isInstalled.1.6.0.0", "com.java.png" },
        { "PocketSOAP.Envelope", "com.globe.png" },
        { "PocketSOAP.Envelope.1", "com.globe.png" },
        { "PocketSOAP.Envelope.2", "com.globe.png" },
        { "PocketSOAP.HTTPTransport", "com.globe.png" },
        { "PocketSOAP.Node", "com.globe.png" },
        { "ASPMAIL.ASPMailCtrl.1", "com.email.png" },
        { "SScripting.IPNetwork", "com.dll.png" },
        { "SScripting.LMNetwork", "com.dll.png" },
        { "SScripting.NBTNetwork", "com.dll.png" },
        { "SScripting.SNMPManager", "com.dll.png" },
        { "SScripting.SSHSupport", "com.dll.png" },
        { "SScripting.System", "com.dll.png" },
        { "ImageMagickObject.MagickImage.1", "com.imagemagick.png" },
        { "OracleInProcServer.XOraSession", "com.oracle.png" },
        { "Litex.LiteConnection", "com.sql.png" },
        { "LiteX.LiteStatement", "com.sql.png" },
        { "VirtualBox.VirtualBox", "com.virtualbox.png" },
        { "VirtualBox.VirtualBox.1", "com.virtualbox.png" },
        { "VirtualBox.Session", "com.virtualbox.png" },
        { "VirtualBox.Session.1", "com.virtualbox.png" },
        { "UnityWebPlayer.UnityWebPlayer.1", "com.unity.png" },
    };

    // Ninety-one names share twenty-eight pictures, and reading a picture
    // costs more than the rest of the list: each is read once.
    QHash<QLatin1String, QIcon> icons;
    QStandardItemModel *model = new QStandardItemModel(parent);
    for (const progId &id : progIds) {
        const QLatin1String iconName(id.icon);
        auto icon = icons.constFind(iconName);
        if (icon == icons.constEnd())
            icon = icons.insert(iconName, QIcon(QLatin1String(comIconDir) + iconName));
        model->appendRow(new QStandardItem(*icon, QLatin1String(id.name)));
    }
    return model;
}

// Every way of writing a colour code with one or two digits per number:
// foreground alone, then each background after it.
QAbstractItemModel *MslInfo::getColorCodes(QObject *parent)
{
    QStandardItemModel *model = new QStandardItemModel(parent);
    for (int n = 0; n <= 15; ++n) {
        appendColorCode(model, QString::asprintf("%.2d", n), n);
        if (n <= 9)
            appendColorCode(model, QString::asprintf("%d", n), n);

        for (int nn = 0; nn <= 15; ++nn) {
            appendColorCode(model, QString::asprintf("%.2d,%.2d", n, nn), n, nn);
            if (n <= 9)
                appendColorCode(model, QString::asprintf("%d,%.2d", n, nn), n, nn);
            if (n <= 9 && nn <= 9)
                appendColorCode(model, QString::asprintf("%d,%d", n, nn), n, nn);
            if (nn <= 9)
                appendColorCode(model, QString::asprintf("%.2d,%d", n, nn), n, nn);
        }
    }
    return model;
}

// The table's identifiers, then the document's own aliases. Rebuilt at
// every use on purpose: the list must show the aliases of the moment.
QAbstractItemModel *MslInfo::getIdentIds(QObject *parent, QTextBlock block)
{
    static const identifier *idents = getIdentsList();

    QStandardItemModel *model = new QStandardItemModel(parent);

    // No check for repeats among the table rows: $decode stands twice.
    const QIcon builtIcon{QLatin1String(builtIconPath)};
    for (const identifier *row = idents; row->name; ++row)
        model->appendRow(new QStandardItem(builtIcon, QLatin1String(row->name)));

    // An alias spread over several lines, defined twice, or named like a
    // table identifier is listed once; the first line met decides the icon.
    const QIcon customIcon{QLatin1String(customIconPath)};
    const QIcon customLocalIcon{QLatin1String(customLocalIconPath)};
    for (; block.isValid(); block = block.next()) {
        const CBlockData *data = recordOf(block);
        if (!data || data->blockType != CBlockData::Alias)
            continue;
        const QString text = QLatin1Char('$') + data->containedBlock;
        if (!model->findItems(text, Qt::MatchExactly, 0).isEmpty())
            continue;
        model->appendRow(new QStandardItem(data->isLocal ? customLocalIcon : customIcon, text));
    }
    return model;
}

// Null when the identifier is unknown; an empty model when it is known
// but has no properties.
QAbstractItemModel *MslInfo::getIdentPropProIds(QString ident, QObject *parent)
{
    static const identifier *idents = getIdentsList();

    const identifier *row = idents;
    while (row->name && ident.compare(QLatin1String(row->name), Qt::CaseInsensitive) != 0)
        ++row;
    if (!row->name)
        return nullptr;

    QStandardItemModel *model = new QStandardItemModel(parent);
    const QIcon propertyIcon{QLatin1String(propertyIconPath)};
    for (const char *const *p = row->props; *p; ++p)
        model->appendRow(new QStandardItem(propertyIcon, QLatin1String(*p)));
    return model;
}
