#include <QDir>
#include <QRegularExpression>

#include "NamedImage.h"
#include "OffscreenMain.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestNamedImage final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    QDir(m_program.library().resDir()).mkpath(u"images"_s);
    putPicture(u"plain.png"_s, 3);
    putPicture(u"images/tool.png"_s, 5);
    putPicture(u"both.png"_s, 7);
    put(u"both.svg"_s, drawing(9));
    put(u"images/drawn.svg"_s, drawing(11));
    put(u"broken.png"_s, "no picture");
    put(u"half.svg"_s, "no drawing");
    putPicture(u"half.png"_s, 13);
  }
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_program.restart();
  }

  void finds_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("width");
    QTest::newRow("with extension") << u"plain.png"_s << 3;
    QTest::newRow("without extension") << u"plain"_s << 3;
    QTest::newRow("among the icons") << u"tool"_s << 5;
    QTest::newRow("folder named") << u"images/tool.png"_s << 5;
    QTest::newRow("drawing first") << u"both"_s << 9;
    QTest::newRow("picture named") << u"both.png"_s << 7;
    QTest::newRow("drawing among the icons") << u"drawn"_s << 11;
    QTest::newRow("unreadable drawing") << u"half"_s << 13;
  }
  void finds() {
    QFETCH(QString, name);
    const qsizetype before = m_program.logged().size();
    QTEST(namedImage(name).width(), "width");
    QCOMPARE(m_program.logged().size(), before);
  }

  void findsNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("absent") << u"none"_s;
    QTest::newRow("percent") << u"100%@"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("folder") << u"images"_s;
    QTest::newRow("no picture") << u"broken"_s;
    QTest::newRow("outside") << u"../resources/plain.png"_s;
    QTest::newRow("absolute") << QString(m_program.library().resDir() + u"/plain.png"_s);
  }
  void findsNothing() {
    QFETCH(QString, name);
    const qsizetype before = m_program.logged().size();
    QVERIFY(namedImage(name).isNull());
    const auto logged = m_program.loggedWithLevel();
    QCOMPARE(logged.size(), before + 1);
    QCOMPARE(logged.last().level, 3);
    QCOMPARE(logged.last().message,
             QString(u"Error: there is no named image with name: "_s + name));
  }

 private:
  void put(const QString &name, const QByteArray &content) {
    QVERIFY(wholefile::write(m_program.library().resDir() + u'/' + name, content));
  }
  void putPicture(const QString &name, int width) {
    QImage picture(width, 2, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(m_program.library().resDir() + u'/' + name));
  }
  static QByteArray drawing(int width) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + QByteArray::number(width) +
           "\" height=\"2\"><rect width=\"2\" height=\"2\"/></svg>";
  }

  ScratchProgram m_program;
};

int main(int argc, char **argv) {
  return runOffscreen<TestNamedImage>(argc, argv);
}
#include "tst_namedimage.moc"
