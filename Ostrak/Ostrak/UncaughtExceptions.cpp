#include <cxxabi.h>
#include <execinfo.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <memory>

#include "Alerts.h"
#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

QString callStack() {
  constexpr int deepest = 64;
  std::array<void *, deepest> frames{};
  const int depth = ::backtrace(frames.data(), deepest);
  const std::unique_ptr<char *, decltype(&std::free)> names(
      ::backtrace_symbols(frames.data(), depth), &std::free);
  QStringList lines;
  for (int frame = 0; names && frame < depth; ++frame) {
    lines.append(QString::fromLocal8Bit(names.get()[frame]));
  }
  return lines.join(u'\n');
}

QString typeName(const std::type_info *type) {
  if (!type) return u"unknown exception"_s;
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), &std::free);
  return QString::fromLatin1(name ? name.get() : type->name());
}

[[noreturn]] void reportUncaught() {
  static std::atomic<bool> reporting{false};
  if (reporting.exchange(true)) std::_Exit(1);
  const std::exception_ptr current = std::current_exception();
  if (!current) exceptionHandler(Exception(u"std::terminate"_s, u"called without an exception"_s));
  try {
    std::rethrow_exception(current);
  } catch (const Exception &exception) {
    exceptionHandler(exception);
  } catch (const std::exception &exception) {
    exceptionHandler(Exception(typeName(abi::__cxa_current_exception_type()),
                               QString::fromUtf8(exception.what())));
  } catch (...) {
    exceptionHandler(Exception(typeName(abi::__cxa_current_exception_type()), u""_s));
  }
}

}  // namespace

void exceptionHandler(const Exception &exception) {
  const QByteArray userInfo = QJsonDocument(QJsonObject::fromVariantMap(exception.userInfo()))
                                  .toJson(QJsonDocument::Compact);
  const QString details = makeString(u" %@ %@ %@ %@"_s, QString::fromUtf8(exception.what()),
                                     exception.reason(), QString::fromUtf8(userInfo), callStack());
  alert_feedback_fatal(exception.name(), details);
}

void installExceptionHandler() {
  std::set_terminate(reportUncaught);
}

}  // namespace ostrak
