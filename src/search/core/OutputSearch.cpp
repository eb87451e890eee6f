#include "search/core/OutputSearch.h"

namespace tessaro::search {

void OutputSearch::tick(const FindInFilesQuery &query, const WorkspaceState &workspace,
                        OutputView &view)
{
    if (!m_pending)
        return;
    view.setCaption(view.caption() + QLatin1String(" - Searching..."));
    if (!query.folder.isEmpty()) {
        // The window is not repainted during the search, so the lines are collected
        // and appended in one step, also when a file ends the search.
        QString lines;
        try {
            findInFiles(workspace, query.text, lines, m_lastMatchPosition);
        } catch (...) {
            view.append(lines);
            throw;
        }
        view.append(lines);
    }
    m_pending = false;
    view.setCaption(QStringLiteral("Output"));
}

} // namespace tessaro::search
