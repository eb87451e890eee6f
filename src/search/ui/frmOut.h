#pragma once

#include "search/core/OutputSearch.h"

#include <QWidget>

class QPlainTextEdit;
class QTimer;

namespace tessaro::search {

// The output window of Find in Files, an MDI child of the main window. Its timer runs
// the search once after the window loads; later ticks find nothing pending, so
// showing the window again searches nothing until it has been closed and loaded
// anew. Results are appended to the output box "code", which the user can read and
// copy but not edit.
class frmOut : public QWidget, private OutputView
{
    Q_OBJECT
public:
    // query is read at each tick; it must outlive the window.
    explicit frmOut(const FindInFilesQuery &query, QWidget *parent = nullptr);

    // The output box's whole text, with CR LF line ends.
    const QString &text() const { return m_text; }
    bool isSearchPending() const { return m_search.isPending(); }
    qint32 lastMatchPosition() const { return m_search.lastMatchPosition(); }
    QTimer *timer() const { return m_timer; }

    // One tick of Timer1. A file that cannot be read raises its run-time error to
    // the caller; the timer's own ticks hand it to the run-time error handler.
    void Timer1_Timer();

private:
    QString caption() const override;
    void setCaption(const QString &caption) override;
    void append(const QString &text) override;

    const FindInFilesQuery &m_query;
    OutputSearch m_search;
    QTimer *m_timer;
    QPlainTextEdit *m_code;
    QString m_text;
};

} // namespace tessaro::search
