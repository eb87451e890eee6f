#include "shell/core/SystemInfo.h"

#include <QFileInfo>
#include <QtEndian>

namespace tessaro {

std::optional<QString> localMachineValue(const RegistryStore &store, const QString &key,
                                         const QString &name)
{
    const std::optional<RegistryValue> value = store.queryValue(reg::LocalMachine, key, name);
    if (!value)
        return std::nullopt;
    const QByteArray &d = value->data;
    if ((value->type == reg::DWord || value->type == reg::DWordBigEndian) && d.size() >= 4) {
        const quint32 number = value->type == reg::DWord ? qFromLittleEndian<quint32>(d.constData())
                                                         : qFromBigEndian<quint32>(d.constData());
        return QStringLiteral("&h") + QString::number(number, 16).toUpper();
    }
    const int end = d.indexOf('\0');
    return QString::fromLocal8Bit(end < 0 ? d : d.left(end));
}

std::optional<QString> systemInfoToolPath(const RegistryStore &store)
{
    if (auto path =
            localMachineValue(store, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                              QStringLiteral("PATH")))
        return path;
    if (auto folder =
            localMachineValue(store, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                              QStringLiteral("MSINFO"))) {
        const QString path = *folder + QStringLiteral("/MSINFO32.EXE");
        if (QFileInfo::exists(path))
            return path;
    }
    return std::nullopt;
}

} // namespace tessaro
