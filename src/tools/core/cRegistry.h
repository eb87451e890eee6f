#pragma once

#include "platform/core/RegistryStore.h"

#include <QStringList>
#include <QVariant>

namespace tessaro {

// Reads and writes one registry value at a time: the instance carries the value's
// address (ClassKey\SectionKey, ValueKey) and the type used for writing. Failures
// are raised as run-time errors whose source is the program's name followed by
// ".cRegistry".
class cRegistry
{
public:
    // Error numbers of the class.
    static constexpr qint64 ErrorRegistry = 26001;
    static constexpr qint64 ErrorUnsupportedType = 0x800469A9;
    static constexpr qint64 ErrorInvalidParameterList = 0x800469AC;
    static constexpr qint64 ErrorClassNotDefined = 0x800469AD;

    explicit cRegistry(RegistryStore store = RegistryStore());

    quint32 ClassKey() const { return m_classKey; }
    void setClassKey(quint32 key) { m_classKey = key; }
    QString SectionKey() const { return m_sectionKey; }
    void setSectionKey(const QString &key) { m_sectionKey = key; }
    QString ValueKey() const { return m_valueKey; }
    void setValueKey(const QString &key) { m_valueKey = key; }
    quint32 ValueType() const { return m_valueType; }
    void setValueType(quint32 type) { m_valueType = type; }
    QVariant Default() const { return m_default; }
    void setDefault(const QVariant &value) { m_default = value; }

    // Reading: REG_SZ and REG_EXPAND_SZ give text (the latter with every %VAR% of a
    // set environment variable expanded), REG_DWORD and REG_DWORD_BIG_ENDIAN a
    // 32-bit number, REG_MULTI_SZ the text with its parts separated by zero
    // characters, other types their bytes; a missing key or value gives Default.
    QVariant Value() const;
    // Writing: creates (or opens) the key and stores the value with ValueType. Text is
    // stored with its terminating zero, REG_DWORD as 4 bytes (little-endian),
    // REG_DWORD_BIG_ENDIAN as 4 bytes big-endian, REG_BINARY as the given bytes.
    void setValue(const QVariant &value);

    bool KeyExists() const;
    bool CreateKey();
    bool DeleteKey();
    bool DeleteValue();
    bool EnumerateValues(QStringList &names, int &count) const;
    bool EnumerateSections(QStringList &names, int &count) const;

    // Registers className as the opener of files with the extension (given without
    // the dot). Every value is written under HKEY_CLASSES_ROOT and then under
    // HKEY_LOCAL_MACHINE\SOFTWARE\Classes.
    void CreateEXEAssociation(const QString &exePath, const QString &className,
                              const QString &classDescription, const QString &extension,
                              const QString &openText = QString(), bool supportPrint = false,
                              const QString &printText = QString(), bool supportNew = false,
                              const QString &newText = QString(), bool supportInstall = false,
                              const QString &installText = QString(), qint32 defaultIconIndex = -1);
    // Further verbs of a registered class, given in threes: verb name, menu text,
    // command.
    void CreateAdditionalEXEAssociations(const QString &className, const QStringList &verbs);

    // When set, a failed write under HKEY_LOCAL_MACHINE during an association is
    // remembered instead of raised, so the per-user half still gets written (start-up
    // uses this: the machine root needs administrative rights).
    void setToleratesMachineWriteFailure(bool tolerate) { m_tolerateMachineFailure = tolerate; }
    bool machineWriteFailed() const { return m_machineWriteFailed; }

    // The quoted program path of an association: trimmed, with a double quote put in
    // front and at the end unless already there.
    static QString quotedPath(const QString &exePath);
    // The source given to the class's errors.
    static QString errorSource();

private:
    [[noreturn]] void fail(qint64 number, const QString &description) const;
    void writeAssociationValue(const QString &section, const QString &text);
    QString classKeyText() const;

    RegistryStore m_store;
    quint32 m_classKey = reg::ClassesRoot;
    QString m_sectionKey;
    QString m_valueKey;
    quint32 m_valueType = reg::Sz;
    QVariant m_default;
    bool m_tolerateMachineFailure = false;
    bool m_machineWriteFailed = false;
};

} // namespace tessaro
