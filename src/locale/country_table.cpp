// The 240 rows of lu_countries, in the order of the two-letter code: the ISO 3166
// codes as they stood, among them FX (FXX, 249), TP (TMP, 626), YU (YUG, 891),
// AN (ANT, 530), RO with the old ROM (642), and PS (PSE) without a numeric code.
// Names are kept as this library has always spelt them ("Guadaloupe", "East
// Timor (provisional)"). 150 rows have a long name, the formal state name.
// Everything here is constant-initialised, so the table is ready while other
// modules run their static initialisers.
#include "facets/utf16_literal.h"
#include "kai18n/locale/lu_countries.h"

// clang-format off
namespace {

// Names.
constexpr auto kAD = lu_make_utf16(u"Andorra");
constexpr auto kAE = lu_make_utf16(u"United Arab Emirates");
constexpr auto kAF = lu_make_utf16(u"Afghanistan");
constexpr auto kAG = lu_make_utf16(u"Antigua and Barbuda");
constexpr auto kAI = lu_make_utf16(u"Anguilla");
constexpr auto kAL = lu_make_utf16(u"Albania");
constexpr auto kAM = lu_make_utf16(u"Armenia");
constexpr auto kAN = lu_make_utf16(u"Netherlands Antilles");
constexpr auto kAO = lu_make_utf16(u"Angola");
constexpr auto kAQ = lu_make_utf16(u"Antarctica");
constexpr auto kAR = lu_make_utf16(u"Argentina");
constexpr auto kAS = lu_make_utf16(u"American Samoa");
constexpr auto kAT = lu_make_utf16(u"Austria");
constexpr auto kAU = lu_make_utf16(u"Australia");
constexpr auto kAW = lu_make_utf16(u"Aruba");
constexpr auto kAZ = lu_make_utf16(u"Azerbaijan");
constexpr auto kBA = lu_make_utf16(u"Bosnia and Herzegovina");
constexpr auto kBB = lu_make_utf16(u"Barbados");
constexpr auto kBD = lu_make_utf16(u"Bangladesh");
constexpr auto kBE = lu_make_utf16(u"Belgium");
constexpr auto kBF = lu_make_utf16(u"Burkina Faso");
constexpr auto kBG = lu_make_utf16(u"Bulgaria");
constexpr auto kBH = lu_make_utf16(u"Bahrain");
constexpr auto kBI = lu_make_utf16(u"Burundi");
constexpr auto kBJ = lu_make_utf16(u"Benin");
constexpr auto kBM = lu_make_utf16(u"Bermuda");
constexpr auto kBN = lu_make_utf16(u"Brunei Darussalam");
constexpr auto kBO = lu_make_utf16(u"Bolivia");
constexpr auto kBR = lu_make_utf16(u"Brazil");
constexpr auto kBS = lu_make_utf16(u"Bahamas");
constexpr auto kBT = lu_make_utf16(u"Bhutan");
constexpr auto kBV = lu_make_utf16(u"Bouvet Island");
constexpr auto kBW = lu_make_utf16(u"Botswana");
constexpr auto kBY = lu_make_utf16(u"Belarus");
constexpr auto kBZ = lu_make_utf16(u"Belize");
constexpr auto kCA = lu_make_utf16(u"Canada");
constexpr auto kCC = lu_make_utf16(u"Cocos (Keeling) Islands");
constexpr auto kCD = lu_make_utf16(u"Congo, The Democratic Republic of the");
constexpr auto kCF = lu_make_utf16(u"Central African Republic");
constexpr auto kCG = lu_make_utf16(u"Congo");
constexpr auto kCH = lu_make_utf16(u"Switzerland");
constexpr auto kCI = lu_make_utf16(u"Côte d'Ivoire");
constexpr auto kCK = lu_make_utf16(u"Cook Islands");
constexpr auto kCL = lu_make_utf16(u"Chile");
constexpr auto kCM = lu_make_utf16(u"Cameroon");
constexpr auto kCN = lu_make_utf16(u"China");
constexpr auto kCO = lu_make_utf16(u"Colombia");
constexpr auto kCR = lu_make_utf16(u"Costa Rica");
constexpr auto kCU = lu_make_utf16(u"Cuba");
constexpr auto kCV = lu_make_utf16(u"Cape Verde");
constexpr auto kCX = lu_make_utf16(u"Christmas Island");
constexpr auto kCY = lu_make_utf16(u"Cyprus");
constexpr auto kCZ = lu_make_utf16(u"Czech Republic");
constexpr auto kDE = lu_make_utf16(u"Germany");
constexpr auto kDJ = lu_make_utf16(u"Djibouti");
constexpr auto kDK = lu_make_utf16(u"Denmark");
constexpr auto kDM = lu_make_utf16(u"Dominica");
constexpr auto kDO = lu_make_utf16(u"Dominican Republic");
constexpr auto kDZ = lu_make_utf16(u"Algeria");
constexpr auto kEC = lu_make_utf16(u"Ecuador");
constexpr auto kEE = lu_make_utf16(u"Estonia");
constexpr auto kEG = lu_make_utf16(u"Egypt");
constexpr auto kEH = lu_make_utf16(u"Western Sahara");
constexpr auto kER = lu_make_utf16(u"Eritrea");
constexpr auto kES = lu_make_utf16(u"Spain");
constexpr auto kET = lu_make_utf16(u"Ethiopia");
constexpr auto kFI = lu_make_utf16(u"Finland");
constexpr auto kFJ = lu_make_utf16(u"Fiji");
constexpr auto kFK = lu_make_utf16(u"Falkland Islands (Malvinas)");
constexpr auto kFM = lu_make_utf16(u"Micronesia, Federated States of");
constexpr auto kFO = lu_make_utf16(u"Faroe Islands");
constexpr auto kFR = lu_make_utf16(u"France");
constexpr auto kFX = lu_make_utf16(u"France, Metropolitan");
constexpr auto kGA = lu_make_utf16(u"Gabon");
constexpr auto kGB = lu_make_utf16(u"United Kingdom");
constexpr auto kGD = lu_make_utf16(u"Grenada");
constexpr auto kGE = lu_make_utf16(u"Georgia");
constexpr auto kGF = lu_make_utf16(u"French Guiana");
constexpr auto kGH = lu_make_utf16(u"Ghana");
constexpr auto kGI = lu_make_utf16(u"Gibraltar");
constexpr auto kGL = lu_make_utf16(u"Greenland");
constexpr auto kGM = lu_make_utf16(u"Gambia");
constexpr auto kGN = lu_make_utf16(u"Guinea");
constexpr auto kGP = lu_make_utf16(u"Guadaloupe");
constexpr auto kGQ = lu_make_utf16(u"Equatorial Guinea");
constexpr auto kGR = lu_make_utf16(u"Greece");
constexpr auto kGS = lu_make_utf16(u"South Georgia and the South Sandwich Islands");
constexpr auto kGT = lu_make_utf16(u"Guatemala");
constexpr auto kGU = lu_make_utf16(u"Guam");
constexpr auto kGW = lu_make_utf16(u"Guinea-Bissau");
constexpr auto kGY = lu_make_utf16(u"Guyana");
constexpr auto kHK = lu_make_utf16(u"Hong Kong");
constexpr auto kHM = lu_make_utf16(u"Heard Island and McDonald Islands");
constexpr auto kHN = lu_make_utf16(u"Honduras");
constexpr auto kHR = lu_make_utf16(u"Croatia");
constexpr auto kHT = lu_make_utf16(u"Haiti");
constexpr auto kHU = lu_make_utf16(u"Hungary");
constexpr auto kID = lu_make_utf16(u"Indonesia");
constexpr auto kIE = lu_make_utf16(u"Ireland");
constexpr auto kIL = lu_make_utf16(u"Israel");
constexpr auto kIN = lu_make_utf16(u"India");
constexpr auto kIO = lu_make_utf16(u"British Indian Ocean Territory");
constexpr auto kIQ = lu_make_utf16(u"Iraq");
constexpr auto kIR = lu_make_utf16(u"Iran, Islamic Republic of");
constexpr auto kIS = lu_make_utf16(u"Iceland");
constexpr auto kIT = lu_make_utf16(u"Italy");
constexpr auto kJM = lu_make_utf16(u"Jamaica");
constexpr auto kJO = lu_make_utf16(u"Jordan");
constexpr auto kJP = lu_make_utf16(u"Japan");
constexpr auto kKE = lu_make_utf16(u"Kenya");
constexpr auto kKG = lu_make_utf16(u"Kyrgyzstan");
constexpr auto kKH = lu_make_utf16(u"Cambodia");
constexpr auto kKI = lu_make_utf16(u"Kiribati");
constexpr auto kKM = lu_make_utf16(u"Comoros");
constexpr auto kKN = lu_make_utf16(u"Saint Kitts and Nevis");
constexpr auto kKP = lu_make_utf16(u"Korea, Democratic People's Republic of");
constexpr auto kKR = lu_make_utf16(u"Korea, Republic of");
constexpr auto kKW = lu_make_utf16(u"Kuwait");
constexpr auto kKY = lu_make_utf16(u"Cayman Islands");
constexpr auto kKZ = lu_make_utf16(u"Kazakhstan");
constexpr auto kLA = lu_make_utf16(u"Lao People's Democratic Republic");
constexpr auto kLB = lu_make_utf16(u"Lebanon");
constexpr auto kLC = lu_make_utf16(u"Saint Lucia");
constexpr auto kLI = lu_make_utf16(u"Liechtenstein");
constexpr auto kLK = lu_make_utf16(u"Sri Lanka");
constexpr auto kLR = lu_make_utf16(u"Liberia");
constexpr auto kLS = lu_make_utf16(u"Lesotho");
constexpr auto kLT = lu_make_utf16(u"Lithuania");
constexpr auto kLU = lu_make_utf16(u"Luxembourg");
constexpr auto kLV = lu_make_utf16(u"Latvia");
constexpr auto kLY = lu_make_utf16(u"Libyan Arab Jamahiriya");
constexpr auto kMA = lu_make_utf16(u"Morocco");
constexpr auto kMC = lu_make_utf16(u"Monaco");
constexpr auto kMD = lu_make_utf16(u"Moldova, Republic of");
constexpr auto kMG = lu_make_utf16(u"Madagascar");
constexpr auto kMH = lu_make_utf16(u"Marshall Islands");
constexpr auto kMK = lu_make_utf16(u"Macedonia, The Former Yugoslav Republic of");
constexpr auto kML = lu_make_utf16(u"Mali");
constexpr auto kMM = lu_make_utf16(u"Myanmar");
constexpr auto kMN = lu_make_utf16(u"Mongolia");
constexpr auto kMO = lu_make_utf16(u"Macau");
constexpr auto kMP = lu_make_utf16(u"Northern Mariana Islands");
constexpr auto kMQ = lu_make_utf16(u"Martinique");
constexpr auto kMR = lu_make_utf16(u"Mauritania");
constexpr auto kMS = lu_make_utf16(u"Montserrat");
constexpr auto kMT = lu_make_utf16(u"Malta");
constexpr auto kMU = lu_make_utf16(u"Mauritius");
constexpr auto kMV = lu_make_utf16(u"Maldives");
constexpr auto kMW = lu_make_utf16(u"Malawi");
constexpr auto kMX = lu_make_utf16(u"Mexico");
constexpr auto kMY = lu_make_utf16(u"Malaysia");
constexpr auto kMZ = lu_make_utf16(u"Mozambique");
constexpr auto kNA = lu_make_utf16(u"Namibia");
constexpr auto kNC = lu_make_utf16(u"New Caledonia");
constexpr auto kNE = lu_make_utf16(u"Niger");
constexpr auto kNF = lu_make_utf16(u"Norfolk Island");
constexpr auto kNG = lu_make_utf16(u"Nigeria");
constexpr auto kNI = lu_make_utf16(u"Nicaragua");
constexpr auto kNL = lu_make_utf16(u"Netherlands");
constexpr auto kNO = lu_make_utf16(u"Norway");
constexpr auto kNP = lu_make_utf16(u"Nepal");
constexpr auto kNR = lu_make_utf16(u"Nauru");
constexpr auto kNU = lu_make_utf16(u"Niue");
constexpr auto kNZ = lu_make_utf16(u"New Zealand");
constexpr auto kOM = lu_make_utf16(u"Oman");
constexpr auto kPA = lu_make_utf16(u"Panama");
constexpr auto kPE = lu_make_utf16(u"Peru");
constexpr auto kPF = lu_make_utf16(u"French Polynesia");
constexpr auto kPG = lu_make_utf16(u"Papua New Guinea");
constexpr auto kPH = lu_make_utf16(u"Philippines");
constexpr auto kPK = lu_make_utf16(u"Pakistan");
constexpr auto kPL = lu_make_utf16(u"Poland");
constexpr auto kPM = lu_make_utf16(u"Saint Pierre and Miquelon");
constexpr auto kPN = lu_make_utf16(u"Pitcairn");
constexpr auto kPR = lu_make_utf16(u"Puerto Rico");
constexpr auto kPS = lu_make_utf16(u"Palestine");
constexpr auto kPT = lu_make_utf16(u"Portugal");
constexpr auto kPW = lu_make_utf16(u"Palau");
constexpr auto kPY = lu_make_utf16(u"Paraguay");
constexpr auto kQA = lu_make_utf16(u"Qatar");
constexpr auto kRE = lu_make_utf16(u"Réunion");
constexpr auto kRO = lu_make_utf16(u"Romania");
constexpr auto kRU = lu_make_utf16(u"Russian Federation");
constexpr auto kRW = lu_make_utf16(u"Rwanda");
constexpr auto kSA = lu_make_utf16(u"Saudi Arabia");
constexpr auto kSB = lu_make_utf16(u"Solomon Islands");
constexpr auto kSC = lu_make_utf16(u"Seychelles");
constexpr auto kSD = lu_make_utf16(u"Sudan");
constexpr auto kSE = lu_make_utf16(u"Sweden");
constexpr auto kSG = lu_make_utf16(u"Singapore");
constexpr auto kSH = lu_make_utf16(u"Saint Helena");
constexpr auto kSI = lu_make_utf16(u"Slovenia");
constexpr auto kSJ = lu_make_utf16(u"Svalbard and Jan Mayen");
constexpr auto kSK = lu_make_utf16(u"Slovakia");
constexpr auto kSL = lu_make_utf16(u"Sierra Leone");
constexpr auto kSM = lu_make_utf16(u"San Marino");
constexpr auto kSN = lu_make_utf16(u"Senegal");
constexpr auto kSO = lu_make_utf16(u"Somalia");
constexpr auto kSR = lu_make_utf16(u"Suriname");
constexpr auto kST = lu_make_utf16(u"São Tomé and Príncipe");
constexpr auto kSV = lu_make_utf16(u"El Salvador");
constexpr auto kSY = lu_make_utf16(u"Syrian Arab Republic");
constexpr auto kSZ = lu_make_utf16(u"Swaziland");
constexpr auto kTC = lu_make_utf16(u"Turks and Caicos Islands");
constexpr auto kTD = lu_make_utf16(u"Chad");
constexpr auto kTF = lu_make_utf16(u"French Southern Territories");
constexpr auto kTG = lu_make_utf16(u"Togo");
constexpr auto kTH = lu_make_utf16(u"Thailand");
constexpr auto kTJ = lu_make_utf16(u"Tajikistan");
constexpr auto kTK = lu_make_utf16(u"Tokelau");
constexpr auto kTM = lu_make_utf16(u"Turkmenistan");
constexpr auto kTN = lu_make_utf16(u"Tunisia");
constexpr auto kTO = lu_make_utf16(u"Tonga");
constexpr auto kTP = lu_make_utf16(u"East Timor (provisional)");
constexpr auto kTR = lu_make_utf16(u"Turkey");
constexpr auto kTT = lu_make_utf16(u"Trinidad and Tobago");
constexpr auto kTV = lu_make_utf16(u"Tuvalu");
constexpr auto kTW = lu_make_utf16(u"Taiwan, Province of China");
constexpr auto kTZ = lu_make_utf16(u"Tanzania, United Republic of");
constexpr auto kUA = lu_make_utf16(u"Ukraine");
constexpr auto kUG = lu_make_utf16(u"Uganda");
constexpr auto kUM = lu_make_utf16(u"United States Minor Outlying Islands");
constexpr auto kUS = lu_make_utf16(u"United States");
constexpr auto kUY = lu_make_utf16(u"Uruguay");
constexpr auto kUZ = lu_make_utf16(u"Uzbekistan");
constexpr auto kVA = lu_make_utf16(u"Vatican City State (Holy See)");
constexpr auto kVC = lu_make_utf16(u"Saint Vincent and the Grenadines");
constexpr auto kVE = lu_make_utf16(u"Venezuela");
constexpr auto kVG = lu_make_utf16(u"Virgin Islands, British");
constexpr auto kVI = lu_make_utf16(u"Virgin Islands, U.S.");
constexpr auto kVN = lu_make_utf16(u"Vietnam");
constexpr auto kVU = lu_make_utf16(u"Vanuatu");
constexpr auto kWF = lu_make_utf16(u"Wallis and Futuna");
constexpr auto kWS = lu_make_utf16(u"Samoa");
constexpr auto kYE = lu_make_utf16(u"Yemen");
constexpr auto kYT = lu_make_utf16(u"Mayotte");
constexpr auto kYU = lu_make_utf16(u"Yugoslavia");
constexpr auto kZA = lu_make_utf16(u"South Africa");
constexpr auto kZM = lu_make_utf16(u"Zambia");
constexpr auto kZW = lu_make_utf16(u"Zimbabwe");

// Long names fixed by the documented behaviour of the library, letter for
// letter, the comma in China's included.
constexpr auto kCNLong = lu_make_utf16(u"People's, Republic of China");
constexpr auto kDELong = lu_make_utf16(u"Federal Republic of Germany");
constexpr auto kMXLong = lu_make_utf16(u"United States of Mexico");
constexpr auto kNLLong = lu_make_utf16(u"Kingdom of the Netherlands");
constexpr auto kUSLong = lu_make_utf16(u"United States of America");

// Long names supplied by us: the formal state names as they stood around 2000.
// States without one here: those whose name is already their formal name (or
// states it inverted, as "Korea, Republic of" does), and Australia, Eritrea and
// Saint Kitts and Nevis; territories have none.
constexpr auto kADLong = lu_make_utf16(u"Principality of Andorra");
constexpr auto kAFLong = lu_make_utf16(u"Islamic State of Afghanistan");
constexpr auto kALLong = lu_make_utf16(u"Republic of Albania");
constexpr auto kAMLong = lu_make_utf16(u"Republic of Armenia");
constexpr auto kAOLong = lu_make_utf16(u"Republic of Angola");
constexpr auto kARLong = lu_make_utf16(u"Argentine Republic");
constexpr auto kATLong = lu_make_utf16(u"Republic of Austria");
constexpr auto kAZLong = lu_make_utf16(u"Republic of Azerbaijan");
constexpr auto kBDLong = lu_make_utf16(u"People's Republic of Bangladesh");
constexpr auto kBELong = lu_make_utf16(u"Kingdom of Belgium");
constexpr auto kBGLong = lu_make_utf16(u"Republic of Bulgaria");
constexpr auto kBHLong = lu_make_utf16(u"State of Bahrain");
constexpr auto kBILong = lu_make_utf16(u"Republic of Burundi");
constexpr auto kBJLong = lu_make_utf16(u"Republic of Benin");
constexpr auto kBOLong = lu_make_utf16(u"Republic of Bolivia");
constexpr auto kBRLong = lu_make_utf16(u"Federative Republic of Brazil");
constexpr auto kBSLong = lu_make_utf16(u"Commonwealth of the Bahamas");
constexpr auto kBTLong = lu_make_utf16(u"Kingdom of Bhutan");
constexpr auto kBWLong = lu_make_utf16(u"Republic of Botswana");
constexpr auto kBYLong = lu_make_utf16(u"Republic of Belarus");
constexpr auto kCGLong = lu_make_utf16(u"Republic of the Congo");
constexpr auto kCHLong = lu_make_utf16(u"Swiss Confederation");
constexpr auto kCILong = lu_make_utf16(u"Republic of Côte d'Ivoire");
constexpr auto kCLLong = lu_make_utf16(u"Republic of Chile");
constexpr auto kCMLong = lu_make_utf16(u"Republic of Cameroon");
constexpr auto kCOLong = lu_make_utf16(u"Republic of Colombia");
constexpr auto kCRLong = lu_make_utf16(u"Republic of Costa Rica");
constexpr auto kCULong = lu_make_utf16(u"Republic of Cuba");
constexpr auto kCVLong = lu_make_utf16(u"Republic of Cape Verde");
constexpr auto kCYLong = lu_make_utf16(u"Republic of Cyprus");
constexpr auto kDJLong = lu_make_utf16(u"Republic of Djibouti");
constexpr auto kDKLong = lu_make_utf16(u"Kingdom of Denmark");
constexpr auto kDMLong = lu_make_utf16(u"Commonwealth of Dominica");
constexpr auto kDZLong = lu_make_utf16(u"People's Democratic Republic of Algeria");
constexpr auto kECLong = lu_make_utf16(u"Republic of Ecuador");
constexpr auto kEELong = lu_make_utf16(u"Republic of Estonia");
constexpr auto kEGLong = lu_make_utf16(u"Arab Republic of Egypt");
constexpr auto kESLong = lu_make_utf16(u"Kingdom of Spain");
constexpr auto kETLong = lu_make_utf16(u"Federal Democratic Republic of Ethiopia");
constexpr auto kFILong = lu_make_utf16(u"Republic of Finland");
constexpr auto kFJLong = lu_make_utf16(u"Republic of the Fiji Islands");
constexpr auto kFRLong = lu_make_utf16(u"French Republic");
constexpr auto kGALong = lu_make_utf16(u"Gabonese Republic");
constexpr auto kGBLong = lu_make_utf16(u"United Kingdom of Great Britain and Northern Ireland");
constexpr auto kGHLong = lu_make_utf16(u"Republic of Ghana");
constexpr auto kGMLong = lu_make_utf16(u"Republic of the Gambia");
constexpr auto kGNLong = lu_make_utf16(u"Republic of Guinea");
constexpr auto kGQLong = lu_make_utf16(u"Republic of Equatorial Guinea");
constexpr auto kGRLong = lu_make_utf16(u"Hellenic Republic");
constexpr auto kGTLong = lu_make_utf16(u"Republic of Guatemala");
constexpr auto kGWLong = lu_make_utf16(u"Republic of Guinea-Bissau");
constexpr auto kGYLong = lu_make_utf16(u"Co-operative Republic of Guyana");
constexpr auto kHNLong = lu_make_utf16(u"Republic of Honduras");
constexpr auto kHRLong = lu_make_utf16(u"Republic of Croatia");
constexpr auto kHTLong = lu_make_utf16(u"Republic of Haiti");
constexpr auto kHULong = lu_make_utf16(u"Republic of Hungary");
constexpr auto kIDLong = lu_make_utf16(u"Republic of Indonesia");
constexpr auto kILLong = lu_make_utf16(u"State of Israel");
constexpr auto kINLong = lu_make_utf16(u"Republic of India");
constexpr auto kIQLong = lu_make_utf16(u"Republic of Iraq");
constexpr auto kISLong = lu_make_utf16(u"Republic of Iceland");
constexpr auto kITLong = lu_make_utf16(u"Italian Republic");
constexpr auto kJOLong = lu_make_utf16(u"Hashemite Kingdom of Jordan");
constexpr auto kKELong = lu_make_utf16(u"Republic of Kenya");
constexpr auto kKGLong = lu_make_utf16(u"Kyrgyz Republic");
constexpr auto kKHLong = lu_make_utf16(u"Kingdom of Cambodia");
constexpr auto kKILong = lu_make_utf16(u"Republic of Kiribati");
constexpr auto kKMLong = lu_make_utf16(u"Federal Islamic Republic of the Comoros");
constexpr auto kKWLong = lu_make_utf16(u"State of Kuwait");
constexpr auto kKZLong = lu_make_utf16(u"Republic of Kazakhstan");
constexpr auto kLBLong = lu_make_utf16(u"Lebanese Republic");
constexpr auto kLILong = lu_make_utf16(u"Principality of Liechtenstein");
constexpr auto kLKLong = lu_make_utf16(u"Democratic Socialist Republic of Sri Lanka");
constexpr auto kLRLong = lu_make_utf16(u"Republic of Liberia");
constexpr auto kLSLong = lu_make_utf16(u"Kingdom of Lesotho");
constexpr auto kLTLong = lu_make_utf16(u"Republic of Lithuania");
constexpr auto kLULong = lu_make_utf16(u"Grand Duchy of Luxembourg");
constexpr auto kLVLong = lu_make_utf16(u"Republic of Latvia");
constexpr auto kLYLong = lu_make_utf16(u"Socialist People's Libyan Arab Jamahiriya");
constexpr auto kMALong = lu_make_utf16(u"Kingdom of Morocco");
constexpr auto kMCLong = lu_make_utf16(u"Principality of Monaco");
constexpr auto kMGLong = lu_make_utf16(u"Republic of Madagascar");
constexpr auto kMHLong = lu_make_utf16(u"Republic of the Marshall Islands");
constexpr auto kMLLong = lu_make_utf16(u"Republic of Mali");
constexpr auto kMMLong = lu_make_utf16(u"Union of Myanmar");
constexpr auto kMRLong = lu_make_utf16(u"Islamic Republic of Mauritania");
constexpr auto kMTLong = lu_make_utf16(u"Republic of Malta");
constexpr auto kMULong = lu_make_utf16(u"Republic of Mauritius");
constexpr auto kMVLong = lu_make_utf16(u"Republic of Maldives");
constexpr auto kMWLong = lu_make_utf16(u"Republic of Malawi");
constexpr auto kMZLong = lu_make_utf16(u"Republic of Mozambique");
constexpr auto kNALong = lu_make_utf16(u"Republic of Namibia");
constexpr auto kNELong = lu_make_utf16(u"Republic of the Niger");
constexpr auto kNGLong = lu_make_utf16(u"Federal Republic of Nigeria");
constexpr auto kNILong = lu_make_utf16(u"Republic of Nicaragua");
constexpr auto kNOLong = lu_make_utf16(u"Kingdom of Norway");
constexpr auto kNPLong = lu_make_utf16(u"Kingdom of Nepal");
constexpr auto kNRLong = lu_make_utf16(u"Republic of Nauru");
constexpr auto kOMLong = lu_make_utf16(u"Sultanate of Oman");
constexpr auto kPALong = lu_make_utf16(u"Republic of Panama");
constexpr auto kPELong = lu_make_utf16(u"Republic of Peru");
constexpr auto kPGLong = lu_make_utf16(u"Independent State of Papua New Guinea");
constexpr auto kPHLong = lu_make_utf16(u"Republic of the Philippines");
constexpr auto kPKLong = lu_make_utf16(u"Islamic Republic of Pakistan");
constexpr auto kPLLong = lu_make_utf16(u"Republic of Poland");
constexpr auto kPTLong = lu_make_utf16(u"Portuguese Republic");
constexpr auto kPWLong = lu_make_utf16(u"Republic of Palau");
constexpr auto kPYLong = lu_make_utf16(u"Republic of Paraguay");
constexpr auto kQALong = lu_make_utf16(u"State of Qatar");
constexpr auto kRWLong = lu_make_utf16(u"Rwandese Republic");
constexpr auto kSALong = lu_make_utf16(u"Kingdom of Saudi Arabia");
constexpr auto kSCLong = lu_make_utf16(u"Republic of Seychelles");
constexpr auto kSDLong = lu_make_utf16(u"Republic of the Sudan");
constexpr auto kSELong = lu_make_utf16(u"Kingdom of Sweden");
constexpr auto kSGLong = lu_make_utf16(u"Republic of Singapore");
constexpr auto kSILong = lu_make_utf16(u"Republic of Slovenia");
constexpr auto kSKLong = lu_make_utf16(u"Slovak Republic");
constexpr auto kSLLong = lu_make_utf16(u"Republic of Sierra Leone");
constexpr auto kSMLong = lu_make_utf16(u"Republic of San Marino");
constexpr auto kSNLong = lu_make_utf16(u"Republic of Senegal");
constexpr auto kSOLong = lu_make_utf16(u"Somali Republic");
constexpr auto kSRLong = lu_make_utf16(u"Republic of Suriname");
constexpr auto kSTLong = lu_make_utf16(u"Democratic Republic of São Tomé and Príncipe");
constexpr auto kSVLong = lu_make_utf16(u"Republic of El Salvador");
constexpr auto kSZLong = lu_make_utf16(u"Kingdom of Swaziland");
constexpr auto kTDLong = lu_make_utf16(u"Republic of Chad");
constexpr auto kTGLong = lu_make_utf16(u"Togolese Republic");
constexpr auto kTHLong = lu_make_utf16(u"Kingdom of Thailand");
constexpr auto kTJLong = lu_make_utf16(u"Republic of Tajikistan");
constexpr auto kTNLong = lu_make_utf16(u"Republic of Tunisia");
constexpr auto kTOLong = lu_make_utf16(u"Kingdom of Tonga");
constexpr auto kTRLong = lu_make_utf16(u"Republic of Turkey");
constexpr auto kTTLong = lu_make_utf16(u"Republic of Trinidad and Tobago");
constexpr auto kUGLong = lu_make_utf16(u"Republic of Uganda");
constexpr auto kUYLong = lu_make_utf16(u"Eastern Republic of Uruguay");
constexpr auto kUZLong = lu_make_utf16(u"Republic of Uzbekistan");
constexpr auto kVELong = lu_make_utf16(u"Republic of Venezuela");
constexpr auto kVNLong = lu_make_utf16(u"Socialist Republic of Viet Nam");
constexpr auto kVULong = lu_make_utf16(u"Republic of Vanuatu");
constexpr auto kWSLong = lu_make_utf16(u"Independent State of Samoa");
constexpr auto kYELong = lu_make_utf16(u"Republic of Yemen");
constexpr auto kYULong = lu_make_utf16(u"Federal Republic of Yugoslavia");
constexpr auto kZALong = lu_make_utf16(u"Republic of South Africa");
constexpr auto kZMLong = lu_make_utf16(u"Republic of Zambia");
constexpr auto kZWLong = lu_make_utf16(u"Republic of Zimbabwe");

}  // namespace

const lu_countries::country lu_countries::s_rows[] = {
    {"AD", "AND",  20, kAD.units, kADLong.units},
    {"AE", "ARE", 784, kAE.units, nullptr},
    {"AF", "AFG",   4, kAF.units, kAFLong.units},
    {"AG", "ATG",  28, kAG.units, nullptr},
    {"AI", "AIA", 660, kAI.units, nullptr},
    {"AL", "ALB",   8, kAL.units, kALLong.units},
    {"AM", "ARM",  51, kAM.units, kAMLong.units},
    {"AN", "ANT", 530, kAN.units, nullptr},
    {"AO", "AGO",  24, kAO.units, kAOLong.units},
    {"AQ", "ATA",  10, kAQ.units, nullptr},
    {"AR", "ARG",  32, kAR.units, kARLong.units},
    {"AS", "ASM",  16, kAS.units, nullptr},
    {"AT", "AUT",  40, kAT.units, kATLong.units},
    {"AU", "AUS",  36, kAU.units, nullptr},
    {"AW", "ABW", 533, kAW.units, nullptr},
    {"AZ", "AZE",  31, kAZ.units, kAZLong.units},
    {"BA", "BIH",  70, kBA.units, nullptr},
    {"BB", "BRB",  52, kBB.units, nullptr},
    {"BD", "BGD",  50, kBD.units, kBDLong.units},
    {"BE", "BEL",  56, kBE.units, kBELong.units},
    {"BF", "BFA", 854, kBF.units, nullptr},
    {"BG", "BGR", 100, kBG.units, kBGLong.units},
    {"BH", "BHR",  48, kBH.units, kBHLong.units},
    {"BI", "BDI", 108, kBI.units, kBILong.units},
    {"BJ", "BEN", 204, kBJ.units, kBJLong.units},
    {"BM", "BMU",  60, kBM.units, nullptr},
    {"BN", "BRN",  96, kBN.units, nullptr},
    {"BO", "BOL",  68, kBO.units, kBOLong.units},
    {"BR", "BRA",  76, kBR.units, kBRLong.units},
    {"BS", "BHS",  44, kBS.units, kBSLong.units},
    {"BT", "BTN",  64, kBT.units, kBTLong.units},
    {"BV", "BVT",  74, kBV.units, nullptr},
    {"BW", "BWA",  72, kBW.units, kBWLong.units},
    {"BY", "BLR", 112, kBY.units, kBYLong.units},
    {"BZ", "BLZ",  84, kBZ.units, nullptr},
    {"CA", "CAN", 124, kCA.units, nullptr},
    {"CC", "CCK", 166, kCC.units, nullptr},
    {"CD", "COD", 180, kCD.units, nullptr},
    {"CF", "CAF", 140, kCF.units, nullptr},
    {"CG", "COG", 178, kCG.units, kCGLong.units},
    {"CH", "CHE", 756, kCH.units, kCHLong.units},
    {"CI", "CIV", 384, kCI.units, kCILong.units},
    {"CK", "COK", 184, kCK.units, nullptr},
    {"CL", "CHL", 152, kCL.units, kCLLong.units},
    {"CM", "CMR", 120, kCM.units, kCMLong.units},
    {"CN", "CHN", 156, kCN.units, kCNLong.units},
    {"CO", "COL", 170, kCO.units, kCOLong.units},
    {"CR", "CRI", 188, kCR.units, kCRLong.units},
    {"CU", "CUB", 192, kCU.units, kCULong.units},
    {"CV", "CPV", 132, kCV.units, kCVLong.units},
    {"CX", "CXR", 162, kCX.units, nullptr},
    {"CY", "CYP", 196, kCY.units, kCYLong.units},
    {"CZ", "CZE", 203, kCZ.units, nullptr},
    {"DE", "DEU", 276, kDE.units, kDELong.units},
    {"DJ", "DJI", 262, kDJ.units, kDJLong.units},
    {"DK", "DNK", 208, kDK.units, kDKLong.units},
    {"DM", "DMA", 212, kDM.units, kDMLong.units},
    {"DO", "DOM", 214, kDO.units, nullptr},
    {"DZ", "DZA",  12, kDZ.units, kDZLong.units},
    {"EC", "ECU", 218, kEC.units, kECLong.units},
    {"EE", "EST", 233, kEE.units, kEELong.units},
    {"EG", "EGY", 818, kEG.units, kEGLong.units},
    {"EH", "ESH", 732, kEH.units, nullptr},
    {"ER", "ERI", 232, kER.units, nullptr},
    {"ES", "ESP", 724, kES.units, kESLong.units},
    {"ET", "ETH", 231, kET.units, kETLong.units},
    {"FI", "FIN", 246, kFI.units, kFILong.units},
    {"FJ", "FJI", 242, kFJ.units, kFJLong.units},
    {"FK", "FLK", 238, kFK.units, nullptr},
    {"FM", "FSM", 583, kFM.units, nullptr},
    {"FO", "FRO", 234, kFO.units, nullptr},
    {"FR", "FRA", 250, kFR.units, kFRLong.units},
    {"FX", "FXX", 249, kFX.units, nullptr},
    {"GA", "GAB", 266, kGA.units, kGALong.units},
    {"GB", "GBR", 826, kGB.units, kGBLong.units},
    {"GD", "GRD", 308, kGD.units, nullptr},
    {"GE", "GEO", 268, kGE.units, nullptr},
    {"GF", "GUF", 254, kGF.units, nullptr},
    {"GH", "GHA", 288, kGH.units, kGHLong.units},
    {"GI", "GIB", 292, kGI.units, nullptr},
    {"GL", "GRL", 304, kGL.units, nullptr},
    {"GM", "GMB", 270, kGM.units, kGMLong.units},
    {"GN", "GIN", 324, kGN.units, kGNLong.units},
    {"GP", "GLP", 312, kGP.units, nullptr},
    {"GQ", "GNQ", 226, kGQ.units, kGQLong.units},
    {"GR", "GRC", 300, kGR.units, kGRLong.units},
    {"GS", "SGS", 239, kGS.units, nullptr},
    {"GT", "GTM", 320, kGT.units, kGTLong.units},
    {"GU", "GUM", 316, kGU.units, nullptr},
    {"GW", "GNB", 624, kGW.units, kGWLong.units},
    {"GY", "GUY", 328, kGY.units, kGYLong.units},
    {"HK", "HKG", 344, kHK.units, nullptr},
    {"HM", "HMD", 334, kHM.units, nullptr},
    {"HN", "HND", 340, kHN.units, kHNLong.units},
    {"HR", "HRV", 191, kHR.units, kHRLong.units},
    {"HT", "HTI", 332, kHT.units, kHTLong.units},
    {"HU", "HUN", 348, kHU.units, kHULong.units},
    {"ID", "IDN", 360, kID.units, kIDLong.units},
    {"IE", "IRL", 372, kIE.units, nullptr},
    {"IL", "ISR", 376, kIL.units, kILLong.units},
    {"IN", "IND", 356, kIN.units, kINLong.units},
    {"IO", "IOT",  86, kIO.units, nullptr},
    {"IQ", "IRQ", 368, kIQ.units, kIQLong.units},
    {"IR", "IRN", 364, kIR.units, nullptr},
    {"IS", "ISL", 352, kIS.units, kISLong.units},
    {"IT", "ITA", 380, kIT.units, kITLong.units},
    {"JM", "JAM", 388, kJM.units, nullptr},
    {"JO", "JOR", 400, kJO.units, kJOLong.units},
    {"JP", "JPN", 392, kJP.units, nullptr},
    {"KE", "KEN", 404, kKE.units, kKELong.units},
    {"KG", "KGZ", 417, kKG.units, kKGLong.units},
    {"KH", "KHM", 116, kKH.units, kKHLong.units},
    {"KI", "KIR", 296, kKI.units, kKILong.units},
    {"KM", "COM", 174, kKM.units, kKMLong.units},
    {"KN", "KNA", 659, kKN.units, nullptr},
    {"KP", "PRK", 408, kKP.units, nullptr},
    {"KR", "KOR", 410, kKR.units, nullptr},
    {"KW", "KWT", 414, kKW.units, kKWLong.units},
    {"KY", "CYM", 136, kKY.units, nullptr},
    {"KZ", "KAZ", 398, kKZ.units, kKZLong.units},
    {"LA", "LAO", 418, kLA.units, nullptr},
    {"LB", "LBN", 422, kLB.units, kLBLong.units},
    {"LC", "LCA", 662, kLC.units, nullptr},
    {"LI", "LIE", 438, kLI.units, kLILong.units},
    {"LK", "LKA", 144, kLK.units, kLKLong.units},
    {"LR", "LBR", 430, kLR.units, kLRLong.units},
    {"LS", "LSO", 426, kLS.units, kLSLong.units},
    {"LT", "LTU", 440, kLT.units, kLTLong.units},
    {"LU", "LUX", 442, kLU.units, kLULong.units},
    {"LV", "LVA", 428, kLV.units, kLVLong.units},
    {"LY", "LBY", 434, kLY.units, kLYLong.units},
    {"MA", "MAR", 504, kMA.units, kMALong.units},
    {"MC", "MCO", 492, kMC.units, kMCLong.units},
    {"MD", "MDA", 498, kMD.units, nullptr},
    {"MG", "MDG", 450, kMG.units, kMGLong.units},
    {"MH", "MHL", 584, kMH.units, kMHLong.units},
    {"MK", "MKD", 807, kMK.units, nullptr},
    {"ML", "MLI", 466, kML.units, kMLLong.units},
    {"MM", "MMR", 104, kMM.units, kMMLong.units},
    {"MN", "MNG", 496, kMN.units, nullptr},
    {"MO", "MAC", 446, kMO.units, nullptr},
    {"MP", "MNP", 580, kMP.units, nullptr},
    {"MQ", "MTQ", 474, kMQ.units, nullptr},
    {"MR", "MRT", 478, kMR.units, kMRLong.units},
    {"MS", "MSR", 500, kMS.units, nullptr},
    {"MT", "MLT", 470, kMT.units, kMTLong.units},
    {"MU", "MUS", 480, kMU.units, kMULong.units},
    {"MV", "MDV", 462, kMV.units, kMVLong.units},
    {"MW", "MWI", 454, kMW.units, kMWLong.units},
    {"MX", "MEX", 484, kMX.units, kMXLong.units},
    {"MY", "MYS", 458, kMY.units, nullptr},
    {"MZ", "MOZ", 508, kMZ.units, kMZLong.units},
    {"NA", "NAM", 516, kNA.units, kNALong.units},
    {"NC", "NCL", 540, kNC.units, nullptr},
    {"NE", "NER", 562, kNE.units, kNELong.units},
    {"NF", "NFK", 574, kNF.units, nullptr},
    {"NG", "NGA", 566, kNG.units, kNGLong.units},
    {"NI", "NIC", 558, kNI.units, kNILong.units},
    {"NL", "NLD", 528, kNL.units, kNLLong.units},
    {"NO", "NOR", 578, kNO.units, kNOLong.units},
    {"NP", "NPL", 524, kNP.units, kNPLong.units},
    {"NR", "NRU", 520, kNR.units, kNRLong.units},
    {"NU", "NIU", 570, kNU.units, nullptr},
    {"NZ", "NZL", 554, kNZ.units, nullptr},
    {"OM", "OMN", 512, kOM.units, kOMLong.units},
    {"PA", "PAN", 591, kPA.units, kPALong.units},
    {"PE", "PER", 604, kPE.units, kPELong.units},
    {"PF", "PYF", 258, kPF.units, nullptr},
    {"PG", "PNG", 598, kPG.units, kPGLong.units},
    {"PH", "PHL", 608, kPH.units, kPHLong.units},
    {"PK", "PAK", 586, kPK.units, kPKLong.units},
    {"PL", "POL", 616, kPL.units, kPLLong.units},
    {"PM", "SPM", 666, kPM.units, nullptr},
    {"PN", "PCN", 612, kPN.units, nullptr},
    {"PR", "PRI", 630, kPR.units, nullptr},
    {"PS", "PSE", kNoNumericCode, kPS.units, nullptr},
    {"PT", "PRT", 620, kPT.units, kPTLong.units},
    {"PW", "PLW", 585, kPW.units, kPWLong.units},
    {"PY", "PRY", 600, kPY.units, kPYLong.units},
    {"QA", "QAT", 634, kQA.units, kQALong.units},
    {"RE", "REU", 638, kRE.units, nullptr},
    {"RO", "ROM", 642, kRO.units, nullptr},
    {"RU", "RUS", 643, kRU.units, nullptr},
    {"RW", "RWA", 646, kRW.units, kRWLong.units},
    {"SA", "SAU", 682, kSA.units, kSALong.units},
    {"SB", "SLB",  90, kSB.units, nullptr},
    {"SC", "SYC", 690, kSC.units, kSCLong.units},
    {"SD", "SDN", 736, kSD.units, kSDLong.units},
    {"SE", "SWE", 752, kSE.units, kSELong.units},
    {"SG", "SGP", 702, kSG.units, kSGLong.units},
    {"SH", "SHN", 654, kSH.units, nullptr},
    {"SI", "SVN", 705, kSI.units, kSILong.units},
    {"SJ", "SJM", 744, kSJ.units, nullptr},
    {"SK", "SVK", 703, kSK.units, kSKLong.units},
    {"SL", "SLE", 694, kSL.units, kSLLong.units},
    {"SM", "SMR", 674, kSM.units, kSMLong.units},
    {"SN", "SEN", 686, kSN.units, kSNLong.units},
    {"SO", "SOM", 706, kSO.units, kSOLong.units},
    {"SR", "SUR", 740, kSR.units, kSRLong.units},
    {"ST", "STP", 678, kST.units, kSTLong.units},
    {"SV", "SLV", 222, kSV.units, kSVLong.units},
    {"SY", "SYR", 760, kSY.units, nullptr},
    {"SZ", "SWZ", 748, kSZ.units, kSZLong.units},
    {"TC", "TCA", 796, kTC.units, nullptr},
    {"TD", "TCD", 148, kTD.units, kTDLong.units},
    {"TF", "ATF", 260, kTF.units, nullptr},
    {"TG", "TGO", 768, kTG.units, kTGLong.units},
    {"TH", "THA", 764, kTH.units, kTHLong.units},
    {"TJ", "TJK", 762, kTJ.units, kTJLong.units},
    {"TK", "TKL", 772, kTK.units, nullptr},
    {"TM", "TKM", 795, kTM.units, nullptr},
    {"TN", "TUN", 788, kTN.units, kTNLong.units},
    {"TO", "TON", 776, kTO.units, kTOLong.units},
    {"TP", "TMP", 626, kTP.units, nullptr},
    {"TR", "TUR", 792, kTR.units, kTRLong.units},
    {"TT", "TTO", 780, kTT.units, kTTLong.units},
    {"TV", "TUV", 798, kTV.units, nullptr},
    {"TW", "TWN", 158, kTW.units, nullptr},
    {"TZ", "TZA", 834, kTZ.units, nullptr},
    {"UA", "UKR", 804, kUA.units, nullptr},
    {"UG", "UGA", 800, kUG.units, kUGLong.units},
    {"UM", "UMI", 581, kUM.units, nullptr},
    {"US", "USA", 840, kUS.units, kUSLong.units},
    {"UY", "URY", 858, kUY.units, kUYLong.units},
    {"UZ", "UZB", 860, kUZ.units, kUZLong.units},
    {"VA", "VAT", 336, kVA.units, nullptr},
    {"VC", "VCT", 670, kVC.units, nullptr},
    {"VE", "VEN", 862, kVE.units, kVELong.units},
    {"VG", "VGB",  92, kVG.units, nullptr},
    {"VI", "VIR", 850, kVI.units, nullptr},
    {"VN", "VNM", 704, kVN.units, kVNLong.units},
    {"VU", "VUT", 548, kVU.units, kVULong.units},
    {"WF", "WLF", 876, kWF.units, nullptr},
    {"WS", "WSM", 882, kWS.units, kWSLong.units},
    {"YE", "YEM", 887, kYE.units, kYELong.units},
    {"YT", "MYT", 175, kYT.units, nullptr},
    {"YU", "YUG", 891, kYU.units, kYULong.units},
    {"ZA", "ZAF", 710, kZA.units, kZALong.units},
    {"ZM", "ZMB", 894, kZM.units, kZMLong.units},
    {"ZW", "ZWE", 716, kZW.units, kZWLong.units},
};
// clang-format on

const unsigned int lu_countries::s_rowCount = sizeof(s_rows) / sizeof(s_rows[0]);
