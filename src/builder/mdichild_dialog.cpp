#include "mdichild_dialog.h"

// Placeholder until the builder window lands: an empty main window.
MdiChildBuilder::MdiChildBuilder(QWidget *parent)
    : QMainWindow(nullptr)
{
    Q_UNUSED(parent);
}
