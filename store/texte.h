#pragma once

#include "platform/richtext/rtf.h"
#include "store/globale.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

class Files;

/// Own texts: rich-text documents in `Data\Texte\`, the same for all classes. A text is known by the name of
/// its file, with the ending.
inline constexpr std::wstring_view Textmuster = L"*.txt";

/// The one look of all texts.
inline const RtfFormat Textformat{.typeface = L"Courier New", .halfPoints = 20};

/// With its closing backslash.
std::wstring texteordner(const Globale& global);
std::wstring textpfad(const Globale& global, const std::wstring& name);
std::vector<std::wstring> texteAuflisten(Files& dateien, const Globale& global);

/// False for a link, which is listed and can be deleted, but may lead out of the folder: it is neither read
/// nor written.
bool textZugänglich(Files& dateien, const Globale& global, const std::wstring& name);

/// The path of the text that the settings of a class name; empty for a name that leads out of the folder.
/// Those settings lie where others can write them.
std::wstring klassentext(const Globale& global, const std::wstring& name);

/// Makes an empty text from a name without the ending; one that is there is emptied. Its name as the folder
/// spells it, or none if no text can bear that name or nothing could be written.
std::optional<std::wstring> textAnlegen(Files& dateien, const Globale& global, const std::wstring& name);

enum class Textlöschung {
    gelöscht, ///< it is not there any more
    letzter,  ///< there has to be one at least
    geblieben,
};
/// Deletes a text with its companion, whose name has a "1" for the last letter.
Textlöschung textLöschen(Files& dateien, const Globale& global, const std::wstring& name);

/// Makes a text that of the chosen class. False if that could not be written, or if the settings of a class
/// cannot hold the name.
bool textWählen(Files& dateien, const Globale& global, const std::wstring& name);

} // namespace klopfmeise
