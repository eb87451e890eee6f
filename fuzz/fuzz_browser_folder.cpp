// Feeds arbitrary folder text to the file browser, as the workspace folder or a
// typed path reaches it: the folder is normalised, its drive found and its lists
// read. Any text must end in lists or in the browser's own errors (76, 75).
#include "FuzzCheck.h"
#include "platform/core/RuntimeError.h"
#include "workspace/core/FileBrowserModel.h"

#include <cstdint>

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    // A zero byte separates the folder from a file name in it.
    const qsizetype zero = bytes.indexOf('\0');
    const QString folder = QString::fromUtf8(zero < 0 ? bytes : bytes.left(zero));
    const QString name = zero < 0 ? QString() : QString::fromUtf8(bytes.mid(zero + 1));

    const QString normal = browser::normalFolder(folder);
    fuzzCheck(browser::normalFolder(normal) == normal);
    const QString drive = browser::driveOf(folder);
    fuzzCheck(drive.startsWith(QLatin1Char('/')));
    const QString full = browser::fullName(normal, name);
    fuzzCheck(full.startsWith(normal));
    browser::runsAsProgram(full);
    try {
        const QVector<browser::DirEntry> entries = browser::dirEntries(folder);
        for (const browser::DirEntry &entry : entries)
            fuzzCheck(entry.depth >= 0);
        browser::fileNames(folder);
    } catch (const RuntimeError &error) {
        fuzzCheck(error.number() == RuntimeError::PathNotFound ||
                  error.number() == RuntimeError::PathFileAccessError);
    }
    return 0;
}
