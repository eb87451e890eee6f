#pragma once

#include "editor/core/StyledText.h"

namespace tessaro {

class SourceEditBox;

// The editor box's text as the colourer sees it.
class ScintillaText : public StyledText
{
public:
    explicit ScintillaText(SourceEditBox &box) : m_box(box) {}

    qsizetype length() const override;
    QByteArrayView bytes() const override;
    QByteArrayView bytes(qsizetype from, qsizetype length) const override;
    int lineCount() const override;
    int lineOf(qsizetype position) const override;
    qsizetype lineStart(int line) const override;
    qsizetype lineEnd(int line) const override;
    int lineState(int line) const override;
    void setLineState(int line, int state) override;
    void setStyles(qsizetype from, QByteArrayView styles) override;
    int styleAt(qsizetype position) const override;
    void replace(qsizetype from, QByteArrayView bytes) override;
    bool canUndo() const override;
    bool canRedo() const override;
    void beginUndoStep() override;
    void endUndoStep() override;
    void markRespellingStep() override;
    void setUndoCollection(bool collect) override;
    bool undo() override;
    bool redo() override;

private:
    // Undo or Redo of one step, telling whether the step was a respelling.
    bool undoOrRedo(int message);

    SourceEditBox &m_box;
};

} // namespace tessaro
