#include "aboutdialog.h"

#include <QCoreApplication>
#include <QFont>
#include <QLabel>
#include <QPushButton>

AboutDialog::AboutDialog(QWidget *parent)
    : QDialog(parent)
{
    setModal(true);
    setFixedSize(287, 148);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    okButton = new QPushButton(this);
    okButton->setGeometry(QRect(190, 120, 85, 27));

    label = new QLabel(this);
    label->setGeometry(QRect(20, 10, 250, 31));
    QFont titleFont(QStringLiteral("Monospace"));
    titleFont.setPointSize(20);
    titleFont.setWeight(QFont::Bold);
    label->setFont(titleFont);

    label_2 = new QLabel(this);
    label_2->setGeometry(QRect(30, 50, 56, 14));
    label_3 = new QLabel(this);
    label_3->setGeometry(QRect(90, 50, 56, 14));

    label_4 = new QLabel(this);
    label_4->setGeometry(QRect(20, 70, 241, 51));
    label_4->setTextFormat(Qt::RichText);
    label_4->setOpenExternalLinks(true);

    retranslateUi(this);
    connect(okButton, &QPushButton::clicked, this, &AboutDialog::okClicked);
}

void AboutDialog::retranslateUi(QDialog *Dialog)
{
    Q_UNUSED(Dialog);
    okButton->setText(QCoreApplication::translate("Dialog", "&Ok"));
    label->setText(QCoreApplication::translate("Dialog", "Brombell - Tarnwick"));
    label_2->setText(QCoreApplication::translate("Dialog", "Version:"));
    label_3->setText(QCoreApplication::translate("Dialog", "0.1.1.19"));
    label_4->setText(QCoreApplication::translate(
        "Dialog",
        "<html><body style=\"font-family:'Sans'; font-size:10pt;\">"
        "<p style=\"margin:0\">For support See: Tarnwick developers</p>"
        "<p style=\"margin:0\"><a href=\"irc://irc.libera.chat/#tarnwick\">"
        "<span style=\"text-decoration: underline; color:#0000ff;\">#tarnwick on Libera.Chat</span></a></p>"
        "<p style=\"margin:0\"><a href=\"irc://irc.oftc.net/#tarnwick\">"
        "<span style=\"text-decoration: underline; color:#0000ff;\">#tarnwick on OFTC</span></a></p>"
        "</body></html>"));
}

void AboutDialog::okClicked()
{
    done(0);
}
