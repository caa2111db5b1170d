#include "Defaults.h"

#include "Ostrak.h"

namespace ostrak {
namespace {

QVariant storeValue(const QString &key) {
  return tk ? tk->userDefaults().value(key) : QVariant();
}

void setStoreValue(const QString &key, const QVariant &value) {
  if (tk) tk->userDefaults().setValue(key, value);
}

bool isNumber(const QVariant &value) {
  return value.typeId() == QMetaType::Bool || value.typeId() == QMetaType::LongLong ||
         value.typeId() == QMetaType::Double;
}

}  // namespace

QString defaultString(const QString &key) {
  const QVariant value = storeValue(key);
  return value.typeId() == QMetaType::QString || isNumber(value) ? value.toString() : QString();
}

void setDefaultString(const QString &key, const QString &value) {
  setStoreValue(key, value.isNull() ? QVariant() : QVariant(value));
}

qint64 defaultInt(const QString &key) {
  const QVariant value = storeValue(key);
  if (value.typeId() == QMetaType::Double) {
    const double number = value.toDouble();
    constexpr double limit = 9.2e18;
    return number == number ? static_cast<qint64>(qBound(-limit, number, limit)) : 0;
  }
  return isNumber(value) ? value.toLongLong() : 0;
}

void setDefaultInt(const QString &key, qint64 value) {
  setStoreValue(key, value);
}

float defaultFloat(const QString &key) {
  const QVariant value = storeValue(key);
  return isNumber(value) ? value.toFloat() : 0.0F;
}

void setDefaultFloat(const QString &key, float value) {
  setStoreValue(key, value);
}

QVariantList defaultArray(const QString &key) {
  const QVariant value = storeValue(key);
  return value.typeId() == QMetaType::QVariantList ? value.toList() : QVariantList();
}

void setDefaultArray(const QString &key, const QVariantList &value) {
  setStoreValue(key, value);
}

QVariantMap defaultDict(const QString &key) {
  const QVariant value = storeValue(key);
  return value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
}

void setDefaultDict(const QString &key, const QVariantMap &value) {
  setStoreValue(key, value);
}

QVariant defaultObject(const QString &key) {
  return storeValue(key);
}

void setDefaultObject(const QString &key, const QVariant &value) {
  setStoreValue(key, value);
}

QUrl defaultURL(const QString &key) {
  const QVariant value = storeValue(key);
  if (value.typeId() != QMetaType::QString) return {};
  return QUrl::fromEncoded(value.toString().toUtf8(), QUrl::StrictMode);
}

void setDefaultURL(const QString &key, const QUrl &value) {
  setStoreValue(key, value.isEmpty() ? QVariant() : QVariant(value));
}

}  // namespace ostrak
