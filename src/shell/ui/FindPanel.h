#pragma once

#include <QWidget>

class QComboBox;
class QPushButton;

namespace tessaro {

// The find box panel `Picture2`: the find text `fndText` and the button `cmdFind` at
// their design places when the panel has its design width (6975 twips). Narrower,
// the button keeps its size at the right edge and the text box gives up the width, so
// the button is never cut off.
class FindPanel : public QWidget
{
    Q_OBJECT
public:
    explicit FindPanel(QWidget *parent = nullptr);

    QComboBox *fndText() const { return m_fndText; }
    QPushButton *cmdFind() const { return m_cmdFind; }

    // The design size.
    QSize sizeHint() const override;
    // The button and a text box wide enough for a word.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeControls();

    QComboBox *m_fndText;
    QPushButton *m_cmdFind;
};

} // namespace tessaro
