#include "lineeditbtn.h"

#include <QResizeEvent>
#include <QSize>
#include <QStyle>
#include <QToolButton>

LineEditBtn::LineEditBtn(QWidget *parent)
    : QLineEdit(parent)
{
    sideButton = new QToolButton(this);
    sideButton->setStyleSheet(QStringLiteral("QToolButton { border: none; padding: 0px; }"));
    connect(sideButton, &QToolButton::clicked, this, &LineEditBtn::setBtnClicked);
    sideButton->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(sideButton, &QWidget::customContextMenuRequested, this,
            &LineEditBtn::btnCustomContext);
    connect(this, &QLineEdit::textChanged, this, &LineEditBtn::setBtnVisibility);

    hide = true;
    setBtnVisibility(text());
}

void LineEditBtn::setBtnCursor(const QCursor &cursor)
{
    sideButton->setCursor(cursor);
}

void LineEditBtn::setBtnIcon(const QPixmap &pixmap)
{
    setBtnIcon(QIcon(pixmap), pixmap.width(), pixmap.height());
}

void LineEditBtn::setBtnIcon(const QIcon &icon, int width, int height)
{
    sideButton->setIcon(icon);
    sideButton->setIconSize(QSize(width, height));

    const int frame = frameWidth();
    const QSize buttonSize = sideButton->sizeHint();
    // Keep the typed text clear of the button.
    setStyleSheet(QStringLiteral("LineEditBtn { padding-right: %1px; } ")
                      .arg(buttonSize.width() + frame + 1));

    // The button's height goes into both bounds, so a wide icon does not
    // widen the line on its own.
    const int least = buttonSize.height() + 2 * frame + 2;
    const QSize hint = minimumSizeHint();
    setMinimumSize(qMax(hint.width(), least), qMax(hint.height(), least));
}

const QIcon LineEditBtn::btnIcon() const
{
    return sideButton->icon();
}

void LineEditBtn::setHideOnEmpty(bool hideOnEmpty)
{
    hide = hideOnEmpty;
    setBtnVisibility(text());
}

bool LineEditBtn::hideOnEmpty() const
{
    return hide;
}

void LineEditBtn::resizeEvent(QResizeEvent *)
{
    const int frame = frameWidth();
    const QSize buttonSize = sideButton->sizeHint();
    sideButton->move(rect().right() - frame - buttonSize.width(),
                     (rect().bottom() + 1 - buttonSize.height()) / 2);
}

void LineEditBtn::setBtnClicked()
{
    emit sideBtnClicked();
}

void LineEditBtn::btnCustomContext(QPoint p)
{
    emit sideBtnCustomContext(p);
}

void LineEditBtn::setBtnVisibility(const QString &text)
{
    sideButton->setVisible(!text.isEmpty() || !hide);
}

int LineEditBtn::frameWidth() const
{
    return style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
}
