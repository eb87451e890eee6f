#pragma once

#include <QVariantList>

class QObject;

namespace tessaro {

// Calls a public member of an object by its name, as a late-bound call would: the
// object's invokable method of that name taking as many arguments as given. Returns
// false, and changes nothing, when the object has no such member (the caller then
// ignores the failure) or an argument cannot be converted; result receives the
// member's return value when it has one.
bool callMember(QObject *target, const char *name, const QVariantList &args = {},
                QVariant *result = nullptr);

} // namespace tessaro
