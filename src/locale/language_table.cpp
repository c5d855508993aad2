// The 139 rows of lu_languages, in the order of the two-letter code: the ISO 639
// codes as they stood, the old codes in, iw, ji and jw beside their successors,
// and the English names as this library has always spelt them ("Türkmen",
// "Türkish", "Latzeburgesch"). 37 rows have a name in the language itself.
// Everything here is constant-initialised, so the table is ready while other
// modules run their static initialisers.
#include "facets/utf16_literal.h"
#include "kai18n/locale/lu_languages.h"

// clang-format off
namespace {

// English names.
constexpr auto kAa = lu_make_utf16(u"Afar");
constexpr auto kAb = lu_make_utf16(u"Abkhazian");
constexpr auto kAf = lu_make_utf16(u"Afrikaans");
constexpr auto kAm = lu_make_utf16(u"Amharic");
constexpr auto kAr = lu_make_utf16(u"Arabic");
constexpr auto kAs = lu_make_utf16(u"Assamese");
constexpr auto kAy = lu_make_utf16(u"Aymara");
constexpr auto kAz = lu_make_utf16(u"Azerbaijani");
constexpr auto kBa = lu_make_utf16(u"Bashkir");
constexpr auto kBe = lu_make_utf16(u"Byelorussian");
constexpr auto kBg = lu_make_utf16(u"Bulgarian");
constexpr auto kBh = lu_make_utf16(u"Bihari");
constexpr auto kBi = lu_make_utf16(u"Bislama");
constexpr auto kBn = lu_make_utf16(u"Bengali");
constexpr auto kBo = lu_make_utf16(u"Tibetan");
constexpr auto kBr = lu_make_utf16(u"Breton");
constexpr auto kCa = lu_make_utf16(u"Catalan");
constexpr auto kCo = lu_make_utf16(u"Corsican");
constexpr auto kCs = lu_make_utf16(u"Czech");
constexpr auto kCy = lu_make_utf16(u"Welsh");
constexpr auto kDa = lu_make_utf16(u"Danish");
constexpr auto kDe = lu_make_utf16(u"German");
constexpr auto kDz = lu_make_utf16(u"Dzongkha");
constexpr auto kEl = lu_make_utf16(u"Greek");
constexpr auto kEn = lu_make_utf16(u"English");
constexpr auto kEo = lu_make_utf16(u"Esperanto");
constexpr auto kEs = lu_make_utf16(u"Spanish");
constexpr auto kEt = lu_make_utf16(u"Estonian");
constexpr auto kEu = lu_make_utf16(u"Basque");
constexpr auto kFa = lu_make_utf16(u"Persian");
constexpr auto kFi = lu_make_utf16(u"Finnish");
constexpr auto kFj = lu_make_utf16(u"Fijian");
constexpr auto kFo = lu_make_utf16(u"Faroese");
constexpr auto kFr = lu_make_utf16(u"French");
constexpr auto kFy = lu_make_utf16(u"Frisian");
constexpr auto kGa = lu_make_utf16(u"Irish");
constexpr auto kGd = lu_make_utf16(u"Gaelic");
constexpr auto kGl = lu_make_utf16(u"Gallegan");
constexpr auto kGn = lu_make_utf16(u"Guarani");
constexpr auto kGu = lu_make_utf16(u"Gujarati");
constexpr auto kHa = lu_make_utf16(u"Hausa");
constexpr auto kHe = lu_make_utf16(u"Hebrew");
constexpr auto kHi = lu_make_utf16(u"Hindi");
constexpr auto kHr = lu_make_utf16(u"Croatian");
constexpr auto kHu = lu_make_utf16(u"Hungarian");
constexpr auto kHy = lu_make_utf16(u"Armenian");
constexpr auto kIa = lu_make_utf16(u"Interlingua");
constexpr auto kId = lu_make_utf16(u"Indonesian");
constexpr auto kIe = lu_make_utf16(u"Interlingue");
constexpr auto kIk = lu_make_utf16(u"Inupiak");
constexpr auto kIn = lu_make_utf16(u"Indonesian");
constexpr auto kIs = lu_make_utf16(u"Icelandic");
constexpr auto kIt = lu_make_utf16(u"Italian");
constexpr auto kIu = lu_make_utf16(u"Inuktitut");
constexpr auto kIw = lu_make_utf16(u"Hebrew");
constexpr auto kJa = lu_make_utf16(u"Japanese");
constexpr auto kJi = lu_make_utf16(u"Yiddish");
constexpr auto kJw = lu_make_utf16(u"Javanese");
constexpr auto kKa = lu_make_utf16(u"Georgian");
constexpr auto kKk = lu_make_utf16(u"Kazakh");
constexpr auto kKl = lu_make_utf16(u"Kalaallisut");
constexpr auto kKm = lu_make_utf16(u"Khmer");
constexpr auto kKn = lu_make_utf16(u"Kannada");
constexpr auto kKo = lu_make_utf16(u"Korean");
constexpr auto kKs = lu_make_utf16(u"Kashmiri");
constexpr auto kKu = lu_make_utf16(u"Kurdish");
constexpr auto kKw = lu_make_utf16(u"Cornish");
constexpr auto kKy = lu_make_utf16(u"Kirghiz");
constexpr auto kLa = lu_make_utf16(u"Latin");
constexpr auto kLb = lu_make_utf16(u"Latzeburgesch");
constexpr auto kLn = lu_make_utf16(u"Lingala");
constexpr auto kLo = lu_make_utf16(u"Lao");
constexpr auto kLt = lu_make_utf16(u"Lithuanian");
constexpr auto kLv = lu_make_utf16(u"Latvian");
constexpr auto kMg = lu_make_utf16(u"Malagasy");
constexpr auto kMi = lu_make_utf16(u"Maori");
constexpr auto kMk = lu_make_utf16(u"Macedonian");
constexpr auto kMl = lu_make_utf16(u"Malayalam");
constexpr auto kMn = lu_make_utf16(u"Mongolian");
constexpr auto kMo = lu_make_utf16(u"Moldavian");
constexpr auto kMr = lu_make_utf16(u"Marathi");
constexpr auto kMs = lu_make_utf16(u"Malay");
constexpr auto kMt = lu_make_utf16(u"Maltese");
constexpr auto kMy = lu_make_utf16(u"Burmese");
constexpr auto kNa = lu_make_utf16(u"Nauru");
constexpr auto kNe = lu_make_utf16(u"Nepali");
constexpr auto kNl = lu_make_utf16(u"Dutch");
constexpr auto kNo = lu_make_utf16(u"Norwegian");
constexpr auto kOc = lu_make_utf16(u"Occitan");
constexpr auto kOm = lu_make_utf16(u"Oromo");
constexpr auto kPa = lu_make_utf16(u"Panjabi");
constexpr auto kPl = lu_make_utf16(u"Polish");
constexpr auto kPs = lu_make_utf16(u"Pushto");
constexpr auto kPt = lu_make_utf16(u"Portuguese");
constexpr auto kQu = lu_make_utf16(u"Quechua");
constexpr auto kRm = lu_make_utf16(u"Rhaeto-Romance");
constexpr auto kRn = lu_make_utf16(u"Rundi");
constexpr auto kRo = lu_make_utf16(u"Romanian");
constexpr auto kRu = lu_make_utf16(u"Russian");
constexpr auto kRw = lu_make_utf16(u"Kinyarwanda");
constexpr auto kSa = lu_make_utf16(u"Sanskrit");
constexpr auto kSd = lu_make_utf16(u"Sindhi");
constexpr auto kSe = lu_make_utf16(u"Sami");
constexpr auto kSg = lu_make_utf16(u"Sango");
constexpr auto kSi = lu_make_utf16(u"Sinhalese");
constexpr auto kSk = lu_make_utf16(u"Slovak");
constexpr auto kSl = lu_make_utf16(u"Slovenian");
constexpr auto kSm = lu_make_utf16(u"Samoan");
constexpr auto kSn = lu_make_utf16(u"Shona");
constexpr auto kSo = lu_make_utf16(u"Somali");
constexpr auto kSq = lu_make_utf16(u"Albanian");
constexpr auto kSr = lu_make_utf16(u"Serbian");
constexpr auto kSs = lu_make_utf16(u"Swati");
constexpr auto kSt = lu_make_utf16(u"Sotho");
constexpr auto kSu = lu_make_utf16(u"Sundanese");
constexpr auto kSv = lu_make_utf16(u"Swedish");
constexpr auto kSw = lu_make_utf16(u"Swahili");
constexpr auto kTa = lu_make_utf16(u"Tamil");
constexpr auto kTe = lu_make_utf16(u"Telugu");
constexpr auto kTg = lu_make_utf16(u"Tajik");
constexpr auto kTh = lu_make_utf16(u"Thai");
constexpr auto kTk = lu_make_utf16(u"Türkmen");
constexpr auto kTl = lu_make_utf16(u"Tagalog");
constexpr auto kTr = lu_make_utf16(u"Türkish");
constexpr auto kTs = lu_make_utf16(u"Tswana");
constexpr auto kTt = lu_make_utf16(u"Tatar");
constexpr auto kTw = lu_make_utf16(u"Twi");
constexpr auto kUg = lu_make_utf16(u"Uighur");
constexpr auto kUk = lu_make_utf16(u"Ukrainian");
constexpr auto kUr = lu_make_utf16(u"Urdu");
constexpr auto kUz = lu_make_utf16(u"Uzbek");
constexpr auto kVi = lu_make_utf16(u"Vietnamese");
constexpr auto kVo = lu_make_utf16(u"Volapuk");
constexpr auto kWo = lu_make_utf16(u"Wolof");
constexpr auto kXh = lu_make_utf16(u"Xhosa");
constexpr auto kYi = lu_make_utf16(u"Yiddish");
constexpr auto kZa = lu_make_utf16(u"Zhuang");
constexpr auto kZh = lu_make_utf16(u"Chinese");
constexpr auto kZu = lu_make_utf16(u"Zulu");

// Names in the language itself.
constexpr auto kArOwn = lu_make_utf16(u"العربية");
constexpr auto kBeOwn = lu_make_utf16(u"беларускі");
constexpr auto kBgOwn = lu_make_utf16(u"български");
constexpr auto kCaOwn = lu_make_utf16(u"català");
constexpr auto kCsOwn = lu_make_utf16(u"čeština");
constexpr auto kDaOwn = lu_make_utf16(u"dansk");
constexpr auto kDeOwn = lu_make_utf16(u"Deutsch");
constexpr auto kElOwn = lu_make_utf16(u"ελληνικά");
constexpr auto kEnOwn = lu_make_utf16(u"English");
constexpr auto kEsOwn = lu_make_utf16(u"español");
constexpr auto kEtOwn = lu_make_utf16(u"Eesti");
constexpr auto kFiOwn = lu_make_utf16(u"suomi");
constexpr auto kFrOwn = lu_make_utf16(u"français");
constexpr auto kHeOwn = lu_make_utf16(u"עברית");
constexpr auto kHrOwn = lu_make_utf16(u"hrvatski");
constexpr auto kIsOwn = lu_make_utf16(u"íslenska");
constexpr auto kItOwn = lu_make_utf16(u"italiano");
constexpr auto kIwOwn = lu_make_utf16(u"עברית");
constexpr auto kJaOwn = lu_make_utf16(u"日本語");
constexpr auto kKoOwn = lu_make_utf16(u"한국어");
constexpr auto kLtOwn = lu_make_utf16(u"Lietuviř");
constexpr auto kLvOwn = lu_make_utf16(u"Latviešu");
constexpr auto kMkOwn = lu_make_utf16(u"македонски");
constexpr auto kNlOwn = lu_make_utf16(u"Nederlands");
constexpr auto kNoOwn = lu_make_utf16(u"norsk");
constexpr auto kPlOwn = lu_make_utf16(u"polski");
constexpr auto kPtOwn = lu_make_utf16(u"português");
constexpr auto kRoOwn = lu_make_utf16(u"română");
constexpr auto kRuOwn = lu_make_utf16(u"русский");
constexpr auto kSkOwn = lu_make_utf16(u"Slovenčina");
constexpr auto kSlOwn = lu_make_utf16(u"Slovenščina");
constexpr auto kSrOwn = lu_make_utf16(u"српски");
constexpr auto kSvOwn = lu_make_utf16(u"svenska");
constexpr auto kThOwn = lu_make_utf16(u"ไทย");
constexpr auto kTrOwn = lu_make_utf16(u"Türkçe");
constexpr auto kUkOwn = lu_make_utf16(u"українська");
constexpr auto kZhOwn = lu_make_utf16(u"中文");

}  // namespace

const lu_languages::language lu_languages::s_rows[] = {
    {"aa", "aar", kAa.units, nullptr},
    {"ab", "abk", kAb.units, nullptr},
    {"af", "afr", kAf.units, nullptr},
    {"am", "amh", kAm.units, nullptr},
    {"ar", "ara", kAr.units, kArOwn.units},
    {"as", "asm", kAs.units, nullptr},
    {"ay", "aym", kAy.units, nullptr},
    {"az", "aze", kAz.units, nullptr},
    {"ba", "bak", kBa.units, nullptr},
    {"be", "bel", kBe.units, kBeOwn.units},
    {"bg", "bul", kBg.units, kBgOwn.units},
    {"bh", "bih", kBh.units, nullptr},
    {"bi", "bis", kBi.units, nullptr},
    {"bn", "ben", kBn.units, nullptr},
    {"bo", "bod", kBo.units, nullptr},
    {"br", "bre", kBr.units, nullptr},
    {"ca", "cat", kCa.units, kCaOwn.units},
    {"co", "cos", kCo.units, nullptr},
    {"cs", "ces", kCs.units, kCsOwn.units},
    {"cy", "cym", kCy.units, nullptr},
    {"da", "dan", kDa.units, kDaOwn.units},
    {"de", "deu", kDe.units, kDeOwn.units},
    {"dz", "dzo", kDz.units, nullptr},
    {"el", "ell", kEl.units, kElOwn.units},
    {"en", "eng", kEn.units, kEnOwn.units},
    {"eo", "epo", kEo.units, nullptr},
    {"es", "spa", kEs.units, kEsOwn.units},
    {"et", "est", kEt.units, kEtOwn.units},
    {"eu", "eus", kEu.units, nullptr},
    {"fa", "fas", kFa.units, nullptr},
    {"fi", "fin", kFi.units, kFiOwn.units},
    {"fj", "fij", kFj.units, nullptr},
    {"fo", "fao", kFo.units, nullptr},
    {"fr", "fra", kFr.units, kFrOwn.units},
    {"fy", "fry", kFy.units, nullptr},
    {"ga", "gai", kGa.units, nullptr},
    {"gd", "gdh", kGd.units, nullptr},
    {"gl", "glg", kGl.units, nullptr},
    {"gn", "grn", kGn.units, nullptr},
    {"gu", "guj", kGu.units, nullptr},
    {"ha", "hau", kHa.units, nullptr},
    {"he", "heb", kHe.units, kHeOwn.units},
    {"hi", "hin", kHi.units, nullptr},
    {"hr", "hrv", kHr.units, kHrOwn.units},
    {"hu", "hun", kHu.units, nullptr},
    {"hy", "hye", kHy.units, nullptr},
    {"ia", "ina", kIa.units, nullptr},
    {"id", "ind", kId.units, nullptr},
    {"ie", "ile", kIe.units, nullptr},
    {"ik", "ipk", kIk.units, nullptr},
    {"in", "ind", kIn.units, nullptr},
    {"is", "isl", kIs.units, kIsOwn.units},
    {"it", "ita", kIt.units, kItOwn.units},
    {"iu", "iku", kIu.units, nullptr},
    {"iw", "heb", kIw.units, kIwOwn.units},
    {"ja", "jpn", kJa.units, kJaOwn.units},
    {"ji", "yid", kJi.units, nullptr},
    {"jw", "jaw", kJw.units, nullptr},
    {"ka", "kat", kKa.units, nullptr},
    {"kk", "kaz", kKk.units, nullptr},
    {"kl", "kal", kKl.units, nullptr},
    {"km", "khm", kKm.units, nullptr},
    {"kn", "kan", kKn.units, nullptr},
    {"ko", "kor", kKo.units, kKoOwn.units},
    {"ks", "kas", kKs.units, nullptr},
    {"ku", "kur", kKu.units, nullptr},
    {"kw", "cor", kKw.units, nullptr},
    {"ky", "kir", kKy.units, nullptr},
    {"la", "lat", kLa.units, nullptr},
    {"lb", "ltz", kLb.units, nullptr},
    {"ln", "lin", kLn.units, nullptr},
    {"lo", "lao", kLo.units, nullptr},
    {"lt", "lit", kLt.units, kLtOwn.units},
    {"lv", "lav", kLv.units, kLvOwn.units},
    {"mg", "mlg", kMg.units, nullptr},
    {"mi", "mri", kMi.units, nullptr},
    {"mk", "mkd", kMk.units, kMkOwn.units},
    {"ml", "mal", kMl.units, nullptr},
    {"mn", "mon", kMn.units, nullptr},
    {"mo", "mol", kMo.units, nullptr},
    {"mr", "mar", kMr.units, nullptr},
    {"ms", "msa", kMs.units, nullptr},
    {"mt", "mlt", kMt.units, nullptr},
    {"my", "mya", kMy.units, nullptr},
    {"na", "nau", kNa.units, nullptr},
    {"ne", "nep", kNe.units, nullptr},
    {"nl", "nld", kNl.units, kNlOwn.units},
    {"no", "nor", kNo.units, kNoOwn.units},
    {"oc", "oci", kOc.units, nullptr},
    {"om", "orm", kOm.units, nullptr},
    {"pa", "pan", kPa.units, nullptr},
    {"pl", "pol", kPl.units, kPlOwn.units},
    {"ps", "pus", kPs.units, nullptr},
    {"pt", "por", kPt.units, kPtOwn.units},
    {"qu", "que", kQu.units, nullptr},
    {"rm", "roh", kRm.units, nullptr},
    {"rn", "run", kRn.units, nullptr},
    {"ro", "ron", kRo.units, kRoOwn.units},
    {"ru", "rus", kRu.units, kRuOwn.units},
    {"rw", "kin", kRw.units, nullptr},
    {"sa", "san", kSa.units, nullptr},
    {"sd", "snd", kSd.units, nullptr},
    {"se", "smi", kSe.units, nullptr},
    {"sg", "sag", kSg.units, nullptr},
    {"si", "sin", kSi.units, nullptr},
    {"sk", "slk", kSk.units, kSkOwn.units},
    {"sl", "slv", kSl.units, kSlOwn.units},
    {"sm", "smo", kSm.units, nullptr},
    {"sn", "sna", kSn.units, nullptr},
    {"so", "som", kSo.units, nullptr},
    {"sq", "sqi", kSq.units, nullptr},
    {"sr", "srp", kSr.units, kSrOwn.units},
    {"ss", "ssw", kSs.units, nullptr},
    {"st", "sot", kSt.units, nullptr},
    {"su", "sun", kSu.units, nullptr},
    {"sv", "swe", kSv.units, kSvOwn.units},
    {"sw", "swa", kSw.units, nullptr},
    {"ta", "tam", kTa.units, nullptr},
    {"te", "tel", kTe.units, nullptr},
    {"tg", "tgk", kTg.units, nullptr},
    {"th", "tha", kTh.units, kThOwn.units},
    {"tk", "tuk", kTk.units, nullptr},
    {"tl", "tgl", kTl.units, nullptr},
    {"tr", "tur", kTr.units, kTrOwn.units},
    {"ts", "tsn", kTs.units, nullptr},
    {"tt", "tat", kTt.units, nullptr},
    {"tw", "twi", kTw.units, nullptr},
    {"ug", "uig", kUg.units, nullptr},
    {"uk", "ukr", kUk.units, kUkOwn.units},
    {"ur", "urd", kUr.units, nullptr},
    {"uz", "uzb", kUz.units, nullptr},
    {"vi", "vie", kVi.units, nullptr},
    {"vo", "vol", kVo.units, nullptr},
    {"wo", "wol", kWo.units, nullptr},
    {"xh", "xho", kXh.units, nullptr},
    {"yi", "yid", kYi.units, nullptr},
    {"za", "zha", kZa.units, nullptr},
    {"zh", "zho", kZh.units, kZhOwn.units},
    {"zu", "zul", kZu.units, nullptr},
};
// clang-format on

const unsigned int lu_languages::s_rowCount = sizeof(s_rows) / sizeof(s_rows[0]);
