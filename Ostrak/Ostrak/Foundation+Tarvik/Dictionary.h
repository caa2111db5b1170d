#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QVariantMap>
#include <type_traits>

namespace ostrak {

// Operations on dictionaries; each gives a new one. Pure, any thread.

// The value takes the place of one that the key has already.
template <typename Key, typename Value>
[[nodiscard]] QMap<Key, Value> dictionaryByAddingValue(const QMap<Key, Value> &dictionary,
                                                       const std::type_identity_t<Value> &value,
                                                       const std::type_identity_t<Key> &key) {
  QMap<Key, Value> result = dictionary;
  result.insert(key, value);
  return result;
}

// Keys that are not there change nothing.
template <typename Key, typename Value>
[[nodiscard]] QMap<Key, Value> dictionaryByRemovingKeys(
    const QMap<Key, Value> &dictionary, const std::type_identity_t<QList<Key>> &keys) {
  QMap<Key, Value> result = dictionary;
  for (const Key &key : keys) {
    result.remove(key);
  }
  return result;
}

template <typename Key, typename Value>
[[nodiscard]] QMap<Key, Value> dictionaryByRemovingKey(const QMap<Key, Value> &dictionary,
                                                       const std::type_identity_t<Key> &key) {
  return dictionaryByRemovingKeys(dictionary, {key});
}

// The dictionary as it is written in JSON, without line breaks, by key.
[[nodiscard]] QString literalString(const QVariantMap &dictionary);

}  // namespace ostrak
