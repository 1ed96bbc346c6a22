#ifndef LINEEDITBTN_H
#define LINEEDITBTN_H

#include <QCursor>
#include <QIcon>
#include <QLineEdit>
#include <QPixmap>
#include <QPoint>
#include <QString>

class QResizeEvent;
class QToolButton;

// A line edit with a small button inside its right edge. The find bar
// uses the button to show and choose the search mode.
class LineEditBtn : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineEditBtn(QWidget *parent = nullptr);

    void setBtnCursor(const QCursor &cursor);
    void setBtnIcon(const QPixmap &pixmap);
    void setBtnIcon(const QIcon &icon, int width, int height);
    const QIcon btnIcon() const;

    // With hide-on-empty set, the button is only shown while there is text.
    void setHideOnEmpty(bool hideOnEmpty);
    bool hideOnEmpty() const;

signals:
    void sideBtnClicked();
    void sideBtnCustomContext(QPoint p);

protected:
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void setBtnClicked();
    void btnCustomContext(QPoint p);
    void setBtnVisibility(const QString &text);

private:
    int frameWidth() const;

    bool hide = true;
    QToolButton *sideButton = nullptr;
};

#endif // LINEEDITBTN_H
