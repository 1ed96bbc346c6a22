#ifndef MDICHILD_DIALOG_H
#define MDICHILD_DIALOG_H

#include <QMainWindow>

// A dialog design in a tab.
class MdiChildBuilder : public QMainWindow
{
    Q_OBJECT

public:
    explicit MdiChildBuilder(QWidget *parent = nullptr);
};

#endif // MDICHILD_DIALOG_H
