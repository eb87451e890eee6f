#pragma once

#include <QString>

namespace tessaro::test {

// A small tmpfs mounted on a folder for the length of a test, so a test can make a
// file system full or read-only for real. Mounting needs root (CAP_SYS_ADMIN); where
// it is refused, isMounted() is false and why() says why, for the test's skip message.
class ScratchMount
{
public:
    ScratchMount(const QString &folder, int kilobytes);
    ~ScratchMount();
    ScratchMount(const ScratchMount &) = delete;
    ScratchMount &operator=(const ScratchMount &) = delete;

    bool isMounted() const { return m_mounted; }
    QString why() const { return m_why; }
    // Remounts the file system read-only; false when that is refused.
    bool makeReadOnly();
    // Fills the file system with one file until a write fails for lack of room.
    void fill();

private:
    QString m_folder;
    bool m_mounted = false;
    QString m_why;
};

// Whether the test runs with root's rights: permission bits do not stop root, so a
// read-only folder needs a read-only mount then.
bool runsAsRoot();

} // namespace tessaro::test
