#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace tessaro {

// Root keys and value types with their registry numbers.
namespace reg {
enum Root : quint32 {
    ClassesRoot = 0x80000000u,
    CurrentUser = 0x80000001u,
    LocalMachine = 0x80000002u,
    Users = 0x80000003u,
};
enum Type : quint32 {
    None = 0,
    Sz = 1,
    ExpandSz = 2,
    Binary = 3,
    DWord = 4,
    DWordBigEndian = 5,
    MultiSz = 7,
};
} // namespace reg

// One stored value: its type and its raw bytes (text carries its terminating zero,
// as it was written).
struct RegistryValue
{
    quint32 type = reg::None;
    QByteArray data;
};

// The registry on Linux: a tree of keys per root, each root kept in one file.
// The per-user roots (HKEY_CURRENT_USER, HKEY_CLASSES_ROOT, HKEY_USERS) live in
// $XDG_CONFIG_HOME/Tessaro/registry/, HKEY_LOCAL_MACHINE in the first folder of
// $XDG_CONFIG_DIRS (default /etc/xdg) + /Tessaro/registry/, so writing it needs the
// rights to write there. Key paths use "\" between names; names compare without
// regard to case and keep the case they were created with. Every call reads the
// root's file and every change replaces it atomically, so two running programs
// see each other's writes.
class RegistryStore
{
public:
    // The store of the current user's folders.
    RegistryStore();
    // A store whose per-user roots live in userFolder and whose machine root lives in
    // machineFolder (for tests).
    RegistryStore(QString userFolder, QString machineFolder);

    // The file that holds a root ("" for a root the store does not keep).
    QString rootFile(quint32 root) const;

    bool keyExists(quint32 root, const QString &path) const;
    // Creates the key and every missing key above it; true when it exists afterwards.
    bool createKey(quint32 root, const QString &path);
    // Deletes a key that has no sub-keys; false when it is missing, has sub-keys or
    // the root cannot be written.
    bool deleteKey(quint32 root, const QString &path);
    // False when the key or the value is missing or the root cannot be written.
    bool deleteValue(quint32 root, const QString &path, const QString &name);
    // The value; nullopt when the key or the value is missing. An empty name is the
    // key's default value.
    std::optional<RegistryValue> queryValue(quint32 root, const QString &path,
                                            const QString &name) const;
    // Stores a value under an existing key; false when the key is missing or the root
    // cannot be written.
    bool setValue(quint32 root, const QString &path, const QString &name,
                  const RegistryValue &value);
    // Value names and sub-key names in the order they were created; nullopt when the
    // key is missing.
    std::optional<QStringList> valueNames(quint32 root, const QString &path) const;
    std::optional<QStringList> subKeyNames(quint32 root, const QString &path) const;

    static QString defaultUserFolder();
    static QString defaultMachineFolder();

    // Keeps the changes of this store (and of its copies) in memory until
    // commitBatch(), which writes each changed root's file once. A root that cannot be
    // written still fails the call that changes it. Used where many values are set
    // in a row (the associations at start-up).
    void beginBatch();
    // Writes the changed roots and ends the batch; false when one could not be written.
    bool commitBatch();

    struct Batch;

private:
    QString m_userFolder;
    QString m_machineFolder;
    std::shared_ptr<Batch> m_batch;
};

} // namespace tessaro
