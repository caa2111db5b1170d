#pragma once

#include <QObject>
#include <QString>

namespace ostrak {

// Base of the application delegate: counts how often the program is used, over all versions and for
// this one, and tells whether a rating may be offered. Main thread.
class VKApplicationDelegate : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool isRateable READ isRateable NOTIFY rateableChanged)

 public:
  explicit VKApplicationDelegate(QObject *parent = nullptr);
  ~VKApplicationDelegate() override;

  // Adds `by` to both counters. Only when both flags are set is feedback asked for, by the signal
  // feedbackRequested with the filled-in text.
  void increaseUsagesBy(qint64 by, qint64 allowRatingsWith, qint64 requestFeedbackWith,
                        const QString &feedbackText, bool allowFeedbackNow, bool forceFeedbackNow);
  // True when the threshold is at least 1 and the counter over all versions is above it.
  [[nodiscard]] bool isRateable() const;
  [[nodiscard]] qint64 minimumUsagesForRating() const { return m_minimumUsagesForRating; }
  void setMinimumUsagesForRating(qint64 usages);

  // Opens the library's link whose number is the sender's dynamic property "tag".
  void openURL(const QObject &sender);
  // Asks for the end of the program, by terminationRequested.
  void terminate(const QObject &sender);
  // Kept for those who look for updates; this program does not: its package does.
  void checkForUpdatesAction(const QObject &sender);
  void initUpdateCheck();

 Q_SIGNALS:
  void rateableChanged();
  // The feedback window is to be shown with this text: a new one, or the one that is open.
  void feedbackRequested(const QString &text);
  void terminationRequested();

 private:
  qint64 m_minimumUsagesForRating = 0;
};

}  // namespace ostrak
