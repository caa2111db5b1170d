#pragma once

#include <QList>
#include <QPointF>
#include <algorithm>
#include <functional>
#include <optional>

namespace ostrak {

struct PointExtents {
  QPointF minimum;
  QPointF maximum;
  bool operator==(const PointExtents &) const = default;
};

struct ValueExtents {
  double minimum = 0;
  double maximum = 0;
  bool operator==(const ValueExtents &) const = default;
};

// The smallest and largest of the points, or numbers, that the block gives for each element; each
// coordinate on its own. Nothing for an empty list. Not-a-number is passed over.
template <typename T, typename Function>
[[nodiscard]] std::optional<ValueExtents> calculateExtentsOfValues(const QList<T> &list,
                                                                   Function valueOf) {
  std::optional<ValueExtents> extents;
  for (const T &element : list) {
    const double value = static_cast<double>(std::invoke(valueOf, element));
    if (value != value) continue;
    if (!extents) extents = ValueExtents{value, value};
    extents->minimum = std::min(extents->minimum, value);
    extents->maximum = std::max(extents->maximum, value);
  }
  return extents;
}

template <typename T, typename Function>
[[nodiscard]] std::optional<PointExtents> calculateExtentsOfPoints(const QList<T> &list,
                                                                   Function pointOf) {
  QList<QPointF> points;
  for (const T &element : list) {
    points.append(std::invoke(pointOf, element));
  }
  const auto x = calculateExtentsOfValues(points, &QPointF::x);
  const auto y = calculateExtentsOfValues(points, &QPointF::y);
  if (!x || !y) return std::nullopt;
  return PointExtents{{x->minimum, y->minimum}, {x->maximum, y->maximum}};
}

}  // namespace ostrak
