#pragma once

#include <QString>
#include <QStringList>
#include <memory>

// Keeps the machine from going to sleep by itself, never the screen from blanking.

// Held while sleep must not come; letting it go allows sleep again.
class SleepAssertion {
 public:
  virtual ~SleepAssertion() = default;
};

class SleepInhibitor {
 public:
  virtual ~SleepInhibitor() = default;
  // `reason` is shown by desktops that list what keeps them awake. Never waits, never null: where
  // no service answers, the assertion holds nothing.
  [[nodiscard]] virtual std::unique_ptr<SleepAssertion> inhibit(const QString &reason) = 0;
};

class NullSleepInhibitor final : public SleepInhibitor {
 public:
  [[nodiscard]] std::unique_ptr<SleepAssertion> inhibit(const QString &) override {
    return std::make_unique<SleepAssertion>();
  }
};

// For tests: counts what is held now and remembers every reason.
class RecordingSleepInhibitor final : public SleepInhibitor {
 public:
  [[nodiscard]] std::unique_ptr<SleepAssertion> inhibit(const QString &reason) override {
    m_reasons.append(reason);
    return std::make_unique<Counted>(*m_held);
  }
  [[nodiscard]] int held() const { return *m_held; }
  [[nodiscard]] const QStringList &reasons() const { return m_reasons; }

 private:
  class Counted final : public SleepAssertion {
   public:
    explicit Counted(int &count) : m_count(count) { ++m_count; }
    ~Counted() override { --m_count; }

   private:
    int &m_count;
  };
  std::unique_ptr<int> m_held = std::make_unique<int>(0);
  QStringList m_reasons;
};
