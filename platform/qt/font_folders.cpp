#include "platform/qt/font_folders.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace klopfmeise {

namespace {

/// In the format of fonts.dtd. The folders are those of the system's packages, with their lists; hinting and
/// smoothing are what this system sets for everybody. A family that is not here is drawn sans serif.
constexpr const char* rules = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
<dir>/usr/share/fonts/truetype/liberation</dir>
<dir>/usr/share/fonts/truetype/dejavu</dir>
<cachedir>/var/cache/fontconfig</cachedir>
<cachedir prefix="xdg">fontconfig</cachedir>
<alias binding="same"><family>Courier New</family><accept><family>Liberation Mono</family></accept></alias>
<alias binding="same"><family>Times New Roman</family><accept><family>Liberation Serif</family></accept></alias>
<alias><family>monospace</family><prefer><family>Liberation Mono</family></prefer></alias>
<alias><family>serif</family><prefer><family>Liberation Serif</family></prefer></alias>
<match target="pattern">
<edit name="family" mode="append_last"><string>Liberation Sans</string><string>DejaVu Sans</string></edit>
<edit name="antialias" mode="append"><bool>true</bool></edit>
<edit name="hintstyle" mode="append"><const>hintslight</const></edit>
<edit name="lcdfilter" mode="append"><const>lcddefault</const></edit>
</match>
</fontconfig>
)";

bool holdsTheProgramsFont(FcConfig& config) {
    const FcFontSet* fonts = FcConfigGetFonts(&config, FcSetSystem);
    FcChar8* family = nullptr;
    return fonts && std::any_of(fonts->fonts, fonts->fonts + fonts->nfont, [&](FcPattern* font) {
               return FcPatternGetString(font, FC_FAMILY, 0, &family) == FcResultMatch &&
                      std::string_view(reinterpret_cast<const char*>(family)) == "Liberation Mono";
           });
}

} // namespace

void chooseFontFolders() {
    const std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)> config(FcConfigCreate(), FcConfigDestroy);
    if (config &&
        FcConfigParseAndLoadFromMemory(config.get(), reinterpret_cast<const FcChar8*>(rules), FcTrue) &&
        FcConfigBuildFonts(config.get()) && holdsTheProgramsFont(*config))
        FcConfigSetCurrent(config.get());
}

} // namespace klopfmeise
