#include "Exceptions.h"

using namespace Qt::StringLiterals;

namespace ostrak {

Exception::Exception(QString name, QString reason, QVariantMap userInfo)
    : m_name(std::move(name)), m_reason(std::move(reason)), m_userInfo(std::move(userInfo)) {
  const QString what = m_name + u": "_s + m_reason;
  m_what = what.toUtf8();
}

Exception::~Exception() = default;

const char *Exception::what() const noexcept {
  return m_what.constData();
}

RangeError::RangeError(QString reason) : Exception(u"RangeException"_s, std::move(reason)) {}

}  // namespace ostrak
