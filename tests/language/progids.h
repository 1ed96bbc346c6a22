#ifndef PROGIDS_H
#define PROGIDS_H

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace {

// The ProgIDs with their icon file; "+" lines continue the row above.
const char progIdText[] = R"(
com.shell.png | WScript.Shell
com.png | WScript.Network
com.shell.png | Shell.UIHelper
com.explorer.png | Shell.Explorer.1, Shell.Explorer.2
com.png | VBScript.Regexp
com.explorer.png | Scripting.Dictionary, Scripting.FileSystemObject
com.win.png | MSScriptControl.ScriptControl, WbemScripting.SwbemDateTime,
+ WbemScripting.SWbemLocator, WbemScripting.SWbem.LastError, WbemScripting.SWbemObjectPath,
+ WbemScripting.SWbemNamedValueSet, WbemScripting.SWbemRefresher
com.xml.png | MSXML.DOMDocument, Msxml2.DOMDocument, Msxml2.DOMDocument.3.0,
+ Msxml2.DOMDocument.4.0, Msxml2.DOMDocument.6.0, Microsoft.XMLDOM, MSXML2.XMLHTTP,
+ MSXML2.XMLHTTP.3.0, Microsoft.XMLHTTP, MSXML2.DSOControl, MSXML2.DSOControl.3.0
com.skype.png | Skype Skype4COM.Skype
com.itunes.png | iTunes.Application
com.app.png | TW4Win.Application
com.snagit.png | SnagIt.ImageCapture
com.app.png | Vim.Application, Mapviewer.Application
com.word.png | Word.Application
com.excel.png | Excel.Application
com.pp.png | PowerPoint.Application
com.access.png | Access.Application
com.ie.png | InternetExplorer.Application
com.frontpage.png | FrontPage.Application
com.outlook.png | Outlook.Application
com.shell.png | Shell.Application
com.photoshop.png | Photoshop.Application, Photoshop.Application.7
com.adobe.png | AcroExch.App, AcroExch.PDDoc, AcroExch.AVDoc
com.png | SAPI.spVoice
com.email.png | CDO.Configuration, CDO.Message, CDO.DropDirectory
com.database.png | ADODB.Connection, ADODB.Stream, ADODB.Command, ADODB.Recordset,
+ ADOX.Catalog, ADOX.Column, ADOX.Group, ADOX.Index, ADOX.Key, ADOX.Table, ADOX.User,
+ RDS.DataControl, RDS.DataSpace, RDSServer.DataFactory, ADOMD.Catalog, ADOMD.CellSet
com.lotus.png | Notes.NotesSession, Notes.NotesUIWorkspace
com.java.png | JavaWebStart.isInstalled, JavaWebStart.isInstalled.1.5.0.0,
+ JavaWebStart.isInstalled.1.6.0.0
com.globe.png | PocketSOAP.Envelope, PocketSOAP.Envelope.1, PocketSOAP.Envelope.2,
+ PocketSOAP.HTTPTransport, PocketSOAP.Node
com.email.png | ASPMAIL.ASPMailCtrl.1
com.dll.png | SScripting.IPNetwork, SScripting.LMNetwork, SScripting.NBTNetwork,
+ SScripting.SNMPManager, SScripting.SSHSupport, SScripting.System
com.imagemagick.png | ImageMagickObject.MagickImage.1
com.oracle.png | OracleInProcServer.XOraSession
com.sql.png | Litex.LiteConnection, LiteX.LiteStatement
com.virtualbox.png | VirtualBox.VirtualBox, VirtualBox.VirtualBox.1, VirtualBox.Session,
+ VirtualBox.Session.1
com.unity.png | UnityWebPlayer.UnityWebPlayer.1
)";

// ProgID and icon file, in row order.
inline QVector<QPair<QString, QString>> expectedProgIds()
{
    QVector<QPair<QString, QString>> rows;
    QString icon;
    const QStringList lines =
        QString::fromLatin1(progIdText).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        QString ids = line.mid(1);
        if (!line.startsWith(QLatin1Char('+'))) {
            const int bar = line.indexOf(QLatin1Char('|'));
            icon = line.left(bar).trimmed();
            ids = line.mid(bar + 1);
        }
        for (const QString &id : ids.split(QLatin1Char(','), Qt::SkipEmptyParts))
            rows << qMakePair(id.trimmed(), icon);
    }
    return rows;
}

} // namespace

#endif // PROGIDS_H
