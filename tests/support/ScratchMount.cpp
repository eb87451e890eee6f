#include "support/ScratchMount.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>
#include <unistd.h>

namespace tessaro::test {

ScratchMount::ScratchMount(const QString &folder, int kilobytes) : m_folder(folder)
{
    QDir().mkpath(folder);
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k,mode=0755";
    if (::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) ==
        0)
        m_mounted = true;
    else
        m_why = QStringLiteral("cannot mount a tmpfs here (%1)")
                    .arg(QString::fromLocal8Bit(std::strerror(errno)));
}

ScratchMount::~ScratchMount()
{
    if (m_mounted)
        ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

bool ScratchMount::makeReadOnly()
{
    return m_mounted && ::mount(nullptr, QFile::encodeName(m_folder).constData(), nullptr,
                                MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

void ScratchMount::fill()
{
    QFile filler(m_folder + QStringLiteral("/filler"));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    const QByteArray block(4096, 'x');
    while (filler.write(block) == block.size() && filler.flush()) {
    }
    // Fill the last partial block too.
    while (filler.write("x", 1) == 1 && filler.flush()) {
    }
}

bool runsAsRoot()
{
    return ::geteuid() == 0;
}

} // namespace tessaro::test
