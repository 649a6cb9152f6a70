#include "platform/foundation/LanguageLetters.h"

#include <array>

namespace {

constexpr std::size_t kLatin = 80;
constexpr std::size_t kCyrillic = 40;
constexpr std::size_t kGreek = 30;
constexpr std::size_t kHan = 4000;
constexpr std::size_t kHangul = 2200;

// Orders of frequency are those of running text; a few places up or down do not matter to the guess.
constexpr auto kLanguages = std::to_array<LanguageLetters>({
    {"fr", u"éèàêçâîôùûïëœ", 0.98, kLatin},
    {"de", u"üäöß", 0.97, kLatin},
    {"es", u"óíáéñúü", 0.98, kLatin},
    {"pt", u"ãçáéíóêõúâàô", 0.98, kLatin},
    {"it", u"èàùòìé", 0.97, kLatin},
    {"sv", u"äåöé", 0.97, kLatin},
    {"da", u"øåæé", 0.97, kLatin},
    {"fi", u"äöå", 0.97, kLatin},
    {"is", u"íáðóþéæúöý", 0.98, kLatin},
    {"nl", u"ëéïèöü", 0.95, kLatin},
    {"ca", u"óàèéíçúïòü", 0.97, kLatin},
    {"hu", u"áéöóőüíúű", 0.98, kLatin},
    {"cs", u"íáéěřžýčšůúťóďň", 0.98, kLatin},
    {"sk", u"áíčéšýžúťľôóňäďĺŕ", 0.98, kLatin},
    {"pl", u"łąęóżśćńź", 0.98, kLatin},
    {"hr", u"čšžćđ", 0.97, kLatin},
    {"ro", u"ăîşţâșț", 0.98, kLatin},
    {"sq", u"ëç", 0.97, kLatin},
    {"tr", u"ıüşğçöîâû", 0.98, kLatin},
    {"et", u"äõüöšž", 0.97, kLatin},
    {"lv", u"āīēšņļūčžģķ", 0.98, kLatin},
    {"lt", u"ėšžįųąūčę", 0.98, kLatin},
    {"eo", u"ĝĉŝŭĵĥ", 0.97, kLatin},
    {"mt", u"ħġżċà", 0.97, kLatin},
    // Code page 1258 writes tones as combining marks.
    {"vi", u"đ\u0301ư\u0300ô\u0323ơêâ\u0309ă\u0303áàóéíãúèòýìùõ", 0.98, kLatin},
    {"ru", u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё", 0.995, kCyrillic},
    {"uk", u"оаиінтврелскдумпзябьгйчхцжющєїфшґ", 0.995, kCyrillic},
    {"bg", u"аоеитнрсвдлкмпзгуъябчйщцжхшюфь", 0.99, kCyrillic},
    {"sr", u"аоиеунртсјкдвмплзгбчшцжњћхфљђџ", 0.99, kCyrillic},
    {"el", u"αοιετσνρυπκμλςηωίάδγέόχθήφύβώξζψϊϋ", 0.995, kGreek},
    {"he", u"יוהלאתרבםמשנחדפקכעגזטןסץףךצ", 0.99, 20},
    {"ar", u"المينوترةبعدسفهكقحجأشصطخإىضغذثئزءآظؤـ", 0.99, 40},
    {"fa", u"ایردنهومتسبشکگخزلعقفحجچپآغذطصضظثژئء", 0.99, 40},
    {"th",
     u"านรกอเง่ม้ยลว\u0E31ดทสต\u0E35\u0E34ปบคหแจพช\u0E37ข\u0E38ใ\u0E39\u0E48โะ\u0E49ไ\u0E33\u0E47ถซณผธญศษภฐ"
     u"\u0E4Cฟฝฉฤๆ",
     0.99, 30},
    {"ja",
     u"の、い。るとたしはにをなでてがっりれかまうすらこあさもんだスーンルイトド・リクラプレきくタ「」ロアシフ"
     u"けどそせつわよえおめみやジマテ"
     u"カデコグムブサセバパメニ日人一大本年国者会中出上分時ちゃょゅじばずごろほべ",
     0.75, kHan},
    {"zh-Hans",
     u"的，。一是在不了有人、中大为上和国我以这个他要时到来用们生地于出就分对成会可主发年动同工也能下过子说产"
     u"种面而方后多定行学法所民得经"
     u"十三之进着等部度家电力里如水化高自二理起小物现实加量都两体制机当使点从业本去把性好应开它合还因由其些然"
     u"前外天政四日那社义事平形"
     u"：“”（）",
     0.6, kHan},
    {"zh-Hant",
     u"的，。一是在不了有人、中大為上和國我以這個他要時到來用們生地於出就分對成會可主發年動同工也能下過子說產"
     u"種面而方後多定行學法所民得經"
     u"十三之進著等部度家電力裡如水化高自二理起小物現實加量都兩體制機當使點從業本去把性好應開它合還因由其些然"
     u"前外天政四日那社義事平形"
     u"：「」（）文",
     0.6, kHan},
    {"ko",
     u"이다는에가의고을한를도지로은하서사기자인어리시해대나있정으일수부아전들과그보라만주여상것원면장제스했구"
     u"국게동경비우유선성"
     u"공조소트거신마무모니안와적오였세회위미용관연진생업교까지금개중문간행력강민운",
     0.75, kHangul},
});

} // namespace

std::span<const LanguageLetters> knownLanguageLetters()
{
    return kLanguages;
}
