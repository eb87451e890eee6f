#pragma once

#include "editor/core/StyledText.h"

namespace tessaro {

class SourceEditBox;

// The editor box's text as the colourer sees it, and the keeper of its lines' states:
// a line keeps its own break (as loaded) and its comment state through the edits
// that split and join lines.
class ScintillaText : public StyledText
{
public:
    explicit ScintillaText(SourceEditBox &box) : m_box(box) {}

    qsizetype length() const override;
    QByteArrayView bytes() const override;
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
    void setUndoCollection(bool collect) override;
    void undo() override;
    void redo() override;

    // Keeps the lines' states right through an edit, from the box's notice of it
    // (before a deletion, and after an insertion or a deletion). The line that an
    // edit splits gives its break to the last of its parts, whose comment state is
    // then unknown, as are the new lines' (their break is the usual one); the line
    // that a deletion joins others to takes the break of the last one.
    void noteModification(int type, qsizetype position, qsizetype length, int linesAdded);

private:
    SourceEditBox &m_box;
    int m_joinedLineState = -1;
};

} // namespace tessaro
