#include "tools/core/cRegistry.h"

#include "platform/core/RuntimeError.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

namespace tessaro {

namespace {

const QString kMachineClasses = QStringLiteral("SOFTWARE\\Classes\\");

// Text up to its first zero byte, in the file system's 8-bit encoding.
QString textOf(const QByteArray &data)
{
    const int end = data.indexOf('\0');
    return QString::fromLocal8Bit(end < 0 ? data : data.left(end));
}

QString expandEnvironment(const QString &text)
{
    static const QRegularExpression variable(QStringLiteral("%([^%]+)%"));
    QString result;
    qsizetype last = 0;
    auto it = variable.globalMatch(text);
    while (it.hasNext()) {
        const QRegularExpressionMatch m = it.next();
        result += text.mid(last, m.capturedStart() - last);
        const QByteArray name = m.captured(1).toLocal8Bit();
        result += qEnvironmentVariableIsSet(name.constData())
                      ? qEnvironmentVariable(name.constData())
                      : m.captured(0);
        last = m.capturedEnd();
    }
    return result + text.mid(last);
}

QString variantText(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray)
        return QString::fromLatin1(value.toByteArray());
    return value.toString();
}

} // namespace

cRegistry::cRegistry(RegistryStore store) : m_store(std::move(store)) {}

QString cRegistry::errorSource()
{
    QString name = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    if (name.isEmpty())
        name = QStringLiteral("tessaro");
    return name + QStringLiteral(".cRegistry");
}

void cRegistry::fail(qint64 number, const QString &description) const
{
    throw RuntimeError(number, description, errorSource());
}

// ClassKey as the 32-bit signed number the class keeps (HKEY_CLASSES_ROOT is
// -2147483648).
QString cRegistry::classKeyText() const
{
    return QString::number(qint32(m_classKey));
}

QVariant cRegistry::Value() const
{
    const std::optional<RegistryValue> stored =
        m_store.queryValue(m_classKey, m_sectionKey, m_valueKey);
    if (!stored)
        return m_default;
    const QByteArray &d = stored->data;
    switch (stored->type) {
    case reg::Sz: return textOf(d);
    case reg::ExpandSz: return expandEnvironment(textOf(d));
    case reg::DWord:
        return d.size() >= 4 ? QVariant(qFromLittleEndian<qint32>(d.constData())) : m_default;
    case reg::DWordBigEndian:
        return d.size() >= 4 ? QVariant(qFromBigEndian<qint32>(d.constData())) : m_default;
    case reg::MultiSz: {
        QByteArray body = d;
        while (body.endsWith('\0'))
            body.chop(1);
        return QString::fromLocal8Bit(body);
    }
    default: return d;
    }
}

void cRegistry::setValue(const QVariant &value)
{
    RegistryValue stored;
    stored.type = m_valueType;
    switch (m_valueType) {
    case reg::Sz:
    case reg::ExpandSz: stored.data = variantText(value).toLocal8Bit() + QByteArray(1, '\0'); break;
    case reg::Binary:
        stored.data = value.typeId() == QMetaType::QByteArray ? value.toByteArray()
                                                              : value.toString().toLatin1();
        break;
    case reg::DWord:
    case reg::DWordBigEndian: {
        bool ok = false;
        const qint64 number = value.toLongLong(&ok);
        if (!ok)
            throw RuntimeError(RuntimeError::TypeMismatch, errorSource());
        stored.data.resize(4);
        if (m_valueType == reg::DWord)
            qToLittleEndian(quint32(number), stored.data.data());
        else
            qToBigEndian(quint32(number), stored.data.data());
        break;
    }
    default:
        fail(ErrorUnsupportedType,
             QStringLiteral("A value cannot be stored with the registry type %1").arg(m_valueType));
    }
    if (!m_store.createKey(m_classKey, m_sectionKey) ||
        !m_store.setValue(m_classKey, m_sectionKey, m_valueKey, stored))
        fail(ErrorRegistry,
             QStringLiteral("Failed to set registry value Key: '%1',Section: '%2',Key: "
                            "'%3' to value: '%4'")
                 .arg(classKeyText(), m_sectionKey, m_valueKey, variantText(value)));
}

bool cRegistry::KeyExists() const
{
    return m_store.keyExists(m_classKey, m_sectionKey);
}

bool cRegistry::CreateKey()
{
    if (!m_store.createKey(m_classKey, m_sectionKey))
        fail(ErrorRegistry, QStringLiteral("Failed to create registry Key: '") + m_sectionKey);
    return true;
}

bool cRegistry::DeleteKey()
{
    if (!m_store.deleteKey(m_classKey, m_sectionKey))
        fail(ErrorRegistry, QStringLiteral("Failed to delete registry Key: '%1',Section: '%2'")
                                .arg(classKeyText(), m_sectionKey));
    return true;
}

bool cRegistry::DeleteValue()
{
    if (!m_store.keyExists(m_classKey, m_sectionKey) ||
        !QFileInfo(QFileInfo(m_store.rootFile(m_classKey)).absolutePath()).isWritable())
        fail(ErrorRegistry,
             QStringLiteral("Failed to open key '%1',Section: '%2' for delete access")
                 .arg(classKeyText(), m_sectionKey));
    if (!m_store.deleteValue(m_classKey, m_sectionKey, m_valueKey))
        fail(ErrorRegistry,
             QStringLiteral("Failed to delete registry Key: '%1',Section: '%2',Key: '%3'")
                 .arg(classKeyText(), m_sectionKey, m_valueKey));
    return true;
}

bool cRegistry::EnumerateValues(QStringList &names, int &count) const
{
    const std::optional<QStringList> found = m_store.valueNames(m_classKey, m_sectionKey);
    names = found.value_or(QStringList());
    count = int(names.size());
    return found.has_value();
}

bool cRegistry::EnumerateSections(QStringList &names, int &count) const
{
    const std::optional<QStringList> found = m_store.subKeyNames(m_classKey, m_sectionKey);
    names = found.value_or(QStringList());
    count = int(names.size());
    return found.has_value();
}

QString cRegistry::quotedPath(const QString &exePath)
{
    QString q = exePath.trimmed();
    if (!q.startsWith(QLatin1Char('"')))
        q.prepend(QLatin1Char('"'));
    if (!q.endsWith(QLatin1Char('"')) || q.size() == 1)
        q.append(QLatin1Char('"'));
    return q;
}

// Writes one association value twice: under HKEY_CLASSES_ROOT at the section, then
// under HKEY_LOCAL_MACHINE\SOFTWARE\Classes; SectionKey is set back afterwards.
void cRegistry::writeAssociationValue(const QString &section, const QString &text)
{
    m_valueKey.clear();
    m_valueType = reg::Sz;
    m_classKey = reg::ClassesRoot;
    m_sectionKey = section;
    setValue(text);
    m_classKey = reg::LocalMachine;
    m_sectionKey = kMachineClasses + section;
    try {
        setValue(text);
    } catch (const RuntimeError &) {
        m_sectionKey = section;
        if (!m_tolerateMachineFailure)
            throw;
        m_machineWriteFailed = true;
    }
    m_sectionKey = section;
}

void cRegistry::CreateEXEAssociation(const QString &exePath, const QString &className,
                                     const QString &classDescription, const QString &extension,
                                     const QString &openText, bool supportPrint,
                                     const QString &printText, bool supportNew,
                                     const QString &newText, bool supportInstall,
                                     const QString &installText, qint32 defaultIconIndex)
{
    const QString q = quotedPath(exePath);
    auto orDefault = [](const QString &text, const QString &fallback) {
        return text.isEmpty() ? fallback : text;
    };
    const QString shell = className + QStringLiteral("\\shell\\");
    writeAssociationValue(QLatin1Char('.') + extension, className);
    writeAssociationValue(className, classDescription);
    writeAssociationValue(shell + QStringLiteral("open"),
                          orDefault(openText, QStringLiteral("&Open")));
    writeAssociationValue(shell + QStringLiteral("open\\command"), q + QStringLiteral(" \"%1\""));
    if (supportPrint) {
        writeAssociationValue(shell + QStringLiteral("print"),
                              orDefault(printText, QStringLiteral("&Print")));
        writeAssociationValue(shell + QStringLiteral("print\\command"),
                              q + QStringLiteral(" /p \"%1\""));
    }
    if (supportInstall) {
        writeAssociationValue(
            shell + QStringLiteral("add"),
            orDefault(installText, QStringLiteral("&Install ") + classDescription));
        writeAssociationValue(shell + QStringLiteral("add\\command"),
                              q + QStringLiteral(" /a \"%1\""));
    }
    if (supportNew) {
        writeAssociationValue(shell + QStringLiteral("new"),
                              orDefault(newText, QStringLiteral("&New")));
        writeAssociationValue(shell + QStringLiteral("new\\command"),
                              q + QStringLiteral(" /n \"%1\""));
    }
    if (defaultIconIndex > -1)
        writeAssociationValue(className + QStringLiteral("\\DefaultIcon"),
                              q + QLatin1Char(',') + QString::number(defaultIconIndex));
}

void cRegistry::CreateAdditionalEXEAssociations(const QString &className, const QStringList &verbs)
{
    if (verbs.size() % 3 != 0)
        fail(ErrorInvalidParameterList, QStringLiteral("Invalid parameter list passed to "
                                                       "CreateAdditionalEXEAssociations - expected "
                                                       "Name/Text/Command"));
    if (!m_store.keyExists(reg::ClassesRoot, className))
        fail(ErrorClassNotDefined,
             QStringLiteral(
                 "Error - attempt to create additional associations before class defined."));
    for (qsizetype i = 0; i < verbs.size(); i += 3) {
        const QString verb = className + QStringLiteral("\\shell\\") + verbs[i];
        writeAssociationValue(verb, verbs[i + 1]);
        writeAssociationValue(verb + QStringLiteral("\\command"), verbs[i + 2]);
    }
}

} // namespace tessaro
