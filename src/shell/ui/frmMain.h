#pragma once

#include <QMainWindow>

class QMdiArea;

namespace tessaro {

// The main window: an MDI frame that holds the document windows.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);

    QMdiArea *mdiArea() const { return m_mdiArea; }

    // A menu item or toolbar command by its name ("mnuFileOpen"); nullptr when the
    // window has none of that name.
    QAction *action(const QString &name) const;

    // Opens a file as a document window (the open-by-path operation).
    void LoadDocument(const QString &path);

private:
    QMdiArea *m_mdiArea;
};

} // namespace tessaro
