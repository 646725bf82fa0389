#include "platform/richtext/rtf.h"

#include <iostream>
#include <iterator>
#include <string>

// rtf_probe <RTF >RTF: reads a document and writes it again

int main() {
    const std::string bytes{std::istreambuf_iterator<char>(std::cin), {}};
    std::cout << klopfmeise::writeRtf(klopfmeise::readRtf(bytes).document);
    return std::cout.flush() ? 0 : 1;
}
