#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace klopfmeise {

/// Where a command speaks and asks. What it says is UTF-8, one line at a time: a character in the name of a
/// file that would steer the terminal or break the line comes out as a question mark.
class Konsole {
public:
    /// `ein` is asked for answers only if a person sits there; else every question is answered with no.
    Konsole(std::ostream& aus, std::ostream& fehler, std::istream& ein, bool mensch)
        : aus_(aus)
        , fehler_(fehler)
        , ein_(ein)
        , mensch_(mensch) {}

    void zeile(std::wstring_view text = {});
    /// A line on the stream of errors, behind the name of the program.
    void fehler(std::wstring_view text);
    /// Bytes as they are.
    void roh(std::string_view bytes);

    /// A question for yes or no. "alle" and "keine" answer those that follow too; the end of the input is a
    /// no.
    bool frage(std::wstring_view text);
    /// Answers every question with yes from now on.
    void immerJa() { stets_ = Stets::ja; }

    /// What was handed to the command instead of a file.
    std::istream& eingabe() { return ein_; }
    /// False if something that was said did not arrive.
    bool gut() const;

private:
    enum class Stets { fragen, ja, nein };

    std::ostream& aus_;
    std::ostream& fehler_;
    std::istream& ein_;
    bool mensch_;
    Stets stets_ = Stets::fragen;
};

} // namespace klopfmeise
