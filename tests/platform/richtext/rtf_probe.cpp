#include "platform/richtext/rtf.h"

#include <array>
#include <fstream>
#include <iterator>
#include <string>

// rtf_probe TEXT RTF: a text file becomes RTF, with fonts, colours and alignments in turn

namespace {

using namespace klopfmeise;

/// Each word gets a format of its own and each paragraph an alignment, so that every part of the writer is
/// used.
RtfDocument styledInTurn(const RtfDocument& plain) {
    static constexpr std::array<std::uint32_t, 3> colors{0x000000, 0xC00000, 0x0000C8};
    RtfDocument result;
    unsigned n = 0;
    for (const RtfParagraph& paragraph : plain.paragraphs) {
        RtfParagraph styled{{}, static_cast<RtfAlignment>(result.paragraphs.size() % 4)};
        for (const RtfRun& run : paragraph.runs)
            for (const wchar_t character : run.text) {
                if (styled.runs.empty() || character == L' ') {
                    const wchar_t* typeface = ++n % 5 < 3 ? L"Courier New" : L"Arial";
                    const int size = 24 + static_cast<int>(n % 4);
                    styled.runs.push_back(
                        {{}, {typeface, size, n % 2 == 1, n % 3 == 1, n % 4 == 1, colors[n % 3]}});
                }
                styled.runs.back().text += character;
            }
        result.paragraphs.push_back(std::move(styled));
    }
    return result;
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments, arguments + count);
    std::ifstream input(words.at(1), std::ios::binary);
    const RtfDocument document = readRtf(std::string{std::istreambuf_iterator<char>(input), {}}).document;
    std::ofstream output(words.at(2), std::ios::binary);
    output << writeRtf(styledInTurn(document));
    return input && output.flush() ? 0 : 1;
}
