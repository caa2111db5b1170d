#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include "ListOfRecords.h"
#include "ListOfTexts.h"
#include "Points.h"

namespace ostrak {

// Operations on lists of any type, the short vocabulary of the program. Those that take a list by
// constant reference give a new one; those that take it by reference change it in place. Elements
// are compared with ==, which for pointers is identity. An index out of range is nothing, never an
// error. Blocks are called once per element, in order. Pure, any thread.

namespace detail {
template <typename T>
struct Unwrapped {
  using Type = T;
};
template <typename T>
struct Unwrapped<std::optional<T>> {
  using Type = T;
};
// What a block's result becomes as an element.
template <typename Function, typename T>
using Result =
    typename Unwrapped<std::remove_cvref_t<std::invoke_result_t<Function &, const T &>>>::Type;
}  // namespace detail

// The block's results. A result that is nothing, an empty optional or a null pointer, is left out.
template <typename T, typename Function>
[[nodiscard]] auto mapped(const QList<T> &list, Function block) {
  QList<detail::Result<Function, T>> results;
  results.reserve(list.size());
  for (const T &element : list) {
    auto &&result = std::invoke(block, element);
    using Given = std::remove_cvref_t<decltype(result)>;
    if constexpr (!std::is_same_v<Given, detail::Result<Function, T>>) {
      if (result) results.append(*std::forward<decltype(result)>(result));
    } else if constexpr (std::is_pointer_v<Given>) {
      if (result) results.append(result);
    } else {
      results.append(std::forward<decltype(result)>(result));
    }
  }
  return results;
}

template <typename T, typename Predicate>
[[nodiscard]] QList<T> filtered(const QList<T> &list, Predicate belongs) {
  QList<T> results;
  std::copy_if(list.begin(), list.end(), std::back_inserter(results),
               [&](const T &element) { return bool(std::invoke(belongs, element)); });
  return results;
}

template <typename T, typename Function>
void apply(const QList<T> &list, Function block) {
  for (const T &element : list) {
    std::invoke(block, element);
  }
}

// The sum of the block's results, each taken as a signed 32-bit value.
template <typename T, typename Function>
[[nodiscard]] qint64 reduce(const QList<T> &list, Function block) {
  qint64 sum = 0;
  for (const T &element : list) {
    sum += static_cast<qint32>(std::invoke(block, element));
  }
  return sum;
}

template <typename T>
[[nodiscard]] bool empty(const QList<T> &list) {
  return list.isEmpty();
}

template <typename T>
[[nodiscard]] QSet<T> set(const QList<T> &list) {
  return QSet<T>(list.begin(), list.end());
}

// In ascending order, or by `less`; equal elements keep their order.
template <typename T, typename Less = std::less<T>>
[[nodiscard]] QList<T> sorted(const QList<T> &list, Less less = {}) {
  QList<T> result = list;
  std::stable_sort(result.begin(), result.end(), less);
  return result;
}

template <typename T>
[[nodiscard]] QList<T> flattenedArray(const QList<QList<T>> &lists) {
  QList<T> result;
  for (const QList<T> &list : lists) {
    result.append(list);
  }
  return result;
}

template <typename T>
[[nodiscard]] QList<T> reverseArray(const QList<T> &list) {
  return QList<T>(list.rbegin(), list.rend());
}

// Each element once, where it first stood.
template <typename T>
[[nodiscard]] QList<T> orderedSet(const QList<T> &list) {
  QSet<T> seen;
  return filtered(list, [&](const T &element) {
    const qsizetype before = seen.size();
    seen.insert(element);
    return seen.size() > before;
  });
}

// Adds only if not yet present.
template <typename T>
void addNewObject(QList<T> &list, const std::type_identity_t<T> &object) {
  if (!list.contains(object)) list.append(object);
}

template <typename T>
[[nodiscard]] QList<T> arrayByAddingNewObject(const QList<T> &list,
                                              const std::type_identity_t<T> &object) {
  QList<T> result = list;
  addNewObject(result, object);
  return result;
}

template <typename T>
[[nodiscard]] QList<T> arrayByRemovingObjectIdenticalTo(const QList<T> &list,
                                                        const std::type_identity_t<T> &object) {
  return filtered(list, [&](const T &element) { return !(element == object); });
}

template <typename T>
[[nodiscard]] QList<T> arrayByRemovingObjectsIdenticalTo(
    const QList<T> &list, const std::type_identity_t<QList<T>> &objects) {
  return filtered(list, [&](const T &element) { return !objects.contains(element); });
}

template <typename T>
[[nodiscard]] QList<T> arrayByRemovingObjectsAtIndexes(const QList<T> &list,
                                                       const QSet<qsizetype> &indexes) {
  QList<T> result;
  for (qsizetype at = 0; at < list.size(); ++at) {
    if (!indexes.contains(at)) result.append(list.at(at));
  }
  return result;
}

template <typename T>
[[nodiscard]] QList<T> arrayByRemovingObjectAtIndex(const QList<T> &list, qsizetype index) {
  return arrayByRemovingObjectsAtIndexes(list, {index});
}

// Every element equal to `object` replaced.
template <typename T>
[[nodiscard]] QList<T> arrayByReplacingObject(const QList<T> &list,
                                              const std::type_identity_t<T> &object,
                                              const std::type_identity_t<T> &with) {
  QList<T> result = list;
  std::replace(result.begin(), result.end(), object, with);
  return result;
}

template <typename T>
[[nodiscard]] std::optional<T> safeObjectAtIndex(const QList<T> &list, qsizetype index) {
  if (index < 0 || index >= list.size()) return std::nullopt;
  return list.at(index);
}

// The elements from `index` on; all for an index below 0, none for one beyond the end.
template <typename T>
[[nodiscard]] QList<T> subarrayFromIndex(const QList<T> &list, qsizetype index) {
  return list.mid(qBound<qsizetype>(0, index, list.size()));
}

// The elements before `index`.
template <typename T>
[[nodiscard]] QList<T> subarrayToIndex(const QList<T> &list, qsizetype index) {
  return list.first(qBound<qsizetype>(0, index, list.size()));
}

// Afterwards the element stands at `to`; nothing happens when either index is out of range.
template <typename T>
void moveObjectAtIndex(QList<T> &list, qsizetype from, qsizetype to) {
  if (from < 0 || from >= list.size() || to < 0 || to >= list.size()) return;
  list.move(from, to);
}

// Removes the first element for which the block answers true.
template <typename T, typename Predicate>
void removeObjectPassingTest(QList<T> &list, Predicate passes) {
  const auto found = std::find_if(list.cbegin(), list.cend(), passes);
  if (found != list.cend()) list.erase(found);
}

// Does nothing when given nothing.
template <typename T>
void addObjectSafely(QList<T> &list, const std::type_identity_t<std::optional<T>> &object) {
  if (object) list.append(*object);
}

// mapped in place: the block gives the elements' own type, or an optional of it.
template <typename T, typename Function>
void map(QList<T> &list, Function block) {
  list = mapped(std::as_const(list), std::move(block));
}

template <typename T, typename Predicate>
void filter(QList<T> &list, Predicate belongs) {
  list.removeIf([&](const T &element) { return !std::invoke(belongs, element); });
}

template <typename T>
void removeFirstObject(QList<T> &list) {
  if (!list.isEmpty()) list.removeFirst();
}

}  // namespace ostrak
