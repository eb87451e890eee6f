#pragma once

#include "platform/core/RegistryStore.h"

#include <optional>

namespace tessaro {

// Reads one value under HKEY_LOCAL_MACHINE as text: strings without their
// terminating zero, 32-bit numbers as hexadecimal text beginning "&h"; nullopt when
// the key or the value does not exist.
std::optional<QString> localMachineValue(const RegistryStore &store, const QString &key,
                                         const QString &name);

// The system information tool named in the machine registry: the value "PATH" of
// "SOFTWARE\Microsoft\Shared Tools\MSINFO", else the value "MSINFO" of
// "SOFTWARE\Microsoft\Shared Tools Location" followed by "/MSINFO32.EXE" when that file
// exists; nullopt when neither gives one.
std::optional<QString> systemInfoToolPath(const RegistryStore &store);

inline QString systemInfoUnavailableText()
{
    return QStringLiteral("System Information Is Unavailable At This Time");
}

} // namespace tessaro
