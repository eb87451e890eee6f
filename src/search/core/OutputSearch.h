#pragma once

#include "search/core/FindInFiles.h"

#include <QString>

namespace tessaro::search {

// What the output window's search needs of the window: its caption and its output
// box, to which results are appended.
class OutputView
{
public:
    virtual ~OutputView() = default;
    virtual QString caption() const = 0;
    virtual void setCaption(const QString &caption) = 0;
    virtual void append(const QString &text) = 0;
};

// The output window's search: pending from the moment the window loads until its
// timer has run the search once, so one window runs one search however often it is
// shown.
class OutputSearch
{
public:
    // The window has loaded: the next tick searches.
    void load() { m_pending = true; }
    bool isPending() const { return m_pending; }
    // The 1-based position of the text in the last file read (0 when absent).
    qint32 lastMatchPosition() const { return m_lastMatchPosition; }

    // One tick of the window's timer. When a search is pending, the caption gains
    // " - Searching...", the results are appended (nothing when the query's folder
    // is empty), and the caption becomes "Output". A file that cannot be read ends
    // the tick with its run-time error after the lines found before it have been
    // appended; the search then stays pending and the caption keeps
    // " - Searching...".
    void tick(const FindInFilesQuery &query, const WorkspaceState &workspace, OutputView &view);

private:
    bool m_pending = false;
    qint32 m_lastMatchPosition = 0;
};

} // namespace tessaro::search
