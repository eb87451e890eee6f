// Feeds arbitrary bytes to the settings file reader. Reading must return on any
// input, and what it read must come back unchanged through the writer and the reader
// again: the format keeps every value byte for byte.
#include "FuzzCheck.h"
#include "state/core/PlainIniFormat.h"

#include <cstdint>

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QSettings::SettingsMap read = plainini::parse(bytes);
    const QByteArray written = plainini::serialise(read);
    fuzzCheck(plainini::parse(written) == read);
    fuzzCheck(plainini::serialise(plainini::parse(written)) == written);
    return 0;
}
