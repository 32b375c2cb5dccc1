// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <map>

namespace corvane::SettingsText {

using Values = std::map<QByteArray, QByteArray>;

/// True for text that needs no quoting as a key or a value: at least one letter, digit or
/// one of ". _ + -".
bool isPlain(QByteArrayView text);

/// The last line "key=value" of each key in the group "General". Other lines, other groups, keys
/// that are not plain and values that are not printable ASCII are skipped.
Values parse(const QByteArray& text);

/// A text for which `parse` returns the same values.
QByteArray format(const Values& values);

}  // namespace corvane::SettingsText
