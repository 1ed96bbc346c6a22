#include "devsettings.h"
#include "mainwindow.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    DevSettings::InitializeAllSettings();
    MainWindow window(nullptr);
    window.show();
    return app.exec();
}
