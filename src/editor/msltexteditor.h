#ifndef MSLTEXTEDITOR_H
#define MSLTEXTEDITOR_H

#include <QPlainTextEdit>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>

class QCompleter;
class QFocusEvent;
class QModelIndex;
class QTextBlock;
struct Identifier;
class QKeyEvent;
class QMouseEvent;
class QPaintEvent;
class QResizeEvent;
class QTimer;

class MslTextEditor;

// The gutter left of the text: line numbers and fold icons. All of its
// logic lives in the editor; the bar only forwards.
class LineNumberBar : public QWidget
{
    Q_OBJECT

public:
    explicit LineNumberBar(MslTextEditor *editor);

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    MslTextEditor *mainTxt;
};

// The widget in which a script is typed.
class MslTextEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MslTextEditor(QWidget *parent = nullptr);
    ~MslTextEditor() override;

    // Jumps, used by the report dock and the object tree.
    void gotoLine(int line);
    void gotoPos(int pos);

    // Gutter and folding (msltexteditor_gutter.cpp).
    int lineNumberWidth();
    void lineNumberPaintEvent(QPaintEvent *event);
    void lineNumberClicked(QMouseEvent *event);

    // Selection indentation (msltexteditor_hover.cpp).
    void indentSelection();
    void unIndentSelection();

protected:
    // Gutter (msltexteditor_gutter.cpp).
    void resizeEvent(QResizeEvent *event) override;
    // Keys (msltexteditor_keys.cpp).
    void keyPressEvent(QKeyEvent *event) override;
    // Hover and focus (msltexteditor_hover.cpp).
    void mouseMoveEvent(QMouseEvent *e) override;
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;

private slots:
    // Gutter (msltexteditor_gutter.cpp).
    void updatelineNumberWidth(int newBlockCount);
    void updatelineNumber(const QRect &rect, int dy);
    void scrollBarValueChanged(int y);
    // Hover, current line, context menu (msltexteditor_hover.cpp).
    void processMouseHover();
    void highlightCurrentLine();
    void showContextMenu(QPoint p);
    // Completion insertion (msltexteditor_keys.cpp).
    void insertComCompletion(const QString &completion);
    void insertIdentPropCompletion(const QString &completion);
    void insertIdentCompletion(const QString &completion);
    void insertColorCompletion(const QString &completion);

private:
    // Construction steps (msltexteditor.cpp).
    void setupFont();
    void buildGutter();
    void buildCompleters();
    void setupHover();
    void setupContextMenu();

    // Keys (msltexteditor_keys.cpp).
    void handleReturn(QKeyEvent *event, bool &autofill);
    void handleCallTip(QKeyEvent *event, bool &bracket);
    void servePopup(QCompleter *completer, QChar marker, QKeyEvent *event);
    void serveProgIdPopup(QKeyEvent *event);
    void openCompleter(QCompleter *completer, const QModelIndex &first);
    bool anyPopupVisible() const;
    // The identifier of `block` that `pos` stands in; the innermost wins.
    static const Identifier *innermostIdent(const QTextBlock &block, int pos);
    QString textUnderCursor() const;
    int textCurPos() const;
    int prevLineSpaceCount();

    QWidget *lineNumber = nullptr;
    QCompleter *comCompleter = nullptr;
    QCompleter *propCompleter = nullptr;
    QCompleter *identCompleter = nullptr;
    QCompleter *colorCompleter = nullptr;
    QTimer *timerHover = nullptr;
    QPoint hoverPoint;
    int prevVerticalScrollBar = 0;
};

#endif // MSLTEXTEDITOR_H
