#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "Exceptions.h"
#include "LanguageTable.h"
#include "PreferredAudioTrack.h"
#include "Reports.h"

using namespace Qt::StringLiterals;
using decant::AudioTrackDescription;
using decant::bestAudioTrack;
using decant::preferredLanguageIdentifiers;
using decant::preferredLanguages3Letter;

class TestPreferredAudioTrack final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void threeLetterCodes();
  void identifiers_data();
  void identifiers();
  void best_data();
  void best();
  void fixedLanguages_data();
  void fixedLanguages();
  void choicesWithoutALanguageThrow_data();
  void choicesWithoutALanguageThrow();
  void malformedDescriptionThrows();
  void everyUserOfADoubledLanguageIsServed_data();
  void everyUserOfADoubledLanguageIsServed();
  void readings_data();
  void readings();
};

namespace {

QList<AudioTrackDescription> tracksOf(const QStringList &texts) {
  QList<AudioTrackDescription> tracks;
  for (const QString &text : texts)
    tracks.append({text, 48000});
  return tracks;
}

}  // namespace

void TestPreferredAudioTrack::threeLetterCodes() {
  QCOMPARE(preferredLanguages3Letter({u"de"_s, u"en"_s, u"en-US"_s, u"ast"_s, u"de"_s, u"iw"_s}),
           (QStringList{u"ger"_s, u"eng"_s, u"en-US"_s, u"ast"_s, u"ger"_s, u"iw"_s}));
  QCOMPARE(preferredLanguages3Letter({}), QStringList());
}

void TestPreferredAudioTrack::identifiers_data() {
  QTest::addColumn<QStringList>("environment");  // LANGUAGE, LC_ALL, LC_MESSAGES, LANG
  QTest::addColumn<QString>("identifiers");
  const auto row = [](const char *name, const char *language, const char *lcAll,
                      const char *lcMessages, const char *lang, const char *identifiers) {
    QTest::newRow(name) << QStringList{QString::fromLatin1(language), QString::fromLatin1(lcAll),
                                       QString::fromLatin1(lcMessages), QString::fromLatin1(lang)}
                        << QString::fromLatin1(identifiers);
  };
  row("LANG", "", "", "", "de_DE.UTF-8", "de");
  row("LANG without country", "", "", "", "fr", "fr");
  row("LANG with a region", "", "", "", "pt_BR", "pt");
  row("LANG with a modifier", "", "", "", "sr@latin", "sr");
  row("LANG with all", "", "", "", "ca_ES.UTF-8@valencia", "ca");
  row("LANG of three letters", "", "", "", "ast_ES.UTF-8", "ast");
  row("LANG as in the web", "", "", "", "pt-BR", "pt");
  row("C", "", "", "", "C", "en");
  row("C.UTF-8", "", "", "", "C.UTF-8", "en");
  row("POSIX", "", "", "", "POSIX", "en");
  row("nothing", "", "", "", "", "en");
  row("LC_MESSAGES before LANG", "", "", "ja_JP.UTF-8", "de_DE.UTF-8", "ja");
  row("LC_ALL before LC_MESSAGES", "", "it_IT", "ja_JP.UTF-8", "de_DE.UTF-8", "it");
  row("LC_ALL is C", "", "C", "ja_JP.UTF-8", "de_DE.UTF-8", "en");
  row("LANGUAGE wins", "de:en", "", "", "fr_FR.UTF-8", "de|en");
  row("LANGUAGE wins over C", "de:en", "C", "C", "C", "de|en");
  row("LANGUAGE with countries", "pt_BR.UTF-8:en_GB:en", "", "", "", "pt|en|en");
  row("LANGUAGE with empty parts", ":de::en:", "", "", "fr_FR", "de|en");
  row("LANGUAGE of empty parts", "::", "", "", "fr_FR", "fr");
  row("LANGUAGE with C", "de:C", "", "", "fr_FR", "de|en");
  row("only a modifier", "", "", "@euro", "de_DE", "de");
}

void TestPreferredAudioTrack::identifiers() {
  QFETCH(QStringList, environment);
  QFETCH(QString, identifiers);
  const QStringList found =
      preferredLanguageIdentifiers(environment[0], environment[1], environment[2], environment[3]);
  QCOMPARE(found.join(u'|'), identifiers);
}

void TestPreferredAudioTrack::best_data() {
  QTest::addColumn<QString>("tracks");
  QTest::addColumn<QString>("preferred");
  QTest::addColumn<int>("choice");
  QTest::addColumn<int>("best");  // -1: none
  const auto row = [](const char *name, const char *tracks, const char *preferred, int choice,
                      int best) {
    QTest::newRow(name) << QString::fromLatin1(tracks) << QString::fromLatin1(preferred) << choice
                        << best;
  };
  row("AAC of the first language", "#1: eng (ac3) [5.1]|#2: ger (aac)|#3: ger (ac3)", "ger|eng", 0,
      1);
  row("AAC after AC3", "#1: ger (ac3)|#2: ger (aac)", "ger", 0, 1);
  row("the choice beats the system", "#1: eng (ac3) [5.1]|#2: ger (aac)|#3: ger (ac3)", "ger|eng",
      2, 0);
  row("no match", "#1: jpn (dts)|#2: jpn (ac3)", "eng|ger", 0, 1);
  row("no match of the choice", "#1: jpn (dts)|#2: ger (mp3)", "ger", 8, 0);
  row("he-aac is not aac", "#1: eng (he-aac)|#2: eng (ac3)", "eng", 0, 1);
  row("listed after unlisted", "#1: unk (aac)|#2: eng (mp3)", "eng", 0, 1);
  row("second language", "#1: unk (aac)|#2: fre (mp3)|#3: eng (mp3)", "ger|eng|fre", 0, 2);
  row("first of equals", "#1: eng (mp3)|#2: eng (dts)", "eng", 0, 0);
  row("AAC behind a lower language", "#1: eng (aac)|#2: ger (dts)", "ger|eng", 0, 1);
  row("language is exact", "#1: Eng (aac)|#2: en (aac)|#3: eng (mp3)", "eng", 0, 2);
  row("region matches nothing", "#1: ger (mp3)|#2: eng (mp3)", "en-US", 0, 0);
  row("doubled preference", "#1: eng (mp3)|#2: ger (mp3)", "ger|ger|eng", 0, 1);
  row("no preference", "#1: eng (mp3)|#2: ger (ac3)", "", 0, 1);
  row("no tracks", "", "eng", 0, -1);
  row("no tracks, with a choice", "", "eng", 2, -1);
  row("terminology track", "#1: eng (aac)|#2: deu (ac3)", "ger|eng", 0, 1);
  row("terminology preference", "#1: eng (aac)|#2: ger (ac3)", "deu|eng", 0, 1);
  row("both in one file", "#1: deu (mp3)|#2: ger (aac)", "ger", 0, 1);
  row("terminology and a choice", "#1: eng (aac)|#2: zho (mp3)", "eng", 6, 1);
}

void TestPreferredAudioTrack::best() {
  QFETCH(QString, tracks);
  QFETCH(QString, preferred);
  QFETCH(int, choice);
  QFETCH(int, best);
  const auto found = bestAudioTrack(tracksOf(tracks.split(u'|', Qt::SkipEmptyParts)),
                                    preferred.split(u'|', Qt::SkipEmptyParts), choice);
  QCOMPARE(found.value_or(-1), best);
}

void TestPreferredAudioTrack::fixedLanguages_data() {
  QTest::addColumn<int>("choice");
  int choice = 2;
  for (const char *code : {"eng", "ger", "fre", "spa", "chi", "jpn", "rus"}) {
    QTest::newRow(code) << choice++;
  }
}

void TestPreferredAudioTrack::fixedLanguages() {
  QFETCH(int, choice);
  const QString chosen = u"#2: "_s + QString::fromLatin1(QTest::currentDataTag()) + u" (dts)"_s;
  QCOMPARE(bestAudioTrack(tracksOf({u"#1: ita (aac)"_s, chosen}), {u"ita"_s}, choice),
           std::optional<int>(1));
}

void TestPreferredAudioTrack::choicesWithoutALanguageThrow_data() {
  QTest::addColumn<int>("choice");
  for (const int choice :
       {1, 9, -1, -5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    QTest::addRow("%d", choice) << choice;
  }
}

void TestPreferredAudioTrack::choicesWithoutALanguageThrow() {
  QFETCH(int, choice);
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError,
                           (void)bestAudioTrack(tracksOf({u"#1: eng (aac)"_s}), {}, choice));
}

void TestPreferredAudioTrack::malformedDescriptionThrows() {
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError,
                           (void)bestAudioTrack(tracksOf({u"#1: eng"_s}), {}, 0));
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)bestAudioTrack(tracksOf({u"#1:"_s}), {}, 0));
}

void TestPreferredAudioTrack::everyUserOfADoubledLanguageIsServed_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<QString>("environment");
  QTest::addColumn<int>("which");  // 0: LANGUAGE, 1: LANG
  for (const auto &row : decant::languageTable()) {
    for (const auto &twin : decant::languageTwins()) {
      if (twin.bibliographic != row.bibliographic) continue;
      const QString two = row.twoLetters.toString();
      const QString B = row.bibliographic.toString();
      const QString T = twin.terminology.toString();
      const QStringList labels = {u"0:1("_s + B + u')', u"0:1[0x2]("_s + T + u')',
                                  u"0:1[0x101]("_s + B + u')', u"0:1[0x101]("_s + T + u')'};
      const QStringList forms = {two + u":en"_s, two + u"_XX.UTF-8:"_s + two + u":en"_s};
      for (const QString &label : labels) {
        for (const QString &form : forms) {
          QTest::addRow("%s, LANGUAGE=%s", qPrintable(label), qPrintable(form))
              << label << form << 0;
        }
        QTest::addRow("%s, LANG", qPrintable(label)) << label << QString(two + u"_XX.UTF-8"_s) << 1;
      }
    }
  }
}

// From the line in the report to the chosen track, as mkv, mp4 and ts label it.
void TestPreferredAudioTrack::everyUserOfADoubledLanguageIsServed() {
  QFETCH(QString, label);
  QFETCH(QString, environment);
  QFETCH(int, which);
  const auto outcome = parsed({videoLine(), u"  Stream #0:2(eng): Audio: aac, 48000 Hz, stereo"_s,
                               u"  Stream #"_s + label + u": Audio: dts, 48000 Hz, stereo"_s});
  const QString none;
  const QStringList identifiers =
      which == 0 ? preferredLanguageIdentifiers(environment, none, none, u"en_US.UTF-8"_s)
                 : preferredLanguageIdentifiers(none, none, none, environment);
  const auto &tracks = outcome.record->audioTrackInformation;
  QCOMPARE(bestAudioTrack(tracks, preferredLanguages3Letter(identifiers), 0),
           std::optional<int>(1));
  QVERIFY(label.contains(QString(u'(' + decant::trackLanguage(tracks[1]) + u')')));
}

void TestPreferredAudioTrack::readings_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("number");
  QTest::addColumn<QString>("language");
  QTest::addColumn<QString>("codec");
  QTest::addColumn<bool>("surround");
  QTest::newRow("stereo") << u"#1: eng (aac)"_s << 1 << u"eng"_s << u"aac"_s << false;
  QTest::newRow("surround") << u"#12: ger (ac3) [5.1]"_s << 12 << u"ger"_s << u"ac3"_s << true;
  QTest::newRow("he-aac") << u"#3: unk (he-aac)"_s << 3 << u"unk"_s << u"he-aac"_s << false;
  QTest::newRow("5.1 in the language") << u"#3: x5.1 (aac)"_s << 3 << u"x5.1"_s << u"aac"_s << true;
  QTest::newRow("no codec") << u"#3: eng ()"_s << 3 << u"eng"_s << u""_s << false;
  QTest::newRow("one character") << u"#3: eng ("_s << 3 << u"eng"_s << u""_s << false;
}

void TestPreferredAudioTrack::readings() {
  QFETCH(QString, text);
  QFETCH(int, number);
  QFETCH(QString, language);
  QFETCH(QString, codec);
  QFETCH(bool, surround);
  const AudioTrackDescription track{text, 0};
  QCOMPARE(decant::trackNumber(track), number);
  QCOMPARE(decant::trackLanguage(track), language);
  QCOMPARE(decant::trackCodec(track), codec);
  QCOMPARE(decant::isSurround(track), surround);
}

QTEST_GUILESS_MAIN(TestPreferredAudioTrack)
#include "tst_preferredaudiotrack.moc"
