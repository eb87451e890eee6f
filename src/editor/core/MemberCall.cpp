#include "editor/core/MemberCall.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <QObject>

#include <array>

namespace tessaro {

bool callMember(QObject *target, const char *name, const QVariantList &args, QVariant *result)
{
    if (!target || args.size() > 10)
        return false;
    const QMetaObject *meta = target->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Method &&
            method.methodType() != QMetaMethod::Slot)
            continue;
        if (method.access() != QMetaMethod::Public || method.name() != name ||
            method.parameterCount() != args.size())
            continue;
        // Convert every argument to the parameter's type first: a call that cannot
        // be made changes nothing.
        QVariantList converted = args;
        bool convertible = true;
        for (int p = 0; p < method.parameterCount(); ++p) {
            const QMetaType type = method.parameterMetaType(p);
            if (!converted[p].convert(type)) {
                convertible = false;
                break;
            }
        }
        if (!convertible)
            continue;
        std::array<QGenericArgument, 10> generic{};
        for (int p = 0; p < converted.size(); ++p)
            generic[std::size_t(p)] =
                QGenericArgument(method.parameterMetaType(p).name(), converted[p].constData());
        QVariant returned;
        QGenericReturnArgument ret;
        if (method.returnMetaType().isValid() && method.returnMetaType().id() != QMetaType::Void) {
            returned = QVariant(method.returnMetaType());
            ret = QGenericReturnArgument(method.returnMetaType().name(), returned.data());
        }
        const bool ok = method.invoke(target, Qt::DirectConnection, ret, generic[0], generic[1],
                                      generic[2], generic[3], generic[4], generic[5], generic[6],
                                      generic[7], generic[8], generic[9]);
        if (ok && result)
            *result = returned;
        return ok;
    }
    return false;
}

} // namespace tessaro
