// Feeds every file of the folders named on the command line to the fuzz target's
// entry function once, in name order. A target that finds a broken promise aborts,
// which fails the run; otherwise the run prints how many inputs passed.
#include <QByteArray>
#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    int passed = 0;
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QFile::decodeName(argv[i]));
        const QStringList names = folder.entryList(QDir::Files, QDir::Name);
        if (names.isEmpty()) {
            std::fprintf(stderr, "no corpus files in %s\n", argv[i]);
            return 1;
        }
        for (const QString &name : names) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
                return 1;
            }
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.constData()),
                                   size_t(bytes.size()));
            ++passed;
        }
    }
    std::printf("%d passed, 0 failed\n", passed);
    return 0;
}
