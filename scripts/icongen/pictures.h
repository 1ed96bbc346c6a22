// One function per picture: each draws a whole image on the 16-unit grid,
// and the catalogue names the file it is written to.

#pragma once

class QPainter;

// ---------------------------------------------------------------- main menu and toolbars

void drawSave(QPainter &p);
void drawSaveAll(QPainter &p);
void drawExit(QPainter &p);
void drawUndo(QPainter &p);
void drawRedo(QPainter &p);
void drawCut(QPainter &p);
void drawCopy(QPainter &p);
void drawPaste(QPainter &p);
void drawMenuDelete(QPainter &p);
void drawInfo(QPainter &p);
void drawPageAdd(QPainter &p);
void drawPageDelete(QPainter &p);
void drawFolderPage(QPainter &p);
void drawShare(QPainter &p);

// ---------------------------------------------------------------- tabs

void drawTabFile(QPainter &p);
void drawTabFileReadOnly(QPainter &p);
void drawTabDialog(QPainter &p);

// ---------------------------------------------------------------- report icons

void drawInformation(QPainter &p);
void drawWarning(QPainter &p);
void drawError(QPainter &p);

// ---------------------------------------------------------------- DDE setup

void drawDdeAdd(QPainter &p);
void drawDdeDelete(QPainter &p);

// ---------------------------------------------------------------- new document chooser

void drawNewBlank(QPainter &p);
void drawNewDialog(QPainter &p);
void drawNewDialogCode(QPainter &p);
void drawNewPicWin(QPainter &p);
void drawNewScript(QPainter &p);
void drawNewText(QPainter &p);

// ---------------------------------------------------------------- completion lists

void drawProperty(QPainter &p);
void drawBuiltIdent(QPainter &p);
void drawCustomIdent(QPainter &p);
void drawCustomLocalIdent(QPainter &p);

// ---------------------------------------------------------------- COM objects

void drawComGeneric(QPainter &p);
void drawComShell(QPainter &p);
void drawComExplorer(QPainter &p);
void drawComWin(QPainter &p);
void drawComXml(QPainter &p);
void drawComSkype(QPainter &p);
void drawComItunes(QPainter &p);
void drawComApp(QPainter &p);
void drawComSnagit(QPainter &p);
void drawComWord(QPainter &p);
void drawComExcel(QPainter &p);
void drawComPowerPoint(QPainter &p);
void drawComAccess(QPainter &p);
void drawComIe(QPainter &p);
void drawComFrontPage(QPainter &p);
void drawComOutlook(QPainter &p);
void drawComPhotoshop(QPainter &p);
void drawComAdobe(QPainter &p);
void drawComEmail(QPainter &p);
void drawComDatabase(QPainter &p);
void drawComLotus(QPainter &p);
void drawComJava(QPainter &p);
void drawComGlobe(QPainter &p);
void drawComDll(QPainter &p);
void drawComImageMagick(QPainter &p);
void drawComOracle(QPainter &p);
void drawComSql(QPainter &p);
void drawComVirtualBox(QPainter &p);
void drawComUnity(QPainter &p);

// ---------------------------------------------------------------- gutter

void drawFoldExpanded(QPainter &p);
void drawFoldRight(QPainter &p);
void drawFoldExpanded2(QPainter &p);
void drawFoldRight2(QPainter &p);

// ---------------------------------------------------------------- find bar

void drawMagnify(QPainter &p);
void drawSearchGreen(QPainter &p);
void drawSearchRed(QPainter &p);
void drawSearchBlue(QPainter &p);
void drawSearchOrange(QPainter &p);
void drawPrevious(QPainter &p);
void drawNext(QPainter &p);
void drawClose(QPainter &p);

// ---------------------------------------------------------------- dialog builder

void drawFrmIcon(QPainter &p);
void drawAlignToGrid(QPainter &p);
void drawGrid(QPainter &p);
void drawGridPlus(QPainter &p);
void drawGridMinus(QPainter &p);
void drawSelectable(QPainter &p);
void drawGenerate(QPainter &p);

// ---------------------------------------------------------------- builder toolbox

void drawTbButton(QPainter &p);
void drawTbEdit(QPainter &p);
void drawTbPass(QPainter &p);
void drawTbRich(QPainter &p);
void drawTbText(QPainter &p);
void drawTbLink(QPainter &p);
void drawTbCombo(QPainter &p);
void drawTbList(QPainter &p);
void drawTbCheckList(QPainter &p);
void drawTbRadioList(QPainter &p);
void drawTbCheck(QPainter &p);
void drawTbRadio(QPainter &p);
void drawTbIcon(QPainter &p);
void drawTbBox(QPainter &p);
void drawTbTab(QPainter &p);
void drawTbTabPage(QPainter &p);
void drawTbVScroll(QPainter &p);
void drawTbHScroll(QPainter &p);

// ---------------------------------------------------------------- status bar

void drawRuler(QPainter &p);
void drawWindowSize(QPainter &p);

// ---------------------------------------------------------------- desktop icon

void drawAppIcon(QPainter &p);
