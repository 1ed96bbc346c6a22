#include "newprojectdialog.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QListWidget>

NewProjectDialog::NewProjectDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Choose A Tool"));
    setFixedSize(340, 280);

    QLabel *label = new QLabel(tr("Choose A Tool:"), this);
    label->setGeometry(QRect(20, 10, 100, 20));

    buttonBox = new QDialogButtonBox(this);
    buttonBox->setGeometry(QRect(30, 240, 280, 32));
    buttonBox->setOrientation(Qt::Horizontal);
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttonBox, &QDialogButtonBox::accepted, this, [this] { selectBtnClicked(); });
    connect(buttonBox, &QDialogButtonBox::rejected, this, &NewProjectDialog::cancelBtnClicked);

    listWidget = new QListWidget(this);
    listWidget->setObjectName(QStringLiteral("listWidget"));
    listWidget->setGeometry(QRect(20, 30, 300, 200));
    listWidget->setAutoFillBackground(false);
    listWidget->setStyleSheet(QStringLiteral("background-color: rgb(207, 207, 207);"));
    listWidget->setIconSize(QSize(28, 25));
    listWidget->setTextElideMode(Qt::ElideRight);
    listWidget->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    listWidget->setResizeMode(QListView::Adjust);
    listWidget->setSpacing(0);
    listWidget->setGridSize(QSize(130, 50));
    listWidget->setViewMode(QListView::IconMode);
    listWidget->setWordWrap(false);
    buildToolList();
    connect(listWidget, &QListWidget::doubleClicked, this, &NewProjectDialog::selectBtnClicked);
}

void NewProjectDialog::buildToolList()
{
    // The order is the contract with MainWindow::newFile: the row is the
    // dialog's result.
    struct Tool {
        const char *text;
        const char *icon;
        const char *description;
    };
    static const Tool tools[] = {
        {QT_TR_NOOP("Blank"), "blank.png", QT_TR_NOOP("Opens a blank editor.")},
        {QT_TR_NOOP("Dialog"), "dialog.png", QT_TR_NOOP("Opens a new dialog builder window")},
        {QT_TR_NOOP("Dialog Script"), "dialog_code.png",
         QT_TR_NOOP("This open does not yet exists.")},
        {QT_TR_NOOP("Picture Window"), "picwin.png", QT_TR_NOOP("Opens a picture window editor.")},
        {QT_TR_NOOP("Script File"), "scriptFile.png", QT_TR_NOOP("Opens an mSL script editor")},
        {QT_TR_NOOP("Text File"), "textFile.png", QT_TR_NOOP("Opens a plain text editor")},
    };
    for (const Tool &tool : tools) {
        auto *item = new QListWidgetItem(
            QIcon(QStringLiteral(":/newFile/resources/img_assets/new_type/")
                  + QLatin1String(tool.icon)),
            tr(tool.text), listWidget);
        item->setData(Qt::WhatsThisRole, tr(tool.description));
    }
    // The grid size decides what of it shows.
    listWidget->item(2)->setData(Qt::SizeHintRole, QSize(200, 200));
}

void NewProjectDialog::cancelBtnClicked()
{
    done(-1);
}

void NewProjectDialog::selectBtnClicked(QModelIndex index)
{
    Q_UNUSED(index);
    // Ok does nothing until a tool is picked.
    if (listWidget->currentItem())
        done(listWidget->currentIndex().row());
}
