#ifndef NEWPROJECTDIALOG_H
#define NEWPROJECTDIALOG_H

#include <QDialog>
#include <QModelIndex>

class QDialogButtonBox;
class QListWidget;

// The chooser behind New. Its result is the row of the chosen tool:
// 0 Blank, 1 Dialog, 2 Dialog Script, 3 Picture Window, 4 Script File,
// 5 Text File; -1 for Cancel.
class NewProjectDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NewProjectDialog(QWidget *parent);

protected slots:
    void cancelBtnClicked();
    void selectBtnClicked(QModelIndex index = QModelIndex());

private:
    void buildToolList();

    QDialogButtonBox *buttonBox = nullptr;
    QListWidget *listWidget = nullptr;

};

#endif // NEWPROJECTDIALOG_H
