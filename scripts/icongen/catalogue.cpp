// The catalogue, as a list: resource prefix, file, size and picture of each
// image, in the order they are written to the resource collection.

#include "catalogue.h"

#include "pictures.h"
#include "shapes.h"

std::vector<Entry> catalogue()
{
    const QString mainDir = QStringLiteral("img_assets/options/main/");
    const QString tabsDir = mainDir + QStringLiteral("tabs/");
    const QString syntaxDir = QStringLiteral("img_assets/messages/syntax/");
    const QString msgsDir = syntaxDir + QStringLiteral("msgs/");
    const QString ddeDir = QStringLiteral("img_assets/options/dde/");
    const QString newDir = QStringLiteral("img_assets/new_type/");
    const QString completerDir = QStringLiteral("img_assets/completer/");
    const QString comDir = QStringLiteral("img_assets/com/");
    const QString blockDir = QStringLiteral("img_assets/editor/block/");
    const QString findDir = QStringLiteral("img_assets/editor/find/");
    const QString controlsDir = QStringLiteral("img_assets/controls/");
    const QString toolboxDir = QStringLiteral("img_assets/toolbox/");

    const QString tabbar = QStringLiteral("/tabbar");
    const QString toolbar = QStringLiteral("/general/toolbar");
    const QString syntax = QStringLiteral("/messages/syntax");
    const QString msgs = QStringLiteral("/messages/syntax/msgs");
    const QString dde = QStringLiteral("/options/dde");
    const QString newFile = QStringLiteral("/newFile");
    const QString completer = QStringLiteral("/completer");
    const QString com = QStringLiteral("/completer/com");
    const QString block = QStringLiteral("/block");
    const QString find = QStringLiteral("/find");
    const QString general = QStringLiteral("/general");
    const QString guiToolbar = QStringLiteral("/guiToolbar");
    const QString toolbox = QStringLiteral("/toolbox");
    const QString statusbar = QStringLiteral("/statusbar");

    auto bubbleOf = [](QColor c) { return [c](QPainter &p) { bubble(p, c); }; };

    return {
        { tabbar, tabsDir + "dialog.png", 16, drawTabDialog },
        { tabbar, tabsDir + "file.png", 16, drawTabFile },
        { tabbar, tabsDir + "file-read-only.png", 16, drawTabFileReadOnly },

        { toolbar, mainDir + "save_all.png", 16, drawSaveAll },
        { toolbar, mainDir + "exit.png", 16, drawExit },
        { toolbar, mainDir + "undo.png", 16, drawUndo },
        { toolbar, mainDir + "redo.png", 16, drawRedo },
        { toolbar, mainDir + "cut.png", 16, drawCut },
        { toolbar, mainDir + "copy.png", 16, drawCopy },
        { toolbar, mainDir + "paste.png", 16, drawPaste },
        { toolbar, mainDir + "delete.png", 16, drawMenuDelete },
        { toolbar, mainDir + "info.png", 16, drawInfo },
        { toolbar, mainDir + "page_white_add.png", 16, drawPageAdd },
        { toolbar, mainDir + "folder_page.png", 16, drawFolderPage },
        { toolbar, mainDir + "page_white_delete.png", 16, drawPageDelete },
        { toolbar, mainDir + "save.png", 16, drawSave },
        { toolbar, mainDir + "share.png", 16, drawShare },

        { syntax, syntaxDir + "information.png", 16, drawInformation },
        { syntax, syntaxDir + "warning.png", 16, drawWarning },
        { syntax, syntaxDir + "error.png", 16, drawError },

        { msgs, msgsDir + "blue.png", 16, bubbleOf(kBlue) },
        { msgs, msgsDir + "green.png", 16, bubbleOf(kGreen) },
        { msgs, msgsDir + "grey.png", 16, bubbleOf(kGrey) },
        { msgs, msgsDir + "orange.png", 16, bubbleOf(kOrange) },
        { msgs, msgsDir + "red.png", 16, bubbleOf(kRed) },
        { msgs, msgsDir + "yellow.png", 16, bubbleOf(kYellow) },

        { dde, ddeDir + "add.png", 16, drawDdeAdd },
        { dde, ddeDir + "delete.png", 16, drawDdeDelete },

        { newFile, newDir + "blank.png", 32, drawNewBlank },
        { newFile, newDir + "dialog.png", 32, drawNewDialog },
        { newFile, newDir + "dialog_code.png", 32, drawNewDialogCode },
        { newFile, newDir + "picwin.png", 32, drawNewPicWin },
        { newFile, newDir + "scriptFile.png", 32, drawNewScript },
        { newFile, newDir + "textFile.png", 32, drawNewText },

        { completer, completerDir + "property.png", 16, drawProperty },
        { completer, completerDir + "builtident.png", 16, drawBuiltIdent },
        { completer, completerDir + "customident.png", 16, drawCustomIdent },
        { completer, completerDir + "customlocalident.png", 16, drawCustomLocalIdent },

        { com, comDir + "com.shell.png", 16, drawComShell },
        { com, comDir + "com.png", 16, drawComGeneric },
        { com, comDir + "com.explorer.png", 16, drawComExplorer },
        { com, comDir + "com.win.png", 16, drawComWin },
        { com, comDir + "com.xml.png", 16, drawComXml },
        { com, comDir + "com.skype.png", 16, drawComSkype },
        { com, comDir + "com.itunes.png", 16, drawComItunes },
        { com, comDir + "com.app.png", 16, drawComApp },
        { com, comDir + "com.snagit.png", 16, drawComSnagit },
        { com, comDir + "com.word.png", 16, drawComWord },
        { com, comDir + "com.excel.png", 16, drawComExcel },
        { com, comDir + "com.pp.png", 16, drawComPowerPoint },
        { com, comDir + "com.access.png", 16, drawComAccess },
        { com, comDir + "com.ie.png", 16, drawComIe },
        { com, comDir + "com.frontpage.png", 16, drawComFrontPage },
        { com, comDir + "com.outlook.png", 16, drawComOutlook },
        { com, comDir + "com.photoshop.png", 16, drawComPhotoshop },
        { com, comDir + "com.adobe.png", 16, drawComAdobe },
        { com, comDir + "com.email.png", 16, drawComEmail },
        { com, comDir + "com.database.png", 16, drawComDatabase },
        { com, comDir + "com.lotus.png", 16, drawComLotus },
        { com, comDir + "com.java.png", 16, drawComJava },
        { com, comDir + "com.globe.png", 16, drawComGlobe },
        { com, comDir + "com.dll.png", 16, drawComDll },
        { com, comDir + "com.imagemagick.png", 16, drawComImageMagick },
        { com, comDir + "com.oracle.png", 16, drawComOracle },
        { com, comDir + "com.sql.png", 16, drawComSql },
        { com, comDir + "com.virtualbox.png", 16, drawComVirtualBox },
        { com, comDir + "com.unity.png", 16, drawComUnity },

        { block, blockDir + "expanded.png", 16, drawFoldExpanded },
        { block, blockDir + "right.png", 16, drawFoldRight },
        { block, blockDir + "expanded2.png", 16, drawFoldExpanded2 },
        { block, blockDir + "right2.png", 16, drawFoldRight2 },

        { find, findDir + "magnify.png", 16, drawMagnify },
        { find, findDir + "search_green.png", 16, drawSearchGreen },
        { find, findDir + "search_red.png", 16, drawSearchRed },
        { find, findDir + "search_blue.png", 16, drawSearchBlue },
        { find, findDir + "search_orange.png", 16, drawSearchOrange },
        { find, findDir + "previous.png", 16, drawPrevious },
        { find, findDir + "next.png", 16, drawNext },
        { find, findDir + "close.png", 16, drawClose },

        { general, QStringLiteral("img_assets/frmIcon.png"), 32, drawFrmIcon },

        { guiToolbar, controlsDir + "alignToGrid.bmp", 16, drawAlignToGrid },
        { guiToolbar, controlsDir + "grid.bmp", 16, drawGrid },
        { guiToolbar, controlsDir + "grid_plus.bmp", 16, drawGridPlus },
        { guiToolbar, controlsDir + "grid_minus.bmp", 16, drawGridMinus },
        { guiToolbar, controlsDir + "selectable.png", 16, drawSelectable },
        { guiToolbar, controlsDir + "generate.png", 16, drawGenerate },

        { toolbox, toolboxDir + "button.bmp", 16, drawTbButton },
        { toolbox, toolboxDir + "edit.bmp", 16, drawTbEdit },
        { toolbox, toolboxDir + "pass.bmp", 16, drawTbPass },
        { toolbox, toolboxDir + "rich.bmp", 16, drawTbRich },
        { toolbox, toolboxDir + "text.bmp", 16, drawTbText },
        { toolbox, toolboxDir + "link.bmp", 16, drawTbLink },
        { toolbox, toolboxDir + "combo.bmp", 16, drawTbCombo },
        { toolbox, toolboxDir + "list.bmp", 16, drawTbList },
        { toolbox, toolboxDir + "checkList.bmp", 16, drawTbCheckList },
        { toolbox, toolboxDir + "check.bmp", 16, drawTbCheck },
        { toolbox, toolboxDir + "radioList.bmp", 16, drawTbRadioList },
        { toolbox, toolboxDir + "radio.bmp", 16, drawTbRadio },
        { toolbox, toolboxDir + "icon.bmp", 16, drawTbIcon },
        { toolbox, toolboxDir + "box.bmp", 16, drawTbBox },
        { toolbox, toolboxDir + "tab.bmp", 16, drawTbTab },
        { toolbox, toolboxDir + "tabPage.bmp", 16, drawTbTabPage },
        { toolbox, toolboxDir + "vscroll.bmp", 16, drawTbVScroll },
        { toolbox, toolboxDir + "hscroll.bmp", 16, drawTbHScroll },

        { statusbar, QStringLiteral("img_assets/status/ruler.png"), 16, drawRuler },
        // The window-size image sits one folder up from the ruler.
        { statusbar, QStringLiteral("img_assets/window.png"), 16, drawWindowSize },
    };
}

