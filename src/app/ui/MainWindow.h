#pragma once

#include "shell/ui/frmMain.h"

namespace tessaro {

// The program's main window as it runs: the frame with every subsystem's commands
// installed into it. This is the one place that knows them all; the frame itself and
// the subsystems know only the frame.
class MainWindow : public frmMain
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget *parent = nullptr);

    // Opens a file through the document commands.
    void LoadDocument(const QString &path) override;
};

} // namespace tessaro
