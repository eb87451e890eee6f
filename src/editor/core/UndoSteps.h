#pragma once

#include <set>

namespace tessaro {

// Counts the undo steps of the editor box and remembers which of them are the
// colouring's respellings (a word given its list's spelling after an edit). Such a
// step belongs to the edit before it: Undo takes it back together with that edit and
// Redo brings it back after the edit, so the user never sees it as a step of its own.
// Steps are numbered from 1 (the oldest); `top` is the step Undo would take back.
class UndoSteps
{
public:
    // A new step was recorded: the steps that could have been redone are gone.
    void added();
    // The step on top was recorded by a respelling.
    void markTopAsRespelling();
    void undone();
    void redone();
    // The history was emptied.
    void forget();

    bool respellingOnTop() const { return m_top > 0 && m_respellings.count(m_top) > 0; }
    bool respellingNext() const { return m_respellings.count(m_top + 1) > 0; }
    int top() const { return m_top; }

private:
    int m_top = 0;
    std::set<int> m_respellings;
};

} // namespace tessaro
