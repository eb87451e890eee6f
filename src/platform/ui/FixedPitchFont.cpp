#include "platform/ui/FixedPitchFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace tessaro {

QFont fixedPitchFont(const QFont &systemFixed)
{
    if (QFontInfo(systemFixed).fixedPitch())
        return systemFixed;
    QFont font(systemFixed);
    font.setFamilies({QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    if (QFontInfo(font).fixedPitch())
        return font;
    // No alias for monospace: the first fixed-pitch family the system has.
    for (const QString &family : QFontDatabase::families()) {
        if (QFontDatabase::isFixedPitch(family)) {
            font.setFamilies({family});
            return font;
        }
    }
    return font;
}

QFont fixedPitchFont()
{
    return fixedPitchFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

} // namespace tessaro
