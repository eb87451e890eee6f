#pragma once

#include <QPlainTextEdit>
#include <QTextBlock>

namespace tessaro {

class srcText;

// The visible text box of the editor control (rtfMain). It hands its keys and its
// pastes to the control first, so that they go through the control's own paths.
class SourceEditBox : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit SourceEditBox(srcText *owner);

    // Number of the first line shown (a line wrapped over several rows counts once).
    int firstVisibleLine() const { return firstVisibleBlock().blockNumber(); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void resizeEvent(QResizeEvent *event) override;

private:
    srcText *m_owner;
};

} // namespace tessaro
