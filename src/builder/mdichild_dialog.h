#ifndef MDICHILD_DIALOG_H
#define MDICHILD_DIALOG_H

#include <QMainWindow>
#include <QPushButton>
#include <QString>

class MdiChildDialogDummy;
class QAction;
class QDockWidget;
class QLabel;
class QLineEdit;
class QMdiArea;
class QMouseEvent;
class QTableWidget;

// A toolbox button that offers its control kind as a drag instead of clicking.
class TQPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit TQPushButton(QString type);
    TQPushButton(QString type, QString text);

    QString type;

protected:
    void mousePressEvent(QMouseEvent *event) override;
};

// A dialog design in a tab: the design surface with its toolbar, toolbox,
// property box and status bar.
class MdiChildBuilder : public QMainWindow
{
    Q_OBJECT

public:
    explicit MdiChildBuilder(QWidget *parent = nullptr);

public slots:
    void newSelection(QWidget *obj, QString str);
    void mousePressEvent(QMouseEvent *event) override;
    void showGridTriggered(bool checked);
    void incGridSize();
    void decGridSize();
    void generateCode();
    void textValueChanged();

private:
    void buildMDIArea();
    void buildToolBar();
    void buildToolBox();
    void buildPropBox();
    void buildStatBar();
    QDockWidget *setupToolBoxNoPages();
    QDockWidget *setupPropBox();

    QMdiArea *dummyWindowContainer = nullptr;
    MdiChildDialogDummy *dummyWindow = nullptr;
    QDockWidget *toolBoxContainer = nullptr;
    QDockWidget *propBoxContainer = nullptr;
    QLabel *label = nullptr;
    QTableWidget *table = nullptr;
    QLabel *mosPos = nullptr;
    QAction *gridP = nullptr;
    QAction *gridM = nullptr;
    QAction *objSlct = nullptr;
    QLineEdit *textValue = nullptr;
    QWidget *activeObj = nullptr;
    QString activeObjType;
};

#endif // MDICHILD_DIALOG_H
