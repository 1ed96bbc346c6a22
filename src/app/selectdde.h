#ifndef SELECTDDE_H
#define SELECTDDE_H

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QPushButton;

// Edits the list of mIRC DDE server names kept in the "general" settings.
// Ready for the first-run question, which nothing asks yet.
class SelectDDE : public QDialog
{
    Q_OBJECT

public:
    explicit SelectDDE(QWidget *parent = nullptr);

private slots:
    void addBtn();
    void delBtn();
    void cancelBtnClicked();
    void selectBtnClicked();

private:
    void retranslateUi(QDialog *Dialog);

    QDialogButtonBox *buttonBox = nullptr;
    QLabel *label = nullptr;
    QLabel *label_2 = nullptr;
    QListWidget *listWidget = nullptr;
    QPushButton *pushButton = nullptr;
    QPushButton *pushButton_2 = nullptr;

};

#endif // SELECTDDE_H
