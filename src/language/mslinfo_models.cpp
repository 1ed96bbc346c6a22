#include "mslinfo.h"

#include "msltextedit.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QLatin1String>
#include <QStandardItem>
#include <QStandardItemModel>

namespace {

const char propertyIconPath[] = ":/completer/resources/img_assets/completer/property.png";
const char builtIconPath[] = ":/completer/resources/img_assets/completer/builtident.png";
const char customIconPath[] = ":/completer/resources/img_assets/completer/customident.png";
const char customLocalIconPath[] =
    ":/completer/resources/img_assets/completer/customlocalident.png";
const char comIconDir[] = ":/completer/com/resources/img_assets/com/";

// The sixteen mIRC colours, by colour number.
const QBrush *colorBrushes()
{
    static QBrush colors[16];
    static bool built = false;
    if (!built) {
        static const int rgb[16][3] = {
            { 255, 255, 255 }, { 0, 0, 0 },       { 0, 0, 127 },     { 0, 147, 0 },
            { 255, 0, 0 },     { 127, 0, 0 },     { 156, 0, 156 },   { 252, 127, 0 },
            { 255, 255, 0 },   { 0, 252, 0 },     { 0, 147, 147 },   { 0, 255, 255 },
            { 0, 0, 252 },     { 255, 0, 255 },   { 127, 127, 127 }, { 210, 210, 210 },
        };
        for (int i = 0; i < 16; ++i)
            colors[i] = QBrush(QColor(rgb[i][0], rgb[i][1], rgb[i][2]), Qt::SolidPattern);
        built = true;
    }
    return colors;
}

// One colour code row: the control character, the number part, and the
// colours themselves as a preview. A negative background means none.
void appendColorCode(QStandardItemModel *model, const QString &number, int fg, int bg = -1)
{
    const QBrush *colors = colorBrushes();
    QStandardItem *item = new QStandardItem(QChar(0x03) + number);
    item->setForeground(colors[fg]);
    if (bg >= 0)
        item->setBackground(colors[bg]);
    QFont font = item->font();
    font.setWeight(QFont::Bold);
    item->setFont(font);
    model->appendRow(item);
}

} // namespace

QAbstractItemModel *MslInfo::getComProIds(QObject *parent)
{
    struct progId
    {
        const char *name;
        const char *icon;
    };

    // The COM objects a script is likely to open (progids.inc).
    static const progId progIds[] = {
#include "progids.inc"
    };

    // Ninety-one names share twenty-eight pictures, and reading a picture
    // costs more than the rest of the list: each is read once.
    QHash<QLatin1String, QIcon> icons;
    QStandardItemModel *model = new QStandardItemModel(parent);
    for (const progId &id : progIds) {
        const QLatin1String iconName(id.icon);
        auto icon = icons.constFind(iconName);
        if (icon == icons.constEnd())
            icon = icons.insert(iconName, QIcon(QLatin1String(comIconDir) + iconName));
        model->appendRow(new QStandardItem(*icon, QLatin1String(id.name)));
    }
    return model;
}

// Every way of writing a colour code with one or two digits per number:
// foreground alone, then each background after it.
QAbstractItemModel *MslInfo::getColorCodes(QObject *parent)
{
    QStandardItemModel *model = new QStandardItemModel(parent);
    for (int n = 0; n <= 15; ++n) {
        appendColorCode(model, QString::asprintf("%.2d", n), n);
        if (n <= 9)
            appendColorCode(model, QString::asprintf("%d", n), n);

        for (int nn = 0; nn <= 15; ++nn) {
            appendColorCode(model, QString::asprintf("%.2d,%.2d", n, nn), n, nn);
            if (n <= 9)
                appendColorCode(model, QString::asprintf("%d,%.2d", n, nn), n, nn);
            if (n <= 9 && nn <= 9)
                appendColorCode(model, QString::asprintf("%d,%d", n, nn), n, nn);
            if (nn <= 9)
                appendColorCode(model, QString::asprintf("%.2d,%d", n, nn), n, nn);
        }
    }
    return model;
}

// The table's identifiers, then the document's own aliases. Rebuilt at
// every use on purpose: the list must show the aliases of the moment.
QAbstractItemModel *MslInfo::getIdentIds(QObject *parent, QTextBlock block)
{
    static const identifier *idents = getIdentsList();

    QStandardItemModel *model = new QStandardItemModel(parent);

    // No check for repeats among the table rows: $decode stands twice.
    const QIcon builtIcon{QLatin1String(builtIconPath)};
    for (const identifier *row = idents; row->name; ++row)
        model->appendRow(new QStandardItem(builtIcon, QLatin1String(row->name)));

    // An alias spread over several lines, defined twice, or named like a
    // table identifier is listed once; the first line met decides the icon.
    const QIcon customIcon{QLatin1String(customIconPath)};
    const QIcon customLocalIcon{QLatin1String(customLocalIconPath)};
    for (; block.isValid(); block = block.next()) {
        const CBlockData *data = recordOf(block);
        if (!data || data->blockType != CBlockData::Alias)
            continue;
        const QString text = QLatin1Char('$') + data->containedBlock;
        if (!model->findItems(text, Qt::MatchExactly, 0).isEmpty())
            continue;
        model->appendRow(new QStandardItem(data->isLocal ? customLocalIcon : customIcon, text));
    }
    return model;
}

// Null when the identifier is unknown; an empty model when it is known
// but has no properties.
QAbstractItemModel *MslInfo::getIdentPropProIds(QString ident, QObject *parent)
{
    static const identifier *idents = getIdentsList();

    const identifier *row = idents;
    while (row->name && ident.compare(QLatin1String(row->name), Qt::CaseInsensitive) != 0)
        ++row;
    if (!row->name)
        return nullptr;

    QStandardItemModel *model = new QStandardItemModel(parent);
    const QIcon propertyIcon{QLatin1String(propertyIconPath)};
    for (const char *const *p = row->props; *p; ++p)
        model->appendRow(new QStandardItem(propertyIcon, QLatin1String(*p)));
    return model;
}
