#pragma once

#include <QVariant>

namespace decant {

// Turn a job's state into the booleans that enable and show controls. Each answers a number, 1 or
// 0; a missing state counts as 0.
class NumberValueTransformer {
 public:
  virtual ~NumberValueTransformer() = default;
  [[nodiscard]] virtual int transformedValue(const QVariant &value) const = 0;
};

class StatusIsRunningValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &state) const override;
};

class StatusIsQueuedValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &state) const override;
};

class StatusNotRunningValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &state) const override;
};

class StatusNotQueuedAndPausedValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &state) const override;
};

class StatusNotFinishedValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &state) const override;
};

// 1 for a list or map that holds something; 0 for an empty one, for nothing and for what is no
// collection.
class NonEmptyCollectionValueTransformer final : public NumberValueTransformer {
 public:
  [[nodiscard]] int transformedValue(const QVariant &value) const override;
};

}  // namespace decant
