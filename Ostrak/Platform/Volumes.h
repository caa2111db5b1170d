#pragma once

#include <QString>
#include <optional>

// What the file system that holds a folder can take.
class Volumes {
 public:
  virtual ~Volumes() = default;
  // Bytes that this user may still write below `folder`; nothing when it cannot be told.
  [[nodiscard]] virtual std::optional<quint64> freeSpace(const QString &folder) const = 0;
  // Size of the largest file that can be written there; nothing when it reports none.
  [[nodiscard]] virtual std::optional<quint64> maximumFileSize(const QString &folder) const = 0;
};

// Knows nothing, so that nothing is refused.
class NullVolumes final : public Volumes {
 public:
  [[nodiscard]] std::optional<quint64> freeSpace(const QString &) const override { return {}; }
  [[nodiscard]] std::optional<quint64> maximumFileSize(const QString &) const override {
    return {};
  }
};

// For tests: answers what it was given.
class FakeVolumes final : public Volumes {
 public:
  [[nodiscard]] std::optional<quint64> freeSpace(const QString &) const override { return free; }
  [[nodiscard]] std::optional<quint64> maximumFileSize(const QString &) const override {
    return maximum;
  }
  std::optional<quint64> free;
  std::optional<quint64> maximum;
};
