#include "shell/ui/ActiveDocument.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaMethod>

namespace tessaro {

QMdiSubWindow *activeChild(QMdiArea *area)
{
    return area ? area->activeSubWindow() : nullptr;
}

QObject *codeOf(QMdiSubWindow *child)
{
    if (!child)
        return nullptr;
    if (QWidget *form = child->widget()) {
        if (form->objectName() == QLatin1String("code"))
            return form;
    }
    return child->findChild<QObject *>(QStringLiteral("code"));
}

bool isOutputOrFindInFiles(QMdiSubWindow *child)
{
    if (!child)
        return false;
    for (const QObject *o :
         {static_cast<const QObject *>(child), static_cast<const QObject *>(child->widget())}) {
        if (o && (o->objectName() == QLatin1String("frmOut") ||
                  o->objectName() == QLatin1String("frmFnF")))
            return true;
    }
    return false;
}

namespace {

QMetaMethod findMethod(const QObject *target, const char *name, int argumentCount)
{
    const QMetaObject *meta = target->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod m = meta->method(i);
        if (m.name() == name && m.parameterCount() == argumentCount &&
            (m.methodType() == QMetaMethod::Slot || m.methodType() == QMetaMethod::Method) &&
            m.access() == QMetaMethod::Public)
            return m;
    }
    return QMetaMethod();
}

} // namespace

bool callByName(QObject *target, const char *name, const QVariantList &arguments)
{
    if (!target || arguments.size() > 3)
        return false;
    const QMetaMethod method = findMethod(target, name, int(arguments.size()));
    if (!method.isValid())
        return false;
    // Convert every argument to the member's parameter type.
    QVariantList converted = arguments;
    for (int i = 0; i < converted.size(); ++i) {
        if (!converted[i].convert(method.parameterMetaType(i)))
            return false;
    }
    auto arg = [&](int i) {
        return i < converted.size()
                   ? QGenericArgument(converted[i].typeName(), converted[i].constData())
                   : QGenericArgument();
    };
    return method.invoke(target, Qt::DirectConnection, arg(0), arg(1), arg(2));
}

QVariant readByName(QObject *target, const char *name)
{
    if (!target)
        return QVariant();
    const QVariant value = target->property(name);
    if (value.isValid())
        return value;
    const QMetaMethod method = findMethod(target, name, 0);
    if (!method.isValid() || method.returnMetaType().id() == QMetaType::Void)
        return QVariant();
    QVariant result(method.returnMetaType(), nullptr);
    if (!method.invoke(target, Qt::DirectConnection,
                       QGenericReturnArgument(method.typeName(), result.data())))
        return QVariant();
    return result;
}

} // namespace tessaro
