#include "LanguageTable.h"

#include <algorithm>
#include <array>

namespace decant {

namespace {

constexpr auto languages = std::to_array<LanguageRow>({
    {u"aa", u"aar"}, {u"ab", u"abk"}, {u"ae", u"ave"}, {u"af", u"afr"}, {u"ak", u"aka"},
    {u"am", u"amh"}, {u"an", u"arg"}, {u"ar", u"ara"}, {u"as", u"asm"}, {u"av", u"ava"},
    {u"ay", u"aym"}, {u"az", u"aze"}, {u"ba", u"bak"}, {u"be", u"bel"}, {u"bg", u"bul"},
    {u"bh", u"bih"}, {u"bi", u"bis"}, {u"bm", u"bam"}, {u"bn", u"ben"}, {u"bo", u"tib"},
    {u"bo", u"tib"}, {u"br", u"bre"}, {u"bs", u"bos"}, {u"ca", u"cat"}, {u"ce", u"che"},
    {u"ch", u"cha"}, {u"co", u"cos"}, {u"cr", u"cre"}, {u"cs", u"cze"}, {u"cs", u"cze"},
    {u"cu", u"chu"}, {u"cv", u"chv"}, {u"cy", u"wel"}, {u"cy", u"wel"}, {u"da", u"dan"},
    {u"de", u"ger"}, {u"de", u"ger"}, {u"dv", u"div"}, {u"dz", u"dzo"}, {u"ee", u"ewe"},
    {u"el", u"gre"}, {u"el", u"gre"}, {u"en", u"eng"}, {u"eo", u"epo"}, {u"es", u"spa"},
    {u"et", u"est"}, {u"eu", u"baq"}, {u"eu", u"baq"}, {u"fa", u"per"}, {u"fa", u"per"},
    {u"ff", u"ful"}, {u"fi", u"fin"}, {u"fj", u"fij"}, {u"fo", u"fao"}, {u"fr", u"fre"},
    {u"fr", u"fre"}, {u"fy", u"fry"}, {u"ga", u"gle"}, {u"gd", u"gla"}, {u"gl", u"glg"},
    {u"gn", u"grn"}, {u"gu", u"guj"}, {u"gv", u"glv"}, {u"ha", u"hau"}, {u"he", u"heb"},
    {u"hi", u"hin"}, {u"ho", u"hmo"}, {u"hr", u"hrv"}, {u"ht", u"hat"}, {u"hu", u"hun"},
    {u"hy", u"arm"}, {u"hy", u"arm"}, {u"hz", u"her"}, {u"ia", u"ina"}, {u"id", u"ind"},
    {u"ie", u"ile"}, {u"ig", u"ibo"}, {u"ii", u"iii"}, {u"ik", u"ipk"}, {u"io", u"ido"},
    {u"is", u"ice"}, {u"is", u"ice"}, {u"it", u"ita"}, {u"iu", u"iku"}, {u"ja", u"jpn"},
    {u"jv", u"jav"}, {u"ka", u"geo"}, {u"ka", u"geo"}, {u"kg", u"kon"}, {u"ki", u"kik"},
    {u"kj", u"kua"}, {u"kk", u"kaz"}, {u"kl", u"kal"}, {u"km", u"khm"}, {u"kn", u"kan"},
    {u"ko", u"kor"}, {u"kr", u"kau"}, {u"ks", u"kas"}, {u"ku", u"kur"}, {u"kv", u"kom"},
    {u"kw", u"cor"}, {u"ky", u"kir"}, {u"la", u"lat"}, {u"lb", u"ltz"}, {u"lg", u"lug"},
    {u"li", u"lim"}, {u"ln", u"lin"}, {u"lo", u"lao"}, {u"lt", u"lit"}, {u"lu", u"lub"},
    {u"lv", u"lav"}, {u"mg", u"mlg"}, {u"mh", u"mah"}, {u"mi", u"mao"}, {u"mi", u"mao"},
    {u"mk", u"mac"}, {u"mk", u"mac"}, {u"ml", u"mal"}, {u"mn", u"mon"}, {u"mr", u"mar"},
    {u"ms", u"may"}, {u"ms", u"may"}, {u"mt", u"mlt"}, {u"my", u"bur"}, {u"my", u"bur"},
    {u"na", u"nau"}, {u"nb", u"nob"}, {u"nd", u"nde"}, {u"ne", u"nep"}, {u"ng", u"ndo"},
    {u"nl", u"dut"}, {u"nl", u"dut"}, {u"nn", u"nno"}, {u"no", u"nor"}, {u"nr", u"nbl"},
    {u"nv", u"nav"}, {u"ny", u"nya"}, {u"oc", u"oci"}, {u"oj", u"oji"}, {u"om", u"orm"},
    {u"or", u"ori"}, {u"os", u"oss"}, {u"pa", u"pan"}, {u"pi", u"pli"}, {u"pl", u"pol"},
    {u"ps", u"pus"}, {u"pt", u"por"}, {u"qu", u"que"}, {u"rm", u"roh"}, {u"rn", u"run"},
    {u"ro", u"rum"}, {u"ro", u"rum"}, {u"ru", u"rus"}, {u"rw", u"kin"}, {u"sa", u"san"},
    {u"sc", u"srd"}, {u"sd", u"snd"}, {u"se", u"sme"}, {u"sg", u"sag"}, {u"si", u"sin"},
    {u"sk", u"slo"}, {u"sk", u"slo"}, {u"sl", u"slv"}, {u"sm", u"smo"}, {u"sn", u"sna"},
    {u"so", u"som"}, {u"sq", u"alb"}, {u"sq", u"alb"}, {u"sr", u"srp"}, {u"ss", u"ssw"},
    {u"st", u"sot"}, {u"su", u"sun"}, {u"sv", u"swe"}, {u"sw", u"swa"}, {u"ta", u"tam"},
    {u"te", u"tel"}, {u"tg", u"tgk"}, {u"th", u"tha"}, {u"ti", u"tir"}, {u"tk", u"tuk"},
    {u"tl", u"tgl"}, {u"tn", u"tsn"}, {u"to", u"ton"}, {u"tr", u"tur"}, {u"ts", u"tso"},
    {u"tt", u"tat"}, {u"tw", u"twi"}, {u"ty", u"tah"}, {u"ug", u"uig"}, {u"uk", u"ukr"},
    {u"ur", u"urd"}, {u"uz", u"uzb"}, {u"ve", u"ven"}, {u"vi", u"vie"}, {u"vo", u"vol"},
    {u"wa", u"wln"}, {u"wo", u"wol"}, {u"xh", u"xho"}, {u"yi", u"yid"}, {u"yo", u"yor"},
    {u"za", u"zha"}, {u"zh", u"chi"}, {u"zh", u"chi"}, {u"zu", u"zul"},
});

constexpr auto twins = std::to_array<LanguageTwin>({
    {u"bod", u"tib"}, {u"ces", u"cze"}, {u"cym", u"wel"}, {u"deu", u"ger"}, {u"ell", u"gre"},
    {u"eus", u"baq"}, {u"fas", u"per"}, {u"fra", u"fre"}, {u"hye", u"arm"}, {u"isl", u"ice"},
    {u"kat", u"geo"}, {u"mri", u"mao"}, {u"mkd", u"mac"}, {u"msa", u"may"}, {u"mya", u"bur"},
    {u"nld", u"dut"}, {u"ron", u"rum"}, {u"slk", u"slo"}, {u"sqi", u"alb"}, {u"zho", u"chi"},
});

}  // namespace

std::span<const LanguageRow> languageTable() {
  return languages;
}

std::span<const LanguageTwin> languageTwins() {
  return twins;
}

QStringView bibliographicOfTwoLetters(QStringView twoLetters) {
  const auto row = std::lower_bound(
      languages.begin(), languages.end(), twoLetters,
      [](const LanguageRow &each, QStringView code) { return each.twoLetters < code; });
  const bool found = row != languages.end() && row->twoLetters == twoLetters;
  return found ? row->bibliographic : QStringView();
}

QStringView bibliographicOf(QStringView code) {
  const auto twin = std::find_if(twins.begin(), twins.end(), [code](const LanguageTwin &each) {
    return each.terminology == code;
  });
  return twin == twins.end() ? code : twin->bibliographic;
}

}  // namespace decant
