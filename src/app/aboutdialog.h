#ifndef ABOUTDIALOG_H
#define ABOUTDIALOG_H

#include <QDialog>

class QLabel;
class QPushButton;

// The name, the version and where to ask for help.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent);

    void retranslateUi(QDialog *Dialog);

private slots:
    void okClicked();

private:
    QPushButton *okButton = nullptr;
    QLabel *label = nullptr;
    QLabel *label_2 = nullptr;
    QLabel *label_3 = nullptr;
    QLabel *label_4 = nullptr;

};

#endif // ABOUTDIALOG_H
