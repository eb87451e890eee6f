#include "platform/ui/WidgetDialogs.h"
#include "shell/ui/frmMain.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tessaro"));
    QApplication::setOrganizationName(QStringLiteral("Tessaro"));
    tessaro::installWidgetDialogs();

    tessaro::frmMain window;
    window.show();
    for (int i = 1; i < argc; ++i)
        window.LoadDocument(QString::fromLocal8Bit(argv[i]));
    return application.exec();
}
