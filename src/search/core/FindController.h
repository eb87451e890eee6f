#pragma once

#include <QString>

namespace tessaro::search {

// The find box: its edit text and the list of earlier search texts.
class FindBox
{
public:
    virtual ~FindBox() = default;
    virtual QString text() const = 0;
    // Appends an entry at the end of the list.
    virtual void addItem(const QString &text) = 0;
};

// The active document's editor, as far as a search needs it. Positions count a line
// break as two characters.
class FindTarget
{
public:
    virtual ~FindTarget() = default;
    virtual qint32 selStart() const = 0;
    // The length of the whole text.
    virtual qint32 textLength() const = 0;
    // Finds the text between the positions, ignoring letter case, and selects the
    // match when there is one.
    virtual void find(const QString &text, qint32 start, qint32 end) = 0;
};

// Find (the find box's button) and Find Again (F3). Each search runs forward from
// one character after the selection's start to the end of the text, without
// wrapping. Find Again searches for the text of the last find-box search, even when
// the box now shows another text; it records that text in the list every time but
// never makes it the last find text.
class FindController
{
public:
    const QString &lastFindText() const { return m_lastFindText; }

    // target is null when no document window is active (none at all, or the output
    // window or the Find in Files dialog): the commands then do nothing.
    void find(FindBox &box, FindTarget *target);
    void findAgain(FindBox &box, FindTarget *target);

private:
    void searchFrom(FindTarget &target, const QString &text);

    QString m_lastFindText;
};

} // namespace tessaro::search
