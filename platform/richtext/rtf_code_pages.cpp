#include "platform/richtext/rtf_code_pages.h"

#include "platform/values/windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace klopfmeise {

namespace {

constexpr std::size_t firstOfTable = 0x80;

/// The upper half of a page.
struct Table {
    int page;
    std::u16string_view characters;
};

constexpr auto tables = std::to_array<Table>({
    {codePagePc, u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                 u"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                 u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                 u"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\xA0"},
    {codePagePca, u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
                  u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
                  u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
                  u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\xAD±‗¾¶§÷¸°¨·¹³²■\xA0"},
    // Central Europe
    {1250, u"€\x81‚\x81„…†‡\x81‰Š‹ŚŤŽŹ\x81‘’“”•–—\x81™š›śťžź"
           u"\xA0ˇ˘Ł¤Ą¦§¨©Ş«¬\xAD®Ż°±˛ł´µ¶·¸ąş»Ľ˝ľż"
           u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
           u"ŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙"},
    // Cyrillic
    {1251, u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏђ‘’“”•–—\x81™љ›њќћџ"
           u"\xA0ЎўЈ¤Ґ¦§Ё©Є«¬\xAD®Ї°±Ііґµ¶·ё№є»јЅѕї"
           u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
           u"абвгдежзийклмнопрстуфхцчшщъыьэюя"},
    // Greek
    {1253, u"€\x81‚ƒ„…†‡\x81‰\x81‹\x81\x81\x81\x81\x81‘’“”•–—\x81™\x81›\x81\x81\x81\x81"
           u"\xA0΅Ά£¤¥¦§¨©\x81«¬\xAD®―°±²³΄µ¶·ΈΉΊ»Ό½ΎΏ"
           u"ΐΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡ\x81ΣΤΥΦΧΨΩΪΫάέήί"
           u"ΰαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώ\x81"},
    // Turkish
    {1254, u"€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x81\x81\x81\x81‘’“”•–—˜™š›œ\x81\x81Ÿ"
           u"\xA0¡¢£¤¥¦§¨©ª«¬\xAD®¯°±²³´µ¶·¸¹º»¼½¾¿"
           u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞß"
           u"àáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ"},
    {codePageMac, u"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü"
                  u"†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø"
                  u"¿¡¬√ƒ≈∆«»…\xA0ÀÃÕŒœ–—“”‘’÷◊ÿŸ⁄€‹›ﬁﬂ"
                  u"‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ\x81ÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ"},
});
static_assert(std::ranges::all_of(tables, [](const Table& table) { return table.characters.size() == 128; }));

/// A font's character set and its code page.
struct Charset {
    int charset;
    int page;
};

constexpr auto charsets = std::to_array<Charset>({
    {0, codePageAnsi},
    {2, codePageAnsi},
    {77, codePageMac},
    {161, 1253},
    {162, 1254},
    {204, 1251},
    {238, 1250},
    {254, codePagePc},
    {255, codePagePca},
});

} // namespace

int codePageOfCharset(int charset) {
    const auto* found = std::ranges::find(charsets, charset, &Charset::charset);
    return found == charsets.end() ? 0 : found->page;
}

wchar_t fromCodePage(int page, unsigned char byte) {
    if (byte < firstOfTable)
        return static_cast<wchar_t>(byte);
    const auto* table = std::ranges::find(tables, page, &Table::page);
    return table == tables.end() ? fromWindows1252(byte) : table->characters[byte - firstOfTable];
}

} // namespace klopfmeise
