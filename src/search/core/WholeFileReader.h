#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace tessaro::search {

// Reads files whole, one after the other, into one buffer that it keeps: searching
// hundreds of files then costs one system read each and no allocation, which is
// what keeps Find in Files within a frame or two. The errors are those of
// textfile::readBytes: 53 "File not found" for a name that does not exist, 75
// "Path/File access error" for anything that cannot be read (a folder, no
// permission).
class WholeFileReader
{
public:
    // The file's bytes, valid until the next read.
    QByteArrayView read(const QString &path);

private:
    QByteArray m_buffer;
};

} // namespace tessaro::search
