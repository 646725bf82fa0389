#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Hilfeseite, TellsTheExerciseAndClosesOnAClickElsewhere) {
    Bühne b;
    b.zurÜbung(1);
    b.user.click(L"imgHilfe", 0);
    ASSERT_EQ(b.aktiv(), L"Hilfe");
    EXPECT_EQ(b.caption(L"lblÜbung"), L" Klopfmeise - Der Kurs ");
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"Hilfe"));
    const std::vector<std::pair<std::wstring, std::wstring>> texte{
        {L"Klopfmeise - Der Kurs",
         L"Der Klopfmeise-Kurs besteht aus 30 Lektionen. Jede Lektion ist in 12 Stufen gegliedert. "
         L"Die Stufen bestehen entweder aus einzeiligen Textbausteinen von 55 Zeichen oder aus "
         L"Fließtexten. In der Regel beginnt ein Kind bei Lektion 1 (Stufe 1) und kommt dann in die "
         L"nächste Stufe, wenn es ihm gelingt den jeweiligen Stufentext dreimal FEHLERFREI zu "
         L"tippen. Jede Stufe verfügt zudem über einen wichtigen Lern-Hinweis, der zu Beginn "
         L"unbedingt beachtet werden muss. Im Lehrkraft-Modus gibt es viele "
         L"Einstellungsmöglichkeiten wie z. B. das Vorziehen bzw. Zurücksetzen einer Lektion bzw. "
         L"Stufe, die Anzahl der fehlerfreien Wiederholungen (1-5) und die Einbindung des "
         L"Zeitfaktors beim Üben."},
        {L"Text tippen",
         L"Der im Lehrkraft-Modus eingestellte Text wird angezeigt und muss getippt werden. Fehler "
         L"sind mit der Rücktaste zu korrigieren. Auf dem Konto des übenden Kindes wird die Anzahl "
         L"der durchschnittlichen Anschläge pro Minute gespeichert sowie die Anzahl der getippten "
         L"Texte."},
        {L"Spiel: Wolken treffen",
         L"Die beiden Buchstaben in den Bäumen geben an, wie der grüne Pushy nach links bzw. rechts "
         L"zu bewegen ist. Mit der Leertaste schießt Pushy einen Strahl in den Himmel und versucht, "
         L"damit die Wolken zu treffen. Die Werte der Wolken werden als Punkte gutgeschrieben. Ziel "
         L"ist es, nach 60 Sekunden so viele Punkte wie möglich zu ergattern. Die Höchstpunktzahl "
         L"wird auf dem Konto gespeichert."},
        {L"Spiel: Fallende Steine",
         L"Die beiden Buchstaben links und rechts des Schachtes geben an, wie der gerade fallende "
         L"Stein nach links bzw. rechts zu bewegen ist. Mit der Leertaste kann der Stein im Fallen "
         L"gedreht werden. Mit der Entertaste fällt der Stein schneller, wodurch man mehr Punkte "
         L"bekommt. Ziel ist es, den Schacht so zu füllen, dass ganze Reihen mit Steinen gefüllt "
         L"sind. Ist dies der Fall, rutschen verschwinden diese Reihen, so dass weitere Steine Platz "
         L"finden können. Ziel ist es, nach 60 Sekunden so viele Punkte wie möglich zu ergattern. "
         L"Die Höchstpunktzahl wird auf dem Konto gespeichert."},
        {L"Spiel: Fließband",
         L"Das Fließband befördert Gruppen aus fünf Buchstaben von rechts nach links. Der Spieler "
         L"muss diese fünf Buchstaben so schnell wie möglich tippen und erhält dafür Punkte. Wenn es "
         L"dem Spieler nicht gelingt, die fünf Buchstaben zu tippen, bevor diese das linke Ende des "
         L"Fließbandes erreichen, so endet das Spiel. Die Höchstpunktzahl wird auf dem Konto "
         L"gespeichert."},
        // The titles compare to the letter.
        {L"spiel: fließband", L"Der Hilfetext für diese Übung ist nicht verfügbar."},
    };
    for (const auto& [titel, text] : texte) {
        b.global.AktuelleUebung = titel;
        b.user.click(L"imgHilfe", 0);
        EXPECT_EQ(b.caption(L"lblÜbung"), L" " + titel + L" ");
        EXPECT_EQ(b.caption(L"Label1"), text);
        b.user.close(*b.runtime.active());
    }
}

} // namespace
} // namespace klopfmeise
