#include "front/hilfe.h"

#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/uebungen.h"

namespace klopfmeise {

namespace {

/// By the exercises' numbers less one.
constexpr auto Hilfetexte = std::to_array<const wchar_t*>({
    L"Der Klopfmeise-Kurs besteht aus 30 Lektionen. Jede Lektion ist in 12 Stufen gegliedert. Die Stufen "
    L"bestehen entweder aus einzeiligen Textbausteinen von 55 Zeichen oder aus Fließtexten. In der Regel "
    L"beginnt ein Kind bei Lektion 1 (Stufe 1) und kommt dann in die nächste Stufe, wenn es ihm gelingt den "
    L"jeweiligen Stufentext dreimal FEHLERFREI zu tippen. Jede Stufe verfügt zudem über einen wichtigen "
    L"Lern-Hinweis, der zu Beginn unbedingt beachtet werden muss. Im Lehrkraft-Modus gibt es viele "
    L"Einstellungsmöglichkeiten wie z. B. das Vorziehen bzw. Zurücksetzen einer Lektion bzw. Stufe, die "
    L"Anzahl der fehlerfreien Wiederholungen (1-5) und die Einbindung des Zeitfaktors beim Üben.",
    L"Der im Lehrkraft-Modus eingestellte Text wird angezeigt und muss getippt werden. Fehler sind mit der "
    L"Rücktaste zu korrigieren. Auf dem Konto des übenden Kindes wird die Anzahl der durchschnittlichen "
    L"Anschläge pro Minute gespeichert sowie die Anzahl der getippten Texte.",
    L"Die beiden Buchstaben in den Bäumen geben an, wie der grüne Pushy nach links bzw. rechts zu bewegen "
    L"ist. Mit der Leertaste schießt Pushy einen Strahl in den Himmel und versucht, damit die Wolken zu "
    L"treffen. Die Werte der Wolken werden als Punkte gutgeschrieben. Ziel ist es, nach 60 Sekunden so viele "
    L"Punkte wie möglich zu ergattern. Die Höchstpunktzahl wird auf dem Konto gespeichert.",
    L"Die beiden Buchstaben links und rechts des Schachtes geben an, wie der gerade fallende Stein nach "
    L"links bzw. rechts zu bewegen ist. Mit der Leertaste kann der Stein im Fallen gedreht werden. Mit der "
    L"Entertaste fällt der Stein schneller, wodurch man mehr Punkte bekommt. Ziel ist es, den Schacht so zu "
    L"füllen, dass ganze Reihen mit Steinen gefüllt sind. Ist dies der Fall, rutschen verschwinden diese "
    L"Reihen, so dass weitere Steine Platz finden können. Ziel ist es, nach 60 Sekunden so viele Punkte wie "
    L"möglich zu ergattern. Die Höchstpunktzahl wird auf dem Konto gespeichert.",
    L"Das Fließband befördert Gruppen aus fünf Buchstaben von rechts nach links. Der Spieler muss diese fünf "
    L"Buchstaben so schnell wie möglich tippen und erhält dafür Punkte. Wenn es dem Spieler nicht gelingt, "
    L"die fünf Buchstaben zu tippen, bevor diese das linke Ende des Fließbandes erreichen, so endet das "
    L"Spiel. Die Höchstpunktzahl wird auf dem Konto gespeichert.",
});
static_assert(Hilfetexte.size() == Übungszahl);

} // namespace

Hilfe::Hilfe(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Hilfe,
           {.kind = FormKind::window,
            .caption = L"Hilfe",
            .width = 9150,
            .height = 7095,
            .back = colors::panel})
    , umgebung_(umgebung) {
    centre();
}

void Hilfe::Form_Activate() {
    Hilfetext.clear();
    lblÜbung.setCaption(L" " + umgebung_.global.AktuelleUebung + L" ");
    textzuweisung();
    if (Hilfetext.empty())
        Hilfetext = L"Der Hilfetext für diese Übung ist nicht verfügbar.";
    Label1.setCaption(Hilfetext);
}

void Hilfe::textzuweisung() {
    for (std::size_t i = 0; i < Hilfetexte.size(); ++i)
        if (umgebung_.global.AktuelleUebung == Übungen[i].titel)
            Hilfetext = Hilfetexte[i];
}

HilfeFehlerbericht::HilfeFehlerbericht(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::HilfeFehlerbericht,
           {.kind = FormKind::window, .width = 5790, .height = 6870, .back = colors::panel})
    , umgebung_(umgebung) {
    centre();
}

void HilfeFehlerbericht::Form_Activate() {
    Vordergrund(*this, true);
    lbl.setText(umgebung_.global.Fehlerbericht);
}

} // namespace klopfmeise
