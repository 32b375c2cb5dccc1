#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <map>

namespace corvane::SettingsText {

using Values = std::map<QByteArray, QByteArray>;

/// True for what can stand as a key or a value without being taken for anything else: letters,
/// digits and ". _ + -", at least one of them.
bool isPlain(QByteArrayView text);

/// The lines "key=value" of the group "General", the last of each key. Lines of other kinds, other
/// groups, keys that are not plain and values that are not printable ASCII are passed over.
Values parse(const QByteArray& text);

/// What `parse` reads back to the same values.
QByteArray format(const Values& values);

}  // namespace corvane::SettingsText
