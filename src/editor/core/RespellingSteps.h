#pragma once

#include <set>

class QTextDocument;

namespace tessaro {

// The undo steps of a document that hold the colouring's respellings (a word given
// its list's spelling after an edit). Such a step belongs to the edit before it:
// Undo takes it back together with that edit and Redo brings it back after the
// edit, so the user never sees it as a step of its own.
//
// The document's history counts commands, so every command of such a step is kept
// by its place in the history (1 = the oldest).
class RespellingSteps
{
public:
    explicit RespellingSteps(QTextDocument *document) : m_doc(document) {}

    // A command was added to the history: the steps that could have been redone are
    // gone, and with them any respelling among them.
    void commandAdded();
    // The commands added since the history held `before` are a respelling.
    void recordSince(int before);
    // The history was emptied.
    void forget();

    void undo();
    void redo();

private:
    bool respellingOnTop() const;

    QTextDocument *m_doc;
    std::set<int> m_steps;
    int m_knownTop = 0;
};

} // namespace tessaro
