#include <QObject>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include "MKVFileInfo.h"

using namespace Qt::StringLiterals;
using decant::MKVFileInfo;

class TestMKVFileInfo final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void describesItself();
  void describesAnEmptyRecord();
};

void TestMKVFileInfo::describesItself() {
  MKVFileInfo info;
  info.audioTrackInformation = {{u"#1: eng (ac3) [5.1]"_s, 48000}, {u"#2: ger (aac)"_s, 44100}};
  info.subtitleTrackIDs = {3, 5};
  info.informationString = u"Duration: 01:52:07"_s;
  info.fileName = u"50%@.mkv"_s;
  info.runtimeSeconds = 6727;
  info.fileSize = 5'000'000'000;
  info.subtitleFileURL = QUrl::fromLocalFile(u"/movies/a b.srt"_s);
  QCOMPARE(info.description(),
           u"MKVFileInfo: audioTrackInformation=(#1: eng (ac3) [5.1], #2: ger (aac)) "
           "informationString=Duration: 01:52:07 fileName=50%@.mkv runtimeSeconds=6727 "
           "fileSize=5000000000 subtitleTrackIDs=(3, 5) subtitleFileURL=/movies/a b.srt"_s);
}

void TestMKVFileInfo::describesAnEmptyRecord() {
  QCOMPARE(MKVFileInfo().description(),
           u"MKVFileInfo: audioTrackInformation=() informationString=(null) fileName=(null) "
           "runtimeSeconds=(null) fileSize=0 subtitleTrackIDs=() subtitleFileURL=(null)"_s);
}

QTEST_GUILESS_MAIN(TestMKVFileInfo)
#include "tst_mkvfileinfo.moc"
