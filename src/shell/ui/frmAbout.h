#pragma once

#include "platform/core/RegistryStore.h"

#include <QDialog>

namespace tessaro {

// The About box: program title and version, and a button that starts the system
// information tool named in the machine registry.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr, RegistryStore registry = RegistryStore());

    // Shows the About box modally (Help > About).
    static void showModal(QWidget *parent);

    void cmdOK_Click();
    void cmdSysInfo_Click();

private:
    void Form_Load();

    RegistryStore m_registry;
};

} // namespace tessaro
