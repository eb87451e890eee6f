#include "shell/ui/ApplicationIcon.h"

#include <QDirIterator>
#include <QGuiApplication>

namespace tessaro {

QIcon applicationIcon()
{
    // One image per size: :/icons/<n>x<n>/tessaro.png.
    QIcon icon;
    QDirIterator images(QStringLiteral(":/icons"), {QStringLiteral("tessaro.png")}, QDir::Files,
                        QDirIterator::Subdirectories);
    while (images.hasNext())
        icon.addFile(images.next());
    return icon;
}

void installApplicationIcon()
{
    QGuiApplication::setWindowIcon(applicationIcon());
    QGuiApplication::setDesktopFileName(QStringLiteral("tessaro"));
}

} // namespace tessaro
