#include "pad/vocabularies.h"

using namespace Qt::StringLiterals;

namespace quillon::vocabulary {

const QStringList &programTypes()
{
    static const QStringList list = {u"Shareware"_s, u"Freeware"_s,   u"Adware"_s,
                                     u"Demo"_s,      u"Commercial"_s, u"Data Only"_s};
    return list;
}

const QStringList &releaseStatuses()
{
    static const QStringList list = {u"Major Update"_s, u"Minor Update"_s, u"New Release"_s,
                                     u"Beta"_s,         u"Alpha"_s,        u"Media Only"_s};
    return list;
}

const QStringList &installSupport()
{
    static const QStringList list = {u"Install and Uninstall"_s, u"Install Only"_s, u"No Install Support"_s,
                                     u"Uninstall Only"_s};
    return list;
}

const QStringList &expireBases()
{
    static const QStringList list = {u"Days"_s, u"Uses"_s, u"Either/Or"_s};
    return list;
}

const QStringList &currencies()
{
    static const QStringList list = {
        u"AED"_s, u"AFN"_s, u"ALL"_s, u"AMD"_s, u"ANG"_s, u"AOA"_s, u"ARS"_s, u"AUD"_s, u"AWG"_s, u"AZM"_s,
        u"BAM"_s, u"BBD"_s, u"BDT"_s, u"BGN"_s, u"BHD"_s, u"BIF"_s, u"BMD"_s, u"BND"_s, u"BOB"_s, u"BRL"_s,
        u"BSD"_s, u"BTN"_s, u"BWP"_s, u"BYR"_s, u"BZD"_s, u"CAD"_s, u"CDF"_s, u"CHF"_s, u"CLP"_s, u"CNY"_s,
        u"COP"_s, u"COU"_s, u"CRC"_s, u"CSD"_s, u"CZK"_s, u"CUP"_s, u"CVE"_s, u"CYP"_s, u"DJF"_s, u"DKK"_s,
        u"DOP"_s, u"DZD"_s, u"EEK"_s, u"EGP"_s, u"ERN"_s, u"ETB"_s, u"EUR"_s, u"FJD"_s, u"FKP"_s, u"GBP"_s,
        u"GEL"_s, u"GHC"_s, u"GIP"_s, u"GMD"_s, u"GNF"_s, u"GTQ"_s, u"GYD"_s, u"HKD"_s, u"HNL"_s, u"HRK"_s,
        u"HTG"_s, u"HUF"_s, u"IDR"_s, u"ILS"_s, u"INR"_s, u"IQD"_s, u"IRR"_s, u"ISK"_s, u"JMD"_s, u"JOD"_s,
        u"JPY"_s, u"KES"_s, u"KGS"_s, u"KHR"_s, u"KMF"_s, u"KPW"_s, u"KRW"_s, u"KWD"_s, u"KYD"_s, u"KZT"_s,
        u"LAK"_s, u"LBP"_s, u"LKR"_s, u"LRD"_s, u"LSL"_s, u"LTL"_s, u"LVL"_s, u"LYD"_s, u"MAD"_s, u"MDL"_s,
        u"MGA"_s, u"MKD"_s, u"MMK"_s, u"MNT"_s, u"MOP"_s, u"MRO"_s, u"MTL"_s, u"MUR"_s, u"MVR"_s, u"MWK"_s,
        u"MXN"_s, u"MYR"_s, u"MZN"_s, u"NAD"_s, u"NGN"_s, u"NIO"_s, u"NOK"_s, u"NPR"_s, u"NZD"_s, u"OMR"_s,
        u"PAB"_s, u"PEN"_s, u"PGK"_s, u"PHP"_s, u"PKR"_s, u"PLN"_s, u"PYG"_s, u"QAR"_s, u"RON"_s, u"RUB"_s,
        u"RWF"_s, u"SAR"_s, u"SBD"_s, u"SCR"_s, u"SDD"_s, u"SEK"_s, u"SGD"_s, u"SHP"_s, u"SIT"_s, u"SKK"_s,
        u"SLL"_s, u"SOS"_s, u"SRD"_s, u"STD"_s, u"SYP"_s, u"SZL"_s, u"THB"_s, u"TJS"_s, u"TMM"_s, u"TND"_s,
        u"TOP"_s, u"TRY"_s, u"TTD"_s, u"TWD"_s, u"TZS"_s, u"UAH"_s, u"UGX"_s, u"USD"_s, u"UYU"_s, u"UZS"_s,
        u"VEB"_s, u"VND"_s, u"VUV"_s, u"WST"_s, u"XAF"_s, u"XCD"_s, u"XOF"_s, u"XPF"_s, u"YER"_s, u"ZAR"_s,
        u"ZMK"_s, u"ZWD"_s};
    return list;
}

const QStringList &categories()
{
    static const QStringList list = {u"Audio & Multimedia::Audio Encoders/Decoders"_s,
                                     u"Audio & Multimedia::Audio File Players"_s,
                                     u"Audio & Multimedia::Audio File Recorders"_s,
                                     u"Audio & Multimedia::CD Burners"_s,
                                     u"Audio & Multimedia::CD Players"_s,
                                     u"Audio & Multimedia::Multimedia Creation Tools"_s,
                                     u"Audio & Multimedia::Music Composers"_s,
                                     u"Audio & Multimedia::Other"_s,
                                     u"Audio & Multimedia::Presentation Tools"_s,
                                     u"Audio & Multimedia::Rippers & Converters"_s,
                                     u"Audio & Multimedia::Speech"_s,
                                     u"Audio & Multimedia::Video Tools"_s,
                                     u"Business::Accounting & Finance"_s,
                                     u"Business::Calculators & Converters"_s,
                                     u"Business::Databases & Tools"_s,
                                     u"Business::Helpdesk & Remote PC"_s,
                                     u"Business::Inventory & Barcoding"_s,
                                     u"Business::Investment Tools"_s,
                                     u"Business::Math & Scientific Tools"_s,
                                     u"Business::Office Suites & Tools"_s,
                                     u"Business::Other"_s,
                                     u"Business::PIMS & Calendars"_s,
                                     u"Business::Project Management"_s,
                                     u"Business::Vertical Market Apps"_s,
                                     u"Communications::Chat & Instant Messaging"_s,
                                     u"Communications::Dial Up & Connection Tools"_s,
                                     u"Communications::E-Mail Clients"_s,
                                     u"Communications::E-Mail List Management"_s,
                                     u"Communications::Fax Tools"_s,
                                     u"Communications::Newsgroup Clients"_s,
                                     u"Communications::Other Comms Tools"_s,
                                     u"Communications::Other E-Mail Tools"_s,
                                     u"Communications::Pager Tools"_s,
                                     u"Communications::Telephony"_s,
                                     u"Communications::Web/Video Cams"_s,
                                     u"Desktop::Clocks & Alarms"_s,
                                     u"Desktop::Cursors & Fonts"_s,
                                     u"Desktop::Icons"_s,
                                     u"Desktop::Other"_s,
                                     u"Desktop::Screen Savers:Art"_s,
                                     u"Desktop::Screen Savers: Cartoons"_s,
                                     u"Desktop::Screen Savers:Nature"_s,
                                     u"Desktop::Screen Savers: Other"_s,
                                     u"Desktop::Screen Savers:People"_s,
                                     u"Desktop::Screen Savers: Science"_s,
                                     u"Desktop::Screen Savers: Seasonal"_s,
                                     u"Desktop::Screen Savers: Vehicles"_s,
                                     u"Desktop::Themes & Wallpaper"_s,
                                     u"Development::Active X"_s,
                                     u"Development::Basic, VB, VB DotNet"_s,
                                     u"Development::C / C++ / C#"_s,
                                     u"Development::Compilers & Interpreters"_s,
                                     u"Development::Components & Libraries"_s,
                                     u"Development::Debugging"_s,
                                     u"Development::Delphi"_s,
                                     u"Development::Help Tools"_s,
                                     u"Development::Install & Setup"_s,
                                     u"Development::Management & Distribution"_s,
                                     u"Development::Other"_s,
                                     u"Development::Source Editors"_s,
                                     u"Education::Computer"_s,
                                     u"Education::Dictionaries"_s,
                                     u"Education::Geography"_s,
                                     u"Education::Kids"_s,
                                     u"Education::Languages"_s,
                                     u"Education::Mathematics"_s,
                                     u"Education::Other"_s,
                                     u"Education::Reference Tools"_s,
                                     u"Education::Science"_s,
                                     u"Education::Teaching & Training Tools"_s,
                                     u"Games & Entertainment::Action"_s,
                                     u"Games & Entertainment::Adventure & Roleplay"_s,
                                     u"Games & Entertainment::Arcade"_s,
                                     u"Games & Entertainment::Board"_s,
                                     u"Games & Entertainment::Card"_s,
                                     u"Games & Entertainment::Casino & Gambling"_s,
                                     u"Games & Entertainment::Kids"_s,
                                     u"Games & Entertainment::Online Gaming"_s,
                                     u"Games & Entertainment::Other"_s,
                                     u"Games & Entertainment::Puzzle & Word Games"_s,
                                     u"Games & Entertainment::Simulation"_s,
                                     u"Games & Entertainment::Sports"_s,
                                     u"Games & Entertainment::Strategy & War Games"_s,
                                     u"Games & Entertainment::Tools & Editors"_s,
                                     u"Graphic Apps::Animation Tools"_s,
                                     u"Graphic Apps::CAD"_s,
                                     u"Graphic Apps::Converters & Optimizers"_s,
                                     u"Graphic Apps::Editors"_s,
                                     u"Graphic Apps::Font Tools"_s,
                                     u"Graphic Apps::Gallery & Cataloging Tools"_s,
                                     u"Graphic Apps::Icon Tools"_s,
                                     u"Graphic Apps::Other"_s,
                                     u"Graphic Apps::Screen Capture"_s,
                                     u"Graphic Apps::Viewers"_s,
                                     u"Home & Hobby::Astrology/Biorhythms/Mystic"_s,
                                     u"Home & Hobby::Astronomy"_s,
                                     u"Home & Hobby::Cataloging"_s,
                                     u"Home & Hobby::Food & Drink"_s,
                                     u"Home & Hobby::Genealogy"_s,
                                     u"Home & Hobby::Health & Nutrition"_s,
                                     u"Home & Hobby::Other"_s,
                                     u"Home & Hobby::Personal Finance"_s,
                                     u"Home & Hobby::Personal Interest"_s,
                                     u"Home & Hobby::Recreation"_s,
                                     u"Home & Hobby::Religion"_s,
                                     u"Network & Internet::Ad Blockers"_s,
                                     u"Network & Internet::Browser Tools"_s,
                                     u"Network & Internet::Browsers"_s,
                                     u"Network & Internet::Download Managers"_s,
                                     u"Network & Internet::File Sharing/Peer to Peer"_s,
                                     u"Network & Internet::FTP Clients"_s,
                                     u"Network & Internet::Network Monitoring"_s,
                                     u"Network & Internet::Other"_s,
                                     u"Network & Internet::Remote Computing"_s,
                                     u"Network & Internet::Search/Lookup Tools"_s,
                                     u"Network & Internet::Terminal & Telnet Clients"_s,
                                     u"Network & Internet::Timers & Time Synch"_s,
                                     u"Network & Internet::Trace & Ping Tools"_s,
                                     u"Security & Privacy::Access Control"_s,
                                     u"Security & Privacy::Anti-Spam & Anti-Spy Tools"_s,
                                     u"Security & Privacy::Anti-Virus Tools"_s,
                                     u"Security & Privacy::Covert Surveillance"_s,
                                     u"Security & Privacy::Encryption Tools"_s,
                                     u"Security & Privacy::Other"_s,
                                     u"Security & Privacy::Password Managers"_s,
                                     u"Servers::Firewall & Proxy Servers"_s,
                                     u"Servers::FTP Servers"_s,
                                     u"Servers::Mail Servers"_s,
                                     u"Servers::News Servers"_s,
                                     u"Servers::Other Server Applications"_s,
                                     u"Servers::Telnet Servers"_s,
                                     u"Servers::Web Servers"_s,
                                     u"System Utilities::Automation Tools"_s,
                                     u"System Utilities::Backup & Restore"_s,
                                     u"System Utilities::Benchmarking"_s,
                                     u"System Utilities::Clipboard Tools"_s,
                                     u"System Utilities::File & Disk Management"_s,
                                     u"System Utilities::File Compression"_s,
                                     u"System Utilities::Launchers & Task Managers"_s,
                                     u"System Utilities::Other"_s,
                                     u"System Utilities::Printer"_s,
                                     u"System Utilities::Registry Tools"_s,
                                     u"System Utilities::Shell Tools"_s,
                                     u"System Utilities::System Maintenance"_s,
                                     u"System Utilities::Text/Document Editors"_s,
                                     u"Web Development::ASP & PHP"_s,
                                     u"Web Development::E-Commerce"_s,
                                     u"Web Development::Flash Tools"_s,
                                     u"Web Development::HTML Tools"_s,
                                     u"Web Development::Java & JavaScript"_s,
                                     u"Web Development::Log Analysers"_s,
                                     u"Web Development::Other"_s,
                                     u"Web Development::Site Administration"_s,
                                     u"Web Development::Wizards & Components"_s,
                                     u"Web Development::XML/CSS Tools"_s};
    return list;
}

const QStringList &languages()
{
    static const QStringList list = {u"Abkhazian"_s,
                                     u"Afar"_s,
                                     u"Afrikaans"_s,
                                     u"Albanian"_s,
                                     u"Amharic"_s,
                                     u"Arabic"_s,
                                     u"Armenian"_s,
                                     u"Assamese"_s,
                                     u"Aymara"_s,
                                     u"Azerbaijani"_s,
                                     u"Bashkir"_s,
                                     u"Basque"_s,
                                     u"Bengali"_s,
                                     u"Bhutani"_s,
                                     u"Bihari"_s,
                                     u"Bislama"_s,
                                     u"Breton"_s,
                                     u"Bulgarian"_s,
                                     u"Burmese"_s,
                                     u"Byelorussian"_s,
                                     u"Cambodian"_s,
                                     u"Catalan"_s,
                                     u"Chinese"_s,
                                     u"ChineseSimplified"_s,
                                     u"ChineseTraditional"_s,
                                     u"Corsican"_s,
                                     u"Croatian"_s,
                                     u"Czech"_s,
                                     u"Danish"_s,
                                     u"Dutch"_s,
                                     u"English"_s,
                                     u"Esperanto"_s,
                                     u"Estonian"_s,
                                     u"Faeroese"_s,
                                     u"Fiji"_s,
                                     u"Finnish"_s,
                                     u"French"_s,
                                     u"Frisian"_s,
                                     u"Gaelic"_s,
                                     u"Galician"_s,
                                     u"Georgian"_s,
                                     u"German"_s,
                                     u"Greek"_s,
                                     u"Greenlandic"_s,
                                     u"Guarani"_s,
                                     u"Gujarati"_s,
                                     u"Hausa"_s,
                                     u"Hebrew"_s,
                                     u"Hindi"_s,
                                     u"Hungarian"_s,
                                     u"Icelandic"_s,
                                     u"Indonesian"_s,
                                     u"Interlingua"_s,
                                     u"Interlingue"_s,
                                     u"Inupiak"_s,
                                     u"Irish"_s,
                                     u"Italian"_s,
                                     u"Japanese"_s,
                                     u"Javanese"_s,
                                     u"Kannada"_s,
                                     u"Kashmiri"_s,
                                     u"Kazakh"_s,
                                     u"Kinyarwanda"_s,
                                     u"Kirghiz"_s,
                                     u"Kirundi"_s,
                                     u"Korean"_s,
                                     u"Kurdish"_s,
                                     u"Laothian"_s,
                                     u"Latin"_s,
                                     u"Latvian"_s,
                                     u"Lingala"_s,
                                     u"Lithuanian"_s,
                                     u"Macedonian"_s,
                                     u"Malagasy"_s,
                                     u"Malay"_s,
                                     u"Malayalam"_s,
                                     u"Maltese"_s,
                                     u"Maori"_s,
                                     u"Marathi"_s,
                                     u"Moldavian"_s,
                                     u"Mongolian"_s,
                                     u"Nauru"_s,
                                     u"Nepali"_s,
                                     u"Norwegian"_s,
                                     u"Occitan"_s,
                                     u"Oriya"_s,
                                     u"Oromo"_s,
                                     u"Other"_s,
                                     u"Pashto"_s,
                                     u"Persian"_s,
                                     u"Polish"_s,
                                     u"Portuguese"_s,
                                     u"Punjabi"_s,
                                     u"Quechua"_s,
                                     u"Rhaeto-Romance"_s,
                                     u"Romanian"_s,
                                     u"Russian"_s,
                                     u"Samoan"_s,
                                     u"Sangro"_s,
                                     u"Sanskrit"_s,
                                     u"Serbian"_s,
                                     u"Serbo-Croatian"_s,
                                     u"Sesotho"_s,
                                     u"Setswana"_s,
                                     u"Shona"_s,
                                     u"Sindhi"_s,
                                     u"Singhalese"_s,
                                     u"Siswati"_s,
                                     u"Slovak"_s,
                                     u"Slovenian"_s,
                                     u"Somali"_s,
                                     u"Spanish"_s,
                                     u"Sudanese"_s,
                                     u"Swahili"_s,
                                     u"Swedish"_s,
                                     u"Tagalog"_s,
                                     u"Tajik"_s,
                                     u"Tamil"_s,
                                     u"Tatar"_s,
                                     u"Tegulu"_s,
                                     u"Thai"_s,
                                     u"Tibetan"_s,
                                     u"Tigrinya"_s,
                                     u"Tonga"_s,
                                     u"Tsonga"_s,
                                     u"Turkish"_s,
                                     u"Turkmen"_s,
                                     u"Twi"_s,
                                     u"Ukrainian"_s,
                                     u"Urdu"_s,
                                     u"Uzbek"_s,
                                     u"Vietnamese"_s,
                                     u"Volapuk"_s,
                                     u"Welsh"_s,
                                     u"Wolof"_s,
                                     u"Xhosa"_s,
                                     u"Yiddish"_s,
                                     u"Yoruba"_s,
                                     u"Zulu"_s};
    return list;
}

const QStringList &operatingSystems()
{
    static const QStringList list = {u"Android"_s,     u"BlackBerry"_s, u"Handheld/Mobile Other"_s,
                                     u"iPhone"_s,      u"iPod"_s,       u"iTouch"_s,
                                     u"Java"_s,        u"Linux"_s,      u"Linux Console"_s,
                                     u"Linux Gnome"_s, u"Linux GPL"_s,  u"Linux Open Source"_s,
                                     u"Mac OS X"_s,    u"Mac Other"_s,  u"MS-DOS"_s,
                                     u"Netware"_s,     u"OpenVMS"_s,    u"Palm"_s,
                                     u"Pocket PC"_s,   u"Symbian"_s,    u"Unix"_s,
                                     u"Win2000"_s,     u"Win7 x32"_s,   u"Win7 x64"_s,
                                     u"Win98"_s,       u"WinMobile"_s,  u"WinOther"_s,
                                     u"WinServer"_s,   u"WinVista"_s,   u"WinVista x64"_s,
                                     u"WinXP"_s,       u"Other"_s,      u"Not Applicable"_s};
    return list;
}

const QStringList &of(FieldId field)
{
    static const QStringList none;
    switch (field) {
    case FieldId::otherPricePopUp:
        return currencies();
    case FieldId::installSupportPopUp:
        return installSupport();
    case FieldId::programTypePopUp:
        return programTypes();
    case FieldId::programStatusPopUp:
        return releaseStatuses();
    case FieldId::expireBasePopUp:
        return expireBases();
    case FieldId::categoryPopUp:
        return categories();
    case FieldId::languageTable:
        return languages();
    case FieldId::osTable:
        return operatingSystems();
    default:
        return none;
    }
}

} // namespace quillon::vocabulary
