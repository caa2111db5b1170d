#include "ValueTransformer.h"

#include <QAssociativeIterable>
#include <QSequentialIterable>

#include "JobState.h"

namespace decant {

int StatusIsRunningValueTransformer::transformedValue(const QVariant &state) const {
  return state.toInt() == JobStateConverting;
}

int StatusIsQueuedValueTransformer::transformedValue(const QVariant &state) const {
  return state.toInt() == JobStateQueued;
}

int StatusNotRunningValueTransformer::transformedValue(const QVariant &state) const {
  return state.toInt() != JobStateConverting;
}

int StatusNotQueuedAndPausedValueTransformer::transformedValue(const QVariant &state) const {
  return state.toInt() != JobStateQueued && state.toInt() != JobStatePaused;
}

int StatusNotFinishedValueTransformer::transformedValue(const QVariant &state) const {
  return state.toInt() != JobStateFinished && state.toInt() != JobStateFailed;
}

int NonEmptyCollectionValueTransformer::transformedValue(const QVariant &value) const {
  // Texts convert to lists of characters, but are no collections here.
  if (value.metaType() == QMetaType::fromType<QString>()) return 0;
  if (value.canConvert<QVariantList>()) return value.value<QSequentialIterable>().size() != 0;
  if (value.canConvert<QVariantMap>()) return value.value<QAssociativeIterable>().size() != 0;
  return 0;
}

}  // namespace decant
