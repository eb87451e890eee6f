#pragma once

#include "build/core/BuildCommand.h"
#include "build/ui/frmProps.h"

#include <QObject>
#include <QPointer>

namespace tessaro {

class frmMain;

// The main window's build commands: the five Build menu items and Properties.
// Build commands install no error trap: a script that cannot be written or started
// ends the program with the run-time's message.
class BuildCommands : public QObject
{
    Q_OBJECT
public:
    // Connects the commands to the window's actions; the object lives as the
    // window's child.
    static BuildCommands *install(frmMain &frame);

    explicit BuildCommands(frmMain &frame);

    // mnuFileProperties: shows the properties window without waiting, or brings the
    // open one to the front.
    void showProperties();
    frmProps *properties() const { return m_properties; }

    // A Build menu command: composes, writes and starts the target's script.
    static void build(build::Target target);

private:
    frmMain &m_frame;
    QPointer<frmProps> m_properties;
};

} // namespace tessaro
