#include "VKApplicationDelegate.h"

#include <QVariant>

#include "Defaults.h"
#include "Format.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

const QString usagesKey = u"ostrak_usages"_s;

void increase(const QString &counter, qint64 by) {
  setDefaultInt(counter, defaultInt(counter) + by);
}

}  // namespace

VKApplicationDelegate::VKApplicationDelegate(QObject *parent) : QObject(parent) {}

VKApplicationDelegate::~VKApplicationDelegate() = default;

void VKApplicationDelegate::increaseUsagesBy(qint64 by, qint64 allowRatingsWith,
                                             qint64 requestFeedbackWith,
                                             const QString &feedbackText, bool allowFeedbackNow,
                                             bool forceFeedbackNow) {
  m_minimumUsagesForRating = allowRatingsWith;
  increase(usagesKey, by);
  increase(makeString(u"ostrak_%@_usages"_s, tk->appVersionString()), by);
  Q_EMIT rateableChanged();
  if (!allowFeedbackNow || !forceFeedbackNow) return;
  QString text = feedbackText;
  text.replace("[USAGES_ASKREVIEW]"_L1, QString::number(requestFeedbackWith));
  text.replace("[APPNAME]"_L1, tk->appName());
  Q_EMIT feedbackRequested(text);
}

bool VKApplicationDelegate::isRateable() const {
  return m_minimumUsagesForRating >= 1 && defaultInt(usagesKey) > m_minimumUsagesForRating;
}

void VKApplicationDelegate::setMinimumUsagesForRating(qint64 usages) {
  m_minimumUsagesForRating = usages;
  Q_EMIT rateableChanged();
}

void VKApplicationDelegate::openURL(const QObject &sender) {
  tk->openURL(sender.property("tag").toInt());
}

void VKApplicationDelegate::terminate(const QObject &) {
  Q_EMIT terminationRequested();
}

void VKApplicationDelegate::checkForUpdatesAction(const QObject &) {}

void VKApplicationDelegate::initUpdateCheck() {}

}  // namespace ostrak
