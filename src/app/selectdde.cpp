#include "selectdde.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QIcon>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

namespace {

QSettings generalSettings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwick"),
                     QStringLiteral("general"));
}

} // namespace

SelectDDE::SelectDDE(QWidget *parent)
    : QDialog(parent)
{
    setFixedSize(400, 315);

    buttonBox = new QDialogButtonBox(this);
    buttonBox->setGeometry(QRect(20, 280, 351, 32));
    buttonBox->setOrientation(Qt::Horizontal);
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    label = new QLabel(this);
    label->setGeometry(QRect(20, 1, 351, 120));
    label->setWordWrap(true);
    label->setTextFormat(Qt::RichText);

    label_2 = new QLabel(this);
    label_2->setGeometry(QRect(20, 120, 131, 16));

    listWidget = new QListWidget(this);
    listWidget->setGeometry(QRect(20, 140, 351, 131));
    listWidget->addItem(QStringLiteral("mirc"));

    pushButton = new QPushButton(this);
    pushButton->setGeometry(QRect(330, 110, 31, 27));
    pushButton->setIcon(QIcon(QStringLiteral(":/options/dde/resources/img_assets/options/dde/add.png")));
    pushButton_2 = new QPushButton(this);
    pushButton_2->setGeometry(QRect(290, 110, 31, 27));
    pushButton_2->setIcon(
        QIcon(QStringLiteral(":/options/dde/resources/img_assets/options/dde/delete.png")));

    retranslateUi(this);

    connect(pushButton, &QPushButton::clicked, this, &SelectDDE::addBtn);
    connect(pushButton_2, &QPushButton::clicked, this, &SelectDDE::delBtn);
    connect(buttonBox, &QDialogButtonBox::accepted, this, &SelectDDE::selectBtnClicked);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &SelectDDE::cancelBtnClicked);
}

void SelectDDE::retranslateUi(QDialog *Dialog)
{
    Dialog->setWindowTitle(QCoreApplication::translate("SelectDDE", "DDE Server Setup"));
    label->setText(QCoreApplication::translate(
        "SelectDDE",
        "<html><body style=\"font-family:'Sans'; font-size:10pt;\">"
        "<p align=\"justify\">This appears to be the first time you are running Tarnwick. To take "
        "advantage of Tarnwick's full functionality, you must set up mIRC's dde server:</p>"
        "<p align=\"justify\">(Tarnwick supports syncing with multiple mIRCs, simply make sure "
        "each mIRC has a unique DDE name) </p></body></html>"));
    label_2->setText(QCoreApplication::translate("SelectDDE", "DDE Server Names:"));
}

void SelectDDE::addBtn()
{
    const QString name = QInputDialog::getText(
        this, tr("DDE Server Name"), tr("Please enter the mIRC's DDE Server Name ($ddename)"),
        QLineEdit::Normal, QString());
    // Cancel answers with an empty text, which adds nothing; duplicates are
    // let through.
    if (name.isEmpty())
        return;
    listWidget->addItem(name);
    if (!pushButton_2->isEnabled())
        pushButton_2->setEnabled(true);
}

void SelectDDE::delBtn()
{
    if (listWidget->currentItem())
        delete listWidget->takeItem(listWidget->currentRow());
    if (listWidget->count() == 0)
        pushButton_2->setEnabled(false);
}

void SelectDDE::selectBtnClicked()
{
    QSettings s = generalSettings();
    s.setValue(QStringLiteral("dde_keys"), listWidget->count());
    // Keys left over from a longer list are not removed; dde_keys bounds
    // what is read.
    for (int i = 0; i < listWidget->count(); ++i)
        s.setValue(QStringLiteral("dde_") + QString::number(i), listWidget->item(i)->text());
    s.sync();
    done(0);
}

void SelectDDE::cancelBtnClicked()
{
    const int answer = QMessageBox::warning(
        this, tr("Proceed?"),
        tr("Not setting up even a single mIRC DDE server will hinder Tarnwick's functionality "
           "significantly, are you sure you want to proceed? (you can change your mind at a later "
           "time using the options menu)"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    if (answer == QMessageBox::No)
        return;
    // A stored 0 tells a later start that the question was answered.
    QSettings s = generalSettings();
    s.setValue(QStringLiteral("dde_keys"), 0);
    s.sync();
    done(0);
}
