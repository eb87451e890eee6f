#include "platform/core/RegistryStore.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include <map>
#include <set>
#include <vector>

namespace tessaro {

namespace {

// One key of a root's tree.
struct Node
{
    QString name;
    std::vector<std::pair<QString, RegistryValue>> values;
    std::vector<Node> children;

    Node *child(const QString &childName)
    {
        for (Node &c : children)
            if (c.name.compare(childName, Qt::CaseInsensitive) == 0)
                return &c;
        return nullptr;
    }
    int valueIndex(const QString &valueName) const
    {
        for (size_t i = 0; i < values.size(); ++i)
            if (values[i].first.compare(valueName, Qt::CaseInsensitive) == 0)
                return int(i);
        return -1;
    }
};

QStringList keyNames(const QString &path)
{
    return path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
}

bool isStringType(quint32 type)
{
    return type == reg::Sz || type == reg::ExpandSz || type == reg::MultiSz;
}

// Text values are kept readable in the file when their bytes allow it; everything
// else is kept as hexadecimal bytes.
QJsonObject valueToJson(const QString &name, const RegistryValue &value)
{
    QJsonObject o{{QStringLiteral("name"), name}, {QStringLiteral("type"), qint64(value.type)}};
    const QByteArray &d = value.data;
    if (isStringType(value.type) && d.endsWith('\0') && d.count('\0') == 1) {
        const QByteArray body = d.left(d.size() - 1);
        const QString text = QString::fromUtf8(body);
        if (text.toUtf8() == body) {
            o.insert(QStringLiteral("text"), text);
            return o;
        }
    }
    o.insert(QStringLiteral("hex"), QString::fromLatin1(d.toHex()));
    return o;
}

RegistryValue valueFromJson(const QJsonObject &o)
{
    RegistryValue v;
    v.type = quint32(o.value(QStringLiteral("type")).toInteger());
    if (o.contains(QStringLiteral("text")))
        v.data = o.value(QStringLiteral("text")).toString().toUtf8() + QByteArray(1, '\0');
    else
        v.data = QByteArray::fromHex(o.value(QStringLiteral("hex")).toString().toLatin1());
    return v;
}

QJsonObject nodeToJson(const Node &node)
{
    QJsonArray values;
    for (const auto &[name, value] : node.values)
        values.append(valueToJson(name, value));
    QJsonArray keys;
    for (const Node &c : node.children)
        keys.append(nodeToJson(c));
    QJsonObject o;
    if (!node.name.isNull())
        o.insert(QStringLiteral("name"), node.name);
    o.insert(QStringLiteral("values"), values);
    o.insert(QStringLiteral("keys"), keys);
    return o;
}

Node nodeFromJson(const QJsonObject &o)
{
    Node node;
    node.name = o.value(QStringLiteral("name")).toString();
    for (const QJsonValue &v : o.value(QStringLiteral("values")).toArray()) {
        const QJsonObject vo = v.toObject();
        node.values.emplace_back(vo.value(QStringLiteral("name")).toString(), valueFromJson(vo));
    }
    for (const QJsonValue &k : o.value(QStringLiteral("keys")).toArray())
        node.children.push_back(nodeFromJson(k.toObject()));
    return node;
}

// A root's tree read from its file. A missing file is an empty root; a file that
// cannot be read or parsed is reported, so it is never overwritten.
struct LoadedRoot
{
    Node tree;
    bool intact = true;
};

LoadedRoot readRoot(const QString &file)
{
    LoadedRoot root;
    if (file.isEmpty()) {
        root.intact = false;
        return root;
    }
    QFile f(file);
    if (!f.exists())
        return root;
    if (!f.open(QIODevice::ReadOnly)) {
        root.intact = false;
        return root;
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(f.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject()) {
        root.intact = false;
        return root;
    }
    root.tree = nodeFromJson(doc.object());
    return root;
}

bool writeRoot(const QString &file, const Node &tree)
{
    if (!QDir().mkpath(QFileInfo(file).absolutePath()))
        return false;
    QSaveFile f(file);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = QJsonDocument(nodeToJson(tree)).toJson(QJsonDocument::Indented);
    return f.write(bytes) == bytes.size() && f.commit();
}

} // namespace

struct RegistryStore::Batch
{
    std::map<QString, LoadedRoot> roots;
    std::set<QString> changed;
};

namespace {

LoadedRoot loadRoot(const QString &file, RegistryStore::Batch *batch)
{
    if (!batch)
        return readRoot(file);
    const auto it = batch->roots.find(file);
    if (it != batch->roots.end())
        return it->second;
    return batch->roots[file] = readRoot(file);
}

// Whether the root's file could be replaced (its folder made and writable).
bool canWrite(const QString &file)
{
    const QFileInfo info(file);
    if (!QDir().mkpath(info.absolutePath()) || !QFileInfo(info.absolutePath()).isWritable())
        return false;
    return !info.exists() || info.isWritable();
}

bool saveRoot(const QString &file, const Node &tree, RegistryStore::Batch *batch)
{
    if (!batch)
        return writeRoot(file, tree);
    if (!canWrite(file))
        return false;
    batch->roots[file].tree = tree;
    batch->changed.insert(file);
    return true;
}

Node *findKey(Node &tree, const QString &path)
{
    Node *node = &tree;
    for (const QString &name : keyNames(path)) {
        node = node->child(name);
        if (!node)
            return nullptr;
    }
    return node;
}

QString rootFileName(quint32 root)
{
    switch (root) {
    case reg::ClassesRoot: return QStringLiteral("HKEY_CLASSES_ROOT.json");
    case reg::CurrentUser: return QStringLiteral("HKEY_CURRENT_USER.json");
    case reg::LocalMachine: return QStringLiteral("HKEY_LOCAL_MACHINE.json");
    case reg::Users: return QStringLiteral("HKEY_USERS.json");
    default: return QString();
    }
}

} // namespace

RegistryStore::RegistryStore() : RegistryStore(defaultUserFolder(), defaultMachineFolder()) {}

RegistryStore::RegistryStore(QString userFolder, QString machineFolder)
    : m_userFolder(std::move(userFolder)), m_machineFolder(std::move(machineFolder))
{
}

QString RegistryStore::defaultUserFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Tessaro/registry");
}

QString RegistryStore::defaultMachineFolder()
{
    QString first = qEnvironmentVariable("XDG_CONFIG_DIRS").section(QLatin1Char(':'), 0, 0);
    if (first.isEmpty())
        first = QStringLiteral("/etc/xdg");
    return first + QStringLiteral("/Tessaro/registry");
}

QString RegistryStore::rootFile(quint32 root) const
{
    const QString name = rootFileName(root);
    if (name.isEmpty())
        return QString();
    return (root == reg::LocalMachine ? m_machineFolder : m_userFolder) + QLatin1Char('/') + name;
}

bool RegistryStore::keyExists(quint32 root, const QString &path) const
{
    const QString file = rootFile(root);
    if (file.isEmpty())
        return false;
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    return findKey(loaded.tree, path) != nullptr;
}

bool RegistryStore::createKey(quint32 root, const QString &path)
{
    const QString file = rootFile(root);
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    if (!loaded.intact)
        return false;
    Node *node = &loaded.tree;
    bool changed = false;
    for (const QString &name : keyNames(path)) {
        Node *next = node->child(name);
        if (!next) {
            node->children.push_back(Node{name, {}, {}});
            next = &node->children.back();
            changed = true;
        }
        node = next;
    }
    // Creating a key that exists only opens it, but the root must still be writable:
    // the key is opened for all access.
    if (!changed && QFileInfo::exists(file))
        return canWrite(file);
    return saveRoot(file, loaded.tree, m_batch.get());
}

bool RegistryStore::deleteKey(quint32 root, const QString &path)
{
    const QString file = rootFile(root);
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    const QStringList names = keyNames(path);
    if (!loaded.intact || names.isEmpty())
        return false;
    Node *parent = findKey(loaded.tree, names.mid(0, names.size() - 1).join(QLatin1Char('\\')));
    if (!parent)
        return false;
    for (auto it = parent->children.begin(); it != parent->children.end(); ++it) {
        if (it->name.compare(names.last(), Qt::CaseInsensitive) != 0)
            continue;
        if (!it->children.empty())
            return false;
        parent->children.erase(it);
        return saveRoot(file, loaded.tree, m_batch.get());
    }
    return false;
}

bool RegistryStore::deleteValue(quint32 root, const QString &path, const QString &name)
{
    const QString file = rootFile(root);
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    Node *key = loaded.intact ? findKey(loaded.tree, path) : nullptr;
    if (!key)
        return false;
    const int index = key->valueIndex(name);
    if (index < 0)
        return false;
    key->values.erase(key->values.begin() + index);
    return saveRoot(file, loaded.tree, m_batch.get());
}

std::optional<RegistryValue> RegistryStore::queryValue(quint32 root, const QString &path,
                                                       const QString &name) const
{
    const QString file = rootFile(root);
    if (file.isEmpty())
        return std::nullopt;
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    Node *key = findKey(loaded.tree, path);
    if (!key)
        return std::nullopt;
    const int index = key->valueIndex(name);
    if (index < 0)
        return std::nullopt;
    return key->values[size_t(index)].second;
}

bool RegistryStore::setValue(quint32 root, const QString &path, const QString &name,
                             const RegistryValue &value)
{
    const QString file = rootFile(root);
    LoadedRoot loaded = loadRoot(file, m_batch.get());
    Node *key = loaded.intact ? findKey(loaded.tree, path) : nullptr;
    if (!key)
        return false;
    const int index = key->valueIndex(name);
    if (index < 0) {
        key->values.emplace_back(name, value);
    } else {
        RegistryValue &stored = key->values[size_t(index)].second;
        // An unchanged value is not written again (start-up sets the same values at
        // every start), but the root must still be writable, as for any write.
        if (stored.type == value.type && stored.data == value.data)
            return canWrite(file);
        stored = value;
    }
    return saveRoot(file, loaded.tree, m_batch.get());
}

namespace {
// The names of a key's values or of its sub-keys; nullopt when the key is missing.
std::optional<QStringList> namesUnder(const QString &file, const QString &path,
                                      RegistryStore::Batch *batch, bool subKeys)
{
    if (file.isEmpty())
        return std::nullopt;
    LoadedRoot loaded = loadRoot(file, batch);
    const Node *key = findKey(loaded.tree, path);
    if (!key)
        return std::nullopt;
    QStringList names;
    if (subKeys)
        for (const Node &c : key->children)
            names << c.name;
    else
        for (const auto &value : key->values)
            names << value.first;
    return names;
}
} // namespace

std::optional<QStringList> RegistryStore::valueNames(quint32 root, const QString &path) const
{
    return namesUnder(rootFile(root), path, m_batch.get(), false);
}

std::optional<QStringList> RegistryStore::subKeyNames(quint32 root, const QString &path) const
{
    return namesUnder(rootFile(root), path, m_batch.get(), true);
}

void RegistryStore::beginBatch()
{
    if (!m_batch)
        m_batch = std::make_shared<Batch>();
}

bool RegistryStore::commitBatch()
{
    if (!m_batch)
        return true;
    bool ok = true;
    for (const QString &file : m_batch->changed)
        ok = writeRoot(file, m_batch->roots[file].tree) && ok;
    m_batch->roots.clear();
    m_batch->changed.clear();
    m_batch.reset();
    return ok;
}

} // namespace tessaro
