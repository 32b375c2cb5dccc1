// SPDX-License-Identifier: MIT
#include "platform/qt/settings_text.h"

#include <QList>
#include <algorithm>

namespace corvane::SettingsText {
namespace {

constexpr QByteArrayView group = "[General]";

bool isPlainCharacter(char c) {
  return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') || c == '.' ||
         c == '_' || c == '+' || c == '-';
}

bool isPrintable(QByteArrayView text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return ' ' <= c && c <= '~'; });
}

}  // namespace

bool isPlain(QByteArrayView text) {
  return !text.isEmpty() && std::all_of(text.begin(), text.end(), isPlainCharacter);
}

Values parse(const QByteArray& text) {
  Values values;
  bool inGroup = true;  // Lines before the first group belong to it too.
  for (const QByteArray& line : text.split('\n')) {
    const QByteArray trimmed = line.trimmed();
    if (trimmed.startsWith('[')) inGroup = trimmed == group;
    const qsizetype equals = trimmed.indexOf('=');
    if (!inGroup || equals < 0) continue;
    const QByteArray key = trimmed.first(equals).trimmed();
    const QByteArray value = trimmed.sliced(equals + 1).trimmed();
    if (isPlain(key) && isPrintable(value)) values[key] = value;
  }
  return values;
}

QByteArray format(const Values& values) {
  QByteArray text = group.toByteArray() + '\n';
  for (const auto& [key, value] : values) text += key + '=' + value + '\n';
  return text;
}

}  // namespace corvane::SettingsText
