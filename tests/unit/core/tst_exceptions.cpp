#include <QTest>

#include "Exceptions.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestExceptions final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void tellsWhatItIs();
  void rangeError();
};

void TestExceptions::tellsWhatItIs() {
  const Exception exception(u"Name"_s, u"réason"_s, {{u"key"_s, 1}});
  QCOMPARE(exception.name(), u"Name"_s);
  QCOMPARE(exception.reason(), u"réason"_s);
  QCOMPARE(exception.userInfo(), (QVariantMap{{u"key"_s, 1}}));
  QCOMPARE(QString::fromUtf8(exception.what()), u"Name: réason"_s);
}

void TestExceptions::rangeError() {
  try {
    throw RangeError(u"index 3 of 2"_s);
  } catch (const Exception &exception) {
    QCOMPARE(exception.name(), u"RangeException"_s);
    QCOMPARE(exception.reason(), u"index 3 of 2"_s);
  }
}

QTEST_GUILESS_MAIN(TestExceptions)
#include "tst_exceptions.moc"
